#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QLabel;

/// Says in a label what a window waits for, "Читається…" or "Записується…", once that has lasted long enough
/// to be noticed: a quick answer shows no flash.
class WaitNote : public QObject
{
    Q_OBJECT

public:
    static constexpr int delayMs = 150;

    /// The label is empty, and takes its room, while nothing is waited for.
    WaitNote(QLabel *label, QObject *parent);

    void begin(const QString &words);
    /// At once: the answer to a hand that does not want to wait.
    void say(const QString &words);
    void end();

private:
    QPointer<QLabel> m_label;
    QString m_words;
    QTimer m_delay;
};
