#include "integrityrun.h"

#include "chain.h"
#include "checkrun.h"
#include "checks.h"
#include "chekwriter.h"
#include "invoicewriter.h"
#include "saleshop.h"
#include "shiftcloser.h"
#include "stockwriter.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <atomic>
#include <thread>

using namespace integrity;

namespace {
const QDateTime noon(QDate(2026, 11, 23), QTime(12, 30, 5));

QString number(int value)
{
    return QString::number(value);
}

/// A register of shop 1 with that number in its name.
QString registerSql(int kass)
{
    return QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(%1,1,'Каса %1',0)")
        .arg(kass);
}

/// A sale of goods of two tax groups, paid in cash and by card, with a discount, and something brought back:
/// three numbers with the Z receipt.
QStringList receiptsSql(int kass, int shift, int firstChek, const char *day, int shop = 1)
{
    const QString head =
        QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                       "id_good_cln_slujb,count,price,summa,tax,dis_bon_bez2,data_time) VALUES");
    const auto row = [=](int chek, const char *values) {
        return QStringLiteral("(%1,%2,%3,%4,").arg(shop).arg(kass).arg(shift).arg(chek) +
               QLatin1String(values) + QStringLiteral(",'%1 12:00:00')").arg(QLatin1String(day));
    };
    return {head + row(firstChek, "0,1,1,10,1000,5000,5000,1,0"),
            head + row(firstChek, "1,1,1,11,250,8000,2000,2,0"), head + row(firstChek, "3,1,2,1,0,0,500,0,0"),
            head + row(firstChek, "4,1,3,1,0,4000,6500,2500,0"),
            head + row(firstChek + 1, "0,1,6,13,1000,1000,1000,3,0")};
}

QString zReceiptSql(int kass, int shift, int chek, int shop = 1)
{
    return QStringLiteral(
               "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,summa,data_time) "
               "VALUES(%1,%2,%3,%4,0,1,10,6500,'2026-11-20 21:00:00')")
        .arg(shop)
        .arg(kass)
        .arg(shift)
        .arg(chek);
}

QString shiftSql(int kass, int shift, const char *closed, int shop = 1)
{
    return QStringLiteral(
               "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,cash,beznal_1,Oborot_A,Oborot_B,"
               "Oborot_V_ret,cash_ret,summ_diskount,count_cheks,count_chek_diskount,count_cheks_ret,"
               "data_time) VALUES(%1,%2,%3,1,4000,2500,5000,2000,1000,1000,500,1,1,1,%4)")
        .arg(shift)
        .arg(shop)
        .arg(kass)
        .arg(QLatin1String(closed));
}

/// A register that has sold and closed one shift, and sells in the next one.
QStringList soundRegister(int kass)
{
    return QStringList{registerSql(kass), shiftSql(kass, 1, "'2026-11-20 21:00:00'"), zReceiptSql(kass, 1, 3),
                       shiftSql(kass, 2, "0")} +
           receiptsSql(kass, 1, 1, "2026-11-20") + receiptsSql(kass, 2, 4, "2026-11-23");
}

/// One fault, in a record of its own, and what is told about it.
struct Fault
{
    QStringList planted;
    QString told;
};

QString at(int kass, const char *check, const char *words)
{
    return QStringLiteral("%1|вул. Перша, 1|Каса %2|%3")
        .arg(QLatin1String(check))
        .arg(kass)
        .arg(QString::fromUtf8(words));
}

QString without(const char *check, const char *place, const char *words)
{
    return QStringList{QString::fromUtf8(check), QString::fromUtf8(place), QString(),
                       QString::fromUtf8(words)}
        .join('|');
}

