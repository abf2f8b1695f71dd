#include "chekwriter.h"

#include "goodssearch.h"
#include "salechanges.h"
#include "saleshop.h"

#include <QDateTime>
#include <QSqlError>
#include <QSqlQuery>

namespace {
const QDateTime noon(QDate(2026, 11, 21), QTime(12, 30, 5)); // A Saturday.

QString text(const char *sql)
{
    return QString::fromUtf8(sql);
}

ChekPayment inCash(const Receipt &receipt)
{
    ChekPayment payment;
    payment.discount = receipt.discount();
    payment.toPay = receipt.toPay();
    payment.cash = receipt.toPay();
    return payment;
}

ChekPlace place(int kass = 1, int user = 1)
{
    return {QStringLiteral("1"), QString::number(kass), QString::number(user)};
}
} // namespace
Q_DECLARE_METATYPE(ChekPayment)

class TstChekWriter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void rowsOfASale();
    void rowsOfADiscountedSale();
    void numbersGoOn();
    void dayAndRatesOfANewShift();
    void oddGoods();
    void allTaxGroups();
    void disagreement_data();
    void disagreement();
    void timeOfWriting_data();
    void timeOfWriting();
    void shiftLimits_data();
    void shiftLimits();
    void sumsWithoutValue();
    void numbersRunOut();
    void foreignShiftBlocks();
    void shiftClosedMeanwhile();
    void placeChangedMeanwhile_data();
    void placeChangedMeanwhile();
    void brokenConnection_data();
    void brokenConnection();
    void brokenAtTheEnd();
    void refusedStatements();
    void twoWritersOnOneRegister();
    void twoWritersOnTwoRegisters();
    void lockThatIsReleased();
    void commitThatIsRefused();
    void askedWhileTransactionIsOpen();
    void prices();
    void promotions_data();
    void promotions();
    void promotionCaptions();
    void changesBeforePayment();
    void searchTakesTextAsData();

private:
    Receipt receipt(const QVector<QPair<int, qint64>> &goods);
    ChekWriter::Result sell(const Receipt &receipt, int kass = 1);
    QString stock(int goods);
    void openShift(const QString &columns = {}, const QString &values = {});
    /// Everything that a sale writes.
    QStringList written();
    void checkSums();

    const ClockAt m_clock{noon};
    std::unique_ptr<FreshDatabase> m_base;
};

void TstChekWriter::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
}

void TstChekWriter::init()
{
    resetSaleShop(m_base.get());
    m_base->heard.forget();
}

void TstChekWriter::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
}

void TstChekWriter::cleanupTestCase()
{
    m_base.reset();
}

Receipt TstChekWriter::receipt(const QVector<QPair<int, qint64>> &goods)
{
    Receipt receipt;
    for (const auto &[id, quantity] : goods) {
        ReceiptRow row = goodsRow(m_base.get(), id);
        row.quantity = quantity;
        receipt.add(row);
    }
    return receipt;
}

ChekWriter::Result TstChekWriter::sell(const Receipt &receipt, int kass)
{
    return ChekWriter(m_base->db(), place(kass)).write(receipt, inCash(receipt));
}

QString TstChekWriter::stock(int goods)
{
    return m_base->value(
        QStringLiteral("SELECT count_showroom FROM goods_shop WHERE id_shop=1 AND id_goods=%1").arg(goods));
}

/// Shift 1 of register 1, with further columns.
void TstChekWriter::openShift(const QString &columns, const QString &values)
{
    m_base->exec(QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time%1) "
                                "VALUES(1,1,1,1,0%2)")
                     .arg(columns, values));
}

QStringList TstChekWriter::written()
{
    return m_base->rows(text("SELECT id_kass,id_chek,id_position,summa FROM cheks ORDER BY 1,2,3")) +
           m_base->rows(text("SELECT id_kass,id_zzvit,cash,count_cheks FROM z_zvit ORDER BY 1,2")) +
           m_base->rows(text("SELECT id_goods,count_showroom FROM goods_shop ORDER BY id_shop,id_goods"));
}

/// What is true of every receipt and every shift, whatever was sold.
void TstChekWriter::checkSums()
{
    QCOMPARE(m_base->rows(text("SELECT id_kass,id_chek FROM cheks GROUP BY id_shop,id_kass,id_chek HAVING "
                               "SUM(IF(id_type=1,summa,0))-SUM(IF(id_type=2,summa,0))<>"
                               "SUM(IF(id_type=3,summa,0)) OR SUM(IF(id_type=3,1,0))<>1")),
             QStringList());
    QCOMPARE(m_base->rows(text(
                 "SELECT id_kass FROM z_zvit WHERE "
                 "cash<>(SELECT SUM(price) FROM cheks WHERE id_type=3 AND id_kass=z_zvit.id_kass AND "
                 "id_zvit=id_zzvit) OR beznal_1<>(SELECT SUM(tax) FROM cheks WHERE id_type=3 AND "
                 "id_kass=z_zvit.id_kass AND id_zvit=id_zzvit) OR count_cheks<>(SELECT COUNT(*) FROM cheks "
                 "WHERE id_type=3 AND id_kass=z_zvit.id_kass AND id_zvit=id_zzvit) OR "
                 "Oborot_A<>(SELECT IFNULL(SUM(summa),0) FROM cheks WHERE id_type=1 AND tax=1 AND "
                 "id_kass=z_zvit.id_kass AND id_zvit=id_zzvit)")),
             QStringList());
}

