#include "goodswriter.h"

#include "db.h"
#include "goodsrules.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "storedrecord.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Goods
{
    Q_DECLARE_TR_FUNCTIONS(Goods)
};

QString number(qint64 value)
{
    return QString::number(value);
}

MeantColumns columnsOf(const GoodsRecord &record)
{
    return {{"name", record.name, Goods::tr("Назва товару")},
            {"name_short", record.shortName, Goods::tr("Коротка назва")},
            {"price", record.price ? number(*record.price) : QString(), Goods::tr("Ціна")},
            {"type", record.type.id, Goods::tr("Тип товару")},
            {"group_g", record.group.id, Goods::tr("Група")},
            {"tax", record.tax.id, Goods::tr("Податкова група")},
            {"id_rules_goods", record.rule.id, Goods::tr("Правило")},
            {"paym_bonus", record.paymBonus.id, Goods::tr("Оплата бонусами")},
            {"bonus_disk", record.bonusDisk.id, Goods::tr("Знижка/Бонус")},
            {"block", record.block.id, Goods::tr("Блокування")}};
}

Db::Values fieldValues(const GoodsRecord &record)
{
    return {{QStringLiteral(":name"), record.name},
            {QStringLiteral(":sname"), record.shortName},
            {QStringLiteral(":price"), record.price ? QVariant(*record.price) : QVariant(QVariant::LongLong)},
            {QStringLiteral(":type"), nullIfEmpty(record.type.name)},
            {QStringLiteral(":group"), nullIfEmpty(record.group.name)},
            {QStringLiteral(":tax"), nullIfEmpty(record.tax.name)},
            {QStringLiteral(":paym_bonus"), nullIfEmpty(record.paymBonus.name)},
            {QStringLiteral(":bonus_disk"), nullIfEmpty(record.bonusDisk.name)},
            {QStringLiteral(":id_rules_goods"), nullIfEmpty(record.rule.name)},
            {QStringLiteral(":block"), nullIfEmpty(record.block.name)}};
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

/// What stands in a price row beside its price and place, as the SET clause of an UPDATE.
const QLatin1String hiddenColumns[] = {QLatin1String("price_in"),
                                       QLatin1String("period_start_date"),
                                       QLatin1String("period_end_date"),
                                       QLatin1String("period_start_time"),
                                       QLatin1String("period_end_time"),
                                       QLatin1String("week_day"),
                                       QLatin1String("info")};

QString placeKey(const PriceKey &key)
{
    return key.shop + QLatin1Char('/') + key.group + QLatin1Char('/') + key.priority;
}

QString hiddenValues(const QSqlQuery &row, int firstColumn)
{
    QStringList sets;
    int column = firstColumn;
    for (const QLatin1String &name : hiddenColumns) {
        const QVariant value = row.value(column++);
        sets.append(name + QLatin1Char('=') + (value.isNull() ? QStringLiteral("NULL") : lit(toText(value))));
    }
    return sets.join(QLatin1Char(','));
}

/// The hidden values of every price of the item, by its place; nothing after a failure.
std::optional<QHash<QString, QString>> hiddenPrices(const Db &db, const QString &id)
{
    QString sql = QStringLiteral("SELECT id_shop,id_group,priority");
    // As text: a zero date is none for the client.
    for (const QLatin1String &name : hiddenColumns)
        sql += QStringLiteral(",CAST(%1 AS CHAR)").arg(name);
    auto rows = db.run(sql + QStringLiteral(" FROM prices WHERE id_goods=") + id);
    if (!rows)
        return std::nullopt;
    QHash<QString, QString> hidden;
    while (rows->next())
        hidden.insert(placeKey({toText(rows->value(0)), toText(rows->value(1)), toText(rows->value(2))}),
                      hiddenValues(*rows, 3));
    return hidden;
}

/// A row of the same shop and group as before is written by their ids; what was chosen, by its names.
bool staysInPlace(const GoodsPrice &price)
{
    return price.origin && price.origin->shop == price.shop.id && price.origin->group == price.group.id;
}

bool insertChosen(const Db &db, const GoodsRecord &record, const QString &id)
{
    QString sql = QStringLiteral("INSERT INTO prices(id_goods,price,priority,id_group,id_shop) VALUES");
    QVariantList values;
    for (const GoodsPrice &price : record.prices) {
        if (staysInPlace(price))
            continue;
        sql += QLatin1Char('(') + id +
               QStringLiteral(",?,?,(SELECT id FROM group_goods WHERE name=?),IF((SELECT id FROM shops WHERE "
                              "address=?) IS NULL, 0, (SELECT id FROM shops WHERE address=?)) ),");
        const QVariant shop = nullIfEmpty(price.shop.name);
        values << price.price << price.priority << price.group.name << shop << shop;
    }
    sql.chop(1);
    return values.isEmpty() || db.runPositional(sql, values);
}

/// Writes a row again that stays in its place, or what it had beside its price into one that was moved.
bool restore(const Db &db, const GoodsPrice &price, const QString &hidden, const QString &id)
{
    const QString place = QStringLiteral("id_goods=%1%5id_shop=%2%5id_group=%3%5priority=%4")
                              .arg(id, price.shop.id, price.group.id, number(price.priority));
    if (staysInPlace(price))
        return db
            .run(QStringLiteral("INSERT INTO prices SET %1,price=%2,%3")
                     .arg(place.arg(QLatin1Char(',')), number(price.price), hidden))
            .has_value();
    return db
        .run(QStringLiteral("UPDATE prices SET %1 WHERE %2").arg(hidden, place.arg(QStringLiteral(" AND "))))
        .has_value();
}

bool replacePrices(const Db &db, const GoodsRecord &record, const QString &id)
{
    const auto hidden = hiddenPrices(db, id);
    if (!hidden || !db.run(QStringLiteral("DELETE FROM prices WHERE id_goods=") + id) ||
        !insertChosen(db, record, id))
        return false;
    for (const GoodsPrice &price : record.prices) {
        if (price.origin && !restore(db, price, hidden->value(placeKey(*price.origin)), id))
            return false;
    }
    return true;
}

bool replaceBarcodes(const Db &db, const GoodsRecord &record, const QString &id)
{
    if (!db.run(QStringLiteral("DELETE FROM dk_shc WHERE id_goods=") + id))
        return false;
    QStringList rows;
    for (const QString &code : record.barcodes)
        rows.append(QLatin1Char('(') + id + QLatin1Char(',') + barcodeInSql(code) + QLatin1Char(')'));
    return rows.isEmpty() || db.run(QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES") +
                                    rows.join(QLatin1Char(',')));
}

bool offerToShops(const Db &db, const QStringList &shops, const QString &id)
{
    return shops.isEmpty() ||
           db.run(
               QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods) SELECT id,%1 FROM shops WHERE id IN "
                              "(%2) AND id NOT IN (SELECT id_shop FROM goods_shop WHERE id_goods=%1)")
                   .arg(id, shops.join(QLatin1Char(','))));
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QStringList pricesAsText(const GoodsRecord &record)
{
    QStringList texts;
    for (const GoodsPrice &price : record.prices)
        texts.append(
            QStringList{number(price.price), number(price.priority), price.group.id, price.shop.id}.join(
                QLatin1Char('|')));
    return sorted(texts);
}

