#pragma once

#include "act.h"
#include "windows.h"

/// What the measurements of the large chain share.
namespace Large {
/// The longest time that a window may stand still.
constexpr double mostGapMs = 100;

/// The figures of one work: how long it takes, and under it how long its window stands still.
QVector<Figure> workFigures(const QString &work, const Cost &cost, double goalMs,
                            double goalGapMs = mostGapMs);
/// The same for a work of the program's own threads, with what it takes of the processor.
QVector<Figure> threadFigures(const QString &work, const Cost &cost, double goalMs);
/// Of a work that is done several times: the median time, the longest gap.
Cost usual(const QVector<Cost> &costs);
/// One cell of a statement of the measurement's own.
qint64 number(const Bench &bench, const QString &sql);
} // namespace Large
