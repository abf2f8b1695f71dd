#include "heldacts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

namespace {
/// So long a decision waits for an item that is on its way.
constexpr int patienceMs = 2000;
} // namespace

HeldActs::HeldActs(QWidget *area) : QObject(area), m_area(area)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patienceMs);
    connect(&m_patience, &QTimer::timeout, this, &HeldActs::impatient);
    qApp->installEventFilter(this);
}

void HeldActs::await()
{
    m_isAwaiting = true;
    if (m_patience.isActive())
        m_patience.start();
}

void HeldActs::come(bool isThere)
{
    m_isAwaiting = false;
    for (Held &held : m_held)
        held.isThere = held.isThere && isThere;
    goOn();
}

void HeldActs::decide(const Act &act)
{
    if (m_isAwaiting && !m_patience.isActive())
        m_patience.start();
    then(act);
}

void HeldActs::then(const Act &act)
{
    if (m_isAwaiting)
        m_held.push_back({act, false});
    else
        act(true);
}

void HeldActs::forgetKeys(int count)
{
    for (; count > 0 && !m_held.empty() && m_held.back().isKey; --count)
        m_held.pop_back();
}

/// An act may await something itself, or show a box.
void HeldActs::goOn()
{
    if (m_isGoingOn)
        return;
    const QPointer<HeldActs> self(this);
    m_isGoingOn = true;
    while (!m_isAwaiting && !m_held.empty()) {
        const Held held = m_held.front();
        m_held.pop_front();
        held.act(held.isThere);
        if (self == nullptr)
            return;
    }
    m_isGoingOn = false;
    if (m_held.empty())
        m_patience.stop();
}

void HeldActs::send(const QKeyEvent &key)
{
    QWidget *focus = m_area->window()->focusWidget();
    if (focus == nullptr)
        return;
    const QScopedValueRollback<bool> sends(m_isSending, true);
    QKeyEvent copy(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                   static_cast<ushort>(key.count()));
    emit sending(true);
    QCoreApplication::sendEvent(focus, &copy);
    emit sending(false);
}

/// Parents get the same event when the focus does not want it: only the first counts.
bool HeldActs::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || m_held.empty() || m_isSending ||
        watched != QApplication::focusWidget() || !m_area->isAncestorOf(static_cast<QWidget *>(watched)))
        return false;
    const QKeyEvent key = *static_cast<QKeyEvent *>(event);
    m_held.push_back({[this, key](bool isThere) {
                          if (isThere)
                              send(key);
                      },
                      true});
    return true;
}
