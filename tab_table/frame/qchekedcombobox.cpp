#include "qchekedcombobox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace {
constexpr int mostTipLetters = 1000;
} // namespace

QChekedComboBox::QChekedComboBox(QWidget *parent) : QComboBox(parent), m_items(new QStandardItemModel(this))
{
    setModel(m_items);
    setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 1px }"));
    connect(m_items, &QStandardItemModel::rowsInserted, this, &QChekedComboBox::slotModelRowsInserted);
    connect(m_items, &QStandardItemModel::itemChanged, this, &QChekedComboBox::slotModelItemChanged);
}

void QChekedComboBox::slotModelRowsInserted(const QModelIndex &parent, int first, int last)
{
    const QSignalBlocker hold(m_items);
    for (int row = first; row <= last && !parent.isValid(); ++row) {
        QStandardItem *item = m_items->item(row);
        item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        item->setData(Qt::Unchecked, Qt::CheckStateRole);
    }
}

void QChekedComboBox::setChekedItem(int row, Qt::CheckState state)
{
    if (QStandardItem *item = m_items->item(row))
        item->setCheckState(state);
}

bool QChekedComboBox::isAllSelect() const
{
    return m_items->rowCount() > 0 && m_items->item(0)->checkState() != Qt::Unchecked;
}

QStringList QChekedComboBox::listTexts() const
{
    QStringList texts;
    const QVariantList data = listData(Qt::DisplayRole);
    for (const QVariant &text : data)
        texts.append(text.toString());
    return texts;
}

QVariantList QChekedComboBox::listData(int role) const
{
    QVariantList list;
    for (int row = 0; row < m_items->rowCount(); ++row) {
        if (m_items->item(row)->checkState() == Qt::Checked)
            list.append(m_items->item(row)->data(role));
    }
    return list;
}

void QChekedComboBox::slotModelItemChanged(QStandardItem *item)
{
    if (m_isFollowing)
        return;
    m_isFollowing = true;
    if (item->row() == 0) {
        checkAll(item->checkState());
    } else {
        bool all = true;
        for (int row = 1; row < m_items->rowCount() && all; ++row)
            all = m_items->item(row)->checkState() == Qt::Checked;
        m_items->item(0)->setCheckState(all ? Qt::Checked : Qt::Unchecked);
    }
    m_isFollowing = false;
    updateDisplayText();
    emit checkedChanged();
}

void QChekedComboBox::checkAll(Qt::CheckState state)
{
    // Told once for all of them: the box and its list look at every change.
    const bool wasBlocked = m_items->blockSignals(true);
    for (int row = 1; row < m_items->rowCount(); ++row)
        m_items->item(row)->setCheckState(state);
    m_items->blockSignals(wasBlocked);
    emit m_items->dataChanged(m_items->index(0, 0), m_items->index(m_items->rowCount() - 1, 0));
}

void QChekedComboBox::showPopup()
{
    QComboBox::showPopup();
    m_pressed = QPersistentModelIndex();
    // Before the box's own filters, which close the list with every click: the last one installed is asked
    // first.
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
}

bool QChekedComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view()->viewport()) {
        const auto indexAt = [this, event] {
            return view()->indexAt(static_cast<const QMouseEvent *>(event)->pos());
        };
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
            m_pressed = indexAt();
            return false;
        }
        if (event->type() == QEvent::MouseButtonRelease) {
            if (m_pressed.isValid() && m_pressed == indexAt())
                toggle(m_pressed);
            m_pressed = QPersistentModelIndex();
            return true;
        }
    } else if (watched == view() && event->type() == QEvent::KeyPress &&
               static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Space) {
        toggle(view()->currentIndex());
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void QChekedComboBox::toggle(const QModelIndex &index)
{
    if (QStandardItem *item = m_items->itemFromIndex(index))
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

QString QChekedComboBox::joinedTexts(int atLeast) const
{
    QString joined;
    for (int row = 0; row < m_items->rowCount() && joined.size() < atLeast; ++row) {
        if (m_items->item(row)->checkState() == Qt::Checked)
            joined += (joined.isEmpty() ? QString() : QStringLiteral(", ")) + m_items->item(row)->text();
    }
    return joined;
}

void QChekedComboBox::updateDisplayText()
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    // No letter is narrower than a pixel: more of them than pixels are not needed.
    m_displayText = fontMetrics().elidedText(joinedTexts(field.width()), Qt::ElideRight, field.width());
    const QString tip = joinedTexts(mostTipLetters + 1);
    setToolTip(tip.size() > mostTipLetters ? tip.left(mostTipLetters) + QStringLiteral("…") : tip);
    update();
}

void QChekedComboBox::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = m_displayText;
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void QChekedComboBox::resizeEvent(QResizeEvent *event)
{
    QComboBox::resizeEvent(event);
    updateDisplayText();
}
