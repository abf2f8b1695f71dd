#pragma once

#include <QDoubleSpinBox>

/// A box for hryvnias with two decimals, up to what the database holds. A comma counts as a point, and a
/// box that is entered from the keyboard is replaced by what is typed.
class MoneySpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit MoneySpinBox(QWidget *parent = nullptr);

    qint64 kopecks() const;
    void setKopecks(qint64 kopecks);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
};
