#pragma once

#include <Qt>
#include <QtGlobal>
#include <vector>

class RowStore;

/// Puts row numbers into the order of a column's texts, stably; empty cells come first when ascending.
/// Numbers go by their value, however long; texts by the Ukrainian alphabet without case, Latin behind it,
/// then all other characters by their code; dates as the server writes them are texts in the order of time.
void sortRows(std::vector<quint32> *rows, const RowStore &store, int column, bool asNumbers,
              Qt::SortOrder order);
