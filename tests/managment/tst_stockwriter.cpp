#include "stockwriter.h"

#include "cheks.h"
#include "saleshop.h"
#include "servererror.h"

#include <QSqlQuery>

namespace {
const QDateTime noon(QDate(2026, 11, 21), QTime(12, 30, 5));

QString text(const char *sql)
{
    return QString::fromUtf8(sql);
}

ChekPlace place(int kass = 1, int user = 1)
{
    return {QStringLiteral("1"), QString::number(kass), QString::number(user)};
}
} // namespace

class TstStockWriter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void documentAddsUp();
    void quantities_data();
    void quantities();
    void received();
    void moved();
    void moneyKnowsNothingOfIt();
    void soldMeanwhile();
    void belowZeroOnlyWhenAgreed();
    void moreThanAColumnHolds();
    void manyRowsInFewStatements();
    void whoMayWrite();
    void brokenAnywhere();
    void answerToCommitIsLost();
    void othersInTheWay();

private:
    StockOrder order(int type, StockPlace place, const QVector<QPair<int, qint64>> &goods);
    StockWriter::Result write(const StockOrder &order, int kass = 1);
    /// "floor|store room" of a goods item in shop 1; empty for one that it never had.
    QString stock(int goods);
    QStringList everything();

    const ClockAt m_clock{noon};
    std::unique_ptr<FreshDatabase> m_base;
};

void TstStockWriter::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
}

/// 10 on the floor and 5 in the store room; the shop never had the novelty.
void TstStockWriter::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(text("UPDATE goods_shop SET count_syllable=5000"));
    m_base->exec(text("DELETE FROM goods_shop WHERE id_goods=15"));
    m_base->heard.forget();
}

void TstStockWriter::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
}

void TstStockWriter::cleanupTestCase()
{
    m_base.reset();
}

StockOrder TstStockWriter::order(int type, StockPlace where, const QVector<QPair<int, qint64>> &goods)
{
    StockOrder order;
    order.place = place();
    order.move = {type, where};
    QVector<StockRow> rows;
    for (const auto &[id, quantity] : goods) {
        const QStringList cells =
            m_base
                ->rows(text("SELECT name,IFNULL(type,0),IFNULL(tax,0),IFNULL((SELECT shtrihcod FROM dk_shc "
                            "WHERE id_goods=goods.id),'') FROM goods WHERE id=%1")
                           .arg(id))
                .first()
                .split(QLatin1Char('|'));
        GoodsItem item;
        item.idGoods = static_cast<quint32>(id);
        item.name = cells.at(0);
        item.type = cells.at(1).toInt();
        item.tax = cells.at(2).toInt();
        item.barcode = cells.at(3);
        rows.append(StockRow(item, quantity));
    }
    order.document.add(rows);
    return order;
}

StockWriter::Result TstStockWriter::write(const StockOrder &order, int kass)
{
    return StockWriter(m_base->db(), place(kass)).write(order);
}

QString TstStockWriter::stock(int goods)
{
    return m_base
        ->rows(text("SELECT count_showroom,count_syllable FROM goods_shop WHERE id_shop=1 AND id_goods=%1")
                   .arg(goods))
        .join(QLatin1Char(' '));
}

QStringList TstStockWriter::everything()
{
    return m_base->rows(text("SELECT id_shop,id_kass,id_chek,id_position,id_type,count FROM cheks ORDER BY "
                             "1,2,3,4")) +
           m_base->rows(text("SELECT id_kass,id_zzvit,id_user FROM z_zvit ORDER BY 1,2")) +
           m_base->rows(text("SELECT * FROM goods_shop ORDER BY id_shop,id_goods"));
}

/// Pieces go into the row that is there, each weighing is a row of its own.
void TstStockWriter::documentAddsUp()
{
    StockDocument document =
        order(7, StockPlace::Syllable, {{10, 2000}, {11, 250}, {10, 3000}, {11, 500}}).document;
    QCOMPARE(document.rows().size(), 3);
    QCOMPARE(document.rows().first().quantity, qint64(5000));
    GoodsItem bread = document.rows().first();
    QCOMPARE(document.add(bread), 0);
    GoodsItem cheese = document.rows().at(1);
    QCOMPARE(document.add(cheese), 3);
    QCOMPARE(document.rows().last().quantity, qint64(0));
    // Whoever scans it once more before its kilograms are typed means that row.
    QCOMPARE(document.add(cheese), 3);
    QCOMPARE(document.rows().size(), 4);
    document.setQuantity(3, 1000);
    QCOMPARE(document.quantityOf(1), qint64(1750));
    QCOMPARE(document.total(), qint64(7750));
    document.remove(0);
    QCOMPARE(document.add(bread), 3);
    QCOMPARE(document.quantities().size(), 2);
    QCOMPARE(document.quantities().first().quantity, qint64(1750));
}

