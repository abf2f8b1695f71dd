#include "chekquery.h"

#include "db.h"

#include <QStringList>

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

QString joins(PlaceSelector::Narrowest narrowest)
{
    switch (narrowest) {
    case PlaceSelector::Register:
        return QStringLiteral("LEFT JOIN kassa ON cheks.id_kass=kassa.id "
                              "LEFT JOIN shops ON cheks.id_shop=shops.id ");
    case PlaceSelector::Shop:
        return QStringLiteral("LEFT JOIN shops ON cheks.id_shop=shops.id ");
    case PlaceSelector::Group:
        return QStringLiteral("LEFT JOIN shops ON cheks.id_shop=shops.id "
                              "LEFT JOIN group_shop ON group_shop.id=shops.group_shop ");
    default:
        return {};
    }
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
        return {};
    }
}

QString range(const ChekFilter &filter)
{
    const QString field =
        filter.byNumber ? QStringLiteral("cheks.id_zvit") : QStringLiteral("cheks.data_time");
    return field + QStringLiteral(">=") + filter.from + QStringLiteral(" AND ") + field +
           QStringLiteral("<=") + filter.to;
}

const QString oneLineAReceipt = QStringLiteral(" GROUP BY cheks.id_chek,cheks.id_kass");
} // namespace

QString chekListSql(const ChekFilter &filter)
{
    return QStringLiteral("SELECT cheks.id_zvit,cheks.id_chek,cheks.id_type,cheks.summa,cheks.data_time,"
                          "cheks.id_kass,sum(cheks.count) FROM cheks ") +
           joins(filter.narrowest) + QStringLiteral("WHERE") + typeFilter() + placeFilter(filter) +
           range(filter) + oneLineAReceipt;
}

QString chekMismatchSql(const ChekFilter &filter)
{
    return QStringLiteral("SELECT cheks.id_kass,cheks.id_chek,") + sums + QStringLiteral(" FROM cheks ") +
           joins(filter.narrowest) + QStringLiteral("WHERE ") + placeFilter(filter) + range(filter) +
           oneLineAReceipt +
           QStringLiteral(" HAVING payments>0 AND (goods-discount<>to_pay OR paid<>to_pay)");
}

QString chekSumsSql(const QString &kass, const QString &chek)
{
    return QStringLiteral("SELECT ") + sums +
           QStringLiteral(",SUM(IF(cheks.id_type=3,cheks.tax,0)) AS card FROM cheks WHERE cheks.id_kass=") +
           kass + QStringLiteral(" AND cheks.id_chek=") + chek;
}
