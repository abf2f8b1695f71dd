#include "whyprice.h"

#include "goodssearch.h"
#include "saleshop.h"

#include <algorithm>
#include <random>

/// Which price and which promotion is in force, and why: held against the statement of the sale.
class TstWhyPrice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { resetSaleShop(m_base.get()); }
    void cleanupTestCase() { m_base.reset(); }

    void asTheSaleFindsIt();
    void order_data();
    void order();
    void promotions_data();
    void promotions();
    void notes_data();
    void notes();
    void copiedText();
    void failure();

private:
    static void fillPriceLists(FreshDatabase *base);
    static QString difference(const GoodsItem &sold, const WhyPrice &why, int listed);
    WhyPrice asked(const PriceQuestion &question);
    static PriceQuestion bread();

    std::unique_ptr<FreshDatabase> m_base;
};

namespace {
const int itemCount = 80;
/// Of a Saturday.
const QDateTime noon(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC);
} // namespace

void TstWhyPrice::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec("INSERT INTO group_shop(id,name) VALUES(3,'Село')");
}

WhyPrice TstWhyPrice::asked(const PriceQuestion &question)
{
    const auto answer = readWhyPrice(m_base->db(), question);
    if (!answer)
        qFatal("No answer");
    return *answer;
}

/// Goods 10 in shop 1, of group 2.
PriceQuestion TstWhyPrice::bread()
{
    PriceQuestion question;
    question.idGoods = 10;
    question.idShop = 1;
    question.time = noon;
    return question;
}

/// Price lists as nobody would make them, from no row to many an item, in shops of the group of all, of
/// another one and of none, with promotions before, at and behind their ends. Shop 9 is gone.
void TstWhyPrice::fillPriceLists(FreshDatabase *base)
{
    base->exec({"INSERT INTO group_shop(id,name) VALUES(2,'Місто'),(3,'Село')",
                "INSERT INTO shops(id,address,group_shop) VALUES(1,'Перша',2),(2,'Друга',1),(3,'Третя',NULL),"
                "(4,'Четверта',3)",
                "INSERT INTO action(id,name,id_type_action,val,datetime_start,datetime_end,week_day) VALUES"
                "(2,'Два',2,1750,20261121120000,20261121120000,'Sat,'),(3,'Три',2,500,0,0,'Fri,'),"
                "(4,'Чотири',1,500,0,0,'Sat,'),(5,'П''ять',2,500,NULL,20261121115959,'Sat,')"});
    std::mt19937 dice(7);
    QStringList goods;
    QStringList stock;
    QStringList prices;
    for (int item = 1; item <= itemCount; ++item) {
        goods.append(QString("(%1,'item',%2,%3,1,1,0)")
                         .arg(item)
                         .arg(item % 5 == 0 ? "NULL" : QString::number(item % 4 * 777))
                         .arg(item % 2));
        for (int shop = 1; shop <= 4; ++shop)
            stock.append(QString("(%1,%2,%3)").arg(shop).arg(item).arg(1 + dice() % 5));
        for (int place = 0; place < 6 * 3 * 4; ++place) {
            const int shops[] = {0, 1, 2, 3, 4, 9};
            if (static_cast<int>(dice() % 24) < item % 8)
                prices.append(QString("(%1,%2,%3,%4,%5)")
                                  .arg(item)
                                  .arg(shops[place / 12])
                                  .arg(1 + place / 4 % 3)
                                  .arg(place % 4)
                                  .arg(dice() % 20 * 100));
        }
    }
    base->exec({"INSERT INTO goods(id,name,price,type,group_g,id_rules_goods,block) VALUES" + goods.join(','),
                "INSERT INTO goods_shop(id_shop,id_goods,id_action) VALUES" + stock.join(','),
                "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES" + prices.join(',')});
}

