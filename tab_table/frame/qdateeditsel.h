#pragma once

#include <QDateEdit>
#include <QLineEdit>

/// A line edit that selects its first two characters on a mouse release: the day of a date.
class QLeDate : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
};

/// A date editor in which a click selects the day.
class QDateEditSel : public QDateEdit
{
    Q_OBJECT

public:
    explicit QDateEditSel(QWidget *parent = nullptr);
};
