#pragma once

#include "documentwriter.h"
#include "shopstock.h"
#include "stockdocument.h"

#include <QDate>

/// A document of goods as it stood when it was asked for: copied once, asked about and written.
struct StockOrder
{
    ChekPlace place;
    StockMove move;
    StockDocument document;
    /// None for today's.
    QDate date;
    /// Below zero, and so far the counts of these goods may fall: the user has agreed.
    QHash<DbId, qint64> agreed;
};

/// A goods item of which there is less than is to be taken away; quantities in thousandths.
struct StockLack
{
    quint32 idGoods = 0;
    QString name;
    StockPlace place = StockPlace::Showroom;
    qint64 count = 0;
    qint64 wanted = 0;

    /// "«Хліб»: у залі 3.000, треба 5.000"
    QString words() const;
};
using StockLacks = QVector<StockLack>;

/// The first of them, a line each, and how many more there are.
QString lackWords(const StockLacks &lacks);

/// Writes documents of goods into the shared database: their rows (stocksql.h), and the shop's stock. A
/// document belongs to the register's open shift as a receipt does, and adds nothing to its sums.
class StockWriter : public DocumentWriter
{
    Q_DECLARE_TR_FUNCTIONS(StockWriter)

public:
    struct Result : DocumentWriter::Result
    {
        /// Of Refused: the goods of which there is not enough, as the server has them. A receipt may be
        /// written again when they are agreed to; moved goods have to be there.
        StockLacks lacks;
        bool opensShift = false;
    };

    using DocumentWriter::DocumentWriter;

    /// In one transaction: either all of it or nothing. Another program in the way is tried twice more before
    /// it is told. The stock is read once more, locked: somebody may have sold meanwhile.
    Result write(const StockOrder &order) const;
    /// Whether the document stands in the database; nothing when the server did not tell.
    std::optional<bool> isWritten(const StockOrder &order, const WrittenChek &chek) const;

    /// What an outcome means for the user, and what to do; empty for Written.
    static QString explanation(const Result &result);

private:
    Result writeOnce(const StockOrder &order) const;
    bool writeRows(const StockOrder &order, Result *result) const;
    bool changeStock(const StockOrder &order, Result *result) const;
};
