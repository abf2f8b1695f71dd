#include "heartbeat.h"
#include "tcpproxy.h"
#include "testing.h"
#include "waitchosen.h"

#include "placeselector.h"
#include "qartreport.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qreports.h"
#include "qrowmodel.h"
#include "rangeselector.h"

#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextBrowser>

/// The reports on a line that answers late, or not at all, under hands that do not wait for it.
class TstHurriedReports : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup();

    void windowLivesOnASlowLine();
    void loadWaitsForItsPlace();
    void keysThroughTheGroupsAreOneQuestion();
    void handIsNewerThanWhatWasAskedFor();
    void lastDayCounts();
    void newestDoubleClickWins();
    void tabIsClosedWhileItsBoxesAreRead();
    void silentServerIsTold();

private:
    void slowDown(int delayMs) { m_proxy->setDelay(delayMs); }
    template<typename Report>
    Report *opened(void (QReports::*open)());

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QTabWidget> m_tabs;
    std::unique_ptr<QReports> m_reports;
    QStringList m_sent;
};

namespace {
/// One statement in the window's thread is already more than that.
constexpr int answerMs = Heartbeat::waitMs + 25;
const QDate march1(2026, 3, 1);

QStringList items(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}
} // namespace

void TstHurriedReports::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_shop(id,name) VALUES(2,'Захід'),(3,'Північ'),(4,'Схід')",
        "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2),(1,3),(1,4)",
        // A large chain: 3,200 shops, all but the first three of group 4; 800 goods groups.
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'Західний','',2,0),(2,'Північний','',3,0),"
        "(3,'Другий північний','',3,0)",
        "INSERT INTO shops(id,address,name,group_shop,block) SELECT seq,CONCAT('Східний ',seq),'',4,0 FROM "
        "seq_4_to_3200",
        "INSERT INTO group_goods(id,name) SELECT seq,CONCAT('Група товарів ',seq) FROM seq_100_to_900",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(11,1,'К1',0),(12,1,'К2',0),(21,2,'К1',0)",
        "SET foreign_key_checks=0",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) SELECT seq,1,11,1,"
        "20260300210000+seq*1000000 FROM seq_1_to_9",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,price,data_time) SELECT "
        "1,11,seq,seq,2,1,3,100*seq,100*seq,20260300120000+seq*1000000 FROM seq_1_to_9",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,price,data_time) "
        "VALUES(2,21,1,1,2,1,3,700,700,20260301120000)",
        "INSERT INTO onoffline VALUES(1,11,1,'2026-03-01 08:00:00',NULL)", "SET foreign_key_checks=1"});
}

void TstHurriedReports::init()
{
    m_base->heard.forget();
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    m_window = addConnection(QStringLiteral("window"), address);
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
    m_tabs = std::make_unique<QTabWidget>();
    m_tabs->resize(1100, 700);
    m_tabs->show();
    QVERIFY(QTest::qWaitForWindowActive(m_tabs.get()));
    m_reports = std::make_unique<QReports>(m_tabs.get(), &m_window, nullptr, m_user.get(), &m_base->heard);
    m_sent.clear();
}

void TstHurriedReports::cleanup()
{
    Db::setStatementHook({});
    m_tabs.reset();
    m_reports.reset();
    m_user.reset();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    m_proxy.reset();
}

template<typename Report>
Report *TstHurriedReports::opened(void (QReports::*open)())
{
    (m_reports.get()->*open)();
    auto *report = qobject_cast<Report *>(m_reports->current());
    if (report == nullptr)
        qFatal("No report");
    return report;
}

/// Opening, keys through the boxes, days, loading: nothing of it holds the window up.
void TstHurriedReports::windowLivesOnASlowLine()
{
    slowDown(answerMs);
    Heartbeat beat;
    for (void (QReports::*const open)() :
         {&QReports::ChekViewer, &QReports::ZReports, &QReports::ArtReports, &QReports::StatOnLine}) {
        auto *report = opened<ReportWindow>(open);
        waitChosen(report);
        auto *group = child<QComboBox>(report, "cbGroup");
        QCOMPARE(items(group), QStringList({"Усі групи", "default", "Захід", "Північ", "Схід"}));
        group->setFocus();
        pressKeys({Qt::Key_End});
        waitChosen(report);
        auto *shop = child<QComboBox>(report, "cbShop");
        QCOMPARE(shop->count(), 3198);
        shop->setFocus();
        pressKeys({Qt::Key_End, Qt::Key_Home, Qt::Key_Down});
        if (auto *range = report->findChild<RangeSelector *>())
            range->setDays(march1, march1.addDays(8));
        waitChosen(report);
        QSignalSpy loaded(report, &ReportWindow::loaded);
        // The first shop of the last group has no shifts: of that one nothing is asked for.
        group->setCurrentIndex(0);
        child<PlaceSelector>(report, "place")->chooseShop(1);
        waitChosen(report);
        if (auto *numbers = report->findChild<QPushButton *>("pbNumbers"))
            numbers->click();
        child<QPushButton>(report, "pbLoad")->click();
        QVERIFY(loaded.wait(20000));
        const QString gap =
            QString("%1: %2 ms").arg(report->metaObject()->className()).arg(beat.longestGap());
        QVERIFY2(beat.longestGap() < Heartbeat::waitMs, qPrintable(gap));
    }
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
}

