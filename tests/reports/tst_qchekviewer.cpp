#include "testing.h"

#include "cheklist.h"
#include "chekwriter.h"
#include "placeselector.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qreports.h"
#include "qrowmodel.h"
#include "rangeselector.h"
#include "saleclock.h"
#include "signs.h"
#include "slipprint.h"
#include "waitchosen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <ctime>

/// The receipt viewer over receipts of a few registers.
class TstQChekViewer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void dayOfAllShops();
    void receiptsOfSeveralRows();
    void selectedLineShowsItsSlip();
    void receiptsBehindAnArticle();
    void timesAreThoseOfTheDatabase();
    void rightsAreAskedOnce();
    void slipAfterASale();
    void placesAndRanges();
    void placesOffered();
    void receiptsBehindAZReport();
    void slipsOfEachKind();
    void sumsThatDoNotAgreeAreRed();
    void slipOnPaper();
    void failuresLeaveWhatIsShown();

private:
    QChekViewer &viewer() { return *m_viewer; }
    void load();
    void showDay(int day);
    /// The listed rows: number, register, type and amount as shown.
    QStringList listed();
    /// The same out of the table.
    QStringList stored(const QString &condition);
    qint64 storedSum(const QString &condition);
    QStringList items(const char *box) { return itemsOf(child<QComboBox>(m_viewer.get(), box)); }
    static QStringList itemsOf(const QComboBox *box);
    void open(int row);
    /// The slip once it has been read, without the empty cells of its tables.
    QString page()
    {
        waitOutTasks();
        return child<QTextBrowser>(m_viewer.get(), "tbSlip")
            ->toPlainText()
            .split('\n', Qt::SkipEmptyParts)
            .join('\n');
    }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QChekViewer> m_viewer;
};

