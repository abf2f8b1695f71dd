#include "qregistersale.h"

#include "moneyspinbox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qpayment.h"
#include "saleclock.h"
#include "saleshop.h"
#include "scanguard.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
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

/// Whatever has the focus. Without a window manager nobody activates the window behind a closed dialog.
QWidget *focused()
{
    QWidget *modal = QApplication::activeModalWidget();
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (modal == nullptr && window->isVisible() && qobject_cast<QRegisterSale *>(window) != nullptr)
            modal = window;
    }
    modal->activateWindow();
    const bool isActive = QTest::qWaitFor([=] { return QApplication::activeWindow() == modal; });
    return isActive ? modal->focusWidget() : nullptr;
}

/// Answers the question that act brings up, and returns its text.
QString asked(const std::function<void()> &act, bool accept)
{
    const auto actAndWait = [&] {
        act();
        waitOutTasks();
    };
    return answerConfirm(actAndWait, accept).section(QLatin1Char('\n'), 1);
}

/// The cell as it is shown.
QString cell(const QTableView *view, int row, int column)
{
    return view->model()->index(row, column).data().toString();
}
} // namespace

class TstQRegisterSale : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void wholeSaleByKeyboard();
    void statementsOfASale();
    void searchByName();
    void stockQuestion();
    void whatIsPaidIsWritten_data();
    void whatIsPaidIsWritten();
    void whatIsBegunStopsTheSale();
    void codeWithoutEnterStopsTheSale();
    void scanAnywhere_data();
    void scanAnywhere();
    void scanBehindAQuestion();
    void focusReturns();
    void anotherDate();
    void midnight();
    void changesAreToldBeforePayment();
    void writtenReceiptIsTold();
    void accessKeys_data();
    void accessKeys();
    void fitsASmallScreen();
    void whatCannotBeSold();
    void busyShift();
    void receiptIsNotLostSilently();
    void endsWhileSomethingIsTyped();
    void failedSaleKeepsTheReceipt();
    void unclearReceiptIsNotDoubled();
    void unclearReceiptStaysUnclear();
    void viewOnlyUser();

private:
    void type(const QString &words, bool enter = true);
    void key(int key);
    void pay(const QString &typed = QString(), const QVector<int> &keys = {Qt::Key_F5, Qt::Key_Return});
    int rows() const { return m_chek->model()->rowCount(); }
    QString notice() const { return in<QLabel>(m_tab.get(), "lbNotice")->text(); }
    QString cheks();
    void selectKass(const char *name);

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
    QLineEdit *m_search = nullptr;
    QNTableView *m_goods = nullptr;
    QNTableView *m_chek = nullptr;
};

