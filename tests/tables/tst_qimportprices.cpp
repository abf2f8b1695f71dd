#include "qimportprices.h"

#include "listpane.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabgoods.h"
#include "qtablebase.h"
#include "workplace.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTextCodec>

/// A price list on its way into the goods, with bad records, other programs and a failing server in between.
class TstQImportPrices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void fileIsLookedAtBeforeAnything();
    void importWritesWhatWasShown();
    void statementsAreAsOthersKnowThem();
    void questionsKeepThings();
    void whatOthersDoMeanwhile();
    void priceThatWasTheSame();
    void failureLeavesEverything_data();
    void failureLeavesEverything();
    void lostConnectionWritesOnce_data();
    void lostConnectionWritesOnce();
    void spoiltImportIsRepeated();
    void stoppedImportHasWrittenNothing();
    void whileItRunsNothingChangesIt();
    void longFilesAreOneTransaction();
    void stoppedAndBrokenFilesAreTold();
    void goodsTabImportsAndFollows();

private:
    void openFile(const QByteArray &bytes, const CsvForm &wanted = CsvForm());
    /// Presses "Імпортувати", answers the questions, two at most, and waits for the end; their texts.
    QString import(bool accept = true);
    void press(const char *button) { child<QPushButton>(m_dialog.get(), button)->click(); }
    QString text(const char *label) const { return plain(child<QLabel>(m_dialog.get(), label)->text()); }
    QStringList rows(const char *list) const;
    QStringList goods() { return m_place->base.rows(m_goods); }
    static QString plain(QString text) { return text.replace(QChar(0xA0), ' '); }

    const QString m_goods = "SELECT goods.id,GROUP_CONCAT(shtrihcod ORDER BY shtrihcod SEPARATOR ','),name,"
                            "price FROM goods LEFT JOIN dk_shc ON id_goods=id GROUP BY goods.id";
    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QImportPrices> m_dialog;
    QTemporaryDir m_folder;
};

void TstQImportPrices::init()
{
    m_place->clear();
    m_place->base.exec({"ALTER TABLE goods AUTO_INCREMENT=100",
                        "INSERT INTO goods(id,name,price,type,group_g,tax,block) VALUES"
                        "(7,'Молоко',1000,1,1,1,0),(8,'Хліб',2000,1,1,1,0),(9,'Без ціни',NULL,1,1,1,0)",
                        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000017'),"
                        "(8,'4820000000024'),(8,'0000000012348'),(9,'00012348')",
                        "UPDATE updat SET updat='2020-01-01' WHERE name IN ('goods','dk_shc')"});
    m_place->logIn(Permission::Goods);
}

void TstQImportPrices::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    waitOutJobs();
    m_dialog.reset();
    waitOutTasks();
    m_place->base.heard.forget();
}

void TstQImportPrices::openFile(const QByteArray &bytes, const CsvForm &wanted)
{
    QFile file(m_folder.filePath("prices.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    m_dialog = std::make_unique<QImportPrices>(m_place->connection(), m_place->user(), &m_place->base.heard,
                                               nullptr);
    m_dialog->setFileChooser([this](const QString &name) { return m_folder.filePath(name); });
    QVERIFY(showActive(m_dialog.get()));
    m_dialog->open(file.fileName(), wanted);
    waitOutJobs();
}

QString TstQImportPrices::import(bool accept)
{
    QString texts;
    const QString other =
        answerConfirm([&] { texts = answerConfirm([&] { press("pbImport"); }, accept); }, accept);
    waitOutJobs();
    return texts + other;
}

QStringList TstQImportPrices::rows(const char *list) const
{
    const QRowModel *model = child<ListPane>(m_dialog.get(), list)->model();
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(plain(model->stored(row, column)));
        all.append(cells.join('|'));
    }
    return all;
}

