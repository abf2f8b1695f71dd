// Receiving and moving goods in the sale tab, by scanner, keys and mouse.

#include "qregistersale.h"

#include "cheks.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qpastetable.h"
#include "qqestion.h"
#include "saleshop.h"
#include "stockpane.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>

namespace {
QString text(const char *words)
{
    return QString::fromUtf8(words);
}

template<typename T>
T *in(const QWidget *parent, const char *name)
{
    return child<T>(parent, QString::fromLatin1(name));
}
} // namespace

class TstStockModes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void receivedByScanner();
    void neverHadIsOffered();
    void weighedAsksForKilograms();
    void movedByKeys();
    void moreThanThereIsStays();
    void modesKeepWhatIsFilled();
    void itemOnItsWayComesFirst();
    void belowZeroIsAsked();
    void pastedTable();
    void anotherShopAndClosing();
    void busyShift();
    void unclearDocumentIsNotDoubled();
    void viewOnlyUser();
    void rightThatGoesDuringTheQuestion_data();
    void rightThatGoesDuringTheQuestion();
    void twoOperators();

private:
    void key(int key);
    void scanned(const char *code);
    StockPane *pane() const;
    QNTableView *grid() const { return in<QNTableView>(pane(), "viewStock"); }
    QString cell(int row, int column) const { return grid()->model()->index(row, column).data().toString(); }
    QString notice() const { return in<QLabel>(m_tab.get(), "lbNotice")->text(); }
    QString stock(int goods);
    QString cheks();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
    QLineEdit *m_search = nullptr;
};

/// Longer than a scanner's pause between two keys.
constexpr int handMs = 90;
enum { Syllable = 4, Quantity = 5, Remark = 6 };

