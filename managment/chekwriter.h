#pragma once

#include "cheksql.h"
#include "registerwriter.h"

#include <QCoreApplication>
#include <QDate>

/// Writes receipts into the shared database. Failures of statements are reported by Db under the place that
/// is given to the constructor.
class ChekWriter : private RegisterWriter
{
    Q_DECLARE_TR_FUNCTIONS(ChekWriter)

public:
    enum Outcome {
        Written,
        /// Nothing was written; the reason is reported.
        Failed,
        /// Nothing was written: the receipt and its payment do not agree, or a number or sum would leave what
        /// the database holds. Paying again does not help; the explanation says what does.
        Refused,
        /// Nothing was written: the register's shift belongs to another user.
        Busy,
        /// Nothing was written: another program has closed the shift meanwhile. The next try opens a new one.
        ShiftClosed,
        /// Nothing was written: shop or register are blocked by now, or no longer belong together.
        Blocked,
        /// Nothing was written: another program has taken the receipt's or the shift's number, each time.
        Collided,
        /// Nothing was written: another program is writing to the stock, and went on doing so.
        Locked,
        /// The connection broke while the receipt was confirmed, and the server cannot be asked: it may
        /// stand in the database or not.
        Unclear
    };

    struct Result
    {
        Outcome outcome = Failed;
        /// Complete for Written and Unclear.
        WrittenChek chek = {};
        /// The reason in the user's words where the outcome alone does not tell it.
        QString why = {};
    };

    ChekWriter(const Db &db, const ChekPlace &place, const char *file = __builtin_FILE(),
               int line = __builtin_LINE());

    /// Nothing after a failure.
    std::optional<OpenZ> openZ() const;
    /// The number of the register's next receipt; empty after a failure.
    QString newChekNumber() const;
    /// Opens a shift after the last closed one and returns its number; empty after a failure, and when there
    /// are no more numbers.
    QString createZ() const;
    bool isOwn(const OpenZ &z) const { return z.number.isEmpty() || z.user == m_place.user; }

    /// Why this receipt cannot be sold into the register's open shift, to be told before it is paid: the
    /// shift would grow beyond what can be closed. Empty when it can, nothing after a failure.
    std::optional<QString> shiftRefusal(const OpenZ &z, const Receipt &receipt) const;
    /// Why nothing can be sold at the register now: blocked, moved to another shop, its shift open elsewhere.
    /// Empty when it can, nothing after a failure.
    std::optional<QString> placeRefusal() const;

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
    std::optional<qint64> newZNumber() const;
    QString createZ(const QString &zNumber) const;
    Result writeOnce(const Receipt &receipt, const ChekPayment &payment, const QDate &chosen) const;
    bool takeNumber(Result *result) const;
    bool openShift(Result *result) const;
    bool joinShift(const Receipt &receipt, const ChekPayment &payment, Result *result) const;
    bool checkPlace(Result *result) const;
    std::optional<QString> placeRefusal(const char *lock) const;
    bool writeRows(const Receipt &receipt, const ChekPayment &payment, Result *result) const;
    static QString tooMuchForShift(const QString &zNumber);
    static QString noMoreNumbers();
};
