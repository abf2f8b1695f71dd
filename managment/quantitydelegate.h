#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

/// The editor of a receipt's quantity, which can be ended from outside: nothing typed stays behind in it.
class QuantityDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Else what is below zero is no quantity.
    void allowNegative();
    /// Hands what is being typed to the model and closes the editor; does nothing while there is none.
    void commit();
    /// Goes on in the open editor as if that had been typed there; an empty text leaves all selected.
    void type(const QString &text);
    /// Closes the editor and forgets what is being typed.
    void drop();

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    mutable QPointer<QLineEdit> m_editor;
    qint64 m_least = 0;
};
