#include "stockmodel.h"

#include <QColor>

namespace {
/// Whole pieces without decimals, kilograms with three; nothing while it is not told.
QString quantityOf(const StockRow &row)
{
    if (row.quantity == 0)
        return QString();
    return row.isPiece() && row.quantity % 1000 == 0 ? QString::number(row.quantity / 1000)
                                                     : quantityText(row.quantity);
}

/// A column: how it is headed, and how many digits it has room for.
struct Field
{
    StockModel::StockColumn column;
    int digits;
    const char *caption;
    bool isText = false;
};

constexpr Field fields[] = {
    {StockModel::Id, 6, QT_TRANSLATE_NOOP("StockModel", "код")},
    {StockModel::Barcode, 14, QT_TRANSLATE_NOOP("StockModel", "штрихкод"), true},
    {StockModel::Name, 24, QT_TRANSLATE_NOOP("StockModel", "назва"), true},
    {StockModel::Showroom, 9, QT_TRANSLATE_NOOP("StockModel", "зал")},
    {StockModel::Syllable, 9, QT_TRANSLATE_NOOP("StockModel", "склад")},
    {StockModel::Quantity, 10, QT_TRANSLATE_NOOP("StockModel", "кількість")},
    {StockModel::Remark, 22, QT_TRANSLATE_NOOP("StockModel", "зауваження"), true},
};

static_assert(standInOrder(fields, StockModel::Count));

/// Readable on it in every theme.
const QColor remarkColour(255, 205, 205);
} // namespace

void StockModel::setMove(const StockMove &move)
{
    m_move = move;
    changed();
}

int StockModel::add(const GoodsItem &item)
{
    const bool isNew = m_document.rowOf(item) < 0;
    if (isNew)
        beginInsertRows(QModelIndex(), rowCount(), rowCount());
    const int row = m_document.add(item);
    if (isNew)
        endInsertRows();
    changed();
    return row;
}

void StockModel::add(const QVector<StockRow> &rows)
{
    beginResetModel();
    m_document.add(rows);
    endResetModel();
    changed();
}

void StockModel::remove(int row)
{
    beginRemoveRows(QModelIndex(), row, row);
    m_document.remove(row);
    endRemoveRows();
    changed();
}

void StockModel::setQuantity(int row, qint64 thousandths)
{
    m_document.setQuantity(row, thousandths);
    changed();
}

void StockModel::clear()
{
    beginResetModel();
    m_document.clear();
    endResetModel();
    changed();
}

void StockModel::takeCounts(const StockLacks &lacks)
{
    for (const StockLack &lack : lacks)
        m_document.setCount(lack.idGoods, lack.place, lack.count);
    changed();
}

void StockModel::follow(const StockOrder &written)
{
    const QVector<StockQuantity> all = written.document.quantities();
    for (const StockQuantity &goods : all)
        m_document.follow(goods, written.move);
    changed();
}

/// The remark of a row depends on the other rows of its goods item.
void StockModel::changed()
{
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, Count - 1));
    emit documentChanged();
}

QString StockModel::remark(int row) const
{
    const StockRow &goods = m_document.rows().at(row);
    if (goods.quantity == 0)
        return tr("введіть кількість");
    for (const StockPlace place : {StockPlace::Showroom, StockPlace::Syllable}) {
        const qint64 change = m_move.change(place, m_document.quantityOf(row));
        if (change < 0 && goods.count(place) + change < 0)
            return tr("%1 лише %2").arg(inPlace(place), quantityShown(goods.count(place)));
    }
    return goods.quantity < 0 ? tr("повернення або списання") : QString();
}

QString StockModel::text(const StockRow &row, int column) const
{
    switch (column) {
    case Id:
        return QString::number(row.idGoods);
    case Barcode:
        return row.barcode;
    case Name:
        return row.name;
    case Showroom:
        return quantityShown(row.showroom);
    case Syllable:
        return quantityShown(row.syllable);
    case Quantity:
        return quantityOf(row);
    default:
        return QString();
    }
}

int StockModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_document.rows().size();
}

int StockModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count;
}

QVariant StockModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const StockRow &row = m_document.rows().at(index.row());
    const bool isRemark = index.column() == Remark;
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return isRemark ? remark(index.row()) : text(row, index.column());
    if (role == Qt::ToolTipRole && (index.column() == Name || isRemark))
        return isRemark ? remark(index.row()) : row.name;
    if (role == Qt::TextAlignmentRole && !fields[index.column()].isText)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if ((role == Qt::BackgroundRole || role == Qt::ForegroundRole) &&
        (isRemark || index.column() == Quantity) && !remark(index.row()).isEmpty())
        return role == Qt::BackgroundRole ? remarkColour : QColor(Qt::black);
    return QVariant();
}

bool StockModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || index.column() != Quantity)
        return false;
    if (value.toString() != quantityOf(m_document.rows().at(index.row())))
        emit quantityTyped(index.row(), value.toString());
    return true;
}

Qt::ItemFlags StockModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Quantity ? flags | Qt::ItemIsEditable : flags;
}

QVariant StockModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return tr(fields[section].caption);
}

QVector<Column> StockModel::columns()
{
    QVector<Column> columns;
    for (const Field &field : fields)
        columns.append({tr(field.caption), field.digits, &asText, false});
    return columns;
}