void TstQRegisterSale::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(text("UPDATE users SET id_shop=1 WHERE id=1"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstQRegisterSale::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(text("UPDATE lst_permis SET permission=1 WHERE id_prem=101"));
    QVERIFY(m_user->loadpermis(m_base->connection(), text("admin"), QString()));
    m_base->heard.forget();
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_search = in<QLineEdit>(m_tab.get(), "leSearch");
    m_goods = in<QNTableView>(m_tab.get(), "viewGoods");
    m_chek = in<QNTableView>(m_tab.get(), "viewChek");
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    QTRY_COMPARE(m_goods->model()->rowCount(), 5);
}

void TstQRegisterSale::cleanup()
{
    waitOutTasks();
    Db::setStatementHook({});
    m_tab.reset();
    waitOutTasks();
}

void TstQRegisterSale::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

/// To whatever has the focus, as a scanner does.
void TstQRegisterSale::type(const QString &words, bool enter)
{
    for (const QChar c : words)
        QTest::keyClick(focused(), c.toLatin1());
    if (enter)
        key(Qt::Key_Return);
}

void TstQRegisterSale::key(int key)
{
    QTest::keyClick(focused(), static_cast<Qt::Key>(key));
    waitOutTasks();
}

void TstQRegisterSale::pay(const QString &typed, const QVector<int> &keys)
{
    QVERIFY(withModal<QPayment>([this] { key(Qt::Key_F9); },
                                [&](QPayment *) {
                                    // Digits that come at once are the rest of a scan.
                                    QTest::qWait(ScanTail::appearedMs + 20);
                                    type(typed, false);
                                    for (int pressed : keys)
                                        key(pressed);
                                }));
}

QString TstQRegisterSale::cheks()
{
    return m_base->rows(text("SELECT id_type,summa FROM cheks ORDER BY id_kass,id_chek,id_position"))
        .join(QLatin1Char(' '));
}

void TstQRegisterSale::selectKass(const char *name)
{
    auto *box = in<QComboBox>(m_tab.get(), "cbKass");
    box->setCurrentIndex(box->findText(QString::fromUtf8(name)));
    waitOutTasks();
}

void TstQRegisterSale::wholeSaleByKeyboard()
{
    QCOMPARE(focused(), m_search);
    QCOMPARE(in<QLabel>(m_tab.get(), "lbShift")->text(), text("Зміна буде відкрита першим чеком."));
    type(text("4820000000109"));
    type(text("0000000000116"));
    key(Qt::Key_Asterisk);
    type(text("0,25"));
    QTRY_COMPARE(focused(), m_search);
    QTRY_COMPARE(cell(m_chek, 1, 16), text("20.00"));
    type(text("4820000000130"));
    key(Qt::Key_Plus);
    QCOMPARE(in<MoneySpinBox>(m_tab.get(), "dsbSum")->kopecks(), qint64(13000));
    m_base->exec(text("UPDATE updat SET updat='2020-01-01'"));
    pay(text("60,5"), {Qt::Key_F6, Qt::Key_Return});
    QTRY_COMPARE(m_base->rows(text("SELECT name FROM updat WHERE updat>'2020-01-01' ORDER BY name")),
                 (QStringList{text("cheks"), text("goods_shop"), text("z_zvit")}));
    QCOMPARE(notice(), text("Чек № 1, 130.00"));
    QCOMPARE(cheks(), text("1|5000 1|2000 1|6000 3|13000"));
    QCOMPARE(m_base->rows(text("SELECT cash,beznal_1 FROM z_zvit")), (QStringList{text("6050|6950")}));
    QCOMPARE(rows(), 0);
    QCOMPARE(in<QLabel>(m_tab.get(), "lbShift")->text(), text("Зміна № 1 відкрита, день періоду: 1."));
    QCOMPARE(in<MoneySpinBox>(m_tab.get(), "dsbSum")->kopecks(), qint64(0));
    QCOMPARE(focused(), m_search);
    QTRY_COMPARE(cell(m_goods, 0, 3), text("9.000"));
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

/// Few, and the one that tells other programs comes behind what the next receipt waits for; it is not lost
/// with the tab either.
void TstQRegisterSale::statementsOfASale()
{
    QStringList sent;
    const auto sell = [&](const std::function<void()> &afterwards) {
        type(text("4820000000109"));
        in<MoneySpinBox>(m_tab.get(), "dsbDiscount")->setFocus(Qt::TabFocusReason);
        type(text("5"));
        QVERIFY(withModal<QPayment>(
            [&] {
                QTest::keyClick(focused(), Qt::Key_F9);
                QVERIFY(QTest::qWaitFor([&] { return notice().startsWith(text("Чек №")); }));
                afterwards();
                waitOutTasks();
            },
            [&](QPayment *payment) {
                waitOutTasks();
                key(Qt::Key_F5);
                sent.clear();
                Db::setStatementHook([&](const QString &sql) { sent.append(sql); });
                payment->ok();
            }));
        Db::setStatementHook({});
    };
    sell([] {});
    sell([] {});
    const int commit = sent.indexOf(text("COMMIT"));
    QVERIFY2(commit + 1 <= 10, qPrintable(sent.join(QLatin1Char('\n'))));
    QVERIFY(sent.mid(0, commit).filter(text("updat")).isEmpty());
    QVERIFY2(sent.size() - commit - 1 <= 5, qPrintable(sent.mid(commit + 1).join(QLatin1Char('\n'))));
    QCOMPARE(notice(), text("Чек № 2, 45.00"));
    QCOMPARE(sent.filter(text("UPDATE updat SET")).size(), 1);
    sell([this] { m_tab.reset(); });
    QVERIFY2(sent.filter(text("UPDATE updat SET")).size() == 1, qPrintable(sent.join(QLatin1Char('\n'))));
}

void TstQRegisterSale::searchByName()
{
    in<QRadioButton>(m_tab.get(), "rbName")->click();
    // A scanner read while the list has the focus.
    m_goods->setFocus();
    type(text("4820000000130"));
    QCOMPARE(cell(m_chek, 0, 2), text("Молоко"));
    // The next scan does not overtake an item that is on its way, nor do letters that follow.
    m_search->setText(text("Картопля"));
    key(Qt::Key_Return);
    type(text("4820000000109"));
    QTRY_COMPARE(rows(), 3);
    QCOMPARE(cell(m_chek, 1, 2) + cell(m_chek, 2, 2), text("КартопляХліб житній"));
    m_search->setText(text("Картопля"));
    QTest::keyClick(focused(), Qt::Key_Return);
    type(text("x"), false);
    QTRY_COMPARE(rows(), 4);
    QCOMPARE(m_search->text(), text("Картопляx"));
    for (const char *words : {"x'; DELETE FROM goods_shop; -- ", "\\' OR 1=1 -- ", "100%"}) {
        m_search->setText(text(words));
        key(Qt::Key_Return);
        QTRY_VERIFY(notice().contains(text(words).trimmed()) && notice().contains(text("не знайдено")));
    }
    QCOMPARE(m_base->heard.texts(3), QStringList());
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM goods_shop")), text("16"));
}

void TstQRegisterSale::stockQuestion()
{
    m_base->exec(text("UPDATE goods_shop SET count_showroom=1000 WHERE id_goods=10"));
    type(text("4820000000109"));
    QCOMPARE(asked([this] { type(text("4820000000109")); }, false), text("Не достатньо товару для продажу!"));
    QCOMPARE(rows(), 1);
    QCOMPARE(m_search->text(), QString());
    asked([this] { key(Qt::Key_Plus); }, true);
    QCOMPARE(cell(m_chek, 0, 9), text("2"));
    pay();
    QCOMPARE(m_base->value(text("SELECT count_showroom FROM goods_shop WHERE id_shop=1 AND id_goods=10")),
             text("-1000"));
}

void TstQRegisterSale::whatIsPaidIsWritten_data()
{
    QTest::addColumn<QString>("begun");
    QTest::addColumn<QString>("pay");
    QTest::addColumn<QString>("written");
    for (const char *pay : {"F9", "button", "Alt"}) {
        QTest::newRow(qPrintable(text("quantity, ") + pay)) << "quantity" << pay << "1|15000 3|15000";
        QTest::newRow(qPrintable(text("discount, ") + pay)) << "discount" << pay << "1|5000 2|1250 3|3750";
        QTest::newRow(qPrintable(text("search, ") + pay)) << "search" << pay << "1|5000 1|3000 3|8000";
    }
}

/// The money that is asked for is that of what was typed last, and of nothing else.
void TstQRegisterSale::whatIsPaidIsWritten()
{
    QFETCH(QString, begun);
    QFETCH(QString, pay);
    QFETCH(QString, written);
    type(text("4820000000109"));
    auto *button = in<QPushButton>(m_tab.get(), "pbSale");
    if (begun == QLatin1String("quantity")) {
        key(Qt::Key_Asterisk);
        type(text("3"), false);
    } else if (begun == QLatin1String("discount")) {
        in<MoneySpinBox>(m_tab.get(), "dsbDiscount")->setFocus(Qt::TabFocusReason);
        type(text("12,5"), false);
    } else {
        in<QRadioButton>(m_tab.get(), "rbName")->click();
        m_search->setText(text("Молоко"));
        key(Qt::Key_Return);
    }
    QString asked;
    QVERIFY(withModal<QPayment>(
        [&] {
            if (pay == QLatin1String("F9"))
                key(Qt::Key_F9);
            else if (pay == QLatin1String("button"))
                QTest::mouseClick(button, Qt::LeftButton);
            else
                QTest::sendKeyEvent(QTest::Click, focused(), static_cast<Qt::Key>(0x41b), text("л"),
                                    Qt::AltModifier);
            QTest::qWait(300);
            waitOutTasks();
        },
        [&](QPayment *payment) {
            asked = in<QLabel>(payment, "lbToPay")->text();
            key(Qt::Key_F5);
            key(Qt::Key_Return);
        }));
    QCOMPARE(cheks(), written);
    QCOMPARE(m_base->value(text("SELECT summa/100 FROM cheks WHERE id_type=3")).toDouble(), asked.toDouble());
    QCOMPARE(rows(), 0);
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

/// What cannot come into the receipt stops the sale, with words; nothing is paid without it.
void TstQRegisterSale::whatIsBegunStopsTheSale()
{
    type(text("4820000000109"));
    key(Qt::Key_Asterisk);
    type(text("1 2"), false);
    key(Qt::Key_F9);
    QVERIFY(notice().contains(text("«1 2» не є кількістю")));
    QCOMPARE(cell(m_chek, 0, 9), text("1"));
    in<QRadioButton>(m_tab.get(), "rbName")->click();
    m_search->setText(text("нема такого"));
    pressKeys({Qt::Key_Return, Qt::Key_F9});
    QTRY_VERIFY(notice().contains(text("«нема такого» не знайдено")));
    m_search->setText(text("о"));
    pressKeys({Qt::Key_Return, Qt::Key_F9});
    QTRY_VERIFY(notice().contains(text("кілька товарів")));
    QCOMPARE(focused(), m_goods);
    QCOMPARE(rows(), 1);
    m_search->clear();
    m_search->setFocus();
    key(Qt::Key_Asterisk);
    type(text("30"), false);
    QCOMPARE(asked([this] { key(Qt::Key_F9); }, false), text("Не достатньо товару для продажу!"));
    QCOMPARE(cell(m_chek, 0, 9), text("1"));
    QCOMPARE(cheks(), QString());
}

/// Typed by hand, so slowly that it is no scan, and never confirmed.
void TstQRegisterSale::codeWithoutEnterStopsTheSale()
{
    type(text("4820000000109"));
    QTest::keyClicks(m_search, text("4820000000109"), Qt::NoModifier, 100);
    key(Qt::Key_F9);
    QVERIFY(notice().contains(text("«4820000000109» ще не в чеку")));
    QCOMPARE(rows(), 1);
    key(Qt::Key_Return);
    QCOMPARE(rows(), 2);
    type(text("4820000000901"));
    QTRY_VERIFY(notice().contains(text("не знайдено")));
    pay();
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=1")), text("2"));
}

void TstQRegisterSale::scanAnywhere_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : {"leSearch", "viewGoods", "viewChek", "editor", "dsbDiscount", "sbLimit",
                              "sbPriority", "dateEdit", "cbShop", "cbKass", "pbSale", "rbName"})
        QTest::newRow(where) << where;
}

/// The item comes into the receipt; the field keeps what it had, and the half-typed quantity counts.
void TstQRegisterSale::scanAnywhere()
{
    QFETCH(QString, where);
    type(text("4820000000109"));
    const bool isEditor = where == QLatin1String("editor");
    if (isEditor) {
        key(Qt::Key_Asterisk);
        type(text("3"), false);
        QTest::qWait(100);
    } else {
        child<QWidget>(m_tab.get(), where)->setFocus(Qt::TabFocusReason);
    }
    type(text("4820000000130"));
    QCOMPARE(rows(), 2);
    QCOMPARE(cell(m_chek, 1, 2), text("Молоко"));
    QCOMPARE(cell(m_chek, 1, 9), text("1"));
    QCOMPARE(cell(m_chek, 0, 9), isEditor ? text("3") : text("1"));
    QCOMPARE(focused(), m_search);
    QCOMPARE(m_search->text(), QString());
    QCOMPARE(in<MoneySpinBox>(m_tab.get(), "dsbDiscount")->text(), text("0.00"));
    QCOMPARE(in<QSpinBox>(m_tab.get(), "sbLimit")->text(), text("100"));
    QCOMPARE(in<QSpinBox>(m_tab.get(), "sbPriority")->text(), text("1"));
    QCOMPARE(in<QDateEdit>(m_tab.get(), "dateEdit")->text(),
             QDate::currentDate().toString(text("dd.MM.yyyy")));
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbShop")->currentText(), text("вул. Перша, 1"));
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->currentText(), text("Каса 1"));
    // An unknown code stays in sight while others are scanned, until somebody looks.
    type(text("4820000009999"));
    type(text("4820000000130"));
    QCOMPARE(rows(), 3);
    QVERIFY(notice().contains(text("«4820000009999» не знайдено")));
    key(Qt::Key_Escape);
    QCOMPARE(notice(), QString());
}

