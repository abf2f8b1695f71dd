#include "tcpproxy.h"
#include "testing.h"

#include "job.h"
#include "qmessevent.h"

#include <QSignalSpy>

/// Work in the background: what it tells, how it is cancelled, and that nobody waits for it.
class TstJob : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void tellsAndEndsWithAResult();
    void failsInTheWordsOfItsFirstReport();
    void cancelEndsTheStatement_data();
    void cancelEndsTheStatement();
    void leavingWaitsForNobody_data();
    void leavingWaitsForNobody();

private:
    /// Runs until the end, or fails the test program.
    JobResult finish(Job *job, const std::function<void()> &meanwhile = {});
    QString source() const { return QStringLiteral("window"); }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_proxy;
};

namespace {
const char *const longStatement = "INSERT INTO t SELECT COUNT(*) FROM seq_1_to_4000000000 WHERE seq%7=3";

/// Two rows, the second of which does not come soon.
JobResult writeSlowly(JobContext &context)
{
    const Db db = context.db();
    Transaction transaction(db);
    if (!transaction || !db.run("INSERT INTO t VALUES(1)") || !db.run(longStatement) || !transaction.commit())
        return {};
    return {JobResult::Done, {}, {}};
}
} // namespace

void TstJob::init()
{
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
    m_proxy = std::make_unique<TcpProxy>(testServer());
    m_base->exec("CREATE TABLE t(a BIGINT) ENGINE=InnoDB");
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    addConnection(source(), address);
}

void TstJob::cleanup()
{
    QVERIFY(RunningJobs::all().jobs().isEmpty());
    QSqlDatabase::removeDatabase(source());
    m_proxy.reset();
    m_base.reset();
}

JobResult TstJob::finish(Job *job, const std::function<void()> &meanwhile)
{
    JobResult result;
    QSignalSpy finished(job, &Job::finished);
    connect(job, &Job::finished, job, [&](const JobResult &ended) { result = ended; });
    job->start();
    if (meanwhile)
        meanwhile();
    if (finished.isEmpty() && !finished.wait(20000))
        qFatal("The job has not ended");
    return result;
}

void TstJob::tellsAndEndsWithAResult()
{
    std::atomic<bool> mayEnd{false};
    auto values = std::make_shared<int>(42);
    Job job(
        QStringLiteral("Лічба"), source(),
        [&mayEnd, values](JobContext &context) -> JobResult {
            const QString id = context.db().firstText("SELECT CONNECTION_ID()").value_or(QString());
            context.stage(QStringLiteral("рядки"));
            context.progress(3, 10);
            while (!mayEnd)
                QThread::msleep(5);
            context.progress(10, 10);
            postMessage(context.receiver(), QStringLiteral("повільно"), QMessEvent::Warning);
            return {JobResult::Done, QStringLiteral("Полічено: %1").arg(*values), id};
        },
        &m_base->heard);
    QSignalSpy progressed(&job, &Job::progressed);
    QSignalSpy started(&RunningJobs::all(), &RunningJobs::started);
    const JobResult result = finish(&job, [&] {
        QCOMPARE(RunningJobs::all().jobs(), QVector<Job *>{&job});
        QTRY_COMPARE(job.progress().done, 3);
        QCOMPARE(job.progress().stage, QStringLiteral("рядки"));
        QVERIFY(job.isRunning() && values.use_count() == 2);
        mayEnd = true;
    });
    QCOMPARE(result.outcome, JobResult::Done);
    QCOMPARE(result.words, QStringLiteral("Полічено: 42"));
    QVERIFY(result.value.toInt() > 0 && result.value != m_base->value("SELECT CONNECTION_ID()"));
    QCOMPARE(progressed.last(), QVariantList({10LL, 10LL}));
    QVERIFY(!job.isRunning() && started.size() == 1 && RunningJobs::all().jobs().isEmpty());
    // What it was given is gone, and so is its connection.
    QCOMPARE(values.use_count(), 1L);
    QTRY_COMPARE(m_base->value("SELECT COUNT(*) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE ID=" +
                               result.value.toString()),
                 QStringLiteral("0"));
    QVERIFY(m_base->heard.has(QStringLiteral("повільно"), QMessEvent::Warning));
}

