#include "testing.h"

#include "connectionstate.h"
#include "qmessevent.h"
#include "schema.h"
#include "servererror.h"

#include <QSignalSpy>

/// The wrapper that all SQL goes through: binding, transactions, lost connections, texts of people.
class TstDb : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty); }
    void cleanup()
    {
        Db::setStatementRefusal({});
        m_base.reset();
    }

    void textOfPeopleStaysText_data();
    void textOfPeopleStaysText();
    void wordsAreFoundInAnyOrder_data();
    void wordsAreFoundInAnyOrder();
    void wrongNamesAreRefused();
    void failureNamesItsPlace();
    void uncommittedIsRolledBack();
    void nothingIsSentAfterAFailure();
    void killedInsideATransactionLeavesNothing();
    void refusedRollbackLeavesNothing();
    void lossIsToldOnce();
    void sessionSurvivesAReconnect();
    void everyValueHasAText();

private:
    std::unique_ptr<FreshDatabase> m_base;
};

void TstDb::textOfPeopleStaysText_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"it's", "\\", "\\'", "100%", "a_b", "'; DELETE FROM t; -- ", "\"", ":name", "?",
                             "`", "їжак 'О\\'Н :dt ?%", "№ 😀", "''", "\\\\%"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TstDb::textOfPeopleStaysText()
{
    QFETCH(QString, text);
    const Db db = m_base->db();
    m_base->exec("CREATE TABLE t(name VARCHAR(100))");
    m_base->exec("INSERT INTO t VALUES('other')");
    QVERIFY(db.run("INSERT INTO t VALUES(:text)", {{":text", text}}));
    QVERIFY(db.run("INSERT INTO t VALUES(" + lit(text) + ")"));
    QCOMPARE(db.firstText("SELECT COUNT(*) FROM t WHERE name=" + lit(text)).value(), QString("2"));
    QCOMPARE(db.firstText("SELECT COUNT(*) FROM t WHERE name LIKE " + likeContains(text)).value(),
             QString("2"));
    QCOMPARE(db.firstText("SELECT COUNT(*) FROM t WHERE name LIKE " + likeContains(text) + " AND name<>:x",
                          {{":x", "zzz"}})
                 .value(),
             QString("2"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM t"), QString("3"));
    QCOMPARE(db.firstColumn("SELECT name FROM t WHERE name<>'other'").value(), (QStringList{text, text}));
    QCOMPARE(db.firstRow("SELECT NULL,name FROM t WHERE name=:text LIMIT 1", {{":text", text}}).value(),
             (QStringList{QString(), text}));
    QCOMPARE(db.firstRow("SELECT name FROM t WHERE name='nobody'").value(), QStringList());
    QVERIFY(!db.firstRow("SELECT missing FROM t") && !db.firstColumn("SELECT missing FROM t"));
    QCOMPARE(m_base->heard.texts().size(), 2);
}

void TstDb::wordsAreFoundInAnyOrder_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *text, const char *found) { QTest::newRow(text) << text << found; };
    row("", "1,2,3,4");
    row(" \t ", "1,2,3,4");
    row("молоко", "1,2,3");
    row("200 молоко", "1");
    row("  МОЛОКО \t 200  ", "1");
    row("молоко 200 400", "");
    row("2,5% пас", "2");
    row("100% ко", "3");
    row("а_б ко", "3");
    row("а\\б", "4");
    row("б О'", "4");
    row("_", "3");
    row("%1 молоко", "1");
    row(":name ?", "4");
}

