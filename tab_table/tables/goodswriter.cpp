#include "goodswriter.h"

#include "db.h"
#include "goodsrules.h"
#include "qmessevent.h"
#include "qupdatebd.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Goods
{
    Q_DECLARE_TR_FUNCTIONS(Goods)
};

/// What stands in a price row beside its price and place, as the SET clause of an UPDATE.
const QLatin1String hiddenColumns[] = {QLatin1String("price_in"),
                                       QLatin1String("period_start_date"),
                                       QLatin1String("period_end_date"),
                                       QLatin1String("period_start_time"),
                                       QLatin1String("period_end_time"),
                                       QLatin1String("week_day"),
                                       QLatin1String("info")};

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
        hidden.insert(PriceKey{toText(rows->value(0)), toText(rows->value(1)), toText(rows->value(2))}.text(),
                      hiddenValues(*rows, 3));
    return hidden;
}

/// A row of the same shop and group as before is written by their ids; what was chosen, by its names.
bool staysInPlace(const GoodsPrice &price)
{
    return price.origin && price.origin->shop == price.shop.id && price.origin->group == price.group.id;
}

bool insertChosen(const Db &db, const QVector<GoodsPrice> &prices, const QString &id)
{
    QString sql = QStringLiteral("INSERT INTO prices(id_goods,price,priority,id_group,id_shop) VALUES");
    QVariantList values;
    for (const GoodsPrice &price : prices) {
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

/// Writes a row again that stays in its place, or what it had beside its price into one that was moved. A row
/// that others have taken away meanwhile had nothing.
bool restore(const Db &db, const GoodsPrice &price, const QString &hidden, const QString &id)
{
    const QString place = QStringLiteral("id_goods=%1%5id_shop=%2%5id_group=%3%5priority=%4")
                              .arg(id, price.shop.id, price.group.id, QString::number(price.priority));
    if (staysInPlace(price))
        return db
            .run(QStringLiteral("INSERT INTO prices SET %1,price=%2")
                     .arg(place.arg(QLatin1Char(',')), QString::number(price.price)) +
                 (hidden.isEmpty() ? QString() : QLatin1Char(',') + hidden))
            .has_value();
    return hidden.isEmpty() || db.run(QStringLiteral("UPDATE prices SET %1 WHERE %2")
                                          .arg(hidden, place.arg(QStringLiteral(" AND "))));
}

/// What the editor does not show of a row is kept.
bool replacePrices(const Db &db, const QVector<GoodsPrice> &prices, const QString &id)
{
    const auto hidden = hiddenPrices(db, id);
    if (!hidden || !db.run(QStringLiteral("DELETE FROM prices WHERE id_goods=") + id) ||
        !insertChosen(db, prices, id))
        return false;
    for (const GoodsPrice &price : prices) {
        if (price.origin && !restore(db, price, hidden->value(price.origin->text()), id))
            return false;
    }
    return true;
}

bool replaceBarcodes(const Db &db, const QStringList &codes, const QString &id)
{
    if (!db.run(QStringLiteral("DELETE FROM dk_shc WHERE id_goods=") + id))
        return false;
    QStringList rows;
    for (const QString &code : codes)
        rows.append(QLatin1Char('(') + id + QLatin1Char(',') + barcodeInSql(code) + QLatin1Char(')'));
    return rows.isEmpty() || db.run(QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES") +
                                    rows.join(QLatin1Char(',')));
}

/// Those that offer it already keep their stock.
bool offerToShops(const Db &db, const QStringList &shops, const QString &id)
{
    const QString table = QStringLiteral("goods_shop");
    return shops.isEmpty() ||
           (db.run(
                QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods) SELECT id,%1 FROM shops WHERE id IN "
                               "(%2) AND id NOT IN (SELECT id_shop FROM goods_shop WHERE id_goods=%1)")
                    .arg(id, shops.join(QLatin1Char(',')))) &&
            QUpdateBD().updateShown(QStringList(table), *db.connection(), db.receiver()));
}

