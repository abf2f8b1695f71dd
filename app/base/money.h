#pragma once

#include <QString>

/// Money is whole kopecks, a quantity whole thousandths, a rate whole hundredths of a per cent; between
/// the database and the widget they are never anything else. These functions are the only way between
/// such a number and its text.

/// "1234.50" for 123450: a point, always two decimals, no separators; what is stored, exported and typed.
QString moneyText(qint64 kopecks);
/// "1 234.50": the same with no-break blanks between the thousands, for lists and labels.
QString moneyShown(qint64 kopecks);
/// "2.500" for 2500.
QString quantityText(qint64 thousandths);
/// "1 002.500"
QString quantityShown(qint64 thousandths);
/// "20.00" for 2000 (20 %).
QString rateText(qint64 hundredths);

/// Whole kopecks of "12", "12.5", "12,50", "1 234.50". Nothing for anything else: letters, three
/// decimals, an empty text, more than 15 digits.
bool kopecksFromText(const QString &text, qint64 *kopecks);
/// Whole thousandths of "1", "0.25", "0,250".
bool thousandthsFromText(const QString &text, qint64 *thousandths);

/// Price for a quantity, rounded to the nearest kopeck, halves away from zero.
qint64 sumOf(qint64 priceKopecks, qint64 quantityThousandths);
/// A share of a sum, in hundredths of a per cent, rounded to the nearest kopeck, halves away from zero.
qint64 shareOf(qint64 kopecks, qint64 rateHundredths);

/// The number in a spin box with the given decimals, as a whole number of its last place (2: kopecks,
/// 3: thousandths). The only place where a widget's double is read.
qint64 wholeUnits(double value, int decimals);
/// The value to put into such a spin box.
double spinValue(qint64 units, int decimals);
