#pragma once

#include "columns.h"

/// How cells of that kind are shown, in the notation that spreadsheets of all languages share.
const char *spreadsheetFormat(CellValue::Kind kind);
/// Whether a spreadsheet keeps the value as it is: it has 15 digits, and no day before March 1900. Texts are
/// none.
bool isSpreadsheetNumber(const CellValue &value);
/// The one place where money and the like are divided. Whole numbers of up to 15 digits come out as the
/// nearest double; days are counted as spreadsheets do.
double spreadsheetNumber(const CellValue &value);
