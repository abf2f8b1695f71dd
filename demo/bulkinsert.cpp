#include "bulkinsert.h"

namespace demo {
namespace {
constexpr int statementLength = 1000000;
}

SqlRow &SqlRow::add(const QString &sql)
{
    if (m_sql.size() > 1)
        m_sql += QLatin1Char(',');
    m_sql += sql;
    return *this;
}

SqlRow &SqlRow::number(qint64 value)
{
    return add(QString::number(value));
}

SqlRow &SqlRow::numbers(std::initializer_list<qint64> values)
{
    for (const qint64 value : values)
        number(value);
    return *this;
}

SqlRow &SqlRow::text(const QString &value)
{
    return add(lit(value));
}

SqlRow &SqlRow::null()
{
    return add(QStringLiteral("NULL"));
}

SqlRow &SqlRow::raw(const QString &sql)
{
    return add(sql);
}

BulkInsert::BulkInsert(const Db &db, const QString &columns)
    : m_db(db), m_head(QStringLiteral("INSERT INTO ") + columns + QStringLiteral(" VALUES"))
{
    m_statement.reserve(statementLength + statementLength / 10);
}

void BulkInsert::add(const SqlRow &row)
{
    m_statement += m_statement.isEmpty() ? m_head : QStringLiteral(",");
    m_statement += row.sql();
    ++m_rows;
    if (m_statement.size() > statementLength)
        send();
}

bool BulkInsert::finish()
{
    if (!m_statement.isEmpty())
        send();
    return m_sound;
}

void BulkInsert::send()
{
    if (m_sound) {
        Transaction transaction(m_db);
        m_sound = transaction && m_db.run(m_statement) && transaction.commit();
    }
    m_statement.resize(0); // keeps the memory
}
} // namespace demo
