#include "busywindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

namespace {
bool movesOrDeletes(int key)
{
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

bool isFromHand(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Drop:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}
} // namespace

bool KeptKeys::Key::isEnter() const
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool KeptKeys::Key::types() const
{
    return !text.isEmpty() && text.at(0).isPrint();
}

bool KeptKeys::keep(const QKeyEvent &key)
{
    const Key pressed = {key.key(), key.modifiers(), key.text()};
    const bool isShortcut =
        (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (isShortcut || (!pressed.types() && !movesOrDeletes(key.key())))
        return false;
    m_keys.append(pressed);
    return true;
}

bool KeptKeys::keepEntry(const QKeyEvent &key)
{
    const Key pressed = {key.key(), key.modifiers(), {}};
    if (!pressed.isEnter() && key.key() != Qt::Key_Escape)
        return keep(key);
    const int begin = lastEntry();
    if (!std::any_of(m_keys.cbegin() + begin, m_keys.cend(), [](const Key &one) { return one.types(); }))
        return false;
    if (pressed.isEnter())
        m_keys.append(pressed);
    else
        m_keys.resize(begin);
    return true;
}

int KeptKeys::lastEntry() const
{
    const auto last =
        std::find_if(m_keys.crbegin(), m_keys.crend(), [](const Key &key) { return key.isEnter(); });
    return static_cast<int>(std::distance(last, m_keys.crend()));
}

QString KeptKeys::text() const
{
    QStringList entries = {QString()};
    for (const Key &key : m_keys) {
        if (key.isEnter())
            entries.append(QString());
        else if (key.types())
            entries.last() += key.text;
    }
    entries.removeAll(QString());
    return entries.join(QStringLiteral(", "));
}

void KeptKeys::giveTo(QWidget *window)
{
    const QPointer<QWidget> open = window;
    QVector<Key> keys = std::exchange(m_keys, {});
    while (!keys.isEmpty()) {
        const Key key = keys.takeFirst();
        if (key.isEnter())
            m_keys += std::exchange(keys, {});
        QWidget *focused = open ? window->focusWidget() : nullptr;
        const bool isButton = qobject_cast<QAbstractButton *>(focused) != nullptr;
        if (focused == nullptr || (isButton && key.key == Qt::Key_Space))
            continue;
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key.key, key.modifiers, key.text);
            QApplication::sendEvent(focused, &event);
        }
    }
}

BusyWindow::BusyWindow(QWidget *window, QPushButton *cancel, QLabel *label)
    : QObject(window), m_window(window), m_cancel(cancel), m_note(label, this)
{
    m_notice.setSingleShot(true);
    m_notice.setInterval(WaitNote::delayMs);
    connect(&m_notice, &QTimer::timeout, this, &BusyWindow::disable);
}

void BusyWindow::begin(const QString &words, bool keepsKeys)
{
    m_note.begin(words);
    m_keepsKeys = keepsKeys;
    m_keys.drop();
    if (!m_isBusy)
        qApp->installEventFilter(this);
    m_isBusy = true;
    m_notice.start();
}

void BusyWindow::disable()
{
    m_focused = m_window->focusWidget();
    const auto widgets = m_window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const bool takesHands = widget->focusPolicy() != Qt::NoFocus && widget != m_cancel;
        if (!takesHands || !widget->isEnabledTo(widget->parentWidget()))
            continue;
        widget->setEnabled(false);
        m_disabled.append(widget);
    }
}

void BusyWindow::end()
{
    m_notice.stop();
    qApp->removeEventFilter(this);
    m_isBusy = false;
    m_note.end();
    for (const auto &widget : qAsConst(m_disabled)) {
        if (widget)
            widget->setEnabled(true);
    }
    if (!m_disabled.isEmpty() && m_focused)
        m_focused->setFocus();
    m_disabled.clear();
}

bool BusyWindow::cancels(const QKeyEvent &key) const
{
    return key.key() == Qt::Key_Escape ||
           m_cancel->shortcut() == QKeySequence(static_cast<int>(key.modifiers()) | key.key());
}

/// A shortcut is asked for first: who accepts that gets the key itself.
bool BusyWindow::isKeyTaken(QEvent *event)
{
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (cancels(key))
        return false;
    if (event->type() == QEvent::ShortcutOverride)
        event->accept();
    else if (event->type() == QEvent::KeyPress && m_keepsKeys)
        m_keys.keep(key);
    return true;
}

bool BusyWindow::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (widget == nullptr || widget->window() != m_window)
        return QObject::eventFilter(watched, event);
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride)
        return isKeyTaken(event);
    return (isFromHand(type) && widget != m_cancel) || QObject::eventFilter(watched, event);
}