/// It answers nothing, and it is not lost either.
void TstQRegisterSale::scanBehindAQuestion()
{
    m_base->exec(text("UPDATE goods_shop SET count_showroom=1000 WHERE id_goods=10"));
    type(text("4820000000109"));
    int asked = 0;
    const auto scanAndRefuse = [&](QMessDlg *question) {
        ++asked;
        type(text("4820000000130"));
        QVERIFY(question->isVisible());
        question->reject();
    };
    QVERIFY(withModal<QMessDlg>([&] { type(text("4820000000109")); }, scanAndRefuse));
    QTRY_COMPARE(rows(), 2);
    QCOMPARE(cell(m_chek, 1, 2), text("Молоко"));
    QVERIFY(withModal<QMessDlg>([&] { key(Qt::Key_Escape); }, scanAndRefuse));
    QTRY_COMPARE(rows(), 3);
    QCOMPARE(asked, 2);
    QCOMPARE(focused(), m_search);
}

void TstQRegisterSale::focusReturns()
{
    const auto choose = [&](const char *name, Qt::Key key) {
        auto *box = in<QComboBox>(m_tab.get(), name);
        box->setFocus(Qt::MouseFocusReason);
        const QString before = box->currentText();
        QTest::keyClick(box, key);
        QVERIFY(box->currentText() != before);
        QTRY_COMPARE(focused(), m_search);
    };
    choose("cbKass", Qt::Key_Down);
    choose("cbShop", Qt::Key_Up);
    for (QNTableView *view : {m_goods, m_chek}) {
        view->setFocus();
        QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(view->columnViewportPosition(2) + 30, 5));
        QCOMPARE(focused(), m_search);
    }
    auto *date = in<QDateEdit>(m_tab.get(), "dateEdit");
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Return);
    QTRY_COMPARE(focused(), m_search);
    // Letters that nobody wants are those of a search.
    in<QPushButton>(m_tab.get(), "pbClear")->setFocus();
    type(text("x1"), false);
    QCOMPARE(focused(), m_search);
    QCOMPARE(m_search->text(), text("x1"));
    in<QPushButton>(m_tab.get(), "pbClear")->setFocus();
    QTest::keyClick(focused(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(focused(), m_search);
}

/// Seen, asked about once, and gone with the receipt.
void TstQRegisterSale::anotherDate()
{
    auto *date = in<QDateEdit>(m_tab.get(), "dateEdit");
    const QDate today = QDate::currentDate();
    const QPalette usual = date->palette();
    const auto choose = [&](const QDate &day) {
        date->setFocus();
        date->setDate(day);
    };
    choose(today.addDays(-3));
    QVERIFY(date->palette().color(QPalette::Base) != usual.color(QPalette::Base));
    type(text("4820000000109"));
    const QString said = asked([this] { key(Qt::Key_F9); }, false);
    QVERIFY2(said.contains(today.addDays(-3).toString(text("dd.MM.yyyy"))), qPrintable(said));
    QCOMPARE(cheks(), QString());
    QVERIFY(withModal<QPayment>([this] { asked([this] { key(Qt::Key_F9); }, true); },
                                [this](QPayment *) { key(Qt::Key_Escape); }));
    pay();
    QCOMPARE(m_base->value(text("SELECT DATE(data_time) FROM cheks WHERE id_type=3")),
             today.addDays(-3).toString(Qt::ISODate));
    QCOMPARE(date->date(), today);
    QCOMPARE(date->palette().color(QPalette::Base), usual.color(QPalette::Base));
    type(text("4820000000109"));
    pay();
    QCOMPARE(m_base->value(text("SELECT DATE(MAX(data_time)) FROM cheks")), today.toString(Qt::ISODate));
}

/// Filled before midnight, paid after it: the receipt is of the day on which it is written.
void TstQRegisterSale::midnight()
{
    const QDate evening(2026, 11, 23);
    SaleClock::setSource([&] { return QDateTime(evening, QTime(23, 59, 50)); });
    key(Qt::Key_Escape);
    type(text("4820000000109"));
    QCOMPARE(in<QDateEdit>(m_tab.get(), "dateEdit")->date(), evening);
    SaleClock::setSource([&] { return QDateTime(evening.addDays(1), QTime(0, 0, 5)); });
    pay();
    SaleClock::setSource({});
    QCOMPARE(m_base->value(text("SELECT data_time+0 FROM cheks WHERE id_type=3")), text("20261124000005"));
}

void TstQRegisterSale::changesAreToldBeforePayment()
{
    type(text("4820000000109"));
    m_base->exec(text("UPDATE goods SET price=9900 WHERE id=10"));
    QVERIFY(asked([this] { key(Qt::Key_F9); }, false).contains(text("50.00 → 99.00")));
    QCOMPARE(cell(m_chek, 0, 15), text("50.00"));
    QVERIFY(withModal<QPayment>(
        [this] { asked([this] { key(Qt::Key_F9); }, true); },
        [this](QPayment *payment) { QCOMPARE(in<QLabel>(payment, "lbToPay")->text(), text("99.00")); }));
    QCOMPARE(cell(m_chek, 0, 15), text("99.00"));
    m_base->exec(text("UPDATE goods SET price=5000,block=1 WHERE id=10"));
    key(Qt::Key_F9);
    m_base->exec(text("UPDATE goods SET block=0 WHERE id=10"));
    QVERIFY2(notice().contains(text("заблоковано")), qPrintable(notice()));
    QCOMPARE(cheks(), QString());
    // The register goes while the payment is taken.
    QVERIFY(withModal<QPayment>([this] { asked([this] { key(Qt::Key_F9); }, true); },
                                [this](QPayment *) {
                                    m_base->exec(text("UPDATE kassa SET block=1 WHERE id=1"));
                                    key(Qt::Key_F5);
                                    key(Qt::Key_Return);
                                }));
    m_base->exec(text("UPDATE kassa SET block=0 WHERE id=1"));
    QVERIFY2(notice().contains(text("заблоковано")), qPrintable(notice()));
    QCOMPARE(cheks(), QString());
    QCOMPARE(rows(), 1);
}

void TstQRegisterSale::writtenReceiptIsTold()
{
    auto *show = in<QPushButton>(m_tab.get(), "pbShowSlip");
    auto *print = in<QPushButton>(m_tab.get(), "pbPrintSlip");
    QSignalSpy wanted(m_tab.get(), &QRegisterSale::slipWanted);
    selectKass("Каса 2");
    type(text("4820000000109"));
    QVERIFY(!show->isVisible());
    QVERIFY(withModal<QPayment>([this] { key(Qt::Key_F9); },
                                [](QPayment *payment) {
                                    in<MoneySpinBox>(payment, "dsbCash")->setKopecks(5000);
                                    in<MoneySpinBox>(payment, "dsbGiven")->setKopecks(20000);
                                    payment->ok();
                                }));
    QCOMPARE(notice(), text("Чек № 1, 50.00, решта 150.00"));
    show->click();
    print->click();
    QCOMPARE(wanted, (QList<QList<QVariant>>{{text("2"), 1, false}, {text("2"), 1, true}}));
    type(text("4820000000109"));
    QVERIFY(!show->isVisible() && !print->isVisible());
}

void TstQRegisterSale::accessKeys_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("receive") << 1;
    QTest::newRow("sale") << 2;
    QTest::newRow("move") << 3;
    QTest::newRow("transfer") << 4;
}

