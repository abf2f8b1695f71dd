#pragma once

#include "db.h"
#include "invoice.h"

/// What is done with an invoice of goods, each in one transaction: all of it is written or nothing. Another
/// program in the way is tried twice more before anybody hears of it; of a COMMIT whose answer was lost the
/// server is asked. Tasks call them: they know no window.

/// The goods leave the sender's stock and are on the way.
InvoiceResult sendInvoice(const Db &db, const InvoiceDraft &draft);
/// Whether that sending stands in the database; nothing when the server did not tell.
std::optional<bool> isInvoiceSent(const Db &db, const InvoiceMark &mark);
/// What was counted comes to the receiver's stock, and the invoice is closed. Of two who accept it the later
/// one is told who was quicker.
InvoiceResult acceptInvoice(const Db &db, const AcceptDraft &draft);
/// What is on the way comes back to the sender's stock, and the invoice is closed.
InvoiceResult cancelInvoice(const Db &db, const CancelDraft &draft);

/// Why the draft cannot be sent as it stands, in the user's words; empty when it can. Asks no server.
QString sendRefusal(const InvoiceDraft &draft);
/// What an outcome means for the user, and what to do; empty for Written and Short.
QString explanation(const InvoiceResult &result);
/// What is agreed to when the user was asked about them and said yes.
QHash<DbId, qint64> agreedCounts(const QVector<Shortage> &shortages);
