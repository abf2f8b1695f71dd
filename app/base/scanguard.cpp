#include "scanguard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {
bool typesText(const QKeyEvent &key)
{
    const QString text = key.text();
    return !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace() &&
           (key.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) == 0;
}
} // namespace

KeyGuard::KeyGuard(QWidget *window) : QObject(window), m_window(window)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyGuard::eventFilter(QObject *watched, QEvent *event)
{
    // A window may take its time between being shown and getting the keys.
    if (watched == m_window && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate))
        m_appeared.start();
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    auto *key = static_cast<QKeyEvent *>(event);
    if (widget == nullptr || widget->window() != m_window || !isStray(*key))
        return false;
    m_swallowed.start();
    // Taken here, it is nobody's shortcut either.
    key->accept();
    return true;
}

bool ScanGuard::isStray(const QKeyEvent &key)
{
    return !keysCount() || typesText(key);
}

bool ScanTail::isStray(const QKeyEvent &key)
{
    const bool isNext = m_pace.take(key);
    m_isOver = m_isOver || ScanPace::kindOf(key) == ScanPace::Other || (isShownFor(appearedMs) && !isNext);
    return !m_isOver;
}
