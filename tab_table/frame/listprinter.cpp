#include "listprinter.h"

#include "filejob.h"
#include "listpages.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProgressDialog>
#include <QRegularExpression>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ListPrinter)
};

constexpr double marginMillimetres = 12;
/// In letters of up to two bytes, with room for the ending.
constexpr int longestFileName = 120;
/// A preview that takes longer shows how far it is.
constexpr int patienceMs = 500;
/// It lets the window live so often.
constexpr int sliceMs = 15;
/// How far the rows are read, and laid out: the rest is painting. In per mille of the work.
constexpr int readPart = 100;
constexpr int layOutPart = 250;
constexpr int whole = 1000;

/// How far a part of the work is, told as a part of the whole.
ListProgress part(const ListProgress &mayGoOn, int from, int to)
{
    return [mayGoOn, from, to](qint64 done, qint64 of) {
        return mayGoOn(from + (to - from) * done / of, whole);
    };
}

QSizeF pageSize(const QPagedPaintDevice &device)
{
    return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
}

/// Pages first to last, counted from 0; false when that was stopped.
bool paintPages(QPagedPaintDevice *device, QPainter *painter, const ListPages &pages, int first, int last,
                const ListProgress &mayGoOn)
{
    for (int page = first; page <= last; ++page) {
        if (page > first)
            device->newPage();
        if (!mayGoOn(page - first, last - first + 1))
            return false;
        pages.paint(painter, page);
    }
    return true;
}

/// To landscape when the list is wider than a portrait page.
void turnPage(QPagedPaintDevice *device, const ListPages &pages)
{
    QPageLayout layout = device->pageLayout();
    layout.setOrientation(QPageLayout::Portrait);
    const bool isWide = pages.naturalWidth(dynamic_cast<QPaintDevice *>(device)) >
                        layout.paintRect(QPageLayout::Inch).width();
    layout.setOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    device->setPageLayout(layout);
}

bool paintPdf(const PrintedList &list, QIODevice *file, const ListProgress &mayGoOn)
{
    QPdfWriter writer(file);
    writer.setTitle(list.heading.value(0));
    const double margin = marginMillimetres;
    writer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    ListPages pages(list);
    if (!pages.read(part(mayGoOn, 0, readPart)))
        return false;
    turnPage(&writer, pages);
    QPainter painter(&writer);
    return pages.layOut(&writer, pageSize(writer), part(mayGoOn, readPart, layOutPart)) &&
           paintPages(&writer, &painter, pages, 0, pages.count() - 1, part(mayGoOn, layOutPart, whole));
}

/// On paper nothing is printed of what was stopped. A preview would keep the pages that are thrown away.
void abort(QPrinter *printer)
{
    if (printer->paintEngine()->type() != QPaintEngine::Picture)
        printer->abort();
}

/// Prints the pages that the printer was told to, or all, on its page as it is set. False when that was
/// stopped, or when the printer does not work.
bool printPages(QPrinter *printer, ListPages *pages, const ListProgress &mayGoOn)
{
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    bool isDone = pages->layOut(printer, pageSize(*printer), part(mayGoOn, 0, layOutPart));
    const int count = pages->count();
    const int first = qBound(1, printer->fromPage(), count);
    const int last = printer->toPage() > 0 ? qBound(first, printer->toPage(), count) : count;
    isDone = isDone &&
             paintPages(printer, &painter, *pages, first - 1, last - 1, part(mayGoOn, layOutPart, whole));
    if (!isDone)
        abort(printer);
    return painter.end() && isDone;
}

/// Shows how far a preview is and lets the window live meanwhile.
class Preparation
{
public:
    explicit Preparation(QWidget *parent)
        : m_dialog(Texts::tr("Готуються сторінки…"), Texts::tr("&Скасувати"), 0, whole, parent)
    {
        m_dialog.setWindowModality(Qt::ApplicationModal);
        m_dialog.setMinimumDuration(patienceMs);
        m_slice.start();
    }

    bool mayGoOn(qint64 done, qint64 of)
    {
        if (m_slice.elapsed() < sliceMs)
            return true;
        m_dialog.setValue(static_cast<int>(whole * done / of));
        m_slice.start();
        return !m_dialog.wasCanceled();
    }
    ListProgress progress()
    {
        return [this](qint64 done, qint64 of) { return mayGoOn(done, of); };
    }

private:
    QProgressDialog m_dialog;
    QElapsedTimer m_slice;
};
} // namespace

void previewList(QWidget *parent, const PrintedList &list)
{
    ListPages pages(list);
    if (!pages.read(Preparation(parent).progress()))
        return;
    QPrinter printer(QPrinter::HighResolution);
    turnPage(&printer, pages);
    QPrintPreviewDialog dialog(&printer, parent);
    if (parent != nullptr)
        dialog.resize(parent->window()->size());
    dialog.setWindowTitle(Texts::tr("Перегляд перед друком"));
    auto *shown = dialog.findChild<QPrintPreviewWidget *>();
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter *target) {
        // The pages it shows are gone as soon as the new ones are begun.
        shown->setUpdatesEnabled(false);
        if (!printPages(target, &pages, Preparation(&dialog).progress()))
            QMetaObject::invokeMethod(&dialog, &QDialog::reject, Qt::QueuedConnection);
        shown->setUpdatesEnabled(true);
    });
    dialog.exec();
}

bool saveListPdf(QObject *receiver, const PrintedList &list, const QString &path)
{
    return saveInBackground(receiver, path, [list](QIODevice *file, const ListProgress &mayGoOn) {
        return paintPdf(list, file, mayGoOn);
    });
}

QString askPdfPath(QWidget *parent, const QString &suggested)
{
    QFileDialog dialog(parent, Texts::tr("Зберегти PDF"), QString(), QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(suggested + QStringLiteral(".pdf"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString fileNameOf(const QString &text)
{
    QString name = text;
    return name.replace(QRegularExpression(QStringLiteral("[\\\\/:*?\"<>|\\s]+")), QStringLiteral(" "))
        .trimmed()
        .left(longestFileName);
}
