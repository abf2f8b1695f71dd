#include "workplace.h"

#include "chekstreams.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabtransaction.h"
#include "qtabzzvit.h"
#include "rangeselector.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// What the registers wrote: the lines of the receipts and the shifts, of places, days and numbers, page by
/// page.
class TstQTabJournal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void linesSayWhatTheyAreOf();
    void taxesAreThoseOfTheShift();
    void pagesLoseNoLine_data();
    void pagesLoseNoLine();
    void pagesOfManyRegisters();
    void newestLinesStandFirst();
    void placesNarrowTheLines();
    void daysAreFoundWhereverTheyWereWritten();
    void numberFindsReceipts();
    void allLinesNeedAPlaceOrDays();
    void linesLeadToTheirReceipt();
    void failedSearchIsTold();
    void searchIsStopped();
    void leafingIsStopped();
    void lostRightsEmptyTheList();

    void shiftsShowTheirSums();
    void pagesLoseNoShift();
    void shiftsOfPlacesDaysAndNumbers();
    void shiftLeadsToItsReceipts();
    void nobodyEditsWhatRegistersWrote();

private:
    void sell(int shop, int kass, int shift, int chek, const QString &time, int lines = 2);
    template<typename Tab>
    Tab *open();
    void await();
    QStringList shown(const QVector<int> &columns);
    QStringList lines();
    QStringList leafThrough(const QVector<int> &columns);
    void choose(const char *box, const QString &text);
    void chooseDays(const QDate &first, const QDate &last);
    QPushButton *button(const char *name) { return child<QPushButton>(m_tab.get(), name); }

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabJournal> m_tab;
};

namespace {
enum LineColumn { Chek = 3, Position, Type, Subject, Count, Price, Sum, TaxName, Tax };
const QVector<int> lineKey = {1, Chek, Position};
} // namespace

void TstQTabJournal::init()
{
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM cheks", "DELETE FROM z_zvit", "DELETE FROM clients"});
    m_place->clear();
    m_base->exec(
        {"INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,1,0),"
         "(11,'Київ',3,1,1),(14,'Чужий',4,1,0)",
         "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(20,10,'Каса 1',0),(21,10,NULL,0),"
         "(22,11,'Каса 1',1),(23,14,'Чужа',0)",
         "INSERT INTO goods(id,name,tax,type,group_g) VALUES(7,'Молоко',1,1,1),(8,NULL,2,0,1)"});
}

void TstQTabJournal::cleanup()
{
    Db::setStatementRefusal(nullptr);
    m_tab.reset();
}

/// A receipt of so many goods and its payment, behind which a position stays free.
void TstQTabJournal::sell(int shop, int kass, int shift, int chek, const QString &time, int lines)
{
    QStringList rows;
    for (int i = 0; i <= lines; ++i)
        rows.append(QString("(%1,%2,%3,%4,%5,%6,7,%7)")
                        .arg(shop)
                        .arg(kass)
                        .arg(shift)
                        .arg(chek)
                        .arg(i < lines ? i : i + 1)
                        .arg(i < lines ? 1 : 3)
                        .arg(time));
    m_base->exec("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,"
                 "data_time) VALUES" +
                 rows.join(','));
}

template<typename Tab>
Tab *TstQTabJournal::open()
{
    const int permission = std::is_same_v<Tab, QTabZZvit> ? Permission::ZZvit : Permission::Transactions;
    m_place->logIn(permission);
    auto tab = std::make_unique<Tab>(m_place->connection(), m_place->user(), &m_base->heard,
                                     m_place->settings(), nullptr);
    Tab *opened = tab.get();
    m_tab = std::move(tab);
    m_tab->setPermission(permission);
    m_tab->list()->setHeading({"Назва"});
    m_tab->resize(1000, 500);
    showActive(m_tab.get());
    await();
    m_base->heard.forget();
    return opened;
}

void TstQTabJournal::await()
{
    waitOutTasks();
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the list did not come");
}

