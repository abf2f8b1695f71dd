#pragma once

#include "columns.h"

/// Kopecks that the server computed and that may have a fraction ("2000.0000"): rounded to the kopeck,
/// halves away from zero, and shown as money. NULL is empty.
extern const CellFormat asRoundedMoney;
/// A date-time of which the list shows the day, "dd-MM-yyyy".
extern const CellFormat asDay;

/// Whole units of a number as the server writes it, its fraction rounded, halves away from zero.
/// False for anything that is no such number.
bool roundedUnits(std::string_view stored, qint64 *units);
/// Ten-thousandths of a number that is not negative; "166.6667" is 1666667. 0 for none.
qint64 tenThousandths(std::string_view stored);