/// Names the first price whose group or shop would be stored as another one; empty when there is none.
QString explainPrices(const Db &db, const QVector<GoodsPrice> &prices)
{
    for (const GoodsPrice &price : prices) {
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

/// Reports the first barcode that another item has, and that item. ownId: empty for a new one.
void explainBarcodes(const Db &db, const QStringList &codes, const QString &ownId)
{
    QStringList literals;
    for (const QString &code : codes)
        literals.append(lit(code));
    QString sql = QStringLiteral("SELECT dk_shc.shtrihcod,goods.id,goods.name FROM dk_shc JOIN goods ON "
                                 "goods.id=dk_shc.id_goods WHERE dk_shc.shtrihcod IN (%1)")
                      .arg(literals.join(QLatin1Char(',')));
    if (!ownId.isEmpty())
        sql += QStringLiteral(" AND goods.id<>") + ownId;
    const auto owner = db.firstRow(sql);
    if (owner && !owner->isEmpty())
        postMessage(db.receiver(), Goods::tr("Товар не збережено: штрихкод %1 вже має товар №%2 \"%3\".")
                                       .arg(owner->at(0), owner->at(1), owner->at(2)));
}

/// Where the writing of an item has failed.
enum Step { Prices, Barcodes, Shops, All };

RecordField fieldOf(const RecordDraft &draft, const char *column)
{
    for (const RecordField &field : draft.fields) {
        if (field.key == QLatin1String(column))
            return field;
    }
    return {};
}

QString takenIdRefusal(const Db &db, const RecordDraft &draft)
{
    if (draft.wantedId.isEmpty())
        return QString();
    const auto other = db.firstRow(QStringLiteral("SELECT name FROM goods WHERE id=") + draft.wantedId);
    if (!other)
        return Goods::tr("Код товару не перевірено: сервер відповів помилкою.");
    return other->isEmpty() ? QString()
                            : Goods::tr("Товар №%1 вже є: \"%2\".").arg(draft.wantedId, other->first());
}

QString ruleRefusal(const Db &db, const RecordDraft &draft)
{
    const RecordField rule = fieldOf(draft, "id_rules_goods");
    if (!isExclusiveRule(rule.stored.toUInt()))
        return QString();
    const QString group = fieldOf(draft, "group_g").shown;
    const auto other = otherWithRule(db, group, rule.stored.toUInt(), draft.id);
    if (!other)
        return Goods::tr("Правило товару не перевірено: сервер відповів помилкою.");
    if (other->isEmpty())
        return QString();
    return Goods::tr("В групі") + QStringLiteral(" \"") + group + QStringLiteral("\" ") +
           Goods::tr("з правилом") + QStringLiteral(" \"") + rule.shown + QLatin1Char('"') +
           Goods::tr(" вже є товар №") + *other + QStringLiteral(".\n") +
           Goods::tr("Згідно даного правила, в одній групі може бути тільки один товар з таким правилом");
}

QString refusal(const Db &db, const RecordDraft &draft)
{
    const QString why = takenIdRefusal(db, draft);
    return why.isEmpty() ? ruleRefusal(db, draft) : why;
}

bool write(const Db &db, const RecordDraft &draft, const QString &id, int *step)
{
    const QVector<GoodsPrice> prices = pricesOf(draft.fields);
    *step = Prices;
    if ((draft.isNew() || prices != pricesOf(draft.read)) && !replacePrices(db, prices, id))
        return false;
    *step = Barcodes;
    if (!replaceBarcodes(db, barcodesOf(draft.fields), id))
        return false;
    *step = Shops;
    if (!offerToShops(db, draft.beside.toStringList(), id))
        return false;
    *step = All;
    return true;
}

QString failureWords(const Db &db, const RecordDraft &draft, int step)
{
    if (step == Barcodes)
        explainBarcodes(db, barcodesOf(draft.fields), draft.id);
    return step == Prices || step == All ? explainPrices(db, pricesOf(draft.fields)) : QString();
}
} // namespace

const RecordRows &goodsRows()
{
    static const RecordRows rows = {readGoodsRows,
                                    refusal,
                                    write,
                                    failureWords,
                                    {QStringLiteral("SELECT id_goods FROM prices WHERE id_goods="),
                                     QStringLiteral("SELECT id_goods FROM dk_shc WHERE id_goods=")},
                                    {QStringLiteral("dk_shc"), QStringLiteral("prices")}};
    return rows;
}