/// Why it does not explain what the sale's list has of an item; empty when it does.
QString TstWhyPrice::difference(const GoodsItem &sold, const WhyPrice &why, int listed)
{
    const auto price = sold.hasPrice ? std::optional(sold.price) : std::nullopt;
    if (why.price != price || why.prices.constFirst().price != price)
        return "another price";
    if (why.discount() != ReceiptRow(sold).actDiscount())
        return "another discount";
    if ((why.actType != GoodsItem::withoutAction) != (why.action.moment == ActionMoment::InForce))
        return "the reason of the promotion";
    if (why.prices.size() != listed + 1)
        return "not every price";
    const auto inForce = std::count_if(why.prices.begin(), why.prices.end(), [](const JudgedPrice &each) {
        return each.verdict == JudgedPrice::InForce;
    });
    const bool isFirst = why.prices.constFirst().verdict == JudgedPrice::InForce;
    return inForce == 1 && isFirst ? QString() : "not one price in force";
}

/// In every shop by three priorities.
void TstWhyPrice::asTheSaleFindsIt()
{
    FreshDatabase base;
    fillPriceLists(&base);
    QHash<DbId, int> listed;
    for (const QString &row : base.rows("SELECT id_goods,COUNT(*) FROM prices GROUP BY id_goods"))
        listed.insert(row.section('|', 0, 0).toUInt(), row.section('|', 1).toInt());
    int beaten = 0;
    for (DbId shop = 1; shop <= 4; ++shop) {
        for (int priority = 0; priority <= 2; ++priority) {
            GoodsSearch search;
            search.idShop = shop;
            search.by = GoodsSearch::Name;
            search.priority = priority;
            search.time = noon;
            auto list = base.db().run(goodsListSql(search));
            QVERIFY(list && list->size() == itemCount);
            while (list->next()) {
                const GoodsItem sold = goodsItem(*list);
                const auto why = readWhyPrice(base.db(), {sold.idGoods, shop, noon, priority, std::nullopt});
                QVERIFY(why && why->isKnown);
                const QString other = difference(sold, *why, listed.value(sold.idGoods));
                QVERIFY2(other.isEmpty(), qPrintable(QString("goods %1, shop %2, priority %3: %4")
                                                         .arg(sold.idGoods)
                                                         .arg(shop)
                                                         .arg(priority)
                                                         .arg(other)));
                for (const JudgedPrice &price : why->prices)
                    beaten += price.verdict == JudgedPrice::Yields ? 1 : 0;
            }
        }
    }
    QVERIFY2(beaten > 1000, qPrintable(QString::number(beaten)));
}

void TstWhyPrice::order_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("priority");
    QTest::addColumn<QStringList>("judged");
    QTest::newRow("no list") << "" << 1
                             << QStringList{"Ціна самого товару||5000|діє: інших цін у товару немає"};
    QTest::newRow("nothing fits") << "(10,2,2,0,100),(10,0,3,0,200),(10,1,2,2,300)" << 1
                                  << QStringList{
                                         "Ціна самого товару||5000|діє: жодна з інших цін сюди не підходить",
                                         "Група «Село»|0|200|не для цього магазину: інша група",
                                         "Магазин «вул. Друга, 2»|0|100|не для цього магазину: інший магазин",
                                         "Магазин «вул. Перша, 1»|2|300|інший пріоритет: діють 0 і 1"};
    QTest::newRow("priority 0 beats, whosever it is")
        << "(10,1,2,1,100),(10,0,1,0,200),(10,0,2,1,300)" << 1
        << QStringList{"Усі магазини, група «default»|0|200|діє",
                       "Магазин «вул. Перша, 1»|1|100|поступається: пріоритет 0 сильніший за будь-який інший",
                       "Група «Місто»|1|300|поступається: пріоритет 0 сильніший за будь-який інший",
                       "Ціна самого товару||5000|поступається: є ціна для цього магазину"};
    QTest::newRow("shop, group, all; a price of 0 is one")
        << "(10,0,1,1,100),(10,0,2,1,200),(10,1,3,1,0)" << 1
        << QStringList{
               "Магазин «вул. Перша, 1»|1|0|діє",
               "Група «Місто»|1|200|поступається: ціна магазину сильніша за ціну групи",
               "Усі магазини, група «default»|1|100|поступається: ціна магазину сильніша за ціну групи",
               "Ціна самого товару||5000|поступається: є ціна для цього магазину"};
    QTest::newRow("group before all")
        << "(10,0,1,0,100),(10,0,2,0,200)" << 0
        << QStringList{"Група «Місто»|0|200|діє",
                       "Усі магазини, група «default»|0|100|"
                       "поступається: ціна своєї групи сильніша за ціну всіх магазинів",
                       "Ціна самого товару||5000|поступається: є ціна для цього магазину"};
    QTest::newRow("two rows of the shop, and one of a shop that is gone")
        << "(10,1,3,1,100),(10,1,2,1,200),(10,9,1,1,300)" << 1
        << QStringList{"Магазин «вул. Перша, 1»; Група «Місто»|1|200|діє",
                       "Магазин «вул. Перша, 1»; Група «Село»|1|100|"
                       "поступається: з кількох рядків магазину діє рядок групи з меншим номером",
                       "Ціна самого товару||5000|поступається: є ціна для цього магазину",
                       "Магазин № 9, якого немає|1|300|не для цього магазину: інший магазин"};
}

