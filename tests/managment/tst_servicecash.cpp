#include "cashwriter.h"

#include "moneyspinbox.h"
#include "noticebar.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qpayment.h"
#include "qregistersale.h"
#include "qservicecash.h"
#include "saleshop.h"
#include "scanpace.h"
#include "shiftcloser.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlQuery>

namespace {
const QDateTime noon(QDate(2026, 11, 21), QTime(12, 15, 7));
const CashOperation changeIn = {1, "Службове внесення", true};
const CashOperation takenOut = {2, "Службове вилучення", false};
} // namespace

/// Service cash in the shop of the sale tests: the writer, its window, and what the closing makes of it.
class TstServiceCash : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void rowsAreThoseOfTheRegisters();
    void moreThanThereIs();
    void refusals_data();
    void refusals();
    void failureLeavesNothing_data();
    void failureLeavesNothing();
    void takenNumberIsTriedAgain();
    void lostAnswerIsAskedFor_data();
    void lostAnswerIsAskedFor();
    void closingProposesIt();
    void writtenFromTheSaleWindow();
    void shortDrawerIsAskedAbout();
    void windowKnowsWhatItCannotDo();
    void rightThatGoesMeanwhile();
    void unclearIsAskedForBeforeItIsWrittenAgain();

private:
    CashOrder order(const CashOperation &operation, qint64 sum, const QString &remark = {}) const;
    CashWriter::Result write(const CashOrder &order);
    void sellForCash(qint64 pieces);
    QString everything();
    QServiceCash *openWindow(int right = Permission::Finance);
    void type(const char *field, const QString &text);

    const ClockAt m_clock{noon};
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QServiceCash> m_window;
};

void TstServiceCash::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec("INSERT INTO slujb_op(id,name,plus_minus) VALUES(7,'Інкасація O''Neil 5%',NULL)");
    m_base->exec("UPDATE users SET id_shop=1 WHERE id=1");
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstServiceCash::init()
{
    resetSaleShop(m_base.get());
    m_base->exec("UPDATE lst_permis SET permission=1 WHERE id_prem IN (101,102)");
    m_base->exec("UPDATE slujb_op SET plus_minus=0 WHERE id=2");
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    m_base->heard.forget();
}

void TstServiceCash::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    waitOutTasks();
    m_window.reset();
}

void TstServiceCash::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

CashOrder TstServiceCash::order(const CashOperation &operation, qint64 sum, const QString &remark) const
{
    return {{"1", "1", "1"}, operation, sum, remark};
}

CashWriter::Result TstServiceCash::write(const CashOrder &order)
{
    return CashWriter(m_base->db(), order.place).write(order);
}

/// Bread at 50.00.
void TstServiceCash::sellForCash(qint64 pieces)
{
    Receipt receipt;
    ReceiptRow bread = goodsRow(m_base.get(), 10);
    bread.quantity = pieces * 1000;
    receipt.add(bread);
    ChekPayment payment;
    payment.toPay = payment.cash = receipt.toPay();
    const ClockAt then(noon.addSecs(-3600));
    QCOMPARE(ChekWriter(m_base->db(), {"1", "1", "1"}).write(receipt, payment).outcome, ChekWriter::Written);
}

QString TstServiceCash::everything()
{
    return (m_base->rows("SELECT * FROM cheks ORDER BY id_kass,id_chek,id_position") +
            m_base->rows("SELECT * FROM z_zvit"))
        .join('\n');
}

