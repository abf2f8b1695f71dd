#pragma once

#include <QString>

/// What a row of `cheks` is (its id_type); in the list, what the document is whose row it is.
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
    GoodsTransfer = 9,
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

/// In dis_bon_bez2 of received goods: the shop floor, counted when a trading period was closed.
constexpr int countedPlace = 3;

/// The condition of a register's receipts: "id_kass=3 AND id_shop IN (SELECT id FROM shops)". table: what
/// stands before the columns, "cheks." where others have them too.
///
/// Every row belongs to a shop that there is, so the second half changes no answer. But the key of the table
/// begins with the shop: without one the server reads all receipts of the chain.
QString cheksOfRegister(const QString &kass, const QString &table = {});
