#pragma once

#include <QItemDelegate>
#include <QSqlDatabase>

/// The inline editor of lists that hold a name only: checks that the name is free and writes the row.
class QTabDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    /// The parent receives the messages.
    QTabDelegate(const QString &table, QSqlDatabase *db, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Stores the id in the model only while adding; stores the name in the database first.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    bool isAdding() const { return m_isAdding; }
    void startAdding() { m_isAdding = true; }

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
    /// While a record is added, Backtab goes from its name to its id, Tab and Enter go back.
    bool eventFilter(QObject *editor, QEvent *event) override;

private slots:
    void esc(QObject *editor);
    void clradd();
    void setNextEdit();
    void clrNextEdit();

private:
    void warn(QWidget *editor, const QString &text) const;
    bool isTaken(QWidget *editor, const QString &name, const QString &ownId) const;
    void insertName(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index,
                    const QString &name) const;
    void updateName(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index,
                    const QString &name) const;

    QSqlDatabase *m_db;
    QString m_table;
    mutable int m_maxLength = -1;
    /// Moving between the two cells of a new record opens the next editor before the last one is gone.
    mutable int m_openEditors = 0;
    bool m_isAdding = false;
    bool m_hasNextEdit = false;
    QObject *m_receiver;
};