/// Each letter opens one thing, and none that the menu bar opens.
void TstQRegisterSale::accessKeys()
{
    QFETCH(int, mode);
    (m_tab.get()->*(mode == 1   ? &QRegisterSale::admissionmode
                    : mode == 2 ? &QRegisterSale::salemode
                    : mode == 3 ? &QRegisterSale::movingmode
                                : &QRegisterSale::transfermode))();
    const auto *documents = in<QStackedWidget>(m_tab.get(), "documents");
    QString taken = text("атзопеікдс");
    const auto children = m_tab->findChildren<QWidget *>();
    for (const QWidget *widget : children) {
        const QString caption = widget->property("text").toString();
        const int at = caption.indexOf(QLatin1Char('&'));
        const bool isBehind =
            documents->isAncestorOf(widget) && !documents->currentWidget()->isAncestorOf(widget);
        if (at < 0 || isBehind ||
            (qobject_cast<const QLabel *>(widget) == nullptr &&
             qobject_cast<const QAbstractButton *>(widget) == nullptr))
            continue;
        const QChar letter = caption.at(at + 1).toLower();
        QVERIFY2(!taken.contains(letter), qPrintable(caption));
        taken.append(letter);
    }
    QVERIFY(taken.size() > 19);
}

/// With large letters and a long address; the names of the goods get the room that is left.
void TstQRegisterSale::fitsASmallScreen()
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(12);
    QApplication::setFont(large);
    m_base->exec(text("UPDATE shops SET address=CONCAT(address,REPEAT(' довга',15)) WHERE id=1"));
    {
        QRegisterSale tab(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
        // What the window around it needs is 24 pixels wide and 100 high.
        const QSize least = tab.minimumSizeHint();
        QVERIFY2(least.width() <= 1000 && least.height() <= 500,
                 qPrintable(text("%1 x %2").arg(least.width()).arg(least.height())));
        tab.resize(1300, 500);
        tab.show();
        for (const char *name : {"viewGoods", "viewChek"}) {
            const auto *view = in<QNTableView>(&tab, name);
            QTRY_COMPARE(view->horizontalHeader()->length(), view->viewport()->width());
            // Twenty digits at least.
            QVERIFY(view->columnWidth(2) > 220);
        }
    }
    m_base->exec(text("UPDATE shops SET address='вул. Перша, 1' WHERE id=1"));
    QApplication::setFont(usual);
}

