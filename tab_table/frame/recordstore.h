#pragma once

#include "combos.h"
#include "db.h"
#include "recordinput.h"

#include <QHash>

/// How an editor's record is read and written: functions of values, run away from the window.

struct RecordDraft;

/// The rows of a statement as texts.
using TextRows = QVector<QStringList>;

/// What belongs to a record beside its own row, for editors that write several tables.
struct RecordRows
{
    /// Its values behind those of the row; nothing after a reported failure.
    std::optional<RecordFields> (*read)(const Db &db, const QString &id);
    /// Why the draft cannot be saved, by what others have stored; empty when it can.
    QString (*refusal)(const Db &db, const RecordDraft &draft);
    /// Writes them behind the row, in its transaction; step: how far that has come.
    bool (*write)(const Db &db, const RecordDraft &draft, const QString &id, int *step);
    /// Why the write has failed at that step, or has stored something else than was chosen, for the user;
    /// empty when that is not known here. step: -1 when it has not come so far.
    QString (*failureWords)(const Db &db, const RecordDraft &draft, int step);
    /// With the id behind them ("SELECT id_goods FROM prices WHERE id_goods="), they lock the rows.
    QStringList locks;
    /// What is written beside the record's table, for the other programs.
    QStringList tables;
    /// A whole statement that locks something before the record itself: where all who write such records
    /// begin with it, none waits for another in a circle. Empty for most.
    QString firstLock = {};
};

/// The table of a record and the statements of its editor; the id is added to all but the INSERT.
struct RecordStatements
{
    QString table;
    /// "SELECT ... WHERE shops.id=": every column of the inputs under its own name.
    QString read;
    /// With ":id" first where the record may get an id of the user's choice.
    QString insert;
    /// "UPDATE ... WHERE shops.id="
    QString update;
    /// "SELECT address FROM shops WHERE id=": what people call the record.
    QString name;
    /// Null for most.
    const RecordRows *rows = nullptr;
    /// The columns of its inputs.
    QVector<RecordColumn> columns = {};
};

/// A value that no other record may have.
struct UniqueValue
{
    /// The column of its input.
    const char *column;
    /// Finds the records that have it, without its own: "SELECT id FROM shops WHERE address=:addr".
    QString sql;
    Db::Values values;
    QString refusal;
};

/// A record as it is to be saved, taken from the inputs once.
struct RecordDraft
{
    /// Empty for a new record.
    QString id;
    /// The id that a new record is to get; empty: the server makes it up.
    QString wantedId;
    /// As it was read; empty for a new record.
    RecordFields read;
    RecordFields fields;
    QVector<UniqueValue> uniqueValues;
    /// For the functions of its other rows: what is written and not compared.
    QVariant beside;

    bool isNew() const { return id.isEmpty(); }
};

/// What came of a save.
struct RecordSaved
{
    /// Failed: reported. Refused: `why` is for the user. Unclear: the answer to COMMIT was lost, and the
    /// server does not tell either. Changed: by somebody else since it was read; nothing was written.
    enum Outcome { Written, Failed, Refused, Unclear, Changed };
    Outcome outcome = Failed;
    QString why = {};
    /// The column that was refused; empty for none.
    QString column = {};
    /// As others have changed it.
    RecordFields theirs = {};
    /// That of the record; of a new one the id that it got or may have got.
    QString id = {};
};

/// What an editor needs to know before anything can be entered.
struct RecordForm
{
    /// False after a reported failure.
    bool isRead = false;
    /// By column.
    QHash<QString, int> lengths;
    QHash<QString, ListEntries> lists;
    /// Of the editor's further statements, in their order.
    QVector<TextRows> more;
    /// Empty when there is no record of that id.
    RecordFields record;
};

/// Without an id there is no record to read.
RecordForm readForm(const Db &db, const RecordStatements &table, const QString &id, const QStringList &more);
/// The record as the database holds it; empty when there is none, nothing after a reported failure.
std::optional<RecordFields> readRecord(const Db &db, const RecordStatements &table, const QString &id);
/// One transaction: locks the record, compares it with what was read, writes, reads it back and stamps the
/// tracker. Before it every unique value is looked up; after a lost answer the server is asked what became of
/// it.
RecordSaved saveRecord(const Db &db, const RecordStatements &table, const RecordDraft &draft);
/// Whether the record of that id holds what the draft says; nothing while the server does not answer.
std::optional<bool> hasArrived(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                               const QString &id);