namespace {
const QString people = "O'Neil \\ <b>%";

ReceiptRow goods(quint32 id, qint64 quantity, qint64 price, int type)
{
    ReceiptRow row;
    row.idGoods = id;
    row.quantity = quantity;
    row.price = price;
    row.type = type;
    row.tax = 1;
    row.isDisk = 1;
    return row;
}

/// Sells as the program does.
void sell(FreshDatabase *base, const ChekPlace &place, const QString &time, const QVector<ReceiptRow> &rows,
          ChekPayment payment)
{
    Receipt receipt;
    for (const ReceiptRow &row : rows)
        receipt.add(row);
    receipt.setDiscount(payment.discount);
    payment.toPay = receipt.toPay();
    SaleClock::setSource([time] { return QDateTime::fromString(time, "yyyyMMddhhmmss"); });
    const auto result = ChekWriter(base->db(), place).write(receipt, payment);
    if (result.outcome != ChekWriter::Written)
        qFatal("No sale: %s", qPrintable(base->heard.texts().join('|')));
}

/// What the sale tab does not write. Shop, register, Z number, number and time, then rows of: type, position,
/// code, name, count, price, sum, tax, certificate, kind of goods.
void write(FreshDatabase *base, const QString &document, const QStringList &rows)
{
    for (const QString &row : rows)
        base->exec("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,data_time,id_user,id_type,id_position,"
                   "id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,type) VALUES(" +
                   document + ",1," + row + ")");
}

void fillPlaces(FreshDatabase *base)
{
    base->exec({"INSERT INTO group_shop(id,name) VALUES(2,'Місто'),(3,'Чужа')",
                "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)",
                "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Перша',2,0),(2,'Спільна',1,0),(3," +
                    lit(people) + ",3,0),(4,'Зачинена',2,1)",
                "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'К1',0),(2,1," + lit(people) +
                    ",0),(3,2,'К3',0),(4,3,'К4',0),(5,4,'К5',1),(6,1,'К6',1)"});
    base->exec("INSERT INTO goods(id,name,price,type) VALUES(10,'<i>Хліб</i>',5000,1),(11,'Сир',8000,0),"
               "(12,'Пакет',1230,1)");
}

void fillCheks(FreshDatabase *base)
{
    // A sale with a discount, paid in three ways, at the first second of the day.
    sell(base, {"1", "1", "1"}, "20260301000000", {goods(10, 2000, 5000, 1), goods(11, 250, 8000, 0)},
         {600, 0, 6400, 4000, 1000});
    // The same number at other registers, at the last second and at noon.
    sell(base, {"1", "2", "1"}, "20260301235959", {goods(12, 1000, 1230, 1)}, {0, 0, 1230, 0, 0});
    sell(base, {"2", "3", "1"}, "20260301130000", {goods(12, 3000, 1230, 1)}, {0, 0, 0, 3690, 0});
    sell(base, {"3", "4", "1"}, "20260301130000", {goods(12, 1000, 1230, 1)}, {0, 0, 1230, 0, 0});
    write(base, "1,1,1,2,20260301120000", {"6,0,10,'Хліб',1000,5000,5000,1,0,1"});
    write(base, "1,1,1,3,20260301120001", {"4,0,1,'Розмін',0,0,30000,0,0,0"});
    write(base, "1,1,1,4,20260301120002", {"5,0,2,'Інкасація',0,0,40000,0,0,0"});
    write(base, "1,1,1,5,20260301120003",
          {"7,0,10,'Хліб',3000,5000,15000,1,0,1", "7,1,11,'Сир',500,8000,4000,2,0,0"});
    write(base, "1,1,1,6,20260301120004", {"8,0,11,'Сир',2500,8000,20000,2,0,0"});
    base->exec(
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,data_time)"
        "VALUES(1,1,1,7,0,1,10,11400,20260301210000)");
    // The days around, the other shops.
    write(base, "1,1,1,8,20260228235959", {"3,2,0,'',0,100,100,0,0,0"});
    write(base, "1,1,2,9,20260302000000", {"3,2,0,'',0,100,100,0,0,0"});
    write(base, "4,5,7,1,20260301130000",
          {"1,0,12,'Пакет',1000,1230,1230,1,0,1", "3,2,0,'',0,1230,1230,0,0,0"});
    write(base, "2,6,4,1,20260305130000",
          {"1,0,12,'Пакет',1000,1230,1230,1,0,1", "3,2,0,'',0,1230,1230,0,0,0"});
}

ChekOrigin lineOf(uint shop, uint kass, const QString &zFrom, const QString &zTo)
{
    ChekOrigin line;
    line.shop = shop;
    line.kass = kass;
    line.zFrom = zFrom;
    line.zTo = zTo;
    return line;
}
} // namespace

void TstQChekViewer::initTestCase()
{
    qputenv("TZ", "Europe/Kyiv");
    tzset();
    m_base = std::make_unique<FreshDatabase>();
    fillPlaces(m_base.get());
    fillCheks(m_base.get());
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
}

void TstQChekViewer::cleanupTestCase()
{
    m_viewer.reset();
    m_user.reset();
    m_base.reset();
}

void TstQChekViewer::init()
{
    m_base->heard.forget();
    m_viewer = std::make_unique<QChekViewer>(m_base->connection(), m_user.get(), &m_base->heard, nullptr);
    waitChosen(m_viewer.get());
}

void TstQChekViewer::cleanup()
{
    m_viewer.reset();
}

void TstQChekViewer::load()
{
    QSignalSpy loaded(m_viewer.get(), &ReportWindow::loaded);
    child<QPushButton>(m_viewer.get(), "pbLoad")->click();
    QVERIFY(loaded.wait());
}

void TstQChekViewer::showDay(int day)
{
    child<RangeSelector>(m_viewer.get(), "range")->setDays(QDate(2026, 3, day), QDate(2026, 3, day));
    load();
}

QStringList TstQChekViewer::listed()
{
    QStringList rows;
    const QRowModel *model = viewer().model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (const int column : {ChekList::Register, ChekList::Number, ChekList::Type, ChekList::Amount})
            cells.append(model->index(row, column).data(Qt::EditRole).toString());
        rows.append(cells.join('|'));
    }
    rows.sort();
    return rows;
}

