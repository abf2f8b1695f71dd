#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>
#include <optional>

/// When a promotion applies. The sale's own statement decides by the same rule (goodssearch.cpp), as do the
/// registers: both ends of a dated promotion are a day and an hour, and the hours hold on every day between.

/// The times of a row of action.
struct ActionTimes
{
    /// action.id_type_action
    int kind = 1;
    /// datetime_start and datetime_end as the number yyyyMMddhhmmss. 0 is a zero date: with a start of 0 the
    /// end counts nothing either. Nothing is NULL: no bound on that side.
    std::optional<qint64> start;
    std::optional<qint64> end;
    /// action.week_day: tokens "Mon,Sat,"; other programs may have written anything. A null text is NULL.
    QString weekDays;

    bool isDated() const { return start != 0; }
};

/// The ends are as the server writes them: "2026-11-21 08:00:00", empty for NULL.
ActionTimes actionTimes(int kind, const QString &start, const QString &end, const QString &weekDays);
/// Selects the times of the table action as one cell, and reads that cell.
QString actionTimesSql();
ActionTimes actionTimes(const QString &cell);

/// What decides at a moment, in the order in which the sale's statement asks.
enum class ActionMoment {
    InForce,
    NoKind,     ///< its kind is "no promotion"
    NotYet,     ///< before its start
    Over,       ///< behind its end
    OtherHours, ///< of a day on which it may apply
    OtherDays   ///< of the week
};
ActionMoment actionMoment(const ActionTimes &times, const QDateTime &time);
/// Whether the sale gives the promotion at that time.
bool isInForce(const ActionTimes &times, const QDateTime &time);

/// Why it is in force at no time at all, for the user; empty when there is such a time.
QString neverWords(const ActionTimes &times);

/// How a promotion stands, for people.
enum class ActionState { InForce, OtherHours, OtherDays, Planned, Over, Off };
ActionState actionState(const ActionTimes &times, const QDateTime &now);
/// "діє зараз"
QString actionStateWords(ActionState state);

/// Of a day, in seconds from midnight, both included; from > to when there are none.
struct ActionHours
{
    int from = 0;
    int to = 24 * 3600 - 1;
};
ActionHours actionHours(const ActionTimes &times);
/// 1 for Monday to 7 for Sunday.
QVector<int> actionDays(const ActionTimes &times);

/// Whether some moment from `now` on has both in force.
bool meet(const ActionTimes &one, const ActionTimes &other, const QDateTime &now);

/// "Пн Вт", "щодня"; a text without any day as it is stored.
QString weekDaysShown(const QString &weekDays);
/// "08:00–22:00", "цілодобово"
QString actionHoursShown(const ActionTimes &times);
/// "01.11.2026 – 30.11.2026", "без дат"
QString actionPeriodShown(const ActionTimes &times);
/// The day of an end; invalid for none.
QDate actionDay(const std::optional<qint64> &end);
/// The hour of an end, its seconds from midnight.
int actionSecond(qint64 end);
/// "Пн", for 1 to 7
QString weekDayShown(int day);
/// "Mon,", for 1 to 7
QString weekDayTokenOf(int day);
