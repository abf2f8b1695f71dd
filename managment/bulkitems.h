#pragma once

#include "bulkplan.h"
#include "db.h"

/// The column of goods that holds it.
QString bulkColumn(BulkField field);
/// "Група товарів"
QString bulkFieldWords(BulkField field);

/// An item as it is read to be judged.
struct BulkItem
{
    DbId id = 0;
    QString name;
    /// As the sale asks: block=0.
    bool isBlocked = false;
    DbId group = 0;
    DbId rule = 0;
    QString groupName;
    std::optional<qint64> base;
    /// Of the field, or the price that is to be changed.
    std::optional<qint64> current;
    /// Of a price: the one in force where there is none. Of all else: the name of the value.
    QString beside;
    /// Of a price: how many others the item has. Of a block: whether it is in stock.
    qint64 count = 0;
    /// Of a block: between shops.
    bool isOnTheWay = false;
};

/// The statement that reads the goods of a choice and what of them is to be changed at a place (see
/// BulkPlace). goods: those of the barcodes, when there are any.
QString bulkItemsSql(const BulkChoice &choice, DbId place, const QVector<DbId> &goods);
/// Its row.
BulkItem bulkItem(const QSqlQuery &row);
/// Nothing for NULL.
std::optional<qint64> wholeOf(const QVariant &value);

/// Which goods hold a rule that only one item of a goods group may have: the item by group and rule.
using RulePlace = QPair<DbId, DbId>;
using RuleHolders = QMap<RulePlace, DbId>;
/// For the statement that reads group, rule and item of all of them.
QString ruleHoldersSql();
/// Its rows.
RuleHolders ruleHoldersOf(QSqlQuery *rows);
/// Where an item of that group and rule stands among them once the field has got a value; 0, 0 where its rule
/// is none of those, or stays where it is.
RulePlace rulePlace(BulkField field, DbId value, DbId group, DbId rule);
