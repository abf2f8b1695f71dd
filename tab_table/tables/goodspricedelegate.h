#pragma once

#include "combos.h"

#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>

class QLineEdit;

/// Tells prices from other texts while they are typed and completes "12" to "12.00" when the field is left.
/// It keeps nothing out: what is pasted, scanned or half deleted stays visible, coloured, and is refused in
/// words when it is saved.
class PriceValidator : public QRegularExpressionValidator
{
    Q_OBJECT

public:
    explicit PriceValidator(QObject *parent);
    State validate(QString &input, int &position) const override;
    void fixup(QString &input) const override;
};

/// Gives a field this validator and colours it while its text is no price.
void makePriceField(QLineEdit *field);

/// The inline editors of the table of prices: price, priority, shop group, shop. Cells of groups and shops
/// carry the id as IdRole.
class GoodsPriceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Column { Price, Priority, Group, Shop };
    static constexpr int IdRole = Qt::UserRole;

    using QStyledItemDelegate::QStyledItemDelegate;
    /// The first shop is the choice of none.
    void setLists(const QVector<NamedId> &groups, const QVector<NamedId> &shops);
    /// The entry of that name; without an id when there is none.
    NamedId group(const QString &name) const;
    NamedId shop(const QString &name) const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    QVector<NamedId> m_groups;
    QVector<NamedId> m_shops;
};
