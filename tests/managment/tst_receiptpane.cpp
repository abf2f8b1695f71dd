#include "receiptpane.h"

#include "moneyspinbox.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "saleshop.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {
/// Goods of a shop floor that holds ten of each.
ReceiptRow goods(quint32 id, qint64 price, bool isPiece = true)
{
    ReceiptRow row;
    row.idGoods = id;
    row.name = QStringLiteral("Товар %1").arg(id);
    row.price = price;
    row.type = isPiece ? GoodsItem::pieceGoods : 0;
    row.showroom = 10000;
    row.isDisk = 1;
    return row;
}
} // namespace

/// The receipt alone, without goods to find and without a shop.
class TstReceiptPane : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void columnsOfASale();
    void quantitiesByKeys();
    void begunQuantityAndDiscountCount();
    void unreadableDiscountStays();
    void stockIsAskedAbout();
    void whatMayNotBeChangedStays();
    void endsWhileSomethingIsTyped();

private:
    void press(int key);
    QString quantity(int row) const { return m_grid->model()->index(row, 9).data().toString(); }
    QString told() const { return m_told->isEmpty() ? QString() : m_told->last().first().toString(); }

    QLoadedUser m_user{nullptr, nullptr};
    std::unique_ptr<ReceiptPane> m_pane;
    std::unique_ptr<QSignalSpy> m_told;
    QNTableView *m_grid = nullptr;
    MoneySpinBox *m_discount = nullptr;
    bool m_mayChange = true;
};

void TstReceiptPane::initTestCase()
{
    QVERIFY(!m_user.isLoaded());
}

void TstReceiptPane::init()
{
    m_mayChange = true;
    m_pane = std::make_unique<ReceiptPane>();
    m_pane->setUp(
        &m_user, [this](const QuantityGrid::Act &) { return m_mayChange; },
        [](const QuantityGrid::Act &act) { act(); });
    m_told = std::make_unique<QSignalSpy>(m_pane.get(), &ReceiptPane::told);
    m_grid = child<QNTableView>(m_pane.get(), QStringLiteral("viewChek"));
    m_discount = child<MoneySpinBox>(m_pane.get(), QStringLiteral("dsbDiscount"));
    m_pane->resize(1000, 400);
    QVERIFY(showActive(m_pane.get()));
    QVERIFY(m_pane->add(goods(1, 5000)));
    QVERIFY(m_pane->add(goods(2, 8000, false)));
    m_grid->setFocus();
}

void TstReceiptPane::press(int key)
{
    QTest::keyClick(m_grid, static_cast<Qt::Key>(key));
}

void TstReceiptPane::columnsOfASale()
{
    QStringList shown;
    for (int i = 0; i < m_grid->model()->columnCount(); ++i) {
        if (!m_grid->isColumnHidden(i))
            shown.append(m_grid->model()->headerData(i, Qt::Horizontal).toString());
    }
    QCOMPARE(shown.join(QLatin1Char('|')),
             QStringLiteral(" код |   штрихкод   |        назва        |зал|склад|кількість|акція|  ціна  |"
                            "  вартість  |Знижка"));
}

void TstReceiptPane::quantitiesByKeys()
{
    press(Qt::Key_Minus);
    QVERIFY(told().contains(QStringLiteral("більша за нуль")));
    typeText(QStringLiteral("0,25"));
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(quantity(1), QStringLiteral("0.250"));
    press(Qt::Key_Up);
    press(Qt::Key_Plus);
    press(Qt::Key_Plus);
    press(Qt::Key_Minus);
    QCOMPARE(quantity(0), QStringLiteral("2"));
    press(Qt::Key_F2);
    typeText(QStringLiteral("1.5"));
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(told().contains(QStringLiteral("ціле число від 1")));
    QCOMPARE(m_pane->receipt().toPay(), qint64(12000));
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    QVERIFY(m_pane->receipt().isEmpty());
}

