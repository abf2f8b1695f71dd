#include "barlist.h"

#include <QPainter>
#include <algorithm>

namespace {
constexpr int expectedBars = 10;

template<typename Text>
int widest(const QVector<BarList::Bar> &bars, const QFontMetrics &metrics, Text text)
{
    int width = 0;
    for (const BarList::Bar &bar : bars)
        width = std::max(width, metrics.horizontalAdvance(bar.*text) + 2); // fractions of a pixel
    return width;
}
} // namespace

BarList::BarList(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void BarList::setBars(const QVector<Bar> &bars)
{
    m_bars = bars;
    QStringList lines;
    for (const Bar &bar : bars)
        lines.append(bar.label + QStringLiteral(": ") + bar.valueText);
    setAccessibleDescription(lines.join(QLatin1Char('\n')));
    setToolTip(lines.join(QLatin1Char('\n')));
    update();
}

int BarList::lineHeight() const
{
    return fontMetrics().height() + fontMetrics().height() / 4;
}

QSize BarList::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 70, lineHeight() * expectedBars};
}

QSize BarList::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 25, lineHeight() * expectedBars};
}

void BarList::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    const QFontMetrics metrics = fontMetrics();
    const int gap = metrics.averageCharWidth();
    const int names = std::min(widest(m_bars, metrics, &Bar::label), width() * 2 / 5);
    const int values = widest(m_bars, metrics, &Bar::valueText);
    const int room = std::max(0, width() - names - values - 2 * gap);
    qint64 longest = 1;
    for (const Bar &bar : m_bars)
        longest = std::max(longest, bar.value);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QRect line(0, 0, width(), lineHeight());
    for (const Bar &bar : m_bars) {
        painter.drawText(QRect(line.left(), line.top(), names, line.height()),
                         Qt::AlignRight | Qt::AlignVCenter,
                         metrics.elidedText(bar.label, Qt::ElideRight, names));
        const int length = static_cast<int>(room * std::max<qint64>(0, bar.value) / longest);
        const int margin = line.height() / 6;
        painter.fillRect(names + gap, line.top() + margin, length, line.height() - 2 * margin,
                         palette().color(QPalette::Highlight));
        painter.drawText(QRect(names + 2 * gap + length, line.top(), values, line.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, bar.valueText);
        line.translate(0, line.height());
    }
}
