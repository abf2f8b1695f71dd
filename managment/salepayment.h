#pragma once

#include "salecheck.h"

#include <functional>

class DbTasks;
class PlaceBar;
class ReceiptModel;

/// Takes a receipt to its end, a step after the other: whether it may be sold, what the user has to agree to,
/// the payment and the writing; and what became of a receipt of which the server has not told. Reading and
/// writing run away from the window; SaleWork knows which step is under way.
class SalePayment : public QObject
{
    Q_OBJECT

public:
    /// A receipt that was written; amounts in kopecks.
    struct Sold
    {
        QString kass;
        int number = 0;
        qint64 toPay = 0;
        /// Handed back in cash.
        qint64 change = 0;
    };

    SalePayment(SaleWork *work, PlaceBar *place, ReceiptModel *receipt);

    /// The shop, mode, priority and time by which goods are searched: prices are compared by the same.
    void setScope(const std::function<GoodsSearch()> &scope) { m_scope = scope; }

    /// Checks the receipt, asks what there is to ask, takes the payment and writes it.
    void sell();
    /// Another date than today's is asked about once a receipt: this is the next one.
    void beginReceipt() { m_isDateAgreed = false; }
    /// What became of a receipt that was written or not: its number, else -1 with the reason told.
    int ended(const ChekWriter::Result &result);

    /// The receipt of which the server has not told whether it was written.
    const std::optional<WrittenChek> &unclear() const { return m_unclear; }
    QString unclearWords() const;
    /// Asks the server whether that one is written; then() gets nothing, with words told, when it does not
    /// tell.
    void askUnclear(const std::function<void(std::optional<bool> isWritten)> &then);

signals:
    void sold(const SalePayment::Sold &sold);
    /// A receipt was paid and not written.
    void notWritten();
    /// The register's shift was looked at and may be another one than is shown.
    void shiftRead();

private:
    QString refusal() const;
    void checked(const SaleOrder &order, const SaleCheck &check);
    bool agreeDate(const QDate &chosen);
    bool agreeChanges(const SaleChanges &changes);
    void pay(const SaleOrder &order);
    void write(const SaleOrder &order, const ChekPayment &payment, qint64 change);
    void answered(std::optional<bool> isWritten);

    SaleWork *m_work;
    PlaceBar *m_place;
    ReceiptModel *m_receipt;
    DbTasks *m_tasks;
    std::function<GoodsSearch()> m_scope;
    bool m_isDateAgreed = false;
    std::optional<WrittenChek> m_unclear;
};
