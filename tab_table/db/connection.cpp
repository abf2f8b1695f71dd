#include "connection.h"

#include "connectionstate.h"
#include "db.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QAtomicInt>
#include <QCoreApplication>
#include <QHash>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <mysql.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>
#include <tuple>
#include <unistd.h>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(connection)
};

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
/// Fails, and the silent reconnect with it, where the server does not encrypt any more. The client library
/// would go on in clear.
const char *const encryptionDemand =
    "SET SESSION sql_mode=IF((SELECT VARIABLE_VALUE FROM INFORMATION_SCHEMA.SESSION_STATUS WHERE "
    "VARIABLE_NAME='SSL_CIPHER')='','encryption is required',@@sql_mode)";

const unsigned connectSeconds = 5;
const char *const openingErrorProperty = "velta_opening_error";
const char *const tlsProperty = "velta_tls";

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
    if (client != nullptr)
        mysql_options(client, MYSQL_INIT_COMMAND, statement);
}

bool setAndKeep(QSqlQuery &query, MYSQL *client, const char *statement)
{
    if (!query.exec(QLatin1String(statement)))
        return false;
    keepOverReconnect(client, statement);
    return true;
}

void setOptional(QSqlQuery &query, MYSQL *client, QObject *receiver)
{
    if (query.exec(QLatin1String(clusterQuestion)) && query.next())
        setAndKeep(query, client, clusterSetting);
    if (!setAndKeep(query, client, timestampSetting) && receiver != nullptr)
        postMessage(receiver,
                    Texts::tr("Сервер не дозволив сеансове налаштування:") + QLatin1Char(' ') +
                        query.lastError().databaseText(),
                    QMessEvent::Warning);
}

bool setSession(QSqlDatabase &db, QObject *receiver)
{
    QSqlQuery query(db);
    MYSQL *client = clientHandle(db);
    if (!setAndKeep(query, client, sessionSettings)) {
        postMessage(receiver, Texts::tr("Помилка запиту:") + QLatin1Char('\n') + query.lastError().text());
        return false;
    }
    if (client != nullptr)
        mysql_set_character_set(client, "utf8mb4");
    setOptional(query, client, receiver);
    if (db.driver()->property(tlsProperty).toInt() == static_cast<int>(DatabaseAddress::Tls::Required))
        setAndKeep(query, client, encryptionDemand);
    return true;
}

/// Encryption is asked for by giving any of its options, be it an empty one.
QString tlsOption(const DatabaseAddress &address)
{
    if (address.tls == DatabaseAddress::Tls::Off)
        return QString();
    return address.caFile.isEmpty() ? QStringLiteral(";SSL_CIPHER=")
                                    : QStringLiteral(";SSL_CA=") + address.caFile;
}

QString connectOptions(const DatabaseAddress &address, ConnectionKind kind)
{
    QString options = QStringLiteral("CLIENT_INTERACTIVE=1;MYSQL_OPT_CONNECT_TIMEOUT=%1").arg(connectSeconds);
    if (kind == ConnectionKind::Window)
        options += QStringLiteral(";MYSQL_OPT_RECONNECT=1;MYSQL_OPT_READ_TIMEOUT=%1;"
                                  "MYSQL_OPT_WRITE_TIMEOUT=%1")
                       .arg(address.readSeconds);
    return options + tlsOption(address);
}

/// The addresses in use by the name of their connection.
struct Addresses
{
    std::mutex guard;
    QHash<QString, DatabaseAddress> inUse;
};

Addresses &addresses()
{
    static Addresses all;
    return all;
}

/// The driver ends the client library with its last connection; threads that still connect need it.
void keepClientLibrary()
{
    struct Kept : QSqlDatabase
    {
        Kept() : QSqlDatabase(QStringLiteral("QMYSQL")) {}
    };
    static const auto *const kept = new Kept;
    Q_UNUSED(kept)
}

QString unencrypted()
{
    return Texts::tr("Сервер не шифрує з'єднання, а налаштування вимагають шифрування.");
}

/// The server may let a dead client's long statement run; the system asks the silent other end meanwhile.
void noticeDeadServer(int socket)
{
    const auto set = [socket](int level, int option, int value) {
        ::setsockopt(socket, level, option, &value, sizeof value);
    };
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
    set(IPPROTO_TCP, TCP_KEEPIDLE, 20);
    set(IPPROTO_TCP, TCP_KEEPINTVL, 5);
    set(IPPROTO_TCP, TCP_KEEPCNT, 4);
}

struct Aside
{
    std::mutex guard;
    std::condition_variable changed;
    bool isDone = false;
    ServerAnswer answer;
};

