#include "actiontimes.h"

#include "sqldate.h"

#include <QCoreApplication>
#include <QStringList>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActionTimes)
};

const int noKind = 1;
const qint64 timeOfDay = 1000000;
const int daysOfWeek = 7;
const int cellParts = 4;

std::optional<qint64> numberOf(const QString &end)
{
    QString digits;
    for (const QChar sign : end) {
        if (sign.isDigit())
            digits += sign;
    }
    return digits.isEmpty() ? std::nullopt
                            : std::optional<qint64>(digits.leftJustified(14, '0').toLongLong());
}

qint64 numberOf(const QDateTime &time)
{
    return sqlDateTime(time).toLongLong();
}

/// As LIKE compares: without regard to case.
bool names(const QString &weekDays, const QString &token)
{
    return weekDays.contains(token, Qt::CaseInsensitive);
}

QString hourShown(int second)
{
    const QTime time = QTime(0, 0).addSecs(second);
    const bool isWhole = second % 60 == 0 || second % 60 == 59;
    return time.toString(isWhole ? QStringLiteral("HH:mm") : QStringLiteral("HH:mm:ss"));
}

QString dayShown(const std::optional<qint64> &end)
{
    const QDate day = actionDay(end);
    return day.isValid() ? day.toString(QStringLiteral("dd.MM.yyyy")) : QStringLiteral("…");
}
} // namespace

ActionTimes actionTimes(int kind, const QString &start, const QString &end, const QString &weekDays)
{
    return {kind, numberOf(start), numberOf(end), weekDays};
}

QString actionTimesSql()
{
    return QStringLiteral("CONCAT_WS(CHAR(9),action.id_type_action,IFNULL(action.datetime_start,''),"
                          "IFNULL(action.datetime_end,''),IFNULL(action.week_day,''))");
}

ActionTimes actionTimes(const QString &cell)
{
    const auto part = [&cell](int number) { return cell.section(QLatin1Char('\t'), number, number); };
    return actionTimes(part(0).toInt(), part(1), part(2), cell.section(QLatin1Char('\t'), cellParts - 1));
}

ActionMoment actionMoment(const ActionTimes &times, const QDateTime &time)
{
    const qint64 now = numberOf(time);
    if (times.kind == noKind)
        return ActionMoment::NoKind;
    if (times.isDated()) {
        if (times.start && *times.start > now)
            return ActionMoment::NotYet;
        if (times.end && *times.end < now)
            return ActionMoment::Over;
        if ((times.start && *times.start % timeOfDay > now % timeOfDay) ||
            (times.end && *times.end % timeOfDay < now % timeOfDay))
            return ActionMoment::OtherHours;
    }
    return names(times.weekDays, weekDayToken(time.date())) ? ActionMoment::InForce : ActionMoment::OtherDays;
}

bool isInForce(const ActionTimes &times, const QDateTime &time)
{
    return actionMoment(times, time) == ActionMoment::InForce;
}

QString neverWords(const ActionTimes &times)
{
    if (times.kind == noKind)
        return Texts::tr("Тип акції нічого не змінює в ціні.");
    if (actionDays(times).isEmpty())
        return Texts::tr("Не вибрано жодного дня тижня.");
    if (!times.isDated() || !times.end)
        return QString();
    if (*times.end == 0)
        return Texts::tr("Є дата початку, а дати закінчення немає.");
    if (times.start && *times.start > *times.end)
        return Texts::tr("Закінчується раніше, ніж починається.");
    const ActionHours hours = actionHours(times);
    return hours.from > hours.to ? Texts::tr("Щоденний час закінчується раніше, ніж починається.")
                                 : QString();
}

ActionState actionState(const ActionTimes &times, const QDateTime &now)
{
    if (!neverWords(times).isEmpty())
        return ActionState::Off;
    switch (actionMoment(times, now)) {
    case ActionMoment::InForce:
        return ActionState::InForce;
    case ActionMoment::NotYet:
        return ActionState::Planned;
    case ActionMoment::Over:
        return ActionState::Over;
    case ActionMoment::OtherHours:
        return ActionState::OtherHours;
    case ActionMoment::OtherDays:
        return ActionState::OtherDays;
    case ActionMoment::NoKind:
        break;
    }
    return ActionState::Off;
}

