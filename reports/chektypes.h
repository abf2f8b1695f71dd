#pragma once

#include <QString>

/// What a row of `cheks` is; in the list, what the document is whose row it is.
namespace ChekType {
enum Type {
    SoldGoods = 1,
    Discount = 2,
    /// The row that carries the payments; it stands for the sale in the list.
    Payment = 3,
    CashIn = 4,
    CashOut = 5,
    Return = 6,
    GoodsReceipt = 7,
    GoodsMovement = 8,
    ZReport = 10
};

/// The word of the list.
QString name(int type);
/// Documents of goods, which have a quantity and no sum.
inline bool isGoodsDocument(int type)
{
    return type == GoodsReceipt || type == GoodsMovement;
}
} // namespace ChekType