/// In the editor and in the field while a decision is made: both count, the quantity first.
void TstReceiptPane::begunQuantityAndDiscountCount()
{
    press(Qt::Key_Asterisk);
    typeText(QStringLiteral("0,5"));
    QTest::mouseClick(m_discount, Qt::LeftButton);
    m_discount->selectAll();
    typeText(QStringLiteral("10"));
    QVERIFY(m_pane->isDiscountBegun());
    QVERIFY(m_pane->settle());
    QCOMPARE(quantity(1), QStringLiteral("0.500"));
    QCOMPARE(m_pane->receipt().discount(), qint64(1000));
    QCOMPARE(child<QLabel>(m_pane.get(), QStringLiteral("lbToPay"))->text(), QStringLiteral("80.00"));
    QCOMPARE(m_grid->model()->index(0, 17).data().toString(), QStringLiteral("5.55"));
    // A discount that is being typed is not covered by rows that come meanwhile.
    m_discount->selectAll();
    typeText(QStringLiteral("7"));
    QVERIFY(m_pane->add(goods(3, 100)));
    QCOMPARE(m_discount->text(), QStringLiteral("7"));
    m_pane->showDiscount();
    QCOMPARE(m_discount->text(), QStringLiteral("10.00"));
}

void TstReceiptPane::unreadableDiscountStays()
{
    m_discount->setFocus();
    m_discount->selectAll();
    typeText(QStringLiteral("1 2 3"));
    QVERIFY(!m_pane->settle());
    QVERIFY(!told().isEmpty());
    QCOMPARE(m_discount->text(), QStringLiteral("1 2 3"));
    QVERIFY(m_discount->hasFocus());
    QCOMPARE(m_pane->receipt().discount(), qint64(0));
}

void TstReceiptPane::stockIsAskedAbout()
{
    QSignalSpy left(m_pane.get(), &ReceiptPane::left);
    ReceiptRow scarce = goods(3, 100);
    scarce.showroom = 1500;
    QVERIFY(m_pane->add(scarce));
    bool isAdded = true;
    QVERIFY(!answerConfirm([&] { isAdded = m_pane->add(scarce); }, false).isEmpty());
    QVERIFY(!isAdded && m_pane->receipt().rows().size() == 3);
    QVERIFY(!left.isEmpty());
    answerConfirm([&] { press(Qt::Key_Plus); }, false);
    QCOMPARE(quantity(2), QStringLiteral("1"));
    answerConfirm([&] { press(Qt::Key_Plus); }, true);
    QCOMPARE(quantity(2), QStringLiteral("2"));
    // Less is not asked about.
    press(Qt::Key_Minus);
    QCOMPARE(quantity(2), QStringLiteral("1"));
}

void TstReceiptPane::whatMayNotBeChangedStays()
{
    m_mayChange = false;
    press(Qt::Key_Plus);
    press(Qt::Key_Delete);
    m_discount->setFocus();
    m_discount->selectAll();
    typeText(QStringLiteral("5"));
    pressKeys({Qt::Key_Return});
    QCOMPARE(m_pane->receipt().toPay(), qint64(13000));
    QCOMPARE(m_discount->text(), QStringLiteral("0.00"));
    m_pane->setMayChange(false, QStringLiteral("чому"));
    const auto *remove = child<QPushButton>(m_pane.get(), QStringLiteral("pbRemove"));
    QVERIFY(!remove->isEnabled() && remove->toolTip() == QStringLiteral("чому"));
}

void TstReceiptPane::endsWhileSomethingIsTyped()
{
    for (const bool isQuantity : {true, false}) {
        init();
        if (isQuantity)
            press(Qt::Key_Asterisk);
        else
            m_discount->setFocus();
        typeText(QStringLiteral("3"));
        const int before = m_told->size();
        const auto spy = std::move(m_told);
        m_pane.reset();
        QTest::qWait(1);
        QCOMPARE(spy->size(), before);
    }
}

QTEST_MAIN(TstReceiptPane)
#include "tst_receiptpane.moc"
