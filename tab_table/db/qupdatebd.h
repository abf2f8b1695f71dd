#pragma once

#include <QObject>
#include <QStringList>

class Db;
class QSqlDatabase;

/// Tells whether somebody else has changed a table since this connection last read it. The table updat
/// holds when each table was last changed, a temporary one per connection what this connection has read.
/// Failures are posted to the receiver and leave the tracker as it was.
class QUpdateBD : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Creates updat, lists every table of the database in it when it is empty, stamps all with now.
    bool create(const QString &database, QSqlDatabase &db, QObject *receiver);
    /// Creates this connection's private list; every table in it counts as never read.
    bool create_tmp(QSqlDatabase &db, QObject *receiver);
    /// To be called after every write to a tracked table.
    bool update(const QString &table, QSqlDatabase &db, QObject *receiver);
    /// The same for those who write inside a transaction, several tables at once. Filling the private list
    /// there would lock the rows of all tables until the end, and two writers would wait for each other.
    static bool stamp(const QStringList &tables, const Db &db);
    /// True when the table was changed since this connection last read it.
    bool isUpdate(const QString &table, QSqlDatabase &db, QObject *receiver);
    /// To be called after the table was read.
    bool reRead(const QString &table, QSqlDatabase &db, QObject *receiver);
};
