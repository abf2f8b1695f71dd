#include "csvexport.h"
#include "heartbeat.h"
#include "job.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "testing.h"

#include <QBuffer>
#include <QDir>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextCodec>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>

/// The exported file: what stands in it, its encodings, and that no half of it is left.
class TstCsvExport : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatTheViewShows();
    void storedBytesAreWrittenAsTheyAreShown();
    void fileIsWholeOrAsItWas();
    void listMayChangeMeanwhile();
    void cancelledLeavesNothingBehind();
};

namespace {
QByteArray written(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    const ListSnapshot list(model, view, ListSnapshot::AsStored);
    return writeCsv(list, encoding, &file) ? file.data() : QByteArray("not written");
}

/// No file may grow beyond four bytes while it stands.
class FullDisk
{
public:
    FullDisk() : m_onSignal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit small = m_before;
        small.rlim_cur = 4;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_onSignal);
    }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
    void (*m_onSignal)(int);
};

/// What stands in the database, and what each format makes of it; null: the text as it is.
struct OddCell
{
    QByteArray stored;
    const char *text;
    const char *money = nullptr;
    const char *quantity = nullptr;
    const char *dateTime = nullptr;
    const char *date = nullptr;
};

const OddCell oddCells[] = {
    {"ґєії’ №", nullptr},
    {"ҐЄІЇ ₴", nullptr},
    {"їжак 🦔 й ще", nullptr},
    {"a;b\nc", nullptr},
    {"\"лапки\"", nullptr},
    {"❤️ ё ќ “…” — ‰ €", nullptr},
    {"ไทย 한국 日本", nullptr},
    {"е\xcc\x81", nullptr},
    {"", nullptr},
    {"\xef\xbb\xbfї", "ї"},
    {"\xff\xfe", "\xef\xbf\xbd\xef\xbf\xbd"},
    {"\xd1", "\xef\xbf\xbd"},
    {"\xc0\xaf", "\xef\xbf\xbd\xef\xbf\xbd"},
    {"2024-02-29 23:59:58", nullptr, nullptr, nullptr, "29-02-24 23:59:58", "29-02-2024"},
    {"0000-00-00", nullptr, nullptr, nullptr, "", ""},
    {"2024-02-29", nullptr, nullptr, nullptr, nullptr, "29-02-2024"},
    {"-5", nullptr, "-0.05", "-0.005"},
    {"-0", nullptr, "0.00", "0.000"},
    {"007", nullptr, "0.07", "0.007"},
    {"9223372036854775807", nullptr, "92233720368547758.07", "9223372036854775.807"},
    {"-9223372036854775808", nullptr, "-92233720368547758.08", "-9223372036854775.808"},
    {"9223372036854775808", nullptr},
    {"12.5", nullptr},
    {"123450", nullptr, "1234.50", "123.450"}};

/// The line of a cell that stands in a column of each format.
QString expectedLine(int number, const OddCell &cell)
{
    const QString text = QString::fromUtf8(cell.text != nullptr ? cell.text : cell.stored.constData());
    const auto as = [&](const char *shown) { return shown != nullptr ? QString::fromUtf8(shown) : text; };
    return QStringList{
               QString::number(number), text,         as(cell.money), as(cell.quantity), as(cell.money),
               as(cell.dateTime),       as(cell.date)}
               .join(QLatin1Char(';')) +
           QLatin1Char('\n');
}
} // namespace

void TstCsvExport::writesWhatTheViewShows()
{
    QRowModel model;
    model.setColumns({{QStringLiteral("Код"), 0, &asNumber},
                      {QString(), 0, &asText, true},
                      {QStringLiteral("Ціна"), 0, &asMoney}});
    QTableView view;
    view.setModel(&model);
    view.setColumnHidden(1, true);
    QCOMPARE(written(model, &view, CsvEncoding::Utf8), QByteArray("Код;Ціна\n"));
    model.insertRows(0, 2);
    const char *const rows[][3] = {{"2", "", "123450"}, {"1", "x", "так;\nні"}};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column)
            model.setData(model.index(row, column), QString::fromUtf8(rows[row][column]));
    }
    QCOMPARE(written(model, &view, CsvEncoding::Utf8), QByteArray("Код;Ціна\n2;1234.50\n1;так;\nні\n"));
    view.sortByColumn(0, Qt::AscendingOrder);
    model.sort(0);
    QCOMPARE(written(model, &view, CsvEncoding::Windows1251),
             QByteArray("\xca\xee\xe4;\xd6\xb3\xed\xe0\n1;\xf2\xe0\xea;\n\xed\xb3\n2;1234.50\n"));

    QStandardItemModel items(1, 2);
    items.setHorizontalHeaderLabels({QStringLiteral("а"), QStringLiteral("б")});
    items.setItem(0, 1, new QStandardItem(QStringLiteral("₴ 🦔 Ґ")));
    QCOMPARE(written(items, nullptr, CsvEncoding::Utf8), QByteArray("а;б\n;₴ 🦔 Ґ\n"));
    const QByteArray narrow = written(items, nullptr, CsvEncoding::Windows1251);
    QVERIFY2(narrow.startsWith("\xe0;\xe1\n;? ?") && narrow.endsWith(" \xa5\n"), narrow.toHex().constData());
}

