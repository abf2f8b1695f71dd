#include "wholespinbox.h"

WholeSpinBox::WholeSpinBox(QWidget *parent) : QSpinBox(parent)
{
    setKeyboardTracking(false);
}

QValidator::State WholeSpinBox::validate(QString &text, int &position) const
{
    Q_UNUSED(position)
    if (!specialValueText().isEmpty() && text == specialValueText())
        return QValidator::Acceptable;
    bool isNumber = false;
    // Not by the locale: it would take the blanks of groups out, wherever they stand.
    const int number = text.toInt(&isNumber);
    return isNumber && number >= minimum() && number <= maximum() ? QValidator::Acceptable
                                                                  : QValidator::Intermediate;
}

void WholeSpinBox::fixup(QString &text) const
{
    Q_UNUSED(text)
}
