#include "dbffile.h"
#include "qdbf.h"
#include "qdbfmodel.h"
#include "testing.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <random>
#include <sys/stat.h>

/// DBF files, sound, damaged and made to do harm.
class TstQDbf : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatIsInTheFile();
    void codePagesChangeWhatIsShown();
    void opensOnceAndTellsWhy();
    void refusesWhatItCannotRead_data();
    void refusesWhatItCannotRead();
    void shortFileShowsWhatWasRead();
    void oddHeadersAreRead();
    void leavesTheFileAlone();
    void stopsWhenToldTo();
    void mutatedFilesDoNoHarm();

private:
    QString write(const QByteArray &bytes) { return writeFile(m_folder.filePath("cards.dbf"), bytes); }

    QTemporaryDir m_folder;
};

namespace {
const int countAt = 4;
const int headerLengthAt = 8;
const int recordLengthAt = 10;

template<typename Number>
QByteArray with(QByteArray bytes, int at, Number number)
{
    qToLittleEndian(number, bytes.data() + at);
    return bytes;
}

/// Two fields of 10 and 5 bytes: a header of 97 bytes, records of 16.
QByteArray twoRecords()
{
    return DbfMaker({{"NAME", 'C', 10}, {"SUM", 'N', 5}})
        .add({"\xaf\xe6\xe0\xea", "12"})
        .add({"second", "   7"}, '*')
        .bytes();
}

QString shown(const QDbf &dbf, int row, int column)
{
    return dbf.GetModel()->index(row, column).data().toString();
}

QStringList captions(const QDbf &dbf)
{
    QStringList all;
    for (int column = 0; column < dbf.GetModel()->columnCount(); ++column)
        all.append(dbf.GetModel()->headerData(column, Qt::Horizontal).toString());
    return all;
}
} // namespace

void TstQDbf::showsWhatIsInTheFile()
{
    QDbf dbf;
    QCOMPARE(dbf.GetStrError(), QStringLiteral("No error"));
    QCOMPARE(dbf.GetModel()->rowCount(), 0);
    const QByteArray bytes = twoRecords();
    QCOMPARE(qFromLittleEndian<quint16>(bytes.constData() + headerLengthAt), quint16(97));
    QCOMPARE(dbf.Open(write(bytes)), 0);
    QCOMPARE(dbf.GetStrError(), QStringLiteral("No error."));
    QVERIFY(dbf.isOpen());
    QCOMPARE(captions(dbf), QStringList({"D C(1)", "NAME C(10)", "SUM N(5)"}));
    QCOMPARE(dbf.GetModel()->rowCount(), 2);
    QCOMPARE(shown(dbf, 0, 1), QStringLiteral("Їжак      "));
    QCOMPARE(shown(dbf, 1, 0), QStringLiteral("*"));
    QCOMPARE(dbf.dataArray(0, 1), QByteArray("\xaf\xe6\xe0\xea      "));
    QCOMPARE(dbf.dataArray(1, 2), QByteArray("   7 "));
    for (const auto &cell : {qMakePair(-1, 0), qMakePair(2, 0), qMakePair(0, -1), qMakePair(0, 3)})
        QCOMPARE(dbf.dataArray(cell.first, cell.second), QByteArray());
    QCOMPARE(dbf.GetModel()->index(1, 2).data(Qt::EditRole), QVariant());
}

void TstQDbf::codePagesChangeWhatIsShown()
{
    // "Київ" in each of the three; a name of the field that is not ASCII either, without a terminator.
    const QByteArray name866 = "\x8a\xa8\xf5\xa2"
                               "1234567";
    const QByteArray utf8 = QStringLiteral("Київ").toUtf8();
    QDbf dbf;
    QCOMPARE(dbf.Open(write(DbfMaker({{name866, 'C', 8}}).add({"\x8a\xa8\xf5\xa2"}).add({utf8}).bytes())), 0);
    dbf.GetModel()->setCodePage("IBM866");
    QCOMPARE(captions(dbf), QStringList({"D C(1)", "Київ1234567 C(8)"}));
    QCOMPARE(shown(dbf, 0, 1).trimmed(), QStringLiteral("Київ"));
    dbf.GetModel()->setCodePage("UTF-8");
    QCOMPARE(shown(dbf, 1, 1), QStringLiteral("Київ"));
    dbf.GetModel()->setCodePage("no such code page");
    QCOMPARE(shown(dbf, 1, 1), QStringLiteral("Київ"));
}

