#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QSqlDatabase;
class RowStore;

/// Tells whether somebody else has changed a table since this connection last read it. The table updat
/// holds when each table was last changed, a temporary one per connection what this connection has read.
/// Failures are posted to the receiver and leave the tracker as it was.
///
/// The temporary table is gone when the client library has reconnected: the statement that misses it creates
/// it and is sent again. Therefore isUpdate() and reRead() do not belong into a transaction.
class QUpdateBD : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Creates updat, lists every table of the database in it when it is empty, stamps all with now.
    bool create(const QString &database, QSqlDatabase &db, QObject *receiver);
    /// Creates this connection's private list; every table in it counts as never read.
    bool create_tmp(QSqlDatabase &db, QObject *receiver);
    /// To be called after every write to tracked tables, or last in its transaction. One statement.
    bool update(const QStringList &tables, QSqlDatabase &db, QObject *receiver);
    bool update(const QString &table, QSqlDatabase &db, QObject *receiver);
    /// True when one of the tables was changed since this connection last read it. One statement.
    bool isUpdate(const QStringList &tables, QSqlDatabase &db, QObject *receiver);
    bool isUpdate(const QString &table, QSqlDatabase &db, QObject *receiver);
    /// To be called after the tables were read. Two statements.
    bool reRead(const QStringList &tables, QSqlDatabase &db, QObject *receiver);
    bool reRead(const QString &table, QSqlDatabase &db, QObject *receiver);

    /// The tables that a SELECT names behind FROM and JOIN.
    static QStringList tablesIn(const QString &sql);
    /// For lists that are read on another connection: what asks there when the tables were last changed,
    /// before the list's own statement, so that no change falls between them.
    static QString timesSql(const QStringList &tables);
    /// The tables count as read at these times, the rows of timesSql(). One statement, which waits for
    /// nobody.
    bool setRead(const RowStore &times, QSqlDatabase &db, QObject *receiver);
};
