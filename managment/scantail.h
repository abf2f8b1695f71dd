#pragma once

#include <QElapsedTimer>
#include <QObject>

class QKeyEvent;
class QWidget;

/// Keeps the rest of a scan out of a window that opened in the middle of it: the digits that arrive at once,
/// and the Enter behind them, which would be a decision here. Any other key is a hand's and ends the watch.
class ScanTail : public QObject
{
    Q_OBJECT

public:
    /// Digits that come so soon after the window has appeared nobody has typed.
    static constexpr int appearedMs = 150;
    /// At most between two keys of a scan.
    static constexpr int gapMs = 80;

    explicit ScanTail(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isTail(const QKeyEvent &key);

    QWidget *m_window;
    QElapsedTimer m_appeared;
    QElapsedTimer m_swallowed;
    bool m_isOver = false;
};
