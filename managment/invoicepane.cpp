#include "invoicepane.h"
#include "ui_invoicepane.h"

#include "invoicelist.h"
#include "money.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "signs.h"

#include <QPushButton>

namespace {
int column(InvoiceLineColumn of)
{
    return static_cast<int>(of);
}

void offer(QPushButton *button, const QString &refusal)
{
    button->setEnabled(refusal.isEmpty());
    button->setToolTip(refusal);
}
} // namespace

InvoicePane::InvoicePane(InvoiceKind kind, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                         QWidget *parent)
    : QWidget(parent), m_kind(kind), ui(std::make_unique<Ui::InvoicePane>())
{
    ui->setupUi(this);
    ui->lines->open(db, user, receiver);
    const bool isCash = kind == InvoiceKind::Cash;
    ui->lines->setColumns(isCash ? cashLineColumns() : invoiceLineColumns(),
                          isCash ? QStringLiteral("InvoicePaneOfCash") : QStringLiteral("InvoicePane"));
    ui->lines->setTotals([this] { return totals(); });
    if (isCash) {
        ui->lines->setAccessibleName(tr("Готівка накладної"));
        // Three sums: the room is for the list above.
        ui->lines->view()->setMaximumHeight(fontMetrics().height() * 9);
        ui->lines->view()->setMinimumHeight(fontMetrics().height() * 4);
    } else {
        ui->lines->sumUsually(column(InvoiceLineColumn::Sent));
    }
    // The paper has a button of its own, and its keys are those of the list above.
    ui->lines->footer()->findChild<QPushButton *>(QStringLiteral("pbPrintList"))->hide();
    for (QPushButton *button : ui->lines->footer()->findChildren<QPushButton *>())
        button->setShortcut({});
    connect(ui->lines, &ListPane::rowsShown, this, &InvoicePane::linesShown);
    connectButtons();
    showInvoice({}, {});
}

InvoicePane::~InvoicePane() = default;

void InvoicePane::connectButtons()
{
    connect(ui->pbSend, &QPushButton::clicked, this, &InvoicePane::sendPressed);
    connect(ui->pbAccept, &QPushButton::clicked, this, &InvoicePane::acceptPressed);
    connect(ui->pbCancelInvoice, &QPushButton::clicked, this, &InvoicePane::cancelPressed);
    connect(ui->pbPrintInvoice, &QPushButton::clicked, this, &InvoicePane::print);
}

ListPane *InvoicePane::lines() const
{
    return ui->lines;
}

bool InvoicePane::isLoading() const
{
    return ui->lines->isLoading();
}

void InvoicePane::showInvoice(const ShownInvoice &invoice, const InvoiceRefusals &refusals)
{
    m_invoice = invoice;
    offer(ui->pbSend, refusals.send);
    const QString none = invoice.id == 0 ? tr("Виберіть накладну у списку.") : QString();
    offer(ui->pbAccept, none.isEmpty() ? refusals.accept : none);
    offer(ui->pbCancelInvoice, none.isEmpty() ? refusals.cancel : none);
    offer(ui->pbPrintInvoice, none);
    ui->labelInvoice->setText(none.isEmpty() ? heading().join(QStringLiteral("; ")) : none);
    ui->lines->setHeading(heading());
    ui->lines->setEmptyText(none.isEmpty() ? tr("У накладній немає товарів.") : none);
    ui->lines->clear();
    if (invoice.id != 0)
        ui->lines->load(m_kind == InvoiceKind::Cash ? cashLinesSql(invoice.id) : invoiceLinesSql(invoice.id));
}

QString InvoicePane::title() const
{
    const bool isCash = m_kind == InvoiceKind::Cash;
    switch (m_invoice.state) {
    case InvoiceState::OnTheWay:
        return isCash ? tr("Накладна на передачу готівки № %1") : tr("Накладна на передачу товару № %1");
    case InvoiceState::Cancelled:
        return tr("Скасована накладна № %1");
    case InvoiceState::Accepted:
    case InvoiceState::Different:
        break;
    }
    return isCash ? tr("Акт приймання готівки № %1") : tr("Акт приймання товару № %1");
}

QStringList InvoicePane::heading() const
{
    const bool isOnTheWay = m_invoice.state == InvoiceState::OnTheWay;
    QStringList lines = {
        title().arg(m_invoice.id),
        tr("З магазину: %1").arg(m_invoice.from),
        tr("До магазину: %1").arg(m_invoice.to),
        tr("Відправлено: %1").arg(m_invoice.sent),
    };
    if (!m_invoice.messageFrom.isEmpty())
        lines.append(tr("Повідомлення відправника: %1").arg(m_invoice.messageFrom));
    if (!isOnTheWay)
        lines.append((m_invoice.state == InvoiceState::Cancelled ? tr("Скасовано: %1") : tr("Прийнято: %1"))
                         .arg(m_invoice.closed));
    if (!m_invoice.messageTo.isEmpty())
        lines.append(tr("Повідомлення одержувача: %1").arg(m_invoice.messageTo));
    return lines;
}

QStringList InvoicePane::totals() const
{
    QStringList lines = m_kind == InvoiceKind::Cash ? QStringList() : goodsTotals();
    lines.append(m_kind == InvoiceKind::Cash
                     ? tr("Видав: ____________________   Переніс: ____________________   Прийняв: "
                          "____________________")
                     : tr("Відправив: ____________________   Прийняв: ____________________"));
    return lines;
}

/// Out of the rows that are shown: below the list, on paper and in files one and the same.
QStringList InvoicePane::goodsTotals() const
{
    const QRowModel *rows = ui->lines->model();
    qint64 sent = 0;
    qint64 accepted = 0;
    int differing = 0;
    for (int row = 0; row < rows->rowCount(); ++row) {
        sent += rows->number(row, column(InvoiceLineColumn::Sent));
        accepted += rows->number(row, column(InvoiceLineColumn::Accepted));
        differing += rows->stored(row, column(InvoiceLineColumn::Result)) == QLatin1String("0") ? 1 : 0;
    }
    QStringList lines = {tr("Позицій: %1, надіслано: %2").arg(rows->rowCount()).arg(quantityShown(sent))};
    const bool isAccepted =
        m_invoice.state == InvoiceState::Accepted || m_invoice.state == InvoiceState::Different;
    if (isAccepted)
        lines.append(tr("Прийнято: %1, різниця: %2, позицій з різницею: %3")
                         .arg(quantityShown(accepted), quantityShown(accepted - sent))
                         .arg(differing));
    return lines;
}

void InvoicePane::linesShown()
{
    if (m_kind == InvoiceKind::Cash)
        return;
    QRowModel *rows = ui->lines->model();
    for (int row = 0; row < rows->rowCount(); ++row) {
        if (rows->stored(row, column(InvoiceLineColumn::Result)) != QLatin1String("0"))
            continue;
        rows->setRowColour(row, invoiceStateColour(InvoiceState::Different));
        showSign(rows, rows->index(row, column(InvoiceLineColumn::Difference)), Sign::Different,
                 tr("Прийнято не стільки, скільки надіслано."));
    }
    ui->lines->setDetails(m_invoice.id == 0 ? QString() : goodsTotals().join(QStringLiteral(". ")));
}

void InvoicePane::print()
{
    ui->lines->preview();
}
