#include "stockdocument.h"

#include "cheks.h"

#include <algorithm>
#include <numeric>

namespace {
constexpr qint64 one = 1000;
} // namespace

QString placeName(StockPlace place)
{
    return place == StockPlace::Showroom ? QCoreApplication::translate("StockPlace", "зал")
                                         : QCoreApplication::translate("StockPlace", "склад");
}

QString inPlace(StockPlace place)
{
    return place == StockPlace::Showroom ? QCoreApplication::translate("StockPlace", "у залі")
                                         : QCoreApplication::translate("StockPlace", "на складі");
}

int StockDocument::rowOf(const GoodsItem &item) const
{
    if (item.isPiece())
        return m_pieceRows.value(item.idGoods, -1);
    const auto waits = [&](const StockRow &row) { return row.idGoods == item.idGoods && row.quantity == 0; };
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), waits);
    return row == m_rows.end() ? -1 : static_cast<int>(row - m_rows.begin());
}

int StockDocument::add(const GoodsItem &item)
{
    const int row = rowOf(item);
    if (row < 0 || item.isPiece())
        put(StockRow(item, item.isPiece() ? one : 0));
    return row < 0 ? m_rows.size() - 1 : row;
}

void StockDocument::add(const QVector<StockRow> &rows)
{
    for (const StockRow &row : rows)
        put(row);
}

void StockDocument::put(const StockRow &row)
{
    m_sums[row.idGoods] += row.quantity;
    const int known = row.isPiece() ? m_pieceRows.value(row.idGoods, -1) : -1;
    if (known >= 0) {
        m_rows[known].quantity += row.quantity;
        return;
    }
    if (row.isPiece())
        m_pieceRows.insert(row.idGoods, m_rows.size());
    m_rows.append(row);
}

void StockDocument::remove(int row)
{
    const QVector<StockRow> before = m_rows;
    clear();
    for (int i = 0; i < before.size(); ++i) {
        if (i != row)
            put(before.at(i));
    }
}

void StockDocument::setQuantity(int row, qint64 thousandths)
{
    m_sums[m_rows.at(row).idGoods] += thousandths - m_rows.at(row).quantity;
    m_rows[row].quantity = thousandths;
}

void StockDocument::setCount(quint32 idGoods, StockPlace place, qint64 thousandths)
{
    for (StockRow &row : m_rows) {
        if (row.idGoods == idGoods)
            (place == StockPlace::Showroom ? row.showroom : row.syllable) = thousandths;
    }
}

void StockDocument::follow(const StockQuantity &goods, const StockMove &move)
{
    for (StockRow &row : m_rows) {
        if (row.idGoods == goods.idGoods) {
            row.showroom += move.change(StockPlace::Showroom, goods.quantity);
            row.syllable += move.change(StockPlace::Syllable, goods.quantity);
        }
    }
}

void StockDocument::clear()
{
    m_rows.clear();
    m_sums.clear();
    m_pieceRows.clear();
}

QVector<StockQuantity> StockDocument::quantities() const
{
    QVector<StockQuantity> all;
    QHash<quint32, int> known;
    for (const StockRow &row : m_rows) {
        const int at = known.value(row.idGoods, -1);
        if (at >= 0) {
            all[at].quantity += row.quantity;
        } else {
            known.insert(row.idGoods, all.size());
            all.append({row.idGoods, row.name, row.quantity});
        }
    }
    return all;
}

qint64 StockDocument::total() const
{
    return std::accumulate(m_rows.begin(), m_rows.end(), qint64(0),
                           [](qint64 sum, const StockRow &row) { return sum + row.quantity; });
}

QString StockDocument::quantityRefusal(const GoodsItem &item, qint64 thousandths, bool mayBeNegative)
{
    if (thousandths == 0)
        return tr("Кількість не може бути нулем. Рядок прибирає Delete.");
    if (thousandths < 0 && !mayBeNegative)
        return tr("Кількість повинна бути більша за нуль.");
    if (qAbs(thousandths) > maximum)
        return tr("Кількість завелика: більше ніж %1 не вміщується.").arg(quantityShown(maximum));
    if (item.isPiece() && thousandths % one != 0)
        return tr("Кількість штучного товару — ціле число.");
    return QString();
}

qint64 StockMove::change(StockPlace where, qint64 thousandths) const
{
    if (type == ChekType::GoodsReceipt)
        return where == place ? thousandths : 0;
    if (type == ChekType::GoodsMovement)
        return where == place ? thousandths : -thousandths;
    return where == place ? -thousandths : 0;
}
