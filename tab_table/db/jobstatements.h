#pragma once

#include "db.h"

#include <functional>
#include <memory>

class JobConnection;
class JobContext;

/// What a job writes in one transaction, or not at all.
struct WholeWrite
{
    /// All statements of it; false when one has failed, or nothing is to be written.
    std::function<bool()> write;
    /// Whether all of it is there, asked after a COMMIT without an answer. Nothing when the server does not
    /// say.
    std::function<std::optional<bool>()> isWritten;
    /// Whether write() had a reason of its own; none when null.
    std::function<bool()> isRefused = nullptr;
};

/// The statements of a job that writes in transactions: on a connection of its own, which is replaced when it
/// was lost. What fails is not reported but kept, for the job decides whether it is tried again.
class JobStatements
{
public:
    explicit JobStatements(JobContext *context);
    ~JobStatements();
    Q_DISABLE_COPY(JobStatements)

    /// False after a reported failure: there is no connection.
    bool isOpen() const;
    Db db() const;

    std::optional<QSqlQuery> send(const QString &sql);
    /// What failed without an error of the server.
    void fail(const QString &sql, const QString &error);

    /// The part of a transaction that failed.
    enum class Step { None, Write, Commit };
    /// All of the work in one transaction, or nothing. What failed before is forgotten. When it comes back
    /// the transaction is over: a lost connection may be replaced.
    Step transact(const std::function<bool()> &work);

    /// How a write has ended: certainly there, certainly not, or nobody knows.
    enum class End { Written, Refused, Stopped, Failed, Unclear };
    /// Writes until it is there or certainly not: what another program spoils is tried twice more, a lost
    /// connection is waited for, and after a lost answer to COMMIT the server is asked. What has failed is
    /// reported.
    End writeWhole(const WholeWrite &work);

    /// What failed last, in the server's words; empty for nothing.
    const QString &error() const { return m_error; }
    /// Of the transaction; 0 when it was committed.
    int errorNumber() const { return m_errorNumber; }
    /// Waits for the server. False when it does not answer, or the job is cancelled.
    bool connectAnew();
    /// Posts what send() and fail() have kept; all else has reported itself.
    void report() const;

private:
    /// Nothing: once more.
    std::optional<End> afterWrite(const WholeWrite &work);
    std::optional<End> afterCommit(const WholeWrite &work);

    JobContext *m_context;
    std::unique_ptr<JobConnection> m_connection;
    QString m_error;
    QString m_failedSql;
    int m_errorNumber = 0;
};
