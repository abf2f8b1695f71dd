#include "listloader.h"

#include "connection.h"
#include "db.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace {
const QLatin1String queryInterrupted("1317");
} // namespace

ListLoader::ListLoader(const QString &sourceConnection, QObject *receiver, QObject *parent)
    : QObject(parent)
    , m_source(sourceConnection)
    , m_receiver(receiver)
    , m_worker(new ListWorker(sourceConnection, receiver, m_newest))
{
    qRegisterMetaType<std::shared_ptr<FoundRows>>("std::shared_ptr<FoundRows>");
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    connect(this, &ListLoader::request, m_worker, &ListWorker::run);
    connect(m_worker, &ListWorker::done, this, &ListLoader::answer);
    m_thread.start();
}

ListLoader::~ListLoader()
{
    cancel();
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
    const qint64 id = m_isLoading ? m_worker->runningId() : 0;
    if (id == 0)
        return;
    // A KILL that comes too late finds nothing to end; the worker repeats a statement it hit by mistake.
    QSqlDatabase db = QSqlDatabase::database(m_source, false);
    QString error;
    Db(&db, m_receiver).attempt(QStringLiteral("KILL QUERY ") + QString::number(id), &error);
}

void ListLoader::answer(const std::shared_ptr<FoundRows> &rows)
{
    if (rows->request != m_newest.load())
        return;
    m_isLoading = false;
    emit found(rows);
}

ListWorker::ListWorker(const QString &sourceConnection, QObject *receiver, const std::atomic<int> &newest)
    : m_source(sourceConnection), m_receiver(receiver), m_newest(newest)
{
}

ListWorker::~ListWorker() = default;

bool ListWorker::connectOnce()
{
    if (!m_connection)
        m_connection = std::make_unique<WorkerConnection>(m_source, m_receiver);
    if (!m_connection->isOpen())
        m_connection.reset();
    return m_connection != nullptr;
}

bool ListWorker::exec(QSqlQuery &query, const QString &sql, FoundRows &result)
{
    bool executed = false;
    do {
        if (result.request != m_newest.load())
            return false;
        m_runningId = m_connection->serverId();
        executed = query.exec(sql);
        m_runningId = 0;
    } while (!executed && query.lastError().nativeErrorCode() == queryInterrupted);
    if (!executed)
        result.error = errorText(query.lastError()) + QLatin1Char('\n') + sql.left(500);
    return executed;
}

void ListWorker::run(const QString &sql, const QString &countSql, int number)
{
    if (number != m_newest.load())
        return;
    auto result = std::make_shared<FoundRows>();
    result->request = number;
    if (!connectOnce()) {
        result->error = tr("Немає зв'язку з базою даних.");
        emit done(result);
        return;
    }
    QSqlQuery query(*m_connection->database());
    bool ok = true;
    if (!countSql.isEmpty()) {
        ok = exec(query, countSql, *result) && query.next();
        result->count = ok ? query.value(0).toLongLong() : 0;
    }
    if (ok && exec(query, sql, *result)) {
        result->rows = RowStore::read(query);
        if (countSql.isEmpty())
            result->count = result->rows.rowCount();
    }
    emit done(result);
}
