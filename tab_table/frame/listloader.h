#pragma once

#include "rowstore.h"

#include <QObject>
#include <QString>
#include <QThread>
#include <atomic>
#include <memory>

class ListWorker;

/// What a search found: the rows and how many there are in all.
struct FoundRows
{
    RowStore rows;
    qint64 count = 0;
    /// The server's words after a failure, with the statement; else empty.
    QString error;
    int request = 0;
};

/// Runs the two statements of a list (count and rows) away from the window, on a connection and a thread
/// of its own. A newer request ends the older one's statement on the server; only the newest answers.
class ListLoader : public QObject
{
    Q_OBJECT

public:
    /// sourceConnection: the connection whose address is used; receiver gets the messages.
    ListLoader(const QString &sourceConnection, QObject *receiver, QObject *parent);
    /// Ends what is running and waits for it.
    ~ListLoader() override;

    /// An empty countSql means that the rows found are all there are.
    void load(const QString &sql, const QString &countSql);
    /// Forgets the request on its way: it will not answer.
    void cancel();
    bool isLoading() const { return m_isLoading; }

signals:
    void found(std::shared_ptr<FoundRows> rows);
    void request(const QString &sql, const QString &countSql, int number);

private:
    void interrupt();
    void answer(const std::shared_ptr<FoundRows> &rows);

    QString m_source;
    QObject *m_receiver;
    QThread m_thread;
    ListWorker *m_worker;
    std::atomic<int> m_newest{0};
    bool m_isLoading = false;
};

/// The part of ListLoader that lives in its thread.
class ListWorker : public QObject
{
    Q_OBJECT

public:
    ListWorker(const QString &sourceConnection, QObject *receiver, const std::atomic<int> &newest);
    ~ListWorker() override;

    /// The server's number of the connection while a statement runs on it, else 0. Any thread.
    qint64 runningId() const { return m_runningId; }

public slots:
    void run(const QString &sql, const QString &countSql, int number);

signals:
    void done(std::shared_ptr<FoundRows> rows);

private:
    bool connectOnce();
    bool exec(QSqlQuery &query, const QString &sql, FoundRows &result);

    QString m_source;
    QObject *m_receiver;
    const std::atomic<int> &m_newest;
    std::atomic<qint64> m_runningId{0};
    std::unique_ptr<class WorkerConnection> m_connection;
};
