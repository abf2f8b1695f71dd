#include "qrowmodel.h"
#include "testing.h"

#include <QAbstractItemModelTester>
#include <QCollator>
#include <QHeaderView>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTableView>
#include <numeric>
#include <random>
#include <thread>

namespace {
QSqlQuery executed(FreshDatabase &database, const QString &sql, bool prepared = false)
{
    QSqlQuery query(*database.connection());
    const bool done = prepared ? query.prepare(sql) && query.exec() : query.exec(sql);
    if (!done)
        qFatal("%s", qPrintable(sql));
    return query;
}

QStringList storedColumn(const QRowModel &model, int column)
{
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list.append(model.stored(row, column));
    return list;
}

QStringList storedRow(const QRowModel &model, int row)
{
    QStringList list;
    for (int column = 0; column < model.columnCount(); ++column)
        list.append(model.stored(row, column));
    return list;
}

/// A model of one column with a serial number behind it, filled as a user's typing would.
void fillTexts(QRowModel *model, const CellFormat *format, const QStringList &texts)
{
    model->setColumns({{QStringLiteral("text"), 0, format}, {QStringLiteral("number"), 0, &asNumber}});
    QVERIFY(texts.isEmpty() || model->insertRows(0, texts.size()));
    for (int row = 0; row < texts.size(); ++row) {
        QVERIFY(model->setData(model->index(row, 0), texts.at(row)));
        QVERIFY(model->setData(model->index(row, 1), row));
    }
}

const auto oddRows = QStringLiteral(
    "SELECT CAST(1 AS UNSIGNED) AS id, CAST(NULL AS CHAR(10)) AS n, '' AS e, "
    "CAST('0000-00-00 00:00:00' AS DATETIME) AS zero, '0000-00-00' AS text_zero, 'їжак 🦔 ''\\\\' AS emoji, "
    "18446744073709551615 AS big, CAST('-12345678901234.50' AS DECIMAL(20,2)) AS money, "
    "CONCAT('a', CHAR(0), 'b') AS nul, REPEAT('ж', 40000) AS lengthy, TIME('101:02:03') AS t, "
    "CAST('2024-02-29 23:59:59' AS DATETIME) AS dt, CAST('2024-02-29' AS DATE) AS d, -5 AS negative "
    "UNION ALL SELECT 2, 'x', NULL, NULL, NULL, NULL, 0, 0, NULL, REPEAT('я', 100), NULL, NULL, NULL, NULL");
} // namespace

class TstQRowModel : public QObject
{
    Q_OBJECT

private slots:
    void oddValuesComeThrough_data();
    void oddValuesComeThrough();
    void columnsComeFromWhoeverNamesThem();
    void recordIsWrittenIntoItsRow();
    void formatsAreForShowingOnly();
    void rowsOfEveryLengthComeThrough();
    void textsSortLikeTheLocale();
    void sortsStablyByValue();
    void manyLongTextsSortLikeASimpleSort();
    void whatBelongsToARowStaysWithIt();
    void rowsComeAndGoAfterASort();
    void anotherThreadReads();
    void viewKeepsWorkingThroughReloads();

private:
    void compareWithASimpleSort(const QStringList &texts);
};

void TstQRowModel::oddValuesComeThrough_data()
{
    QTest::addColumn<bool>("prepared");
    QTest::newRow("stored result") << false;
    QTest::newRow("prepared statement") << true;
}

void TstQRowModel::oddValuesComeThrough()
{
    QFETCH(bool, prepared);
    FreshDatabase database(FreshDatabase::Empty);
    QSqlQuery query = executed(database, oddRows, prepared);
    QVERIFY(query.next()); // Where the query stands does not matter.
    QRowModel model;
    model.replaceRows(RowStore::read(query));

    QStringList expected{QStringLiteral("1"),
                         QString(),
                         QString(),
                         QString(),
                         QStringLiteral("0000-00-00"),
                         QStringLiteral("їжак 🦔 '\\"),
                         QStringLiteral("18446744073709551615"),
                         QStringLiteral("-12345678901234.50"),
                         QStringLiteral("a") + QChar(0) + QStringLiteral("b"),
                         QString(40000, QChar(0x436)),
                         QStringLiteral("101:02:03"),
                         QStringLiteral("2024-02-29 23:59:59"),
                         QStringLiteral("2024-02-29"),
                         QStringLiteral("-5")};
    if (prepared) // The driver ends such a text there.
        expected[8] = QStringLiteral("a");
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(storedRow(model, 0), expected);
    QCOMPARE(model.stored(1, 1), QStringLiteral("x"));
    QCOMPARE(model.stored(1, 9), QString(100, QChar(0x44f)));
    QCOMPARE(model.headerData(5, Qt::Horizontal).toString(), QStringLiteral("emoji"));

    QVERIFY(query.next()); // The query can still be read from its first record.
    QCOMPARE(query.value(0).toInt(), 1);
    QVERIFY(query.next());
    QCOMPARE(query.value(1).toString(), QStringLiteral("x"));
    QVERIFY(!query.next());
}

