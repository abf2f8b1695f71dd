#include "goodsitem.h"

#include "money.h"

#include <QCoreApplication>

QString promotionCaption(int kind, qint64 value, const QString &name)
{
    if (kind != GoodsItem::percentAction)
        return QCoreApplication::translate("Receipt", "%1 (без знижки)").arg(name);
    QString rate = rateText(qMin<qint64>(value, 10000));
    while (rate.contains(QLatin1Char('.')) &&
           (rate.endsWith(QLatin1Char('0')) || rate.endsWith(QLatin1Char('.'))))
        rate.chop(1);
    return QStringLiteral("\u2212%1\u00a0% %2").arg(rate, name).trimmed();
}

qint64 promotionDiscount(int kind, qint64 value, qint64 sum)
{
    if (kind != GoodsItem::percentAction || sum > maximumKopecks)
        return 0;
    return shareOf(sum, qMin<qint64>(value, 10000));
}

QString promotionCaption(const GoodsItem &item)
{
    return item.actType == GoodsItem::withoutAction
               ? item.actName
               : promotionCaption(item.actType, item.actVal, item.actOwnName);
}