void TstServiceCash::rowsAreThoseOfTheRegisters()
{
    QCOMPARE(write(order(changeIn, 50000)).outcome, DocumentWriter::Written);
    // The shift is opened by it as by a sale, and has none of it in its sums.
    QCOMPARE(m_base->rows("SELECT id_zzvit,id_shop,id_kass,id_user,day,cash,count_cheks,vnesenia,viluchenia,"
                          "data_time=0,PDV_A FROM z_zvit"),
             QStringList("1|1|1|1|1|0|0|0|0|1|2000"));
    sellForCash(2);
    QCOMPARE(write(order({7, "Інкасація O'Neil 5%", false}, 12345, "Петренко")).outcome,
             DocumentWriter::Written);
    QCOMPARE(m_base->rows("SELECT * FROM cheks WHERE id_type IN (4,5) ORDER BY id_chek"),
             QStringList({"1|1|1|1|0|1|4|1|Службове внесення||0|0|50000|0|0|0|0|0|0|2026-11-21 12:15:07",
                          "1|1|1|3|0|1|5|7|Інкасація O'Neil 5% (Петренко)||0|0|12345|0|0|0|0|0|0|2026-11-21 "
                          "12:15:07"}));
    QCOMPARE(m_base->value("SELECT CONCAT(cash,'|',count_cheks,'|',vnesenia,'|',viluchenia) FROM z_zvit"),
             QString("10000|1|0|0"));
    const auto drawer = CashWriter(m_base->db(), {"1", "1", "1"}).drawer();
    QVERIFY(drawer && drawer->zNumber == "1" && drawer->user == "1");
    QCOMPARE(drawer->cash, qint64(50000 + 10000 - 12345));
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstServiceCash::moreThanThereIs()
{
    sellForCash(1);
    const QString before = everything();
    CashWriter::Result result = write(order(takenOut, 6000));
    QCOMPARE(result.outcome, DocumentWriter::Refused);
    QCOMPARE(result.drawer.value_or(-1), qint64(5000));
    QVERIFY2(CashWriter::explanation(result).contains("За зміною в касі 50.00, а вилучається 60.00"),
             qPrintable(result.why));
    QCOMPARE(everything(), before);
    QCOMPARE(write(order(takenOut, 5000)).outcome, DocumentWriter::Written);

    // Agreed to is what was told: somebody has taken more meanwhile.
    CashOrder agreed = order(takenOut, 1000);
    agreed.agreed = -999;
    QCOMPARE(write(agreed).outcome, DocumentWriter::Refused);
    agreed.agreed = -1000;
    QCOMPARE(write(agreed).outcome, DocumentWriter::Written);
    result = write(agreed);
    QCOMPARE(result.drawer.value_or(0), qint64(-1000));
}

void TstServiceCash::refusals_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("back");
    QTest::addColumn<qint64>("sum");
    QTest::addColumn<QString>("words");
    QTest::newRow("nothing") << "SELECT 1"
                             << "SELECT 1" << qint64(0) << "більшу за нуль";
    QTest::newRow("operation turned round")
        << "UPDATE slujb_op SET plus_minus=0 WHERE id=1"
        << "UPDATE slujb_op SET plus_minus=1 WHERE id=1" << qint64(100) << "тим часом змінено";
    QTest::newRow("other's shift") << "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) "
                                      "VALUES(4,1,1,2,0)"
                                   << "SELECT 1" << qint64(100) << "інший користувач";
    QTest::newRow("shift of another shop")
        << "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) "
           "VALUES(4,2,1,1,0)"
        << "SELECT 1" << qint64(100) << "в іншому магазині";
    QTest::newRow("blocked register")
        << "UPDATE kassa SET block=1 WHERE id=1"
        << "UPDATE kassa SET block=0 WHERE id=1" << qint64(100) << "Касу заблоковано";
    QTest::newRow("more than a shift holds")
        << "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,data_time) VALUES(4,1,1,1,2147483600,0)"
        << "SELECT 1" << qint64(100) << "Закрийте зміну";
}

void TstServiceCash::refusals()
{
    QFETCH(QString, change);
    QFETCH(QString, back);
    QFETCH(qint64, sum);
    m_base->exec(change);
    const QString before = everything();
    const CashWriter::Result result = write(order(changeIn, sum));
    m_base->exec(back);
    QVERIFY(result.outcome != DocumentWriter::Written && !result.drawer);
    QFETCH(QString, words);
    QVERIFY2(CashWriter::explanation(result).contains(words), qPrintable(CashWriter::explanation(result)));
    QCOMPARE(everything(), before);
}

void TstServiceCash::failureLeavesNothing_data()
{
    QTest::addColumn<QString>("statement");
    for (const char *statement : {"START TRANSACTION", "FROM slujb_op", "INSERT INTO z_zvit",
                                  "INSERT INTO cheks", " updat ", "COMMIT"})
        QTest::newRow(statement) << statement;
}

void TstServiceCash::failureLeavesNothing()
{
    QFETCH(QString, statement);
    const QString before = everything();
    bool isMet = false;
    Db::setStatementRefusal([&](const QString &sql) {
        const bool isIt = sql.contains(statement);
        isMet = isMet || isIt;
        return isIt ? 1105 : 0;
    });
    const CashWriter::Result result = write(order(changeIn, 100));
    Db::setStatementRefusal({});
    QVERIFY(isMet);
    QCOMPARE(result.outcome, DocumentWriter::Failed);
    QVERIFY(!m_base->heard.texts().isEmpty());
    QCOMPARE(everything(), before);
}

