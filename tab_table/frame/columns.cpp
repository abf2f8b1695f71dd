#include "columns.h"

#include "money.h"

#include <QDate>
#include <charconv>
#include <cstring>

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

std::string_view same(std::string_view stored, char * /*room*/)
{
    return stored;
}

template<int decimals>
std::string_view units(std::string_view stored, char *room)
{
    qint64 value = 0;
    const char *end = stored.data() + stored.size();
    const auto [stop, error] = std::from_chars(stored.data(), end, value);
    if (error != std::errc() || stop != end)
        return stored;
    char *const last = room + CellFormat::plainRoom;
    char *at = last;
    quint64 rest = value < 0 ? 0 - static_cast<quint64>(value) : static_cast<quint64>(value);
    for (int place = 0; place <= decimals || rest != 0; ++place, rest /= 10) {
        if (place == decimals)
            *--at = '.';
        *--at = static_cast<char>('0' + rest % 10);
    }
    if (value < 0)
        *--at = '-';
    return {at, static_cast<size_t>(last - at)};
}

std::string_view date(std::string_view stored, char *room)
{
    if (!isIsoDate(stored))
        return stored;
    if (isZeroDate(stored))
        return {};
    const char shown[] = {stored[8], stored[9], '-',       stored[5], stored[6],
                          '-',       stored[0], stored[1], stored[2], stored[3]};
    std::memcpy(room, shown, sizeof shown);
    return {room, sizeof shown};
}

std::string_view dateTime(std::string_view stored, char *room)
{
    if (isZeroDate(stored))
        return {};
    if (!isIsoDate(stored) || stored.size() < 19)
        return stored;
    const char day[] = {stored[8], stored[9], '-', stored[5], stored[6], '-', stored[2], stored[3]};
    std::memcpy(room, day, sizeof day);
    std::memcpy(room + sizeof day, stored.data() + 10, 9);
    return {room, sizeof day + 9};
}

/// -1 for anything but digits.
int digits(std::string_view text)
{
    int value = -1;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? value : -1;
}

template<CellValue::Kind kind>
CellValue whole(std::string_view stored)
{
    return wholeValue(stored, kind);
}

CellValue timeValue(std::string_view stored)
{
    CellValue value = dayValue(stored);
    if (value.kind == CellValue::Text || stored.size() == 10)
        return value;
    const int hour = digits(stored.substr(11, 2));
    const int minute = stored.size() < 19 ? -1 : digits(stored.substr(14, 2));
    const int second = stored.size() < 19 ? -1 : digits(stored.substr(17, 2));
    if (hour < 0 || minute < 0 || second < 0)
        return {};
    return {CellValue::DateTime, value.number + (hour * qint64(60) + minute) * 60 + second};
}

/// The text of what a format writes as bytes.
template<std::string_view (*format)(std::string_view, char *)>
QString written(std::string_view stored)
{
    char room[CellFormat::plainRoom];
    return text(format(stored, room));
}
} // namespace

const CellFormat asText = {text, text, false, same};
const CellFormat asNumber = {text, text, true, same, whole<CellValue::Whole>};
const CellFormat asMoney = {written<units<2>>, number<moneyShown>, true, units<2>, whole<CellValue::Money>};
const CellFormat asSum = {written<units<2>>, number<moneyShown>,      true,
                          units<2>,          whole<CellValue::Money>, true};
const CellFormat asQuantity = {written<units<3>>, number<quantityShown>, true, units<3>,
                               whole<CellValue::Quantity>};
const CellFormat asRate = {written<units<2>>, written<units<2>>, true, units<2>, whole<CellValue::Rate>};
const CellFormat asDateTime = {written<dateTime>, written<dateTime>, false, dateTime, timeValue};
const CellFormat asDate = {written<date>, written<date>, false, date, dayValue};

CellValue wholeValue(std::string_view stored, CellValue::Kind kind)
{
    qint64 value = 0;
    const char *end = stored.data() + stored.size();
    const auto [stop, error] = std::from_chars(stored.data(), end, value);
    return error == std::errc() && stop == end ? CellValue{kind, value} : CellValue();
}

CellValue dayValue(std::string_view stored)
{
    if (!isIsoDate(stored))
        return {};
    const QDate day(digits(stored.substr(0, 4)), digits(stored.substr(5, 2)), digits(stored.substr(8, 2)));
    if (!day.isValid())
        return {};
    constexpr qint64 secondsOfDay = 24 * 3600LL;
    return {CellValue::Date, QDate(1970, 1, 1).daysTo(day) * secondsOfDay};
}
