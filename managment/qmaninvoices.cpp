#include "qmaninvoices.h"

#include "qacceptinvoice.h"
#include "qcancelinvoice.h"
#include "qloadeduser.h"

QManInvoices::QManInvoices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                           QWidget *parent)
    : InvoicesTab(InvoiceKind::Goods, db, user, receiver, set, parent)
{
    begin();
}

InvoiceDialog *QManInvoices::makeAccepting(const ShownInvoice &invoice)
{
    return new QAcceptInvoice(connection(), user(), receiver(), invoice.id, this);
}

InvoiceDialog *QManInvoices::makeCancelling(const ShownInvoice &invoice)
{
    const QString words = QStringList{invoice.from, invoice.to}.join(QStringLiteral(" → "));
    return new QCancelInvoice(connection()->connectionName(), receiver(), invoice.id, words,
                              user()->idUser().toUInt(), this);
}
