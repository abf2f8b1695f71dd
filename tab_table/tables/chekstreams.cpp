#include "chekstreams.h"

#include "cheks.h"
#include "db.h"

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

QString linesCondition(const ChekStream &stream, const JournalAsked &asked)
{
    QString condition = QStringLiteral("id_shop=%1 AND id_kass=%2").arg(stream.shop).arg(stream.kass);
    if (stream.lowestChek != 0)
        condition += QStringLiteral(" AND id_chek>%1").arg(stream.lowestChek);
    if (stream.below)
        condition += QStringLiteral(" AND (id_chek<%1 OR (id_chek=%1 AND id_position<%2))")
                         .arg(stream.below->chek)
                         .arg(stream.below->position);
    if (!asked.number.isEmpty())
        condition += QStringLiteral(" AND id_chek=%1").arg(asked.number.toULongLong());
    if (asked.hasDays())
        condition += QStringLiteral(" AND data_time>=%1 AND data_time<=%2").arg(asked.from, asked.to);
    return condition;
}

/// The lines of a page come from the streams that have begun, and from no more others than it has lines:
/// those with the newest receipts.
ChekStreams neededStreams(const ChekStreams &streams, const JournalAsked &asked, int lines)
{
    if (asked.hasDays() || !asked.number.isEmpty())
        return streams;
    ChekStreams needed;
    int others = 0;
    for (const ChekStream &stream : streams) {
        if (stream.below || others++ < lines)
            needed.append(stream);
    }
    return needed;
}
} // namespace

/// The tables are joined as they stand: else the server reads every receipt of each shop.
QString chekStreamsSql(const JournalAsked &asked)
{
    return QStringLiteral("SELECT STRAIGHT_JOIN streams.id_shop,streams.id_kass,(SELECT cheks.data_time FROM "
                          "cheks WHERE cheks.id_shop=streams.id_shop AND cheks.id_kass=streams.id_kass AND "
                          "cheks.id_chek=streams.last LIMIT 1) AS newest,%1 FROM (SELECT id_shop,id_kass,"
                          "MAX(id_chek) AS last FROM cheks GROUP BY id_shop,id_kass) streams JOIN shops ON "
                          "shops.id=streams.id_shop%2 WHERE%3 ORDER BY newest DESC")
        .arg(lowestChekSql(asked), firstShiftsJoin(asked), asked.placeCondition(QStringLiteral("streams")));
}

ChekStreams chekStreamsFrom(const RowStore &found)
{
    const auto text = [&found](int row, int column) {
        const std::string_view cell = found.cell(row, column);
        return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
    };
    ChekStreams streams;
    for (int row = 0; row < found.rowCount(); ++row)
        streams.append(
            {text(row, 0).toUInt(), text(row, 1).toUInt(), text(row, 2), text(row, 3).toUInt(), {}});
    return streams;
}

QString newestLinesSql(const ChekStreams &streams, const JournalAsked &asked, int lines)
{
    QStringList branches;
    for (const ChekStream &stream : neededStreams(streams, asked, lines)) {
        branches.append(
            QStringLiteral("(SELECT id_shop,id_kass,id_chek,id_position,data_time FROM cheks WHERE "
                           "%1 ORDER BY id_chek DESC,id_position DESC LIMIT %2)")
                .arg(linesCondition(stream, asked))
                .arg(lines));
    }
    return QStringLiteral("(SELECT * FROM (SELECT id_shop,id_kass,id_chek,id_position,MAX(data_time) OVER "
                          "(PARTITION BY id_shop,id_kass ORDER BY id_chek,id_position) AS written FROM (") +
           branches.join(QStringLiteral(" UNION ALL ")) +
           QStringLiteral(
               ") found) newest ORDER BY written DESC,id_kass,id_shop,id_chek DESC,id_position DESC "
               "LIMIT %1) newest")
               .arg(lines);
}

/// A receipt reads from its first line on.
QString newestLinesOrder()
{
    return QStringLiteral(" ORDER BY newest.written DESC,newest.id_kass,newest.id_shop,newest.id_chek DESC,"
                          "newest.id_position");
}
