#pragma once

#include "columns.h"
#include "groupaccess.h"
#include "rowstore.h"

/// Permission groups side by side, as rows and columns of a list.

/// A row for each right, shop group and shop, a column for each group.
QVector<Column> matrixColumns(const GroupsOverview &overview);
RowStore matrixRows(const GroupsOverview &overview, const QMap<QString, GroupAccess> &access);

/// A row for everything in which two groups differ: what it is, the value of either.
QVector<Column> differenceColumns(const QString &one, const QString &other);
RowStore differenceRows(const RecordFields &one, const RecordFields &other);
