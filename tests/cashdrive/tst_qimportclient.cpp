#include "qimportclient.h"

#include "clientimport.h"
#include "dbffile.h"
#include "dbtasks.h"
#include "heartbeat.h"
#include "listpane.h"
#include "qdbfmodel.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "tcpproxy.h"
#include "workplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

/// Cards of a DBF file on their way into the clients, with bad records, other programs and a failing server
/// in between.
class TstQImportClient : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void saysWhyItDoesNotStart();
    void fileIsShownBeforeAnything();
    void statementsAreAThousandCards();
    void importedTwiceChangesNothing();
    void codeTwiceInTheFileAndOnTrial();
    void badRecordsAreListed();
    void refusedFitTheWindow();
    void unknownLevelsAreAsked();
    void stopInTheMiddleKeepsWhatIsWritten();
    void lostConnectionCountsOnce_data();
    void lostConnectionCountsOnce();
    void failedBatchLosesItsOwnRows();
    void spoiltBatchIsRepeated();
    void whileItRunsNothingChangesIt();
    void viewersOnlyTry();
    void rightThatGoesDuringAQuestion();
    void serverThatIsNotThere();
    void serverGoesForAWhile();
    void silentServerIsLeft();
    void sumsComeFromTheLevels();
    void sumsAreSetWholeOrNotAtAll();

private:
    /// Reads a file in the page; its group is 2.
    void openFile(const QByteArray &bytes);
    void press(const char *button) { child<QPushButton>(m_page.get(), button)->click(); }
    /// Presses "Старт" and waits for the end.
    void import();
    QString result() const { return plainBlanks(child<QLabel>(m_page.get(), "labelResult")->text()); }
    QStringList refused() const;
    QStringList cards()
    {
        return m_place->base.rows("SELECT id,id_procent,group_shop FROM clients ORDER BY id");
    }
    /// Groups of thousands are parted by a blank that does not break.
    static QString plainBlanks(QString text)
    {
        return text.replace(QChar(0xA0), ' ').replace(QChar(0x202F), ' ');
    }

    struct DistantPage;

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QImportClient> m_page;
    QTemporaryDir m_folder;
};

namespace {
QByteArray manyCards(int count, int level = 2)
{
    CardsDbf file;
    for (int i = 0; i < count; ++i)
        file.card(QByteArray::number(2200000001U + static_cast<uint>(i)), QByteArray::number(level));
    return file.bytes();
}

const QString insertStart = QStringLiteral("INSERT IGNORE INTO clients(id,id_procent,group_shop) VALUES");
} // namespace

/// The page at a server behind a proxy.
struct TstQImportClient::DistantPage
{
    DistantPage(TstQImportClient *test, TcpProxy *proxy) : m_test(test)
    {
        DatabaseAddress address = proxy->address();
        address.name = test->m_place->base.address().name;
        m_db = addConnection(QStringLiteral("distant"), address);
        test->m_page = std::make_unique<QImportClient>(&m_db, test->m_place->user(),
                                                       &test->m_place->base.heard, nullptr);
        test->m_page->show();
    }
    ~DistantPage()
    {
        waitOutJobs();
        waitOutTasks();
        m_test->m_page.reset();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("distant"));
    }
    Q_DISABLE_COPY(DistantPage)

private:
    TstQImportClient *m_test;
    QSqlDatabase m_db;
};

void TstQImportClient::initTestCase()
{
    m_place = std::make_unique<Workplace>();
}

void TstQImportClient::cleanupTestCase()
{
    m_place.reset();
}

void TstQImportClient::init()
{
    m_place->base.exec({"DELETE FROM clients", "DELETE FROM procent",
                        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'0',0,0,1,0),"
                        "(2,'п''ять',500,123450,1,0),(3,'7',700,200000,1,0),(4,'10',1000,NULL,0,0),"
                        "(5,'15',1500,2000000000,1,0)"});
    m_place->logIn(Permission::ClientImport);
    m_page = std::make_unique<QImportClient>(m_place->connection(), m_place->user(), &m_place->base.heard,
                                             nullptr);
    QVERIFY(showActive(m_page.get()));
}

void TstQImportClient::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    waitOutJobs();
    m_page.reset();
    waitOutTasks();
    m_place->base.heard.forget();
}

