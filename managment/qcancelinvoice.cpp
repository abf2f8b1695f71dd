#include "qcancelinvoice.h"
#include "ui_qcancelinvoice.h"

#include "invoicewriter.h"

QCancelInvoice::QCancelInvoice(const QString &connection, QObject *receiver, DbId invoice,
                               const QString &words, DbId user, QWidget *parent)
    : InvoiceDialog(connection, receiver, parent)
    , ui(std::make_unique<Ui::QCancelInvoice>())
    , m_invoice(invoice)
    , m_user(user)
{
    ui->setupUi(this);
    ui->labelWords->setText(
        tr("Накладна № %1 ще в дорозі: %2.\nПісля скасування товар повертається на залишок відправника, і "
           "прийняти накладну вже не можна.")
            .arg(invoice)
            .arg(words));
    offerPlaces(ui->cbPlace);
    connect(ui->pbOk, &QPushButton::clicked, this, &EditDialog::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &EditDialog::btcancel);
}

QCancelInvoice::~QCancelInvoice() = default;

/// Whoever waits for the goods learns it by this.
QString QCancelInvoice::refusal() const
{
    return ui->leMessage->text().trimmed().isEmpty() ? tr("Напишіть одержувачу, чому передачу скасовано.")
                                                     : QString();
}

void QCancelInvoice::save()
{
    const QString why = firstRefusal();
    if (!why.isEmpty()) {
        warn(why);
        return ui->leMessage->setFocus();
    }
    CancelDraft draft;
    draft.invoice = m_invoice;
    draft.user = m_user;
    draft.place = chosenPlace(ui->cbPlace);
    draft.message = ui->leMessage->text();
    write([draft](const Db &db, const std::optional<InvoiceMark> &unclear) {
        CancelDraft again = draft;
        again.unclear = unclear;
        return cancelInvoice(db, again);
    });
}

void QCancelInvoice::notWritten()
{
    ui->leMessage->setReadOnly(isUnclear());
    ui->cbPlace->setDisabled(isUnclear());
}
