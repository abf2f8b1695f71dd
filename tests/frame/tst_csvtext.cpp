#include "csvtext.h"
#include "testing.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

Q_DECLARE_METATYPE(CsvEncoding)

/// CSV files as spreadsheets, other programs and people write them.
class TstCsvText : public QObject
{
    Q_OBJECT

private slots:
    void recordsAreRead_data();
    void recordsAreRead();
    void formIsGuessed_data();
    void formIsGuessed();
    void whatIsNoTextIsRefused();

private:
    QString write(const char *name, const QByteArray &bytes) const;

    QTemporaryDir m_folder;
};

namespace {
const QByteArray mark = "\xef\xbb\xbf";

QByteArray windows1251(const QString &text)
{
    return QTextCodec::codecForName("Windows-1251")->fromUnicode(text);
}

bool goOn(qint64 done, qint64 of)
{
    Q_UNUSED(done)
    Q_UNUSED(of)
    return true;
}
} // namespace

QString TstCsvText::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file was not written");
    return file.fileName();
}

void TstCsvText::recordsAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("records"); // fields parted by "|"
    const auto row = [](const char *name, const char *text, const QStringList &records) {
        QTest::newRow(name) << QString::fromUtf8(text) << records;
    };
    row("plain", "а;б;в\nг;д;е", {"а|б|в", "г|д|е"});
    row("Windows ends, last line ended", "а;б\r\nв;г\r\n", {"а|б", "в|г"});
    row("empty lines count", "а;б\n\n\r\nв;г\n\n", {"а|б", "", "", "в|г", ""});
    row("empty fields, separator at the end", ";;\nа;б;", {"||", "а|б|"});
    row("quoted separator and quotes", "\"Сік; яблуко\";1\n\"Сир \"\"Пирятин\"\"\";2\r\n",
        {"Сік; яблуко|1", "Сир \"Пирятин\"|2"});
    row("quoted to the end", "1;\"а;б\"", {"1|а;б"});
    row("empty quoted", "\"\";\"\"\r\n", {"|"});
    row("quotes inside", "Сир \"Пирятин\";1\nТруба 5\";2", {"Сир \"Пирятин\"|1", "Труба 5\"|2"});
    row("begins with a quoted word", "\"Пирятин\" сир;1\nб;2", {"\"Пирятин\" сир|1", "б|2"});
    row("a quote too few spoils one line", "\"Сир;1\nХліб \"Ферма\";2\nв;3",
        {"\"Сир|1", "Хліб \"Ферма\"|2", "в|3"});
    row("quoted over two lines", "\"Молоко\r\n1 л\";1\nб;2", {"Молоко\r\n1 л|1", "б|2"});
    row("quote alone at the end", "а;\"", {"а|\""});
    row("carriage return within", "а\rб;1\r", {"а\rб|1"});
    row("nothing", "", {});
}

void TstCsvText::recordsAreRead()
{
    QFETCH(QString, text);
    CsvReader reader(text, CsvForm());
    QStringList records;
    while (reader.next()) {
        records.append(reader.fields().join('|'));
        QCOMPARE(reader.number(), records.size());
    }
    QTEST(records, "records");
}

void TstCsvText::formIsGuessed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<CsvEncoding>("wanted");
    QTest::addColumn<CsvEncoding>("encoding");
    QTest::addColumn<QString>("separator");
    const CsvEncoding utf8 = CsvEncoding::Utf8;
    const CsvEncoding cyrillic = CsvEncoding::Windows1251;
    const QByteArray name = "Молоко «Їжак», 1 л";
    const QByteArray semicolons = name + ";4820000000017;12,50\n";
    QTest::newRow("as wanted") << semicolons << utf8 << utf8 << ";";
    QTest::newRow("UTF-8 against the wish") << semicolons << cyrillic << utf8 << ";";
    QTest::newRow("Windows-1251 against the wish")
        << windows1251(QString::fromUtf8(semicolons)) << utf8 << cyrillic << ";";
    QTest::newRow("one broken letter") << name + "\xd0;1;2\n" << cyrillic << utf8 << ";";
    QTest::newRow("nothing to tell it") << QByteArray("Milk;1;2") << cyrillic << cyrillic << ";";
    QTest::newRow("mark") << mark + "Milk;1;2" << cyrillic << utf8 << ";";
    QTest::newRow("tabs") << name + "\t4820000000017\t12,50\nа\tб\tв" << utf8 << utf8 << "\t";
    QTest::newRow("commas") << QByteArray("\"Сік, яблуко\",1,\"12,50\"\nа,б,1.20") << utf8 << utf8 << ",";
    QTest::newRow("bars, a heading before")
        << QByteArray("Прайс;від;1.12\nа|б|1\nв|г|2") << utf8 << utf8 << "|";
    QTest::newRow("one column") << QByteArray("Молоко\nХліб") << utf8 << utf8 << ";";
}

void TstCsvText::formIsGuessed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(CsvEncoding, wanted);
    CsvForm form;
    form.encoding = wanted;
    form = guessCsvForm(bytes, form, 3);
    QTEST(form.encoding, "encoding");
    QTEST(QString(form.separator), "separator");
    const QString text = csvText(bytes, form.encoding);
    QVERIFY2(!text.startsWith(QChar(0xFEFF)), "the mark is no letter of the first name");
    if (bytes.size() > 40 && bytes.contains("4820"))
        QVERIFY(text.startsWith("Молоко «Їжак», 1 л"));
}

void TstCsvText::whatIsNoTextIsRefused()
{
    const auto error = [](const QString &path) { return readCsvFile(path, 1 << 20, &goOn).error; };
    QCOMPARE(error(m_folder.filePath("none.csv")), QStringLiteral("Такого файла немає."));
    QCOMPARE(error(m_folder.path()), QStringLiteral("Це не звичайний файл."));
    QCOMPARE(error(write("empty.csv", "")), QStringLiteral("Файл порожній."));
    QVERIFY(
        error(write("book.csv", QByteArray("PK\x03\x04\x00\x00", 6))).startsWith("Це не текстовий файл."));

    QFile large(write("large.csv", "а;б;в\n"));
    QVERIFY(large.resize(200 << 20));
    QCOMPARE(error(large.fileName()),
             QStringLiteral("Файл завеликий: 200 МБ, а може мати щонайбільше 1 МБ."));
    QCOMPARE(error(write("sound.csv", "а;б;в\n")), QString());

    const QString text = QStringLiteral("Їжак\t1\t2\r\n");
    const CsvBytes wide =
        readCsvFile(write("wide.csv", QTextCodec::codecForName("UTF-16")->fromUnicode(text)), 1 << 20, &goOn);
    QCOMPARE(wide.error, QString());
    QCOMPARE(QString::fromUtf8(wide.bytes), text);

    int asked = 0;
    const CsvBytes left = readCsvFile(write("long.csv", QByteArray(5 << 20, 'a')), 10 << 20,
                                      [&](qint64 done, qint64 of) { return done <= of && ++asked < 2; });
    QCOMPARE(asked, 2);
    QVERIFY(left.bytes.size() < 3 << 20);
}

QTEST_MAIN(TstCsvText)
#include "tst_csvtext.moc"