void TstQImportClient::openFile(const QByteArray &bytes)
{
    const QString path = writeFile(m_folder.filePath("cards.dbf"), bytes);
    m_page->setFileChoosers([path](const QString &) { return path; },
                            [this](const QString &name) { return m_folder.filePath(name); });
    press("pbChoose");
    waitOutJobs();
    child<QLineEdit>(m_page.get(), "leGroup")->setText("2");
}

void TstQImportClient::import()
{
    press("pbStart");
    waitOutJobs();
}

QStringList TstQImportClient::refused() const
{
    const QRowModel *model = m_page->list()->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(
            QStringList{model->stored(row, 0), model->stored(row, 1), model->stored(row, 2)}.join('|'));
    return rows;
}

void TstQImportClient::saysWhyItDoesNotStart()
{
    const auto start = [this] { press("pbStart"); };
    QVERIFY(answerQuestion(start).contains("Файл не вибрано. Виберіть файл для імпорту."));
    openFile(DbfMaker({{"A", 'C', 5}, {"CODE", 'C', 10}}).add({"1", "2"}).bytes());
    QVERIFY(answerQuestion(start).contains("Вибраний файл має неправильну структуру!"));
    openFile(CardsDbf().bytes());
    QVERIFY(answerQuestion(start).contains("У файлі немає записів."));
    openFile(manyCards(3));
    auto *group = child<QLineEdit>(m_page.get(), "leGroup");
    group->clear();
    QVERIFY(answerQuestion(start).contains("код групи магазинів"));
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    group->setFocus();
    typeText("7x8");
    QCOMPARE(group->text(), QStringLiteral("78"));
    QTRY_COMPARE(child<QLabel>(m_page.get(), "labelGroup")->text(),
                 QStringLiteral("такої групи магазинів немає"));
    QVERIFY(answerQuestion([this] { import(); }).contains("Групи магазинів 78 немає"));
    QCOMPARE(cards(), QStringList());
    group->setText("3");
    QTRY_COMPARE(child<QLabel>(m_page.get(), "labelGroup")->text(), QStringLiteral("Схід"));
}

void TstQImportClient::fileIsShownBeforeAnything()
{
    CardsDbf file;
    file.card("2200000001", "2").card("2200000002", "3", '*');
    const QString path =
        writeFile(m_folder.filePath("typed.dbf"), file.bytes().left(32 + 5 * 32 + 1 + 52 + 20));
    child<QLineEdit>(m_page.get(), "leFile")->setFocus();
    typeText(path);
    pressKeys({Qt::Key_Return});
    waitOutJobs();
    const auto *model = child<QNTableView>(m_page.get(), "view")->model();
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->headerData(2, Qt::Horizontal).toString(), QStringLiteral("CODE C(12)"));
    QCOMPARE(model->index(0, 3).data().toString().trimmed(), QStringLiteral("Їжак"));
    QCOMPARE(model->index(1, 0).data().toString(), QStringLiteral("*"));
    QCOMPARE(child<QLabel>(m_page.get(), "labelFile")->text(),
             QStringLiteral("Записів: 2, полів: 6. Останній запис неповний."));
    QVERIFY(child<QLabel>(m_page.get(), "labelTime")->text().startsWith("Час виконання:"));
    QVERIFY(m_place->base.heard.has("Час виконання:", 3));
    auto *codePage = child<QComboBox>(m_page.get(), "cbCodePage");
    QCOMPARE(codePage->itemText(1), QStringLiteral("IBM866"));
    codePage->setCurrentText("UTF-8");
    QVERIFY(model->index(0, 3).data().toString().contains(QChar::ReplacementCharacter));

    // Another path, and no Enter: whatever is pressed then, it is not the file of before that is imported.
    child<QLineEdit>(m_page.get(), "leGroup")->setText("2");
    const QString other = writeFile(m_folder.filePath("other.dbf"), manyCards(3));
    auto *field = child<QLineEdit>(m_page.get(), "leFile");
    field->setFocus();
    field->selectAll();
    typeText(other);
    QVERIFY(answerQuestion([this] { press("pbStart"); }).contains("Файл ще читається."));
    waitOutJobs();
    QCOMPARE(model->rowCount(), 3);
    QVERIFY(showActive(m_page.get()));
    field->setFocus();
    field->selectAll();
    typeText(path);
    pressKeys({Qt::Key_Tab});
    waitOutJobs();
    QCOMPARE(model->rowCount(), 2);

    openFile("no such file");
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(child<QLabel>(m_page.get(), "labelFile")->text(),
             QStringLiteral("DBF file type not supported!"));
    QVERIFY(m_place->base.heard.has("DBF file type not supported!", 1));
    QCOMPARE(cards(), QStringList());
}

