#pragma once

#include "salechanges.h"
#include "salework.h"

/// What is sold, as it stood when it was asked for: copied once, checked, shown, paid and written.
struct SaleOrder
{
    ChekPlace place;
    Receipt receipt;
    /// None for today's.
    QDate date;
    /// The shop, mode, priority and time by which the goods were found.
    GoodsSearch scope;
};

/// What the server says of an order before it is paid.
struct SaleCheck
{
    /// Why it cannot be sold, in the user's words, also when the server did not tell; else empty.
    QString refusal;
    /// The register's shift is another user's.
    bool isBusy = false;
    /// What became of its goods meanwhile; complete when there is no refusal.
    SaleChanges changes;
};

/// Reads all of it. Failed statements are reported under the place of the caller.
SaleCheck checkSale(const Db &db, const SaleWork::Caller &caller, const SaleOrder &order);
