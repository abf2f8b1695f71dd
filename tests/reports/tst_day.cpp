#include "testing.h"

#include "cashwriter.h"
#include "chekquery.h"
#include "cheks.h"
#include "chekwriter.h"
#include "money.h"
#include "placeselector.h"
#include "qartreport.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qrowmodel.h"
#include "qzreport.h"
#include "rangeselector.h"
#include "saleclock.h"
#include "shiftcloser.h"
#include "slipreader.h"
#include "stockwriter.h"

#include <QCheckBox>
#include <QSignalSpy>

/// A day of two registers, sold and closed by the program itself: every report tells what the receipts hold.
class TstDay : public QObject
{
    Q_OBJECT

private slots:
    void reportsAgreeWithTheReceipts_data();
    void reportsAgreeWithTheReceipts();
    void registersAreLookedUp();

private:
    static void fillChain(FreshDatabase *base);
    static void sell(FreshDatabase *base, const QString &kass, const QString &time,
                     const QVector<ReceiptRow> &rows, qint64 discount, qint64 card);
    /// Two and a half kilograms and six pieces.
    static void moveGoods(FreshDatabase *base, int type, StockPlace place);
    static void moveCash(FreshDatabase *base, bool isIn, qint64 sum);
    static void close(FreshDatabase *base, const QString &kass);
    static QStringList loaded(ReportWindow *report, const QVector<int> &columns);
};

namespace {
const QDate day(2026, 3, 1);

ReceiptRow goods(quint32 id, qint64 quantity, qint64 price, int tax)
{
    ReceiptRow row;
    row.idGoods = id;
    row.barcode = QString("00000000000%1").arg(id);
    row.quantity = quantity;
    row.price = price;
    row.type = id == 11 ? 0 : ReceiptRow::pieceGoods;
    row.tax = tax;
    row.isDisk = 1;
    return row;
}
} // namespace

