#include "listselection.h"

#include "qntableview.h"
#include "qrowmodel.h"

#include <QItemSelectionModel>
#include <string>

namespace {
/// Some milliseconds.
const int rowsInSlice = 20000;

bool isOf(CellValue::Kind kind, const CellFormat &format)
{
    return format.valueOf("0").kind == kind;
}
} // namespace

ListSelection::ListSelection(QNTableView *view, const QRowModel *model, QObject *parent)
    : QObject(parent), m_view(view), m_model(model)
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ListSelection::addSlice);
    const QItemSelectionModel *selected = view->selectionModel();
    connect(selected, &QItemSelectionModel::selectionChanged, this, &ListSelection::begin);
    connect(selected, &QItemSelectionModel::currentColumnChanged, this, &ListSelection::begin);
    connect(model, &QAbstractItemModel::modelReset, this, &ListSelection::begin);
    connect(model, &QAbstractItemModel::layoutChanged, this, &ListSelection::begin);
    connect(model, &QAbstractItemModel::dataChanged, this, &ListSelection::begin);
    connect(model, &QAbstractItemModel::rowsInserted, this, &ListSelection::begin);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &ListSelection::begin);
}

void ListSelection::setCountsRecords(bool countsRecords)
{
    if (m_countsRecords == countsRecords)
        return;
    m_countsRecords = countsRecords;
    begin();
}

void ListSelection::setUsualColumn(int column)
{
    m_usualColumn = column;
    begin();
}

/// Whatever is being added up may stand elsewhere by now.
void ListSelection::begin()
{
    m_done = -1;
    m_next.start(0);
}

void ListSelection::addSlice()
{
    if (m_done < 0) {
        m_rows = m_view->model() == m_model ? m_view->selectedRows() : QVector<int>();
        m_column = summedColumn();
        m_records.clear();
        m_done = 0;
        m_count = m_countsRecords ? 0 : m_rows.size();
        m_sum = 0;
    }
    const int end = qMin(m_done + rowsInSlice, m_rows.size());
    for (; m_done < end; ++m_done) {
        const int row = m_rows.at(m_done);
        if (m_countsRecords && !m_records.insert(m_model->number(row, 0)).second)
            continue;
        m_count += m_countsRecords ? 1 : 0;
        m_sum +=
            m_column < 0 ? 0 : m_model->format(m_column).valueOf(m_model->storedBytes(row, m_column)).number;
    }
    if (m_done < m_rows.size())
        m_next.start(0);
    emit changed();
}

/// What adds up comes before prices and the like.
int ListSelection::summedColumn() const
{
    const int current = m_view->currentIndex().column();
    int found = -1;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const CellFormat &format = m_model->format(column);
        const bool isMoney = isOf(CellValue::Money, format) && !m_view->isColumnHidden(column);
        if (column == current && (isMoney || isOf(CellValue::Quantity, format)))
            return column;
        if (isMoney && (found < 0 || format.addsUp || !m_model->format(found).addsUp))
            found = column;
    }
    const bool isUsual = m_usualColumn >= 0 && !m_view->isColumnHidden(m_usualColumn);
    return isUsual ? m_usualColumn : found;
}

QString ListSelection::words() const
{
    if (m_rows.isEmpty())
        return {};
    const bool isCounted = m_done == m_rows.size();
    const QString unknown = QStringLiteral("…");
    QString selected =
        tr("Вибрано: %1").arg(isCounted || !m_countsRecords ? QString::number(m_count) : unknown);
    if (m_column < 0)
        return selected;
    const QString caption = m_model->headerData(m_column, Qt::Horizontal).toString().simplified();
    const QString sum = isCounted ? m_model->format(m_column).shown(std::to_string(m_sum)) : unknown;
    const QString what =
        caption.startsWith(tr("Сума"), Qt::CaseInsensitive) ? caption : tr("Сума «%1»").arg(caption);
    return selected + QStringLiteral("   ") + what + QStringLiteral(": ") + sum;
}
