#pragma once

#include "scanpace.h"

#include <QObject>

class QKeyEvent;
class QLineEdit;

/// Money in kopecks, a quantity in thousandths, a rate in hundredths of a per cent.
enum class NumberKind { Money, Quantity, Rate };

/// Reads a text as such a number (kopecksFromText and its like) within bounds. Returns why it is none, in
/// words that say what to write; empty when *units holds the number. Units only change when it is one.
QString readNumber(const QString &text, NumberKind kind, qint64 minimum, qint64 maximum, qint64 *units);

/// Watches a line edit for numbers: what cannot be read stays as it was typed or pasted, coloured and with
/// the reason as tool tip and accessible description. A code that a scanner sends into it is refused with
/// words as soon as it is recognised, the text of before stays, and the scanner's Enter does nothing.
class NumberField : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the field. describedBy shows tool tip and description where it is not the field itself.
    NumberField(QLineEdit *field, NumberKind kind, qint64 minimum, qint64 maximum,
                QWidget *describedBy = nullptr);

    /// An empty text then counts as 0.
    void setMayBeEmpty(bool mayBeEmpty);
    void setRange(qint64 minimum, qint64 maximum);

    bool isReadable() const { return refusalOf(text(), nullptr).isEmpty(); }
    /// The number; 0 while the text cannot be read.
    qint64 units() const;
    /// Why the text is no number or what was just scanned, in the user's words; empty when all is well.
    QString refusal() const;
    /// The same for any text; units may be null.
    QString refusalOf(const QString &text, qint64 *units) const;

    /// True for a key that belongs to a scanned code: whoever passes keys to the field by itself asks first.
    bool takesKey(const QKeyEvent &key);
    /// The words about a code go with the next key, or when the field is left.
    void forgetScan();
    /// Shows colour and words for what the field holds now.
    void showState();

signals:
    /// A scanned code was kept out of the field.
    void refused(const QString &words);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString text() const;
    void rememberField();
    void keepOut();

    QLineEdit *m_field;
    QWidget *m_describedBy;
    QString m_toolTip;
    NumberKind m_kind;
    qint64 m_minimum;
    qint64 m_maximum;
    bool m_mayBeEmpty = false;
    /// The digits that came faster than a hand types, and the field before the first of them.
    ScanPace m_pace;
    QString m_textBefore;
    int m_cursorBefore = 0;
    int m_selectionBefore = -1;
    int m_selectedBefore = 0;
    bool m_isScan = false;
};
