#pragma once

#include "chainstate.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QLoadedUser;
class QPushButton;
struct NextStep;

/// The steps to the first sale, one below the other, each with the button that leads there.
class FirstStepsView : public QWidget
{
    Q_OBJECT

public:
    FirstStepsView(const QLoadedUser *user, QWidget *parent);

    /// By what is there and what the user may do.
    void setSteps(const FirstSteps &done);

signals:
    /// The page of a step; isAdding: a new record is to be begun there.
    void stepWanted(const QString &action, bool isAdding);

private:
    struct Line
    {
        QLabel *text;
        QPushButton *button;
    };
    Line addLine(QGridLayout *grid, const NextStep &step);

    const QLoadedUser *m_user;
    QVector<Line> m_lines;
    QLabel *m_refusal;
};