void TstQRegisterSale::whatCannotBeSold()
{
    key(Qt::Key_F9);
    QCOMPARE(notice(), text("У чеку немає товарів."));
    type(text("4820000000154"));
    QVERIFY(notice().contains(QStringLiteral("не має ціни")));
    QCOMPARE(rows(), 0);
    type(text("4820000000109"));
    auto *discount = in<MoneySpinBox>(m_tab.get(), "dsbDiscount");
    discount->setFocus();
    discount->setKopecks(5001);
    key(Qt::Key_Return);
    key(Qt::Key_F9);
    QCOMPARE(notice(), text("Знижка більша за суму чека."));
    discount->setFocus();
    discount->setKopecks(500);
    key(Qt::Key_Return);
    QCOMPARE(cell(m_chek, 0, 17), text("5.00"));
    pay(QString(), {Qt::Key_Escape});
    QCOMPARE(rows(), 1);
    QCOMPARE(cheks(), QString());
    pay();
    QCOMPARE(cheks(), text("1|5000 2|500 3|4500"));
    // Free goods: nothing is written and nothing shown.
    m_base->exec(text("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(10,1,1,0,0)"));
    type(text("4820000000109"));
    key(Qt::Key_F9);
    QCOMPARE(notice(), QString());
    QCOMPARE(cheks(), text("1|5000 2|500 3|4500"));
}

