#pragma once

#include "db.h"
#include "editdialog.h"
#include "recordinput.h"

/// A value that no other record may have.
struct UniqueValue
{
    QWidget *field;
    /// Finds the records that have it, without its own: "SELECT id FROM shops WHERE address=:addr".
    QString sql;
    Db::Values values;
    QString refusal;
};

/// The editor of one record of a table, new or old. It keeps the record as it was read: a save whose record
/// somebody else has changed meanwhile is shown value by value and asked about, and nothing of theirs is
/// written over unasked; columns that the editor does not show are not written at all. A save is one
/// transaction that writes, looks at what it has written and tells the other programs.
class RecordDialog : public EditDialog
{
    Q_OBJECT

public:
    /// id: the record, empty or null for a new one; after a save it holds the id that the record has.
    RecordDialog(const Db &db, const RecordStatements &statements, QString *id, QWidget *parent);

    /// False when there is nothing to edit, which was told.
    bool isLoaded() const { return m_isLoaded; }
    bool isNew() const { return m_id->isEmpty(); }
    /// True when the record was written, even if the dialog was cancelled afterwards.
    bool wasWritten() const { return m_wasWritten; }

protected:
    /// Shows the record in these inputs: limits lines to what their columns hold; reads an old record and
    /// shows it. False when there is nothing to edit.
    bool load(const QVector<RecordInput> &inputs);

    /// The record as the database holds it; empty when there is none, nothing after a reported failure.
    virtual std::optional<RecordFields> read(const QString &id) const;
    /// The same values as they stand in the editor.
    virtual RecordFields entered() const;
    /// Puts one value into its input; `value` is nothing for a row that is to go.
    virtual void showField(const QString &key, const std::optional<RecordField> &value);
    virtual QVector<UniqueValue> uniqueValues() const { return {}; }

    /// Sends the INSERT: with *id where that is not empty, else *id becomes what the server made up.
    virtual bool insertRecord(QString *id);
    virtual bool updateRecord(const QString &id);
    /// Locks what belongs to the record until the transaction ends; for that it waits for others.
    virtual QStringList lockStatements(const QString &id) const;
    /// The tables that a save changes, for the other programs.
    virtual QStringList changedTables() const { return {m_statements.table}; }
    /// Why the write has failed, or has stored something else than was chosen, when the editor knows better:
    /// for the user. Empty when it does not.
    virtual QString failureWords() { return QString(); }

    const Db &db() const { return m_db; }
    const QString &id() const { return *m_id; }
    /// As it was read last; empty for a new record.
    const RecordFields &readFields() const { return m_read; }

    bool save() override;
    std::optional<bool> hasArrived() override;
    void takeOver() override;

private:
    Db::Values boundValues(bool isUpdate) const;
    void limitLengths();
    bool isUnique();
    bool isFree(const UniqueValue &value);
    Saved attempt();
    Saved attemptInTransaction();
    QString storedOtherwise(const RecordField &stored) const;
    bool lock(const QString &id) const;
    bool settleChanges();

    const Db m_db;
    const RecordStatements m_statements;
    QString m_newId;
    QString *m_id;
    QVector<RecordInput> m_inputs;
    bool m_isLoaded = false;
    bool m_wasWritten = false;
    RecordFields m_read;
    /// As others have changed it since; empty when they have not.
    RecordFields m_theirs;
    /// What was sent last, and the id that it got, in case the answer was lost.
    RecordFields m_sent;
    QString m_sentId;
};
