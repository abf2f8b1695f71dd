#include "cashinvoice.h"

#include "invoicewriter.h"
#include "permissions.h"
#include "saleshop.h"

#include <QSqlQuery>

namespace {
const QDateTime noon(QDate(2026, 11, 23), QTime(12, 30, 5));
const CashOperation in = {1, "Службове внесення", true};
const CashOperation out = {2, "Службове вилучення", false};
constexpr DbId firstShop = 1;
constexpr DbId secondShop = 2;

CashSending sending(qint64 sum, DbId kass = 0)
{
    CashSending sending;
    sending.user = 1;
    sending.end.kass = kass;
    sending.end.operation = out;
    sending.from = firstShop;
    sending.to = secondShop;
    sending.sum = sum;
    return sending;
}

/// As a statement hook: the server commits, its answer is lost; and it cannot be asked, since `invoice` is
/// away.
void loseAnswer(FreshDatabase *base, bool canBeAsked)
{
    auto isCommitted = std::make_shared<bool>(false);
    Db::setStatementHook([=](const QString &sql) {
        if (sql == QLatin1String("COMMIT") && !std::exchange(*isCommitted, true)) {
            QSqlQuery(*base->connection()).exec(QStringLiteral("COMMIT AND CHAIN"));
            base->killConnection();
        } else if (!canBeAsked && sql.startsWith(QLatin1String("SELECT COUNT(*) FROM invoice"))) {
            base->exec("RENAME TABLE invoice TO away");
            Db::setStatementHook(nullptr);
        }
    });
}
} // namespace

/// Cash between shop 1, whose registers are 1 and 2, and shop 2, whose register 4 bears the name of
/// register 1.
class TstCashInvoice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void fromSafeToSafe();
    void fromRegisterToRegister();
    void cancelledComesBack();
    void moreThanTheRegisterHas();
    void refusedDrafts();
    void registerThatRefuses_data();
    void registerThatRefuses();
    void oneOfTwoReceiversWins();
    void goodsAreNoneOfThis();
    void changedSumIsNotMoved();
    void rightThatIsGone();
    void failureLeavesNothing_data();
    void failureLeavesNothing();
    void anotherProgramInTheWay();
    void lostAnswerIsAskedFor_data();
    void lostAnswerIsAskedFor();

private:
    DbId send(qint64 sum, DbId kass = 0);
    CashAcceptance accepting(DbId invoice, qint64 sent, qint64 counted, DbId kass = 0) const;
    CashCancelling cancelling(DbId invoice, qint64 sent, DbId kass = 0) const;
    InvoiceResult write(const QString &what, const std::optional<InvoiceMark> &unclear = {});
    QString everything();
    QStringList receipts()
    {
        return m_base.rows("SELECT id_shop,id_kass,id_chek,id_user,id_type,id_good_cln_slujb,name,summa FROM "
                           "cheks ORDER BY id_kass,id_chek");
    }

    FreshDatabase m_base;
    const ClockAt m_clock{noon};
    /// For write(): what is on the way.
    DbId m_onTheWay = 0;
};

void TstCashInvoice::initTestCase()
{
    fillSaleShop(&m_base);
    m_base.exec("INSERT INTO slujb_op(id,name,plus_minus) VALUES(8,'Інкасація',0)");
}

void TstCashInvoice::init()
{
    resetSaleShop(&m_base);
    m_base.exec({"DELETE FROM transactions_goods", "DELETE FROM invoice",
                 "UPDATE shops SET block=0 WHERE id<3",
                 "UPDATE lst_permis SET permission=1 WHERE id_prem=102"});
    // 100.00 in register 1, which the user 1 works at, and register 4, at which the user 2 works.
    m_base.exec(
        {"INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,data_time) VALUES(3,1,1,1,10000,0)",
         "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,data_time) VALUES(7,2,4,2,500,0)"});
    m_base.heard.forget();
}

void TstCashInvoice::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
}

DbId TstCashInvoice::send(qint64 sum, DbId kass)
{
    const InvoiceResult result = sendCash(m_base.db(), sending(sum, kass));
    return result.outcome == InvoiceResult::Written ? result.mark.invoice : 0;
}

CashAcceptance TstCashInvoice::accepting(DbId invoice, qint64 sent, qint64 counted, DbId kass) const
{
    CashAcceptance acceptance;
    acceptance.user = 2;
    acceptance.end.kass = kass;
    acceptance.end.operation = in;
    acceptance.message = QStringLiteral(" перераховано 'двічі' 100% ");
    acceptance.invoice = invoice;
    acceptance.sent = sent;
    acceptance.counted = counted;
    return acceptance;
}

