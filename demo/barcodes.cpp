#include "barcodes.h"

#include "ean13.h"

namespace demo {
namespace {
QString withCheckDigit(const QString &prefix, qint64 number, int length)
{
    const QString code =
        prefix + QString::number(number).rightJustified(length - 1 - prefix.size(), QLatin1Char('0'));
    return code + eanCheckDigit(code, length - 1);
}

/// Numbers in a row look unlike each other: a multiplication without common divisors keeps them unique.
qint64 scattered(int number, qint64 factor, qint64 range)
{
    return (number + 1) * factor % range;
}
} // namespace

QString countryEan13(int number)
{
    return withCheckDigit(QStringLiteral("482"), scattered(number, 618033989, 1000000000), 13);
}

QString foreignEan13(int number)
{
    return withCheckDigit(QStringLiteral("00"), scattered(number, 6180339887, 10000000000), 13);
}

QString weighedEan13(int number)
{
    return withCheckDigit(QStringLiteral("28"), scattered(number, 10000, 10000000000), 13);
}

QString shortEan8(int number)
{
    return withCheckDigit(QStringLiteral("48"), scattered(number, 61803, 100000), 8);
}
} // namespace demo
