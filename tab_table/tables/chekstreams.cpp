#include "chekstreams.h"

#include "cheks.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>

namespace {
/// Of the shifts that end within the days and later the first, and one more: a receipt may have been written
/// after the date of its shift's end.
QString lowestChekSql(const JournalAsked &asked)
{
    if (!asked.hasDays())
        return QStringLiteral("0");
    // The key of the types leads from one Z receipt to the next.
    return QStringLiteral("(SELECT cheks.id_chek FROM cheks IGNORE INDEX(PRIMARY) WHERE cheks.id_type=%1 AND "
                          "cheks.id_shop=streams.id_shop AND cheks.id_kass=streams.id_kass AND "
                          "cheks.id_zvit<shifts.first-1 ORDER BY cheks.id_chek DESC LIMIT 1)")
        .arg(ChekType::ZReport);
}

QString firstShiftsJoin(const JournalAsked &asked)
{
    if (!asked.hasDays())
        return {};
    return QStringLiteral(
               " LEFT JOIN (SELECT id_kass,IFNULL(MIN(IF(data_time=0 OR data_time>=%1,id_zzvit,NULL)),"
               "MAX(id_zzvit)) AS first FROM z_zvit GROUP BY id_kass) shifts ON "
               "shifts.id_kass=streams.id_kass")
        .arg(asked.from);
}

QString streamCondition(const ChekStream &stream)
{
    QString condition = QStringLiteral("id_shop=%1 AND id_kass=%2").arg(stream.shop).arg(stream.kass);
    if (stream.below)
        condition += QStringLiteral(" AND (id_chek<%1 OR (id_chek=%1 AND id_position<%2))")
                         .arg(stream.below->chek)
                         .arg(stream.below->position);
    if (stream.lowestChek != 0)
        condition += QStringLiteral(" AND id_chek>%1").arg(stream.lowestChek);
    return condition;
}

QString linesCondition(const ChekStream &stream, const JournalAsked &asked)
{
    QString condition = streamCondition(stream);
    if (!asked.number.isEmpty())
        condition += QStringLiteral(" AND id_chek=%1").arg(asked.number.toULongLong());
    if (asked.hasDays())
        condition += QStringLiteral(" AND data_time>=%1 AND data_time<=%2").arg(asked.from, asked.to);
    return condition;
}

/// So many lines of a stream along the key of the table.
QString branch(const QString &columns, const QString &condition, int lines)
{
    return QStringLiteral("(SELECT %1 FROM cheks WHERE %2 ORDER BY id_chek DESC,id_position DESC LIMIT %3)")
        .arg(columns, condition)
        .arg(lines);
}

QString united(const QStringList &branches)
{
    return branches.join(QStringLiteral(" UNION ALL "));
}

QString text(const RowStore &found, int row, int column)
{
    const std::string_view cell = found.cell(row, column);
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
}
} // namespace

/// The tables are joined as they stand: else the server reads every receipt of each shop.
QString chekStreamsSql(const JournalAsked &asked)
{
    return QStringLiteral("SELECT STRAIGHT_JOIN streams.id_shop,streams.id_kass,(SELECT cheks.data_time FROM "
                          "cheks WHERE cheks.id_shop=streams.id_shop AND cheks.id_kass=streams.id_kass AND "
                          "cheks.id_chek=streams.last LIMIT 1) AS time,%1 FROM (SELECT id_shop,id_kass,"
                          "MAX(id_chek) AS last FROM cheks GROUP BY id_shop,id_kass) streams JOIN shops ON "
                          "shops.id=streams.id_shop%2 WHERE%3 ORDER BY time DESC")
        .arg(lowestChekSql(asked), firstShiftsJoin(asked), asked.placeCondition(QStringLiteral("streams")));
}

ChekStreams chekStreamsFrom(const RowStore &found)
{
    ChekStreams streams;
    for (int row = 0; row < found.rowCount(); ++row) {
        streams.append({text(found, row, 0).toUInt(),
                        text(found, row, 1).toUInt(),
                        text(found, row, 2),
                        text(found, row, 3).toUInt(),
                        {}});
    }
    return streams;
}

QString nextLinesSql(const ChekStreams &streams)
{
    QStringList branches;
    for (const ChekStream &stream : streams) {
        if (stream.below)
            branches.append(branch(QStringLiteral("id_shop,id_kass,data_time"), streamCondition(stream), 1));
    }
    return united(branches);
}

ChekStreams followedBy(const RowStore &nextLines, const ChekStreams &streams)
{
    QHash<QPair<DbId, DbId>, QString> times;
    for (int row = 0; row < nextLines.rowCount(); ++row)
        times.insert({text(nextLines, row, 0).toUInt(), text(nextLines, row, 1).toUInt()},
                     text(nextLines, row, 2));
    ChekStreams following;
    for (ChekStream stream : streams) {
        const auto time = times.constFind({stream.shop, stream.kass});
        if (stream.below && time == times.constEnd())
            continue;
        if (stream.below)
            stream.time = *time;
        following.append(stream);
    }
    std::stable_sort(following.begin(), following.end(),
                     [](const ChekStream &one, const ChekStream &other) { return one.time > other.time; });
    return following;
}

namespace {
/// Nobody knows yet whether it has lines of the days that are wanted, and with which one it begins then.
bool isOutsideDays(const ChekStream &stream, const JournalAsked &asked)
{
    const QString time = QString(stream.time).remove(QRegularExpression(QStringLiteral("\\D")));
    return asked.hasDays() && (time < asked.from || time > asked.to);
}

/// A page of so many lines takes them from no more streams, each of which has one: those that go on with the
/// newest ones. A number may be in any.
ChekStreams neededStreams(const ChekStreams &streams, const JournalAsked &asked, int lines)
{
    ChekStreams needed;
    int newest = 0;
    for (const ChekStream &stream : streams) {
        if (!asked.number.isEmpty() || isOutsideDays(stream, asked) || newest++ < lines)
            needed.append(stream);
    }
    return needed;
}
} // namespace

QString newestLinesSql(const ChekStreams &streams, const JournalAsked &asked, int lines)
{
    QStringList branches;
    for (const ChekStream &stream : neededStreams(streams, asked, lines)) {
        branches.append(branch(QStringLiteral("id_shop,id_kass,id_chek,id_position,data_time"),
                               linesCondition(stream, asked), lines));
    }
    return QStringLiteral("(SELECT * FROM (SELECT id_shop,id_kass,id_chek,id_position,MAX(data_time) OVER "
                          "(PARTITION BY id_shop,id_kass ORDER BY id_chek,id_position) AS written FROM (%1) "
                          "found) newest ORDER BY written DESC,id_kass,id_shop,id_chek DESC,id_position DESC "
                          "LIMIT %2) newest")
        .arg(united(branches))
        .arg(lines);
}

/// A receipt reads from its first line on.
QString newestLinesOrder()
{
    return QStringLiteral(" ORDER BY newest.written DESC,newest.id_kass,newest.id_shop,newest.id_chek DESC,"
                          "newest.id_position");
}
