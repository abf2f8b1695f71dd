#pragma once

#include "documentwriter.h"
#include "periodcount.h"

/// Closes a trading period: writes what was counted as a document of the register (stocksql.h), and puts the
/// stock of the shop floor right. The document tells that the period was closed; the days need no writing,
/// since the shift after that of the last day is the first of the next period.
class PeriodWriter : public DocumentWriter
{
    Q_DECLARE_TR_FUNCTIONS(PeriodWriter)

public:
    struct Result : DocumentWriter::Result
    {
        /// Of Refused: the stock by the program, of the goods of which it is not what was shown.
        QHash<DbId, qint64> changed;
    };

    PeriodWriter(const Db &db, const PeriodOrder &order, const char *file = __builtin_FILE(),
                 int line = __builtin_LINE());

    /// In one transaction: either all of it or nothing. Another program in the way is tried twice more before
    /// it is told. unclear: a writing before this one of which nobody knows whether it has arrived; it is
    /// asked for first.
    Result write(const std::optional<WrittenChek> &unclear = std::nullopt) const;
    /// Whether the document stands in the database; nothing when the server did not tell.
    std::optional<bool> isWritten(const WrittenChek &chek) const;

    /// What an outcome means for the user, and what to do; empty for Written.
    static QString explanation(const Result &result);

private:
    Result writeOnce() const;
    bool mayWrite(Result *result) const;
    bool isSameShift(Result *result) const;
    bool isLastDay(Result *result) const;
    bool isNotClosed(Result *result) const;
    static bool refuseClosed(int document, Result *result);
    bool writeRows(const Result &result) const;
    bool setStock(Result *result) const;

    PeriodOrder m_order;
};