QStringList TstQChekViewer::stored(const QString &condition)
{
    QStringList rows = m_base->rows(
        "SELECT id_kass,id_chek,id_type,IF(id_type IN (7,8),CONCAT(CAST(SUM(count)/1000 AS DECIMAL(12,3))),"
        "CONCAT(CAST(SUM(summa)/100 AS DECIMAL(12,2)))) FROM cheks WHERE id_type>2 AND " +
        condition + " GROUP BY id_shop,id_kass,id_chek,id_type");
    rows.sort();
    return rows;
}

qint64 TstQChekViewer::storedSum(const QString &condition)
{
    return m_base
        ->value("SELECT IFNULL(SUM(CASE id_type WHEN 1 THEN summa WHEN 2 THEN -summa WHEN 6 THEN -summa "
                "ELSE 0 END),0) FROM cheks WHERE " +
                condition)
        .toLongLong();
}

QStringList TstQChekViewer::itemsOf(const QComboBox *box)
{
    QStringList texts;
    for (int i = 1; i < box->count(); ++i)
        texts.append(box->itemText(i));
    texts.sort();
    return texts;
}

void TstQChekViewer::open(int row)
{
    emit viewer().view()->doubleClicked(viewer().model()->index(row, 0));
}

void TstQChekViewer::dayOfAllShops()
{
    showDay(1);
    const QString day = "DATE(data_time)='2026-03-01'";
    // Without a choice the shop groups that the user may see; shop 3 is of another one.
    QCOMPARE(listed(), stored(day + " AND id_shop<>3"));
    QCOMPARE(viewer().sum(), storedSum(day + " AND id_shop<>3"));
    QCOMPARE(viewer().sum(), 11400LL + 1230 - 5000 + 3690 + 1230);
    QCOMPARE(child<QLabel>(m_viewer.get(), "labelSum")->text(), QString("Сума по чеках: 125.50"));
    QCOMPARE(viewer().heading(), QStringList({"Чеки", "усі магазини", "01.03.2026"}));
    const QStringList rows = listed();
    // Two registers with the same number; a movement of 2.5 kg; both ends of the day.
    QVERIFY(rows.contains("1|1|3|114.00") && rows.contains("2|1|3|12.30"));
    QVERIFY(rows.contains("1|6|8|2.500") && rows.contains("1|5|7|3.500"));
    // By value, whether money or quantity.
    viewer().model()->sort(ChekList::Amount);
    QCOMPARE(viewer().model()->index(0, ChekList::Amount).data().toString(), QString("2.500"));
    showDay(3);
    QCOMPARE(viewer().model()->rowCount(), 0);
    QCOMPARE(viewer().sum(), 0LL);
    // Who may see every group sees all.
    m_base->exec("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,3)");
    QVERIFY(m_user->reload(m_base->connection()));
    showDay(1);
    QCOMPARE(listed(), stored(day));
    m_base->exec("DELETE FROM lst_group WHERE id_group=3");
    QVERIFY(m_user->reload(m_base->connection()));
    // Whoever sees no group sees nothing, and what was shown goes at once.
    m_base->exec("DELETE FROM lst_group");
    QVERIFY(m_user->reload(m_base->connection()));
    QCOMPARE(viewer().model()->rowCount(), 0);
    QCOMPARE(child<QLabel>(m_viewer.get(), "labelSum")->text(), QString("Сума по чеках: 0.00"));
    showDay(1);
    m_base->exec("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,1),(1,2)");
    QVERIFY(m_user->reload(m_base->connection()));
    QCOMPARE(listed(), QStringList());
}