void TstQImportClient::statementsAreAThousandCards()
{
    m_place->base.exec("INSERT INTO clients(id,id_procent,group_shop) VALUES(2200000001,1,1)");
    openFile(CardsDbf().card(" 2200000001 ", "2").card("0000000007", " 3").bytes());
    {
        Sent sent;
        import();
        QCOMPARE(sent.containing("INSERT"), QStringList(insertStart + "(2200000001,2,2),(7,3,2)"));
        QCOMPARE(sent.containing("UPDATE clients"),
                 QStringList("UPDATE clients SET id_procent=2 WHERE id=2200000001"));
    }
    QCOMPARE(cards(), QStringList({"7|3|2", "2200000001|2|1"}));

    openFile(manyCards(2500));
    Sent sent;
    import();
    QVector<int> sizes;
    for (const QString &sql : sent.containing(insertStart))
        sizes.append(sql.count("),") + 1);
    QCOMPARE(sizes, QVector<int>({1000, 1000, 500}));
    QCOMPARE(result(),
             QStringLiteral("Додано карток: 2 499, підвищено знижку: 0, залишено як є: 1, відмовлено: 0."));
    QCOMPARE(
        m_place->base.value("SELECT COUNT(*) FROM clients WHERE id_procent=2 AND group_shop=2 AND summ=0"),
        QStringLiteral("2499"));
    QCOMPARE(m_place->base.heard.texts(), QStringList());
}

void TstQImportClient::importedTwiceChangesNothing()
{
    m_place->base.exec(
        {"INSERT INTO clients(id,id_procent,group_shop,summ) VALUES(10,3,1,77),(11,3,1,78),(12,3,1,79)",
         "UPDATE updat SET updat='2020-01-01' WHERE name='clients'"});
    openFile(CardsDbf().card("10", "2").card("11", "5").card("12", "3", '*').card("13", "4").bytes());
    import();
    const QStringList expected{"10|3|1", "11|5|1", "12|3|1", "13|4|2"};
    QCOMPARE(cards(), expected);
    QCOMPARE(result(),
             QStringLiteral("Додано карток: 1, підвищено знижку: 1, залишено як є: 2, відмовлено: 0.\n"
                            "Записів з позначкою вилучення: 1 – вони імпортуються, як і решта."));
    QVERIFY(m_place->base.value("SELECT updat>'2020-01-01' FROM updat WHERE name='clients'") == "1");
    const QString all = "SELECT * FROM clients ORDER BY id";
    const QStringList before = m_place->base.rows(all);
    m_place->base.exec("UPDATE updat SET updat='2020-01-01' WHERE name='clients'");
    import();
    QCOMPARE(m_place->base.rows(all), before);
    QVERIFY(result().startsWith("Додано карток: 0, підвищено знижку: 0, залишено як є: 4, відмовлено: 0."));
    QVERIFY2(m_place->base.value("SELECT updat='2020-01-01' FROM updat WHERE name='clients'") == "1",
             "nothing has changed for those who look at the clients");
}

/// The second record is held against what the first has made of the card, in one batch and over two of them.
void TstQImportClient::codeTwiceInTheFileAndOnTrial()
{
    m_place->base.exec("INSERT INTO clients(id,id_procent,group_shop) VALUES(20,2,1)");
    CardsDbf file;
    file.card("10", "2").card("20", "3").card("10", "5").card("10", "3").card("20", "2").card("20", "4");
    for (int i = 0; i < 1000; ++i)
        file.card(QByteArray::number(1000 + i), "1");
    file.card("10", "4").card("1000", "3");
    openFile(file.bytes());
    child<QCheckBox>(m_page.get(), "chTrial")->setChecked(true);
    {
        Sent sent;
        import();
        for (const char *writing : {"INSERT", "UPDATE", "START TRANSACTION"})
            QCOMPARE(sent.containing(writing), QStringList());
    }
    QCOMPARE(cards(), QStringList("20|2|1"));
    QCOMPARE(result(), QStringLiteral("Пробний запуск, у базу нічого не записано. Буде додано карток: 1 001, "
                                      "підвищено знижку: 4, залишиться як є: 3, відмовлено: 0."));
    child<QCheckBox>(m_page.get(), "chTrial")->setChecked(false);
    import();
    QCOMPARE(result(),
             QStringLiteral("Додано карток: 1 001, підвищено знижку: 4, залишено як є: 3, відмовлено: 0."));
    QCOMPARE(m_place->base.rows("SELECT id,id_procent FROM clients WHERE id_procent>1 ORDER BY id"),
             QStringList({"10|5", "20|4", "1000|3"}));
}