void TstQImportPrices::fileIsLookedAtBeforeAnything()
{
    const QStringList before = goods();
    openFile(
        QTextCodec::codecForName("Windows-1251")
            ->fromUnicode(QStringLiteral("Сир «Їжак»\t4820000000031\t45,5\r\nМолоко\t4820000000017\t12\r\n"
                                         "Хліб\t482000000002\t3\r\n")));
    QCOMPARE(rows("listFirst"),
             QStringList({"1|Сир «Їжак»|4820000000031|45,5|новий товар, ціна 45.50",
                          "2|Молоко|4820000000017|12|ціна 10.00 → 12.00",
                          "3|Хліб|482000000002|3|Штрихкод <> 13 та <> 8: знаків у ньому 12"}));
    QCOMPARE(rows("listRefused"),
             QStringList("3|Хліб | 482000000002 | 3|Штрихкод <> 13 та <> 8: знаків у ньому 12"));
    QCOMPARE(
        text("labelCounts"),
        QStringLiteral("Записів: 3. Нових товарів: 1, нова ціна: 1, ціна та сама: 0. Не імпортуються: 1."));
    auto *encoding = child<QComboBox>(m_dialog.get(), "cbEncoding");
    auto *separator = child<QComboBox>(m_dialog.get(), "cbSeparator");
    QCOMPARE(encoding->currentText(), QStringLiteral("Windows-1251"));
    QCOMPARE(separator->currentData().toChar(), QChar('\t'));

    encoding->setFocus();
    pressKeys({Qt::Key_Up});
    waitOutJobs();
    QVERIFY(rows("listFirst").first().contains("немає у вибраному кодуванні"));
    pressKeys({Qt::Key_Down, Qt::Key_Tab, Qt::Key_Up});
    waitOutJobs();
    QCOMPARE(separator->currentData().toChar(), QChar(';'));
    QCOMPARE(rows("listRefused").size(), 3);
    QVERIFY(!child<QPushButton>(m_dialog.get(), "pbImport")->isEnabled());
    QVERIFY(text("labelResult").contains("немає нічого"));
    QCOMPARE(goods(), before);
}

void TstQImportPrices::importWritesWhatWasShown()
{
    openFile(
        "\xef\xbb\xbf"
        "Сир 'Пирят\\ин';4820000000031;45.5\r\nМолоко;4820000000017;12,5\r\n"
        "Хліб;0000000012348;20\r\nНуль;4820000000024;0\r\n12;12;12\r\nСир;4820000000031;46\r\nа;б\r\n\r\n");
    // What is written is what was shown, whatever becomes of the file.
    QFile::remove(m_folder.filePath("prices.csv"));
    const QString questions = import();
    QVERIFY2(
        questions.contains(
            "Перевірте чи відповідає файл наступним вимогам.\nФайл повинен бути формату *.csv з символом "
            "розділення колонок ;\nПовинен складатися з 3-ох колонок:\n1-ша Назва товару, 2-га штрихкод "
            "EAN13 товару, 3-тя ціна товару в грн в цифровому форматі\nДані повинні починатись з першого "
            "рядка, без заголовка таблиці.\nПродовжити імпорт?"),
        qPrintable(questions));
    QVERIFY2(questions.contains("Записів, які не імпортуються: 3 з 7.\n\nПродовжити?"),
             qPrintable(questions));
    QCOMPARE(goods(), QStringList({"7|4820000000017|Молоко|1250", "8|0000000012348,4820000000024|Хліб|2000",
                                   "9|00012348|Без ціни|", "100|4820000000031|Сир 'Пирят\\ин'|4600"}));
    QCOMPARE(m_place->base.rows("SELECT type,group_g,tax,block FROM goods WHERE id=100"),
             QStringList("1|1|5|0"));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM updat WHERE updat>'2020-01-01' AND name IN "
                                 "('goods','dk_shc')"),
             QStringLiteral("2"));
    QCOMPARE(text("labelResult"),
             QStringLiteral("Товарів оновлено: 3, з них ціна та сама: 1\nТоварів нових: 1\nПомилкових "
                            "штрихкодів: 1\nЗаписів з невірною кількістю колонок: 1\nЗаписів з нульовою "
                            "ціною: 1"));
    QVERIFY(!child<QPushButton>(m_dialog.get(), "pbImport")->isEnabled());
    QVERIFY(m_place->base.heard.has("Товарів нових: 1", 3));
    QCOMPARE(m_place->base.heard.texts(), QStringList());

    press("pbSaveRefused");
    waitOutJobs();
    QFile csv(m_folder.filePath("prices – відмови.csv"));
    QVERIFY(csv.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(csv.readAll()).split('\n');
    QCOMPARE(lines.at(0), QStringLiteral("Номер запису;Запис;Причина"));
    QCOMPARE(lines.at(3), QStringLiteral("7;а | б;Невірна кількість колонок: 2"));
    QCOMPARE(lines.size(), 5);
}

