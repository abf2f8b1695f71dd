#include "qmanfinance.h"

#include "cashmoves.h"
#include "chekorigin.h"
#include "invoicelist.h"
#include "invoicepane.h"
#include "listpane.h"
#include "moneyspinbox.h"
#include "noticebar.h"
#include "qcashreport.h"
#include "qclosecash.h"
#include "qloadeduser.h"
#include "qmancash.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qsendcash.h"
#include "qservicecash.h"
#include "rangeselector.h"
#include "saleclock.h"
#include "workplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>

namespace {
QString shownText(const QRowModel *model, int row, int column)
{
    return model->index(row, column).data().toString().replace(QChar::Nbsp, ' ');
}

/// Behind a question no window manager does that here; a second reading may follow the first one.
void activate(EditDialog *window)
{
    window->activateWindow();
    const auto hasKeys = [=] {
        return !window->isBusy() && window->isAncestorOf(QApplication::focusWidget());
    };
    if (!QTest::qWaitForWindowActive(window) || !QTest::qWaitFor(hasKeys))
        qFatal("The window does not become active");
}

void pressWrite(EditDialog *window)
{
    activate(window);
    pressKeys({Qt::Key_F9});
}

QStringList rowsOf(const QRowModel *model, const QVector<int> &columns)
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(shownText(model, row, column));
        rows.append(cells.join('|'));
    }
    return rows;
}
} // namespace

/// The page of cash: its transfers and the report of all that moved. Shops: 10 "Львів" (group 2, registers 1
/// and 2 "Каса"), 11 "Київ" (group 3, register 3 "Каса"), 14 "Чужий" (group 4, not seen).
class TstQManFinance : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void transfersTellWhatBecameOfThem();
    void statesAndDirections();
    void paperOfTheChosenOne();
    void rightsDecideWhatMayBeDone();
    void sentByKeys();
    void acceptedWithADifference();
    void cancelledBySender();
    void closedByOthersMeanwhile();
    void untouchedWindowsClose();
    void unclearSending();
    void movesAddUp_data();
    void movesAddUp();
    void kindsAndPlaces();
    void closingsAreMovesToo();
    void movesLeadOn();
    void serviceCashFromTheReport();
    void cashOfTheHomeShop();
    void nothingYet();
    void pageGoesToAnInvoice();

private:
    void open(int right = Permission::Full);
    void await();
    void showReport();
    void choose(const char *box, const QString &text);
    QStringList transfers();
    /// "name|moves|in|out|sent|on the way|missing|accepted"
    QStringList sums();
    bool isOffered(const char *button)
    {
        return child<QPushButton>(m_page->transfers(), button)->isEnabled();
    }
    void selectTransfer(const QString &number);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QManFinance> m_page;
};

void TstQManFinance::init()
{
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM invoice", "DELETE FROM cheks", "DELETE FROM z_zvit",
                  "DELETE FROM lst_shops_transmit", "UPDATE users SET id_shop=0 WHERE id=1"});
    m_place->clear();
    m_base->exec("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,1,0),"
                 "(11,'Київ',3,1,NULL),(14,'Чужий',4,1,0)");
    m_base->exec(
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,10,'Каса',0),(2,10,NULL,0),(3,11,'Каса',0)");
    m_base->exec("INSERT INTO lst_shops_transmit VALUES(1,10),(1,11),(1,14)");
    m_base->exec(
        "INSERT INTO invoice(id,id_user_with,id_user_to,id_shop_with,id_shop_to,id_kass_with,id_kass_to,"
        "is_cash_goods,cash_send,cash_accept,msg_with,msg_to,data_time_open,data_time_close) VALUES"
        "(1,1,1,10,11,0,0,1,5000,5000,NULL,NULL,20261101080000,20261101120000),"
        "(2,1,1,10,11,1,3,1,100000,99950,'везе водій','мало',20261102080000,20261103120000),"
        "(3,1,NULL,11,14,0,0,1,700,NULL,NULL,NULL,20261103080000,0),"
        "(4,1,NULL,14,10,0,0,1,800,NULL,NULL,NULL,20261104080000,NULL),"
        "(5,1,1,10,11,0,0,1,900,NULL,NULL,'Скасовано',20261105080000,20261105090000),"
        "(6,99,1,11,10,0,0,1,100,250,NULL,NULL,20261106080000,20261106110000),"
        "(7,1,NULL,10,11,0,0,0,NULL,NULL,NULL,NULL,20261107080000,0)");
    m_base->exec(
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,id_good_cln_slujb,name,"
        "summa,data_time) VALUES(10,1,4,1,0,1,4,1,'Службове внесення',50000,20261101075500),"
        "(10,1,4,2,0,1,5,2,'Службове вилучення (накладна № 2)',100000,20261102080000),"
        "(10,2,9,1,0,NULL,5,77,'Інкасація стара',3000,20261102235959),"
        "(11,3,5,8,0,1,4,1,'Службове внесення',700,20261203000000),"
        "(14,9,5,8,0,1,4,1,'Службове внесення',999,20261102000000),"
        "(10,1,4,3,0,1,1,1,'Хліб',11111,20261102080001),(10,1,4,3,2,1,3,0,'',11111,20261102080001)");
    m_base->heard.forget();
    SaleClock::setSource([] { return QDateTime(QDate(2026, 11, 24), QTime(10, 0)); });
}

