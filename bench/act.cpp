#include "act.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <ctime>

namespace {
constexpr int endlessMs = 600000;
constexpr int wakeUpMs = 5;
/// What an act leaves to the event loop, painting above all, is done by then.
constexpr int settlingMs = 60;

/// Of this process so far.
double processorMs()
{
    return static_cast<double>(clock()) * 1000 / CLOCKS_PER_SEC;
}
} // namespace

void waitFor(const std::function<bool()> &isDone)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    // What one event has made true is seen before the next one.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop,
                     [&] {
                         if (isDone())
                             loop.quit();
                         else if (clock.hasExpired(endlessMs))
                             qFatal("What was waited for did not come");
                     });
    QTimer wakeUp;
    wakeUp.start(wakeUpMs);
    if (!isDone())
        loop.exec();
}

ActClock::ActClock() : m_processorMs(processorMs())
{
    m_clock.start();
}

Cost ActClock::end()
{
    Cost cost;
    cost.processorMs = processorMs() - m_processorMs;
    cost.ms = static_cast<double>(m_clock.nsecsElapsed()) / 1e6;
    QEventLoop loop;
    QTimer::singleShot(settlingMs, &loop, &QEventLoop::quit);
    loop.exec();
    cost.gapMs = static_cast<double>(m_heart.longestGap());
    return cost;
}

Cost costOf(const std::function<void()> &act, const std::function<bool()> &isDone)
{
    ActClock clock;
    act();
    waitFor(isDone);
    return clock.end();
}
