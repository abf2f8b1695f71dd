#include "goodsrecord.h"

#include "db.h"
#include "goodsrules.h"
#include "qmessevent.h"
#include "qupdatebd.h"

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
        "tax.name,rules_goods.name,ynpaym_bon.name, ynbon_disk.name, ynblock.name FROM goods LEFT JOIN "
        "type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON goods.group_g=group_goods.id LEFT "
        "JOIN tax ON goods.tax=tax.id LEFT JOIN rules_goods ON goods.id_rules_goods=rules_goods.id LEFT JOIN "
        "yesno AS ynpaym_bon ON goods.paym_bonus=ynpaym_bon.id LEFT JOIN yesno AS ynbon_disk ON "
        "goods.bonus_disk=ynbon_disk.id LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id");
}

GoodsRecord readFields(const QSqlQuery &row)
{
    GoodsRecord record;
    int column = 2;
    record.name = toText(row.value(column++));
    record.shortName = toText(row.value(column++));
    if (!row.value(column).isNull())
        record.price = row.value(column).toLongLong();
    ++column;
    for (QString *text : {&record.type, &record.group, &record.tax, &record.rule, &record.paymBonus,
                          &record.bonusDisk, &record.block})
        *text = toText(row.value(column++));
    return record;
}

bool loadPrices(const Db &db, const QString &id, GoodsRecord *record)
{
    auto rows =
        db.run(QStringLiteral("SELECT prices.price,prices.priority,group_shop.name,shops.address FROM "
                              "prices LEFT JOIN group_shop ON prices.id_group=group_shop.id LEFT JOIN shops "
                              "ON prices.id_shop=shops.id WHERE prices.id_goods=") +
               id);
    while (rows && rows->next())
        record->prices.append({rows->value(0).toLongLong(), rows->value(1).toLongLong(),
                               toText(rows->value(2)), toText(rows->value(3))});
    return rows.has_value();
}

bool loadBarcodes(const Db &db, const QString &id, GoodsRecord *record)
{
    auto rows = db.run(QStringLiteral("SELECT shtrihcod FROM dk_shc WHERE id_goods=") + id);
    while (rows && rows->next())
        record->barcodes.append(toText(rows->value(0)));
    return rows.has_value();
}

Db::Values fieldValues(const GoodsRecord &record)
{
    return {{QStringLiteral(":name"), record.name},
            {QStringLiteral(":sname"), record.shortName},
            {QStringLiteral(":price"), record.price ? QVariant(*record.price) : QVariant(QVariant::LongLong)},
            {QStringLiteral(":type"), record.type},
            {QStringLiteral(":group"), record.group},
            {QStringLiteral(":tax"), record.tax},
            {QStringLiteral(":paym_bonus"), record.paymBonus},
            {QStringLiteral(":bonus_disk"), record.bonusDisk},
            {QStringLiteral(":id_rules_goods"), record.rule},
            {QStringLiteral(":block"), record.block}};
}

bool insertGoods(const Db &db, const GoodsRecord &record, QString *id)
{
    Db::Values values = fieldValues(record);
    values.append({QStringLiteral(":id"), nullIfEmpty(*id)});
    if (!db.run(QStringLiteral(
                    "INSERT INTO goods(id,name,name_short,price,type,group_g,tax,paym_bonus,bonus_disk,"
                    "id_rules_goods,block) VALUES(:id,:name,:sname,:price,(SELECT id FROM type_goods WHERE "
                    "name=:type),(SELECT id FROM group_goods WHERE name=:group),(SELECT id FROM tax WHERE "
                    "name=:tax),(SELECT id FROM yesno WHERE name=:paym_bonus),(SELECT id FROM yesno WHERE "
                    "name=:bonus_disk),(SELECT id FROM rules_goods WHERE name=:id_rules_goods),(SELECT id "
                    "FROM yesno WHERE name=:block))"),
                values))
        return false;
    // After an id that was given, the server still tells the one that it made up before.
    if (!id->isEmpty())
        return true;
    const auto made = db.lastInsertId();
    if (made)
        *id = QString::number(*made);
    return made.has_value();
}

bool updateGoods(const Db &db, const GoodsRecord &record, const QString &id)
{
    // The NULL stamps the row with the time of the change.
    return db
        .run(QStringLiteral(
                 "UPDATE goods SET name=:name,name_short=:sname,price=:price,type=(SELECT id FROM type_goods "
                 "WHERE name=:type),group_g=(SELECT id FROM group_goods WHERE name=:group),tax=(SELECT id "
                 "FROM tax WHERE name=:tax),paym_bonus=(SELECT id FROM yesno WHERE name=:paym_bonus),"
                 "bonus_disk=(SELECT id FROM yesno WHERE name=:bonus_disk),id_rules_goods=(SELECT id FROM "
                 "rules_goods WHERE name=:id_rules_goods),block=(SELECT id FROM yesno WHERE name=:block),"
                 "data_update=NULL WHERE goods.id=") +
                 id,
             fieldValues(record))
        .has_value();
}

