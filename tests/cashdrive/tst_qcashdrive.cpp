#include "playedserver.h"
#include "workplace.h"

#include "autostart.h"
#include "job.h"
#include "listpane.h"
#include "placeselector.h"
#include "qcashdrive.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qrowmodel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QThread>
#include <QTimeEdit>
#include <atomic>

/// The page of the exchange, by hands in a hurry and by the clock.
class TstQCashDrive : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void offersThePlacesOfTheUser();
    void refusesInWords_data();
    void refusesInWords();
    void startedTwiceRunsOnce();
    void leftOutIsListedAndSaved();
    void closingAsks();
    void lookingOnlyStartsNothing();
    void clockTellsOnceADay_data();
    void clockTellsOnceADay();
    void clockStartsARunAndSkipsAnother();
    void tickAndLastStartAreRemembered();

private:
    QStringList items(const char *box) { return itemsOf(child<QComboBox>(m_page.get(), box)); }
    static QStringList itemsOf(const QComboBox *box);
    void choose(const char *box, const QString &text);
    void openPage();
    /// Runs do not end before m_mayEnd.
    void holdRuns();
    QString text(const char *label) { return child<QLabel>(m_page.get(), label)->text(); }
    template<typename T>
    T *in(const char *name)
    {
        return child<T>(m_page.get(), name);
    }
    void pressStart() { QTest::mouseClick(in<QPushButton>("pbStart"), Qt::LeftButton); }

    std::unique_ptr<Workplace> m_workplace;
    std::unique_ptr<QTemporaryDir> m_data;
    std::unique_ptr<QCashDrive> m_page;
    Played m_played;
    std::atomic<bool> m_mayEnd{true};
};

void TstQCashDrive::initTestCase()
{
    m_data = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", m_data->path().toLocal8Bit());
    m_workplace = std::make_unique<Workplace>();
    m_workplace->base.exec(QStringList{
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0)",
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Спільна, 1',1,0),(2,'Львівська, 2',2,0),"
        "(3,'Харківська, 3',3,0),(4,'Закрита, 4',2,1),(5,'Чужа, 5',4,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,cashdrive_code,block) VALUES(11,1,'Каса 1','001',0),"
        "(21,2,'Каса 1','002',0),(22,2,'Каса 2','003',1),(23,2,'Каса 3','000',0),(24,2,'Каса 4',NULL,0)"});
    m_workplace->base.exec(QStringList{"INSERT INTO goods(id,name,group_g) VALUES(1,'Сир',1)",
                                       "INSERT INTO clients(id,id_procent,group_shop) VALUES(5,1,2)"});
}

void TstQCashDrive::cleanupTestCase()
{
    m_workplace.reset();
}

void TstQCashDrive::init()
{
    m_played = Played();
    m_workplace->logIn(Permission::RegisterServer);
    m_workplace->base.exec("DELETE FROM cd_cheks");
    openPage();
}

void TstQCashDrive::cleanup()
{
    m_mayEnd = true;
    waitOutJobs();
    child<QCheckBox>(m_page.get(), "chAutoStart")->setChecked(false);
    m_page.reset();
}

void TstQCashDrive::openPage()
{
    m_page = std::make_unique<QCashDrive>(m_workplace->connection(), m_workplace->user(),
                                          &m_workplace->base.heard, m_workplace->settings(), nullptr);
    m_page->setServer(playing(&m_played));
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    waitOutTasks();
    m_workplace->base.heard.forget();
}

void TstQCashDrive::holdRuns()
{
    m_mayEnd = false;
    m_played.meanwhile = [this] {
        while (!m_mayEnd)
            QThread::msleep(5);
    };
}

QStringList TstQCashDrive::itemsOf(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}

void TstQCashDrive::choose(const char *box, const QString &text)
{
    in<QComboBox>(box)->setCurrentIndex(in<QComboBox>(box)->findText(text));
    QTRY_VERIFY(!m_page->isLoading());
}

