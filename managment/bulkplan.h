#pragma once

#include "bulkprice.h"
#include "job.h"
#include "place.h"
#include "rowstore.h"

#include <QMap>
#include <QVector>

/// Many goods changed at once: what would change is read and shown first, and exactly that is written
/// (bulkwriter.h).

/// What of the goods.
enum class BulkField { Price, Group, Tax, Block, Rule, Count };

/// Which goods. 0 and empty stand for all.
struct GoodsFilter
{
    enum Blocked { Any, Sold, OnlyBlocked };

    DbId group = 0;
    DbId tax = 0;
    Blocked blocked = Any;
    QString words;
    QStringList barcodes;

    bool operator==(const GoodsFilter &other) const;
};

/// Where the prices stand that are changed: 0 for goods.price, else the group whose rows of prices.
using BulkPlace = QPair<DbId, QString>;

/// What is to become of which goods.
struct BulkChoice
{
    GoodsFilter goods;
    BulkField field = BulkField::Price;
    /// Of prices.
    PriceStep step;
    QVector<BulkPlace> places;
    int priority = 0;
    /// A group's price is made of the one in force there where it has none.
    bool createsMissing = false;
    /// Of all else; the id and its name. -1: none is chosen.
    qint64 value = -1;
    QString valueName;

    bool isPrice() const { return field == BulkField::Price; }
    bool operator==(const BulkChoice &other) const;
};

/// What becomes of an item, or of one of its prices.
enum class BulkVerdict {
    Change,
    Create,    ///< a group's price that is not there yet
    Contrary,  ///< changed, but rounding goes against the step
    Same,      ///< it is what it is to become
    NoPrice,   ///< nothing to reckon from
    NoRow,     ///< the group has no price, and none is to be made
    Blocked,   ///< it is not sold
    TooLow,    ///< nothing would be left
    TooHigh,   ///< more than a price may be
    RuleTaken, ///< another item of the group has that rule
    RuleTwice, ///< several items of the group would get it
    Count
};
bool isWritten(BulkVerdict verdict);

/// The columns of the two lists.
enum class BulkPriceColumn { Code, Goods, Group, Base, Place, Was, Then, Difference, Others, Verdict, Count };
enum class BulkFieldColumn { Code, Goods, Group, Base, Was, Then, Verdict, Count };

/// A cell that is to be changed; nothing: NULL, or no row of prices.
struct BulkChange
{
    DbId goods = 0;
    /// See BulkPlace.
    DbId place = 0;
    std::optional<qint64> from;
    std::optional<qint64> to;
    /// Of the list.
    int row = 0;
    /// Of a price to be created: the one in force that it is reckoned from.
    std::optional<qint64> basis = std::nullopt;
};

struct BulkPlan
{
    BulkChoice choice;
    /// By place and goods.
    QVector<BulkChange> changes;
    QMap<BulkVerdict, int> counts;
    QStringList unknownBarcodes;
    int goodsCount = 0;
    /// Of the prices that change: the sums of those that are there, and of the new ones.
    qint64 sumBefore = 0;
    qint64 sumThen = 0;
    /// Of those that are to be blocked: in stock, and on the way between shops.
    int inStock = 0;
    int onTheWay = 0;
    RowStore rows;

    bool isEmpty() const { return changes.isEmpty(); }
    int verdictColumn() const;
};

/// Reads what would change. A cancelled or failed job leaves a plan that is of no use.
JobResult planBulk(JobContext &context, const BulkChoice &choice, BulkPlan *plan);
/// "Зміниться цін: 120 (товарів 40)…", a sentence each, for the user.
QStringList bulkSummary(const BulkPlan &plan);
/// What is done, for a question: "+5.00 %, до .99; базова ціна товару".
QString bulkWords(const BulkChoice &choice);
