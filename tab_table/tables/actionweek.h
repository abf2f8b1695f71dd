#pragma once

#include "actiontimes.h"

#include <QWidget>

/// The week of a promotion as a picture: a line for each day, its hours from left to right. Where it applies
/// the cell is filled and has a tick, so that nothing is told by colour alone. Who cannot see it is told the
/// same in words.
class ActionWeek : public QWidget
{
    Q_OBJECT

public:
    explicit ActionWeek(QWidget *parent = nullptr);

    void setAction(const ActionTimes &times);
    /// Nothing to show.
    void clear();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF cell(int day, double hour, double hours) const;
    void paintHead(QPainter *painter) const;
    void paintDay(QPainter *painter, int day) const;
    void say();

    ActionTimes m_times;
    bool m_isShown = false;
};
