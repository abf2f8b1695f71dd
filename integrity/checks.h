#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace integrity {
/// What is looked for, and where.
enum class CheckScope {
    Schema,     ///< the definitions of the tables: no statement, see schemashape.h
    Database,   ///< one statement
    References, ///< danglingSql() without what stands there, parted by blanks
    Shift,      ///< a condition on the sums of a shift (shiftFaultsSql())
    Receipt,    ///< a condition on the sums of a receipt (receiptFaultsSql())
    Register,   ///< a statement for each register
    Moved       ///< a statement for each register that has stood in several shops
};

/// Where a finding leads: the page of an action, and what its list is to show there. Without a condition it
/// is the receipts of the finding's register, shift and number. {page} is the page that lists the table
/// {tableName}, if there is one.
struct CheckLead
{
    const char *action;
    const char *condition;
};

/// One kind of fault. In the texts and the condition {name} stands for the column of that name of the row
/// that was found, {name:money}, {name:quantity} and {name:time} for its value as people read it; the columns
/// shop and kass tell the place.
struct Check
{
    /// Unique; the statements of receipts and shifts name it.
    const char *key;
    const char *name;
    CheckScope scope;
    /// A statement without ORDER BY and LIMIT, or the condition. {kass} and {shops} stand for the register,
    /// {differ} for that a sum of the shift is not what its receipts make, {dayAgo} for the time a day ago.
    const char *sql;
    /// What is wrong.
    const char *words;
    /// What to do.
    const char *advice;
    CheckLead lead;
};

/// All of them, in the order in which they are told.
const QVector<Check> &integrityChecks();
/// The number of the check of that key; -1 for none.
int checkNumber(const QString &key);

/// A register and what it has written: its receipts stand under every shop where it has been.
struct CheckedRegister
{
    QString kass;
    QStringList shops;
    /// About how many receipts.
    qint64 size = 0;
};

/// shop, kass, the first and the last receipt number of each stream of receipts; registers that have shifts
/// only come without a shop.
QString registersSql();
/// The shifts of a register that are not what their receipts make, all in one statement: each is of one
/// moment, whatever is sold meanwhile. The column "faults" holds the keys of the checks, parted by commas.
QString shiftFaultsSql(const CheckedRegister &reg, const QString &dayAgo);
/// The same for the receipts of a register in one shop, along the key of the table.
QString receiptFaultsSql(const QString &kass, const QString &shop);

/// One sum of a shift that its receipts make.
struct ShiftSum
{
    const char *name;
    /// Of z_zvit, and of the rows of its receipts.
    const char *stored;
    const char *reckoned;
    bool isCount;
    /// Closing puts what the operator counted in its place.
    bool isOfOpenShift;
};
const QVector<ShiftSum> &shiftSumTable();
/// The columns of both in the row that was found.
QString storedColumn(int sum);
QString reckonedColumn(int sum);
} // namespace integrity