void TstQRegisterSale::busyShift()
{
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(5,1,1,2,0)"));
    selectKass("Каса 2");
    selectKass("Каса 1");
    QVERIFY(in<QLabel>(m_tab.get(), "lbShift")->text().contains(QStringLiteral("Друга Зміна")));
    type(text("4820000000109"));
    const QString busy =
        text("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    QCOMPARE(answerQuestion([this] { key(Qt::Key_F9); }), busy);
    // Somebody opens the shift while the payment is taken: nothing stays open when the box is shown.
    m_base->exec(text("DELETE FROM z_zvit"));
    QStringList statements;
    Db::setStatementHook([&](const QString &sql) {
        statements.append(sql);
        if (sql == QLatin1String("START TRANSACTION"))
            m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) "
                              "VALUES(6,1,1,2,0)"));
    });
    QCOMPARE(answerQuestion([this] { pay(); }), busy);
    QCOMPARE(statements.last(), text("ROLLBACK"));
    QCOMPARE(cheks(), QString());
    QCOMPARE(rows(), 1);
}

void TstQRegisterSale::receiptIsNotLostSilently()
{
    type(text("4820000000109"));
    m_search->setText(text("48"));
    key(Qt::Key_Escape);
    QCOMPARE(m_search->text(), QString());
    QCOMPARE(rows(), 1);
    const QString question = text("У чеку є товари, чек ще не оплачено.\nОчистити його?");
    QCOMPARE(asked([this] { key(Qt::Key_Escape); }, false), question);
    QCOMPARE(asked([this] { m_tab->close(); }, false), question);
    QVERIFY(m_tab->isVisible());
    QCOMPARE(asked([this] { selectKass("Каса 2"); }, false), question);
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->currentText(), text("Каса 1"));
    auto *date = in<QDateEdit>(m_tab.get(), "dateEdit");
    QCOMPARE(asked([&] { date->setDate(QDate(2026, 1, 2)); }, false), question);
    QCOMPARE(date->date(), QDate::currentDate());
    QCOMPARE(rows(), 1);
    QCOMPARE(asked([&] { in<QComboBox>(m_tab.get(), "cbShop")->setCurrentIndex(0); }, true), question);
    QCOMPARE(rows(), 0);
    QVERIFY(m_tab->close());
}

