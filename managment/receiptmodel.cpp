#include "receiptmodel.h"

#include "money.h"

namespace {
/// Whole pieces without decimals, kilograms with three.
QString quantityOf(const ReceiptRow &row)
{
    return row.isPiece() && row.quantity % 1000 == 0 ? QString::number(row.quantity / 1000)
                                                     : quantityText(row.quantity);
}

QString cellText(const ReceiptRow &row, int column)
{
    const qint64 numbers[ReceiptModel::Count] = {
        row.idGoods, 0,       0, row.showroom, row.syllable, row.rules,   row.type,
        row.isDisk,  row.tax, 0, row.actType,  row.actVal,   row.actVal1, row.actVal2};
    switch (column) {
    case ReceiptModel::Barcode:
        return row.barcode;
    case ReceiptModel::Name:
        return row.name;
    case ReceiptModel::Showroom:
    case ReceiptModel::Syllable:
        return quantityShown(numbers[column]);
    case ReceiptModel::Quantity:
        return quantityOf(row);
    case ReceiptModel::ActName:
        return promotionCaption(row);
    case ReceiptModel::Price:
        return moneyShown(row.price);
    case ReceiptModel::Sum:
        return moneyShown(row.sum());
    case ReceiptModel::Discount:
        return moneyShown(row.discount);
    default:
        return QString::number(numbers[column]);
    }
}

bool isText(int column)
{
    return column == ReceiptModel::Barcode || column == ReceiptModel::Name || column == ReceiptModel::ActName;
}
} // namespace

void ReceiptModel::add(const ReceiptRow &row)
{
    beginInsertRows(QModelIndex(), rowCount(), rowCount());
    m_receipt.add(row);
    endInsertRows();
    changed();
}

void ReceiptModel::remove(int row)
{
    beginRemoveRows(QModelIndex(), row, row);
    m_receipt.remove(row);
    endRemoveRows();
    changed();
}

void ReceiptModel::setQuantity(int row, qint64 thousandths)
{
    m_receipt.setQuantity(row, thousandths);
    changed();
}

void ReceiptModel::setDiscount(qint64 kopecks)
{
    m_receipt.setDiscount(kopecks);
    changed();
}

void ReceiptModel::takeOver(const QVector<ReceiptRow> &rows)
{
    for (int i = 0; i < rows.size(); ++i)
        m_receipt.takeOver(i, rows.at(i));
    changed();
}

void ReceiptModel::clear()
{
    beginResetModel();
    m_receipt.clear();
    endResetModel();
    changed();
}

/// The discount of every row may follow that of the receipt.
void ReceiptModel::changed()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, Count - 1));
    emit receiptChanged();
}

int ReceiptModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_receipt.rows().size();
}

int ReceiptModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant ReceiptModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const ReceiptRow &row = m_receipt.rows().at(index.row());
    if (role == Qt::EditRole && index.column() == Quantity)
        return quantityOf(row);
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return cellText(row, index.column());
    if (role == Qt::ToolTipRole && index.column() == Name)
        return row.name;
    if (role == Qt::TextAlignmentRole && !isText(index.column()))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

bool ReceiptModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || index.column() != Quantity)
        return false;
    if (value.toString() != quantityOf(m_receipt.rows().at(index.row())))
        emit quantityTyped(index.row(), value.toString());
    return true;
}

Qt::ItemFlags ReceiptModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Quantity ? flags | Qt::ItemIsEditable : flags;
}

QVariant ReceiptModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    const QString captions[Count] = {tr(" код "),
                                     tr("   штрихкод   "),
                                     tr("        назва        "),
                                     tr("зал"),
                                     tr("склад"),
                                     QStringLiteral("rules"),
                                     QStringLiteral("type"),
                                     QStringLiteral("isDisk"),
                                     QStringLiteral("tax"),
                                     tr("кількість"),
                                     QStringLiteral("act_type"),
                                     QStringLiteral("act_val"),
                                     QStringLiteral("act_val2"),
                                     QStringLiteral("act_val3"),
                                     tr("акція"),
                                     tr("  ціна  "),
                                     tr("  вартість  "),
                                     tr("Знижка")};
    return captions[section];
}