void TstQImportPrices::statementsAreAsOthersKnowThem()
{
    openFile("Сир;96385074;45.5\nМолоко;4820000000017;12\nХліб;0000000012348;21\n");
    Sent sent;
    import();
    QCOMPARE(sent.containing("INSERT INTO"),
             QStringList({"INSERT INTO goods(type,group_g,tax,block,price,name) VALUES(1,1,5,0,4550,'Сир')",
                          "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(LAST_INSERT_ID(),'96385074')"}));
    QCOMPARE(sent.containing("UPDATE goods"),
             QStringList("UPDATE goods SET price=CASE WHEN id=7 THEN 1200 WHEN id=8 THEN 2100 ELSE price END "
                         "WHERE id IN (7,8)"));
    QCOMPARE(sent.containing("TRANSACTION").size() + sent.containing("COMMIT").size(), 2);

    // The same again: nothing is there to be written.
    openFile("Молоко;4820000000017;12\n");
    QVERIFY(!child<QPushButton>(m_dialog.get(), "pbImport")->isEnabled());
    QCOMPARE(text("labelResult"), QStringLiteral("У файлі немає нічого, що змінило б товари."));
}

void TstQImportPrices::questionsKeepThings()
{
    const QStringList before = goods();
    openFile("Молоко;4820000000017;1200\n");
    QVERIFY(import(false).contains("Продовжити імпорт?"));
    QCOMPARE(goods(), before);
    const QString asked = import();
    QVERIFY2(asked.contains("Цін, які зміняться в 10 і більше разів: 1."), qPrintable(asked));
    QCOMPARE(m_place->base.value("SELECT price FROM goods WHERE id=7"), QStringLiteral("120000"));
}

/// Between the look and the writing: prices, new barcodes and barcodes that go.
void TstQImportPrices::whatOthersDoMeanwhile()
{
    openFile("Молоко;4820000000017;12\nХліб;4820000000024;21\nБез ціни;00012348;3\nСир;4820000000031;45\n"
             "Сік;4820000000048;30\n");
    bool isDone = false;
    const Sent sent([&](const QString &sql) {
        if (!sql.startsWith("START TRANSACTION") || std::exchange(isDone, true))
            return;
        m_place->base.execElsewhere("UPDATE goods SET price=1100 WHERE id=7");
        m_place->base.execElsewhere("DELETE FROM dk_shc WHERE shtrihcod='00012348'");
        m_place->base.execElsewhere("INSERT INTO goods(id,name,price,type,group_g,tax,block) "
                                    "VALUES(50,'Чужий сир',1,1,1,1,0)");
        m_place->base.execElsewhere("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(50,'4820000000031')");
    });
    import();
    QCOMPARE(goods(),
             QStringList({"7|4820000000017|Молоко|1200", "8|0000000012348,4820000000024|Хліб|2100",
                          "9||Без ціни|", "50|4820000000031|Чужий сир|4500", "100|4820000000048|Сік|3000"}));
    const QString summary = text("labelResult");
    QVERIFY2(summary.startsWith("Товарів оновлено: 3\nТоварів нових: 1\n"), qPrintable(summary));
    QVERIFY2(
        summary.endsWith("Цін, які тим часом змінили інші (записано ціну з файла): 1\n"
                         "Нових штрихкодів, які тим часом додали інші (їх товару записано ціну з файла): 1\n"
                         "Штрихкодів, які тим часом вилучили інші (пропущено): 1"),
        qPrintable(summary));
    QCOMPARE(rows("listRefused"), QStringList("3|00012348|цей штрихкод щойно вилучено з бази"));
}

