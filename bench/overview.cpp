#include "windows.h"

#include "overviewsql.h"
#include "qoverview.h"

#include <QCoreApplication>

namespace {
const int shops = 60;
const int registers = 300;
const int shiftsEach = 360;
const int linesEach = 700;

/// A year of shifts, every register's last one still open, and the connections of half a year.
void fillChain(const Bench &bench)
{
    const QString today = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
    exec(bench, QStringLiteral("INSERT INTO shops(id,address,group_shop,block) SELECT 2000+seq,"
                               "CONCAT('просп. Довгий, ',seq),1,0 FROM seq_1_to_%1")
                    .arg(shops));
    exec(bench,
         QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 3000+seq,2001+seq MOD %1,"
                        "CONCAT('Каса ',seq),0 FROM seq_1_to_%2")
             .arg(shops)
             .arg(registers));
    const auto addShifts = [&](const QString &time, int from, int to) {
        exec(bench,
             QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,Oborot_A,count_cheks,"
                            "data_time) SELECT 1+seq DIV %1,2001+(1+seq MOD %1) MOD %2,3001+seq MOD %1,1,"
                            "seq*7919 MOD 900000,seq*7919 MOD 900000,90+seq MOD 50,%3 FROM seq_%4_to_%5")
                 .arg(registers)
                 .arg(shops)
                 .arg(time)
                 .arg(from)
                 .arg(to));
    };
    const int firstOpen = registers * (shiftsEach - 1);
    addShifts(QStringLiteral("ADDTIME(DATE_SUB(%1,INTERVAL %2-seq DIV %3 DAY),'21:00:00')")
                  .arg(today)
                  .arg(shiftsEach - 1)
                  .arg(registers),
              0, firstOpen - 1);
    addShifts(QStringLiteral("0"), firstOpen, firstOpen + registers - 1);
    const auto addLines = [&](const QString &end, int from, int to) {
        exec(bench, QStringLiteral("INSERT INTO onoffline(id_shop,id_kass,onoff,dt_start,dt_end) SELECT "
                                   "2001+(1+seq MOD %1) MOD %2,3001+seq MOD %1,seq DIV %1 MOD 2,"
                                   "DATE_SUB(%3,INTERVAL %4-seq DIV %1 HOUR),%5 FROM seq_%6_to_%7")
                        .arg(registers)
                        .arg(shops)
                        .arg(today)
                        .arg(linesEach)
                        .arg(end)
                        .arg(from)
                        .arg(to));
    };
    const int lastLine = registers * (linesEach - 1);
    addLines(QStringLiteral("DATE_SUB(%1,INTERVAL %2-seq DIV %3 HOUR)")
                 .arg(today)
                 .arg(linesEach - 1)
                 .arg(registers),
             0, lastLine - 1);
    addLines(QStringLiteral("NULL"), lastLine, lastLine + registers - 1);
}

/// The overview in a window.
class OverviewWindow
{
public:
    /// Its first content is painted.
    explicit OverviewWindow(const Bench &bench)
        : m_admin(bench), m_page(bench.connection, m_admin.user(), nullptr, nullptr)
    {
        showWindow(&m_page);
        awaitContent();
    }

    const QLoadedUser &user() { return *m_admin.user(); }
    /// F5: the milliseconds to the painted shops, shifts and days.
    double refresh()
    {
        awaitAll();
        const double time = milliseconds([this] {
            m_page.refresh();
            awaitContent();
        });
        awaitAll();
        return time;
    }
    /// The same to what is counted beside.
    double refreshWholly()
    {
        awaitAll();
        return milliseconds([this] {
            m_page.refresh();
            awaitAll();
            m_page.grab();
        });
    }

private:
    void awaitContent()
    {
        QEventLoop loop;
        QObject::connect(&m_page, &QOverview::shown, &loop, &QEventLoop::quit);
        loop.exec();
        m_page.grab();
    }
    void awaitAll()
    {
        while (m_page.isLoading())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }

    Admin m_admin;
    QOverview m_page;
};
} // namespace

QVector<Figure> measureOverview(const Bench &bench)
{
    fillChain(bench);
    exec(bench,
         QStringLiteral("INSERT IGNORE INTO lst_group(id_g_prem,id_group) SELECT 1,id FROM group_shop"));
    OverviewWindow window(bench);
    BareClient bare(bench.address);
    ChainState chain;
    chain.today = QDate::currentDate();
    const auto first = [&] {
        bare.run(placesSql(window.user()));
        bare.run(shiftsSql(window.user(), chain.today.addDays(1 - drawnDays)));
    };
    const auto whole = [&] {
        first();
        bare.run(countsSql(window.user(), chain));
    };
    const double firstRatio = ratio(
        bench.rounds, [&] { return milliseconds(first); }, [&] { return window.refresh(); });
    const double wholeRatio = ratio(
        bench.rounds, [&] { return milliseconds(whole); }, [&] { return window.refreshWholly(); });
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i)
        times.append(milliseconds([&] { const OverviewWindow opened(bench); }));
    return {{QStringLiteral("overview, 300 registers, 108,000 shifts, to bare"), firstRatio, 1.3,
             QStringLiteral("x")},
            {QStringLiteral("  with what is counted beside"), wholeRatio, 1.3, QStringLiteral("x")},
            {QStringLiteral("  a new page to its first content"), median(times), 500, QStringLiteral("ms")}};
}
