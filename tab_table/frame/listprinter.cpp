#include "listprinter.h"

#include "listpages.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QSaveFile>
#include <limits>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ListPrinter)
};

constexpr int manyPages = 50;
constexpr double marginMillimetres = 12;
/// In letters of up to two bytes, with room for the ending.
constexpr int longestFileName = 120;

QSizeF pageSize(const QPagedPaintDevice &device)
{
    return device.pageLayout().paintRectPixels(device.logicalDpiX()).size();
}

/// Pages first to last, counted from 0; false when the user had enough.
bool paintPages(QPagedPaintDevice *device, QPainter *painter, const ListPages &pages, int first, int last)
{
    QProgressDialog progress(Texts::tr("Готуються сторінки…"), Texts::tr("&Скасувати"), first, last + 1,
                             QApplication::activeWindow());
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(last - first < manyPages ? std::numeric_limits<int>::max() : 0);
    for (int page = first; page <= last; ++page) {
        if (page > first)
            device->newPage();
        pages.paint(painter, page);
        if (last - first >= manyPages)
            progress.setValue(page);
        if (progress.wasCanceled())
            return false;
    }
    return true;
}

bool paintPdf(const PrintedList &list, QIODevice *file)
{
    QPdfWriter writer(file);
    writer.setTitle(list.heading.value(0));
    const double margin = marginMillimetres;
    writer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    turnPage(&writer, list);
    QPainter painter(&writer);
    const ListPages pages(list, &writer, pageSize(writer));
    return paintPages(&writer, &painter, pages, 0, pages.count() - 1);
}
} // namespace

void turnPage(QPagedPaintDevice *device, const PrintedList &list)
{
    QPageLayout layout = device->pageLayout();
    layout.setOrientation(QPageLayout::Portrait);
    const bool isWide = ListPages::naturalWidth(list, device) > layout.paintRect(QPageLayout::Inch).width();
    layout.setOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    device->setPageLayout(layout);
}

bool printList(QPrinter *printer, const PrintedList &list)
{
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    const ListPages pages(list, printer, pageSize(*printer));
    const int first = qBound(1, printer->fromPage(), pages.count());
    const int last = printer->toPage() > 0 ? qBound(first, printer->toPage(), pages.count()) : pages.count();
    const bool printed = paintPages(printer, &painter, pages, first - 1, last - 1);
    if (!printed)
        printer->abort();
    return painter.end() && printed;
}

void previewList(QWidget *parent, const PrintedList &list)
{
    QPrinter printer(QPrinter::HighResolution);
    turnPage(&printer, list);
    QPrintPreviewDialog dialog(&printer, parent);
    if (parent != nullptr)
        dialog.resize(parent->window()->size());
    dialog.setWindowTitle(Texts::tr("Перегляд перед друком"));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&list](QPrinter *target) { printList(target, list); });
    dialog.exec();
}

bool saveListPdf(const PrintedList &list, const QString &path, QString *error)
{
    QString ignored;
    QString &why = error == nullptr ? ignored : *error;
    why.clear();
    const QFileInfo there(path);
    // The new file would take the place of a device.
    if (there.exists() && !there.isFile()) {
        why = Texts::tr("Це не звичайний файл.");
        return false;
    }
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    const bool opened = file.open(QIODevice::WriteOnly);
    if (opened && !paintPdf(list, &file))
        return false;
    // What does not fit at the end would not be noticed without the flush.
    const bool saved = opened && file.flush() && file.commit();
    if (!saved)
        why = file.errorString();
    return saved;
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
