#include "salepayment.h"

#include "moneyspinbox.h"
#include "placebar.h"
#include "qloadeduser.h"
#include "qpayment.h"
#include "receiptmodel.h"
#include "saleshop.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

/// A receipt of one bread, 50.00, at register 1 of shop 1, brought to its end without the tab around it.
class TstSalePayment : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void soldAsPaid();
    void cancelledWritesNothing();
    void newConditionsAreAgreedTo();
    void placeThatMayNotSell();
    void lostAnswerIsAskedFor();

private:
    void sell();
    void sellAndPay(const char *rest = "pbRestCash");
    std::optional<bool> askUnclear();
    QString told() const { return m_told->isEmpty() ? QString() : m_told->last().first().toString(); }
    QString written() { return m_base->value(QStringLiteral("SELECT COUNT(*) FROM cheks WHERE id_type=3")); }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QWidget> m_tab;
    std::unique_ptr<QSignalSpy> m_told;
    ReceiptModel *m_receipt = nullptr;
    SaleWork *m_work = nullptr;
    SalePayment *m_payment = nullptr;
    QVector<SalePayment::Sold> m_sold;
};

void TstSalePayment::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(QStringLiteral("UPDATE users SET id_shop=1 WHERE id=1"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), QStringLiteral("admin"), QString()));
}

void TstSalePayment::init()
{
    resetSaleShop(m_base.get());
    m_base->heard.forget();
    m_tab = std::make_unique<QWidget>();
    auto *place = new PlaceBar(m_tab.get());
    m_work = new SaleWork(m_base->connection(), m_user.get(), &m_base->heard, m_tab.get());
    place->setUp(m_work);
    waitOutTasks();
    m_receipt = new ReceiptModel(m_tab.get());
    m_receipt->add(goodsRow(m_base.get(), 10));
    m_payment = new SalePayment(m_work, place, m_receipt);
    m_payment->setScope([] {
        GoodsSearch scope;
        scope.idShop = 1;
        scope.time = QDateTime::currentDateTime();
        return scope;
    });
    m_told = std::make_unique<QSignalSpy>(m_work, &SaleWork::told);
    m_sold.clear();
    connect(m_payment, &SalePayment::sold, m_tab.get(),
            [this](const SalePayment::Sold &sold) { m_sold.append(sold); });
    m_tab->show();
}

void TstSalePayment::cleanup()
{
    Db::setStatementHook({});
    m_told.reset();
    m_tab.reset();
}

void TstSalePayment::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

void TstSalePayment::sell()
{
    m_payment->sell();
    waitOutTasks();
}

std::optional<bool> TstSalePayment::askUnclear()
{
    std::optional<bool> answer;
    m_payment->askUnclear([&](std::optional<bool> isWritten) { answer = isWritten; });
    waitOutTasks();
    return answer;
}

void TstSalePayment::sellAndPay(const char *rest)
{
    QVERIFY(withModal<QPayment>([this] { sell(); },
                                [&](QPayment *form) {
                                    child<QPushButton>(form, QString::fromLatin1(rest))->click();
                                    form->ok();
                                }));
}

/// What the box shows, what is paid and what is written is one receipt, whatever becomes of the grid
/// meanwhile.
void TstSalePayment::soldAsPaid()
{
    m_receipt->setDiscount(500);
    QVERIFY(withModal<QPayment>([this] { sell(); },
                                [this](QPayment *form) {
                                    QCOMPARE(m_work->stage(), SaleWork::Asking);
                                    m_receipt->setQuantity(0, 9000);
                                    child<MoneySpinBox>(form, QStringLiteral("dsbGiven"))->setKopecks(10000);
                                    form->ok();
                                }));
    QVERIFY(m_work->isIdle());
    QCOMPARE(m_sold.size(), 1);
    QCOMPARE(m_sold.first().toPay, qint64(4500));
    QCOMPARE(m_sold.first().change, qint64(5500));
    QCOMPARE(
        m_base->rows(QStringLiteral("SELECT id_type,count,summa FROM cheks ORDER BY id_position")),
        (QStringList{QStringLiteral("1|1000|5000"), QStringLiteral("2|0|500"), QStringLiteral("3|0|4500")}));
}

void TstSalePayment::cancelledWritesNothing()
{
    QVERIFY(withModal<QPayment>([this] { sell(); }, [](QPayment *form) { form->cancel(); }));
    QCOMPARE(written(), QStringLiteral("0"));
    QVERIFY(m_sold.isEmpty());
    m_receipt->clear();
    sell();
    QVERIFY(!told().isEmpty());
}

void TstSalePayment::newConditionsAreAgreedTo()
{
    m_base->exec(QStringLiteral("UPDATE goods SET price=9900 WHERE id=10"));
    QVERIFY(answerConfirm([this] { sell(); }, false).contains(QStringLiteral("50.00 → 99.00")));
    QCOMPARE(m_receipt->receipt().toPay(), qint64(5000));
    answerConfirm([this] { sellAndPay("pbRestCard"); }, true);
    m_base->exec(QStringLiteral("UPDATE goods SET price=5000 WHERE id=10"));
    QCOMPARE(m_base->rows(QStringLiteral("SELECT tax,summa FROM cheks WHERE id_type=3")),
             QStringList{QStringLiteral("9900|9900")});
}

void TstSalePayment::placeThatMayNotSell()
{
    m_base->exec(QStringLiteral("UPDATE kassa SET block=1 WHERE id=1"));
    sell();
    m_base->exec(QStringLiteral("UPDATE kassa SET block=0 WHERE id=1"));
    QVERIFY2(told().contains(QStringLiteral("Касу заблоковано")), qPrintable(told()));
    m_base->exec(
        QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(5,2,1,1,0)"));
    sell();
    QVERIFY2(told().contains(QStringLiteral("«вул. Друга, 2»")), qPrintable(told()));
    QCOMPARE(written(), QStringLiteral("0"));
}

/// Until the server tells, the receipt is neither sold nor lost.
void TstSalePayment::lostAnswerIsAskedFor()
{
    loseAnswerToCommit(m_base.get());
    sellAndPay();
    Db::setStatementHook({});
    QVERIFY(m_payment->unclear().has_value() && m_sold.isEmpty());
    QCOMPARE(told(), m_payment->unclearWords());
    QVERIFY(!askUnclear().has_value());
    m_base->exec(QStringLiteral("RENAME TABLE away TO cheks"));
    QCOMPARE(askUnclear(), std::optional<bool>(true));
    QCOMPARE(m_sold.size(), 1);
    QCOMPARE(m_sold.first().number, 1);
    QVERIFY(!m_payment->unclear());
    QCOMPARE(written(), QStringLiteral("1"));
}

QTEST_MAIN(TstSalePayment)
#include "tst_salepayment.moc"
