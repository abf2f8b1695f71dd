#pragma once

#include "columns.h"
#include "invoice.h"

/// Which rows of `invoice` are listed.
struct InvoicesAsked
{
    /// Seen from the shops that are meant.
    enum Direction { Both, Sent, Received };

    InvoiceKind kind = InvoiceKind::Goods;
    /// The shops that are meant, as a condition on `shops` with a blank before it.
    QString shops;
    Direction direction = Both;
    std::optional<InvoiceState> state;
    /// Sent from the first to the last second, as yyyyMMddhhmmss; empty for all times.
    QString from;
    QString to;
    /// Of the invoice; empty for all.
    QString number;

    bool hasDays() const { return !from.isEmpty(); }
};

/// The columns of the list of invoices, in the order of the goods.
enum class InvoiceColumn {
    Number,
    State,
    From,
    To,
    SentAt,
    SentBy,
    ClosedAt,
    ClosedBy,
    Lines,
    Sent,
    Accepted,
    Difference,
    DifferentLines,
    MessageFrom,
    MessageTo,
    /// Ids of the shops and of their groups; never shown.
    ShopFrom,
    GroupFrom,
    ShopTo,
    GroupTo,
    Count
};

/// The place of a column in the list: of cash the amounts come first, and those of lines are never shown.
int columnAt(InvoiceKind kind, InvoiceColumn column);

/// Where a page of the list begins: behind that invoice; 0 for the first page.
struct InvoiceKey
{
    bool isOnTheWay = true;
    qint64 id = 0;
};

/// What is on the way first, then the newest, so many rows.
QString invoicesSql(const InvoicesAsked &asked, const InvoiceKey &behind, int rows);
QVector<Column> invoiceColumns(InvoiceKind kind);

/// The columns of the goods of an invoice.
enum class InvoiceLineColumn { Goods, Barcode, Name, Sent, Accepted, Difference, Result, Count };

/// What differs comes first, then by name.
QString invoiceLinesSql(DbId invoice);
QVector<Column> invoiceLineColumns();

/// The columns of the sums of an invoice of cash: what was sent, accepted, and the difference.
enum class CashLineColumn { What, Sum, Count };

QString cashLinesSql(DbId invoice);
QVector<Column> cashLineColumns();

/// A state with its sign, as lists and papers show it: "→ у дорозі".
QString invoiceStateShown(InvoiceState state);
/// What a state looks like in a list: black is readable on it.
QColor invoiceStateColour(InvoiceState state);
