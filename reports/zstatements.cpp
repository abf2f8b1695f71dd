#include "zstatements.h"

#include "db.h"
#include "shopgroups.h"

namespace {
const char *const perReport =
    "SELECT z_zvit.id_zzvit,shops.address,kassa.advertising_str,"
    "(z_zvit.Oborot_A+z_zvit.Oborot_B+z_zvit.Oborot_V+z_zvit.Oborot_G+z_zvit.Oborot_D-z_zvit.summ_diskount) AS "
    "oborot,z_zvit.cash,z_zvit.beznal_1+z_zvit.beznal_2+z_zvit.beznal_3,z_zvit.count_cheks,"
    "z_zvit.summ_diskount,z_zvit.count_chek_diskount,z_zvit.count_position_canc,"
    "z_zvit.Oborot_A_ret+z_zvit.Oborot_B_ret+z_zvit.Oborot_V_ret+z_zvit.Oborot_G_ret+z_zvit.Oborot_D_ret,"
    "(z_zvit.Oborot_A*(PDV_A+DOD_A)/(10000+PDV_A+DOD_A))+(z_zvit.Oborot_B*(PDV_B+DOD_B)/(10000+PDV_B+DOD_B))+"
    "(z_zvit.Oborot_V*(PDV_V+DOD_V)/(10000+PDV_V+DOD_V))+(z_zvit.Oborot_G*(PDV_G+DOD_G)/(10000+PDV_G+DOD_G))+"
    "(z_zvit.Oborot_D*(PDV_D+DOD_D)/(10000+PDV_D+DOD_D)) AS PDV,z_zvit.data_time "
    "FROM z_zvit LEFT JOIN kassa ON z_zvit.id_kass=kassa.id LEFT JOIN shops ON z_zvit.id_shop=shops.id";

const char *const sums =
    "SELECT 'summ','summ','summ',SUM(z_zvit.Oborot_A+z_zvit.Oborot_B+z_zvit.Oborot_V+z_zvit.Oborot_G+"
    "z_zvit.Oborot_D-z_zvit.summ_diskount) AS oborot,SUM(z_zvit.cash),"
    "SUM(z_zvit.beznal_1+z_zvit.beznal_2+z_zvit.beznal_3),SUM(z_zvit.count_cheks),SUM(z_zvit.summ_diskount),"
    "SUM(z_zvit.count_chek_diskount),SUM(z_zvit.count_position_canc),"
    "SUM(z_zvit.Oborot_A_ret+z_zvit.Oborot_B_ret+z_zvit.Oborot_V_ret+z_zvit.Oborot_G_ret+z_zvit.Oborot_D_ret),"
    "SUM((z_zvit.Oborot_A*(PDV_A+DOD_A)/(10000+PDV_A+DOD_A))+(z_zvit.Oborot_B*(PDV_B+DOD_B)/(10000+PDV_B+DOD_B))+"
    "(z_zvit.Oborot_V*(PDV_V+DOD_V)/(10000+PDV_V+DOD_V))+(z_zvit.Oborot_G*(PDV_G+DOD_G)/(10000+PDV_G+DOD_G))+"
    "(z_zvit.Oborot_D*(PDV_D+DOD_D)/(10000+PDV_D+DOD_D))) AS PDV,'_' "
    "FROM z_zvit LEFT JOIN kassa ON z_zvit.id_kass=kassa.id LEFT JOIN shops ON z_zvit.id_shop=shops.id";

/// The narrowest choice made: what comes before the range and which column a range of numbers names.
struct Choice
{
    QString condition;
    const char *numberColumn;
};

Choice choiceOf(const ZPlace &place)
{
    if (!place.kassa.isEmpty())
        return {QStringLiteral(" WHERE kassa.advertising_str=%1 AND shops.address=%2 AND ")
                    .arg(lit(place.kassa), lit(place.shop)),
                "z_zvit.id_zzvit"};
    if (!place.shop.isEmpty())
        return {QStringLiteral(" WHERE shops.address=%1 AND ").arg(lit(place.shop)), "z_zvit.id"};
    if (!place.group.isEmpty())
        return {QStringLiteral(" LEFT JOIN group_shop ON group_shop.id=shops.group_shop "
                               "WHERE group_shop.name=%1 AND ")
                    .arg(lit(place.group)),
                "z_zvit.id"};
    if (!place.groups.isEmpty())
        return {QStringLiteral(" WHERE") + inShopGroups(QStringLiteral("shops.group_shop"), place.groups) +
                    QStringLiteral(" AND "),
                "z_zvit.id_zvit"};
    return {QStringLiteral(" WHERE "), "z_zvit.id_zvit"};
}
} // namespace

QString zStatement(bool summed)
{
    return QLatin1String(summed ? sums : perReport);
}

QString zCondition(const ZPlace &place, const ZRange &range)
{
    const Choice choice = choiceOf(place);
    const QLatin1String column(range.isByNumber ? choice.numberColumn : "z_zvit.data_time");
    return choice.condition + column + QStringLiteral(">=") + QString::number(range.from.toULongLong()) +
           QStringLiteral(" AND ") + column + QStringLiteral("<=") + QString::number(range.to.toULongLong());
}

QString zLimit(const QString &limit)
{
    return limit.isEmpty() ? QString() : QStringLiteral(" LIMIT ") + limit;
}
