#include "testing.h"

#include "tuning.h"

#include <QElapsedTimer>
#include <QSignalSpy>

/// The indexes for quick reports: added, taken away, and what is left when that is interrupted.
class TstTuning : public QObject
{
    Q_OBJECT

private slots:
    void addedAndTakenAway();
    void halfOfThemIsCompleted();
    void registersSellWhileItWaits();
    void stoppedWorkChangesNothing();
    void endedStatementIsReported();

private:
    /// The columns of the indexes that the schema does not make.
    QStringList added();
    JobResult work(Tuning tuning, const std::function<void(Job *)> &meanwhile = {});
    /// Somebody has read the receipts and not ended: the work waits for that.
    void openForeignTransaction(QSqlDatabase *other);

    FreshDatabase m_base;
};

QStringList TstTuning::added()
{
    return m_base.rows(
        "SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY SEQ_IN_INDEX) FROM "
        "INFORMATION_SCHEMA.STATISTICS WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks' AND "
        "INDEX_NAME LIKE 'tune%' GROUP BY INDEX_NAME ORDER BY 1");
}

JobResult TstTuning::work(Tuning tuning, const std::function<void(Job *)> &meanwhile)
{
    Job job(
        tuningTitle(tuning), m_base.connection()->connectionName(),
        [tuning](JobContext &context) { return tuneDatabase(context, tuning); }, &m_base.heard);
    JobResult result;
    QSignalSpy finished(&job, &Job::finished);
    connect(&job, &Job::finished, &job, [&](const JobResult &ended) { result = ended; });
    job.start();
    if (meanwhile)
        meanwhile(&job);
    if (finished.isEmpty() && !finished.wait(20000))
        qFatal("The work has not ended");
    return result;
}

void TstTuning::openForeignTransaction(QSqlDatabase *other)
{
    *other = addConnection(QStringLiteral("other"), m_base.address());
    QVERIFY(openConnection(*other, nullptr));
    QSqlQuery query(*other);
    QVERIFY(query.exec("START TRANSACTION") && query.exec("SELECT COUNT(*) FROM cheks"));
}

void TstTuning::addedAndTakenAway()
{
    QCOMPARE(tunedState(m_base.db()), std::make_optional(TunedState::None));
    QCOMPARE(work(Tuning::Add).outcome, JobResult::Done);
    QCOMPARE(added(),
             QStringList({"data_time,id_type,id_kass,id_chek,id_zvit,summa,count", "id_kass,id_chek"}));
    QCOMPARE(tunedState(m_base.db()), std::make_optional(TunedState::Whole));
    QCOMPARE(work(Tuning::Add).outcome, JobResult::Done);
    QCOMPARE(work(Tuning::Remove).outcome, JobResult::Done);
    QCOMPARE(added(), QStringList());
    QCOMPARE(m_base.heard.texts(), QStringList());
}

void TstTuning::halfOfThemIsCompleted()
{
    QCOMPARE(work(Tuning::Add).outcome, JobResult::Done);
    m_base.exec("DROP INDEX tune_data_time ON cheks");
    QCOMPARE(tunedState(m_base.db()), std::make_optional(TunedState::Partial));
    QCOMPARE(work(Tuning::Add).outcome, JobResult::Done);
    QCOMPARE(added().size(), 2);
    QCOMPARE(work(Tuning::Remove).outcome, JobResult::Done);
}

/// Whoever sells waits behind the work for a second at most, and the work goes on when the table is free.
void TstTuning::registersSellWhileItWaits()
{
    QSqlDatabase other;
    openForeignTransaction(&other);
    qint64 longest = 0;
    const JobResult result = work(Tuning::Add, [&](Job *) {
        QElapsedTimer whole;
        whole.start();
        while (whole.elapsed() < 1500) {
            QElapsedTimer clock;
            clock.start();
            m_base.exec("UPDATE cheks SET summa=1 WHERE id_kass=7");
            longest = qMax(longest, clock.elapsed());
            QTest::qWait(20);
        }
        QVERIFY(QSqlQuery(other).exec("COMMIT"));
    });
    QCOMPARE(result.outcome, JobResult::Done);
    QVERIFY2(longest > 200 && longest < 2000, qPrintable(QString::number(longest)));
    QCOMPARE(added().size(), 2);
    QCOMPARE(m_base.heard.texts(), QStringList());
    QCOMPARE(work(Tuning::Remove).outcome, JobResult::Done);
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase("other");
}

void TstTuning::stoppedWorkChangesNothing()
{
    QSqlDatabase other;
    openForeignTransaction(&other);
    QElapsedTimer clock;
    clock.start();
    const JobResult result = work(Tuning::Add, [](Job *job) {
        QTest::qWait(200);
        job->cancel();
    });
    QCOMPARE(result.outcome, JobResult::Cancelled);
    QCOMPARE(result.words, QStringLiteral("Зупинено; у базі нічого не змінено."));
    QVERIFY2(clock.elapsed() < 1500, "Waited for the other transaction");
    QCOMPARE(added(), QStringList());
    QCOMPARE(m_base.heard.texts(), QStringList());
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase("other");
}

void TstTuning::endedStatementIsReported()
{
    QSqlDatabase other;
    openForeignTransaction(&other);
    const JobResult result = work(Tuning::Add, [this](Job *) {
        QString id;
        const char *const running = "SELECT MAX(ID) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB=DATABASE() "
                                    "AND INFO LIKE 'ALTER TABLE cheks%'";
        QTRY_VERIFY(!(id = m_base.value(running)).isEmpty());
        m_base.exec("KILL QUERY " + id);
    });
    QCOMPARE(result.outcome, JobResult::Failed);
    QCOMPARE(added(), QStringList());
    QCOMPARE(m_base.heard.texts().size(), 1);
    QVERIFY(m_base.heard.texts().constFirst().startsWith("Помилка запиту:"));
    QVERIFY(m_base.heard.has("Query execution was interrupted"));
    QVERIFY(m_base.heard.has("ADD INDEX tune_kass_chek(id_kass,id_chek)"));
    QVERIFY(m_base.heard.all().constFirst().location.startsWith("In file: tab_table/db/tuning line:"));
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase("other");
}

QTEST_MAIN(TstTuning)
#include "tst_tuning.moc"
