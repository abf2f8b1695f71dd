#pragma once

#include "qdateeditsel.h"

/// A date editor that may be empty. It is typed into like a line: "15.03.1990", "15.3.1990" or "15031990";
/// what is no date stays as it was typed and is never made into one.
class OptionalDateEdit : public QDateEditSel
{
    Q_OBJECT

public:
    explicit OptionalDateEdit(QWidget *parent = nullptr);

    /// "1990-03-15" as the database holds it; a null text for no date.
    QString stored() const;
    void setStored(const QString &stored);
    /// Why what was typed is no date, in the user's words; empty when it is one, or when it is empty.
    QString refusal() const;

protected:
    QValidator::State validate(QString &text, int &pos) const override;
    QDateTime dateTimeFromText(const QString &text) const override;
    QString textFromDateTime(const QDateTime &time) const override;
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Stands for no date, and for what is none.
    bool isNone() const { return date() == minimumDate(); }

    /// What was typed and is no date.
    mutable QString m_unread;
};