/// Asked for before the boxes are there: nothing is searched with half of them, and nothing is asked twice.
void TstHurriedReports::loadWaitsForItsPlace()
{
    slowDown(50);
    auto *viewer = opened<QChekViewer>(&QReports::ChekViewer);
    auto *place = child<PlaceSelector>(viewer, "place");
    child<RangeSelector>(viewer, "range")->setDays(march1, march1);
    QVERIFY(place->isReading());
    place->chooseGroup(2);
    place->showShop("Західний");
    place->showRegister("К1");
    QSignalSpy loaded(viewer, &ReportWindow::loaded);
    child<QPushButton>(viewer, "pbLoad")->click();
    QVERIFY(viewer->isLoading() && !child<QPushButton>(viewer, "pbLoad")->isEnabled());
    QVERIFY(loaded.wait());
    QCOMPARE(viewer->heading(), QStringList({"Чеки", "Захід, Західний, К1", "01.03.2026"}));
    QCOMPARE(viewer->sum(), 100LL);
    QTest::qWait(200);
    QCOMPARE(loaded.count(), 1);
    // Stopped while it waits for the boxes: it does not come.
    place->chooseGroup(3);
    child<QPushButton>(viewer, "pbLoad")->click();
    child<QPushButton>(viewer, "pbStop")->click();
    QVERIFY(!viewer->isLoading());
    waitChosen(viewer);
    QTest::qWait(200);
    QCOMPARE(loaded.count(), 1);
}

void TstHurriedReports::keysThroughTheGroupsAreOneQuestion()
{
    auto *report = opened<QArtReport>(&QReports::ArtReports);
    waitChosen(report);
    auto *group = child<QComboBox>(report, "cbGroup");
    group->setFocus();
    Db::setStatementHook([this](const QString &sql) { m_sent.append(sql); });
    pressKeys({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down});
    // The keyboard goes on into the next box, which is still empty.
    pressKeys({Qt::Key_Tab});
    QVERIFY(child<QComboBox>(report, "cbShop")->hasFocus());
    waitChosen(report);
    waitOutTasks();
    Db::setStatementHook({});
    QCOMPARE(m_sent.filter("FROM shops").filter("address").size(), 1);
    QCOMPARE(items(child<QComboBox>(report, "cbShop")),
             QStringList({"Усі магазини", "Північний", "Другий північний"}));
}

void TstHurriedReports::handIsNewerThanWhatWasAskedFor()
{
    slowDown(100);
    auto *viewer = opened<QChekViewer>(&QReports::ChekViewer);
    waitChosen(viewer);
    ChekOrigin line;
    line.shop = 1;
    line.kass = 11;
    line.zFrom = line.zTo = "1";
    QSignalSpy loaded(viewer, &ReportWindow::loaded);
    viewer->showOrigin(line);
    // Its shop is on its way; the hand chooses another group.
    auto *group = child<QComboBox>(viewer, "cbGroup");
    group->setFocus();
    pressKeys({Qt::Key_End});
    waitChosen(viewer);
    QTest::qWait(300);
    const auto *place = child<PlaceSelector>(viewer, "place");
    QCOMPARE(place->description(), QString("Схід"));
    QVERIFY(!viewer->isLoading() && loaded.isEmpty());
}

