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
    setMinimumHeight(verticalHeader()->defaultSectionSize() * 5);
}

void GoodsPriceTable::setLists(const QStringList &groups, const QStringList &shops)
{
    m_delegate->setLists(groups, QStringList(tr("Магазин")) + shops);
}

void GoodsPriceTable::append(const GoodsPrice &price)
{
    const int row = rowCount();
    insertRow(row);
    const QStringList texts = {moneyText(price.price), QString::number(price.priority), price.group,
                               price.shop.isEmpty() ? tr("Магазин") : price.shop};
    for (int column = 0; column < texts.size(); ++column) {
        auto *cell = new QTableWidgetItem(texts.at(column));
        if (column < Columns::Group)
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(row, column, cell);
    }
}

QString GoodsPriceTable::cell(int row, int column) const
{
    const QTableWidgetItem *found = item(row, column);
    return found != nullptr ? found->text() : QString();
}

QVector<GoodsPrice> GoodsPriceTable::prices() const
{
    QVector<GoodsPrice> list;
    for (int row = 0; row < rowCount(); ++row) {
        GoodsPrice price;
        priceFromText(cell(row, Columns::Price), &price.price);
        price.priority = cell(row, Columns::Priority).toLongLong();
        price.group = cell(row, Columns::Group);
        const QString shop = cell(row, Columns::Shop);
        price.shop = shop == tr("Магазин") ? QString() : shop;
        list.append(price);
    }
    return list;
}

QString GoodsPriceTable::twice(const QVector<GoodsPrice> &prices, int row) const
{
    for (int other = 0; other < row; ++other) {
        if (prices.at(row).replaces(prices.at(other)))
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
        qint64 price = 0;
        if (const QString text = cell(row, Columns::Price); !priceFromText(text, &price))
            return tr("Ціни магазинів, рядок %1: \"%2\" не є ціною від 0 до %3.")
                .arg(QString::number(row + 1), text, moneyText(greatestPrice));
        if (QString why = twice(list, row); !why.isEmpty())
            return why;
    }
    return QString();
}