CashCancelling TstCashInvoice::cancelling(DbId invoice, qint64 sent, DbId kass) const
{
    CashCancelling cancelling;
    cancelling.user = 1;
    cancelling.end.kass = kass;
    cancelling.end.operation = in;
    cancelling.message = QStringLiteral("Машина не поїхала");
    cancelling.invoice = invoice;
    cancelling.sent = sent;
    return cancelling;
}

/// All that a transfer may change.
QString TstCashInvoice::everything()
{
    return (m_base.rows("SELECT * FROM invoice ORDER BY id") +
            m_base.rows("SELECT * FROM cheks ORDER BY 2,4") +
            m_base.rows("SELECT * FROM z_zvit ORDER BY 1,2"))
        .join('\n');
}

void TstCashInvoice::fromSafeToSafe()
{
    CashSending wanted = sending(123456789);
    wanted.message = QStringLiteral("  O'Neil 5% \\ ");
    const InvoiceResult sent = sendCash(m_base.db(), wanted);
    QCOMPARE(sent.outcome, InvoiceResult::Written);
    QCOMPARE(
        m_base.rows("SELECT * FROM invoice"),
        QStringList(
            QString("%1|1||1|2|0|0|1|123456789||O'Neil 5% \\||2026-11-23 12:30:05|").arg(sent.mark.invoice)));
    QCOMPARE(m_base.value("SELECT data_time_close=0 FROM invoice"), QString("1"));
    const DbId id = sent.mark.invoice;
    QCOMPARE(acceptCash(m_base.db(), accepting(id, 123456789, 123456700)).outcome, InvoiceResult::Written);
    QCOMPARE(m_base.rows("SELECT id_user_to,cash_send,cash_accept,msg_to,data_time_close FROM invoice"),
             QStringList("2|123456789|123456700|перераховано 'двічі' 100%|2026-11-23 12:30:05"));
    QVERIFY(receipts().isEmpty());
    // Nothing came at all: that is an acceptance, too.
    const DbId lost = send(500);
    QCOMPARE(acceptCash(m_base.db(), accepting(lost, 500, 0, 4)).outcome, InvoiceResult::Written);
    QCOMPARE(m_base.value(QString("SELECT cash_accept FROM invoice WHERE id=%1").arg(lost)), QString("0"));
    QVERIFY(receipts().isEmpty());
}

/// The receipts of both registers stand or fall with the invoice, and say which it was.
void TstCashInvoice::fromRegisterToRegister()
{
    const DbId id = send(9900, 1);
    QCOMPARE(receipts(), QStringList(QString("1|1|1|1|5|2|Службове вилучення (накладна № %1)|9900").arg(id)));
    QCOMPARE(acceptCash(m_base.db(), accepting(id, 9900, 9800, 4)).outcome, InvoiceResult::Written);
    QCOMPARE(receipts().value(1), QString("2|4|1|2|4|1|Службове внесення (накладна № %1)|9800").arg(id));
    QCOMPARE(m_base.rows("SELECT id_kass_with,id_kass_to FROM invoice"), QStringList("1|4"));
    // The shifts keep what was sold.
    QCOMPARE(m_base.rows("SELECT id_kass,cash,vnesenia,viluchenia FROM z_zvit ORDER BY 1"),
             QStringList({"1|10000|0|0", "4|500|0|0"}));
}

void TstCashInvoice::cancelledComesBack()
{
    const DbId id = send(9900, 1);
    m_base.exec("UPDATE shops SET block=1 WHERE id=2");
    QCOMPARE(cancelCash(m_base.db(), cancelling(id, 9900, 1)).outcome, InvoiceResult::Written);
    QCOMPARE(m_base.rows("SELECT id_user_to,cash_accept IS NULL,msg_to,data_time_close FROM invoice"),
             QStringList("1|1|Машина не поїхала|2026-11-23 12:30:05"));
    QCOMPARE(receipts().value(1), QString("1|1|2|1|4|1|Службове внесення (накладна № %1)|9900").arg(id));
    const QString before = everything();
    const InvoiceResult late = acceptCash(m_base.db(), accepting(id, 9900, 9900));
    QCOMPARE(late.outcome, InvoiceResult::Closed);
    QVERIFY2(late.why.contains("вже скасовано: Системний Адмін"), qPrintable(late.why));
    QCOMPARE(everything(), before);
}

