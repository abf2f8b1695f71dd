#include "spreadsheet.h"

namespace {
constexpr qint64 largestNumber = 999999999999999;
constexpr double secondsOfDay = 24 * 60 * 60;
/// 1900-03-01: before it spreadsheets count a day that was none.
constexpr qint64 firstDay = -2203891200;
constexpr double dayOf1970 = 25569;

struct KindLine
{
    CellValue::Kind column;
    const char *format;
    /// What one of a spreadsheet is in units of the value.
    double unit;
};
constexpr KindLine kinds[] = {
    {CellValue::Text, "@", 1},
    {CellValue::Whole, "0", 1},
    {CellValue::Money, "#,##0.00;[Red]-#,##0.00", 100},
    {CellValue::Quantity, "#,##0.000", 1000},
    {CellValue::Rate, "0.00", 100},
    {CellValue::Date, "dd.mm.yyyy", secondsOfDay},
    {CellValue::DateTime, "dd.mm.yyyy hh:mm:ss", secondsOfDay},
};
static_assert(standInOrder(kinds, CellValue::KindCount));

bool isDay(CellValue::Kind kind)
{
    return kind == CellValue::Date || kind == CellValue::DateTime;
}
} // namespace

const char *spreadsheetFormat(CellValue::Kind kind)
{
    return kinds[kind].format;
}

bool isSpreadsheetNumber(const CellValue &value)
{
    if (isDay(value.kind))
        return value.number >= firstDay;
    return value.kind != CellValue::Text && value.number >= -largestNumber && value.number <= largestNumber;
}

double spreadsheetNumber(const CellValue &value)
{
    const double number = static_cast<double>(value.number) / kinds[value.kind].unit;
    return isDay(value.kind) ? number + dayOf1970 : number;
}
