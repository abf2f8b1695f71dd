#include "goodssearch.h"

#include "db.h"
#include "sqldate.h"

namespace {
/// A price of the price lists. A shop's own rows name a group too, therefore "id_shop=0" for the groups.
QString listPrice(const QString &whose, const QString &priority)
{
    return QStringLiteral("(SELECT prices.price FROM prices WHERE prices.id_goods=goods.id AND %1 AND "
                          "prices.priority=%2 LIMIT 1)")
        .arg(whose, priority);
}

/// Priority 0 beats the chosen one, a shop its group, the group the group of all shops.
QString resolvedPrice(const QString &shop, const QString &priority)
{
    const QStringList whose = {
        QStringLiteral("prices.id_shop=") + shop,
        QStringLiteral("prices.id_shop=0 AND prices.id_group=(SELECT shops.group_shop FROM shops WHERE "
                       "shops.id=%1)")
            .arg(shop),
        QStringLiteral("prices.id_shop=0 AND prices.id_group=1")};
    QStringList steps;
    for (const QString &rank : {QStringLiteral("0"), priority}) {
        for (const QString &owner : whose)
            steps.append(listPrice(owner, rank));
    }
    return QStringLiteral("IF((SELECT COUNT(*) FROM prices WHERE prices.id_goods=goods.id)=0,goods.price,"
                          "COALESCE(%1,goods.price))")
        .arg(steps.join(QLatin1Char(',')));
}

/// The type of the promotion in force: a dated one only between its ends, in its hours and on its days.
QString actionInForce(const QString &time, const QString &day)
{
    return QStringLiteral(
               "IF(action.id_type_action=1,1,IF(action.datetime_start=0,%1,"
               "IF(action.datetime_start>%2 OR action.datetime_end<%2 OR "
               "TIME(action.datetime_start)>TIME(%2) OR TIME(action.datetime_end)<TIME(%2),1,%1)))")
        .arg(QStringLiteral("IF(action.week_day LIKE ") + day + QStringLiteral(",action.id_type_action,1)"),
             time);
}

/// Each word has to be found in one of the names or in the number.
QString nameCondition(const QString &text)
{
    QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        words.append(QString());
    QStringList conditions;
    for (const QString &word : words) {
        const QString pattern = likeContains(word);
        conditions.append(QStringLiteral("(goods.name_short LIKE ") + pattern +
                          QStringLiteral(" OR goods.name LIKE ") + pattern +
                          QStringLiteral(" OR goods.id LIKE ") + pattern + QLatin1Char(')'));
    }
    return conditions.join(QStringLiteral(" AND "));
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
} // namespace

namespace {
/// The kind in force, its value and the promotion's own name.
QString promotionOf(std::string_view stored)
{
    const QString cell = QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
    const auto part = [&](int number) { return cell.section(QLatin1Char('\t'), number, number); };
    const int kind = part(0).toInt();
    return kind == ReceiptRow::withoutAction ? part(2)
                                             : promotionCaption(kind, part(1).toLongLong(), part(2));
}
} // namespace

const CellFormat asPromotion = {promotionOf, promotionOf, false};

QString goodsListSql(const GoodsSearch &search)
{
    const QString shop = QString::number(search.idShop);
    return QStringLiteral("SELECT goods.id,dk_shc.shtrihcod,goods.name,goods_shop.count_showroom,"
                          "goods_shop.count_syllable,goods.id_rules_goods,goods.type,goods.bonus_disk,"
                          "goods.tax,") +
           resolvedPrice(shop, QString::number(search.priority)) + QStringLiteral(" AS prc,") +
           actionInForce(sqlDateTime(search.time),
                         lit(QLatin1Char('%') + weekDayToken(search.time.date()) + QLatin1Char('%'))) +
           // The name is looked up by the promotion's type, as the other programs on this database do.
           QStringLiteral(
               " AS act,action.val,action.val_1,action.val_2,"
               "(SELECT action.name FROM action WHERE id=act),"
               "CONCAT_WS(CHAR(9),(SELECT act),action.val,IF((SELECT act)=1,(SELECT action.name FROM action "
               "WHERE id=1),action.name)) FROM goods_shop "
               "LEFT JOIN goods ON goods.id=goods_shop.id_goods "
               "LEFT JOIN dk_shc ON goods.id=dk_shc.id_goods "
               "LEFT JOIN action ON goods_shop.id_action=action.id WHERE goods_shop.id_shop=") +
           shop +
           QStringLiteral(" AND goods.block=0 AND (goods.group_g<2 OR goods.group_g>5)"
                          " AND (goods.id_rules_goods=1 OR goods.id_rules_goods=2") +
           (search.mode == GoodsSearch::Receive ? QString() : QStringLiteral(" OR goods.id_rules_goods=3")) +
           QStringLiteral(") AND (") + condition(search) + QStringLiteral(") LIMIT ") +
           QString::number(search.limit);
}

ReceiptRow receiptRow(const QStringList &cells)
{
    ReceiptRow row;
    row.idGoods = cells.at(GoodsColumn::Id).toUInt();
    row.barcode = cells.at(GoodsColumn::Barcode);
    row.name = cells.at(GoodsColumn::Name);
    row.showroom = cells.at(GoodsColumn::Showroom).toLongLong();
    row.syllable = cells.at(GoodsColumn::Syllable).toLongLong();
    row.rules = cells.at(GoodsColumn::Rules).toInt();
    row.type = cells.at(GoodsColumn::Type).toInt();
    row.isDisk = cells.at(GoodsColumn::IsDisk).toInt();
    row.tax = cells.at(GoodsColumn::Tax).toInt();
    row.hasPrice = !cells.at(GoodsColumn::Price).isEmpty();
    row.price = cells.at(GoodsColumn::Price).toLongLong();
    row.actType = cells.at(GoodsColumn::ActType).toInt();
    row.actVal = cells.at(GoodsColumn::ActVal).toLongLong();
    row.actVal1 = cells.at(GoodsColumn::ActVal1).toLongLong();
    row.actVal2 = cells.at(GoodsColumn::ActVal2).toLongLong();
    row.actName = cells.at(GoodsColumn::ActName);
    row.actOwnName = cells.at(GoodsColumn::Promotion).section(QLatin1Char('\t'), 2);
    return row;
}
