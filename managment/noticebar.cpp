#include "noticebar.h"
#include "ui_noticebar.h"

#include <QApplication>

NoticeBar::NoticeBar(QWidget *parent) : QFrame(parent), ui(std::make_unique<Ui::NoticeBar>())
{
    ui->setupUi(this);
    setBackgroundRole(QPalette::ToolTipBase);
    ui->lbNotice->setForegroundRole(QPalette::ToolTipText);
    connect(ui->pbShowSlip, &QPushButton::clicked, this, [this] { wantSlip(false); });
    connect(ui->pbPrintSlip, &QPushButton::clicked, this, [this] { wantSlip(true); });
    tell(QString());
}

NoticeBar::~NoticeBar() = default;

void NoticeBar::tell(const QString &text, const std::optional<Slip> &slip)
{
    QStringList words = m_kept;
    if (!text.isEmpty())
        words.append(text);
    ui->lbNotice->setText(words.join(QLatin1Char('\n')));
    setVisible(!words.isEmpty());
    m_slip = slip;
    const bool isInvoice = slip && slip->kass.isEmpty();
    ui->pbShowSlip->setText(isInvoice ? tr("Показати накладну") : tr("Показати чек"));
    ui->pbPrintSlip->setText(isInvoice ? tr("Др&укувати накладну") : tr("Др&укувати чек"));
    for (QPushButton *button : {ui->pbShowSlip, ui->pbPrintSlip})
        button->setVisible(m_slip.has_value());
}

QString NoticeBar::text() const
{
    return ui->lbNotice->text();
}

void NoticeBar::keep(const QString &text)
{
    QApplication::beep();
    m_kept.append(text);
    m_kept.removeDuplicates();
    tell(QString());
}

void NoticeBar::wantSlip(bool print)
{
    if (m_slip)
        emit slipWanted(m_slip->kass, m_slip->chek, print);
}
