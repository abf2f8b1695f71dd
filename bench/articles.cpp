#include "windows.h"

#include "artstatements.h"
#include "placeselector.h"
#include "qartreport.h"
#include "rangeselector.h"

namespace {
constexpr uint measuredGroup = 90;
const QDate firstDay(2026, 3, 1);
constexpr int days = 30;

/// Half of the registers stand in the shop of the measured group; as many lines as there are cards, spread
/// over a month of shifts.
void fillReceipts(const Bench &bench)
{
    const QStringList statements = {
        QStringLiteral("INSERT INTO group_shop(id,name) VALUES(90,'Виміряна'),(91,'Інша')"),
        QStringLiteral("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,90)"),
        QStringLiteral("INSERT INTO shops(id,address,name,group_shop,block) VALUES(90,'Виміряний','',90,0),"
                       "(91,'Інший','',91,0)"),
        QStringLiteral(
            "INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 9000+seq,90+seq%2,seq,0 FROM "
            "seq_0_to_29"),
        QStringLiteral(
            "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) SELECT d.seq,90+k.seq%2,9000+k.seq,"
            "20260300210000+d.seq*1000000 FROM seq_1_to_30 d JOIN seq_0_to_29 k"),
        QStringLiteral(
            "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,"
            "name,strihcode,count,price,summa,type,sumdisc,data_time) SELECT 90+seq%2,9000+seq%30,"
            "1+seq DIV 30%30,seq DIV 30,0,1+(seq%20=0),1+seq*7919%2000,CONCAT('Товар ',seq*7919%2000),"
            "4820000000000+seq*7919%2000,1000,1000+seq*7919%2000,1000+seq*7919%2000,seq%2,seq%5*10,"
            "20260300120000+(1+seq DIV 30%30)*1000000 FROM seq_1_to_") +
            QString::number(bench.cards),
        QStringLiteral("ANALYZE TABLE cheks,z_zvit")};
    for (const QString &statement : statements)
        exec(bench, statement);
}

ArtChoice measuredChoice()
{
    ArtChoice choice;
    choice.place.group = measuredGroup;
    choice.zFrom = QStringLiteral("1");
    choice.zTo = QString::number(days);
    // As the report does by itself for more than one register.
    choice.firstDay = firstDay;
    choice.lastDay = firstDay.addDays(days - 1);
    return choice;
}
} // namespace

QVector<Figure> measureArticles(const Bench &bench)
{
    fillReceipts(bench);
    Admin admin(bench);
    QArtReport report(bench.connection, admin.user(), nullptr, nullptr);
    showWindow(&report);
    if (!report.findChild<PlaceSelector *>()->chooseGroup(measuredGroup))
        qFatal("No group");
    report.findChild<RangeSelector *>()->setDays(firstDay, firstDay.addDays(days - 1));
    BareClient bare(bench.address);
    const double share = ratio(
        bench.rounds,
        [&] {
            return milliseconds([&] {
                bare.run(bonusStatement(measuredChoice()));
                bare.run(articlesStatement(measuredChoice()));
            });
        },
        [&] { return milliseconds([&] { loadReport(&report); }); });
    return {{QStringLiteral("article report of a group over a month"), share, 1.1, QStringLiteral("x bare")}};
}
