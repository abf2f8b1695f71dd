#pragma once

#include <QSpinBox>

/// A box for whole numbers that counts only when it is left or saved, and then as a whole: what is no number
/// of its range, such as the digits of a scanned code, leaves the value as it was instead of a part of it.
class WholeSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit WholeSpinBox(QWidget *parent = nullptr);

    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;
};
