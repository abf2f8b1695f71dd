#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>
#include <string_view>

class QAbstractItemModel;
class QRowModel;
class QTableView;
struct CellFormat;

/// What a list shows at a moment, as a value that another thread may read. Taking it is cheap: it shares the
/// texts with the list.
class ListSnapshot
{
public:
    enum Order {
        AsStored, ///< columns in the order of the model
        AsShown   ///< as the user has moved them
    };

    ListSnapshot() = default;
    /// Columns that the view hides are left out; the view may be null.
    ListSnapshot(const QAbstractItemModel &model, const QTableView *view, Order order);

    int rowCount() const;
    int columnCount() const { return m_columns.size(); }
    QString caption(int column) const;
    const CellFormat &format(int column) const;
    /// In digits; 0 without a view.
    double width(int column) const { return m_widths.value(column); }
    /// The stored text; valid as long as the snapshot.
    std::string_view stored(int row, int column) const;
    /// The text as the list shows it.
    QString shown(int row, int column) const;
    /// Colours and alignment.
    QVariant data(int row, int column, int role) const;

private:
    std::shared_ptr<const QRowModel> m_rows;
    QVector<int> m_columns;
    QVector<double> m_widths;
};

/// Told now and then how far some work on a list is; false when it is to stop.
using ListProgress = std::function<bool(qint64 done, qint64 of)>;
