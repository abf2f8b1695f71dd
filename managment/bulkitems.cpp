#include "bulkitems.h"

#include "goodsrules.h"
#include "pastedbarcodes.h"
#include "pricesql.h"

#include <QCoreApplication>

namespace {
/// What a field is called, where it stands, and which table has the names of its values.
const struct
{
    BulkField field;
    const char *words;
    const char *column;
    const char *names;
} fields[] = {{BulkField::Price, QT_TRANSLATE_NOOP("BulkPlan", "Ціна"), "price", ""},
              {BulkField::Group, QT_TRANSLATE_NOOP("BulkPlan", "Група товарів"), "group_g", "group_goods"},
              {BulkField::Tax, QT_TRANSLATE_NOOP("BulkPlan", "Податкова група"), "tax", "tax"},
              {BulkField::Block, QT_TRANSLATE_NOOP("BulkPlan", "Блокування"), "block", "yesno"},
              {BulkField::Rule, QT_TRANSLATE_NOOP("BulkPlan", "Правило"), "id_rules_goods", "rules_goods"}};

const auto &lineOf(BulkField field)
{
    return fields[static_cast<int>(field)];
}

/// The columns of both statements.
enum ReadColumn {
    ReadId,
    ReadName,
    ReadBlock,
    ReadGroup,
    ReadRule,
    ReadGroupName,
    ReadBase,
    ReadCurrent,
    ReadBeside,
    ReadCount,
    ReadOnTheWay
};

/// Beside others a short number is a weight or a size, which some place of nearly every barcode holds.
QString wordsCondition(const QString &words)
{
    const int shortestPartOfBarcode = 6;
    QString all;
    const QStringList each = wordsOf(words);
    for (const QString &word : each) {
        const QString barcode =
            word.size() >= shortestPartOfBarcode
                ? QStringLiteral(" OR EXISTS(SELECT 1 FROM dk_shc WHERE dk_shc.id_goods=goods.id AND "
                                 "dk_shc.shtrihcod LIKE %1)")
                : QString();
        all +=
            QStringLiteral(" AND ") +
            likeWords(QStringLiteral("(goods.name LIKE %1 OR goods.name_short LIKE %1 OR goods.id LIKE %1") +
                          barcode + QLatin1Char(')'),
                      word);
    }
    return all;
}

QString goodsCondition(const GoodsFilter &filter, const QVector<DbId> &goods)
{
    QString condition = QStringLiteral("1");
    if (!filter.barcodes.isEmpty())
        condition = QStringLiteral("goods.id IN (%1)").arg(idList(goods));
    if (filter.group != 0)
        condition += QStringLiteral(" AND goods.group_g=%1").arg(filter.group);
    if (filter.tax != 0)
        condition += QStringLiteral(" AND goods.tax=%1").arg(filter.tax);
    if (filter.blocked != GoodsFilter::Any)
        condition += filter.blocked == GoodsFilter::Sold ? QStringLiteral(" AND goods.block=0")
                                                         : QStringLiteral(" AND NOT goods.block<=>0");
    return condition + wordsCondition(filter.words);
}

struct Parts
{
    QString current;
    QString beside = QStringLiteral("NULL");
    QString count = QStringLiteral("NULL");
    QString onTheWay = QStringLiteral("NULL");
    QString join;
};

Parts priceParts(const BulkChoice &choice, DbId place)
{
    const QString all = QStringLiteral("(SELECT COUNT(*) FROM prices o WHERE o.id_goods=goods.id)");
    if (place == 0)
        return {QStringLiteral("goods.price"), QStringLiteral("NULL"), all, QStringLiteral("NULL"), {}};
    return {QStringLiteral("listed.price"),
            choice.createsMissing ? QStringLiteral("IF(listed.price IS NULL,%1,NULL)")
                                        .arg(resolvedGroupPriceSql(place, choice.priority))
                                  : QStringLiteral("NULL"),
            all + QStringLiteral("-(listed.price IS NOT NULL)"), QStringLiteral("NULL"),
            QStringLiteral(" LEFT JOIN prices listed ON listed.id_goods=goods.id AND listed.id_shop=0 AND "
                           "listed.id_group=%1 AND listed.priority=%2")
                .arg(place)
                .arg(choice.priority)};
}

Parts fieldParts(const BulkChoice &choice)
{
    const auto &line = lineOf(choice.field);
    Parts parts;
    parts.current = QStringLiteral("goods.") + QLatin1String(line.column);
    parts.beside = QStringLiteral("named.name");
    parts.join =
        QStringLiteral(" LEFT JOIN %1 named ON named.id=%2").arg(QLatin1String(line.names), parts.current);
    if (choice.field != BulkField::Block)
        return parts;
    parts.count = QStringLiteral("EXISTS(SELECT 1 FROM goods_shop WHERE goods_shop.id_goods=goods.id AND "
                                 "(count_showroom<>0 OR count_syllable<>0))");
    parts.onTheWay =
        QStringLiteral("EXISTS(SELECT 1 FROM transactions_goods JOIN invoice ON invoice.id=id_invoice WHERE "
                       "id_good=goods.id AND IFNULL(invoice.data_time_close=0,1))");
    return parts;
}
} // namespace

