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
    const QDateTime now = m_now();
    const bool isToday = now.time() < time && m_last.date() != now.date();
    m_time = time;
    m_day = isToday ? now.date() : now.date().addDays(1);
    m_timer.start();
}

void AutoStart::turnOff()
{
    m_timer.stop();
}

/// Day and time of the wall's clock: an hour that summer time skips or repeats makes no difference.
void AutoStart::look()
{
    const QDateTime now = m_now();
    if (!isOn() || now.date() < m_day || (now.date() == m_day && now.time() < m_time))
        return;
    m_day = now.date().addDays(1);
    emit due(now);
}
