#pragma once

#include "db.h"

class QComboBox;

/// An entry of a list: its name and its id; both empty for none.
struct NamedId
{
    QString name;
    QString id;
};

/// What a list offers: texts with their data.
using ListEntries = QVector<QPair<QString, QVariant>>;

/// The rows of a statement: the first column is the text, the second, if any, the data. Nothing after a
/// reported failure.
std::optional<ListEntries> readEntries(const Db &db, const QString &sql, const Db::Values &values = {});
/// The entries without those whose data an earlier one has; without data the text counts.
ListEntries eachOnce(const ListEntries &entries);
/// Puts the entries into a box, thousands in a moment. What it held goes, without a signal; the first one is
/// chosen. An open list stays open.
void showEntries(QComboBox *box, const ListEntries &entries);
/// As showEntries(), but who was chosen before, by data or else by text, still is. False when the entries do
/// not have it: the first one is chosen then.
bool showEntriesAgain(QComboBox *box, const ListEntries &entries);
/// Both in one. False after a reported failure: the box is empty then.
bool fillCombo(QComboBox *box, const Db &db, const QString &sql);
/// Chooses the item with the text, or none when there is no such item.
void chooseText(QComboBox *box, const QString &text);
/// Takes an item out of the list that opens. As the chosen one it stays, also when the list is closed by
/// Enter.
void stopOffering(QComboBox *box, int row);
/// The chosen item, whose data is its id.
NamedId chosenItem(const QComboBox *box);
/// Chooses the item with the id, or none when there is no such item.
void chooseId(QComboBox *box, const QString &id);
/// Chooses the only item there is, or none where there is a choice.
void chooseOnlyItem(QComboBox *box);
/// What to do for a user who sees no shop group.
QString noGroupsHint();
/// Keeps long items from widening the window: the box asks for the room of some letters and cuts what is
/// longer, its list opens as wide as the items need, and its tool tip tells the whole.
void keepNarrow(QComboBox *box, int letters = 16);
