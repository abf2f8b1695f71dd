#pragma once

#include "goodssearch.h"

#include <QObject>

class GoodsPicker;
class HeldActs;
class QNTableView;
class ReceiptPane;
class SaleWork;

/// Asks in a sale tab why an item costs what it costs: of the list of goods or of the row in the receipt,
/// whichever the hand was at last. By a key, and by the menus of both lists.
class SalePriceQuestion : public QObject
{
    Q_OBJECT

public:
    using Scope = std::function<GoodsSearch()>;

    /// scope: the shop, the priority and the time that hold now.
    SalePriceQuestion(SaleWork *work, HeldActs *acts, const GoodsPicker *goods, const ReceiptPane *receipt,
                      const Scope &scope);

private:
    void askWhenThere();
    void askChosen();
    void askListed();
    void askReceipt();
    void open(const GoodsItem &item, bool isTaken);

    SaleWork *m_work;
    HeldActs *m_acts;
    const GoodsPicker *m_goods;
    const ReceiptPane *m_receipt;
    QNTableView *m_grid;
    Scope m_scope;
};
