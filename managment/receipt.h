#pragma once

#include "goodsitem.h"
#include "money.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>
#include <array>

/// One sold position. Money in kopecks, quantities in thousandths.
struct ReceiptRow : GoodsItem
{
    ReceiptRow() = default;
    /// One piece or kilogram.
    explicit ReceiptRow(const GoodsItem &item) : GoodsItem(item) {}

    qint64 quantity = 1000;
    /// Computed by the receipt.
    qint64 discount = 0;

    qint64 sum() const;
    /// What the promotion in force takes off.
    qint64 actDiscount() const;
};

/// A receipt that is being filled: its rows, sums and rules. The discount of the receipt is always the sum
/// of those of its rows, as far as the rows may carry it.
class Receipt
{
    Q_DECLARE_TR_FUNCTIONS(Receipt)

public:
    /// Turnover of the tax groups 1 to 5.
    using Turnover = std::array<qint64, 5>;
    /// The largest amount and quantity that the database holds.
    static constexpr qint64 maximum = maximumKopecks;

    struct GoodsQuantity
    {
        quint32 idGoods;
        qint64 quantity;
    };

    const QVector<ReceiptRow> &rows() const { return m_rows; }
    bool isEmpty() const { return m_rows.isEmpty(); }

    void add(const ReceiptRow &row);
    void remove(int row);
    void setQuantity(int row, qint64 thousandths);
    /// What the goods list says of the row by now, without its quantity and barcode.
    void takeOver(int row, const ReceiptRow &now);
    void clear();
    /// The discount of the whole receipt as somebody typed it. What goes beyond the promotions is spread
    /// over the rows that may have a discount, and stays beyond them when rows come and go; what stays below
    /// the promotions goes with the rows whose discounts it lowered.
    void setDiscount(qint64 kopecks);

    qint64 total() const;
    qint64 discount() const { return m_discount; }
    qint64 toPay() const { return total() - m_discount; }
    Turnover turnover() const;
    /// How much of each goods item, in the order of the rows, each once.
    QVector<GoodsQuantity> quantities() const;
    /// True when there is more of the row's goods item in the receipt than on the shop floor.
    bool exceedsStock(int row) const;

    /// Why this cannot be sold, in the user's words; empty when it can.
    QString refusal() const;

private:
    static QString rowRefusal(const ReceiptRow &row);
    qint64 actDiscounts() const;
    void calcDiscRow();

    QVector<ReceiptRow> m_rows;
    qint64 m_discount = 0;
    /// What was typed beyond (or below) the promotions' discounts.
    qint64 m_extra = 0;
};

/// A sum in whole parts in the proportion of the weights. The parts add up to the sum, and none is above
/// its weight while the sum is not above all weights together. No weights at all: all parts are 0.
QVector<qint64> inProportion(qint64 sum, const QVector<qint64> &weights);
