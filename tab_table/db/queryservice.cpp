#include "queryservice.h"

#include "connectionstate.h"
#include "db.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <charconv>

using Request = std::shared_ptr<QueryRequest>;
using Lock = std::unique_lock<std::mutex>;

struct QueryRequest
{
    QString before;
    QStringList statements;
    bool isLong = false;
    /// To be used in the window's thread, and only while this is not called off.
    QueryOwner *owner = nullptr;
    std::atomic<bool> isCalledOff{false};
    QueryAnswer answer;
};

namespace {
/// A server that has not ended an outdated statement after so long does not answer at all.
const std::chrono::milliseconds patience(2000);

const char *const serviceProperty = "velta_queries";

std::chrono::milliseconds &idleTime()
{
    static std::chrono::milliseconds time(60000);
    return time;
}

bool isServerSilent(int error)
{
    return isConnectionLost(error) && error != ServerError::TooManyConnections;
}

/// Lets the window's connection be tried too. False when the loss is known.
bool reportLoss(const QString &source)
{
    ConnectionState *state = ConnectionState::of(QSqlDatabase::database(source, false));
    return state == nullptr || state->reportLoss(true);
}
} // namespace

/// One connection and the thread it lives in.
class QueryWorker
{
public:
    explicit QueryWorker(QueryService &service)
        : m_service(service), m_thread(QThread::create([this] { work(); }))
    {
        m_thread->start();
    }
    ~QueryWorker() { m_thread->wait(); }
    Q_DISABLE_COPY(QueryWorker)

    /// All that follow: with the service's guard.
    bool isBusy() const { return m_request != nullptr; }
    bool isBusyLong() const { return m_request != nullptr && m_request->isLong; }
    /// Whether a statement of the request is at the server.
    bool isRunning(const Request &request) const { return m_request == request && m_runningOn != 0; }
    /// The number on the server of the connection that a statement runs on, else 0.
    qint64 runningOn() const { return m_runningOn; }
    /// Ends whatever waits for the server, at once; the connection is opened anew when it is needed.
    void cut() const
    {
        if (m_connection)
            m_connection->cut();
    }

private:
    void work();
    bool takeNext();
    bool mayTake(const Request &request) const;
    void disconnect();
    bool connectOnce();
    void answerRequest();
    bool runAll();
    bool fetch(const QString &sql, RowStore *rows);
    bool begin();
    void finish();

    QueryService &m_service;
    Request m_request;
    qint64 m_runningOn = 0;
    std::unique_ptr<WorkerConnection> m_connection;
    std::unique_ptr<QThread> m_thread;
};

void QueryWorker::work()
{
    while (takeNext()) {
        answerRequest();
        m_service.answer(m_request);
    }
    disconnect();
}

bool QueryWorker::mayTake(const Request &request) const
{
    const auto &workers = m_service.m_workers;
    return !request->isLong || std::none_of(workers.begin(), workers.end(),
                                            [](const auto &worker) { return worker->isBusyLong(); });
}

/// Waits for a request and closes the connection when none comes. False when the service ends.
bool QueryWorker::takeNext()
{
    Lock lock(m_service.m_guard);
    m_request.reset();
    // What waits may have waited for the end of this one.
    m_service.m_changed.notify_all();
    auto &queue = m_service.m_queue;
    auto next = queue.end();
    const auto isReady = [&] {
        if (m_service.m_isLeaving)
            return true;
        next = std::find_if(queue.begin(), queue.end(),
                            [this](const Request &request) { return mayTake(request); });
        return next != queue.end();
    };
    if (!m_service.m_changed.wait_for(lock, idleTime(), isReady)) {
        lock.unlock();
        disconnect();
        lock.lock();
        m_service.m_changed.wait(lock, isReady);
    }
    if (m_service.m_isLeaving)
        return false;
    m_request = *next;
    queue.erase(next);
    return true;
}

void QueryWorker::disconnect()
{
    std::unique_ptr<WorkerConnection> closed;
    const Lock lock(m_service.m_guard);
    closed.swap(m_connection);
}

