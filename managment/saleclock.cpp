#include "saleclock.h"

#include <utility>

namespace {
SaleClock::Source &clockSource()
{
    static SaleClock::Source source;
    return source;
}
} // namespace

QDateTime SaleClock::now()
{
    return clockSource() ? clockSource()() : QDateTime::currentDateTime();
}

QDateTime SaleClock::at(const QDate &chosen)
{
    const QDateTime time = now();
    return chosen.isValid() ? QDateTime(chosen, time.time(), Qt::UTC) : time;
}

SaleClock::Source SaleClock::setSource(const Source &source)
{
    return std::exchange(clockSource(), source);
}
