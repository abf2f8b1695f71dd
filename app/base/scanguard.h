#pragma once

#include <QElapsedTimer>
#include <QObject>

class QKeyEvent;
class QWidget;

/// Keeps a question from being answered by what a scanner sends, its digits and its Enter, or by a key that
/// was still meant for the window before. Keys count only from some time after the question has appeared
/// and when none was swallowed shortly before; what types text never counts. The mouse counts at once.
class ScanGuard : public QObject
{
    Q_OBJECT

public:
    static constexpr int appearedMs = 400;
    static constexpr int quietMs = 100;

    /// Guards a window without text fields as long as both live.
    explicit ScanGuard(QWidget *window);

    /// Whether a key that is pressed now is meant.
    bool keysCount() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isStray(const QKeyEvent &key) const;

    QWidget *m_window;
    QElapsedTimer m_appeared;
    QElapsedTimer m_swallowed;
};