QVector<Fault> shiftFaults()
{
    return {
        {{"UPDATE z_zvit SET cash=4100,Oborot_A=NULL WHERE id_kass=11 AND id_zzvit=1",
          "UPDATE cheks SET summa=1500 WHERE id_kass=11 AND id_type=10"},
         at(11, "shift_sums",
            "Зміна № 1: оборот А у зміні 0.00, за чеками 50.00; готівка у зміні 41.00, за чеками 40.00.")},
        // What the operator has counted at closing is no fault, what an open shift counts is.
        {{"UPDATE z_zvit SET count_cheks=9,count_chek_diskount=8 WHERE id_kass=12"},
         at(12, "shift_sums",
            "Зміна № 2: чеків у зміні 9, за чеками 1; чеків зі знижкою у зміні 8, за чеками 1.")},
        {{"UPDATE z_zvit SET Oborot_G_ret=1,count_cheks_ret=2 WHERE id_kass=13 AND id_zzvit=1"},
         at(13, "shift_sums",
            "Зміна № 1: повернення Г у зміні 0.01, за чеками 0.00; чеків повернення у зміні 2, за чеками 1.")},
        {{"INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,beznal_2,data_time) VALUES(3,1,14,1,700,'2026-11-23')"},
         at(14, "shift_empty",
            "У зміни № 3 є суми, а чеків немає: сертифікат у зміні 7.00, за чеками 0.00.")},
        {{"DELETE FROM z_zvit WHERE id_kass=15 AND id_zzvit=2"},
         at(15, "shift_missing", "Чеки зміни № 2 (від № 4, рядків: 5) є, а самої зміни немає.")},
        {{"UPDATE z_zvit SET id_shop=2 WHERE id_kass=16 AND id_zzvit=1"},
         "shift_place|вул. Друга, 2|Каса 16|Зміна № 1 записана в одному магазині, а її чеки – в іншому (№ 1)."},
        {{"UPDATE z_zvit SET data_time=NULL WHERE id_kass=17 AND id_zzvit=1"},
         at(17, "shift_undated", "У зміни № 1 немає часу: вона ані відкрита, ані закрита.")},
        {{"UPDATE cheks SET data_time='2026-11-22 12:29:59' WHERE id_kass=18 AND id_chek=4"},
         at(18, "shift_old", "Зміна № 2 відкрита з 22-11-26 12:29:59.")},
        {{"UPDATE cheks SET summa=6400 WHERE id_kass=19 AND id_type=10"},
         at(19, "z_receipt", "Зміна № 1: у Z-чеку 64.00, а оборот зміни без знижки 65.00.")},
        {{"UPDATE cheks SET id_type=4,summa=0 WHERE id_kass=20 AND id_type=10"},
         at(20, "z_receipt", "Зміна № 1: вона закрита, а Z-чека немає.")},
        {{zReceiptSql(21, 2, 6),
          "UPDATE cheks SET data_time='2026-11-23 12:20:00' WHERE id_kass=21 AND id_chek=6"},
         at(21, "z_receipt", "Зміна № 2: вона відкрита, а Z-чек уже є.")},
        {{"UPDATE cheks SET id_chek=id_chek+1 WHERE id_kass=22 AND id_zvit=2 ORDER BY id_chek DESC,id_position DESC",
          zReceiptSql(22, 1, 4)},
         at(22, "z_double", "Номер зміни 1 є на касі двічі: змін 1, Z-чеків 2.")},
        {{"UPDATE z_zvit SET id_zzvit=4 WHERE id_kass=23 AND id_zzvit=2",
          "UPDATE cheks SET id_zvit=4 WHERE id_kass=23 AND id_zvit=2"},
         at(23, "z_gap", "Після зміни № 1 відразу йде № 4.")},
        {{"INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(3,1,24,1,0)"},
         at(24, "open_many", "На касі відкрито кілька змін: № 2, 3.")},
    };
}