/// What the rows show, the cells of a row joined by "|".
QStringList TstQTabJournal::shown(const QVector<int> &columns)
{
    await();
    const QRowModel *model = m_tab->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(model->index(row, column).data().toString().replace(QChar(0xa0), ' '));
        rows.append(cells.join('|'));
    }
    return rows;
}

QStringList TstQTabJournal::lines()
{
    return shown(lineKey);
}

/// All rows from the first page to the last, and back to it.
QStringList TstQTabJournal::leafThrough(const QVector<int> &columns)
{
    const QStringList first = shown(columns);
    QStringList all = first;
    int pages = 1;
    for (; button("pbNext")->isEnabled() && pages < 200; ++pages) {
        button("pbNext")->click();
        all += shown(columns);
    }
    for (; button("pbPrevious")->isEnabled(); --pages) {
        button("pbPrevious")->click();
        await();
    }
    if (pages != 1 || shown(columns) != first)
        qFatal("another way back");
    return all;
}

void TstQTabJournal::choose(const char *box, const QString &text)
{
    await();
    enter(m_tab.get(), box, text);
    await();
}

void TstQTabJournal::chooseDays(const QDate &first, const QDate &last)
{
    child<RangeSelector>(m_tab.get(), "range")->setDays(first, last);
    child<QCheckBox>(m_tab.get(), "chDays")->setChecked(true);
    await();
}

void TstQTabJournal::linesSayWhatTheyAreOf()
{
    m_base->exec(
        {"INSERT IGNORE INTO procent(id,name) VALUES(1,'Без')",
         "INSERT INTO clients(id,id_procent,group_shop,name) VALUES(2200000012,1,1,'Марія В\\'юн')",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,name,count,"
         "price,summa,tax,dis_bon_bez2,data_time) VALUES"
         // Sold under a name that the item has no longer; an item without name; two that are gone.
         "(10,20,1,5,0,1,7,'Молоко 1 %',1250,10000,12500,1,0,20260301120000),"
         "(10,20,1,5,1,1,8,NULL,1000,1,1,2,0,20260301120000),"
         "(10,20,1,5,2,1,999,NULL,1000,100,100,NULL,0,20260301120000),"
         "(10,20,1,5,3,1,998,'Сіль',-1000,100,-100,9,0,20260301120000),"
         "(10,20,1,5,5,2,2200000012,'',0,350,150,0,0,20260301120000),"
         "(10,20,1,5,6,3,1,'',25,1000,12351,11000,326,20260301120000),"
         "(10,20,1,6,0,6,7,'Молоко',1250,10000,12500,1,0,20260301120100),"
         "(10,20,1,7,0,2,77,'',0,NULL,5,0,0,20260301120200),"
         "(10,20,1,8,0,4,1,'',0,0,50000,0,0,20260301120300),(10,20,1,9,0,5,55,'',0,0,2500000,0,0,"
         "20260301120400),"
         "(10,20,1,10,0,7,7,'Молоко',2500,1,0,5,0,20260301120500)",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,summa,data_time) "
         "VALUES(10,20,1,11,0,10,12345678,20260301120600)"});
    open<QTabTransaction>();
    QCOMPARE(shown({0, 1, 2, Chek, Position, Type, Subject, Count, Price, Sum, TaxName}),
             QStringList({"Львів|Каса 1|1|11|0|Z-Звіт||||123 456.78|",
                          "Львів|Каса 1|1|10|0|Прийом товару|Молоко|2.500|||",
                          "Львів|Каса 1|1|9|0|Службова видача|55|||25 000.00|",
                          "Львів|Каса 1|1|8|0|Службове внесення|Службове внесення|||500.00|",
                          "Львів|Каса 1|1|7|0|Знижка|77|||-0.05|",
                          "Львів|Каса 1|1|6|0|Повернення товару|Молоко|-1.250|100.00|-125.00|ПДВ А",
                          "Львів|Каса 1|1|5|0|Продаж товару|Молоко 1 %|1.250|100.00|125.00|ПДВ А",
                          "Львів|Каса 1|1|5|1|Продаж товару|8|1.000|0.01|0.01|ПДВ Б",
                          "Львів|Каса 1|1|5|2|Продаж товару|999|1.000|1.00|1.00|",
                          "Львів|Каса 1|1|5|3|Продаж товару|998 Сіль|-1.000|1.00|-1.00|9",
                          "Львів|Каса 1|1|5|5|Знижка|2200000012 Марія В'юн, 3.50 %|||-1.50|",
                          "Львів|Каса 1|1|5|6|Оплата|готівкою 10.00, карткою 110.00, сертифікатом 3.26, "
                          "інакше 0.25|||123.51|"}));
}

