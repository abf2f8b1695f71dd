#include "connection.h"

#include "qmessevent.h"

#include <QAtomicInt>
#include <QCoreApplication>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <mysql.h>

namespace {
/// A table that somebody alters or a backup locks is waited for as long as a row: the default is a day.
const char *const sessionSettings = "SET SESSION "
                                    "sql_mode='STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION,"
                                    "NO_UNSIGNED_SUBTRACTION',"
                                    "innodb_lock_wait_timeout=5,lock_wait_timeout=5,"
                                    "default_storage_engine=InnoDB";
/// Needs a right of its own on some servers, therefore apart.
const char *const timestampSetting = "SET SESSION explicit_defaults_for_timestamp=OFF";
/// A node of a cluster waits before it reads until it has caught up: asked whether a receipt is written, a
/// lagging one would say no. Servers without clusters do not know the variable.
const char *const clusterSetting = "SET SESSION wsrep_sync_wait=1";
const char *const clusterQuestion = "SHOW VARIABLES LIKE 'wsrep_sync_wait'";

const char *const connectOptions =
    "MYSQL_OPT_RECONNECT=1; CLIENT_INTERACTIVE=1; MYSQL_OPT_CONNECT_TIMEOUT=10";

MYSQL *clientHandle(const QSqlDatabase &db)
{
    const QVariant handle = db.driver()->handle();
    if (qstrcmp(handle.typeName(), "MYSQL*") != 0)
        return nullptr;
    return *static_cast<MYSQL *const *>(handle.constData());
}

/// The client library reconnects by itself; what an init command sets comes back then, and so does the
/// character set given to it, unlike one given by SET NAMES.
void keepOverReconnect(MYSQL *client, const char *statement)
{
    mysql_options(client, MYSQL_INIT_COMMAND, statement);
}

bool setSession(QSqlDatabase &db, QObject *receiver)
{
    QSqlQuery query(db);
    if (!query.exec(QLatin1String(sessionSettings))) {
        postMessage(receiver, QCoreApplication::translate("connection", "Помилка запиту:") +
                                  QLatin1Char('\n') + query.lastError().text());
        return false;
    }
    MYSQL *client = clientHandle(db);
    if (client != nullptr) {
        mysql_set_character_set(client, "utf8mb4");
        keepOverReconnect(client, sessionSettings);
    }
    if (query.exec(QLatin1String(clusterQuestion)) && query.next() &&
        query.exec(QLatin1String(clusterSetting)) && client != nullptr)
        keepOverReconnect(client, clusterSetting);
    if (query.exec(QLatin1String(timestampSetting))) {
        if (client != nullptr)
            keepOverReconnect(client, timestampSetting);
    } else {
        postMessage(receiver,
                    QCoreApplication::translate("connection", "Сервер не дозволив сеансове налаштування:") +
                        QLatin1Char(' ') + query.lastError().databaseText(),
                    QMessEvent::Warning);
    }
    return true;
}
} // namespace

QSqlDatabase addConnection(const QString &connectionName, const DatabaseAddress &address)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(address.driver, connectionName);
    db.setHostName(address.host);
    db.setPort(address.port);
    db.setUserName(address.user);
    db.setPassword(address.password);
    db.setDatabaseName(address.name);
    db.setConnectOptions(QLatin1String(connectOptions));
    return db;
}

bool openConnection(QSqlDatabase &db, QObject *receiver)
{
    return db.open() && setSession(db, receiver);
}

bool createDatabase(const DatabaseAddress &address, QObject *receiver, QString *error)
{
    static QAtomicInt number;
    const QString name = QStringLiteral("create_database_%1").arg(number.fetchAndAddRelaxed(1));
    DatabaseAddress server = address;
    server.name.clear();
    bool created = false;
    {
        QSqlDatabase db = addConnection(name, server);
        QSqlQuery query(db);
        if (openConnection(db, receiver)) {
            query = QSqlQuery(db);
            QString quoted = address.name;
            quoted.replace(QLatin1Char('`'), QLatin1String("``"));
            created = query.exec(QStringLiteral("CREATE DATABASE IF NOT EXISTS `%1` CHARACTER SET utf8mb4 "
                                                "COLLATE utf8mb4_unicode_520_ci")
                                     .arg(quoted));
        }
        *error = created ? QString() : (db.isOpen() ? query.lastError() : db.lastError()).databaseText();
    }
    QSqlDatabase::removeDatabase(name);
    return created;
}

bool isUnknownDatabase(const QSqlDatabase &db)
{
    return db.lastError().nativeErrorCode() == QLatin1String("1049");
}

WorkerConnection::WorkerConnection(const QString &sourceConnection, QObject *receiver)
{
    static QAtomicInt number;
    m_name = QStringLiteral("%1_worker_%2").arg(sourceConnection).arg(number.fetchAndAddRelaxed(1));
    m_db = QSqlDatabase::cloneDatabase(sourceConnection, m_name);
    if (!openConnection(m_db, receiver)) {
        postMessage(receiver, QCoreApplication::translate("connection", "Помилка з'єднання з БД.") +
                                  QLatin1Char('\n') + m_db.lastError().text());
        m_db.close();
    }
}

WorkerConnection::~WorkerConnection()
{
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

qint64 WorkerConnection::serverId() const
{
    MYSQL *client = m_db.isOpen() ? clientHandle(m_db) : nullptr;
    return client == nullptr ? 0 : static_cast<qint64>(mysql_thread_id(client));
}