void TstQCashDrive::offersThePlacesOfTheUser()
{
    QCOMPARE(m_page->windowTitle(), QString("Передача в CashDrive"));
    QCOMPARE(text("labelStatus"), QString("Зв'язок з БД \nне встановлено!"));
    QCOMPARE(items("cbArticles"), (QStringList{" Не передавати", "Оновити", "Замінити"}));
    QCOMPARE(items("cbGroup"), (QStringList{"Усі групи", "Захід", "Схід"}));
    choose("cbGroup", "Захід");
    QCOMPARE(items("cbShop"), (QStringList{"Усі магазини", "Спільна, 1", "Львівська, 2"}));
    choose("cbShop", "Львівська, 2");
    QCOMPARE(items("cbRegister"), (QStringList{"Усі каси", "Каса 1"}));
    // Sums can be left out only where transactions are read.
    QVERIFY(in<QCheckBox>("chWithoutSums")->isEnabled() && !in<QCheckBox>("chOnlyChanged")->isEnabled());
    QTest::mouseClick(in<QCheckBox>("chRead"), Qt::LeftButton, {},
                      QPoint(8, in<QCheckBox>("chRead")->height() / 2));
    QVERIFY(!in<QCheckBox>("chWithoutSums")->isEnabled());
}

void TstQCashDrive::refusesInWords_data()
{
    QTest::addColumn<QStringList>("unticked");
    QTest::addColumn<bool>("hasServer");
    QTest::addColumn<QString>("words");
    QTest::newRow("no library") << QStringList() << false
                                << "Бібліотека для роботи з сервером CASHDRIVE існує тільки для windows";
    QTest::newRow("nothing to do") << QStringList{"chFetch", "chRead"} << true
                                   << "Позначте, що передати або отримати.";
    QTest::newRow("cards of no group")
        << QStringList{"chClients"} << true << "Виберіть групу: на каси записуються картки її клієнтів.";
}

void TstQCashDrive::refusesInWords()
{
    QFETCH(const QStringList, unticked);
    QFETCH(const bool, hasServer);
    QFETCH(const QString, words);
    for (const QString &box : unticked)
        child<QCheckBox>(m_page.get(), box)->toggle();
    if (!hasServer)
        m_page->setServer(platformRegisterServer);
    pressStart();
    QVERIFY2(m_workplace->base.heard.has(words), qPrintable(words));
    QVERIFY(!m_page->isRunning() && RunningJobs::all().jobs().isEmpty());
    QCOMPARE(m_played.opened, 0);
}

void TstQCashDrive::startedTwiceRunsOnce()
{
    holdRuns();
    in<QPushButton>("pbStart")->setFocus();
    QTest::keyClick(m_page.get(), Qt::Key_Space);
    pressKeys({Qt::Key_Space, Qt::Key_Space});
    m_page->start();
    QCOMPARE(RunningJobs::all().jobs().size(), 1);
    QTRY_COMPARE(text("labelStatus"), QString("Зєднання з БД всановлено."));
    QTRY_COMPARE(text("labelStage"), QString("Зєднання з CashDrive."));
    QVERIFY(!in<QPushButton>("pbStart")->isEnabled() && !in<QCheckBox>("chFetch")->isEnabled() &&
            in<QPushButton>("pbStop")->isEnabled());
    m_mayEnd = true;
    waitOutJobs();
    QTRY_VERIFY(!m_page->isRunning());
    QCOMPARE(m_played.opened, 1);
    QVERIFY(in<QPushButton>("pbStart")->isEnabled() && !in<QPushButton>("pbStop")->isEnabled());
    QCOMPARE(text("labelStatus"), QString("Зв'язок з БД \nне встановлено!"));
    QCOMPARE(text("labelResult"), QString("Дозвін завершено."));
}

