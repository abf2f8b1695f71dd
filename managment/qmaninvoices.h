#pragma once

#include "invoicestab.h"

/// The page of the transfers of goods between shops. They are put together in the window of the sale.
class QManInvoices : public InvoicesTab
{
    Q_OBJECT

public:
    QManInvoices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

signals:
    /// Goods are to be sent; whoever has the window for that opens it.
    void sendWanted();

protected:
    void send() override { emit sendWanted(); }
    InvoiceDialog *makeAccepting(const ShownInvoice &invoice) override;
    InvoiceDialog *makeCancelling(const ShownInvoice &invoice) override;
};