/// It is what the file says, too, when others change it after the look.
void TstQImportPrices::priceThatWasTheSame()
{
    openFile("Молоко;4820000000017;10\nХліб;4820000000024;21\n");
    bool isDone = false;
    const Sent sent([&](const QString &sql) {
        if (sql.startsWith("START TRANSACTION") && !std::exchange(isDone, true))
            m_place->base.execElsewhere("UPDATE goods SET price=1500 WHERE id=7");
    });
    import();
    QCOMPARE(m_place->base.rows("SELECT id,price FROM goods WHERE id IN (7,8)"),
             QStringList({"7|1000", "8|2100"}));
    QVERIFY2(text("labelResult").endsWith("Цін, які тим часом змінили інші (записано ціну з файла): 1"),
             qPrintable(text("labelResult")));
}

void TstQImportPrices::failureLeavesEverything_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("a price") << "UPDATE goods";
    QTest::newRow("the second item") << "'Сік'";
    QTest::newRow("its barcode") << "'4820000000048'";
    QTest::newRow("the tracker") << "updat";
    QTest::newRow("the commit") << "COMMIT";
}

void TstQImportPrices::failureLeavesEverything()
{
    QFETCH(QString, statement);
    const QStringList before = goods();
    openFile("Молоко;4820000000017;12\nСир;4820000000031;45\nСік;4820000000048;30\n");
    const int tableIsFull = 1114;
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.contains(statement) && !sql.contains("SELECT") ? tableIsFull : 0;
    });
    import();
    QCOMPARE(goods(), before);
    QCOMPARE(text("labelResult"), QStringLiteral("Імпорт не вдався, у базу нічого не записано."));
    QVERIFY(m_place->base.heard.has("Refused", 1));
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM updat WHERE updat>'2020-01-01' AND name='goods'"),
             QStringLiteral("0"));

    // What was shown is still there to be imported.
    Db::setStatementRefusal({});
    import();
    QCOMPARE(goods().size(), 5);
    QVERIFY(text("labelResult").startsWith("Товарів оновлено: 1\nТоварів нових: 2"));
}

void TstQImportPrices::lostConnectionWritesOnce_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<bool>("isWritten");
    QTest::addColumn<QByteArray>("file");
    const QByteArray both = "Молоко;4820000000017;12\nСир;4820000000031;45\n";
    QTest::newRow("at the start") << "START TRANSACTION" << false << both;
    QTest::newRow("in the middle") << "INSERT INTO dk_shc" << false << both;
    QTest::newRow("before the commit") << "COMMIT" << false << both;
    QTest::newRow("the answer to the commit") << "COMMIT" << true << both;
    QTest::newRow("the answer, prices alone") << "COMMIT" << true << both.left(both.indexOf('\n'));
}

void TstQImportPrices::lostConnectionWritesOnce()
{
    QFETCH(QString, statement);
    QFETCH(bool, isWritten);
    QFETCH(QByteArray, file);
    openFile(file);
    bool isLost = false;
    Sent sent([&](const QString &sql) {
        if (!sql.startsWith(statement) || std::exchange(isLost, true))
            return;
        if (isWritten)
            commitHere();
        m_place->base.killConnection();
    });
    import();
    const bool hasNew = file.contains("4820000000031");
    QVERIFY2(text("labelResult")
                 .startsWith(hasNew ? "Товарів оновлено: 1\nТоварів нових: 1"
                                    : "Товарів оновлено: 1\nТоварів нових: 0"),
             qPrintable(text("labelResult")));
    QCOMPARE(m_place->base.rows("SELECT price FROM goods WHERE id=7 OR id>=100 ORDER BY id"),
             hasNew ? QStringList({"1200", "4500"}) : QStringList("1200"));
    QCOMPARE(sent.containing("UPDATE goods").size(), isWritten || statement == "START TRANSACTION" ? 1 : 2);
}

