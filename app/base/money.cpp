#include "money.h"

#include <QtMath>

namespace {
const QChar noBreakBlank(0x00a0);

qint64 powerOfTen(int decimals)
{
    qint64 power = 1;
    while (decimals-- > 0)
        power *= 10;
    return power;
}

QString separated(const QString &digits)
{
    QString text = digits;
    for (int at = text.size() - 3; at > 0; at -= 3)
        text.insert(at, noBreakBlank);
    return text;
}

QString unitsText(qint64 units, int decimals, bool separators)
{
    const qint64 power = powerOfTen(decimals);
    const quint64 size = units < 0 ? 0 - static_cast<quint64>(units) : static_cast<quint64>(units);
    const QString whole = QString::number(size / static_cast<quint64>(power));
    const QString rest =
        QString::number(size % static_cast<quint64>(power)).rightJustified(decimals, QLatin1Char('0'));
    return (units < 0 ? QStringLiteral("-") : QString()) + (separators ? separated(whole) : whole) +
           QLatin1Char('.') + rest;
}

bool allDigits(const QString &text)
{
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return true;
}

bool unitsFromText(const QString &text, int decimals, qint64 *units)
{
    QString number = text.simplified();
    number.remove(QLatin1Char(' ')).remove(noBreakBlank).replace(QLatin1Char(','), QLatin1Char('.'));
    const bool negative = number.startsWith(QLatin1Char('-'));
    if (negative)
        number.remove(0, 1);
    const int point = number.indexOf(QLatin1Char('.'));
    const QString whole = point < 0 ? number : number.left(point);
    const QString rest = point < 0 ? QString() : number.mid(point + 1);
    if (whole.isEmpty() || whole.size() > 15 || rest.size() > decimals || (point >= 0 && rest.isEmpty()) ||
        !allDigits(whole) || !allDigits(rest))
        return false;
    const qint64 size = whole.toLongLong() * powerOfTen(decimals) +
                        rest.leftJustified(decimals, QLatin1Char('0')).toLongLong();
    *units = negative ? -size : size;
    return true;
}

qint64 dividedRounded(qint64 value, qint64 divisor)
{
    const qint64 half = divisor / 2;
    return value < 0 ? (value - half) / divisor : (value + half) / divisor;
}
} // namespace

QString moneyText(qint64 kopecks)
{
    return unitsText(kopecks, 2, false);
}

QString moneyShown(qint64 kopecks)
{
    return unitsText(kopecks, 2, true);
}

QString quantityText(qint64 thousandths)
{
    return unitsText(thousandths, 3, false);
}

QString quantityShown(qint64 thousandths)
{
    return unitsText(thousandths, 3, true);
}

QString rateText(qint64 hundredths)
{
    return unitsText(hundredths, 2, false);
}

bool kopecksFromText(const QString &text, qint64 *kopecks)
{
    return unitsFromText(text, 2, kopecks);
}

bool thousandthsFromText(const QString &text, qint64 *thousandths)
{
    return unitsFromText(text, 3, thousandths);
}

qint64 sumOf(qint64 priceKopecks, qint64 quantityThousandths)
{
    return dividedRounded(priceKopecks * quantityThousandths, 1000);
}

qint64 shareOf(qint64 kopecks, qint64 rateHundredths)
{
    return dividedRounded(kopecks * rateHundredths, 10000);
}

qint64 wholeUnits(double value, int decimals)
{
    return qRound64(value * static_cast<double>(powerOfTen(decimals)));
}

double spinValue(qint64 units, int decimals)
{
    return static_cast<double>(units) / static_cast<double>(powerOfTen(decimals));
}
