#include "qacceptinvoice.h"

#include "countmodel.h"
#include "invoicewriter.h"
#include "qcancelinvoice.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "saleshop.h"
#include "scanpace.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <utility>

namespace {
const char *const bread = "4820000000109";
const char *const cheese = "0000000000116";
const char *const milk = "4820000000130";
} // namespace

/// The window in which an invoice is counted, by scanner and by hand. Sent to shop 2: three pieces of bread
/// (10), 0.25 of cheese (11, weighed), two bags (12, without a barcode).
class TstQAcceptInvoice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void scannerCountsWhereverTheFocusIs();
    void weighedGoodsAreAsked();
    void unexpectedGoodsAreAdded();
    void unknownCodesAreTold();
    void goodsAreFoundByHand();
    void rowKeysCount();
    void allHasToBeCounted();
    void restAsSentIsADeliberateAct();
    void differencesAreAskedAndWritten();
    void scanBehindAQuestion();
    void closingKeepsWhatWasCounted();
    void somebodyElseWasQuicker();
    void lostAnswer();
    void goneInvoice();
    void cancelling();

private:
    void open();
    QString counts();
    QString told() { return child<QLabel>(m_dialog.get(), "labelTold")->text(); }
    QString stock(int goods);
    void countAll();

    FreshDatabase m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QAcceptInvoice> m_dialog;
    DbId m_invoice = 0;
};

void TstQAcceptInvoice::initTestCase()
{
    fillSaleShop(&m_base);
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base.heard);
    QVERIFY(m_user->loadpermis(m_base.connection(), "admin", ""));
}

void TstQAcceptInvoice::init()
{
    m_base.exec({"DELETE FROM transactions_goods", "DELETE FROM invoice",
                 "UPDATE goods_shop SET count_showroom=10000,count_syllable=0"});
    InvoiceDraft draft;
    draft.user = 2;
    draft.from = 1;
    draft.to = 2;
    draft.place = StockPlace::Showroom;
    draft.message = "Скло!";
    draft.lines = {{10, "Хліб", true, 3000}, {11, "Сир", false, 250}, {12, "Пакет", true, 2000}};
    m_invoice = sendInvoice(m_base.db(), draft).mark.invoice;
    open();
}

void TstQAcceptInvoice::cleanup()
{
    Db::setStatementHook(nullptr);
    m_dialog.reset();
    m_base.heard.forget();
}

void TstQAcceptInvoice::open()
{
    m_dialog = std::make_unique<QAcceptInvoice>(m_base.connection(), m_user.get(), &m_base.heard, m_invoice,
                                                nullptr);
    QVERIFY(showActive(m_dialog.get()));
    waitOutTasks();
}

/// "Name counted/sent difference", a row each.
QString TstQAcceptInvoice::counts()
{
    const CountModel *model = m_dialog->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        const auto cell = [&](int column) { return model->index(row, column).data().toString(); };
        rows.append(QString("%1 %2/%3 %4")
                        .arg(cell(CountModel::Name).section(' ', 0, 0), cell(CountModel::Counted),
                             cell(CountModel::Sent), cell(CountModel::Difference))
                        .trimmed());
    }
    return rows.join("; ");
}

QString TstQAcceptInvoice::stock(int goods)
{
    return m_base.value(
        QString("SELECT count_syllable FROM goods_shop WHERE id_shop=2 AND id_goods=%1").arg(goods));
}

/// As it was sent.
void TstQAcceptInvoice::countAll()
{
    for (int i = 0; i < 3; ++i)
        scan(m_dialog.get(), bread);
    scan(m_dialog.get(), cheese);
    typeText("0,25");
    pressKeys({Qt::Key_Return});
    typeText("12");
    pressKeys({Qt::Key_Return});
    typeText("2");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(counts(), QString("Пакет 2/2 ✓; Сир 0.250/0.250 ✓; Хліб 3/3 ✓"));
}

