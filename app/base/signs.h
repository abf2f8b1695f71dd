#pragma once

#include <QIcon>
#include <QString>

class QAbstractItemModel;
class QLineEdit;
class QModelIndex;

/// What tells a state beside its colour: to whoever sees no colours, on paper and to screen readers.
enum class Sign { Good, Partly, Bad, Different, OnTheWay };

/// The role of a cell whose sign is printed before its text.
constexpr int signRole = Qt::UserRole + 102;

/// As a letter, before a text that is printed or read aloud.
QString signLetter(Sign sign);
/// Drawn in black, as the texts on the colours of states are.
QIcon signIcon(Sign sign);
/// "✓ text".
QString withSign(Sign sign, const QString &text);
/// A cell shows the sign before its text; the words tell it in the tool tip and to screen readers.
void showSign(QAbstractItemModel *model, const QModelIndex &cell, Sign sign, const QString &words);
void endSign(QAbstractItemModel *model, const QModelIndex &cell);
/// A field shows at its end that what stands in it is refused; an empty why ends it. The words go into the
/// tool tip of the sign and are told to screen readers with the field.
void showRefusal(QLineEdit *field, const QString &why);