void TstStockWriter::quantities_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<qint64>("quantity");
    QTest::addColumn<bool>("mayBeNegative");
    QTest::addColumn<QString>("why");
    QTest::newRow("nothing") << 1 << qint64(0) << true << "нулем";
    QTest::newRow("back to the supplier") << 1 << qint64(-3000) << true << "";
    QTest::newRow("less than nothing") << 0 << qint64(-250) << false << "більша за нуль";
    QTest::newRow("half a piece") << 1 << qint64(1500) << true << "ціле число";
    QTest::newRow("a quarter of a kilogram") << 0 << qint64(250) << false << "";
    QTest::newRow("too much") << 0 << qint64(2147483648) << false << "завелика";
    QTest::newRow("too much back") << 0 << qint64(-2147483648) << true << "завелика";
}

void TstStockWriter::quantities()
{
    QFETCH(int, type);
    QFETCH(qint64, quantity);
    QFETCH(bool, mayBeNegative);
    QFETCH(QString, why);
    GoodsItem item;
    item.type = type;
    const QString refusal = StockDocument::quantityRefusal(item, quantity, mayBeNegative);
    QVERIFY2(why.isEmpty() ? refusal.isEmpty() : refusal.contains(why), qPrintable(refusal));
}

/// All tax groups, no barcode, no tax group, a name with a quote, goods that the shop never had.
void TstStockWriter::received()
{
    const auto result = write(order(
        7, StockPlace::Syllable, {{10, 2000}, {11, 250}, {12, 1000}, {13, 7000}, {14, 12345}, {15, 3000}}));
    QCOMPARE(result.outcome, StockWriter::Written);
    QVERIFY(result.opensShift);
    QCOMPARE(
        m_base->rows(text("SELECT id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                          "id_good_cln_slujb,name,strihcode,count,price,summa,tax,type,sumdisc,dis_bon_bez2,"
                          "bonus_plus,id_type_action,DATE_FORMAT(data_time,'%Y%m%d%H%i%s') FROM cheks "
                          "ORDER BY id_position")),
        (QStringList{text("1|1|1|1|0|1|7|10|Хліб житній|4820000000109|2000|0|0|1|1|0|2|0|1|20261121123005"),
                     text("1|1|1|1|1|1|7|11|Сир ваговий|0000000000116|250|0|0|2|0|0|2|0|1|20261121123005"),
                     text("1|1|1|1|2|1|7|12|Пакет O'Neil 5%||1000|0|0|0|1|0|2|0|1|20261121123005"),
                     text("1|1|1|1|3|1|7|13|Молоко|4820000000130|7000|0|0|3|1|0|2|0|1|20261121123005"),
                     text("1|1|1|1|4|1|7|14|Картопля|48200014|12345|0|0|5|0|0|2|0|1|20261121123005"),
                     text("1|1|1|1|5|1|7|15|Новинка|4820000000154|3000|0|0|1|0|0|2|0|1|20261121123005")}));
    QCOMPARE(stock(10), text("10000|7000"));
    QCOMPARE(stock(11), text("10000|5250"));
    QCOMPARE(stock(15), text("0|3000"));
    // Into the same shift, and onto the floor; the other shop has what it had.
    const auto second = write(order(7, StockPlace::Showroom, {{15, 1000}, {15, 500}, {10, -4000}}));
    QCOMPARE(second.outcome, StockWriter::Written);
    QVERIFY(!second.opensShift);
    QCOMPARE(second.chek.number, 2);
    QCOMPARE(stock(15), text("1500|3000"));
    QCOMPARE(stock(10), text("6000|7000"));
    QCOMPARE(
        m_base->rows(text("SELECT COUNT(*),MIN(count_showroom),MAX(count_syllable) FROM goods_shop WHERE "
                          "id_shop=2")),
        (QStringList{text("7|10000|5000")}));
    QCOMPARE(m_base->heard.texts(3), QStringList());
}