void TstQManFinance::cleanup()
{
    SaleClock::setSource({});
    Db::setStatementHook({});
    waitOutTasks();
    m_page.reset();
}

void TstQManFinance::open(int right)
{
    m_place->logIn(Permission::Finance, right);
    m_page = std::make_unique<QManFinance>(m_place->connection(), m_place->user(), &m_base->heard,
                                           m_place->settings(), nullptr);
    m_page->setPermission(Permission::Finance);
    m_page->resize(1100, 700);
    QVERIFY(showActive(m_page.get()));
    m_page->report()->findChild<RangeSelector *>()->setDays(QDate(2026, 11, 1), QDate(2026, 11, 30));
    await();
}

void TstQManFinance::await()
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_page->isLoading() && DbTasks::isIdle(), 20000);
}

void TstQManFinance::showReport()
{
    child<QTabWidget>(m_page.get(), "parts")->setCurrentWidget(m_page->report());
    await();
}

void TstQManFinance::choose(const char *box, const QString &text)
{
    auto *combo = child<QComboBox>(child<QTabWidget>(m_page.get(), "parts")->currentWidget(), box);
    const int item = combo->findText(text, Qt::MatchEndsWith);
    QVERIFY2(item >= 0, qPrintable(text));
    combo->setCurrentIndex(item);
    await();
}

/// "number|state|from|to|sent|accepted|difference"
QStringList TstQManFinance::transfers()
{
    QVector<int> columns;
    for (const auto column :
         {InvoiceColumn::Number, InvoiceColumn::State, InvoiceColumn::From, InvoiceColumn::To,
          InvoiceColumn::Sent, InvoiceColumn::Accepted, InvoiceColumn::Difference})
        columns.append(columnAt(InvoiceKind::Cash, column));
    return rowsOf(m_page->transfers()->model(), columns);
}

QStringList TstQManFinance::sums()
{
    QVector<int> columns;
    for (int i = static_cast<int>(CashSum::Name); i < static_cast<int>(CashSum::Count); ++i)
        columns.append(i);
    return rowsOf(m_page->report()->model(), columns);
}

void TstQManFinance::selectTransfer(const QString &number)
{
    const QModelIndex row = m_page->transfers()->list()->indexOf(number);
    QVERIFY(row.isValid());
    m_page->transfers()->view()->setCurrentIndex(row);
    m_page->transfers()->view()->setFocus();
    await();
}

void TstQManFinance::transfersTellWhatBecameOfThem()
{
    open();
    QCOMPARE(
        transfers(),
        QStringList({"4|→ у дорозі|Чужий|Львів|8.00||", "3|→ у дорозі|Київ|Чужий|7.00||",
                     "6|≠ прийнято з різницею|Київ|Львів|1.00|2.50|+1.50", "5|✗ скасовано|Львів|Київ|9.00||",
                     "2|≠ прийнято з різницею|Львів (Каса)|Київ (Каса)|1 000.00|999.50|-0.50",
                     "1|✓ прийнято|Львів|Київ|50.00|50.00|0.00"}));
    const QModelIndex difference =
        m_page->transfers()->model()->index(2, columnAt(InvoiceKind::Cash, InvoiceColumn::Difference));
    QVERIFY(difference.data(Qt::BackgroundRole).isValid());
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
}

