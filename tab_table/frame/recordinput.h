#pragma once

#include "recordfields.h"

#include <QtGlobal>

class QWidget;

/// How an input holds the value of its column.
enum class InputForm {
    /// A line as it is typed; an empty one that was NULL stays NULL.
    Text,
    /// The same without blanks around it.
    Trimmed,
    /// A line that is NULL when it is empty: of columns where a value must be unique, or means something.
    OrNull,
    /// A network address, NULL when it is empty.
    Address,
    /// A price in its line; kopecks in the database, NULL when it is empty.
    Money,
    /// An entry of a list, written by its name.
    Entry,
    /// The same, written by its id; the entry without an id is NULL.
    EntryId,
    /// An OptionalDateEdit; NULL when it is empty.
    Date,
    /// A spin box; its special text, if it has one, stands for NULL.
    Number,
    /// A date-time in an OwnInput, as the server writes it: "2026-11-21 08:00:00", zeros for none.
    Moment,
    /// The days of action.week_day in an OwnInput.
    WeekDays,
};

/// An input of several widgets, or with a rule of its own: it says itself what its column is to hold.
class OwnInput
{
public:
    OwnInput() = default;
    virtual ~OwnInput() = default;
    Q_DISABLE_COPY(OwnInput)

    /// A null text for NULL.
    virtual void setStored(const QString &stored) = 0;
    virtual QString stored() const = 0;
};

/// An input of an editor and the column that it shows.
struct RecordInput
{
    QWidget *input;
    InputForm form;
    const char *column;
    /// Of the INSERT and the UPDATE.
    const char *placeholder;
    /// For a list, where the query of the record has the name of the entry ("group_shop.name").
    const char *name = nullptr;
    /// Where the UPDATE has another placeholder.
    const char *updatePlaceholder = nullptr;
    /// For a list: the statement of its entries, name and id. Without one the editor fills the list.
    QString entries = {};
};

/// The same without the widget, for work away from the window.
struct RecordColumn
{
    QString column;
    InputForm form;
    /// What people call it.
    QString caption;
    QString name;
    QString placeholder;
    QString updatePlaceholder;
    QString entries;

    bool isList() const { return form == InputForm::Entry || form == InputForm::EntryId; }
};
RecordColumn columnOf(const RecordInput &input);

/// The columns of such inputs whose length limits what is typed.
bool isPlainText(InputForm form);
/// As people read what the database holds, entries of lists aside.
QString shownText(InputForm form, const QString &stored);
/// Puts a value into its input. An entry that the list does not offer is added to it: it would be lost with
/// the next save.
void showInInput(const RecordInput &input, const RecordField &value);
/// What the input holds, as the database is to hold it; a null text for NULL.
QString storedFrom(const RecordInput &input);
/// The same as people read it.
QString shownFrom(const RecordInput &input);
/// What is bound in a statement for a value.
QVariant boundFrom(const RecordField &value, InputForm form);