void TstDb::wordsAreFoundInAnyOrder()
{
    QFETCH(QString, text);
    QFETCH(QString, found);
    m_base->exec({"CREATE TABLE t(id INT,name VARCHAR(100),place VARCHAR(100))",
                  "INSERT INTO t VALUES(1,'Молоко %1 200 г','Пасаж'),(2,'Молоко 2,5% 400 г','пас. Нова'),"
                  "(3,'молоко а_б','100% молоко'),(4,'О''Ніл ? :name','а\\\\б')"});
    const QString words = likeWords("(name LIKE %1 OR place LIKE %1)", text);
    QCOMPARE(m_base->rows("SELECT id FROM t" + (words.isEmpty() ? words : " WHERE " + words) + " ORDER BY id")
                 .join(','),
             found);
}

void TstDb::wrongNamesAreRefused()
{
    m_base->exec("CREATE TABLE t(a INT, b INT)");
    const Db db = m_base->db();
    QVERIFY(!db.run("INSERT INTO t VALUES(:a,:b)", {{":a", 1}, {":bb", 2}}));
    QVERIFY(!db.run("INSERT INTO t VALUES(:a,:b)", {{":a", 1}}));
    QVERIFY(!db.runPositional("INSERT INTO t VALUES(?,?)", {1}));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM t"), QString("0"));
    QCOMPARE(m_base->heard.texts().size(), 3);
    QVERIFY(db.run("INSERT INTO t VALUES(:a,:a)", {{":a", 1}}));
    QVERIFY(db.run("INSERT INTO t SELECT :a, LENGTH('12:30 :b ?')", {{":a", 1}}));
}

void TstDb::failureNamesItsPlace()
{
    m_base->exec("CREATE TABLE t(name VARCHAR(9) UNIQUE)");
    const Db db = m_base->db();
    QVERIFY(db.run("INSERT INTO t VALUES(:a)", {{":a", "їжак"}}));
    QVERIFY(!db.run("INSERT INTO t VALUES(:a)", {{":a", "їжак"}}));
    const int line = __LINE__ - 1;
    const auto message = m_base->heard.all().value(0);
    QVERIFY2(message.text.startsWith("Помилка запиту:\nDuplicate entry 'їжак'"), qPrintable(message.text));
    QCOMPARE(message.location, QString("In file: tests/db/tst_db line: %1").arg(line));
}

void TstDb::uncommittedIsRolledBack()
{
    m_base->exec("CREATE TABLE t(a INT)");
    const Db db = m_base->db();
    {
        Transaction t(db);
        QVERIFY(t && db.run("INSERT INTO t VALUES(1)"));
    }
    {
        Transaction t(db);
        QVERIFY(t && db.run("INSERT INTO t VALUES(2)") && t.commit());
    }
    QCOMPARE(m_base->rows("SELECT a FROM t"), QStringList{"2"});
}

void TstDb::nothingIsSentAfterAFailure()
{
    m_base->exec("CREATE TABLE t(a INT PRIMARY KEY)");
    const Db db = m_base->db();
    {
        Transaction t(db);
        QVERIFY(db.run("INSERT INTO t VALUES(1)"));
        QVERIFY(!db.run("INSERT INTO t VALUES(1)"));
        QVERIFY(!db.run("INSERT INTO t VALUES(2)"));
        QVERIFY(!t.commit());
    }
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM t"), QString("0"));
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(db.run("INSERT INTO t VALUES(3)"));
}

void TstDb::killedInsideATransactionLeavesNothing()
{
    m_base->exec("CREATE TABLE t(a INT)");
    const Db db = m_base->db();
    {
        Transaction t(db);
        QVERIFY(db.run("INSERT INTO t VALUES(1)"));
        m_base->killConnection();
        QVERIFY(!db.run("INSERT INTO t VALUES(2)"));
        QVERIFY(!db.run("INSERT INTO t VALUES(3)"));
        QVERIFY(!t.commit());
    }
    waitOutLoss(*m_base->connection());
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM t"), QString("0"));
    Transaction again(db);
    QVERIFY(again && db.run("INSERT INTO t VALUES(4)") && again.commit());
    QCOMPARE(m_base->rows("SELECT a FROM t"), QStringList{"4"});
}

