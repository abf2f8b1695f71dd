#pragma once

#include "cellwriting.h"
#include "rowstore.h"

/// The tax groups as the list of taxes reads and writes them; its columns.
enum class TaxColumn { Id, Name, Rate, LevyName, LevyRate };

constexpr bool isRate(TaxColumn column)
{
    return column == TaxColumn::Rate || column == TaxColumn::LevyRate;
}

/// False when the table cannot be read, which is reported.
bool canCountTaxes(const Db &db);
/// The rows of that statement; nothing after a reported failure.
std::optional<RowStore> readTaxes(const Db &db, const QString &sql);
/// The writer of that list: of a row that is there, and only over what the list showed.
CellWritten writeTax(const Db &db, const CellDraft &draft);

/// 99.99 %
constexpr qint64 largestRate = 9999;
/// "07.00" for 700: a rate as the mask "00.00" holds it; empty for none, and for one that does not fit.
QString maskedRate(const QString &hundredths);
/// Hundredths of a per cent of what stands in that mask, blanks where nothing was typed: "7 .5 " and " 7.50"
/// are 750, "20.  " is 2000. Returns why it is no rate, in words that say what to write; "7 . 5" is none.
QString readMaskedRate(const QString &text, qint64 *hundredths);
