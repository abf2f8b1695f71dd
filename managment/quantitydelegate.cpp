#include "quantitydelegate.h"

#include "money.h"

namespace {
/// Red as soon as it is no quantity.
void showReadable(QLineEdit *editor)
{
    qint64 quantity = 0;
    const bool isReadable = editor->text().isEmpty() || thousandthsFromText(editor->text(), &quantity);
    editor->setStyleSheet(isReadable ? QString()
                                     : QStringLiteral("color: #B00000; background-color: #FFE0E0;"));
}
} // namespace

QWidget *QuantityDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    Q_UNUSED(option)
    Q_UNUSED(index)
    auto *editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("leQuantity"));
    editor->setAccessibleName(tr("Кількість"));
    editor->setFrame(false);
    connect(editor, &QLineEdit::textChanged, editor, [editor] { showReadable(editor); });
    m_editor = editor;
    return editor;
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