void TstWhyPrice::order()
{
    QFETCH(QString, rows);
    QFETCH(int, priority);
    QFETCH(QStringList, judged);
    if (!rows.isEmpty())
        m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES" + rows);
    PriceQuestion question = bread();
    question.priority = priority;
    const WhyPrice why = asked(question);
    QStringList lines;
    for (const JudgedPrice &price : why.prices)
        lines.append(QStringList{price.source, price.priority ? QString::number(*price.priority) : QString(),
                                 price.price ? QString::number(*price.price) : QString(), price.why}
                         .join('|'));
    QCOMPARE(lines, judged);
    QCOMPARE(why.price, why.prices.constFirst().price);
}

void TstWhyPrice::promotions_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("price");
    const QString full = QString::fromUtf8("50.00 за штуку");
    const QString start = "2,1500,20261101080000,20261130200000,";
    QTest::newRow("in force")
        << start + "'Fri,Sat,'"
        << "−15\u00a0% Тиждень: діє. Її час: 01.11.2026 – 30.11.2026, 08:00–20:00, Пт Сб."
        << "50.00 − 7.50 = 42.50 за штуку";
    QTest::newRow("day") << start + "'Fri,'"
                         << "−15\u00a0% Тиждень: не діє в цей день тижня. Її час: 01.11.2026 – 30.11.2026, "
                            "08:00–20:00, Пт."
                         << full;
    QTest::newRow("no day") << start + "NULL"
                            << "−15\u00a0% Тиждень: не діє в цей день тижня. Її час: 01.11.2026 – "
                               "30.11.2026, 08:00–20:00, жодного дня тижня."
                            << full;
    QTest::newRow("hours") << "2,1500,20261101080000,20261130115959,'Sat,'"
                           << "−15\u00a0% Тиждень: не діє в ці години дня. Її час: 01.11.2026 – 30.11.2026, "
                              "08:00–11:59, Сб."
                           << full;
    QTest::newRow("not yet") << "2,1500,20261121120001,20261130200000,'Sat,'"
                             << "−15\u00a0% Тиждень: ще не почалась. Її час: 21.11.2026 – 30.11.2026, "
                                "12:00:01–20:00, Сб."
                             << full;
    QTest::newRow("over") << "2,1500,20261101080000,20261121115959,'Sat,'"
                          << "−15\u00a0% Тиждень: вже закінчилась. Її час: 01.11.2026 – 21.11.2026, "
                             "08:00–11:59, Сб."
                          << full;
    QTest::newRow("another kind") << "5,1500,0,0,'Sat,'"
                                  << "Тиждень (без знижки): діє. Її час: без дат, цілодобово, Сб." << full;
    QTest::newRow("kind of none")
        << "1,1500,0,0,'Sat,'"
        << "Тиждень: нічого не змінює в ціні, такий її вид. Її час: без дат, цілодобово, Сб." << full;
    QTest::newRow("more than all") << "2,20000,0,0,'Sat,'"
                                   << "−100\u00a0% Тиждень: діє. Її час: без дат, цілодобово, Сб."
                                   << "50.00 − 50.00 = 0.00 за штуку";
}

