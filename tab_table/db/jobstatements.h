#pragma once

#include "db.h"

#include <functional>
#include <memory>

class JobConnection;
class JobContext;

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

    /// What failed last, in the server's words; empty for nothing.
    const QString &error() const { return m_error; }
    /// Of the transaction; 0 when it was committed.
    int errorNumber() const { return m_errorNumber; }
    /// Waits for the server. False when it does not answer, or the job is cancelled.
    bool connectAnew();
    /// Posts what send() and fail() have kept; all else has reported itself.
    void report() const;

private:
    JobContext *m_context;
    std::unique_ptr<JobConnection> m_connection;
    QString m_error;
    QString m_failedSql;
    int m_errorNumber = 0;
};
