#include "testing.h"

#include "launch.h"

#include <QTemporaryDir>

/// Outside programs: which command line is started, and what is told when it is not.
class TstLaunch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { setProgramStarter({}); }

    void addressIsPutIn_data();
    void addressIsPutIn();
    void wrongAddressStartsNothing_data();
    void wrongAddressStartsNothing();
    void emptyPathDoesNothing();
    void failureIsTold();
    void realProgramRuns();

private:
    QStringList m_started;
};

void TstLaunch::init()
{
    m_started.clear();
    setProgramStarter([this](const QString &program, const QStringList &arguments) {
        m_started = QStringList(program) + arguments;
        return true;
    });
}

void TstLaunch::addressIsPutIn_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("param");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QStringList>("started");
    QTest::newRow("twice") << "/opt/v"
                           << "-h [{IP}] http://[{IP}]/"
                           << "10.0.0.1" << QStringList{"/opt/v", "-h", "10.0.0.1", "http://10.0.0.1/"};
    QTest::newRow("in the path") << "/opt/[{IP}]/v"
                                 << ""
                                 << "10.0.0.1" << QStringList{"/opt/10.0.0.1/v"};
    QTest::newRow("leading zeros") << "/opt/v"
                                   << "[{IP}]"
                                   << "010.000.0.08" << QStringList{"/opt/v", "10.0.0.8"};
    QTest::newRow("blanks in the path") << "/opt/my viewer/v"
                                        << "-f \"a b\""
                                        << "10.0.0.1" << QStringList{"/opt/my viewer/v", "-f", "a b"};
    QTest::newRow("quotes in the path") << "/opt/\"my viewer\"/v\""
                                        << "\"\"\"a\"\"\""
                                        << "" << QStringList{"/opt/\"my viewer\"/v\"", "\"a\""};
    QTest::newRow("of another system")
        << "C:\\Program Files\\v.exe"
        << "\\\\[{IP}]\\c$ /x"
        << "10.0.0.1" << QStringList{"C:\\Program Files\\v.exe", "\\\\10.0.0.1\\c$", "/x"};
    QTest::newRow("no place, no address") << "/opt/v"
                                          << "-a 1,2"
                                          << "..." << QStringList{"/opt/v", "-a", "1,2"};
}

void TstLaunch::addressIsPutIn()
{
    QFETCH(QString, path);
    QFETCH(QString, param);
    QFETCH(QString, address);
    QVERIFY(launchProgram(nullptr, nullptr, {path, param}, address));
    QTEST(m_started, "started");
}

void TstLaunch::wrongAddressStartsNothing_data()
{
    QTest::addColumn<QString>("address");
    for (const char *address : {"", "...", "1", "10.1", "10.0.0", "10.0.0.256", "10.0.0.1.2", "10.0.0.x",
                                "10.0.0.-1", "10.0.0.0001", "10.0..1", "10.0.0.1; reboot", "::1", "10.0.0.٣"})
        QTest::newRow(address) << QString::fromUtf8(address);
}

void TstLaunch::wrongAddressStartsNothing()
{
    QFETCH(QString, address);
    Heard heard;
    const QString told = answerQuestion([&] {
        QVERIFY(!launchProgram(nullptr, &heard, {"/opt/v", "[{IP}]"}, address));
    });
    QCOMPARE(told, QString("Помилка в IP адресі"));
    QVERIFY(heard.has("Помилка в IP адресі"));
    QVERIFY2(heard.texts().isEmpty(), "an error would be shown a second time");
    QCOMPARE(m_started, QStringList());
}

void TstLaunch::emptyPathDoesNothing()
{
    Heard heard;
    QVERIFY(!launchProgram(nullptr, &heard, {"", "[{IP}]"}, "x"));
    QCOMPARE(m_started, QStringList());
    QVERIFY(heard.all().isEmpty());
}

void TstLaunch::failureIsTold()
{
    setProgramStarter({});
    const QTemporaryDir directory;
    const QString missing = directory.filePath("немає такої");
    QCOMPARE(answerQuestion([&] {
                 QVERIFY(!launchProgram(nullptr, nullptr, {missing, ""}, ""));
             }),
             "Не вірний шлях до програми:" + missing + ".");
    QFile file(directory.filePath("not a program"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(answerQuestion([&] {
                 QVERIFY(!launchProgram(nullptr, nullptr, {file.fileName(), ""}, ""));
             }),
             QString("Помилка запуску зовнішньої програми."));
    QCOMPARE(answerQuestion([&] {
                 QVERIFY(!launchProgram(nullptr, nullptr, {directory.path(), ""}, ""));
             }),
             QString("Помилка запуску зовнішньої програми."));
}

void TstLaunch::realProgramRuns()
{
    setProgramStarter({});
    const QTemporaryDir directory;
    const QString mark = directory.filePath("mark of [{IP}]");
    QVERIFY(launchProgram(nullptr, nullptr, {"/bin/touch", '"' + mark + '"'}, "10.0.0.7"));
    QTRY_VERIFY(QFile::exists(directory.filePath("mark of 10.0.0.7")));
}

QTEST_MAIN(TstLaunch)
#include "tst_launch.moc"
