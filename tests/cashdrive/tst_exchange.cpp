#include "playedserver.h"
#include "testing.h"

#include "exchangerun.h"
#include "exchangewrites.h"
#include "qmessevent.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLockFile>
#include <QSignalSpy>
#include <QTemporaryDir>

/// Runs of the exchange against a server that plays back what registers have sold.
class TstExchange : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup();

    void withoutLibraryEachStageTells();
    void wholeRunFromCardsToSums();
    void placeDecidesWhichRegisters_data();
    void placeDecidesWhichRegisters();
    void changedCardsAreSentUntilWritten();
    void operationsThatNoRunBegins();
    void articlesNewAndWhole();
    void linesAreCountedOnce_data();
    void linesAreCountedOnce();
    void goesOnWhereTheLaterRecordSays_data();
    void goesOnWhereTheLaterRecordSays();
    void refusedValuesLoseNoOtherLine();
    void failingTableLosesNothing();
    void damagedAndForeignFilesStay();
    void timesInWords();

private:
    JobResult run(const ExchangeOrder &order, const std::function<void(Job *)> &meanwhile = {});
    JobResult runJob(const Job::Work &work, const std::function<void(Job *)> &meanwhile = {});
    ExchangeOrder readingOrder() const;
    static ExchangeOutcome outcome(const JobResult &result) { return result.value.value<ExchangeOutcome>(); }
    /// What lines of a register have to come to, reckoned by the server's own sums.
    void makeTrouble(const QString &trouble, std::atomic<int> *commits);
    void playMany(int lines);
    QStringList expectedCounts();
    QStringList counts();
    QStringList expectedSums();
    QStringList sums();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QTemporaryDir> m_folder;
    Played m_played;
};

void TstExchange::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_shop(id,name) VALUES(2,'Захід'),(3,'Схід')",
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0),"
        "(2,'5 %',500,100000,1,0),(3,'Стара',700,0,1,1)",
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Спільна, 1',1,0),(2,'Львівська, 2',2,0),"
        "(3,'Харківська, 3',3,0),(4,'Закрита, 4',2,1)"});
    m_base->exec(QStringList{
        // Registers of one name in two shops, one without a code, one blocked, one in a blocked shop.
        "INSERT INTO kassa(id,id_shop,advertising_str,cashdrive_code,block) VALUES(11,1,'Каса 1','001',0),"
        "(21,2,'Каса 1','002',0),(22,2,'Каса 2','003',0),(23,2,'Каса 3','000',0),(24,2,'Каса 4',NULL,0),"
        "(25,2,'Каса 5','005',1),(31,3,'Каса 1','006',0),(41,4,'Каса 1','007',0)",
        "INSERT INTO group_goods(id,name) VALUES(3,'Пакети')",
        "INSERT INTO goods(id,name,name_short,price,tax,type,group_g,block) SELECT seq,CONCAT('Товар ',seq),"
        "IF(seq%2,NULL,CONCAT('Т',seq)),seq*100,1,seq%2,IF(seq=3,3,1),seq=5 FROM seq_1_to_50"});
}

void TstExchange::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_played = Played();
    m_base->exec(QStringList{"DELETE FROM cd_cheks", "DELETE FROM clients", "DROP TABLE IF EXISTS t",
                             "DELETE FROM updat WHERE name LIKE 'cashdrive%'"});
    m_base->exec(QStringList{"INSERT INTO clients(id,id_procent,group_shop,fiksed,block) SELECT "
                             "3000000000+seq,1,1+seq%3,seq%10=0,seq%7=0 FROM seq_1_to_40"});
    m_base->heard.forget();
}

void TstExchange::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    QVERIFY(RunningJobs::all().jobs().isEmpty());
}

ExchangeOrder TstExchange::readingOrder() const
{
    ExchangeOrder order;
    order.fetchesTransactions = true;
    order.readsTransactions = true;
    order.connection = m_base->connection()->connectionName();
    order.host = "127.0.0.1";
    order.port = 12981;
    order.folder = m_folder->filePath("spool");
    order.server = playing(const_cast<Played *>(&m_played));
    return order;
}

