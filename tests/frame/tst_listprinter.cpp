#include "job.h"
#include "listpages.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "signs.h"
#include "testing.h"

#include <QPaintEngine>
#include <QPainter>
#include <QProgressDialog>
#include <QTableView>
#include <QTemporaryDir>
#include <cmath>

namespace {
/// Remembers where which text was painted.
class TextRecorder : public QPaintEngine
{
public:
    struct Text
    {
        QRectF place;
        QString text;
    };

    TextRecorder() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    void drawPolygon(const QPoint *, int, PolygonDrawMode) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF &at, const QTextItem &item) override
    {
        texts.append({QRectF(at.x(), std::round(at.y()), item.width(), 1), item.text()});
    }

    QVector<Text> texts;
};

/// A page of 600 x 400 pixels at 96 dpi.
class RecordingPage : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &recorder; }
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return 600;
        case PdmHeight:
            return 400;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        default:
            return QPaintDevice::metric(metric);
        }
    }

    mutable TextRecorder recorder;
};

/// Two shown columns and a hidden one between them.
struct ListOfRows
{
    explicit ListOfRows(int rows)
    {
        model.setColumns({{QStringLiteral("Назва товару"), 0, &asText},
                          {QStringLiteral("Таємне"), 0, &asText, true},
                          {QStringLiteral("Сума"), 0, &asMoney}});
        view.setModel(&model);
        view.setColumnHidden(1, true);
        view.setColumnWidth(0, 300);
        view.setColumnWidth(2, 100);
        model.insertRows(0, rows);
        for (int row = 0; row < rows; ++row) {
            model.setData(model.index(row, 0), QStringLiteral("рядок%1").arg(row));
            model.setData(model.index(row, 1), QStringLiteral("сховане"));
            model.setData(model.index(row, 2), 123450);
        }
    }

    PrintedList printed(const QStringList &totals = {})
    {
        return {{QStringLiteral("Звіт по товарах"), QStringLiteral("Магазин 1")},
                ListSnapshot(model, &view, ListSnapshot::AsShown),
                totals};
    }

    QRowModel model;
    QTableView view;
};

QVector<TextRecorder::Text> paintedTexts(const PrintedList &list, int page, int *pageCount)
{
    RecordingPage device;
    ListPages pages(list);
    pages.read();
    pages.layOut(&device, QSizeF(600, 400));
    *pageCount = pages.count();
    QPainter painter(&device);
    pages.paint(&painter, page);
    painter.end();
    return device.recorder.texts;
}

QString joined(const QVector<TextRecorder::Text> &texts)
{
    QString all;
    for (const TextRecorder::Text &text : texts)
        all += text.text + QLatin1Char('|');
    return all.remove(QLatin1Char(' '));
}

bool isLandscape(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains("/MediaBox [0 0 842");
}

int pagesOfPdf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : -1;
}
} // namespace

/// The pages of a printed list: what stands on each, where, and the file of them.
class TstListPrinter : public QObject
{
    Q_OBJECT

private slots:
    void everyPageTellsWhatItIs();
    void longTextsStayInTheirColumns();
    void columnsAreAsWideAsWhatTheyHold();
    void signsArePrinted();
    void pdfHoldsAllPagesOrIsNotWritten();
    void previewOfALongListIsCalledOff();
};