void TstChekWriter::rowsOfASale()
{
    const Receipt sold = receipt({{10, 1000}, {11, 250}, {13, 1000}});
    ChekPayment payment = inCash(sold);
    QCOMPARE(payment.toPay, qint64(10000));
    payment.cash = 6000;
    payment.card = 4000;
    const auto result = ChekWriter(m_base->db(), place()).write(sold, payment);
    QCOMPARE(result.outcome, ChekWriter::Written);
    QCOMPARE(result.chek.number, 1);
    QCOMPARE(m_base->rows(text("SELECT id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,id_position,"
                               "id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,bonus_plus,"
                               "strihcode,type,id_type_action,sumdisc FROM cheks ORDER BY id_position")),
             (QStringList{
                 text("1|1|1|1|1|2026-11-21 12:30:05|1|0|10|Хліб житній|1000|5000|5000|1|0|1|4820000000109|"
                      "1|1|0"),
                 text("1|1|1|1|1|2026-11-21 12:30:05|1|1|11|Сир ваговий|250|8000|2000|2|0|1|0000000000116|"
                      "0|1|0"),
                 text("1|1|1|1|1|2026-11-21 12:30:05|1|2|13|Молоко|1000|3000|3000|3|0|1|4820000000130|1|1|0"),
                 text("1|1|1|1|1|2026-11-21 12:30:05|3|4|0||0|6000|10000|4000|0|0||0|0|0")}));
    QCOMPARE(m_base->value(text("SELECT strihcode IS NULL AND name='' FROM cheks WHERE id_type=3")),
             QStringLiteral("1"));
    QCOMPARE(m_base->rows(text("SELECT id_zzvit,id_shop,id_user,id_period,day,cash,beznal_1,beznal_2,"
                               "beznal_3,Oborot_A,Oborot_B,Oborot_V,Oborot_G,Oborot_D,count_cheks,"
                               "count_chek_diskount,summ_diskount,data_time+0 FROM z_zvit")),
             (QStringList{text("1|1|1|0|1|6000|4000|0|0|5000|2000|3000|0|0|1|0|0|0")}));
    QCOMPARE(stock(10) + stock(11) + stock(12), text("9000975010000"));
    QCOMPARE(m_base->value(text("SELECT SUM(count_showroom) FROM goods_shop WHERE id_shop=2")),
             text("80000"));
    checkSums();
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstChekWriter::rowsOfADiscountedSale()
{
    Receipt sold = receipt({{10, 1000}, {11, 250}, {13, 1000}});
    sold.setDiscount(1000);
    ChekPayment payment = inCash(sold);
    payment.cash = 0;
    payment.certificate = 9000;
    const ChekWriter writer(m_base->db(), place());
    QCOMPARE(writer.write(sold, payment).outcome, ChekWriter::Written);
    const QString rows =
        text("SELECT id_type,id_position,id_good_cln_slujb,count,price,summa,tax,dis_bon_bez2,"
             "type,id_type_action,sumdisc FROM cheks WHERE id_chek=%1 ORDER BY id_position");
    // Without any discount level the anonymous client cannot be created and has no percentage.
    QCOMPARE(m_base->rows(rows.arg(1)).mid(3),
             (QStringList{text("2|4|1|0||1000|0|0|0|0|0"), text("3|5|1|0|0|9000|0|9000|0|0|0")}));
    QCOMPARE(m_base->value(text("SELECT SUM(sumdisc) FROM cheks WHERE id_type=1")), text("1000"));
    m_base->exec(text("INSERT INTO procent(id,name,discount) VALUES(1,'Перший',300)"));
    QCOMPARE(writer.write(sold, payment).outcome, ChekWriter::Written);
    QCOMPARE(m_base->rows(rows.arg(2)).at(3), text("2|4|1|0|300|1000|0|0|0|0|0"));
    QCOMPARE(m_base->rows(text("SELECT id,fiksed,group_shop FROM clients")), (QStringList{text("1|1|1")}));
    QCOMPARE(m_base->rows(text("SELECT beznal_2,Oborot_A,count_cheks,count_chek_diskount,summ_diskount FROM "
                               "z_zvit")),
             (QStringList{text("18000|10000|2|2|2000")}));
    checkSums();
}

void TstChekWriter::numbersGoOn()
{
    const Receipt sold = receipt({{10, 1000}});
    QCOMPARE(sell(sold, 1).chek.number, 1);
    QCOMPARE(sell(sold, 1).chek.number, 2);
    QCOMPARE(sell(sold, 2).chek.number, 1);
    m_base->exec(text("UPDATE z_zvit SET data_time=20261121130000 WHERE id_kass=1"));
    const auto next = sell(sold, 1);
    QCOMPARE(next.chek.number, 3);
    QCOMPARE(next.chek.zNumber, text("2"));
    checkSums();
}

void TstChekWriter::dayAndRatesOfANewShift()
{
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,day,data_time) VALUES"
                      "(7,1,1,1,3,20261120200000),(6,1,1,1,2,20261119200000),(4,1,2,2,2,20261120200000)"));
    const Receipt sold = receipt({{10, 1000}});
    QCOMPARE(sell(sold, 1).chek.zNumber, text("8"));
    QCOMPARE(sell(sold, 2).chek.zNumber, text("5"));
    QCOMPARE(m_base->rows(text("SELECT day,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,DOD_D FROM "
                               "z_zvit WHERE data_time=0 ORDER BY id_kass")),
             (QStringList{text("1|2000|0|2000|500|700|0|0|0|0|0"), text("3|2000|0|2000|500|700|0|0|0|0|0")}));
}

