#pragma once

#include "db.h"
#include "goodssearch.h"
#include "receipt.h"

/// What became of a receipt's goods since they were put in.
struct SaleChanges
{
    /// To be told and agreed to, a line each: "«Хліб»: ціна змінилась: 50.00 → 99.00".
    QStringList told;
    /// Why the receipt cannot be sold as it stands: "«Хліб»: товар заблоковано".
    QStringList blocking;
    /// The receipt's rows as they would be put in now, in the same order; for Receipt::takeOver(). A row that
    /// is not sold any more is as it was.
    QVector<ReceiptRow> rows;

    bool isEmpty() const { return told.isEmpty() && blocking.isEmpty(); }
};

/// Reads prices, promotions and goods again, as the goods list does. search: the shop, the mode, the priority
/// and the time of that list. Nothing after a failure.
std::optional<SaleChanges> saleChanges(const Db &db, const Receipt &receipt, GoodsSearch search);