bool QueryWorker::connectOnce()
{
    if (m_connection)
        return true;
    auto connection = std::make_unique<WorkerConnection>(m_service.m_source, nullptr, &m_service.m_isLeaving);
    if (!connection->isOpen()) {
        m_request->answer.error =
            QueryService::tr("Немає зв'язку з базою даних.") + QLatin1Char('\n') + connection->error();
        m_request->answer.errorNumber = connection->errorNumber();
        return false;
    }
    const Lock lock(m_service.m_guard);
    m_connection = std::move(connection);
    return !m_service.m_isLeaving;
}

void QueryWorker::answerRequest()
{
    // Twice: a connection may have been ended while nobody used it.
    for (int time = 0; time < 2 && !m_request->isCalledOff; ++time) {
        m_request->answer = QueryAnswer();
        if (!connectOnce()) {
            if (isServerSilent(m_request->answer.errorNumber))
                m_service.failAllWaiting(m_request->answer);
            return;
        }
        if (runAll())
            return;
        disconnect();
    }
}

/// False when the connection is of no use any more.
bool QueryWorker::runAll()
{
    QueryAnswer &answer = m_request->answer;
    if (!m_request->before.isEmpty()) {
        if (!fetch(m_request->before, &answer.before) && isConnectionLost(answer.errorNumber))
            return false;
        answer.error.clear();
        answer.errorNumber = 0;
    }
    for (const QString &sql : qAsConst(m_request->statements)) {
        RowStore rows;
        if (!fetch(sql, &rows))
            return !isConnectionLost(answer.errorNumber);
        answer.results.push_back(std::move(rows));
    }
    return true;
}

/// A statement runs until its last row is here: whoever calls it off meanwhile ends it on the server.
bool QueryWorker::fetch(const QString &sql, RowStore *rows)
{
    bool isFetched = false;
    FetchError error;
    // Sent for an older statement, a KILL may reach the server when this one runs.
    do {
        if (!begin())
            return false;
        isFetched = RowStore::fetch(*m_connection->database(), sql, m_request->isCalledOff, rows, &error);
        finish();
    } while (!isFetched && error.number == ServerError::Interrupted);
    if (!isFetched) {
        *rows = RowStore();
        m_request->answer.errorNumber = error.number;
        m_request->answer.error = error.text + QLatin1Char('\n') + sql.left(500);
    }
    return isFetched;
}

/// From here on whoever calls the request off ends its statement; false when somebody has.
bool QueryWorker::begin()
{
    const Lock lock(m_service.m_guard);
    if (m_request->isCalledOff || m_service.m_isLeaving)
        return false;
    m_runningOn = m_connection->serverId();
    return true;
}

void QueryWorker::finish()
{
    const Lock lock(m_service.m_guard);
    m_runningOn = 0;
}

qint64 QueryAnswer::number(size_t result) const
{
    qint64 number = 0;
    if (result < results.size() && results[result].rowCount() > 0) {
        const std::string_view cell = results[result].cell(0, 0);
        std::from_chars(cell.data(), cell.data() + cell.size(), number);
    }
    return number;
}

QueryOwner::QueryOwner(const QString &sourceConnection, QObject *parent)
    : QObject(parent), m_source(sourceConnection)
{
}

QueryOwner::~QueryOwner()
{
    cancel();
}

void QueryOwner::ask(const QStringList &statements, const QString &before)
{
    auto request = std::make_shared<QueryRequest>();
    request->before = before;
    request->statements = statements;
    request->isLong = m_isLong;
    request->owner = this;
    QueryService *service = QueryService::of(m_source);
    const bool isSame = service == m_service;
    if (m_request && isSame && service != nullptr) {
        service->replace(m_request, request);
        m_request = request;
        return;
    }
    cancel();
    m_request = request;
    m_service = service;
    if (service == nullptr) {
        QMetaObject::invokeMethod(this, &QueryOwner::loseService, Qt::QueuedConnection);
        return;
    }
    if (!isSame)
        connect(service, &QObject::destroyed, this, &QueryOwner::loseService, Qt::QueuedConnection);
    service->take(request);
}

void QueryOwner::cancel()
{
    if (m_request && m_service)
        m_service->callOff(m_request);
    m_request.reset();
}

void QueryOwner::takeAnswer()
{
    const Request request = std::move(m_request);
    m_request.reset();
    emit answered(std::shared_ptr<QueryAnswer>(request, &request->answer));
}