void TstDay::fillChain(FreshDatabase *base)
{
    base->exec(QStringList{
        "INSERT INTO group_shop(id,name) VALUES(2,'Місто')", "INSERT INTO lst_group VALUES(1,2)",
        "INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(1,'Перша',2,7,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'К1',0),(2,1,'К2',0)",
        "INSERT INTO goods(id,name,price,type,tax,block) VALUES(10,'Хліб',5000,1,1,0),(11,'Сир',8000,0,2,0),"
        "(12,'Пакет',1230,1,5,0)",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(1,10,90000),(1,11,90000),(1,12,90000)"});
}

void TstDay::sell(FreshDatabase *base, const QString &kass, const QString &time,
                  const QVector<ReceiptRow> &rows, qint64 discount, qint64 card)
{
    Receipt receipt;
    for (const ReceiptRow &row : rows)
        receipt.add(row);
    receipt.setDiscount(discount);
    ChekPayment payment;
    payment.discount = discount;
    payment.toPay = receipt.toPay();
    payment.card = card;
    payment.cash = payment.toPay - card;
    SaleClock::setSource([time] { return QDateTime::fromString("20260301" + time, "yyyyMMddhhmmss"); });
    const auto result = ChekWriter(base->db(), {"1", kass, "1"}).write(receipt, payment);
    if (result.outcome != ChekWriter::Written)
        qFatal("No sale: %s", qPrintable(base->heard.texts().join('|')));
}

void TstDay::moveGoods(FreshDatabase *base, int type, StockPlace place)
{
    StockOrder order;
    order.place = {"1", "1", "1"};
    order.move = {type, place};
    order.document.add({StockRow(goods(11, 0, 0, 2), 2500), StockRow(goods(10, 0, 0, 1), 6000)});
    SaleClock::setSource([] { return QDateTime(day, QTime(13, 0)); });
    const auto result = StockWriter(base->db(), order.place).write(order);
    if (result.outcome != StockWriter::Written)
        qFatal("No document: %s", qPrintable(result.why));
}

void TstDay::moveCash(FreshDatabase *base, bool isIn, qint64 sum)
{
    const ChekPlace place = {"1", "1", "1"};
    SaleClock::setSource([] { return QDateTime(day, QTime(13, 30)); });
    const CashOperation operation = {isIn ? 1U : 2U, isIn ? "Службове внесення" : "Службове вилучення", isIn};
    const auto result = CashWriter(base->db(), place).write({place, operation, sum});
    if (result.outcome != CashWriter::Written)
        qFatal("No service cash: %s", qPrintable(result.why));
}

void TstDay::close(FreshDatabase *base, const QString &kass)
{
    const ShiftCloser closer(base->db(), {"1", kass, "1"});
    const auto figures = closer.figures("1");
    const ShiftCount count = {figures->countCheks,
                              figures->countDiskount,
                              0,
                              0,
                              figures->vnesenia,
                              figures->issued + figures->expectedCash()};
    SaleClock::setSource([] { return QDateTime(day, QTime(23, 59, 59)); });
    if (closer.close(*figures, count) != ShiftCloser::Closed)
        qFatal("Not closed: %s", qPrintable(base->heard.texts().join('|')));
}

/// The stored cells of all rows, cells joined by "|", sorted.
QStringList TstDay::loaded(ReportWindow *report, const QVector<int> &columns)
{
    QSignalSpy done(report, &ReportWindow::loaded);
    report->load();
    if (done.isEmpty())
        done.wait();
    QStringList rows;
    for (int row = 0; row < report->model()->rowCount(); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(report->model()->index(row, column).data(QRowModel::StoredRole).toString());
        rows.append(cells.join('|'));
    }
    rows.sort();
    return rows;
}

void TstDay::reportsAgreeWithTheReceipts_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("MariaDB") << "STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION";
    QTest::newRow("MySQL 8") << "ONLY_FULL_GROUP_BY,STRICT_TRANS_TABLES,NO_ZERO_IN_DATE,NO_ZERO_DATE,"
                                "ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION";
    QTest::newRow("none") << "";
}

void TstDay::reportsAgreeWithTheReceipts()
{
    QFETCH(QString, mode);
    const GlobalVariable serverMode("sql_mode", mode);
    FreshDatabase base;
    fillChain(&base);
    sell(&base, "1", "000000", {goods(10, 2000, 6000, 1), goods(11, 250, 8000, 2)}, 600, 4000);
    sell(&base, "1", "120000", {goods(12, 3000, 1230, 6), goods(10, 1000, 5000, 1)}, 0, 0);
    // Goods documents among them change no sum of any report.
    moveGoods(&base, ChekType::GoodsReceipt, StockPlace::Syllable);
    moveGoods(&base, ChekType::GoodsMovement, StockPlace::Showroom);
    // Nor does service cash; the closing has it.
    moveCash(&base, true, 50000);
    moveCash(&base, false, 20000);
    sell(&base, "2", "235959", {goods(10, 1000, 6000, 1)}, 0, 6000);
    close(&base, "1");
    close(&base, "2");
    QLoadedUser user(nullptr, &base.heard);
    QVERIFY(user.loadpermis(base.connection(), "admin", ""));
    base.heard.forget();

    QZReport shifts(base.connection(), &user, &base.heard, nullptr);
    shifts.findChild<RangeSelector *>()->setDays(day, day);
    // Number, register, turnover, cash, other payments, receipts, discount, receipts with one.
    QCOMPARE(
        loaded(&shifts, {0, 2, 3, 4, 5, 6, 7, 8}),
        base.rows(
            "SELECT c.id_zvit,k.advertising_str,SUM(IF(c.id_type=1 AND c.tax<6,c.summa,0))"
            "-SUM(IF(c.id_type=2,c.summa,0)),SUM(IF(c.id_type=3,c.price,0)),"
            "SUM(IF(c.id_type=3,c.tax+c.dis_bon_bez2,0)),SUM(c.id_type=3),"
            "SUM(IF(c.id_type=2,c.summa,0)),SUM(c.id_type=2) FROM cheks c JOIN kassa k ON k.id=c.id_kass "
            "GROUP BY c.id_kass ORDER BY k.advertising_str"));
    child<QCheckBox>(&shifts, "chSum")->setChecked(true);
    QCOMPARE(loaded(&shifts, {3, 6}), QStringList{"24400|3"});
    // 230.00 of group A hold 38.33 at 20 %, 20.00 of group B 4.00 at 20 and 5 %; group 6 is no tax group.
    QCOMPARE(shifts.model()->index(0, 11).data(Qt::EditRole).toString(), QString("42.33"));

    QArtReport articles(base.connection(), &user, &base.heard, nullptr);
    auto *place = articles.findChild<PlaceSelector *>();
    QVERIFY(place->chooseGroup(2) && place->chooseShop(1) && place->chooseRegister(1));
    articles.findChild<RangeSelector *>()->setDays(day.addDays(1), day.addDays(1));
    articles.findChild<RangeSelector *>()->setDays(day, day);
    QCOMPARE(
        loaded(&articles, {0, 4, 5, 6}),
        base.rows("SELECT id_good_cln_slujb,SUM(count),SUM(summa)-SUM(sumdisc),SUM(sumdisc) FROM cheks WHERE "
                  "id_type=1 AND id_kass=1 GROUP BY id_good_cln_slujb,price ORDER BY 1,2"));

    QChekViewer cheks(base.connection(), &user, &base.heard, nullptr);
    cheks.findChild<RangeSelector *>()->setDays(day, day);
    QCOMPARE(loaded(&cheks, {6}), (QStringList{"10", "10", "3", "3", "3", "4", "5", "7", "8"}));
    QCOMPARE(loaded(&cheks, {6, 3}).mid(5), (QStringList{"4|50000", "5|20000", "7|850.0", "8|850.0"}));
    const auto cashIn = readNewSlip(base.db(), {{0, 0, 1}, 5});
    QVERIFY2(cashIn && cashIn->html().contains("Службове внесення") && cashIn->html().contains("500.00"),
             qPrintable(cashIn ? cashIn->html() : QString()));
    // What was brought in leaves with what was sold for.
    QCOMPARE(base.value("SELECT CONCAT(vnesenia,'|',viluchenia-cash) FROM z_zvit WHERE id_kass=1"),
             QString("50000|50000"));
    const auto received = readNewSlip(base.db(), {{0, 0, 1}, 3});
    QVERIFY(received && received->html().contains("ПРИЙОМ</center><center>склад</center>"));
    const auto moved = readNewSlip(base.db(), {{0, 0, 1}, 4});
    QVERIFY2(moved && moved->html().contains("ПЕРЕМІЩЕННЯ</center><center>склад → зал</center>") &&
                 moved->html().contains("8.500"),
             qPrintable(moved ? moved->html() : QString()));
    QVERIFY2(cheks.totals().join('|').contains(
                 moneyShown(base.value("SELECT SUM(summa) FROM cheks WHERE id_type=3").toLongLong())),
             qPrintable(cheks.totals().join('|')));
    QVERIFY2(base.heard.texts().isEmpty(), qPrintable(base.heard.texts().join('\n')));
}

/// One register's receipts are found without reading those of the chain, and all of them: also the ones from
/// before it moved to its shop.
void TstDay::registersAreLookedUp()
{
    FreshDatabase base;
    fillChain(&base);
    base.exec(QStringList{
        "INSERT INTO shops(id,address,group_shop) SELECT seq,CONCAT('Магазин ',seq),2 FROM seq_3_to_40",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,summa,data_time) SELECT "
        "3+seq MOD 38,100+seq MOD 76,1,seq,0,3,100,20260301120000 FROM seq_1_to_30000",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,summa,price,tax,data_time) "
        "VALUES(3,1,1,7,0,1,5000,5000,1,20260228120000),(3,1,1,7,2,3,5000,5000,0,20260228120000),"
        "(1,1,2,5,1,3,0,0,0,20260301120000)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(2,1,1,1,0)",
        "ANALYZE TABLE cheks,shops"});
    const Db db = base.db();
    QStringList sent;
    Db::setStatementHook([&](const QString &sql) { sent.append(sql); });
    const ChekPlace place = {"1", "1", "1"};
    QCOMPARE(ChekWriter(db, place).newChekNumber(), QString("8"));
    QCOMPARE(ChekWriter(db, {"1", "2", "1"}).newChekNumber(), QString("1"));
    QVERIFY(ShiftCloser(db, place).figures("2").has_value());
    const auto slip = readSlip(db, ChekType::Payment, {{0, 0, 1}, 7});
    QVERIFY(readNewSlip(db, {{0, 0, 1}, 5}).has_value());
    for (const int type : {int(ChekType::ZReport), int(ChekType::GoodsMovement)})
        QVERIFY(readSlip(db, type, {{0, 0, 1}, 7}).has_value());
    Db::setStatementHook({});
    QVERIFY(slip && slip->rows.size() == 2 && slip->sums.agree());
    sent.append(chekListSql([] {
        ChekFilter filter;
        filter.origin = ChekOrigin();
        filter.origin->kass = 1;
        filter.origin->zFrom = "1";
        filter.origin->zTo = "9";
        return filter;
    }()));
    for (const QString &sql : qAsConst(sent)) {
        const QStringList plan = base.rows("EXPLAIN " + sql).filter("|cheks|");
        QVERIFY2(plan.filter("|ALL|").isEmpty() && plan.filter("|index|").isEmpty(),
                 qPrintable(sql + plan.join('\n')));
    }
    QCOMPARE(sent.filter("FROM cheks").size(), 14);
}

QTEST_MAIN(TstDay)
#include "tst_day.moc"
