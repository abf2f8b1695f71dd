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

QDateTime databaseTime(const QString &stored)
{
    // By parts: as a local time the hour that summer time skips would not exist.
    const QDate date = QDate::fromString(stored.left(10), Qt::ISODate);
    const QTime time = QTime::fromString(stored.mid(11, 8), Qt::ISODate);
    return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

QDateTime databaseNow()
{
    return QDateTime(QDate::currentDate(), QTime::currentTime(), Qt::UTC);
}

QString weekDayToken(const QDate &day)
{
    static const char *const tokens[] = {"Mon,", "Tue,", "Wed,", "Thu,", "Fri,", "Sat,", "Sun,"};
    return QLatin1String(day.isValid() ? tokens[day.dayOfWeek() - 1] : " ");
}
