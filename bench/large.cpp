#include "large.h"
#include "chekwindow.h"

#include "largedata.h"
#include "qartreport.h"
#include "qstatonline.h"
#include "rangeselector.h"
#include "saledesk.h"
#include "tcpproxy.h"
#include "testing.h"

#include <QComboBox>
#include <QDateEdit>

using Large::usual;
using Large::workFigures;

QVector<Figure> Large::workFigures(const QString &work, const Cost &cost, double goalMs, double goalGapMs)
{
    const QString ms = QStringLiteral("ms");
    return {{work, cost.ms, goalMs, ms},
            {QStringLiteral("  the window stands still"), cost.gapMs, goalGapMs, ms}};
}

QVector<Figure> Large::threadFigures(const QString &work, const Cost &cost, double goalMs)
{
    return workFigures(work, cost, goalMs) +
           QVector<Figure>{
               {QStringLiteral("  its processor time"), cost.processorMs, goalMs, QStringLiteral("ms")}};
}

Cost Large::usual(const QVector<Cost> &costs)
{
    QVector<double> times;
    Cost all;
    for (const Cost &cost : costs) {
        times.append(cost.ms);
        all.gapMs = qMax(all.gapMs, cost.gapMs);
    }
    all.ms = median(times);
    return all;
}

qint64 Large::number(const Bench &bench, const QString &sql)
{
    const auto text = bench.db().firstText(sql);
    if (!text)
        qFatal("%s", qPrintable(sql));
    return text->toLongLong();
}

namespace {
constexpr int slowAnswerMs = 200;

/// The last day of the chain: by a register whose shifts are all closed, and which sells no more.
QDate lastDay(const Bench &bench)
{
    const QString sql = QStringLiteral("SELECT DATE(MAX(data_time)) FROM z_zvit WHERE id_kass=3");
    return QDate::fromString(bench.db().firstText(sql).value_or(QString()), Qt::ISODate);
}

/// The how many-th register of an open shop with an open shift of the user, which does not end the period.
Place openRegister(const Bench &bench, int which)
{
    const auto row =
        bench.db()
            .firstRow(QStringLiteral("SELECT kassa.id_shop,kassa.id FROM kassa JOIN shops ON "
                                     "shops.id=kassa.id_shop JOIN z_zvit ON z_zvit.id_kass=kassa.id AND "
                                     "z_zvit.id_shop=kassa.id_shop WHERE z_zvit.data_time=0 AND "
                                     "z_zvit.id_user=1 AND kassa.block=0 AND shops.block=0 AND "
                                     "shops.count_day_cycle=30 ORDER BY kassa.id LIMIT 1 OFFSET %1")
                          .arg(which))
            .value_or(QStringList());
    if (row.isEmpty())
        qFatal("There are no open shifts any more: make the database anew");
    return {0, row.at(0).toUInt(), row.at(1).toUInt()};
}

QVector<Cost> sales(const Bench &bench, SaleDesk *desk, int rows)
{
    QVector<Cost> costs;
    for (int i = 0; i < bench.rounds; ++i) {
        desk->scan(rows);
        costs.append(desk->sell());
    }
    return costs;
}

QVector<Cost> slips(const Bench &bench)
{
    ChekWindow window(bench, lastDay(bench));
    const int count = 4 * bench.rounds;
    QVector<Cost> costs;
    for (int i = 0; i < count; ++i)
        costs.append(window.open(window.rowCount() / count * i));
    return costs;
}

/// The article report, for the whole chain.
class ArticleWindow
{
public:
    explicit ArticleWindow(const Bench &bench) : m_admin(bench), m_day(lastDay(bench))
    {
        ActClock clock;
        m_report = std::make_unique<QArtReport>(bench.connection, m_admin.user(), nullptr, nullptr);
        showWindow(m_report.get());
        waitFor([&] { return !m_report->isChoosing(); });
        m_openingGapMs = clock.end().gapMs;
    }

    /// The longest time that it stood still while it opened.
    double openingGapMs() const { return m_openingGapMs; }
    /// To the numbers of the day's shifts.
    Cost changeDay(int daysBefore)
    {
        const QDate day = m_day.addDays(-daysBefore);
        // The last shift is that of the last day.
        const QString first = QString::number(LargeChain::shiftsPerRegister - daysBefore);
        return costOf([&] { m_report->findChild<RangeSelector *>()->setDays(day, day); },
                      [&] { return numberIn("cbZStart") == first && numberIn("cbZEnd") == first; });
    }

private:
    QString numberIn(const char *box) const
    {
        return child<QComboBox>(m_report.get(), QString::fromLatin1(box))->currentText();
    }

