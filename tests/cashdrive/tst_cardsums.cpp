#include "testing.h"

#include "articlecounts.h"
#include "cardsums.h"

Q_DECLARE_METATYPE(ServerLine)

/// What a purchase does to a card: its sum, and its way up the ladder of discount levels.
class TstCardSums : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();

    void ladder_data();
    void ladder();
    void cardsThatKeepTheirSum_data();
    void cardsThatKeepTheirSum();
    void missingCardsAreToldTwentyTimes();
    void articlesOfADayAddUp();
    void linesThatCannotBeCounted_data();
    void linesThatCannotBeCounted();

private:
    std::unique_ptr<FreshDatabase> m_base;
};

void TstCardSums::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    // Ten per cent already from 200.00, and the second of two levels of 5 %.
    m_base->exec(QStringList{
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0),"
        "(2,'3 %',300,100000,1,0),(3,'5 %',500,500000,1,0),(4,'7 %',700,1000000,1,0),"
        "(5,'10 % своїм',1000,20000,0,0),(6,'15 % закрита',1500,20000,1,1),(7,'6 % дешевша',600,300000,1,0),"
        "(8,'7 % друга',700,1200000,1,0),(9,'без числа',NULL,1,1,0)",
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Київська, 1',1,0),(2,'Львівська, 2',1,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,cashdrive_code,block) VALUES(11,1,'Каса 1','001',0),"
        "(12,1,'Каса 2','002',0),(21,2,'Каса 1','003',1),(22,2,'Каса 2','000',0),(23,2,'Каса 3','007',0),"
        "(24,2,'Каса 4','007',0)"});
    m_base->exec(QStringList{
        "INSERT INTO group_goods(id,name) VALUES(2,'Тара'),(3,'Пакети'),(5,'Послуги'),(6,'Хліб')",
        "INSERT INTO goods(id,name,group_g) VALUES(1,'Сир',1),(2,'Ящик',2),(3,'Пакет',3),(5,'Доставка',5),"
        "(6,'Хліб',6)"});
}

void TstCardSums::init()
{
    m_base->exec(QStringList{"DELETE FROM clients", "DELETE FROM cd_cheks"});
    m_base->heard.forget();
}

void TstCardSums::ladder_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("sum");
    QTest::addColumn<QString>("after");
    // Level, sum, to be sent.
    QTest::newRow("a kopeck below the threshold") << 1 << 90000 << 9999 << "1|99999|0";
    QTest::newRow("exactly on it") << 1 << 90000 << 10000 << "1|100000|0";
    QTest::newRow("one kopeck above") << 1 << 90000 << 10001 << "2|100001|1";
    QTest::newRow("a sum that was there already counts") << 1 << 100001 << 1 << "2|100002|1";
    QTest::newRow("over two steps") << 1 << 0 << 500001 << "7|500001|1";
    QTest::newRow("the higher percentage has the lower threshold") << 3 << 300000 << 1 << "7|300001|1";
    QTest::newRow("and stays above the dearer level") << 7 << 500000 << 1 << "7|500001|0";
    QTest::newRow("two levels of one percentage") << 4 << 1200000 << 1 << "4|1200001|0";
    QTest::newRow("above the automatic level") << 5 << 1000000 << 1 << "5|1000001|0";
    QTest::newRow("a blocked level of its own stays") << 6 << 1000000 << 1 << "6|1000001|0";
    QTest::newRow("a level without a number is none at all") << 9 << 0 << 100001 << "2|100001|1";
    QTest::newRow("what was returned moves nobody down") << 4 << 1000001 << -1000000 << "4|1|0";
    QTest::newRow("a sum below nothing") << 1 << 0 << -500 << "1|-500|0";
    QTest::newRow("into the debt and out of it") << 1 << -100 << 100101 << "2|100001|1";
}

void TstCardSums::ladder()
{
    QFETCH(const int, level);
    QFETCH(const int, before);
    QFETCH(const int, sum);
    // Above the signed 32 bits; a neighbour that must not move.
    m_base->exec(QString("INSERT INTO clients(id,id_procent,summ,group_shop) VALUES(4294967295,%1,%2,1),"
                         "(4294967294,1,99999999,1)")
                     .arg(level)
                     .arg(before));
    CardSums sums;
    QStringList messages;
    QVERIFY(updatecln(m_base->db(), 4294967295, sum, &sums, &messages) == CardOutcome::Counted);
    const QString card = "SELECT id_procent,summ,send FROM clients WHERE id=%1";
    QTEST(m_base->rows(card.arg(4294967295)).join(' '), "after");
    QCOMPARE(m_base->rows(card.arg(4294967294)), QStringList("1|99999999|0"));
    QCOMPARE(sums.raised, qint64(m_base->value("SELECT SUM(send) FROM clients").toInt()));
    QVERIFY(messages.isEmpty() && m_base->heard.texts().isEmpty());
}

