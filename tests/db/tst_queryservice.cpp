#include "testing.h"

#include "queryservice.h"

#include <QSet>

namespace {
const QString endless = QStringLiteral("SELECT COUNT(*) FROM seq_1_to_4000000000 WHERE seq%7=3");
const QString connectionId = QStringLiteral("SELECT CONNECTION_ID()");

/// An owner that keeps what was answered.
struct Asker
{
    explicit Asker(const QString &connection) : owner(connection, nullptr)
    {
        QObject::connect(&owner, &QueryOwner::answered, &owner,
                         [this](const std::shared_ptr<QueryAnswer> &answer) { answers.append(answer); });
    }
    /// The whole number answered to the only ask so far; -1 after a failure or without an answer.
    qint64 number(size_t result = 0) const
    {
        return answers.size() == 1 && answers.first()->error.isEmpty() ? answers.first()->number(result) : -1;
    }
    bool hasAnswered(int times = 1) const { return answers.size() == times && !owner.isWaiting(); }

    QueryOwner owner;
    QVector<std::shared_ptr<QueryAnswer>> answers;
};
} // namespace

/// The background connections and those who share them.
class TstQueryService : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eightOwnersShareTwoConnections();
    void newestRequestWins();
    void ownerEndsWithoutWaiting();
    void longOnesLeaveAConnection();
    void failedStatementEndsTheAnswer();
    void lateKillIsRepeated();
    void endedConnectionIsOpenedAnew();
    void idleConnectionCloses();
    void windowsConnectionIsReplaced();

private:
    std::unique_ptr<Asker> asker() const
    {
        return std::make_unique<Asker>(m_base->connection()->connectionName());
    }
    /// Those of the program besides the window's.
    int connections() const
    {
        return m_base->value("SELECT COUNT(*)-1 FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB=DATABASE()")
            .toInt();
    }
    int running(const QString &sql) const
    {
        return m_base->value("SELECT COUNT(*) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE INFO=" + lit(sql))
            .toInt();
    }

    std::unique_ptr<FreshDatabase> m_base;
};

void TstQueryService::init()
{
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
}

void TstQueryService::cleanup()
{
    QCOMPARE(m_base->heard.texts(), QStringList());
    m_base.reset();
}

void TstQueryService::eightOwnersShareTwoConnections()
{
    std::vector<std::unique_ptr<Asker>> askers;
    QVector<int> served;
    for (int i = 0; i < 8; ++i) {
        askers.push_back(asker());
        connect(&askers.back()->owner, &QueryOwner::answered, this, [&served, i] { served.append(i); });
        askers.back()->owner.ask({QStringLiteral("SELECT SLEEP(0.1)"), connectionId});
        QVERIFY(askers.back()->owner.isWaiting());
    }
    int most = 0;
    while (served.size() < 8) {
        QTest::qWait(20);
        most = qMax(most, connections());
    }
    QCOMPARE(most, 2);
    QSet<qint64> ids;
    for (const auto &one : askers)
        ids.insert(one->number(1));
    QVERIFY(ids.size() == 2 && !ids.contains(-1));
    // Two at once may end in either order.
    for (int i = 0; i < 8; ++i)
        QVERIFY2(qAbs(served.at(i) - i) <= 1, "Not first come, first served");
}

void TstQueryService::newestRequestWins()
{
    const auto one = asker();
    one->owner.ask({endless});
    QTRY_COMPARE(running(endless), 1);
    for (int i = 1; i <= 100; ++i)
        one->owner.ask({endless + QStringLiteral(" LIMIT %1").arg(i)});
    one->owner.ask({QStringLiteral("SELECT 7")});
    QTRY_VERIFY(one->hasAnswered());
    QCOMPARE(one->number(), 7);
    QTRY_COMPARE(running(endless), 0);

    // Who waits keeps his place, whatever he asks for meanwhile.
    const auto first = asker();
    const auto second = asker();
    const auto typing = asker();
    const auto last = asker();
    for (const auto &busy : {first.get(), second.get()})
        busy->owner.ask({endless});
    QTRY_COMPARE(running(endless), 2);
    typing->owner.ask({endless + QStringLiteral(" LIMIT 1")});
    last->owner.ask({QStringLiteral("SELECT 9")});
    typing->owner.ask({QStringLiteral("SELECT 8")});
    bool isInOrder = false;
    connect(&last->owner, &QueryOwner::answered, this, [&] { isInOrder = typing->hasAnswered(); });
    first->owner.cancel();
    QVERIFY(!first->owner.isWaiting());
    QTRY_VERIFY(last->hasAnswered());
    QVERIFY(isInOrder && typing->number() == 8 && last->number() == 9);
    QVERIFY(first->answers.isEmpty() && second->owner.isWaiting());
}

