#include "workplace.h"

#include "attention.h"
#include "destination.h"
#include "listpane.h"
#include "money.h"
#include "overviewmodel.h"
#include "pages.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qoverview.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "qzreport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeView>

/// Pages that other pages lead to, with a record or a few of them.
class TstDestination : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void onlyWhatIsWantedIsShown_data();
    void onlyWhatIsWantedIsShown();
    void filterOfBeforeHidesNothing();
    void menuShowsEverythingAgain();
    void rightsStillCount();
    void reportsLoadTheirPlace();
    void overviewCountsWhatItLeadsTo();
    void overviewAddsUpWhatItLeadsTo();

private:
    QTab *go(const Destination &destination);
    QStringList column(const QTab *tab, int number) const;

    Workplace m_place;
    std::unique_ptr<QTabWidget> m_tabs;
    Heard m_heard;
    std::unique_ptr<Pages> m_pages;
};

void TstDestination::initTestCase()
{
    m_place.base.exec(QStringList{
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'Львів','А',1,0),(2,'Луцьк','Б',2,0),"
        "(3,'Одеса','В',4,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'Каса 1',0),(2,2,'Каса 1',0),"
        "(3,3,'Каса 1',0)",
        "INSERT INTO goods(id,name,price,type,group_g,tax,id_rules_goods,block) VALUES(1,'Сир',0,1,1,1,1,0),"
        "(2,'Сир \"Львівський\"',900,1,1,1,1,0),(12,'Хліб',NULL,1,1,1,1,0)",
        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(1,'1111111111116'),(1,'2222222222222'),(2,'33333333')",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) VALUES(1,1,-500,0),(2,1,5,0),"
        "(3,1,-1,0)",
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Старт',0,0,0,0)",
        "INSERT INTO clients(id,id_procent,group_shop,name) VALUES(7,1,1,'Олена'),(77,1,1,'Олег')",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,Oborot_A,data_time) VALUES"
        "(4,1,1,1,100,'2026-03-01 20:00:00'),(5,1,1,1,200,0),(4,2,2,1,300,'2026-03-02 20:00:00'),"
        "(1,3,3,1,400,0)"});
}

void TstDestination::init()
{
    m_tabs = std::make_unique<QTabWidget>();
    m_pages = std::make_unique<Pages>(m_tabs.get(), m_place.connection(), m_place.settings(), m_place.user(),
                                      &m_heard);
    QVERIFY(showActive(m_tabs.get()));
}

void TstDestination::cleanup()
{
    waitOutTasks();
    m_pages.reset();
    m_tabs.reset();
    QVERIFY2(m_heard.texts().isEmpty(), qPrintable(m_heard.texts().join('\n')));
}

QTab *TstDestination::go(const Destination &destination)
{
    m_pages->go(destination);
    auto *tab = qobject_cast<QTab *>(m_tabs->currentWidget());
    waitOutTasks();
    const bool isShown = tab != nullptr && QTest::qWaitFor([tab] { return !tab->isLoading(); });
    return isShown ? tab : nullptr;
}

QStringList TstDestination::column(const QTab *tab, int number) const
{
    QStringList cells;
    for (int row = 0; row < tab->model()->rowCount(); ++row)
        cells.append(tab->model()->stored(row, number));
    return cells;
}

void TstDestination::onlyWhatIsWantedIsShown_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<int>("all");

    const auto row = [](const char *action, const char *condition, const QStringList &first, int all) {
        QTest::newRow(action) << QString(action) << QString(condition) << first << all;
    };
    row("mt_goods", "IFNULL(goods.price,0)=0", {"1", "1", "12"}, 4);
    row("mt_shops", "shops.id=1", {"1"}, 1);
    row("mt_kass", "kassa.id=2 OR kassa.id=3", {"2"}, 2);
    row("mt_goods_shops", "goods_shop.count_showroom<0 OR goods_shop.count_syllable<0", {"Львів"}, 2);
    row("mt_clients", "clients.id=7", {"7"}, 2);
    row("mt_z_zvits", "z_zvit.data_time=0", {"5"}, 3);
    row("mt_tax", "tax.id=3", {"3"}, 5);
    row("mc_users", "users.id=1", {"1"}, 1);
    row("mt_diskount", "procent.id=99", {}, 1);
    row("mt_group_shops", "group_shop.id=2", {"2"}, 4);
}

