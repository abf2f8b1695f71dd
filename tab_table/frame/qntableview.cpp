#include "qntableview.h"

#include "copiedtable.h"
#include "qrowmodel.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>
#include <algorithm>
#include <numeric>

namespace {
/// Money below zero is red, on light and on dark; where a row or the selection has a colour of its own, its
/// letters keep theirs.
class MinusDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!index.data(QRowModel::MinusRole).toBool() || index.data(Qt::BackgroundRole).isValid())
            return;
        const bool isDark = option->palette.color(QPalette::Base).lightness() < 128;
        option->palette.setColor(QPalette::Text,
                                 isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x14, 0x14));
    }
};
} // namespace

QNTableView::QNTableView(QWidget *parent) : QTableView(parent)
{
    setItemDelegate(new MinusDelegate(this));
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
/// An editor that goes while a dialog is in front would leave the focus to the widget behind the list.
void QNTableView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QWidget *focus = window()->focusWidget();
    const bool wasTyping =
        editor != nullptr && focus != nullptr && (focus == editor || editor->isAncestorOf(focus));
    const QPointer<QWidget> closed = editor;
    QTableView::closeEditor(editor, hint);
    // Not before: an editor that loses the focus writes what was just given up. It may have opened the next
    // one.
    focus = window()->focusWidget();
    const bool isInClosed =
        focus == nullptr || focus == closed || (closed != nullptr && closed->isAncestorOf(focus));
    if (wasTyping && (isInClosed || (focus != this && !isAncestorOf(focus))))
        setFocus();
}

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

int QNTableView::selectedCount() const
{
    int rows = 0;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection)
        rows += range.height();
    return rows;
}

QVector<int> QNTableView::selectedRows() const
{
    QVector<int> rows;
    rows.reserve(selectedCount());
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        rows.resize(rows.size() + range.height());
        std::iota(rows.end() - range.height(), rows.end(), range.top());
    }
    if (selection.size() > 1) {
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    }
    return rows;
}

void QNTableView::copySelected() const
{
    putOnClipboard(copiedTable(ListSnapshot(*model(), this, ListSnapshot::AsShown), selectedRows()));
}

void QNTableView::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Copy))
        return QTableView::keyPressEvent(event);
    copySelected();
    event->accept();
}

bool QNTableView::mayPress(const QMouseEvent &event)
{
    return !m_mayPress || m_mayPress([this, again = event] { pressAgain(again); });
}

/// The button is up by then.
void QNTableView::pressAgain(const QMouseEvent &event)
{
    QMouseEvent press(QEvent::MouseButtonPress, event.localPos(), event.windowPos(), event.screenPos(),
                      event.button(), event.button(), event.modifiers());
    mousePressEvent(&press);
    QMouseEvent release(QEvent::MouseButtonRelease, event.localPos(), event.windowPos(), event.screenPos(),
                        event.button(), Qt::NoButton, event.modifiers());
    mouseReleaseEvent(&release);
    if (event.type() != QEvent::MouseButtonDblClick)
        return;
    QMouseEvent twice = event;
    mouseDoubleClickEvent(&twice);
}

void QNTableView::mousePressEvent(QMouseEvent *event)
{
    if (!mayPress(*event))
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
    if (mayPress(*event))
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
