#include "typingpause.h"

#include <QLineEdit>

TypingPause::TypingPause(QObject *parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(length);
    connect(&m_timer, &QTimer::timeout, this, &TypingPause::ended);
}

void TypingPause::follow(QLineEdit *field)
{
    connect(field, &QLineEdit::textChanged, this, &TypingPause::begin);
    connect(field, &QLineEdit::editingFinished, this, &TypingPause::end);
}

void TypingPause::end()
{
    if (!isRunning())
        return;
    drop();
    emit ended();
}