void TstQRowModel::columnsComeFromWhoeverNamesThem()
{
    FreshDatabase database(FreshDatabase::Empty);
    QRowModel model;
    model.insertColumns(0, 2);
    model.setHeaderData(0, Qt::Horizontal, QStringLiteral("Код"));
    QSqlQuery query = executed(database, QStringLiteral("SELECT 1 AS a, 2 AS b, 3 AS c"));
    model.replaceRows(RowStore::read(query));
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Код"));
    QCOMPARE(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("c"));
    QCOMPARE(model.headerData(0, Qt::Vertical).toInt(), 1);
    QVERIFY(!model.headerData(77, Qt::Vertical, Qt::DecorationRole).isValid());
    QVERIFY(!model.insertColumns(1, 1)); // The rows would show under wrong captions.
    QVERIFY(!model.removeColumns(0, 1));

    QSqlQuery narrow = executed(database, QStringLiteral("SELECT 7 AS a"));
    model.replaceRows(RowStore::read(narrow));
    QCOMPARE(storedRow(model, 0), QStringList({QStringLiteral("7"), QString(), QString()}));

    QSqlQuery none = executed(database, QStringLiteral("SELECT 7 AS a WHERE FALSE"));
    model.replaceRows(RowStore::read(none));
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 3);

    model.setColumns({{QStringLiteral("Ціна"), 0, &asMoney}});
    QCOMPARE(model.columnCount(), 1);
    model.replaceRows(RowStore::read(query));
    QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("0.01"));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    model.replaceRows(RowStore::read(query));
    QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("1"));
}

void TstQRowModel::recordIsWrittenIntoItsRow()
{
    FreshDatabase database(FreshDatabase::Empty);
    QSqlQuery query = executed(database, QStringLiteral("SELECT 10 AS id, 'a' AS name, 100 AS price "
                                                        "UNION ALL SELECT 20, 'b', 200"));
    QRowModel model;
    model.setColumns({{QStringLiteral("id")}, {QStringLiteral("name")}, {QStringLiteral("price")}});
    model.replaceRows(RowStore::read(query));
    model.sort(0, Qt::DescendingOrder);

    const auto updated =
        QStringLiteral("SELECT 99 AS id, REPEAT('є', 200) AS name, NULL AS price, 1 AS more");
    for (const bool prepared : {false, true}) {
        QSqlQuery record = executed(database, updated, prepared);
        const RowStore records = RowStore::read(record);
        model.writeRecord(records, 1, 1, 0); // There is no such record: nothing is written.
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.writeRecord(records, 0, 1, 0);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(0, 1));
        QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(0, 2));
        QCOMPARE(storedRow(model, 0),
                 QStringList({QStringLiteral("20"), QString(200, QChar(0x454)), QString()}));
        QCOMPARE(storedRow(model, 1),
                 QStringList({QStringLiteral("10"), QStringLiteral("a"), QStringLiteral("100")}));
    }
    model.insertRow(2);
    const RowStore both = RowStore::read(query);
    model.writeRecord(both, 1, 0, 2);
    QCOMPARE(storedRow(model, 2),
             QStringList({QStringLiteral("20"), QStringLiteral("b"), QStringLiteral("200")}));
    model.writeRecord(both, 1, 0, 3);
    QCOMPARE(model.rowCount(), 3);
}

