#pragma once

#include "scanpace.h"
#include "turnoverbars.h"

#include <QWidget>

/// Upright bars of money over their names, below the zero line where they are negative. The figures are in
/// the tool tips and, all of them, in the accessible description. Where the bars are offered one of them is
/// the current one: the arrow keys choose it, a click or Enter opens it, and its figure is told under the
/// pointer.
class TurnoverChart : public QWidget
{
    Q_OBJECT

public:
    explicit TurnoverChart(QWidget *parent = nullptr);

    void setBars(const QVector<TurnoverBar> &bars);
    const QVector<TurnoverBar> &bars() const { return m_bars; }
    /// From now on the bars can be opened.
    void offerBars();
    /// The one that the keys are at; -1 for none.
    int currentBar() const { return m_current; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void currentChanged(int bar);
    void barOpened(int bar);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    /// Where the bars stand, without the scale on the left and the names below.
    QRect plot() const;
    int yOf(qint64 kopecks) const;
    /// The width that a bar has, with the gap beside it.
    QRect slot(int bar) const;
    /// The bar at a place; -1 where there is none.
    int barAt(const QPoint &place) const;
    QString figureOf(int bar) const;
    void setCurrent(int bar);
    void describe();
    void findScale();
    void drawScale(QPainter *painter) const;
    void drawBars(QPainter *painter) const;
    void drawCurrent(QPainter *painter) const;
    void drawNames(QPainter *painter) const;
    /// Every n-th bar has its name below it, in so many lines.
    int nameEvery() const;
    int nameLines() const;
    int widestName() const;
    int scaleWidth() const;
    int slotWidth() const;

    QVector<TurnoverBar> m_bars;
    bool m_isOffered = false;
    int m_current = -1;
    ScanPace m_pace;
    /// The scale: lines stand at the multiples of the step from the lowest to the highest.
    qint64 m_lowest = 0;
    qint64 m_highest = 0;
    qint64 m_step = 1;
};