/// All rows of a locking SELECT, sorted, their cells joined by "|"; nothing after a failure.
std::optional<QStringList> storedRows(const Db &db, const QString &columns, const QString &table,
                                      const QString &id)
{
    return [](std::optional<QSqlQuery> rows) -> std::optional<QStringList> {
        if (!rows)
            return std::nullopt;
        QStringList texts;
        while (rows->next())
            texts.append(toText(rows->value(0)));
        return sorted(texts);
    }(db.run(QStringLiteral("SELECT CONCAT_WS('|',%1) FROM %2 WHERE id_goods=%3 FOR UPDATE")
                                                 .arg(columns, table, id)));
}

std::optional<bool> holdsRows(const Db &db, const QString &columns, const QString &table, const QString &id,
                              const QStringList &wanted)
{
    const auto stored = storedRows(db, columns, table, id);
    return stored ? std::optional<bool>(*stored == wanted) : std::nullopt;
}

/// How the item in the database differs from the one here: fields, then prices, then barcodes.
Difference difference(const Db &db, const GoodsRecord &record, const QString &id)
{
    Difference found = differenceOf(db, QStringLiteral("goods"), id, columnsOf(record));
    if (found.what != Difference::Nothing)
        return found;
    const auto prices = holdsRows(db, QStringLiteral("price,priority,id_group,id_shop"),
                                  QStringLiteral("prices"), id, pricesAsText(record));
    const auto codes =
        holdsRows(db, QStringLiteral("shtrihcod"), QStringLiteral("dk_shc"), id, sorted(record.barcodes));
    if (!prices || !codes)
        return {};
    if (!*prices || !*codes)
        return {Difference::Column, *prices ? Goods::tr("Штрихкод") : Goods::tr("Ціни магазинів"), QString()};
    return found;
}

