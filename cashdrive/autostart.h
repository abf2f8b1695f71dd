#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <functional>

/// Tells once a day that its time has come, while it is on. A day's time that was over when it was switched
/// on or set does not count any more; one that passes while the computer sleeps is told when it wakes.
class AutoStart : public QObject
{
    Q_OBJECT

public:
    explicit AutoStart(QObject *parent);

    /// The clock on the wall; tests bring their own.
    void setClock(const std::function<QDateTime()> &now) { m_now = now; }
    /// When something was started by it last, also before the program was; none: never. Whoever starts tells
    /// it.
    void setLast(const QDateTime &last) { m_last = last; }
    const QDateTime &last() const { return m_last; }
    void turnOn(const QTime &time);
    void turnOff();
    bool isOn() const { return m_timer.isActive(); }
    /// The day on which it is due next.
    const QDate &nextDay() const { return m_day; }
    const QTime &time() const { return m_time; }

    /// Looks at the clock; does so by itself while it is on.
    void look();

signals:
    void due(const QDateTime &now);
    /// The next day is another one, because the clock was set.
    void moved();

private:
    QDate dayBehind(const QDateTime &now) const;
    void settle(const QDateTime &now);

    std::function<QDateTime()> m_now = &QDateTime::currentDateTime;
    QTimer m_timer;
    QTime m_time;
    QDate m_day;
    QDateTime m_last;
};