QVector<Fault> receiptFaults()
{
    return {
        {{"UPDATE cheks SET summa=6600 WHERE id_kass=31 AND id_chek=1 AND id_type=3"},
         at(31, "payment", "Чек № 1: товари 70.00, знижка 5.00, до оплати 66.00, оплачено 65.00.")},
        {{"DELETE FROM cheks WHERE id_kass=32 AND id_chek=1 AND id_type=3",
          "UPDATE z_zvit SET cash=0,beznal_1=0 WHERE id_kass=32 AND id_zzvit=1"},
         at(32, "payment", "Чек № 1: товари 70.00, знижка 5.00, до оплати 0.00, оплачено 0.00.")},
        {{"INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,summa) VALUES(1,33,1,2,7,5,0)"},
         at(33, "chek_double", "Під номером 2 на касі записано кілька документів.")},
        {{"UPDATE z_zvit SET id_shop=2 WHERE id_kass=34 AND id_zzvit=2",
          "UPDATE cheks SET id_shop=2,id_chek=id_chek-1 WHERE id_kass=34 AND id_zvit=2 ORDER BY id_chek,id_position"},
         at(34, "chek_shops", "Чек № 3 цієї каси є і в іншому магазині (№ 2).")},
        {{"UPDATE cheks SET id_chek=id_chek+5 WHERE id_kass=35 AND id_zvit=2 ORDER BY id_chek DESC,id_position DESC"},
         at(35, "chek_gap", "Після чека № 3 відразу йде № 9.")},
        // The register has moved: its numbers go on in another shop.
        {{"UPDATE z_zvit SET id_shop=2 WHERE id_kass=36 AND id_zzvit=2",
          "UPDATE cheks SET id_shop=2,id_chek=id_chek+1 WHERE id_kass=36 AND id_zvit=2 ORDER BY id_chek DESC,id_position DESC"},
         at(36, "chek_gap", "Після чека № 3 відразу йде № 5.")},
        {{"DELETE FROM kassa WHERE id=37"},
         "chek_kass|вул. Перша, 1|№ 37|Є чеки № 1–5 каси № 37, а самої каси у базі немає."},
    };
}

QVector<Fault> otherFaults()
{
    return {
        {{"UPDATE goods_shop SET count_showroom=-1500 WHERE id_shop=2 AND id_goods=13"},
         without("stock_negative", "вул. Друга, 2", "Товар 13 «Молоко»: у залі -1.500, на складі 0.000.")},
        {{"INSERT INTO goods_shop(id_shop,id_goods,count_syllable) VALUES(1,999,2000)"},
         without("stock_goods", "вул. Перша, 1",
                 "Є залишок товару № 999 (у залі 0.000, на складі 2.000), а самого товару немає.")},
        {{"INSERT INTO goods_shop(id_shop,id_goods) VALUES(77,10),(77,11)"},
         without("stock_shop", "№ 77", "Є залишки магазину № 77 (товарів: 2), а самого магазину немає.")},
        {{"UPDATE goods_shop SET id_action=55 WHERE id_shop=2 AND id_goods=10"},
         without("stock_action", "вул. Друга, 2", "Товар № 10 має акцію № 55, якої немає.")},
        {{"UPDATE dk_shc SET shtrihcod='4820000000177' WHERE id_goods=17"},
         without("barcode_digit", "",
                 "Штрихкод 4820000000177 товару 17 «Пляшка» не має вірної контрольної цифри.")},
        {{"INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(16,'48200015')"},
         without("barcode_digit", "",
                 "Штрихкод 48200015 товару 16 «Знятий» не має вірної контрольної цифри.")},
        {{"INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(16,'ABC')"},
         without("barcode_digit", "", "Штрихкод ABC товару 16 «Знятий» не має вірної контрольної цифри.")},
        {{"INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(10,'0000048200011')"},
         without("barcode_double", "",
                 "Той самий штрихкод (0000048200011, 48200011) мають товари № 10, 14.")},
        {{"INSERT INTO prices(id_goods,id_shop,id_group,price) VALUES(888,0,1,1250)"},
         without("price_goods", "", "Є ціна 12.50 товару № 888, а самого товару немає.")},
        {{"INSERT INTO prices(id_goods,id_shop,id_group,price) VALUES(12,66,1,900)"},
         without("price_shop", "№ 66",
                 "Товар 12 «Пакет O'Neil 5%» має ціну 9.00 для магазину № 66, якого немає.")},
        {{"INSERT INTO prices(id_goods,id_shop,id_group,price) VALUES(11,0,44,900)"},
         without("price_group", "",
                 "Товар 11 «Сир ваговий» має ціну 9.00 для групи магазинів № 44, якої немає.")},
        {{"INSERT INTO clients(id,id_procent,group_shop) VALUES(2200000400,33,1)"},
         without("card_level", "", "Картка 2200000400 має рівень знижки № 33, якого немає.")},
        {{"INSERT INTO procent(id,name) VALUES(1,'Старт')",
          "INSERT INTO clients(id,id_procent,group_shop) VALUES(2200000401,1,0)"},
         without("card_group", "", "Картка 2200000401 належить до групи магазинів № 0, якої немає.")},
        {{"INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('hanna','h','3','Г','Г',22)"},
         without("user_group", "",
                 "Користувач «hanna» належить до групи прав № 22, якої немає: прав у нього немає.")},
        {{"UPDATE users SET id_shop=99 WHERE login='second'"},
         without("user_shop", "№ 99", "Користувач «second» працює в магазині № 99, якого немає.")},
        {{"UPDATE goods SET tax=9 WHERE id=16"},
         without("reference", "",
                 "У таблиці «goods» є записи, де tax=9, а в таблиці «tax» такого запису немає.")},
        {{"UPDATE cheks SET id_user=70 WHERE id_kass=38 AND id_chek=1"},
         without("reference", "",
                 "У таблиці «cheks» є записи, де id_user=70, а в таблиці «users» такого запису немає.")},
        {{"DROP TABLE cd_cheks"}, without("schema_table", "", "Таблиці «cd_cheks» немає.")},
    };
}

