#pragma once

#include "sqldate.h"

#include <QDateTime>
#include <QVector>

/// A time during which a register was on line or not. Times are those of the database, without a zone: UTC
/// in Qt's words.
struct OnLineInterval
{
    /// The place of the register among the columns, from 0.
    int column;
    bool isOn;
    QDateTime start;
    /// Invalid while the interval is open.
    QDateTime end;
};

/// One line of the grid: a register's interval begins or ends at a time.
struct OnLineChange
{
    QDateTime time;
    /// The interval in force, per column, as its index; -1 for none.
    QVector<int> intervals;
};

/// Every start and end as a line of its own, by time and, within a second, by column; an interval is in
/// force from the line of its start to that of its end, an open one to the last line. The intervals come in
/// the order of their starts.
QVector<OnLineChange> onLineChanges(const QVector<OnLineInterval> &intervals, int columnCount);

/// The part of an interval that lies in a day, in seconds from its midnight.
struct DaySpan
{
    int column;
    bool isOn;
    int from;
    int to;
};

/// What of the intervals lies in the day; an open one lasts until now. What would begin later is left out.
QVector<DaySpan> daySpans(const QVector<OnLineInterval> &intervals, const QDate &day, const QDateTime &now);

/// "08:30" of the seconds of a day, "24:00" for its end.
QString clockText(int seconds);
