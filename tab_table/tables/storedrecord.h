#pragma once

#include <QString>
#include <QVector>

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