void TstQManFinance::statesAndDirections()
{
    open();
    const auto numbers = [this] {
        QStringList found = transfers();
        std::transform(found.begin(), found.end(), found.begin(),
                       [](const QString &row) { return row.section('|', 0, 0); });
        return found.join(' ');
    };
    const QVector<QPair<QString, QString>> states = {
        {"у дорозі", "4 3"}, {"з різницею", "6 2"}, {"прийнято", "1"}, {"скасовано", "5"}};
    for (const auto &[state, found] : states) {
        choose("cbState", state);
        QCOMPARE(numbers(), found);
    }
    choose("cbState", "Усі стани");
    choose("cbShop", "Київ");
    choose("cbDirection", "Відправлені звідси");
    QCOMPARE(numbers(), QString("3 6"));
    choose("cbDirection", "Надіслані сюди");
    QCOMPARE(numbers(), QString("5 2 1"));
}

void TstQManFinance::paperOfTheChosenOne()
{
    open();
    selectTransfer("2");
    const auto *pane = m_page->findChild<InvoicePane *>();
    QCOMPARE(rowsOf(pane->lines()->model(), {0, 1}),
             QStringList({"Надіслано|1 000.00", "Прийнято|999.50", "Різниця|-0.50"}));
    QCOMPARE(pane->lines()->heading(),
             QStringList({"Акт приймання готівки № 2", "З магазину: Львів (Каса)", "До магазину: Київ (Каса)",
                          "Відправлено: 02-11-26 08:00:00, Системний Адмін",
                          "Повідомлення відправника: везе водій",
                          "Прийнято: 03-11-26 12:00:00, Системний Адмін", "Повідомлення одержувача: мало"}));
    selectTransfer("3");
    QCOMPARE(pane->lines()->heading().first(), QString("Накладна на передачу готівки № 3"));
    QCOMPARE(rowsOf(pane->lines()->model(), {0, 1}), QStringList("Надіслано|7.00"));
}

void TstQManFinance::rightsDecideWhatMayBeDone()
{
    open();
    QVERIFY(isOffered("pbSend"));
    for (const auto &[number, accept, cancel] :
         {std::tuple("4", true, false), {"3", false, true}, {"5", false, false}}) {
        selectTransfer(number);
        QCOMPARE(isOffered("pbAccept"), accept);
        QCOMPARE(isOffered("pbCancelInvoice"), cancel);
        QVERIFY(isOffered("pbPrintInvoice"));
    }
    open(2);
    selectTransfer("4");
    QVERIFY(!isOffered("pbAccept") && !isOffered("pbSend") && isOffered("pbPrintInvoice"));
    QVERIFY(child<QPushButton>(m_page->transfers(), "pbSend")->toolTip().contains("готівку передає"));
    QVERIFY(!child<QPushButton>(m_page->report(), "pbService")->isEnabled());
    QVERIFY(!m_page->commands().contains(Command::Add));
    QVERIFY(m_page->isOffered(Command::Export) && m_page->list() == m_page->transfers()->list());
}

/// As a hurried hand does it: into the box, the sum, F9; the new one is the current one then.
void TstQManFinance::sentByKeys()
{
    m_base->exec("UPDATE users SET id_shop=10 WHERE id=1");
    open();
    const bool isOpened = withModal<QSendCash>(
        [this] { m_page->run(Command::Add); },
        [](QSendCash *window) {
            waitOutTasks();
            activate(window);
            QCOMPARE(child<QComboBox>(window, "cbFrom")->currentText(), QString("Львів"));
            auto *to = child<QComboBox>(window, "cbTo");
            // Nobody sends to himself.
            QCOMPARE(to->findText("Львів"), -1);
            QVERIFY(answerQuestion([=] { pressWrite(window); }).contains("Виберіть магазин"));
            to->setCurrentIndex(to->findText("Чужий"));
            QVERIFY(answerQuestion([=] { pressWrite(window); }).contains("більшу за нуль"));
            activate(window);
            child<MoneySpinBox>(window, "dsbSum")->setFocus(Qt::TabFocusReason);
            typeText("1 234,5");
            pressKeys({Qt::Key_Tab});
            typeText("Петренко");
            pressWrite(window);
            waitOutTasks();
        });
    await();
    QVERIFY(isOpened);
    QCOMPARE(m_base->rows("SELECT id_user_with,id_shop_with,id_shop_to,id_kass_with,is_cash_goods,cash_send,"
                          "msg_with FROM invoice WHERE id>7"),
             QStringList("1|10|14|0|1|123450|Петренко"));
    const int row = m_page->transfers()->view()->currentIndex().row();
    QVERIFY2(transfers().at(row).endsWith("|→ у дорозі|Львів|Чужий|1 234.50||"),
             qPrintable(transfers().join('\n')));
}