/// No barcode, no tax, no type, and one goods item twice.
void TstChekWriter::oddGoods()
{
    Receipt sold = receipt({{12, 1000}, {15, 250}, {12, 2000}});
    QVERIFY(sold.refusal().contains(QStringLiteral("Новинка")));
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    QCOMPARE(m_base->rows(text("SELECT id_position,id_good_cln_slujb,name,count,price,tax,type,strihcode IS "
                               "NULL FROM cheks WHERE id_type=1 ORDER BY id_position")),
             (QStringList{text("0|12|Пакет O'Neil 5%|1000|1230|0|1|1"), text("1|15|Новинка|250|0|1|0|0"),
                          text("2|12|Пакет O'Neil 5%|2000|1230|0|1|1")}));
    QCOMPARE(stock(12), text("7000"));
    QCOMPARE(m_base->value(text("SELECT Oborot_A+Oborot_B+Oborot_V+Oborot_G+Oborot_D FROM z_zvit")),
             text("0"));
    QCOMPARE(m_base->value(text("SELECT cash FROM z_zvit")), text("3690"));
}

/// Each group into its own column, twice.
void TstChekWriter::allTaxGroups()
{
    Receipt sold;
    for (int tax = 1; tax <= 5; ++tax) {
        ReceiptRow row = goodsRow(m_base.get(), 10);
        row.tax = tax;
        row.quantity = 1000 * tax;
        sold.add(row);
    }
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    QCOMPARE(m_base->rows(text("SELECT Oborot_A,Oborot_B,Oborot_V,Oborot_G,Oborot_D,cash FROM z_zvit")),
             (QStringList{text("10000|20000|30000|40000|50000|150000")}));
    QCOMPARE(stock(10), text("-20000"));
}

void TstChekWriter::disagreement_data()
{
    QTest::addColumn<qint64>("discount");
    QTest::addColumn<ChekPayment>("payment");
    QTest::addColumn<QString>("words");
    // 50.00 and 30.00; all rows may have a discount.
    QTest::newRow("sound") << qint64(500) << ChekPayment{500, 7500, 7000, 100, 300, 100} << QString();
    QTest::newRow("another sum") << qint64(0) << ChekPayment{0, 5000, 5000, 0, 0} << "до оплати (50.00)";
    QTest::newRow("another discount")
        << qint64(500) << ChekPayment{0, 8000, 8000, 0, 0} << "Знижки рядків (5.00)";
    QTest::newRow("no row for it") << qint64(8001) << ChekPayment{8001, -1, -1, 0, 0} << "до оплати (-0.01)";
    QTest::newRow("paid less") << qint64(0) << ChekPayment{0, 8000, 7999, 0, 0} << "не стільки";
    QTest::newRow("paid more") << qint64(0) << ChekPayment{0, 8000, 8000, 1, 0} << "не стільки";
    QTest::newRow("negative") << qint64(0) << ChekPayment{0, 8000, 8001, -1, 0} << "не стільки";
    QTest::newRow("fourth") << qint64(0) << ChekPayment{0, 8000, 7999, 0, 0, 2} << "не стільки";
}

void TstChekWriter::disagreement()
{
    QFETCH(qint64, discount);
    QFETCH(ChekPayment, payment);
    QFETCH(QString, words);
    Receipt sold = receipt({{10, 1000}, {13, 1000}});
    sold.setDiscount(discount);
    int sent = 0;
    const QStringList before = written();
    Db::setStatementHook([&](const QString &) { ++sent; });
    const auto result = ChekWriter(m_base->db(), place()).write(sold, payment);
    Db::setStatementHook({});
    QCOMPARE(result.outcome, words.isEmpty() ? ChekWriter::Written : ChekWriter::Refused);
    if (words.isEmpty())
        return checkSums();
    QVERIFY2(ChekWriter::explanation(result).contains(words), qPrintable(ChekWriter::explanation(result)));
    QCOMPARE(sent, 0);
    QCOMPARE(written(), before);
}

void TstChekWriter::timeOfWriting_data()
{
    QTest::addColumn<QDateTime>("clock");
    QTest::addColumn<QDate>("chosen");
    QTest::addColumn<QString>("stamp");
    const QDateTime justAfterMidnight(QDate(2026, 11, 22), QTime(0, 0, 3));
    QTest::newRow("filled before midnight") << justAfterMidnight << QDate() << "20261122000003";
    QTest::newRow("another date") << justAfterMidnight << QDate(2026, 11, 21) << "20261121000003";
    QTest::newRow("an hour that summer time skips")
        << QDateTime(QDate(2026, 4, 1), QTime(3, 30)) << QDate(2026, 3, 29) << "20260329033000";
}

void TstChekWriter::timeOfWriting()
{
    QFETCH(QDateTime, clock);
    QFETCH(QDate, chosen);
    QFETCH(QString, stamp);
    const Receipt sold = receipt({{10, 1000}});
    const ClockAt now(clock);
    const auto result = ChekWriter(m_base->db(), place()).write(sold, inCash(sold), chosen);
    QCOMPARE(result.outcome, ChekWriter::Written);
    QCOMPARE(result.chek.time, stamp);
    QCOMPARE(m_base->rows(text("SELECT DISTINCT DATE_FORMAT(data_time,'%Y%m%d%H%i%s') FROM cheks")),
             (QStringList{stamp}));
}

