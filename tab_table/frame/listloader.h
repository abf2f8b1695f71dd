#pragma once

#include "qmessevent.h"
#include "rowstore.h"

#include <QObject>
#include <QString>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>
#include <mutex>

class ListWorker;
class QSqlQuery;
class WorkerConnection;

/// What a search found: the rows and how many there are in all.
struct FoundRows
{
    RowStore rows;
    qint64 count = 0;
    /// The server's words after a failure, with the statement; else empty.
    QString error;
    int errorNumber = 0;
    /// How grave it is to be told: a lost server is told once, by whoever finds it first.
    int kind = QMessEvent::Critical;
    int request = 0;
};

/// Runs the two statements of a list (count and rows) away from the window, on a connection and a thread
/// of its own. A newer request ends the older one's statement on the server; only the newest answers. A
/// statement may last as long as it needs; nothing here waits for the server in the window's thread.
class ListLoader : public QObject
{
    Q_OBJECT

public:
    /// sourceConnection: the connection whose address is used.
    ListLoader(const QString &sourceConnection, QObject *parent);
    /// Breaks off what is running.
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
    void cutOutdated();
    void answer(const std::shared_ptr<FoundRows> &rows);

    QString m_source;
    QThread m_thread;
    ListWorker *m_worker;
    QTimer m_patience;
    std::atomic<int> m_newest{0};
    int m_lastEnded = 0;
    bool m_isLoading = false;
};

/// The part of ListLoader that lives in its thread.
class ListWorker : public QObject
{
    Q_OBJECT

public:
    ListWorker(const QString &sourceConnection, const std::atomic<int> &newest);
    ~ListWorker() override;

    /// What runs on the server: the request's number, 0 when nothing does, and its connection's number there.
    struct Running
    {
        int request = 0;
        qint64 serverId = 0;
    };
    /// Any thread.
    Running running() const;
    /// Ends whatever waits for the server, at once; the connection is opened anew when it is needed. Any
    /// thread.
    void cut();
    /// The same for good: a connection on its way is given up too.
    void leave();

public slots:
    void run(const QString &sql, const QString &countSql, int number);

signals:
    void done(std::shared_ptr<FoundRows> rows);

private:
    struct Search
    {
        const QString &sql;
        const QString &countSql;
    };
    bool isOutdated(const FoundRows &result) const { return result.request != m_newest; }
    bool connectOnce(FoundRows *result);
    void disconnect();
    void setRunning(const Running &running);
    bool searchOnce(const Search &search, FoundRows *result);
    bool exec(QSqlQuery *query, const QString &sql, FoundRows *result);

    QString m_source;
    const std::atomic<int> &m_newest;
    std::atomic<bool> m_isLeaving{false};
    /// Guards what the window's thread looks at: the connection and what runs on it.
    mutable std::mutex m_guard;
    Running m_running;
    std::unique_ptr<WorkerConnection> m_connection;
};
