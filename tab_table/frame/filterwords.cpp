#include "filterwords.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>

namespace {
QString captionOf(const QWidget *bar, const QWidget *input)
{
    QString caption = input->accessibleName();
    const auto labels = bar->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->buddy() == input)
            caption = label->text();
    }
    return caption.remove(QLatin1Char('&')).remove(QLatin1Char(':')).trimmed();
}

/// What it stands at; empty for all, and for what is no condition.
QString valueOf(const QWidget *input)
{
    if (const auto *box = qobject_cast<const QComboBox *>(input))
        return box->currentIndex() > 0 ? box->currentText() : QString();
    if (const auto *day = qobject_cast<const QDateTimeEdit *>(input))
        return day->isEnabled() ? day->text() : QString();
    const auto *field = qobject_cast<const QLineEdit *>(input);
    const bool isPart =
        field != nullptr && (qobject_cast<QComboBox *>(field->parentWidget()) != nullptr ||
                             qobject_cast<QAbstractSpinBox *>(field->parentWidget()) != nullptr);
    return field == nullptr || isPart ? QString() : field->text().trimmed();
}
} // namespace

QStringList FilterWords::of(const QWidget *bar)
{
    QStringList words;
    const auto inputs = bar == nullptr ? QList<QWidget *>() : bar->findChildren<QWidget *>();
    for (const QWidget *input : inputs) {
        const QString value = valueOf(input);
        if (!m_isAsked && qobject_cast<const QLineEdit *>(input) != nullptr)
            m_first.insert(input, value);
        if (!value.isEmpty() && value != m_first.value(input))
            words.append(captionOf(bar, input) + QStringLiteral(": ") + value);
    }
    m_isAsked = true;
    return words;
}
