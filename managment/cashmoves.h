#pragma once

#include "columns.h"
#include "rowstore.h"

/// What moved cash in the days that were asked for: service cash of the registers (rows of `cheks` of the
/// types 4 and 5) and cash between shops (`invoice`). An invoice is two moves: the sender's on the day when
/// it was sent, with what became of it, and the receiver's on the day when it was accepted. A cancelled one
/// is none: its cash is where it was. Amounts in kopecks.

struct CashMovesAsked
{
    enum Kind { All, In, Out, Sent, Accepted, OnTheWay, Missing };

    /// The shops that are meant, as a condition on `shops` with a blank before it.
    QString shops;
    Kind kind = All;
    /// From the first to the last second, as yyyyMMddhhmmss.
    QString from;
    QString to;
};

/// The columns of the list of moves, in its order.
enum class CashMove {
    Time,
    Kind,
    What,
    Shop,
    Kass,
    Person,
    In,
    Out,
    Sent,
    OnTheWay,
    Missing,
    Accepted,
    Note,
    Number,
    /// Never shown: of a receipt its shift, 0 of an invoice; ids.
    ZNumber,
    ShopId,
    KassId,
    UserId,
    Operation,
    Count
};

/// All of them, by time.
QString cashMovesSql(const CashMovesAsked &asked);
QVector<Column> cashMoveColumns();

/// By what moves are added up.
enum class CashGrouping { Shop, Register, Operation, Person, Day, Together };

/// The columns of the sums. The key, which is never shown, tells one group from every other.
enum class CashSum { Key, Name, Moves, In, Out, Sent, OnTheWay, Missing, Accepted, Count };

QVector<Column> cashSumColumns();
/// A row for each group, by name, days by time.
RowStore cashSums(const RowStore &moves, CashGrouping grouping);
/// The moves of the group of that key.
RowStore cashMovesOf(const RowStore &moves, CashGrouping grouping, const QString &key);
