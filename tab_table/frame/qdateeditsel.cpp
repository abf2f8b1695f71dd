#include "qdateeditsel.h"

#include <QMouseEvent>

void QLeDate::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    setSelection(0, 2);
}

QDateEditSel::QDateEditSel(QWidget *parent) : QDateEdit(parent)
{
    setLineEdit(new QLeDate(this));
    setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    setCalendarPopup(true);
}
