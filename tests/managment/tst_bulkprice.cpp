#include "bulkprice.h"

#include <QTest>

/// Prices after a step, reckoned by hand.
class TstBulkPrice : public QObject
{
    Q_OBJECT

private slots:
    void steps_data();
    void steps();
    void nearestOfAll_data();
    void nearestOfAll();
};

void TstBulkPrice::steps_data()
{
    QTest::addColumn<qint64>("price");
    QTest::addColumn<bool>("isPercent");
    QTest::addColumn<qint64>("by");
    QTest::addColumn<int>("ending");
    QTest::addColumn<qint64>("expected");
    const int any = PriceStep::anyEnding;
    const auto row = [](const char *name, qint64 price, bool isPercent, qint64 by, int ending,
                        qint64 expected) {
        QTest::newRow(name) << price << isPercent << by << ending << expected;
    };
    row("5 % of 12.30 are 61.5 kopecks: up", 1230, true, 500, any, 1292);
    row("5 % less are 1168.5: up", 1230, true, -500, any, 1169);
    row("0.01 % of the greatest price", 99999999, true, -1, any, 99989999);
    row("a third of a kopeck is none", 33, true, 100, any, 33);
    // 10.00 and 4.99 % are 10.499: 10.50 in kopecks, but nearer to 10.00.
    row("rounded once, not twice", 1000, true, 499, 0, 1000);
    row("half way upwards", 1000, true, 500, 0, 1100);
    row("10.49 lies between 9.99 and 10.99", 1049, true, 0, 99, 1099);
    row("10.48 does not", 1048, true, 0, 99, 999);
    row("to .90 from above", 1139, true, 0, 90, 1090);
    row("to .50 half way", 1200, false, 0, 50, 1250);
    row("lowered, yet rounded upwards", 1060, true, -100, 99, 1099);
    row("amount up", 1995, false, 250, any, 2245);
    row("amount down to nothing", 250, false, -250, any, 0);
    row("nothing is no .50", 250, false, -250, 50, 0);
    row("below nothing is no .99", 250, false, -900, 99, 0);
    row("20 kopecks are nearer to nothing than to a hryvnia", 20, true, 0, 0, 0);
    row("20 kopecks are nearer to .50 than to less than nothing", 20, true, 0, 50, 50);
    row("20 kopecks are nearer to less than nothing", 20, true, 0, 99, -1);
    row("all of it", 777, true, -10000, any, 0);
    row("the greatest price of the database ten times over", 4294967295, true, 100000, any, 47244640245);
}

void TstBulkPrice::steps()
{
    QFETCH(qint64, price);
    QFETCH(bool, isPercent);
    QFETCH(qint64, by);
    QFETCH(int, ending);
    QFETCH(qint64, expected);
    const PriceStep step = {isPercent ? PriceStep::Percent : PriceStep::Amount, by < 0, qAbs(by), ending};
    QCOMPARE(steppedPrice(price, step), expected);
}

void TstBulkPrice::nearestOfAll_data()
{
    QTest::addColumn<int>("ending");
    for (const int ending : {0, 50, 90, 99})
        QTest::newRow(qPrintable(QString::number(ending))) << ending;
}

/// No price with that ending is nearer than the one found, in hundredths of a per cent of a kopeck; and of
/// two that are as near it is the greater one.
void TstBulkPrice::nearestOfAll()
{
    QFETCH(int, ending);
    for (qint64 price = 1; price < 5000; price += 7) {
        for (const qint64 by : {0, 1, 333, 1250, 9999}) {
            const qint64 found = steppedPrice(price, {PriceStep::Percent, false, by, ending});
            const qint64 exact = price * (10000 + by);
            QCOMPARE((found + 100) % 100, qint64(ending) % 100);
            QVERIFY2(found * 10000 - exact <= 500000 && exact - found * 10000 < 500000,
                     qPrintable(QStringLiteral("%1 + %2: %3").arg(price).arg(by).arg(found)));
        }
    }
}

QTEST_APPLESS_MAIN(TstBulkPrice)
#include "tst_bulkprice.moc"
