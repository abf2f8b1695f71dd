#include "shopgroups.h"

#include "db.h"
#include "qloadeduser.h"

QStringList shopGroupsSeen(const QLoadedUser &user)
{
    const QString all = QStringLiteral("1");
    QStringList groups = user.groups();
    if (groups.isEmpty())
        return {QStringLiteral("0")};
    if (!groups.contains(all))
        groups.append(all);
    return groups;
}

bool isEveryShopGroup(const Db &db, const QStringList &groups)
{
    const auto others = db.firstText(QStringLiteral("SELECT COUNT(*) FROM group_shop WHERE NOT") +
                                     inShopGroups(QStringLiteral("id"), groups));
    return others == QLatin1String("0");
}

QString inShopGroups(const QString &field, const QStringList &groups)
{
    return QStringLiteral(" (") + field + QLatin1Char('=') +
           groups.join(QStringLiteral(" OR ") + field + QLatin1Char('=')) + QLatin1Char(')');
}
