#pragma once

#include "chekorigin.h"
#include "placeselector.h"

#include <optional>

/// Which receipts are listed: the place by its names and a range.
struct ChekFilter
{
    PlaceSelector::Narrowest narrowest = PlaceSelector::Everywhere;
    QString group;
    QString shop;
    QString kass;
    /// The range is one of Z numbers, else of times yyyyMMddhhmmss.
    bool byNumber = false;
    QString from;
    QString to;
    /// Everywhere means these shop groups; empty for truly everywhere.
    QStringList groups;
    /// The receipts behind that line; then nothing of the above counts.
    std::optional<ChekOrigin> origin;
};

/// One row a receipt of one register: Z number, number, type and sum of one of its rows, time, register,
/// quantity; then over all its listed rows: least and greatest type, sum, sum of the payments, least and
/// greatest shop.
QString chekListSql(const ChekFilter &filter);
/// The receipts whose own sums do not agree, sales and returns with a payment row: register, number.
QString chekMismatchSql(const ChekFilter &filter);
/// The sums of the receipt of that condition: goods, discount, to pay, paid, number of payment rows.
QString chekSumsSql(const QString &condition);