void TstQDbf::opensOnceAndTellsWhy()
{
    const QString path = write(twoRecords());
    QDbf dbf;
    QCOMPARE(dbf.Open(path), 0);
    QCOMPARE(dbf.Open(path), -1);
    QCOMPARE(dbf.GetStrError(), QStringLiteral("File is already open!"));
    QVERIFY2(dbf.isOpen() && dbf.GetModel()->rowCount() == 2, "the open file stays");
    dbf.Close();
    QVERIFY(!dbf.isOpen());
    QCOMPARE(dbf.GetModel()->columnCount(), 0);
    QCOMPARE(dbf.dataArray(0, 1), QByteArray());

    const QString missing = m_folder.filePath("missing.dbf");
    QFile file(missing);
    QVERIFY(!file.open(QIODevice::ReadOnly));
    QCOMPARE(dbf.Open(missing), static_cast<int>(file.error()));
    QCOMPARE(dbf.GetStrError(), file.errorString());
    QVERIFY(!dbf.isOpen());
    QCOMPARE(dbf.Open(path), 0);

    Heard heard;
    QCOMPARE(QDbf::GetCountRecord(path, &heard), qint64(2));
    QCOMPARE(QDbf::GetCountRecord(write(with(twoRecords(), countAt, 4000000000U)), &heard), 4000000000LL);
    QVERIFY(heard.all().isEmpty());
    QCOMPARE(QDbf::GetCountRecord(missing, &heard), qint64(-1));
    QCOMPARE(QDbf::GetCountRecord(write(with(twoRecords(), 0, quint8(0x30))), &heard), qint64(-1));
    QCOMPARE(QDbf::GetCountRecord(write("\x03"), &heard), qint64(-1));
    QVERIFY(heard.has("DBF file type not supported!", 2));
}

void TstQDbf::refusesWhatItCannotRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words");
    const QByteArray sound = twoRecords();
    const QString type = QStringLiteral("DBF file type not supported!");
    QTest::newRow("empty") << QByteArray() << type;
    QTest::newRow("with memo") << with(sound, 0, quint8(0x83)) << type;
    QTest::newRow("another program's") << with(sound, 0, quint8(0x30)) << type;
    QTest::newRow("cut in the fixed header") << sound.left(20) << QStringLiteral("посеред заголовка");
    QTest::newRow("cut in the fields") << sound.left(70) << QStringLiteral("довший за сам файл");
    QTest::newRow("header of no length")
        << with(sound, headerLengthAt, quint16(0)) << QStringLiteral("довжина заголовка (0)");
    QTest::newRow("records of no length")
        << with(sound, recordLengthAt, quint16(0)) << QStringLiteral("не вміщуються у запис");
    QTest::newRow("fields longer than the record")
        << with(sound, recordLengthAt, quint16(15)) << QStringLiteral("поля (16 байтів)");
    QTest::newRow("a field of 255") << with(sound, 32 + 16, quint8(255))
                                    << QStringLiteral("поля (261 байтів)");
}

void TstQDbf::refusesWhatItCannotRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, words);
    QDbf dbf;
    QVERIFY(dbf.Open(write(bytes)) != 0);
    QVERIFY2(dbf.GetStrError().contains(words), qPrintable(dbf.GetStrError()));
    QVERIFY(!dbf.isOpen());
}

void TstQDbf::shortFileShowsWhatWasRead()
{
    QDbf dbf;
    // Four billion records of two: the memory taken is that of the file.
    QCOMPARE(dbf.Open(write(with(twoRecords(), countAt, 0xFFFFFFFFU))), 0);
    QCOMPARE(dbf.GetModel()->rowCount(), 2);
    QCOMPARE(dbf.table()->promisedCount(), 0xFFFFFFFFU);
    QVERIFY2(dbf.table()->isWhole(1), "the mark of the end is no record");
    dbf.Close();

    // The second record ends within its name.
    QCOMPARE(dbf.Open(write(twoRecords().left(97 + 16 + 4))), 0);
    QCOMPARE(dbf.GetModel()->rowCount(), 2);
    QVERIFY(dbf.table()->isWhole(0) && !dbf.table()->isWhole(1));
    QCOMPARE(dbf.dataArray(1, 1), QByteArray("sec"));
    QCOMPARE(dbf.dataArray(1, 2), QByteArray());
    dbf.Close();

    // A header that was not brought up to date.
    QCOMPARE(dbf.Open(write(with(twoRecords(), countAt, 1U))), 0);
    QCOMPARE(dbf.GetModel()->rowCount(), 1);
    QCOMPARE(dbf.table()->unpromisedCount(), 1);
    dbf.Close();
    QCOMPARE(dbf.Open(write(twoRecords() + QByteArray(500, '\0'))), 0);
    QCOMPARE(dbf.table()->unpromisedCount(), 0);
}

