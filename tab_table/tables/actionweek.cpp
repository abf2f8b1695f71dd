#include "actionweek.h"

#include <QPainter>

namespace {
const int daysOfWeek = 7;
const int hoursOfDay = 24;
const int hoursBetween = 3;
const int secondsOfHour = 3600;
} // namespace

ActionWeek::ActionWeek(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("actionWeek"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    clear();
}

void ActionWeek::setAction(const ActionTimes &times)
{
    m_times = times;
    m_isShown = true;
    say();
}

void ActionWeek::clear()
{
    m_isShown = false;
    say();
}

void ActionWeek::say()
{
    setAccessibleName(tr("Тиждень акції"));
    const QString never = m_isShown ? neverWords(m_times) : QString();
    QString words;
    if (!never.isEmpty())
        words = tr("Не діє ніколи: %1").arg(never);
    else if (m_isShown)
        words =
            tr("Діє: %1, %2, %3")
                .arg(weekDaysShown(m_times.weekDays), actionHoursShown(m_times), actionPeriodShown(m_times));
    setAccessibleDescription(words);
    setToolTip(words);
    update();
}

QSize ActionWeek::sizeHint() const
{
    const int line = fontMetrics().height() + 2;
    return {fontMetrics().horizontalAdvance(QStringLiteral("00")) * hoursOfDay * 2,
            line * (daysOfWeek + 1) + 2};
}

QSize ActionWeek::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * hoursOfDay, sizeHint().height()};
}

/// day: 0 for the line of the hours.
QRectF ActionWeek::cell(int day, double hour, double hours) const
{
    int left = 0;
    for (int i = 1; i <= daysOfWeek; ++i)
        left = qMax(left, fontMetrics().horizontalAdvance(weekDayShown(i) + QLatin1Char(' ')));
    const double line = (height() - 2) / double(daysOfWeek + 1);
    const double wide = (width() - left - 2) / double(hoursOfDay);
    return {left + hour * wide, day * line, hours * wide, line};
}

void ActionWeek::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    paintHead(&painter);
    for (int day = 1; day <= daysOfWeek; ++day)
        paintDay(&painter, day);
}

void ActionWeek::paintHead(QPainter *painter) const
{
    painter->setPen(palette().color(QPalette::WindowText));
    for (int hour = 0; hour < hoursOfDay; hour += hoursBetween)
        painter->drawText(cell(0, hour, hoursBetween), Qt::AlignLeft | Qt::AlignVCenter,
                          QString::number(hour));
}

void ActionWeek::paintDay(QPainter *painter, int day) const
{
    const QRectF whole = cell(day, 0, hoursOfDay);
    painter->setPen(palette().color(QPalette::WindowText));
    painter->drawText(QRectF(0, whole.top(), whole.left(), whole.height()), Qt::AlignLeft | Qt::AlignVCenter,
                      weekDayShown(day));
    painter->fillRect(whole.adjusted(0, 1, 0, -1), palette().color(QPalette::Base));
    painter->setPen(palette().color(QPalette::Mid));
    for (int hour = 0; hour <= hoursOfDay; hour += hoursBetween)
        painter->drawLine(cell(day, hour, 0).topLeft(), cell(day, hour, 0).bottomLeft());
    painter->drawRect(whole.adjusted(0, 1, 0, -1));
    const ActionHours hours = actionHours(m_times);
    if (m_isShown && neverWords(m_times).isEmpty() && actionDays(m_times).contains(day)) {
        const double from = hours.from / double(secondsOfHour);
        const QRectF bar =
            cell(day, from, (hours.to + 1) / double(secondsOfHour) - from).adjusted(0, 1, 0, -1);
        painter->fillRect(bar, palette().color(QPalette::Highlight));
        painter->setPen(palette().color(QPalette::HighlightedText));
        painter->drawText(bar, Qt::AlignCenter,
                          bar.width() < whole.height() ? QString() : QStringLiteral("✓"));
    }
}
