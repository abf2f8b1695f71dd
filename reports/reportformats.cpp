#include "reportformats.h"

#include "money.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace {
QString asIs(std::string_view stored)
{
    return QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
}

QString plainMoney(std::string_view stored)
{
    qint64 kopecks = 0;
    return roundedUnits(stored, &kopecks) ? moneyText(kopecks) : asIs(stored);
}

QString shownMoney(std::string_view stored)
{
    qint64 kopecks = 0;
    return roundedUnits(stored, &kopecks) ? moneyShown(kopecks) : asIs(stored);
}

CellValue moneyValue(std::string_view stored)
{
    qint64 kopecks = 0;
    return roundedUnits(stored, &kopecks) ? CellValue{CellValue::Money, kopecks} : CellValue();
}

QString day(std::string_view stored)
{
    // "2026-03-01 10:00:00"
    if (stored.size() < 10 || stored.substr(0, 4) == "0000")
        return {};
    return asIs(stored.substr(8, 2)) + QLatin1Char('-') + asIs(stored.substr(5, 2)) + QLatin1Char('-') +
           asIs(stored.substr(0, 4));
}
} // namespace

const CellFormat asRoundedMoney = {plainMoney, shownMoney, true, nullptr, moneyValue};
const CellFormat asDay = {day, day, false, nullptr, dayValue};

bool roundedUnits(std::string_view stored, qint64 *units)
{
    const bool negative = !stored.empty() && stored.front() == '-';
    if (negative)
        stored.remove_prefix(1);
    const size_t point = stored.find('.');
    const std::string_view whole = stored.substr(0, point);
    const std::string_view fraction = point == std::string_view::npos ? "" : stored.substr(point + 1);
    if (whole.empty() || whole.size() > 17)
        return false;
    qint64 size = 0;
    for (const char c : whole) {
        if (c < '0' || c > '9')
            return false;
        size = size * 10 + (c - '0');
    }
    if (!fraction.empty() && fraction.front() >= '5')
        ++size;
    *units = negative ? -size : size;
    return true;
}

qint64 tenThousandths(std::string_view stored)
{
    constexpr size_t decimals = 4;
    const size_t point = std::min(stored.find('.'), stored.size());
    std::string fraction(stored.substr(std::min(point + 1, stored.size()), decimals));
    fraction.resize(decimals, '0');
    const std::string digits = std::string(stored.substr(0, point)) + fraction;
    qint64 value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}