const char *textOrNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

void setAsideOptions(MYSQL *client, const DatabaseAddress &address)
{
    mysql_options(client, MYSQL_OPT_CONNECT_TIMEOUT, &connectSeconds);
    mysql_options(client, MYSQL_OPT_READ_TIMEOUT, &connectSeconds);
    mysql_options(client, MYSQL_OPT_WRITE_TIMEOUT, &connectSeconds);
    const QByteArray ca = address.caFile.toLocal8Bit();
    if (address.tls != DatabaseAddress::Tls::Off)
        mysql_ssl_set(client, nullptr, nullptr, textOrNull(ca), nullptr, ca.isEmpty() ? "" : nullptr);
}

ServerAnswer sendAside(MYSQL *client, const DatabaseAddress &address, const QString &sql)
{
    setAsideOptions(client, address);
    const QByteArray host = address.host.toLocal8Bit();
    if (mysql_real_connect(client, textOrNull(host), address.user.toLocal8Bit().constData(),
                           address.password.toLocal8Bit().constData(), nullptr,
                           static_cast<unsigned>(address.port), nullptr, 0) == nullptr)
        return {false, static_cast<int>(mysql_errno(client)), QString::fromUtf8(mysql_error(client))};
    if (address.tls == DatabaseAddress::Tls::Required && mysql_get_ssl_cipher(client) == nullptr)
        return {false, ServerError::TlsFailed, unencrypted()};
    if (!sql.isEmpty() && mysql_query(client, sql.toUtf8().constData()) != 0)
        return {false, static_cast<int>(mysql_errno(client)), QString::fromUtf8(mysql_error(client))};
    return {};
}

std::shared_ptr<Aside> startAside(const DatabaseAddress &address, const QString &sql)
{
    keepClientLibrary();
    auto aside = std::make_shared<Aside>();
    std::thread([aside, address, sql] {
        MYSQL *client = mysql_init(nullptr);
        const ServerAnswer answer = sendAside(client, address, sql);
        mysql_close(client);
        mysql_thread_end();
        const std::lock_guard<std::mutex> lock(aside->guard);
        aside->answer = answer;
        aside->isDone = true;
        aside->changed.notify_all();
    }).detach();
    return aside;
}
} // namespace

bool operator==(const DatabaseAddress &one, const DatabaseAddress &other)
{
    const auto parts = [](const DatabaseAddress &a) {
        return std::tie(a.driver, a.host, a.port, a.user, a.password, a.name, a.tls, a.caFile, a.readSeconds);
    };
    return parts(one) == parts(other);
}

QSqlDatabase addConnection(const QString &connectionName, const DatabaseAddress &address, ConnectionKind kind)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(address.driver, connectionName);
    db.setHostName(address.host);
    db.setPort(address.port);
    db.setUserName(address.user);
    db.setPassword(address.password);
    db.setDatabaseName(address.name);
    db.setConnectOptions(connectOptions(address, kind));
    db.driver()->setProperty(tlsProperty, static_cast<int>(address.tls));
    if (kind == ConnectionKind::Background)
        return db;
    new ConnectionState(address, db.driver());
    const std::lock_guard<std::mutex> lock(addresses().guard);
    addresses().inUse.insert(connectionName, address);
    return db;
}

std::optional<DatabaseAddress> addressInUse(const QString &connectionName)
{
    const std::lock_guard<std::mutex> lock(addresses().guard);
    const auto found = addresses().inUse.constFind(connectionName);
    return found == addresses().inUse.constEnd() ? std::nullopt : std::make_optional(*found);
}

bool openConnection(QSqlDatabase &db, QObject *receiver)
{
    db.driver()->setProperty(openingErrorProperty, QVariant());
    if (!db.open())
        return false;
    if (db.driver()->property(tlsProperty).toInt() == static_cast<int>(DatabaseAddress::Tls::Required) &&
        tlsCipher(db).isEmpty()) {
        db.driver()->setProperty(openingErrorProperty, unencrypted());
        db.close();
        return false;
    }
    return setSession(db, receiver);
}

QString openingError(const QSqlDatabase &db)
{
    const QString own = db.driver()->property(openingErrorProperty).toString();
    return own.isEmpty() ? errorText(db.lastError()) : own;
}

QString tlsCipher(const QSqlDatabase &db)
{
    MYSQL *client = db.isOpen() ? clientHandle(db) : nullptr;
    return client == nullptr ? QString() : QString::fromLatin1(mysql_get_ssl_cipher(client));
}

