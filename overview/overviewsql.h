#pragma once

#include "chainstate.h"

#include <QStringList>

class QLoadedUser;

/// The three statements of the overview.

namespace PlaceColumn {
enum {
    Tuned,
    HasShops,
    HasRegisters,
    HasGoods,
    HasStock,
    HasShifts,
    Shop,
    Address,
    ShopBlock,
    Kass,
    KassName,
    KassBlock,
    Line
};
}
namespace ShiftColumn {
enum {
    Kass,
    Number,
    Shop,
    User,
    Closed,
    Sold,
    Discount,
    Paid,
    Returned,
    ReturnedDiscount,
    PaidBack,
    Receipts,
    ClosedBefore
};
}

/// The registers of the shops that the user may see, with the state of their line; in each row, of which
/// there is always one, what the database has at all.
QString placesSql(const QLoadedUser &user);
/// The open shifts of these shops, and those that were closed since that day.
QString shiftsSql(const QLoadedUser &user, const QDate &since);

/// What is counted beside; each with its condition on the tables of the list that shows it.
enum class Concern { NegativeStock, EndingActions, UnpricedGoods, BlockedLevels };
constexpr int concernCount = 4;
QString countCondition(Concern count, const QDate &today);
/// Rows of kind, register, Z number and value: all counts (kind 0, the register being the Concern) and, where
/// the receipts have their indexes, the last receipt of each register (1) and the begin of each open shift
/// (2).
QString countsSql(const QLoadedUser &user, const ChainState &chain);

struct Counted
{
    /// By Concern; -1 as long as it is not known.
    QVector<qint64> counts = QVector<qint64>(concernCount, -1);
    ReceiptTimes times;
};
Counted countedOf(const RowStore &rows);

/// "(z_zvit.id_zzvit,z_zvit.id_kass) IN ((5,1),…)"; of none a condition that nothing fulfils.
QString shiftsCondition(const QVector<ShiftKey> &keys);
/// "table.column IN (1,2)"; of none a condition that nothing fulfils.
QString idsCondition(const QString &column, const QVector<DbId> &ids);
