#pragma once

#include <string>
#include <vector>

class QNTableView;
class QRowModel;

/// Where somebody stands in a list: the current row and what is seen of the list. It is found again when the
/// rows have come anew, by what stands in them: the row that has most columns in common, from the left.
class ListPlace
{
public:
    ListPlace(const QNTableView &view, const QRowModel &model);
    /// A current row that has gone is followed by the one in its place.
    void restore(QNTableView *view, const QRowModel &model) const;

private:
    struct Row
    {
        int number = -1;
        std::vector<std::string> cells;
    };
    static Row rowAt(const QRowModel &model, int number);
    static int find(const QRowModel &model, const Row &row);

    Row m_current;
    int m_column = 0;
    /// What keeps its height on the screen: the current row when it is seen, else the topmost one.
    Row m_anchor;
    int m_rowsAbove = 0;
    int m_left = 0;
};