void TstQManFinance::acceptedWithADifference()
{
    open();
    selectTransfer("4");
    const bool isOpened = withModal<QCloseCash>(
        [] { pressKeys({Qt::Key_Return}); },
        [](QCloseCash *window) {
            waitOutTasks();
            activate(window);
            const auto *difference = child<QLabel>(window, "labelDifference");
            // Nothing is counted before somebody has.
            QCOMPARE(difference->text(), QString("-8.00, не вистачає"));
            child<MoneySpinBox>(window, "dsbCounted")->setFocus(Qt::TabFocusReason);
            typeText("8,05");
            QCOMPARE(difference->text(), QString("+0.05, зайві"));
            auto *kass = child<QComboBox>(window, "cbKass");
            kass->setCurrentIndex(kass->findText("№ 2"));
            waitOutTasks();
            QVERIFY(answerConfirm([=] { pressWrite(window); }, false).contains("різниця +0.05"));
            QVERIFY(window->isVisible());
            answerConfirm([=] { pressWrite(window); }, true);
            waitOutTasks();
        });
    await();
    QVERIFY(isOpened);
    QVERIFY2(transfers().contains("4|≠ прийнято з різницею|Чужий|Львів (№ 2)|8.00|8.05|+0.05"),
             qPrintable(transfers().join('\n') + m_base->heard.texts().join('\n')));
    QCOMPARE(m_base->rows("SELECT id_kass,id_type,id_good_cln_slujb,summa FROM cheks WHERE id_kass=2 AND "
                          "id_chek>1"),
             QStringList("2|4|1|805"));
}

void TstQManFinance::cancelledBySender()
{
    open();
    selectTransfer("3");
    withModal<QCloseCash>(
        [this] {
            QTest::mouseClick(child<QPushButton>(m_page->transfers(), "pbCancelInvoice"), Qt::LeftButton);
        },
        [](QCloseCash *window) {
            waitOutTasks();
            activate(window);
            QVERIFY(!child<QWidget>(window, "dsbCounted")->isVisible());
            QVERIFY(answerQuestion([=] { pressWrite(window); }).contains("чому передачу скасовано"));
            activate(window);
            child<QLineEdit>(window, "leMessage")->setFocus();
            typeText("Дорога");
            pressWrite(window);
            waitOutTasks();
        });
    await();
    QVERIFY(transfers().contains("3|✗ скасовано|Київ|Чужий|7.00||"));
    QCOMPARE(m_base->value("SELECT msg_to FROM invoice WHERE id=3"), QString("Дорога"));
}

void TstQManFinance::closedByOthersMeanwhile()
{
    open();
    selectTransfer("4");
    m_base->exec("UPDATE invoice SET data_time_close=20261104090000,id_user_to=1,cash_accept=800 WHERE id=4");
    withModal<QCloseCash>([] { pressKeys({Qt::Key_Return}); },
                          [](QCloseCash *window) {
                              waitOutTasks();
                              activate(window);
                              child<MoneySpinBox>(window, "dsbCounted")->setFocus(Qt::TabFocusReason);
                              typeText("8");
                              QVERIFY(answerQuestion([=] {
                                          pressWrite(window);
                                          waitOutTasks();
                                      }).contains("вже прийнято"));
                          });
    await();
    QVERIFY(transfers().contains("4|✓ прийнято|Чужий|Львів|8.00|8.00|0.00"));
}

/// Whoever has typed nothing is asked nothing.
void TstQManFinance::untouchedWindowsClose()
{
    open();
    selectTransfer("4");
    const auto leave = [](EditDialog *window) {
        waitOutTasks();
        activate(window);
        pressKeys({Qt::Key_Escape});
        QVERIFY2(!window->isVisible(), window->metaObject()->className());
    };
    withModal<QCloseCash>([] { pressKeys({Qt::Key_Return}); }, leave);
    withModal<QSendCash>([this] { m_page->run(Command::Add); }, leave);
    showReport();
    withModal<QServiceCash>([this] { m_page->run(Command::Add); }, leave);
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM invoice WHERE id>7"), QString("0"));
}