void TstJob::failsInTheWordsOfItsFirstReport()
{
    const auto work = [](JobContext &context) -> JobResult {
        context.db().run("INSERT INTO missing VALUES(1)");
        context.db().run("INSERT INTO missing2 VALUES(1)");
        return {};
    };
    Job job(QString(), source(), work, &m_base->heard);
    JobResult result = finish(&job);
    QCOMPARE(result.outcome, JobResult::Failed);
    QVERIFY2(result.words.contains("missing' doesn't exist"), qPrintable(result.words));
    QCOMPARE(m_base->heard.texts().size(), 2);
    QVERIFY(m_base->heard.all().constFirst().location.startsWith("In file: tests/db/tst_job line:"));

    // No server: one connection is tried, and its failure is what the user hears first.
    m_base->heard.forget();
    m_proxy.reset();
    Job lost(QString(), source(), work, &m_base->heard);
    result = finish(&lost);
    QCOMPARE(result.outcome, JobResult::Failed);
    QVERIFY2(result.words.startsWith(QStringLiteral("Помилка з'єднання з БД.\n")), qPrintable(result.words));
}

void TstJob::cancelEndsTheStatement_data()
{
    QTest::addColumn<bool>("isSilent");
    QTest::newRow("statement ended by the server") << false;
    QTest::newRow("server falls silent") << true;
}

void TstJob::cancelEndsTheStatement()
{
    QFETCH(const bool, isSilent);
    Job job(QString(), source(), writeSlowly, &m_base->heard);
    QElapsedTimer clock;
    const JobResult result = finish(&job, [&] {
        const char *const running = "SELECT COUNT(*) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE "
                                    "DB=DATABASE() AND INFO LIKE 'INSERT INTO t SELECT%'";
        QTRY_COMPARE(m_base->value(running), QStringLiteral("1"));
        m_proxy->setSilent(isSilent);
        clock.start();
        job.cancel();
        job.cancel();
        QVERIFY2(clock.elapsed() < 900, "The window waited");
    });
    QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(result.outcome, JobResult::Cancelled);
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
    // A server that hears nothing goes on until it sees the other end gone.
    if (isSilent)
        m_base->exec("KILL " + m_base->value("SELECT MAX(ID) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE "
                                             "DB=DATABASE() AND INFO LIKE 'INSERT INTO t SELECT%'"));
    QTRY_COMPARE(m_base->value("SELECT COUNT(*) FROM t"), QStringLiteral("0"));
}

void TstJob::leavingWaitsForNobody_data()
{
    QTest::addColumn<int>("workMs");
    QTest::addColumn<bool>("isSilent");
    QTest::newRow("cancelled at once") << 0 << false;
    QTest::newRow("connecting to a silent server") << 0 << true;
    QTest::newRow("work that does not look") << 1500 << false;
}

void TstJob::leavingWaitsForNobody()
{
    QFETCH(const int, workMs);
    QFETCH(const bool, isSilent);
    m_proxy->setSilent(isSilent);
    auto isOver = std::make_shared<std::atomic<bool>>(false);
    auto parent = std::make_unique<Heard>();
    auto *job = new Job(
        QString(), source(),
        [workMs, isOver](JobContext &context) -> JobResult {
            if (workMs == 0)
                context.db().run("SELECT SLEEP(20)");
            QThread::msleep(static_cast<unsigned long>(workMs));
            postMessage(context.receiver(), QStringLiteral("пізно"));
            *isOver = true;
            return {};
        },
        parent.get());
    job->start();
    if (isSilent)
        QTest::qWait(100);
    QElapsedTimer clock;
    clock.start();
    parent.reset();
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(RunningJobs::all().jobs().isEmpty());
    QTRY_VERIFY(*isOver);
}

QTEST_MAIN(TstJob)
#include "tst_job.moc"
