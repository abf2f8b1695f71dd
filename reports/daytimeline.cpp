#include "daytimeline.h"

#include "onlinegrid.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {
constexpr int daySeconds = 24 * 60 * 60;

void paintState(QPainter *painter, const QRect &rect, bool isOn)
{
    painter->fillRect(rect, onLineColour(isOn));
    // Hatched, so that it is not told by the colour alone.
    if (!isOn)
        painter->fillRect(rect, QBrush(Qt::black, Qt::BDiagPattern));
}
} // namespace

DayTimeline::DayTimeline(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DayTimeline::setDay(const QStringList &registers, const QVector<DaySpan> &spans)
{
    m_registers = registers;
    m_spans = spans;
    setAccessibleDescription(description());
    updateGeometry();
    update();
}

QString DayTimeline::spanText(const DaySpan &span) const
{
    return tr("%1 %2 – %3").arg(onLineText(span.isOn), clockText(span.from), clockText(span.to));
}

QString DayTimeline::description() const
{
    QStringList lines;
    for (int column = 0; column < m_registers.size(); ++column) {
        QStringList parts;
        for (const DaySpan &span : m_spans) {
            if (span.column == column)
                parts.append(spanText(span));
        }
        lines.append(m_registers.at(column) + QStringLiteral(": ") +
                     (parts.isEmpty() ? tr("немає даних") : parts.join(QStringLiteral("; "))));
    }
    return lines.join(QLatin1Char('\n'));
}

QString DayTimeline::spanAt(const QPoint &point) const
{
    for (const DaySpan &span : m_spans) {
        if (barOf(span).contains(point))
            return m_registers.at(span.column) + QStringLiteral(": ") + spanText(span);
    }
    return QString();
}

int DayTimeline::lineHeight() const
{
    return fontMetrics().height() + fontMetrics().height() / 3;
}

int DayTimeline::namesWidth() const
{
    int names = 0;
    for (const QString &name : m_registers)
        names = qMax(names, fontMetrics().horizontalAdvance(name) + 2); // fractions of a pixel
    return qMin(names, width() / 3);
}

int DayTimeline::xOf(int seconds) const
{
    const int half = fontMetrics().horizontalAdvance(QStringLiteral("24:00")) / 2 + 1;
    const int left = qMax(half, namesWidth() + fontMetrics().averageCharWidth());
    return left + static_cast<int>(qint64(width() - half - left) * seconds / daySeconds);
}

QRect DayTimeline::barOf(const DaySpan &span) const
{
    const int margin = lineHeight() / 8;
    // Below the line of the hours; a moment is seen too.
    return QRect(xOf(span.from), (span.column + 1) * lineHeight() + margin,
                 qMax(1, xOf(span.to) - xOf(span.from)), lineHeight() - 2 * margin);
}

QSize DayTimeline::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 100, (m_registers.size() + 2) * lineHeight()};
}

QSize DayTimeline::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 50, sizeHint().height()};
}

bool DayTimeline::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), spanAt(help->pos()), this);
    return true;
}

void DayTimeline::paintHours(QPainter *painter) const
{
    const int bottom = (m_registers.size() + 1) * lineHeight();
    const int textWidth = fontMetrics().horizontalAdvance(QStringLiteral("24:00")) + 2;
    for (int hour = 0; hour <= 24; hour += 3) {
        const int x = xOf(hour * 3600);
        painter->setPen(palette().color(QPalette::Mid));
        painter->drawLine(x, lineHeight(), x, bottom);
        painter->setPen(palette().color(QPalette::WindowText));
        painter->drawText(QRect(x - textWidth / 2, 0, textWidth, lineHeight()), Qt::AlignCenter,
                          clockText(hour * 3600));
    }
}

void DayTimeline::paintLegend(QPainter *painter) const
{
    const int top = (m_registers.size() + 1) * lineHeight();
    const int size = lineHeight() / 2;
    int x = xOf(0);
    for (const bool isOn : {true, false}) {
        paintState(painter, QRect(x, top + (lineHeight() - size) / 2, size, size), isOn);
        x += size + size / 2;
        const int width = fontMetrics().horizontalAdvance(onLineText(isOn)) + size;
        painter->drawText(QRect(x, top, width, lineHeight()), Qt::AlignLeft | Qt::AlignVCenter,
                          onLineText(isOn));
        x += width + size;
    }
}

void DayTimeline::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    paintHours(&painter);
    painter.setPen(palette().color(QPalette::WindowText));
    const int names = namesWidth();
    for (int column = 0; column < m_registers.size(); ++column) {
        painter.drawText(QRect(0, (column + 1) * lineHeight(), names, lineHeight()),
                         Qt::AlignRight | Qt::AlignVCenter,
                         fontMetrics().elidedText(m_registers.at(column), Qt::ElideRight, names));
    }
    for (const DaySpan &span : m_spans)
        paintState(&painter, barOf(span), span.isOn);
    paintLegend(&painter);
}
