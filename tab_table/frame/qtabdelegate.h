#pragma once

#include "busywindow.h"
#include "dbtasks.h"
#include "namestore.h"

#include <QItemDelegate>
#include <QPersistentModelIndex>
#include <QPointer>

class QLineEdit;
class QSqlDatabase;

/// The inline editor of lists that hold a name only: checks that the name is free and writes the row. A typed
/// name is stored by whatever leaves the editor but Esc; a refused one stays in it.
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
    /// The added row was stored: go on with another one.
    void extNextEdit();
    void writingBegun();
    void writingEnded();
    /// The list has closed the editor of a name that was refused then: it has to be opened again.
    void editAgain(const QModelIndex &index);
    /// A name was stored whose row stands in the list no more.
    void storedUnseen();

protected:
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
    void readLength();
    void limitLength(QLineEdit *edit) const;
    void refuse(const QString &why);
    void store(QAbstractItemModel *model, const QModelIndex &name, const QString &text);
    void write(const QModelIndex &name, const QString &text);
    void endWriting();
    void take(const NameWritten &written);
    void takeStored(const NameWritten &written);
    void goOn();
    void takeRefused(const NameWritten &written);
    void reopen();

    QString m_table;
    uint m_lowestNewId = 0;
    /// Of the column; 0: not known.
    int m_maxLength = 0;
    /// The editor opened last, which the list may have closed meanwhile, and its cell.
    mutable QPointer<QLineEdit> m_editor;
    mutable QPersistentModelIndex m_edited;
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
    /// A name of which nobody knows whether it was written: the answer was lost.
    QString m_unclear;
    /// What was written last, and its cell.
    NameDraft m_draft;
    QPersistentModelIndex m_written;
    QPointer<QAbstractItemModel> m_model;
    QPointer<QWidget> m_window;
    DbTasks m_tasks;
};