void TstQImportClient::badRecordsAreListed()
{
    CardsDbf file;
    file.card("", "2").card("12a", "2").card("0", "2").card("4294967296", "2").card("999999999999", "2");
    file.card("4294967295", "2").card("13", "").card("14", "5.00").card("1;\n2", "2").card("1'--", "2");
    file.card("-5", "2").card("15", "2").card("16", "2");
    // The last record ends within its code.
    openFile(file.bytes().chopped(1 + 5 + 8 + 20 + 11));
    import();
    QCOMPARE(
        refused(),
        QStringList({"1||код порожній", "2|12a|у коді не лише цифри", "3|0|код не від 1 до 4294967295",
                     "4|4294967296|код не від 1 до 4294967295", "5|999999999999|код не від 1 до 4294967295",
                     "7|13|знижку не вказано", "8|14|знижка – не номер рівня", "9|1, 2|у коді не лише цифри",
                     "10|1'--|у коді не лише цифри", "11|-5|у коді не лише цифри", "13|1|запис обірвано"}));
    QCOMPARE(cards(), QStringList({"15|2|2", "4294967295|2|2"}));
    QVERIFY(result().startsWith("Додано карток: 2, підвищено знижку: 0, залишено як є: 0, відмовлено: 11."));
    QVERIFY(child<QWidget>(m_page.get(), "refusedPart")->isVisible());

    press("pbSaveRefused");
    waitOutJobs();
    QFile csv(m_folder.filePath("cards – відмови.csv"));
    QVERIFY(csv.open(QIODevice::ReadOnly));
    const QByteArrayList lines = csv.readAll().split('\n');
    QCOMPARE(QString::fromUtf8(lines.at(0)), QStringLiteral("Номер запису;Код;Причина"));
    QCOMPARE(QString::fromUtf8(lines.at(2)), QStringLiteral("2;12a;у коді не лише цифри"));
    QCOMPARE(lines.size(), 13);
}

/// Also when the window was wider the last time.
void TstQImportClient::refusedFitTheWindow()
{
    for (const int width : {1600, 1000}) {
        m_page.reset();
        m_page = std::make_unique<QImportClient>(m_place->connection(), m_place->user(), &m_place->base.heard,
                                                 nullptr);
        m_page->resize(width, 600);
        QVERIFY(showActive(m_page.get()));
        openFile(CardsDbf().card("0", "2").bytes());
        import();
        QCOMPARE(refused().size(), 1);
        const auto *bar = m_page->list()->view()->horizontalScrollBar();
        QTRY_COMPARE(bar->maximum(), 0);
        QVERIFY(m_page->list()->view()->columnWidth(2) > width / 2);
    }
}

void TstQImportClient::unknownLevelsAreAsked()
{
    openFile(
        CardsDbf().card("10", "2").card("11", "9").card("12", "77").card("13", "9").card("1", "5").bytes());
    QString asked = answerConfirm([this] { import(); }, false);
    QVERIFY2(asked.contains("9 (записів: 2), 77 (записів: 1)"), qPrintable(asked));
    QVERIFY2(asked.contains("код 1") || asked.contains("кодом 1"), qPrintable(asked));
    QCOMPARE(cards(), QStringList());
    QCOMPARE(refused(), QStringList({"2|11|рівня знижки 9 немає у базі", "3|12|рівня знижки 77 немає у базі",
                                     "4|13|рівня знижки 9 немає у базі"}));
    asked = answerConfirm([this] { import(); }, true);
    waitOutJobs();
    QCOMPARE(cards(), QStringList({"1|5|2", "10|2|2"}));
    QCOMPARE(refused().size(), 3);
}

