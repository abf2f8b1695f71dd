#include "testing.h"

#include "daytimeline.h"
#include "placeselector.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qreports.h"
#include "qrowmodel.h"
#include "qstatonline.h"
#include "signs.h"
#include "waitchosen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

/// When the registers of a shop were on line.
class TstQStatOnLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup();

    void registerOnSinceYesterdayIsGreen();
    void cellsBetweenChangesCarryTheState();
    void onlyRegistersWithRowsHaveColumns();
    void sameSecondIsOrderedByRegister();
    void timelineIsCutToTheDay();
    void dayIsAskedForWithWhatEndsBehindIt();
    void shopsAndDaysPassedByAreNotAsked();
    void openIntervalEndsNow();
    void hourThatSummerTimeSkipsIsThere();
    void emptiedListHasNoHeading();
    void shopsOfTheGroup();
    void reportsOpensTheShop();
    void failureIsReported();

private:
    void show(uint shop, const QDate &day);
    /// Captions, then the rows: + and - for the colours of the cells.
    QStringList grid();
    QStringList spans();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QStatOnLine> m_report;
};

void TstQStatOnLine::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_shop(id,name) VALUES(2,'Північ'),(3,'Південь')",
        "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2) ON DUPLICATE KEY UPDATE id_group=2",
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'вул. Спільна','Перший',1,0),"
        "(2,'вул. Північна','Другий',2,0),(3,'вул. Закрита','Третій',2,1),(4,'вул. Південна','Чужий',3,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(21,2,'Перша',0),(22,2,'Друга',0),"
        "(23,2,'Стара',1),(24,2,'Тиха',0)"});
}

void TstQStatOnLine::init()
{
    m_base->exec("DELETE FROM onoffline");
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
    m_report =
        std::make_unique<QStatOnLine>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_base->heard.forget();
}

void TstQStatOnLine::cleanup()
{
    m_report.reset();
    m_user.reset();
}

void TstQStatOnLine::show(uint shop, const QDate &day)
{
    child<QDateEdit>(m_report.get(), "deDay")->setDate(day);
    QSignalSpy spy(m_report.get(), &ReportWindow::loaded);
    m_report->showShop(shop);
    if (!spy.wait(5000))
        qFatal("The statistics have not come");
}

QStringList TstQStatOnLine::grid()
{
    const QAbstractItemModel *model = m_report->view()->model();
    QStringList captions;
    for (int column = 0; column < model->columnCount(); ++column)
        captions.append(model->headerData(column, Qt::Horizontal).toString());
    QStringList lines = {captions.join('|')};
    for (int row = 0; row < model->rowCount(); ++row) {
        QString line = model->index(row, 0).data().toString() + ' ';
        for (int column = 1; column < model->columnCount(); ++column) {
            const QModelIndex cell = model->index(row, column);
            const QColor colour = cell.data(Qt::BackgroundRole).value<QColor>();
            const bool isOn = colour == QColor(0, 255, 0);
            line += !colour.isValid() ? ' ' : (isOn ? '+' : '-');
            if (colour.isValid() && (cell.data().toString() != (isOn ? "на зв'язку" : "без зв'язку") ||
                                     cell.data(signRole).toString() != (isOn ? "✓" : "✗")))
                line += "?";
        }
        lines.append(line);
    }
    return lines;
}

QStringList TstQStatOnLine::spans()
{
    QStringList texts;
    for (const DaySpan &span : child<DayTimeline>(m_report.get(), "timeline")->spans())
        texts.append(QStringLiteral("%1%2 %3-%4")
                         .arg(span.column)
                         .arg(span.isOn ? '+' : '-')
                         .arg(clockText(span.from), clockText(span.to)));
    return texts;
}

void TstQStatOnLine::registerOnSinceYesterdayIsGreen()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,21,1,'2026-02-28 20:00:00',NULL)");
    show(2, {2026, 3, 1});
    QCOMPARE(grid(), (QStringList{"__ Дата та час __|Перша", "28-02-2026 20:00:00 +"}));
    QCOMPARE(spans(), QStringList{"0+ 00:00-24:00"});
    const QString tip = m_report->view()->model()->index(0, 1).data(Qt::ToolTipRole).toString();
    QCOMPARE(tip, QString("Перша: на зв'язку\n28-02-2026 20:00:00 – триває"));
    QCOMPARE(child<DayTimeline>(m_report.get(), "timeline")->accessibleDescription(),
             QString("Перша: на зв'язку 00:00 – 24:00"));
}

void TstQStatOnLine::cellsBetweenChangesCarryTheState()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,21,1,'2026-03-01 08:00:00','2026-03-01 12:00:00'),"
                 "(2,21,0,'2026-03-01 12:00:00','2026-03-01 13:00:00'),"
                 "(2,22,0,'2026-03-01 09:00:00','2026-03-01 12:30:00')");
    show(2, {2026, 3, 1});
    QCOMPARE(grid(),
             (QStringList{"__ Дата та час __|Перша|Друга", "01-03-2026 08:00:00 + ", "01-03-2026 09:00:00 +-",
                          "01-03-2026 12:00:00 +-", "01-03-2026 12:00:00 --", "01-03-2026 12:30:00 --",
                          "01-03-2026 13:00:00 - "}));
    QCOMPARE(spans(), (QStringList{"0+ 08:00-12:00", "1- 09:00-12:30", "0- 12:00-13:00"}));
}

