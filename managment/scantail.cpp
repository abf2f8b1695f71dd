#include "scantail.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {
bool comesFromScanner(const QKeyEvent &key)
{
    const QString text = key.text();
    const bool isDigit = text.size() == 1 && text.at(0) >= QLatin1Char('0') && text.at(0) <= QLatin1Char('9');
    return isDigit || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab;
}
} // namespace

ScanTail::ScanTail(QWidget *window) : QObject(window), m_window(window)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ScanTail::eventFilter(QObject *watched, QEvent *event)
{
    // A window may take its time between being shown and getting the keys.
    if (watched == m_window && (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) &&
        !m_swallowed.isValid())
        m_appeared.start();
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    auto *widget = qobject_cast<QWidget *>(watched);
    if (m_isOver || !isKey || widget == nullptr || widget->window() != m_window)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    m_isOver = !isTail(*key);
    if (m_isOver)
        return false;
    // Taken here, it is nobody's shortcut either.
    key->accept();
    m_swallowed.start();
    return true;
}

bool ScanTail::isTail(const QKeyEvent &key)
{
    const bool isEarly = m_appeared.isValid() && !m_appeared.hasExpired(appearedMs);
    const bool isNext = m_swallowed.isValid() && !m_swallowed.hasExpired(gapMs);
    return comesFromScanner(key) && (isEarly || isNext);
}
