#include "optionaldate.h"

#include <QCalendarWidget>
#include <QKeyEvent>

namespace {
const QString shownFormat = QStringLiteral("dd.MM.yyyy");
/// Where the calendar of an empty birthday opens.
const int yearsBack = 30;

QDate dateOf(const QString &text)
{
    for (const char *format : {"d.M.yyyy", "ddMMyyyy"}) {
        const QDate date = QDate::fromString(text, QLatin1String(format));
        if (date.isValid())
            return date;
    }
    return {};
}
} // namespace

OptionalDateEdit::OptionalDateEdit(QWidget *parent) : QDateEditSel(parent)
{
    setKeyboardTracking(false);
    // The sections of a date: there are none in half a one.
    disconnect(lineEdit(), &QLineEdit::cursorPositionChanged, this, nullptr);
    calendarWidget()->installEventFilter(this);
    setDate(minimumDate());
    lineEdit()->setPlaceholderText(tr("дд.мм.рррр"));
}

QString OptionalDateEdit::stored() const
{
    return isNone() ? QString() : date().toString(Qt::ISODate);
}

void OptionalDateEdit::setStored(const QString &stored)
{
    m_unread.clear();
    const QDate date = QDate::fromString(stored, Qt::ISODate);
    setDate(date.isValid() ? date : minimumDate());
    lineEdit()->setText(textFromDateTime(dateTime()));
}

QString OptionalDateEdit::refusal() const
{
    return m_unread.isEmpty()
               ? QString()
               : tr("«%1» не є датою. Введіть її так: 15.03.1990, або залиште поле порожнім.").arg(m_unread);
}

QValidator::State OptionalDateEdit::validate(QString &text, int &pos) const
{
    Q_UNUSED(pos)
    if (text.size() > shownFormat.size())
        return QValidator::Invalid;
    for (const QChar character : qAsConst(text)) {
        if (!character.isDigit() && character != QLatin1Char('.'))
            return QValidator::Invalid;
    }
    return QValidator::Acceptable;
}

QDateTime OptionalDateEdit::dateTimeFromText(const QString &text) const
{
    const QDate date = dateOf(text);
    const bool isDate = date.isValid() && date > minimumDate();
    m_unread = isDate ? QString() : text;
    return (isDate ? date : minimumDate()).startOfDay();
}

QString OptionalDateEdit::textFromDateTime(const QDateTime &time) const
{
    return time.date() == minimumDate() ? m_unread : time.date().toString(shownFormat);
}

QAbstractSpinBox::StepEnabled OptionalDateEdit::stepEnabled() const
{
    return isNone() ? StepNone : QDateEditSel::stepEnabled();
}

/// As in a line: the keys of a date editor go from section to section.
void OptionalDateEdit::keyPressEvent(QKeyEvent *event)
{
    QAbstractSpinBox::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void OptionalDateEdit::focusInEvent(QFocusEvent *event)
{
    QAbstractSpinBox::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

bool OptionalDateEdit::focusNextPrevChild(bool next)
{
    return QAbstractSpinBox::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

bool OptionalDateEdit::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched == calendarWidget() && isNone())
        calendarWidget()->setCurrentPage(QDate::currentDate().year() - yearsBack, 1);
    return QDateEditSel::eventFilter(watched, event);
}
