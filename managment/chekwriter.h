#pragma once

#include "documentwriter.h"

#include <QCoreApplication>
#include <QDate>

/// Writes receipts into the shared database. Failures of statements are reported by Db under the place that
/// is given to the constructor.
class ChekWriter : public DocumentWriter
{
    Q_DECLARE_TR_FUNCTIONS(ChekWriter)

public:
    ChekWriter(const Db &db, const ChekPlace &place, const char *file = __builtin_FILE(),
               int line = __builtin_LINE());

    /// Why this receipt cannot be sold into the register's open shift, to be told before it is paid: the
    /// shift would grow beyond what can be closed. Empty when it can, nothing after a failure.
    std::optional<QString> shiftRefusal(const OpenZ &z, const Receipt &receipt) const;
    /// Writes one receipt in a transaction of its own: either all of it or nothing. Another program in the
    /// way is tried twice more before it is told. chosen: the date of the receipt, none for today's; the time
    /// of day is that of SaleClock at writing, for both.
    Result write(const Receipt &receipt, const ChekPayment &payment, const QDate &chosen = QDate()) const;
    /// Whether the receipt stands in the database; nothing when the server did not tell, also while a
    /// transaction of the lost connection is still open there.
    std::optional<bool> isWritten(const WrittenChek &chek) const;

    /// What an outcome means for the user, and what to do; empty for Written.
    static QString explanation(const Result &result);
    /// Where a receipt and its payment disagree, in the user's words; empty when they are one.
    static QString disagreement(const Receipt &receipt, const ChekPayment &payment);

private:
    Result writeOnce(const Receipt &receipt, const ChekPayment &payment, const QDate &chosen) const;
    bool joinShift(const Receipt &receipt, const ChekPayment &payment, Result *result) const;
    bool writeRows(const Receipt &receipt, const ChekPayment &payment, Result *result) const;
    static QString tooMuchForShift(const QString &zNumber);
};