void TstChekWriter::shiftLimits_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("values");
    QTest::addColumn<bool>("fits");
    // The receipt adds 50.00 to Oborot_A and to cash,.
    QTest::newRow("up to the last kopeck") << ",Oborot_A,Oborot_D"
                                           << ",2147470000,8647" << true;
    QTest::newRow("one kopeck more") << ",Oborot_A,Oborot_D"
                                     << ",2147470000,8648" << false;
    QTest::newRow("net of discounts") << ",Oborot_B,summ_diskount"
                                      << ",2147483647,5000" << true;
    QTest::newRow("too little discount") << ",Oborot_B,summ_diskount"
                                         << ",2147483647,4999" << false;
    QTest::newRow("gross") << ",Oborot_A,summ_diskount"
                           << ",4294962296,4294962296" << false;
    QTest::newRow("cash") << ",cash"
                          << ",2147478648" << false;
}

void TstChekWriter::shiftLimits()
{
    QFETCH(QString, columns);
    QFETCH(QString, values);
    QFETCH(bool, fits);
    openShift(columns, values);
    const Receipt sold = receipt({{10, 1000}});
    const QStringList before = written();
    const ChekWriter writer(m_base->db(), place());
    const auto told = writer.shiftRefusal(writer.openZ().value_or(OpenZ()), sold);
    QVERIFY(told.has_value());
    // How it will be paid is not known before.
    if (columns != QLatin1String(",cash"))
        QCOMPARE(told->isEmpty(), fits);
    const auto result = sell(sold);
    QCOMPARE(result.outcome, fits ? ChekWriter::Written : ChekWriter::Refused);
    if (fits)
        return;
    QVERIFY(ChekWriter::explanation(result).contains(text("Зміна № 1 не вмістить")));
    QVERIFY(ChekWriter::explanation(result).contains(text("Закрийте зміну (F12)")));
    QCOMPARE(written(), before);
    m_base->exec(text("UPDATE z_zvit SET data_time=20261121130000"));
    QCOMPARE(*writer.shiftRefusal(writer.openZ().value_or(OpenZ()), sold), QString());
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
}

void TstChekWriter::sumsWithoutValue()
{
    openShift(text(",cash,Oborot_A,count_cheks,beznal_2,summ_diskount"), text(",NULL,NULL,NULL,NULL,700"));
    QCOMPARE(sell(receipt({{10, 1000}})).outcome, ChekWriter::Written);
    QCOMPARE(m_base->rows(text("SELECT cash,Oborot_A,count_cheks,beznal_2,summ_diskount FROM z_zvit")),
             (QStringList{text("5000|5000|1|0|700")}));
}

void TstChekWriter::numbersRunOut()
{
    const Receipt sold = receipt({{10, 1000}});
    m_base->exec(text("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position) VALUES"
                      "(1,1,1,2147483646,0)"));
    const auto last = sell(sold);
    QCOMPARE(last.chek.number, 2147483647);
    const QStringList before = written();
    const auto none = sell(sold);
    QCOMPARE(none.outcome, ChekWriter::Refused);
    QVERIFY(ChekWriter::explanation(none).contains(text("більших за 2147483647 немає")));
    QCOMPARE(written(), before);
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) "
                      "VALUES(2147483647,1,2,1,20261120200000)"));
    QCOMPARE(sell(sold, 2).outcome, ChekWriter::Refused);
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM z_zvit WHERE id_kass=2")), text("1"));
}

void TstChekWriter::foreignShiftBlocks()
{
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(1,1,1,2,0)"));
    const QStringList before = written();
    const auto result = sell(receipt({{10, 1000}}));
    QCOMPARE(result.outcome, ChekWriter::Busy);
    QVERIFY(ChekWriter::explanation(result).contains(QStringLiteral("інший користувач")));
    QCOMPARE(written(), before);
    QCOMPARE(sell(receipt({{10, 1000}}), 2).outcome, ChekWriter::Written);
}

/// Closed by another program between reading the shift and joining it; and, whatever locks there may be,
/// right before its sums are added.
void TstChekWriter::shiftClosedMeanwhile()
{
    const Receipt sold = receipt({{10, 1000}});
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    const QString close = text("UPDATE z_zvit SET data_time=20261121123000 WHERE id_kass=1 AND id_zzvit=1");
    const QStringList before = written();
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith(QLatin1String("SELECT data_time=0")))
            otherDb.run(close);
    });
    const auto late = sell(sold);
    QCOMPARE(late.outcome, ChekWriter::ShiftClosed);
    QVERIFY(ChekWriter::explanation(late).contains(text("Зміну № 1 щойно закрила")));
    QCOMPARE(written(), before);
    m_base->exec(text("UPDATE z_zvit SET data_time=0"));
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith(QLatin1String("UPDATE z_zvit  SET")))
            QSqlQuery(*m_base->connection()).exec(close);
    });
    QCOMPARE(sell(sold).outcome, ChekWriter::ShiftClosed);
    Db::setStatementHook({});
    QCOMPARE(written(), before);
    QCOMPARE(m_base->heard.texts(), QStringList());
    m_base->exec(close);
    QCOMPARE(sell(sold).chek.zNumber, text("2"));
    checkSums();
}