void TstServiceCash::takenNumberIsTriedAgain()
{
    bool isDone = false;
    Db::setStatementHook([&](const QString &sql) {
        if (isDone || !sql.startsWith("INSERT INTO cheks"))
            return;
        isDone = true;
        m_base->execElsewhere("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type) "
                              "VALUES(1,1,1,1,0,3)");
    });
    const CashWriter::Result result = write(order(changeIn, 100));
    QCOMPARE(result.outcome, DocumentWriter::Written);
    QCOMPARE(result.chek.number, 2);
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstServiceCash::lostAnswerIsAskedFor_data()
{
    QTest::addColumn<bool>("canBeAsked");
    QTest::newRow("answered soon") << true;
    QTest::newRow("silent") << false;
}

void TstServiceCash::lostAnswerIsAskedFor()
{
    QFETCH(bool, canBeAsked);
    bool isCommitted = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("COMMIT") && !std::exchange(isCommitted, true)) {
            // The new transaction keeps the client from reconnecting silently.
            QSqlQuery(*m_base->connection()).exec(QStringLiteral("COMMIT AND CHAIN"));
            m_base->killConnection();
        } else if (!canBeAsked && sql.startsWith(QLatin1String("SELECT COUNT(*) FROM cheks"))) {
            m_base->exec("RENAME TABLE cheks TO away");
        }
    });
    const CashOrder wanted = order(changeIn, 100);
    const CashWriter::Result result = write(wanted);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    QCOMPARE(result.outcome, canBeAsked ? DocumentWriter::Written : DocumentWriter::Unclear);
    if (!canBeAsked) {
        QVERIFY(CashWriter::explanation(result).contains("невідомо"));
        m_base->exec("RENAME TABLE away TO cheks");
    }
    const auto isWritten = CashWriter(m_base->db(), wanted.place).isWritten(wanted, result.chek);
    QVERIFY(isWritten.value_or(false));
    CashOrder other = wanted;
    other.sum = 101;
    QVERIFY(!CashWriter(m_base->db(), wanted.place).isWritten(other, result.chek).value_or(true));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks"), QString("1"));
}

/// 500.00 brought in, 100.00 sold for, 200.00 taken out at noon: 400.00 are left, and all 600.00 leave the
/// shift.
void TstServiceCash::closingProposesIt()
{
    write(order(changeIn, 50000));
    sellForCash(2);
    write(order(takenOut, 20000));
    const ShiftCloser closer(m_base->db(), {"1", "1", "1"});
    const auto figures = closer.figures("1");
    QVERIFY(figures.has_value());
    QPayment form(*figures, nullptr);
    QCOMPARE(child<MoneySpinBox>(&form, "dsbCounted")->kopecks(), qint64(40000));
    QCOMPARE(child<MoneySpinBox>(&form, "dsbVnesenia")->kopecks(), qint64(50000));
    QCOMPARE(child<MoneySpinBox>(&form, "dsbViluchenia")->kopecks(), qint64(60000));
    form.show();
    // Nothing differs, so nothing is asked.
    form.ok();
    QCOMPARE(form.result(), int(QDialog::Accepted));
    QCOMPARE(closer.close(*figures, form.count()), ShiftCloser::Closed);
    QCOMPARE(m_base->value("SELECT CONCAT(cash,'|',vnesenia,'|',viluchenia,'|',count_cheks) FROM z_zvit"),
             QString("10000|50000|60000|1"));
    QCOMPARE(m_base->value("SELECT summa FROM cheks WHERE id_type=10"), QString("10000"));
}

void TstServiceCash::type(const char *field, const QString &text)
{
    child<QWidget>(m_window.get(), field)->setFocus(Qt::TabFocusReason);
    typeText(text);
}

QServiceCash *TstServiceCash::openWindow(int right)
{
    QServiceCash::Where where;
    where.right = right;
    m_window = std::make_unique<QServiceCash>(m_base->connection()->connectionName(), m_user.get(),
                                              &m_base->heard, where, nullptr);
    if (!showActive(m_window.get()))
        qFatal("The window does not become active");
    waitOutTasks();
    return m_window.get();
}