QString actionStateWords(ActionState state)
{
    switch (state) {
    case ActionState::InForce:
        return Texts::tr("діє зараз");
    case ActionState::OtherHours:
        return Texts::tr("діє в інші години");
    case ActionState::OtherDays:
        return Texts::tr("діє в інші дні");
    case ActionState::Planned:
        return Texts::tr("заплановано");
    case ActionState::Over:
        return Texts::tr("завершена");
    case ActionState::Off:
        break;
    }
    return Texts::tr("вимкнена");
}

ActionHours actionHours(const ActionTimes &times)
{
    ActionHours hours;
    if (!times.isDated())
        return hours;
    if (times.start)
        hours.from = actionSecond(*times.start);
    if (times.end)
        hours.to = actionSecond(*times.end);
    return hours;
}

QVector<int> actionDays(const ActionTimes &times)
{
    QVector<int> days;
    for (int day = 1; day <= daysOfWeek; ++day) {
        if (names(times.weekDays, weekDayTokenOf(day)))
            days.append(day);
    }
    return days;
}

bool meet(const ActionTimes &one, const ActionTimes &other, const QDateTime &now)
{
    if (!neverWords(one).isEmpty() || !neverWords(other).isEmpty())
        return false;
    const ActionHours first = actionHours(one);
    const ActionHours second = actionHours(other);
    if (qMax(first.from, second.from) > qMin(first.to, second.to))
        return false;
    QDate from = now.date();
    QDate to;
    for (const ActionTimes &times : {one, other}) {
        if (!times.isDated())
            continue;
        const QDate start = actionDay(times.start);
        const QDate end = actionDay(times.end);
        from = start.isValid() ? qMax(from, start) : from;
        to = end.isValid() && (!to.isValid() || end < to) ? end : to;
    }
    // A week has every day.
    const QDate last = to.isValid() ? qMin(to, from.addDays(daysOfWeek)) : from.addDays(daysOfWeek);
    for (QDate day = from; day <= last; day = day.addDays(1)) {
        const bool isLeft = day > now.date() || qMin(first.to, second.to) >= QTime(0, 0).secsTo(now.time());
        if (isLeft && names(one.weekDays, weekDayToken(day)) && names(other.weekDays, weekDayToken(day)))
            return true;
    }
    return false;
}

QString weekDaysShown(const QString &weekDays)
{
    ActionTimes times;
    times.weekDays = weekDays;
    const QVector<int> days = actionDays(times);
    if (days.isEmpty())
        return weekDays;
    if (days.size() == daysOfWeek)
        return Texts::tr("щодня");
    QStringList shown;
    for (const int day : days)
        shown.append(weekDayShown(day));
    return shown.join(QLatin1Char(' '));
}

QString actionHoursShown(const ActionTimes &times)
{
    const ActionHours hours = actionHours(times);
    const ActionHours all;
    if (hours.from <= all.from && hours.to >= all.to - 59)
        return Texts::tr("цілодобово");
    return hourShown(hours.from) + QStringLiteral("–") + hourShown(hours.to);
}

QString actionPeriodShown(const ActionTimes &times)
{
    return times.isDated() ? dayShown(times.start) + QStringLiteral(" – ") + dayShown(times.end)
                           : Texts::tr("без дат");
}

QDate actionDay(const std::optional<qint64> &end)
{
    return end ? QDate::fromString(QString::number(*end / timeOfDay), QStringLiteral("yyyyMMdd")) : QDate();
}

int actionSecond(qint64 end)
{
    const auto time = static_cast<int>(end % timeOfDay);
    return time / 10000 * 3600 + time / 100 % 100 * 60 + time % 100;
}

QString weekDayShown(int day)
{
    static const char *const names[] = {
        QT_TRANSLATE_NOOP("ActionTimes", "Пн"), QT_TRANSLATE_NOOP("ActionTimes", "Вт"),
        QT_TRANSLATE_NOOP("ActionTimes", "Ср"), QT_TRANSLATE_NOOP("ActionTimes", "Чт"),
        QT_TRANSLATE_NOOP("ActionTimes", "Пт"), QT_TRANSLATE_NOOP("ActionTimes", "Сб"),
        QT_TRANSLATE_NOOP("ActionTimes", "Нд")};
    return Texts::tr(names[day - 1]);
}

QString weekDayTokenOf(int day)
{
    // A Monday.
    return weekDayToken(QDate(2024, 1, day));
}
