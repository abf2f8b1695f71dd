#include "windows.h"

#include "chekquery.h"
#include "qchekviewer.h"
#include "qzreport.h"
#include "rangeselector.h"
#include "zstatements.h"

#include <QCheckBox>

namespace {
const int shifts = 108000;
const int registers = 30;
const int monthLines = 380000;

void fillShifts(const Bench &bench)
{
    exec(bench, QStringLiteral(
                    "INSERT INTO shops(id,address,group_shop) SELECT 1100+seq,CONCAT('вул. Довга, ',seq),1 "
                    "FROM seq_1_to_10"));
    exec(bench, QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str) SELECT 1100+seq,1101+seq%10,"
                               "CONCAT('Каса ',seq) FROM seq_1_to_30"));
    exec(
        bench,
        QStringLiteral(
            "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,beznal_1,beznal_2,Oborot_A,Oborot_B,"
            "summ_diskount,count_cheks,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,DOD_D,data_time) "
            "SELECT 1+seq DIV %1,1101+(1+seq%%1)%10,1101+seq%%1,1,1000000+seq*7919%500000,seq*31%900000,0,"
            "1500000+seq*17%300000,400000+seq%1000,seq%30000,90+seq%50,2000,0,700,500,0,0,0,0,0,0,"
            "ADDTIME(DATE_ADD('2016-01-01',INTERVAL seq DIV %1 DAY),'21:00:00') FROM seq_0_to_%2")
            .arg(registers)
            .arg(shifts - 1));
}

/// From the statement to the painted report, against the statement alone.
double reportRatio(const Bench &bench, ReportWindow *report, const QString &sql)
{
    showWindow(report);
    BareClient bare(bench.address);
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sql); }); },
        [&] { return milliseconds([&] { loadReport(report); }); });
}

double zReportRatio(const Bench &bench, QLoadedUser *user, bool summed)
{
    QZReport report(bench.connection, user, nullptr, nullptr);
    report.findChild<QCheckBox *>(QStringLiteral("chSum"))->setChecked(summed);
    report.findChild<RangeSelector *>()->setDays(QDate(2016, 1, 1), QDate(2030, 1, 1));
    return reportRatio(bench, &report,
                       zStatement(summed) + zCondition({}, {false, QStringLiteral("20160101000000"),
                                                            QStringLiteral("20300101235959")}));
}

/// A month of payments, one a receipt.
double monthRatio(const Bench &bench, QLoadedUser *user)
{
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=0"));
    exec(bench, QStringLiteral(
                    "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                    "price,summa,data_time) SELECT 1101+(1+seq%%1)%10,1101+seq%%1,1,9000000+seq DIV %1,2,1,3,"
                    "4250+seq%7919,4250+seq%7919,'2036-03-01'+INTERVAL seq*7 SECOND FROM seq_0_to_%2")
                    .arg(registers)
                    .arg(monthLines - 1));
    QChekViewer viewer(bench.connection, user, nullptr, nullptr);
    viewer.findChild<RangeSelector *>()->setDays(QDate(2036, 3, 1), QDate(2036, 3, 31));
    ChekFilter month;
    month.from = QStringLiteral("20360301000000");
    month.to = QStringLiteral("20360331235959");
    return reportRatio(bench, &viewer, chekListSql(month));
}
} // namespace

QVector<Figure> measureReports(const Bench &bench)
{
    fillShifts(bench);
    exec(bench,
         QStringLiteral("INSERT IGNORE INTO lst_group(id_g_prem,id_group) SELECT 1,id FROM group_shop"));
    Admin admin(bench);
    QLoadedUser *user = admin.user();
    return {{QStringLiteral("Z-reports, 108,000 x 13, to bare"), zReportRatio(bench, user, false), 1.3,
             QStringLiteral("x")},
            {QStringLiteral("Z-reports summed, to bare"), zReportRatio(bench, user, true), 1.1,
             QStringLiteral("x")},
            {QStringLiteral("a month of 380,000 receipts, to bare"), monthRatio(bench, user), 1.3,
             QStringLiteral("x")}};
}