void TstChekWriter::placeChangedMeanwhile_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("back");
    QTest::addColumn<QString>("words");
    QTest::newRow("register blocked") << "UPDATE kassa SET block=1 WHERE id=1"
                                      << "UPDATE kassa SET block=0 WHERE id=1"
                                      << "Касу заблоковано";
    QTest::newRow("shop blocked") << "UPDATE shops SET block=1 WHERE id=1"
                                  << "UPDATE shops SET block=NULL WHERE id=1"
                                  << "Магазин заблоковано";
    QTest::newRow("register moved") << "UPDATE kassa SET id_shop=2 WHERE id=1"
                                    << "UPDATE kassa SET id_shop=1 WHERE id=1"
                                    << "«вул. Друга, 2»";
    QTest::newRow("shift elsewhere") << "UPDATE z_zvit SET id_shop=2"
                                     << "UPDATE z_zvit SET id_shop=1"
                                     << "в іншому магазині";
}

void TstChekWriter::placeChangedMeanwhile()
{
    QFETCH(QString, change);
    QFETCH(QString, back);
    QFETCH(QString, words);
    const Receipt sold = receipt({{10, 1000}});
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    const QStringList before = written();
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    // After the transaction has read something already: it must not believe its older picture.
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith(QLatin1String("SELECT id_zzvit,id_user")))
            otherDb.run(change);
    });
    const auto result = sell(sold);
    Db::setStatementHook({});
    QCOMPARE(result.outcome, ChekWriter::Blocked);
    QVERIFY2(ChekWriter::explanation(result).contains(words), qPrintable(ChekWriter::explanation(result)));
    QCOMPARE(written(), before);
    m_base->exec(back);
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
}

void TstChekWriter::brokenConnection_data()
{
    QTest::addColumn<bool>("opens");
    QTest::addColumn<int>("count");
    QTest::newRow("opens a shift") << true << 12;
    QTest::newRow("joins a shift") << false << 10;
}

/// The connection breaks right before each statement in turn: nothing is written, and the next try works.
void TstChekWriter::brokenConnection()
{
    QFETCH(bool, opens);
    QFETCH(int, count);
    Receipt sold = receipt({{10, 1000}, {11, 250}});
    sold.setDiscount(500);
    QStringList statements;
    if (!opens)
        openShift();
    Db::setStatementHook([&](const QString &sql) { statements.append(sql); });
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    Db::setStatementHook({});
    // Nothing comes between what locks the stock and COMMIT but the shift's sums.
    QVERIFY(statements.at(count - 3).startsWith(QLatin1String("UPDATE goods_shop")));
    QVERIFY2(statements.size() == count, qPrintable(statements.join(QLatin1Char('\n'))));
    for (int broken = 1; broken < statements.size(); ++broken) {
        // The first receipt opens the shift, and so must those that are tried.
        if (opens)
            m_base->exec(text("UPDATE z_zvit SET data_time=20261121130000 WHERE data_time=0"));
        const QStringList before = written();
        m_base->heard.forget();
        int sent = 0;
        Db::setStatementHook([&](const QString &) {
            if (sent++ == broken)
                m_base->killConnection();
        });
        const auto result = sell(sold);
        Db::setStatementHook({});
        waitOutLoss(*m_base->connection());
        QCOMPARE(result.outcome, ChekWriter::Failed);
        QCOMPARE(written(), before);
        QVERIFY(m_base->heard.has(QStringLiteral("Помилка запиту:"), 1));
        QVERIFY(m_base->heard.has(statements.at(broken).left(60), 1));
        QVERIFY(m_base->heard.all().first().location.contains(QLatin1String("tst_chekwriter")));
        QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    }
    checkSums();
}

/// The server has committed but its answer is lost; or the server cannot be asked any more.
void TstChekWriter::brokenAtTheEnd()
{
    const Receipt sold = receipt({{10, 1000}});
    bool isCommitted = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql != QLatin1String("COMMIT") || isCommitted)
            return;
        isCommitted = true;
        // The new transaction keeps the client from reconnecting silently.
        QSqlQuery(*m_base->connection()).exec(QStringLiteral("COMMIT AND CHAIN"));
        m_base->killConnection();
    });
    const auto result = sell(sold);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    QVERIFY(isCommitted);
    QCOMPARE(result.outcome, ChekWriter::Written);
    QVERIFY(m_base->heard.has(QStringLiteral("COMMIT"), 1));
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_type=3")), text("1"));

    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("COMMIT"))
            m_base->killConnection();
        else if (sql.startsWith(QLatin1String("SELECT COUNT(*) FROM cheks")))
            m_base->exec(text("RENAME TABLE cheks TO away"));
    });
    const auto unclear = sell(sold);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    m_base->exec(text("RENAME TABLE away TO cheks"));
    QCOMPARE(unclear.outcome, ChekWriter::Unclear);
    QVERIFY(ChekWriter::explanation(unclear).contains(QStringLiteral("№ 2 і невідомо")));
    const auto isWritten = ChekWriter(m_base->db(), place()).isWritten(unclear.chek);
    QVERIFY(isWritten.has_value() && !*isWritten);
    QVERIFY(ChekWriter(m_base->db(), place()).isWritten(result.chek).value_or(false));
    checkSums();
}

