#include "workplace.h"

#include "attention.h"
#include "firststepsview.h"
#include "money.h"
#include "overviewmodel.h"
#include "overviewtree.h"
#include "qloadeduser.h"
#include "qoverview.h"
#include "queryservice.h"
#include "turnoverchart.h"
#include "userstate.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolTip>

/// The overview as its user has it before the eyes.
class TstQOverview : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void placeStaysWhenItIsReadAnew();
    void numbersLeadToTheirLists();
    void sumsLeadToTheirLists();
    void shiftsWithoutReceiptsLeadToTheirTable();
    void daysAreOpenedByKeyAndMouse();
    void attentionLeadsToWhatThereIs();
    void readAnewOnlyWhileItIsSeen();
    void slowCountsHoldNothingUp();
    void failureKeepsWhatWasShown();
    void rightsDecideWhatIsShown();
    void newChainShowsItsSteps();

private:
    void open();
    void refresh();
    QTreeView *tree() { return child<QTreeView>(m_tabs.get(), "tree"); }
    QString current() { return tree()->currentIndex().siblingAtColumn(0).data().toString(); }
    void goTo(int shop, int reg, int column);
    /// Presses Enter and tells where that leads: action|shop/kass|shifts|days|condition.
    QString entered();
    QString text(const char *label)
    {
        return child<QLabel>(m_tabs.get(), label)->text().replace(QChar::Nbsp, ' ');
    }

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QTabWidget> m_tabs;
    QOverview *m_page = nullptr;
    QVector<Destination> m_wanted;
};

void TstQOverview::initTestCase()
{
    qRegisterMetaType<Destination>();
    m_place = std::make_unique<Workplace>();
}

void TstQOverview::init()
{
    const QString today = QDate::currentDate().toString("yyyy-MM-dd");
    FreshDatabase &base = m_place->base;
    base.exec("DELETE FROM z_zvit");
    m_place->clear();
    base.exec(QStringList{
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Луцьк',2,0),(2,'Київ',1,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(11,1,'Каса 1',0),(12,1,'Каса 2',0),"
        "(21,2,'Каса 1',0)",
        "INSERT INTO goods(id,name,price,block) VALUES(1,'Сир',0,0)",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(1,1,-1)",
        "INSERT INTO onoffline VALUES(1,11,1,'" + today + " 00:00:00',NULL)",
        "INSERT INTO z_zvit(id_shop,id_kass,id_zzvit,id_user,Oborot_A,cash,count_cheks,data_time) VALUES"
        "(1,11,5,1,100000,100000,3,0),(1,12,3,1,50000,50000,2,0),(2,21,8,1,7000,7000,1,0),"
        "(1,11,4,1,900,900,1,'" +
            QDate::currentDate().addDays(-7).toString("yyyy-MM-dd") + " 20:00:00')"});
    m_place->logIn(Permission::ZReports);
    rememberState(m_place->user()->idUser(), "overview/columns", {});
    m_wanted.clear();
    open();
}

void TstQOverview::cleanup()
{
    m_tabs.reset();
    m_place->base.heard.forget();
}

void TstQOverview::open()
{
    m_tabs = std::make_unique<QTabWidget>();
    m_tabs->resize(1100, 700);
    m_page = new QOverview(m_place->connection(), m_place->user(), &m_place->base.heard, nullptr);
    connect(m_page, &QOverview::wanted, this, [this](const Destination &there) { m_wanted.append(there); });
    m_tabs->addTab(m_page, "Огляд");
    QVERIFY(showActive(m_tabs.get()));
    m_page->setFocus();
    QTRY_VERIFY(!m_page->isLoading());
}

void TstQOverview::refresh()
{
    m_page->run(Command::Reload);
    QVERIFY(m_page->isLoading());
    QTRY_VERIFY(!m_page->isLoading());
}