void TstListPrinter::everyPageTellsWhatItIs()
{
    ListOfRows rows(50);
    const PrintedList list = rows.printed({QStringLiteral("Разом: 61 725.00")});
    int count = 0;
    QString all;
    paintedTexts(list, 0, &count);
    QVERIFY2(count > 1 && count < 8, qPrintable(QString::number(count)));
    for (int page = 0; page < count; ++page) {
        const QString text = joined(paintedTexts(list, page, &count));
        QVERIFY2(text.contains(QStringLiteral("Назватовару|")) && text.contains(QStringLiteral("Сума|")) &&
                     text.contains(QStringLiteral("сторінка%1з%2|").arg(page + 1).arg(count)),
                 qPrintable(text));
        QCOMPARE(text.contains(QStringLiteral("Магазин1")), page == 0);
        QCOMPARE(text.contains(QStringLiteral("Разом:61725.00")), page == count - 1);
        QVERIFY(!text.contains(QStringLiteral("Таємне")) && !text.contains(QStringLiteral("сховане")));
        all += text;
    }
    for (int row = 0; row < 50; ++row)
        QCOMPARE(all.count(QStringLiteral("рядок%1|").arg(row)), 1);

    // Totals that do not fit behind the last row get a page; an empty list has one too.
    QStringList many;
    for (int i = 0; i < 20; ++i)
        many.append(QStringLiteral("підсумок%1").arg(i));
    ListOfRows few(10);
    paintedTexts(few.printed(many), 0, &count);
    QCOMPARE(count, 2);
    ListOfRows none(0);
    QVERIFY(joined(paintedTexts(none.printed(), 0, &count)).contains(QStringLiteral("сторінка1з1")));
}

void TstListPrinter::longTextsStayInTheirColumns()
{
    ListOfRows rows(3);
    rows.model.setData(rows.model.index(0, 0), QString(300, QChar(0x416)));
    rows.model.setData(rows.model.index(1, 0), QStringLiteral("два\nрядки"));
    rows.model.setData(rows.model.index(2, 2), 5);
    int count = 0;
    const auto texts = paintedTexts(rows.printed(), 0, &count);
    QVERIFY(joined(texts).contains(QStringLiteral("дварядки")));
    // Over several lines, each letter once.
    QCOMPARE(joined(texts).count(QChar(0x416)), 300);
    QVERIFY(!joined(texts).contains(QChar(0x2026)));
    QVector<double> rightEdges;
    for (const TextRecorder::Text &text : texts) {
        if (text.text.contains(QLatin1Char('.')))
            rightEdges.append(text.place.right());
        for (const TextRecorder::Text &other : texts)
            QVERIFY2(&text == &other || !text.place.intersects(other.place), qPrintable(text.text));
        QVERIFY2(text.place.right() <= 600, qPrintable(text.text));
    }
    QCOMPARE(rightEdges.size(), 3);
    QVERIFY(qAbs(rightEdges.first() - rightEdges.last()) < 1.5 && rightEdges.first() > 580);
}

void TstListPrinter::columnsAreAsWideAsWhatTheyHold()
{
    // Thirteen columns as of a report of shifts, squeezed on the screen: nothing is cut on paper.
    QRowModel model;
    QVector<Column> columns = {{QStringLiteral("магазин")}, {QStringLiteral("каса")}};
    for (int i = 0; i < 10; ++i)
        columns.append({QStringLiteral("позицій анульовано"), 0, &asMoney});
    columns.append({QStringLiteral("дата час"), 0, &asDateTime});
    model.setColumns(columns);
    model.insertRows(0, 40);
    const QString shop =
        QStringLiteral("вул. Академіка Володимира Вернадського, будинок 115, корпус 2, Кропивницький");
    for (int row = 0; row < 40; ++row) {
        model.setData(model.index(row, 0), row == 17 ? shop : QStringLiteral("вул. Мала, 1"));
        model.setData(model.index(row, 1), QStringLiteral("Каса 12 (прибудова)"));
        for (int column = 2; column < 12; ++column)
            model.setData(model.index(row, column), 123456789);
        model.setData(model.index(row, 12), QStringLiteral("2026-03-01 21:15:16"));
    }
    QTableView view;
    view.setModel(&model);
    for (int column = 0; column < 13; ++column)
        view.setColumnWidth(column, 20);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("зміни.pdf"));
    Heard heard;
    const ListSnapshot list(model, &view, ListSnapshot::AsShown);
    QVERIFY(saveListPdf(&heard, {{QStringLiteral("Z - Звіти")}, list, {}}, path));
    waitOutJobs();
    QVERIFY(isLandscape(path));
    if (!canReadPdf())
        QSKIP("pdftotext (poppler-utils) is missing");
    const QString text = textOfPdf(path);
    QCOMPARE(text.count(QStringLiteral("1234567.89")), 400);
    QCOMPARE(text.count(QStringLiteral("01-03-2621:15:16")), 40);
    QCOMPARE(text.count(QStringLiteral("Каса12(прибудова)")), 40);
    QVERIFY2(!text.contains(QChar(0x2026)), qPrintable(text));
    for (const QString &word : shop.split(' '))
        QVERIFY2(text.contains(word), qPrintable(word + " in\n" + text));
}