void TstQDbf::oddHeadersAreRead()
{
    QDbf dbf;
    QCOMPARE(dbf.Open(write(DbfMaker({}).bytes())), 0);
    QCOMPARE(captions(dbf), QStringList({"D C(1)"}));
    QCOMPARE(dbf.GetModel()->rowCount(), 0);
    dbf.Close();

    // No end of the fields: the records follow at once.
    QByteArray bytes = with(twoRecords(), headerLengthAt, quint16(96));
    QCOMPARE(dbf.Open(write(bytes.remove(96, 1))), 0);
    QCOMPARE(captions(dbf).size(), 3);
    QCOMPARE(shown(dbf, 1, 1), QStringLiteral("second    "));
    dbf.Close();

    // Something of a field's size behind their end, and blanks behind the last field of each record.
    bytes = with(twoRecords(), headerLengthAt, quint16(97 + 64)).insert(97, QByteArray(64, 'x'));
    QCOMPARE(dbf.Open(write(bytes)), 0);
    QCOMPARE(captions(dbf).size(), 3);
    QCOMPARE(shown(dbf, 1, 1), QStringLiteral("second    "));
    dbf.Close();
    bytes = with(with(twoRecords(), recordLengthAt, quint16(17)), countAt, 1U).insert(97 + 16, ' ');
    QCOMPARE(dbf.Open(write(bytes)), 0);
    QCOMPARE(shown(dbf, 0, 2), QStringLiteral("12   "));
    dbf.Close();

    QCOMPARE(dbf.Open(write(DbfMaker({{"NONE", 'C', 0}, {"WIDE", 'C', 254}}).add({"", "x"}).bytes())), 0);
    QCOMPARE(captions(dbf), QStringList({"D C(1)", "NONE C(0)", "WIDE C(254)"}));
    QCOMPARE(dbf.dataArray(0, 2).size(), 254);
}

void TstQDbf::leavesTheFileAlone()
{
    const QString path = write(twoRecords());
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QDbf dbf;
    QCOMPARE(dbf.Open(path), 0);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), twoRecords());
    QVERIFY(QFile::remove(path));
    dbf.Close();

    // A pipe would keep whoever opens it until somebody writes.
    const QString pipe = m_folder.filePath("pipe.dbf");
    QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    QVERIFY(dbf.Open(pipe) != 0);
    QCOMPARE(QDbf::GetCountRecord(pipe, this), qint64(-1));
    QVERIFY(dbf.Open(m_folder.path()) != 0);
}

void TstQDbf::stopsWhenToldTo()
{
    DbfMaker maker({{"NAME", 'C', 250}});
    for (int i = 0; i < 40000; ++i)
        maker.add({QByteArray::number(i)});
    const QString path = write(maker.bytes());
    QVector<qint64> told;
    const auto goOnTwice = [&told](qint64 done, qint64 of) {
        told.append(done);
        return of == 40000 * 251 && told.size() < 2;
    };
    const DbfReading reading = readDbf(path, goOnTwice);
    QCOMPARE(reading.error, static_cast<int>(DbfError::CalledOff));
    QVERIFY(reading.table == nullptr);
    QCOMPARE(told.size(), 2);
    QVERIFY(told.first() == 0 && told.last() > 0 && told.last() < 40000 * 251);

    QDbf dbf;
    QCOMPARE(dbf.Open(readDbf(path)), 0);
    QCOMPARE(dbf.dataArray(39999, 1).trimmed(), QByteArray("39999"));
}

/// Bytes are changed where they hurt, the file is cut or made longer: whatever comes of it, nothing is read
/// beyond the file and nothing is larger than it. The same files in every run.
void TstQDbf::mutatedFilesDoNoHarm()
{
    std::mt19937 random(20240229);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<uint>(limit)); };
    int opened = 0;
    for (int round = 0; round < 4000; ++round) {
        QByteArray bytes = round % 2 == 0 ? twoRecords() : CardsDbf().card("2200000001", "3").bytes();
        for (int changes = below(4) + 1; changes > 0; --changes)
            bytes[below(changes % 2 == 0 ? bytes.size() : 12)] = static_cast<char>(below(256));
        bytes[0] = below(20) == 0 ? bytes.at(0) : '\x03';
        if (below(3) == 0)
            bytes.truncate(below(bytes.size() + 1));
        else if (below(3) == 0)
            bytes.append(QByteArray(below(300), static_cast<char>(below(256))));
        // A new one each time: a file that is written over is waited for.
        const QString path = writeFile(m_folder.filePath(QString::number(round)), bytes);
        const DbfReading reading = readDbf(path);
        QFile::remove(path);
        QCOMPARE(reading.error == 0, reading.table != nullptr);
        QCOMPARE(reading.error == 0, reading.text.isEmpty());
        if (!reading.table)
            continue;
        ++opened;
        QDbf dbf;
        dbf.Open(reading);
        const QDbfModel &model = *dbf.GetModel();
        QVERIFY(model.rowCount() <= bytes.size());
        qint64 read = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                read += dbf.dataArray(row, column).size();
                (void)model.index(row, column).data();
            }
        }
        QVERIFY2(read <= bytes.size(), bytes.toHex().constData());
        (void)captions(dbf);
    }
    QVERIFY2(opened > 500 && opened < 3500, qPrintable(QString::number(opened)));
}

QTEST_MAIN(TstQDbf)
#include "tst_qdbf.moc"
