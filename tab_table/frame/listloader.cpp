#include "listloader.h"

#include "connectionstate.h"
#include "db.h"
#include "servererror.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {
/// A server that has not ended an outdated statement after so long does not answer at all.
const int patienceMs = 2000;

int errorNumber(const QSqlQuery &query)
{
    return query.lastError().nativeErrorCode().toInt();
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

ListLoader::ListLoader(const QString &sourceConnection, QObject *parent)
    : QObject(parent), m_source(sourceConnection), m_worker(new ListWorker(sourceConnection, m_newest))
{
    qRegisterMetaType<std::shared_ptr<FoundRows>>("std::shared_ptr<FoundRows>");
    m_patience.setInterval(patienceMs);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &ListLoader::cutOutdated);
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    connect(this, &ListLoader::request, m_worker, &ListWorker::run);
    connect(m_worker, &ListWorker::done, this, &ListLoader::answer);
    m_thread.start();
}

ListLoader::~ListLoader()
{
    cancel();
    m_worker->leave();
    m_thread.quit();
    m_thread.wait();
}

void ListLoader::load(const QString &sql, const QString &countSql)
{
    interrupt();
    m_isLoading = true;
    emit request(sql, countSql, m_newest.load());
}

void ListLoader::cancel()
{
    interrupt();
    m_isLoading = false;
}

void ListLoader::interrupt()
{
    ++m_newest;
    const ListWorker::Running running = m_worker->running();
    if (running.request == 0 || running.request == m_lastEnded)
        return;
    m_lastEnded = running.request;
    // A KILL that comes too late finds nothing to end; the worker repeats a statement it hit by mistake.
    endStatement(m_source, running.serverId);
    m_patience.start();
}

void ListLoader::cutOutdated()
{
    const ListWorker::Running running = m_worker->running();
    if (running.request == 0 || running.request == m_newest)
        return;
    // The KILL may have come right before the statement.
    endStatement(m_source, running.serverId);
    m_worker->cut();
}

void ListLoader::answer(const std::shared_ptr<FoundRows> &rows)
{
    if (rows->request != m_newest.load())
        return;
    m_isLoading = false;
    if (isServerSilent(rows->errorNumber) && !reportLoss(m_source))
        rows->kind = QMessEvent::Warning;
    emit found(rows);
}

ListWorker::ListWorker(const QString &sourceConnection, const std::atomic<int> &newest)
    : m_source(sourceConnection), m_newest(newest)
{
}

ListWorker::~ListWorker() = default;

ListWorker::Running ListWorker::running() const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_running;
}

void ListWorker::setRunning(const Running &running)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_running = running;
}

void ListWorker::cut()
{
    const std::lock_guard<std::mutex> lock(m_guard);
    if (m_connection)
        m_connection->cut();
}

void ListWorker::leave()
{
    m_isLeaving = true;
    cut();
}

bool ListWorker::connectOnce(FoundRows *result)
{
    if (m_connection)
        return true;
    auto connection = std::make_unique<WorkerConnection>(m_source, nullptr, &m_isLeaving);
    if (!connection->isOpen()) {
        result->error = tr("Немає зв'язку з базою даних.") + QLatin1Char('\n') + connection->error();
        result->errorNumber = connection->errorNumber();
        return false;
    }
    const std::lock_guard<std::mutex> lock(m_guard);
    m_connection = std::move(connection);
    return !m_isLeaving;
}

void ListWorker::disconnect()
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_connection.reset();
}

bool ListWorker::exec(QSqlQuery *query, const QString &sql, FoundRows *result)
{
    bool executed = false;
    do {
        if (isOutdated(*result))
            return false;
        setRunning({result->request, m_connection->serverId()});
        executed = query->exec(sql);
        setRunning({});
    } while (!executed && errorNumber(*query) == ServerError::Interrupted);
    result->errorNumber = errorNumber(*query);
    if (!executed)
        result->error = errorText(query->lastError()) + QLatin1Char('\n') + sql.left(500);
    return executed;
}

/// False when the connection is of no use any more.
bool ListWorker::searchOnce(const Search &search, FoundRows *result)
{
    QSqlQuery query(*m_connection->database());
    bool ok = true;
    if (!search.countSql.isEmpty()) {
        ok = exec(&query, search.countSql, result) && query.next();
        result->count = ok ? query.value(0).toLongLong() : 0;
    }
    if (ok && exec(&query, search.sql, result)) {
        result->rows = RowStore::read(query);
        if (search.countSql.isEmpty())
            result->count = result->rows.rowCount();
    }
    return !isConnectionLost(errorNumber(query));
}

void ListWorker::run(const QString &sql, const QString &countSql, int number)
{
    auto result = std::make_shared<FoundRows>();
    result->request = number;
    // Twice: a connection may have been ended while nobody used it.
    for (int time = 0; time < 2 && !isOutdated(*result); ++time) {
        result->error.clear();
        result->errorNumber = 0;
        if (!connectOnce(result.get()) || searchOnce({sql, countSql}, result.get()))
            break;
        disconnect();
    }
    if (!isOutdated(*result))
        emit done(result);
}
