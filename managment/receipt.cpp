#include "receipt.h"

#include <algorithm>
#include <numeric>

qint64 ReceiptRow::sum() const
{
    return sumOf(price, quantity);
}

qint64 ReceiptRow::actDiscount() const
{
    return promotionDiscount(actType, actVal, sum());
}

QVector<qint64> inProportion(qint64 sum, const QVector<qint64> &weights)
{
    const qint64 all = std::accumulate(weights.begin(), weights.end(), qint64(0));
    QVector<qint64> parts(weights.size(), 0);
    qint64 weighed = 0;
    qint64 given = 0;
    for (int i = 0; i < weights.size() && all > 0; ++i) {
        weighed += weights.at(i);
        parts[i] = sum * weighed / all - given;
        given += parts.at(i);
    }
    return parts;
}

void Receipt::add(const ReceiptRow &row)
{
    m_rows.append(row);
    calcDiscRow();
}

void Receipt::remove(int row)
{
    if (m_extra < 0)
        m_extra += m_rows.at(row).actDiscount() - m_rows.at(row).discount;
    m_rows.remove(row);
    if (m_rows.isEmpty())
        m_extra = 0;
    calcDiscRow();
}

void Receipt::takeOver(int row, const ReceiptRow &now)
{
    ReceiptRow &old = m_rows[row];
    const ReceiptRow before = old;
    old = now;
    old.quantity = before.quantity;
    old.barcode = before.barcode;
    calcDiscRow();
}

void Receipt::setQuantity(int row, qint64 thousandths)
{
    m_rows[row].quantity = qMin(thousandths, maximum);
    calcDiscRow();
}

void Receipt::clear()
{
    m_rows.clear();
    m_extra = 0;
    m_discount = 0;
}

void Receipt::setDiscount(qint64 kopecks)
{
    m_extra = qMin(kopecks, maximum) - actDiscounts();
    calcDiscRow();
}

qint64 Receipt::actDiscounts() const
{
    return std::accumulate(m_rows.begin(), m_rows.end(), qint64(0),
                           [](qint64 sum, const ReceiptRow &row) { return sum + row.actDiscount(); });
}

void Receipt::calcDiscRow()
{
    const qint64 ofActions = actDiscounts();
    const qint64 beyond = qMax<qint64>(m_extra, 0);
    m_discount = qMax<qint64>(ofActions + m_extra, 0);
    QVector<qint64> actions;
    QVector<qint64> room;
    for (const ReceiptRow &row : m_rows) {
        actions.append(row.actDiscount());
        room.append(row.isDisk != 0 ? row.sum() - row.actDiscount() : 0);
    }
    const qint64 allRoom = std::accumulate(room.begin(), room.end(), qint64(0));
    // Sums that cannot be stored are refused anyway.
    const bool isSound = total() <= maximum;
    const QVector<qint64> lowered = inProportion(isSound ? m_discount - beyond : 0, actions);
    const QVector<qint64> added = inProportion(isSound ? qMin(beyond, allRoom) : 0, room);
    for (int i = 0; i < m_rows.size(); ++i)
        m_rows[i].discount = lowered.at(i) + added.at(i);
}

qint64 Receipt::total() const
{
    return std::accumulate(m_rows.begin(), m_rows.end(), qint64(0),
                           [](qint64 sum, const ReceiptRow &row) { return sum + row.sum(); });
}

Receipt::Turnover Receipt::turnover() const
{
    Turnover turnover = {};
    for (const ReceiptRow &row : m_rows) {
        if (row.tax >= 1 && row.tax <= static_cast<int>(turnover.size()))
            turnover.at(static_cast<size_t>(row.tax - 1)) += row.sum();
    }
    return turnover;
}

QVector<Receipt::GoodsQuantity> Receipt::quantities() const
{
    QVector<GoodsQuantity> list;
    for (const ReceiptRow &row : m_rows) {
        const auto same = std::find_if(list.begin(), list.end(), [&](const GoodsQuantity &goods) {
            return goods.idGoods == row.idGoods;
        });
        if (same == list.end())
            list.append({row.idGoods, row.quantity});
        else
            same->quantity += row.quantity;
    }
    return list;
}

bool Receipt::exceedsStock(int row) const
{
    const ReceiptRow &asked = m_rows.at(row);
    const QVector<GoodsQuantity> list = quantities();
    return std::any_of(list.begin(), list.end(), [&](const GoodsQuantity &goods) {
        return goods.idGoods == asked.idGoods && goods.quantity > asked.showroom;
    });
}

QString Receipt::rowRefusal(const ReceiptRow &row)
{
    if (row.quantity <= 0)
        return tr("Кількість товару «%1» повинна бути більша за нуль.").arg(row.name);
    if (row.isPiece() && row.quantity % 1000 != 0)
        return tr("Товар «%1» продається цілими одиницями.").arg(row.name);
    if (!row.hasPrice)
        return tr("Товар «%1» не має ціни.").arg(row.name);
    if (row.price > maximum || row.sum() > maximum)
        return tr("Вартість товару «%1» завелика для одного чека.").arg(row.name);
    return QString();
}

QString Receipt::refusal() const
{
    if (m_rows.isEmpty())
        return tr("У чеку немає товарів.");
    for (const ReceiptRow &row : m_rows) {
        QString why = rowRefusal(row);
        if (!why.isEmpty())
            return why;
    }
    if (total() > maximum)
        return tr("Сума завелика для одного чека.");
    if (m_discount > total())
        return tr("Знижка більша за суму чека.");
    const qint64 spread =
        std::accumulate(m_rows.begin(), m_rows.end(), qint64(0),
                        [](qint64 sum, const ReceiptRow &row) { return sum + row.discount; });
    if (spread != m_discount)
        return tr("Знижка більша за вартість товарів, на які вона дозволена.");
    return QString();
}
