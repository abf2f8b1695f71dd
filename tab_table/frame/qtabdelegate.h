#pragma once

#include "busywindow.h"
#include "cellwriting.h"
#include "dbtasks.h"

#include <QHash>
#include <QItemDelegate>
#include <QPersistentModelIndex>
#include <QPointer>

class QLineEdit;
class QSqlDatabase;

/// The inline editor of lists that hold a name only: checks that the name is free and writes the row. A typed
/// name is stored by whatever leaves the editor but Esc; a refused one stays in it. A list of other cells has
/// an editor over this one, which says which cells open, what may stand in them and how they are written.
///
/// It is written away from the window. Meanwhile the editor stays as it is, keeps the keys that are pressed
/// in it for what comes next, and whatever else is asked for waits for the end.
class QTabDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    enum Column { Id, Name };

    /// The parent receives the messages.
    QTabDelegate(const QString &table, QSqlDatabase *db, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Stores the id in the model only while adding; the name goes to the database first, and into the model
    /// when it has arrived there.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /// The cell that opens when this one is to be edited: that of the name.
    virtual QModelIndex cellFor(const QModelIndex &index) const;

    /// A new row without a typed id gets this one or a higher one; 0: any.
    void setLowestNewId(uint id) { m_lowestNewId = id; }
    bool isAdding() const { return m_isAdding; }
    void startAdding() { m_isAdding = true; }
    void stopAdding() { m_isAdding = false; }
    /// The cell whose editor is open; invalid when none is.
    QModelIndex edited() const;
    /// True while an editor is open with something else in it than what is stored.
    bool isChanged() const;
    /// True while a name is on its way to the database.
    bool isWriting() const { return m_tasks.isWriting(); }
    /// Stores what is typed and closes the editor, if one is open. False when that takes its time: then()
    /// follows when it is stored and nothing else was asked for meanwhile, and never when it was refused,
    /// which is told.
    bool settle(const std::function<void()> &then);
    /// True while something is typed that is not stored, in an editor or for the next one.
    bool hasTyped() const;
    /// Closes the editor and stores nothing.
    void drop();
    /// A row is to be added as soon as that is possible: keys that come to the list are meant for it, names
    /// and the Enter behind them.
    void awaitRow();
    /// False once Esc has taken that back.
    bool isAwaitingRow() const { return m_isAwaitingRow; }
    /// True when the key, which came to the list, is kept for the row.
    bool keepsForRow(const QKeyEvent &key);
    /// There will be no row; what was typed for it is told to be lost.
    void giveUpRow(QWidget *window);
    /// Types what was pressed while a name was written, or a row awaited.
    void giveKeys();
    /// Goes on with the open editor.
    void resume();

signals:
    /// A row was written.
    void update() const;
    /// The row that was being added got no name: it has to go.
    void delnewrecord();
    /// A name is to be stored.
    void typed(QAbstractItemModel *model, const QModelIndex &name, const QString &text) const;
    void clr() const;
    void ClrNextEdit() const;
    void SetNextEdit() const;
    /// A new name was stored, under that id.
    void added(const QString &id, const QString &name) const;
    /// The added row was stored: go on with another one.
    void extNextEdit();
    void writingBegun();
    void writingEnded();
    /// The list has closed the editor of a name that was refused then: it has to be opened again.
    void editAgain(const QModelIndex &index);
    /// A name was stored whose row stands in the list no more.
    void storedUnseen();

protected:
    /// Asks how long a text may be in that column of the list, which shows this column of the table.
    void readLength(int column, const QString &tableColumn);
    void limitLength(QLineEdit *edit, int column) const;
    /// For every editor that createEditor() makes: it is the one of that cell from now on.
    QLineEdit *takeEditor(QLineEdit *edit, const QModelIndex &index) const;
    /// The text that the editor of a cell begins with.
    virtual QString beginningText(const QModelIndex &index) const;
    /// What stands in the editor of a cell of that column.
    virtual QString typedText(const QLineEdit &edit, int column) const;
    /// Why such a text cannot be stored, in the user's words; else empty, and *value is what is to be stored.
    virtual QString refusal(int column, const QString &text, QString *value) const;
    /// Asks the user about a value that is sound but has far-reaching consequences.
    virtual bool isConfirmed(QWidget *window, const QModelIndex &cell, const QString &value) const;
    virtual CellWriter writer() const;

    /// Enter stores and goes on adding, Tab stores, Esc drops. While a record is added, Backtab goes from its
    /// name to its id, Tab and Enter go back. Whoever goes to another field of the window stores, too.
    bool eventFilter(QObject *editor, QEvent *event) override;

private slots:
    void esc(QObject *editor);
    void clradd();
    void setNextEdit();
    void clrNextEdit();

private:
    QLineEdit *openEditor() const;
    bool nameKey(QLineEdit *edit, int key);
    bool idKey(QLineEdit *edit, int key);
    bool endingKey(QLineEdit *edit, int key);
    bool isUntouched(const QLineEdit *edit) const;
    /// What comes after the editing: the next new row, or what else was asked for.
    struct Next
    {
        bool isNewRow;
        std::function<void()> then;
    };
    bool leave(QLineEdit *edit, const Next &next = {});
    void close(QLineEdit *edit, EndEditHint hint = NoHint);
    void leaveLater(QLineEdit *edit);
    void keepKey(const QKeyEvent &key);
    QString droppedWords();
    bool asks(const QModelIndex &cell, const QString &value);
    void refuse(const QString &why);
    void store(QAbstractItemModel *model, const QModelIndex &name, const QString &text);
    CellDraft draftOf(const QModelIndex &cell, const QString &value) const;
    void write(const CellDraft &draft);
    void endWriting();
    void take(const CellWritten &written);
    void takeStored(const CellWritten &written);
    void goOn();
    void takeRefused(const CellWritten &written);
    void giveUp();
    void reopen();

    QString m_table;
    uint m_lowestNewId = 0;
    /// By column; those that are missing are not known.
    QHash<int, int> m_maxLengths;
    /// The editor opened last, which the list may have closed meanwhile, and its cell.
    mutable QPointer<QLineEdit> m_editor;
    mutable QPersistentModelIndex m_edited;
    /// What stood in it at first.
    mutable QString m_beginning;
    /// Moving between the two cells of a new record opens the next editor before the last one is gone.
    mutable int m_openEditors = 0;
    bool m_isAdding = false;
    bool m_hasNextEdit = false;
    /// The name only waits in the list while the id is typed.
    bool m_isKeeping = false;
    bool m_isLeaving = false;
    bool m_isTelling = false;
    QObject *m_receiver;
    Next m_next = {};
    KeptKeys m_keys;
    bool m_isAwaitingRow = false;
    /// Words about what was typed and is lost, to be told when the writing has ended.
    QString m_dropped;
    /// A value of which nobody knows whether it was written: the answer was lost.
    QString m_unclear;
    /// What was written last, as it was typed, and its cell.
    CellDraft m_draft;
    QString m_typed;
    QPersistentModelIndex m_written;
    QPointer<QAbstractItemModel> m_model;
    QPointer<QWidget> m_window;
    DbTasks m_tasks;
};