void TstQRowModel::formatsAreForShowingOnly()
{
    struct Case
    {
        const CellFormat *format;
        const char *stored;
        QString shown;
        QString plain;
    };
    const QChar blank(0xa0);
    const Case cases[] = {
        {&asMoney, "123450", QStringLiteral("1") + blank + QStringLiteral("234.50"),
         QStringLiteral("1234.50")},
        {&asMoney, "-5", QStringLiteral("-0.05"), QStringLiteral("-0.05")},
        {&asMoney, "", QString(), QString()},
        {&asMoney, "багато", QStringLiteral("багато"), QStringLiteral("багато")},
        {&asQuantity, "2500", QStringLiteral("2.500"), QStringLiteral("2.500")},
        {&asRate, "2000", QStringLiteral("20.00"), QStringLiteral("20.00")},
        {&asNumber, "4820000000017", QStringLiteral("4820000000017"), QStringLiteral("4820000000017")},
        {&asDateTime, "2024-02-29 23:59:58", QStringLiteral("29-02-24 23:59:58"),
         QStringLiteral("29-02-24 23:59:58")},
        {&asDateTime, "0000-00-00 00:00:00", QString(), QString()},
        {&asDate, "2024-02-29", QStringLiteral("29-02-2024"), QStringLiteral("29-02-2024")},
        {&asDate, "0000-00-00", QString(), QString()},
        {&asDate, "колись", QStringLiteral("колись"), QStringLiteral("колись")},
    };
    for (const Case &c : cases) {
        QRowModel model;
        fillTexts(&model, c.format, {QString::fromUtf8(c.stored)});
        const QModelIndex cell = model.index(0, 0);
        QCOMPARE(cell.data().toString(), c.shown);
        QCOMPARE(cell.data(Qt::EditRole).toString(), c.plain);
        QCOMPARE(cell.data(QRowModel::StoredRole).toString(), QString::fromUtf8(c.stored));
        QCOMPARE(cell.data(Qt::TextAlignmentRole).isValid(), c.format->isNumber);
    }
}

/// The packed form of a row changes with its length at 256 and at 65,536 bytes.
void TstQRowModel::rowsOfEveryLengthComeThrough()
{
    FreshDatabase database(FreshDatabase::Empty);
    for (const int length : {0, 1, 254, 255, 256, 257, 65534, 65535, 65536, 65537, 200000}) {
        const int first = length / 3;
        QSqlQuery query =
            executed(database, QStringLiteral("SELECT REPEAT('a',%1),'',REPEAT('b',%2) UNION ALL "
                                              "SELECT 'next','row',NULL")
                                   .arg(first)
                                   .arg(length - first));
        QRowModel model;
        model.replaceRows(RowStore::read(query));
        const QStringList longRow{QString(first, QLatin1Char('a')), QString(),
                                  QString(length - first, QLatin1Char('b'))};
        QVERIFY2(storedRow(model, 0) == longRow, qPrintable(QString::number(length)));
        QCOMPARE(storedRow(model, 1),
                 QStringList({QStringLiteral("next"), QStringLiteral("row"), QString()}));
        // One byte more, written by hand.
        QVERIFY(model.setData(model.index(0, 1), QStringLiteral("c")));
        QVERIFY2(storedRow(model, 0) == QStringList({longRow[0], QStringLiteral("c"), longRow[2]}),
                 qPrintable(QString::number(length)));
    }
}

void TstQRowModel::textsSortLikeTheLocale()
{
    const QString words = QStringLiteral(
        "ґава гава Гава горе ґрунт дуб Єва ень еней ємність жук зуб зʼїзд зїзд з'єднання зебра ива іва їжак йод "
        "кава щука юшка ьо яма ящик apple Zebra zoo 10 9 1а а-б а_б аб а.б «лапки» ялинка елка ёлка эхо ырд ъъ");
    QStringList texts = words.split(QLatin1Char(' '));
    texts << QStringLiteral("а б") << QStringLiteral("а") << QString() << QStringLiteral("café")
          << QStringLiteral("cafe a");
    texts.removeAll(QStringLiteral("«лапки»")); // Characters of no alphabet stand behind, by their code.
    texts.removeAll(QStringLiteral("зʼїзд"));   // One apostrophe is as good as the other.
    QRowModel model;
    fillTexts(&model, &asText, texts);
    model.sort(0);
    QCollator collator(QLocale(QLocale::Ukrainian, QLocale::Ukraine));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(texts.begin(), texts.end(), collator);
    QCOMPARE(storedColumn(model, 0), texts);

    const QStringList given{QStringLiteral("🦔"), QStringLiteral("«я»"), QStringLiteral("з’я"),
                            QStringLiteral("zoo"),  QStringLiteral("з'а"), QStringLiteral("зʼб")};
    fillTexts(&model, &asText, given);
    model.sort(0);
    const QStringList expected{given[4], given[5], given[2], given[3], given[1], given[0]};
    QCOMPARE(storedColumn(model, 0), expected);
}

