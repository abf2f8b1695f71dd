#include "qaddedtshop.h"
#include "ui_qaddedtshop.h"

#include "combos.h"
#include "networkaddress.h"
#include "qmessevent.h"
#include "qtabshops.h"
#include "qupdatebd.h"
#include "typedinput.h"

#include <QSignalBlocker>

namespace {
enum Type { OrdinaryShop, Store, Office };
const int storeCycle = 0;
const int officeCycle = -1;
/// Stands for NULL in the editor of a shop that was stored without a cycle.
const int noCycle = -2;
} // namespace

QAddEdtShop::QAddEdtShop(QTabShops *tab, QLoadedUser *user, QSqlDatabase *db, QString *id, QObject *receiver,
                         QWidget *parent)
    : EditDialog(parent)
    , ui(std::make_unique<Ui::QAddEdtShop>())
    , m_db(db, receiver)
    , m_id(id != nullptr ? id : &m_newId)
{
    ui->setupUi(this);
    ui->leAddress->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    ui->leTitle1->setMinimumWidth(fontMetrics().averageCharWidth() * 26);
    for (QComboBox *box : {ui->cbGroup, ui->cbDay})
        keepNarrow(box);
    setRecordTitle(*m_id);
    limitLengths(tab);
    connectFields();
    m_isLoaded = fillLists(user);
    if (m_id->isEmpty())
        presetNew(tab->chosenGroup());
    else
        m_isLoaded = m_isLoaded && load();
    checkNetwork(ui->leNetwork->text());
}

QAddEdtShop::~QAddEdtShop() = default;

void QAddEdtShop::limitLengths(const QTabShops *tab)
{
    const QPair<QLineEdit *, const char *> fields[] = {
        {ui->leAddress, "address"},        {ui->leName, "name"},
        {ui->leTitle1, "one_str_title"},   {ui->leTitle2, "two_str_title"},
        {ui->leTitle3, "three_str_title"}, {ui->leTitle4, "four_str_title"},
        {ui->leEnd1, "one_str_bottom"},    {ui->leEnd2, "two_str_bottom"}};
    for (const auto &[edit, column] : fields) {
        const int length = tab->GetMaxChar(QStringLiteral("shops"), QLatin1String(column));
        if (length > 0)
            edit->setMaxLength(length);
    }
}

void QAddEdtShop::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtShop::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtShop::btcancel);
    connect(ui->leNetwork, &QLineEdit::textChanged, this, &QAddEdtShop::checkNetwork);
    connect(ui->sbDayCycle, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &QAddEdtShop::change_day_cycle);
    connect(ui->cbType, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &QAddEdtShop::chang_type);
}

bool QAddEdtShop::fillLists(QLoadedUser *user)
{
    QTab::GetLstGroupShopFromPermis(m_db.connection(), user, m_db.receiver(), true, ui->cbGroup);
    return fillCombo(ui->cbDay, m_db, QStringLiteral("SELECT name,id FROM day_update ORDER BY id")) &&
           fillCombo(ui->cbBlock, m_db, QStringLiteral("SELECT name,id FROM yesno"));
}

void QAddEdtShop::presetNew(uint group)
{
    ui->cbGroup->setCurrentIndex(group == 0 ? -1 : ui->cbGroup->findData(group));
    if (ui->cbGroup->currentIndex() < 0)
        chooseOnlyItem(ui->cbGroup);
    ui->cbBlock->setCurrentIndex(ui->cbBlock->findData(0));
    ui->sbDayCycle->setValue(m_lastCycle);
}

