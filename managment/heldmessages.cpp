#include "heldmessages.h"

#include "qmessevent.h"

#include <QCoreApplication>

void HeldMessages::deliver()
{
    QCoreApplication::sendPostedEvents(this, QMessEvent::eventType);
}

bool HeldMessages::event(QEvent *event)
{
    if (event->type() != QMessEvent::eventType)
        return QObject::event(event);
    const auto *message = static_cast<const QMessEvent *>(event);
    if (m_receiver != nullptr)
        QCoreApplication::postEvent(m_receiver,
                                    new QMessEvent(message->location(), message->text(), message->kind()));
    else
        qWarning("%s", qPrintable(message->text()));
    return true;
}
