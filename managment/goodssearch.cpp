#include "goodssearch.h"

#include "db.h"
#include "pricesql.h"

#include <QCoreApplication>
#include <QSqlQuery>

namespace {
/// Each word has to be found in one of the names or in the number.
QString nameCondition(const QString &text)
{
    const QString condition =
        QStringLiteral("(goods.name_short LIKE %1 OR goods.name LIKE %1 OR goods.id LIKE %1)");
    return wordsOf(text).isEmpty() ? condition.arg(likeContains(QString())) : likeWords(condition, text);
}

QString goodsCondition(const QVector<quint32> &goods)
{
    QStringList ids = {QStringLiteral("0")};
    for (quint32 id : goods)
        ids.append(QString::number(id));
    return QStringLiteral("goods.id IN (") + ids.join(QLatin1Char(',')) + QLatin1Char(')');
}

QString condition(const GoodsSearch &search)
{
    switch (search.by) {
    case GoodsSearch::Goods:
        return goodsCondition(search.goods);
    case GoodsSearch::ExactBarcode:
        return QStringLiteral("dk_shc.shtrihcod=") + lit(search.text);
    case GoodsSearch::Name:
        return nameCondition(search.text);
    case GoodsSearch::Barcode:
        break;
    }
    return QStringLiteral("dk_shc.shtrihcod LIKE ") + likeContains(search.text);
}
/// Goods that the shop never had can be received.
QString goodsOf(GoodsSearch::Mode mode, const QString &shop)
{
    const QString beside = QStringLiteral("LEFT JOIN dk_shc ON goods.id=dk_shc.id_goods "
                                          "LEFT JOIN action ON goods_shop.id_action=action.id WHERE ");
    if (mode == GoodsSearch::Receive)
        return QStringLiteral(" FROM goods LEFT JOIN goods_shop ON goods_shop.id_goods=goods.id AND "
                              "goods_shop.id_shop=") +
               shop + QLatin1Char(' ') + beside + QStringLiteral("goods.id>0");
    return QStringLiteral(" FROM goods_shop LEFT JOIN goods ON goods.id=goods_shop.id_goods ") + beside +
           QStringLiteral("goods_shop.id_shop=") + shop;
}
const CellFormat asPromotion = {promotionShown, promotionShown, false};

/// A column of the list: what is selected (%1: the price, %2: the promotion in force), how it is shown, and
/// what of an item it is. Without a caption it is never shown.
struct Field
{
    GoodsColumn column;
    int digits;
    const char *sql;
    const char *caption;
    const CellFormat *format;
    void (*take)(GoodsItem *item, const QString &cell);
};

template<auto member>
void number(GoodsItem *item, const QString &cell)
{
    using Number = std::decay_t<decltype(item->*member)>;
    item->*member = static_cast<Number>(cell.toLongLong());
}

template<auto member>
void words(GoodsItem *item, const QString &cell)
{
    item->*member = cell;
}

void takePrice(GoodsItem *item, const QString &cell)
{
    item->hasPrice = !cell.isEmpty();
    item->price = cell.toLongLong();
}

void takePromotion(GoodsItem *item, const QString &cell)
{
    item->actOwnName = cell.section(QLatin1Char('\t'), 2);
}

constexpr Field fields[] = {
    {GoodsColumn::Id, 7, "goods.id", QT_TRANSLATE_NOOP("GoodsSearch", "код"), &asNumber,
     &number<&GoodsItem::idGoods>},
    {GoodsColumn::Barcode, 14, "dk_shc.shtrihcod", QT_TRANSLATE_NOOP("GoodsSearch", "штрихкод"), &asText,
     &words<&GoodsItem::barcode>},
    {GoodsColumn::Name, 20, "goods.name", QT_TRANSLATE_NOOP("GoodsSearch", "назва"), &asText,
     &words<&GoodsItem::name>},
    {GoodsColumn::Showroom, 8, "goods_shop.count_showroom", QT_TRANSLATE_NOOP("GoodsSearch", "зал"),
     &asQuantity, &number<&GoodsItem::showroom>},
    {GoodsColumn::Syllable, 8, "goods_shop.count_syllable", QT_TRANSLATE_NOOP("GoodsSearch", "склад"),
     &asQuantity, &number<&GoodsItem::syllable>},
    {GoodsColumn::Rules, 0, "goods.id_rules_goods", nullptr, &asNumber, &number<&GoodsItem::rules>},
    {GoodsColumn::Type, 0, "goods.type", nullptr, &asNumber, &number<&GoodsItem::type>},
    {GoodsColumn::IsDisk, 0, "goods.bonus_disk", nullptr, &asNumber, &number<&GoodsItem::isDisk>},
    {GoodsColumn::Tax, 0, "goods.tax", nullptr, &asNumber, &number<&GoodsItem::tax>},
    {GoodsColumn::Price, 9, "%1 AS prc", QT_TRANSLATE_NOOP("GoodsSearch", "ціна"), &asMoney, &takePrice},
    {GoodsColumn::ActType, 0, "%2 AS act", nullptr, &asNumber, &number<&GoodsItem::actType>},
    {GoodsColumn::ActVal, 0, "action.val", nullptr, &asNumber, &number<&GoodsItem::actVal>},
    {GoodsColumn::ActVal1, 0, "action.val_1", nullptr, &asNumber, &number<&GoodsItem::actVal1>},
    {GoodsColumn::ActVal2, 0, "action.val_2", nullptr, &asNumber, &number<&GoodsItem::actVal2>},
    // Looked up by the promotion's type, as the other programs on this database do.
    {GoodsColumn::ActName, 0, "(SELECT action.name FROM action WHERE id=act)", nullptr, &asText,
     &words<&GoodsItem::actName>},
    {GoodsColumn::Promotion, 16,
     "CONCAT_WS(CHAR(9),(SELECT act),action.val,IF((SELECT act)=1,(SELECT action.name FROM action WHERE "
     "id=1),action.name))",
     QT_TRANSLATE_NOOP("GoodsSearch", "акція"), &asPromotion, &takePromotion},
};

static_assert(standInOrder(fields, GoodsColumn::Count));
} // namespace