void TstDestination::onlyWhatIsWantedIsShown()
{
    QFETCH(QString, action);
    QFETCH(QString, condition);
    QFETCH(QStringList, first);
    QFETCH(int, all);

    Destination there;
    there.action = action;
    there.condition = condition;
    there.words = "те, що треба";
    QTab *tab = go(there);
    QVERIFY(tab != nullptr);
    QCOMPARE(column(tab, 0), first);
    QVERIFY(child<QLabel>(tab, "labelNarrowed")->isVisible());
    QVERIFY(child<QLabel>(tab, "labelNarrowed")->text().contains("те, що треба"));
    QVERIFY(tab->list()->heading().contains("те, що треба"));
    QCOMPARE(tab->view()->currentIndex().row(), first.isEmpty() ? -1 : 0);

    QTest::mouseClick(child<QPushButton>(tab, "pbShowAll"), Qt::LeftButton);
    QTRY_VERIFY(!tab->isLoading());
    QVERIFY(!child<QLabel>(tab, "labelNarrowed")->isVisible());
    QVERIFY(!tab->list()->heading().contains("те, що треба"));
    QTRY_COMPARE(tab->model()->rowCount(), all);
}

void TstDestination::filterOfBeforeHidesNothing()
{
    QTab *tab = go({"mt_goods", {}, {}, {}, 0});
    child<QLineEdit>(tab, "leSearch")->setFocus();
    typeText("хліб");
    QTRY_COMPARE(tab->model()->rowCount(), 1);
    tab = go({"mt_goods", "goods.id=2", "товар 2", {}, 0});
    QCOMPARE(column(tab, 0), QStringList{"2"});
    QVERIFY(child<QLineEdit>(tab, "leSearch")->text().isEmpty());
    // A search goes on in what is shown.
    child<QLineEdit>(tab, "leSearch")->setFocus();
    typeText("хліб");
    QTRY_COMPARE(tab->model()->rowCount(), 0);
}

void TstDestination::menuShowsEverythingAgain()
{
    QTab *tab = go({"mt_goods", "goods.id=2", "товар 2", {}, 0});
    QCOMPARE(tab->model()->rowCount(), 1);
    m_pages->open("mt_goods");
    QTRY_COMPARE(tab->model()->rowCount(), 4);
    tab = go({"mt_kass", "kassa.id=2", "каса", {}, 0});
    QCOMPARE(column(tab, 0), QStringList{"2"});
    m_pages->open("mt_kass");
    QTRY_COMPARE(tab->model()->rowCount(), 2);
}

void TstDestination::rightsStillCount()
{
    QTab *tab = go({"mt_kass", "kassa.id=3", "чужа каса", {}, 0});
    QCOMPARE(tab->model()->rowCount(), 0);
}

void TstDestination::reportsLoadTheirPlace()
{
    Destination day;
    day.action = "mz_zzvit";
    day.origin.firstDay = day.origin.lastDay = QDate(2026, 3, 2);
    m_pages->go(day);
    auto *reports = qobject_cast<QZReport *>(m_tabs->currentWidget());
    QVERIFY(reports != nullptr);
    QTRY_COMPARE(reports->model()->rowCount(), 1);
    QCOMPARE(reports->model()->stored(0, 1), QString("Луцьк"));

    Destination shift;
    shift.action = "mz_zzvit";
    shift.origin.shop = 1;
    shift.origin.kass = 1;
    shift.origin.zFrom = shift.origin.zTo = "4";
    m_pages->go(shift);
    QTRY_VERIFY(reports->model()->rowCount() == 1 && reports->model()->stored(0, 1) == "Львів");
}

