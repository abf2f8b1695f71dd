#pragma once

#include "onlineintervals.h"

#include <QStringList>
#include <QWidget>

/// A day from midnight to midnight: a bar a register, green while it was on line, red and hatched while it
/// was not, empty where nothing is known.
class DayTimeline : public QWidget
{
    Q_OBJECT

public:
    explicit DayTimeline(QWidget *parent = nullptr);

    void setDay(const QStringList &registers, const QVector<DaySpan> &spans);
    const QVector<DaySpan> &spans() const { return m_spans; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString spanText(const DaySpan &span) const;
    QString spanAt(const QPoint &point) const;
    QString description() const;
    int lineHeight() const;
    int namesWidth() const;
    int xOf(int seconds) const;
    QRect barOf(const DaySpan &span) const;
    void paintHours(QPainter *painter) const;
    void paintLegend(QPainter *painter) const;

    QStringList m_registers;
    QVector<DaySpan> m_spans;
};
