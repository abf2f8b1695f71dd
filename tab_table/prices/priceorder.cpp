#include "priceorder.h"

#include <QCoreApplication>
#include <algorithm>
#include <tuple>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PriceOrder)
};

const DbId groupOfAll = 1;

/// Whose the price is, the strongest first.
enum Owner { Shop, Group, All, Nobody };

struct RankedRow
{
    ListedPrice row;
    Owner owner;
    /// By priority 0, by the chosen one, or by neither.
    enum Turn { First, Second, Never } turn;

    bool fits() const { return owner != Nobody && turn != Never; }
};

Owner ownerOf(const ListedPrice &row, const PricePlace &place)
{
    if (row.idShop != 0)
        return row.idShop == place.idShop ? Shop : Nobody;
    if (row.idGroup == place.idGroup)
        return Group;
    return row.idGroup == groupOfAll ? All : Nobody;
}

RankedRow::Turn turnOf(const ListedPrice &row, const PricePlace &place)
{
    if (row.priority == 0)
        return RankedRow::First;
    return row.priority == place.priority ? RankedRow::Second : RankedRow::Never;
}

bool isBefore(const RankedRow &one, const RankedRow &other)
{
    if (one.fits() != other.fits())
        return one.fits();
    if (!one.fits())
        return false;
    return std::tie(one.turn, one.owner, one.row.idGroup) <
           std::tie(other.turn, other.owner, other.row.idGroup);
}

QString groupWords(const ListedPrice &row)
{
    const QString name =
        row.group.isEmpty() ? Texts::tr("№ %1").arg(row.idGroup) : QStringLiteral("«%1»").arg(row.group);
    return row.idGroup == groupOfAll ? Texts::tr("Усі магазини, група %1").arg(name)
                                     : Texts::tr("Група %1").arg(name);
}

QString sourceWords(const ListedPrice &row, bool isTwice)
{
    if (row.idShop == 0)
        return groupWords(row);
    const QString shop = row.shop.isEmpty() ? Texts::tr("Магазин № %1, якого немає").arg(row.idShop)
                                            : Texts::tr("Магазин «%1»").arg(row.shop);
    return isTwice ? Texts::tr("%1; %2").arg(shop, groupWords(row)) : shop;
}

QString elsewhereWords(const RankedRow &ranked, const PricePlace &place)
{
    if (ranked.owner == Nobody)
        return ranked.row.idShop != 0 ? Texts::tr("не для цього магазину: інший магазин")
                                      : Texts::tr("не для цього магазину: інша група");
    return place.priority == 0 ? Texts::tr("інший пріоритет: діє лише 0")
                               : Texts::tr("інший пріоритет: діють 0 і %1").arg(place.priority);
}

QString yieldWords(const RankedRow &ranked, const RankedRow &winner)
{
    if (ranked.turn != winner.turn)
        return Texts::tr("поступається: пріоритет 0 сильніший за будь-який інший");
    if (ranked.owner == winner.owner)
        return Texts::tr("поступається: з кількох рядків магазину діє рядок групи з меншим номером");
    if (winner.owner == Shop)
        return Texts::tr("поступається: ціна магазину сильніша за ціну групи");
    return Texts::tr("поступається: ціна своєї групи сильніша за ціну всіх магазинів");
}

JudgedPrice judged(const RankedRow &ranked, const RankedRow &first, bool isTwice, const PricePlace &place)
{
    JudgedPrice price;
    price.source = sourceWords(ranked.row, isTwice);
    price.priority = ranked.row.priority;
    price.price = ranked.row.price;
    if (!ranked.fits()) {
        price.why = elsewhereWords(ranked, place);
    } else {
        price.verdict = &ranked == &first ? JudgedPrice::InForce : JudgedPrice::Yields;
        price.why = &ranked == &first ? Texts::tr("діє") : yieldWords(ranked, first);
    }
    return price;
}

JudgedPrice judgedOwn(std::optional<qint64> ownPrice, bool isList, bool isBeaten)
{
    JudgedPrice price;
    price.source = Texts::tr("Ціна самого товару");
    price.price = ownPrice;
    price.verdict = isBeaten ? JudgedPrice::Yields : JudgedPrice::InForce;
    if (isBeaten)
        price.why = Texts::tr("поступається: є ціна для цього магазину");
    else if (!ownPrice)
        price.why = Texts::tr("діяла б, але її немає");
    else if (isList)
        price.why = Texts::tr("діє: жодна з інших цін сюди не підходить");
    else
        price.why = Texts::tr("діє: інших цін у товару немає");
    return price;
}
} // namespace

QVector<JudgedPrice> judgePrices(const QVector<ListedPrice> &rows, std::optional<qint64> ownPrice,
                                 const PricePlace &place)
{
    QVector<RankedRow> ranked;
    for (const ListedPrice &row : rows)
        ranked.append({row, ownerOf(row, place), turnOf(row, place)});
    std::stable_sort(ranked.begin(), ranked.end(), isBefore);
    const auto isTwice = [&rows](const ListedPrice &one) {
        return std::count_if(rows.begin(), rows.end(), [&one](const ListedPrice &other) {
                   return other.idShop == one.idShop && other.priority == one.priority;
               }) > 1;
    };
    QVector<JudgedPrice> prices;
    int fitting = 0;
    for (const RankedRow &each : qAsConst(ranked)) {
        fitting += each.fits() ? 1 : 0;
        prices.append(judged(each, ranked.constFirst(), isTwice(each.row), place));
    }
    prices.insert(fitting, judgedOwn(ownPrice, !rows.isEmpty(), fitting > 0));
    return prices;
}
