#include "receipt.h"

#include "chekwriter.h"

#include <QTest>
#include <numeric>

namespace {
ReceiptRow row(quint32 id, qint64 price, qint64 quantity, int tax = 1)
{
    ReceiptRow row;
    row.idGoods = id;
    row.name = QStringLiteral("Товар %1").arg(id);
    row.price = price;
    row.quantity = quantity;
    row.tax = tax;
    row.showroom = 5000;
    row.isDisk = 1;
    return row;
}

ReceiptRow onAction(ReceiptRow row, qint64 hundredths)
{
    row.actType = ReceiptRow::percentAction;
    row.actVal = hundredths;
    return row;
}

QVector<qint64> discounts(const Receipt &receipt)
{
    QVector<qint64> list;
    for (const ReceiptRow &row : receipt.rows())
        list.append(row.discount);
    return list;
}
} // namespace

class TstReceipt : public QObject
{
    Q_OBJECT

private slots:
    void sumsAndTurnovers();
    void discountsBelongToRows();
    void halfAKopeckIsTheBuyers();
    void typedDiscountStaysBeyondPromotions();
    void loweredDiscountGoesWithItsRow();
    void proportionsAddUp();
    void quantitiesOfOneGoodsItem();
    void refusals_data();
    void refusals();
    void dayOfShift();
};

void TstReceipt::sumsAndTurnovers()
{
    Receipt receipt;
    receipt.add(row(1, 8000, 250, 2));
    receipt.add(row(2, 5000, 2000, 1));
    receipt.add(row(3, 333, 500, 5));
    receipt.add(row(4, 100, 1000, 0));
    receipt.add(row(5, 100, 1000, 6));
    QCOMPARE(receipt.rows().at(0).sum(), qint64(2000));
    QCOMPARE(receipt.rows().at(2).sum(), qint64(167));
    QCOMPARE(receipt.total(), qint64(12367));
    const Receipt::Turnover wanted = {10000, 2000, 0, 0, 167};
    QVERIFY(receipt.turnover() == wanted);
}

void TstReceipt::discountsBelongToRows()
{
    Receipt receipt;
    receipt.add(onAction(row(1, 10000, 1000), 1500));
    receipt.add(row(2, 5000, 1000));
    QCOMPARE(discounts(receipt), (QVector<qint64>{1500, 0}));
    QCOMPARE(receipt.toPay(), qint64(13500));
    receipt.setQuantity(0, 2000);
    QCOMPARE(receipt.discount(), qint64(3000));
    ReceiptRow otherKind = row(3, 10000, 1000);
    otherKind.actType = 3;
    otherKind.actVal = 5000;
    receipt.add(otherKind);
    QCOMPARE(receipt.discount(), qint64(3000));
    receipt.remove(0);
    QCOMPARE(receipt.discount(), qint64(0));
}

/// Half a kopeck is the buyer's in every row; the receipt takes off what its rows take off.
void TstReceipt::halfAKopeckIsTheBuyers()
{
    Receipt receipt;
    receipt.add(onAction(row(1, 43471, 1000), 1750));
    QCOMPARE(receipt.toPay(), qint64(35864));
    receipt.clear();
    for (const qint64 price : {10020, 10020, 10020, 13411})
        receipt.add(onAction(row(1, price, 1000), 1750));
    QCOMPARE(receipt.total(), qint64(43471));
    QCOMPARE(discounts(receipt), (QVector<qint64>{1754, 1754, 1754, 2347}));
    QCOMPARE(receipt.toPay(), qint64(35862));
}

void TstReceipt::typedDiscountStaysBeyondPromotions()
{
    Receipt receipt;
    receipt.add(onAction(row(1, 10000, 1000), 1000));
    receipt.add(row(2, 10000, 1000));
    ReceiptRow fixedPrice = row(3, 50000, 1000);
    fixedPrice.isDisk = 0;
    receipt.add(fixedPrice);
    receipt.setDiscount(2900);
    QCOMPARE(discounts(receipt), (QVector<qint64>{1900, 1000, 0}));
    receipt.add(onAction(row(4, 10000, 1000), 2000));
    QCOMPARE(receipt.discount(), qint64(4900));
    receipt.remove(3);
    receipt.setDiscount(500);
    QCOMPARE(discounts(receipt), (QVector<qint64>{500, 0, 0}));
    receipt.setDiscount(20000);
    QVERIFY2(receipt.refusal().isEmpty(), qPrintable(receipt.refusal()));
    receipt.setDiscount(20001);
    QVERIFY(receipt.refusal().contains(QStringLiteral("на які вона дозволена")));
    receipt.clear();
    receipt.add(row(1, 100, 1000));
    QCOMPARE(receipt.discount(), qint64(0));
}

