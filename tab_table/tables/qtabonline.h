#pragma once

#include "linestate.h"
#include "qtab.h"

/// A list of what stands in the shops and may be connected with the head office: each row shows its state in
/// colour; a drag to the right and a right click start something for it, Ctrl+Right and Ctrl+R as well.
class QTabOnLine : public QTab
{
    Q_OBJECT

public:
    /// longestStrayDrag: so many pixels are no drag yet. stateColumns: those that show the state.
    QTabOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
               int longestStrayDrag, const QVector<int> &stateColumns);

public slots:
    void LMoveMouse(int countpx, const QModelIndex &index);
    void RightClickSlot(const QModelIndex &index);

protected:
    virtual void dragged(int row) = 0;
    virtual void rightClicked(int row) = 0;
    virtual LineState lineState(int row) const = 0;
    void rowsShown() override;
    void rowShown(int row) override;

    /// Offers the shop groups that the user may see, as fillFilter() does.
    void fillGroups(QComboBox *box, const std::function<void(bool isKept)> &filled);

private:
    void addKey(int key, const std::function<void(const QModelIndex &)> &act);

    const int m_longestStrayDrag;
    const QVector<int> m_stateColumns;
};