/// The window ends it without asking when the user logs out.
void TstQRegisterSale::endsWhileSomethingIsTyped()
{
    for (const bool isQuantity : {true, false}) {
        cleanup();
        init();
        type(text("4820000000109"));
        if (isQuantity)
            key(Qt::Key_Asterisk);
        else
            in<MoneySpinBox>(m_tab.get(), "dsbDiscount")->setFocus(Qt::TabFocusReason);
        type(text("3"), false);
        m_tab.reset();
        QTest::qWait(1);
    }
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

void TstQRegisterSale::failedSaleKeepsTheReceipt()
{
    type(text("4820000000109"));
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith(QLatin1String("UPDATE goods_shop")))
            m_base->killConnection();
    });
    pay();
    Db::setStatementHook({});
    QCOMPARE(rows(), 1);
    QVERIFY(notice().contains(QStringLiteral("не записано")));
    QVERIFY(m_base->heard.has(QStringLiteral("Помилка запиту:"), 1));
    QVERIFY(m_base->heard.all().first().location.startsWith(
        QLatin1String("In file: managment/qregistersale line: ")));
    QCOMPARE(cheks(), QString());
    waitOutLoss(*m_base->connection());
    pay();
    QCOMPARE(cheks(), text("1|5000 3|5000"));
}

