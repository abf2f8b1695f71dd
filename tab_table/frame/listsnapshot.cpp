#include "listsnapshot.h"

#include "qrowmodel.h"
#include "signs.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>
#include <typeinfo>

namespace {
/// Of a model that shows something else than what is stored.
std::shared_ptr<const QRowModel> copied(const QAbstractItemModel &model)
{
    QRowModel copy;
    QStringList captions;
    for (int column = 0; column < model.columnCount(); ++column)
        captions.append(model.headerData(column, Qt::Horizontal).toString());
    copy.setHorizontalHeaderLabels(captions);
    copy.insertRows(0, model.rowCount());
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex from = model.index(row, column);
            const QModelIndex to = copy.index(row, column);
            const QVariant plain = from.data(Qt::EditRole);
            copy.setData(to, plain.isValid() ? plain : from.data());
            for (const int role :
                 {int(Qt::BackgroundRole), int(Qt::ForegroundRole), int(Qt::TextAlignmentRole), signRole}) {
                if (const QVariant value = from.data(role); value.isValid())
                    copy.setData(to, value, role);
            }
        }
    }
    return copy.frozen();
}
} // namespace

ListSnapshot::ListSnapshot(const QAbstractItemModel &model, const QTableView *view, Order order)
    : m_rows(typeid(model) == typeid(QRowModel) ? static_cast<const QRowModel &>(model).frozen()
                                                : copied(model))
{
    for (int column = 0; column < model.columnCount(); ++column) {
        if (view == nullptr || !view->isColumnHidden(column))
            m_columns.append(column);
    }
    if (view == nullptr)
        return;
    const QHeaderView *header = view->horizontalHeader();
    if (order == AsShown)
        std::sort(m_columns.begin(), m_columns.end(), [header](int one, int other) {
            return header->visualIndex(one) < header->visualIndex(other);
        });
    const double digit = view->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (const int column : qAsConst(m_columns))
        m_widths.append(view->columnWidth(column) / digit);
}

int ListSnapshot::rowCount() const
{
    return m_rows ? m_rows->rowCount() : 0;
}

QString ListSnapshot::caption(int column) const
{
    return m_rows->headerData(m_columns.at(column), Qt::Horizontal).toString();
}

const CellFormat &ListSnapshot::format(int column) const
{
    return m_rows->format(m_columns.at(column));
}

std::string_view ListSnapshot::stored(int row, int column) const
{
    return m_rows->storedBytes(row, m_columns.at(column));
}

QString ListSnapshot::shown(int row, int column) const
{
    return format(column).shown(stored(row, column));
}

QVariant ListSnapshot::data(int row, int column, int role) const
{
    return m_rows->index(row, m_columns.at(column)).data(role);
}
