#include "qrowmodel.h"

#include "colours.h"
#include "rowsorting.h"

#include <QMimeData>
#include <QSqlRecord>
#include <algorithm>
#include <charconv>
#include <numeric>
#include <vector>

namespace {
qint64 numberOf(std::string_view bytes)
{
    qint64 value = 0;
    const char *end = bytes.data() + bytes.size();
    const auto [stop, error] = std::from_chars(bytes.data(), end, value);
    return error == std::errc() && stop == end ? value : 0;
}

bool isMinus(const CellValue &value)
{
    return value.kind == CellValue::Money && value.number < 0;
}

bool isTextRole(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole || role == QRowModel::StoredRole;
}
} // namespace

QRowModel::QRowModel(QObject *parent) : QStandardItemModel(parent)
{
    // Also when the base class resets itself in clear().
    connect(this, &QAbstractItemModel::modelAboutToBeReset, this, &QRowModel::dropRows);
}

QRowModel::~QRowModel() = default;

void QRowModel::setColumns(const QVector<Column> &columns)
{
    clear();
    QStringList captions;
    for (const Column &column : columns)
        captions.append(column.caption);
    setHorizontalHeaderLabels(captions);
    m_columns = columns;
}

void QRowModel::addMissingColumns(const QStringList &names)
{
    const int there = columnCount();
    if (names.size() <= there)
        return;
    insertColumns(there, names.size() - there);
    for (int i = there; i < names.size(); ++i)
        setHeaderData(i, Qt::Horizontal, names.at(i));
}

void QRowModel::replaceRows(RowStore &&rows)
{
    replaceRows(std::move(rows), {}, {});
}

void QRowModel::replaceRows(RowStore &&rows, RowOrder &&sorted, const RowSort &by)
{
    addMissingColumns(rows.columnNames());
    beginResetModel();
    m_rows = std::move(rows);
    m_order = std::move(sorted);
    m_sortedBy = by;
    endResetModel();
}

void QRowModel::dropRows()
{
    stopSorting();
    m_rows = RowStore();
    m_order = RowOrder();
    m_sortedBy = RowSort();
    m_extras.clear();
}

void QRowModel::writeRecord(const RowStore &records, int record, int firstColumn, int row)
{
    const int columns = std::min(records.columnCount(), columnCount());
    if (record >= records.rowCount() || columns <= firstColumn || row < 0 || row >= rowCount())
        return;
    std::vector<std::string> texts;
    for (int column = firstColumn; column < columns; ++column)
        texts.emplace_back(records.cell(record, column));
    m_rows.write(static_cast<int>(idAt(row)), firstColumn, texts);
    emit dataChanged(index(row, firstColumn), index(row, firstColumn + static_cast<int>(texts.size()) - 1));
}

std::string_view QRowModel::cell(int row, int column) const
{
    return m_rows.cell(static_cast<int>(idAt(row)), column);
}

QString QRowModel::stored(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0)
        return QString();
    return asText.plain(cell(row, column));
}

qint64 QRowModel::number(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0)
        return 0;
    return numberOf(cell(row, column));
}

int QRowModel::countNumbers(int column) const
{
    std::vector<qint64> numbers;
    numbers.reserve(static_cast<size_t>(m_rows.rowCount()));
    for (int id = 0; id < m_rows.rowCount(); ++id)
        numbers.push_back(numberOf(m_rows.cell(id, column)));
    if (!std::is_sorted(numbers.begin(), numbers.end()))
        std::sort(numbers.begin(), numbers.end());
    return static_cast<int>(std::unique(numbers.begin(), numbers.end()) - numbers.begin());
}

const CellFormat &QRowModel::format(int column) const
{
    return column < m_columns.size() ? *m_columns.at(column).format : asText;
}

QModelIndex QRowModel::index(int row, int column, const QModelIndex &parent) const
{
    const bool inside = row >= 0 && column >= 0 && row < rowCount(parent) && column < columnCount(parent);
    return inside ? createIndex(row, column) : QModelIndex();
}

QModelIndex QRowModel::parent(const QModelIndex & /*child*/) const
{
    return QModelIndex();
}

int QRowModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_order.empty() ? m_rows.rowCount() : static_cast<int>(m_order.size());
}

int QRowModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : QStandardItemModel::columnCount();
}

bool QRowModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0 && columnCount(parent) > 0;
}

Qt::ItemFlags QRowModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
                          Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if (data(index, Qt::CheckStateRole).isValid())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant QRowModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return format(column).shown(cell(index.row(), column));
    case Qt::EditRole:
        return format(column).plain(cell(index.row(), column));
    case StoredRole:
        return stored(index.row(), column);
    case MinusRole:
        return isMinus(format(column).valueOf(cell(index.row(), column)));
    default:
        break;
    }
    QVariant extra = m_extras.isEmpty() ? QVariant() : extraData(idAt(index.row()), column, role);
    if (role == Qt::TextAlignmentRole && !extra.isValid() && format(column).isNumber)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return extra;
}

