#pragma once

#include "db.h"
#include "invoice.h"

/// An invoice that is on the way, to be counted.
struct ReadInvoice
{
    DbId id = 0;
    QString from;
    QString to;
    /// "23-11-26 12:30:05, Коваль Ірина"
    QString sent;
    QString message;
    /// By name.
    QVector<InvoiceLine> lines;
    /// The items of all barcodes of its goods.
    QHash<QString, DbId> barcodes;
};

/// Nothing after a reported failure, and, told as well, when there is no such invoice of goods, or
/// it is closed by now.
std::optional<ReadInvoice> readInvoice(const Db &db, DbId invoice);
/// Items that are meant by a text: the one of that barcode, else the one of that number, else those whose
/// names hold all its words. Three at most, as lines that were not sent; nothing after a reported failure.
std::optional<QVector<InvoiceLine>> findInvoiceGoods(const Db &db, const QString &text);
