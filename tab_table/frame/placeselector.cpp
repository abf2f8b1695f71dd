#include "placeselector.h"
#include "ui_placeselector.h"

#include "combos.h"

#include <QSignalBlocker>
#include <QSqlRecord>

PlaceSelector::PlaceSelector(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::PlaceSelector>())
{
    ui->setupUi(this);
    setFocusProxy(ui->cbGroup);
    for (QComboBox *box : {ui->cbGroup, ui->cbShop, ui->cbRegister}) {
        box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 1px }"));
        keepNarrow(box, 12);
        empty(box);
    }
    const auto changed = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(ui->cbGroup, changed, this, [this] { emit groupChanged(groupName()); });
    connect(ui->cbShop, changed, this, [this] { emit shopChanged(shopName()); });
    connect(ui->cbRegister, changed, this, [this] { emit registerChanged(registerName()); });
}

PlaceSelector::~PlaceSelector() = default;

QString PlaceSelector::firstItem(const QComboBox *box) const
{
    if (box == ui->cbGroup)
        return tr("Усі групи");
    if (box == ui->cbShop)
        return m_shopPrompt.isEmpty() ? tr("Усі магазини") : m_shopPrompt;
    return tr("Усі каси");
}

void PlaceSelector::empty(QComboBox *box)
{
    const QSignalBlocker hold(box);
    box->clear();
    box->addItem(firstItem(box), 0);
}

bool PlaceSelector::refill(QComboBox *box, const Db &db, const QString &sql, const Db::Values &values)
{
    empty(box);
    auto query = db.run(sql, values);
    if (!query)
        return false;
    const QSignalBlocker hold(box);
    const bool hasId = query->record().count() > 1;
    while (query->next())
        box->addItem(toText(query->value(0)), hasId ? query->value(1) : QVariant());
    return true;
}

bool PlaceSelector::refillGroups(const Db &db, const QString &sql, const Db::Values &values)
{
    empty(ui->cbShop);
    empty(ui->cbRegister);
    return refill(ui->cbGroup, db, sql, values);
}

bool PlaceSelector::refillShops(const Db &db, const QString &sql, const Db::Values &values)
{
    empty(ui->cbRegister);
    return refill(ui->cbShop, db, sql, values);
}

bool PlaceSelector::refillRegisters(const Db &db, const QString &sql, const Db::Values &values)
{
    return refill(ui->cbRegister, db, sql, values);
}

void PlaceSelector::hideRegisters()
{
    ui->labelRegister->hide();
    ui->cbRegister->hide();
}

void PlaceSelector::setShopPrompt(const QString &prompt)
{
    m_shopPrompt = prompt;
    ui->cbShop->setItemText(0, prompt);
}

PlaceSelector::Narrowest PlaceSelector::narrowest() const
{
    if (ui->cbRegister->currentIndex() > 0)
        return Register;
    if (ui->cbShop->currentIndex() > 0)
        return Shop;
    return ui->cbGroup->currentIndex() > 0 ? Group : Everywhere;
}

namespace {
QString nameIn(const QComboBox *box)
{
    return box->currentIndex() > 0 ? box->currentText() : QString();
}

bool choose(QComboBox *box, uint id)
{
    const int index = box->findData(id);
    if (index >= 0)
        box->setCurrentIndex(index);
    return index >= 0;
}

void showText(QComboBox *box, const QString &name)
{
    int index = name.isEmpty() ? 0 : box->findText(name);
    if (index < 0) {
        index = box->count();
        box->addItem(name);
    }
    box->setCurrentIndex(index);
}
} // namespace

Place PlaceSelector::place() const
{
    return {ui->cbGroup->currentData().toUInt(), ui->cbShop->currentData().toUInt(),
            ui->cbRegister->currentData().toUInt()};
}

QString PlaceSelector::groupName() const
{
    return nameIn(ui->cbGroup);
}

QString PlaceSelector::shopName() const
{
    return nameIn(ui->cbShop);
}

QString PlaceSelector::registerName() const
{
    return nameIn(ui->cbRegister);
}

bool PlaceSelector::chooseGroup(DbId id)
{
    return choose(ui->cbGroup, id);
}

bool PlaceSelector::chooseShop(DbId id)
{
    return choose(ui->cbShop, id);
}

bool PlaceSelector::chooseRegister(DbId id)
{
    return choose(ui->cbRegister, id);
}

void PlaceSelector::showShop(const QString &name)
{
    showText(ui->cbShop, name);
}

void PlaceSelector::showRegister(const QString &name)
{
    showText(ui->cbRegister, name);
}

QString PlaceSelector::description() const
{
    QStringList names = {groupName(), shopName(), registerName()};
    names.removeAll(QString());
    return names.isEmpty() ? tr("усі магазини") : names.join(QStringLiteral(", "));
}
