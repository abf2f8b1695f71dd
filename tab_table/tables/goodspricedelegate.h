#pragma once

#include <QRegularExpressionValidator>
#include <QStringList>
#include <QStyledItemDelegate>

/// Lets a price be typed with a comma or a point, and completes "12" to "12.00" when the field is left.
class PriceValidator : public QRegularExpressionValidator
{
    Q_OBJECT

public:
    explicit PriceValidator(QObject *parent);
    void fixup(QString &input) const override;
};

/// The inline editors of the table of prices: price, priority, shop group, shop.
class GoodsPriceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Column { Price, Priority, Group, Shop };

    using QStyledItemDelegate::QStyledItemDelegate;
    /// The first shop is the choice of none.
    void setLists(const QStringList &groups, const QStringList &shops);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    QStringList m_groups;
    QStringList m_shops;
};
