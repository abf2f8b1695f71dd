#include "typedinput.h"

#include "signs.h"

#include <QAbstractButton>
#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>
#include <QTableWidget>

namespace {
const char *const storedProperty = "velta_stored";

struct Typed
{
    Q_DECLARE_TR_FUNCTIONS(Typed)
};

void commitCells(QAbstractItemView *view)
{
    const auto editors = view->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *editor : editors) {
        emit view->itemDelegate()->commitData(editor);
        emit view->itemDelegate()->closeEditor(editor);
    }
}

bool isCellEditor(const QWidget *widget)
{
    const QWidget *viewport = widget->parentWidget();
    return viewport != nullptr && qobject_cast<QAbstractItemView *>(viewport->parentWidget()) != nullptr;
}

QStringList cellsOf(const QAbstractItemModel *model)
{
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex cell = model->index(row, column);
            texts += cell.data().toString() + QLatin1Char('|') + cell.data(Qt::CheckStateRole).toString();
        }
    }
    return texts;
}

QStringList textsOf(const QWidget *widget)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->isReadOnly() ? QStringList() : QStringList(edit->text());
    if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return {QString::number(box->currentIndex()), box->currentText()};
    if (const auto *edit = qobject_cast<const QPlainTextEdit *>(widget))
        return {edit->toPlainText()};
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->isCheckable() ? QStringList(QString::number(static_cast<int>(button->isChecked())))
                                     : QStringList();
    if (const auto *list = qobject_cast<const QListWidget *>(widget))
        return cellsOf(list->model());
    if (const auto *table = qobject_cast<const QTableWidget *>(widget))
        return cellsOf(table->model());
    return {};
}
} // namespace

void commitTyping(QWidget *window)
{
    const auto views = window->findChildren<QAbstractItemView *>();
    for (auto *view : views)
        commitCells(view);
    const auto spins = window->findChildren<QAbstractSpinBox *>();
    for (auto *spin : spins)
        spin->interpretText();
}

QStringList enteredTexts(const QWidget *window)
{
    QStringList texts;
    const auto widgets = window->findChildren<QWidget *>();
    for (const auto *widget : widgets) {
        if (!isCellEditor(widget))
            texts += textsOf(widget);
    }
    return texts;
}

QString fieldName(const QWidget *field)
{
    const auto labels = field->window()->findChildren<QLabel *>();
    for (const auto *label : labels) {
        if (label->buddy() != field)
            continue;
        QString name = label->text().remove(QLatin1Char('&'));
        if (name.endsWith(QLatin1Char(':')))
            name.chop(1);
        return name;
    }
    return field->accessibleName();
}

void showStoredText(QLineEdit *field, const QString &stored)
{
    field->setText(stored);
    field->setProperty(storedProperty, stored);
}

QString storedText(const QLineEdit *field)
{
    return field->property(storedProperty).toString();
}

QString textKeepingNull(const QLineEdit *field)
{
    const QVariant stored = field->property(storedProperty);
    const bool wasNull = stored.isValid() && stored.toString().isNull();
    return wasNull && field->text().isEmpty() ? QString() : field->text();
}

QString typedAddress(const QLineEdit *field)
{
    const QString text = field->text().remove(QLatin1Char(' '));
    return text == QLatin1String("...") ? QString() : text;
}

bool hasControlCharacters(const QString &text)
{
    for (const QChar c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            return true;
    }
    return false;
}

QString controlCharactersRefusal(const QString &field)
{
    return Typed::tr("Поле \"%1\": у тексті є перенесення рядка, табуляція або інший невидимий знак. "
                     "Зітріть його: текст має бути в один рядок.")
        .arg(field);
}

void colourField(QLineEdit *field, const QString &why)
{
    QPalette palette;
    if (!why.isEmpty()) {
        palette.setColor(QPalette::Base, QColor(255, 205, 205));
        palette.setColor(QPalette::Text, Qt::black);
    }
    field->setPalette(palette);
    showRefusal(field, why);
}

void limitTo(QLineEdit *field, const char *pattern)
{
    field->setValidator(new QRegularExpressionValidator(QRegularExpression(QLatin1String(pattern)), field));
}
