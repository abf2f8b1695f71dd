#pragma once

#include "receipt.h"

#include <QDateTime>
#include <QStringList>

/// What the list of goods that can be put into a receipt is searched by.
struct GoodsSearch
{
    enum Mode { Receive = 1, Sale = 2, Move = 3 };
    /// ExactBarcode is what a scanner reads; the unique index finds it.
    enum By { Barcode, Name, ExactBarcode };

    quint32 idShop = 0;
    Mode mode = Sale;
    By by = Barcode;
    QString text;
    /// Which price of a price list counts where it has none with priority 0.
    int priority = 0;
    /// Promotions are those in force then.
    QDateTime time;
    int limit = 100;
};

/// The columns of that list.
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
    Count
};
}

/// The statement of the list: everything typed is a literal in it.
QString goodsListSql(const GoodsSearch &search);
/// A row of the list, its cells as stored, as one piece or kilogram in a receipt.
ReceiptRow receiptRow(const QStringList &cells);