void TstQRowModel::sortsStablyByValue()
{
    const auto split = [](const char *texts) { return QString::fromUtf8(texts).split(QLatin1Char('|')); };
    const struct
    {
        const CellFormat *format;
        QStringList given;
        QStringList ascending;
        QStringList descending;
    } cases[] = {
        {&asNumber,
         split("10||9|-1|-10|0|1.5|1.25|-1.25|18446744073709551615|9223372036854775808|007|7|-0|"
               "12345678901234568|12345678901234567|nan|0.5"),
         split("|-10|-1.25|-1|0|-0|0.5|1.25|1.5|007|7|9|10|12345678901234567|12345678901234568|"
               "9223372036854775808|18446744073709551615|nan"),
         split("nan|18446744073709551615|9223372036854775808|12345678901234568|12345678901234567|10|9|007|7|"
               "1.5|1.25|0.5|0|-0|-1|-1.25|-10|")},
        {&asDateTime, split("2024-10-01 00:00:01||2024-02-29 23:59:59|2024-10-01 00:00:00"),
         split("|2024-02-29 23:59:59|2024-10-01 00:00:00|2024-10-01 00:00:01"),
         split("2024-10-01 00:00:01|2024-10-01 00:00:00|2024-02-29 23:59:59|")},
        {&asText, split("б|A|||Б|a|Б б|абвгґдеєя|абвгґдеє|абвгґдеЄ"),
         split("||абвгґдеє|абвгґдеЄ|абвгґдеєя|б|Б|Б б|A|a"),
         split("A|a|Б б|б|Б|абвгґдеєя|абвгґдеє|абвгґдеЄ||")},
    };
    for (const auto &c : cases) {
        QRowModel model;
        fillTexts(&model, c.format, c.given);
        model.sort(0, Qt::AscendingOrder);
        QCOMPARE(storedColumn(model, 0), c.ascending);
        model.sort(1, Qt::AscendingOrder); // Back to the order in which they were given.
        QCOMPARE(storedColumn(model, 0), c.given);
        model.sort(0, Qt::DescendingOrder);
        QCOMPARE(storedColumn(model, 0), c.descending);
    }
}

/// Of two letters and a sign of no alphabet, which takes several bytes of a sort key; many begin alike, all
/// of them at last, and many are the same.
void TstQRowModel::manyLongTextsSortLikeASimpleSort()
{
    std::mt19937 random(7);
    const QString letters = QStringLiteral("аааааааааааааааб№");
    QStringList texts;
    for (int i = 0; i < 5000; ++i) {
        QString text(static_cast<int>(random() % 30), QLatin1Char('x'));
        for (QChar &letter : text)
            letter = letters.at(static_cast<int>(random() % static_cast<uint>(letters.size())));
        texts.append(i % 3 == 0 ? QString(37, letters.at(0)) + text : text);
    }
    compareWithASimpleSort(texts);
    for (QString &text : texts)
        text.prepend(QStringLiteral("м. Київ, вул. №"));
    compareWithASimpleSort(texts);
    const QString one = texts.constFirst();
    std::fill(texts.begin(), texts.end(), one);
    compareWithASimpleSort(texts);
}

void TstQRowModel::compareWithASimpleSort(const QStringList &texts)
{
    QVector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    QRowModel model;
    fillTexts(&model, &asText, texts);
    for (const bool descending : {false, true}) {
        model.sort(1, Qt::AscendingOrder);
        model.sort(0, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
        std::sort(order.begin(), order.end());
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            return descending ? texts[b] < texts[a] : texts[a] < texts[b];
        });
        for (int row = 0; row < order.size(); ++row)
            QCOMPARE(model.stored(row, 1).toInt(), order.at(row));
    }
}

void TstQRowModel::whatBelongsToARowStaysWithIt()
{
    QRowModel model;
    fillTexts(&model, &asText, {QStringLiteral("в"), QStringLiteral("а"), QStringLiteral("б")});
    model.setRowColour(0, Qt::darkBlue);
    model.setRowColour(2, Qt::yellow);
    model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole);
    model.setData(model.index(0, 1), 42, Qt::UserRole);
    const QPersistentModelIndex dark = model.index(0, 1);
    const QPersistentModelIndex plain = model.index(1, 0);
    model.sort(0);
    QCOMPARE(dark.row(), 2);
    QCOMPARE(plain.row(), 0);
    QCOMPARE(model.index(2, 0).data(Qt::BackgroundRole).value<QBrush>().color(), QColor(Qt::darkBlue));
    QCOMPARE(model.index(2, 1).data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::white));
    QCOMPARE(model.index(1, 1).data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::black));
    QVERIFY(!model.index(0, 0).data(Qt::BackgroundRole).isValid());
    QCOMPARE(dark.data(Qt::UserRole).toInt(), 42);
    QVERIFY(dark.flags() & Qt::ItemIsUserCheckable);
    QVERIFY(!(plain.flags() & Qt::ItemIsUserCheckable));

    QVERIFY(model.setItemData(plain, model.itemData(dark)));
    QCOMPARE(plain.data(Qt::UserRole).toInt(), 42);
    QCOMPARE(plain.data(QRowModel::StoredRole).toString(), QStringLiteral("0"));

    // A row that comes into the place of a coloured one is plain.
    QVERIFY(model.removeRows(2, 1));
    QVERIFY(!dark.isValid());
    QVERIFY(model.insertRows(2, 1));
    QVERIFY(!model.index(2, 0).data(Qt::BackgroundRole).isValid());
    model.setRowColour(1, QColor());
    QVERIFY(!model.index(1, 0).data(Qt::ForegroundRole).isValid());
}