QString promotionShown(std::string_view stored)
{
    const QString cell = QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
    const auto part = [&](int number) { return cell.section(QLatin1Char('\t'), number, number); };
    const int kind = part(0).toInt();
    return kind == GoodsItem::withoutAction ? part(2) : promotionCaption(kind, part(1).toLongLong(), part(2));
}

QString goodsListSql(const GoodsSearch &search)
{
    const QString shop = QString::number(search.idShop);
    QStringList selected;
    for (const Field &field : fields)
        selected.append(QLatin1String(field.sql));
    return QStringLiteral("SELECT ") +
           selected.join(QLatin1Char(','))
               .arg(resolvedPriceSql(search.idShop, search.priority), actionInForceSql(search.time)) +
           goodsOf(search.mode, shop) +
           QStringLiteral(" AND goods.block=0 AND (goods.group_g<2 OR goods.group_g>5)"
                          " AND (goods.id_rules_goods=1 OR goods.id_rules_goods=2") +
           (search.mode == GoodsSearch::Receive ? QString() : QStringLiteral(" OR goods.id_rules_goods=3")) +
           QStringLiteral(") AND (") + condition(search) + QStringLiteral(") LIMIT ") +
           QString::number(search.limit);
}

QVector<Column> goodsListColumns()
{
    QVector<Column> columns;
    for (const Field &field : fields) {
        const bool isShown = field.caption != nullptr;
        columns.append({isShown ? QCoreApplication::translate("GoodsSearch", field.caption) : QString(),
                        field.digits, field.format, !isShown});
    }
    return columns;
}

GoodsItem goodsItem(const std::function<QString(int column)> &cell)
{
    GoodsItem item;
    for (const Field &field : fields)
        field.take(&item, cell(static_cast<int>(field.column)));
    return item;
}

GoodsItem goodsItem(const QSqlQuery &query)
{
    return goodsItem([&](int column) { return toText(query.value(column)); });
}
