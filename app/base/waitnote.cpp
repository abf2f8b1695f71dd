#include "waitnote.h"

#include <QLabel>

WaitNote::WaitNote(QLabel *label, QObject *parent) : QObject(parent), m_label(label)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(delayMs);
    connect(&m_delay, &QTimer::timeout, this, [this] { say(m_words); });
}

void WaitNote::begin(const QString &words)
{
    m_words = words;
    m_delay.start();
}

void WaitNote::say(const QString &words)
{
    m_delay.stop();
    if (m_label != nullptr)
        m_label->setText(words);
}

void WaitNote::end()
{
    say(QString());
}
