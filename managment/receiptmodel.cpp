#include "receiptmodel.h"

#include "money.h"

namespace {
/// Whole pieces without decimals, kilograms with three.
QString quantityOf(const ReceiptRow &row)
{
    return row.isPiece() && row.quantity % 1000 == 0 ? QString::number(row.quantity / 1000)
                                                     : quantityText(row.quantity);
}

template<auto member>
QString number(const ReceiptRow &row)
{
    return QString::number(row.*member);
}

template<auto member>
QString words(const ReceiptRow &row)
{
    return row.*member;
}

template<auto member>
QString stock(const ReceiptRow &row)
{
    return quantityShown(row.*member);
}

QString promotion(const ReceiptRow &row)
{
    return promotionCaption(row);
}

QString price(const ReceiptRow &row)
{
    return moneyShown(row.price);
}

QString sum(const ReceiptRow &row)
{
    return moneyShown(row.sum());
}

QString discount(const ReceiptRow &row)
{
    return moneyShown(row.discount);
}

/// A column: how it is headed, how many digits it has room for (0: never shown), what it shows of a row.
struct Field
{
    ReceiptModel::ReceiptColumn column;
    int digits;
    const char *caption;
    QString (*text)(const ReceiptRow &row);
    bool isText = false;
};

constexpr Field fields[] = {
    {ReceiptModel::Id, 5, QT_TRANSLATE_NOOP("ReceiptModel", " код "), &number<&ReceiptRow::idGoods>},
    {ReceiptModel::Barcode, 13, QT_TRANSLATE_NOOP("ReceiptModel", "   штрихкод   "),
     &words<&ReceiptRow::barcode>, true},
    {ReceiptModel::Name, 18, QT_TRANSLATE_NOOP("ReceiptModel", "        назва        "),
     &words<&ReceiptRow::name>, true},
    {ReceiptModel::Showroom, 7, QT_TRANSLATE_NOOP("ReceiptModel", "зал"), &stock<&ReceiptRow::showroom>},
    {ReceiptModel::Syllable, 7, QT_TRANSLATE_NOOP("ReceiptModel", "склад"), &stock<&ReceiptRow::syllable>},
    {ReceiptModel::Rules, 0, "rules", &number<&ReceiptRow::rules>},
    {ReceiptModel::Type, 0, "type", &number<&ReceiptRow::type>},
    {ReceiptModel::IsDisk, 0, "isDisk", &number<&ReceiptRow::isDisk>},
    {ReceiptModel::Tax, 0, "tax", &number<&ReceiptRow::tax>},
    {ReceiptModel::Quantity, 8, QT_TRANSLATE_NOOP("ReceiptModel", "кількість"), &quantityOf},
    {ReceiptModel::ActType, 0, "act_type", &number<&ReceiptRow::actType>},
    {ReceiptModel::ActVal, 0, "act_val", &number<&ReceiptRow::actVal>},
    {ReceiptModel::ActVal1, 0, "act_val2", &number<&ReceiptRow::actVal1>},
    {ReceiptModel::ActVal2, 0, "act_val3", &number<&ReceiptRow::actVal2>},
    {ReceiptModel::ActName, 9, QT_TRANSLATE_NOOP("ReceiptModel", "акція"), &promotion, true},
    {ReceiptModel::Price, 8, QT_TRANSLATE_NOOP("ReceiptModel", "  ціна  "), &price},
    {ReceiptModel::Sum, 9, QT_TRANSLATE_NOOP("ReceiptModel", "  вартість  "), &sum},
    {ReceiptModel::Discount, 7, QT_TRANSLATE_NOOP("ReceiptModel", "Знижка"), &discount},
};

static_assert(standInOrder(fields, ReceiptModel::Count));
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
        return fields[index.column()].text(row);
    if (role == Qt::ToolTipRole && index.column() == Name)
        return row.name;
    if (role == Qt::TextAlignmentRole && !fields[index.column()].isText)
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
    return tr(fields[section].caption);
}

QVector<Column> ReceiptModel::columns()
{
    QVector<Column> columns;
    for (const Field &field : fields)
        columns.append({tr(field.caption), field.digits, &asText, field.digits == 0});
    return columns;
}