/// The sale shop with sound barcodes.
void fillShop(FreshDatabase *base)
{
    fillSaleShop(base);
    base->exec("UPDATE dk_shc SET shtrihcod='48200011' WHERE id_goods=14");
}

/// Shops, goods, and the registers 11 to 39 with their shifts; two of them shall not suffice.
void fillSound(FreshDatabase *base)
{
    fillShop(base);
    for (int kass = 11; kass < 40; ++kass)
        base->exec(soundRegister(kass));
}
} // namespace

/// What is wrong in a database is found, and nothing else.
class TstIntegrityRun : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void demoChainIsSound();
    void emptyDatabaseIsSound();
    void plantedFaultsAreFound();
    void sameShiftTwice();
    void findingsLeadToTheirRecords();
    void whatTheProgramWritesIsSound();
    void soldWhileItRuns();
    void theFirstOfAKindAreListed();
    void whatCannotBeReadIsTold();
    void changesNothing();
    void lostServerEndsIt();
};

void TstIntegrityRun::cleanup()
{
    Db::setStatementHook({});
}

void TstIntegrityRun::demoChainIsSound()
{
    demo::ChainPlan plan;
    plan.until = QDate(2026, 3, 18);
    plan.days = 9;
    plan.shops = 5;
    plan.registers = 7;
    plan.goods = 260;
    plan.assortment = 150;
    plan.cards = 40;
    plan.receiptsPerShift = 12;
    FreshDatabase base;
    QVERIFY(demo::generateChain(base.db(), plan));
    const CheckRun run = checkDatabase(&base, QDateTime(plan.until, QTime(20, 0)));
    QCOMPARE(run.lines(), QStringList());
    QCOMPARE(run.result.words, QString("Помилок не знайдено."));
    for (const CheckState &state : run.states)
        QCOMPARE(state.kind, CheckState::Done);
}