/// The server commits, its answer is lost and it cannot be asked either; then it can.
void TstQRegisterSale::unclearReceiptIsNotDoubled()
{
    type(text("4820000000109"));
    loseAnswerToCommit(m_base.get());
    pay();
    QVERIFY(notice().contains(QStringLiteral("невідомо, чи його записано")));
    QCOMPARE(rows(), 1);
    Db::setStatementHook({});
    key(Qt::Key_Plus);
    QCOMPARE(cell(m_chek, 0, 9), text("1"));
    m_base->exec(text("RENAME TABLE away TO cheks"));
    key(Qt::Key_F9);
    QCOMPARE(notice(), text("Чек № 1, 50.00"));
    QCOMPARE(rows(), 0);
    QCOMPARE(cheks(), text("1|5000 3|5000"));
}

/// No way out of it but the server's answer, or a decision about closing the tab.
void TstQRegisterSale::unclearReceiptStaysUnclear()
{
    type(text("4820000000109"));
    loseAnswerToCommit(m_base.get());
    pay();
    Db::setStatementHook({});
    const QVector<std::function<void()>> ways = {
        [&] { selectKass("Каса 2"); },
        [&] { in<QComboBox>(m_tab.get(), "cbShop")->setCurrentIndex(0); },
        [&] { in<QDateEdit>(m_tab.get(), "dateEdit")->setDate(QDate(2026, 1, 2)); },
        [&] { key(Qt::Key_Escape); },
        [&] { in<QPushButton>(m_tab.get(), "pbClear")->click(); },
        [&] { key(Qt::Key_Delete); },
        [&] { type(text("4820000000130")); },
        [&] { key(Qt::Key_F9); },
        [&] { key(Qt::Key_F12); },
    };
    for (const auto &way : ways) {
        way();
        waitOutTasks();
        QVERIFY(notice().contains(text("чека № 1")));
        QCOMPARE(rows(), 1);
        QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->currentText(), text("Каса 1"));
        QCOMPARE(in<QDateEdit>(m_tab.get(), "dateEdit")->date(), QDate::currentDate());
    }
    const auto closeAndWait = [&] {
        m_tab->close();
        waitOutTasks();
        QTest::qWait(1);
    };
    QVERIFY(asked(closeAndWait, false).contains(text("50.00")));
    QVERIFY(m_tab->isVisible());
    m_base->exec(text("RENAME TABLE away TO cheks"));
    // It was written, as the next choice learns. What was scanned meanwhile is the next receipt, and asked
    // about before that choice goes on.
    QCOMPARE(asked([this] { selectKass("Каса 2"); }, true),
             text("У чеку є товари, чек ще не оплачено.\nОчистити його?"));
    QCOMPARE(rows(), 0);
    QCOMPARE(in<QComboBox>(m_tab.get(), "cbKass")->currentText(), text("Каса 2"));
    QVERIFY(notice().contains(text("Чек № 1")));
    QCOMPARE(cheks(), text("1|5000 3|5000"));
}

void TstQRegisterSale::viewOnlyUser()
{
    m_base->exec(text("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
    QVERIFY(m_user->reload(m_base->connection()));
    m_tab->hide();
    QRegisterSale tab(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    QVERIFY(showActive(&tab));
    QVERIFY(!in<QPushButton>(&tab, "pbSale")->isEnabled());
    QVERIFY(in<QLabel>(&tab, "lbNotice")->text().contains(QStringLiteral("Лише перегляд")));
    auto *search = in<QLineEdit>(&tab, "leSearch");
    QTest::keyClicks(search, QStringLiteral("4820000000109"));
    key(Qt::Key_Return);
    QCOMPARE(in<QNTableView>(&tab, "viewChek")->model()->rowCount(), 0);
    key(Qt::Key_F9);
    tab.sale();
    QVERIFY(in<QLabel>(&tab, "lbNotice")->text().contains(QStringLiteral("Лише перегляд")));
    QCOMPARE(cheks(), QString());
    // Rights that are read again hold for the open tab.
    const auto readAgain = [&](const char *permission) {
        m_base->exec(text("UPDATE lst_permis SET permission=%1 WHERE id_prem=101").arg(text(permission)));
        QVERIFY(m_user->reload(m_base->connection()));
    };
    readAgain("1");
    QVERIFY(in<QPushButton>(&tab, "pbSale")->isEnabled());
    QCOMPARE(in<QLabel>(&tab, "lbNotice")->text(), QString());
    search->setText(text("4820000000109"));
    key(Qt::Key_Return);
    readAgain("2");
    QVERIFY(!in<QPushButton>(&tab, "pbSale")->isEnabled());
    key(Qt::Key_Plus);
    key(Qt::Key_Delete);
    key(Qt::Key_F9);
    QCOMPARE(cell(in<QNTableView>(&tab, "viewChek"), 0, 9), text("1"));
    QCOMPARE(cheks(), QString());
}

QTEST_MAIN(TstQRegisterSale)
#include "tst_qregistersale.moc"