void TstQOverview::goTo(int shop, int reg, int column)
{
    const QModelIndex row = tree()->model()->index(shop, 0);
    tree()->setExpanded(row, true);
    tree()->setCurrentIndex(reg < 0 ? row.siblingAtColumn(column) : tree()->model()->index(reg, column, row));
    tree()->setFocus();
}

QString TstQOverview::entered()
{
    m_wanted.clear();
    pressKeys({Qt::Key_Return});
    if (m_wanted.size() != 1)
        return QString::number(m_wanted.size());
    const Destination &there = m_wanted.constFirst();
    const ChekOrigin &origin = there.origin;
    const QDate today = QDate::currentDate();
    const QString days =
        origin.firstDay.isValid()
            ? QString("%1..%2").arg(today.daysTo(origin.firstDay)).arg(today.daysTo(origin.lastDay))
            : QString();
    return QString("%1|%2/%3|%4|%5|%6")
        .arg(there.action)
        .arg(origin.shop)
        .arg(origin.kass)
        .arg(origin.zFrom == origin.zTo ? origin.zFrom : "?", days, there.condition);
}

/// Sorted by turnover, unfolded, in the middle of it: another shop comes in above, sums change.
void TstQOverview::placeStaysWhenItIsReadAnew()
{
    QCOMPARE(current(), QString("Київ"));
    pressKeys({Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right});
    QCOMPARE(current(), QString("Каса 2"));
    QCOMPARE(tree()->currentIndex().column(), int(OverviewModel::Turnover));
    tree()->sortByColumn(OverviewModel::Turnover, Qt::DescendingOrder);
    m_place->base.exec("UPDATE z_zvit SET Oborot_A=900000 WHERE id_kass=12");
    refresh();
    QCOMPARE(current(), QString("Каса 2"));
    QCOMPARE(tree()->currentIndex().row(), 0);
    QCOMPARE(tree()->currentIndex().siblingAtColumn(OverviewModel::Turnover).data().toString(),
             moneyShown(900000));
    m_place->base.exec("INSERT INTO shops(id,address,group_shop,block) VALUES(3,'Біла Церква',2,0)");
    refresh();
    QCOMPARE(tree()->model()->rowCount(), 3);
    QCOMPARE(current(), QString("Каса 2"));
    QCOMPARE(tree()->currentIndex().column(), int(OverviewModel::Turnover));
    QVERIFY(tree()->isExpanded(tree()->currentIndex().parent()));
    // Whoever opens it again finds the order that was chosen.
    m_tabs.reset();
    open();
    QCOMPARE(tree()->model()->index(0, 0).data().toString(), QString("Луцьк"));
    goTo(0, 0, OverviewModel::Name);
    // The register goes: its shop is next.
    m_place->base.exec(QStringList{"DELETE FROM z_zvit WHERE id_kass=12", "DELETE FROM kassa WHERE id=12"});
    refresh();
    QCOMPARE(current(), QString("Луцьк"));
}

