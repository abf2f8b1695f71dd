#include "tcpproxy.h"
#include "testing.h"

#include "connectionstate.h"
#include "dbtasks.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QSignalSpy>
#include <QThread>

/// Work that a window waits for: its order, who hears of it, what is done although nobody hears, and a server
/// that does not answer.
class TstDbTasks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneAfterTheOther();
    void whoeverGoesHearsNothing();
    void writingOutlivesItsConnection();
    void endedConnectionIsBackAtOnce();
    void silenceIsToldOnce();
    void unreachableServerFailsAtOnce();
    void lostCommitIsAskedFor();

private:
    void open(const DatabaseAddress &address);
    void throughProxy();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
    std::unique_ptr<DbTasks> m_tasks;
};

namespace {
/// A statement as work: whether it worked.
auto statement(const QString &sql)
{
    return [sql](const Db &db) { return db.run(sql).has_value(); };
}

auto into(QStringList *answers, const QString &name)
{
    return [answers, name](bool isDone) { answers->append(name + (isDone ? " +" : " -")); };
}
} // namespace

void TstDbTasks::init()
{
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
    m_base->exec("CREATE TABLE t(a INT)");
    open(m_base->address());
}

void TstDbTasks::cleanup()
{
    Db::setStatementHook({});
    m_tasks.reset();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    m_proxy.reset();
    m_base.reset();
}

/// The window's own connection stays closed: it only leads to the server.
void TstDbTasks::open(const DatabaseAddress &address)
{
    m_tasks.reset();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    m_window = addConnection(QStringLiteral("window"), address);
    m_tasks = std::make_unique<DbTasks>("window", &m_base->heard, nullptr);
}

void TstDbTasks::throughProxy()
{
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    open(address);
}

void TstDbTasks::oneAfterTheOther()
{
    DbTasks other("window", &m_base->heard, nullptr);
    QSignalSpy begun(m_tasks.get(), &DbTasks::begun);
    QSignalSpy idle(m_tasks.get(), &DbTasks::idle);
    QStringList answers;
    m_tasks->write(statement("INSERT INTO t SELECT 1 FROM (SELECT SLEEP(0.1)) s"), into(&answers, "first"));
    other.write(statement("UPDATE t SET a=a+1"), into(&answers, "second"));
    m_tasks->read(statement("SELECT nothing FROM t"), into(&answers, "third"));
    m_tasks->read(
        [](const Db &db) {
            const bool isAside = QThread::currentThread() != QCoreApplication::instance()->thread();
            return QPair<bool, QString>(isAside, db.firstText("SELECT a FROM t").value_or(QString()));
        },
        [&](const QPair<bool, QString> &value) {
            QVERIFY(value.first);
            answers.append(value.second);
            QVERIFY(!m_tasks->isWaiting());
        });
    QVERIFY(answers.isEmpty() && m_tasks->isWriting() && !DbTasks::isIdle());
    waitOutTasks();
    QCOMPARE(answers, QStringList({"first +", "second +", "third -", "2"}));
    QCOMPARE(begun.size(), 1);
    QCOMPARE(idle.size(), 1);
    QVERIFY2(m_base->heard.has("SELECT nothing", QMessEvent::Critical), "not told");
    QVERIFY(m_base->heard.all().constLast().location.contains("tst_dbtasks"));
}

void TstDbTasks::whoeverGoesHearsNothing()
{
    QStringList answers;
    m_tasks->write(statement("INSERT INTO t SELECT 1 FROM (SELECT SLEEP(0.2)) s"), into(&answers, "running"));
    m_tasks->read(statement("INSERT INTO t VALUES(2)"), into(&answers, "read"));
    m_tasks->write(statement("INSERT INTO t VALUES(3)"), into(&answers, "write"));
    m_tasks->drop();
    QVERIFY(!m_tasks->isWaiting() && !m_tasks->isWriting());
    m_tasks->read(statement("INSERT INTO t VALUES(4)"), into(&answers, "new"));
    m_tasks->write([](const Db &db) { return db.run("INSERT INTO t VALUES(5)").has_value(); },
                   [&](bool) {
                       answers.append("deleted by its own answer");
                       m_tasks.reset();
                   });
    waitOutTasks();
    QCOMPARE(answers, QStringList({"new +", "deleted by its own answer"}));
    QCOMPARE(m_base->rows("SELECT a FROM t ORDER BY a"), QStringList({"1", "3", "4", "5"}));
}

