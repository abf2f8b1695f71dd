#pragma once

#include "columns.h"
#include "rowstore.h"

/// The list of receipts out of the rows of its statement.
struct ChekList
{
    enum Column { ZNumber, Number, TypeName, Amount, Time, Register, Type, ColumnCount };

    /// In the columns above. Amounts are hundredths: kopecks, or the quantity of a document of goods, which
    /// has one decimal more ("250.0" is 2.500), so that all sort by what is shown.
    RowStore rows;
    /// Sales minus returns, in kopecks.
    qint64 sum = 0;

    /// found: Z number, number, type, sum, time, register, quantity in thousandths.
    static ChekList from(const RowStore &found);
    static QVector<::Column> columns();
};