bool QAddEdtShop::load()
{
    auto shop = m_db.run(
        QStringLiteral(
            "SELECT shops.address,shops.name,shops.one_str_title,shops.two_str_title,"
            "shops.three_str_title,shops.four_str_title,shops.one_str_bottom,"
            "shops.two_str_bottom,shops.network_shop,group_shop.name,day_update.name,"
            "yesno.name,shops.count_day_cycle,shops.group_shop,shops.day_update,shops.block FROM shops LEFT JOIN group_shop ON "
            "shops.group_shop=group_shop.id LEFT JOIN day_update ON "
            "shops.day_update=day_update.id LEFT JOIN yesno ON shops.block=yesno.id WHERE "
            "shops.id=") +
        *m_id);
    if (!shop)
        return false;
    if (!shop->next()) {
        postMessage(m_db.receiver(), tr("Запис не знайдено в базі!"), QMessEvent::Warning);
        return false;
    }
    int column = 0;
    for (QLineEdit *edit : {ui->leAddress, ui->leName, ui->leTitle1, ui->leTitle2, ui->leTitle3, ui->leTitle4,
                            ui->leEnd1, ui->leEnd2, ui->leNetwork})
        showStored(edit, shop->value(column++));
    const int ids = 13;
    // A group that the user does not see would be lost with the next save.
    const NamedId group = {toText(shop->value(column)), toText(shop->value(ids))};
    if (!group.id.isEmpty() && ui->cbGroup->findData(shop->value(ids)) < 0)
        ui->cbGroup->addItem(group.name, group.id);
    int id = ids;
    for (QComboBox *box : {ui->cbGroup, ui->cbDay, ui->cbBlock})
        chooseId(box, toText(shop->value(id++)));
    showDayCycle(shop->value(column + 3));
    const auto columns = readColumns(m_db, QStringLiteral("shops"), *m_id, meant());
    m_loaded = columns.value_or(MeantColumns());
    return columns.has_value();
}

/// Other programs store what this editor would not: a shop without a cycle, or below the office's.
void QAddEdtShop::showDayCycle(const QVariant &stored)
{
    m_mayLackCycle = stored.isNull();
    const int cycle = m_mayLackCycle ? noCycle : stored.toInt();
    ui->sbDayCycle->setMinimum(qMin(cycle, officeCycle));
    if (m_mayLackCycle)
        ui->sbDayCycle->setSpecialValueText(tr("не задано"));
    ui->sbDayCycle->setValue(cycle);
    change_day_cycle(cycle);
}

QVariant QAddEdtShop::dayCycle() const
{
    const int cycle = ui->sbDayCycle->value();
    return m_mayLackCycle && cycle == noCycle ? QVariant(QVariant::Int) : QVariant(cycle);
}

void QAddEdtShop::change_day_cycle(int value)
{
    const QSignalBlocker hold(ui->cbType);
    if (value > storeCycle)
        m_lastCycle = value;
    if (m_mayLackCycle && value == noCycle)
        ui->cbType->setCurrentIndex(-1);
    else
        ui->cbType->setCurrentIndex(value > storeCycle ? OrdinaryShop : value == storeCycle ? Store : Office);
}

void QAddEdtShop::chang_type(int index)
{
    if (index < 0)
        return;
    ui->sbDayCycle->setValue(index == Office ? officeCycle : index == Store ? storeCycle : m_lastCycle);
}

void QAddEdtShop::checkNetwork(const QString &typed)
{
    Q_UNUSED(typed)
    const bool isSound = isSoundAddress(typedAddress(ui->leNetwork));
    colourField(ui->leNetwork, isSound);
    ui->labelGateway->setVisible(!isSound);
}

QString QAddEdtShop::refusal() const
{
    if (ui->leAddress->text().trimmed().isEmpty())
        return tr("Адреса магазину не може бути пустою");
    if (m_id->isEmpty() && ui->cbGroup->currentText().isEmpty())
        return tr("Група магазину не може бути пустою") +
               (ui->cbGroup->count() == 0 ? QLatin1Char('\n') + noGroupsHint() : QString());
    return QString();
}

bool QAddEdtShop::save()
{
    if (!isUnique())
        return false;
    m_sent = meant();
    m_sentId = *m_id;
    const Saved saved =
        saveRecord(m_db, QStringLiteral("shops"), &m_sentId, m_loaded, m_sent,
                   [this](QString *id) { return id->isEmpty() ? NewRecord(id) : UpdateRecord(id); });
    if (saved.outcome == Saved::Written)
        takeOver();
    return isSaved(saved);
}

std::optional<bool> QAddEdtShop::hasArrived()
{
    return holds(m_db, QStringLiteral("shops"), m_sentId, m_sent);
}

void QAddEdtShop::takeOver()
{
    *m_id = m_sentId;
    m_loaded = m_sent;
    QUpdateBD().update(QStringLiteral("shops"), *m_db.connection(), m_db.receiver());
}