/// What nobody knows to be written stays as it was sent, and is asked for before it is written again.
void TstQManFinance::unclearSending()
{
    m_base->exec("UPDATE users SET id_shop=10 WHERE id=1");
    open();
    withModal<QSendCash>([this] { m_page->run(Command::Add); },
                         [this](QSendCash *window) {
                             waitOutTasks();
                             activate(window);
                             auto *to = child<QComboBox>(window, "cbTo");
                             to->setCurrentIndex(to->findText("Чужий"));
                             child<MoneySpinBox>(window, "dsbSum")->setFocus(Qt::TabFocusReason);
                             typeText("5");
                             Db::setStatementHook([this](const QString &sql) {
                                 if (sql == QLatin1String("COMMIT")) {
                                     commitHere();
                                     m_base->killConnection();
                                 } else if (sql.startsWith(QLatin1String("SELECT COUNT(*) FROM invoice"))) {
                                     m_base->exec("RENAME TABLE invoice TO away");
                                 }
                             });
                             QVERIFY(answerQuestion([=] {
                                         pressWrite(window);
                                         waitOutTasks();
                                     }).contains("невідомо"));
                             Db::setStatementHook({});
                             waitOutLoss(*m_base->connection());
                             QVERIFY(!to->isEnabled() && child<MoneySpinBox>(window, "dsbSum")->isReadOnly());
                             m_base->exec("RENAME TABLE away TO invoice");
                             pressWrite(window);
                             waitOutTasks();
                         });
    await();
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM invoice WHERE id>7"), QString("1"));
}

void TstQManFinance::movesAddUp_data()
{
    QTest::addColumn<QString>("grouping");
    QTest::addColumn<QStringList>("expected");
    // name | moves | in | out | sent | on the way | missing | accepted
    QTest::newRow("shops") << "за магазинами"
                           << QStringList({"Київ|4|||8.00|7.00|-1.50|1 049.50",
                                           "Львів|6|500.00|1 030.00|1 050.00||0.50|2.50"});
    QTest::newRow("registers") << "за касами"
                               << QStringList({"Київ, Каса|1||||||999.50",
                                               "Київ, сейф|3|||8.00|7.00|-1.50|50.00",
                                               "Львів, Каса|3|500.00|1 000.00|1 000.00||0.50|",
                                               "Львів, сейф|2|||50.00|||2.50", "Львів, № 2|1||30.00||||"});
    QTest::newRow("operations") << "за операціями"
                                << QStringList({"внесення: Службове внесення|1|500.00|||||",
                                                "вилучення: Службове вилучення|1||1 000.00||||",
                                                "вилучення: Інкасація стара|1||30.00||||",
                                                "надіслано|4|||1 058.00|7.00|-1.00|",
                                                "прийнято|3||||||1 052.00"});
    // One who is not there any more and one who was never told are two.
    QTest::newRow("people") << "за працівниками"
                            << QStringList({"Системний Адмін|8|500.00|1 000.00|1 057.00|7.00|0.50|1 052.00",
                                            "невідомо|1||30.00||||", "невідомо|1|||1.00||-1.50|"});
    QTest::newRow("days") << "за днями"
                          << QStringList({"01.11.2026|3|500.00||50.00|||50.00",
                                          "02.11.2026|3||1 030.00|1 000.00||0.50|",
                                          "03.11.2026|2|||7.00|7.00||999.50",
                                          "06.11.2026|2|||1.00||-1.50|2.50"});
    QTest::newRow("together") << "одним рядком"
                              << QStringList("Разом|10|500.00|1 030.00|1 058.00|7.00|-1.00|1 052.00");
}

void TstQManFinance::movesAddUp()
{
    QFETCH(QString, grouping);
    QFETCH(QStringList, expected);
    open();
    showReport();
    choose("cbGrouping", grouping);
    QStringList shown = sums();
    if (grouping != "за днями") {
        shown.sort();
        expected.sort();
    }
    QCOMPARE(shown, expected);
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
    const QString totals = child<QLabel>(m_page->report(), "labelTotals")->text().replace(QChar::Nbsp, ' ');
    QCOMPARE(totals,
             QString("Внесено в касу: 500.00 · Вилучено з каси: 1 030.00 · Надіслано: 1 058.00 · З них у "
                     "дорозі: 7.00 · З них не дійшло: -1.00 · Прийнято: 1 052.00"));
}

