#include "openshiftsql.h"

#include "cheks.h"
#include "shopgroups.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QSqlQuery>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OpenShifts)
};

/// The key of the registers leads to the newest shifts.
QString newestShift(int newer)
{
    return QStringLiteral("(SELECT z_zvit.id_zzvit FROM z_zvit WHERE z_zvit.id_kass=kassa.id ORDER BY "
                          "z_zvit.id_zzvit DESC LIMIT %1,1)")
        .arg(newer);
}

/// The shift that is open counts in the shop in which it was opened.
QString registersWithShifts()
{
    return QStringLiteral(
               " FROM (SELECT kassa.id,kassa.id_shop,kassa.advertising_str,IFNULL(kassa.block,0) AS "
               "block,%1 AS newest,%2 AS older FROM kassa) kassa LEFT JOIN z_zvit AS live ON "
               "live.id_zzvit=kassa.newest AND live.id_kass=kassa.id AND live.data_time=0 JOIN shops "
               "ON shops.id=IFNULL(live.id_shop,kassa.id_shop)")
        .arg(newestShift(0), newestShift(1));
}

QString placeCondition(const OpenShiftsAsked &asked)
{
    if (asked.place.kass != 0)
        return QStringLiteral(" AND kassa.id=%1").arg(asked.place.kass);
    if (asked.place.shop != 0)
        return QStringLiteral(" AND shops.id=%1").arg(asked.place.shop);
    if (asked.place.group != 0)
        return QStringLiteral(" AND shops.group_shop=%1").arg(asked.place.group);
    return asked.groups.isEmpty()
               ? QString()
               : QStringLiteral(" AND") + inShopGroups(QStringLiteral("shops.group_shop"), asked.groups);
}

/// Behind a known number only the shift's own receipts are read.
QString receiptsOf(const OpenShift &shift)
{
    return QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek>%3 AND id_zvit=%4")
        .arg(shift.shop)
        .arg(shift.kass)
        .arg(shift.chekBefore, shift.number);
}

/// When the first receipt of each shift was written.
QString openings(const QVector<OpenShift> &open)
{
    QStringList shifts;
    for (const OpenShift &shift : open)
        shifts.append(
            QStringLiteral("(SELECT id_kass,data_time FROM cheks WHERE %1 ORDER BY id_chek LIMIT 1)")
                .arg(receiptsOf(shift)));
    return shifts.isEmpty() ? QStringLiteral("SELECT 0 AS id_kass,NULL AS data_time")
                            : shifts.join(QStringLiteral(" UNION ALL "));
}

/// The service cash of each shift: the key of the types leads to these few among all receipts.
QString serviceCash(const QVector<OpenShift> &open)
{
    QStringList shifts = {QStringLiteral("FALSE")};
    for (const OpenShift &shift : open)
        shifts.append(receiptsOf(shift));
    return QStringLiteral(
               "SELECT id_kass,SUM(IF(id_type=%1,summa,0)) AS brought,SUM(IF(id_type=%2,summa,0)) AS "
               "issued FROM cheks IGNORE INDEX(PRIMARY) WHERE id_type IN (%1,%2) AND (%3) GROUP BY "
               "id_kass")
        .arg(QString::number(ChekType::CashIn), QString::number(ChekType::CashOut),
             shifts.join(QStringLiteral(" OR ")));
}

QString latestReceipt()
{
    return QStringLiteral(
        "(SELECT cheks.data_time FROM cheks WHERE cheks.id_shop=live.id_shop AND "
        "cheks.id_kass=live.id_kass AND cheks.id_zvit=live.id_zzvit ORDER BY cheks.id_chek DESC "
        "LIMIT 1)");
}

/// Other programs leave sums without a value.
QString number(const QString &column)
{
    return QStringLiteral("CAST(IFNULL(%1,0) AS SIGNED)").arg(column);
}

QString turnover(const char *shift)
{
    QStringList sums;
    for (const char *group : {"A", "B", "V", "G", "D"})
        sums.append(number(QStringLiteral("%1.Oborot_%2").arg(QLatin1String(shift), QLatin1String(group))));
    return sums.join(QLatin1Char('+')) + QLatin1Char('-') +
           number(QLatin1String(shift) + QStringLiteral(".summ_diskount"));
}

/// A value of the open shift, empty where there is none.
QString ifOpen(const QString &value)
{
    return QStringLiteral("IF(live.id_zzvit IS NULL,NULL,%1)").arg(value);
}

QString ifClosed(const QString &value)
{
    return QStringLiteral("IF(done.id_zzvit IS NULL,NULL,%1)").arg(value);
}

