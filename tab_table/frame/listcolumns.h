#pragma once

#include "columns.h"

#include <QKeySequence>
#include <QObject>
#include <QPointer>

class QMenu;
class QNTableView;
class QTableView;

/// The columns of a grid as its user has them: how wide, in which order, which of them, sorted by what.
/// Remembered between two starts; the menu of the header chooses, by keyboard with Shift+F10 or the menu key
/// in the grid. For a grid with any model.
class ListColumns : public QObject
{
    Q_OBJECT

public:
    explicit ListColumns(QNTableView *view);
    /// Remembers how the columns stand; the grid has to be there still.
    ~ListColumns() override;

    /// Widths, what is hidden for good, and what that user has made of them before. key: the list's name
    /// among all lists. The widest column takes the width that the others leave free.
    void set(const QVector<Column> &columns, const QString &idUser, const QString &key);
    /// Opens the menu of the columns from the grid.
    static QKeySequence menuKey() { return Qt::SHIFT + Qt::Key_F10; }
    /// The columns that are seen, by their places in the model, as they stand from left to right.
    QVector<int> shown() const;
    /// Which columns are seen, the order of the server, everything as at first.
    void fillMenu(QMenu *menu);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openMenu(const QPoint &place);
    int digitWidth() const;
    int captionWidth(int column) const;
    void setWidths();
    void reset();
    QString nameOf(int column) const;
    void showColumn(int column, bool isShown);
    void clearSorting();
    QStringList state() const;
    bool restore(const QStringList &state);
    void remember() const;

    QPointer<QNTableView> m_view;
    QVector<Column> m_columns;
    QString m_idUser;
    QString m_key;
};

/// The columns of a grid that are seen, by their places in the model, from left to right.
QVector<int> shownColumns(const QTableView *view);
