#include "slipview.h"
#include "ui_slipview.h"

#include "listprinter.h"
#include "slipprint.h"

SlipView::SlipView(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::SlipView>())
{
    ui->setupUi(this);
    m_note = new WaitNote(ui->labelNote, this);
    connect(ui->pbPrint, &QPushButton::clicked, this, &SlipView::print);
    connect(ui->pbPdf, &QPushButton::clicked, this, &SlipView::savePdf);
    clear();
}

SlipView::~SlipView() = default;

void SlipView::showSlip(const Slip &slip)
{
    m_fileName = slip.fileName();
    setPage(slip.html());
}

void SlipView::expect()
{
    m_note->begin(tr("Читається…"));
}

void SlipView::clear()
{
    setPage(QString());
}

void SlipView::setPage(const QString &html)
{
    keep();
    m_html = html;
    ui->tbSlip->setHtml(html);
    for (QPushButton *button : {ui->pbPrint, ui->pbPdf})
        button->setEnabled(!html.isEmpty());
}

void SlipView::print()
{
    previewSlip(this, m_html);
}

void SlipView::savePdf()
{
    // The slip shown may become another one while the file is chosen.
    const QString html = m_html;
    const QString path = askPdfPath(this, m_fileName);
    if (!path.isEmpty())
        saveSlipPdf(m_receiver, html, path);
}
