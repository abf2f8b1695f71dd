#include "onlineintervals.h"

#include <algorithm>
#include <tuple>

namespace {
constexpr int daySeconds = 24 * 60 * 60;

struct Edge
{
    QDateTime time;
    int column;
    int interval;
    bool isEnd;

    bool operator<(const Edge &other) const
    {
        return std::tie(time, column, interval, isEnd) <
               std::tie(other.time, other.column, other.interval, other.isEnd);
    }
};

QVector<Edge> edgesOf(const QVector<OnLineInterval> &intervals)
{
    QVector<Edge> edges;
    for (int i = 0; i < intervals.size(); ++i) {
        const OnLineInterval &interval = intervals.at(i);
        edges.append({interval.start, interval.column, i, false});
        if (interval.end.isValid())
            edges.append({interval.end, interval.column, i, true});
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}
} // namespace

QVector<OnLineChange> onLineChanges(const QVector<OnLineInterval> &intervals, int columnCount)
{
    QVector<OnLineChange> changes;
    QVector<int> inForce(columnCount, -1);
    const QVector<Edge> edges = edgesOf(intervals);
    changes.reserve(edges.size());
    for (const Edge &edge : edges) {
        const int before = inForce.at(edge.column);
        inForce[edge.column] = edge.interval;
        changes.append({edge.time, inForce});
        if (edge.isEnd)
            inForce[edge.column] = before == edge.interval ? -1 : before;
    }
    return changes;
}

QVector<DaySpan> daySpans(const QVector<OnLineInterval> &intervals, const QDate &day, const QDateTime &now)
{
    const QDateTime midnight(day, QTime(0, 0), Qt::UTC);
    QVector<DaySpan> spans;
    for (const OnLineInterval &interval : intervals) {
        const QDateTime end = interval.end.isValid() ? interval.end : now;
        const qint64 from = std::max<qint64>(0, midnight.secsTo(interval.start));
        const qint64 to = std::min<qint64>(daySeconds, midnight.secsTo(end));
        if (from < to)
            spans.append({interval.column, interval.isOn, static_cast<int>(from), static_cast<int>(to)});
    }
    return spans;
}

QString clockText(int seconds)
{
    return QStringLiteral("%1:%2")
        .arg(seconds / 3600, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'));
}