void TstQRowModel::rowsComeAndGoAfterASort()
{
    QRowModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    fillTexts(&model, &asText, QStringLiteral("г в б а").split(QLatin1Char(' ')));
    const auto texts = [&] { return storedColumn(model, 0).join(QLatin1Char(' ')); };
    model.sort(0);
    const QPersistentModelIndex last = model.index(3, 0);
    QVERIFY(model.insertRows(1, 2));
    QCOMPARE(texts(), QStringLiteral("а   б в г"));
    QVERIFY(model.setData(model.index(2, 0), QStringLiteral("є")));
    QVERIFY(model.removeRows(0, 2));
    QCOMPARE(texts(), QStringLiteral("є б в г"));
    QCOMPARE(last.row(), 3);
    QVERIFY(model.insertRow(model.rowCount()));
    QVERIFY(model.setData(model.index(4, 0), QString(300, QLatin1Char('z')), Qt::DisplayRole));
    model.sort(0, Qt::DescendingOrder);
    QVERIFY(model.setData(model.index(0, 0), QStringLiteral("z")));
    QCOMPARE(texts(), QStringLiteral("z є г в б"));
    QVERIFY(!model.removeRows(3, 3));
    QVERIFY(!model.insertRows(7, 1));
    QVERIFY(!model.setData(QModelIndex(), QStringLiteral("nowhere")));
    QVERIFY(model.removeRows(0, 5));
    model.sort(0);
    QVERIFY(model.insertRows(0, 1));
    QCOMPARE(storedRow(model, 0), QStringList({QString(), QString()}));
}

void TstQRowModel::anotherThreadReads()
{
    FreshDatabase database(FreshDatabase::Empty);
    RowStore rows;
    bool opened = false;
    const QString source = database.connection()->connectionName();
    std::thread worker([&] {
        WorkerConnection connection(source, &database.heard);
        opened = connection.isOpen();
        QSqlQuery query(*connection.database());
        if (query.exec(oddRows))
            rows = RowStore::read(query);
    });
    worker.join();
    QVERIFY(opened);
    QRowModel model;
    model.replaceRows(std::move(rows)); // The connection is gone by now.
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.stored(0, 5), QStringLiteral("їжак 🦔 '\\"));
}

void TstQRowModel::viewKeepsWorkingThroughReloads()
{
    FreshDatabase database(FreshDatabase::Empty);
    QTableView view;
    auto *model = new QRowModel(&view);
    const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model->setColumns({{QStringLiteral("Код"), 0, &asNumber}, {QStringLiteral("Назва")}});
    view.setModel(model);
    view.setColumnWidth(1, 333);
    view.setSortingEnabled(true);
    QSqlQuery query = executed(database, QStringLiteral("SELECT seq, seq % 7 FROM seq_1_to_3000"));
    for (int round = 0; round < 3; ++round) {
        model->replaceRows(RowStore::read(query));
        view.sortByColumn(round % 2, round % 2 == 0 ? Qt::DescendingOrder : Qt::AscendingOrder);
        view.setCurrentIndex(model->index(1000, 1));
        QVERIFY(!view.grab().isNull());
        model->sort(0, Qt::AscendingOrder);
        QCOMPARE(view.currentIndex().data().toString(), QString::number((view.currentIndex().row() + 1) % 7));
        model->removeRows(0, model->rowCount());
    }
    QVERIFY(!view.currentIndex().isValid());
    QCOMPARE(view.columnWidth(1), 333);
    model->replaceRows(RowStore::read(query));
    QCOMPARE(view.verticalHeader()->count(), 3000);
}

QTEST_MAIN(TstQRowModel)
#include "tst_qrowmodel.moc"