void TstQImportPrices::spoiltImportIsRepeated()
{
    openFile("Молоко;4820000000017;12\nСир;4820000000031;45\n");
    QAtomicInt refusals;
    const int deadlock = 1213;
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.startsWith("INSERT INTO dk_shc") && refusals.fetchAndAddRelaxed(1) < 2 ? deadlock : 0;
    });
    import();
    QCOMPARE(m_place->base.rows("SELECT name,price FROM goods WHERE id=7 OR id>=100 ORDER BY id"),
             QStringList({"Молоко|1200", "Сир|4500"}));
    QCOMPARE(m_place->base.heard.texts(), QStringList());
}

namespace {
/// Barcodes 2000000000005, 2000000000012… with their check digits.
QByteArray manyRecords(int count)
{
    QByteArray file;
    for (int i = 0; i < count; ++i) {
        const QByteArray data = QByteArray::number(200000000000LL + i);
        int sum = 0;
        for (int at = 0; at < 12; ++at)
            sum += (data.at(at) - '0') * (at % 2 == 0 ? 1 : 3);
        file += "Товар " + QByteArray::number(i) + ';' + data + QByteArray::number((10 - sum % 10) % 10) +
                ";1" + QByteArray::number(i % 10) + ",50\r\n";
    }
    return file;
}
} // namespace

void TstQImportPrices::stoppedImportHasWrittenNothing()
{
    const QStringList before = goods();
    openFile("Молоко;4820000000017;12\n" + manyRecords(3000));
    QAtomicInt inserts;
    QElapsedTimer sinceStop;
    {
        const Sent sent([&](const QString &sql) {
            if (!sql.startsWith("INSERT INTO goods") || inserts.fetchAndAddRelaxed(1) != 1500)
                return;
            QMetaObject::invokeMethod(
                m_dialog.get(),
                [&] {
                    sinceStop.start();
                    press("pbStop");
                },
                Qt::BlockingQueuedConnection);
        });
        import();
    }
    QVERIFY2(sinceStop.elapsed() < 1500, qPrintable(QString::number(sinceStop.elapsed())));
    QCOMPARE(text("labelResult"), QStringLiteral("Імпорт зупинено, у базу нічого не записано."));
    QCOMPARE(goods(), before);
    QCOMPARE(m_place->base.heard.texts(), QStringList());
    import();
    QCOMPARE(m_place->base.value("SELECT COUNT(*) FROM goods"), QStringLiteral("3003"));
    QCOMPARE(m_place->base.value(
                 "SELECT COUNT(*) FROM dk_shc WHERE shtrihcod IN ('2000000000008','2000000029993')"),
             QStringLiteral("2"));
}

void TstQImportPrices::whileItRunsNothingChangesIt()
{
    openFile("Молоко;4820000000017;12\n");
    m_place->base.exec({"START TRANSACTION", "UPDATE goods SET name='Молоко!' WHERE id=7"});
    answerConfirm([&] { press("pbImport"); }, true);
    for (const char *input : {"cbEncoding", "cbSeparator", "pbImport", "pbClose"})
        QVERIFY2(!child<QWidget>(m_dialog.get(), input)->isEnabled(), input);
    QVERIFY(child<QProgressBar>(m_dialog.get(), "progressWork")->isVisible());
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    m_dialog->close();
    QVERIFY(m_dialog->isVisible());
    QVERIFY(text("labelResult").contains("Імпорт ще триває"));
    m_place->base.exec("COMMIT");
    waitOutJobs();
    QVERIFY(text("labelResult").startsWith("Товарів оновлено: 1"));
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_place->base.value("SELECT CONCAT(name,price) FROM goods WHERE id=7"),
             QStringLiteral("Молоко!1200"));
}

