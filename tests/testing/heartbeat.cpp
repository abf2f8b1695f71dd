#include "heartbeat.h"

#include <algorithm>
#include <fstream>

namespace {
const int beatMs = 5;

/// How long this thread has waited for a core in its life, in ms; 0 where the system does not tell.
qint64 waitedForCore()
{
    qint64 run = 0;
    qint64 waited = 0;
    std::ifstream("/proc/thread-self/schedstat") >> run >> waited;
    return waited / 1000000;
}
} // namespace

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
    m_waitedBefore = waitedForCore();
    m_sinceBeat.start();
}

qint64 Heartbeat::longestGap()
{
    if (m_pauses == 0) {
        m_longest = std::max(m_longest, m_sinceBeat.elapsed() - (waitedForCore() - m_waitedBefore));
        begin();
    }
    return m_longest;
}

void Heartbeat::timerEvent(QTimerEvent *event)
{
    Q_UNUSED(event)
    longestGap();
}
