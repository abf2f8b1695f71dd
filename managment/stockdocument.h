#pragma once

#include "goodsitem.h"
#include "money.h"

#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QVector>

/// Where goods lie in a shop. The numbers are stored, see stocksql.h.
enum class StockPlace { Showroom = 1, Syllable = 2 };

/// "зал", "склад"
QString placeName(StockPlace place);
/// "у залі", "на складі"
QString inPlace(StockPlace place);
inline StockPlace otherPlace(StockPlace place)
{
    return place == StockPlace::Showroom ? StockPlace::Syllable : StockPlace::Showroom;
}

/// One position of a document of goods.
struct StockRow : GoodsItem
{
    StockRow() = default;
    StockRow(const GoodsItem &item, qint64 thousandths) : GoodsItem(item), quantity(thousandths) {}

    /// In thousandths; 0 while nobody has told it, below zero for what goes back or is written off.
    qint64 quantity = 0;

    qint64 count(StockPlace place) const { return place == StockPlace::Showroom ? showroom : syllable; }
};

/// How much of a goods item.
struct StockQuantity
{
    quint32 idGoods = 0;
    QString name;
    qint64 quantity = 0;
};

/// What happens to the goods of a document.
struct StockMove
{
    /// As in ChekType: received, moved or handed over to another shop.
    int type = 0;
    /// Where received goods come to and moved goods go to; of goods handed over where they are taken from.
    StockPlace place = StockPlace::Syllable;
    /// Received are the differences to what the shop floor had by the program: it was counted.
    bool isCount = false;

    /// What becomes of a quantity there.
    qint64 change(StockPlace where, qint64 thousandths) const;
};

/// The goods of a document that is being filled, whatever is done with them.
class StockDocument
{
    Q_DECLARE_TR_FUNCTIONS(StockDocument)

public:
    /// The largest quantity that the database holds.
    static constexpr qint64 maximum = maximumThousandths;

    const QVector<StockRow> &rows() const { return m_rows; }
    bool isEmpty() const { return m_rows.isEmpty(); }

    /// The row that takes more of that item: that of its pieces, or one that waits for its kilograms; -1 for
    /// none.
    int rowOf(const GoodsItem &item) const;
    /// One piece more, in the row that the goods item has; what is weighed gets a row of its own, whose
    /// quantity is not told yet. Returns the row.
    int add(const GoodsItem &item);
    /// The same with quantities: pieces are added up.
    void add(const QVector<StockRow> &rows);
    void remove(int row);
    void setQuantity(int row, qint64 thousandths);
    void clear();
    /// What there is of a goods item, as the server has it.
    void setCount(quint32 idGoods, StockPlace place, qint64 thousandths);

    /// So much of it was moved by another document.
    void follow(const StockQuantity &goods, const StockMove &move);

    /// How much of each goods item, in the order of the rows, each once.
    QVector<StockQuantity> quantities() const;
    /// The same of the row's goods item.
    qint64 quantityOf(int row) const { return m_sums.value(m_rows.at(row).idGoods); }
    /// Pieces and kilograms together, as the list of receipts tells it.
    qint64 total() const;

    /// Why a row cannot have such a quantity, in the user's words; empty when it can.
    static QString quantityRefusal(const GoodsItem &item, qint64 thousandths, bool mayBeNegative);

private:
    void put(const StockRow &row);

    QVector<StockRow> m_rows;
    /// By goods item: how much, and the row of what is counted in pieces.
    QHash<quint32, qint64> m_sums;
    QHash<quint32, int> m_pieceRows;
};