void TstStockWriter::moved()
{
    QCOMPARE(write(order(8, StockPlace::Showroom, {{10, 5000}, {11, 250}})).outcome, StockWriter::Written);
    QCOMPARE(stock(10), text("15000|0"));
    QCOMPARE(stock(11), text("10250|4750"));
    QCOMPARE(write(order(8, StockPlace::Syllable, {{10, 15000}})).outcome, StockWriter::Written);
    QCOMPARE(stock(10), text("0|15000"));
    QCOMPARE(m_base->rows(
                 text("SELECT id_type,dis_bon_bez2,count FROM cheks WHERE id_position=0 ORDER BY id_chek")),
             (QStringList{text("8|1|5000"), text("8|2|15000")}));
    // Two weighings of one goods item together are more than there is; one that it never had is not there
    // either.
    const QStringList before = everything();
    const auto result =
        write(order(8, StockPlace::Showroom, {{11, 4000}, {13, 1000}, {11, 1000}, {15, 1000}}));
    QCOMPARE(result.outcome, StockWriter::Refused);
    QCOMPARE(StockWriter::explanation(result),
             text("Товару не вистачає:\n«Сир ваговий»: на складі 4.750, треба 5.000\n«Новинка»: на складі "
                  "0.000, треба 2.000")
                 .replace(text("2.000"), text("1.000")));
    QCOMPARE(everything(), before);
    // Nor does anybody agree to it.
    StockOrder agreed = order(8, StockPlace::Showroom, {{15, 1000}});
    QCOMPARE(write(agreed).outcome, StockWriter::Refused);
}

/// Turnover, receipts and everything that reports add up is that of sales.
void TstStockWriter::moneyKnowsNothingOfIt()
{
    QCOMPARE(write(order(7, StockPlace::Showroom, {{10, 5000}, {11, 250}, {13, 1000}, {14, 2000}})).outcome,
             StockWriter::Written);
    QCOMPARE(write(order(8, StockPlace::Syllable, {{10, 5000}})).outcome, StockWriter::Written);
    QCOMPARE(m_base->rows(text("SELECT SUM(summa),SUM(price),SUM(sumdisc),SUM(bonus_plus) FROM cheks")),
             (QStringList{text("0|0|0|0")}));
    QCOMPARE(
        m_base->rows(text("SELECT Oborot_A+Oborot_B+Oborot_V+Oborot_G+Oborot_D,cash,beznal_1,count_cheks,"
                          "summ_diskount FROM z_zvit")),
        (QStringList{text("0|0|0|0|0")}));
}

/// What was there when the document was filled does not count.
void TstStockWriter::soldMeanwhile()
{
    Db::setStatementHook([this](const QString &sql) {
        if (sql.startsWith(QLatin1String("INSERT INTO cheks")))
            m_base->execElsewhere(
                text("UPDATE goods_shop SET count_showroom=2000 WHERE id_shop=1 AND id_goods=10"));
    });
    const auto result = write(order(8, StockPlace::Syllable, {{10, 3000}}));
    QCOMPARE(result.outcome, StockWriter::Refused);
    QVERIFY(result.why.contains(text("«Хліб житній»: у залі 2.000, треба 3.000")));
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks")), text("0"));
    QCOMPARE(stock(10), text("2000|5000"));
}

void TstStockWriter::belowZeroOnlyWhenAgreed()
{
    StockOrder back = order(7, StockPlace::Syllable, {{10, -6000}, {11, -5000}, {13, 1000}, {15, -250}});
    const auto refused = write(back);
    QCOMPARE(refused.outcome, StockWriter::Refused);
    QCOMPARE(refused.lacks.size(), 2);
    QCOMPARE(lackWords(refused.lacks),
             text("«Хліб житній»: на складі 5.000, треба 6.000\n«Новинка»: на складі 0.000, треба 0.250"));
    QCOMPARE(stock(10), text("10000|5000"));
    // Whoever agreed to one agreed to no other.
    back.agreed = {{10, -1000}};
    QCOMPARE(write(back).lacks.size(), 1);
    back.agreed = {{10, -999}, {15, -250}};
    QCOMPARE(write(back).lacks.size(), 1);
    back.agreed = {{10, -1000}, {15, -250}};
    QCOMPARE(write(back).outcome, StockWriter::Written);
    QCOMPARE(stock(10), text("10000|-1000"));
    QCOMPARE(stock(11), text("10000|0"));
    QCOMPARE(stock(15), text("0|-250"));
    // What is below zero already may come up again without a question.
    QCOMPARE(write(order(7, StockPlace::Syllable, {{10, 400}})).outcome, StockWriter::Written);
    QCOMPARE(stock(10), text("10000|-600"));
}