void TstQTabJournal::taxesAreThoseOfTheShift()
{
    m_base->exec(
        {"INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,"
         "DOD_D,data_time) VALUES(1,10,20,1800,0,2000,500,700,0,0,0,NULL,0,20260301200000)",
         "UPDATE tax SET pdv_proc=ELT(id,2000,2000,700,0,1400),dod_proc=NULL",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,summa,tax,"
         "data_time) VALUES(10,20,1,5,0,1,7,11800,1,20260301120000),(10,20,1,5,1,1,7,12500,2,20260301120000),"
         "(10,20,1,5,2,1,7,10707,3,20260301120000),(10,20,1,5,3,1,7,10000,4,20260301120000),"
         "(10,20,1,5,4,1,7,11400,5,20260301120000),(10,20,2,6,0,6,7,12000,1,20260302120000),"
         "(10,20,2,6,1,3,0,12000,1,20260302120000)"});
    open<QTabTransaction>();
    // 18 % of that shift, 20 % and 5 %, 7 % of 107.07, none; without one of its own 14 %. A return in a
    // shift that is not there: 20 %.
    QCOMPARE(shown({Chek, Position, Tax}), QStringList({"6|0|-20.00", "6|1|", "5|0|18.00", "5|1|25.00",
                                                        "5|2|7.00", "5|3|0.00", "5|4|14.00"}));
}

void TstQTabJournal::pagesLoseNoLine_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("hasDays");
    for (const int size : {1, 3, 7, 40})
        QTest::addRow("%d", size) << size << (size == 7);
}

/// Registers that sell at the same time, one that is not sold at any more, one that has moved, receipts under
/// dates of yesterday and without any.
void TstQTabJournal::pagesLoseNoLine()
{
    QFETCH(int, size);
    QFETCH(bool, hasDays);
    for (int i = 1; i <= 12; ++i) {
        sell(10, 20, 1 + i / 5, i, QString("202603011200%1").arg(i, 2, 10, QChar('0')), i % 4);
        sell(10, 21, 1, i, QString("202603011200%1").arg(i / 2, 2, 10, QChar('0')));
        sell(11, 22, 1, i, i % 5 == 0 ? "20260211080000" : QString("202603011159%1").arg(10 + i));
    }
    sell(11, 22, 2, 30, "NULL");
    sell(11, 20, 1, 3, "20250101100000");
    sell(14, 23, 1, 1, "20260301130000");
    open<QTabTransaction>();
    if (hasDays)
        chooseDays(QDate(2026, 2, 1), QDate(2026, 3, 31));
    child<QLineEdit>(m_tab.get(), "lePage")->setText(QString::number(size));
    button("pbLoad")->click();
    QStringList leafed = leafThrough({14, 15, Chek, Position});
    const QString days = hasDays ? " AND data_time>20260101000000" : "";
    QStringList all =
        m_base->rows("SELECT id_shop,id_kass,id_chek,id_position FROM cheks WHERE id_shop<>14" + days);
    // The order of the lines within a receipt starts anew on each page.
    leafed.sort();
    all.sort();
    QCOMPARE(leafed, all);
}

