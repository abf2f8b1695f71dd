#include "bench.h"
#include "chekwindow.h"
#include "saledesk.h"

#include "chekquery.h"
#include "chekwriter.h"
#include "testing.h"
#include "tuning.h"

#include <QEventLoop>

namespace {
const int shops = 10;
/// Half a year of a register's trade.
const int linesPerRegister = 16700;
const int stockGoods = 2000;
/// Of the receipts.
const int days = 365;
const QDate firstDay(2026, 1, 1);
const Place soldAt = {0, 2002, 2001};

int registers(const Bench &bench)
{
    return qMax(3 * shops, bench.cards / linesPerRegister);
}

/// Shops 2001 to 2010 with their stock, and registers from 2001 on.
void fillPlaces(const Bench &bench)
{
    exec(bench,
         QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT 2000+seq,"
                        "CONCAT('просп. Миру, ',seq),1,30,0 FROM seq_1_to_%1")
             .arg(shops));
    exec(bench, QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 2000+seq,"
                               "2001+MOD(seq,%1),CONCAT('Каса ',seq),0 FROM seq_1_to_%2")
                    .arg(shops)
                    .arg(registers(bench)));
    exec(bench,
         QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) SELECT 2000+s.seq,g.seq,"
                        "1000000 FROM seq_1_to_%1 s STRAIGHT_JOIN seq_1_to_%2 g")
             .arg(shops)
             .arg(stockGoods));
}

/// Receipts of three items and their payment, each register's in the order of time.
void fillReceipts(const Bench &bench)
{
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=0, unique_checks=0"));
    exec(bench, QStringLiteral(
                    "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                    "id_good_cln_slujb,name,strihcode,count,price,summa,data_time) SELECT "
                    "2001+MOD(1+MOD(seq DIV 4,%1),%2),2001+MOD(seq DIV 4,%1),1,1+seq DIV 4 DIV %1,"
                    "MOD(seq,4),1,IF(MOD(seq,4)=3,3,1),1+MOD(seq,%3),'Молоко пшеничне','4820000000017',1000,"
                    "4250,4250,%4+INTERVAL seq*86400.0*%5/%6 SECOND FROM seq_0_to_%6")
                    .arg(registers(bench))
                    .arg(shops)
                    .arg(stockGoods)
                    .arg(lit(firstDay.toString(Qt::ISODate)))
                    .arg(days)
                    .arg(bench.cards - 1));
    exec(bench, QStringLiteral("ANALYZE TABLE cheks,z_zvit"));
}

void tune(const Bench &bench, Tuning tuning)
{
    Job job(
        QString(), bench.connection->connectionName(),
        [tuning](JobContext &context) { return tuneDatabase(context, tuning); }, nullptr);
    QEventLoop loop;
    bool isDone = false;
    QObject::connect(&job, &Job::finished, &loop, [&](const JobResult &result) {
        isDone = result.outcome == JobResult::Done;
        loop.quit();
    });
    job.start();
    loop.exec();
    if (!isDone)
        qFatal("The indexes were not added or taken away");
}

/// What the program adds to its statements, as a figure of milliseconds.
Figure againstBare(const QString &name, int rounds, const std::function<double()> &bare,
                   const std::function<double()> &program)
{
    QVector<double> bareTimes;
    QVector<double> times;
    for (int i = 0; i <= rounds; ++i) {
        bareTimes.append(bare());
        times.append(program());
    }
    // Without the first round, which fills caches.
    return {name, median(times.mid(1)), 1.3 * median(bareTimes.mid(1)) + 20, QStringLiteral("ms")};
}

QDate middleDay()
{
    return firstDay.addDays(days / 2);
}

QString dayStatement()
{
    ChekFilter filter;
    filter.from = middleDay().toString(QStringLiteral("yyyyMMdd000000"));
    filter.to = middleDay().toString(QStringLiteral("yyyyMMdd235959"));
    return chekListSql(filter);
}

double bareTime(BareClient *bare, const QStringList &statements)
{
    return milliseconds([&] {
        for (const QString &sql : statements)
            bare->run(sql);
    });
}

/// The statements that an act sends.
QStringList sentBy(const std::function<void()> &act)
{
    QStringList statements;
    Db::setStatementHook([&](const QString &sql) { statements.append(sql); });
    act();
    waitOutTasks();
    Db::setStatementHook({});
    return statements;
}

QVector<Figure> viewerFigures(const Bench &bench, BareClient *bare)
{
    ChekWindow window(bench, middleDay());
    int row = 0;
    const QStringList slip = sentBy([&] { window.open(row++); });
    return {againstBare(
                QStringLiteral("a day's receipts in the viewer, with indexes"), bench.rounds,
                [&] { return bareTime(bare, {dayStatement()}); },
                [&] { return milliseconds([&] { window.load(); }); }),
            againstBare(
                QStringLiteral("a slip, with indexes"), bench.rounds, [&] { return bareTime(bare, slip); },
                [&] { return window.open(row++).ms; })};
}

double nextNumberTime(const Bench &bench)
{
    QVector<double> times;
    const ChekWriter writer(
        bench.db(), {QString::number(soldAt.shop), QString::number(soldAt.kass), QStringLiteral("1")});
    for (int i = 0; i < bench.rounds; ++i) {
        times.append(milliseconds([&] {
            if (writer.newChekNumber().isEmpty())
                qFatal("No number");
        }));
    }
    return median(times);
}

/// From OK to the number, without what the statement takes that lowers the stock of the chain.
double saleWithoutStock(const Bench &bench, BareClient *bare)
{
    SaleDesk desk(bench, soldAt);
    desk.scan(3);
    const QStringList stock =
        sentBy([&] { desk.sell(); }).filter(QStringLiteral("UPDATE goods_shop SET count_showroom"));
    if (stock.size() != 1)
        qFatal("The stock was not lowered");
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        desk.scan(3);
        const double sale = desk.sell().ms;
        times.append(sale - bareTime(bare, stock));
    }
    return median(times);
}
} // namespace

QVector<Figure> measureTuning(const Bench &bench)
{
    fillPlaces(bench);
    fillReceipts(bench);
    BareClient bare(bench.address);
    bareTime(&bare, {dayStatement()});
    const double dayBefore = bareTime(&bare, {dayStatement()});
    tune(bench, Tuning::Add);
    bareTime(&bare, {dayStatement()});
    const double dayAfter = bareTime(&bare, {dayStatement()});
    const QString ms = QStringLiteral("ms");
    QVector<Figure> figures = {{QStringLiteral("a day's receipts, indexes to none"), dayAfter / dayBefore,
                                0.01, QStringLiteral("x")}};
    figures += viewerFigures(bench, &bare);
    figures.append({QStringLiteral("next receipt number, with indexes"), nextNumberTime(bench), 2, ms});
    figures.append({QStringLiteral("sale less the stock statement"), saleWithoutStock(bench, &bare), 2, ms});
    tune(bench, Tuning::Remove);
    return figures;
}
