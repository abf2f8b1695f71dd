#pragma once

#include "scanpace.h"

#include <QElapsedTimer>
#include <QObject>

class QKeyEvent;
class QWidget;

/// Watches the keys of a window as long as both live, and swallows those that were not meant for it.
class KeyGuard : public QObject
{
    Q_OBJECT

protected:
    explicit KeyGuard(QWidget *window);

    virtual bool isStray(const QKeyEvent &key) = 0;
    /// Whether the window has been there, or has had the keys, for so long.
    bool isShownFor(int ms) const { return m_appeared.isValid() && m_appeared.hasExpired(ms); }
    /// Whether no key was swallowed for so long.
    bool isQuietFor(int ms) const { return !m_swallowed.isValid() || m_swallowed.hasExpired(ms); }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_window;
    QElapsedTimer m_appeared;
    QElapsedTimer m_swallowed;
};

/// Keeps a question from being answered by what a scanner sends, its digits and its Enter, or by a key that
/// was still meant for the window before. Keys count only from some time after the question has appeared
/// and when none was swallowed shortly before; what types text never counts. The mouse counts at once.
class ScanGuard : public KeyGuard
{
    Q_OBJECT

public:
    static constexpr int appearedMs = 400;
    static constexpr int quietMs = 100;

    /// Guards a window without text fields.
    explicit ScanGuard(QWidget *window) : KeyGuard(window) {}

    /// Whether a key that is pressed now is meant.
    bool keysCount() const { return isShownFor(appearedMs) && isQuietFor(quietMs); }

protected:
    bool isStray(const QKeyEvent &key) override;
};

/// Keeps the rest of a scan out of a window that opened in the middle of it: the digits that arrive at once,
/// and the Enter behind them, which would be a decision here. Any other key is a hand's and ends the watch.
class ScanTail : public KeyGuard
{
    Q_OBJECT

public:
    /// Digits that come so soon after the window has appeared nobody has typed.
    static constexpr int appearedMs = 150;

    explicit ScanTail(QWidget *window) : KeyGuard(window) {}

protected:
    bool isStray(const QKeyEvent &key) override;

private:
    ScanPace m_pace;
    bool m_isOver = false;
};