/// From the database into the file, with no text between them that somebody sees.
void TstCsvExport::storedBytesAreWrittenAsTheyAreShown()
{
    FreshDatabase database(FreshDatabase::Empty);
    QStringList selects;
    QString expected = QStringLiteral("Код;Назва;Сума;К-сть;Ставка;Час;День ₴\n");
    for (const OddCell &cell : oddCells) {
        const QString stored = QStringLiteral(",X'%1'").arg(QString::fromLatin1(cell.stored.toHex()));
        selects.append(QStringLiteral("SELECT %1").arg(selects.size()) + stored.repeated(6));
        expected += expectedLine(selects.size() - 1, cell);
    }
    QSqlQuery query(*database.connection());
    QVERIFY(query.exec(selects.join(QStringLiteral(" UNION ALL "))));
    QRowModel model;
    model.setColumns({{QStringLiteral("Код"), 0, &asNumber},
                      {QStringLiteral("Назва"), 0, &asText},
                      {QStringLiteral("Сума"), 0, &asMoney},
                      {QStringLiteral("К-сть"), 0, &asQuantity},
                      {QStringLiteral("Ставка"), 0, &asRate},
                      {QStringLiteral("Час"), 0, &asDateTime},
                      {QStringLiteral("День ₴"), 0, &asDate}});
    model.replaceRows(RowStore::read(query));
    QCOMPARE(QString::fromUtf8(written(model, nullptr, CsvEncoding::Utf8)), expected);
    QCOMPARE(written(model, nullptr, CsvEncoding::Windows1251),
             QTextCodec::codecForName("Windows-1251")->fromUnicode(expected));
}

void TstCsvExport::fileIsWholeOrAsItWas()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("список.csv"));
    QStandardItemModel model(3, 1);
    model.setHorizontalHeaderLabels({QStringLiteral("а")});
    const auto content = [&] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    };
    {
        QFile longer(path);
        QVERIFY(longer.open(QIODevice::WriteOnly));
        longer.write(QByteArray(1000, 'x'));
    }
    Heard heard;
    QVERIFY(QTab::export_to_csv(&heard, &model, nullptr, QString(), path));
    // One file, one writer.
    QVERIFY(!QTab::export_to_csv(&heard, &model, nullptr, QStringLiteral("cp1251"), path));
    QVERIFY(heard.has(path + QStringLiteral("\nЦей файл саме записується"), QMessEvent::Critical));
    waitOutJobs();
    QCOMPARE(content(), QByteArray("а\n\n\n\n"));
    QVERIFY(heard.has(QStringLiteral("Файл збережено: ") + path, QMessEvent::Information));
    QVERIFY(heard.has(QStringLiteral("QTab::export_to_csv ") + path, QMessEvent::Debug));
    QVERIFY(QTab::export_to_csv(&heard, &model, nullptr, QStringLiteral("cp1251"), path));
    waitOutJobs();
    QCOMPARE(content(), QByteArray("\xe0\n\n\n\n"));

    heard.forget();
    QVERIFY(!QTab::export_to_csv(&heard, &model, nullptr, QString(), folder.path()));
    QVERIFY(heard.has(folder.path() + QStringLiteral("\nЦе не звичайний файл."), QMessEvent::Critical));
    heard.forget();
    {
        const FullDisk full;
        QVERIFY(QTab::export_to_csv(&heard, &model, nullptr, QString(), path));
        waitOutJobs();
    }
    QVERIFY2(heard.has(path + QLatin1Char('\n') + qt_error_string(EFBIG), QMessEvent::Critical),
             qPrintable(heard.texts().join('\n')));
    QCOMPARE(content(), QByteArray("\xe0\n\n\n\n"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

/// A million cells, changed, sorted, emptied and gone while they are written.
void TstCsvExport::listMayChangeMeanwhile()
{
    auto model = std::make_unique<QRowModel>();
    model->setColumns({{QStringLiteral("Код"), 0, &asNumber}, {QStringLiteral("Ціна"), 0, &asMoney}});
    const int rows = 200000;
    RowStore store;
    QByteArray expected("Код;Ціна\n");
    for (int row = 0; row < rows; ++row) {
        const std::string code = std::to_string(rows - row);
        store.append({code, "12345"});
        expected += QByteArray::fromStdString(code) + ";123.45\n";
    }
    model->replaceRows(std::move(store));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("а.csv"));
    Heard heard;
    Heartbeat beat;
    QVERIFY(QTab::export_to_csv(&heard, model.get(), nullptr, QString(), path));
    QVERIFY2(beat.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(beat.longestGap())));
    for (int row = 0; row < rows; row += 100)
        model->setData(model->index(row, 1), 1);
    model->sort(0);
    model->removeRows(0, rows / 2);
    model.reset();
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll() == expected);
}

void TstCsvExport::cancelledLeavesNothingBehind()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("а.csv"));
    const auto endless = [](QIODevice *file, const ListProgress &mayGoOn) {
        while (mayGoOn(1, 2))
            file->write("рядок\n");
        return false;
    };
    {
        Heard heard;
        QVERIFY(saveInBackground(&heard, path, endless));
        QTRY_VERIFY(RunningJobs::all().jobs().constFirst()->progress().done == 1);
        RunningJobs::all().jobs().constFirst()->cancel();
        waitOutJobs();
        QCOMPARE(heard.texts(QMessEvent::Information), QStringList());
        QVERIFY(saveInBackground(&heard, path, endless));
    }
    QVERIFY(RunningJobs::all().jobs().isEmpty());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

QTEST_MAIN(TstCsvExport)
#include "tst_csvexport.moc"