void TstQChekViewer::receiptsOfSeveralRows()
{
    // Day 4 at register 3: a return of two goods, one with its payment, two payments of a sale.
    write(m_base.get(), "2,3,2,20,20260304100000",
          {"6,0,10,'Хліб',1000,5000,5000,1,0,1", "6,1,12,'Пакет',1000,1230,1230,1,0,1"});
    write(m_base.get(), "2,3,2,21,20260304100001",
          {"6,0,12,'Пакет',2000,1230,2460,1,0,1", "3,2,0,'',0,2460,2460,0,0,0"});
    write(
        m_base.get(), "2,3,2,22,20260304100002",
        {"1,0,10,'Хліб',3000,5000,15000,1,0,1", "3,2,0,'',0,9000,9000,0,0,0", "3,3,0,'',0,0,6000,6000,0,0"});
    child<PlaceSelector>(m_viewer.get(), "place")->showShop("Спільна");
    const QStringList expected = {"3|20|6|62.30", "3|21|6|24.60", "3|22|3|150.00"};
    showDay(4);
    QCOMPARE(listed(), expected);
    QCOMPARE(viewer().sum(), 15000LL - 6230 - 2460);
    QCOMPARE(viewer().sum(), storedSum("DATE(data_time)='2026-03-04'"));
    m_base->exec("ALTER TABLE cheks ADD INDEX tune_data_time(data_time,id_type,id_kass,id_chek,id_zvit,summa,"
                 "count), ADD INDEX tune_kass_chek(id_kass,id_chek)");
    load();
    m_base->exec("ALTER TABLE cheks DROP INDEX tune_data_time, DROP INDEX tune_kass_chek");
    QCOMPARE(listed(), expected);
    QCOMPARE(viewer().sum(), 15000LL - 6230 - 2460);
    viewer().showChekOrZvit("3", "22", "3");
    QVERIFY2(page().contains("До сплати\n150.00") && page().contains("Готівка\n90.00") &&
                 page().contains("Картка\n60.00") && page().count("60.00") == 1,
             qPrintable(page()));
}

void TstQChekViewer::selectedLineShowsItsSlip()
{
    child<PlaceSelector>(m_viewer.get(), "place")->showShop("Перша");
    child<PlaceSelector>(m_viewer.get(), "place")->showRegister("К1");
    showDay(1);
    viewer().model()->sort(ChekList::Number);
    QCOMPARE(viewer().slip(), QString());
    auto *list = viewer().view();
    viewer().show();
    viewer().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&viewer()));
    list->setFocus();
    list->setCurrentIndex(viewer().model()->index(0, 0));
    QTRY_VERIFY2(page().contains("Чек №1\n"), qPrintable(page()));
    // Passed by quickly, only the last line counts; Enter does not wait.
    for (int row = 1; row < 3; ++row)
        QTest::keyClick(list, Qt::Key_Down);
    QTRY_VERIFY2(page().contains("Чек №3\n"), qPrintable(page()));
    list->setCurrentIndex(viewer().model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_Return);
    QVERIFY2(page().contains("Чек №1\n"), qPrintable(page()));
    showDay(3);
    QCOMPARE(page(), QString());
    QVERIFY(!child<QPushButton>(m_viewer.get(), "pbPrint")->isEnabled());
}