void TstQOverview::numbersLeadToTheirLists()
{
    goTo(1, 0, OverviewModel::Turnover);
    QCOMPARE(entered(), QString("mz_cheks|1/11|5||"));
    goTo(1, 0, OverviewModel::WeekAgo);
    QCOMPARE(entered(), QString("mz_zzvit|1/11||-7..-7|"));
    goTo(1, -1, OverviewModel::WeekAgo);
    QCOMPARE(entered(), QString("mz_zzvit|1/0||-7..-7|"));
    goTo(1, -1, OverviewModel::ClosedToday);
    QCOMPARE(entered(), QString("mz_zzvit|1/0||0..0|"));
    goTo(1, -1, OverviewModel::Receipts);
    QCOMPARE(entered(), QString("mt_z_zvits|0/0|||(z_zvit.id_zzvit,z_zvit.id_kass) IN ((5,11),(3,12))"));
    goTo(0, -1, OverviewModel::Average);
    QCOMPARE(entered(), QString("mz_cheks|2/21|8||"));
    goTo(1, 1, OverviewModel::Line);
    QCOMPARE(entered(), QString("mz_StatisticOnLine|1/12|||"));
    goTo(1, 1, OverviewModel::Name);
    QCOMPARE(entered(), QString("mt_kass|0/0|||kassa.id IN (12)"));
    // A shop folds up.
    goTo(1, -1, OverviewModel::Name);
    QCOMPARE(entered(), QString("0"));
    QVERIFY(!tree()->isExpanded(tree()->currentIndex()));
    m_wanted.clear();
    const QModelIndex cell = tree()->model()->index(0, OverviewModel::Turnover);
    tree()->scrollTo(cell);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(cell).center());
    QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, {}, tree()->visualRect(cell).center());
    QCOMPARE(m_wanted.size(), 1);
    // A scanner that reads a card into it opens nothing.
    goTo(1, 0, OverviewModel::Turnover);
    m_wanted.clear();
    scan("4820000000031");
    QVERIFY(m_wanted.isEmpty());
    // Where nothing is open nothing opens.
    m_place->base.exec("DELETE FROM z_zvit WHERE id_kass=21");
    refresh();
    goTo(0, -1, OverviewModel::Turnover);
    QCOMPARE(entered(), QString("0"));
}

/// Above the tree, by keyboard: shops, registers, open shifts, what was sold in them.
void TstQOverview::sumsLeadToTheirLists()
{
    auto *sums = child<QLabel>(m_tabs.get(), "labelSums");
    sums->setFocus();
    QStringList led;
    for (int link = 0; link < 6; ++link) {
        pressKeys({Qt::Key_Tab});
        const QString action = entered().section('|', 0, 0);
        led.append(action + ' ' + (m_wanted.isEmpty() ? QString() : m_wanted.constLast().words));
    }
    const QString weekAgo = QDate::currentDate().addDays(-7).toString("dd.MM.yyyy");
    QCOMPARE(led, (QStringList{"mt_shops Магазини з огляду", "mt_kass Каси, не заблоковані",
                               "mt_z_zvits Відкриті зміни", "mt_z_zvits Відкриті зміни",
                               "mt_z_zvits Зміни за " + QDate::currentDate().toString("dd.MM.yyyy"),
                               "mt_z_zvits Зміни за " + weekAgo}));
}

void TstQOverview::shiftsWithoutReceiptsLeadToTheirTable()
{
    m_place->logIn(Permission::Cheks, Permission::Denied);
    open();
    goTo(1, 0, OverviewModel::Turnover);
    QCOMPARE(entered(), QString("mt_z_zvits|0/0|||(z_zvit.id_zzvit,z_zvit.id_kass) IN ((5,11))"));
    m_place->logIn(Permission::Cheks);
}

