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
    ui->cbBlock->setCurrentIndex(ui->cbBlock->findData(0));
    ui->sbDayCycle->setValue(m_lastCycle);
}

bool QAddEdtShop::load()
{
    auto shop = m_db.run(
        QStringLiteral("SELECT shops.address,shops.name,shops.one_str_title,shops.two_str_title,"
                       "shops.three_str_title,shops.four_str_title,shops.one_str_bottom,"
                       "shops.two_str_bottom,shops.network_shop,group_shop.name,day_update.name,"
                       "yesno.name,shops.count_day_cycle FROM shops LEFT JOIN group_shop ON "
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
        edit->setText(toText(shop->value(column++)));
    // A group that the user does not see would be lost with the next save.
    const QString group = toText(shop->value(column));
    if (!group.isEmpty() && ui->cbGroup->findText(group) < 0)
        ui->cbGroup->addItem(group);
    for (QComboBox *box : {ui->cbGroup, ui->cbDay, ui->cbBlock})
        chooseText(box, toText(shop->value(column++)));
    ui->sbDayCycle->setValue(shop->value(column).toInt());
    change_day_cycle(ui->sbDayCycle->value());
    return true;
}

void QAddEdtShop::change_day_cycle(int value)
{
    const QSignalBlocker hold(ui->cbType);
    if (value > storeCycle)
        m_lastCycle = value;
    ui->cbType->setCurrentIndex(value > storeCycle ? OrdinaryShop : value == storeCycle ? Store : Office);
}

void QAddEdtShop::chang_type(int index)
{
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
        return tr("Група магазину не може бути пустою");
    return QString();
}

bool QAddEdtShop::save()
{
    return isUnique() && (m_id->isEmpty() ? NewRecord() : UpdateRecord());
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
            {QStringLiteral(":name"), ui->leName->text()},
            {QStringLiteral(":group"), ui->cbGroup->currentText()},
            {QStringLiteral(":day"), ui->cbDay->currentText()},
            {QStringLiteral(":title1"), ui->leTitle1->text()},
            {QStringLiteral(":title2"), ui->leTitle2->text()},
            {QStringLiteral(":title3"), ui->leTitle3->text()},
            {QStringLiteral(":title4"), ui->leTitle4->text()},
            {QStringLiteral(":end1"), ui->leEnd1->text()},
            {QStringLiteral(":end2"), ui->leEnd2->text()},
            // The column is unique: two shops without a gateway need NULL.
            {QStringLiteral(":network"), nullIfEmpty(typedAddress(ui->leNetwork))},
            {QStringLiteral(":block"), ui->cbBlock->currentText()}};
}

bool QAddEdtShop::NewRecord()
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":day_cycle"), ui->sbDayCycle->value()});
    if (!m_db.run(QStringLiteral(
                      "INSERT INTO shops(address,name,group_shop,day_update,one_str_title,two_str_title,"
                      "three_str_title,four_str_title,one_str_bottom,two_str_bottom,network_shop,"
                      "count_day_cycle,block) VALUES(:addr,:name,(SELECT id FROM group_shop WHERE "
                      "name=:group),(SELECT id FROM day_update WHERE name=:day),:title1,:title2,:title3,"
                      ":title4,:end1,:end2,:network,:day_cycle,(SELECT id FROM yesno WHERE name=:block))"),
                  bound))
        return false;
    const auto id = m_db.lastInsertId();
    if (id)
        *m_id = QString::number(*id);
    QUpdateBD().update(QStringLiteral("shops"), *m_db.connection(), m_db.receiver());
    return id.has_value();
}

bool QAddEdtShop::UpdateRecord()
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":count_day_cycle"), ui->sbDayCycle->value()});
    if (!m_db.run(QStringLiteral(
                      "UPDATE shops SET address=:addr,name=:name,group_shop=(SELECT id FROM group_shop "
                      "WHERE name=:group),day_update=(SELECT id FROM day_update WHERE name=:day),"
                      "one_str_title=:title1,two_str_title=:title2,three_str_title=:title3,"
                      "four_str_title=:title4,one_str_bottom=:end1,two_str_bottom=:end2,"
                      "network_shop=:network,count_day_cycle=:count_day_cycle,block=(SELECT id FROM yesno "
                      "WHERE name=:block) WHERE shops.id=") +
                      *m_id,
                  bound))
        return false;
    QUpdateBD().update(QStringLiteral("shops"), *m_db.connection(), m_db.receiver());
    return true;
}
