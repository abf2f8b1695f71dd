#pragma once

#include "columns.h"
#include "rowstore.h"

#include <QHash>

/// The list of receipts out of the rows of its statement.
struct ChekList
{
    enum Column { ZNumber, Number, TypeName, Amount, Time, Register, Type, ColumnCount };

    /// In the columns above. Amounts are hundredths: kopecks, or the quantity of a document of goods, which
    /// has one decimal more ("250.0" is 2.500), so that all sort by what is shown.
    RowStore rows;
    /// Sales minus returns, in kopecks.
    qint64 sum = 0;
    /// The shop of each register's receipts; 0 where they are of several.
    QHash<uint, uint> shops;

    /// found: as chekListSql() selects it.
    static ChekList from(const RowStore &found);
    static QVector<::Column> columns();
};
