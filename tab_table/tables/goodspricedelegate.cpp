#include "goodspricedelegate.h"

#include "goodsrules.h"
#include "money.h"
#include "typedinput.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <limits>

PriceValidator::PriceValidator(QObject *parent)
    // The point stands for any character here, a comma included.
    : QRegularExpressionValidator(QRegularExpression(QStringLiteral("^[0-9]{1,6}.[0-9]{1,2}$")), parent)
{
}

QValidator::State PriceValidator::validate(QString &input, int &position) const
{
    qint64 kopecks = 0;
    if (!priceFromText(input, &kopecks))
        return Intermediate;
    // The form has room for six digits; a dearer item is stored all the same and must stay editable.
    const bool fits = QRegularExpressionValidator::validate(input, position) == Acceptable;
    return fits || input == moneyText(kopecks) ? Acceptable : Intermediate;
}

void PriceValidator::fixup(QString &input) const
{
    qint64 kopecks = 0;
    if (priceFromText(input, &kopecks))
        input = moneyText(kopecks);
}

void makePriceField(QLineEdit *field)
{
    field->setValidator(new PriceValidator(field));
    QObject::connect(field, &QLineEdit::textChanged, field, [field](const QString &text) {
        qint64 kopecks = 0;
        colourField(field, text.isEmpty() || priceFromText(text, &kopecks));
    });
}

void GoodsPriceDelegate::setLists(const QStringList &groups, const QStringList &shops)
{
    m_groups = groups;
    m_shops = shops;
}

QWidget *GoodsPriceDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                          const QModelIndex &index) const
{
    Q_UNUSED(option)
    if (index.column() == Price) {
        auto *edit = new QLineEdit(parent);
        makePriceField(edit);
        return edit;
    }
    if (index.column() == Priority) {
        auto *spin = new QSpinBox(parent);
        spin->setRange(0, std::numeric_limits<int>::max());
        return spin;
    }
    auto *box = new QComboBox(parent);
    box->addItems(index.column() == Group ? m_groups : m_shops);
    const QString current = index.data().toString();
    if (box->findText(current) < 0)
        box->addItem(current);
    return box;
}

void GoodsPriceDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data().toString();
    if (auto *box = qobject_cast<QComboBox *>(editor))
        box->setCurrentText(text);
    else if (auto *spin = qobject_cast<QSpinBox *>(editor))
        spin->setValue(text.toInt());
    else if (auto *edit = qobject_cast<QLineEdit *>(editor))
        edit->setText(text);
}

void GoodsPriceDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                      const QModelIndex &index) const
{
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, box->currentText());
    } else if (auto *spin = qobject_cast<QSpinBox *>(editor)) {
        model->setData(index, QString::number(spin->value()));
    } else if (auto *edit = qobject_cast<QLineEdit *>(editor)) {
        QString text = edit->text();
        if (qint64 kopecks = 0; priceFromText(text, &kopecks))
            text = moneyText(kopecks);
        model->setData(index, text);
    }
}
