#pragma once

#include "placeselector.h"

#include <QString>

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
};

/// One row a receipt of one register: Z number, number, type, sum, time, register, quantity.
QString chekListSql(const ChekFilter &filter);
/// The receipts whose own sums do not agree, sales and returns with a payment row: register, number.
QString chekMismatchSql(const ChekFilter &filter);
/// The sums of one receipt: goods, discount, to pay, paid, number of payment rows, paid by card.
QString chekSumsSql(const QString &kass, const QString &chek);
