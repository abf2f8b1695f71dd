#pragma once

#include "goodsrecord.h"

/// Replaces the prices of an item inside a transaction. What the editor does not show of a row is kept.
bool replacePrices(const Db &db, const QVector<GoodsPrice> &prices, const QString &id);
/// Replaces the barcodes of an item inside a transaction.
bool replaceBarcodes(const Db &db, const QStringList &codes, const QString &id);
/// Offers an item in the shops of these ids. Those that offer it already keep their stock.
bool offerToShops(const Db &db, const QStringList &shops, const QString &id);

/// Names the first price whose group or shop would be stored as another one, for the user; empty when there
/// is none.
QString explainPrices(const Db &db, const QVector<GoodsPrice> &prices);
/// Reports the first barcode that another item has, and that item. ownId: empty for a new one.
void explainBarcodes(const Db &db, const QStringList &codes, const QString &ownId);
