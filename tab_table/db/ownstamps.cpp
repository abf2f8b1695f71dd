#include "ownstamps.h"

#include <QSqlDatabase>
#include <map>

/// By database: a program has one after the other, tests have many.
OwnStamps &OwnStamps::of(const QSqlDatabase &db)
{
    static std::mutex guard;
    static std::map<QString, OwnStamps> stamps;
    const std::lock_guard<std::mutex> lock(guard);
    return stamps[QStringLiteral("%1:%2/%3").arg(db.hostName()).arg(db.port()).arg(db.databaseName())];
}

void OwnStamps::add(const QString &table, const QString &before, const QString &after)
{
    const std::lock_guard<std::mutex> lock(m_guard);
    m_newest[table] = after;
    if (before.isNull())
        m_runs.remove(table);
    else if (const auto run = m_runs.find(table); run != m_runs.end() && run->last == before)
        run->last = after;
    else
        m_runs[table] = {qMin(before, after), after};
}

bool OwnStamps::isAllOwn(const QString &table, const QString &from, const QString &to) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    const auto run = m_runs.find(table);
    return run != m_runs.end() && run->first <= from && to <= run->last;
}

bool OwnStamps::isOwn(const QString &table, const QString &time) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_newest.value(table) == time;
}
