#include "slipprint.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>
#include <QtMath>

namespace {
/// Of the roll of a register, less its edges.
constexpr double paperWidthMm = 80;
constexpr double edgeMm = 4;
constexpr double slipWidthMm = paperWidthMm - 2 * edgeMm;
constexpr double mmPerInch = 25.4;

void layOut(QTextDocument *document, const QString &html, QPrinter *printer)
{
    document->documentLayout()->setPaintDevice(printer);
    document->setDefaultFont(QFont(QStringLiteral("sans-serif"), 8));
    document->setDocumentMargin(0);
    document->setHtml(html);
    document->setTextWidth(slipWidthMm / mmPerInch * printer->logicalDpiX());
}

void drawPage(QTextDocument *document, QPainter *painter, int page)
{
    const QSizeF size = document->pageSize();
    QAbstractTextDocumentLayout::PaintContext context;
    // Paper is white whatever the window looks like.
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = QRectF(0, page * size.height(), size.width(), size.height());
    painter->save();
    painter->translate(0, -context.clip.top());
    painter->setClipRect(context.clip);
    document->documentLayout()->draw(painter, context);
    painter->restore();
}
} // namespace

void printSlip(const QString &html, QPrinter *printer)
{
    QTextDocument document;
    layOut(&document, html, printer);
    document.setPageSize(
        QSizeF(document.textWidth(), printer->pageLayout().paintRectPixels(printer->resolution()).height()));
    QPainter painter;
    if (!painter.begin(printer))
        return;
    for (int page = 0; page < document.pageCount(); ++page) {
        if (page > 0)
            printer->newPage();
        drawPage(&document, &painter, page);
    }
}

bool saveSlipPdf(const QString &html, const QString &path)
{
    // The printer itself does not tell when it cannot write.
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.close();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    QTextDocument document;
    layOut(&document, html, &printer);
    const double height = document.size().height() / printer.logicalDpiY() * mmPerInch;
    printer.setPageSize(
        QPageSize(QSizeF(paperWidthMm, qCeil(height) + 2 * edgeMm + 2), QPageSize::Millimeter));
    printer.setPageMargins(QMarginsF(edgeMm, edgeMm, edgeMm, edgeMm), QPageLayout::Millimeter);
    printSlip(html, &printer);
    return printer.printerState() != QPrinter::Error;
}
