#pragma once

#include "pagememory.h"

#include <Qt>
#include <QtGlobal>
#include <atomic>

class RowStore;

/// The numbers of rows in the order they stand.
using RowOrder = PageVector<quint32>;

/// How a list is to be sorted; column -1 is the order of the query.
struct RowSort
{
    int column = -1;
    Qt::SortOrder order = Qt::AscendingOrder;
    bool asNumbers = false;
};

/// Puts row numbers into the order of a column's texts, stably; empty cells come first when ascending.
/// Numbers go by their value, however long; texts by the Ukrainian alphabet without case, Latin behind it,
/// then all other characters by their code; dates as the server writes them are texts in the order of time.
/// isStopped is looked at all the time; false when it became true, with the numbers in no order.
bool sortRows(RowOrder *rows, const RowStore &store, const RowSort &by,
              const std::atomic<bool> *isStopped = nullptr);