MeantColumns QAddEdtShop::meant() const
{
    MeantColumns columns = {{"address", ui->leAddress->text().trimmed(), fieldName(ui->leAddress)},
                            {"group_shop", chosenItem(ui->cbGroup).id, fieldName(ui->cbGroup)},
                            {"day_update", chosenItem(ui->cbDay).id, fieldName(ui->cbDay)},
                            {"network_shop", typedAddress(ui->leNetwork), fieldName(ui->leNetwork)},
                            {"count_day_cycle", toText(dayCycle()), fieldName(ui->sbDayCycle)},
                            {"block", chosenItem(ui->cbBlock).id, fieldName(ui->cbBlock)}};
    const QPair<const char *, QLineEdit *> lines[] = {{"name", ui->leName},
                                                      {"one_str_title", ui->leTitle1},
                                                      {"two_str_title", ui->leTitle2},
                                                      {"three_str_title", ui->leTitle3},
                                                      {"four_str_title", ui->leTitle4},
                                                      {"one_str_bottom", ui->leEnd1},
                                                      {"two_str_bottom", ui->leEnd2}};
    for (const auto &[column, field] : lines)
        columns.append({column, field->text(), fieldName(field)});
    return columns;
}

bool QAddEdtShop::isUnique()
{
    const QString others = m_id->isEmpty() ? QString() : QStringLiteral(" AND id<>") + *m_id;
    const QString address = ui->leAddress->text().trimmed();
    const QString network = typedAddress(ui->leNetwork);
    return isFree(m_db, QStringLiteral("SELECT id FROM shops WHERE address=:addr") + others,
                  {{QStringLiteral(":addr"), address}}, tr("Адреса магазину вже існує в базі!")) &&
           isFree(m_db, QStringLiteral("SELECT id FROM shops WHERE network_shop=:network") + others,
                  {{QStringLiteral(":network"), nullIfEmpty(network)}},
                  tr("Шлюз %1 вже має інший магазин!").arg(network));
}

Db::Values QAddEdtShop::values() const
{
    return {{QStringLiteral(":addr"), ui->leAddress->text().trimmed()},
            {QStringLiteral(":name"), typed(ui->leName)},
            {QStringLiteral(":group"), ui->cbGroup->currentText()},
            {QStringLiteral(":day"), ui->cbDay->currentText()},
            {QStringLiteral(":title1"), typed(ui->leTitle1)},
            {QStringLiteral(":title2"), typed(ui->leTitle2)},
            {QStringLiteral(":title3"), typed(ui->leTitle3)},
            {QStringLiteral(":title4"), typed(ui->leTitle4)},
            {QStringLiteral(":end1"), typed(ui->leEnd1)},
            {QStringLiteral(":end2"), typed(ui->leEnd2)},
            // The column is unique: two shops without a gateway need NULL.
            {QStringLiteral(":network"), nullIfEmpty(typedAddress(ui->leNetwork))},
            {QStringLiteral(":block"), ui->cbBlock->currentText()}};
}

bool QAddEdtShop::NewRecord(QString *id)
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":day_cycle"), dayCycle()});
    if (!m_db.run(QStringLiteral(
                      "INSERT INTO shops(address,name,group_shop,day_update,one_str_title,two_str_title,"
                      "three_str_title,four_str_title,one_str_bottom,two_str_bottom,network_shop,"
                      "count_day_cycle,block) VALUES(:addr,:name,(SELECT id FROM group_shop WHERE "
                      "name=:group),(SELECT id FROM day_update WHERE name=:day),:title1,:title2,:title3,"
                      ":title4,:end1,:end2,:network,:day_cycle,(SELECT id FROM yesno WHERE name=:block))"),
                  bound))
        return false;
    const auto made = m_db.lastInsertId();
    if (made)
        *id = QString::number(*made);
    return made.has_value();
}

bool QAddEdtShop::UpdateRecord(QString *id)
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":count_day_cycle"), dayCycle()});
    return m_db
        .run(QStringLiteral(
                 "UPDATE shops SET address=:addr,name=:name,group_shop=(SELECT id FROM group_shop "
                 "WHERE name=:group),day_update=(SELECT id FROM day_update WHERE name=:day),"
                 "one_str_title=:title1,two_str_title=:title2,three_str_title=:title3,"
                 "four_str_title=:title4,one_str_bottom=:end1,two_str_bottom=:end2,"
                 "network_shop=:network,count_day_cycle=:count_day_cycle,block=(SELECT id FROM yesno "
                 "WHERE name=:block) WHERE shops.id=") +
                 *id,
             bound)
        .has_value();
}