JobResult TstExchange::run(const ExchangeOrder &order, const std::function<void(Job *)> &meanwhile)
{
    return runJob([order](JobContext &context) { return AutoCall(context, order); }, meanwhile);
}

JobResult TstExchange::runJob(const Job::Work &work, const std::function<void(Job *)> &meanwhile)
{
    JobResult result;
    Job job("Дозвін", m_base->connection()->connectionName(), work, &m_base->heard);
    QSignalSpy finished(&job, &Job::finished);
    connect(&job, &Job::finished, &job, [&result](const JobResult &ended) { result = ended; });
    job.start();
    if (meanwhile)
        meanwhile(&job);
    if (finished.isEmpty() && !finished.wait(100000))
        qFatal("The run has not ended");
    m_base->heard.all();
    return result;
}

void TstExchange::withoutLibraryEachStageTells()
{
    ExchangeOrder order = readingOrder();
    order.server = platformRegisterServer;
    order.writesCards = true;
    order.writesChangedCards = true;
    order.articles = ExchangeOrder::ReplaceArticles;
    order.writesLevels = true;
    const JobResult result = run(order);
    QCOMPARE(result.outcome, JobResult::Done);
    const QString missing = "Бібліотека для роботи з сервером CASHDRIVE існує тільки для windows";
    QStringList begun;
    for (const QString &text : m_base->heard.texts(QMessEvent::Information))
        begun.append(text.section(QStringLiteral("За:"), 0, 0).section("на ", 0, 0).trimmed());
    QCOMPARE(begun.mid(0, 2), (QStringList{"Підключення до бази даних", "Зєднання з БД всановлено."}));
    QCOMPARE(begun.mid(2, 3), (QStringList{"Запис клієнтів.", missing, "Запис клієнтів завершено."}));
    QCOMPARE(begun.mid(5, 3), (QStringList{"Запис артикуів.", missing, "Запис артикуів завершено."}));
    QCOMPARE(begun.mid(8, 3), (QStringList{"Запис знижок.", missing, "Запис знижок завершено."}));
    QCOMPARE(begun.mid(11, 3),
             (QStringList{"Зєднання з CashDrive.", missing, "Зєднання з CashDrive завершено."}));
    QCOMPARE(begun.mid(14, 3), (QStringList{"Розбір транзакцій.", missing, "Розбір транзакцій завершено."}));
    QVERIFY(begun.value(17).startsWith("Загальний час дозвону: 0 год. 0 хв. "));
    QCOMPARE(begun.size(), 18);
}

void TstExchange::wholeRunFromCardsToSums()
{
    m_base->exec("UPDATE clients SET send=1 WHERE id IN (3000000001,3000000007)");
    // A sale with a card over the threshold, a return, a card without a sum, what is never counted, what does
    // not exist; two registers of one shop.
    m_played.readings["002"] = {{{1, 1500, 100001, 3000000001, 2026, 3, 2},
                                 {1, 500, 0, 3000000001, 2026, 3, 2},
                                 {3, 1000, 50, 3000000002, 2026, 3, 2},
                                 {99, 1000, 70, 3000000003, 2026, 3, 2},
                                 {2, 1000, 80, 5, 2026, 13, 2}},
                                {{1, 1, 1, 0, 2026, 3, 2}}};
    m_played.readings["003"] = {{{1, 2000, -20, 3000000004, 2026, 3, 2}}};
    m_played.problems["006"] = "Каса не відповідає";
    ExchangeOrder order = readingOrder();
    order.writesCards = order.writesChangedCards = true;
    order.writesLevels = true;
    const JobResult result = run(order);
    QCOMPARE(result.outcome, JobResult::Done);
    QCOMPARE(counts(), (QStringList{"2|21|1|4000|2026-03-02"}));
    QCOMPARE(m_base->rows("SELECT id,id_procent,summ,send FROM clients WHERE summ<>0"),
             (QStringList{"3000000001|2|100001|1", "3000000002|1|50|0", "3000000003|1|70|0",
                          "3000000004|1|-20|0"}));
    QStringList refused;
    for (const RefusedLine &line : outcome(result).count.refused)
        refused.append(QString("%1 %2 %3").arg(line.number).arg(line.code, line.reason));
    QCOMPARE(refused, (QStringList{"4 каса 002, товар 99 Товару немає в базі.",
                                   "5 каса 002, товар 2 Дати 2.13.2026 не буває.",
                                   "5 каса 002, картка 5 Картки немає або її заблоковано."}));
    QVERIFY2(m_base->heard.has("Карточка клієнта не знайдена 5", QMessEvent::Warning), "card");
    QVERIFY2(m_base->heard.has("Каса 006: Каса не відповідає"), "register");
    QCOMPARE(m_played.levels, (QStringList{"1 Без знижки 0 0", "2 5 % 500 0", "3 Стара 700 1"}));
    QCOMPARE(m_played.opened, 1);
    QVERIFY2(result.words.contains("транзакцій розібрано: 6") && result.words.contains("не враховано: 3") &&
                 result.words.contains("підвищено знижок: 1"),
             qPrintable(result.words));
    // Nothing is left behind, and the second reading of the register comes with the next run.
    QCOMPARE(QDir(order.folder).entryList({"*.txt"}), QStringList());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name LIKE 'cashdrive%'"), QString("0"));
    run(readingOrder());
    QCOMPARE(counts(), (QStringList{"2|21|1|4001|2026-03-02"}));
}