void TstIntegrityRun::emptyDatabaseIsSound()
{
    FreshDatabase base;
    QCOMPARE(checkDatabase(&base, noon).result.words, QString("Помилок не знайдено."));
}

void TstIntegrityRun::plantedFaultsAreFound()
{
    FreshDatabase base;
    fillSound(&base);
    QCOMPARE(checkDatabase(&base, noon).lines().join('\n'), QString());
    QStringList wanted;
    base.exec(QStringList{"SET SESSION foreign_key_checks=0"});
    for (const Fault &fault : shiftFaults() + receiptFaults() + otherFaults()) {
        base.exec(fault.planted);
        wanted.append(fault.told);
    }
    std::sort(wanted.begin(), wanted.end());
    const CheckRun run = checkDatabase(&base, noon);
    const QStringList found = run.lines();
    for (int i = 0; i < qMax(found.size(), wanted.size()); ++i)
        QCOMPARE(found.value(i), wanted.value(i));
    QCOMPARE(run.result.words, QString("Знайдено помилок: %1.").arg(wanted.size()));
    QVERIFY2(base.heard.texts().isEmpty(), qPrintable(base.heard.texts().join('\n')));
}

/// Only where the key is gone that forbids it.
void TstIntegrityRun::sameShiftTwice()
{
    FreshDatabase base;
    fillShop(&base);
    base.exec(soundRegister(11));
    base.exec(QStringList{"ALTER TABLE z_zvit DROP PRIMARY KEY", shiftSql(11, 1, "'2026-11-20 21:00:00'")});
    QCOMPARE(checkDatabase(&base, noon).lines(),
             (QStringList{
                 without("schema_key", "", "У таблиці «z_zvit» немає ключа PRIMARY KEY(id_zzvit,id_kass)."),
                 at(11, "z_double", "Номер зміни 1 є на касі двічі: змін 2, Z-чеків 1.")}));
}

void TstIntegrityRun::findingsLeadToTheirRecords()
{
    FreshDatabase base;
    fillSound(&base);
    base.exec(QStringList{"SET SESSION foreign_key_checks=0", "UPDATE goods SET tax=9 WHERE id=16",
                          "INSERT INTO transactions_goods(id_invoice,id_good) VALUES(5,10)",
                          "UPDATE z_zvit SET cash=4100 WHERE id_kass=11 AND id_zzvit=1",
                          "UPDATE cheks SET summa=6600 WHERE id_kass=31 AND id_chek=4 AND id_type=3",
                          "UPDATE goods_shop SET count_showroom=-1 WHERE id_shop=2 AND id_goods=13",
                          "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(10,'0000048200011')"});
    QStringList led;
    for (const Finding &one : checkDatabase(&base, noon).findings) {
        const Destination &to = one.destination;
        led.append(QStringList{to.action, to.condition, number(static_cast<int>(to.origin.kass)),
                               to.origin.zFrom, to.origin.zTo, number(static_cast<int>(to.origin.chek))}
                       .join('|'));
        QCOMPARE(to.words, one.words);
        QVERIFY(!one.advice.contains('{') && !one.advice.isEmpty());
    }
    led.sort();
    QCOMPARE(led,
             (QStringList{"mt_goods_shops|goods_shop.id_shop=2 AND goods_shop.id_goods=13|0|0|2147483647|0",
                          "mt_goods|goods.id IN (10, 14)|0|0|2147483647|0",
                          "mt_goods|goods.tax=9|0|0|2147483647|0",
                          "mt_z_zvits|z_zvit.id_kass=11 AND z_zvit.id_zzvit=1|11|1|1|1", "mz_cheks||31|2|2|4",
                          // Nothing lists the goods of invoices.
                          "|transactions_goods.id_invoice=5|0|0|2147483647|0"}));
}