/// As when the program is left right behind a sale: the tracker is still told.
void TstDbTasks::writingOutlivesItsConnection()
{
    QStringList answers;
    m_tasks->write(statement("INSERT INTO t SELECT 1 FROM (SELECT SLEEP(0.2)) s"), into(&answers, "first"));
    m_tasks->write(statement("INSERT INTO t VALUES(2)"), into(&answers, "second"));
    m_tasks->read(statement("INSERT INTO t VALUES(3)"), into(&answers, "third"));
    QTest::qWait(50);
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    QTRY_COMPARE(m_base->rows("SELECT a FROM t ORDER BY a"), QStringList({"1", "2"}));
    waitOutTasks();
    QVERIFY(!m_tasks->isWaiting());
    m_tasks->read(statement("SELECT 1"), into(&answers, "without a connection"));
    QVERIFY(!m_tasks->isWaiting());
    QVERIFY(!answers.contains("third +"));
}

void TstDbTasks::endedConnectionIsBackAtOnce()
{
    QString id;
    const auto ask = [&] {
        m_tasks->read([](const Db &db) { return db.firstText("SELECT CONNECTION_ID()").value_or(QString()); },
                      [&id](const QString &answer) { id = answer; });
        waitOutTasks();
    };
    ask();
    m_base->exec("KILL " + id);
    const QString idle = id;
    ask();
    QVERIFY(!id.isEmpty() && id != idle);
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical).size(), 0);

    QStringList answers;
    m_tasks->write(statement("INSERT INTO t SELECT SLEEP(5)"), into(&answers, "running"));
    QTRY_COMPARE(m_base->value("SELECT COUNT(*) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE INFO LIKE "
                               "'INSERT INTO t SELECT SLEEP%'"),
                 QString("1"));
    m_base->exec("KILL " + id);
    const QString busy = id;
    waitOutTasks();
    QCOMPARE(answers, QStringList("running -"));
    QTRY_VERIFY(!ConnectionState::of(m_window)->isLost());
    ask();
    QVERIFY(!id.isEmpty() && id != busy);
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical).size(), 1);
    QCOMPARE(ConnectionState::of(m_window)->losses(), 1);
}

void TstDbTasks::silenceIsToldOnce()
{
    throughProxy();
    QStringList answers;
    m_tasks->read(statement("SELECT 1"), into(&answers, "a"));
    waitOutTasks();
    m_proxy->setSilent(true);
    QElapsedTimer clock;
    clock.start();
    for (const char *name : {"b", "c", "d"})
        m_tasks->write(statement("INSERT INTO t VALUES(1)"), into(&answers, QLatin1String(name)));
    QVERIFY2(clock.elapsed() < 900, "Waited for the server");
    waitOutTasks();
    QVERIFY2(clock.elapsed() >= 900 && clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(ConnectionState::of(m_window)->isLost());
    clock.start();
    m_tasks->write(statement("INSERT INTO t VALUES(2)"), into(&answers, "e"));
    waitOutTasks();
    QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(answers, QStringList({"a +", "b -", "c -", "d -", "e -"}));
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical).size(), 1);

    m_proxy->setSilent(false);
    QTRY_VERIFY(!ConnectionState::of(m_window)->isLost());
    m_tasks->write(statement("INSERT INTO t VALUES(3)"), into(&answers, "f"));
    waitOutTasks();
    QCOMPARE(answers.last(), QString("f +"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM t WHERE a=3"), QString("1"));
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical).size(), 1);
}

void TstDbTasks::unreachableServerFailsAtOnce()
{
    DatabaseAddress nobody = m_base->address();
    nobody.host = QStringLiteral("127.0.0.1");
    nobody.port = 1;
    open(nobody);
    QStringList answers;
    int error = 0;
    m_tasks->read(
        [](const Db &db) {
            db.run("SELECT 1");
            return db.lastErrorNumber();
        },
        [&error](int number) { error = number; });
    m_tasks->write(statement("SELECT 2"), into(&answers, "second"));
    waitOutTasks();
    QCOMPARE(error, ServerError::ServerGone);
    QCOMPARE(answers, QStringList("second -"));
    QCOMPARE(m_base->heard.texts(QMessEvent::Critical).size(), 1);
}

/// A COMMIT whose answer is lost: the same work asks when the server is there again.
void TstDbTasks::lostCommitIsAskedFor()
{
    throughProxy();
    bool isSilent = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == QLatin1String("COMMIT") && !isSilent) {
            isSilent = true;
            m_proxy->setSilent(true);
            std::thread([this] {
                QThread::msleep(1500);
                m_proxy->setSilent(false);
            }).detach();
        }
    });
    QString found;
    m_tasks->write(
        [](const Db &db) {
            {
                Transaction transaction(db);
                db.run("INSERT INTO t VALUES(7)");
                transaction.commit();
            }
            waitForServer(db, 3000);
            // It may be on its way still: the lock waits for its end.
            return db.firstText("SELECT COUNT(*) FROM t WHERE a=7 LOCK IN SHARE MODE").value_or("unknown");
        },
        [&found](const QString &count) { found = count; });
    waitOutTasks();
    QCOMPARE(found, m_base->value("SELECT COUNT(*) FROM t WHERE a=7"));
}

QTEST_MAIN(TstDbTasks)
#include "tst_dbtasks.moc"
