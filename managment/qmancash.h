#pragma once

#include "invoicestab.h"

/// The transfers of cash between shops.
class QManCash : public InvoicesTab
{
    Q_OBJECT

public:
    QManCash(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

protected:
    void send() override;
    InvoiceDialog *makeAccepting(const ShownInvoice &invoice) override;
    InvoiceDialog *makeCancelling(const ShownInvoice &invoice) override;
};
