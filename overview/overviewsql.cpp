#include "overviewsql.h"

#include "nextstep.h"
#include "qloadeduser.h"
#include "qtab.h"
#include "rowstore.h"
#include "shopgroups.h"
#include "sqldate.h"

namespace {
enum Kind { Counting, LastReceipt, ShiftBegin };

const QLatin1String numberIndex("tune_kass_chek");
const QLatin1String timeIndex("tune_data_time");

/// The shops that the user may see.
QString seenShops(const QLoadedUser &user)
{
    const QString groups = inShopGroups(QStringLiteral("shops.group_shop"), shopGroupsSeen(user));
    return user.idShop().isEmpty() ? groups
                                   : QStringLiteral(" (%1 OR shops.id=%2)").arg(groups, user.idShop());
}

/// "IFNULL(z.a,0)+IFNULL(z.b,0)"
QString sumSql(std::initializer_list<const char *> columns)
{
    QStringList parts;
    for (const char *column : columns)
        parts.append(QStringLiteral("IFNULL(z_zvit.%1,0)").arg(QLatin1String(column)));
    return parts.join(QLatin1Char('+'));
}

/// The shift of the register right before a shift of z_zvit.
QString shiftBefore(const char *what)
{
    return QStringLiteral("(SELECT %1 FROM z_zvit earlier WHERE earlier.id_kass=z_zvit.id_kass AND "
                          "earlier.id_zzvit<z_zvit.id_zzvit ORDER BY earlier.id_zzvit DESC LIMIT 1)")
        .arg(QLatin1String(what));
}

QString countSql(Concern count, const QString &from, const QString &condition)
{
    return QStringLiteral("SELECT %1,%2,0,COUNT(*) FROM %3 WHERE %4")
        .arg(Counting)
        .arg(static_cast<int>(count))
        .arg(from, condition);
}

/// As the list of the goods of shops limits itself.
QString stockShops(const QLoadedUser &user)
{
    const QString groups = QTab::GetStrLstGroupFromPermis(&user, QStringLiteral("shops.group_shop"), true);
    return user.idShop().isEmpty() ? groups
                                   : QStringLiteral(" (%1 OR shops.id=%2)").arg(groups, user.idShop());
}

/// Its last sale or return: by the index a few rows from the newest one on.
QString lastReceiptsSql(const QVector<DbId> &registers)
{
    return QStringLiteral(
               "SELECT %1,kassa.id,0,(SELECT cheks.data_time FROM cheks FORCE INDEX(%2) WHERE "
               "cheks.id_kass=kassa.id AND cheks.id_type IN (1,6) ORDER BY cheks.id_chek DESC LIMIT 1) "
               "FROM kassa WHERE %3")
        .arg(LastReceipt)
        .arg(numberIndex, idsCondition(QStringLiteral("kassa.id"), registers));
}

/// The first document behind the one that closed the shift before, which bears the time of that closing.
QString shiftBeginsSql(const QVector<ShiftKey> &shifts)
{
    const QString closing =
        QStringLiteral("(SELECT MAX(closing.id_chek) FROM cheks closing FORCE INDEX(%1) WHERE "
                       "closing.data_time=%2 AND closing.id_type=10 AND closing.id_kass=z_zvit.id_kass)")
            .arg(timeIndex, shiftBefore("earlier.data_time"));
    return QStringLiteral(
               "SELECT %1,z_zvit.id_kass,z_zvit.id_zzvit,(SELECT cheks.data_time FROM cheks FORCE "
               "INDEX(%2) WHERE cheks.id_kass=z_zvit.id_kass AND cheks.id_chek>IF(%3 IS NULL,0,%4) "
               "AND cheks.id_zvit=z_zvit.id_zzvit ORDER BY cheks.id_chek LIMIT 1) FROM z_zvit "
               "WHERE %5")
        .arg(ShiftBegin)
        .arg(numberIndex, shiftBefore("earlier.id_zzvit"), closing, shiftsCondition(shifts));
}

QVector<DbId> registersOf(const ChainState &chain)
{
    QVector<DbId> ids;
    for (const OverviewShop &shop : chain.shops) {
        for (const OverviewRegister &reg : shop.registers)
            ids.append(reg.id);
    }
    return ids;
}
} // namespace

/// The lines are read in one go: by the key of their registers, which +0 keeps the server from, it would take
/// longer.
QString placesSql(const QLoadedUser &user)
{
    return QStringLiteral(
               "SELECT has.tuned,has.shops,has.kassa,has.goods,has.stock,has.shifts,shops.id,shops.address,"
               "shops.block,kassa.id,kassa.advertising_str,kassa.block,line.state FROM (SELECT "
               "(SELECT COUNT(DISTINCT INDEX_NAME) FROM INFORMATION_SCHEMA.STATISTICS WHERE "
               "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks' AND INDEX_NAME IN ('%1','%2')) AS tuned,%3) has "
               "LEFT JOIN shops ON%4 "
               "LEFT JOIN kassa ON kassa.id_shop=shops.id LEFT JOIN "
               "(SELECT id_kass+0 AS kass,MAX(CONCAT(dt_start,' ',onoff)) AS state FROM onoffline WHERE dt_end "
               "IS NULL GROUP BY id_kass+0) line ON line.kass=kassa.id "
               "ORDER BY shops.address,shops.id,kassa.advertising_str,kassa.id")
        .arg(numberIndex, timeIndex, firstStepsSql(), seenShops(user));
}

