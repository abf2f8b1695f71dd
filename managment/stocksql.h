#pragma once

#include "chek.h"
#include "stockdocument.h"

#include <QStringList>

/// The statements that write a document of goods.
///
/// Its rows in `cheks`, positions from 0, one for each row of the grid:
///
/// | column            | holds                                                                          |
/// |-------------------|--------------------------------------------------------------------------------|
/// | id_type           | 7 received, 8 moved                                                           |
/// | id_good_cln_slujb | the goods item; name, strihcode, type and tax are its own, as in a sale        |
/// | count             | thousandths; below zero for what goes back to the supplier or is written off   |
/// | price, summa      | 0, as are sumdisc and bonus_plus: no report that adds up money counts goods     |
/// | id_type_action    | 1, no promotion                                                                |
/// | dis_bon_bez2      | the place of StockMove: 1 the shop floor, 2 the store room; 0 is not told       |
/// |                   | 3 the shop floor, counted when a period was closed: count is what it had more   |
/// |                   | than the program knew, below zero what it had less, 0 when they agreed          |
///
/// Nothing of it stands in `z_zvit`: the turnover and the number of receipts are those of sales.
namespace StockSql {
/// In few statements, of no more than so many rows.
constexpr int rowsAtOnce = 1000;
QStringList insertRows(const QVector<StockRow> &rows, const StockMove &move, const WrittenChek &chek);
} // namespace StockSql