void TstQueryService::ownerEndsWithoutWaiting()
{
    auto running = asker();
    auto other = asker();
    auto queued = asker();
    for (const auto &one : {running.get(), other.get(), queued.get()})
        one->owner.ask({endless});
    QTRY_COMPARE(this->running(endless), 2);
    QElapsedTimer clock;
    clock.start();
    queued.reset();
    running.reset();
    other.reset();
    QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
    QTRY_COMPARE(this->running(endless), 0);
    const auto next = asker();
    next->owner.ask({QStringLiteral("SELECT 3")});
    QTRY_COMPARE(next->number(), 3);
}

void TstQueryService::longOnesLeaveAConnection()
{
    const auto report = asker();
    const auto otherReport = asker();
    report->owner.setLong(true);
    otherReport->owner.setLong(true);
    report->owner.ask({endless});
    QTRY_COMPARE(running(endless), 1);
    otherReport->owner.ask({QStringLiteral("SELECT 2")});
    for (int i = 1; i <= 3; ++i) {
        const auto search = asker();
        search->owner.ask({QStringLiteral("SELECT %1").arg(i)});
        QTRY_COMPARE_WITH_TIMEOUT(search->number(), i, 1000);
    }
    QVERIFY(otherReport->owner.isWaiting());
    report->owner.cancel();
    QTRY_COMPARE(otherReport->number(), 2);
}

void TstQueryService::failedStatementEndsTheAnswer()
{
    const auto one = asker();
    one->owner.ask({QStringLiteral("SELECT 1"), QStringLiteral("SELECT missing FROM nowhere"),
                    QStringLiteral("CREATE TABLE not_wanted(a INT)")});
    QTRY_VERIFY(one->hasAnswered());
    const auto answer = one->answers.first();
    QCOMPARE(answer->errorNumber, 1146);
    QVERIFY2(answer->error.contains("nowhere") && answer->results.size() == 1, qPrintable(answer->error));
    QCOMPARE(m_base->rows("SHOW TABLES"), QStringList());
    // What was to be sent before may fail.
    for (const char *before : {"SELECT missing FROM nowhere", "SELECT 11"}) {
        const auto other = asker();
        other->owner.ask({QStringLiteral("SELECT 12")}, QString::fromLatin1(before));
        QTRY_COMPARE(other->number(), 12);
        QCOMPARE(other->answers.first()->before.rowCount(), before == QString("SELECT 11") ? 1 : 0);
    }
    one->owner.ask({QStringLiteral("SELECT 5 WHERE FALSE"), QStringLiteral("SELECT 'ї' AS `назва`,NULL")});
    QTRY_VERIFY(one->hasAnswered(2));
    const auto &results = one->answers.last()->results;
    QCOMPARE(results.size(), size_t(2));
    QVERIFY(results[0].rowCount() == 0 && one->answers.last()->number(0) == 0);
    QCOMPARE(results[1].columnNames(), (QStringList{"назва", "NULL"}));
    QCOMPARE(results[1].cell(0, 0), std::string_view("ї"));
}

