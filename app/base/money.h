#pragma once

#include <QString>

/// Money is whole kopecks, a quantity whole thousandths, a rate whole hundredths of a per cent; between
/// the database and the widget they are never anything else. These functions are the only way between
/// such a number and its text.

/// "1234.50" for 123450: a point, always two decimals, no separators; what is stored, exported and typed.
QString moneyText(qint64 kopecks);
/// "1 234.50": the same with no-break blanks between the thousands, for lists and labels.
QString moneyShown(qint64 kopecks);
/// "1 234" for a count.
QString wholeShown(qint64 count);
/// "2.500" for 2500.
QString quantityText(qint64 thousandths);
/// "1 002.500"
QString quantityShown(qint64 thousandths);
/// "20.00" for 2000 (20 %).
QString rateText(qint64 hundredths);

/// The largest amount (21 474 836.47) and quantity (2 147 483.647) that a row of the database holds.
constexpr qint64 maximumKopecks = 2147483647;
constexpr qint64 maximumThousandths = 2147483647;

/// Whole kopecks of "12", "12.5", "12,50", "1 234.50", "-3". A comma or a point, at most two decimals behind
/// it and at least one digit on both sides; blanks (no-break ones too) only where they part groups of three
/// in the whole part; blanks around the number do not count. Nothing for anything else, never another number:
/// "12 50", "1,234.50", "12.", "+1", letters, an empty text, more than 15 digits in the whole part.
bool kopecksFromText(const QString &text, qint64 *kopecks);
/// Whole thousandths of "1", "0.25", "0,250", by the same rules with three decimals.
bool thousandthsFromText(const QString &text, qint64 *thousandths);
/// Whole hundredths of a per cent of "20", "17.5", by the same rules with two decimals.
bool rateFromText(const QString &text, qint64 *hundredths);

/// Price for a quantity, rounded to the nearest kopeck, halves away from zero.
qint64 sumOf(qint64 priceKopecks, qint64 quantityThousandths);
/// A share of a sum, in hundredths of a per cent, rounded to the nearest kopeck, halves away from zero.
///
/// The discount of a row is the share of its sum (price times quantity, already whole kopecks); half a
/// kopeck is the buyer's. The discount of a receipt is the sum of those of its rows, it is not reckoned
/// once more from the total. 17.5 % off 434.60 are 76.055, so 76.06 are taken off and 358.54 remain; off
/// 434.71 they are 76.07425, 76.07 and 358.64. The same 434.71 sold as 100.20, 100.20, 100.20 and 134.11 has
/// three halves: 17.54 + 17.54 + 17.54 + 23.47 = 76.09, and 358.62 remain.
qint64 shareOf(qint64 kopecks, qint64 rateHundredths);

/// The number in a spin box with the given decimals, as a whole number of its last place (2: kopecks,
/// 3: thousandths). The only place where a widget's double is read.
qint64 wholeUnits(double value, int decimals);
/// The value to put into such a spin box.
double spinValue(qint64 units, int decimals);
