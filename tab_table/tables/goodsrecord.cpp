#include "goodsrecord.h"

#include "db.h"
#include "qmessevent.h"

#include <QCoreApplication>

namespace {
struct Goods
{
    Q_DECLARE_TR_FUNCTIONS(Goods)
};

QString recordQuery()
{
    return QStringLiteral(
        "SELECT goods.id, NULL, goods.name,goods.name_short,goods.price, type_goods.name, group_goods.name, "
        "tax.name,rules_goods.name,ynpaym_bon.name, ynbon_disk.name, ynblock.name,goods.type,goods.group_g,"
        "goods.tax,goods.id_rules_goods,goods.paym_bonus,goods.bonus_disk,goods.block FROM goods LEFT JOIN "
        "type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON goods.group_g=group_goods.id LEFT "
        "JOIN tax ON goods.tax=tax.id LEFT JOIN rules_goods ON goods.id_rules_goods=rules_goods.id LEFT JOIN "
        "yesno AS ynpaym_bon ON goods.paym_bonus=ynpaym_bon.id LEFT JOIN yesno AS ynbon_disk ON "
        "goods.bonus_disk=ynbon_disk.id LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id");
}

GoodsRecord readFields(const QSqlQuery &row)
{
    GoodsRecord record;
    record.name = toText(row.value(2));
    record.shortName = toText(row.value(3));
    if (!row.value(4).isNull())
        record.price = row.value(4).toLongLong();
    const int names = 5;
    const int ids = 12;
    NamedId *const lists[] = {&record.type,      &record.group,     &record.tax,  &record.rule,
                              &record.paymBonus, &record.bonusDisk, &record.block};
    int column = 0;
    for (NamedId *list : lists) {
        *list = {toText(row.value(names + column)), toText(row.value(ids + column))};
        ++column;
    }
    return record;
}

GoodsPrice readPrice(const QSqlQuery &row)
{
    GoodsPrice price;
    price.price = row.value(0).toLongLong();
    price.priority = row.value(1).toLongLong();
    price.group = {toText(row.value(2)), toText(row.value(4))};
    price.shop = {toText(row.value(3)), toText(row.value(5))};
    price.origin = PriceKey{price.shop.id, price.group.id, toText(row.value(1))};
    // A shop that is none any more is not "all shops".
    if (price.shop.name.isEmpty() && price.shop.id != QLatin1String("0"))
        price.shop.name = Goods::tr("Магазин №%1").arg(price.shop.id);
    return price;
}

bool loadPrices(const Db &db, const QString &id, GoodsRecord *record)
{
    auto rows =
        db.run(QStringLiteral(
                   "SELECT prices.price,prices.priority,group_shop.name,shops.address,prices.id_group,"
                   "prices.id_shop FROM prices LEFT JOIN group_shop ON prices.id_group=group_shop.id LEFT "
                   "JOIN shops ON prices.id_shop=shops.id WHERE prices.id_goods=") +
               id);
    while (rows && rows->next())
        record->prices.append(readPrice(*rows));
    return rows.has_value();
}

/// The first column of all rows; false after a failure.
bool loadTexts(const Db &db, const QString &sql, QStringList *texts)
{
    auto rows = db.run(sql);
    while (rows && rows->next())
        texts->append(toText(rows->value(0)));
    return rows.has_value();
}
} // namespace

bool GoodsPrice::operator==(const GoodsPrice &other) const
{
    return price == other.price && replaces(other);
}

bool GoodsPrice::replaces(const GoodsPrice &other) const
{
    return priority == other.priority && group.id == other.group.id && shop.id == other.shop.id;
}

std::optional<GoodsRecord> loadGoods(const Db &db, const QString &id)
{
    auto row = db.run(recordQuery() + QStringLiteral(" WHERE goods.id=") + id);
    if (!row)
        return std::nullopt;
    if (!row->next()) {
        postMessage(db.receiver(), Goods::tr("Запис не знайдено id=") + id);
        return std::nullopt;
    }
    GoodsRecord record = readFields(*row);
    if (!loadPrices(db, id, &record) ||
        !loadTexts(db, QStringLiteral("SELECT shtrihcod FROM dk_shc WHERE id_goods=") + id,
                   &record.barcodes) ||
        !loadTexts(db, QStringLiteral("SELECT id_shop FROM goods_shop WHERE id_goods=") + id, &record.shops))
        return std::nullopt;
    return record;
}

std::optional<QString> otherWithRule(const Db &db, const QString &group, uint rule, const QString &id)
{
    QString sql = QStringLiteral("SELECT goods.id") +
                  (id.isEmpty() ? QStringLiteral(",goods.name") : QString()) +
                  QStringLiteral(" FROM goods LEFT JOIN group_goods ON goods.group_g=group_goods.id WHERE "
                                 "group_goods.name=:gname AND goods.id_rules_goods=") +
                  QString::number(rule);
    if (!id.isEmpty())
        sql += QStringLiteral(" AND goods.id<>") + id;
    return db.firstText(sql, {{QStringLiteral(":gname"), group}});
}