/// More registers than a page has lines, most of which have sold nothing on that day.
void TstQTabJournal::pagesOfManyRegisters()
{
    for (int kass = 100; kass < 130; ++kass) {
        m_base->exec(QString("INSERT INTO kassa(id,id_shop,block) VALUES(%1,10,0)").arg(kass));
        const QString day = kass % 3 == 0 ? "20260301" : kass % 3 == 1 ? "20260215" : "20260305";
        sell(10, kass, 1, 1,
             (kass % 2 ? "20260301" : "20260201") + QString("1000%1").arg(kass % 60, 2, 10, QChar('0')), 0);
        sell(10, kass, 1, 2, day + QString("1100%1").arg(kass % 60, 2, 10, QChar('0')), 0);
    }
    open<QTabTransaction>();
    child<QLineEdit>(m_tab.get(), "lePage")->setText("4");
    for (const bool hasDays : {true, false}) {
        const QString condition = hasDays ? "DATE(data_time)='2026-03-01'" : "1";
        QStringList expected = m_base->rows("SELECT id_kass,id_chek FROM cheks WHERE " + condition);
        if (hasDays)
            chooseDays(QDate(2026, 3, 1), QDate(2026, 3, 1));
        else
            child<QCheckBox>(m_tab.get(), "chDays")->setChecked(false);
        QStringList leafed = leafThrough({15, Chek});
        expected.sort();
        leafed.sort();
        QCOMPARE(leafed, expected);
    }
}

void TstQTabJournal::newestLinesStandFirst()
{
    for (int i = 1; i <= 9; ++i) {
        sell(10, 20, 1, i, QString("2026030112000%1").arg(i), 1);
        sell(11, 22, 1, 100 + i, QString("2026030112000%1").arg(i), 1);
    }
    // Entered today under the date of the day before.
    sell(10, 20, 1, 10, "20260228120000", 1);
    sell(10, 20, 1, 11, "20260301120010", 1);
    sell(10, 21, 1, 1, "20260301120007", 1);
    open<QTabTransaction>();
    child<QLineEdit>(m_tab.get(), "lePage")->setText("8");
    button("pbLoad")->click();
    QCOMPARE(lines(), QStringList({"Каса 1|11|0", "Каса 1|11|2", "Каса 1|10|0", "Каса 1|10|2", "Каса 1|9|0",
                                   "Каса 1|9|2", "Каса 1|109|0", "Каса 1|109|2"}));
    QVERIFY(
        child<QLabel>(m_tab.get(), "labelState")->text().endsWith("28-02-26 12:00:00 – 01-03-26 12:00:10"));
    // By the keyboard, which stays on the button.
    button("pbNext")->setFocus();
    pressKeys({Qt::Key_Space});
    QCOMPARE(lines(), QStringList({"Каса 1|8|0", "Каса 1|8|2", "Каса 1|108|0", "Каса 1|108|2", "Каса 1|7|0",
                                   "Каса 1|7|2", "№ 21|1|0", "№ 21|1|2"}));
    QVERIFY(button("pbNext")->hasFocus());
    QCOMPARE(child<QLabel>(m_tab.get(), "labelPage")->text(), QString("сторінка 2"));
    // Read again a page begins where it began; before the first one stands what is new, also of new
    // registers.
    const QStringList second = lines();
    m_base->exec("INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(24,11,'Нова',0)");
    sell(11, 24, 1, 1, "20260301130000", 0);
    m_tab->run(Command::Reload);
    QCOMPARE(lines(), second);
    button("pbPrevious")->click();
    await();
    m_tab->run(Command::Reload);
    QCOMPARE(lines().constFirst(), QString("Нова|1|1"));
}

void TstQTabJournal::placesNarrowTheLines()
{
    open<QTabTransaction>();
    QCOMPARE(m_tab->view()->emptyText(), QString("Немає записів"));
    sell(10, 20, 1, 1, "20260301120001", 0);
    sell(10, 21, 1, 1, "20260301120002", 0);
    sell(11, 22, 1, 1, "20260301120003", 0);
    // The register stood in the other shop before.
    sell(11, 20, 1, 9, "20260201120000", 0);
    sell(14, 23, 1, 1, "20260301120004", 0);
    open<QTabTransaction>();
    const QVector<int> place = {0, 1, Chek};
    const QStringList all = {"Київ|Каса 1|1", "Львів|№ 21|1", "Львів|Каса 1|1", "Київ|Каса 1|9"};
    QCOMPARE(shown(place), all);
    QCOMPARE(child<QComboBox>(m_tab.get(), "cbShop")->findText("Чужий"), -1);
    choose("cbGroup", "Захід");
    QCOMPARE(shown(place), all.mid(1, 2));
    choose("cbShop", "Львів");
    choose("cbRegister", "№ 21");
    QCOMPARE(shown(place), all.mid(1, 1));
    choose("cbGroup", "Схід");
    QCOMPARE(shown(place), QStringList({all.first(), all.last()}));
    choose("cbShop", "Київ");
    choose("cbRegister", "Каса 1");
    QCOMPARE(shown(place), all.mid(0, 1));
}

