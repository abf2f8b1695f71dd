#include "cheklist.h"
#include "cheks.h"
#include "slip.h"

#include <QTest>
#include <QTextDocument>

/// Documents as pages, and the list's rows, without a database.
class TstSlip : public QObject
{
    Q_OBJECT

private slots:
    void saleWithDiscountAndThreePayments();
    void paymentsOfSeveralRowsAreAddedUp();
    void shiftShowsItsFigures();
    void documentsOfOtherKinds();
    void textOfPeopleStaysText();
    void sumsThatDoNotAgree_data();
    void sumsThatDoNotAgree();
    void listHasItsOwnColumns();
};

namespace {
Slip sale()
{
    Slip slip;
    slip.type = ChekType::Payment;
    slip.number = "17";
    slip.shop = "вул. Перша, 1";
    slip.kass = "Каса 1";
    slip.time = "2026-03-01 09:05:07";
    slip.rows = {{ChekType::SoldGoods, "10", "Хліб", "", 2000, 5000, 10000, 0, true},
                 {ChekType::SoldGoods, "11", "Сир", "", 250, 8000, 2000, 0, false},
                 {ChekType::Discount, "1", "", "", 0, 500, 600, 0, false},
                 {ChekType::Payment, "1", "", "", 0, 6400, 11400, 1000, false, 4000}};
    slip.sums = {12000, 600, 11400, 11400, 1};
    return slip;
}

/// The page as it is read, a line each cell.
QString text(const Slip &slip)
{
    QTextDocument page;
    page.setHtml(slip.html());
    return page.toPlainText().split('\n', Qt::SkipEmptyParts).join('|');
}
} // namespace

void TstSlip::saleWithDiscountAndThreePayments()
{
    QCOMPARE(text(sale()),
             QString("вул. Перша, 1|Каса 1|Чек №17|Хліб|2 × 50.00|100.00|Сир|0.250 × 80.00|20.00|"
                     "Сума|120.00|Знижка|5.00 %|-6.00|До сплати|114.00|Готівка|64.00|"
                     "Картка|40.00|Сертифікат|10.00|01-03-2026|09:05:07"));
    const QString html = sale().html();
    QVERIFY(html.startsWith("<html><head></head><body><center>вул. Перша, 1</center><center>Каса 1</center>"
                            "<center>Чек №17</center><hr>"));
    QVERIFY(
        html.contains("<table width=100%><tr><td width=33% align=left>Хліб</td><td width=33% align=center>"));
    QVERIFY(html.endsWith("<hr><table width=100%><tr><td width=50%>01-03-2026</td>"
                          "<td width=50% align=right>09:05:07</td></tr></table></body></html>"));
}

void TstSlip::paymentsOfSeveralRowsAreAddedUp()
{
    Slip slip = sale();
    slip.rows.last() = {ChekType::Payment, "1", "", "", 0, 6400, 7400, 1000, false, 0};
    slip.rows.append({ChekType::Payment, "1", "", "", 0, 0, 4000, 0, false, 4000});
    slip.sums.payments = 2;
    const QString paid = "До сплати|114.00|Готівка|64.00|Картка|40.00|Сертифікат|10.00|01-03-2026";
    QVERIFY2(text(slip).contains("-6.00|" + paid), qPrintable(text(slip)));
    // Money given back for a return stands in a payment row or in none.
    slip.type = ChekType::Return;
    QVERIFY2(text(slip).contains("До повернення|114.00|Готівка|64.00"), qPrintable(text(slip)));
    slip.rows.resize(3);
    slip.sums.payments = 0;
    QVERIFY2(text(slip).contains("До повернення|114.00|01-03-2026"), qPrintable(text(slip)));
}