void TstExchange::placeDecidesWhichRegisters_data()
{
    QTest::addColumn<QStringList>("place");
    QTest::addColumn<QString>("registers");
    QTest::newRow("everywhere") << QStringList{"", "", ""} << "001 002 003 006";
    QTest::newRow("group") << QStringList{"Захід", "", ""} << "002 003";
    QTest::newRow("shop") << QStringList{"Захід", "Спільна, 1", ""} << "001";
    QTest::newRow("register") << QStringList{"Захід", "Львівська, 2", "Каса 1"} << "002";
}

void TstExchange::placeDecidesWhichRegisters()
{
    QFETCH(const QStringList, place);
    for (const char *kass : {"001", "002", "003", "005", "006", "007", "000"})
        m_played.readings[kass] = {{{1, 1, 1, 0, 2026, 3, 2}}};
    ExchangeOrder order = readingOrder();
    order.place = {place[0], place[1], place[2]};
    order.readsTransactions = false;
    order.writesCards = !place[0].isEmpty();
    const JobResult result = run(order);
    QStringList read;
    QSet<QString> written;
    for (auto kass = m_played.readings.cbegin(); kass != m_played.readings.cend(); ++kass) {
        if (kass->isEmpty())
            read.append(kass.key());
    }
    for (const QString &card : qAsConst(m_played.cards))
        written.insert(card.section(' ', 0, 0));
    QTEST(read.join(' '), "registers");
    QCOMPARE(outcome(result).fetched, qint64(read.size()));
    QCOMPARE(written, order.writesCards ? QSet<QString>(read.begin(), read.end()) : QSet<QString>());
    // The group's cards and those of all, without the blocked ones.
    QCOMPARE(m_played.cards.size(),
             order.writesCards ? read.size() * m_base
                                                   ->value("SELECT COUNT(*) FROM clients WHERE block=0 AND "
                                                           "group_shop IN (1,2)")
                                                   .toInt()
                               : 0);
}

