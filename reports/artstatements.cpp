#include "artstatements.h"

#include "shopgroups.h"
#include "sqldate.h"

namespace {
QString anyOf(const QString &field, const QStringList &ids)
{
    QStringList parts;
    for (const QString &id : ids)
        parts.append(field + QLatin1Char('=') + id);
    const QString condition = parts.join(QStringLiteral(" OR "));
    return parts.size() == 1 ? condition : QLatin1Char('(') + condition + QLatin1Char(')');
}

QString placeCondition(const ArtPlace &place)
{
    QString shop = QStringLiteral("cheks.id_shop=") + QString::number(place.shop);
    if (place.kass != 0)
        return QStringLiteral("cheks.id_kass=") + QString::number(place.kass) + QStringLiteral(" AND ") +
               shop;
    if (place.shop != 0)
        return shop;
    const QString field = QStringLiteral("group_shop");
    if (place.group != 0)
        return anyOf(field, {QString::number(place.group)});
    return anyOf(field, place.permittedGroups);
}

QString rangeCondition(const ArtChoice &choice)
{
    const QString days = choice.firstDay.isValid()
                             ? QStringLiteral(" AND cheks.data_time>=") + sqlDayStart(choice.firstDay) +
                                   QStringLiteral(" AND cheks.data_time<=") + sqlDayEnd(choice.lastDay)
                             : QString();
    return QStringLiteral(" AND cheks.id_zvit>=") + choice.zFrom + QStringLiteral(" AND cheks.id_zvit<=") +
           choice.zTo + days;
}

QString goodsCondition(const ArtChoice &choice)
{
    if (choice.allGoods)
        return QString();
    QString condition = QStringLiteral(" AND (goods.group_g=0");
    for (const QString &id : choice.goodsGroups)
        condition += QStringLiteral(" OR goods.group_g=") + id;
    return condition + QLatin1Char(')');
}

QString grouping(const ArtChoice &choice)
{
    return (choice.averagePrice ? QStringLiteral(" GROUP BY cheks.id_good_cln_slujb")
                                : QStringLiteral(" GROUP BY cheks.id_good_cln_slujb, cheks.price ")) +
           (choice.byDay ? QStringLiteral(", DATE(cheks.data_time)") : QString());
}
} // namespace

QString articlesStatement(const ArtChoice &choice)
{
    const QString price = choice.averagePrice ? QStringLiteral("(SUM(cheks.summa)/SUM(cheks.count))*1000")
                                              : QStringLiteral("cheks.price");
    const QString limit = choice.limit.isEmpty() ? QString() : QStringLiteral(" LIMIT ") + choice.limit;
    return QStringLiteral("SELECT cheks.id_good_cln_slujb,cheks.strihcode,cheks.name,") + price +
           QStringLiteral(",SUM(cheks.count),SUM(cheks.summa)-SUM(cheks.sumdisc),SUM(cheks.sumdisc),"
                          "cheks.data_time,cheks.type FROM cheks LEFT JOIN shops ON cheks.id_shop=shops.id "
                          "LEFT JOIN goods ON cheks.id_good_cln_slujb=goods.id WHERE ") +
           placeCondition(choice.place) + QStringLiteral(" AND cheks.id_type=1") + rangeCondition(choice) +
           goodsCondition(choice) + grouping(choice) + limit;
}

QString bonusStatement(const ArtChoice &choice)
{
    return QStringLiteral("SELECT SUM(cheks.bonus_plus) FROM cheks LEFT JOIN shops ON cheks.id_shop=shops.id "
                          "WHERE cheks.id_type=2") +
           rangeCondition(choice) + QStringLiteral(" AND ") + placeCondition(choice.place);
}

QString zNumbersStatement(const ArtPlace &place, const QDate &day)
{
    QString sql = QStringLiteral("SELECT id_zzvit FROM z_zvit LEFT JOIN shops ON id=id_shop WHERE");
    // A chosen group offers the shops of group 1 too: of a chosen shop its own group counts.
    sql += place.group != 0 && place.shop == 0
               ? QStringLiteral(" shops.group_shop=") + QString::number(place.group)
               : inShopGroups(QStringLiteral("shops.group_shop"), place.permittedGroups);
    if (place.shop != 0)
        sql += QStringLiteral(" AND z_zvit.id_shop=") + QString::number(place.shop);
    if (place.kass != 0)
        sql += QStringLiteral(" AND z_zvit.id_kass=") + QString::number(place.kass);
    return sql + QStringLiteral(" AND DATE(data_time)=") + day.toString(QStringLiteral("yyyyMMdd")) +
           QStringLiteral(" GROUP BY id_zzvit");
}