void TstSlip::shiftShowsItsFigures()
{
    Slip slip;
    slip.type = ChekType::ZReport;
    slip.number = "30";
    slip.kass = "Каса / 1";
    slip.time = "2026-03-29 03:30:00";
    slip.rows = {{ChekType::ZReport, "", "", "", 0, 0, 1230000, 0, false}};
    SlipShift shift;
    shift.taxes = {{"А", 12000, 0, 2000, 0}, {"Б", 12500, 300, 2000, 500}, {"Г", 100, 0, 0, 0}};
    shift.cash = 100000000;
    shift.card = 2;
    shift.cashOut = 5;
    shift.cheks = 7;
    slip.shift = shift;
    // 120.00 at 20 % hold 20.00, 125.00 at 25 % hold 25.00.
    QVERIFY2(text(slip).contains("Звіт №30|Оборот зміни|12 300.00|Група|Оборот|Податок|"
                                 "ПДВ А 20.00 %|120.00|20.00|ПДВ Б 20.00 + 5.00 %|125.00|25.00|"
                                 "ПДВ Г 0.00 %|1.00|0.00|Повернення|3.00|Знижки|0.00|"
                                 "Готівка|1 000 000.00|Картка|0.02|Сертифікат|0.00|"
                                 "Службове внесення|0.00|Службова видача|0.05|Чеків продажу|7|"
                                 "Чеків зі знижкою|0|Анульованих чеків|0|Анульованих позицій|0|"
                                 "29-03-2026|03:30:00"),
             qPrintable(text(slip)));
    QCOMPARE(slip.fileName(), QString("Z-звіт 30 Каса 1 2026-03-29"));
    // Halves of a kopeck go up.
    QCOMPARE((SlipTax{"А", 3, 0, 2000, 0}.tax()), 1LL);
    QCOMPARE((SlipTax{"А", 434967295, 0, 700, 0}.tax()), 28455804LL);
}

void TstSlip::documentsOfOtherKinds()
{
    Slip slip = sale();
    slip.sums = {};
    const auto page = [&slip](int type, const SlipRow &row, const QString &number = "17") {
        slip.type = type;
        slip.number = number;
        slip.rows = {row};
        return text(slip).section('|', 2).section('|', 0, -3);
    };
    QCOMPARE(page(ChekType::CashIn, {ChekType::CashIn, "1", "", "", 0, 0, 30000, 0, false}),
             QString("Чек №17|Службове внесення|300.00"));
    QCOMPARE(page(ChekType::CashOut, {ChekType::CashOut, "2", "Інкасація", "", 0, 0, 100, 0, false}),
             QString("Чек №17|Інкасація|1.00"));
    QCOMPARE(page(ChekType::ZReport, {ChekType::ZReport, "", "", "", 0, 1, -400, 0, false}, "3"),
             QString("Звіт №3|Оборот зміни|-4.00"));
    const SlipRow weighed{0, "11", "Сир", "4820000000109", 2500, 0, 0, 0, false};
    QCOMPARE(page(ChekType::GoodsMovement, weighed),
             QString("ПЕРЕМІЩЕННЯ|11 Сир|4820000000109|2.500|Позицій: 1|2.500"));
    const SlipRow piece{0, "10", "Хліб", "", 3000, 0, 0, 0, true};
    QCOMPARE(page(ChekType::GoodsReceipt, piece), QString("ПРИЙОМ|10 Хліб|3|Позицій: 1|3.000"));
    SlipRow counted{0, "11", "Сир", "", -250, 0, 0, 0, false};
    counted.stockPlace = 3;
    QCOMPARE(page(ChekType::GoodsReceipt, counted),
             QString("ПЕРЕРАХУНОК|зал, різниця з програмою|11 Сир|-0.250|Позицій: 1|-0.250"));
    // Half a piece is not hidden, a row of an unknown kind is named.
    const SlipRow half{ChekType::Return, "10", "Хліб", "", 500, 5000, 2500, 0, true};
    slip.sums.goods = 2500;
    QCOMPARE(page(ChekType::Return, half),
             QString("ПОВЕРНЕННЯ|Чек №17|Хліб|0.500 × 50.00|25.00|До повернення|25.00"));
    page(ChekType::Payment, {9, "", "", "", 0, 0, 0, 0, false});
    QVERIFY(slip.html().contains("<font size=+1>невідомий тип</font><br>"));
}

