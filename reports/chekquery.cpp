#include "chekquery.h"

#include "cheks.h"
#include "db.h"
#include "shopgroups.h"
#include "sqldate.h"

namespace {
/// A payment row carries cash in price, the card in tax, the certificate in dis_bon_bez2 and the fourth way
/// in count.
const QString sums = QStringLiteral("SUM(IF(cheks.id_type IN (1,6),cheks.summa,0)) AS goods,"
                                    "SUM(IF(cheks.id_type=2,cheks.summa,0)) AS discount,"
                                    "SUM(IF(cheks.id_type=3,cheks.summa,0)) AS to_pay,"
                                    "SUM(IF(cheks.id_type=3,IFNULL(cheks.price,0)+IFNULL(cheks.tax,0)+"
                                    "IFNULL(cheks.dis_bon_bez2,0)+IFNULL(cheks.count,0),0)) AS paid,"
                                    "SUM(cheks.id_type=3) AS payments");

/// The types that are listed; the rows of goods and discounts of a sale are not.
QString typeFilter()
{
    QStringList types;
    for (const char *code : {"10", "8", "7", "6", "5", "4", "3"})
        types.append(QStringLiteral("cheks.id_type=") + QLatin1String(code));
    return QLatin1Char('(') + types.join(QStringLiteral(" OR ")) + QStringLiteral(") AND ");
}

const QString shopsJoined = QStringLiteral("LEFT JOIN shops ON cheks.id_shop=shops.id ");

QString joins(const ChekFilter &filter)
{
    if (filter.origin)
        return shopsJoined;
    switch (filter.narrowest) {
    case PlaceSelector::Register:
        return QStringLiteral("LEFT JOIN kassa ON cheks.id_kass=kassa.id ") + shopsJoined;
    case PlaceSelector::Shop:
        return shopsJoined;
    case PlaceSelector::Group:
        return shopsJoined + QStringLiteral("LEFT JOIN group_shop ON group_shop.id=shops.group_shop ");
    default:
        return filter.groups.isEmpty() ? QString() : shopsJoined;
    }
}

QString groupsFilter(const QStringList &groups)
{
    return groups.isEmpty()
               ? QString()
               : inShopGroups(QStringLiteral("shops.group_shop"), groups) + QStringLiteral(" AND ");
}

QString placeFilter(const ChekFilter &filter)
{
    switch (filter.narrowest) {
    case PlaceSelector::Register:
        return QStringLiteral("kassa.advertising_str=") + lit(filter.kass) +
               QStringLiteral(" AND shops.address=") + lit(filter.shop) + QStringLiteral(" AND ");
    case PlaceSelector::Shop:
        return QStringLiteral("shops.address=") + lit(filter.shop) + QStringLiteral(" AND ");
    case PlaceSelector::Group:
        return QStringLiteral("group_shop.name=") + lit(filter.group) + QStringLiteral(" AND ");
    default:
        return groupsFilter(filter.groups);
    }
}

QString between(const QString &field, const QString &from, const QString &to)
{
    return field + QStringLiteral(">=") + from + QStringLiteral(" AND ") + field + QStringLiteral("<=") + to;
}

QString range(const ChekFilter &filter)
{
    return between(filter.byNumber ? QStringLiteral("cheks.id_zvit") : QStringLiteral("cheks.data_time"),
                   filter.from, filter.to);
}

/// The receipts that hold the article of the line.
QString soldIn(const ChekOrigin &origin)
{
    if (origin.article.isEmpty())
        return {};
    QString condition =
        QStringLiteral(" AND EXISTS(SELECT 1 FROM cheks sold WHERE sold.id_shop=cheks.id_shop AND "
                       "sold.id_kass=cheks.id_kass AND sold.id_chek=cheks.id_chek AND sold.id_type=1 AND "
                       "sold.id_good_cln_slujb=") +
        origin.article;
    if (!origin.price.isEmpty())
        condition += QStringLiteral(" AND sold.price=") + origin.price;
    return condition + QLatin1Char(')');
}

QString originFilter(const ChekOrigin &origin)
{
    QString condition;
    if (origin.kass != 0)
        condition +=
            cheksOfRegister(QString::number(origin.kass), QStringLiteral("cheks.")) + QStringLiteral(" AND ");
    if (origin.shop != 0)
        condition += QStringLiteral("cheks.id_shop=%1 AND ").arg(origin.shop);
    else if (origin.group != 0)
        condition += QStringLiteral("shops.group_shop=%1 AND ").arg(origin.group);
    else
        condition += groupsFilter(origin.groups);
    condition += between(QStringLiteral("cheks.id_zvit"), origin.zFrom, origin.zTo);
    if (origin.firstDay.isValid())
        condition +=
            QStringLiteral(" AND ") + between(QStringLiteral("cheks.data_time"), sqlDayStart(origin.firstDay),
                                              sqlDayEnd(origin.lastDay));
    return condition + soldIn(origin);
}

QString placeAndRange(const ChekFilter &filter)
{
    return filter.origin ? originFilter(*filter.origin) : placeFilter(filter) + range(filter);
}

const QString oneLineAReceipt = QStringLiteral(" GROUP BY cheks.id_chek,cheks.id_kass");
} // namespace

QString chekListSql(const ChekFilter &filter)
{
    return QStringLiteral("SELECT cheks.id_zvit,cheks.id_chek,cheks.id_type,cheks.summa,cheks.data_time,"
                          "cheks.id_kass,sum(cheks.count),"
                          "MIN(cheks.id_type),MAX(cheks.id_type),SUM(cheks.summa),"
                          "SUM(IF(cheks.id_type=3,cheks.summa,0)),MIN(cheks.id_shop),MAX(cheks.id_shop) "
                          "FROM cheks ") +
           joins(filter) + QStringLiteral("WHERE") + typeFilter() + placeAndRange(filter) + oneLineAReceipt;
}

QString chekMismatchSql(const ChekFilter &filter)
{
    return QStringLiteral("SELECT cheks.id_kass,cheks.id_chek,") + sums + QStringLiteral(" FROM cheks ") +
           joins(filter) + QStringLiteral("WHERE ") + placeAndRange(filter) + oneLineAReceipt +
           QStringLiteral(" HAVING payments>0 AND (goods-discount<>to_pay OR paid<>to_pay)");
}

QString chekSumsSql(const QString &condition)
{
    return QStringLiteral("SELECT ") + sums + QStringLiteral(" FROM cheks WHERE ") + condition;
}
