#pragma once

#include "place.h"

#include <QString>
#include <QVector>
#include <optional>

/// A row of an item's price list. Money in kopecks.
struct ListedPrice
{
    /// 0: the row is that of all shops of the group.
    DbId idShop = 0;
    DbId idGroup = 0;
    qint64 priority = 0;
    qint64 price = 0;
    /// The shop's address and the group's name; empty for those that are not there.
    QString shop;
    QString group;
    /// It names days or hours. No sale looks at them.
    bool isLimited = false;
};

/// Where an item is sold, and which priority of prices counts there beside 0.
struct PricePlace
{
    DbId idShop = 0;
    /// The shop's group; 0 for none.
    DbId idGroup = 0;
    qint64 priority = 0;
};

/// A price that an item has somewhere, and why it is sold at it there or is not.
struct JudgedPrice
{
    enum Verdict { InForce, Yields, Elsewhere };

    Verdict verdict = Elsewhere;
    /// In words: "Група «Місто»".
    QString source;
    /// Nothing for the item's own price, which has none.
    std::optional<qint64> priority;
    /// Nothing where the item has no price of its own.
    std::optional<qint64> price;
    QString why;
};

/// All of them in the order in which they count, that of the item itself behind the rows that fit there, and
/// at last those that do not. The first one is in force; it is the one that resolvedPriceSql() finds.
QVector<JudgedPrice> judgePrices(const QVector<ListedPrice> &rows, std::optional<qint64> ownPrice,
                                 const PricePlace &place);