void TstQAcceptInvoice::scannerCountsWhereverTheFocusIs()
{
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб /3"));
    for (const char *where : {"leGoods", "viewLines", "leMessage", "pbOk", "pbRest"}) {
        child<QWidget>(m_dialog.get(), where)->setFocus();
        scan(m_dialog.get(), bread);
    }
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 5/3 +2"));
    QCOMPARE(child<QLineEdit>(m_dialog.get(), "leMessage")->text(), QString());
    QVERIFY(child<QLineEdit>(m_dialog.get(), "leGoods")->text().isEmpty());
    QVERIFY(child<QLabel>(m_dialog.get(), "labelSums")->text().contains("Пораховано позицій: 1 з 3"));
    QVERIFY(child<QLabel>(m_dialog.get(), "labelSums")->text().contains("Надлишок: 1 (2.000)"));
    QVERIFY(child<QLabel>(m_dialog.get(), "labelWords")->text().contains("Скло!"));
}

/// What is typed is not lost when the next code comes before Enter.
void TstQAcceptInvoice::weighedGoodsAreAsked()
{
    scan(m_dialog.get(), cheese);
    typeText("0.3");
    // A hand that takes the scanner is slower than that.
    QTest::qWait(2 * ScanPace::gapMs);
    scan(m_dialog.get(), bread);
    QTRY_COMPARE(counts(), QString("Пакет /2; Сир 0.300/0.250 +0.050; Хліб 1/3 −2"));
    scan(m_dialog.get(), cheese);
    typeText("x");
    pressKeys({Qt::Key_Escape});
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(counts(), QString("Пакет /2; Сир 0.300/0.250 +0.050; Хліб 1/3 −2"));
}

void TstQAcceptInvoice::unexpectedGoodsAreAdded()
{
    scan(m_dialog.get(), milk);
    waitOutTasks();
    QVERIFY2(told().contains("«Молоко» у накладній немає"), qPrintable(told()));
    scan(m_dialog.get(), milk);
    QTRY_COMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб /3; Молоко 2/не надсилали +2"));
}

void TstQAcceptInvoice::unknownCodesAreTold()
{
    scan(m_dialog.get(), "4829999999999");
    waitOutTasks();
    QVERIFY2(told().contains("«4829999999999» не знайдено"), qPrintable(told()));
    QCOMPARE(m_dialog->model()->rowCount(), 3);
    // Of two at once the known one counts.
    scan(m_dialog.get(), "4829999999998");
    scan(m_dialog.get(), bread);
    waitOutTasks();
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 1/3 −2"));
}

void TstQAcceptInvoice::goodsAreFoundByHand()
{
    typeText("житній хл");
    pressKeys({Qt::Key_Return});
    typeText("2");
    pressKeys({Qt::Key_Return});
    typeText("картопля");
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    typeText("0,7");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 2/3 −1; Картопля 0.700/не надсилали +0.700"));
    // A piece has no half, and what is no number stays out.
    typeText("10");
    pressKeys({Qt::Key_Return});
    typeText("1,5");
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY2(told().contains("ціле число"), qPrintable(told()));
    QVERIFY(counts().contains("Хліб 2/3"));
    const QString warning = answerQuestion([] { pressKeys({Qt::Key_F9}); });
    QVERIFY2(warning.contains("Не пораховано позицій: 2"), qPrintable(warning));
}

void TstQAcceptInvoice::rowKeysCount()
{
    child<QNTableView>(m_dialog.get(), "viewLines")->setCurrentIndex(m_dialog->model()->index(2, 0));
    pressKeys({Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Minus});
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 1/3 −2"));
    pressKeys({Qt::Key_Minus, Qt::Key_Minus});
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 0/3 −3"));
    pressKeys({Qt::Key_Delete});
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб /3"));
}

