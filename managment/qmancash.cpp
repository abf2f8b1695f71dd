#include "qmancash.h"

#include "qclosecash.h"
#include "qloadeduser.h"
#include "qsendcash.h"

QManCash::QManCash(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : InvoicesTab(InvoiceKind::Cash, db, user, receiver, set, parent)
{
    setPermission(Permission::Finance);
    begin();
}

/// The new one is shown, whatever the filter was.
void QManCash::send()
{
    user()->beginAct();
    auto *dialog = new QSendCash(connection()->connectionName(), user(), receiver(), this);
    DbId sent = 0;
    connect(dialog, &QDialog::accepted, dialog, [dialog, &sent] { sent = dialog->invoice(); });
    if (runDialog(dialog))
        showInvoice(sent);
}

InvoiceDialog *QManCash::makeAccepting(const ShownInvoice &invoice)
{
    return new QCloseCash(QCloseCash::Accepting, connection()->connectionName(), user(), receiver(), invoice,
                          this);
}

InvoiceDialog *QManCash::makeCancelling(const ShownInvoice &invoice)
{
    return new QCloseCash(QCloseCash::Cancelling, connection()->connectionName(), user(), receiver(), invoice,
                          this);
}
