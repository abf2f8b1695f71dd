#include "actionusage.h"

#include "money.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActionUsage)
};

enum UsageColumn { Address, Goods, AllGoods };
const int shopsListed = 15;

std::optional<TextRows> readUsage(const Db &db, const QString &idAction)
{
    auto query = db.run(actionUsageSql(idAction));
    if (!query)
        return std::nullopt;
    TextRows rows;
    while (query->next())
        rows.append(
            {toText(query->value(Address)), toText(query->value(Goods)), toText(query->value(AllGoods))});
    return rows;
}

QString identitySql(const QString &idAction)
{
    return QStringLiteral("SELECT CONCAT_WS(CHAR(9),name,id_type_action,val,val_1,val_2,datetime_start,"
                          "datetime_end,week_day) FROM action WHERE id=") +
           idAction;
}
} // namespace

QString actionUsageSql(const QString &idAction)
{
    return QStringLiteral(
               "SELECT shops.address,COUNT(*),(SELECT COUNT(DISTINCT id_goods) FROM goods_shop WHERE "
               "id_action=%1) FROM goods_shop LEFT JOIN shops ON shops.id=goods_shop.id_shop WHERE "
               "goods_shop.id_action=%1 GROUP BY goods_shop.id_shop ORDER BY 2 DESC,1")
        .arg(idAction);
}

QString actionUsageWords(const TextRows &usage)
{
    return usage.isEmpty()
               ? QString()
               : Texts::tr("товарів: %1, магазинів: %2")
                     .arg(wholeShown(usage.first().at(AllGoods).toLongLong()), wholeShown(usage.size()));
}

QString actionUsageList(const TextRows &usage)
{
    QStringList lines;
    for (const QStringList &shop : usage.mid(0, shopsListed))
        lines.append(
            Texts::tr("%1 – товарів: %2").arg(shop.at(Address), wholeShown(shop.at(Goods).toLongLong())));
    if (usage.size() > shopsListed)
        lines.append(Texts::tr("і ще магазинів: %1").arg(usage.size() - shopsListed));
    return lines.join(QLatin1Char('\n'));
}

std::optional<ActionUse> readActionUse(const Db &db, const QString &idAction)
{
    const auto identity = db.firstRow(identitySql(idAction));
    const auto usage = identity ? readUsage(db, idAction) : std::nullopt;
    return usage ? std::optional(ActionUse{*identity, *usage}) : std::nullopt;
}

ActionRemoved deleteAction(const Db &db, const QString &idAction, const QStringList &asked)
{
    ActionRemoved removed;
    {
        Transaction t(db);
        const auto now =
            t ? db.firstRow(identitySql(idAction) + QStringLiteral(" FOR UPDATE")) : std::nullopt;
        if (!now)
            return removed;
        if (*now != asked)
            return {now->isEmpty() ? ActionRemoved::Gone : ActionRemoved::Changed};
        const auto deleted =
            db.runExpecting(ServerError::RowInUse, QStringLiteral("DELETE FROM action WHERE id=") + idAction);
        if (deleted && QUpdateBD().updateShown({QStringLiteral("action")}, *db.connection(), db.receiver()) &&
            t.commit())
            removed.outcome = ActionRemoved::Removed;
    }
    if (removed.outcome == ActionRemoved::Removed || db.lastErrorNumber() != ServerError::RowInUse)
        return removed;
    removed.usage = readUsage(db, idAction).value_or(TextRows());
    removed.outcome = ActionRemoved::InUse;
    return removed;
}
