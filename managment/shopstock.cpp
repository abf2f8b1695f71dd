#include "shopstock.h"

#include "money.h"

#include <QSqlQuery>
#include <algorithm>

namespace {
/// So many rows go into one statement.
constexpr int batchRows = 500;

QString columnOf(StockPlace place)
{
    return place == StockPlace::Showroom ? QStringLiteral("count_showroom")
                                         : QStringLiteral("count_syllable");
}

QString idsOf(const QVector<StockChange> &changes)
{
    QStringList ids = {QStringLiteral("0")};
    for (const StockChange &change : changes)
        ids.append(QString::number(change.goods));
    return ids.join(QLatin1Char(','));
}
} // namespace

/// In the order of the key: two who want the same goods do not wait for each other.
std::optional<ShopStock::Counts> ShopStock::lock(const Db &db, DbId shop, const QVector<StockChange> &changes)
{
    auto query = db.run(QStringLiteral("SELECT id_goods,count_showroom,count_syllable FROM goods_shop WHERE "
                                       "id_shop=%1 AND id_goods IN (%2) ORDER BY id_goods FOR UPDATE")
                            .arg(QString::number(shop), idsOf(changes)));
    if (!query)
        return std::nullopt;
    Counts counts;
    while (query->next())
        counts.insert(query->value(0).toUInt(), {query->value(1).toLongLong(), query->value(2).toLongLong()});
    return counts;
}

const StockChange *ShopStock::overflowing(const Counts &counts, StockPlace place,
                                          const QVector<StockChange> &changes)
{
    const auto found = std::find_if(changes.begin(), changes.end(), [&](const StockChange &change) {
        const qint64 count = counts.value(change.goods).at(place) + change.quantity;
        return count > maximumThousandths || count < -maximumThousandths;
    });
    return found == changes.end() ? nullptr : &*found;
}

bool ShopStock::add(const Db &db, DbId shop, StockPlace place, const QVector<StockChange> &changes)
{
    const QString column = columnOf(place);
    for (int first = 0; first < changes.size(); first += batchRows) {
        QStringList rows;
        for (const StockChange &change : changes.mid(first, batchRows))
            rows.append(QStringLiteral("(%1,%2,%3)").arg(shop).arg(change.goods).arg(change.quantity));
        if (!db.run(QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods,%1) VALUES%2 ON DUPLICATE KEY "
                                   "UPDATE %1=%1+VALUES(%1)")
                        .arg(column, rows.join(QLatin1Char(',')))))
            return false;
    }
    return true;
}
