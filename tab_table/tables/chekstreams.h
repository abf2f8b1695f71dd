#pragma once

#include "qtabjournal.h"

#include <QMetaType>
#include <QVector>

/// The receipts of a register in a shop, read from its newest line on along the table's key. No key of the
/// receipts knows their time: the newest lines of a chain are found by reading such streams side by side.
struct ChekStream
{
    DbId shop = 0;
    DbId kass = 0;
    /// The time of the line that it goes on with, as the server tells it.
    QString time;
    /// Only receipts with greater numbers can be of the days that are wanted; 0 for all.
    quint32 lowestChek = 0;
    /// It goes on below that line.
    struct Line
    {
        quint32 chek = 0;
        quint32 position = 0;
    };
    std::optional<Line> below;
};
using ChekStreams = QVector<ChekStream>;
Q_DECLARE_METATYPE(ChekStreams)

/// The streams of the place from their newest lines on. What it reads of each register is a line and, for
/// days, one a shift: shop, register, time of the newest receipt, the greatest number that is too old.
QString chekStreamsSql(const JournalAsked &asked);
ChekStreams chekStreamsFrom(const RowStore &found);
/// The lines that the streams go on with that have begun: shop, register, time.
QString nextLinesSql(const ChekStreams &streams);
/// The streams by the times of those lines; those that have come to their end are gone.
ChekStreams followedBy(const RowStore &nextLines, const ChekStreams &streams);
/// The keys of the newest so many lines of the streams, as a table `newest`: id_shop, id_kass, id_chek,
/// id_position, and in `written` the time by which they follow each other. A receipt that was written under
/// an earlier date stands among those that were written with it. There must be a stream.
QString newestLinesSql(const ChekStreams &streams, const JournalAsked &asked, int lines);
/// The order of those lines.
QString newestLinesOrder();
