#include "actioninputs.h"

#include "actiontimes.h"
#include "money.h"
#include "numberfield.h"
#include "optionaldate.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimeEdit>

namespace {
const int daysOfWeek = 7;
const qint64 smallestPercent = 1;
const qint64 largestPercent = 10000;
const qint64 largestNumber = 4294967295;
const QLatin1String zeroDate("0000-00-00 00:00:00");
} // namespace

void ActionValueEdit::setPercent(bool isPercent)
{
    const QString value = stored();
    m_isPercent = isPercent;
    if (!value.isNull())
        setText(shown(value));
}

QString ActionValueEdit::shown(const QString &stored) const
{
    return m_isPercent ? rateText(stored.toLongLong()) : stored;
}

void ActionValueEdit::setStored(const QString &stored)
{
    m_read = stored;
    setText(shown(stored));
}

QString ActionValueEdit::stored() const
{
    qint64 units = 0;
    if (m_isPercent)
        return rateFromText(text(), &units) ? QString::number(units) : QString();
    bool isNumber = false;
    units = text().trimmed().toLongLong(&isNumber);
    return isNumber && units >= 0 && units <= largestNumber ? QString::number(units) : QString();
}

QString ActionValueEdit::refusal(bool meansTheSame) const
{
    if (meansTheSame && !m_read.isNull() && stored() == m_read)
        return QString();
    qint64 units = 0;
    if (m_isPercent)
        return readNumber(text(), NumberKind::Rate, smallestPercent, largestPercent, &units);
    return stored().isNull() ? tr("Введіть ціле число від 0 до %1.").arg(largestNumber) : QString();
}

ActionEndEdit::ActionEndEdit(QWidget *parent)
    : QWidget(parent)
    , m_day(new OptionalDateEdit(this))
    , m_daily(new QLabel(this))
    , m_time(new QTimeEdit(this))
{
    m_day->setObjectName(QStringLiteral("deDay"));
    m_day->setCalendarPopup(true);
    m_time->setObjectName(QStringLiteral("teHour"));
    m_time->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    m_daily->setBuddy(m_time);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_day);
    line->addWidget(m_daily);
    line->addWidget(m_time);
    line->addStretch(1);
    setFocusProxy(m_day);
    connect(m_day, &QDateEdit::dateChanged, this, &ActionEndEdit::changed);
    connect(m_time, &QTimeEdit::timeChanged, this, &ActionEndEdit::changed);
}

void ActionEndEdit::setUp(const QString &daily, const QTime &time, const QString &name)
{
    m_daily->setText(daily);
    m_newTime = time;
    m_time->setTime(time);
    m_day->setAccessibleName(name);
}

void ActionEndEdit::setDated(bool isDated)
{
    m_isDated = isDated;
    setEnabled(isDated);
    emit changed();
}

void ActionEndEdit::setReadDated(bool isDated)
{
    m_isReadDated = isDated;
    setDated(isDated);
}

QDate ActionEndEdit::day() const
{
    return QDate::fromString(m_day->stored(), Qt::ISODate);
}

void ActionEndEdit::propose(const QDate &day)
{
    if (this->day().isValid() && this->day() != m_proposed)
        return;
    m_proposed = day;
    m_day->setStored(day.toString(Qt::ISODate));
}

void ActionEndEdit::setStored(const QString &stored)
{
    const QString day = stored.left(10);
    const QTime time = QTime::fromString(stored.mid(11, 8), QStringLiteral("HH:mm:ss"));
    m_day->setStored(day);
    m_time->setTime(m_day->stored().isNull() ? m_newTime : time);
    m_read = stored;
    m_readEntered = entered();
}

QStringList ActionEndEdit::entered() const
{
    return {m_day->stored(), m_time->time().toString(QStringLiteral("HH:mm:ss"))};
}

bool ActionEndEdit::isUntouched() const
{
    return !m_readEntered.isEmpty() && m_isDated == m_isReadDated && entered() == m_readEntered;
}

QString ActionEndEdit::stored() const
{
    if (isUntouched())
        return m_read;
    return m_isDated && !m_day->stored().isNull() ? entered().join(QLatin1Char(' ')) : QString(zeroDate);
}

QString ActionEndEdit::refusal() const
{
    if (!m_isDated || isUntouched())
        return QString();
    const QString why = m_day->refusal();
    return why.isEmpty() && m_day->stored().isNull() ? tr("Введіть дату.") : why;
}

WeekDaysEdit::WeekDaysEdit(QWidget *parent) : QWidget(parent), m_unknown(new QLabel(this))
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    for (int day = 1; day <= daysOfWeek; ++day) {
        auto *tick = new QCheckBox(weekDayShown(day), this);
        tick->setObjectName(QStringLiteral("chDay%1").arg(day));
        connect(tick, &QCheckBox::toggled, this, &WeekDaysEdit::changed);
        line->addWidget(tick);
        m_days.append(tick);
    }
    m_unknown->setObjectName(QStringLiteral("labelUnknownDays"));
    m_unknown->setTextFormat(Qt::PlainText);
    line->addWidget(m_unknown);
    line->addStretch(1);
    setFocusProxy(m_days.first());
}

void WeekDaysEdit::setStored(const QString &stored)
{
    ActionTimes times;
    times.weekDays = stored;
    const QVector<int> days = actionDays(times);
    for (int day = 1; day <= daysOfWeek; ++day)
        m_days.at(day - 1)->setChecked(days.contains(day));
    m_read = stored;
    m_readTokens = tokens();
    const bool isUnknown = !stored.isEmpty() && weekDaysShown(stored) == stored;
    m_unknown->setText(isUnknown ? tr("записано: «%1»").arg(stored) : QString());
}

QString WeekDaysEdit::tokens() const
{
    // Empty, which is not NULL.
    QString text = QLatin1String("");
    for (int day = 1; day <= daysOfWeek; ++day) {
        if (m_days.at(day - 1)->isChecked())
            text += weekDayTokenOf(day);
    }
    return text;
}

QString WeekDaysEdit::stored() const
{
    const QString now = tokens();
    return now == m_readTokens ? m_read : now;
}