/// The shifts are read in one go: by the key of their shops, which +0 keeps the server from, it would take
/// several times as long.
QString shiftsSql(const QLoadedUser &user, const QDate &since)
{
    return QStringLiteral(
               "SELECT STRAIGHT_JOIN z_zvit.id_kass,z_zvit.id_zzvit,z_zvit.id_shop,CONCAT_WS(' ',users.surname,"
               "users.name),z_zvit.data_time,%1,%2,%3,%4,%5,%6,%7,IF(z_zvit.data_time=0,%8,NULL) FROM z_zvit "
               "JOIN shops ON shops.id=z_zvit.id_shop+0 LEFT JOIN users ON users.id=z_zvit.id_user "
               "WHERE%9 AND (z_zvit.data_time=0 OR z_zvit.data_time>=")
               .arg(sumSql({"Oborot_A", "Oborot_B", "Oborot_V", "Oborot_G", "Oborot_D"}),
                    sumSql({"summ_diskount"}), sumSql({"cash", "beznal_1", "beznal_2", "beznal_3"}),
                    sumSql({"Oborot_A_ret", "Oborot_B_ret", "Oborot_V_ret", "Oborot_G_ret", "Oborot_D_ret"}),
                    sumSql({"summ_diskount_ret"}),
                    sumSql({"cash_ret", "beznal_1_ret", "beznal_2_ret", "beznal_3_ret"}),
                    sumSql({"count_cheks"}), shiftBefore("earlier.data_time"), seenShops(user)) +
           sqlDayStart(since) + QStringLiteral(") ORDER BY z_zvit.id_kass,z_zvit.id_zzvit");
}

QString countCondition(Concern count, const QDate &today)
{
    switch (count) {
    case Concern::NegativeStock:
        return QStringLiteral("(goods_shop.count_showroom<0 OR goods_shop.count_syllable<0)");
    case Concern::EndingActions:
        // Promotions without dates end at zero.
        return QStringLiteral("(action.datetime_end>=%1 AND action.datetime_end<=%2)")
            .arg(sqlDayStart(today), sqlDayEnd(today));
    case Concern::UnpricedGoods:
        // What is sold: not blocked, in no service group.
        return QStringLiteral(
            "(IFNULL(goods.price,0)=0 AND IFNULL(goods.block,0)=0 AND (IFNULL(goods.group_g,0)<2 OR "
            "goods.group_g>5) AND NOT EXISTS(SELECT 1 FROM prices WHERE prices.id_goods=goods.id AND "
            "prices.price>0))");
    case Concern::BlockedLevels:
        return QStringLiteral("clients.id_procent IN (SELECT id FROM procent WHERE block=1)");
    }
    return QString();
}

QString countsSql(const QLoadedUser &user, const ChainState &chain)
{
    const auto conditionOf = [&chain](Concern count) { return countCondition(count, chain.today); };
    QStringList parts = {
        countSql(Concern::EndingActions, QStringLiteral("action"), conditionOf(Concern::EndingActions)),
        countSql(Concern::UnpricedGoods, QStringLiteral("goods"), conditionOf(Concern::UnpricedGoods)),
        countSql(Concern::BlockedLevels, QStringLiteral("clients"), conditionOf(Concern::BlockedLevels)),
        countSql(Concern::NegativeStock,
                 QStringLiteral("goods_shop JOIN shops ON shops.id=goods_shop.id_shop"),
                 conditionOf(Concern::NegativeStock) + QStringLiteral(" AND") + stockShops(user))};
    if (chain.isTuned) {
        QVector<ShiftKey> open;
        for (const OverviewShift &shift : openShifts(chain))
            open.append(shift.key);
        parts << lastReceiptsSql(registersOf(chain)) << shiftBeginsSql(open);
    }
    return parts.join(QStringLiteral(" UNION ALL "));
}

Counted countedOf(const RowStore &rows)
{
    Counted counted;
    for (int i = 0; i < rows.rowCount(); ++i) {
        const auto text = [&rows, i](int column) {
            const std::string_view cell = rows.cell(i, column);
            return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
        };
        const int kind = text(0).toInt();
        const DbId id = text(1).toUInt();
        if (kind == Counting && id < concernCount)
            counted.counts[static_cast<int>(id)] = text(3).toLongLong();
        else if (kind == LastReceipt)
            counted.times.last.insert(id, databaseTime(text(3)));
        else if (kind == ShiftBegin)
            counted.times.begun.insert({id, text(2).toUInt()}, databaseTime(text(3)));
    }
    return counted;
}

QString shiftsCondition(const QVector<ShiftKey> &keys)
{
    // By pairs the server finds each by the table's key.
    QStringList pairs;
    for (const ShiftKey &key : keys)
        pairs.append(QStringLiteral("(%1,%2)").arg(key.second).arg(key.first));
    return pairs.isEmpty()
               ? QStringLiteral("0=1")
               : QStringLiteral("(z_zvit.id_zzvit,z_zvit.id_kass) IN (%1)").arg(pairs.join(QLatin1Char(',')));
}

QString idsCondition(const QString &column, const QVector<DbId> &ids)
{
    QStringList texts;
    for (const DbId id : ids)
        texts.append(QString::number(id));
    return texts.isEmpty() ? QStringLiteral("0=1")
                           : QStringLiteral("%1 IN (%2)").arg(column, texts.join(QLatin1Char(',')));
}
