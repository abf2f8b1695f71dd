#pragma once

#include "money.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>
#include <array>

/// One sold position. Money in kopecks, quantities in thousandths.
struct ReceiptRow
{
    /// type_goods: anything else is sold by weight.
    static constexpr int pieceGoods = 1;
    /// type_action
    static constexpr int withoutAction = 1;
    static constexpr int percentAction = 2;

    quint32 idGoods = 0;
    /// Empty when the goods item has none.
    QString barcode;
    QString name;
    qint64 showroom = 0;
    qint64 syllable = 0;
    int rules = 0;
    int type = 0;
    /// Whether a discount beyond that of a promotion may be given.
    int isDisk = 0;
    int tax = 0;
    qint64 quantity = 1000;
    int actType = withoutAction;
    /// Of a percentage promotion: its hundredths of a per cent.
    qint64 actVal = 0;
    qint64 actVal1 = 0;
    qint64 actVal2 = 0;
    /// The name of the promotion whose number is that of the kind, as other programs look it up.
    QString actName;
    /// That of the promotion itself.
    QString actOwnName;
    /// False when neither the goods item nor a price list tells a price.
    bool hasPrice = true;
    qint64 price = 0;
    /// Computed by the receipt.
    qint64 discount = 0;

    qint64 sum() const;
    /// What the promotion in force takes off.
    qint64 actDiscount() const;
    bool isPiece() const { return type == pieceGoods; }
};

/// What a promotion does, and its name: "−15 % Хлібний тиждень". kind: type_action; value: of a percentage
/// its hundredths of a per cent.
QString promotionCaption(int kind, qint64 value, const QString &name);
/// Of the row's promotion in force; without one the name that the list has for that.
QString promotionCaption(const ReceiptRow &row);

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
