#include "placeselector.h"
#include "ui_placeselector.h"

#include <QScopedValueRollback>
#include <algorithm>

PlaceSelector::PlaceSelector(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::PlaceSelector>())
{
    ui->setupUi(this);
    setFocusProxy(ui->cbGroup);
    buildBox(Groups, ui->cbGroup);
    buildBox(Shops, ui->cbShop);
    buildBox(Registers, ui->cbRegister);
    m_readers[Groups]->setFirstItem(tr("Усі групи"));
    m_readers[Shops]->setFirstItem(tr("Усі магазини"));
    m_readers[Registers]->setFirstItem(tr("Усі каси"));
}

PlaceSelector::~PlaceSelector() = default;

void PlaceSelector::buildBox(Level level, QComboBox *box)
{
    box->setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 1px }"));
    keepNarrow(box, 12);
    m_readers[level] = new BoxReader(box, this);
    connect(m_readers[level], &BoxReader::filled, this, &PlaceSelector::takeWanted);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, [this, level] { tellChange(level); });
}

void PlaceSelector::open(const QString &connection, QObject *receiver)
{
    for (BoxReader *reader : m_readers)
        reader->open(connection, receiver);
}

void PlaceSelector::tellChange(Level level)
{
    if (!m_isTaking) {
        // What a hand chooses is newer than what was wanted below it.
        std::fill(m_wanted.begin() + level, m_wanted.end(), std::nullopt);
        emit touched();
    }
    if (level == Groups)
        emit groupChanged(groupName());
    else if (level == Shops)
        emit shopChanged(shopName());
    else
        emit registerChanged(registerName());
    if (!m_isTaking && !isReading())
        emit chosen();
}

void PlaceSelector::refill(Level level, const QString &sql, const Db::Values &values)
{
    for (int below = level + 1; below < LevelCount; ++below)
        m_readers.at(below)->clear();
    // Keys that go through the items of the box above are one question.
    const bool isTyped = !m_isTaking && focusWidget() != nullptr && isAncestorOf(focusWidget());
    m_readers.at(level)->read(sql, values, isTyped ? BoxReader::AfterTyping : BoxReader::AtOnce);
}

void PlaceSelector::refillGroups(const QString &sql, const Db::Values &values)
{
    refill(Groups, sql, values);
}

void PlaceSelector::refillShops(const QString &sql, const Db::Values &values)
{
    refill(Shops, sql, values);
}

void PlaceSelector::refillRegisters(const QString &sql, const Db::Values &values)
{
    refill(Registers, sql, values);
}

bool PlaceSelector::isReading() const
{
    return std::any_of(m_readers.begin(), m_readers.end(),
                       [](const BoxReader *reader) { return reader->isReading(); });
}

void PlaceSelector::keepChoice()
{
    for (const Level level : {Groups, Shops, Registers}) {
        if (box(level)->currentIndex() > 0)
            m_wanted[level] = Wanted{box(level)->currentData(), nameIn(level), false};
    }
}

void PlaceSelector::hideRegisters()
{
    ui->labelRegister->hide();
    ui->cbRegister->hide();
}

void PlaceSelector::setShopPrompt(const QString &prompt)
{
    m_readers[Shops]->setFirstItem(prompt);
}

PlaceSelector::Narrowest PlaceSelector::narrowest() const
{
    if (ui->cbRegister->currentIndex() > 0)
        return Register;
    if (ui->cbShop->currentIndex() > 0)
        return Shop;
    return ui->cbGroup->currentIndex() > 0 ? Group : Everywhere;
}

Place PlaceSelector::place() const
{
    return {ui->cbGroup->currentData().toUInt(), ui->cbShop->currentData().toUInt(),
            ui->cbRegister->currentData().toUInt()};
}

QString PlaceSelector::nameIn(Level level) const
{
    return box(level)->currentIndex() > 0 ? box(level)->currentText() : QString();
}

QString PlaceSelector::groupName() const
{
    return nameIn(Groups);
}

QString PlaceSelector::shopName() const
{
    return nameIn(Shops);
}

QString PlaceSelector::registerName() const
{
    return nameIn(Registers);
}

bool PlaceSelector::isPending(Level level) const
{
    return std::any_of(m_readers.begin(), m_readers.begin() + level + 1,
                       [](const BoxReader *reader) { return reader->isReading(); });
}

bool PlaceSelector::want(Level level, const Wanted &wanted)
{
    std::fill(m_wanted.begin() + level, m_wanted.end(), std::nullopt);
    m_wanted[level] = wanted;
    if (isPending(level))
        return true;
    const bool isOffered = take(level);
    if (!isReading())
        emit chosen();
    return isOffered;
}

bool PlaceSelector::take(Level level)
{
    const Wanted wanted = *std::exchange(m_wanted[level], std::nullopt);
    int index = 0;
    if (!wanted.id.isNull())
        index = box(level)->findData(wanted.id);
    else if (!wanted.text.isEmpty())
        index = box(level)->findText(wanted.text);
    const QScopedValueRollback<bool> taking(m_isTaking, true);
    if (index < 0 && wanted.isAdded) {
        index = box(level)->count();
        box(level)->addItem(wanted.text);
    }
    if (index >= 0)
        box(level)->setCurrentIndex(index);
    return index >= 0;
}

void PlaceSelector::takeWanted()
{
    for (const Level level : {Groups, Shops, Registers}) {
        if (m_readers[level]->isReading())
            return;
        if (m_wanted[level])
            take(level);
    }
    emit chosen();
}

bool PlaceSelector::chooseGroup(DbId id)
{
    return want(Groups, {id, {}, false});
}

bool PlaceSelector::chooseShop(DbId id)
{
    return want(Shops, {id, {}, false});
}

bool PlaceSelector::chooseRegister(DbId id)
{
    return want(Registers, {id, {}, false});
}

void PlaceSelector::showShop(const QString &name)
{
    want(Shops, {{}, name, true});
}

void PlaceSelector::showRegister(const QString &name)
{
    want(Registers, {{}, name, true});
}

void PlaceSelector::showPlace(DbId group, const QString &shop, const QString &kass)
{
    const bool isMissing = !isPending(Groups) && ui->cbGroup->findData(group) < 0;
    m_wanted = {Wanted{isMissing ? 0 : group, {}, false}, Wanted{{}, shop, true}, Wanted{{}, kass, true}};
    takeWanted();
}

QString PlaceSelector::description() const
{
    QStringList names = {groupName(), shopName(), registerName()};
    names.removeAll(QString());
    return names.isEmpty() ? tr("усі магазини") : names.join(QStringLiteral(", "));
}