QString bulkColumn(BulkField field)
{
    return QLatin1String(lineOf(field).column);
}

QString bulkFieldWords(BulkField field)
{
    return QCoreApplication::translate("BulkPlan", lineOf(field).words);
}

QString bulkItemsSql(const BulkChoice &choice, DbId place, const QVector<DbId> &goods)
{
    const Parts parts = choice.isPrice() ? priceParts(choice, place) : fieldParts(choice);
    return QStringLiteral("SELECT goods.id,goods.name,goods.block,goods.group_g,goods.id_rules_goods,"
                          "group_goods.name,goods.price,") +
           QStringList{parts.current, parts.beside, parts.count, parts.onTheWay}.join(QLatin1Char(',')) +
           QStringLiteral(" FROM goods LEFT JOIN group_goods ON group_goods.id=goods.group_g") + parts.join +
           QStringLiteral(" WHERE ") + goodsCondition(choice.goods, goods) +
           QStringLiteral(" ORDER BY goods.id");
}

BulkItem bulkItem(const QSqlQuery &row)
{
    BulkItem item;
    item.id = row.value(ReadId).toUInt();
    item.name = toText(row.value(ReadName));
    item.isBlocked = toText(row.value(ReadBlock)) != QLatin1String("0");
    item.group = row.value(ReadGroup).toUInt();
    item.rule = row.value(ReadRule).toUInt();
    item.groupName = toText(row.value(ReadGroupName));
    item.base = wholeOf(row.value(ReadBase));
    item.current = wholeOf(row.value(ReadCurrent));
    item.beside = toText(row.value(ReadBeside));
    item.count = row.value(ReadCount).toLongLong();
    item.isOnTheWay = row.value(ReadOnTheWay).toBool();
    return item;
}

std::optional<qint64> wholeOf(const QVariant &value)
{
    return value.isNull() ? std::nullopt : std::optional(value.toLongLong());
}

QString ruleHoldersSql()
{
    return QStringLiteral("SELECT group_g,id_rules_goods,id FROM goods WHERE id_rules_goods BETWEEN 2 AND 4");
}

RuleHolders ruleHoldersOf(QSqlQuery *rows)
{
    RuleHolders holders;
    while (rows->next())
        holders.insert({rows->value(0).toUInt(), rows->value(1).toUInt()}, rows->value(2).toUInt());
    return holders;
}

RulePlace rulePlace(BulkField field, DbId value, DbId group, DbId rule)
{
    const DbId newGroup = field == BulkField::Group ? value : group;
    const DbId newRule = field == BulkField::Rule ? value : rule;
    const bool isMoved = field == BulkField::Group || field == BulkField::Rule;
    return isMoved && newGroup != 0 && isExclusiveRule(newRule) ? RulePlace(newGroup, newRule)
                                                                : RulePlace(0, 0);
}
