#pragma once

#include "pricelist.h"

/// What became of a price list.
struct PriceListOutcome
{
    bool isWritten = false;
    /// Prices that others have changed since the file was looked at: that of the file was written.
    int changedByOthers = 0;
    /// New barcodes that others have created meanwhile: their item got the price.
    int createdByOthers = 0;
    /// Barcodes that others have taken away meanwhile: refused.
    int removedByOthers = 0;
    RefusedLines refused;
};

/// Writes what a plan says in one transaction, which locks the goods it names and compares them first; all of
/// it is written or nothing. What another program spoils is tried twice more. *outcome tells what became of
/// it; the words are for the user.
JobResult importPriceList(JobContext &context, const PriceListPlan &plan, PriceListOutcome *outcome);

/// The statements that set the prices of items, ordered by their ids; none for no price.
QStringList priceStatements(const QMap<quint32, qint64> &prices);

/// "Товарів оновлено: 3 …", for the user.
QString priceListSummary(const PriceListPlan &plan, const PriceListOutcome &outcome);
