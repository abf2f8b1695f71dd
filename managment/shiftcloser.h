#pragma once

#include "registerwriter.h"

#include <QCoreApplication>
#include <QDate>

/// What the database knows of a shift that is still open; amounts in kopecks.
struct ShiftFigures
{
    QString zNumber;
    /// Where it was opened: its register may stand in another shop by now.
    QString shop;
    qint64 cash = 0;
    /// Paid back in cash.
    qint64 cashRet = 0;
    /// Service cash that the shift's receipts brought in, and that they took out.
    qint64 vnesenia = 0;
    qint64 issued = 0;
    int countCheks = 0;
    int countDiskount = 0;
    int countPositionCanc = 0;
    int countChekCanc = 0;
    /// yyyyMMddhhmmss of the latest receipt; empty without one.
    QString latest;

    /// What lies in the drawer: sold for and brought in, without what was paid back and issued.
    qint64 expectedCash() const { return cash - cashRet + vnesenia - issued; }
    bool operator==(const ShiftFigures &other) const;
};

/// What the operator enters; amounts in kopecks.
struct ShiftCount
{
    int countCheks = 0;
    int countDiskount = 0;
    int countPositionCanc = 0;
    int countChekCanc = 0;
    qint64 vnesenia = 0;
    qint64 viluchenia = 0;
};

/// What tells one Z receipt from every other.
struct ClosedShift
{
    ChekPlace place;
    QString zNumber;
    QString chekNumber;
    /// yyyyMMddhhmmss
    QString time;
};

/// The day of a register in its shop's trading period: of its open shift, else of the one closed last; 0
/// before the first.
struct PeriodDay
{
    int day = 0;
    /// At least 1.
    int last = 1;
    /// The document with which the period was closed during that shift; 0 for none.
    int closedBy = 0;

    bool isLast() const { return day >= last; }
};

/// Closes the shift of a register. Failures of statements are reported by Db under the place that is given
/// to the constructor.
class ShiftCloser : private RegisterWriter
{
    Q_DECLARE_TR_FUNCTIONS(ShiftCloser)

public:
    enum Outcome {
        Closed,
        /// Nothing was written; the reason is reported.
        Failed,
        /// Nothing was written: the right has gone while the cash was counted.
        Forbidden,
        /// Nothing was written: another program has closed the shift.
        AlreadyClosed,
        /// Nothing was written: the chosen date is before the latest receipt of the shift.
        TooEarly,
        /// Nothing was written: the Z receipt cannot hold the net turnover that other programs have added up.
        TooMuch,
        /// Nothing was written: something was sold, brought in or issued since the figures were read.
        Changed,
        /// Nothing was written: another program has taken the number of the Z receipt, each time.
        Collided,
        /// Nothing was written: another program is writing to the shift, and went on doing so.
        Locked,
        /// The connection broke while the closing was confirmed, and the server cannot be asked.
        Unclear
    };

    ShiftCloser(const Db &db, const ChekPlace &place, const char *file = __builtin_FILE(),
                int line = __builtin_LINE());

    /// Nothing after a failure, and when the register has no such shift.
    std::optional<ShiftFigures> figures(const QString &zNumber) const;
    /// Of the shop in which the register's shift was opened. Nothing after a failure.
    std::optional<PeriodDay> periodDay() const;
    /// Writes the Z receipt and completes the shift, both or nothing; another program in the way is tried
    /// twice more before it is told. figures: what the operator was shown. chosen: the date of the closing,
    /// none for today's; the time of day is that of SaleClock at writing, but never before the latest
    /// receipt.
    Outcome close(const ShiftFigures &figures, const ShiftCount &count, const QDate &chosen = QDate()) const;
    /// Whether the Z receipt stands in the database; nothing when the server did not tell, also while a
    /// transaction of the lost connection is still open there.
    std::optional<bool> isClosed(const ClosedShift &shift) const;

    /// What an outcome means for the user, and what to do; empty for Closed.
    static QString explanation(Outcome outcome, const QString &zNumber);
    /// Why a shift cannot be closed at the chosen date (none: today), to be told before it is counted; empty
    /// when it can.
    static QString dateRefusal(const ShiftFigures &figures, const QDate &chosen);
    /// Why the period cannot be closed on that day; empty when it can.
    static QString periodRefusal(const PeriodDay &day);

private:
    Outcome closeInTransaction(const ClosedShift &shift, const ShiftFigures &figures,
                               const ShiftCount &count) const;
    Outcome closeOnce(const ShiftFigures &figures, const ShiftCount &count, const QString &time) const;
};

/// The texts of the statements.
namespace ClosingSql {
QString cash(const QString &kass, const QString &zNumber);
QString insertChek(const ClosedShift &shift);
QString completeZ(const ClosedShift &shift, const ShiftCount &count);
} // namespace ClosingSql