void TstExchange::changedCardsAreSentUntilWritten()
{
    // Of all, of the west (whose one register refuses), of the east, blocked; one that another program moves
    // on while it is written.
    m_base->exec(QStringList{"DELETE FROM clients",
                             "INSERT INTO clients(id,id_procent,group_shop,block,send) VALUES(1,1,1,0,1),"
                             "(2,1,2,0,1),(3,2,3,1,1),(4,1,3,0,0),(5,1,3,0,1)"});
    m_base->exec("UPDATE clients SET data_update=20200101120000");
    ExchangeOrder order = readingOrder();
    order.fetchesTransactions = order.readsTransactions = false;
    order.writesCards = order.writesChangedCards = true;
    m_played.problems["003"] = "зайнято";
    Db::setStatementHook([this](const QString &sql) {
        if (sql == QLatin1String("START TRANSACTION"))
            m_base->execElsewhere("UPDATE clients SET id_procent=2,data_update=data_update WHERE id=5");
    });
    QCOMPARE(outcome(run(order)).cardsWritten, 2);
    Db::setStatementHook({});
    const QString sent = "SELECT id,send,data_update FROM clients ORDER BY id";
    QCOMPARE(m_base->rows(sent),
             (QStringList{"1|1|2020-01-01 12:00:00", "2|1|2020-01-01 12:00:00", "3|0|2020-01-01 12:00:00",
                          "4|0|2020-01-01 12:00:00", "5|1|2020-01-01 12:00:00"}));
    QStringList written = m_played.cards.filter("006 ");
    QCOMPARE(written, (QStringList{"006 1 1 0", "006 3 2 1", "006 5 1 0"}));
    QCOMPARE(m_played.cards.filter("003 "), QStringList());
    // Mended: what is left goes out, with the newer level.
    m_played.problems.clear();
    m_played.cards.clear();
    QCOMPARE(outcome(run(order)).cardsWritten, 3);
    QVERIFY(m_played.cards.contains("006 5 2 0") && m_played.cards.contains("003 2 1 0"));
    QCOMPARE(m_base->value("SELECT SUM(send) FROM clients"), QString("0"));
}

void TstExchange::operationsThatNoRunBegins()
{
    m_base->exec(QStringList{"DELETE FROM clients",
                             "INSERT INTO clients(id,id_procent,group_shop,block,send) VALUES(1,1,1,0,1),"
                             "(2,1,2,0,0),(3,2,3,1,1)"});
    m_played.problems = {{"003", "зайнято"}, {"невідома", "такої операції немає"}};
    ExchangeOrder order = readingOrder();
    const auto work = [&order](JobContext &context) -> JobResult {
        ServerSession session(&context, order);
        const bool isCalled = DynamicCall(session, "звірка");
        const bool isRefused = !DynamicCall(session, "невідома");
        return {JobResult::Done, {}, QVariantList{WriteClnAll(session), isCalled, isRefused}};
    };
    // One register of the west does not answer; the blocked card of the east goes out as blocked.
    QCOMPARE(runJob(work).value.toList(), (QVariantList{1LL, true, true}));
    QCOMPARE(m_played.cards.filter("006 "), (QStringList{"006 1 1 0", "006 3 2 1"}));
    QCOMPARE(m_played.cards.filter("002 "), (QStringList{"002 1 1 0", "002 2 1 0"}));
    QCOMPARE(m_played.calls, (QStringList{"звірка", "невідома"}));
    QVERIFY(m_base->heard.has("такої операції немає") && m_base->heard.has("Каса 003, картка 1: зайнято"));
    QCOMPARE(m_base->rows("SELECT id,send FROM clients"), (QStringList{"1|1", "2|0", "3|1"}));
    m_base->heard.forget();
    order.server = platformRegisterServer;
    QCOMPARE(runJob(work).value.toList(), (QVariantList{0LL, false, true}));
    QCOMPARE(m_base->heard.texts(),
             (QStringList{noRegisterServer(), noRegisterServer(), noRegisterServer()}));
}

void TstExchange::articlesNewAndWhole()
{
    ExchangeOrder order = readingOrder();
    order.fetchesTransactions = order.readsTransactions = false;
    m_base->exec("UPDATE goods SET data_update=20200101120000");
    const auto write = [&](ExchangeOrder::Articles articles) {
        m_played.articles.clear();
        order.articles = articles;
        run(order);
        return m_played.articles;
    };
    // Never written from here: all of them.
    const QStringList first = write(ExchangeOrder::UpdateArticles);
    QCOMPARE(first.size(), 50);
    QVERIFY(first.contains("new 2 Т2 200 1 1 0") && first.contains("new 5 Товар 5 500 1 0 1"));
    QCOMPARE(write(ExchangeOrder::UpdateArticles), QStringList());
    m_base->exec("UPDATE goods SET price=777 WHERE id=2");
    QCOMPARE(write(ExchangeOrder::UpdateArticles), QStringList("new 2 Т2 777 1 1 0"));
    QCOMPARE(write(ExchangeOrder::ReplaceArticles).size(), 50);
}

