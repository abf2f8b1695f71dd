#pragma once

#include <QString>

class Db;
class QComboBox;

/// Fills a box with the rows of a statement: the first column is the text, the second, if any, the data.
/// What the box held goes, without a signal; the first row is chosen. False after a reported failure.
bool fillCombo(QComboBox *box, const Db &db, const QString &sql);
/// Chooses the item with the text, or none when there is no such item.
void chooseText(QComboBox *box, const QString &text);
