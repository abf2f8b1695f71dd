#pragma once

#include <QStringList>

/// What the Z-report window asks the server.

/// The names of the choices; empty where all are meant.
struct ZPlace
{
    QString group;
    QString shop;
    QString kassa;
    /// Without a name these shop groups are meant; empty for truly all.
    QStringList groups;
};

/// Z numbers, or times as yyyyMMddhhmmss.
struct ZRange
{
    bool isByNumber = false;
    QString from;
    QString to;
};

/// One row a Z-report, or the sums of all of them in one row.
QString zStatement(bool summed);
/// What is appended for the narrowest choice made, with a blank before it. By number only the shifts of one
/// register can be asked for: the others name columns that do not exist, and the server refuses them.
QString zCondition(const ZPlace &place, const ZRange &range);
/// " LIMIT 10", or nothing.
QString zLimit(const QString &limit);
