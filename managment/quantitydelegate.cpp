#include "quantitydelegate.h"

#include "numberfield.h"
#include "receipt.h"

#include <QKeyEvent>

void QuantityDelegate::allowNegative()
{
    m_least = -Receipt::maximum;
}

QWidget *QuantityDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    Q_UNUSED(option)
    Q_UNUSED(index)
    auto *editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("leQuantity"));
    editor->setAccessibleName(tr("Кількість"));
    editor->setFrame(false);
    (new NumberField(editor, NumberKind::Quantity, m_least, Receipt::maximum))->setMayBeEmpty(true);
    m_editor = editor;
    return editor;
}

/// At once: keys that wait behind Enter are not meant for the editor.
bool QuantityDelegate::eventFilter(QObject *editor, QEvent *event)
{
    const bool isEnter =
        event->type() == QEvent::KeyPress && (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Return ||
                                              static_cast<QKeyEvent *>(event)->key() == Qt::Key_Enter);
    if (!isEnter)
        return QStyledItemDelegate::eventFilter(editor, event);
    commit();
    return true;
}

void QuantityDelegate::commit()
{
    if (m_editor == nullptr)
        return;
    QWidget *editor = m_editor;
    m_editor.clear();
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
}

void QuantityDelegate::type(const QString &text)
{
    if (m_editor != nullptr && !text.isEmpty())
        m_editor->setText(text);
}

void QuantityDelegate::drop()
{
    if (m_editor == nullptr)
        return;
    QWidget *editor = m_editor;
    m_editor.clear();
    emit closeEditor(editor, RevertModelCache);
}