QVariant QRowModel::extraData(quint32 id, int column, int role) const
{
    const auto extras = m_extras.constFind(id);
    if (extras == m_extras.constEnd())
        return QVariant();
    QVariant value = extras->values.value({column, role});
    if (value.isValid() || !extras->background.isValid())
        return value;
    if (role == Qt::BackgroundRole)
        return QBrush(extras->background);
    return role == Qt::ForegroundRole ? QBrush(extras->text) : QVariant();
}

void QRowModel::setExtra(quint32 id, int column, int role, const QVariant &value)
{
    if (value.isValid())
        m_extras[id].values.insert({column, role}, value);
    else if (const auto extras = m_extras.find(id); extras != m_extras.end())
        extras->values.remove({column, role});
}

void QRowModel::setRowColour(int row, const QColor &background)
{
    if (row < 0 || row >= rowCount() || columnCount() == 0)
        return;
    if (background.isValid()) {
        Extras &extras = m_extras[idAt(row)];
        extras.background = background;
        extras.text = readableOn(background);
    } else if (const auto extras = m_extras.find(idAt(row)); extras != m_extras.end()) {
        extras->background = QColor();
    }
    emit dataChanged(index(row, 0), index(row, columnCount() - 1), {Qt::BackgroundRole, Qt::ForegroundRole});
}

bool QRowModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid())
        return false;
    const quint32 id = idAt(index.row());
    if (isTextRole(role)) {
        m_rows.write(static_cast<int>(id), index.column(), {value.toString().toStdString()});
        emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole, StoredRole});
    } else {
        setExtra(id, index.column(), role, value);
        emit dataChanged(index, index, {role});
    }
    return true;
}

QMap<int, QVariant> QRowModel::itemData(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    QMap<int, QVariant> roles{{StoredRole, data(index, StoredRole)}};
    const auto extras = m_extras.constFind(idAt(index.row()));
    if (extras == m_extras.constEnd())
        return roles;
    for (auto value = extras->values.begin(); value != extras->values.end(); ++value) {
        if (value.key().first == index.column())
            roles.insert(value.key().second, value.value());
    }
    return roles;
}

bool QRowModel::setItemData(const QModelIndex &index, const QMap<int, QVariant> &roles)
{
    return QAbstractItemModel::setItemData(index, roles); // NOLINT(bugprone-parent-virtual-call)
}

QVariant QRowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal)
        return QStandardItemModel::headerData(section, orientation, role);
    return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
}

bool QRowModel::setHeaderData(int section, Qt::Orientation orientation, const QVariant &value, int role)
{
    return orientation == Qt::Horizontal &&
           QStandardItemModel::setHeaderData(section, orientation, value, role);
}

QMimeData *QRowModel::mimeData(const QModelIndexList &indexes) const
{
    return QAbstractItemModel::mimeData(indexes); // NOLINT(bugprone-parent-virtual-call)
}

bool QRowModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row > rowCount())
        return false;
    beginInsertRows(parent, row, row + count - 1);
    m_isChanged = true;
    if (row < rowCount())
        writeOutOrder();
    const auto firstId = static_cast<quint32>(m_rows.rowCount());
    m_rows.appendEmptyRows(count);
    if (!m_order.empty()) {
        const auto first = m_order.insert(m_order.begin() + row, static_cast<size_t>(count), 0U);
        std::iota(first, first + count, firstId);
    }
    endInsertRows();
    return true;
}

bool QRowModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row > rowCount() - count)
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_isChanged = true;
    if (count == rowCount()) {
        dropRows();
    } else {
        writeOutOrder();
        const auto first = m_order.begin() + row;
        for (auto id = first; id != first + count && !m_extras.isEmpty(); ++id)
            m_extras.remove(*id);
        m_order.erase(first, first + count);
    }
    endRemoveRows();
    return true;
}

/// Makes the order explicit, so that places and numbers of rows may differ.
void QRowModel::writeOutOrder()
{
    if (m_order.empty())
        m_order = orderOfRows(m_rows.rowCount());
}

bool QRowModel::insertColumns(int column, int count, const QModelIndex &parent)
{
    const int there = columnCount();
    if (parent.isValid() || (rowCount() > 0 && column < there) ||
        !QStandardItemModel::insertColumns(column, count))
        return false;
    if (there == 0)
        m_columns.clear();
    else if (column < m_columns.size())
        m_columns.insert(column, count, Column());
    return true;
}

