#pragma once

#include <QDoubleSpinBox>

class NumberField;

/// A box for hryvnias with two decimals, up to what the database holds. Typed and pasted text is read by
/// kopecksFromText alone; what cannot be read stays as it is, coloured and with words, and the box keeps its
/// value until it can. A scanned code is refused and changes nothing. An empty box is 0. A box that is
/// entered from the keyboard is replaced by what is typed; the wheel does nothing.
class MoneySpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit MoneySpinBox(QWidget *parent = nullptr);

    qint64 kopecks() const;
    void setKopecks(qint64 kopecks);
    void setValue(double value);

    /// False while the box shows what is no amount: whoever goes on asks first. It still has its last value.
    bool isReadable() const;
    /// Why it cannot be read, or which scanned code was just refused, in the user's words; empty when fine.
    QString refusal() const;
    /// Takes over what is being typed, and writes it with two decimals; what cannot be read stays.
    void interpretText();

    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;
    double valueFromText(const QString &text) const override;
    QString textFromValue(double value) const override;
    void stepBy(int steps) override;

signals:
    /// Enter on what cannot be read, or a scanned code: the words of refusal().
    void refused(const QString &words);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    NumberField *m_number = nullptr;
    bool m_isReplaced = false;
};
