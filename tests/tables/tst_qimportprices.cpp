#include "qimportprices.h"

#include "heartbeat.h"
#include "listpane.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabgoods.h"
#include "qtablebase.h"
#include "tcpproxy.h"
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

QTEST_MAIN(TstQImportPrices)
#include "tst_qimportprices.moc"
