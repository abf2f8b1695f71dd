#include "transferplaces.h"

#include "qloadeduser.h"
#include "qtab.h"

namespace {
QString shopsSql(const QString &condition)
{
    return QStringLiteral("SELECT address,id FROM shops WHERE NOT IFNULL(block,0) AND ") + condition +
           QStringLiteral(" ORDER BY address,id");
}
} // namespace

QString TransferPlaces::seenCondition(const QLoadedUser &user)
{
    const QString groups = QTab::GetStrLstGroupFromPermis(&user, QStringLiteral("shops.group_shop"), true);
    return user.idShop().isEmpty() ? groups
                                   : QStringLiteral(" (%1 OR shops.id=%2)").arg(groups, user.idShop());
}

QString TransferPlaces::ownSql(const QLoadedUser &user)
{
    return shopsSql(seenCondition(user));
}

QString TransferPlaces::targetsSql(const QLoadedUser &user)
{
    return shopsSql(
        QStringLiteral("id IN (%1)")
            .arg((QStringList{QStringLiteral("0")} + user.shopsTransmit()).join(QLatin1Char(','))));
}
