#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>

/// Where a database is and how to log in to it.
struct DatabaseAddress
{
    QString driver = QStringLiteral("QMYSQL");
    QString host;
    int port = 3306;
    QString user;
    QString password;
    QString name;
};

/// Adds a named connection that is not open yet. The calling thread owns it.
QSqlDatabase addConnection(const QString &connectionName, const DatabaseAddress &address);

/// Opens the connection with the session that every statement of the program relies on (sql_mode,
/// automatic time stamps, utf8mb4, InnoDB for new tables, five seconds' wait for rows and for tables, reads
/// that a cluster's node has caught up with), kept over a silent reconnect.
/// On failure db.lastError() tells why; blocks at most about ten seconds when nobody answers.
bool openConnection(QSqlDatabase &db, QObject *receiver);

/// Creates the address's database (utf8mb4, utf8mb4_unicode_520_ci) where it is missing.
/// error: the server's words on failure.
bool createDatabase(const DatabaseAddress &address, QObject *receiver, QString *error);

/// True when the last error says that the server is there but has no database of that name.
bool isUnknownDatabase(const QSqlDatabase &db);

/// A connection of a background task's own: a copy of another one's address under a new name, opened in
/// the constructor and removed in the destructor, both in the task's thread.
class WorkerConnection
{
public:
    WorkerConnection(const QString &sourceConnection, QObject *receiver);
    ~WorkerConnection();
    Q_DISABLE_COPY(WorkerConnection)

    bool isOpen() const { return m_db.isOpen(); }
    QSqlDatabase *database() { return &m_db; }
    /// The server's number of this connection, for KILL QUERY.
    qint64 serverId() const;

private:
    QString m_name;
    QSqlDatabase m_db;
};