/// As on a cluster's node that has lost the others: it refuses everything, and the transaction stays open.
void TstDb::refusedRollbackLeavesNothing()
{
    m_base->exec("CREATE TABLE t(a INT)");
    const Db db = m_base->db();
    const QString before = m_base->value("SELECT CONNECTION_ID()");
    bool isReady = true;
    Db::setStatementRefusal([&](const QString &) { return isReady ? 0 : ServerError::NodeNotReady; });
    {
        Transaction t(db);
        QVERIFY(t && db.run("INSERT INTO t VALUES(1)"));
        isReady = false;
        QVERIFY(!db.run("INSERT INTO t VALUES(2)"));
    }
    QCOMPARE(db.lastErrorNumber(), static_cast<int>(ServerError::NodeNotReady));
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.has("утратив зв'язок з іншими серверами", QMessEvent::Critical));
    {
        const Transaction t(db);
        QVERIFY(!t);
    }
    isReady = true;
    Transaction again(db);
    QVERIFY(again && db.run("INSERT INTO t VALUES(3)") && again.commit());
    QCOMPARE(m_base->rows("SELECT a FROM t"), QStringList{"3"});
    QVERIFY(m_base->value("SELECT CONNECTION_ID()") != before);
}

void TstDb::lossIsToldOnce()
{
    const Db db = m_base->db();
    ConnectionState *state = ConnectionState::of(*m_base->connection());
    QSignalSpy lost(state, &ConnectionState::lost);
    QSignalSpy back(state, &ConnectionState::back);
    m_base->exec("CREATE TABLE t(a INT)");
    {
        Transaction t(db);
        m_base->killConnection();
        QVERIFY(!db.run("INSERT INTO t VALUES(1)"));
        QVERIFY(!t.commit());
    }
    QVERIFY(isConnectionLost(db.lastErrorNumber()));
    QVERIFY(waitForServer(db, 20000) && !state->isLost());
    QTRY_COMPARE(back.size(), 1);
    QCOMPARE(lost.size(), 1);
    const QStringList told = m_base->heard.texts(QMessEvent::Debug);
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.first().startsWith(lost.first().first().toString() + "\n\nПомилка запиту:\n"),
             qPrintable(told.first()));
}

void TstDb::sessionSurvivesAReconnect()
{
    const QString settings = "SELECT @@sql_mode,@@explicit_defaults_for_timestamp,@@innodb_lock_wait_timeout,"
                             "@@lock_wait_timeout,@@default_storage_engine,@@wsrep_sync_wait,"
                             "@@character_set_client,@@character_set_results";
    const QString before = m_base->value(settings);
    QVERIFY2(before.contains("NO_UNSIGNED_SUBTRACTION") && before.endsWith("|0|5|5|InnoDB|1|utf8mb4|utf8mb4"),
             qPrintable(before));
    for (int i = 0; i < 2; ++i) {
        m_base->killConnection();
        QCOMPARE(m_base->value(settings), before);
    }
}

void TstDb::everyValueHasAText()
{
    QCOMPARE(m_base->rows("SELECT CAST(NULL AS SIGNED),SUM(10000000),SUM(NULL),COUNT(*),4294967295,1.50"),
             QStringList{"|10000000||1|4294967295|1.5"});
    m_base->exec("CREATE TABLE t(a BOOL, b DATETIME DEFAULT 0, c DATE DEFAULT 0, d TIME, e INT, f CHAR(3))");
    m_base->exec("INSERT INTO t(a,d) VALUES(NULL,'12:30:00')");
    m_base->exec("INSERT INTO t VALUES(1,20260301235959,20260301,0,NULL,'')");
    QCOMPARE(m_base->rows("SELECT * FROM t"),
             (QStringList{"|||12:30:00||", "1|2026-03-01 23:59:59|2026-03-01|00:00:00||"}));
}

QTEST_MAIN(TstDb)
#include "tst_db.moc"
