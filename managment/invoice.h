#pragma once

#include "place.h"
#include "shopstock.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

/// Goods or cash on their way from one shop to another. Goods: rows of `invoice` with is_cash_goods 0 (or
/// NULL) and their rows of `transactions_goods`, quantities in thousandths. Cash: rows with is_cash_goods 1,
/// whose cash_send and cash_accept are kopecks.
enum class InvoiceKind { Goods, Cash };

/// What became of an invoice. On the way: data_time_close is zero or NULL. Cancelled: closed, and no line, or
/// no cash, was ever accepted. Different: at least one line has result 0, or other cash was accepted than
/// sent.
enum class InvoiceState { OnTheWay, Accepted, Different, Cancelled };

/// An item of an invoice.
struct InvoiceLine
{
    DbId goods = 0;
    QString name;
    bool isPiece = false;
    /// 0 for goods that came without having been sent.
    qint64 sent = 0;
    /// Nothing while nobody has counted it.
    std::optional<qint64> counted = {};
    /// One of those that the item has, to be shown.
    QString barcode = {};

    bool differs() const { return counted && *counted != sent; }
};

/// What tells a writing of an invoice from every other, to ask the server for it.
struct InvoiceMark
{
    DbId invoice = 0;
    DbId user = 0;
    /// yyyyMMddhhmmss
    QString time;
};

/// What the sender has put together; a value, taken once.
struct InvoiceDraft
{
    DbId user = 0;
    DbId from = 0;
    DbId to = 0;
    /// Where it is taken from.
    StockPlace place = StockPlace::Syllable;
    QString message;
    /// The same item may stand in several lines.
    QVector<InvoiceLine> lines;
    /// The count below zero, by item, that the operator has agreed to.
    QHash<DbId, qint64> agreed;
};

/// What the receiver has counted.
struct AcceptDraft
{
    DbId invoice = 0;
    DbId user = 0;
    /// Where it is put.
    StockPlace place = StockPlace::Syllable;
    QString message;
    /// All lines of the invoice, each counted, and what came beside them.
    QVector<InvoiceLine> lines;
    /// The writing before, if nobody knows what became of it.
    std::optional<InvoiceMark> unclear;
};

/// The sender takes back what is on the way.
struct CancelDraft
{
    DbId invoice = 0;
    DbId user = 0;
    /// Where it is put again.
    StockPlace place = StockPlace::Syllable;
    QString message;
    std::optional<InvoiceMark> unclear;
};

/// An item of which there is less than is to be sent.
struct Shortage
{
    DbId goods = 0;
    QString name;
    qint64 stock = 0;
    qint64 quantity = 0;
};

struct InvoiceResult
{
    enum Outcome {
        Written,
        /// Nothing was written; the reason is reported.
        Failed,
        /// Nothing was written; `why` tells the user what to do.
        Refused,
        /// Nothing was written: somebody has closed the invoice before; `why` tells who, when and how.
        Closed,
        /// Nothing was written: a count, or a register's cash, would fall below zero, and nobody has agreed
        /// to that.
        Short,
        /// Nothing was written: another program is writing to the stock, and went on doing so.
        Locked,
        /// The connection broke while it was confirmed, and the server cannot be asked. Before another try
        /// isInvoiceSent() tells; accepting and cancelling, with the mark as `unclear`, ask by themselves.
        Unclear
    };

    Outcome outcome = Failed;
    QString why = {};
    InvoiceMark mark = {};
    QVector<Shortage> shortages = {};
    /// Of Short where it is cash that is short: what lies in the register, in kopecks.
    qint64 drawer = 0;
};