void TstQImportClient::stopInTheMiddleKeepsWhatIsWritten()
{
    openFile(manyCards(5000));
    int inserts = 0;
    QElapsedTimer sinceStop;
    const Sent sent([&](const QString &sql) {
        if (!sql.startsWith(insertStart) || ++inserts != 3)
            return;
        QMetaObject::invokeMethod(
            m_page.get(),
            [&] {
                sinceStop.start();
                press("pbStop");
            },
            Qt::BlockingQueuedConnection);
    });
    import();
    QVERIFY2(sinceStop.elapsed() < 1500, qPrintable(QString::number(sinceStop.elapsed())));
    const int written = m_place->base.value("SELECT COUNT(*) FROM clients").toInt();
    QVERIFY2(written == 2000 || written == 3000, qPrintable(QString::number(written)));
    const QString thousands = QString::number(written / 1000);
    QCOMPARE(result(),
             QString("Додано карток: %1 000, підвищено знижку: 0, залишено як є: 0, відмовлено: 0.\n"
                     "Імпорт не закінчено, не оброблено записів: %2 000. Записане досі залишилося; "
                     "повторний імпорт його не змінить.")
                 .arg(thousands)
                 .arg(5 - written / 1000));
    QCOMPARE(m_place->base.heard.texts(), QStringList());
    import();
    QVERIFY(result().contains(QString("залишено як є: %1 000").arg(thousands)));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM clients"), QStringLiteral("5000"));
}

void TstQImportClient::lostConnectionCountsOnce_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("before a batch") << QStringLiteral("START TRANSACTION") << false;
    QTest::newRow("within a batch") << insertStart << false;
    QTest::newRow("before the commit") << QStringLiteral("COMMIT") << false;
    QTest::newRow("the answer to the commit") << QStringLiteral("COMMIT") << true;
}

/// In the second of three batches, whose cards are partly there.
void TstQImportClient::lostConnectionCountsOnce()
{
    QFETCH(QString, statement);
    QFETCH(bool, isWritten);
    m_place->base.exec(
        "INSERT INTO clients(id,id_procent,group_shop) VALUES(2200001500,1,1),(2200001501,3,1)");
    openFile(manyCards(2500));
    int seen = 0;
    const Sent sent([&](const QString &sql) {
        if (!sql.startsWith(statement) || ++seen != 2)
            return;
        if (isWritten)
            commitHere();
        m_place->base.killConnection();
    });
    import();
    QCOMPARE(result(),
             QStringLiteral("Додано карток: 2 498, підвищено знижку: 1, залишено як є: 1, відмовлено: 0."));
    QCOMPARE(m_place->base.rows("SELECT id_procent,COUNT(*) FROM clients GROUP BY id_procent"),
             QStringList({"2|2499", "3|1"}));
}

void TstQImportClient::failedBatchLosesItsOwnRows()
{
    openFile(manyCards(2500));
    const int tableIsFull = 1114;
    Db::setStatementRefusal([](const QString &sql) {
        return sql.startsWith(insertStart) && sql.contains("2200001500,") ? tableIsFull : 0;
    });
    import();
    QVERIFY2(result().startsWith(
                 "Додано карток: 1 500, підвищено знижку: 0, залишено як є: 0, відмовлено: 1 000."),
             qPrintable(result()));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM clients"), QStringLiteral("1500"));
    QCOMPARE(refused().size(), 1000);
    QVERIFY(refused().first().startsWith("1001|2200001001|не записано: "));
    QCOMPARE(m_place->base.heard.texts().size(), 1);
    QVERIFY(m_place->base.heard.has("Помилка запиту:", 1));
}

/// What another program spoils is tried again and told to nobody; what it takes away is refused.
void TstQImportClient::spoiltBatchIsRepeated()
{
    openFile(manyCards(1500));
    QAtomicInt refusals;
    const int deadlock = 1213;
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.startsWith(insertStart) && refusals.fetchAndAddRelaxed(1) < 2 ? deadlock : 0;
    });
    import();
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM clients"), QStringLiteral("1500"));
    QCOMPARE(m_place->base.heard.texts(), QStringList());

    // A level that goes between check and writing: the server would drop its cards without an error.
    openFile(manyCards(3, 3));
    m_place->base.exec("DELETE FROM clients");
    Db::setStatementRefusal({});
    bool isDeleted = false;
    const Sent sent([&](const QString &sql) {
        if (sql.startsWith("START TRANSACTION") && !std::exchange(isDeleted, true))
            m_place->base.execElsewhere("DELETE FROM procent WHERE id=3");
    });
    import();
    QVERIFY2(refused().size() == 3 && refused().first().contains("щойно вилучено"), qPrintable(result()));
    QCOMPARE(cards(), QStringList());
}