/// Each number of what needs a hand is that of the records in the list behind it.
void TstDestination::overviewCountsWhatItLeadsTo()
{
    const QString today = QDate::currentDate().toString("yyyy-MM-dd");
    m_place.base.exec(QStringList{
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,Oborot_A,cash,data_time) VALUES"
        "(50,1,1,1,100,99,'" +
            today + " 00:00:01'),(50,2,2,1,100,100,'" + today +
            " 00:00:01'),"
            "(51,2,2,1,100,0,'" +
            today + " 00:00:02'),(50,3,3,1,100,99,'" + today + " 00:00:01')",
        "INSERT INTO onoffline(id_shop,id_kass,onoff,dt_start) VALUES(1,1,0,'2026-01-01 00:00:00'),"
        "(2,2,1,'2026-01-01 00:00:00'),(3,3,0,'2026-01-01 00:00:00')",
        "INSERT INTO action(id,name,id_type_action,datetime_start,datetime_end) VALUES(9,'Остання',2,"
        "'2026-01-01 00:00:00','" +
            today + " 23:59:59')",
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(8,'Закрита',0,0,0,1)",
        "INSERT INTO clients(id,id_procent,group_shop) VALUES(80,8,1),(81,8,4)"});
    auto *overview = qobject_cast<QOverview *>(m_pages->open("mz_overview"));
    QTRY_VERIFY(!overview->isLoading());
    auto *attention = child<AttentionList>(overview, "attention");
    QStringList counts;
    for (int row = 0; row < attention->count(); ++row) {
        const QString text = attention->item(row)->text();
        m_tabs->setCurrentWidget(overview);
        attention->setFocus();
        attention->setCurrentRow(row);
        pressKeys({Qt::Key_Return});
        waitOutTasks();
        auto *tab = qobject_cast<QTab *>(m_tabs->currentWidget());
        counts.append(text.section(' ', 1, 1));
        if (counts.last() == "0") {
            QVERIFY2(tab == nullptr, qPrintable(text));
            continue;
        }
        QVERIFY2(tab != nullptr, qPrintable(text));
        QTRY_VERIFY(!tab->isLoading());
        QStringList records = column(tab, 0);
        // An item has a row for each of its barcodes.
        if (tab->tableName() == "goods")
            records.removeDuplicates();
        QCOMPARE(QString::number(records.size()), counts.last());
    }
    // The shop of another group counts nowhere, but in the cards, which are of the whole chain.
    QCOMPARE(counts, (QStringList{"1", "1", "2", "1", "1", "2", "2"}));
}

void TstDestination::overviewAddsUpWhatItLeadsTo()
{
    m_place.base.exec(
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,Oborot_A,summ_diskount,data_time) VALUES"
        "(6,1,1,1,70000,50,0)");
    auto *overview = qobject_cast<QOverview *>(m_pages->open("mz_overview"));
    QTRY_VERIFY(!overview->isLoading());
    auto *tree = child<QTreeView>(overview, "tree");
    const QModelIndex cell = tree->model()->index(1, OverviewModel::Turnover);
    QCOMPARE(cell.siblingAtColumn(0).data().toString(), QString("Львів"));
    QCOMPARE(cell.data().toString(), moneyShown(70150));
    tree->setFocus();
    tree->setCurrentIndex(cell);
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    auto *shifts = qobject_cast<QTab *>(m_tabs->currentWidget());
    QVERIFY(shifts != nullptr);
    QTRY_VERIFY(!shifts->isLoading());
    QCOMPARE(column(shifts, 3), (QStringList{"69950", "200"}));
    // And back: to the same cell.
    m_tabs->setCurrentWidget(overview);
    QCOMPARE(tree->currentIndex(), cell);
    m_place.base.exec("DELETE FROM z_zvit WHERE id_zzvit=6");
}

QTEST_MAIN(TstDestination)
#include "tst_destination.moc"