/// 10.00 and 20.00 of promotions, lowered to 6.00: 2.00 and 4.00.
void TstReceipt::loweredDiscountGoesWithItsRow()
{
    Receipt receipt;
    receipt.add(onAction(row(1, 10000, 1000), 1000));
    receipt.add(onAction(row(2, 10000, 1000), 2000));
    receipt.setDiscount(600);
    QCOMPARE(discounts(receipt), (QVector<qint64>{200, 400}));
    receipt.remove(0);
    QCOMPARE(discounts(receipt), (QVector<qint64>{400}));
    receipt.add(row(3, 10000, 1000));
    receipt.remove(0);
    receipt.add(onAction(row(4, 5000, 1000), 1000));
    QCOMPARE(receipt.discount(), qint64(500));
    // Taken over from the list: the quantity stays, the promotion is reckoned anew.
    receipt.takeOver(1, onAction(row(4, 8000, 3000), 1500));
    QCOMPARE(discounts(receipt), (QVector<qint64>{0, 1200}));
    QCOMPARE(receipt.total(), qint64(18000));
}

void TstReceipt::proportionsAddUp()
{
    for (qint64 sum = 0; sum <= 61; ++sum) {
        const QVector<qint64> weights = {0, 1, 7, 3, 0, 50};
        const QVector<qint64> parts = inProportion(sum, weights);
        QCOMPARE(std::accumulate(parts.begin(), parts.end(), qint64(0)), sum);
        for (int i = 0; i < weights.size(); ++i)
            QVERIFY(parts.at(i) >= 0 && parts.at(i) <= weights.at(i));
    }
    QCOMPARE(inProportion(5, {0, 0}), (QVector<qint64>{0, 0}));
}

void TstReceipt::quantitiesOfOneGoodsItem()
{
    Receipt receipt;
    receipt.add(row(7, 100, 3000));
    receipt.add(row(8, 100, 1000));
    QVERIFY(!receipt.exceedsStock(0));
    receipt.add(row(7, 100, 2500));
    const auto list = receipt.quantities();
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(0).idGoods, 7U);
    QCOMPARE(list.at(0).quantity, qint64(5500));
    QVERIFY(receipt.exceedsStock(2));
    QVERIFY(!receipt.exceedsStock(1));
}

void TstReceipt::refusals_data()
{
    QTest::addColumn<qint64>("price");
    QTest::addColumn<qint64>("quantity");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("hasPrice");
    QTest::addColumn<qint64>("discount");
    QTest::addColumn<QString>("words");
    QTest::newRow("sound") << qint64(100) << qint64(1500) << 0 << true << qint64(150) << QString();
    QTest::newRow("free of charge") << qint64(0) << qint64(1000) << 1 << true << qint64(0) << QString();
    QTest::newRow("nothing") << qint64(100) << qint64(0) << 0 << true << qint64(0) << "більша за нуль";
    QTest::newRow("negative") << qint64(100) << qint64(-1) << 0 << true << qint64(0) << "більша за нуль";
    QTest::newRow("half a piece") << qint64(100) << qint64(500) << 1 << true << qint64(0) << "цілими";
    QTest::newRow("no price") << qint64(0) << qint64(1000) << 1 << false << qint64(0) << "не має ціни";
    QTest::newRow("too dear") << qint64(4294967295) << qint64(2147483000) << 1 << true << qint64(0)
                              << "завелика";
    QTest::newRow("discount") << qint64(100) << qint64(1000) << 1 << true << qint64(101) << "за суму чека";
}

void TstReceipt::refusals()
{
    QFETCH(qint64, price);
    QFETCH(qint64, quantity);
    QFETCH(int, type);
    QFETCH(bool, hasPrice);
    QFETCH(qint64, discount);
    QFETCH(QString, words);
    Receipt receipt;
    QVERIFY(receipt.refusal().contains(QStringLiteral("немає товарів")));
    ReceiptRow asked = row(1, price, quantity);
    asked.type = type;
    asked.hasPrice = hasPrice;
    receipt.add(asked);
    receipt.setDiscount(discount);
    QVERIFY2(words.isEmpty() ? receipt.refusal().isEmpty() : receipt.refusal().contains(words),
             qPrintable(receipt.refusal()));
}

void TstReceipt::dayOfShift()
{
    QCOMPARE(nextDay(0, 3), 1);
    QCOMPARE(nextDay(2, 3), 3);
    QCOMPARE(nextDay(3, 3), 1);
    QCOMPARE(nextDay(9, 3), 1);
    QCOMPARE(nextDay(1, 0), 1);
}

QTEST_GUILESS_MAIN(TstReceipt)
#include "tst_receipt.moc"
