#include "qntableview.h"

#include "listcolumns.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

QNTableView::QNTableView(QWidget *parent) : QTableView(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    verticalHeader()->setVisible(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
}

/// The header shows no selection. It would look at every row, each time it is painted, whether all of a
/// column are selected: so it gets a selection of its own, an empty one.
void QNTableView::setSelectionModel(QItemSelectionModel *selection)
{
    QTableView::setSelectionModel(selection);
    delete m_headerSelection;
    m_headerSelection = new QItemSelectionModel(selection->model(), this);
    horizontalHeader()->setSelectionModel(m_headerSelection);
}

void QNTableView::setEmptyText(const QString &text)
{
    m_emptyText = text;
    viewport()->update();
}

void QNTableView::setMainColumn(int column, int leastWidth)
{
    m_mainColumn = column;
    m_wantedMainWidth = column < 0 ? 0 : columnWidth(column);
    m_leastMainWidth = leastWidth > 0 ? leastWidth : m_wantedMainWidth;
    fillWidth();
}

/// Only with the window: a border that somebody drags stays where it is put.
void QNTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fillWidth();
}

void QNTableView::fillWidth()
{
    if (m_mainColumn < 0 || isColumnHidden(m_mainColumn))
        return;
    const int others = horizontalHeader()->length() - columnWidth(m_mainColumn);
    const int free = viewport()->width() - others;
    setColumnWidth(m_mainColumn, free < m_leastMainWidth ? m_wantedMainWidth : free);
}

QString QNTableView::selectedText() const
{
    const QVector<int> columns = shownColumns(this);
    QVector<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QString text;
    for (const int row : qAsConst(rows)) {
        for (const int column : columns) {
            // A text must not look like several cells.
            text += model()->index(row, column).data().toString().simplified();
            text += column == columns.constLast() ? QLatin1Char('\n') : QLatin1Char('\t');
        }
    }
    return text;
}

void QNTableView::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Copy))
        return QTableView::keyPressEvent(event);
    if (const QString text = selectedText(); !text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
    event->accept();
}

void QNTableView::mousePressEvent(QMouseEvent *event)
{
    if (m_mayPress && !m_mayPress())
        return;
    const QModelIndex index = indexAt(event->pos());
    if (event->button() == Qt::LeftButton) {
        m_pressedRow = index.row();
        m_pressedX = event->x();
        m_isPressed = true;
    }
    // The other button in the middle of a drag takes the drag back.
    const bool breaksDrag = event->button() == Qt::RightButton && (event->buttons() & Qt::LeftButton) != 0;
    if (breaksDrag)
        m_isPressed = false;
    QTableView::mousePressEvent(event);
    if (event->button() == Qt::RightButton && !breaksDrag)
        emit RClicked(index);
}

void QNTableView::mouseReleaseEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    const bool ends = event->button() == Qt::LeftButton && m_isPressed;
    if (event->button() == Qt::LeftButton)
        m_isPressed = false;
    QTableView::mouseReleaseEvent(event);
    if (ends && index.isValid() && index.row() == m_pressedRow && event->x() != m_pressedX)
        emit LMoveMouseInRow(event->x() - m_pressedX, index);
}

void QNTableView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
}

void QNTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (m_emptyText.isEmpty() || model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}
