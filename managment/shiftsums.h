#pragma once

#include "chek.h"
#include "receipt.h"

#include <QStringList>
#include <array>

/// The running sums of a shift, in kopecks, and what its row and its Z receipt can hold.
struct ShiftSums
{
    bool isOpen = false;
    /// Where it was opened: its register may stand in another shop by now.
    QString shop;
    /// Another program left sums without a value; they count as 0.
    bool hasNulls = false;
    qint64 cash = 0;
    /// Card, certificate and the fourth way.
    std::array<qint64, 3> cashless = {};
    Receipt::Turnover turnover = {};
    qint64 discount = 0;

    /// What the Z receipt says.
    qint64 net() const;
    /// With one more receipt.
    ShiftSums with(const Receipt &receipt, const ChekPayment &payment) const;
    /// False when such a shift could not be stored or not be closed any more.
    bool fits() const;
};

/// Nothing of a row that is not there.
ShiftSums shiftSums(const QStringList &cells);

namespace ShiftSql {
/// The row of one shift for shiftSums().
QString sums(const QString &kass, const QString &zNumber);
/// The same, locked until the transaction ends.
QString lockedSums(const QString &kass, const QString &zNumber);
/// Adding to NULL stays NULL: the sums are made numbers first.
QString nullsToZero(const QString &kass, const QString &zNumber);
} // namespace ShiftSql
