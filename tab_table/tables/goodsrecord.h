#pragma once

#include "combos.h"

#include <QStringList>
#include <QVector>
#include <optional>

class Db;

/// The place of a price in the database, by ids; a shop of 0 stands for all shops of the group.
struct PriceKey
{
    QString shop;
    QString group;
    QString priority;
};

/// A price of an item beside its base price, in kopecks.
struct GoodsPrice
{
    qint64 price = 0;
    qint64 priority = 0;
    NamedId group;
    /// No name and the id 0 for all shops of the group.
    NamedId shop;
    /// Where the row comes from: what else stands in it moves along with it. Nothing for a new row.
    std::optional<PriceKey> origin;

    bool operator==(const GoodsPrice &other) const;
    /// The same place: the database holds one price for it.
    bool replaces(const GoodsPrice &other) const;
};

/// One item with its barcodes and prices, as the editor shows it.
struct GoodsRecord
{
    QString name;
    /// A null text stands for NULL.
    QString shortName;
    /// In kopecks; nothing when the database holds none.
    std::optional<qint64> price;
    NamedId type;
    NamedId group;
    NamedId tax;
    NamedId rule;
    NamedId paymBonus;
    NamedId bonusDisk;
    NamedId block;
    QStringList barcodes;
    QVector<GoodsPrice> prices;
    /// The ids of the shops that are to offer the item. Shops are only added: those that offer it already
    /// keep their stock.
    QStringList shops;
};

/// The item of that id; nothing after a failure or when there is none (reported).
std::optional<GoodsRecord> loadGoods(const Db &db, const QString &id);

/// The other item of the group that has the rule already; empty when there is none, nothing after a
/// failure. id: the item itself, empty for a new one.
std::optional<QString> otherWithRule(const Db &db, const QString &group, uint rule, const QString &id);
