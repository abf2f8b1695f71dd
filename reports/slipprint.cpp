#include "slipprint.h"

#include "filejob.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <QtMath>

namespace {
/// Of the roll of a register, less its edges.
constexpr double paperWidthMm = 80;
constexpr double edgeMm = 4;
constexpr double slipWidthMm = paperWidthMm - 2 * edgeMm;
constexpr double mmPerInch = 25.4;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SlipPrint)
};

void layOut(QTextDocument *document, const QString &html, QPaintDevice *paper)
{
    document->documentLayout()->setPaintDevice(paper);
    document->setDefaultFont(QFont(QStringLiteral("sans-serif"), 8));
    document->setDocumentMargin(0);
    document->setHtml(html);
    document->setTextWidth(slipWidthMm / mmPerInch * paper->logicalDpiX());
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
void writePdf(const QString &html, QIODevice *file)
{
    QPdfWriter writer(file);
    QTextDocument document;
    layOut(&document, html, &writer);
    const double height = document.size().height() / writer.logicalDpiY() * mmPerInch;
    writer.setPageSize(
        QPageSize(QSizeF(paperWidthMm, qCeil(height) + 2 * edgeMm + 2), QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF(edgeMm, edgeMm, edgeMm, edgeMm), QPageLayout::Millimeter);
    printSlip(html, &writer);
}
} // namespace

void printSlip(const QString &html, QPagedPaintDevice *paper)
{
    QTextDocument document;
    layOut(&document, html, paper);
    document.setPageSize(
        QSizeF(document.textWidth(), paper->pageLayout().paintRectPixels(paper->logicalDpiY()).height()));
    QPainter painter;
    if (!painter.begin(paper))
        return;
    for (int page = 0; page < document.pageCount(); ++page) {
        if (page > 0)
            paper->newPage();
        drawPage(&document, &painter, page);
    }
}

void previewSlip(QWidget *parent, const QString &html)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(Texts::tr("Перегляд перед друком"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&html](QPrinter *paper) { printSlip(html, paper); });
    preview.exec();
}

bool saveSlipPdf(QObject *receiver, const QString &html, const QString &path)
{
    return saveInBackground(receiver, path, [html](QIODevice *file, const ListProgress &) {
        writePdf(html, file);
        return true;
    });
}
