#pragma once

#include "actiontimes.h"
#include "job.h"
#include "place.h"
#include "rowstore.h"

#include <QMap>
#include <QStringList>
#include <QVector>

/// A promotion on its way to goods of shops: what would change is read and shown first, and exactly that is
/// written (actionassignment.h).

/// Which goods of which shops are to have which promotion.
struct ActionChoice
{
    /// 1 takes promotions off.
    DbId action = 0;
    /// 0 for all.
    DbId goodsGroup = 0;
    QString words;
    /// Only these, when there are any.
    QStringList barcodes;
    /// Only goods that have this one now; 0 for whatever they have.
    DbId has = 0;
    /// Shops with their addresses, in the order of their numbers.
    QVector<QPair<DbId, QString>> shops;
    /// Which price of a price list counts where it has none with priority 0.
    int priority = 0;

    bool operator==(const ActionChoice &other) const;
};

/// What becomes of an item in a shop.
enum class ActionVerdict {
    Change,
    Same,    ///< it has this promotion
    Blocked, ///< it is not sold: blocked
    Service, ///< it is not sold: of a service group
    Absent,  ///< the shop does not have it
    Count
};

/// The columns of the list.
enum class PlanColumn { Shop, Code, Goods, Price, Was, PriceNow, PriceThen, Verdict, Count };

/// An item in a shop that is to be changed.
struct PlannedChange
{
    DbId shop = 0;
    DbId goods = 0;
    /// The promotion that it had when it was shown.
    DbId was = 0;
    /// Of the list.
    int row = 0;
};

struct ActionPlan
{
    ActionChoice choice;
    QString name;
    ActionTimes times;
    /// All that was shown of the promotion, as one cell.
    QString identity;
    /// In the order of the table's key.
    QVector<PlannedChange> changes;
    QMap<ActionVerdict, int> counts;
    int goodsCount = 0;
    int shopsCount = 0;
    QStringList unknownBarcodes;
    RowStore rows;

    bool isEmpty() const { return changes.isEmpty(); }
};

/// Reads what would change. A cancelled or failed job leaves a plan that is of no use.
JobResult planAction(JobContext &context, const ActionChoice &choice, ActionPlan *plan);
/// "Зміниться: 120 (товарів 40 у 3 магазинах). Пропущено: …", for the user.
QString planSummary(const ActionPlan &plan);

/// The promotion as one cell, to tell whether it is still the one that was shown.
QString actionIdentitySql(DbId action);
/// What one piece or kilogram costs while a promotion is in force, in kopecks: as the sale reckons it.
qint64 priceWith(qint64 price, int kind, qint64 value);
