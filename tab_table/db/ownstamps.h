#pragma once

#include <QHash>
#include <QString>
#include <mutex>

class QSqlDatabase;

/// The times at which this program has stamped tables itself, in any thread: what it wrote is no news to its
/// lists. All times are texts as the server writes them, which sort by time.
class OwnStamps
{
public:
    static OwnStamps &of(const QSqlDatabase &db);

    /// The stamp `after` is ours. before: what it took the place of, when the lists of this program show what
    /// was written already; null when they do not.
    void add(const QString &table, const QString &before, const QString &after);
    /// True when nobody else has stamped the table between two times.
    bool isAllOwn(const QString &table, const QString &from, const QString &to) const;
    /// True for the newest stamp that is ours.
    bool isOwn(const QString &table, const QString &time) const;

private:
    /// A stretch of time in which nobody else has stamped the table.
    struct Run
    {
        QString first;
        QString last;
    };
    mutable std::mutex m_guard;
    /// By table; the newest stretch that began with one of ours whose rows are shown.
    QHash<QString, Run> m_runs;
    QHash<QString, QString> m_newest;
};