void TstQOverview::daysAreOpenedByKeyAndMouse()
{
    auto *chart = child<TurnoverChart>(m_tabs.get(), "chart");
    QCOMPARE(chart->bars().size(), drawnDays);
    QCOMPARE(chart->bars().constLast().kopecks, qint64(157000));
    chart->setFocus(Qt::TabFocusReason);
    QVERIFY2(text("labelChart").contains("1 570.00"), qPrintable(text("labelChart")));
    const QDate weekAgo = QDate::currentDate().addDays(-7);
    pressKeys(
        {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left});
    QVERIFY2(text("labelChart").contains("9.00"), qPrintable(text("labelChart")));
    const QString day = weekAgo.toString("yyyyMMdd");
    const QString condition = "z_zvit.data_time>=" + day + "000000 AND z_zvit.data_time<=" + day + "235959";
    QCOMPARE(entered(), "mt_z_zvits|0/0|||" + condition);
    // The chosen day stays when it is read anew.
    refresh();
    QCOMPARE(chart->currentBar(), drawnDays - 8);
    m_wanted.clear();
    const QPoint last(chart->width() - 20, chart->height() / 2);
    QMouseEvent move(QEvent::MouseMove, last, chart->mapToGlobal(last), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(chart, &move);
    QTRY_VERIFY(QToolTip::text().contains(moneyShown(157000)));
    QTest::mouseClick(chart, Qt::LeftButton, {}, last);
    QCOMPARE(m_wanted.size(), 1);
    QVERIFY2(m_wanted.constFirst().condition.endsWith(") OR z_zvit.data_time=0"),
             qPrintable(m_wanted.constFirst().condition));
    QToolTip::hideText();
}

void TstQOverview::attentionLeadsToWhatThereIs()
{
    auto *list = child<AttentionList>(m_tabs.get(), "attention");
    QStringList lines;
    for (int row = 0; row < list->count(); ++row)
        lines.append(list->item(row)->text());
    QVERIFY2(lines.contains("! 1 – Від'ємні залишки") &&
                 lines.contains("✓ 0 – Акції, що закінчуються сьогодні"),
             qPrintable(lines.join('\n')));
    list->setFocus();
    list->setCurrentRow(lines.indexOf("✓ 0 – Акції, що закінчуються сьогодні"));
    QCOMPARE(entered(), QString("0"));
    list->setCurrentRow(lines.indexOf("! 1 – Товари без ціни"));
    QVERIFY2(entered().startsWith("mt_goods|"), "by key");
    m_wanted.clear();
    QListWidgetItem *stock = list->item(lines.indexOf("! 1 – Від'ємні залишки"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(stock).center());
    QCOMPARE(m_wanted.size(), 1);
    QCOMPARE(m_wanted.constFirst().action, QString("mt_goods_shops"));
    QCOMPARE(m_wanted.constFirst().words, QString("Від'ємні залишки"));
}

void TstQOverview::readAnewOnlyWhileItIsSeen()
{
    QOverview::setRefreshTime(std::chrono::milliseconds(200));
    open();
    QSignalSpy shown(m_page, &QOverview::shown);
    QVERIFY(shown.wait(5000) && shown.wait(5000));
    m_tabs->addTab(new QWidget, "інша");
    m_tabs->setCurrentIndex(1);
    QTRY_VERIFY(!m_page->isLoading());
    shown.clear();
    QVERIFY2(!shown.wait(600), "nobody sees it");
    // Whoever comes back finds it read anew.
    m_tabs->setCurrentIndex(0);
    QVERIFY(m_page->isLoading());
    QVERIFY(shown.wait(5000));
    QOverview::setRefreshTime(std::chrono::minutes(1));
}

/// Somebody's report lasts: what is counted comes behind it, the rest at once and each time.
void TstQOverview::slowCountsHoldNothingUp()
{
    QueryOwner report(m_place->connection()->connectionName(), nullptr);
    report.setLong(true);
    report.ask({"SELECT SLEEP(30)"});
    m_place->base.exec("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(2,1,-5)");
    for (const int turnover : {300000, 400000}) {
        m_place->base.exec("UPDATE z_zvit SET Oborot_A=" + QString::number(turnover) + " WHERE id_kass=21");
        QSignalSpy shown(m_page, &QOverview::shown);
        m_page->refresh();
        QVERIFY(shown.wait(5000));
        QCOMPARE(tree()->model()->index(0, OverviewModel::Turnover).data().toString(), moneyShown(turnover));
    }
    QVERIFY(m_page->isLoading());
    const auto *list = child<AttentionList>(m_tabs.get(), "attention");
    const auto stock = [list] {
        return !list->findItems("! 2 – Від'ємні залишки", Qt::MatchExactly).isEmpty();
    };
    QVERIFY(!stock());
    report.cancel();
    QTRY_VERIFY(stock());
}

void TstQOverview::failureKeepsWhatWasShown()
{
    m_place->base.exec("RENAME TABLE z_zvit TO z_zvit_away");
    refresh();
    QVERIFY(m_place->base.heard.has("Помилка запиту:", 1));
    // A minute later nobody wants to hear it again.
    m_place->base.heard.forget();
    m_page->refresh();
    QTRY_VERIFY(!m_page->isLoading());
    QVERIFY(m_place->base.heard.texts(4).isEmpty());
    refresh();
    QVERIFY(m_place->base.heard.has("Помилка запиту:", 1));
    m_place->base.exec("RENAME TABLE z_zvit_away TO z_zvit");
    QVERIFY2(text("labelState").contains("Не вдалося прочитати"), qPrintable(text("labelState")));
    QCOMPARE(tree()->model()->rowCount(), 2);
    refresh();
    QVERIFY2(text("labelState").contains("Прочитано о"), qPrintable(text("labelState")));
}

void TstQOverview::rightsDecideWhatIsShown()
{
    QVERIFY(tree()->isColumnHidden(OverviewModel::LastReceipt));
    QVERIFY(child<QLabel>(m_tabs.get(), "labelTuning")->isVisible());
    m_place->logIn(Permission::ZReports, Permission::Denied);
    open();
    for (int column = OverviewModel::Turnover; column < OverviewModel::ColumnCount; ++column)
        QVERIFY(tree()->isColumnHidden(column));
    QVERIFY(!tree()->isColumnHidden(OverviewModel::Line));
    QVERIFY(!child<TurnoverChart>(m_tabs.get(), "chart")->isVisible());
    QVERIFY2(!text("labelSums").contains("570") && text("labelSums").contains(">1 з 3<"),
             qPrintable(text("labelSums")));
    // From cell to cell past the hidden ones.
    goTo(1, -1, OverviewModel::Name);
    pressKeys({Qt::Key_Right, Qt::Key_Right});
    QCOMPARE(tree()->currentIndex().column(), int(OverviewModel::Line));
    m_place->logIn(Permission::ZReports);
    m_place->logIn(Permission::Online, Permission::Denied);
    open();
    QVERIFY(tree()->isColumnHidden(OverviewModel::Line) && !tree()->isColumnHidden(OverviewModel::Turnover));
    m_place->logIn(Permission::Online);
}

void TstQOverview::newChainShowsItsSteps()
{
    m_place->base.exec("DELETE FROM z_zvit");
    m_place->clear();
    m_place->logIn(Permission::Kassa, 2);
    open();
    const auto *steps = child<FirstStepsView>(m_tabs.get(), "steps");
    QVERIFY(steps->isVisible() && !tree()->isVisible());
    QVERIFY2(!child<QPushButton>(m_tabs.get(), "pbStep2")->isVisible(), "who only looks adds no register");
    QVERIFY(child<QLabel>(m_tabs.get(), "labelStepsRefusal")->isVisible());
    QStringList wanted;
    connect(m_page, &QOverview::stepWanted, this,
            [&](const QString &action, bool isAdding) { wanted.append(action + (isAdding ? "+" : "")); });
    for (const char *button : {"pbStep1", "pbStep3", "pbStep4", "pbStep5"})
        child<QPushButton>(m_tabs.get(), button)->click();
    QCOMPARE(wanted, (QStringList{"mt_shops+", "mt_goods+", "mt_goods", "man_saleadmiss"}));
    m_place->base.exec("INSERT INTO shops(id,address,group_shop) VALUES(1,'Львів',1)");
    // Whoever comes back from adding it finds it done.
    m_tabs->addTab(new QWidget, "інша");
    m_tabs->setCurrentIndex(1);
    m_tabs->setCurrentIndex(0);
    QTRY_VERIFY(text("labelStep1").startsWith("✓"));
    QVERIFY(text("labelStep2").startsWith("2."));
    m_place->logIn(Permission::Kassa);
}

QTEST_MAIN(TstQOverview)
#include "tst_qoverview.moc"