void TstSlip::textOfPeopleStaysText()
{
    Slip slip = sale();
    slip.shop = "<img src=x> & \"Co\"";
    slip.kass = "</center><h1>1";
    slip.rows[0].name = "<b>Хліб</b></td>";
    QVERIFY2(text(slip).startsWith("<img src=x> & \"Co\"|</center><h1>1|Чек №17|<b>Хліб</b></td>|2 × 50.00|"),
             qPrintable(text(slip)));
    slip.type = ChekType::GoodsReceipt;
    slip.rows = {{0, "<i>", "<b>", "<u>", 1000, 0, 0, 0, true}};
    QVERIFY2(text(slip).contains("|<i> <b>|<u>|1|"), qPrintable(text(slip)));
}

void TstSlip::sumsThatDoNotAgree_data()
{
    QTest::addColumn<qint64>("toPay");
    QTest::addColumn<qint64>("paid");
    QTest::addColumn<int>("payments");
    QTest::addColumn<bool>("red");

    QTest::newRow("agree") << 11400LL << 11400LL << 1 << false;
    QTest::newRow("to pay is another") << 11399LL << 11399LL << 1 << true;
    QTest::newRow("a kopeck was not paid") << 11400LL << 11399LL << 1 << true;
    QTest::newRow("return without payment") << 0LL << 0LL << 0 << false;
}

void TstSlip::sumsThatDoNotAgree()
{
    QFETCH(qint64, toPay);
    QFETCH(qint64, paid);
    QFETCH(int, payments);
    QFETCH(bool, red);
    Slip slip = sale();
    slip.sums.toPay = toPay;
    slip.sums.paid = paid;
    slip.sums.payments = payments;
    QCOMPARE(slip.html().contains("background-color: #FF3333"), red);
    QCOMPARE(text(slip).contains("Суми чека не збігаються"), red);
}

void TstSlip::listHasItsOwnColumns()
{
    // Z number, number, type, sum, time, register, quantity; least and greatest type, sum, payments, shops
    RowStore found;
    found.append(
        {"1", "1", "3", "1230", "2026-03-01 00:00:00", "2", "3000", "3", "3", "1230", "1230", "1", "1"});
    found.append({"1", "2", "8", "0", "2026-03-01 00:00:01", "2", "2500", "8", "8", "0", "0", "1", "1"});
    // A return of two goods, one with its payment beside them, a sale paid in two rows, one with cash out.
    found.append({"1", "3", "6", "150", "2026-03-01 00:00:02", "2", "5", "6", "6", "231", "0", "1", "1"});
    found.append({"1", "6", "3", "40", "", "2", "5", "3", "6", "80", "40", "1", "1"});
    found.append({"1", "7", "3", "1", "", "2", "", "3", "3", "500", "500", "1", "1"});
    found.append({"1", "8", "5", "9", "", "2", "", "3", "5", "19", "10", "1", "1"});
    found.append({"1", "4", "7", "", "", "2", "-5", "7", "7", "", "", "1", "1"});
    found.append({"1", "5", "10", "999", "", "3", "", "10", "10", "999", "0", "1", "2"});
    const ChekList list = ChekList::from(found);
    QCOMPARE(list.sum, 1230LL - 231 - 40 + 500 + 10);
    QCOMPARE(list.shops, (QHash<uint, uint>{{2, 1}, {3, 0}}));
    const QVector<Column> columns = ChekList::columns();
    QCOMPARE(columns.size(), int(ChekList::ColumnCount));
    const auto shown = [&](int row, int column) {
        return columns.at(column).format->plain(list.rows.cell(row, column));
    };
    QStringList amounts;
    QStringList types;
    for (int row = 0; row < list.rows.rowCount(); ++row) {
        amounts.append(shown(row, ChekList::Amount));
        types.append(shown(row, ChekList::TypeName) + shown(row, ChekList::Type));
    }
    QCOMPARE(amounts, QStringList({"12.30", "2.500", "2.31", "0.40", "5.00", "0.10", "-0.005", "9.99"}));
    QCOMPARE(types, QStringList({"продаж3", "переміщення8", "повернення6", "повернення6", "продаж3",
                                 "продаж3", "прийом7", "Z-звіт10"}));
    QCOMPARE(shown(0, ChekList::Time), QString("01-03-26 00:00:00"));
}

QTEST_MAIN(TstSlip)
#include "tst_slip.moc"
