#pragma once

#include "goodsrecord.h"

#include <QTableWidget>

class GoodsPriceDelegate;

/// The table of an item's prices beside its base price, edited in place.
class GoodsPriceTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit GoodsPriceTable(QWidget *parent = nullptr);

    /// What may be chosen; no shop at all is always a choice.
    void setLists(const QVector<NamedId> &groups, const QVector<NamedId> &shops);
    void append(const GoodsPrice &price);
    /// Shows the price in the row of its place, which is added when there is none.
    void put(const GoodsPrice &price);
    /// Removes the row of that place, as PriceKey::text() tells it.
    void remove(const QString &place);
    /// These rows are stored: that is where what stands here comes from now.
    void takeOver(const QVector<GoodsPrice> &written);
    /// The same with group and shop by their names; an empty shop is none.
    void append(qint64 price, qint64 priority, const QString &group, const QString &shop);
    QVector<GoodsPrice> prices() const;
    /// The first row that cannot be saved, in the user's words; empty when all can.
    QString refusal() const;

private:
    QString cell(int row, int column) const;
    NamedId entry(int row, int column) const;
    std::optional<PriceKey> &origin(int row);
    int rowOf(const QString &place) const;
    QString twice(const QVector<GoodsPrice> &prices, int row) const;

    GoodsPriceDelegate *m_delegate;
    /// The places that the rows came from, by a number that moves with the row.
    QVector<std::optional<PriceKey>> m_origins;
};