/// Paper may have no colours.
void TstListPrinter::signsArePrinted()
{
    if (!canReadPdf())
        QSKIP("pdftotext (poppler-utils) is missing");
    QRowModel model;
    model.setColumns({{QStringLiteral("каса"), 20}});
    model.insertRows(0, 2);
    for (int row = 0; row < 2; ++row)
        model.setData(model.index(row, 0), QStringLiteral("Каса %1").arg(row));
    showSign(&model, model.index(1, 0), Sign::Bad, QStringLiteral("Немає зв'язку"));
    QTableView view;
    view.setModel(&model);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("каси.pdf"));
    Heard heard;
    const ListSnapshot list(model, &view, ListSnapshot::AsShown);
    QVERIFY(saveListPdf(&heard, {{QStringLiteral("Каси")}, list, {}}, path));
    waitOutJobs();
    const QString text = textOfPdf(path);
    QVERIFY2(text.contains(QStringLiteral("✗Каса1")) && !text.contains(QStringLiteral("✗Каса0")),
             qPrintable(text));
}

void TstListPrinter::pdfHoldsAllPagesOrIsNotWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("звіт.pdf"));
    ListOfRows rows(200);
    Heard heard;
    QVERIFY(saveListPdf(&heard, rows.printed(), path));
    waitOutJobs();
    QVERIFY(heard.has(QStringLiteral("Файл збережено: ") + path, QMessEvent::Information));
    const int portrait = pagesOfPdf(path);
    QVERIFY2(portrait > 2 && portrait < 8, qPrintable(QString::number(portrait)));
    QVERIFY(!isLandscape(path));

    QVERIFY(saveListPdf(&heard, rows.printed(), QStringLiteral("/немає/звіт.pdf")));
    waitOutJobs();
    QVERIFY2(heard.has(QStringLiteral("/немає/звіт.pdf\nNo such file")),
             qPrintable(heard.texts().join(QLatin1Char('\n'))));
    QVERIFY(!saveListPdf(&heard, rows.printed(), folder.path()));

    ListOfRows many(20000);
    const QString cancelled = folder.filePath(QStringLiteral("довгий.pdf"));
    QVERIFY(saveListPdf(&heard, many.printed(), cancelled));
    Job *job = RunningJobs::all().jobs().constFirst();
    QTRY_VERIFY(job->progress().done > job->progress().of / 3);
    QElapsedTimer clock;
    clock.start();
    job->cancel();
    waitOutJobs();
    QVERIFY2(clock.elapsed() < 1000 && !QFile::exists(cancelled),
             qPrintable(QString::number(clock.elapsed())));
}

/// The window lives while a long preview is prepared, and it can be called off.
void TstListPrinter::previewOfALongListIsCalledOff()
{
    ListOfRows many(300000);
    int beats = 0;
    QTimer heart;
    connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
    heart.start(5);
    QElapsedTimer clock;
    clock.start();
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (progress != nullptr && beats > 20)
            progress->cancel();
    });
    poll.start(20);
    previewList(nullptr, many.printed());
    QVERIFY2(beats > clock.elapsed() / 100, qPrintable(QString::number(beats)));
}

QTEST_MAIN(TstListPrinter)
#include "tst_listprinter.moc"
