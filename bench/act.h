#pragma once

#include "heartbeat.h"

#include <functional>

/// What an act of the user costs: the time until its end is seen, and the longest time meanwhile, and right
/// behind it, in which the window took no key and painted nothing; and the processor time of all threads,
/// which tells more than the time on a machine that others use.
struct Cost
{
    double ms = 0;
    double gapMs = 0;
    double processorMs = 0;
};

/// Works in the event loop until something has become true; the benchmark fails when it never does.
void waitFor(const std::function<bool()> &isDone);

/// Begins when it is made.
class ActClock
{
public:
    ActClock();
    /// The act has ended at this moment.
    Cost end();

private:
    Heartbeat m_heart;
    QElapsedTimer m_clock;
    double m_processorMs;
};

Cost costOf(const std::function<void()> &act, const std::function<bool()> &isDone);