void TstQStatOnLine::onlyRegistersWithRowsHaveColumns()
{
    // The shop's own line, a blocked register, and a register of the shop that has no row.
    m_base->exec("INSERT INTO onoffline VALUES(2,NULL,1,'2026-03-01 06:00:00',NULL),"
                 "(2,23,1,'2026-03-01 07:00:00',NULL),(2,22,1,'2026-03-01 08:00:00',NULL)");
    show(2, {2026, 3, 1});
    QCOMPARE(grid(), (QStringList{"__ Дата та час __|Друга", "01-03-2026 08:00:00 +"}));
}

void TstQStatOnLine::sameSecondIsOrderedByRegister()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,22,1,'2026-03-01 08:00:00',NULL),"
                 "(2,21,0,'2026-03-01 08:00:00','2026-03-01 08:00:00'),(2,21,1,'2026-03-01 08:00:00',NULL)");
    show(2, {2026, 3, 1});
    QStringList lines = grid();
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.last(), QString("01-03-2026 08:00:00 ++"));
    QCOMPARE(lines.at(3).right(1), QString(" ")); // the second register comes last
}

void TstQStatOnLine::timelineIsCutToTheDay()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,21,1,'2026-02-27 08:00:00','2026-03-01 10:30:00'),"
                 "(2,21,0,'2026-03-01 22:00:00','2026-03-02 06:00:00'),"
                 "(2,21,1,'2026-03-02 06:00:00',NULL),(2,22,1,'2026-02-27 08:00:00','2026-02-28 10:00:00')");
    show(2, {2026, 3, 1});
    QCOMPARE(spans(), (QStringList{"0+ 00:00-10:30", "0- 22:00-24:00"}));
    // What ends or is open after the day's start is listed, whenever it began.
    QCOMPARE(grid().size(), 6);
    QCOMPARE(grid().last(), QString("02-03-2026 06:00:00 + "));
    auto *timeline = child<DayTimeline>(m_report.get(), "timeline");
    child<QCheckBox>(m_report.get(), "chTimeline")->setChecked(false);
    QVERIFY(!timeline->isVisibleTo(m_report.get()));
}

/// Odd lines: open ones, edges of the day, clocks that went back, no register, the same register elsewhere.
void TstQStatOnLine::dayIsAskedForWithWhatEndsBehindIt()
{
    m_base->exec(
        "INSERT INTO onoffline VALUES(2,21,1,'2026-02-27 08:00:00',NULL),"
        "(2,21,0,'2026-02-28 08:00:00','2026-02-28 23:59:59'),"
        "(2,21,1,'2026-02-28 09:00:00','2026-03-01 00:00:00'),"
        "(2,22,1,'2026-03-01 00:00:00','2026-03-01 00:00:00'),"
        "(2,22,0,'2026-03-01 23:59:59','2026-02-28 12:00:00'),"
        "(2,22,1,'2026-03-02 00:00:00','2026-03-02 01:00:00'),(2,22,0,'2026-03-02 01:00:00',NULL),"
        "(2,23,1,'2026-03-01 12:00:00','2026-03-01 13:00:00'),"
        "(2,NULL,1,'2026-03-01 12:00:00',NULL),(2,NULL,0,'2026-02-01 12:00:00','2026-02-01 13:00:00'),"
        "(1,21,1,'2026-03-01 12:00:00',NULL),(1,21,1,'2026-03-01 14:00:00','2026-03-01 15:00:00')");
    show(2, {2026, 3, 1});
    QStringList found;
    for (int row = 0; row < m_report->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < 4; ++column)
            cells.append(m_report->model()->stored(row, column));
        found.append(cells.join('|'));
    }
    QCOMPARE(found, m_base->rows("SELECT id_kass,onoff,dt_start,dt_end FROM onoffline WHERE id_shop=2 AND "
                                 "(DATE(dt_start)='2026-03-01' OR COALESCE(dt_end,'9999-01-01')>="
                                 "'2026-03-01 00:00:00') ORDER BY dt_start,id_kass"));
    QCOMPARE(found.size(), 8);
}

void TstQStatOnLine::shopsAndDaysPassedByAreNotAsked()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,22,1,'2026-03-01 08:00:00',NULL)");
    waitChosen(m_report.get());
    m_report->show();
    QVERIFY(QTest::qWaitForWindowActive(m_report.get()));
    QStringList sent;
    Db::setStatementHook([&](const QString &sql) { sent.append(sql); });
    QSignalSpy loaded(m_report.get(), &ReportWindow::loaded);
    auto *shop = child<QComboBox>(m_report.get(), "cbShop");
    shop->setFocus();
    pressKeys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
    QVERIFY(loaded.wait());
    QTest::qWait(200);
    QCOMPARE(sent.filter("FROM onoffline").size(), 1);
    QVERIFY(sent.filter("FROM onoffline").first().contains("id_shop=2 "));
    QCOMPARE(loaded.count(), 1);
    // The list stays until the day that the hand rests on has come.
    auto *day = child<QDateEdit>(m_report.get(), "deDay");
    day->setDate({2026, 3, 1});
    QVERIFY(loaded.wait());
    day->setFocus();
    pressKeys({Qt::Key_Home, Qt::Key_Up, Qt::Key_Up});
    QCOMPARE(grid().size(), 2);
    QVERIFY(loaded.wait());
    QTest::qWait(200);
    Db::setStatementHook({});
    QCOMPARE(loaded.count(), 3);
    QCOMPARE(m_report->heading().last(), QString("03.03.2026"));
}