/// Sent for an older statement, it may reach the server when the newer one runs, or when half its rows have
/// come.
void TstQueryService::lateKillIsRepeated()
{
    const QString sql = QStringLiteral("SELECT seq FROM seq_1_to_1000000");
    for (const char *kill : {"KILL QUERY ", "KILL CONNECTION "}) {
        const auto one = asker();
        one->owner.ask({sql});
        QTRY_COMPARE(running(sql), 1);
        m_base->exec(kill +
                     m_base->value("SELECT ID FROM INFORMATION_SCHEMA.PROCESSLIST WHERE INFO=" + lit(sql)));
        QTRY_VERIFY_WITH_TIMEOUT(one->hasAnswered(), 10000);
        const auto answer = one->answers.first();
        QVERIFY2(answer->error.isEmpty(), qPrintable(answer->error));
        QCOMPARE(answer->results.front().rowCount(), 1000000);
        QVERIFY(answer->number(0) == 1 && answer->results.front().cell(999999, 0) == "1000000");
    }
}

void TstQueryService::endedConnectionIsOpenedAnew()
{
    const auto before = asker();
    before->owner.ask({connectionId});
    QTRY_VERIFY(before->hasAnswered());
    m_base->exec("KILL CONNECTION " + QString::number(before->number()));
    const auto after = asker();
    after->owner.ask({connectionId,
                      "SELECT @@sql_mode LIKE '%STRICT_TRANS_TABLES%' AND @@lock_wait_timeout=5 AND "
                      "NOT @@explicit_defaults_for_timestamp AND @@character_set_client='utf8mb4'"});
    QTRY_VERIFY(after->hasAnswered());
    QVERIFY(after->number() > 0 && after->number() != before->number());
    QCOMPARE(after->number(1), 1);
    // While its statement runs.
    const auto running = asker();
    running->owner.ask({QStringLiteral("SELECT SLEEP(0.3)"), connectionId});
    QTRY_COMPARE(this->running("SELECT SLEEP(0.3)"), 1);
    m_base->exec("KILL CONNECTION " + QString::number(after->number()));
    QTRY_VERIFY(running->hasAnswered());
    QVERIFY(running->number(1) > 0 && running->number(1) != after->number());
    QCOMPARE(running->answers.first()->results.size(), size_t(2));
}

void TstQueryService::idleConnectionCloses()
{
    QueryService::setIdleTime(std::chrono::milliseconds(200));
    const auto one = asker();
    one->owner.ask({connectionId});
    QTRY_VERIFY(one->hasAnswered());
    QCOMPARE(connections(), 1);
    QTRY_COMPARE_WITH_TIMEOUT(connections(), 0, 2000);
    const auto next = asker();
    next->owner.ask({connectionId});
    QTRY_VERIFY(next->number() > 0);
    QVERIFY(next->number() != one->number());
    QueryService::setIdleTime(std::chrono::minutes(1));
}

/// As at a new log-in: its name stays, the owners may live on.
void TstQueryService::windowsConnectionIsReplaced()
{
    const QString name = QStringLiteral("replaced");
    addConnection(name, m_base->address());
    const auto running = std::make_unique<Asker>(name);
    const auto queued = std::make_unique<Asker>(name);
    const auto finished = std::make_unique<Asker>(name);
    running->owner.ask({endless});
    QTRY_COMPARE(this->running(endless), 1);
    queued->owner.ask({QStringLiteral("SELECT 1")});
    QTRY_VERIFY(queued->hasAnswered());
    queued->owner.ask({endless});
    QTRY_COMPARE(this->running(endless), 2);
    finished->owner.ask({QStringLiteral("SELECT 1")});
    QElapsedTimer clock;
    clock.start();
    QSqlDatabase::removeDatabase(name);
    QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
    for (const auto &one : {running.get(), queued.get(), finished.get()}) {
        QTRY_VERIFY(!one->owner.isWaiting());
        QVERIFY(!one->answers.last()->error.isEmpty());
    }
    running->owner.ask({QStringLiteral("SELECT 1")});
    QTRY_VERIFY(running->hasAnswered(2));
    QVERIFY(!running->answers.last()->error.isEmpty());

    addConnection(name, m_base->address());
    running->owner.ask({QStringLiteral("SELECT 4")});
    QTRY_VERIFY(running->hasAnswered(3));
    QCOMPARE(running->answers.last()->number(0), 4);
    QTRY_COMPARE(this->running(endless), 0);
    QSqlDatabase::removeDatabase(name);
}

QTEST_MAIN(TstQueryService)
#include "tst_queryservice.moc"