void TstQCashDrive::leftOutIsListedAndSaved()
{
    m_played.readings["002"] = {{{1, 1000, 100, 5, 2026, 3, 2}, {77, 1000, 0, 0, 2026, 3, 2}}};
    pressStart();
    waitOutJobs();
    QTRY_COMPARE(in<ListPane>("listRefused")->model()->rowCount(), 1);
    QVERIFY2(text("labelResult").contains("не враховано: 1"), qPrintable(text("labelResult")));
    QString path = m_data->filePath("refused.csv");
    m_page->chooseFile = [&path](const QString &) { return path; };
    QTest::mouseClick(in<QPushButton>("pbSaveRefused"), Qt::LeftButton);
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()),
             QString("Номер запису;Товар або картка;Причина\n2;каса 002, товар 77;Товару немає в базі.\n"));
    QCOMPARE(m_workplace->base.value("SELECT summ FROM clients WHERE id=5"), QString("100"));
    // The next run begins with an empty list.
    pressStart();
    QCOMPARE(in<ListPane>("listRefused")->model()->rowCount(), 0);
    QVERIFY(!in<QPushButton>("pbSaveRefused")->isEnabled());
}

void TstQCashDrive::closingAsks()
{
    holdRuns();
    QVERIFY(m_page->mayClose());
    pressStart();
    QTRY_COMPARE(text("labelStage"), QString("Зєднання з CashDrive."));
    bool closes = true;
    const QString question = answerConfirm([&] { closes = m_page->mayClose(); }, false);
    QVERIFY2(question.startsWith("Дозвін триває."), qPrintable(question));
    QVERIFY(!closes && !RunningJobs::all().jobs().constFirst()->isCancelled());
    answerConfirm([&] { closes = m_page->mayClose(); }, true);
    QVERIFY(closes && RunningJobs::all().jobs().constFirst()->isCancelled());
    // The page goes while the library still holds the run.
    openPage();
    m_mayEnd = true;
    waitOutJobs();
    QVERIFY(!m_page->isRunning());
}

void TstQCashDrive::lookingOnlyStartsNothing()
{
    m_workplace->logIn(Permission::RegisterServer, 2);
    openPage();
    QVERIFY(!in<QPushButton>("pbStart")->isEnabled() && !in<QCheckBox>("chAutoStart")->isEnabled());
    m_page->start();
    QVERIFY(!m_page->isRunning());
}

void TstQCashDrive::clockTellsOnceADay_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QStringList>("looks");
    QTest::addColumn<QString>("told");
    // Switched on at the first moment for 03:00; the minutes at which it told.
    const QString never;
    QTest::newRow("before") << never
                            << QStringList{"23 02:59", "23 02:59", "23 03:00", "23 03:01", "23 23:59"}
                            << "23 03:00";
    QTest::newRow("behind") << never
                            << QStringList{"23 03:00", "23 03:01", "23 23:59", "24 02:59", "24 03:00"}
                            << "24 03:00";
    QTest::newRow("started after midnight")
        << "22 03:00" << QStringList{"23 00:10", "23 03:00", "24 03:00"} << "23 03:00,24 03:00";
    QTest::newRow("told today already")
        << "23 01:00" << QStringList{"23 02:00", "23 03:00", "24 03:00"} << "24 03:00";
    QTest::newRow("slept over it") << never << QStringList{"23 02:00", "23 09:30", "23 09:31", "24 03:00"}
                                   << "23 09:30,24 03:00";
    QTest::newRow("slept for days") << never << QStringList{"23 02:00", "26 01:00", "26 02:59", "27 03:00"}
                                    << "26 01:00,27 03:00";
    // The clock goes from 02:59 to 04:00, and from 03:59 back to 03:00.
    QTest::newRow("summer time") << never << QStringList{"29 02:59", "29 04:00", "29 04:01"} << "29 04:00";
    QTest::newRow("wrong clock set right")
        << never << QStringList{"08 12:00", "28 12:00", "09 02:00", "09 03:00"} << "28 12:00,09 03:00";
    QTest::newRow("set back over midnight")
        << never << QStringList{"24 02:00", "24 03:00", "24 02:30", "23 23:30", "24 03:00", "25 03:00"}
        << "24 03:00,25 03:00";
    QTest::newRow("winter time") << never << QStringList{"25 02:59", "25 03:00", "25 03:00", "25 03:59"}
                                 << "25 03:00";
}

