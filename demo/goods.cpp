#include "barcodes.h"
#include "bulkinsert.h"
#include "dice.h"
#include "goodsnames.h"
#include "money.h"
#include "sqldate.h"
#include "stages.h"

namespace demo {
namespace {
/// The goods list of a sale leaves the groups 2 to 5 out.
constexpr int firstGoodsGroup = 6;
constexpr int discountType = 2;
/// Promotions that begin after the last receipt.
constexpr int futurePromotion = 6;
constexpr int eveningPromotion = 7;
constexpr int shopsWithEvenings = 3;
const QString allWeek = QStringLiteral("Mon,Tue,Wed,Thu,Fri,Sat,Sun,");

bool readTaxRates(const Db &db, Chain *chain)
{
    const auto rates = db.firstText(QStringLiteral(
        "SELECT GROUP_CONCAT(pdv_proc,',',dod_proc ORDER BY id) FROM tax WHERE id BETWEEN 1 AND 5"));
    chain->taxRates = rates.value_or(QString());
    return rates.has_value();
}

bool fillGoodsGroups(const Db &db)
{
    BulkInsert groups(db, QStringLiteral("group_goods(id,name)"));
    groups.add(SqlRow().number(2).text(QStringLiteral("Тара поворотна")));
    groups.add(SqlRow().number(3).text(QStringLiteral("Пакети")));
    for (int i = 0; i < goodsKinds().size(); ++i)
        groups.add(SqlRow().number(firstGoodsGroup + i).text(QString::fromUtf8(goodsKinds().at(i).group)));
    return groups.finish();
}

QVector<Promotion> makePromotions(const QDate &until)
{
    const auto at = [&](int days, int hour) { return QDateTime(until.addDays(days), QTime(hour, 0)); };
    return {{2, QStringLiteral("Вихідні -10 %"), 1000, {}, {}, QStringLiteral("Sat,Sun,")},
            {3, QStringLiteral("Середа пенсіонера -7 %"), 700, {}, {}, QStringLiteral("Wed,")},
            {4, QStringLiteral("Тижнева знижка -15 %"), 1500, at(-9, 8), at(7, 22), allWeek},
            {5, QStringLiteral("Минулий розпродаж -20 %"), 2000, at(-25, 8), at(-12, 22), allWeek},
            {6, QStringLiteral("Майбутня акція -25 %"), 2500, at(5, 8), at(20, 22), allWeek},
            {eveningPromotion, QStringLiteral("Щаслива година -12.5 %"), 1250, at(1, 18), at(30, 21),
             QStringLiteral("Mon,Tue,Wed,Thu,Fri,")}};
}

QString dateOrZero(const QDateTime &time)
{
    return time.isValid() ? sqlDateTime(time) : QStringLiteral("0");
}

bool fillPromotions(const Db &db, const QVector<Promotion> &promotions)
{
    BulkInsert rows(
        db, QStringLiteral("action(id,name,id_type_action,val,datetime_start,datetime_end,week_day)"));
    for (const Promotion &promotion : promotions) {
        rows.add(SqlRow()
                     .number(promotion.id)
                     .text(promotion.name)
                     .numbers({discountType, promotion.rate})
                     .raw(dateOrZero(promotion.start))
                     .raw(dateOrZero(promotion.end))
                     .text(promotion.weekDays));
    }
    return rows.finish();
}

QString firstBarcode(const GoodsKind &kind, int number)
{
    if (kind.weighed)
        return weighedEan13(number);
    if (number % 10 == 3)
        return shortEan8(number / 10);
    return number % 25 == 7 ? foreignEan13(number) : countryEan13(number);
}

/// Whole tens of kopecks, as price tags have them.
qint64 tagPrice(const GoodsKind &kind, Dice *dice)
{
    return dice->amount(kind.cheapest, kind.dearest, 10);
}

Item makeItem(int number, Dice *dice)
{
    const GoodsKind &kind = goodsKinds().at(number % goodsKinds().size());
    Item item;
    item.id = number + 1;
    item.quotedName = lit(goodsName(kind, number / goodsKinds().size()).full);
    item.quotedBarcode = lit(firstBarcode(kind, number));
    item.price = tagPrice(kind, dice);
    item.weighed = kind.weighed;
    item.discountAllowed = kind.tax != 2 && dice->percent(85);
    item.tax = kind.tax;
    item.promotion = item.discountAllowed && dice->percent(8) ? dice->between(2, 6) : 1;
    item.blocked = dice->percent(1);
    return item;
}

/// The first goods of a weighed group follow a rule of their own each; a group has one item of a rule.
int ruleOf(const Item &item, int numberInGroup)
{
    return item.weighed && numberInGroup < 2 ? 2 + numberInGroup : 1;
}

void addGoodsRow(BulkInsert *rows, const Item &item, int number, Dice *dice)
{
    const int kinds = goodsKinds().size();
    const GoodsName name = goodsName(goodsKinds().at(number % kinds), number / kinds);
    rows->add(
        SqlRow()
            .number(item.id)
            .raw(item.quotedName)
            .text(name.brief)
            .numbers({item.price * dice->between(68, 84) / 100, item.price, item.weighed ? 0 : 1,
                      firstGoodsGroup + number % kinds, item.tax, dice->percent(95) ? 1 : 0,
                      item.discountAllowed ? 1 : 0, ruleOf(item, number / kinds), item.blocked ? 1 : 0}));
}

bool writeItems(const Db &db, Chain *chain)
{
    Dice dice(chain->plan.seed, 2);
    BulkInsert goods(db, QStringLiteral("goods(id,name,name_short,price_in,price,type,group_g,tax,paym_bonus,"
                                        "bonus_disk,id_rules_goods,block)"));
    BulkInsert barcodes(db, QStringLiteral("dk_shc(id_goods,shtrihcod)"));
    for (int number = 0; number < chain->plan.goods; ++number) {
        const Item item = makeItem(number, &dice);
        addGoodsRow(&goods, item, number, &dice);
        barcodes.add(SqlRow().number(item.id).raw(item.quotedBarcode));
        if (number % 8 == 5) // repacked: the new code is beside the old one
            barcodes.add(SqlRow().number(item.id).text(countryEan13(500000000 + number)));
        chain->items.append(item);
    }
    return goods.finish() && barcodes.finish();
}

qint64 nearPrice(qint64 price, Dice *dice)
{
    return (price * dice->between(88, 112) / 100 + 9) / 10 * 10;
}

/// Some goods have a price of one or two groups of shops, fewer one of a single shop; a row of priority 0
/// goes before every other.
QVector<PriceRow> pricesOf(const Item &item, const Chain &chain, Dice *dice)
{
    QVector<PriceRow> rows;
    if (dice->percent(20)) {
        const int group = 2 + dice->below(chain.plan.shopGroups);
        rows.append({0, group, dice->below(2), nearPrice(item.price, dice)});
        rows.append({0, 1, 1, nearPrice(item.price, dice)});
    }
    if (dice->percent(10)) {
        const Shop &shop = chain.shops.at(dice->below(chain.shops.size()));
        if (shop.sells())
            rows.append({shop.id, 1, dice->below(2), nearPrice(item.price, dice)});
    }
    return rows;
}

bool writePrices(const Db &db, Chain *chain)
{
    Dice dice(chain->plan.seed, 3);
    BulkInsert rows(db, QStringLiteral("prices(id_goods,id_shop,id_group,priority,price_in,price)"));
    for (const Item &item : qAsConst(chain->items)) {
        const QVector<PriceRow> own = pricesOf(item, *chain, &dice);
        for (const PriceRow &row : own)
            rows.add(
                SqlRow().numbers({item.id, row.shop, row.group, row.priority, row.price * 3 / 4, row.price}));
        if (!own.isEmpty())
            chain->prices.insert(item.id, own);
    }
    return rows.finish();
}
} // namespace

bool Promotion::isInForce(const QDateTime &time) const
{
    if (!weekDays.contains(weekDayToken(time.date())))
        return false;
    return !start.isValid() ||
           (start <= time && end >= time && start.time() <= time.time() && end.time() >= time.time());
}

int Chain::promotionRate(const Item &item, const QDateTime &time) const
{
    for (const Promotion &promotion : promotions) {
        if (promotion.id == item.promotion)
            return promotion.isInForce(time) ? promotion.rate : 0;
    }
    return 0;
}

qint64 Chain::priceOf(const Item &item, const Shop &shop) const
{
    const auto own = prices.constFind(item.id);
    if (own == prices.constEnd())
        return item.price;
    const QVector<PriceRow> &rows = *own;
    for (const int priority : {0, 1}) {
        const QVector<QPair<int, int>> places{{shop.id, 0}, {0, shop.group}, {0, 1}};
        for (const auto &place : places) {
            for (const PriceRow &row : rows) {
                const bool isGroupRow = row.shop == 0;
                if (row.priority == priority && row.shop == place.first &&
                    (!isGroupRow || row.group == place.second))
                    return row.price;
            }
        }
    }
    return item.price;
}

bool fillGoods(const Db &db, Chain *chain)
{
    chain->promotions = makePromotions(chain->plan.until);
    return readTaxRates(db, chain) && fillGoodsGroups(db) && fillPromotions(db, chain->promotions) &&
           writeItems(db, chain) && writePrices(db, chain);
}

/// The first shops sell in the evenings what the others will in the future: neither has begun yet.
static int promotionIn(const Shop &shop, const Item &item)
{
    return shop.id <= shopsWithEvenings && item.promotion == futurePromotion ? eveningPromotion
                                                                             : item.promotion;
}

bool fillStock(const Db &db, const Chain &chain)
{
    Dice dice(chain.plan.seed, 4);
    BulkInsert rows(db,
                    QStringLiteral("goods_shop(id_shop,id_goods,count_showroom,count_syllable,id_action)"));
    for (const Shop &shop : chain.shops) {
        const bool isStoreHouse = shop.dayCycle == 0;
        if (!shop.sells() && !isStoreHouse)
            continue;
        const int assortment = qMin(chain.plan.assortment, chain.items.size());
        for (int k = 0; k < assortment; ++k) {
            const Item &item = chain.itemOf(shop, k);
            const int grain = item.weighed ? 10 : 1000;
            const qint64 onTheFloor = isStoreHouse ? 0 : dice.amount(5000, 90000, grain);
            rows.add(SqlRow().numbers(
                {shop.id, item.id, onTheFloor, dice.amount(0, 200000, grain), promotionIn(shop, item)}));
        }
    }
    return rows.finish();
}
} // namespace demo
