#pragma once

#include "db.h"
#include "place.h"
#include "stockdocument.h"

#include <QHash>
#include <QVector>
#include <optional>

/// How much of an item comes to a place or, below zero, leaves it; in thousandths.
struct StockChange
{
    DbId goods = 0;
    QString name;
    qint64 quantity = 0;
};

/// The stock of one shop, changed within a transaction of the caller.
namespace ShopStock {
/// What a row of `goods_shop` counts, in thousandths.
struct Count
{
    qint64 showroom = 0;
    qint64 syllable = 0;

    qint64 at(StockPlace place) const { return place == StockPlace::Showroom ? showroom : syllable; }
};
/// By the item; what the shop has never had is missing.
using Counts = QHash<DbId, Count>;

/// Locks the rows of those goods until the end of the transaction. Nothing after a reported failure.
std::optional<Counts> lock(const Db &db, DbId shop, const QVector<StockChange> &changes);
/// The first item whose count would leave what the database holds; null when all fit.
const StockChange *overflowing(const Counts &counts, StockPlace place, const QVector<StockChange> &changes);
/// Adds them up, each item once; goods that the shop has never had get their row. False after a reported
/// failure.
bool add(const Db &db, DbId shop, StockPlace place, const QVector<StockChange> &changes);
} // namespace ShopStock