void TstQAcceptInvoice::allHasToBeCounted()
{
    scan(m_dialog.get(), bread);
    const QString warning = answerQuestion([] { pressKeys({Qt::Key_F9}); });
    QVERIFY2(warning.contains("Не пораховано позицій: 2"), qPrintable(warning));
    QCOMPARE(child<QNTableView>(m_dialog.get(), "viewLines")->currentIndex().row(), 0);
    // A code that was typed and not confirmed would be left out.
    typeText("482");
    const QString left = answerQuestion([] { pressKeys({Qt::Key_F9}); });
    QVERIFY2(left.contains("«482» ще не пораховано"), qPrintable(left));
    QCOMPARE(m_base.value("SELECT COUNT(*) FROM invoice WHERE data_time_close=0"), QString("1"));
}

void TstQAcceptInvoice::restAsSentIsADeliberateAct()
{
    scan(m_dialog.get(), bread);
    auto *rest = child<QPushButton>(m_dialog.get(), "pbRest");
    QString asked = answerConfirm([=] { QTest::mouseClick(rest, Qt::LeftButton); }, false);
    QVERIFY2(asked.contains("Не пораховано позицій: 2"), qPrintable(asked));
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 1/3 −2"));
    asked = answerConfirm([=] { QTest::mouseClick(rest, Qt::LeftButton); }, true);
    // What was counted stays.
    QCOMPARE(counts(), QString("Пакет 2/2 ✓; Сир 0.250/0.250 ✓; Хліб 1/3 −2"));
    QVERIFY(!rest->isEnabled());
}

void TstQAcceptInvoice::differencesAreAskedAndWritten()
{
    countAll();
    scan(m_dialog.get(), milk);
    waitOutTasks();
    scan(m_dialog.get(), cheese);
    typeText("0,2");
    pressKeys({Qt::Key_Return});
    child<QLineEdit>(m_dialog.get(), "leMessage")->setText("Сир важили двічі");
    QString asked = answerConfirm([] { pressKeys({Qt::Key_F9}); }, false);
    QVERIFY2(asked.contains("«Сир ваговий»: надіслано 0.250, є 0.200") &&
                 asked.contains("«Молоко»: надіслано 0, є 1"),
             qPrintable(asked));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(stock(10), QString("0"));
    // Twice, as an impatient hand does.
    asked = answerConfirm([] { pressKeys({Qt::Key_F9}); }, true);
    QTest::mouseClick(child<QPushButton>(m_dialog.get(), "pbOk"), Qt::LeftButton);
    waitOutTasks();
    QVERIFY(!m_dialog->isVisible() && m_dialog->wasWritten());
    QCOMPARE(m_base.rows("SELECT id_good,count_send,count_accept,result FROM transactions_goods ORDER BY 1"),
             QStringList({"10|3000|3000|1", "11|250|200|0", "12|2000|2000|1", "13|0|1000|0"}));
    QCOMPARE(QStringList({stock(10), stock(11), stock(12), stock(13)}),
             QStringList({"3000", "200", "2000", "1000"}));
    QCOMPARE(m_base.rows("SELECT id_user_to,msg_to,data_time_close>0 FROM invoice"),
             QStringList("1|Сир важили двічі|1"));
}

/// What was asked about is not what would be written.
void TstQAcceptInvoice::scanBehindAQuestion()
{
    countAll();
    scan(m_dialog.get(), bread);
    const bool isAsked =
        withModal<QMessDlg>([] { pressKeys({Qt::Key_F9}); },
                            [](QMessDlg *question) {
                                scan(bread);
                                QTest::mouseClick(child<QPushButton>(question, "pb0"), Qt::LeftButton);
                            });
    waitOutTasks();
    QVERIFY(isAsked && m_dialog->isVisible());
    QVERIFY2(told().contains("прийміть ще раз"), qPrintable(told()));
    QVERIFY(counts().contains("Хліб 5/3 +2"));
    QCOMPARE(stock(10), QString("0"));
}