QString stateOf(const QDateTime &now)
{
    return QStringLiteral(
               "CASE WHEN live.id_zzvit IS NULL THEN %1 WHEN opened.data_time<%2 THEN %3 ELSE %4 END")
        .arg(lit(Texts::tr("закрита")), sqlDateTime(now.addDays(-1)), lit(Texts::tr("⚠ понад добу")),
             lit(Texts::tr("відкрита")));
}

/// In the order of OpenShiftColumn.
QStringList selected(const QDateTime &now)
{
    const QString toTakeOut = number(QStringLiteral("done.cash")) + QLatin1Char('-') +
                              number(QStringLiteral("done.cash_ret")) + QLatin1Char('+') +
                              number(QStringLiteral("done.vnesenia"));
    const QString takenOut = number(QStringLiteral("done.viluchenia"));
    const QString left = QStringLiteral("GREATEST(%1-%2,0)").arg(toTakeOut, takenOut);
    const QString began = QStringLiteral("IFNULL(%1,0)").arg(ifClosed(left));
    const QString cash = number(QStringLiteral("live.cash"));
    const QString returned = number(QStringLiteral("live.cash_ret"));
    const QString brought = number(QStringLiteral("service.brought"));
    const QString issued = number(QStringLiteral("service.issued"));
    const QString isAllOut = QStringLiteral("IF(%1<=%2,%3,NULL)").arg(toTakeOut, takenOut);
    return {QStringLiteral("shops.address"),
            QStringLiteral("kassa.advertising_str"),
            stateOf(now),
            QStringLiteral("live.id_zzvit"),
            ifOpen(turnover("live")),
            QStringLiteral("live.count_cheks"),
            ifOpen(QStringLiteral("%1+%2-%3+%4-%5").arg(began, cash, returned, brought, issued)),
            QStringLiteral("opened.data_time"),
            QStringLiteral("(SELECT TRIM(CONCAT(users.surname,' ',users.name)) FROM users WHERE "
                           "users.id=live.id_user)"),
            latestReceipt(),
            ifOpen(began),
            ifOpen(cash),
            ifOpen(returned),
            ifOpen(brought),
            ifOpen(issued),
            QStringLiteral("done.id_zzvit"),
            QStringLiteral("done.data_time"),
            ifClosed(turnover("done")),
            ifClosed(toTakeOut),
            ifClosed(takenOut),
            ifClosed(isAllOut.arg(takenOut)),
            ifClosed(isAllOut.arg(takenOut + QStringLiteral("-(") + toTakeOut + QLatin1Char(')'))),
            ifClosed(left),
            QStringLiteral("live.id_shop"),
            QStringLiteral("done.id_shop"),
            QStringLiteral("kassa.id")};
}
} // namespace

std::optional<QVector<OpenShift>> findOpenShifts(const Db &db, const OpenShiftsAsked &asked)
{
    auto query =
        db.run(QStringLiteral(
                   "SELECT live.id_shop,live.id_kass,live.id_zzvit,IFNULL((SELECT cheks.id_chek FROM cheks "
                   "IGNORE INDEX(PRIMARY) WHERE cheks.id_type=%1 AND cheks.id_shop=live.id_shop AND "
                   "cheks.id_kass=live.id_kass AND cheks.id_zvit<live.id_zzvit ORDER BY cheks.id_chek DESC "
                   "LIMIT 1),0)%2 WHERE live.id_zzvit IS NOT NULL%3")
                   .arg(QString::number(ChekType::ZReport), registersWithShifts(), placeCondition(asked)));
    if (!query)
        return std::nullopt;
    QVector<OpenShift> open;
    while (query->next())
        open.append({query->value(0).toUInt(), query->value(1).toUInt(), toText(query->value(2)),
                     toText(query->value(3))});
    return open;
}

QString openShiftsSql(const OpenShiftsAsked &asked, const QVector<OpenShift> &open, const QDateTime &now)
{
    return QStringLiteral("SELECT ") + selected(now).join(QLatin1Char(',')) + registersWithShifts() +
           QStringLiteral(" LEFT JOIN z_zvit AS done ON done.id_zzvit=IF(live.id_zzvit IS NULL,kassa.newest,"
                          "kassa.older) AND done.id_kass=kassa.id AND done.data_time<>0 LEFT JOIN (") +
           openings(open) + QStringLiteral(") opened ON opened.id_kass=kassa.id LEFT JOIN (") +
           serviceCash(open) +
           QStringLiteral(") service ON service.id_kass=kassa.id WHERE kassa.newest IS NOT NULL AND "
                          "(kassa.block=0 OR live.id_zzvit IS NOT NULL)") +
           placeCondition(asked) +
           QStringLiteral(" ORDER BY live.id_zzvit IS NULL,shops.address,kassa.advertising_str,kassa.id");
}