/// Some thousand lines at all registers: cards and articles that exist, that do not, that are not counted.
void TstExchange::playMany(int lines)
{
    m_base->exec(QStringList{
        "CREATE TABLE t(n INT PRIMARY KEY,kass CHAR(3),good INT,cnt INT,summ INT,card BIGINT,dat DATE)",
        QString("INSERT INTO t SELECT seq,ELT(1+seq%4,'001','002','003','999'),1+seq*7919%120,seq%5000,"
                "IF(seq%9=0,-(seq%3000),seq%40000),IF(seq%10<8,0,IF(seq%11=0,seq,3000000001+seq*31%40)),"
                "'2026-02-27'+INTERVAL seq%5 DAY FROM seq_1_to_%1")
            .arg(lines)});
    auto query =
        m_base->db().run("SELECT kass,good,cnt,summ,card,YEAR(dat),MONTH(dat),DAY(dat) FROM t ORDER BY n");
    QMap<QString, ServerLines> readings;
    while (query->next()) {
        const auto number = [&query](int column) { return query->value(column).toLongLong(); };
        readings[query->value(0).toString()].append(
            {static_cast<quint64>(number(1)), number(2), number(3), static_cast<quint64>(number(4)),
             static_cast<int>(number(5)), static_cast<int>(number(6)), static_cast<int>(number(7))});
    }
    // A register that has gone since, and its lines wait.
    const TransactionSpool spool(readingOrder().folder);
    QVERIFY(spool.keep("999", readings.take("999")).isEmpty());
    for (auto kass = readings.begin(); kass != readings.end(); ++kass)
        m_played.readings[kass.key()] = {*kass};
}

QStringList TstExchange::expectedCounts()
{
    return m_base->rows(
        "SELECT k.id_shop,MIN(k.id),t.good,SUM(cnt),dat FROM t JOIN kassa k ON "
        "k.cashdrive_code=t.kass JOIN goods g ON g.id=t.good WHERE g.group_g NOT BETWEEN 2 AND 5 "
        "GROUP BY k.id_shop,t.good,dat ORDER BY 1,3,5");
}

QStringList TstExchange::counts()
{
    return m_base->rows(
        "SELECT id_shop,id_kass,id_good,count,dat FROM cd_cheks ORDER BY id_shop,id_good,dat");
}

/// Nobody is moved down, so whoever was above the threshold once has the level.
QStringList TstExchange::expectedSums()
{
    return m_base->rows(
        "SELECT c.id,IF(c.fiksed=0 AND c.block=0,IFNULL(SUM(t.summ),0),0) FROM clients c LEFT JOIN "
        "t ON t.card=c.id GROUP BY c.id ORDER BY c.id");
}

QStringList TstExchange::sums()
{
    return m_base->rows("SELECT id,summ FROM clients ORDER BY id");
}

void TstExchange::linesAreCountedOnce_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("trouble");
    QTest::newRow("nothing happens") << 5000 << "";
    QTest::newRow("a hundred thousand, stopped in the middle") << 100000 << "stop";
    QTest::newRow("connection lost in a batch") << 6000 << "line";
    QTest::newRow("connection lost before COMMIT") << 6000 << "before";
    QTest::newRow("answer to COMMIT lost") << 6000 << "after";
    QTest::newRow("COMMIT interrupted, but done") << 6000 << "interrupted";
    QTest::newRow("deadlock") << 6000 << "deadlock";
}

/// At the fifth COMMIT, or in the transaction behind the fourth.
void TstExchange::makeTrouble(const QString &trouble, std::atomic<int> *commits)
{
    Db::setStatementHook([=](const QString &sql) {
        const bool isCommit = sql == QLatin1String("COMMIT") && ++*commits == 5;
        if (isCommit && trouble == "after")
            commitHere();
        if ((isCommit && (trouble == "before" || trouble == "after")) ||
            (trouble == "line" && *commits == 4 && sql.startsWith("UPDATE clients tm1")))
            m_base->killConnection();
    });
    Db::setStatementRefusal([=](const QString &sql) -> int {
        const bool isFifth = sql == QLatin1String("COMMIT") && *commits == 5;
        if (isFifth && trouble == "interrupted") {
            ++*commits;
            commitHere();
            return 1317;
        }
        if (isFifth && trouble == "deadlock") {
            ++*commits;
            return 1213;
        }
        return 0;
    });
}