namespace {
Receipt receiptOf(FreshDatabase *base, const QVector<QPair<int, qint64>> &goods, qint64 discount = 0)
{
    Receipt receipt;
    for (const auto &[id, quantity] : goods) {
        ReceiptRow row = goodsRow(base, id);
        row.quantity = quantity;
        receipt.add(row);
    }
    receipt.setDiscount(discount);
    return receipt;
}

ChekWriter::Outcome sell(const Db &db, int kass, const Receipt &receipt)
{
    ChekPayment payment;
    payment.discount = receipt.discount();
    payment.toPay = receipt.toPay();
    payment.card = payment.toPay / 3;
    payment.certificate = payment.toPay / 5;
    payment.cash = payment.toPay - payment.card - payment.certificate;
    return ChekWriter(db, {QStringLiteral("1"), number(kass), QStringLiteral("1")})
        .write(receipt, payment)
        .outcome;
}
} // namespace

/// Sold, received, moved, sent, closed with other figures than the program counted, and sold again.
void TstIntegrityRun::whatTheProgramWritesIsSound()
{
    const ClockAt clock(noon);
    FreshDatabase base;
    fillShop(&base);
    const ChekPlace place = {"1", "1", "1"};
    base.exec(QStringLiteral("INSERT INTO procent(id,name,discount) VALUES(1,'Старт',500)"));
    const auto write = [&](int type, StockPlace where, int goods, qint64 quantity) {
        StockOrder order;
        order.place = place;
        order.move = {type, where};
        order.document.add({StockRow(goodsRow(&base, goods), quantity)});
        return StockWriter(base.db(), place).write(order).outcome;
    };
    QCOMPARE(sell(base.db(), 1, receiptOf(&base, {{10, 1000}, {11, 333}, {12, 2000}}, 777)),
             ChekWriter::Written);
    QCOMPARE(write(7, StockPlace::Syllable, 13, 5000), StockWriter::Written);
    QCOMPARE(write(8, StockPlace::Showroom, 13, 2000), StockWriter::Written);
    InvoiceDraft draft;
    draft.user = 1;
    draft.from = 1;
    draft.to = 2;
    draft.place = StockPlace::Showroom;
    draft.lines = {{10, QStringLiteral("Хліб"), true, 2000}};
    const InvoiceResult sent = sendInvoice(base.db(), draft);
    QCOMPARE(sent.outcome, InvoiceResult::Written);
    AcceptDraft came;
    came.invoice = sent.mark.invoice;
    came.user = 2;
    came.place = StockPlace::Syllable;
    came.lines = {{10, QStringLiteral("Хліб"), true, 2000, 1500}};
    QCOMPARE(acceptInvoice(base.db(), came).outcome, InvoiceResult::Written);
    const ShiftCloser closer(base.db(), place);
    const auto figures = closer.figures(QStringLiteral("1"));
    QVERIFY(figures);
    QCOMPARE(closer.close(*figures, {7, 6, 5, 4, 300, 200}), ShiftCloser::Closed);
    QCOMPARE(sell(base.db(), 1, receiptOf(&base, {{14, 1500}})), ChekWriter::Written);
    QCOMPARE(checkDatabase(&base, noon).lines(), QStringList());
}

/// Somebody sells as fast as the server can, on two registers: a shift and its receipts are of one moment.
void TstIntegrityRun::soldWhileItRuns()
{
    FreshDatabase base;
    fillSound(&base);
    base.exec("UPDATE goods_shop SET count_showroom=2000000000");
    const Receipt receipt = receiptOf(&base, {{10, 1000}, {13, 1000}}, 100);
    std::atomic<bool> isOver{false};
    std::atomic<int> sold{0};
    std::thread seller([&] {
        {
            QSqlDatabase connection = addConnection(QStringLiteral("seller"), base.address());
            openConnection(connection, nullptr);
            const Db db(&connection, nullptr);
            while (!isOver) {
                if (sell(db, 1 + sold % 2, receipt) == ChekWriter::Written)
                    ++sold;
            }
        }
        QSqlDatabase::removeDatabase(QStringLiteral("seller"));
    });
    QStringList found;
    const bool isBusy = QTest::qWaitFor([&] { return sold > 5; });
    for (int i = 0; i < 8; ++i)
        found += checkDatabase(&base, QDateTime::currentDateTime()).lines();
    isOver = true;
    seller.join();
    QVERIFY(isBusy);
    // The fixture's own open shifts are of another day than today.
    found = found.filter(QRegularExpression(QStringLiteral("^(?!shift_old)")));
    QCOMPARE(found, QStringList());
    QVERIFY2(sold > 20, qPrintable(number(sold)));
}

