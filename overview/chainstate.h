#pragma once

#include "place.h"

#include <QDateTime>
#include <QHash>
#include <QPair>
#include <QVector>

class RowStore;

/// How the chain stands just now, as values that the overview shows: of the shops that its user may see.
/// Money is kopecks; times are those of the database, without a zone: UTC in Qt's words.

/// A shift by its register and its Z number.
using ShiftKey = QPair<DbId, quint32>;

/// A row of z_zvit.
struct OverviewShift
{
    ShiftKey key;
    DbId shop = 0;
    /// Who sells in it; empty where the row names nobody.
    QString user;
    /// Invalid while the shift is open.
    QDateTime closed;
    /// Sales before the discount, the discount, and what was paid for them in all ways.
    qint64 sold = 0;
    qint64 discount = 0;
    qint64 paid = 0;
    /// The same of what was taken back.
    qint64 returned = 0;
    qint64 returnedDiscount = 0;
    qint64 paidBack = 0;
    qint64 receipts = 0;
    /// Of an open shift: when the one before was closed; it was not begun earlier.
    QDateTime closedBefore;
    /// Of an open shift: its first document, where receipts are found by their number.
    QDateTime begun;

    bool isOpen() const { return !closed.isValid(); }
    /// As the Z-reports have it: sales without their discount, returns not taken off.
    qint64 turnover() const { return sold - discount; }
    /// What was sold is not what was paid, or what was taken back is not what was paid back.
    bool disagrees() const { return sold - discount != paid || returned - returnedDiscount != paidBack; }
};

struct OverviewRegister
{
    /// Elsewhere: it stands in no shop that is seen, only a shift of it is of this one.
    enum class Line { Unknown, On, Off, Elsewhere };

    DbId id = 0;
    QString name;
    bool isBlocked = false;
    Line line = Line::Unknown;
    QDateTime lineSince;
    /// Usually one.
    QVector<OverviewShift> open;
    /// Of the shifts closed today, and of those closed a week ago.
    qint64 closedToday = 0;
    qint64 weekAgo = 0;
    /// The last sale or return, where receipts are found by their number.
    QDateTime lastReceipt;
};

struct OverviewShop
{
    DbId id = 0;
    QString address;
    bool isBlocked = false;
    QVector<OverviewRegister> registers;
};

struct OverviewDay
{
    QDate day;
    /// The shifts closed on that day; on the last day those that are still open, too.
    qint64 turnover = 0;
    int shifts = 0;
};

/// What a register, a shop or the chain adds up to.
struct StateSums
{
    int shifts = 0;
    qint64 turnover = 0;
    qint64 closedToday = 0;
    qint64 weekAgo = 0;
    qint64 receipts = 0;
    QDateTime lastReceipt;
    /// Registers that are not blocked, and those of them that are on line.
    int registers = 0;
    int onLine = 0;

    /// Rounded to whole kopecks, halves up; 0 without receipts.
    qint64 averageReceipt() const;
    void add(const StateSums &other);
};

/// What a new chain needs one after the other before it can sell.
struct FirstSteps
{
    bool hasShops = false;
    bool hasRegisters = false;
    bool hasGoods = false;
    bool hasStock = false;
    bool hasShifts = false;

    /// The first sale is still to come.
    bool areOpen() const { return !(hasShops && hasRegisters && hasGoods && hasStock && hasShifts); }
};

/// What only the receipts tell.
struct ReceiptTimes
{
    QHash<DbId, QDateTime> last;
    QHash<ShiftKey, QDateTime> begun;
};

struct ChainState
{
    QDate today;
    FirstSteps steps;
    /// Both optional indexes of the receipts stand.
    bool isTuned = false;
    /// By address; registers by name.
    QVector<OverviewShop> shops;
    /// The newest comes last.
    QVector<OverviewDay> days;
    /// Closed in these days.
    QVector<ShiftKey> disagreeing;
};

/// So many days are drawn, today being the last of them.
constexpr int drawnDays = 14;

/// Out of the rows of placesSql() and shiftsSql(). Blocked shops and registers are left out unless something
/// is open there or was sold a week ago; a shift whose register is not among those of the shops gets a line
/// of its own in the shop that it names.
ChainState chainState(const RowStore &places, const RowStore &shifts, const QDate &today);
/// Puts in what is known of the receipts.
void addReceiptTimes(ChainState *chain, const ReceiptTimes &times);

StateSums sumsOf(const OverviewRegister &reg);
StateSums sumsOf(const OverviewShop &shop);
StateSums sumsOf(const ChainState &chain);

QVector<OverviewShift> openShifts(const ChainState &chain);
/// The open shifts begun more than a day before now. Where the receipts tell nothing, those whose shift
/// before was closed more than a day before.
QVector<ShiftKey> oldShifts(const ChainState &chain, const QDateTime &now);
/// The registers, not blocked, that are off line for an hour or longer.
QVector<DbId> silentRegisters(const ChainState &chain, const QDateTime &now);