void TstQChekViewer::receiptsBehindAnArticle()
{
    // The name of the register is that of another one in the shop and of one elsewhere.
    m_base->exec("INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(8,1,'К1',0),(9,2,'К1',0)");
    for (const char *place : {"1,8", "2,9"})
        write(m_base.get(), place + QString(",1,1,20260301150000"),
              {"1,0,10,'Хліб',1000,5000,5000,1,0,1", "3,2,0,'',0,5000,5000,0,0,0"});
    write(m_base.get(), "1,1,1,30,20260302150000",
          {"1,0,10,'Хліб',1000,5000,5000,1,0,1", "3,2,0,'',0,5000,5000,0,0,0"});
    const auto behind = [this](const ChekOrigin &line) {
        QSignalSpy loaded(m_viewer.get(), &ReportWindow::loaded);
        viewer().showOrigin(line);
        [&] { QVERIFY(loaded.wait()); }();
        return listed();
    };
    ChekOrigin line = lineOf(1, 1, "1", "1");
    line.article = "10";
    line.articleName = "Хліб";
    QCOMPARE(behind(line), QStringList({"1|1|3|114.00", "1|30|3|50.00"}));
    QCOMPARE(viewer().view()->currentIndex().row(), 0);
    // One of them stands for all.
    line.chek = 30;
    behind(line);
    QCOMPARE(viewer().view()->currentIndex().row(), 1);
    line.firstDay = line.lastDay = QDate(2026, 3, 1);
    QCOMPARE(behind(line), QStringList({"1|1|3|114.00"}));
    QCOMPARE(viewer().heading().last(), QString("лише чеки з товаром 10 Хліб, продано 01.03.2026"));
    line.price = "4999";
    QCOMPARE(behind(line), QStringList());
    // Of a group those of its shops, not of group 1; reloading keeps to the line.
    line = lineOf(0, 0, "1", "1");
    line.group = 2;
    line.article = "10";
    QCOMPARE(behind(line), QStringList({"1|1|3|114.00", "1|30|3|50.00", "8|1|3|50.00"}));
    load();
    QCOMPARE(listed().size(), 3);
    // Another choice forgets it, and says so.
    child<PlaceSelector>(m_viewer.get(), "place")->showShop("Спільна");
    QVERIFY(child<QLabel>(m_viewer.get(), "labelOrigin")->isHidden());
    load();
    QCOMPARE(viewer().heading().size(), 3);
    QVERIFY(listed().contains("3|1|3|36.90"));
    m_base->exec(
        {"DELETE FROM cheks WHERE id_kass IN (8,9) OR id_chek=30", "DELETE FROM kassa WHERE id IN (8,9)"});
}

void TstQChekViewer::timesAreThoseOfTheDatabase()
{
    // In Kyiv summer time skips this hour.
    write(m_base.get(), "1,1,1,40,20260329033000", {"3,2,0,'',0,100,100,0,0,0"});
    child<RangeSelector>(m_viewer.get(), "range")->setDays(QDate(2026, 3, 29), QDate(2026, 3, 29));
    load();
    QCOMPARE(viewer().model()->index(0, ChekList::Time).data().toString(), QString("29-03-26 03:30:00"));
    viewer().showChekOrZvit("3", "40", "1");
    waitOutTasks();
    m_base->exec("DELETE FROM cheks WHERE id_chek=40");
    QVERIFY2(page().contains("29-03-2026") && page().contains("03:30:00"), qPrintable(page()));
}

