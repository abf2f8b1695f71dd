#pragma once

#include "combos.h"
#include "recordstore.h"

#include <QMetaType>
#include <QStringList>
#include <QVector>
#include <optional>

/// The place of a price in the database, by ids; a shop of 0 stands for all shops of the group.
struct PriceKey
{
    QString shop;
    QString group;
    QString priority;

    /// The same place, the same text.
    QString text() const;
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
    PriceKey place() const;
};
Q_DECLARE_METATYPE(GoodsPrice)

/// The item's own row, with what belongs to it.
RecordStatements goodsStatements();

/// What belongs to an item beside its own row, as values of the record: a price by its place, a barcode by
/// itself.
bool isPriceKey(const QString &key);
bool isBarcodeKey(const QString &key);
/// The barcode, or the text of the place, in such a key.
QString withoutTable(const QString &key);
RecordFields priceFields(const QVector<GoodsPrice> &prices);
RecordFields barcodeFields(const QStringList &codes);
/// The prices among the values of a record.
QVector<GoodsPrice> pricesOf(const RecordFields &fields);
QStringList barcodesOf(const RecordFields &fields);

/// Prices and barcodes of the item of that id; nothing after a reported failure.
std::optional<RecordFields> readGoodsRows(const Db &db, const QString &id);

/// The other item of the group that has the rule already; empty when there is none, nothing after a
/// failure. id: the item itself, empty for a new one.
std::optional<QString> otherWithRule(const Db &db, const QString &group, uint rule, const QString &id);
