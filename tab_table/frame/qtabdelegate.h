#pragma once

#include <QItemDelegate>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSqlDatabase>

class Db;
class QLineEdit;

/// The inline editor of lists that hold a name only: checks that the name is free and writes the row. A typed
/// name is stored by whatever leaves the editor but Esc; a refused one stays in it.
class QTabDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    enum Column { Id, Name };

    /// The parent receives the messages.
    QTabDelegate(const QString &table, QSqlDatabase *db, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Stores the id in the model only while adding; stores the name in the database first.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    bool isAdding() const { return m_isAdding; }
    void startAdding() { m_isAdding = true; }
    void stopAdding() { m_isAdding = false; }
    /// The cell whose editor is open; invalid when none is.
    QModelIndex edited() const;
    /// True while an editor is open with something else in it than what is stored.
    bool isChanged() const;
    /// Stores what is typed and closes the editor, if one is open. False when that was refused, which is
    /// told.
    bool settle();
    /// Closes the editor and stores nothing.
    void drop();
    /// Goes on with the open editor.
    void resume();

signals:
    /// A row was written.
    void update() const;
    /// The row that was being added got no name: it has to go.
    void delnewrecord();
    void clr() const;
    void ClrNextEdit() const;
    void SetNextEdit() const;
    /// The added row was stored: go on with another one.
    void extNextEdit();

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
    bool leave(QLineEdit *edit, bool goesOn = false);
    void close(QLineEdit *edit, EndEditHint hint = NoHint);
    void leaveLater(QLineEdit *edit);
    Db db() const;
    void limitLength(QLineEdit *edit) const;
    void refuse(QLineEdit *edit, const QString &why) const;
    bool isTaken(const QString &condition, const QString &value, QString *why) const;
    void store(QLineEdit *edit, QAbstractItemModel *model, const QModelIndex &name,
               const QString &text) const;
    QString insertName(QAbstractItemModel *model, const QModelIndex &index, const QString &name) const;
    QString updateName(QAbstractItemModel *model, const QModelIndex &index, const QString &name) const;

    QSqlDatabase *m_db;
    QString m_table;
    mutable int m_maxLength = -1;
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
    mutable bool m_isRefused = false;
    mutable bool m_isTelling = false;
    QObject *m_receiver;
};
