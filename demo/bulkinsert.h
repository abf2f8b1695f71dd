#pragma once

#include "db.h"

namespace demo {
/// One row of a multi-row INSERT: "(1,'a',NULL)".
class SqlRow
{
public:
    SqlRow &number(qint64 value);
    SqlRow &numbers(std::initializer_list<qint64> values);
    SqlRow &text(const QString &value);
    SqlRow &null();
    /// A piece of SQL that is made already: NOW(), a quoted text.
    SqlRow &raw(const QString &sql);
    QString sql() const { return m_sql + QLatin1Char(')'); }

private:
    SqlRow &add(const QString &sql);
    QString m_sql = QStringLiteral("(");
};

/// Collects rows of one table and sends them about a megabyte at a time, each statement in a transaction of
/// its own. After a failure (reported by Db) nothing is sent any more.
class BulkInsert
{
public:
    /// columns: "shops(id,name)"
    BulkInsert(const Db &db, const QString &columns);

    void add(const SqlRow &row);
    /// Sends the rest; false when anything has failed.
    bool finish();
    qint64 rows() const { return m_rows; }

private:
    void send();

    const Db m_db;
    const QString m_head;
    QString m_statement;
    qint64 m_rows = 0;
    bool m_sound = true;
};
} // namespace demo