void TstChekWriter::refusedStatements()
{
    const Receipt sold = receipt({{10, 1000}});
    const QStringList before = written();
    m_base->exec(text("CREATE TRIGGER broken BEFORE UPDATE ON z_zvit FOR EACH ROW SIGNAL SQLSTATE '45000' "
                      "SET MESSAGE_TEXT='shift is broken'"));
    QCOMPARE(sell(sold).outcome, ChekWriter::Failed);
    QCOMPARE(written(), before);
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.has(QStringLiteral("shift is broken"), 1));
    m_base->exec(text("DROP TRIGGER broken"));
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
}

/// The cashier's program takes the number at the same moment: the next try has the next one, and nobody hears
/// of it; when it is there each time, it is told once.
void TstChekWriter::twoWritersOnOneRegister()
{
    const Receipt sold = receipt({{10, 1000}});
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    int rivals = 1;
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith(QLatin1String("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_user")) &&
            rivals-- > 0)
            otherDb.run(text("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_user,"
                             "price,summa,data_time) SELECT 1,1,1,MAX(id_chek)+1,2,3,1,0,0,0 FROM cheks c "
                             "WHERE id_kass=1"));
    });
    const auto result = sell(sold);
    QCOMPARE(result.outcome, ChekWriter::Written);
    QCOMPARE(result.chek.number, 3);
    QCOMPARE(m_base->heard.texts(), QStringList());
    const QStringList before = m_base->rows(text("SELECT * FROM goods_shop")) +
                               m_base->rows(text("SELECT cash,count_cheks,Oborot_A FROM z_zvit"));
    rivals = 3;
    const auto beaten = sell(sold);
    Db::setStatementHook({});
    QCOMPARE(rivals, 0);
    QCOMPARE(beaten.outcome, ChekWriter::Collided);
    QVERIFY(ChekWriter::explanation(beaten).contains(QStringLiteral("Повторіть оплату")));
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.has(QStringLiteral("Duplicate entry"), 1));
    QCOMPARE(m_base->rows(text("SELECT * FROM goods_shop")) +
                 m_base->rows(text("SELECT cash,count_cheks,Oborot_A FROM z_zvit")),
             before);
    QCOMPARE(sell(sold).chek.number, 7);
}

/// Both want the whole stock table: the later one waits, and what it does not get it tells.
void TstChekWriter::twoWritersOnTwoRegisters()
{
    const Receipt sold = receipt({{10, 1000}});
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    QVERIFY(otherDb.run(QStringLiteral("SET SESSION innodb_lock_wait_timeout=1")));
    ChekWriter::Result waiting;
    bool isNested = false;
    Db::setStatementHook([&](const QString &sql) {
        if (isNested || sql != QLatin1String("COMMIT"))
            return;
        isNested = true;
        waiting = ChekWriter(otherDb, place(2)).write(sold, inCash(sold));
    });
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    Db::setStatementHook({});
    QCOMPARE(waiting.outcome, ChekWriter::Locked);
    QVERIFY(ChekWriter::explanation(waiting).contains(QStringLiteral("Повторіть оплату")));
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks WHERE id_kass=2")), text("0"));
    QCOMPARE(ChekWriter(otherDb, place(2)).write(sold, inCash(sold)).outcome, ChekWriter::Written);
    QCOMPARE(stock(10), text("8000"));
    checkSums();
}

/// Another program holds the stock longer than the server waits for it, then lets go: nobody hears of it.
void TstChekWriter::lockThatIsReleased()
{
    const Receipt sold = receipt({{10, 1000}});
    QVERIFY(m_base->db().run(QStringLiteral("SET SESSION innodb_lock_wait_timeout=1")));
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    QVERIFY(otherDb.run(text("START TRANSACTION")) &&
            otherDb.run(text("UPDATE goods_shop SET count_syllable=1 WHERE id_shop=2 AND id_goods=13")));
    int tries = 0;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("START TRANSACTION") && ++tries == 2)
            QSqlQuery(*other.database()).exec(text("ROLLBACK"));
    });
    const auto result = sell(sold);
    Db::setStatementHook({});
    QVERIFY(m_base->db().run(QStringLiteral("SET SESSION innodb_lock_wait_timeout=5")));
    QCOMPARE(result.outcome, ChekWriter::Written);
    QCOMPARE(tries, 2);
    QCOMPARE(result.chek.number, 1);
    QCOMPARE(m_base->heard.texts(3), QStringList());
    QCOMPARE(stock(10), text("9000"));
    checkSums();
}

/// Another program of a cluster was quicker: nothing is written, and the server need not be asked.
void TstChekWriter::commitThatIsRefused()
{
    const Receipt sold = receipt({{10, 1000}});
    int commits = 0;
    int refused = 1;
    Db::setStatementRefusal([&](const QString &sql) {
        return sql == QLatin1String("COMMIT") && ++commits <= refused ? 1213 : 0;
    });
    const auto written = sell(sold);
    QCOMPARE(written.outcome, ChekWriter::Written);
    QCOMPARE(written.chek.number, 1);
    QCOMPARE(commits, 2);
    QCOMPARE(m_base->heard.texts(3), QStringList());
    const QStringList before = this->written();
    commits = 0;
    refused = 3;
    QCOMPARE(sell(sold).outcome, ChekWriter::Locked);
    QCOMPARE(commits, 3);
    QCOMPARE(this->written(), before);
    QCOMPARE(m_base->heard.texts().size(), 1);
    checkSums();
}