void TstCashInvoice::moreThanTheRegisterHas()
{
    const QString before = everything();
    const InvoiceResult result = sendCash(m_base.db(), sending(10001, 1));
    QCOMPARE(result.outcome, InvoiceResult::Short);
    QCOMPARE(result.drawer, qint64(10000));
    QCOMPARE(everything(), before);
    CashSending agreed = sending(10001, 1);
    agreed.end.agreed = -1;
    QCOMPARE(sendCash(m_base.db(), agreed).outcome, InvoiceResult::Written);
    // Once more is below what was agreed to.
    QCOMPARE(sendCash(m_base.db(), agreed).outcome, InvoiceResult::Short);
}

void TstCashInvoice::refusedDrafts()
{
    const QString before = everything();
    CashSending wanted = sending(0);
    QVERIFY(sendCash(m_base.db(), wanted).why.contains("більшу за нуль"));
    wanted = sending(5);
    wanted.to = firstShop;
    QVERIFY(sendCash(m_base.db(), wanted).why.contains("того самого магазину"));
    wanted.to = 5;
    QVERIFY(sendCash(m_base.db(), wanted).why.contains("«Зачинений» заблоковано: готівку"));
    QCOMPARE(everything(), before);
}

void TstCashInvoice::registerThatRefuses_data()
{
    QTest::addColumn<DbId>("kass");
    QTest::addColumn<DbId>("operation");
    QTest::addColumn<QString>("words");
    QTest::newRow("of another shop") << DbId(4) << DbId(2) << "інший користувач";
    QTest::newRow("blocked") << DbId(3) << DbId(2) << "Касу заблоковано";
    QTest::newRow("operation that brings in") << DbId(1) << DbId(1) << "тим часом змінено";
    QTest::newRow("no operation") << DbId(1) << DbId(99) << "тим часом змінено";
}

/// The invoice was written before in the same transaction.
void TstCashInvoice::registerThatRefuses()
{
    QFETCH(DbId, kass);
    QFETCH(DbId, operation);
    QFETCH(QString, words);
    const QString before = everything();
    CashSending wanted = sending(100, kass);
    wanted.end.operation.id = operation;
    const InvoiceResult result = sendCash(m_base.db(), wanted);
    QCOMPARE(result.outcome, InvoiceResult::Refused);
    QVERIFY2(explanation(result).contains(words), qPrintable(explanation(result)));
    QCOMPARE(everything(), before);
}

/// The other one is through between the look of this one and its writing.
void TstCashInvoice::oneOfTwoReceiversWins()
{
    const DbId id = send(500);
    QString after;
    bool isDone = false;
    Db::setStatementHook([&](const QString &sql) {
        if (isDone || !sql.contains("FOR UPDATE"))
            return;
        isDone = true;
        m_base.execElsewhere("UPDATE invoice SET id_user_to=2,cash_accept=0,data_time_close=20261123121500");
        after = everything();
    });
    const InvoiceResult result = acceptCash(m_base.db(), accepting(id, 500, 500, 4));
    QCOMPARE(result.outcome, InvoiceResult::Closed);
    QCOMPARE(explanation(result), QString("Накладну № %1 вже прийнято: Зміна Друга, 23.11.2026 12:15. Нічого "
                                          "не записано.")
                                      .arg(id));
    QCOMPARE(everything(), after);
}

void TstCashInvoice::goodsAreNoneOfThis()
{
    m_base.exec("INSERT INTO invoice(id,id_shop_with,id_shop_to,is_cash_goods,data_time_open) VALUES"
                "(7,1,2,0,20261123000000),(8,1,2,NULL,20261123000000)");
    const QString before = everything();
    for (const DbId id : {7U, 8U, 9U}) {
        QCOMPARE(acceptCash(m_base.db(), accepting(id, 0, 0)).outcome, InvoiceResult::Refused);
        const InvoiceResult result = cancelCash(m_base.db(), cancelling(id, 0));
        QVERIFY2(result.why.contains(QString("на готівку № %1 немає").arg(id)), qPrintable(result.why));
    }
    QCOMPARE(everything(), before);
}

void TstCashInvoice::changedSumIsNotMoved()
{
    const DbId id = send(500);
    m_base.exec("UPDATE invoice SET cash_send=600");
    const QString before = everything();
    const InvoiceResult result = acceptCash(m_base.db(), accepting(id, 500, 500));
    QVERIFY2(result.why.contains("тепер це 6.00"), qPrintable(result.why));
    // What comes back into a register is what the sender was told.
    const InvoiceResult back = cancelCash(m_base.db(), cancelling(id, 500, 1));
    QVERIFY2(back.why.contains("тепер це 6.00"), qPrintable(back.why));
    m_base.exec("UPDATE shops SET block=1 WHERE id=2");
    QVERIFY(acceptCash(m_base.db(), accepting(id, 600, 600)).why.contains("заблоковано"));
    QCOMPARE(everything(), before);
}

