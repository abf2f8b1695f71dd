#include "heartbeat.h"

#include <algorithm>
#include <fstream>

namespace {
const int beatMs = 5;

// So many times as long as the released program this build takes for the same work.
#if defined(__SANITIZE_ADDRESS__)
const int slowness = 4;
#elif !defined(__OPTIMIZE__)
const int slowness = 2;
#else
const int slowness = 1;
#endif
} // namespace

/// Nothing where the system does not tell.
Heartbeat::CoreTime Heartbeat::coreTime()
{
    qint64 worked = 0;
    qint64 waited = 0;
    std::ifstream("/proc/thread-self/schedstat") >> worked >> waited;
    return {worked / 1000000, waited / 1000000};
}

Heartbeat::Heartbeat()
{
    startTimer(beatMs, Qt::PreciseTimer);
    restart();
}

void Heartbeat::restart()
{
    m_longest = 0;
    begin();
}

void Heartbeat::begin()
{
    m_before = coreTime();
    m_sinceBeat.start();
}

qint64 Heartbeat::longestGap()
{
    if (m_pauses == 0) {
        const CoreTime now = coreTime();
        const qint64 worked = now.workedMs - m_before.workedMs;
        const qint64 waited = now.waitedMs - m_before.waitedMs;
        m_longest = std::max(m_longest, m_sinceBeat.elapsed() - waited - worked + worked / slowness);
        begin();
    }
    return m_longest;
}

void Heartbeat::timerEvent(QTimerEvent *event)
{
    Q_UNUSED(event)
    longestGap();
}
