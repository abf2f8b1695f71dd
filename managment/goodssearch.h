#pragma once

#include "columns.h"
#include "goodsitem.h"
#include "place.h"

#include <QDateTime>
#include <QVector>
#include <functional>
#include <string_view>

class QSqlQuery;

/// What the list of goods that can be put into a receipt is searched by.
struct GoodsSearch
{
    enum Mode { Receive = 1, Sale = 2, Move = 3, Transfer = 4 };
    /// ExactBarcode is what a scanner reads; the unique index finds it.
    enum By { Barcode, Name, ExactBarcode, Goods };

    DbId idShop = 0;
    Mode mode = Sale;
    By by = Barcode;
    QString text;
    /// What By::Goods looks for.
    QVector<DbId> goods;
    /// Which price of a price list counts where it has none with priority 0.
    int priority = 0;
    /// Promotions are those in force then.
    QDateTime time;
    int limit = 100;
};

/// The columns of that list, in its order.
enum class GoodsColumn {
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
    /// 1 for no promotion in force, else its kind (action.id_type_action), never the number of a promotion.
    ActType,
    /// action.val: of a percentage its hundredths of a per cent.
    ActVal,
    /// What action.val_1 and val_2 mean is up to other programs.
    ActVal1,
    ActVal2,
    /// The name of the promotion whose number is that of the kind, as other programs look it up.
    ActName,
    /// What the promotion in force does, and its own name.
    Promotion,
    Count
};

/// The statement of the list: everything typed is a literal in it.
QString goodsListSql(const GoodsSearch &search);
/// How the list is shown.
QVector<Column> goodsListColumns();
/// An item of the list; cell: the stored text of each column.
GoodsItem goodsItem(const std::function<QString(int column)> &cell);
/// The same out of the current row of the statement.
GoodsItem goodsItem(const QSqlQuery &query);
/// What stands in GoodsColumn::Promotion, as it is shown.
QString promotionShown(std::string_view stored);