void TstExchange::linesAreCountedOnce()
{
    QFETCH(const int, lines);
    QFETCH(const QString, trouble);
    playMany(lines);
    std::atomic<int> commits{0};
    makeTrouble(trouble, &commits);
    JobResult result = run(readingOrder(), [&](Job *job) {
        if (trouble != "stop")
            return;
        QTRY_VERIFY_WITH_TIMEOUT(commits >= 5, 60000);
        QElapsedTimer clock;
        clock.start();
        job->cancel();
        QTRY_VERIFY(!job->isRunning());
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    });
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    const bool isWhole = trouble.isEmpty() || trouble == "interrupted" || trouble == "deadlock";
    QCOMPARE(result.outcome,
             isWhole ? JobResult::Done : (trouble == "stop" ? JobResult::Cancelled : JobResult::Failed));
    if (isWhole)
        QCOMPARE(outcome(result).count.lines, qint64(lines));
    else
        QVERIFY2(outcome(result).count.lines < lines && counts() != expectedCounts() &&
                     result.words.contains("ніщо не врахується двічі"),
                 qPrintable(result.words));
    // The next runs take the rest, and a further one nothing.
    for (int again = 0; again < 2; ++again)
        run(readingOrder());
    QCOMPARE(counts(), expectedCounts());
    QCOMPARE(sums(), expectedSums());
    QCOMPARE(QDir(readingOrder().folder).entryList({"*.txt"}), QStringList());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name LIKE 'cashdrive%'"), QString("0"));
    if (!trouble.isEmpty())
        return;
    const auto number = [this](const QString &sql) { return m_base->value(sql).toLongLong(); };
    QCOMPARE(
        outcome(result).count.cards.unknown,
        number("SELECT COUNT(*) FROM t LEFT JOIN clients c ON c.id=t.card AND c.block=0 WHERE t.card<>0 AND "
               "t.summ<>0 AND c.id IS NULL"));
    QCOMPARE(number("SELECT COUNT(*) FROM clients WHERE id_procent=3"), 0);
    QVERIFY(outcome(result).count.cards.raised > 0);
    QCOMPARE(number("SELECT COUNT(*) FROM clients WHERE id_procent=2"), outcome(result).count.cards.raised);
}

void TstExchange::goesOnWhereTheLaterRecordSays_data()
{
    QTest::addColumn<int>("inTheName");
    QTest::addColumn<int>("inTheDatabase");
    QTest::addColumn<QStringList>("counted");
    QTest::newRow("ended before the file was named") << 0 << 2 << QStringList("2|21|1|300|2026-03-02");
    QTest::newRow("ended before the row went") << 2 << 2 << QStringList("2|21|1|300|2026-03-02");
    QTest::newRow("the row was lost") << 1 << -1 << QStringList("2|21|1|320|2026-03-02");
    QTest::newRow("all was counted") << 0 << 3 << QStringList();
    QTest::newRow("only the file was left") << 3 << -1 << QStringList();
}

/// What a program that was ended in the middle leaves behind.
void TstExchange::goesOnWhereTheLaterRecordSays()
{
    QFETCH(const int, inTheName);
    QFETCH(const int, inTheDatabase);
    const ExchangeOrder order = readingOrder();
    const TransactionSpool spool(order.folder);
    QVERIFY(
        spool.keep("002", {{1, 1, 0, 0, 2026, 3, 2}, {1, 20, 0, 0, 2026, 3, 2}, {1, 300, 0, 0, 2026, 3, 2}})
            .isEmpty());
    const QString name = QDir(order.folder).entryList({"*.txt"}).value(0);
    QVERIFY(QDir(order.folder).rename(name, QString(name).replace("_0.", QString("_%1.").arg(inTheName))) ||
            inTheName == 0);
    if (inTheDatabase >= 0)
        m_base->exec(QString("INSERT INTO updat(name,updat) VALUES('cashdrive %1 %2',NOW())")
                         .arg(name.section('_', 1, 1))
                         .arg(inTheDatabase));
    QCOMPARE(run(order).outcome, JobResult::Done);
    QTEST(counts(), "counted");
    QCOMPARE(QDir(order.folder).entryList({"*.txt"}), QStringList());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name LIKE 'cashdrive%'"), QString("0"));
}