/// Five days within a moment: the last one's numbers, read once.
void TstHurriedReports::lastDayCounts()
{
    slowDown(50);
    auto *report = opened<QArtReport>(&QReports::ArtReports);
    child<RangeSelector>(report, "range")->setDays(march1, march1);
    waitChosen(report);
    const auto *start = child<QComboBox>(report, "cbZStart");
    QCOMPARE(items(start), QStringList{"1"});
    auto *day = child<QDateEdit>(report, "deFrom");
    day->setFocus();
    Db::setStatementHook([this](const QString &sql) { m_sent.append(sql); });
    pressKeys({Qt::Key_Home, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up});
    QCOMPARE(day->date(), march1.addDays(5));
    QVERIFY2(start->count() == 0 || start->itemText(0) != "1", "the numbers of another day are gone at once");
    waitChosen(report);
    waitOutTasks();
    Db::setStatementHook({});
    QCOMPARE(items(start), QStringList{"6"});
    QCOMPARE(m_sent.filter("z_zvit").size(), 1);
    // Picked by hand, it stays when the same day is read again, and goes with the day.
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(5,2,21,20260306200000),"
                 "(8,2,21,20260306210000)");
    auto *refresh = child<QPushButton>(report, "pbNumbers");
    refresh->click();
    waitChosen(report);
    QCOMPARE(start->currentText(), QString("5"));
    child<QComboBox>(report, "cbZStart")->setFocus();
    pressKeys({Qt::Key_End});
    QCOMPARE(start->currentText(), QString("8"));
    refresh->click();
    waitChosen(report);
    QCOMPARE(start->currentText(), QString("8"));
    child<RangeSelector>(report, "range")->setDays(march1.addDays(7), march1.addDays(7));
    child<RangeSelector>(report, "range")->setDays(march1.addDays(5), march1.addDays(5));
    waitChosen(report);
    QCOMPARE(start->currentText(), QString("5"));
    m_base->exec("DELETE FROM z_zvit WHERE id_kass=21");
}

void TstHurriedReports::newestDoubleClickWins()
{
    auto *viewer = opened<QChekViewer>(&QReports::ChekViewer);
    child<RangeSelector>(viewer, "range")->setDays(march1, march1.addDays(8));
    QSignalSpy loaded(viewer, &ReportWindow::loaded);
    viewer->load();
    QVERIFY(loaded.wait());
    viewer->model()->sort(1);
    slowDown(answerMs);
    auto *view = viewer->view();
    const auto doubleClick = [view](int row) {
        const QPoint place = view->visualRect(view->model()->index(row, 1)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
    };
    auto *slip = child<QTextBrowser>(viewer, "tbSlip");
    QStringList shown;
    connect(slip, &QTextBrowser::textChanged, this,
            [&] { shown.append(slip->toPlainText().section("Чек №", 1).section('\n', 0, 0)); });
    Heartbeat beat;
    doubleClick(2);
    doubleClick(5);
    doubleClick(4);
    QTRY_VERIFY2(slip->toPlainText().contains("Чек №"), "no slip");
    waitOutTasks();
    QVERIFY2(beat.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(beat.longestGap())));
    const QString number = viewer->model()->stored(4, 1);
    shown.removeDuplicates();
    shown.removeAll(QString());
    QCOMPARE(shown, QStringList{number});
    // Another list came before its slip: it is not that list's.
    doubleClick(3);
    slowDown(0);
    viewer->load();
    QVERIFY(loaded.wait());
    waitOutTasks();
    QCOMPARE(viewer->slip(), QString());
}

void TstHurriedReports::tabIsClosedWhileItsBoxesAreRead()
{
    slowDown(50);
    for (void (QReports::*const open)() :
         {&QReports::ChekViewer, &QReports::ZReports, &QReports::ArtReports, &QReports::StatOnLine}) {
        auto *report = opened<ReportWindow>(open);
        QVERIFY(report->isChoosing());
        report->load();
        QTest::qWait(30);
        QVERIFY(m_reports->closetab(0));
    }
    waitOutTasks();
    auto *again = opened<QArtReport>(&QReports::ArtReports);
    waitChosen(again);
    QCOMPARE(child<QComboBox>(again, "cbShop")->count(), 3201);
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
}

void TstHurriedReports::silentServerIsTold()
{
    auto *report = opened<QArtReport>(&QReports::ArtReports);
    waitChosen(report);
    m_proxy->setSilent(true);
    Heartbeat beat;
    auto *group = child<QComboBox>(report, "cbGroup");
    group->setFocus();
    pressKeys({Qt::Key_Down, Qt::Key_Down});
    const auto *shop = child<QComboBox>(report, "cbShop");
    QTRY_COMPARE(items(shop), QStringList{"Читається…"});
    QTRY_VERIFY(!m_base->heard.texts().isEmpty());
    waitChosen(report);
    QVERIFY2(beat.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(beat.longestGap())));
    QCOMPARE(items(shop), QStringList{"Усі магазини"});
    QCOMPARE(m_base->heard.texts().size(), 1);
    m_proxy->setSilent(false);
    // The same choice once more, when it is back.
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            report->GroupChanged(QString());
            waitChosen(report);
            return items(shop) == QStringList({"Усі магазини", "Західний"});
        }(),
        15000);
}

QTEST_MAIN(TstHurriedReports)
#include "tst_hurriedreports.moc"
