#pragma once

#include "db.h"
#include "invoice.h"

#include <functional>

/// What all writings of an invoice share, of goods and of cash: one transaction, a writer in the way tried
/// again, the answer of a lost COMMIT asked for, the invoice's row locked.
namespace InvoiceWriting {
/// Who writes, and by which columns of `invoice` the writing is known.
struct Author
{
    DbId user = 0;
    const char *userColumn = nullptr;
    const char *timeColumn = nullptr;
};
Author sender(DbId user);
Author closer(DbId user);

/// A row of `invoice`, locked to the end of the transaction.
struct Locked
{
    DbId from = 0;
    DbId to = 0;
    /// Kopecks of an invoice of cash.
    qint64 cash = 0;
};

/// The statements of a transaction, on that connection. False: the outcome of *result tells why, or Failed
/// what the statement that failed last means.
using Write = std::function<bool(const Db &db, InvoiceResult *result)>;

/// tables: what is written to. unclear: a writing before this one, which is asked for first.
InvoiceResult inTransaction(const Db &db, const Author &author, const QStringList &tables,
                            const std::optional<InvoiceMark> &unclear, const Write &write);
/// Whether that writing stands in the database; nothing when the server did not tell, also while a
/// transaction of the lost connection is still open there.
std::optional<bool> stands(const Db &db, const InvoiceMark &mark, const Author &author);

// The steps of a transaction. False: *result tells why nothing is to be written.

bool refuse(InvoiceResult *result, const QString &why);
/// Two shops are read in one order by all; a blocked one neither sends nor gets anything.
bool mayTrade(const Db &db, QVector<DbId> shops, InvoiceKind kind, InvoiceResult *result);
/// Of two who close it the later one finds it closed, and is told who was quicker.
bool lock(const Db &db, DbId invoice, InvoiceKind kind, Locked *locked, InvoiceResult *result);
/// further: what else is set, "column=value,".
bool close(const Db &db, const QString &message, const InvoiceMark &mark, const QString &further = {});
} // namespace InvoiceWriting
