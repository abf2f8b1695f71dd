#include "job.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "testing.h"
#include "xlsxexport.h"

#include <QBuffer>
#include <QDir>
#include <QHeaderView>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>

/// The exported workbook, read back by other programs: which cells stand in it, of which kind, and that no
/// half of it is left.
class TstXlsxExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cellsAreWhatTheViewShows();
    void sheetIsSetUpForReading();
    void numbersAreExact();
    void textsStayTexts();
    void emptyListHasItsCaptions();
    void fullDiskLeavesNoHalfFile();
    void cancelledIsOverAtOnce();
    void tooManyRowsAreToldBefore();

private:
    void writeMovedColumns(const QString &path);

    QTemporaryDir m_temporary;
};

namespace {
QString part(const QString &path, const QString &name)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {"-p", path, name});
    return unzip.waitForFinished() && unzip.exitCode() == 0 ? QString::fromUtf8(unzip.readAllStandardOutput())
                                                            : QString();
}

/// The number format of each style of a workbook.
QStringList formats(const QString &path)
{
    QXmlStreamReader xml(part(path, "xl/styles.xml"));
    QMap<QString, QString> codes{{"0", ""}, {"1", "0"}, {"2", "0.00"}, {"49", "@"}};
    QStringList formats;
    bool isInside = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.name() == QLatin1String("cellXfs"))
            isInside = xml.isStartElement();
        else if (xml.isStartElement() && xml.name() == QLatin1String("numFmt"))
            codes[xml.attributes().value("numFmtId").toString()] =
                xml.attributes().value("formatCode").toString();
        else if (isInside && xml.isStartElement() && xml.name() == QLatin1String("xf"))
            formats.append(codes.value(xml.attributes().value("numFmtId").toString()));
    }
    return formats;
}

/// The cells of the sheet by their names: 'text' or number, behind a formula "=", each with its format in
/// brackets where it has one.
QMap<QString, QString> cells(const QString &path)
{
    const QStringList styles = formats(path);
    QXmlStreamReader xml(part(path, "xl/worksheets/sheet1.xml"));
    QMap<QString, QString> cells;
    QString name;
    QString text;
    QXmlStreamAttributes attributes;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("c")) {
            attributes = xml.attributes();
            name = attributes.value("r").toString();
            text.clear();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("f")) {
            text = '=' + xml.readElementText() + ' ';
        } else if (xml.isStartElement() &&
                   (xml.name() == QLatin1String("v") || xml.name() == QLatin1String("t"))) {
            text += xml.readElementText();
        } else if (xml.isEndElement() && xml.name() == QLatin1String("c") && !text.isEmpty()) {
            if (attributes.value("t") == QLatin1String("inlineStr"))
                text = '\'' + text + '\'';
            const QString format = styles.value(attributes.value("s").toInt());
            cells[name] = format.isEmpty() ? text : text + " [" + format + ']';
        }
    }
    return xml.hasError() ? QMap<QString, QString>{{"error", xml.errorString()}} : cells;
}

/// Writes a list away from any window; empty, or why not.
QString write(const PrintedList &list, const QString &path)
{
    QFile file(path);
    QString why;
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    const bool isWritten = writeXlsx(
        list, &file, [](qint64, qint64) { return true; }, &why);
    return isWritten ? why : "not written: " + why;
}

void fill(QRowModel *model, const QVector<Column> &columns, const QVector<QByteArrayList> &rows)
{
    model->setColumns(columns);
    RowStore store;
    for (const QByteArrayList &row : rows) {
        std::vector<std::string_view> line;
        for (const QByteArray &cell : row)
            line.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
        store.append(line);
    }
    model->replaceRows(std::move(store));
}

/// Files may not grow beyond so many bytes while it stands.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : m_onSignal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit small = m_before;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_onSignal);
    }
    Q_DISABLE_COPY(SmallDisk)

private:
    rlimit m_before{};
    void (*m_onSignal)(int);
};

int openFiles()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

QRowModel *manyRows(QObject *parent, int rows)
{
    auto *model = new QRowModel(parent);
    QVector<QByteArrayList> lines;
    for (int row = 0; row < rows; ++row) {
        QByteArrayList line;
        for (int column = 0; column < 8; ++column)
            line.append(QByteArray::number(row * 7919LL * (column + 3) % 1000003));
        lines.append(line);
    }
    fill(model, {{"а"}, {"б", 0, &asMoney}, {"в"}, {"г"}, {"ґ", 0, &asSum}, {"д"}, {"е"}, {"є"}}, lines);
    return model;
}

