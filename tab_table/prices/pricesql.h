#pragma once

#include "place.h"

#include <QDateTime>
#include <QString>

/// What an item costs in a shop, as expressions for a statement that has goods, goods_shop and action under
/// their own names. The list of a sale is made of them, and what explains its prices.

/// Kopecks, NULL where there is no price: of the item's price list the shop's own one, that of its group,
/// that of group 1, each with priority 0 and then with the given one; without any of them goods.price.
QString resolvedPriceSql(DbId idShop, int priority);
/// The same in those shops of a group that have no price of their own. Needs only goods.
QString resolvedGroupPriceSql(DbId idGroup, int priority);
/// The kind of the promotion in force, 1 for none: a dated one only between its ends, in its hours and on its
/// days.
QString actionInForceSql(const QDateTime &time);
