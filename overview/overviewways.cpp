#include "overviewways.h"

#include "overviewsql.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "sqldate.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QOverview)
};

Destination listOf(const char *action, const QString &condition, const QString &words)
{
    Destination there;
    there.action = QLatin1String(action);
    there.condition = condition;
    there.words = words;
    return there;
}

Destination reportOf(const char *action, const OverviewPlace &place, const QDate &day = {})
{
    Destination there;
    there.action = QLatin1String(action);
    there.origin.shop = place.shop == nullptr ? 0 : place.shop->id;
    there.origin.kass = place.reg == nullptr ? 0 : place.reg->id;
    there.origin.firstDay = there.origin.lastDay = day;
    return there;
}

Destination receiptsOf(const OverviewShift &shift)
{
    Destination there;
    there.action = QStringLiteral("mz_cheks");
    there.origin.shop = shift.shop;
    there.origin.kass = shift.key.first;
    there.origin.zFrom = there.origin.zTo = QString::number(shift.key.second);
    return there;
}

QVector<OverviewShift> openAt(const ChainState &chain, const OverviewPlace &place)
{
    if (place.reg != nullptr)
        return place.reg->open;
    if (place.shop == nullptr)
        return openShifts(chain);
    QVector<OverviewShift> open;
    for (const OverviewRegister &reg : place.shop->registers)
        open += reg.open;
    return open;
}

QString closedOn(const QDate &day)
{
    return QStringLiteral("z_zvit.data_time>=%1 AND z_zvit.data_time<=%2")
        .arg(sqlDayStart(day), sqlDayEnd(day));
}

QString shown(const QDate &day)
{
    return day.toString(QStringLiteral("dd.MM.yyyy"));
}
} // namespace

Destination wayToOpenShifts(const QLoadedUser &user, const ChainState &chain, const OverviewPlace &place)
{
    const QVector<OverviewShift> open = openAt(chain, place);
    if (open.isEmpty())
        return {};
    if (open.size() == 1 && user.maySee(Permission::Cheks))
        return receiptsOf(open.constFirst());
    if (!user.maySee(Permission::ZZvit))
        return reportOf("mz_zzvit", place);
    QVector<ShiftKey> keys;
    for (const OverviewShift &shift : open)
        keys.append(shift.key);
    return listOf("mt_z_zvits", shiftsCondition(keys),
                  place.shop == nullptr ? Texts::tr("Відкриті зміни")
                                        : Texts::tr("Відкриті зміни: %1").arg(place.shop->address));
}

Destination wayToClosedShifts(const QLoadedUser &user, const OverviewPlace &place, const QDate &day)
{
    if (place.shop != nullptr || !user.maySee(Permission::ZZvit))
        return reportOf("mz_zzvit", place, day);
    return listOf("mt_z_zvits", closedOn(day), Texts::tr("Зміни за %1").arg(shown(day)));
}

Destination wayToDay(const QLoadedUser &user, const ChainState &chain, const QDate &day)
{
    if (day != chain.today || !user.maySee(Permission::ZZvit))
        return wayToClosedShifts(user, {}, day);
    return listOf("mt_z_zvits", QStringLiteral("(%1) OR z_zvit.data_time=0").arg(closedOn(day)),
                  Texts::tr("Зміни за %1 і відкриті").arg(shown(day)));
}

Destination wayToLines(const QLoadedUser &user, const OverviewPlace &place)
{
    return user.maySee(Permission::Online) && place.shop != nullptr ? reportOf("mz_StatisticOnLine", place)
                                                                    : Destination();
}

Destination wayToRegisters(const QLoadedUser &user, const ChainState &chain, const OverviewPlace &place)
{
    if (!user.maySee(Permission::Kassa))
        return {};
    const QString column = QStringLiteral("kassa.id");
    if (place.reg != nullptr)
        return listOf("mt_kass", idsCondition(column, {place.reg->id}), place.reg->name);
    QVector<DbId> ids;
    for (const OverviewShop &shop : chain.shops) {
        for (const OverviewRegister &reg : shop.registers) {
            if (!reg.isBlocked)
                ids.append(reg.id);
        }
    }
    return listOf("mt_kass", idsCondition(column, ids), Texts::tr("Каси, не заблоковані"));
}

Destination wayToShops(const QLoadedUser &user, const ChainState &chain)
{
    if (!user.maySee(Permission::Shops))
        return {};
    QVector<DbId> ids;
    for (const OverviewShop &shop : chain.shops)
        ids.append(shop.id);
    return listOf("mt_shops", idsCondition(QStringLiteral("shops.id"), ids), Texts::tr("Магазини з огляду"));
}