PrintedList printed(const QAbstractItemModel &model, const QStringList &heading = {})
{
    return {heading, ListSnapshot(model, nullptr, ListSnapshot::AsShown), {}};
}
} // namespace

/// What the export leaves behind would stand here.
void TstXlsxExport::initTestCase()
{
    qputenv("TMPDIR", QFile::encodeName(m_temporary.path()));
    QCOMPARE(QDir::tempPath(), m_temporary.path());
}

void TstXlsxExport::cleanup()
{
    QTRY_COMPARE(QDir(m_temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

/// A list whose columns are hidden, moved and sorted, written with a heading and totals.
void TstXlsxExport::writeMovedColumns(const QString &path)
{
    QRowModel model;
    QTableView view;
    view.setModel(&model);
    fill(&model,
         {{"Код", 0, &asNumber},
          {"Штрихкод"},
          {"Схований"},
          {"Сума", 0, &asSum},
          {"Ціна", 0, &asMoney},
          {"К-сть", 0, &asQuantity},
          {"Ставка", 0, &asRate},
          {"День", 0, &asDate},
          {"Час", 0, &asDateTime}},
         {{"2", "0012345678905", "x", "123450", "29", "1500", "750", "2026-03-01", "2026-03-01 12:00:00"},
          {"10", "2.12", "x", "-50", "", "-1", "0", "0000-00-00", "2024-02-30 10:00:00"}});
    view.setColumnHidden(2, true);
    view.horizontalHeader()->moveSection(3, 0);
    view.sortByColumn(0, Qt::DescendingOrder);
    model.sort(0, Qt::DescendingOrder);
    view.setColumnWidth(1, 20 * view.fontMetrics().horizontalAdvance('0'));
    QCOMPARE(write({{"Товари: усі/різні", "=магазин", "Складено"},
                    ListSnapshot(model, &view, ListSnapshot::AsShown),
                    {"Рядків: 2"}},
                   path),
             QString());
}

void TstXlsxExport::cellsAreWhatTheViewShows()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("а.xlsx");
    writeMovedColumns(path);
    // The days of a spreadsheet: 2026-03-01 is the 46082nd.
    const QString money = " [#,##0.00;[Red]-#,##0.00]";
    const QMap<QString, QString> expected{{"A1", "'Товари: усі/різні'"},
                                          {"A2", "'=магазин'"},
                                          {"A3", "'Складено'"},
                                          {"A5", "'Сума'"},
                                          {"B5", "'Код'"},
                                          {"C5", "'Штрихкод'"},
                                          {"D5", "'Ціна'"},
                                          {"E5", "'К-сть'"},
                                          {"F5", "'Ставка'"},
                                          {"G5", "'День'"},
                                          {"H5", "'Час'"},
                                          {"A6", "-0.5" + money},
                                          {"B6", "10 [0]"},
                                          {"C6", "'2.12' [@]"},
                                          {"E6", "-0.001 [#,##0.000]"},
                                          {"F6", "0 [0.00]"},
                                          {"H6", "'30-02-24 10:00:00' [@]"},
                                          {"A7", "1234.5" + money},
                                          {"B7", "2 [0]"},
                                          {"C7", "'0012345678905' [@]"},
                                          {"D7", "0.29" + money},
                                          {"E7", "1.5 [#,##0.000]"},
                                          {"F7", "7.5 [0.00]"},
                                          {"G7", "46082 [dd.mm.yyyy]"},
                                          {"H7", "46082.5 [dd.mm.yyyy hh:mm:ss]"},
                                          {"A9", "=SUBTOTAL(109,A6:A7) 1234" + money},
                                          {"B9", "'Разом'"},
                                          {"A10", "'Рядків: 2'"}};
    const QMap<QString, QString> found = cells(path);
    for (auto cell = expected.begin(); cell != expected.end(); ++cell)
        QVERIFY2(found.value(cell.key()) == cell.value(),
                 qPrintable(cell.key() + ": " + found.value(cell.key()) + " not " + cell.value()));
    QCOMPARE(found.keys(), expected.keys());
}

/// Named, filtered, its captions frozen, its columns as wide as in the view.
void TstXlsxExport::sheetIsSetUpForReading()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("а.xlsx");
    writeMovedColumns(path);
    const QString sheet = part(path, "xl/worksheets/sheet1.xml");
    QVERIFY2(sheet.contains("<autoFilter ref=\"A5:H7\"/>"), qPrintable(sheet));
    QVERIFY(sheet.contains("ySplit=\"5\" topLeftCell=\"A6\"") && sheet.contains("state=\"frozen\""));
    QVERIFY2(sheet.contains(QRegularExpression("<col min=\"3\" max=\"3\" width=\"23\\.")), qPrintable(sheet));
    QVERIFY(part(path, "xl/workbook.xml").contains("name=\"Товари усі різні\""));
}

/// No kopeck is lost on the way into a number, and what a spreadsheet would round stays a text.
void TstXlsxExport::numbersAreExact()
{
    QRowModel model;
    fill(&model, {{"Код", 0, &asNumber}, {"Гроші", 0, &asMoney}},
         {{"1", "29"},
          {"2", "100000000000029"},
          {"3", "999999999999999"},
          {"4", "-999999999999999"},
          {"5", "1000000000000000"},
          {"999999999999999", "-1"},
          {"4820000000000012", "12.5"},
          {"-0", "-0"},
          {"12.50", "так"}});
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    QCOMPARE(write(printed(model), path), QString());
    const QMap<QString, QString> found = cells(path);
    const QString money = " [#,##0.00;[Red]-#,##0.00]";
    const QStringList expected = {"0.29" + money,
                                  "1000000000000.29" + money,
                                  "9999999999999.99" + money,
                                  "-9999999999999.99" + money,
                                  "'10000000000000.00' [@]",
                                  "-0.01" + money,
                                  "'12.5' [@]",
                                  "0" + money,
                                  "'так' [@]"};
    for (int row = 0; row < expected.size(); ++row)
        QCOMPARE(found.value(QString("B%1").arg(row + 2)), expected.at(row));
    QCOMPARE(found.value("A7"), QString("999999999999999 [0]"));
    QCOMPARE(found.value("A8"), QString("'4820000000000012' [@]"));
    QCOMPARE(found.value("A10"), QString("'12.50' [@]"));
}

void TstXlsxExport::textsStayTexts()
{
    const QByteArrayList texts = {"=1+1",
                                  "+380671234567",
                                  "-5 %",
                                  "@SUM(A1)",
                                  "2.12",
                                  "0000",
                                  " з краю ",
                                  "два\nрядки\tй \"лапки\" <b>&amp;",
                                  "їжак 🦔",
                                  QByteArray("а\0б", 5),
                                  "\xff"
                                  "x",
                                  "\xef\xbf\xbf"};
    QVector<QByteArrayList> rows;
    for (const QByteArray &text : texts)
        rows << QByteArrayList{text};
    rows << QByteArrayList{"a\x01z"};
    rows << QByteArrayList{QByteArray(40000, 'x')};

    QRowModel model;
    fill(&model, {{"=Назва"}}, rows);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    QCOMPARE(write(printed(model), path), QString());
    const QMap<QString, QString> found = cells(path);
    QStringList shown;
    for (int row = 0; row < rows.size(); ++row)
        shown.append(found.value(QString("A%1").arg(row + 2)));
    QCOMPARE(found.value("A1"), QString("'=Назва'"));
    QCOMPARE(shown.mid(0, 9), QStringList({"'=1+1' [@]", "'+380671234567' [@]", "'-5 %' [@]",
                                           "'@SUM(A1)' [@]", "'2.12' [@]", "'0000' [@]", "' з краю ' [@]",
                                           "'два\nрядки\tй \"лапки\" <b>&amp;' [@]", "'їжак 🦔' [@]"}));
    QCOMPARE(shown.at(9), QString("'а\ufffdб' [@]"));
    QCOMPARE(shown.at(10), QString("'\ufffdx' [@]"));
    QCOMPARE(shown.at(11), QString("'\ufffd' [@]"));
    QCOMPARE(shown.at(12), QString("'a_x0001_z' [@]"));
    QCOMPARE(shown.at(13), '\'' + QString(32766, 'x') + "…' [@]");
    QCOMPARE(part(path, "xl/worksheets/sheet1.xml").count("<f>"), 0);

    QRowModel days;
    fill(&days, {{"День", 0, &asDate}}, {{"1899-12-31"}, {"1900-03-01"}, {"1970-01-01"}});
    QCOMPARE(write(printed(days), path), QString());
    QCOMPARE(cells(path).value("A2"), QString("'31-12-1899' [@]"));
    QCOMPARE(cells(path).value("A3"), QString("61 [dd.mm.yyyy]"));
    QCOMPARE(cells(path).value("A4"), QString("25569 [dd.mm.yyyy]"));
}

void TstXlsxExport::emptyListHasItsCaptions()
{
    QRowModel model;
    model.setColumns({{"Код", 0, &asNumber}, {"Сума", 0, &asSum}});
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    QCOMPARE(write(printed(model, {"[Звіт]"}), path), QString());
    QCOMPARE(cells(path), (QMap<QString, QString>{{"A1", "'[Звіт]'"}, {"A3", "'Код'"}, {"B3", "'Сума'"}}));
    QVERIFY(part(path, "xl/workbook.xml").contains("name=\"Звіт\""));
}

/// Wherever the space ends: in the rows, in one of the library's own files, or in the file itself.
void TstXlsxExport::fullDiskLeavesNoHalfFile()
{
    QObject owner;
    const QRowModel *model = manyRows(&owner, 3000);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    Heard heard;
    QVERIFY(saveXlsx(&heard, printed(*model), path));
    waitOutJobs();
    const QByteArray whole = cells(path).value("H3001").toUtf8();
    QVERIFY(!whole.isEmpty());
    const int before = openFiles();
    const qint64 sheetBytes = part(path, "xl/worksheets/sheet1.xml").toUtf8().size();
    const qint64 bookBytes = QFileInfo(path).size();
    QVERIFY(bookBytes < sheetBytes);
    QList<qint64> limits{100, 3000, bookBytes - 1, bookBytes, sheetBytes / 2};
    for (qint64 limit = sheetBytes - 1500; limit <= sheetBytes + 4; limit += 100)
        limits.append(limit);
    limits.append(sheetBytes - 1);
    int failed = 0;
    for (const qint64 limit : qAsConst(limits)) {
        QVERIFY(QFile::remove(path));
        heard.forget();
        {
            const SmallDisk small(static_cast<rlim_t>(limit));
            QVERIFY(saveXlsx(&heard, printed(*model), path));
            waitOutJobs();
        }
        const bool isToldFailed = heard.has("Файл не збережено: " + path, QMessEvent::Critical);
        failed += isToldFailed ? 1 : 0;
        QVERIFY2(isToldFailed != QFile::exists(path), qPrintable(QString::number(limit)));
        QVERIFY2(isToldFailed == (limit < sheetBytes),
                 qPrintable(QString("%1 of %2, told %3").arg(limit).arg(sheetBytes).arg(isToldFailed)));
        if (isToldFailed)
            QVERIFY2(heard.has(qt_error_string(EFBIG), QMessEvent::Critical) ||
                         heard.has("перевірте вільне місце", QMessEvent::Critical),
                     qPrintable(heard.texts().join('\n')));
        QFile(path).open(QIODevice::WriteOnly);
    }
    QVERIFY(failed >= 19);
    QCOMPARE(openFiles(), before);
    heard.forget();
    QVERIFY(saveXlsx(&heard, printed(*model), "/немає/такого.xlsx"));
    waitOutJobs();
    QVERIFY(heard.has("/немає/такого.xlsx\n" + qt_error_string(ENOENT), QMessEvent::Critical));
}

/// Among the rows, and while the library packs them.
void TstXlsxExport::cancelledIsOverAtOnce()
{
    QObject owner;
    const QRowModel *model = manyRows(&owner, 60000);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.xlsx");
    const int before = openFiles();
    for (const qint64 part : {1, 600}) {
        Heard heard;
        QVERIFY(saveXlsx(&heard, printed(*model), path));
        Job *job = RunningJobs::all().jobs().constFirst();
        QTRY_VERIFY(job->progress().done >= part);
        job->cancel();
        QElapsedTimer clock;
        clock.start();
        waitOutJobs();
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(heard.texts(), QStringList());
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
    QTRY_COMPARE(openFiles(), before);
}

void TstXlsxExport::tooManyRowsAreToldBefore()
{
    QRowModel model;
    model.setColumns({{"Код", 0, &asNumber}});
    RowStore store;
    store.appendEmptyRows(mostXlsxRows + 1);
    model.replaceRows(std::move(store));
    Heard heard;
    const QTemporaryDir folder;
    QVERIFY(!saveXlsx(&heard, printed(model), folder.filePath("a.xlsx")));
    QVERIFY2(heard.has("не більше ніж 1048000 рядків, у списку їх 1048001", QMessEvent::Critical),
             qPrintable(heard.texts().join('\n')));
}

QTEST_MAIN(TstXlsxExport)
#include "tst_xlsxexport.moc"
