#pragma once

#include "qmessevent.h"
#include "rowstore.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

class QueryService;
class QueryWorker;
struct QueryRequest;

/// What the server answered to the statements of one QueryOwner::ask().
struct QueryAnswer
{
    /// Of the statement that was to be sent before the others; empty when it failed.
    RowStore before;
    /// One for each statement, in their order; fewer after a failure.
    std::vector<RowStore> results;
    /// The server's words after a failure, with the statement; else empty.
    QString error;
    int errorNumber = 0;
    /// How grave it is to be told: a lost server is told once, by whoever finds it first.
    int kind = QMessEvent::Critical;

    /// The first cell of a result as a whole number, as of SELECT COUNT(*); 0 when there is none.
    qint64 number(size_t result) const;
};
Q_DECLARE_METATYPE(std::shared_ptr<QueryAnswer>)

/// Whoever reads lists in the background: a tab, a report, the search of a sale. Its statements run away from
/// the window, in order, on one of the two connections that all owners share. A statement may last as long
/// as it needs; nothing here waits for the server in the window's thread.
class QueryOwner : public QObject
{
    Q_OBJECT

public:
    /// sourceConnection: the window's connection, whose address is used.
    QueryOwner(const QString &sourceConnection, QObject *parent);
    /// Breaks off what is running.
    ~QueryOwner() override;

    /// Its statements may take many seconds, as a report's do. Of those one runs at a time, in the order they
    /// were asked for: two of them at once would leave no connection to a search that somebody waits for.
    void setLong(bool isLong) { m_isLong = isLong; }
    /// Takes the place of what was asked before: that is ended on the server and will not answer. Statements
    /// behind a failed one are not sent. before: sent first of all; its failure does not count.
    void ask(const QStringList &statements, const QString &before = {});
    /// What was asked will not answer.
    void cancel();
    bool isWaiting() const { return m_request != nullptr; }

signals:
    /// Comes from the event loop, never from within ask(). The results may be moved out of it.
    void answered(const std::shared_ptr<QueryAnswer> &answer);

private:
    friend class QueryService;
    void takeAnswer();
    void loseService();

    QString m_source;
    bool m_isLong = false;
    QPointer<QueryService> m_service;
    std::shared_ptr<QueryRequest> m_request;
};

/// The two background connections behind a window's one, and the queue of those who want to use them: first
/// come, first served; a newer request of an owner takes the place of its older one. Connections are opened
/// on demand, closed when idle for a minute, and opened anew, with the session settings, when they were lost.
class QueryService : public QObject
{
    Q_OBJECT

public:
    static constexpr size_t mostConnections = 2;

    /// The service of a window's connection, which ends together with it. Null without such a connection.
    static QueryService *of(const QString &sourceConnection);
    ~QueryService() override;

    /// For tests.
    static void setIdleTime(std::chrono::milliseconds time);

    void take(const std::shared_ptr<QueryRequest> &request);
    void replace(const std::shared_ptr<QueryRequest> &older, const std::shared_ptr<QueryRequest> &newer);
    void callOff(const std::shared_ptr<QueryRequest> &request);

private:
    friend class QueryWorker;
    QueryService(const QString &sourceConnection, QObject *driver);
    void leave();
    void endRunning(const QueryWorker &worker, bool isCut);
    void cutOutdated(const std::shared_ptr<QueryRequest> &request);
    /// The next two are called by a worker; the service takes the answer over in the window's thread.
    void answer(const std::shared_ptr<QueryRequest> &request);
    void failAllWaiting(const QueryAnswer &failure);
    void deliver(const std::shared_ptr<QueryRequest> &request);

    const QString m_source;
    /// Guards all below, the workers' states included.
    std::mutex m_guard;
    std::condition_variable m_changed;
    std::deque<std::shared_ptr<QueryRequest>> m_queue;
    std::vector<std::unique_ptr<QueryWorker>> m_workers;
    std::atomic<bool> m_isLeaving{false};
};