void TstQImportPrices::longFilesAreOneTransaction()
{
    const int count = 12000;
    const QByteArray file = manyRecords(count);
    QStringList items;
    QStringList codes;
    for (const QByteArray &record : file.split('\n')) {
        const QByteArrayList fields = record.split(';');
        const int id = 1000 + items.size();
        if (fields.size() != 3)
            continue;
        items.append(QString("(%1,'а',%2,1,1,1,0)").arg(id).arg(id % 2 == 0 ? 1 : 1050));
        codes.append(QString("(%1,'%2')").arg(id).arg(QLatin1String(fields.at(1))));
    }
    m_place->base.exec({"INSERT INTO goods(id,name,price,type,group_g,tax,block) VALUES" + items.join(','),
                        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES" + codes.join(',')});
    openFile(file);
    QCOMPARE(rows("listFirst").size(), 50);
    QVERIFY(text("labelCounts").endsWith("Показано перші 50."));
    Sent sent;
    import();
    QCOMPARE(sent.containing("UPDATE goods").size(), 2);
    QCOMPARE(sent.containing("TRANSACTION").size() + sent.containing("COMMIT").size(), 2);
    // 10.50 to 19.50, each as often as any other.
    QCOMPARE(
        m_place->base.value("SELECT SUM(price) FROM goods WHERE id>=1000"),
        QString::number(count / 10 * (1050 + 1150 + 1250 + 1350 + 1450 + 1550 + 1650 + 1750 + 1850 + 1950)));
}

void TstQImportPrices::stoppedAndBrokenFilesAreTold()
{
    openFile("Молоко;4820000000017;12\n");
    auto *separator = child<QComboBox>(m_dialog.get(), "cbSeparator");
    separator->setCurrentIndex(1);
    press("pbStop");
    QCOMPARE(text("labelCounts"), QStringLiteral("Читання файла скасовано."));
    QVERIFY(!child<QPushButton>(m_dialog.get(), "pbImport")->isEnabled());
    separator->setCurrentIndex(0);
    waitOutJobs();
    QCOMPARE(rows("listFirst").size(), 1);
    openFile("");
    QCOMPARE(text("labelCounts"), QStringLiteral("Файл порожній."));
    openFile(QByteArray("\0\1\2", 3));
    QVERIFY(text("labelCounts").startsWith("Це не текстовий файл."));
    QVERIFY(!child<QPushButton>(m_dialog.get(), "pbImport")->isEnabled());
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

/// By the host, as the menu does.
void TstQImportPrices::goodsTabImportsAndFollows()
{
    QFile file(m_folder.filePath("prices.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("Cheese|4820000000031|45\n") > 0);
    file.close();
    const int viewOnly = 2;
    for (const int right : {viewOnly, static_cast<int>(Permission::Full)}) {
        m_place->logIn(Permission::Goods, right);
        QTabWidget tabs;
        QTableBase host(&tabs, m_place->connection(), m_place->settings(), m_place->user(),
                        &m_place->base.heard);
        tabs.show();
        QVERIFY(!host.import_csv(QString(), file.fileName()));
        host.Goods();
        QTab *goodsTab = host.tab("mt_goods");
        QTRY_VERIFY(!goodsTab->isLoading());
        if (right == viewOnly) {
            QVERIFY(!host.import_csv(QString(), file.fileName()));
            continue;
        }
        QVERIFY(withModal<QImportPrices>(
            [&] { QVERIFY(host.import_csv("cp1251", file.fileName(), '\t')); },
            [&](QImportPrices *dialog) {
                waitOutJobs();
                QCOMPARE(child<QComboBox>(dialog, "cbEncoding")->currentIndex(), 1);
                answerConfirm([&] { child<QPushButton>(dialog, "pbImport")->click(); }, true);
                waitOutJobs();
                QTRY_VERIFY(!goodsTab->isLoading());
                QVERIFY2(goodsTab->list()->indexOf("100").isValid(), "the list behind shows the new item");
                QTest::keyClick(dialog, Qt::Key_Escape);
            }));
    }
}

QTEST_MAIN(TstQImportPrices)
#include "tst_qimportprices.moc"
