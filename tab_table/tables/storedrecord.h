#pragma once

#include "editdialog.h"

#include <QString>
#include <QVector>
#include <functional>

class Db;

/// A column of a record: what it holds, or is to hold, as text, and what people call it.
struct MeantColumn
{
    const char *column;
    QString text;
    QString caption;
};
using MeantColumns = QVector<MeantColumn>;

/// How a record in the database differs from what somebody has in mind.
struct Difference
{
    enum What { Nothing, Column, Gone, Unknown };
    What what = Unknown;
    /// The caption of the first column that differs, and what the database holds.
    QString caption;
    QString stored;
};

/// Compares the row of that id, which it locks for the transaction (and for which it waits while another one
/// has it), with what is meant. Unknown after a reported failure. Empty is the same as NULL.
Difference differenceOf(const Db &db, const QString &table, const QString &id, const MeantColumns &meant);

/// Why a record that others have changed since it was read is not saved; empty for no difference.
QString changedMeanwhile(const Difference &difference);
/// Why a record is not saved that would be stored otherwise than it was chosen; empty for no difference.
QString storedOtherwise(const Difference &difference);

/// Tells the user: refused with these words, or failed (reported) without any.
Saved refused(const QString &why);

/// The same columns with what the database holds in them; nothing after a failure or without a row.
std::optional<MeantColumns> readColumns(const Db &db, const QString &table, const QString &id,
                                        const MeantColumns &columns);

/// Writes one row in a transaction of its own: not over what others have changed since `loaded` was read
/// (empty for a new record), and only when the row then holds what is `meant`. write sends the statement and
/// gives a new record its id.
Saved saveRecord(const Db &db, const QString &table, QString *id, const MeantColumns &loaded,
                 const MeantColumns &meant, const std::function<bool(QString *id)> &write);
/// Whether the row of that id holds what is meant; nothing after a failure.
std::optional<bool> holds(const Db &db, const QString &table, const QString &id, const MeantColumns &meant);
