#pragma once

#include <QTimer>
#include <chrono>

class QLineEdit;

/// A short rest of the hands: what is typed or chosen is asked for once nothing more has come for a moment. A
/// scanner's digits and a key that is held down come faster, and are one question.
class TypingPause : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds length{120};

    explicit TypingPause(QObject *parent = nullptr);
    /// Every change of the field's text begins it; Enter and leaving the field end it.
    void follow(QLineEdit *field);

    /// From now on once more.
    void begin() { m_timer.start(); }
    /// At once, when it has begun.
    void end();
    /// What has begun it is not asked for any more.
    void drop() { m_timer.stop(); }
    bool isRunning() const { return m_timer.isActive(); }

signals:
    void ended();

private:
    QTimer m_timer;
};