void TstQAcceptInvoice::closingKeepsWhatWasCounted()
{
    scan(m_dialog.get(), bread);
    const QString asked = answerConfirm([] { pressKeys({Qt::Key_Escape}); }, false);
    QVERIFY2(asked.contains("Пораховане ще не записано"), qPrintable(asked));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(counts(), QString("Пакет /2; Сир /0.250; Хліб 1/3 −2"));
    answerConfirm([this] { m_dialog->close(); }, true);
    QVERIFY(!m_dialog->isVisible() && !m_dialog->wasWritten());
    open();
    pressKeys({Qt::Key_Escape});
    QVERIFY(!m_dialog->isVisible());
}

void TstQAcceptInvoice::somebodyElseWasQuicker()
{
    countAll();
    m_base.exec({"UPDATE transactions_goods SET count_accept=count_send,result=1",
                 "UPDATE invoice SET id_user_to=2,data_time_close=20261123101500"});
    const QString warning = answerQuestion([] {
        pressKeys({Qt::Key_F9});
        waitOutTasks();
    });
    QVERIFY2(warning.contains("вже прийнято: Зміна Друга, 23.11.2026 10:15"), qPrintable(warning));
    QVERIFY(!m_dialog->isVisible() && m_dialog->isListOld());
    QCOMPARE(stock(10), QString("0"));
}

void TstQAcceptInvoice::lostAnswer()
{
    countAll();
    bool isCommitted = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && !std::exchange(isCommitted, true)) {
            commitHere();
            m_base.killConnection();
        } else if (isCommitted && sql.startsWith("SELECT COUNT(*) FROM invoice")) {
            m_base.execElsewhere("RENAME TABLE invoice TO away");
            Db::setStatementHook(nullptr);
        }
    });
    const QString warning = answerQuestion([] {
        pressKeys({Qt::Key_F9});
        waitOutTasks();
    });
    Db::setStatementHook(nullptr);
    waitOutLoss(*m_base.connection());
    QVERIFY2(warning.contains("невідомо"), qPrintable(warning));
    QVERIFY(m_dialog->isVisible() && m_dialog->isUnclear());
    m_base.exec("RENAME TABLE away TO invoice");
    // What was counted cannot change any more.
    scan(m_dialog.get(), bread);
    QVERIFY(counts().contains("Хліб 3/3"));
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QVERIFY(m_dialog->wasWritten());
    QCOMPARE(stock(10), QString("3000"));
}

void TstQAcceptInvoice::goneInvoice()
{
    m_invoice = 4711;
    open();
    QVERIFY(!m_dialog->isVisible());
    QVERIFY(m_base.heard.has("Накладної № 4711 немає"));
}

/// A reason is wanted; nothing else is.
void TstQAcceptInvoice::cancelling()
{
    QCancelInvoice dialog(m_base.connection()->connectionName(), &m_base.heard, m_invoice, "а → б", 1,
                          nullptr);
    QVERIFY(showActive(&dialog));
    auto *ok = child<QPushButton>(&dialog, "pbOk");
    const QString warning = answerQuestion([=] { QTest::mouseClick(ok, Qt::LeftButton); });
    QVERIFY2(warning.contains("чому передачу скасовано"), qPrintable(warning));
    child<QLineEdit>(&dialog, "leMessage")->setText("Не той магазин");
    child<QComboBox>(&dialog, "cbPlace")->setCurrentIndex(1);
    QTest::mouseClick(ok, Qt::LeftButton);
    waitOutTasks();
    QVERIFY(!dialog.isVisible() && dialog.wasWritten());
    QCOMPARE(
        m_base.value("SELECT CONCAT(count_showroom,'|',count_syllable) FROM goods_shop WHERE id_shop=1 AND "
                     "id_goods=10"),
        QString("10000|0"));
}

QTEST_MAIN(TstQAcceptInvoice)
#include "tst_qacceptinvoice.moc"
