#include "tcpproxy.h"
#include "testing.h"

#include "databasestart.h"
#include "qmessevent.h"
#include "schema.h"
#include "tunecommand.h"
#include "veltab.h"

#include <QSignalSpy>
#include <QTemporaryDir>

/// What the program does with the database before a window needs it, and without one.
class TstDatabaseStart : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void silentServerIsLeftAtOnce();
    void tablesWithoutTransactionsAreNamed();
    void tuneCommandDoesWhatItIsTold();

private:
    int tune(const QStringList &options);
    QString indexes();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TstDatabaseStart::init()
{
    m_base = std::make_unique<FreshDatabase>();
    m_folder = std::make_unique<QTemporaryDir>();
}

void TstDatabaseStart::cleanup()
{
    m_folder.reset();
    m_base.reset();
}

void TstDatabaseStart::silentServerIsLeftAtOnce()
{
    TcpProxy proxy(testServer());
    proxy.setSilent(true);
    writeSettings(m_folder->path(), proxy.address());
    auto window = std::make_unique<Veltab>(m_folder->path());
    window->show();
    QTest::qWait(100);
    QElapsedTimer clock;
    clock.start();
    window.reset();
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
}

void TstDatabaseStart::tablesWithoutTransactionsAreNamed()
{
    const auto connectOnce = [&] {
        QSqlDatabase db = addConnection(QStringLiteral("start"), m_base->address());
        Job job(
            QString(), QString(),
            [&](JobContext &context) { return connectToDatabase(context, db, m_base->address()); },
            &m_base->heard);
        QSignalSpy finished(&job, &Job::finished);
        job.start();
        QVERIFY(finished.wait());
    };
    connectOnce();
    QSqlDatabase::removeDatabase("start");
    QCOMPARE(m_base->heard.texts(QMessEvent::Warning), QStringList());
    m_base->exec({"SET foreign_key_checks=0", "DROP TABLE goods_shop",
                  "CREATE TABLE goods_shop(id_shop INT) ENGINE=MyISAM"});
    connectOnce();
    QSqlDatabase::removeDatabase("start");
    QCOMPARE(m_base->heard.texts(QMessEvent::Warning).size(), 1);
    QVERIFY(m_base->heard.has("Таблиці goods_shop (MyISAM) зроблено без транзакцій", QMessEvent::Warning));
}

int TstDatabaseStart::tune(const QStringList &options)
{
    return runTuneCommand(m_folder->path(), QStringList{"veltab", "--tune-database"} + options);
}

QString TstDatabaseStart::indexes()
{
    return m_base->value("SELECT COUNT(DISTINCT INDEX_NAME) FROM INFORMATION_SCHEMA.STATISTICS WHERE "
                         "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks' AND INDEX_NAME LIKE 'tune%'");
}

/// Each line: what is asked, the exit code, how many indexes stand afterwards.
void TstDatabaseStart::tuneCommandDoesWhatItIsTold()
{
    writeSettings(m_folder->path(), m_base->address());
    const struct
    {
        QStringList options;
        int code;
        const char *indexes;
    } calls[] = {
        {{"--yes"}, 0, "0"},
        {{"--remove", "--yes"}, 0, "0"},
        {{"--add", "--remove", "--yes"}, 3, "0"},
        {{"--ad", "--yes"}, 3, "0"},
        {{"--add", "--yes"}, 0, "2"},
        {{"--add", "--yes"}, 0, "2"},
        {{"--yes"}, 0, "2"},
        {{"--remove", "--yes"}, 0, "0"},
        {{"--remove", "--yes"}, 0, "0"},
    };
    for (const auto &call : calls) {
        QCOMPARE(tune(call.options), call.code);
        QCOMPARE(indexes(), QString(call.indexes));
    }
    m_base->exec("CREATE INDEX tune_kass_chek ON cheks(id_kass,id_chek)");
    QCOMPARE(tune({"--remove", "--yes"}), 0);
    QCOMPARE(indexes(), QString("0"));
}

QTEST_MAIN(TstDatabaseStart)
#include "tst_databasestart.moc"