bool QRowModel::removeColumns(int column, int count, const QModelIndex &parent)
{
    if (parent.isValid() || rowCount() > 0 || !QStandardItemModel::removeColumns(column, count))
        return false;
    if (column < m_columns.size())
        m_columns.remove(column, std::min(count, m_columns.size() - column));
    return true;
}

void QRowModel::sort(int column, Qt::SortOrder order)
{
    stopSorting();
    if (column < -1 || column >= columnCount() || rowCount() == 0)
        return;
    const RowSort by = wayToSort(column, order);
    if (column >= 0 && rowCount() > RowSorting::mostAtOnce)
        return sortAway(by);
    RowOrder sorted;
    if (column < 0) {
        // Numbers that are there, from the first one on.
        std::vector<bool> isThere(static_cast<size_t>(m_rows.rowCount()));
        for (int row = 0; row < rowCount(); ++row)
            isThere[idAt(row)] = true;
        sorted.reserve(static_cast<size_t>(rowCount()));
        for (size_t id = 0; id < isThere.size(); ++id) {
            if (isThere[id])
                sorted.push_back(static_cast<quint32>(id));
        }
    } else {
        writeOutOrder();
        sorted = m_order;
        sortRows(&sorted, m_rows, by);
    }
    setOrder(std::move(sorted), by);
}

void QRowModel::sortAway(const RowSort &by)
{
    if (m_sorting == nullptr)
        m_sorting = new RowSorting(this);
    m_isChanged = false;
    m_sorting->start(std::make_shared<RowStore>(m_rows), RowOrder(m_order), by,
                     [this, by](RowOrder &&sorted) {
                         setOrder(m_isChanged ? withChanges(std::move(sorted)) : std::move(sorted), by);
                         emit sortingChanged();
                     });
    emit sortingChanged();
}

bool QRowModel::isSorting() const
{
    return m_sorting != nullptr && m_sorting->isRunning();
}

void QRowModel::stopSorting()
{
    if (!isSorting())
        return;
    m_sorting->stop();
    emit sortingChanged();
}

/// Without the rows that went meanwhile, and behind the others those that came, as they stand.
RowOrder QRowModel::withChanges(RowOrder &&sorted) const
{
    std::vector<bool> isLeft(static_cast<size_t>(m_rows.rowCount()));
    for (int row = 0; row < rowCount(); ++row)
        isLeft[idAt(row)] = true;
    RowOrder order = std::move(sorted);
    order.erase(std::remove_if(order.begin(), order.end(), [&](quint32 id) { return !isLeft[id]; }),
                order.end());
    for (const quint32 id : order)
        isLeft[id] = false;
    for (int row = 0; row < rowCount(); ++row) {
        if (isLeft[idAt(row)])
            order.push_back(idAt(row));
    }
    return order;
}

void QRowModel::setOrder(RowOrder &&sorted, const RowSort &by)
{
    emit aboutToSort();
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<quint32> ids;
    ids.reserve(static_cast<size_t>(before.size()));
    for (const QModelIndex &index : before)
        ids.push_back(idAt(index.row()));
    m_order = std::move(sorted);
    m_sortedBy = by;
    movePersistentIndexes(before, ids);
    emit layoutChanged({}, VerticalSortHint);
}

/// ids: the rows that the indexes stood on.
void QRowModel::movePersistentIndexes(const QModelIndexList &before, const std::vector<quint32> &ids)
{
    if (before.isEmpty())
        return;
    std::vector<bool> isWanted(static_cast<size_t>(m_rows.rowCount()));
    for (const quint32 id : ids)
        isWanted[id] = true;
    QHash<quint32, int> places;
    for (size_t row = 0; row < m_order.size(); ++row) {
        if (isWanted[m_order[row]])
            places.insert(m_order[row], static_cast<int>(row));
    }
    QModelIndexList after;
    after.reserve(before.size());
    for (int i = 0; i < before.size(); ++i)
        after.append(createIndex(places.value(ids[static_cast<size_t>(i)]), before.at(i).column()));
    changePersistentIndexList(before, after);
}

std::shared_ptr<const QRowModel> QRowModel::frozen() const
{
    auto copy = std::make_shared<QRowModel>();
    copy->setColumns(m_columns);
    QStringList captions;
    for (int column = 0; column < columnCount(); ++column)
        captions.append(headerData(column, Qt::Horizontal).toString());
    copy->setHorizontalHeaderLabels(captions);
    copy->m_rows = RowStore(m_rows);
    copy->m_order = m_order;
    copy->m_extras = m_extras;
    // It belongs to whoever reads it.
    copy->moveToThread(nullptr);
    return copy;
}
