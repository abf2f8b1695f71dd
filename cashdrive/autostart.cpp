#include "autostart.h"

namespace {
const int lookMs = 5000;
} // namespace

AutoStart::AutoStart(QObject *parent) : QObject(parent)
{
    m_timer.setInterval(lookMs);
    connect(&m_timer, &QTimer::timeout, this, &AutoStart::look);
}

void AutoStart::turnOn(const QTime &time)
{
    m_time = time;
    m_day = dayBehind(m_now());
    m_timer.start();
}

/// The next one whose time is still to come, and on which nothing was started yet.
QDate AutoStart::dayBehind(const QDateTime &now) const
{
    const QDate day = now.time() < m_time ? now.date() : now.date().addDays(1);
    return day == m_last.date() ? day.addDays(1) : day;
}

void AutoStart::turnOff()
{
    m_timer.stop();
}

/// Somebody has set the clock back: a day that a wrong clock has made is not waited for.
void AutoStart::settle(const QDateTime &now)
{
    const QDate day = dayBehind(now);
    if (day == m_day)
        return;
    m_day = day;
    emit moved();
}

/// Day and time of the wall's clock: an hour that summer time skips or repeats makes no difference.
void AutoStart::look()
{
    const QDateTime now = m_now();
    if (isOn() && m_day > now.date().addDays(1))
        settle(now);
    if (!isOn() || now.date() < m_day || (now.date() == m_day && now.time() < m_time))
        return;
    m_day = now.date().addDays(1);
    emit due(now);
}