/// Names the first price whose group or shop would be stored as another one; empty when there is none.
QString explainPrices(const Db &db, const GoodsRecord &record)
{
    for (const GoodsPrice &price : record.prices) {
        if (staysInPlace(price))
            continue;
        const auto group = db.firstText(QStringLiteral("SELECT id FROM group_goods WHERE name=:group"),
                                        {{QStringLiteral(":group"), price.group.name}});
        if (group && *group != price.group.id)
            return Goods::tr("Товар не збережено: для групи магазинів \"%1\" ціну зберегти не можна. "
                             "Оберіть групу \"default\" або магазин у ній.")
                .arg(price.group.name);
        if (price.shop.name.isEmpty())
            continue;
        const auto shop = db.firstText(QStringLiteral("SELECT id FROM shops WHERE address=:address"),
                                       {{QStringLiteral(":address"), price.shop.name}});
        if (shop && *shop != price.shop.id)
            return Goods::tr("Товар не збережено: магазин \"%1\" перейменовано або вилучено, поки редактор "
                             "був відкритий. Виберіть для цієї ціни магазин ще раз або вилучіть рядок.")
                .arg(price.shop.name);
    }
    return QString();
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

enum class Failed { Meanwhile, Goods, Prices, Barcodes, Shops, Otherwise, Commit, Nowhere };

struct Attempt
{
    Failed at;
    Difference other;
};

Attempt write(const Db &db, const GoodsRecord &record, const std::optional<GoodsRecord> &loaded, QString *id)
{
    Transaction t(db);
    if (!t)
        return {Failed::Goods, {}};
    if (loaded) {
        const Difference other = difference(db, *loaded, *id);
        if (other.what != Difference::Nothing)
            return {Failed::Meanwhile, other};
    }
    if (!(loaded ? updateGoods(db, record, *id) : insertGoods(db, record, id)))
        return {Failed::Goods, {}};
    const bool pricesChanged = !loaded || record.prices != loaded->prices;
    if (pricesChanged && !replacePrices(db, record, *id))
        return {Failed::Prices, {}};
    if (!replaceBarcodes(db, record, *id))
        return {Failed::Barcodes, {}};
    if (!offerToShops(db, record.shops, *id))
        return {Failed::Shops, {}};
    const Difference other = difference(db, record, *id);
    if (other.what != Difference::Nothing)
        return {Failed::Otherwise, other};
    return {t.commit() ? Failed::Nowhere : Failed::Commit, {}};
}
} // namespace

Saved saveGoods(const Db &db, const GoodsRecord &record, const std::optional<GoodsRecord> &loaded,
                QString *id)
{
    QString savedId = *id;
    const Attempt attempt = write(db, record, loaded, &savedId);
    switch (attempt.at) {
    case Failed::Meanwhile:
        return refused(changedMeanwhile(attempt.other));
    case Failed::Prices:
        return refused(explainPrices(db, record));
    case Failed::Barcodes:
        explainBarcodes(db, record, *id);
        return {};
    case Failed::Otherwise: {
        const QString why = explainPrices(db, record);
        return refused(why.isEmpty() ? storedOtherwise(attempt.other) : why);
    }
    case Failed::Commit:
        *id = savedId;
        return {Saved::Unclear, QString()};
    case Failed::Nowhere:
        *id = savedId;
        announceGoods(db, record);
        return {Saved::Written, QString()};
    default:
        return {};
    }
}

std::optional<bool> isStored(const Db &db, const GoodsRecord &record, const QString &id)
{
    waitForServer(db, 3000);
    const Difference other = difference(db, record, id);
    if (other.what == Difference::Unknown)
        return std::nullopt;
    return other.what == Difference::Nothing;
}

void announceGoods(const Db &db, const GoodsRecord &record)
{
    QStringList changed = {QStringLiteral("goods"), QStringLiteral("dk_shc"), QStringLiteral("prices")};
    if (!record.shops.isEmpty())
        changed.append(QStringLiteral("goods_shop"));
    QUpdateBD().update(changed, *db.connection(), db.receiver());
}