void TstIntegrityRun::theFirstOfAKindAreListed()
{
    FreshDatabase base;
    fillSound(&base);
    base.exec(QStringList{"UPDATE goods_shop SET count_showroom=-1", "UPDATE z_zvit SET cash=cash+1"});
    const int stock = base.value("SELECT COUNT(*) FROM goods_shop").toInt();
    const int shifts = base.value("SELECT COUNT(*) FROM z_zvit").toInt();
    const CheckRun run = checkDatabase(&base, noon, 7);
    QCOMPARE(run.findings.size(), 14);
    QCOMPARE(run.state("stock_negative").found, qint64(stock));
    QCOMPARE(run.state("shift_sums").found, qint64(shifts));
    QCOMPARE(run.result.words, QString("Знайдено помилок: %1.").arg(stock + shifts));
}

/// Other checks go on.
void TstIntegrityRun::whatCannotBeReadIsTold()
{
    FreshDatabase base;
    fillSound(&base);
    base.exec(QStringList{"UPDATE goods_shop SET count_showroom=-1 WHERE id_shop=2 AND id_goods=13",
                          "RENAME TABLE dk_shc TO away", "ALTER TABLE cheks DROP COLUMN dis_bon_bez2"});
    const CheckRun run = checkDatabase(&base, noon);
    QCOMPARE(run.result.outcome, JobResult::Done);
    for (const char *check : {"barcode_digit", "barcode_double", "shift_sums", "payment"}) {
        QCOMPARE(run.state(check).kind, CheckState::Unread);
        QVERIFY(!run.state(check).error.isEmpty());
    }
    for (const char *check : {"chek_gap", "z_gap", "card_level", "schema_key"})
        QCOMPARE(run.state(check).kind, CheckState::Done);
    QCOMPARE(run.state("stock_negative").found, qint64(1));
    QCOMPARE(run.state("schema_table").found, qint64(1));
    QVERIFY2(base.heard.texts().isEmpty(), qPrintable(base.heard.texts().join('\n')));
}

void TstIntegrityRun::changesNothing()
{
    FreshDatabase base;
    fillSound(&base);
    QStringList others;
    {
        Sent sent([&](const QString &sql) {
            if (!sql.startsWith(QLatin1String("SELECT ")) && !sql.startsWith(QLatin1String("SET SESSION ")))
                others.append(sql);
        });
        checkDatabase(&base, noon);
        QVERIFY(sent.containing("FROM cheks").size() > 29);
    }
    QCOMPARE(others, QStringList());
}

void TstIntegrityRun::lostServerEndsIt()
{
    FreshDatabase base;
    fillSound(&base);
    std::atomic<bool> isCut{false};
    Db::setStatementHook([&](const QString &sql) {
        if (sql.contains("id_kass=20") && !isCut.exchange(true))
            base.killConnection();
    });
    const CheckRun run = checkDatabase(&base, noon);
    QVERIFY(isCut);
    QCOMPARE(run.result.outcome, JobResult::Failed);
    QVERIFY2(run.result.words.startsWith("Перевірку перервано"), qPrintable(run.result.words));
    QCOMPARE(run.state("shift_sums").kind, CheckState::Unread);
    QCOMPARE(run.state("stock_negative").kind, CheckState::Done);
}

QTEST_MAIN(TstIntegrityRun)
#include "tst_integrityrun.moc"