void cutConnection(const QSqlDatabase &db)
{
    MYSQL *client = db.isOpen() ? clientHandle(db) : nullptr;
    if (client == nullptr)
        return;
    ::shutdown(mysql_get_socket(client), SHUT_RDWR);
    // With it the library would refuse to reconnect once more.
    client->server_status &= ~static_cast<unsigned>(SERVER_STATUS_IN_TRANS);
}

bool createDatabase(const DatabaseAddress &address, QObject *receiver, QString *error)
{
    static QAtomicInt number;
    const QString name = QStringLiteral("create_database_%1").arg(number.fetchAndAddRelaxed(1));
    DatabaseAddress server = address;
    server.name.clear();
    bool created = false;
    {
        QSqlDatabase db = addConnection(name, server, ConnectionKind::Background);
        QSqlQuery query(db);
        const bool isOpen = openConnection(db, receiver);
        if (isOpen) {
            query = QSqlQuery(db);
            QString quoted = address.name;
            quoted.replace(QLatin1Char('`'), QLatin1String("``"));
            created = query.exec(QStringLiteral("CREATE DATABASE IF NOT EXISTS `%1` CHARACTER SET utf8mb4 "
                                                "COLLATE utf8mb4_unicode_520_ci")
                                     .arg(quoted));
        }
        if (created)
            error->clear();
        else
            *error = isOpen ? query.lastError().databaseText() : openingError(db);
    }
    QSqlDatabase::removeDatabase(name);
    return created;
}

bool isUnknownDatabase(const QSqlDatabase &db)
{
    return db.lastError().nativeErrorCode().toInt() == ServerError::UnknownDatabase;
}

ServerAnswer connectAside(const DatabaseAddress &address, const std::atomic<bool> &isGivenUp,
                          const QString &sql)
{
    const auto aside = startAside(address, sql);
    std::unique_lock<std::mutex> lock(aside->guard);
    while (!aside->isDone && !isGivenUp)
        aside->changed.wait_for(lock, std::chrono::milliseconds(20));
    return aside->isDone ? aside->answer : ServerAnswer{true, ServerError::ConnectionLost, QString()};
}

void endStatement(const QString &sourceConnection, qint64 serverId)
{
    if (const auto address = addressInUse(sourceConnection))
        startAside(*address, QStringLiteral("KILL QUERY %1").arg(serverId));
}

WorkerConnection::WorkerConnection(const QString &sourceConnection, QObject *receiver,
                                   const std::atomic<bool> *isGivenUp, ConnectionKind kind)
{
    static QAtomicInt number;
    m_name = QStringLiteral("%1_worker_%2").arg(sourceConnection).arg(number.fetchAndAddRelaxed(1));
    const DatabaseAddress address = addressInUse(sourceConnection).value_or(DatabaseAddress());
    m_db = addConnection(m_name, address, kind);
    m_error = open(address, receiver, isGivenUp);
    if (m_error.isEmpty())
        return;
    m_db.close();
    if (receiver != nullptr && (isGivenUp == nullptr || !*isGivenUp))
        postMessage(receiver, Texts::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + m_error);
}

WorkerConnection::~WorkerConnection()
{
    if (m_socket >= 0)
        ::close(m_socket);
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
    const std::lock_guard<std::mutex> lock(addresses().guard);
    addresses().inUse.remove(m_name);
}

QString WorkerConnection::open(const DatabaseAddress &address, QObject *receiver,
                               const std::atomic<bool> *isGivenUp)
{
    const ServerAnswer answer = isGivenUp == nullptr ? ServerAnswer() : connectAside(address, *isGivenUp);
    m_errorNumber = answer.error;
    if (isConnectionLost(answer.error))
        return answer.text.isEmpty() ? serverWords(answer.error) : answer.text;
    if (!openConnection(m_db, receiver))
        return openingError(m_db);
    followSocket();
    return QString();
}

void WorkerConnection::followSocket()
{
    MYSQL *client = m_db.isOpen() ? clientHandle(m_db) : nullptr;
    if (client == nullptr)
        return;
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = ::fcntl(mysql_get_socket(client), F_DUPFD_CLOEXEC, 0);
    noticeDeadServer(m_socket);
}

qint64 WorkerConnection::serverId() const
{
    MYSQL *client = m_db.isOpen() ? clientHandle(m_db) : nullptr;
    return client == nullptr ? 0 : static_cast<qint64>(mysql_thread_id(client));
}

void WorkerConnection::cut() const
{
    if (m_socket >= 0)
        ::shutdown(m_socket, SHUT_RDWR);
}
