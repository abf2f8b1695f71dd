#include "moneyspinbox.h"

#include "money.h"
#include "numberfield.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QToolTip>

MoneySpinBox::MoneySpinBox(QWidget *parent) : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
    setDecimals(2);
    setRange(0, spinValue(maximumKopecks, 2));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_number = new NumberField(lineEdit(), NumberKind::Money, 0, maximumKopecks, this);
    m_number->setMayBeEmpty(true);
    connect(m_number, &NumberField::refused, this, &MoneySpinBox::refused);
    // The base writes its text without a word to anybody.
    connect(this, qOverload<double>(&QDoubleSpinBox::valueChanged), m_number, &NumberField::showState);
}

qint64 MoneySpinBox::kopecks() const
{
    return wholeUnits(value(), 2);
}

void MoneySpinBox::setKopecks(qint64 kopecks)
{
    setValue(spinValue(kopecks, 2));
}

void MoneySpinBox::setValue(double value)
{
    const QScopedValueRollback<bool> replacing(m_isReplaced, true);
    QDoubleSpinBox::setValue(value);
    m_number->showState();
}

bool MoneySpinBox::isReadable() const
{
    return m_number->isReadable();
}

QString MoneySpinBox::refusal() const
{
    return m_number->refusal();
}

void MoneySpinBox::interpretText()
{
    QDoubleSpinBox::interpretText();
    m_number->showState();
}

/// Nothing is kept from being typed: colour and words say what is wrong.
QValidator::State MoneySpinBox::validate(QString &text, int &position) const
{
    Q_UNUSED(position)
    return m_number == nullptr || m_number->refusalOf(text, nullptr).isEmpty() ? QValidator::Acceptable
                                                                               : QValidator::Intermediate;
}

/// The base would take out what parts groups in its locale.
void MoneySpinBox::fixup(QString &text) const
{
    Q_UNUSED(text)
}

double MoneySpinBox::valueFromText(const QString &text) const
{
    qint64 kopecks = 0;
    if (m_number == nullptr || !m_number->refusalOf(text, &kopecks).isEmpty())
        return value();
    return spinValue(kopecks, 2);
}

/// The base puts this in place of what it cannot read whenever it looks (Enter, focus, hiding): what is
/// unreadable is its own text until the value changes.
QString MoneySpinBox::textFromValue(double value) const
{
    const qint64 asked = wholeUnits(value, 2);
    if (m_number != nullptr && !m_isReplaced && asked == kopecks() && !m_number->isReadable())
        return lineEdit()->text();
    return moneyText(asked);
}

void MoneySpinBox::stepBy(int steps)
{
    if (isReadable())
        QDoubleSpinBox::stepBy(steps);
}

void MoneySpinBox::keyPressEvent(QKeyEvent *event)
{
    if (!isReadOnly() && m_number->takesKey(*event))
        return event->accept();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || isReadable())
        return QDoubleSpinBox::keyPressEvent(event);
    // Enter goes no further: the window must not take this for an answer.
    event->accept();
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), refusal(), this);
    emit refused(refusal());
}

void MoneySpinBox::focusInEvent(QFocusEvent *event)
{
    QDoubleSpinBox::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason)
        selectAll();
}

void MoneySpinBox::focusOutEvent(QFocusEvent *event)
{
    m_number->forgetScan();
    interpretText();
    QDoubleSpinBox::focusOutEvent(event);
}

void MoneySpinBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