void TstStockWriter::moreThanAColumnHolds()
{
    m_base->exec(text("UPDATE goods_shop SET count_syllable=2147483000 WHERE id_shop=1 AND id_goods=11"));
    const QStringList before = everything();
    const auto result = write(order(7, StockPlace::Syllable, {{10, 1000}, {11, 648}}));
    QCOMPARE(result.outcome, StockWriter::Refused);
    QVERIFY(result.lacks.isEmpty());
    QVERIFY2(result.why.contains(text("«Сир ваговий»: залишок на складі")), qPrintable(result.why));
    QCOMPARE(everything(), before);
    QCOMPARE(write(order(7, StockPlace::Syllable, {{11, 647}})).outcome, StockWriter::Written);
    QCOMPARE(stock(11), text("10000|2147483647"));
}

void TstStockWriter::manyRowsInFewStatements()
{
    m_base->exec(
        text("INSERT INTO goods(id,name,type,group_g,tax,block) SELECT seq,CONCAT('Товар ',seq),1,1,1,0 "
             "FROM seq_1001_to_3500"));
    QVector<QPair<int, qint64>> goods;
    for (int id = 1001; id <= 3500; ++id)
        goods.append({id, 2000});
    StockOrder many;
    many.move = {7, StockPlace::Showroom};
    QVector<StockRow> rows;
    for (const auto &[id, quantity] : goods) {
        GoodsItem item;
        item.idGoods = static_cast<quint32>(id);
        item.type = GoodsItem::pieceGoods;
        rows.append(StockRow(item, quantity));
    }
    many.document.add(rows);
    Sent sent;
    QCOMPARE(write(many).outcome, StockWriter::Written);
    QVERIFY2(sent.containing(QString()).size() <= 20,
             qPrintable(sent.containing(QString()).join('\n').left(3000)));
    QCOMPARE(
        m_base->value(text("SELECT SUM(count_showroom) FROM goods_shop WHERE id_shop=1 AND id_goods>1000")),
        text("5000000"));
    QCOMPARE(m_base->rows(text("SELECT COUNT(*),MIN(id_position),MAX(id_position),MAX(name) FROM cheks")),
             (QStringList{text("2500|0|2499|Товар 3500")}));
    m_base->exec(QStringList{text("DELETE FROM goods_shop WHERE id_goods>1000"),
                             text("DELETE FROM goods WHERE id>1000")});
}

/// The rules of a sale: another user's shift, one that was closed meanwhile, a blocked register.
void TstStockWriter::whoMayWrite()
{
    const StockOrder goods = order(7, StockPlace::Syllable, {{10, 1000}});
    m_base->exec(text("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES(4,1,1,2,0)"));
    auto result = write(goods);
    QCOMPARE(result.outcome, StockWriter::Busy);
    QVERIFY(StockWriter::explanation(result).contains(text("працює інший користувач")));
    m_base->exec(text("UPDATE z_zvit SET id_user=1"));
    Db::setStatementHook([this](const QString &sql) {
        if (sql.contains(QLatin1String("FOR UPDATE")) && sql.contains(QLatin1String("z_zvit")))
            m_base->execElsewhere(text("UPDATE z_zvit SET data_time=20261121123000"));
    });
    result = write(goods);
    Db::setStatementHook({});
    QCOMPARE(result.outcome, StockWriter::ShiftClosed);
    QVERIFY(StockWriter::explanation(result).contains(text("№ 4")));
    // Register 3 is blocked; the next shift of register 1 is number 5.
    QCOMPARE(write(goods, 3).outcome, StockWriter::Blocked);
    QCOMPARE(stock(10), text("10000|5000"));
    QCOMPARE(write(goods).chek.zNumber, text("5"));
    QCOMPARE(m_base->value(text("SELECT COUNT(*) FROM cheks")), text("1"));
}

