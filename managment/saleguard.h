#pragma once

#include <QObject>
#include <functional>

class HeldActs;
class ReceiptPane;
class SalePayment;
class SaleWork;
class StockDesk;

/// What comes before a decision in the sale tab: what the hand has begun, what is under way, a receipt of
/// which the server has not told whether it is written, and one that would be lost.
class SaleGuard : public QObject
{
    Q_OBJECT

public:
    using Act = std::function<void()>;

    SaleGuard(SaleWork *work, HeldActs *acts, SalePayment *payment, ReceiptPane *receipt, StockDesk *stock);

    /// Ends what the hand has begun, a quantity or a discount that is being typed, an item that is on its
    /// way, then does the act. isSettled: false, with the reason shown, when something of it did not come
    /// into the receipt.
    void whenSettled(const std::function<void(bool isSettled)> &act);
    /// False, with the reason shown, when the user may not sell, something is under way, or the last receipt
    /// is not settled yet: of that the server is asked, and the act comes when the receipt still stands.
    bool mayChange(const Act &again);
    /// Does the act when the receipt is empty, or the user agreed to lose it.
    void leaveReceipt(const Act &leave);
    /// The same of the document of goods in front, and of everything that is filled in any mode.
    void leaveDocument();
    void leaveAll(const Act &leave);
    /// See Page. What has to be waited for before that can be told is begun, then closeWanted() comes.
    bool mayClose();

signals:
    /// The user agreed to lose the receipt.
    void receiptLeft();
    void closeWanted();

private:
    bool mayLoseReceipt();
    bool mayForgetUnclear();

    SaleWork *m_work;
    HeldActs *m_acts;
    SalePayment *m_payment;
    ReceiptPane *m_receipt;
    StockDesk *m_stock;
    /// Whoever closes the tab has waited for the server's answer about the last receipt.
    bool m_isAskedToClose = false;
};
