#pragma once

#include "dbtasks.h"
#include "editdialog.h"
#include "recordstore.h"

/// The editor of one record of a table, new or old. It opens at once and reads away from the window what it
/// shows. It keeps the record as it was read: a save whose record somebody else has changed meanwhile is
/// shown value by value and asked about, and nothing of theirs is written over unasked; columns that the
/// editor does not show are not written at all. What is saved is taken from the inputs once (RecordDraft) and
/// written away from the window, too (saveRecord).
class RecordDialog : public EditDialog
{
    Q_OBJECT

public:
    /// id: the record, empty or null for a new one; after a save it holds the id that the record has.
    RecordDialog(const Db &db, const RecordStatements &table, QString *id, QWidget *parent);

    /// True when there was nothing to edit, which was told: it has closed by itself.
    bool hasFailed() const { return m_hasFailed; }
    bool isNew() const { return m_id->isEmpty(); }
    /// True when the record was written, even if the dialog was cancelled afterwards.
    bool wasWritten() const { return m_wasWritten; }
    /// True while it is not known whether the last save has arrived at the server.
    bool isUnclear() const { return m_isUnclear; }

    void done(int result) override;

protected:
    /// Shows the record in these inputs: asks for the lengths of their columns, the entries of their lists,
    /// the record and the rows of the further statements.
    void load(const QVector<RecordInput> &inputs, const QStringList &more = {});
    /// Takes the rows of the further statements, before the record is shown; false when there is nothing to
    /// edit, which was told.
    virtual bool takeRows(const QVector<TextRows> &more);
    /// Everything is there and shown: presets what a new record has.
    virtual void loaded() {}

    /// The record as it stands in the editor.
    virtual RecordDraft draft() const;
    /// Puts one value into its input; `value` is nothing for a row that is to go.
    virtual void showField(const QString &key, const std::optional<RecordField> &value);
    virtual QVector<UniqueValue> uniqueValues() const { return {}; }
    /// A save whose answer was lost has arrived: the record is stored like that, and the next save changes
    /// it.
    virtual void takeOver(const RecordDraft &written);

    const QString &id() const { return *m_id; }
    /// As it was read last; empty for a new record.
    const RecordFields &readFields() const { return m_read; }

    void save() override;

private:
    void showForm(const RecordForm &form);
    void showBeginnings();
    void limitLengths(const QHash<QString, int> &lengths);
    void fillLists(const QHash<QString, ListEntries> &lists);
    void fail();
    void send();
    void take(const RecordSaved &saved);
    void refuse(const RecordSaved &saved);
    void tellUnclear();
    void askWhetherArrived();
    bool settleChanges(const RecordFields &theirs);

    RecordStatements m_table;
    QString m_newId;
    QString *m_id;
    QVector<RecordInput> m_inputs;
    bool m_hasFailed = false;
    bool m_wasWritten = false;
    bool m_isUnclear = false;
    RecordFields m_read;
    /// What was sent last, and the id that it got, in case the answer was lost.
    RecordDraft m_sent;
    QString m_sentId;
    DbTasks m_tasks;
};
