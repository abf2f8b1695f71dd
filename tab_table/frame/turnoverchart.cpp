#include "turnoverchart.h"

#include "money.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextOption>
#include <QToolTip>
#include <algorithm>

namespace {
const int mostLines = 4;
const int mostNameLines = 4;
/// The bars have so many lines of text to themselves before names take more than one.
const int leastBarLines = 5;

/// The smallest of 1, 2, 5, 10, 20, ... hryvnias that parts a span into few lines.
qint64 niceStep(qint64 span)
{
    qint64 decade = 100;
    while (decade * 10 * mostLines < span)
        decade *= 10;
    for (const qint64 factor : {1, 2, 5}) {
        if (decade * factor * mostLines >= span)
            return decade * factor;
    }
    return decade * 10;
}

QString wholeHryvnias(qint64 kopecks)
{
    return moneyShown(kopecks).chopped(3);
}
} // namespace

TurnoverChart::TurnoverChart(QWidget *parent) : QWidget(parent)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    QFont smaller = font();
    smaller.setPointSizeF(QFontInfo(smaller).pointSizeF() * 0.85);
    setFont(smaller);
}

void TurnoverChart::setBars(const QVector<TurnoverBar> &bars)
{
    m_bars = bars;
    m_current = qMin(m_current, m_bars.size() - 1);
    findScale();
    describe();
    update();
}

/// Whoever hears instead of seeing hears the one that was chosen first.
void TurnoverChart::describe()
{
    const auto figure = [](const TurnoverBar &bar) {
        return bar.name + QStringLiteral(": ") + moneyText(bar.kopecks);
    };
    QStringList figures;
    if (m_current >= 0)
        figures.append(figure(m_bars.at(m_current)));
    for (const TurnoverBar &bar : qAsConst(m_bars))
        figures.append(figure(bar));
    setAccessibleDescription(figures.join(QStringLiteral("; ")));
}

void TurnoverChart::offerBars()
{
    m_isOffered = true;
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
}

void TurnoverChart::findScale()
{
    qint64 lowest = 0;
    qint64 highest = 0;
    for (const TurnoverBar &bar : qAsConst(m_bars)) {
        lowest = qMin(lowest, bar.kopecks);
        highest = qMax(highest, bar.kopecks);
    }
    m_step = niceStep(highest - lowest);
    m_lowest = (lowest - m_step + 1) / m_step * m_step;
    m_highest = qMax(m_lowest + m_step, (highest + m_step - 1) / m_step * m_step);
}

QSize TurnoverChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 16};
}

QSize TurnoverChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 6};
}

int TurnoverChart::scaleWidth() const
{
    const QFontMetrics metrics = fontMetrics();
    return qMax(metrics.horizontalAdvance(wholeHryvnias(m_highest)),
                metrics.horizontalAdvance(wholeHryvnias(m_lowest))) +
           metrics.height();
}

int TurnoverChart::slotWidth() const
{
    return qMax(1, (width() - scaleWidth() - fontMetrics().height() / 2) / qMax(1, m_bars.size()));
}

QRect TurnoverChart::plot() const
{
    const int height = fontMetrics().height();
    return rect().adjusted(scaleWidth(), height, -height / 2,
                           -fontMetrics().lineSpacing() * nameLines() - height / 2);
}

int TurnoverChart::yOf(qint64 kopecks) const
{
    const QRect area = plot();
    return area.bottom() - static_cast<int>((kopecks - m_lowest) * area.height() / (m_highest - m_lowest));
}

QRect TurnoverChart::slot(int bar) const
{
    const QRect area = plot();
    const int count = m_bars.size();
    const int left = area.left() + static_cast<int>(qint64(area.width()) * bar / count);
    const int right = area.left() + static_cast<int>(qint64(area.width()) * (bar + 1) / count);
    return {left, area.top(), right - left, area.height()};
}

void TurnoverChart::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    if (m_bars.isEmpty())
        return;
    QPainter painter(this);
    drawScale(&painter);
    drawBars(&painter);
    drawCurrent(&painter);
    drawNames(&painter);
}

void TurnoverChart::drawScale(QPainter *painter) const
{
    const QRect area = plot();
    const int height = fontMetrics().height();
    QColor faint = palette().color(QPalette::Text);
    faint.setAlpha(60);
    int labelled = area.bottom() + height;
    for (qint64 line = m_lowest; line <= m_highest; line += m_step) {
        const int y = yOf(line);
        painter->setPen(line == 0 ? palette().color(QPalette::Text) : faint);
        painter->drawLine(area.left(), y, area.right(), y);
        if (labelled - y < height)
            continue;
        labelled = y;
        painter->setPen(palette().color(QPalette::Text));
        painter->drawText(QRect(0, y - height / 2, area.left() - height / 3, height),
                          Qt::AlignRight | Qt::AlignVCenter, wholeHryvnias(line));
    }
}