void TstQTabJournal::daysAreFoundWhereverTheyWereWritten()
{
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(1,10,20,20260201200000),"
                 // Its end was entered under a wrong date.
                 "(2,10,20,20260131200000),(3,10,20,0),(1,11,22,20260115200000)");
    sell(10, 20, 1, 1, "20260201120000", 0);
    sell(10, 20, 2, 3, "20260202120000", 0);
    sell(10, 20, 2, 4, "20260201130000", 0);
    sell(10, 20, 3, 6, "20260203120000", 0);
    sell(10, 20, 3, 7, "20260201140000", 0);
    // Nobody has written its shifts.
    sell(10, 21, 1, 1, "20260201150000", 0);
    sell(11, 22, 1, 1, "20260115120000", 0);
    m_base->exec("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,data_time) VALUES"
                 "(10,20,1,2,0,10,20260201200000),(10,20,2,5,0,10,20260131200000)");
    open<QTabTransaction>();
    QVERIFY(!child<RangeSelector>(m_tab.get(), "range")->isEnabled());
    chooseDays(QDate(2026, 2, 1), QDate(2026, 2, 1));
    QStringList found = shown({1, Chek});
    found.sort();
    QCOMPARE(found, QStringList({"Каса 1|1", "Каса 1|2", "Каса 1|4", "Каса 1|7", "№ 21|1"}));
    chooseDays(QDate(2026, 2, 2), QDate(2026, 2, 3));
    QCOMPARE(shown({1, Chek}), QStringList({"Каса 1|6", "Каса 1|3"}));
    chooseDays(QDate(2026, 2, 4), QDate(2026, 2, 4));
    QCOMPARE(shown({1, Chek}), QStringList());
    QCOMPARE(m_tab->view()->emptyText(), QString("За цими умовами нічого не знайдено."));
    chooseDays(QDate(2026, 2, 4), QDate(2026, 2, 3));
    QCOMPARE(m_tab->view()->emptyText(), QString("Початкова дата пізніша за кінцеву."));
    child<QCheckBox>(m_tab.get(), "chDays")->setChecked(false);
    QCOMPARE(lines().size(), 9);
}

