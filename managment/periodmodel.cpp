#include "periodmodel.h"

#include "goodsitem.h"

PeriodModel::PeriodModel(QObject *parent)
    : CountModel({tr("«%1»: за програмою %2, є %3"), QString(), PeriodCount - Count}, parent)
{
}

QVector<Column> PeriodModel::columns() const
{
    return {{tr("Код"), 5},        {tr("Штрихкод"), 13, &asText, true},
            {tr("Назва"), 18},     {tr("За програмою"), 9},
            {tr("Пораховано"), 9}, {tr("Різниця"), 8},
            {tr("Продано"), 8},    {tr("На складі"), 8}};
}

void PeriodModel::setGoods(const QVector<PeriodGoods> &goods)
{
    m_goods = goods;
    QVector<InvoiceLine> lines;
    for (const PeriodGoods &item : goods) {
        lines.append({item.goods, item.name, item.type == GoodsItem::pieceGoods, item.showroom});
        lines.last().barcode = item.barcode;
    }
    setLines(lines);
}

void PeriodModel::takeChanged(const QHash<DbId, qint64> &changed)
{
    for (int row = 0; row < m_goods.size(); ++row) {
        const auto now = changed.constFind(m_goods.at(row).goods);
        if (now == changed.constEnd())
            continue;
        m_goods[row].showroom = *now;
        setExpected(row, *now);
    }
}

QString PeriodModel::furtherText(int row, int column) const
{
    const PeriodGoods &item = m_goods.at(row);
    return quantityOf(lines().at(row), column == Sold ? item.sold : item.syllable);
}