void TstQManFinance::kindsAndPlaces()
{
    open();
    showReport();
    choose("cbGrouping", "одним рядком");
    const QVector<QPair<QString, QString>> kinds = {
        {"Внесено в каси", "Разом|1|500.00|||||"},
        {"Вилучено з кас", "Разом|2||1 030.00||||"},
        {"Надіслано до магазинів", "Разом|4|||1 058.00|7.00|-1.00|"},
        {"Прийнято від магазинів", "Разом|3||||||1 052.00"},
        {"Ще в дорозі", "Разом|1|||7.00|7.00||"},
        {"Не дійшло", "Разом|2|||1 001.00||-1.00|"}};
    for (const auto &[kind, found] : kinds) {
        choose("cbKind", kind);
        QCOMPARE(sums(), QStringList(found));
    }
    choose("cbKind", "Весь рух готівки");
    choose("cbShop", "Київ");
    QCOMPARE(sums(), QStringList("Разом|4|||8.00|7.00|-1.50|1 049.50"));
    m_page->report()->findChild<RangeSelector *>()->setDays(QDate(2026, 11, 2), QDate(2026, 11, 2));
    await();
    QVERIFY(sums().isEmpty());
    QCOMPARE(m_page->report()->moves()->model()->rowCount(), 0);
    m_page->report()->findChild<RangeSelector *>()->setDays(QDate(2026, 12, 3), QDate(2026, 12, 3));
    await();
    QCOMPARE(sums(), QStringList("Разом|1|7.00|||||"));
    m_page->report()->findChild<RangeSelector *>()->setDays(QDate(2026, 12, 3), QDate(2026, 12, 2));
    await();
    QVERIFY(sums().isEmpty());
}

/// What the operator has entered beside the receipts; shift 9 has nothing else, the open one counts nothing
/// yet.
void TstQManFinance::closingsAreMovesToo()
{
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,vnesenia,viluchenia,data_time) VALUES"
                 "(4,10,1,1,50000,150000,20261102220000),(9,10,2,1,0,3000,20261103220000),"
                 "(5,11,3,1,100,NULL,20261104220000),(6,11,3,1,900,900,0),(3,14,3,1,1,1,20261102220000)");
    // The one of 11 was brought in after that shift's closing, as odd as that is.
    m_base->exec("UPDATE cheks SET id_zvit=6 WHERE id_shop=11");
    // Shift 4 of user 1, who has left, was closed by another.
    m_base->exec(
        {"INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem,id_shop) VALUES"
         "(78,'z78','x','2000000078','Зоя','Яна',1,0)",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,data_time) "
         "VALUES(10,1,4,9,0,78,10,0,20261102220000)"});
    open();
    showReport();
    choose("cbGrouping", "за операціями");
    QVERIFY2(sums().contains("закриття зміни|2|1.00|500.00||||"), qPrintable(sums().join('\n')));
    choose("cbKind", "Внесено в каси");
    QVERIFY2(sums().contains("закриття зміни|1|1.00|||||"), qPrintable(sums().join('\n')));
    choose("cbKind", "Вилучено з кас");
    choose("cbGrouping", "за касами");
    // All that the Z-report of the shift has.
    QVERIFY2(sums().contains("Львів, Каса|2||1 500.00||||"), qPrintable(sums().join('\n')));
    choose("cbGrouping", "за працівниками");
    QVERIFY2(sums().contains("Яна Зоя|1||500.00||||"), qPrintable(sums().join('\n')));
    choose("cbGrouping", "за касами");
    ChekOrigin wanted;
    connect(m_page.get(), &QManFinance::cheksWanted, this,
            [&](const ChekOrigin &origin) { wanted = origin; });
    const QModelIndex line = m_page->report()->list()->indexOf("10/1");
    m_page->report()->view()->setCurrentIndex(line);
    QNTableView *moves = m_page->report()->moves()->view();
    emit moves->doubleClicked(moves->model()->index(1, 0));
    QCOMPARE(wanted.zFrom + '|' + wanted.zTo + '|' + QString::number(wanted.chek), QString("4|4|0"));
}

