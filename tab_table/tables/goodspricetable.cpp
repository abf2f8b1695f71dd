#include "goodspricetable.h"

#include "goodspricedelegate.h"
#include "goodsrules.h"
#include "money.h"

#include <QHeaderView>

using Columns = GoodsPriceDelegate;

GoodsPriceTable::GoodsPriceTable(QWidget *parent)
    : QTableWidget(0, Columns::Shop + 1, parent), m_delegate(new GoodsPriceDelegate(this))
{
    setItemDelegate(m_delegate);
    setHorizontalHeaderLabels({tr("Ціна"), tr("Пріоритет"), tr("Група магазинів"), tr("Магазин")});
    const int letter = fontMetrics().averageCharWidth();
    const int letters[] = {14, 14, 30};
    for (int column = 0; column < Columns::Shop; ++column)
        setColumnWidth(column, letter * letters[column]);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    setMinimumHeight(verticalHeader()->defaultSectionSize() * 4);
}

void GoodsPriceTable::setLists(const QVector<NamedId> &groups, const QVector<NamedId> &shops)
{
    m_delegate->setLists(groups, QVector<NamedId>{{tr("Магазин"), QStringLiteral("0")}} + shops);
}

void GoodsPriceTable::append(qint64 price, qint64 priority, const QString &group, const QString &shop)
{
    append({price, priority, m_delegate->group(group),
            shop.isEmpty() ? NamedId{QString(), QStringLiteral("0")} : m_delegate->shop(shop), std::nullopt});
}

void GoodsPriceTable::append(const GoodsPrice &price)
{
    const int row = rowCount();
    insertRow(row);
    const QStringList texts = {moneyText(price.price), QString::number(price.priority), price.group.name,
                               price.shop.name.isEmpty() ? tr("Магазин") : price.shop.name};
    for (int column = 0; column < texts.size(); ++column) {
        auto *made = new QTableWidgetItem(texts.at(column));
        if (column < Columns::Group)
            made->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(row, column, made);
    }
    item(row, Columns::Group)->setData(Columns::IdRole, price.group.id);
    item(row, Columns::Shop)->setData(Columns::IdRole, price.shop.id);
    item(row, Columns::Price)->setData(Columns::IdRole, m_origins.size());
    m_origins.append(price.origin);
}

int GoodsPriceTable::rowOf(const QString &place) const
{
    const QVector<GoodsPrice> list = prices();
    for (int row = 0; row < list.size(); ++row) {
        if (list.at(row).place().text() == place)
            return row;
    }
    return -1;
}

void GoodsPriceTable::put(const GoodsPrice &price)
{
    const int row = rowOf(price.place().text());
    if (row < 0)
        return append(price);
    item(row, Columns::Price)->setText(moneyText(price.price));
    origin(row) = price.origin;
}

void GoodsPriceTable::remove(const QString &place)
{
    removeRow(rowOf(place));
}

void GoodsPriceTable::takeOver(const QVector<GoodsPrice> &written)
{
    const QVector<GoodsPrice> list = prices();
    for (int row = 0; row < list.size(); ++row) {
        std::optional<PriceKey> now;
        for (const GoodsPrice &price : written) {
            const bool isSame =
                list.at(row).origin && price.origin
                    ? list.at(row).origin->text() == price.origin->text()
                    : !list.at(row).origin && list.at(row).place().text() == price.place().text();
            if (isSame)
                now = price.place();
        }
        origin(row) = now;
    }
}

std::optional<PriceKey> &GoodsPriceTable::origin(int row)
{
    return m_origins[item(row, Columns::Price)->data(Columns::IdRole).toInt()];
}

QString GoodsPriceTable::cell(int row, int column) const
{
    const QTableWidgetItem *found = item(row, column);
    return found != nullptr ? found->text() : QString();
}

NamedId GoodsPriceTable::entry(int row, int column) const
{
    const QTableWidgetItem *found = item(row, column);
    return found != nullptr ? NamedId{found->text(), found->data(Columns::IdRole).toString()} : NamedId();
}

QVector<GoodsPrice> GoodsPriceTable::prices() const
{
    QVector<GoodsPrice> list;
    for (int row = 0; row < rowCount(); ++row) {
        GoodsPrice price;
        priceFromText(cell(row, Columns::Price), &price.price);
        price.priority = cell(row, Columns::Priority).toLongLong();
        price.group = entry(row, Columns::Group);
        price.shop = entry(row, Columns::Shop);
        if (price.shop.id == QLatin1String("0"))
            price.shop.name.clear();
        price.origin = m_origins.at(item(row, Columns::Price)->data(Columns::IdRole).toInt());
        list.append(price);
    }
    return list;
}

QString GoodsPriceTable::twice(const QVector<GoodsPrice> &prices, int row) const
{
    for (int other = 0; other < row; ++other) {
        if (prices.at(row).place().text() == prices.at(other).place().text())
            return tr("Ціни магазинів, рядки %1 і %2: однакові пріоритет, група і магазин.")
                .arg(other + 1)
                .arg(row + 1);
    }
    return QString();
}

QString GoodsPriceTable::refusal() const
{
    const QVector<GoodsPrice> list = prices();
    for (int row = 0; row < list.size(); ++row) {
        if (const QString why = priceRefusal(cell(row, Columns::Price)); !why.isEmpty())
            return tr("Ціни магазинів, рядок %1: ").arg(row + 1) + why;
        if (QString why = twice(list, row); !why.isEmpty())
            return why;
    }
    return QString();
}
