#pragma once

#include <QString>
#include <QVector>

class QRowModel;

/// One bar of a picture: what it stands for, in full and as short as fits under it, and its money.
struct TurnoverBar
{
    QString name;
    QString label;
    qint64 kopecks = 0;

    bool operator==(const TurnoverBar &other) const { return name == other.name && kopecks == other.kopecks; }
};

/// The listed sums by the day of a date-time column, in the order of time; by month where there are more days
/// than fit side by side. Rows without a date (open shifts) come last.
QVector<TurnoverBar> barsByDay(const QRowModel &model, int sumColumn, int dayColumn);
/// The listed sums by the name in a column, the largest first; the small ones beyond twenty are one bar.
QVector<TurnoverBar> barsByName(const QRowModel &model, int sumColumn, int nameColumn);
