#include "csvexport.h"
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
#include <csignal>
#include <sys/resource.h>

/// The exported file: what stands in it, its encodings, and that the fast way differs in no byte.
class TestCsvExport : public QObject
{
    Q_OBJECT

private slots:
    void writesWhatTheViewShows();
    void storedBytesGiveTheSameFile();
    void fileIsWholeOrAsItWas();
};

namespace {
QByteArray written(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    return writeCsv(model, view, encoding, &file) ? file.data() : QByteArray("not written");
}

QByteArray cellByCell(const QAbstractItemModel &model, const QTableView &view, const QTextCodec *codec)
{
    QByteArray file;
    for (int row = -1; row < model.rowCount(); ++row) {
        QList<QByteArray> cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            const QString text = row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                                         : model.index(row, column).data(Qt::EditRole).toString();
            if (!view.isColumnHidden(column))
                cells.append(codec->fromUnicode(text));
        }
        file += cells.join(';') + '\n';
    }
    return file;
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

/// A column of texts for each format that lists have.
const QVector<Column> columns{
    {QStringLiteral("Код"), 0, &asNumber},  {QStringLiteral("Назва"), 0, &asText},
    {QStringLiteral("Сума"), 0, &asMoney},  {QStringLiteral("К-сть"), 0, &asQuantity},
    {QStringLiteral("Ставка"), 0, &asRate}, {QStringLiteral("Час"), 0, &asDateTime},
    {QStringLiteral("День ₴"), 0, &asDate}};

QByteArray oddText(int row)
{
    static const QByteArray texts[] = {"ґєії’ №",
                                       "ҐЄІЇ ₴",
                                       "їжак 🦔 й ще",
                                       "a;b\nc",
                                       "\"лапки\"",
                                       QByteArray("a\0ї", 4),
                                       "\xef\xbb\xbfї",
                                       "❤️ ё ќ “…” — ‰ €",
                                       "ไทย 한국 日本",
                                       "\xff\xfe",
                                       "\xd1",
                                       "е\xcc\x81",
                                       "",
                                       "2024-02-29 23:59:58",
                                       "0000-00-00",
                                       "2024-02-29",
                                       "1234-56-ї9 ab:cd:efg",
                                       "-5",
                                       "-0",
                                       "007",
                                       "9223372036854775807",
                                       "-9223372036854775808",
                                       "9223372036854775808",
                                       "12.5",
                                       "123450",
                                       "\xed\xa0\x80",
                                       "\xc0\xaf"};
    return texts[static_cast<size_t>(row) % std::size(texts)];
}
} // namespace

void TestCsvExport::writesWhatTheViewShows()
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

void TestCsvExport::storedBytesGiveTheSameFile()
{
    FreshDatabase database(FreshDatabase::Empty);
    QStringList selects;
    for (int row = 0; row < 400; ++row) {
        QStringList cells{QString::number(row)};
        for (int column = 1; column < columns.size(); ++column) {
            const QByteArray text = oddText(row * 5 + column * column);
            cells.append(text.isEmpty() ? QStringLiteral("NULL")
                                        : QStringLiteral("X'%1'").arg(QString::fromLatin1(text.toHex())));
        }
        selects.append(QStringLiteral("SELECT ") + cells.join(QLatin1Char(',')));
    }
    QSqlQuery query(*database.connection());
    QVERIFY(query.exec(selects.join(QStringLiteral(" UNION ALL "))));
    QRowModel model;
    model.setColumns(columns);
    model.fill(query);
    QCOMPARE(model.rowCount(), 400);
    QTableView view;
    view.setModel(&model);
    for (const int column : {-1, 1, 2}) {
        model.sort(column, Qt::DescendingOrder);
        view.setColumnHidden(3, column == 2);
        QCOMPARE(written(model, &view, CsvEncoding::Utf8),
                 cellByCell(model, view, QTextCodec::codecForName("UTF-8")));
        QCOMPARE(written(model, &view, CsvEncoding::Windows1251),
                 cellByCell(model, view, QTextCodec::codecForName("Windows-1251")));
    }
}

void TestCsvExport::fileIsWholeOrAsItWas()
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
    QCOMPARE(content(), QByteArray("а\n\n\n\n"));
    QVERIFY(heard.has(QStringLiteral("Файл збережено: ") + path, QMessEvent::Information));
    QVERIFY(heard.has(QStringLiteral("QTab::export_to_csv ") + path, QMessEvent::Debug));
    QVERIFY(QTab::export_to_csv(&heard, &model, nullptr, QStringLiteral("cp1251"), path));
    QCOMPARE(content(), QByteArray("\xe0\n\n\n\n"));

    heard.forget();
    QVERIFY(!QTab::export_to_csv(&heard, &model, nullptr, QString(), folder.path()));
    QVERIFY(heard.has(folder.path() + QStringLiteral("\nЦе не звичайний файл."), QMessEvent::Critical));
    heard.forget();
    {
        const FullDisk full;
        QVERIFY(!QTab::export_to_csv(&heard, &model, nullptr, QString(), path));
    }
    QVERIFY2(heard.has(path + QStringLiteral("\nFile too large"), QMessEvent::Critical),
             qPrintable(heard.texts().join('\n')));
    QCOMPARE(content(), QByteArray("\xe0\n\n\n\n"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

QTEST_MAIN(TestCsvExport)
#include "tst_csvexport.moc"
