#include "listplace.h"

#include "qntableview.h"
#include "qrowmodel.h"

#include <QScrollBar>
#include <cstdlib>

ListPlace::ListPlace(const QNTableView &view, const QRowModel &model)
    : m_current(rowAt(model, view.currentIndex().row()))
    , m_column(view.currentIndex().column())
    , m_left(view.horizontalScrollBar()->value())
{
    const int top = view.rowAt(0);
    const int bottom = view.rowAt(view.viewport()->height() - 1);
    const bool isSeen = m_current.number >= top && (bottom < 0 || m_current.number <= bottom);
    m_anchor = isSeen ? m_current : rowAt(model, top);
    m_rowsAbove = m_anchor.number - top;
}

ListPlace::Row ListPlace::rowAt(const QRowModel &model, int number)
{
    Row row;
    if (number < 0 || number >= model.rowCount())
        return row;
    row.number = number;
    for (int column = 0; column < model.columnCount(); ++column)
        row.cells.emplace_back(model.storedBytes(number, column));
    return row;
}

/// Of several rows that are alike the nearest one; -1 for no row.
int ListPlace::find(const QRowModel &model, const Row &row)
{
    const int columns = qMin(model.columnCount(), static_cast<int>(row.cells.size()));
    int found = qMin(row.number, model.rowCount() - 1);
    int mostAlike = 0;
    for (int number = 0; number < model.rowCount(); ++number) {
        int alike = 0;
        while (alike < columns && model.storedBytes(number, alike) == row.cells[static_cast<size_t>(alike)])
            ++alike;
        if (alike > mostAlike || (alike > 0 && alike == mostAlike &&
                                  std::abs(number - row.number) < std::abs(found - row.number))) {
            mostAlike = alike;
            found = number;
        }
    }
    return found;
}

void ListPlace::restore(QNTableView *view, const QRowModel &model) const
{
    if (model.rowCount() == 0)
        return;
    const int current = find(model, m_current);
    const int anchor = m_anchor.number == m_current.number ? current : find(model, m_anchor);
    if (current >= 0)
        view->setCurrentIndex(model.index(current, qMax(0, m_column)));
    if (anchor < 0)
        return;
    view->doItemsLayout();
    view->verticalScrollBar()->setValue(anchor - m_rowsAbove);
    view->horizontalScrollBar()->setValue(m_left);
}