void TstQTabJournal::numberFindsReceipts()
{
    sell(10, 20, 1, 12, "20260301120000", 1);
    sell(10, 20, 1, 120, "20260301120001", 1);
    sell(11, 22, 1, 12, "20260301120002", 0);
    open<QTabTransaction>();
    pressKeys({Qt::CTRL + Qt::Key_F});
    typeText("12");
    pressKeys({Qt::Key_Return});
    QCOMPARE(lines(), QStringList({"Каса 1|12|1", "Каса 1|12|0", "Каса 1|12|2"}));
    QVERIFY(m_tab->view()->hasFocus());
    pressKeys({Qt::CTRL + Qt::Key_F, Qt::Key_Escape});
    QCOMPARE(lines().size(), 5);
    // Typed while the registers are looked for.
    m_base->exec("LOCK TABLES cheks WRITE");
    button("pbLoad")->click();
    child<QLineEdit>(m_tab.get(), "leSearch")->setFocus();
    typeText("120");
    m_base->exec("UNLOCK TABLES");
    QCOMPARE(lines(), QStringList({"Каса 1|120|0", "Каса 1|120|2"}));
    pressKeys({Qt::Key_Escape});
    // More than any number of a receipt can be.
    typeText("9999999999");
    pressKeys({Qt::Key_Return});
    QCOMPARE(lines(), QStringList());
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstQTabJournal::allLinesNeedAPlaceOrDays()
{
    for (int i = 1; i <= 60; ++i)
        sell(10, 20, 1, i, "20260301120000", 1);
    open<QTabTransaction>();
    QCOMPARE(lines().size(), 100);
    child<QCheckBox>(m_tab.get(), "chAll")->setChecked(true);
    button("pbLoad")->click();
    QCOMPARE(lines(), QStringList());
    QCOMPARE(m_tab->view()->emptyText(),
             QString("Записів усієї мережі забагато для одного списку: виберіть магазин або дні."));
    QVERIFY(!button("pbNext")->isEnabled());
    choose("cbShop", "Львів");
    QCOMPARE(lines().size(), 120);
    QVERIFY(!button("pbNext")->isEnabled() && !button("pbPrevious")->isEnabled());
}

void TstQTabJournal::linesLeadToTheirReceipt()
{
    sell(10, 20, 4, 12, "20260301120000", 1);
    sell(10, 21, 5, 13, "20260301110000", 0);
    auto *tab = open<QTabTransaction>();
    QStringList wanted;
    connect(tab, &QTabJournal::cheksWanted, this, [&](const ChekOrigin &line) {
        wanted.append(
            QString("%1 %2 %3-%4 %5").arg(line.shop).arg(line.kass).arg(line.zFrom, line.zTo).arg(line.chek));
    });
    QNTableView *view = m_tab->view();
    const QPoint place = view->visualRect(view->model()->index(1, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
    pressKeys({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(wanted, QStringList({"10 20 4-4 12", "10 21 5-5 13"}));
}

void TstQTabJournal::failedSearchIsTold()
{
    sell(10, 20, 1, 1, "20260301120000", 0);
    open<QTabTransaction>();
    for (const char *table : {"shops", "kassa"}) {
        // The one is needed to find the registers, the other only for their lines.
        m_base->exec(QString("RENAME TABLE %1 TO gone").arg(table));
        button("pbLoad")->click();
        QCOMPARE(lines(), QStringList());
        m_base->exec(QString("RENAME TABLE gone TO %1").arg(table));
        QCOMPARE(m_tab->view()->emptyText(), QString("Список не прочитано: сервер відповів помилкою."));
        QCOMPARE(m_base->heard.texts().size(), 1);
        QVERIFY(m_base->heard.has("Помилка запиту:"));
        m_base->heard.forget();
        button("pbLoad")->click();
        QCOMPARE(lines().size(), 1);
    }
}

void TstQTabJournal::searchIsStopped()
{
    sell(10, 20, 1, 1, "20260301120000", 0);
    open<QTabTransaction>();
    const QStringList before = lines();
    // The registers are looked for as long as another program holds the table.
    m_base->exec("LOCK TABLES cheks WRITE");
    button("pbLoad")->click();
    QVERIFY(m_tab->isLoading());
    button("pbNext")->click();
    child<QCheckBox>(m_tab.get(), "chDays")->setChecked(true);
    button("pbStop")->click();
    QVERIFY(!m_tab->isLoading());
    m_base->exec("UNLOCK TABLES");
    QTest::qWait(50);
    QCOMPARE(lines(), before);
    QVERIFY(button("pbStop")->isHidden());
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Завантаження зупинено."));
}

/// The pages go on from the rows that stand in the list.
void TstQTabJournal::leafingIsStopped()
{
    m_base->exec(
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) SELECT seq,10,20,'2026-02-01'+INTERVAL "
        "seq DAY FROM seq_1_to_8");
    open<QTabZZvit>();
    child<QLineEdit>(m_tab.get(), "lePage")->setText("2");
    button("pbLoad")->click();
    await();
    button("pbNext")->click();
    QCOMPARE(shown({0}), QStringList({"6", "5"}));
    const auto stop = [this](const std::function<void()> &load) {
        m_base->exec("LOCK TABLES z_zvit WRITE");
        load();
        button("pbStop")->click();
        m_base->exec("UNLOCK TABLES");
    };
    stop([this] { button("pbPrevious")->click(); });
    QCOMPARE(child<QLabel>(m_tab.get(), "labelPage")->text(), QString("сторінка 2"));
    stop([this] { button("pbNext")->click(); });
    button("pbNext")->click();
    QCOMPARE(shown({0}), QStringList({"4", "3"}));
    button("pbPrevious")->click();
    QCOMPARE(shown({0}), QStringList({"6", "5"}));
    // Rows of another search have no next ones.
    stop([this] { m_tab->seerch("1"); });
    QVERIFY(!button("pbNext")->isEnabled() && !button("pbPrevious")->isEnabled());
    m_tab->run(Command::Reload);
    QCOMPARE(shown({0}), QStringList("1"));
}

void TstQTabJournal::lostRightsEmptyTheList()
{
    sell(10, 20, 1, 1, "20260301120000", 0);
    sell(11, 22, 1, 1, "20260301120001", 0);
    open<QTabTransaction>();
    choose("cbShop", "Львів");
    QCOMPARE(lines(), QStringList("Каса 1|1|1"));
    m_base->exec("DELETE FROM lst_group WHERE id_g_prem=1 AND id_group=2");
    QVERIFY(m_place->user()->reload(m_place->connection()));
    QCOMPARE(shown({0}), QStringList("Київ"));
    m_base->exec("DELETE FROM lst_group WHERE id_g_prem=1");
    QVERIFY(m_place->user()->reload(m_place->connection()));
    QCOMPARE(shown({0}), QStringList());
    QCOMPARE(m_tab->view()->emptyText(),
             QString("Спершу додайте групу магазинів і дозвольте її у правах користувача."));
}

void TstQTabJournal::shiftsShowTheirSums()
{
    m_base->exec(
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,cash,beznal_1,beznal_2,beznal_3,Oborot_A,Oborot_B,Oborot_V,"
        "Oborot_G,Oborot_D,count_cheks,count_cheks_ret,count_chek_diskount,count_position_canc,"
        "count_chek_canc,summ_diskount,vnesenia,viluchenia,data_time) VALUES"
        "(7,10,20,123456,20000,3000,400,100000,20000,3000,400,50,12,1,2,3,4,450,50000,123456,20260301201500),"
        // Its discount is greater than what has a tax group.
        "(8,10,20,0,0,0,0,100,NULL,NULL,0,0,NULL,0,0,0,0,400,0,0,0),"
        "(3,11,22,0,0,0,0,4294967295,4294967295,0,0,0,0,0,0,0,0,0,0,0,NULL),"
        "(9,14,23,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,20260302201500)");
    open<QTabZZvit>();
    QStringList captions;
    for (int column = 0; column < 17; ++column)
        captions.append(m_tab->model()->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(captions.join('|'),
             QString("Звіт №|Магазин|Каса|Оборот|Готівкою|Безготівка1|Безготівка2|Безготівка3|Чеків|Чеків "
                     "повернення|Чеків зі знижкою|Позицій анульовано|Чеків анульовано|Сума знижки|Внесення|"
                     "Вилучення|Дата та час"));
    QCOMPARE(
        shown({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}),
        QStringList({"8|Львів|Каса 1|-3.00|0.00|0.00|0.00|0.00||0|0|0|0|4.00|0.00|0.00|відкрита",
                     "7|Львів|Каса 1|1 230.00|1 234.56|200.00|30.00|4.00|12|1|2|3|4|4.50|500.00|1 234.56|"
                     "01-03-26 20:15:00",
                     "3|Київ|Каса 1|85 899 345.90|0.00|0.00|0.00|0.00|0|0|0|0|0|0.00|0.00|0.00|"}));
}

void TstQTabJournal::pagesLoseNoShift()
{
    QStringList rows;
    for (int i = 1; i <= 30; ++i) {
        for (const char *place : {"10,20", "10,21", "11,22", "14,23"})
            rows.append(QString("(%1,%2,%3)")
                            .arg(i)
                            .arg(place)
                            .arg(i % 15 == 0 ? "0"
                                 : i == 7
                                     ? "NULL"
                                     : QString("202602%1").arg(1 + i % 9, 2, 10, QChar('0')) + "200000"));
    }
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES" + rows.join(','));
    open<QTabZZvit>();
    child<QLineEdit>(m_tab.get(), "lePage")->setText("7");
    button("pbLoad")->click();
    // The open ones first, those without a time last.
    QCOMPARE(leafThrough({0, 17, 18}),
             m_base->rows("SELECT id_zzvit,id_shop,id_kass FROM z_zvit WHERE id_shop<>14 ORDER BY "
                          "IFNULL(data_time=0,0) DESC,data_time DESC,id_kass,id_zzvit DESC"));
    // Sorted by something else the next page begins behind the same shift.
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QStringList leafed = leafThrough({0, 17, 18});
    leafed.removeDuplicates();
    QCOMPARE(leafed.size(), 90);
    // It is remembered for the next one.
    m_tab->view()->sortByColumn(-1, Qt::AscendingOrder);
}

void TstQTabJournal::shiftsOfPlacesDaysAndNumbers()
{
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(1,10,20,20260201235959),"
                 "(2,10,20,20260202000000),(3,10,20,0),(1,11,22,20260201100000)");
    open<QTabZZvit>();
    const QVector<int> key = {0, 1};
    chooseDays(QDate(2026, 2, 1), QDate(2026, 2, 1));
    QCOMPARE(shown(key), QStringList({"1|Львів", "1|Київ"}));
    child<QCheckBox>(m_tab.get(), "chDays")->setChecked(false);
    QCOMPARE(shown(key), QStringList({"3|Львів", "2|Львів", "1|Львів", "1|Київ"}));
    choose("cbShop", "Київ");
    QCOMPARE(shown(key), QStringList("1|Київ"));
    choose("cbShop", "Усі магазини");
    child<QLineEdit>(m_tab.get(), "leSearch")->setFocus();
    typeText("2");
    QCOMPARE(shown(key), QStringList("2|Львів"));
    QCOMPARE(m_tab->list()->heading(), QStringList({"Назва", "усі магазини", "№ 2"}));
    child<QLineEdit>(m_tab.get(), "leSearch")->clear();
    chooseDays(QDate(2026, 2, 2), QDate::currentDate());
    QCOMPARE(shown(key), QStringList({"3|Львів", "2|Львів"}));
}

void TstQTabJournal::shiftLeadsToItsReceipts()
{
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(5,10,21,20260201235959)");
    auto *tab = open<QTabZZvit>();
    QStringList wanted;
    connect(tab, &QTabJournal::cheksWanted, this, [&](const ChekOrigin &line) {
        wanted.append(
            QString("%1 %2 %3-%4 %5").arg(line.shop).arg(line.kass).arg(line.zFrom, line.zTo).arg(line.chek));
    });
    m_tab->list()->enter();
    pressKeys({Qt::Key_Return});
    QCOMPARE(wanted, QStringList("10 21 5-5 0"));
}

void TstQTabJournal::nobodyEditsWhatRegistersWrote()
{
    sell(10, 20, 1, 1, "20260301120000", 0);
    auto *tab = open<QTabTransaction>();
    bool isLed = false;
    connect(tab, &QTabJournal::cheksWanted, this, [&isLed] { isLed = true; });
    m_tab->list()->enter();
    for (const Command command : {Command::Add, Command::Edit}) {
        QVERIFY(m_tab->commands().value(command).contains("не додають"));
        m_tab->run(command);
    }
    QVERIFY(!isLed);
    QCOMPARE(answerQuestion([this] { m_tab->run(Command::Delete); }), QString("Видалення заборонене!!!"));
    QCOMPARE(m_tab->commands().value(Command::Export, "немає"), QString());
    QCOMPARE(lines().size(), 1);
}

QTEST_MAIN(TstQTabJournal)
#include "tst_qtabjournal.moc"
