#include "bench.h"

#include "integrityrun.h"
#include "testing.h"

#include <QEventLoop>
#include <QMutex>

namespace {
const int shops = 10;
/// Half a year of a register's trade: shifts of thirty receipts of three items and their payment.
const int linesPerRegister = 16680;
const int linesPerShift = 120;

int registers(const Bench &bench)
{
    return qMax(3 * shops, bench.cards / linesPerRegister);
}

void fillPlaces(const Bench &bench)
{
    exec(bench,
         QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT 2000+seq,"
                        "CONCAT('просп. Миру, ',seq),1,30,0 FROM seq_1_to_%1")
             .arg(shops));
    exec(bench, QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 2000+seq,"
                               "2001+MOD(seq,%1),CONCAT('Каса ',seq),0 FROM seq_0_to_%2")
                    .arg(shops)
                    .arg(registers(bench) - 1));
    exec(bench,
         QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) SELECT 2000+s.seq,g.seq,"
                        "1000000 FROM seq_1_to_%1 s STRAIGHT_JOIN seq_1_to_2000 g")
             .arg(shops));
}

/// Sound ones: the shifts have the sums of their receipts and each its Z receipt.
void fillReceipts(const Bench &bench)
{
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=0, unique_checks=0"));
    exec(bench,
         QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                        "id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,data_time) SELECT "
                        "2001+MOD(kass,%1),2000+kass,1+line DIV %2,1+line DIV 4+line DIV %2,MOD(line,4)+"
                        "(MOD(line,4)=3),1,IF(MOD(line,4)=3,3,1),1+MOD(line,2000),'Молоко пшеничне',"
                        "IF(MOD(line,4)=3,0,1000),IF(MOD(line,4)=3,12750,4250),IF(MOD(line,4)=3,12750,4250),"
                        "IF(MOD(line,4)=3,0,1+MOD(line,4)),0,'2026-01-01'+INTERVAL line*900 SECOND FROM "
                        "(SELECT seq DIV %3 AS kass,MOD(seq,%3) AS line FROM seq_0_to_%4) t")
             .arg(shops)
             .arg(linesPerShift)
             .arg(bench.cards / registers(bench) / linesPerShift * linesPerShift)
             .arg(bench.cards / registers(bench) / linesPerShift * linesPerShift * registers(bench) - 1));
    exec(bench,
         QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,Oborot_A,Oborot_B,Oborot_V,"
                        "count_cheks,data_time) SELECT id_zvit,id_shop,id_kass,1,SUM(IF(id_type=3,price,0)),"
                        "SUM(IF(tax=1,summa,0)),SUM(IF(tax=2,summa,0)),SUM(IF(tax=3,summa,0)),"
                        "SUM(id_type=3),MAX(data_time) FROM cheks GROUP BY id_shop,id_kass,id_zvit"));
    exec(bench,
         QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,"
                        "data_time) SELECT id_shop,id_kass,id_zzvit,id_zzvit*%1,0,1,10,"
                        "Oborot_A+Oborot_B+Oborot_V,data_time FROM z_zvit")
             .arg(linesPerShift / 4 + 1));
    exec(bench, QStringLiteral("ANALYZE TABLE cheks,z_zvit"));
}

/// Runs the check to its end; what it has found must be nothing of what the registers wrote.
void check(const Bench &bench)
{
    integrity::FindingsSoFar found;
    Job job(
        QString(), bench.connection->connectionName(),
        [&found](JobContext &context) {
            Db::letHooksHearThisThread();
            return checkIntegrity(context, {QDateTime::currentDateTime()}, &found);
        },
        nullptr);
    QEventLoop loop;
    bool isDone = false;
    QObject::connect(&job, &Job::finished, &loop, [&](const JobResult &result) {
        isDone = result.outcome == JobResult::Done;
        loop.quit();
    });
    job.start();
    loop.exec();
    if (!isDone)
        qFatal("The check has failed");
}

QStringList statementsOf(const Bench &bench)
{
    QStringList statements;
    QMutex guard;
    Db::setStatementHook([&](const QString &sql) {
        const QMutexLocker lock(&guard);
        statements.append(sql);
    });
    check(bench);
    Db::setStatementHook({});
    return statements.filter(QStringLiteral("SELECT "));
}
} // namespace

/// Against its statements alone, of a million lines, and how long it takes.
QVector<Figure> measureIntegrity(const Bench &bench)
{
    fillPlaces(bench);
    fillReceipts(bench);
    const QStringList statements = statementsOf(bench);
    BareClient bare(bench.address);
    const double times = ratio(
        bench.rounds,
        [&] {
            return milliseconds([&] {
                for (const QString &sql : statements)
                    bare.run(sql);
            });
        },
        [&] { return milliseconds([&] { check(bench); }); });
    return {{QStringLiteral("check of the data, to its statements"), times, 1.2, QStringLiteral("x")}};
}

/// Of ten million lines, most of which are not sound there.
QVector<Figure> measureLargeIntegrity(const Bench &bench)
{
    return {{QStringLiteral("check of the data"), milliseconds([&] { check(bench); }) / 1000, 180,
             QStringLiteral("s")}};
}