/// The client has lost its connection, but the server still holds the transaction: neither yes nor no.
void TstChekWriter::askedWhileTransactionIsOpen()
{
    const Receipt sold = receipt({{10, 1000}});
    WorkerConnection other(m_base->connection()->connectionName(), &m_base->heard);
    const Db otherDb(other.database(), &m_base->heard);
    QVERIFY(otherDb.run(QStringLiteral("SET SESSION innodb_lock_wait_timeout=1")));
    WrittenChek asked = {place(), 1, text("1"), text("20261121123005"), 2, 5000};
    std::optional<bool> answer = true;
    bool isAsked = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql != QLatin1String("COMMIT") || isAsked)
            return;
        isAsked = true;
        // Asked with the register of the receipt, whatever is chosen by then.
        answer = ChekWriter(otherDb, place(2, 2)).isWritten(asked);
    });
    QCOMPARE(sell(sold).outcome, ChekWriter::Written);
    Db::setStatementHook({});
    QVERIFY(isAsked && !answer.has_value());
    QCOMPARE(ChekWriter(otherDb, place(2)).isWritten(asked), std::optional<bool>(true));
    asked.number = 2;
    QCOMPARE(ChekWriter(otherDb, place(2)).isWritten(asked), std::optional<bool>(false));
}

/// The less a row of the price list is wanted the later it is put in: each one has to win over those before.
void TstChekWriter::prices()
{
    const auto price = [&](int priority) {
        GoodsSearch search;
        search.idShop = 1;
        search.by = GoodsSearch::ExactBarcode;
        search.text = QStringLiteral("4820000000109");
        search.priority = priority;
        search.time = noon;
        auto query = m_base->db().run(goodsListSql(search));
        return query && query->next() ? QString::number(goodsItem(*query).price) : QString();
    };
    QCOMPARE(price(1), text("5000"));
    const auto insert = [&](int shop, int group, int priority, int kopecks) {
        m_base->exec(QStringLiteral("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) "
                                    "VALUES(10,%1,%2,%3,%4)")
                         .arg(shop)
                         .arg(group)
                         .arg(priority)
                         .arg(kopecks));
    };
    insert(0, 1, 5, 4990);
    QCOMPARE(price(1), text("5000"));
    // Rows of other shops name the group of all shops; they are no prices of it.
    insert(2, 1, 1, 111);
    insert(3, 1, 1, 112);
    insert(2, 1, 0, 113);
    insert(3, 1, 0, 114);
    QCOMPARE(price(1), text("5000"));
    const int better[][3] = {{0, 1, 1}, {0, 2, 1}, {1, 1, 1}, {0, 1, 0}, {0, 2, 0}, {1, 1, 0}};
    int kopecks = 4000;
    for (const auto &row : better) {
        insert(row[0], row[1], row[2], ++kopecks);
        QCOMPARE(price(1), QString::number(kopecks));
    }
    QCOMPARE(price(5), QString::number(kopecks));
}

void TstChekWriter::promotions_data()
{
    QTest::addColumn<QString>("dates");
    QTest::addColumn<QString>("days");
    QTest::addColumn<bool>("inForce");
    const QString undated = text("0,0");
    QTest::newRow("every Saturday") << undated << "Sat,Sun," << true;
    QTest::newRow("every Monday") << undated << "Mon," << false;
    QTest::newRow("no day") << undated << "" << false;
    QTest::newRow("running") << "20261101080000,20261130220000"
                             << "Fri,Sat," << true;
    QTest::newRow("other day") << "20261101080000,20261130220000"
                               << "Fri," << false;
    QTest::newRow("over") << "20261101080000,20261120220000"
                          << "Sat," << false;
    QTest::newRow("not yet") << "20261121123006,20261130220000"
                             << "Sat," << false;
    QTest::newRow("from this second") << "20261121123005,20261130220000"
                                      << "Sat," << true;
    QTest::newRow("to this second") << "20261101080000,20261121123005"
                                    << "Sat," << true;
    QTest::newRow("later hours") << "20261101130000,20261130220000"
                                 << "Sat," << false;
    QTest::newRow("earlier hours") << "20261101080000,20261130120000"
                                   << "Sat," << false;
}

void TstChekWriter::promotions()
{
    QFETCH(QString, dates);
    QFETCH(QString, days);
    QFETCH(bool, inForce);
    m_base->exec(QStringLiteral("INSERT INTO action(id,name,id_type_action,val,val_1,val_2,datetime_start,"
                                "datetime_end,week_day) VALUES(2,'Мінус десять',2,1000,7,8,%1,%2)")
                     .arg(dates, lit(days)));
    m_base->exec(text("UPDATE goods_shop SET id_action=2 WHERE id_goods=10"));
    GoodsSearch search;
    search.idShop = 1;
    search.text = QStringLiteral("4820000000109");
    search.time = noon;
    auto query = m_base->db().run(goodsListSql(search));
    QVERIFY(query && query->next());
    const ReceiptRow row(goodsItem(*query));
    QCOMPARE(row.actType, inForce ? 2 : 1);
    QCOMPARE(row.actName, inForce ? text("Мінус десять") : text("Без акції"));
    QCOMPARE(row.actDiscount(), inForce ? qint64(500) : qint64(0));
    QCOMPARE(row.actVal1 * 10 + row.actVal2, qint64(78));
}