void TstExchange::refusedValuesLoseNoOtherLine()
{
    // A sum and a count that the columns do not hold, beside sound ones, and both in one line.
    ServerLines lines;
    for (int i = 0; i < 9; ++i)
        lines.append({1, 1000, 100, 3000000001, 2026, 3, 2});
    lines[2].kopecks = 3000000000;
    lines[4].thousandths = 4294967290;
    lines[6] = {1, 4294967290, 3000000000, 3000000001, 2026, 3, 2};
    m_played.readings["002"] = {lines};
    const JobResult result = run(readingOrder());
    QCOMPARE(result.outcome, JobResult::Done);
    QCOMPARE(counts(), (QStringList{"2|21|1|7000|2026-03-02"}));
    QCOMPARE(m_base->value("SELECT summ FROM clients WHERE id=3000000001"), QString("700"));
    QStringList refused;
    for (const RefusedLine &line : outcome(result).count.refused)
        refused.append(QString("%1 %2").arg(line.number).arg(line.code));
    QCOMPARE(refused, (QStringList{"3 каса 002, картка 3000000001", "5 каса 002, товар 1",
                                   "7 каса 002, товар 1", "7 каса 002, картка 3000000001"}));
    QVERIFY(outcome(result).count.refused.first().reason.contains("Out of range value for column 'summ'"));
}

void TstExchange::failingTableLosesNothing()
{
    playMany(600);
    m_base->exec("RENAME TABLE cd_cheks TO away");
    const JobResult result = run(readingOrder());
    m_base->exec("RENAME TABLE away TO cd_cheks");
    QCOMPARE(result.outcome, JobResult::Failed);
    QVERIFY(m_base->heard.has("cd_cheks' doesn't exist"));
    QCOMPARE(outcome(result).count.lines, 150);
    run(readingOrder());
    QCOMPARE(counts(), expectedCounts());
    QCOMPARE(sums(), expectedSums());
}

void TstExchange::damagedAndForeignFilesStay()
{
    const ExchangeOrder order = readingOrder();
    const TransactionSpool spool(order.folder);
    QVERIFY(spool.keep("002", {{1, 1000, 0, 0, 2026, 3, 2}, {1, 1000, 0, 0, 2026, 3, 2}}).isEmpty());
    const QString kept = QDir(order.folder).entryList({"*.txt"}).value(0);
    QFile cut(QDir(order.folder).filePath(QString(kept).replace("_0.txt", "x_0.txt")));
    QFile whole(QDir(order.folder).filePath(kept));
    QVERIFY(whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly));
    cut.write(whole.readAll().chopped(5));
    cut.close();
    run(order);
    QVERIFY(m_base->heard.has("Файл транзакцій пошкоджено"));
    QCOMPARE(counts(), (QStringList{"2|21|1|2000|2026-03-02"}));
    QVERIFY(cut.exists() && !whole.exists());
    // One run at a time for a database, whichever copy of the program it is.
    QLockFile other(QDir(order.folder).filePath("lock"));
    QVERIFY(other.tryLock());
    QCOMPARE(run(order).words, QString("Дозвін цієї бази вже веде інша копія програми."));
}

void TstExchange::timesInWords()
{
    QCOMPARE(stageTime(65999), QString("1 хв. 5 сек."));
    QCOMPARE(stageTime(3725000), QString("62 хв. 5 сек."));
    QCOMPARE(totalTime(3725000), QString("1 год. 2 хв. 5 сек."));
    QCOMPARE(totalTime(999), QString("0 год. 0 хв. 0 сек."));
}

QTEST_MAIN(TstExchange)
#include "tst_exchange.moc"
