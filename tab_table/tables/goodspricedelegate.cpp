#include "goodspricedelegate.h"

#include "goodsrules.h"
#include "money.h"
#include "numberfield.h"
#include "wholespinbox.h"

#include <QComboBox>
#include <QLineEdit>
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
    auto *number = new NumberField(field, NumberKind::Money, 0, greatestPrice);
    number->setMayBeEmpty(true);
}

namespace {
NamedId entry(const QVector<NamedId> &list, const QString &name)
{
    for (const NamedId &item : list) {
        if (item.name == name)
            return item;
    }
    return {name, QString()};
}
} // namespace

void GoodsPriceDelegate::setLists(const QVector<NamedId> &groups, const QVector<NamedId> &shops)
{
    m_groups = groups;
    m_shops = shops;
}

NamedId GoodsPriceDelegate::group(const QString &name) const
{
    return entry(m_groups, name);
}

NamedId GoodsPriceDelegate::shop(const QString &name) const
{
    return entry(m_shops, name);
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
        auto *spin = new WholeSpinBox(parent);
        spin->setRange(0, std::numeric_limits<int>::max());
        return spin;
    }
    auto *box = new QComboBox(parent);
    for (const NamedId &item : index.column() == Group ? m_groups : m_shops)
        box->addItem(item.name, item.id);
    // What the user may not choose, or what is no more, is kept as long as it is not changed.
    if (box->findData(index.data(IdRole)) < 0)
        box->addItem(index.data().toString(), index.data(IdRole));
    keepNarrow(box);
    return box;
}

void GoodsPriceDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data().toString();
    if (auto *box = qobject_cast<QComboBox *>(editor))
        box->setCurrentIndex(box->findData(index.data(IdRole)));
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
        model->setData(index, box->currentData(), IdRole);
    } else if (auto *spin = qobject_cast<QSpinBox *>(editor)) {
        spin->interpretText();
        model->setData(index, QString::number(spin->value()));
    } else if (auto *edit = qobject_cast<QLineEdit *>(editor)) {
        QString text = edit->text();
        if (qint64 kopecks = 0; priceFromText(text, &kopecks))
            text = moneyText(kopecks);
        model->setData(index, text);
    }
}
