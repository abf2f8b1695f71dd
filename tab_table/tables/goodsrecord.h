#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

class Db;

/// A price of an item beside its base price, in kopecks.
struct GoodsPrice
{
    qint64 price = 0;
    qint64 priority = 0;
    /// The name of a shop group.
    QString group;
    /// The address of a shop; empty for all shops of the group.
    QString shop;

    bool operator==(const GoodsPrice &other) const;
    /// The same place: the database holds one price for it.
    bool replaces(const GoodsPrice &other) const;
};

/// One item with its barcodes and prices, as the editor shows it; lists by their names.
struct GoodsRecord
{
    QString name;
    QString shortName;
    /// In kopecks; nothing when the database holds none.
    std::optional<qint64> price;
    QString type;
    QString group;
    QString tax;
    QString rule;
    QString paymBonus;
    QString bonusDisk;
    QString block;
    QStringList barcodes;
    QVector<GoodsPrice> prices;
};

/// The item of that id; nothing after a failure or when there is none (reported).
std::optional<GoodsRecord> loadGoods(const Db &db, const QString &id);

/// Writes an item whole, in one transaction. isNew: it is added, under the id if there is one; then the
/// id becomes the one that it has. pricesChanged: what stands in the table of prices is replaced, else it
/// is left alone. Failures are reported, with what the server's words mean for the item.
bool saveGoods(const Db &db, const GoodsRecord &record, bool isNew, bool pricesChanged, QString *id);

/// The other item of the group that has the rule already; empty when there is none, nothing after a
/// failure. id: the item itself, empty for a new one.
std::optional<QString> otherWithRule(const Db &db, const QString &group, uint rule, const QString &id);
