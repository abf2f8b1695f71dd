#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>
#include <atomic>
#include <optional>

/// Where a database is and how to log in to it.
struct DatabaseAddress
{
    /// Wanted: encrypted where the server can. Required: an unencrypted connection is refused.
    enum class Tls { Off, Wanted, Required };

    QString driver = QStringLiteral("QMYSQL");
    QString host;
    int port = 3306;
    QString user;
    QString password;
    QString name;
    Tls tls = Tls::Off;
    /// A file with the certificates of those who may vouch for the server; empty: nobody is asked.
    QString caFile;
    /// So many seconds the window's connection waits for an answer. Its longest statement of today, the
    /// number of a new receipt among ten million lines without an index, takes a few seconds on a cold
    /// disk, and may stand behind two waits of five seconds for a table and for a row.
    int readSeconds = 30;
};
bool operator==(const DatabaseAddress &one, const DatabaseAddress &other);
inline bool operator!=(const DatabaseAddress &one, const DatabaseAddress &other)
{
    return !(one == other);
}

/// Window: people wait for its statements. The time-out of the address holds, a lost connection is opened
/// anew by the client library, and ConnectionState knows it.
/// Background: a statement may last as long as it needs and is ended by cut() or endStatement().
enum class ConnectionKind { Window, Background };

/// Adds a named connection that is not open yet. The calling thread owns it.
QSqlDatabase addConnection(const QString &connectionName, const DatabaseAddress &address,
                           ConnectionKind kind = ConnectionKind::Window);

/// The address that a window's connection was added with: the one in use, whatever the settings say by now.
/// Any thread.
std::optional<DatabaseAddress> addressInUse(const QString &connectionName);

/// Opens the connection with the session that every statement of the program relies on (sql_mode,
/// automatic time stamps, utf8mb4, InnoDB for new tables, five seconds' wait for rows and for tables, reads
/// that a cluster's node has caught up with), kept over a silent reconnect.
/// On failure openingError() tells why; blocks at most about five seconds when nobody answers.
bool openConnection(QSqlDatabase &db, QObject *receiver);

/// Why openConnection() did not work, in words.
QString openingError(const QSqlDatabase &db);

/// The cipher of an encrypted connection; empty when it is not encrypted or not open.
QString tlsCipher(const QSqlDatabase &db);

/// Breaks the connection off, so that the server rolls back what is open on it. The window's one opens anew
/// with its next statement. In the thread of its statements.
void cutConnection(const QSqlDatabase &db);

/// Creates the address's database (utf8mb4, utf8mb4_unicode_520_ci) where it is missing.
/// error: the server's words on failure.
bool createDatabase(const DatabaseAddress &address, QObject *receiver, QString *error);

/// True when the last error says that the server is there but has no database of that name.
bool isUnknownDatabase(const QSqlDatabase &db);

/// What came of connecting aside.
struct ServerAnswer
{
    bool isGivenUp = false;
    /// 0: connected, logged in and done.
    int error = 0;
    QString text;
};

/// Connects to the server of an address, sends sql when there is any and closes again. The client library
/// cannot be called off while it connects, so this is done by a thread that nobody has to wait for: the call
/// returns soon after isGivenUp becomes true. Any thread.
ServerAnswer connectAside(const DatabaseAddress &address, const std::atomic<bool> &isGivenUp,
                          const QString &sql = QString());

/// Ends the statement that runs on the server's connection of that number, by a connection of its own that
/// nobody waits for.
void endStatement(const QString &sourceConnection, qint64 serverId);

/// A connection of a background task's own, to the address of another one, opened in the constructor and
/// removed in the destructor, both in the task's thread.
class WorkerConnection
{
public:
    /// isGivenUp: ends the opening early, from any thread.
    WorkerConnection(const QString &sourceConnection, QObject *receiver,
                     const std::atomic<bool> *isGivenUp = nullptr,
                     ConnectionKind kind = ConnectionKind::Background);
    ~WorkerConnection();
    Q_DISABLE_COPY(WorkerConnection)

    bool isOpen() const { return m_db.isOpen(); }
    /// Why it is not open; with a receiver it was posted.
    const QString &error() const { return m_error; }
    int errorNumber() const { return m_errorNumber; }
    QSqlDatabase *database() { return &m_db; }
    /// The server's number of this connection, for KILL QUERY.
    qint64 serverId() const;
    /// Ends at once whatever waits for the server here, from any thread. Nothing can be sent afterwards.
    void cut() const;
    /// After a silent reconnect: what cut() ends from now on. In the task's thread.
    void followSocket();

private:
    QString open(const DatabaseAddress &address, QObject *receiver, const std::atomic<bool> *isGivenUp);

    QString m_name;
    QString m_error;
    int m_errorNumber = 0;
    QSqlDatabase m_db;
    /// Of its own, so that it never names another one's socket.
    int m_socket = -1;
};