void TurnoverChart::drawBars(QPainter *painter) const
{
    for (int i = 0; i < m_bars.size(); ++i) {
        const qint64 kopecks = m_bars.at(i).kopecks;
        const QRect place = slot(i);
        const int gap = place.width() / 6;
        const int top = yOf(qMax<qint64>(0, kopecks));
        const int bottom = yOf(qMin<qint64>(0, kopecks));
        painter->fillRect(place.left() + gap, top, qMax(1, place.width() - 2 * gap), bottom - top,
                          palette().color(QPalette::Highlight));
        const QString sum = wholeHryvnias(kopecks);
        if (fontMetrics().horizontalAdvance(sum) > place.width())
            continue;
        painter->setPen(palette().color(QPalette::Text));
        painter->drawText(
            QRect(place.left(), top - fontMetrics().height(), place.width(), fontMetrics().height()),
            Qt::AlignCenter, sum);
    }
}

void TurnoverChart::drawCurrent(QPainter *painter) const
{
    if (m_current < 0 || !hasFocus())
        return;
    painter->setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
    painter->drawRect(slot(m_current).adjusted(0, 0, -1, -1));
}

int TurnoverChart::widestName() const
{
    int widest = 0;
    for (const TurnoverBar &bar : m_bars)
        widest = qMax(widest, fontMetrics().horizontalAdvance(bar.label) + fontMetrics().averageCharWidth());
    return widest;
}

int TurnoverChart::nameEvery() const
{
    const int wanted = qMin(widestName(), fontMetrics().averageCharWidth() * 10);
    return (wanted + slotWidth() - 1) / slotWidth();
}

int TurnoverChart::nameLines() const
{
    const int room = height() / fontMetrics().lineSpacing() - leastBarLines;
    return nameEvery() > 1 || widestName() <= slotWidth() ? 1 : qBound(1, room, mostNameLines);
}

void TurnoverChart::drawNames(QPainter *painter) const
{
    const int every = nameEvery();
    const bool isWrapped = nameLines() > 1;
    QTextOption anywhere(Qt::AlignHCenter);
    anywhere.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter->setPen(palette().color(QPalette::Text));
    for (int i = 0; i < m_bars.size(); i += every) {
        QRect place = slot(i);
        place.setTop(plot().bottom() + fontMetrics().height() / 4);
        place.setHeight(fontMetrics().lineSpacing() * nameLines());
        // A name that has the room of its neighbours begins at its own bar.
        place.setWidth(place.width() * qMin(every, m_bars.size() - i) - fontMetrics().averageCharWidth() / 2);
        const QString &name = m_bars.at(i).label;
        if (isWrapped)
            painter->drawText(QRectF(place), name, anywhere);
        else if (i == 0 || i + every <= m_bars.size() ||
                 fontMetrics().horizontalAdvance(name) <= place.width())
            painter->drawText(place, every > 1 ? Qt::AlignLeft : Qt::AlignHCenter,
                              fontMetrics().elidedText(name, Qt::ElideRight, place.width()));
    }
}

int TurnoverChart::barAt(const QPoint &place) const
{
    for (int i = 0; i < m_bars.size(); ++i) {
        const QRect room = slot(i);
        if (place.x() >= room.left() && place.x() <= room.right())
            return i;
    }
    return -1;
}

QString TurnoverChart::figureOf(int bar) const
{
    return m_bars.at(bar).name + QLatin1Char('\n') + moneyShown(m_bars.at(bar).kopecks);
}

bool TurnoverChart::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int bar = barAt(help->pos());
    if (bar >= 0)
        QToolTip::showText(help->globalPos(), figureOf(bar), this);
    else
        QToolTip::hideText();
    return true;
}

/// Without the delay of other tool tips: the eye goes from bar to bar.
void TurnoverChart::mouseMoveEvent(QMouseEvent *event)
{
    const int bar = m_isOffered ? barAt(event->pos()) : -1;
    if (bar >= 0)
        QToolTip::showText(event->globalPos(), figureOf(bar), this, slot(bar));
    QWidget::mouseMoveEvent(event);
}

void TurnoverChart::mouseReleaseEvent(QMouseEvent *event)
{
    const int bar = m_isOffered && event->button() == Qt::LeftButton ? barAt(event->pos()) : -1;
    if (bar < 0)
        return QWidget::mouseReleaseEvent(event);
    setCurrent(bar);
    emit barOpened(bar);
}

void TurnoverChart::setCurrent(int bar)
{
    m_current = bar;
    describe();
    update();
    emit currentChanged(bar);
}

/// Whoever comes by the keyboard begins with the newest one.
void TurnoverChart::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (m_isOffered && !m_bars.isEmpty())
        setCurrent(m_current < 0 ? m_bars.size() - 1 : m_current);
}

void TurnoverChart::keyPressEvent(QKeyEvent *event)
{
    const int last = m_bars.size() - 1;
    const bool isKnown = m_isOffered && last >= 0;
    const bool isEnter = isEnterOfHand(&m_pace, *event);
    const int key = event->key();
    if (isKnown && (key == Qt::Key_Left || key == Qt::Key_Right))
        setCurrent(qBound(0, m_current + (key == Qt::Key_Right ? 1 : -1), last));
    else if (isKnown && (key == Qt::Key_Home || key == Qt::Key_End))
        setCurrent(key == Qt::Key_Home ? 0 : last);
    else if (isEnter && isKnown && m_current >= 0)
        emit barOpened(m_current);
    else
        QWidget::keyPressEvent(event);
}
