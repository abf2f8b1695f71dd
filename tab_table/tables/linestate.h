#pragma once

#include <QVector>

class QRowModel;

/// Whether the equipment of a row is connected with the head office.
enum class LineState { OnLine, PartlyOnLine, OffLine };

/// Shows the state of a row: a colour, a sign, and the words for it, on the cells of the columns given.
void showLineState(QRowModel *model, int row, const QVector<int> &columns, LineState state);
