#include "goodsrecord.h"

#include "db.h"
#include "goodswriter.h"
#include "money.h"

#include <QCoreApplication>

namespace {
struct Goods
{
    Q_DECLARE_TR_FUNCTIONS(Goods)
};

const QLatin1String pricePrefix("prices/");
const QLatin1String barcodePrefix("dk_shc/");

GoodsPrice readPrice(const QSqlQuery &row)
{
    GoodsPrice price;
    price.price = row.value(0).toLongLong();
    price.priority = row.value(1).toLongLong();
    price.group = {toText(row.value(2)), toText(row.value(4))};
    price.shop = {toText(row.value(3)), toText(row.value(5))};
    price.origin = price.place();
    // A shop that is none any more is not "all shops".
    if (price.shop.name.isEmpty() && price.shop.id != QLatin1String("0"))
        price.shop.name = Goods::tr("Магазин №%1").arg(price.shop.id);
    return price;
}

QString priceCaption(const GoodsPrice &price)
{
    return Goods::tr("Ціна магазинів: %1, %2, пріоритет %3")
        .arg(price.group.name, price.shop.name.isEmpty() ? Goods::tr("усі магазини") : price.shop.name)
        .arg(price.priority);
}
} // namespace

RecordStatements goodsStatements()
{
    // The NULL stamps the row with the time of the change.
    return {
        QStringLiteral("goods"),
        QStringLiteral(
            "SELECT goods.id, NULL, goods.name,goods.name_short,goods.price, type_goods.name, group_goods.name, "
            "tax.name,rules_goods.name,ynpaym_bon.name, ynbon_disk.name, ynblock.name,goods.type,goods.group_g,"
            "goods.tax,goods.id_rules_goods,goods.paym_bonus,goods.bonus_disk,goods.block FROM goods LEFT JOIN "
            "type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON goods.group_g=group_goods.id LEFT "
            "JOIN tax ON goods.tax=tax.id LEFT JOIN rules_goods ON goods.id_rules_goods=rules_goods.id LEFT JOIN "
            "yesno AS ynpaym_bon ON goods.paym_bonus=ynpaym_bon.id LEFT JOIN yesno AS ynbon_disk ON "
            "goods.bonus_disk=ynbon_disk.id LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id WHERE "
            "goods.id="),
        QStringLiteral(
            "INSERT INTO goods(id,name,name_short,price,type,group_g,tax,paym_bonus,bonus_disk,"
            "id_rules_goods,block) VALUES(:id,:name,:sname,:price,(SELECT id FROM type_goods WHERE "
            "name=:type),(SELECT id FROM group_goods WHERE name=:group),(SELECT id FROM tax WHERE "
            "name=:tax),(SELECT id FROM yesno WHERE name=:paym_bonus),(SELECT id FROM yesno WHERE "
            "name=:bonus_disk),(SELECT id FROM rules_goods WHERE name=:id_rules_goods),(SELECT id "
            "FROM yesno WHERE name=:block))"),
        QStringLiteral(
            "UPDATE goods SET name=:name,name_short=:sname,price=:price,type=(SELECT id FROM "
            "type_goods WHERE name=:type),group_g=(SELECT id FROM group_goods WHERE name=:group),"
            "tax=(SELECT id FROM tax WHERE name=:tax),paym_bonus=(SELECT id FROM yesno WHERE "
            "name=:paym_bonus),bonus_disk=(SELECT id FROM yesno WHERE name=:bonus_disk),"
            "id_rules_goods=(SELECT id FROM rules_goods WHERE name=:id_rules_goods),block=(SELECT id "
            "FROM yesno WHERE name=:block),data_update=NULL WHERE goods.id="),
        QStringLiteral("SELECT name FROM goods WHERE id="),
        &goodsRows()};
}

QString PriceKey::text() const
{
    return shop + QLatin1Char('/') + group + QLatin1Char('/') + priority;
}

bool GoodsPrice::operator==(const GoodsPrice &other) const
{
    return price == other.price && place().text() == other.place().text();
}

PriceKey GoodsPrice::place() const
{
    return {shop.id, group.id, QString::number(priority)};
}

bool isPriceKey(const QString &key)
{
    return key.startsWith(pricePrefix);
}

bool isBarcodeKey(const QString &key)
{
    return key.startsWith(barcodePrefix);
}

QString withoutTable(const QString &key)
{
    return key.mid(key.indexOf(QLatin1Char('/')) + 1);
}

RecordFields priceFields(const QVector<GoodsPrice> &prices)
{
    RecordFields fields;
    for (const GoodsPrice &price : prices)
        fields.append({pricePrefix + price.place().text(), priceCaption(price), QString::number(price.price),
                       moneyText(price.price), QVariant::fromValue(price)});
    return fields;
}

RecordFields barcodeFields(const QStringList &codes)
{
    RecordFields fields;
    for (const QString &code : codes)
        fields.append({barcodePrefix + code, Goods::tr("Штрихкод"), code, code, code});
    return fields;
}

QVector<GoodsPrice> pricesOf(const RecordFields &fields)
{
    QVector<GoodsPrice> prices;
    for (const RecordField &field : fields) {
        if (isPriceKey(field.key))
            prices.append(field.row.value<GoodsPrice>());
    }
    return prices;
}

QStringList barcodesOf(const RecordFields &fields)
{
    QStringList codes;
    for (const RecordField &field : fields) {
        if (isBarcodeKey(field.key))
            codes.append(field.stored);
    }
    return codes;
}

std::optional<RecordFields> readGoodsRows(const Db &db, const QString &id)
{
    auto rows =
        db.run(QStringLiteral(
                   "SELECT prices.price,prices.priority,group_shop.name,shops.address,prices.id_group,"
                   "prices.id_shop FROM prices LEFT JOIN group_shop ON prices.id_group=group_shop.id LEFT "
                   "JOIN shops ON prices.id_shop=shops.id WHERE prices.id_goods=") +
               id);
    const auto codes = db.firstColumn(QStringLiteral("SELECT shtrihcod FROM dk_shc WHERE id_goods=") + id);
    if (!rows || !codes)
        return std::nullopt;
    QVector<GoodsPrice> prices;
    while (rows->next())
        prices.append(readPrice(*rows));
    return priceFields(prices) + barcodeFields(*codes);
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