void TstQImportClient::whileItRunsNothingChangesIt()
{
    openFile(manyCards(1500));
    m_place->base.exec("INSERT INTO clients(id,id_procent,group_shop) VALUES(2200000001,1,1)");
    m_place->base.exec({"START TRANSACTION", "UPDATE clients SET summ=summ+1 WHERE id=2200000001"});
    press("pbStart");
    QTRY_VERIFY(!child<QPushButton>(m_page.get(), "pbChoose")->isEnabled());
    QTest::qWait(300);
    QVERIFY(m_page->isLoading());
    for (const char *input : {"leFile", "leGroup", "chTrial", "pbSetSums"})
        QVERIFY2(!child<QWidget>(m_page.get(), input)->isEnabled(), input);
    QVERIFY(answerQuestion([this] { press("pbStart"); }).contains("Процес імпорту вже запущений."));
    bool closes = true;
    QVERIFY(answerQuestion([&] { closes = m_page->mayClose(); }).contains("Імпорт ще триває"));
    QVERIFY(!closes);
    auto *progress = child<QProgressBar>(m_page.get(), "progressWork");
    QVERIFY(progress->isVisible());
    QCOMPARE(plainBlanks(progress->text()), QStringLiteral("0 з 1 500"));
    m_place->base.exec("COMMIT");
    waitOutJobs();
    QVERIFY(result().startsWith("Додано карток: 1 499, підвищено знижку: 1,"));
    QVERIFY(m_page->mayClose() && !progress->isVisible());
    QVERIFY(m_place->base.heard.has("Час виконання:", 3));
}

void TstQImportClient::viewersOnlyTry()
{
    const int viewOnly = 2;
    m_page.reset();
    m_place->logIn(Permission::ClientImport, viewOnly);
    m_page = std::make_unique<QImportClient>(m_place->connection(), m_place->user(), &m_place->base.heard,
                                             nullptr);
    openFile(manyCards(3));
    QVERIFY(answerQuestion([this] { press("pbStart"); }).contains("право лише на пробний запуск"));
    QVERIFY(answerQuestion([this] { press("pbSetSums"); }).contains("немає права"));
    child<QCheckBox>(m_page.get(), "chTrial")->setChecked(true);
    import();
    QVERIFY(result().contains("Буде додано карток: 3,"));
}

void TstQImportClient::rightThatGoesDuringAQuestion()
{
    m_place->base.exec("INSERT INTO clients(id,id_procent,group_shop) VALUES(12,3,1)");
    openFile(CardsDbf().card("10", "2").card("11", "9").bytes());
    for (const char *button : {"pbStart", "pbSetSums"}) {
        QVERIFY(m_place->user()->loadpermis(m_place->connection(), "admin", ""));
        const auto start = [&] {
            QTimer::singleShot(0, m_page.get(), [this] { m_place->user()->clear(); });
            press(button);
            waitOutJobs();
        };
        const QString why = answerQuestion([&] { answerConfirm(start, true); });
        QVERIFY2(why.contains(QStringLiteral("прав")), qPrintable(why));
        waitOutJobs();
        QCOMPARE(m_place->base.rows("SELECT id,summ FROM clients"), QStringList("12|0"));
    }
}

/// The job connects by itself: the window's connection may be long lost.
void TstQImportClient::serverThatIsNotThere()
{
    TcpProxy proxy(testServer());
    const DistantPage distant(this, &proxy);
    proxy.setDown(true);
    openFile(manyCards(3));
    import();
    QVERIFY(result().contains("Помилка з'єднання з БД."));
    QVERIFY(m_place->base.heard.has("Помилка з'єднання з БД.", 1));
}

void TstQImportClient::serverGoesForAWhile()
{
    TcpProxy proxy(testServer());
    const DistantPage distant(this, &proxy);
    openFile(manyCards(2500));
    int inserts = 0;
    const Sent sent([&](const QString &sql) {
        if (sql.startsWith(insertStart) && ++inserts == 2)
            proxy.setDown(true);
    });
    press("pbStart");
    QTRY_VERIFY(child<QLabel>(m_page.get(), "labelStage")->text().contains("зв'язок втрачено"));
    QTest::qWait(700);
    proxy.setDown(false);
    waitOutJobs();
    QCOMPARE(result(),
             QStringLiteral("Додано карток: 2 500, підвищено знижку: 0, залишено як є: 0, відмовлено: 0."));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM clients"), QStringLiteral("2500"));
}