void TstQCashDrive::clockTellsOnceADay()
{
    QFETCH(const QString, last);
    QFETCH(const QStringList, looks);
    const auto moment = [](const QString &text) {
        return QDateTime(QDate(2026, 3, text.left(2).toInt()), QTime::fromString(text.mid(3), "HH:mm"),
                         Qt::UTC);
    };
    QDateTime now;
    QStringList told;
    AutoStart autoStart(nullptr);
    autoStart.setClock([&now] { return now; });
    if (!last.isEmpty())
        autoStart.setLast(moment(last));
    connect(&autoStart, &AutoStart::due, this, [&] {
        told.append(now.toString("dd HH:mm"));
        autoStart.setLast(now);
    });
    for (const QString &look : looks) {
        now = moment(look);
        if (!autoStart.isOn())
            autoStart.turnOn(QTime(3, 0));
        autoStart.look();
    }
    QTEST(told.join(','), "told");
    autoStart.turnOff();
    now = now.addDays(2);
    autoStart.look();
    QTEST(told.join(','), "told");
}

void TstQCashDrive::clockStartsARunAndSkipsAnother()
{
    holdRuns();
    QDateTime now(QDate(2026, 3, 2), QTime(2, 0));
    m_page->setClock([&now] { return now; });
    in<QTimeEdit>("teTime")->setTime(QTime(3, 0));
    in<QCheckBox>("chAutoStart")->click();
    QVERIFY2(text("labelNextStart").contains("02.03.2026 03:00"), qPrintable(text("labelNextStart")));
    m_page->autoStart()->look();
    QVERIFY(!m_page->isRunning());
    now = QDateTime(QDate(2026, 3, 2), QTime(3, 0));
    m_page->autoStart()->look();
    QVERIFY(m_page->isRunning());
    QVERIFY2(text("labelLastStart").contains("02.03.2026 03:00"), qPrintable(text("labelLastStart")));
    now = now.addDays(1);
    m_page->autoStart()->look();
    QVERIFY(m_workplace->base.heard.has("Автостарт дозвону пропущено", QMessEvent::Warning));
    QVERIFY2(text("labelLastStart").contains("02.03.2026 03:00"), "what was skipped has not started");
    QCOMPARE(RunningJobs::all().jobs().size(), 1);
    m_mayEnd = true;
    waitOutJobs();
    QCOMPARE(m_played.opened, 1);
}

void TstQCashDrive::tickAndLastStartAreRemembered()
{
    QDateTime now(QDate(2026, 5, 1), QTime(23, 0));
    m_page->setClock([&now] { return now; });
    in<QTimeEdit>("teTime")->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(in<QTimeEdit>("teTime")->hasFocus());
    typeText("2330");
    // A scanner sets no time.
    QTest::qWait(ScanPace::gapMs + 10);
    scan("4820000000017");
    QCOMPARE(in<QTimeEdit>("teTime")->time(), QTime(23, 30));
    in<QCheckBox>("chAutoStart")->click();
    now = now.addSecs(1800);
    m_page->autoStart()->look();
    waitOutJobs();
    // The program is started again after midnight.
    openPage();
    QVERIFY(in<QCheckBox>("chAutoStart")->isChecked());
    QCOMPARE(in<QTimeEdit>("teTime")->time(), QTime(23, 30));
    QVERIFY2(text("labelLastStart").contains("01.05.2026 23:30"), qPrintable(text("labelLastStart")));
    now = QDateTime(QDate(2026, 5, 2), QTime(0, 10));
    m_page->setClock([&now] { return now; });
    m_page->autoStart()->look();
    QVERIFY(!m_page->isRunning());
    now = QDateTime(QDate(2026, 5, 2), QTime(23, 31));
    m_page->autoStart()->look();
    QVERIFY(m_page->isRunning());
}

QTEST_MAIN(TstQCashDrive)
#include "tst_qcashdrive.moc"
