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

ScanGuard::ScanGuard(QWidget *window) : QObject(window), m_window(window)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ScanGuard::keysCount() const
{
    return m_appeared.isValid() && m_appeared.hasExpired(appearedMs) &&
           (!m_swallowed.isValid() || m_swallowed.hasExpired(quietMs));
}

bool ScanGuard::isStray(const QKeyEvent &key) const
{
    return !keysCount() || typesText(key);
}

bool ScanGuard::eventFilter(QObject *watched, QEvent *event)
{
    // A window may take its time between being shown and getting the keys.
    if (watched == m_window && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate))
        m_appeared.start();
    const bool isShortcut = event->type() == QEvent::ShortcutOverride;
    if (!isShortcut && event->type() != QEvent::KeyPress)
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    auto *key = static_cast<QKeyEvent *>(event);
    if (widget == nullptr || widget->window() != m_window || !isStray(*key))
        return false;
    m_swallowed.start();
    key->setAccepted(isShortcut);
    return true;
}