void TstQChekViewer::rightsAreAskedOnce()
{
    QTabWidget tabs;
    QReports reports(&tabs, m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    m_base->exec("UPDATE lst_permis SET permission=0 WHERE id_prem IN (70,73)");
    QVERIFY(m_user->reload(m_base->connection()));
    const QString refused = "У вас немає доступу до вкладки \"Чеки\".";
    QCOMPARE(answerQuestion([&] { reports.showCheks(lineOf(1, 1, "1", "1")); }), refused);
    QCOMPARE(answerQuestion([&] { reports.showSlip("1", 1, false); }), refused);
    QCOMPARE(answerQuestion([&] { reports.ChekViewer(); }), refused);
    QVERIFY(answerQuestion([&] { reports.StatOnLine(1); }).contains("\"Статистика OnLine\""));
    QCOMPARE(tabs.count(), 0);
    reports.ZReports();
    QCOMPARE(tabs.count(), 1);
    m_base->exec("UPDATE lst_permis SET permission=1");
    QVERIFY(m_user->reload(m_base->connection()));
}

void TstQChekViewer::slipAfterASale()
{
    QTabWidget tabs;
    QReports reports(&tabs, m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    reports.showSlip("2", 1, false);
    auto *opened = qobject_cast<QChekViewer *>(reports.current());
    QVERIFY(opened != nullptr);
    waitOutTasks();
    const QString text = child<QTextBrowser>(opened, "tbSlip")->toPlainText();
    QVERIFY2(text.startsWith("Перша\n" + people + "\nЧек №1\n") && text.contains("12.30"), qPrintable(text));
    reports.closetab(0);
    QVERIFY(withModal<QPrintPreviewDialog>(
        [&] {
            reports.showSlip("2", 1, true);
            waitOutTasks();
        },
        [](QPrintPreviewDialog *dialog) { dialog->reject(); }));
    QCOMPARE(tabs.count(), 0);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQChekViewer::placesAndRanges()
{
    auto *place = child<PlaceSelector>(m_viewer.get(), "place");
    const QString day = "DATE(data_time)='2026-03-01' AND ";
    QVERIFY(place->chooseGroup(2));
    showDay(1);
    QCOMPARE(listed(), stored(day + "id_shop IN (1,4)"));
    place->showShop("Перша");
    load();
    QCOMPARE(listed(), stored(day + "id_shop=1"));
    QCOMPARE(viewer().sum(), storedSum(day + "id_shop=1"));
    place->showRegister(people);
    load();
    QCOMPARE(listed(), stored(day + "id_kass=2"));
    QCOMPARE(viewer().sum(), 1230LL);
    place->showShop(people);
    load();
    QCOMPARE(listed(), stored(day + "id_shop=3"));

    // The name of the register is that of another shop's too.
    m_base->exec("UPDATE kassa SET advertising_str='К1' WHERE id=3");
    for (const char *shop : {"Перша", "Спільна"}) {
        place->showShop(shop);
        place->showRegister("К1");
        load();
        QCOMPARE(listed(), stored(day + (shop == QString("Перша") ? "id_kass=1" : "id_kass=3")));
    }
    m_base->exec("UPDATE kassa SET advertising_str='К3' WHERE id=3");

    // Z numbers, here of one register.
    place->showShop("Перша");
    place->showRegister("К1");
    viewer().showid(true);
    auto *from = child<QLineEdit>(m_viewer.get(), "leNumberFrom");
    child<QLineEdit>(m_viewer.get(), "leNumberTo")->setText("2");
    from->setText("2");
    load();
    QCOMPARE(listed(), stored("id_kass=1 AND id_zvit=2"));
    from->setText("");
    QVERIFY(!answerQuestion([this] { viewer().load(); }).isEmpty());
    QVERIFY(!viewer().isLoading());
    QCOMPARE(listed().size(), 1);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQChekViewer::placesOffered()
{
    // Group 3 is not the user's.
    QVERIFY2(items("cbGroup").contains("Місто") && !items("cbGroup").contains("Чужа"),
             qPrintable(items("cbGroup").join('|')));
    auto *place = child<PlaceSelector>(m_viewer.get(), "place");
    place->chooseGroup(2);
    waitChosen(m_viewer.get());
    QCOMPARE(items("cbShop"), QStringList({"Перша", "Спільна"}));
    place->showShop("Перша");
    waitChosen(m_viewer.get());
    QCOMPARE(items("cbRegister"), QStringList({people, "К1"}));
    viewer().GroupChanged("Чужа");
    waitChosen(m_viewer.get());
    QCOMPARE(items("cbShop"), QStringList({people, "Спільна"}));
    QCOMPARE(items("cbRegister"), QStringList());
    viewer().ShopChanged(people);
    waitChosen(m_viewer.get());
    QCOMPARE(items("cbRegister"), QStringList({"К4"}));
    QVERIFY(m_base->heard.has("QCashDrive::ShopChanged(QString str)"));
}

void TstQChekViewer::receiptsBehindAZReport()
{
    QTabWidget tabs;
    QObject window;
    QReports reports(&tabs, m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    // Of a blocked register of a blocked shop.
    reports.showCheks(lineOf(4, 5, "7", "7"));
    auto *opened = qobject_cast<QChekViewer *>(reports.current());
    QVERIFY(opened != nullptr);
    QSignalSpy loaded(opened, &ReportWindow::loaded);
    QVERIFY(loaded.wait());
    QCOMPARE(opened->heading(), QStringList({"Чеки", "Місто, Зачинена, К5", "зміни 7 – 7"}));
    QCOMPARE(opened->sum(), 1230LL);
    // A whole shop; the same tab.
    reports.showCheks(lineOf(1, 0, "1", "2"));
    QVERIFY(loaded.wait());
    QCOMPARE(tabs.count(), 1);
    QCOMPARE(opened->heading().at(1), QString("Місто, Перша"));
    QCOMPARE(opened->sum(), storedSum("id_shop=1") + 200); // the days around have a payment only
    // A register that has moved: its receipts stay with the shop they were written in.
    reports.showCheks(lineOf(2, 6, "4", "4"));
    QVERIFY(loaded.wait());
    QCOMPARE(opened->heading().at(1), QString("default, Спільна, К6"));
    QCOMPARE(opened->sum(), 1230LL);
    QVERIFY(reports.closetab(0));
}

void TstQChekViewer::slipsOfEachKind()
{
    const QList<QStringList> documents = {
        {"3", "1", "Чек №1", "<i>Хліб</i>", "2 × 50.00", "Картка", "40.00", "Сертифікат", "10.00"},
        {"6", "2", "ПОВЕРНЕННЯ", "Чек №2", "До повернення", "50.00"},
        {"4", "3", "Чек №3", "Розмін", "300.00"},
        {"5", "4", "Чек №4", "Інкасація", "400.00"},
        {"7", "5", "ПРИЙОМ", "10 Хліб", "0.500", "3.500"},
        {"8", "6", "ПЕРЕМІЩЕННЯ", "11 Сир", "2.500"},
        {"10", "7", "Звіт №1", "Оборот зміни", "114.00", "ПДВ А 20.00 %", "120.00\n20.00\n", "ПДВ Б", "ПДВ Д",
         "Готівка\n64.00", "Чеків продажу\n1"}};
    for (const QStringList &document : documents) {
        viewer().showChekOrZvit(document.at(0), document.at(1), "1");
        for (const QString &part : document.mid(2))
            QVERIFY2(page().contains(part), qPrintable(part + " in\n" + page()));
        QVERIFY(page().startsWith("Перша\nК1\n"));
        QVERIFY(page().contains("01-03-2026"));
        QVERIFY2(!viewer().slip().contains("#FF3333"), qPrintable(document.at(1)));
    }
    // From the list; names are text.
    auto *place = child<PlaceSelector>(m_viewer.get(), "place");
    place->showShop(people);
    showDay(1);
    open(0);
    QVERIFY2(page().startsWith(people + "\nК4\nЧек №1\n"), qPrintable(page()));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQChekViewer::sumsThatDoNotAgreeAreRed()
{
    // Paid a kopeck less at register 1, goods of a kopeck more at register 2.
    m_base->exec({"UPDATE cheks SET price=6399 WHERE id_kass=1 AND id_chek=1 AND id_type=3",
                  "UPDATE cheks SET summa=1231 WHERE id_kass=2 AND id_chek=1 AND id_type=1"});
    const auto red = [this] {
        QStringList rows;
        for (int row = 0; row < viewer().model()->rowCount(); ++row) {
            const QModelIndex first = viewer().model()->index(row, 0);
            const bool isRed = first.data(Qt::BackgroundRole).value<QBrush>().color() == "#FF3333";
            const bool isMarked = !first.siblingAtColumn(ChekList::Number).data(signRole).isNull();
            if (isRed || isMarked)
                rows.append(viewer().model()->stored(row, ChekList::Register) + '/' +
                            viewer().model()->stored(row, ChekList::Number) + (isRed && isMarked ? "" : "?"));
        }
        rows.sort();
        return rows;
    };
    auto *check = child<QCheckBox>(m_viewer.get(), "chCheckSums");
    auto *label = child<QLabel>(m_viewer.get(), "labelCheck");
    QSignalSpy checked(m_viewer.get(), &QChekViewer::checked);
    child<PlaceSelector>(m_viewer.get(), "place")->showShop("Перша");
    showDay(1);
    QCOMPARE(red(), QStringList());
    check->setChecked(true);
    QVERIFY(checked.wait());
    QCOMPARE(red(), QStringList({"1/1", "2/1"}));
    QCOMPARE(label->text(), QString("Суми не збігаються, чеків: 2"));
    viewer().showChekOrZvit("3", "1", "1");
    QVERIFY2(page().contains("до сплати 114.00, оплачено 113.99"), qPrintable(page()));
    viewer().showChekOrZvit("3", "1", "2");
    QVERIFY2(page().contains("товари зі знижкою 12.31, до сплати 12.30"), qPrintable(page()));
    check->setChecked(false);
    QCOMPARE(red(), QStringList());

    m_base->exec({"UPDATE cheks SET price=6400 WHERE id_kass=1 AND id_chek=1 AND id_type=3",
                  "UPDATE cheks SET summa=1230 WHERE id_kass=2 AND id_chek=1 AND id_type=1"});
    check->setChecked(true);
    load();
    QVERIFY(checked.wait());
    QCOMPARE(label->text(), QString("Суми збігаються."));
    QCOMPARE(red(), QStringList());
}

void TstQChekViewer::slipOnPaper()
{
    auto *pdf = child<QPushButton>(m_viewer.get(), "pbPdf");
    QVERIFY(!pdf->isEnabled());
    viewer().showChekOrZvit("3", "1", "1");
    waitOutTasks();
    QTemporaryDir folder;
    const QString path = folder.filePath("чек.pdf");
    QString suggested;
    const auto saveTo = [&](const QString &file) {
        const bool isAsked =
            withModal<QFileDialog>([&] { pdf->click(); },
                                   [&](QFileDialog *dialog) {
                                       suggested = child<QLineEdit>(dialog, "fileNameEdit")->text();
                                       child<QLineEdit>(dialog, "fileNameEdit")->setText(file);
                                       QMetaObject::invokeMethod(dialog, "accept");
                                   });
        waitOutJobs();
        return isAsked;
    };
    QVERIFY(saveTo(path));
    QCOMPARE(suggested, QString("Чек 1 К1 2026-03-01.pdf"));
    if (canReadPdf()) {
        const QString text = textOfPdf(path);
        for (const char *part :
             {"Перша", "К1", "Чек№1", "2×50.00", "100.00", "Досплати114.00", "Картка40.00"})
            QVERIFY2(text.contains(part), qPrintable(part + QString(" in ") + text));
    }
    QVERIFY(m_base->heard.has("Файл збережено: " + path, 3));
    // What cannot be written is told and leaves what is there.
    QVERIFY(saveTo(folder.filePath("немає/чек.pdf")));
    QVERIFY(m_base->heard.has("Файл не збережено: ", 1));
    QVERIFY(!saveSlipPdf(&m_base->heard, viewer().slip(), folder.path()));
    QVERIFY(withModal<QPrintPreviewDialog>([&] { child<QPushButton>(m_viewer.get(), "pbPrint")->click(); },
                                           [](QPrintPreviewDialog *dialog) { dialog->reject(); }));
}

void TstQChekViewer::failuresLeaveWhatIsShown()
{
    showDay(1);
    open(0);
    const QString shown = page();
    const int rows = viewer().model()->rowCount();
    viewer().showChekOrZvit("3", "777", "1");
    waitOutTasks();
    QVERIFY(m_base->heard.has("Відсутні дані після запиту:", 1));
    QCOMPARE(page(), shown);
    m_base->exec("RENAME TABLE cheks TO cheks_away");
    viewer().showChekOrZvit("3", "1", "2");
    load();
    waitOutTasks();
    m_base->exec("RENAME TABLE cheks_away TO cheks");
    QVERIFY(m_base->heard.has("Помилка запиту:", 1));
    QCOMPARE(page(), shown);
    QCOMPARE(viewer().model()->rowCount(), rows);
}

QTEST_MAIN(TstQChekViewer)
#include "tst_qchekviewer.moc"
