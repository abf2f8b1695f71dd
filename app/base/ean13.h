#pragma once

#include <QChar>
#include <QString>

/// True for a text of digits 0 to 9 and nothing else; false for an empty one.
bool isAllDigits(const QString &text);

/// The check digit of a barcode: '0' to '9'. code holds at least len digits, of which the first len are
/// the data (12 for EAN-13, 7 for EAN-8). The digits are weighed 3, 1, 3, ... from the last backwards.
QChar eanCheckDigit(const QString &code, int len);

/// True for 8 or 13 digits whose last is the check digit of the others.
bool isSoundEan(const QString &code);

/// True for what a scanner sends and nobody types as an amount or a quantity: 8 or 12 to 14 digits and
/// nothing else.
bool looksScanned(const QString &text);