/// A receipt that is being filled stays; the slip is offered.
void TstServiceCash::writtenFromTheSaleWindow()
{
    QRegisterSale tab(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    tab.resize(1200, 800);
    QVERIFY(showActive(&tab));
    waitOutTasks();
    scan(&tab, "4820000000109");
    waitOutTasks();
    QSignalSpy slip(&tab, &QRegisterSale::slipWanted);
    const bool isOpened = withModal<QServiceCash>(
        [] { pressKeys({Qt::SHIFT + Qt::Key_F9}); },
        [](QServiceCash *window) {
            waitOutTasks();
            // The register of the tab, and no other.
            const auto *kass = child<QComboBox>(window, "cbKass");
            QCOMPARE(kass->count(), 1);
            QCOMPARE(kass->currentData().toInt(), 1);
            QVERIFY(!kass->isEnabled() && !child<QComboBox>(window, "cbShop")->isEnabled());
            child<MoneySpinBox>(window, "dsbSum")->setFocus(Qt::TabFocusReason);
            typeText("500,5");
            pressKeys({Qt::Key_F9});
            waitOutTasks();
        });
    waitOutTasks();
    QVERIFY(isOpened);
    QCOMPARE(m_base->rows("SELECT id_type,id_good_cln_slujb,summa FROM cheks"), QStringList("4|1|50050"));
    auto *notice = tab.findChild<NoticeBar *>();
    QVERIFY2(notice->text().contains("Внесено в касу 500.50, чек № 1"), qPrintable(notice->text()));
    child<QPushButton>(notice, "pbPrintSlip")->click();
    QCOMPARE(slip.value(0), QVariantList({"1", 1, true}));
    QVERIFY(child<QLabel>(&tab, "lbShift")->text().contains("Зміна № 1 відкрита"));
    answerConfirm([&] { child<QPushButton>(&tab, "pbClear")->click(); }, true);
    waitOutTasks();
}

void TstServiceCash::shortDrawerIsAskedAbout()
{
    sellForCash(1);
    openWindow();
    auto *operation = child<QComboBox>(m_window.get(), "cbOperation");
    operation->setCurrentIndex(operation->findText("− Службове вилучення"));
    type("dsbSum", "60");
    QVERIFY(child<QLabel>(m_window.get(), "labelRest")->text().contains("-10.00"));
    // The safe answer leaves the window with what was typed.
    QVERIFY(answerConfirm(
                [] {
                    pressKeys({Qt::Key_F9});
                    waitOutTasks();
                },
                false)
                .contains("вилучається 60.00"));
    QVERIFY(m_window->isVisible());
    QCOMPARE(child<MoneySpinBox>(m_window.get(), "dsbSum")->kopecks(), qint64(6000));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks WHERE id_type=5"), QString("0"));
    answerConfirm(
        [] {
            pressKeys({Qt::Key_F9});
            waitOutTasks();
        },
        true);
    waitOutTasks();
    QVERIFY(m_window->wasWritten());
    QCOMPARE(m_base->value("SELECT SUM(summa) FROM cheks WHERE id_type=5"), QString("6000"));
}

void TstServiceCash::windowKnowsWhatItCannotDo()
{
    m_base->exec("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(4,1,1,2,0)");
    openWindow();
    // "− Інкасація": NULL in plus_minus is no way in.
    const auto *operations = child<QComboBox>(m_window.get(), "cbOperation");
    QVERIFY(operations->findText("− Інкасація O'Neil 5%") >= 0);
    QVERIFY(child<QLabel>(m_window.get(), "labelDrawer")->text().contains("інший користувач"));
    QVERIFY(answerQuestion([] { pressKeys({Qt::Key_F9}); }).contains("більшу за нуль"));
    type("dsbSum", "5");
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_F9});
                waitOutTasks();
            }).contains("інший користувач"));
    QVERIFY(m_window->isVisible());
    // A scanned code is no sum.
    auto *sum = child<MoneySpinBox>(m_window.get(), "dsbSum");
    sum->setFocus(Qt::TabFocusReason);
    QTest::qWait(ScanPace::gapMs + 20);
    scan(m_window.get(), "4820000000109");
    QCOMPARE(child<MoneySpinBox>(m_window.get(), "dsbSum")->kopecks(), qint64(500));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks"), QString("0"));
}

void TstServiceCash::rightThatGoesMeanwhile()
{
    openWindow();
    type("dsbSum", "5");
    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=102");
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_F9});
                waitOutTasks();
            }).contains("забрали право"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks"), QString("0"));
}

void TstServiceCash::unclearIsAskedForBeforeItIsWrittenAgain()
{
    openWindow();
    type("dsbSum", "5");
    loseAnswerToCommit(m_base.get());
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_F9});
                waitOutTasks();
            }).contains("невідомо"));
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    QVERIFY(!child<QWidget>(m_window.get(), "dsbSum")->isEnabled());
    m_base->exec("RENAME TABLE away TO cheks");
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QVERIFY(m_window->wasWritten());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks"), QString("1"));
}

QTEST_MAIN(TstServiceCash)
#include "tst_servicecash.moc"
