#pragma once

#include "invoicedialog.h"

#include <memory>

namespace Ui {
class QCancelInvoice;
}

/// The sender takes back an invoice that is on the way: asks where the goods are put, and why.
class QCancelInvoice : public InvoiceDialog
{
    Q_OBJECT

public:
    /// words: what the invoice is. user: who cancels.
    QCancelInvoice(const QString &connection, QObject *receiver, DbId invoice, const QString &words,
                   DbId user, QWidget *parent);
    ~QCancelInvoice() override;

protected:
    QString refusal() const override;
    void save() override;
    void notWritten() override;

private:
    std::unique_ptr<Ui::QCancelInvoice> ui;
    DbId m_invoice;
    DbId m_user;
};
