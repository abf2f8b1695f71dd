#include "heartbeat.h"

#include <algorithm>
#include <fstream>

namespace {
const int beatMs = 5;

// So many times as long as the released program this build takes for the same work.
#if defined(__SANITIZE_ADDRESS__)
const int slowness = 4;
// The other threads are checked, too: what this one waits for takes longer as well.
const bool waitsLonger = true;
#elif !defined(__OPTIMIZE__)
const int slowness = 2;
const bool waitsLonger = false;
#else
const int slowness = 1;
const bool waitsLonger = false;
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
        const qint64 gap = m_sinceBeat.elapsed() - waited;
        m_longest = std::max(m_longest, waitsLonger ? gap / slowness : gap - worked + worked / slowness);
        begin();
    }
    return m_longest;
}

void Heartbeat::timerEvent(QTimerEvent *event)
{
    Q_UNUSED(event)
    longestGap();
}
