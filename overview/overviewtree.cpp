#include "overviewtree.h"

#include <QHeaderView>
#include <QKeyEvent>

OverviewTree::OverviewTree(QWidget *parent) : QTreeView(parent)
{
    setSelectionBehavior(SelectItems);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setSortingEnabled(true);
    connect(this, &QTreeView::doubleClicked, this, &OverviewTree::opened);
}

/// The next column that is seen, to the right (1) or to the left (-1); invalid where there is none.
QModelIndex OverviewTree::neighbour(const QModelIndex &cell, int step) const
{
    int place = header()->visualIndex(cell.column()) + step;
    while (place >= 0 && place < header()->count() &&
           header()->isSectionHidden(header()->logicalIndex(place)))
        place += step;
    return place < 0 || place >= header()->count() ? QModelIndex()
                                                   : cell.sibling(cell.row(), header()->logicalIndex(place));
}

/// To the right and left from cell to cell; at the first one a shop is unfolded before and folded up.
QModelIndex OverviewTree::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex cell = currentIndex();
    const bool isFolded = cell.column() == 0 && model()->hasChildren(cell) && !isExpanded(cell);
    QModelIndex next;
    if (cell.isValid() && action == MoveRight && !isFolded)
        next = neighbour(cell, 1);
    if (cell.isValid() && action == MoveLeft)
        next = neighbour(cell, -1);
    if (next.isValid())
        return next;
    return action == MoveRight && !isFolded ? cell : QTreeView::moveCursor(action, modifiers);
}

void OverviewTree::keyPressEvent(QKeyEvent *event)
{
    if (isEnterOfHand(&m_pace, *event) && currentIndex().isValid())
        emit opened(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}