void TstCashInvoice::rightThatIsGone()
{
    m_onTheWay = send(500);
    m_base.exec("UPDATE lst_permis SET permission=2 WHERE id_prem=102");
    const QString before = everything();
    for (const char *what : {"send", "accept", "cancel"})
        QVERIFY(write(what).why.contains("забрали право"));
    QCOMPARE(everything(), before);
}

/// "send", "accept" or "cancel" of 5.00 by way of a register.
InvoiceResult TstCashInvoice::write(const QString &what, const std::optional<InvoiceMark> &unclear)
{
    if (what == "send") {
        CashSending wanted = sending(500, 1);
        wanted.unclear = unclear;
        return sendCash(m_base.db(), wanted);
    }
    if (what == "accept") {
        CashAcceptance wanted = accepting(m_onTheWay, 500, 500, 4);
        wanted.unclear = unclear;
        return acceptCash(m_base.db(), wanted);
    }
    CashCancelling wanted = cancelling(m_onTheWay, 500, 1);
    wanted.unclear = unclear;
    return cancelCash(m_base.db(), wanted);
}

void TstCashInvoice::failureLeavesNothing_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("statement");
    for (const char *what : {"send", "accept", "cancel"}) {
        for (const char *statement : {"START TRANSACTION", "FOR UPDATE", "INTO cheks", " updat ", "COMMIT"})
            QTest::addRow("%s %s", what, statement) << what << statement;
    }
    QTest::newRow("send head") << "send"
                               << "INTO invoice";
    QTest::newRow("accept head") << "accept"
                                 << "UPDATE invoice";
}

void TstCashInvoice::failureLeavesNothing()
{
    QFETCH(QString, what);
    QFETCH(QString, statement);
    m_onTheWay = send(500);
    const QString before = everything();
    bool isMet = false;
    Db::setStatementRefusal([&](const QString &sql) {
        const bool isIt = sql.contains(statement);
        isMet = isMet || isIt;
        return isIt ? 1105 : 0;
    });
    const InvoiceResult refused = write(what);
    Db::setStatementRefusal(nullptr);
    QVERIFY(isMet);
    QCOMPARE(refused.outcome, InvoiceResult::Failed);
    QVERIFY(!m_base.heard.texts().isEmpty());
    QCOMPARE(everything(), before);
}

void TstCashInvoice::anotherProgramInTheWay()
{
    int left = 2;
    Db::setStatementRefusal(
        [&](const QString &sql) { return sql.contains("INTO cheks") && left-- > 0 ? 1062 : 0; });
    QCOMPARE(write("send").outcome, InvoiceResult::Written);
    QCOMPARE(m_base.value("SELECT COUNT(*) FROM invoice"), QString("1"));
    QCOMPARE(receipts().size(), 1);
    // What was tried in vain is not told.
    QVERIFY(m_base.heard.texts().isEmpty());
    left = 9;
    QCOMPARE(write("send").outcome, InvoiceResult::Locked);
}

void TstCashInvoice::lostAnswerIsAskedFor_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"send", "accept", "cancel"})
        QTest::newRow(what) << what;
}

/// Answered soon, nobody hears of it; else the next try asks before it writes.
void TstCashInvoice::lostAnswerIsAskedFor()
{
    QFETCH(QString, what);
    for (const bool canBeAsked : {true, false}) {
        init();
        m_onTheWay = send(500);
        loseAnswer(&m_base, canBeAsked);
        InvoiceResult result = write(what);
        Db::setStatementHook(nullptr);
        waitOutLoss(*m_base.connection());
        QCOMPARE(result.outcome, canBeAsked ? InvoiceResult::Written : InvoiceResult::Unclear);
        if (!canBeAsked) {
            QCOMPARE(write(what, result.mark).outcome, InvoiceResult::Unclear);
            m_base.exec("RENAME TABLE away TO invoice");
            QCOMPARE(write(what, result.mark).outcome, InvoiceResult::Written);
        }
        QCOMPARE(receipts().size(), 1);
        QCOMPARE(m_base.value("SELECT COUNT(*) FROM invoice"), QString(what == "send" ? "2" : "1"));
    }
}

QTEST_MAIN(TstCashInvoice)
#include "tst_cashinvoice.moc"
