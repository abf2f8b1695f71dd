#include "columns.h"

#include "money.h"

#include <charconv>

namespace {
QString text(std::string_view stored)
{
    return QString::fromUtf8(stored.data(), static_cast<int>(stored.size()));
}

/// Whole numbers get their format; anything else is shown as it is, so that nothing is hidden.
template<QString (*format)(qint64)>
QString number(std::string_view stored)
{
    qint64 value = 0;
    const char *end = stored.data() + stored.size();
    const auto [stop, error] = std::from_chars(stored.data(), end, value);
    return error == std::errc() && stop == end ? format(value) : text(stored);
}

bool isIsoDate(std::string_view stored)
{
    return stored.size() >= 10 && stored[4] == '-' && stored[7] == '-';
}

bool isZeroDate(std::string_view stored)
{
    return stored.substr(0, 10) == "0000-00-00";
}

QString date(std::string_view stored)
{
    if (!isIsoDate(stored))
        return text(stored);
    if (isZeroDate(stored))
        return QString();
    const char shown[] = {stored[8], stored[9], '-',       stored[5], stored[6],
                          '-',       stored[0], stored[1], stored[2], stored[3]};
    return QString::fromLatin1(shown, sizeof shown);
}

QString dateTime(std::string_view stored)
{
    if (!isIsoDate(stored) || stored.size() < 19)
        return isZeroDate(stored) ? QString() : text(stored);
    if (isZeroDate(stored))
        return QString();
    const char day[] = {stored[8], stored[9], '-', stored[5], stored[6], '-', stored[2], stored[3]};
    return QString::fromLatin1(day, sizeof day) + text(stored.substr(10, 9));
}
} // namespace

const CellFormat asText = {text, text, false};
const CellFormat asNumber = {text, text, true};
const CellFormat asMoney = {number<moneyText>, number<moneyShown>, true};
const CellFormat asQuantity = {number<quantityText>, number<quantityShown>, true};
const CellFormat asRate = {number<rateText>, number<rateText>, true};
const CellFormat asDateTime = {dateTime, dateTime, false};
const CellFormat asDate = {date, date, false};
