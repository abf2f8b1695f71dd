#pragma once

#include <QString>

/// A goods item as it is offered in a shop at some time. Money in kopecks, quantities in thousandths.
struct GoodsItem
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

    bool isPiece() const { return type == pieceGoods; }
};

/// What a promotion does, and its name: "−15 % Хлібний тиждень". kind: type_action; value: of a percentage
/// its hundredths of a per cent.
QString promotionCaption(int kind, qint64 value, const QString &name);
/// What a promotion takes off a sum in kopecks; value: of a percentage its hundredths of a per cent.
qint64 promotionDiscount(int kind, qint64 value, qint64 sum);
/// Of the item's promotion in force; without one the name that the list has for that.
QString promotionCaption(const GoodsItem &item);
