#include "moneyspinbox.h"

#include "money.h"

#include <QKeyEvent>

MoneySpinBox::MoneySpinBox(QWidget *parent) : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
    setDecimals(2);
    setRange(0, spinValue(maximumKopecks, 2));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
}

qint64 MoneySpinBox::kopecks() const
{
    return wholeUnits(value(), 2);
}

void MoneySpinBox::setKopecks(qint64 kopecks)
{
    setValue(spinValue(kopecks, 2));
}

void MoneySpinBox::keyPressEvent(QKeyEvent *event)
{
    if (event->text() != QLatin1String(","))
        return QDoubleSpinBox::keyPressEvent(event);
    QKeyEvent point(event->type(), Qt::Key_Period, event->modifiers(), QStringLiteral("."));
    QDoubleSpinBox::keyPressEvent(&point);
}

void MoneySpinBox::focusInEvent(QFocusEvent *event)
{
    QDoubleSpinBox::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason)
        selectAll();
}
