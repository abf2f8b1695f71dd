#pragma once

#include "columns.h"
#include "roworder.h"
#include "rowstore.h"

#include <QColor>
#include <QHash>
#include <QMap>
#include <QStandardItemModel>

class RowSorting;

/// The model of every list: rows as the server sent them, formatted when they are shown, sorted by value.
/// The columns and their captions are those of the base class; there are no items, so all reading and
/// writing goes through index(), data(), setData(), insertRows() and removeRows().
class QRowModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /// The text as it is stored, unformatted.
    static constexpr int StoredRole = Qt::UserRole + 100;
    /// True for money below zero.
    static constexpr int MinusRole = StoredRole + 1;

    explicit QRowModel(QObject *parent = nullptr);
    ~QRowModel() override;

    /// Captions and formats; removes what was there.
    void setColumns(const QVector<Column> &columns);
    const QVector<Column> &columns() const { return m_columns; }

    /// Replaces all rows, columns in the order of their query. Columns that the model does not have yet are
    /// added under the query's names. The rows stand in the query's order, or as they were sorted already.
    void replaceRows(RowStore &&rows);
    void replaceRows(RowStore &&rows, RowOrder &&sorted, const RowSort &by);
    /// Writes a record of a store into a row: value of column c into cell (row, c), from column firstColumn
    /// to the last.
    void writeRecord(const RowStore &records, int record, int firstColumn, int row);

    /// The stored text of a cell, unformatted ("123450").
    QString stored(int row, int column) const;
    /// The same as bytes, valid until the model changes; row and column have to be there.
    std::string_view storedBytes(int row, int column) const { return cell(row, column); }
    /// The list as it is now, for another thread to read; the texts are shared.
    std::shared_ptr<const QRowModel> frozen() const;
    /// The same as a whole number: kopecks, thousandths, an id; 0 for what is none.
    qint64 number(int row, int column) const;
    /// How many different numbers the rows that came have in a column.
    int countNumbers(int column) const;
    /// How the texts of a column are formatted.
    const CellFormat &format(int column) const;
    /// The background of a whole row, with a text colour that is readable on it; an invalid colour ends it.
    void setRowColour(int row, const QColor &background);

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Display, edit and stored role replace the stored text as it is given; every other role is kept beside
    /// it and stays with its row.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QMap<int, QVariant> itemData(const QModelIndex &index) const override;
    bool setItemData(const QModelIndex &index, const QMap<int, QVariant> &roles) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant &value,
                       int role = Qt::EditRole) override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Between the columns only while there are no rows; behind the last one always.
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    /// Only while there are no rows.
    bool removeColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    /// -1 is the order of the query. Many rows are sorted in another thread, the newest wish counts; until
    /// sortingChanged() they stand as before.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    bool isSorting() const;
    /// The rows stay as they stand.
    void stopSorting();
    /// How the rows stand now.
    const RowSort &sortedBy() const { return m_sortedBy; }
    RowSort wayToSort(int column, Qt::SortOrder order) const
    {
        return {column, order, column >= 0 && format(column).isNumber};
    }

    // There are no items; the base class would look into an empty tree.
    QStandardItem *item(int row, int column = 0) const = delete;
    void setItem(int row, int column, QStandardItem *item) = delete;
    void appendRow(const QList<QStandardItem *> &items) = delete;
    QList<QStandardItem *> takeRow(int row) = delete;
    QList<QStandardItem *> findItems(const QString &text) const = delete;
    void setRowCount(int rows) = delete;

signals:
    /// Right before the rows get another order.
    void aboutToSort();
    /// isSorting() is another now.
    void sortingChanged();

private:
    /// What few rows have beside their texts.
    struct Extras
    {
        QColor background;
        QColor text;
        /// By column and role.
        QMap<QPair<int, int>, QVariant> values;
    };

    /// The number of a row in the store: it stays the same when rows are sorted, inserted or removed.
    quint32 idAt(int row) const
    {
        return m_order.empty() ? static_cast<quint32>(row) : m_order[static_cast<size_t>(row)];
    }
    std::string_view cell(int row, int column) const;
    QVariant extraData(quint32 id, int column, int role) const;
    void setExtra(quint32 id, int column, int role, const QVariant &value);
    void addMissingColumns(const QStringList &names);
    void dropRows();
    void writeOutOrder();
    void sortAway(const RowSort &by);
    void setOrder(RowOrder &&sorted, const RowSort &by);
    RowOrder withChanges(RowOrder &&sorted) const;
    void movePersistentIndexes(const QModelIndexList &before, const std::vector<quint32> &ids);

    QVector<Column> m_columns;
    RowStore m_rows;
    /// The rows' numbers in the order they stand; empty while they stand as they were filled.
    RowOrder m_order;
    RowSort m_sortedBy;
    RowSorting *m_sorting = nullptr;
    /// Rows came or went since the sorting has begun.
    bool m_isChanged = false;
    QHash<quint32, Extras> m_extras;
};
