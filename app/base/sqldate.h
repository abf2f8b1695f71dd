#pragma once

#include <QDateTime>
#include <QString>

/// Dates as the statements and the lists write them.

/// The bare number yyyyMMddhhmmss.
QString sqlDateTime(const QDateTime &time);
/// The first and the last second of a day, as such numbers.
QString sqlDayStart(const QDate &day);
QString sqlDayEnd(const QDate &day);
/// "dd-MM-yy hh:mm:ss" as lists and the log show it; empty for no date.
QString shownDateTime(const QDateTime &time);
/// A time as the server writes it, without a zone: UTC in Qt's words, in which every hour exists; invalid for
/// none.
QDateTime databaseTime(const QString &stored);
/// This moment as the database would write it.
QDateTime databaseNow();
/// "Mon," to "Sun,"; a single blank for an invalid date. The tokens of action.week_day.
QString weekDayToken(const QDate &day);
