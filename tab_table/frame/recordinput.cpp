#include "recordinput.h"

#include "actiontimes.h"
#include "combos.h"
#include "db.h"
#include "money.h"
#include "optionaldate.h"
#include "typedinput.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QSpinBox>

namespace {
QString moneyStored(const QLineEdit *field)
{
    qint64 kopecks = 0;
    return kopecksFromText(field->text(), &kopecks) ? QString::number(kopecks) : QString();
}

QString orNull(const QString &text)
{
    return text.isEmpty() ? QString() : text;
}

bool isSpecial(const QSpinBox *spin)
{
    return !spin->specialValueText().isEmpty() && spin->value() == spin->minimum();
}

/// Chooses the entry of that id, which is added when the list does not offer it: an entry that the user does
/// not see would be lost with the next save.
void showEntry(QComboBox *box, const RecordField &entry)
{
    int found = -1;
    for (int i = 0; i < box->count() && found < 0; ++i) {
        if (toText(box->itemData(i)) == entry.stored)
            found = i;
    }
    if (found < 0 && !entry.stored.isEmpty()) {
        box->addItem(entry.shown, entry.stored);
        found = box->count() - 1;
    }
    box->setCurrentIndex(found);
}

QString momentShown(const QString &stored)
{
    const QDateTime time = QDateTime::fromString(stored, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return time.isValid() ? time.toString(QStringLiteral("dd.MM.yyyy HH:mm:ss"))
                          : QCoreApplication::translate("Record", "без дати");
}

QString lineFrom(const QLineEdit *line, InputForm form)
{
    switch (form) {
    case InputForm::Trimmed:
        return textKeepingNull(line).trimmed();
    case InputForm::OrNull:
        return orNull(line->text());
    case InputForm::Address:
        return orNull(typedAddress(line));
    case InputForm::Money:
        return moneyStored(line);
    default:
        return textKeepingNull(line);
    }
}
} // namespace

RecordColumn columnOf(const RecordInput &input)
{
    const QString placeholder = QLatin1String(input.placeholder);
    return {QLatin1String(input.column),
            input.form,
            fieldName(input.input),
            QLatin1String(input.name),
            placeholder,
            input.updatePlaceholder != nullptr ? QString(QLatin1String(input.updatePlaceholder))
                                               : placeholder,
            input.entries};
}

bool isPlainText(InputForm form)
{
    return form == InputForm::Text || form == InputForm::Trimmed;
}

QString shownText(InputForm form, const QString &stored)
{
    if (stored.isNull())
        return stored;
    if (form == InputForm::Date)
        return QDate::fromString(stored, Qt::ISODate).toString(QStringLiteral("dd.MM.yyyy"));
    if (form == InputForm::Moment)
        return momentShown(stored);
    if (form == InputForm::WeekDays)
        return weekDaysShown(stored);
    return form == InputForm::Money ? moneyText(stored.toLongLong()) : stored;
}

void showInInput(const RecordInput &input, const RecordField &value)
{
    if (auto *own = dynamic_cast<OwnInput *>(input.input))
        own->setStored(value.stored);
    else if (auto *box = qobject_cast<QComboBox *>(input.input))
        showEntry(box, value);
    else if (auto *spin = qobject_cast<QSpinBox *>(input.input))
        spin->setValue(value.stored.isNull() ? spin->minimum() : value.stored.toInt());
    else if (auto *date = qobject_cast<OptionalDateEdit *>(input.input))
        date->setStored(value.stored);
    else if (auto *line = qobject_cast<QLineEdit *>(input.input))
        showStoredText(line, value.stored.isNull() ? QString() : shownText(input.form, value.stored));
}

QString storedFrom(const RecordInput &input)
{
    if (const auto *own = dynamic_cast<const OwnInput *>(input.input))
        return own->stored();
    if (const auto *box = qobject_cast<QComboBox *>(input.input))
        return orNull(chosenItem(box).id);
    if (const auto *spin = qobject_cast<QSpinBox *>(input.input))
        return isSpecial(spin) ? QString() : QString::number(spin->value());
    if (const auto *date = qobject_cast<OptionalDateEdit *>(input.input))
        return date->stored();
    return lineFrom(qobject_cast<QLineEdit *>(input.input), input.form);
}

QString shownFrom(const RecordInput &input)
{
    const auto *box = qobject_cast<QComboBox *>(input.input);
    return box != nullptr ? box->currentText() : shownText(input.form, storedFrom(input));
}

QVariant boundFrom(const RecordField &value, InputForm form)
{
    if (form == InputForm::Entry)
        return nullIfEmpty(value.shown);
    if (form == InputForm::Date)
        return nullIfEmpty(QString(value.stored).remove(QLatin1Char('-')));
    if (form != InputForm::Money && form != InputForm::Number && form != InputForm::EntryId)
        return value.stored;
    return value.stored.isNull() ? QVariant(QVariant::LongLong) : QVariant(value.stored.toLongLong());
}