/// The window's connection was removed before it answered.
void QueryOwner::loseService()
{
    if (!m_request || m_service)
        return;
    m_request->answer = QueryAnswer();
    m_request->answer.error = serverWords(ServerError::ServerGone);
    m_request->answer.errorNumber = ServerError::ServerGone;
    takeAnswer();
}

QueryService *QueryService::of(const QString &sourceConnection)
{
    const QSqlDatabase db = QSqlDatabase::database(sourceConnection, false);
    if (!db.isValid())
        return nullptr;
    auto *service = qobject_cast<QueryService *>(db.driver()->property(serviceProperty).value<QObject *>());
    return service != nullptr ? service : new QueryService(sourceConnection, db.driver());
}

QueryService::QueryService(const QString &sourceConnection, QObject *driver)
    : QObject(QCoreApplication::instance()), m_source(sourceConnection)
{
    driver->setProperty(serviceProperty, QVariant::fromValue<QObject *>(this));
    returnLargePieces();
    // Connections can neither be added nor removed while one is being removed: the workers end later.
    connect(driver, &QObject::destroyed, this, &QueryService::leave);
    connect(driver, &QObject::destroyed, this, &QObject::deleteLater);
}

QueryService::~QueryService()
{
    leave();
    m_workers.clear();
}

void QueryService::leave()
{
    {
        const Lock lock(m_guard);
        m_isLeaving = true;
        for (const auto &worker : m_workers)
            endRunning(*worker, true);
    }
    m_changed.notify_all();
}

void QueryService::setIdleTime(std::chrono::milliseconds time)
{
    idleTime() = time;
}

void QueryService::take(const Request &request)
{
    {
        const Lock lock(m_guard);
        m_queue.push_back(request);
        const auto idle = std::count_if(m_workers.begin(), m_workers.end(),
                                        [](const auto &worker) { return !worker->isBusy(); });
        if (m_workers.size() < mostConnections && m_queue.size() > static_cast<size_t>(idle))
            m_workers.push_back(std::make_unique<QueryWorker>(*this));
    }
    m_changed.notify_all();
}

void QueryService::replace(const Request &older, const Request &newer)
{
    {
        const Lock lock(m_guard);
        const auto place = std::find(m_queue.begin(), m_queue.end(), older);
        if (place != m_queue.end()) {
            older->isCalledOff = true;
            *place = newer;
            return;
        }
    }
    callOff(older);
    take(newer);
}

void QueryService::callOff(const Request &request)
{
    const Lock lock(m_guard);
    request->isCalledOff = true;
    m_queue.erase(std::remove(m_queue.begin(), m_queue.end(), request), m_queue.end());
    for (const auto &worker : m_workers) {
        if (worker->isRunning(request)) {
            // A KILL that comes too late finds nothing to end; a worker repeats a statement hit by mistake.
            endRunning(*worker, false);
            QTimer::singleShot(patience, this, [this, request] { cutOutdated(request); });
        }
    }
}

void QueryService::cutOutdated(const Request &request)
{
    const Lock lock(m_guard);
    for (const auto &worker : m_workers) {
        // The KILL may have come right before the statement.
        if (worker->isRunning(request))
            endRunning(*worker, true);
    }
}

void QueryService::endRunning(const QueryWorker &worker, bool isCut)
{
    if (worker.runningOn() != 0)
        endStatement(m_source, worker.runningOn());
    if (isCut)
        worker.cut();
}

void QueryService::answer(const Request &request)
{
    QMetaObject::invokeMethod(
        this, [this, request] { deliver(request); }, Qt::QueuedConnection);
}

/// They would try the same silent server one after the other.
void QueryService::failAllWaiting(const QueryAnswer &failure)
{
    const Lock lock(m_guard);
    for (const Request &request : m_queue) {
        request->answer.error = failure.error;
        request->answer.errorNumber = failure.errorNumber;
        answer(request);
    }
    m_queue.clear();
}

void QueryService::deliver(const Request &request)
{
    // Of a service that leaves its owners hear at its end.
    if (request->isCalledOff || m_isLeaving)
        return;
    if (isServerSilent(request->answer.errorNumber) && !reportLoss(m_source))
        request->answer.kind = QMessEvent::Warning;
    request->owner->takeAnswer();
}
