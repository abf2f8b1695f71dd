#include "pricesql.h"

#include "db.h"
#include "sqldate.h"

namespace {
/// A price of the price lists. A shop's own rows name a group too, therefore "id_shop=0" for the groups; of
/// several rows of a shop that of the lowest group counts.
QString listPrice(const QString &whose, const QString &priority)
{
    return QStringLiteral("(SELECT prices.price FROM prices WHERE prices.id_goods=goods.id AND %1 AND "
                          "prices.priority=%2 ORDER BY prices.id_group LIMIT 1)")
        .arg(whose, priority);
}

QString groupOwns(const QString &group)
{
    return QStringLiteral("prices.id_shop=0 AND prices.id_group=") + group;
}

/// The first price of those owners, the strongest first: each with priority 0, then each with the given one.
QString firstPrice(const QStringList &owners, int priority)
{
    QStringList steps;
    for (const QString &rank : {QStringLiteral("0"), QString::number(priority)}) {
        for (const QString &owner : owners)
            steps.append(listPrice(owner, rank));
    }
    return QStringLiteral("IF((SELECT COUNT(*) FROM prices WHERE prices.id_goods=goods.id)=0,goods.price,"
                          "COALESCE(%1,goods.price))")
        .arg(steps.join(QLatin1Char(',')));
}
} // namespace

QString resolvedPriceSql(DbId idShop, int priority)
{
    const QString shop = QString::number(idShop);
    return firstPrice(
        {QStringLiteral("prices.id_shop=") + shop,
         groupOwns(QStringLiteral("(SELECT shops.group_shop FROM shops WHERE shops.id=%1)").arg(shop)),
         groupOwns(QStringLiteral("1"))},
        priority);
}

QString resolvedGroupPriceSql(DbId idGroup, int priority)
{
    return firstPrice({groupOwns(QString::number(idGroup)), groupOwns(QStringLiteral("1"))}, priority);
}

QString actionInForceSql(const QDateTime &time)
{
    const QString now = sqlDateTime(time);
    const QString day = lit(QLatin1Char('%') + weekDayToken(time.date()) + QLatin1Char('%'));
    return QStringLiteral(
               "IF(action.id_type_action=1,1,IF(action.datetime_start=0,%1,"
               "IF(action.datetime_start>%2 OR action.datetime_end<%2 OR "
               "TIME(action.datetime_start)>TIME(%2) OR TIME(action.datetime_end)<TIME(%2),1,%1)))")
        .arg(QStringLiteral("IF(action.week_day LIKE ") + day + QStringLiteral(",action.id_type_action,1)"),
             now);
}
