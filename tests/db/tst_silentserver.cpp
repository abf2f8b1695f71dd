#include "tcpproxy.h"
#include "testing.h"

#include "connectionstate.h"
#include "qmessevent.h"
#include "queryservice.h"
#include "servererror.h"

#include <QSignalSpy>

/// A server that does not answer: who waits for it, for how long, and what is told.
class TstSilentServer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void windowFailsFastAndComesBack();
    void lostCommitIsAskedForLater();
    void leavingWaitsForNobody();
    void searchAfterASilence();
    void searchesTellTheLossOnce();
    void encryption_data();
    void encryption();
    void encryptionIsDemandedAgain();

private:
    Db window() { return Db(&m_window, &m_base->heard); }
    DatabaseAddress address() const;
    bool openWindow(const DatabaseAddress &address);
    /// The number of the connection that runs a statement which begins so.
    QString runningId(const QString &sql);

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
};

namespace {
const char *const longStatement = "SELECT COUNT(*) FROM seq_1_to_4000000000 WHERE seq%7=5";
const QString folder = QStringLiteral(TLS_FOLDER);
} // namespace

void TstSilentServer::init()
{
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
    m_proxy = std::make_unique<TcpProxy>(testServer());
    m_base->exec("CREATE TABLE t(a INT)");
}

void TstSilentServer::cleanup()
{
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    m_proxy.reset();
    m_base.reset();
}

DatabaseAddress TstSilentServer::address() const
{
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    return address;
}

bool TstSilentServer::openWindow(const DatabaseAddress &address)
{
    m_window = addConnection(QStringLiteral("window"), address);
    return openConnection(m_window, &m_base->heard);
}

QString TstSilentServer::runningId(const QString &sql)
{
    return m_base->value("SELECT MAX(ID) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE INFO=" + lit(sql));
}

void TstSilentServer::windowFailsFastAndComesBack()
{
    QVERIFY(openWindow(address()));
    ConnectionState *state = ConnectionState::of(m_window);
    QSignalSpy back(state, &ConnectionState::back);
    m_proxy->setSilent(true);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!window().run("INSERT INTO t VALUES(1)"));
    QVERIFY2(clock.elapsed() >= 900 && clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(isConnectionLost(window().lastErrorNumber()));
    clock.start();
    for (int i = 0; i < 50; ++i) {
        QVERIFY(!window().run("SELECT :a", {{":a", i}}));
        const Transaction transaction(window());
        QVERIFY(!transaction);
    }
    QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(!waitForServer(window(), 10) && state->isLost());
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.texts(QMessEvent::Warning).size() <= 2);

    m_proxy->setSilent(false);
    QVERIFY(waitForServer(window(), 3000));
    QVERIFY(window().run("INSERT INTO t VALUES(2)"));
    QCOMPARE(window().firstText("SELECT @@lock_wait_timeout").value(), QString("5"));
    QTRY_COMPARE(back.size(), 1);
    QCOMPARE(m_base->heard.texts().size(), 1);
}

void TstSilentServer::lostCommitIsAskedForLater()
{
    QVERIFY(openWindow(address()));
    Transaction transaction(window());
    QVERIFY(transaction && window().run("INSERT INTO t VALUES(7)"));
    m_proxy->setSilent(true);
    QVERIFY(!transaction.commit());
    QVERIFY(!isCommitRefused(window().lastErrorNumber()));
    m_proxy->setSilent(false);
    QVERIFY(waitForServer(window(), 3000));
    // It was on its way and has arrived.
    QTRY_COMPARE(m_base->rows("SELECT a FROM t"), QStringList{"7"});
}

void TstSilentServer::leavingWaitsForNobody()
{
    QVERIFY(openWindow(address()));
    QElapsedTimer clock;
    const auto left = [&clock](std::unique_ptr<QueryOwner> search) {
        clock.start();
        search.reset();
        return clock.elapsed();
    };
    auto running = std::make_unique<QueryOwner>("window", nullptr);
    running->ask({longStatement});
    QString id;
    QTRY_VERIFY(!(id = runningId(longStatement)).isEmpty());
    m_proxy->setSilent(true);
    QVERIFY2(left(std::move(running)) < 900, "Waited for a statement");

    auto connecting = std::make_unique<QueryOwner>("window", nullptr);
    connecting->ask({"SELECT 1"});
    QTest::qWait(50);
    QVERIFY2(left(std::move(connecting)) < 900, "Waited for a connection");

    QVERIFY(!window().run("SELECT 1"));
    clock.start();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("window");
    QVERIFY2(clock.elapsed() < 900, "Waited for the try in the background");
    m_base->exec("KILL QUERY " + id);
}