void TstStockModes::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(text("UPDATE users SET id_shop=1 WHERE id=1"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstStockModes::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(QStringList{text("UPDATE goods_shop SET count_syllable=5000"),
                             text("DELETE FROM goods_shop WHERE id_goods=15"),
                             text("UPDATE lst_permis SET permission=1 WHERE id_prem=101")});
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
    m_base->heard.forget();
    QApplication::clipboard()->clear();
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_search = in<QLineEdit>(m_tab.get(), "leSearch");
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    QTRY_VERIFY(in<QNTableView>(m_tab.get(), "viewGoods")->model()->rowCount() > 0);
}

void TstStockModes::cleanup()
{
    waitOutTasks();
    Db::setStatementHook({});
    m_tab.reset();
    waitOutTasks();
}

void TstStockModes::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

void TstStockModes::key(int key)
{
    pressKeys({key});
    waitOutTasks();
}

void TstStockModes::scanned(const char *code)
{
    scan(QString::fromLatin1(code));
    waitOutTasks();
}

StockPane *TstStockModes::pane() const
{
    auto *front = qobject_cast<StockPane *>(in<QStackedWidget>(m_tab.get(), "documents")->currentWidget());
    if (front == nullptr)
        qFatal("The sale is in front");
    return front;
}

QString TstStockModes::stock(int goods)
{
    return m_base
        ->rows(text("SELECT count_showroom,count_syllable FROM goods_shop WHERE id_shop=1 AND id_goods=%1")
                   .arg(goods))
        .join(QLatin1Char(' '));
}

QString TstStockModes::cheks()
{
    return m_base
        ->rows(text("SELECT id_type,id_good_cln_slujb,count,dis_bon_bez2 FROM cheks ORDER BY "
                    "id_chek,id_position"))
        .join(QLatin1Char(' '));
}

/// Scanned again is one more; F9 writes, tells, offers the slip, and begins the next document.
void TstStockModes::receivedByScanner()
{
    key(Qt::Key_F7);
    QVERIFY(in<QPushButton>(m_tab.get(), "pbMode1")->isChecked());
    for (const char *code : {"4820000000109", "4820000000130", "4820000000109", "4820000000109"})
        scanned(code);
    QCOMPARE(pane()->document().rows().size(), 2);
    QCOMPARE(cell(0, Quantity), text("3"));
    QCOMPARE(in<QPushButton>(m_tab.get(), "pbMode1")->text(), text("При&йом F7 (2)"));
    key(Qt::Key_Asterisk);
    typeText(text("12"));
    key(Qt::Key_Return);
    QTRY_COMPARE(cell(0, Quantity), text("12"));
    m_base->exec(text("UPDATE updat SET updat='2020-01-01'"));
    QSignalSpy slip(m_tab.get(), &QRegisterSale::slipWanted);
    key(Qt::Key_F9);
    QTRY_COMPARE(notice(), text("Прийом № 1: позицій 2, кількість 13.000"));
    QCOMPARE(cheks(), text("7|10|12000|2 7|13|1000|2"));
    QCOMPARE(stock(10), text("10000|17000"));
    QVERIFY(pane()->document().isEmpty());
    QTRY_COMPARE(m_base->rows(text("SELECT name FROM updat WHERE updat>'2020-01-01' ORDER BY name")),
                 (QStringList{text("cheks"), text("goods_shop"), text("z_zvit")}));
    in<QPushButton>(m_tab.get(), "pbShowSlip")->click();
    QCOMPARE(slip.first().at(1).toInt(), 1);
    // The sale goes on in the same shift.
    QCOMPARE(in<QLabel>(m_tab.get(), "lbShift")->text(), text("Зміна № 1 відкрита, день періоду: 1."));
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

/// By name, without a price, without a row of the shop; blocked goods are not there.
void TstStockModes::neverHadIsOffered()
{
    auto *goods = in<QNTableView>(m_tab.get(), "viewGoods");
    const int sold = goods->model()->rowCount();
    key(Qt::Key_F7);
    QTRY_COMPARE(goods->model()->rowCount(), sold + 1);
    scanned("4820000000154");
    typeText(text("0,75"));
    key(Qt::Key_Return);
    scanned("4820000000161");
    QVERIFY(notice().contains(text("«4820000000161» не знайдено")));
    QCOMPARE(pane()->document().rows().size(), 1);
    in<QComboBox>(pane(), "cbStockPlace")->setCurrentIndex(1);
    key(Qt::Key_F9);
    QTRY_COMPARE(stock(15), text("750|0"));
    key(Qt::Key_F8);
    QTRY_COMPARE(goods->model()->rowCount(), sold + 1);
}

/// Nothing is written without them, and the next scan does not become kilograms.
void TstStockModes::weighedAsksForKilograms()
{
    key(Qt::Key_F7);
    scanned("0000000000116");
    QCOMPARE(cell(0, Quantity), QString());
    QCOMPARE(cell(0, Remark), text("введіть кількість"));
    scanned("4820000000109");
    QCOMPARE(pane()->document().rows().size(), 2);
    key(Qt::Key_F9);
    QVERIFY(notice().contains(text("Не всі кількості введено")));
    QCOMPARE(cheks(), QString());
    QCOMPARE(grid()->currentIndex().row(), 0);
    typeText(text("0,25"));
    // Another weighing begins while this one is being typed: it counts. A hand is slower than a scanner.
    QTest::qWait(handMs);
    scanned("0000000000116");
    QCOMPARE(cell(0, Quantity), text("0.250"));
    typeText(text("1.5"));
    key(Qt::Key_F9);
    QTRY_COMPARE(cheks(), text("7|11|250|2 7|10|1000|2 7|11|1500|2"));
    QCOMPARE(stock(11), text("10000|6750"));
}

void TstStockModes::movedByKeys()
{
    key(Qt::Key_F8);
    scanned("4820000000109");
    key(Qt::Key_Plus);
    QTRY_COMPARE(cell(0, Quantity), text("2"));
    key(Qt::Key_F9);
    QTRY_COMPARE(notice(), text("Переміщення № 1: позицій 1, кількість 2.000"));
    QCOMPARE(stock(10), text("12000|3000"));
    in<QComboBox>(pane(), "cbStockPlace")->setCurrentIndex(1);
    scanned("4820000000130");
    key(Qt::Key_Delete);
    QVERIFY(pane()->document().isEmpty());
    key(Qt::Key_F9);
    QCOMPARE(notice(), text("У документі немає товарів."));
    scanned("4820000000109");
    key(Qt::Key_F9);
    QTRY_COMPARE(cheks(), text("8|10|2000|1 8|10|1000|2"));
    QCOMPARE(stock(10), text("11000|4000"));
}

/// Told by goods, marked in the grid with what the server has, and nothing typed is lost.
void TstStockModes::moreThanThereIsStays()
{
    key(Qt::Key_F8);
    scanned("4820000000109");
    scanned("4820000000130");
    key(Qt::Key_Asterisk);
    typeText(text("6"));
    key(Qt::Key_Return);
    QTRY_COMPARE(cell(1, Remark), text("на складі лише 5.000"));
    m_base->exec(text("UPDATE goods_shop SET count_syllable=0 WHERE id_goods=10"));
    key(Qt::Key_F9);
    QTRY_COMPARE(notice(),
                 text("Товару не вистачає:\n«Хліб житній»: на складі 0.000, треба 1.000\n«Молоко»: на "
                      "складі 5.000, треба 6.000"));
    QCOMPARE(cell(0, Remark), text("на складі лише 0.000"));
    QCOMPARE(pane()->document().rows().size(), 2);
    QCOMPARE(cheks(), QString());
    // The first of them is the current row.
    key(Qt::Key_Delete);
    key(Qt::Key_Minus);
    QCOMPARE(pane()->document().rows().first().quantity, qint64(5000));
    QCOMPARE(cell(0, Remark), QString());
}

/// Nobody is asked, nothing is lost: the receipt and both documents wait for their mode.
void TstStockModes::modesKeepWhatIsFilled()
{
    scanned("4820000000109");
    key(Qt::Key_F7);
    scanned("4820000000130");
    scanned("4820000000130");
    key(Qt::Key_F8);
    scanned("4820000000109");
    m_search->setText(text("мол"));
    QTest::mouseClick(in<QPushButton>(m_tab.get(), "pbMode1"), Qt::LeftButton);
    QCOMPARE(cell(0, Quantity), text("2"));
    QCOMPARE(m_search->text(), text("мол"));
    QVERIFY(m_search->hasFocus());
    m_search->clear();
    key(Qt::Key_F6);
    QCOMPARE(in<QNTableView>(m_tab.get(), "viewChek")->model()->rowCount(), 1);
    key(Qt::Key_F8);
    scanned("4820000000130");
    QCOMPARE(cell(1, Syllable), text("5.000"));
    key(Qt::Key_F7);
    key(Qt::Key_F9);
    QTRY_COMPARE(cheks(), text("7|13|2000|2"));
    // What another document has brought is seen at once.
    key(Qt::Key_F8);
    QCOMPARE(cell(1, Syllable), text("7.000"));
    key(Qt::Key_F9);
    QTRY_COMPARE(cheks(), text("7|13|2000|2 8|10|1000|1 8|13|1000|1"));
    key(Qt::Key_F6);
    QCOMPARE(in<QNTableView>(m_tab.get(), "viewChek")->model()->rowCount(), 1);
    // Escape empties what is in front, after a question.
    key(Qt::Key_F7);
    scanned("4820000000130");
    QVERIFY(answerConfirm([this] { key(Qt::Key_Escape); }, false)
                .contains(text("Прийом: у документі є товари (1)")));
    QCOMPARE(pane()->document().rows().size(), 1);
    answerConfirm([this] { key(Qt::Key_Escape); }, true);
    QVERIFY(pane()->document().isEmpty());
    answerConfirm([this] { m_tab->mayClose(); }, true);
}

/// F7 right behind a scan: the item was meant for the receipt.
void TstStockModes::itemOnItsWayComesFirst()
{
    scan(text("4820000000109"));
    pressKeys({Qt::Key_F7});
    scan(text("4820000000130"));
    waitOutTasks();
    QTRY_COMPARE(in<QNTableView>(m_tab.get(), "viewChek")->model()->rowCount(), 1);
    QTRY_COMPARE(pane()->document().rows().size(), 1);
    QCOMPARE(pane()->document().rows().first().idGoods, 13U);
    pane()->clear();
    answerConfirm([this] { m_tab->mayClose(); }, true);
}

void TstStockModes::belowZeroIsAsked()
{
    key(Qt::Key_F7);
    scanned("4820000000109");
    key(Qt::Key_Asterisk);
    typeText(text("-7"));
    key(Qt::Key_Return);
    QTRY_COMPARE(cell(0, Quantity), text("-7"));
    QVERIFY(answerConfirm([this] { key(Qt::Key_F9); }, false)
                .contains(text("«Хліб житній»: на складі 5.000, треба 7.000")));
    QCOMPARE(stock(10), text("10000|5000"));
    QCOMPARE(pane()->document().rows().size(), 1);
    answerConfirm([this] { key(Qt::Key_F9); }, true);
    QTRY_COMPARE(stock(10), text("10000|-2000"));
    QCOMPARE(cheks(), text("7|10|-7000|2"));
    // Moved goods are never less than nothing.
    key(Qt::Key_F8);
    scanned("4820000000109");
    key(Qt::Key_Minus);
    QVERIFY(notice().contains(text("нулем")));
    QCOMPARE(cell(0, Quantity), text("1"));
}

/// A table is no search word, wherever it is pasted; what was scanned before adds up with it.
void TstStockModes::pastedTable()
{
    key(Qt::Key_F7);
    scanned("4820000000109");
    QApplication::clipboard()->setText(text("Штрихкод\tК-сть\n4820000000109\t4\n116\t0,5\n"));
    QVERIFY(withModal<QPasteTable>([this] { key(Qt::CTRL + Qt::Key_V); },
                                   [](QPasteTable *form) {
                                       auto *add = in<QPushButton>(form, "pbAdd");
                                       QTRY_VERIFY(add->isEnabled());
                                       QTest::mouseClick(add, Qt::LeftButton);
                                   }));
    QCOMPARE(m_search->text(), QString());
    QCOMPARE(pane()->document().rows().size(), 2);
    QCOMPARE(cell(0, Quantity), text("5"));
    QCOMPARE(cell(1, Quantity), text("0.500"));
    // A single word is pasted into the field.
    QApplication::clipboard()->setText(text("хліб"));
    key(Qt::CTRL + Qt::Key_V);
    QCOMPARE(m_search->text(), text("хліб"));
    m_search->clear();
    key(Qt::Key_F9);
    QTRY_COMPARE(cheks(), text("7|10|5000|2 7|11|500|2"));
}

/// A document is one of its shop, not of its register; closing asks about each.
void TstStockModes::anotherShopAndClosing()
{
    key(Qt::Key_F7);
    scanned("4820000000109");
    auto *kass = in<QComboBox>(m_tab.get(), "cbKass");
    kass->setCurrentIndex(kass->findText(text("Каса 2")));
    waitOutTasks();
    QCOMPARE(kass->currentText(), text("Каса 2"));
    QCOMPARE(pane()->document().rows().size(), 1);
    auto *shop = in<QComboBox>(m_tab.get(), "cbShop");
    const QString before = shop->currentText();
    answerConfirm([&] { shop->setCurrentIndex(shop->findText(text("вул. Друга, 2"))); }, false);
    QCOMPARE(shop->currentText(), before);
    QVERIFY(answerConfirm([this] { m_tab->mayClose(); }, false).contains(text("ще не записано")));
    key(Qt::Key_F9);
    QTRY_COMPARE(m_base->value(text("SELECT id_kass FROM cheks")), text("2"));
    QVERIFY(m_tab->mayClose());
}

void TstStockModes::busyShift()
{
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(4,1,1,2,0)"));
    key(Qt::Key_F7);
    scanned("4820000000109");
    QVERIFY(answerQuestion([this] { key(Qt::Key_F9); }).contains(text("працює інший користувач")));
    QCOMPARE(pane()->document().rows().size(), 1);
    QCOMPARE(stock(10), text("10000|5000"));
    m_base->exec(text("DELETE FROM z_zvit"));
    key(Qt::Key_F9);
    QTRY_COMPARE(stock(10), text("10000|6000"));
}

/// The server has written, nobody heard it: F9 asks first, and does not write it twice.
void TstStockModes::unclearDocumentIsNotDoubled()
{
    key(Qt::Key_F7);
    scanned("4820000000109");
    loseAnswerToCommit(m_base.get());
    key(Qt::Key_F9);
    QTRY_VERIFY(notice().contains(text("невідомо")));
    Db::setStatementHook({});
    m_base->exec(text("RENAME TABLE away TO cheks"));
    waitOutLoss(*m_base->connection());
    QCOMPARE(pane()->document().rows().size(), 1);
    key(Qt::Key_F9);
    QTRY_COMPARE(notice(), text("Прийом № 1: позицій 1, кількість 1.000"));
    QVERIFY(pane()->document().isEmpty());
    QCOMPARE(cheks(), text("7|10|1000|2"));
    QCOMPARE(stock(10), text("10000|6000"));
}

void TstStockModes::viewOnlyUser()
{
    m_base->exec(text("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
    key(Qt::Key_F7);
    scanned("4820000000109");
    QCOMPARE(pane()->document().rows().size(), 1);
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
    waitOutTasks();
    for (const char *name : {"pbWrite", "pbPaste", "pbClearStock", "pbRemoveStock"})
        QVERIFY(!in<QPushButton>(pane(), name)->isEnabled());
    key(Qt::Key_F9);
    scanned("4820000000109");
    QCOMPARE(cell(0, Quantity), text("1"));
    QVERIFY(notice().contains(text("Лише перегляд")));
    QCOMPARE(cheks(), QString());
    pane()->clear();
}

void TstStockModes::rightThatGoesDuringTheQuestion_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<int>("daysBack");
    QTest::newRow("below zero") << text("-7") << 0;
    QTest::newRow("another date") << text("7") << 1;
}

void TstStockModes::rightThatGoesDuringTheQuestion()
{
    QFETCH(QString, quantity);
    QFETCH(int, daysBack);
    key(Qt::Key_F7);
    scanned("4820000000109");
    key(Qt::Key_Asterisk);
    typeText(quantity);
    key(Qt::Key_Return);
    auto *date = in<QDateEdit>(m_tab.get(), "dateEdit");
    date->setDate(date->date().addDays(-daysBack));
    QVERIFY(withModal<QMessDlg>([this] { key(Qt::Key_F9); },
                                [this](QMessDlg *question) {
                                    m_base->exec(
                                        text("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
                                    m_user->loadpermis(m_base->connection(), text("admin"), QString());
                                    waitOutGuard();
                                    in<QPushButton>(question, "pb0")->click();
                                }));
    waitOutTasks();
    QCOMPARE(cheks(), QString());
    QCOMPARE(stock(10), text("10000|5000"));
    QVERIFY2(notice().contains(text("Лише перегляд")), qPrintable(notice()));
    pane()->clear();
}

/// Both saw five in the store room and take three: one of them is told.
void TstStockModes::twoOperators()
{
    QRegisterSale other(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    waitOutTasks();
    auto *kass = in<QComboBox>(&other, "cbKass");
    kass->setCurrentIndex(kass->findText(text("Каса 2")));
    other.movingmode();
    waitOutTasks();
    auto *theirs = qobject_cast<StockPane *>(in<QStackedWidget>(&other, "documents")->currentWidget());
    key(Qt::Key_F8);
    scanned("4820000000109");
    key(Qt::Key_Asterisk);
    typeText(text("3"));
    key(Qt::Key_Return);
    theirs->add(pane()->document().rows());
    QCOMPARE(theirs->document().rows().first().quantity, qint64(3000));
    key(Qt::Key_F9);
    other.write();
    waitOutTasks();
    QTRY_COMPARE(in<QLabel>(&other, "lbNotice")->text(),
                 text("Товару не вистачає:\n«Хліб житній»: на складі 2.000, треба 3.000"));
    QCOMPARE(stock(10), text("13000|2000"));
    QCOMPARE(cheks(), text("8|10|3000|1"));
}

QTEST_MAIN(TstStockModes)
#include "tst_stockmodes.moc"
