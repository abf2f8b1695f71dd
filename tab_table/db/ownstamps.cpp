#include "ownstamps.h"

#include <QSqlDatabase>
#include <algorithm>
#include <map>

namespace {
/// Lists that were read before older ones are told once too often.
const int mostRuns = 1000;
} // namespace

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
        return;
    QVector<Run> &runs = m_runs[table];
    if (!runs.isEmpty() && runs.constLast().last == before)
        runs.last().last = after;
    else
        runs.append({before, after});
    if (runs.size() > mostRuns)
        runs.removeFirst();
}

bool OwnStamps::isAllOwn(const QString &table, const QString &from, const QString &to) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    const QVector<Run> runs = m_runs.value(table);
    return std::any_of(runs.begin(), runs.end(),
                       [&](const Run &run) { return run.first <= from && to <= run.last; });
}

bool OwnStamps::isOwn(const QString &table, const QString &time) const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_newest.value(table) == time;
}