void TstQImportClient::silentServerIsLeft()
{
    TcpProxy proxy(testServer());
    const DistantPage distant(this, &proxy);
    openFile(manyCards(2500));
    QAtomicInt inserts;
    const Sent sent([&](const QString &sql) {
        if (sql.startsWith(insertStart) && inserts.fetchAndAddRelaxed(1) == 2)
            proxy.setSilent(true);
    });
    Heartbeat heart;
    press("pbStart");
    QTRY_COMPARE(inserts.loadRelaxed(), 3);
    QTest::qWait(300);
    QElapsedTimer sinceStop;
    sinceStop.start();
    press("pbStop");
    waitOutJobs();
    QVERIFY2(sinceStop.elapsed() < 1500, qPrintable(QString::number(sinceStop.elapsed())));
    QVERIFY2(heart.longestGap() < 300, qPrintable(QString::number(heart.longestGap())));
    QVERIFY2(result().startsWith("Додано карток: 2 000,") && result().contains("не оброблено записів: 500"),
             qPrintable(result()));
    proxy.setSilent(false);
    QTRY_COMPARE(m_place->base.value("SELECT COUNT(*) FROM clients"), QStringLiteral("2000"));
}

void TstQImportClient::sumsComeFromTheLevels()
{
    m_place->base.exec(
        "INSERT INTO clients(id,id_procent,group_shop) VALUES(10,2,1),(11,2,1),(12,3,1),(13,4,1),"
        "(14,5,1),(15,1,1)");
    const QString all = "SELECT id,summ,fiksed FROM clients ORDER BY id";
    const QStringList before = m_place->base.rows(all);
    QVERIFY(!answerConfirm([this] { press("pbSetSums"); }, false).isEmpty());
    QCOMPARE(m_place->base.rows(all), before);
    QVERIFY(!answerConfirm([this] { press("pbSetSums"); }, true).isEmpty());
    waitOutJobs();
    const QStringList expected{"10|123450|0", "11|123450|0",     "12|200000|0",
                               "13|0|1",      "14|2000000000|0", "15|0|0"};
    QCOMPARE(m_place->base.rows(all), expected);
    QCOMPARE(result(), QStringLiteral("Суми встановлено карткам: 4; знижку зафіксовано карткам: 1."));

    m_place->base.exec("UPDATE procent SET sum=1");
    answerConfirm([this] { press("pbSetSums"); }, true);
    waitOutJobs();
    QCOMPARE(m_place->base.rows(all), expected);
    QCOMPARE(m_place->base.heard.texts(), QStringList("В таблиці вже є не нульові суми!"));
    QCOMPARE(result(), QStringLiteral("В таблиці вже є не нульові суми!"));
}

void TstQImportClient::sumsAreSetWholeOrNotAtAll()
{
    m_place->base.exec("INSERT INTO clients(id,id_procent,group_shop) VALUES(10,2,1),(12,3,1),(13,4,1)");
    const auto setSums = [this] {
        answerConfirm([this] { press("pbSetSums"); }, true);
        waitOutJobs();
    };
    Db::setStatementRefusal([](const QString &sql) { return sql.contains("WHERE id_procent=4") ? 1205 : 0; });
    setSums();
    const QString all = "SELECT id,summ,fiksed FROM clients ORDER BY id";
    QCOMPARE(m_place->base.rows(all), QStringList({"10|0|0", "12|0|0", "13|0|0"}));
    QVERIFY(m_place->base.heard.has("Помилка запиту:", 1));
    Db::setStatementRefusal({});
    m_place->base.heard.forget();

    m_place->base.exec(
        {"SET foreign_key_checks=0", "DELETE FROM procent WHERE id=3", "SET foreign_key_checks=1"});
    setSums();
    QCOMPARE(m_place->base.heard.texts(),
             QStringList("Таблиця транзакцій містить не всі знижки які присутні в таблиці клієнтів!"));
    QCOMPARE(m_place->base.rows(all), QStringList({"10|0|0", "12|0|0", "13|0|0"}));
}

QTEST_MAIN(TstQImportClient)
#include "tst_qimportclient.moc"
