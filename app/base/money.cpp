#include "money.h"

#include <QRegularExpression>
#include <QtMath>

namespace {
const QChar noBreakBlank(0x00a0);
const QChar narrowNoBreakBlank(0x202f);

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

/// The sign, the whole part without its blanks and the decimals of a number as people write it.
struct NumberParts
{
    bool isNumber = false;
    bool isNegative = false;
    QString whole;
    QString decimals;
};

NumberParts partsOf(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^(-?)(\\d{1,15}|\\d{1,3}(?:[ \u00a0\u202f]\\d{3}){1,4})(?:[.,](\\d+))?\\z"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    NumberParts parts{true, !match.captured(1).isEmpty(), match.captured(2), match.captured(3)};
    for (const QChar blank : {QChar(u' '), noBreakBlank, narrowNoBreakBlank})
        parts.whole.remove(blank);
    return parts;
}

bool unitsFromText(const QString &text, int decimals, qint64 *units)
{
    const NumberParts parts = partsOf(text);
    if (!parts.isNumber || parts.decimals.size() > decimals)
        return false;
    const qint64 size = parts.whole.toLongLong() * powerOfTen(decimals) +
                        parts.decimals.leftJustified(decimals, QLatin1Char('0')).toLongLong();
    *units = parts.isNegative ? -size : size;
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

QString wholeShown(qint64 count)
{
    const quint64 size = count < 0 ? 0 - static_cast<quint64>(count) : static_cast<quint64>(count);
    return (count < 0 ? QStringLiteral("-") : QString()) + separated(QString::number(size));
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

bool rateFromText(const QString &text, qint64 *hundredths)
{
    return unitsFromText(text, 2, hundredths);
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