bool replacePrices(const Db &db, const GoodsRecord &record, const QString &id)
{
    if (!db.run(QStringLiteral("DELETE FROM prices WHERE id_goods=") + id))
        return false;
    if (record.prices.isEmpty())
        return true;
    QString sql = QStringLiteral("INSERT INTO prices(id_goods,price,priority,id_group,id_shop) VALUES");
    QVariantList values;
    for (const GoodsPrice &price : record.prices) {
        sql += QLatin1Char('(') + id +
               QStringLiteral(",?,?,(SELECT id FROM group_goods WHERE name=?),IF((SELECT id FROM shops WHERE "
                              "address=?) IS NULL, 0, (SELECT id FROM shops WHERE address=?)) ),");
        const QVariant shop = nullIfEmpty(price.shop);
        values << price.price << price.priority << price.group << shop << shop;
    }
    sql.chop(1);
    return db.runPositional(sql, values).has_value();
}

bool replaceBarcodes(const Db &db, const GoodsRecord &record, const QString &id)
{
    if (!db.run(QStringLiteral("DELETE FROM dk_shc WHERE id_goods=") + id))
        return false;
    QStringList rows;
    for (const QString &code : record.barcodes)
        rows.append(QLatin1Char('(') + id + QLatin1Char(',') + barcodeInSql(code) + QLatin1Char(')'));
    return db
        .run(QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES") + rows.join(QLatin1Char(',')))
        .has_value();
}

enum class Failed { Goods, Prices, Barcodes, Commit, Nowhere };

Failed write(const Db &db, const GoodsRecord &record, bool isNew, bool pricesChanged, QString *id)
{
    Transaction t(db);
    if (!t || !(isNew ? insertGoods(db, record, id) : updateGoods(db, record, *id)))
        return Failed::Goods;
    if (pricesChanged && !replacePrices(db, record, *id))
        return Failed::Prices;
    if (!replaceBarcodes(db, record, *id))
        return Failed::Barcodes;
    return t.commit() ? Failed::Nowhere : Failed::Commit;
}

/// Names the first barcode that another item has, and that item.
void explainBarcodes(const Db &db, const GoodsRecord &record, const QString &ownId)
{
    QStringList codes;
    for (const QString &code : record.barcodes)
        codes.append(lit(code));
    QString sql = QStringLiteral("SELECT dk_shc.shtrihcod,goods.id,goods.name FROM dk_shc JOIN goods ON "
                                 "goods.id=dk_shc.id_goods WHERE dk_shc.shtrihcod IN (%1)")
                      .arg(codes.join(QLatin1Char(',')));
    if (!ownId.isEmpty())
        sql += QStringLiteral(" AND goods.id<>") + ownId;
    auto owner = db.run(sql);
    if (owner && owner->next())
        postMessage(db.receiver(),
                    Goods::tr("Товар не збережено: штрихкод %1 вже має товар №%2 \"%3\".")
                        .arg(toText(owner->value(0)), toText(owner->value(1)), toText(owner->value(2))));
}

/// Names the first shop group that no price can be saved for.
void explainPrices(const Db &db, const GoodsRecord &record)
{
    for (const GoodsPrice &price : record.prices) {
        const auto id = db.firstText(QStringLiteral("SELECT group_shop.id FROM group_goods JOIN group_shop "
                                                    "ON group_shop.id=group_goods.id WHERE "
                                                    "group_goods.name=:group"),
                                     {{QStringLiteral(":group"), price.group}});
        if (!id)
            return;
        if (id->isEmpty()) {
            postMessage(db.receiver(),
                        Goods::tr("Товар не збережено: для групи магазинів \"%1\" ціну зберегти не можна. "
                                  "Оберіть групу \"default\" або магазин у ній.")
                            .arg(price.group));
            return;
        }
    }
}
} // namespace

bool GoodsPrice::operator==(const GoodsPrice &other) const
{
    return price == other.price && replaces(other);
}

bool GoodsPrice::replaces(const GoodsPrice &other) const
{
    return priority == other.priority && group == other.group && shop == other.shop;
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
    if (!loadPrices(db, id, &record) || !loadBarcodes(db, id, &record))
        return std::nullopt;
    return record;
}

bool saveGoods(const Db &db, const GoodsRecord &record, bool isNew, bool pricesChanged, QString *id)
{
    QString savedId = *id;
    switch (write(db, record, isNew, pricesChanged, &savedId)) {
    case Failed::Nowhere:
        break;
    case Failed::Prices:
        explainPrices(db, record);
        return false;
    case Failed::Barcodes:
        explainBarcodes(db, record, *id);
        return false;
    default:
        return false;
    }
    *id = savedId;
    for (const char *changed : {"goods", "dk_shc", "prices"})
        QUpdateBD().update(QLatin1String(changed), *db.connection(), db.receiver());
    return true;
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