/// Shown is what the promotion does and its own name, never that of the promotion with the number of its
/// kind.
void TstChekWriter::promotionCaptions()
{
    m_base->exec(text("INSERT INTO type_action(id,name) VALUES(3,'Подарунок')"));
    m_base->exec(text("INSERT INTO action(id,name,id_type_action,val,datetime_start,week_day) VALUES"
                      "(2,'Вихідні -10 %',2,1000,0,'Sat,'),(5,'Хлібна',2,1750,0,'Sat,'),"
                      "(6,'Другий у подарунок',3,100,0,'Sat,'),(7,'У понеділок',2,2000,0,'Mon,')"));
    const auto shown = [&](int action) {
        m_base->exec(QStringLiteral("UPDATE goods_shop SET id_action=%1 WHERE id_goods=10").arg(action));
        GoodsSearch search;
        search.idShop = 1;
        search.text = QStringLiteral("4820000000109");
        search.time = noon;
        auto query = m_base->db().run(goodsListSql(search));
        if (!query || !query->next())
            return QString();
        const QByteArray stored = query->value(static_cast<int>(GoodsColumn::Promotion)).toString().toUtf8();
        const QString listed = promotionShown({stored.constData(), static_cast<size_t>(stored.size())});
        const QString inReceipt = promotionCaption(goodsItem(*query));
        return listed == inReceipt ? inReceipt.simplified() : listed + QLatin1Char('/') + inReceipt;
    };
    QCOMPARE(shown(1), text("Без акції"));
    QCOMPARE(shown(2), text("−10 % Вихідні -10 %"));
    QCOMPARE(shown(5), text("−17.5 % Хлібна"));
    QCOMPARE(shown(6), text("Другий у подарунок (без знижки)"));
    QCOMPARE(shown(7), text("Без акції"));
    m_base->exec(text("UPDATE goods_shop SET id_action=1"));
    m_base->exec(text("DELETE FROM action WHERE id>1"));
    m_base->exec(text("DELETE FROM type_action WHERE id=3"));
}

void TstChekWriter::changesBeforePayment()
{
    Receipt filled = receipt({{10, 2000}, {11, 250}, {13, 1000}, {10, 1000}});
    GoodsSearch search;
    search.idShop = 1;
    search.time = noon;
    const auto changes = [&] {
        const auto found = saleChanges(m_base->db(), filled, search);
        if (!found)
            qFatal("Nothing was read");
        return *found;
    };
    QVERIFY(changes().isEmpty());
    m_base->exec(text("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(10,1,1,0,9900)"));
    m_base->exec(text("INSERT INTO action(id,name,id_type_action,val,datetime_start,week_day) VALUES"
                      "(2,'Сирна',2,1500,0,'Sat,')"));
    m_base->exec(text("UPDATE goods_shop SET id_action=2 WHERE id_goods=11"));
    SaleChanges found = changes();
    QCOMPARE(found.told, (QStringList{text("«Хліб житній»: ціна змінилась: 50.00 → 99.00"),
                                      text("«Сир ваговий»: акція змінилась: без акції → −15\u00a0% Сирна")}));
    QCOMPARE(found.blocking, QStringList());
    for (int i = 0; i < found.rows.size(); ++i)
        filled.takeOver(i, found.rows.at(i));
    QVERIFY(changes().isEmpty());
    // 3 × 99.00, 20.00 less 15 %, 30.00
    QCOMPARE(filled.total(), qint64(34700));
    QCOMPARE(filled.discount(), qint64(300));
    m_base->exec(text("UPDATE goods SET block=1 WHERE id=13"));
    m_base->exec(text("UPDATE goods SET group_g=3 WHERE id=11"));
    found = changes();
    m_base->exec(text("UPDATE goods SET block=0,group_g=1 WHERE id IN (11,13)"));
    QCOMPARE(found.told, QStringList());
    QCOMPARE(found.blocking, (QStringList{text("«Сир ваговий»: товар більше не продається в цьому магазині."),
                                          text("«Молоко»: товар заблоковано.")}));
}

void TstChekWriter::searchTakesTextAsData()
{
    const auto found = [&](const QString &words, GoodsSearch::By by) {
        GoodsSearch search;
        search.idShop = 1;
        search.by = by;
        search.text = words;
        search.time = noon;
        QStringList names;
        auto query = m_base->db().run(goodsListSql(search));
        while (query && query->next())
            names.append(QString::number(goodsItem(*query).idGoods));
        names.sort();
        return names.join(QLatin1Char(' '));
    };
    QCOMPARE(found(QString(), GoodsSearch::Name), text("10 11 12 13 14 15"));
    QCOMPARE(found(QString(), GoodsSearch::Barcode), text("10 11 13 14 15"));
    QCOMPARE(found(text("хліб жит"), GoodsSearch::Name), text("10"));
    QCOMPARE(found(text("O'Neil 5%"), GoodsSearch::Name), text("12"));
    QCOMPARE(found(text("000000"), GoodsSearch::Barcode), text("10 11 13 15"));
    for (const char *word :
         {"%", "_", "x'; DELETE FROM goods_shop; -- ", "\\' OR 1=1 -- ", ":id_shop ?", "\\"}) {
        QCOMPARE(found(text(word), GoodsSearch::Barcode), QString());
        QCOMPARE(found(text(word), GoodsSearch::ExactBarcode), QString());
        QCOMPARE(found(text(word), GoodsSearch::Name), text(qstrcmp(word, "%") == 0 ? "12" : ""));
    }
    QCOMPARE(m_base->heard.texts(), QStringList());
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM goods_shop")), text("16"));
}

QTEST_GUILESS_MAIN(TstChekWriter)
#include "tst_chekwriter.moc"
