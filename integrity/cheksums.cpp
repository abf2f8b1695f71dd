#include "checks.h"

#include <QCoreApplication>
#include <functional>
#include <iterator>

namespace integrity {
namespace {
/// As the writer of receipts adds them to the shift; nothing counts as 0.
const ShiftSum sums[] = {
    {QT_TRANSLATE_NOOP("Integrity", "оборот А"), "Oborot_A", "SUM(IF(id_type=1 AND tax=1,summa,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "оборот Б"), "Oborot_B", "SUM(IF(id_type=1 AND tax=2,summa,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "оборот В"), "Oborot_V", "SUM(IF(id_type=1 AND tax=3,summa,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "оборот Г"), "Oborot_G", "SUM(IF(id_type=1 AND tax=4,summa,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "оборот Д"), "Oborot_D", "SUM(IF(id_type=1 AND tax=5,summa,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "знижка"), "summ_diskount", "SUM(IF(id_type=2,summa,0))", false, false},
    {QT_TRANSLATE_NOOP("Integrity", "готівка"), "cash", "SUM(IF(id_type=3,price,0))", false, false},
    {QT_TRANSLATE_NOOP("Integrity", "картка"), "beznal_1", "SUM(IF(id_type=3,tax,0))", false, false},
    {QT_TRANSLATE_NOOP("Integrity", "сертифікат"), "beznal_2", "SUM(IF(id_type=3,dis_bon_bez2,0))", false,
     false},
    {QT_TRANSLATE_NOOP("Integrity", "інша оплата"), "beznal_3", "SUM(IF(id_type=3,count,0))", false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернення А"), "Oborot_A_ret", "SUM(IF(id_type=6 AND tax=1,summa,0))",
     false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернення Б"), "Oborot_B_ret", "SUM(IF(id_type=6 AND tax=2,summa,0))",
     false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернення В"), "Oborot_V_ret", "SUM(IF(id_type=6 AND tax=3,summa,0))",
     false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернення Г"), "Oborot_G_ret", "SUM(IF(id_type=6 AND tax=4,summa,0))",
     false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернення Д"), "Oborot_D_ret", "SUM(IF(id_type=6 AND tax=5,summa,0))",
     false, false},
    {QT_TRANSLATE_NOOP("Integrity", "повернено грошей"),
     "IFNULL(cash_ret,0)+IFNULL(beznal_1_ret,0)+IFNULL(beznal_2_ret,0)+IFNULL(beznal_3_ret,0)+"
     "IFNULL(summ_diskount_ret,0)",
     "SUM(IF(id_type=6,summa,0))", false, false},
    {QT_TRANSLATE_NOOP("Integrity", "чеків повернення"), "count_cheks_ret",
     "COUNT(DISTINCT IF(id_type=6,id_chek,NULL))", true, false},
    {QT_TRANSLATE_NOOP("Integrity", "чеків"), "count_cheks", "SUM(id_type=3)", true, true},
    {QT_TRANSLATE_NOOP("Integrity", "чеків зі знижкою"), "count_chek_diskount",
     "COUNT(DISTINCT IF(id_type=2,id_chek,NULL))", true, true},
};
constexpr int sumCount = static_cast<int>(std::size(sums));

QString joined(const QString &separator, const std::function<QString(int sum)> &part)
{
    QStringList parts;
    for (int sum = 0; sum < sumCount; ++sum)
        parts.append(part(sum));
    return parts.join(separator);
}

/// Of the sums of the shift's row and of its receipts, at least one pair is not equal.
QString differ()
{
    return joined(QStringLiteral(" OR "), [](int sum) {
        const QString pair = storedColumn(sum) + QStringLiteral("<>") + reckonedColumn(sum);
        return sums[sum].isOfOpenShift ? QStringLiteral("(isOpen>0 AND %1)").arg(pair) : pair;
    });
}

/// The conditions of all checks of a scope, as the keys of those that hold.
QString faults(CheckScope scope, QStringList *conditions, const std::function<QString(QString)> &filled)
{
    QStringList keys;
    for (const Check &check : integrityChecks()) {
        if (check.scope != scope)
            continue;
        conditions->append(filled(QLatin1String(check.sql)));
        keys.append(QStringLiteral("IF(%1,'%2',NULL)").arg(conditions->last(), QLatin1String(check.key)));
    }
    return QStringLiteral("CONCAT_WS(',',%1) AS faults").arg(keys.join(u','));
}

QString united(const QString &comma)
{
    return joined(comma, [](int sum) {
        return QStringLiteral("SUM(%1) AS %1,SUM(%2) AS %2").arg(storedColumn(sum), reckonedColumn(sum));
    });
}

/// What the shift's own row tells, and nothing of receipts.
QString storedSql(const QString &kass)
{
    return QStringLiteral(
               "SELECT id_zzvit AS zvit,1 AS shifts,id_shop AS shop,IFNULL(data_time=0,0) AS isOpen,"
               "data_time IS NULL AS undated,0 AS rows_,NULL AS firstShop,NULL AS lastShop,NULL AS chek,"
               "NULL AS began,0 AS zRows,0 AS zSum,") +
           joined(QStringLiteral(","),
                  [](int sum) {
                      return QStringLiteral("IFNULL(%1,0) AS %2,0 AS %3")
                          .arg(QLatin1String(sums[sum].stored), storedColumn(sum), reckonedColumn(sum));
                  }) +
           QStringLiteral(" FROM z_zvit WHERE id_kass=") + kass;
}

/// What its receipts make.
QString reckonedSql(const CheckedRegister &reg)
{
    return QStringLiteral(
               "SELECT id_zvit,0,NULL,0,0,COUNT(*),MIN(id_shop),MAX(id_shop),MIN(id_chek),"
               "MIN(IF(data_time=0,NULL,data_time)),SUM(id_type=10),SUM(IF(id_type=10,summa,0)),") +
           joined(QStringLiteral(","),
                  [](int sum) { return QStringLiteral("0,") + QLatin1String(sums[sum].reckoned); }) +
           QStringLiteral(" FROM cheks WHERE id_kass=%1 AND id_shop IN (%2) GROUP BY id_zvit")
               .arg(reg.kass, reg.shops.isEmpty() ? QStringLiteral("0") : reg.shops.join(u','));
}
} // namespace

const QVector<ShiftSum> &shiftSumTable()
{
    static const QVector<ShiftSum> all(std::begin(sums), std::end(sums));
    return all;
}

QString storedColumn(int sum)
{
    return QStringLiteral("stored%1").arg(sum);
}

QString reckonedColumn(int sum)
{
    return QStringLiteral("reckoned%1").arg(sum);
}

QString registersSql()
{
    return QStringLiteral(
        "SELECT id_shop,id_kass,MIN(id_chek),MAX(id_chek) FROM cheks GROUP BY id_shop,id_kass "
        "UNION ALL SELECT DISTINCT NULL,id_kass,0,0 FROM z_zvit");
}

QString shiftFaultsSql(const CheckedRegister &reg, const QString &dayAgo)
{
    QStringList conditions;
    const QString keys = faults(CheckScope::Shift, &conditions, [&](QString condition) {
        return condition.replace(QLatin1String("{differ}"), differ())
            .replace(QLatin1String("{dayAgo}"), dayAgo);
    });
    return QStringLiteral(
               "SELECT %1 AS kass,all_.*,%2 FROM (SELECT zvit,SUM(shifts) AS shifts,"
               "IFNULL(MAX(shop),MAX(firstShop)) AS shop,SUM(isOpen) AS isOpen,SUM(undated) AS undated,"
               "SUM(rows_) AS rows_,MAX(firstShop) AS firstShop,MAX(lastShop) AS lastShop,"
               "IF(MAX(firstShop)<>MAX(shop),MAX(firstShop),MAX(lastShop)) AS otherShop,MAX(chek) AS chek,"
               "MAX(began) AS began,SUM(zRows) AS zRows,SUM(zSum) AS zSum,SUM(%3) AS net,%4 FROM (%5 "
               "UNION ALL %6) parts GROUP BY zvit) all_ WHERE (%7)")
        .arg(reg.kass, keys, QStringLiteral("stored0+stored1+stored2+stored3+stored4-stored5"),
             united(QStringLiteral(",")), storedSql(reg.kass), reckonedSql(reg),
             conditions.join(QStringLiteral(") OR (")));
}

QString receiptFaultsSql(const QString &kass, const QString &shop)
{
    QStringList conditions;
    const QString keys =
        faults(CheckScope::Receipt, &conditions, [](QString condition) { return condition; });
    return QStringLiteral(
               "SELECT %1 AS shop,%2 AS kass,all_.*,%3 FROM (SELECT id_chek AS chek,MIN(id_zvit) AS zvit,"
               "MAX(id_zvit) AS lastZvit,SUM(id_type=1) AS goodsRows,SUM(id_type=2) AS offRows,"
               "SUM(id_type=3) AS payments,SUM(id_type=6) AS returns,"
               "SUM(IF(id_type=1,IFNULL(summa,0),0)) AS goods,SUM(IF(id_type=2,IFNULL(summa,0),0)) AS off,"
               "SUM(IF(id_type=3,IFNULL(summa,0),0)) AS due,"
               "SUM(IF(id_type=3,IFNULL(price,0)+IFNULL(tax,0)+IFNULL(dis_bon_bez2,0)+IFNULL(count,0),0)) "
               "AS paid,MAX(id_type IN (1,2,3,6))+MAX(id_type=4)+MAX(id_type=5)+MAX(id_type=7)+"
               "MAX(id_type=8)+MAX(id_type=9)+MAX(id_type=10) AS kinds FROM cheks WHERE id_shop=%1 AND "
               "id_kass=%2 GROUP BY id_chek HAVING (%4)) all_")
        .arg(shop, kass, keys, conditions.join(QStringLiteral(") OR (")));
}
} // namespace integrity