void TstSilentServer::searchAfterASilence()
{
    QVERIFY(openWindow(address()));
    QueryOwner search("window", nullptr);
    QSignalSpy found(&search, &QueryOwner::answered);
    search.ask({longStatement});
    QString id;
    QTRY_VERIFY(!(id = runningId(longStatement)).isEmpty());
    m_proxy->setSilent(true);
    QElapsedTimer clock;
    clock.start();
    search.ask({"SELECT 5"});
    search.ask({"SELECT 6"});
    QVERIFY2(clock.elapsed() < 900, "The window has waited");
    QTest::qWait(2200);
    m_proxy->setSilent(false);
    QVERIFY(found.wait(10000));
    const auto rows = found.first().first().value<std::shared_ptr<QueryAnswer>>();
    QVERIFY2(rows->error.isEmpty(), qPrintable(rows->error));
    QCOMPARE(rows->number(0), 6);
    QTRY_VERIFY(runningId(longStatement).isEmpty());
}

void TstSilentServer::searchesTellTheLossOnce()
{
    QVERIFY(openWindow(address()));
    QueryOwner search("window", nullptr);
    QSignalSpy found(&search, &QueryOwner::answered);
    m_proxy.reset();
    for (const int kind : {QMessEvent::Critical, QMessEvent::Warning, QMessEvent::Warning}) {
        found.clear();
        search.ask({"SELECT 1"});
        QVERIFY(found.wait(10000));
        const auto rows = found.first().first().value<std::shared_ptr<QueryAnswer>>();
        QVERIFY(!rows->error.isEmpty());
        QCOMPARE(rows->kind, kind);
    }
    QVERIFY(ConnectionState::of(m_window)->isLost());
}

void TstSilentServer::encryption_data()
{
    using Tls = DatabaseAddress::Tls;
    QTest::addColumn<int>("wish");
    QTest::addColumn<QString>("authority");
    QTest::addColumn<bool>("offered");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<bool>("encrypted");
    const auto row = [](const char *name, Tls wish, const QString &ca, bool offered, bool opens,
                        bool encrypted) {
        QTest::newRow(name) << static_cast<int>(wish) << ca << offered << opens << encrypted;
    };
    row("off", Tls::Off, {}, true, true, false);
    row("wanted", Tls::Wanted, {}, true, true, true);
    row("wanted, not offered", Tls::Wanted, {}, false, true, false);
    row("required", Tls::Required, {}, true, true, true);
    row("required, vouched for", Tls::Required, folder + "/ca.pem", true, true, true);
    row("required, vouched for by another", Tls::Required, folder + "/other.pem", true, false, false);
    row("required, not offered", Tls::Required, folder + "/ca.pem", false, false, false);
}

void TstSilentServer::encryption()
{
    QFETCH(bool, opens);
    QFETCH(int, wish);
    DatabaseAddress own = address();
    own.tls = static_cast<DatabaseAddress::Tls>(wish);
    QFETCH(QString, authority);
    own.caFile = authority;
    QFETCH(bool, offered);
    if (!offered)
        m_proxy->hideEncryption();
    QCOMPARE(openWindow(own), opens);
    QFETCH(bool, encrypted);
    QCOMPARE(!tlsCipher(m_window).isEmpty(), encrypted);
    QCOMPARE(openingError(m_window).isEmpty(), opens);
    const std::atomic<bool> isGivenUp{false};
    QCOMPARE(connectAside(own, isGivenUp).error == 0, opens);
    if (!opens)
        return;
    QCOMPARE(window().firstText("SELECT VARIABLE_VALUE FROM INFORMATION_SCHEMA.SESSION_STATUS WHERE "
                                "VARIABLE_NAME='SSL_CIPHER'"),
             std::make_optional(tlsCipher(m_window)));
    const WorkerConnection worker("window", &m_base->heard);
    QVERIFY(worker.isOpen());
}

/// The client library would reconnect in clear.
void TstSilentServer::encryptionIsDemandedAgain()
{
    DatabaseAddress own = address();
    own.tls = DatabaseAddress::Tls::Required;
    QVERIFY(openWindow(own));
    const QString id = window().firstText("SELECT CONNECTION_ID()").value();
    m_proxy->hideEncryption();
    m_base->exec("KILL CONNECTION " + id);
    QVERIFY(!window().run("INSERT INTO t VALUES(1)"));
    QVERIFY(!window().run("INSERT INTO t VALUES(2)"));
    QCOMPARE(m_base->rows("SELECT a FROM t"), QStringList());
}

QTEST_MAIN(TstSilentServer)
#include "tst_silentserver.moc"