void TstCardSums::cardsThatKeepTheirSum_data()
{
    QTest::addColumn<int>("fixed");
    QTest::addColumn<bool>("isWithoutSums");
    QTest::newRow("fixed discount") << 1 << false;
    QTest::newRow("sums are not counted") << 0 << true;
}

void TstCardSums::cardsThatKeepTheirSum()
{
    QFETCH(const int, fixed);
    QFETCH(const bool, isWithoutSums);
    m_base->exec(QString("INSERT INTO clients(id,id_procent,summ,group_shop,fiksed,data_update) VALUES"
                         "(8,1,5,1,%1,20200101120000),(9,1,5,1,0,20200101120000)")
                     .arg(fixed));
    CardSums sums;
    sums.isWithoutSums = isWithoutSums;
    QStringList messages;
    QVERIFY(updatecln(m_base->db(), 8, 9000000, &sums, &messages) == CardOutcome::Counted);
    QCOMPARE(m_base->rows("SELECT id,id_procent,summ,send,data_update>NOW()-INTERVAL 1 MINUTE FROM clients"),
             (QStringList{"8|1|5|0|1", "9|1|5|0|0"}));
}

void TstCardSums::missingCardsAreToldTwentyTimes()
{
    m_base->exec("INSERT INTO clients(id,id_procent,summ,group_shop,block) VALUES(7,1,0,1,1),(8,1,0,1,0)");
    CardSums sums;
    QStringList messages;
    const auto miss = [&](int times, quint64 card) {
        for (int i = 0; i < times; ++i)
            QVERIFY(updatecln(m_base->db(), card, 500000, &sums, &messages) == CardOutcome::Unknown);
    };
    // A blocked card is as good as none, and so is a number that no card can have.
    miss(24, 7);
    miss(1, 99999999999);
    QCOMPARE(messages.size(), 20);
    QCOMPARE(messages.count("Карточка клієнта не знайдена 7"), 20);
    QCOMPARE(sums.unknown, 25);
    QVERIFY(updatecln(m_base->db(), 8, 1, &sums, &messages) == CardOutcome::Counted);
    miss(1, 9);
    QCOMPARE(messages.mid(20), QStringList("Карточка клієнта не знайдена 9"));
    QCOMPARE(m_base->rows("SELECT id,id_procent,summ,send FROM clients"),
             (QStringList{"7|1|0|0", "8|1|1|0"}));
}

void TstCardSums::articlesOfADayAddUp()
{
    const auto add = [this](const char *kass, quint64 article, qint64 count, int day) {
        QVERIFY(transToCdcheks(m_base->db(), kass, article, count, 2026, 3, day));
    };
    add("001", 1, 1500, 2);
    add("001", 1, 250, 2);
    // Another register of the shop: the key knows no register.
    add("002", 1, 1000, 2);
    add("001", 1, 1, 12);
    // A blocked register of another shop.
    add("003", 1, 7, 2);
    QCOMPARE(m_base->rows("SELECT id_shop,id_kass,id_good,count,dat,IFNULL(count_close,'') FROM cd_cheks "
                          "ORDER BY id_shop,dat"),
             (QStringList{"1|11|1|2750|2026-03-02|0", "1|11|1|1|2026-03-12|0", "2|21|1|7|2026-03-02|0"}));
    QCOMPARE(GetListGoodNoWrite(m_base->db()).value(), (QSet<quint64>{2, 3, 5}));
}

void TstCardSums::linesThatCannotBeCounted_data()
{
    QTest::addColumn<QString>("kass");
    QTest::addColumn<ServerLine>("line");
    QTest::addColumn<QString>("why");
    const ServerLine sound{1, 1000, 2500, 0, 2028, 2, 29};
    const auto with = [&sound](const std::function<void(ServerLine *)> &change) {
        ServerLine line = sound;
        change(&line);
        return line;
    };
    QTest::newRow("sound") << "001" << sound << "";
    QTest::newRow("register") << "999" << sound << "Каси з кодом CashDrive 999 немає.";
    QTest::newRow("no code") << "000" << sound << "Каси з кодом CashDrive 000 немає.";
    QTest::newRow("a code twice") << "007" << sound << "Код CashDrive 007 мають кілька кас";
    QTest::newRow("article") << "001" << with([](auto *line) { line->article = 4; })
                             << "Товару немає в базі.";
    QTest::newRow("day") << "001" << with([](auto *line) { line->year = 2026; })
                         << "Дати 29.2.2026 не буває.";
    QTest::newRow("returned") << "001" << with([](auto *line) { line->thousandths = -1; })
                              << "Кількість поза межами.";
}

void TstCardSums::linesThatCannotBeCounted()
{
    QFETCH(const QString, kass);
    QFETCH(const ServerLine, line);
    QFETCH(const QString, why);
    const auto goods = readCountedGoods(m_base->db());
    const QString answer = articleRefusal(goods.value(), kass, line);
    QVERIFY2(why.isEmpty() ? answer.isEmpty() : answer.startsWith(why), qPrintable(answer));
}

QTEST_MAIN(TstCardSums)
#include "tst_cardsums.moc"
