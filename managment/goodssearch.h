#pragma once

#include "columns.h"
#include "receipt.h"

#include <QDateTime>
#include <QStringList>

/// What the list of goods that can be put into a receipt is searched by.
struct GoodsSearch
{
    enum Mode { Receive = 1, Sale = 2, Move = 3 };
    /// ExactBarcode is what a scanner reads; the unique index finds it.
    enum By { Barcode, Name, ExactBarcode, Goods };

    quint32 idShop = 0;
    Mode mode = Sale;
    By by = Barcode;
    QString text;
    /// What By::Goods looks for.
    QVector<quint32> goods;
    /// Which price of a price list counts where it has none with priority 0.
    int priority = 0;
    /// Promotions are those in force then.
    QDateTime time;
    int limit = 100;
};

/// The columns of that list. ActType is 1 for no promotion in force, else the kind of promotion
/// (action.id_type_action, 2 "Знижка %"), never the number of a promotion; ActVal is action.val, of a
/// percentage its hundredths of a per cent; what ActVal1 and ActVal2 (action.val_1, val_2) mean is up to
/// other programs. ActName is the name of the promotion whose number is that of the kind, as other programs
/// on this database look it up; Promotion says what the promotion in force does and its own name, shown as
/// asPromotion.
namespace GoodsColumn {
enum {
    Id,
    Barcode,
    Name,
    Showroom,
    Syllable,
    Rules,
    Type,
    IsDisk,
    Tax,
    Price,
    ActType,
    ActVal,
    ActVal1,
    ActVal2,
    ActName,
    Promotion,
    Count
};
}

/// The statement of the list: everything typed is a literal in it.
QString goodsListSql(const GoodsSearch &search);
/// The caption of the promotion in a cell of GoodsColumn::Promotion.
extern const CellFormat asPromotion;
/// A row of the list, its cells as stored, as one piece or kilogram in a receipt.
ReceiptRow receiptRow(const QStringList &cells);