    Admin m_admin;
    QDate m_day;
    std::unique_ptr<QArtReport> m_report;
    double m_openingGapMs = 0;
};

QVector<Cost> dayChanges(const Bench &bench, ArticleWindow *window)
{
    QVector<Cost> costs;
    for (int i = 1; i <= bench.rounds; ++i)
        costs.append(window->changeDay(10 * i));
    return costs;
}
} // namespace

QVector<Figure> measureLargeSale(const Bench &bench)
{
    SaleDesk desk(bench, openRegister(bench, 0));
    return workFigures(QStringLiteral("sale of 1 row, OK to number"), usual(sales(bench, &desk, 1)), 1000) +
           workFigures(QStringLiteral("sale of 50 rows, OK to number"), usual(sales(bench, &desk, 50)), 2000);
}

QVector<Figure> measureLargeClosing(const Bench &bench)
{
    SaleDesk desk(bench, openRegister(bench, 1));
    const SaleDesk::Closing closing = desk.closeShift();
    return workFigures(QStringLiteral("shift closing, F12 to the form"), closing.opening, 100) +
           workFigures(QStringLiteral("shift closing, OK to the word"), closing.writing, 100);
}

QVector<Figure> measureLargeSlip(const Bench &bench)
{
    return workFigures(QStringLiteral("slip on a double click"), usual(slips(bench)), 50, 50);
}

QVector<Figure> measureLargeArticles(const Bench &bench)
{
    ArticleWindow window(bench);
    return {{QStringLiteral("article tab, opening: the window stands still"), window.openingGapMs(), 50,
             QStringLiteral("ms")},
            {QStringLiteral("article tab, another day: the window stands still"),
             usual(dayChanges(bench, &window)).gapMs, 50, QStringLiteral("ms")}};
}

QVector<Figure> measureLargeOnLine(const Bench &bench)
{
    Admin admin(bench);
    QStatOnLine report(bench.connection, admin.user(), nullptr, nullptr, nullptr);
    showWindow(&report);
    int loads = 0;
    QObject::connect(&report, &ReportWindow::loaded, &report, [&] { ++loads; });
    report.showShop(openRegister(bench, 0).shop);
    waitFor([&] { return loads > 0; });
    const QDate last = lastDay(bench);
    QVector<Cost> costs;
    for (int i = 0; i < bench.rounds; ++i) {
        const int before = loads;
        const auto choose = [&] {
            child<QDateEdit>(&report, QStringLiteral("deDay"))->setDate(last.addDays(-20 * i - 1));
        };
        costs.append(costOf(choose, [&] { return loads > before; }));
    }
    return workFigures(QStringLiteral("on-line report, another day"), usual(costs), 200, 50);
}

namespace {
using AddGap = std::function<void(const QString &act, double gapMs)>;

void addSaleGaps(const Bench &bench, const AddGap &add)
{
    SaleDesk desk(bench, openRegister(bench, 2));
    add(QStringLiteral("opening the sale tab"), desk.openingGapMs());
    add(QStringLiteral("scanning 3 goods"), desk.scan(3).gapMs);
    add(QStringLiteral("sale of 3 rows"), desk.sell().gapMs);
    const SaleDesk::Closing closing = desk.closeShift();
    add(QStringLiteral("shift closing"), qMax(closing.opening.gapMs, closing.writing.gapMs));
}
} // namespace

/// A shop's line that answers late: what people do at a till and in the reports, and nothing of it may hold
/// up the window.
QVector<Figure> measureSlowServer(const Bench &bench)
{
    TcpProxy line(bench.address);
    DatabaseAddress address = line.address();
    address.readSeconds = bench.address.readSeconds;
    QSqlDatabase connection = addConnection(QStringLiteral("slow"), address);
    if (!openConnection(connection, nullptr))
        qFatal("The slow line does not lead to the server");
    Bench slow = bench;
    slow.address = address;
    slow.connection = &connection;
    line.setDelay(slowAnswerMs);
    QVector<Figure> figures;
    const AddGap add = [&](const QString &act, double gapMs) {
        figures.append({QStringLiteral("  ") + act, gapMs, Large::mostGapMs, QStringLiteral("ms")});
    };
    addSaleGaps(slow, add);
    add(QStringLiteral("slips"), usual(slips(slow)).gapMs);
    ArticleWindow window(slow);
    add(QStringLiteral("opening the article tab"), window.openingGapMs());
    add(QStringLiteral("another day in the article tab"), usual(dayChanges(slow, &window)).gapMs);
    double longest = 0;
    for (const Figure &figure : figures)
        longest = qMax(longest, figure.value);
    figures.prepend({QStringLiteral("200 ms an answer: the window stands still"), longest, Large::mostGapMs,
                     QStringLiteral("ms")});
    return figures;
}