void TstQStatOnLine::openIntervalEndsNow()
{
    const QDate day(2026, 3, 1);
    const QDateTime noon(day, QTime(12, 0), Qt::UTC);
    const QVector<OnLineInterval> open = {{0, true, QDateTime(day, QTime(8, 0), Qt::UTC), {}}};
    const auto to = [&](const QDate &of) {
        const QVector<DaySpan> found = daySpans(open, of, noon);
        return found.isEmpty() ? -1 : found.first().to;
    };
    QCOMPARE(to(day), 12 * 3600);
    QCOMPARE(to(day.addDays(-1)), -1);
    QCOMPARE(to(day.addDays(1)), -1);
}

void TstQStatOnLine::hourThatSummerTimeSkipsIsThere()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,21,1,'2026-03-29 03:15:00','2026-03-29 03:45:00'),"
                 "(2,21,0,'2026-10-25 03:15:00','2026-10-25 04:30:00')");
    show(2, {2026, 3, 29});
    QCOMPARE(spans(), QStringList{"0+ 03:15-03:45"});
    QCOMPARE(grid().at(1), QString("29-03-2026 03:15:00 +"));
    // The hour that comes twice in autumn is one hour of the database.
    show(2, {2026, 10, 25});
    QCOMPARE(spans(), QStringList{"0- 03:15-04:30"});
}

void TstQStatOnLine::emptiedListHasNoHeading()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,22,1,'2026-03-01 08:00:00',NULL)");
    show(2, {2026, 3, 1});
    QCOMPARE(m_report->heading().size(), 3);
    QVERIFY(child<QPushButton>(m_report.get(), "pbPrintList")->isEnabled());
    child<PlaceSelector>(m_report.get(), "place")->chooseShop(0);
    QCOMPARE(m_report->heading(), QStringList());
    QCOMPARE(child<QLabel>(m_report.get(), "labelState")->text(), QString());
    QVERIFY(!child<QPushButton>(m_report.get(), "pbPrintList")->isEnabled());
}

void TstQStatOnLine::shopsOfTheGroup()
{
    auto *place = child<PlaceSelector>(m_report.get(), "place");
    const auto shops = [&] {
        waitChosen(m_report.get());
        const auto *box = child<QComboBox>(place, "cbShop");
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts.append(box->itemText(i));
        return texts;
    };
    QCOMPARE(shops(), (QStringList{"Виберіть магазин", "вул. Спільна Перший", "вул. Північна Другий",
                                   "вул. Закрита Третій"}));
    QVERIFY(place->chooseGroup(2));
    QCOMPARE(shops(), (QStringList{"Виберіть магазин", "вул. Північна Другий"}));
    const QString told = answerQuestion([&] {
        m_report->showShop(4);
        waitChosen(m_report.get());
    });
    QVERIFY2(told.contains("недоступний"), qPrintable(told));
    QVERIFY(!m_report->isLoading());
}

void TstQStatOnLine::reportsOpensTheShop()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,22,1,'2026-03-01 08:00:00',NULL)");
    QTabWidget tabs;
    QReports reports(&tabs, m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    reports.StatOnLine(2);
    reports.StatOnLine();
    QCOMPARE(tabs.count(), 1);
    QCOMPARE(tabs.tabText(0), QString("Статистика OnLine"));
    QSignalSpy spy(reports.window("mz_StatisticOnLine"), &ReportWindow::loaded);
    QVERIFY(spy.wait(5000));
    QCOMPARE(child<PlaceSelector>(tabs.widget(0), "place")->place().shop, 2U);
    QCOMPARE(child<ListPane>(tabs.widget(0), "listTimes")->view()->model()->rowCount(), 1);
    QVERIFY(reports.closetab(0));
}

void TstQStatOnLine::failureIsReported()
{
    m_base->exec("INSERT INTO onoffline VALUES(2,22,1,'2026-03-01 08:00:00',NULL)");
    show(2, {2026, 3, 1});
    m_base->exec("RENAME TABLE onoffline TO onoffline_away");
    QSignalSpy spy(m_report.get(), &ReportWindow::loaded);
    m_report->DateChang({2026, 3, 2});
    QVERIFY(spy.wait(5000));
    m_base->exec("RENAME TABLE onoffline_away TO onoffline");
    QVERIFY(m_base->heard.has("Помилка запиту:"));
    QCOMPARE(grid().size(), 2);
}

QTEST_MAIN(TstQStatOnLine)
#include "tst_qstatonline.moc"
