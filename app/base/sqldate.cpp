#include "sqldate.h"

QString sqlDateTime(const QDateTime &time)
{
    return time.toString(QStringLiteral("yyyyMMddhhmmss"));
}

QString sqlDayStart(const QDate &day)
{
    return day.toString(QStringLiteral("yyyyMMdd000000"));
}

QString sqlDayEnd(const QDate &day)
{
    return day.toString(QStringLiteral("yyyyMMdd235959"));
}

QString shownDateTime(const QDateTime &time)
{
    return time.toString(QStringLiteral("dd-MM-yy hh:mm:ss"));
}

QString weekDayToken(const QDate &day)
{
    static const char *const tokens[] = {"Mon,", "Tue,", "Wed,", "Thu,", "Fri,", "Sat,", "Sun,"};
    return QLatin1String(day.isValid() ? tokens[day.dayOfWeek() - 1] : " ");
}
