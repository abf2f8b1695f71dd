#include "windows.h"

#include "overviewsql.h"
#include "qoverview.h"

#include <QCoreApplication>

namespace {
const int shops = 60;
const int registers = 300;
const int shiftsEach = 360;

/// A year of shifts, every register's last one still open, and the connections of a month.
void fillChain(const Bench &bench)
{
    const QString today = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
    exec(bench, QStringLiteral("INSERT INTO shops(id,address,group_shop,block) SELECT 2000+seq,"
                               "CONCAT('просп. Довгий, ',seq),1,0 FROM seq_1_to_%1")
                    .arg(shops));
    exec(bench,
         QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 3000+seq,2001+seq%%1,"
                        "CONCAT('Каса ',seq),0 FROM seq_1_to_%2")
             .arg(shops)
             .arg(registers));
    exec(bench,
         QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,Oborot_A,count_cheks,"
                        "data_time) SELECT 1+seq DIV %1,2001+(1+seq%%1)%%2,3001+seq%%1,1,seq*7919%900000,"
                        "seq*7919%900000,90+seq%50,IF(seq DIV %1=%3-1,0,ADDTIME(DATE_SUB(%4,INTERVAL "
                        "%3-1-seq DIV %1 DAY),'21:00:00')) FROM seq_0_to_%5")
             .arg(registers)
             .arg(shops)
             .arg(shiftsEach)
             .arg(today)
             .arg(registers * shiftsEach - 1));
    exec(bench,
         QStringLiteral("INSERT INTO onoffline(id_shop,id_kass,onoff,dt_start,dt_end) SELECT "
                        "2001+(1+seq%%1)%%2,3001+seq%%1,1-seq DIV %1%2,DATE_SUB(%3,INTERVAL 90-seq DIV %1 "
                        "HOUR),IF(seq DIV %1=89,NULL,DATE_SUB(%3,INTERVAL 89-seq DIV %1 HOUR)) FROM "
                        "seq_0_to_%4")
             .arg(registers)
             .arg(shops)
             .arg(today)
             .arg(registers * 90 - 1));
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
