#pragma once

#include <QString>
#include <QStringList>

class QLineEdit;
class QWidget;

/// What people put into the fields of a window.

/// Takes over what is still being typed: open editors of cells, numbers and dates.
void commitTyping(QWidget *window);
/// What all fields of a window hold, in their order, to tell whether something was changed. Fields that
/// cannot be changed do not count.
QStringList enteredTexts(const QWidget *window);
/// The name of a field for messages: the text of its label without access key and colon, or its
/// accessible name.
QString fieldName(const QWidget *field);
/// Shows a text of the database, a null one for NULL, and remembers it.
void showStoredText(QLineEdit *field, const QString &stored);
/// The text that the field was given so last; a null one for NULL or when it was given none.
QString storedText(const QLineEdit *field);
/// The text of a field; a null one when it is empty and NULL was stored: that stays.
QString textKeepingNull(const QLineEdit *field);
/// The network address in a field with an input mask: without its blanks, empty when nothing was typed.
QString typedAddress(const QLineEdit *field);
/// True for a text that does not fit one line: it holds a line break, a tab or another control character.
bool hasControlCharacters(const QString &text);
/// The words that refuse such a text in a field of that name.
QString controlCharactersRefusal(const QString &field);
/// The field takes only what fits the pattern, or may still become so.
void limitTo(QLineEdit *field, const char *pattern);
/// Colours a field whose text is refused and tells why beside it; an empty why takes that back.
void colourField(QLineEdit *field, const QString &why);
