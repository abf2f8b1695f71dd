#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

class QSqlDatabase;
class RowStore;

/// When a table was changed last, as somebody read it.
struct TableTime
{
    QString table;
    /// As the server writes it.
    QString time;
    /// It was read in the very second of that change: another one may have followed within it.
    bool isOfThisSecond = false;
};

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
    /// To be called after every write to tracked tables, or last in its transaction. Two statements.
    bool update(const QStringList &tables, QSqlDatabase &db, QObject *receiver);
    bool update(const QString &table, QSqlDatabase &db, QObject *receiver);
    /// The same for what the lists of this program show already: to them it is no news. Three statements.
    bool updateShown(const QStringList &tables, QSqlDatabase &db, QObject *receiver);
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
    /// The rows of timesSql().
    static QVector<TableTime> timesOf(const RowStore &rows);
    /// Whether somebody has changed one of the tables since; nothing after a failure. One statement, which
    /// does not need the private list: each of several lists of a table has times of its own.
    std::optional<bool> isNewer(const QVector<TableTime> &read, QSqlDatabase &db, QObject *receiver);
    /// The tables count as read at these times, the rows of timesSql(). One statement, which waits for
    /// nobody.
    bool setRead(const RowStore &times, QSqlDatabase &db, QObject *receiver);

private:
    enum Lists { BehindUs, UpToDate };
    bool stamp(const QStringList &tables, Lists lists, QSqlDatabase &db, QObject *receiver);
};