/// Whatever statement the connection breaks at, all or nothing is there, and the next try works.
void TstStockWriter::brokenAnywhere()
{
    const StockOrder goods = order(7, StockPlace::Syllable, {{10, 1000}, {15, 250}});
    QStringList statements;
    Db::setStatementHook([&](const QString &sql) { statements.append(sql); });
    QCOMPARE(write(goods).outcome, StockWriter::Written);
    QCOMPARE(statements.last(), text("COMMIT"));
    QVERIFY(statements.at(statements.size() - 2).startsWith(QLatin1String("INSERT INTO goods_shop")));
    for (int broken = 1; broken < statements.size(); ++broken) {
        m_base->exec(text("UPDATE z_zvit SET data_time=20261121130000 WHERE data_time=0"));
        const QStringList before = everything();
        int sent = 0;
        Db::setStatementHook([&](const QString &) {
            if (sent++ == broken)
                m_base->killConnection();
        });
        const auto result = write(goods);
        Db::setStatementHook({});
        waitOutLoss(*m_base->connection());
        QCOMPARE(result.outcome, StockWriter::Failed);
        QCOMPARE(everything(), before);
        QVERIFY(m_base->heard.has(statements.at(broken).left(60), 1));
    }
    QCOMPARE(write(goods).outcome, StockWriter::Written);
    QCOMPARE(stock(10), text("10000|7000"));
}

void TstStockWriter::answerToCommitIsLost()
{
    const StockOrder goods = order(8, StockPlace::Showroom, {{10, 1000}});
    const auto commitAndDie = [this](const QString &sql) {
        if (sql != QLatin1String("COMMIT"))
            return;
        // The new transaction keeps the client from reconnecting silently.
        QSqlQuery(*m_base->connection()).exec(QStringLiteral("COMMIT AND CHAIN"));
        m_base->killConnection();
    };
    Db::setStatementHook(commitAndDie);
    QCOMPARE(write(goods).outcome, StockWriter::Written);
    waitOutLoss(*m_base->connection());
    QCOMPARE(stock(10), text("11000|4000"));
    Db::setStatementHook([&](const QString &sql) {
        commitAndDie(sql);
        if (sql.startsWith(QLatin1String("SELECT COUNT(*) FROM cheks")))
            m_base->exec(text("RENAME TABLE cheks TO away"));
    });
    const auto unclear = write(goods);
    Db::setStatementHook({});
    waitOutLoss(*m_base->connection());
    m_base->exec(text("RENAME TABLE away TO cheks"));
    QCOMPARE(unclear.outcome, StockWriter::Unclear);
    QVERIFY(StockWriter::explanation(unclear).contains(text("документа № 2")));
    const StockWriter writer(m_base->db(), place());
    QCOMPARE(writer.isWritten(goods, unclear.chek), std::optional<bool>(true));
    m_base->exec(text("UPDATE cheks SET count=2000 WHERE id_chek=2"));
    QCOMPARE(writer.isWritten(goods, unclear.chek), std::optional<bool>(false));
}

/// A lock that goes is not heard of; one that stays is told.
void TstStockWriter::othersInTheWay()
{
    const StockOrder goods = order(7, StockPlace::Syllable, {{10, 1000}});
    int left = 2;
    const auto refuse = [&](const QString &sql) {
        return sql.startsWith(QLatin1String("INSERT INTO goods_shop")) && left-- > 0
                   ? int(ServerError::Deadlock)
                   : 0;
    };
    Db::setStatementRefusal(refuse);
    QCOMPARE(write(goods).outcome, StockWriter::Written);
    QCOMPARE(m_base->heard.texts(3), QStringList());
    left = 3;
    const auto result = write(goods);
    QCOMPARE(result.outcome, StockWriter::Locked);
    QVERIFY(StockWriter::explanation(result).contains(text("ще раз")));
    QCOMPARE(stock(10), text("10000|6000"));
}

QTEST_MAIN(TstStockWriter)
#include "tst_stockwriter.moc"