/// By keyboard: into the moves of the line, from a move to its receipt or its invoice.
void TstQManFinance::movesLeadOn()
{
    open();
    showReport();
    QVector<ChekOrigin> wanted;
    connect(m_page.get(), &QManFinance::cheksWanted, this,
            [&](const ChekOrigin &origin) { wanted.append(origin); });
    QCashReport *report = m_page->report();
    report->view()->setFocus();
    report->view()->setCurrentIndex(report->model()->index(1, static_cast<int>(CashSum::Name)));
    await();
    const QRowModel *moves = report->moves()->model();
    QCOMPARE(moves->rowCount(), 6);
    pressKeys({Qt::Key_Return});
    QVERIFY(report->moves()->view()->hasFocus());
    QVERIFY(m_page->list() == report->moves());
    const auto go = [&](const QString &what) {
        for (int row = 0; row < moves->rowCount(); ++row) {
            if (shownText(moves, row, static_cast<int>(CashMove::What)) == what)
                report->moves()->view()->setCurrentIndex(moves->index(row, 0));
        }
        pressKeys({Qt::Key_Return});
    };
    go("Службове вилучення");
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().shop, DbId(10));
    QCOMPARE(wanted.first().kass, DbId(1));
    QCOMPARE(wanted.first().zFrom + '|' + wanted.first().zTo, QString("4|4"));
    QCOMPARE(wanted.first().chek, 2U);
    go("→ Київ");
    await();
    QCOMPARE(child<QTabWidget>(m_page.get(), "parts")->currentWidget(),
             static_cast<QWidget *>(m_page->transfers()));
    const int row = m_page->transfers()->view()->currentIndex().row();
    QVERIFY2(transfers().value(row).startsWith("2|"), qPrintable(QString::number(row)));
    QCOMPARE(wanted.size(), 1);
}

void TstQManFinance::serviceCashFromTheReport()
{
    open();
    showReport();
    QSignalSpy slip(m_page.get(), &QManFinance::slipWanted);
    const bool isOpened = withModal<QServiceCash>(
        [this] { QTest::mouseClick(child<QPushButton>(m_page->report(), "pbService"), Qt::LeftButton); },
        [](QServiceCash *window) {
            waitOutTasks();
            activate(window);
            auto *shop = child<QComboBox>(window, "cbShop");
            QCOMPARE(shop->findText("Чужий"), -1);
            shop->setCurrentIndex(shop->findText("Львів"));
            waitOutTasks();
            QCOMPARE(child<QComboBox>(window, "cbKass")->count(), 2);
            child<MoneySpinBox>(window, "dsbSum")->setFocus(Qt::TabFocusReason);
            typeText("20");
            pressWrite(window);
            waitOutTasks();
        });
    await();
    QVERIFY(isOpened);
    QCOMPARE(sums(), QStringList({"Київ|4|||8.00|7.00|-1.50|1 049.50",
                                  "Львів|7|520.00|1 030.00|1 050.00||0.50|2.50"}));
    auto *notice = m_page->findChild<NoticeBar *>();
    QVERIFY(notice->text().contains("Внесено в касу 20.00, чек № 4"));
    child<QPushButton>(notice, "pbShowSlip")->click();
    QCOMPARE(slip.value(0), QVariantList({"1", 4, false}));
}

/// In a group that the user does not see.
void TstQManFinance::cashOfTheHomeShop()
{
    m_base->exec("UPDATE users SET id_shop=14 WHERE id=1");
    open();
    showReport();
    QVERIFY(sums().contains("Чужий|2|9.99||8.00|8.00||"));
    choose("cbShop", "Чужий");
    QCOMPARE(sums().size(), 1);
}

void TstQManFinance::nothingYet()
{
    m_base->exec({"DELETE FROM invoice", "DELETE FROM cheks"});
    open();
    QCOMPARE(m_page->transfers()->view()->emptyText(), QString("Готівку між магазинами ще не передавали."));
    showReport();
    QVERIFY(m_page->report()->view()->emptyText().contains("не вносили, не вилучали й не передавали"));
}

void TstQManFinance::pageGoesToAnInvoice()
{
    open();
    showReport();
    Destination destination;
    destination.id = 2;
    m_page->goTo(destination);
    await();
    const int row = m_page->transfers()->view()->currentIndex().row();
    QVERIFY(transfers().value(row).startsWith("2|"));
}

QTEST_MAIN(TstQManFinance)
#include "tst_qmanfinance.moc"
