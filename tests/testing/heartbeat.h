#pragma once

#include <QElapsedTimer>
#include <QObject>

/// Beats in the event loop of the window's thread: tells how long nothing could be typed or painted there.
class Heartbeat : public QObject
{
public:
    /// A window that waits for a slow server of these tests stands still at least so long, in ms. How much
    /// sooner it answers when it does not wait is told by the benchmarks, not by tests on a busy machine.
    static constexpr qint64 waitMs = 200;

    Heartbeat();

    void restart();
    /// The longest time between two beats since restart(), the present one included, in ms. What the machine
    /// gave to other programs while this thread had something to do is left out, and so is what this thread
    /// works longer in an unoptimized or checked build.
    qint64 longestGap();

    /// The test's own work, its SQL above all, does not count as long as one lives.
    class Pause
    {
    public:
        explicit Pause(Heartbeat *heart) : m_heart(heart) { m_heart->longestGap(), ++m_heart->m_pauses; }
        ~Pause() { --m_heart->m_pauses, m_heart->begin(); }
        Q_DISABLE_COPY(Pause)

    private:
        Heartbeat *m_heart;
    };

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    /// Of this thread, since its beginning: on a core, and ready but without one.
    struct CoreTime
    {
        qint64 workedMs;
        qint64 waitedMs;
    };
    static CoreTime coreTime();
    void begin();

    QElapsedTimer m_sinceBeat;
    CoreTime m_before{0, 0};
    qint64 m_longest = 0;
    int m_pauses = 0;
};