void TstWhyPrice::promotions()
{
    QFETCH(QString, action);
    QFETCH(QString, words);
    QFETCH(QString, price);
    m_base->exec({"INSERT IGNORE INTO type_action(id,name) VALUES(5,'Інша')",
                  "INSERT INTO action(id,name,id_type_action,val,datetime_start,datetime_end,week_day) "
                  "VALUES(2,'Тиждень'," +
                      action + ")",
                  "UPDATE goods_shop SET id_action=2 WHERE id_shop=1 AND id_goods=10"});
    const WhyPrice why = asked(bread());
    QCOMPARE(actionWords(why), words);
    QCOMPARE(priceWords(why), price);
}

void TstWhyPrice::notes_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("back");
    QTest::addColumn<QString>("note");
    QTest::newRow("nothing to tell") << "DO 0"
                                     << "DO 0"
                                     << "";
    QTest::newRow("not in the shop") << "UPDATE goods_shop SET id_shop=4 WHERE id_shop=1 AND id_goods=10"
                                     << "UPDATE goods_shop SET id_shop=1 WHERE id_shop=4"
                                     << "У цьому магазині товар не продається";
    QTest::newRow("blocked") << "UPDATE goods SET block=1 WHERE id=10"
                             << "UPDATE goods SET block=0 WHERE id=10"
                             << "Товар заблоковано";
    QTest::newRow("service group") << "UPDATE goods SET group_g=3 WHERE id=10"
                                   << "UPDATE goods SET group_g=1 WHERE id=10"
                                   << "Товар службової групи";
    QTest::newRow("rule") << "UPDATE goods SET id_rules_goods=4 WHERE id=10"
                          << "UPDATE goods SET id_rules_goods=1 WHERE id=10"
                          << "Товар з правилом «Списання»";
    QTest::newRow("period") << "INSERT INTO prices(id_goods,id_shop,id_group,priority,price,period_end_date) "
                               "VALUES(10,1,2,0,100,20200101)"
                            << "DO 0"
                            << "продаж на них не зважає";
    QTest::newRow("week day of a price for others")
        << "INSERT INTO prices(id_goods,id_shop,id_group,priority,price,week_day) VALUES(10,2,2,0,100,3)"
        << "DO 0"
        << "продаж на них не зважає";
    QTest::newRow("price since then") << "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) "
                                         "VALUES(10,1,2,0,100)"
                                      << "DO 0"
                                      << "узято за іншими умовами: ціна 50.00, знижка 0.00";
}

/// The receipt has the goods for 50.00.
void TstWhyPrice::notes()
{
    QFETCH(QString, change);
    QFETCH(QString, back);
    QFETCH(QString, note);
    PriceQuestion question = bread();
    question.taken = goodsRow(m_base.get(), 10);
    m_base->exec(change);
    if (!note.contains("узято"))
        question.taken.reset();
    const WhyPrice why = asked(question);
    m_base->exec(back);
    QCOMPARE(why.notes.size(), note.isEmpty() ? 0 : 1);
    QVERIFY2(note.isEmpty() || why.notes.constFirst().contains(note), qPrintable(why.notes.join('\n')));
}

void TstWhyPrice::copiedText()
{
    m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(11,0,1,1,123456)");
    PriceQuestion question = bread();
    question.idGoods = 11;
    QCOMPARE(asPlainText(asked(question), question),
             QString("Сир ваговий (код 11)\nвул. Перша, 1, 21-11-26 12:00:00, пріоритет ціни 1\n"
                     "1\u00a0234.56 за кілограм\nАкції товару в цьому магазині не призначено.\n"
                     "Усі магазини, група «default»\t1\t1234.56\tдіє\n"
                     "Ціна самого товару\t\t80.00\tпоступається: є ціна для цього магазину"));
    question.idGoods = 15;
    QCOMPARE(priceWords(asked(question)), QString("Ціни немає: продати цей товар не можна."));
}

void TstWhyPrice::failure()
{
    QVERIFY(!asked({999, 1, noon, 1, std::nullopt}).isKnown);
    m_base->exec("RENAME TABLE rules_goods TO away");
    QVERIFY(!readWhyPrice(m_base->db(), bread()));
    m_base->exec("RENAME TABLE away TO rules_goods");
    QVERIFY(m_base->heard.has("Помилка запиту:", 1));
}

QTEST_MAIN(TstWhyPrice)
#include "tst_whyprice.moc"
