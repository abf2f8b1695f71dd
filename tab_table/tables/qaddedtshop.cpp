#include "qaddedtshop.h"
#include "ui_qaddedtshop.h"

#include "combos.h"
#include "networkaddress.h"
#include "permittedlists.h"
#include "qtabshops.h"
#include "typedinput.h"

#include <QSignalBlocker>

namespace {
enum Type { OrdinaryShop, Store, Office };
const int storeCycle = 0;
const int officeCycle = -1;

RecordStatements statements()
{
    return {
        QStringLiteral("shops"),
        QStringLiteral(
            "SELECT shops.address,shops.name,shops.one_str_title,shops.two_str_title,shops.three_str_title,"
            "shops.four_str_title,shops.one_str_bottom,shops.two_str_bottom,shops.network_shop,group_shop.name,"
            "day_update.name,yesno.name,shops.count_day_cycle,shops.group_shop,shops.day_update,shops.block FROM "
            "shops LEFT JOIN group_shop ON shops.group_shop=group_shop.id LEFT JOIN day_update ON "
            "shops.day_update=day_update.id LEFT JOIN yesno ON shops.block=yesno.id WHERE shops.id="),
        QStringLiteral("INSERT INTO shops(address,name,group_shop,day_update,one_str_title,two_str_title,"
                       "three_str_title,four_str_title,one_str_bottom,two_str_bottom,network_shop,"
                       "count_day_cycle,block) VALUES(:addr,:name,(SELECT id FROM group_shop WHERE "
                       "name=:group),(SELECT id FROM day_update WHERE name=:day),:title1,:title2,:title3,"
                       ":title4,:end1,:end2,:network,:day_cycle,(SELECT id FROM yesno WHERE name=:block))"),
        QStringLiteral("UPDATE shops SET address=:addr,name=:name,group_shop=(SELECT id FROM group_shop "
                       "WHERE name=:group),day_update=(SELECT id FROM day_update WHERE name=:day),"
                       "one_str_title=:title1,two_str_title=:title2,three_str_title=:title3,"
                       "four_str_title=:title4,one_str_bottom=:end1,two_str_bottom=:end2,"
                       "network_shop=:network,count_day_cycle=:count_day_cycle,block=(SELECT id FROM yesno "
                       "WHERE name=:block) WHERE shops.id="),
        QStringLiteral("SELECT address FROM shops WHERE id=")};
}
} // namespace

QAddEdtShop::QAddEdtShop(QTabShops *tab, QLoadedUser *user, QSqlDatabase *db, QString *id, QObject *receiver,
                         QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent)
    , ui(std::make_unique<Ui::QAddEdtShop>())
    , m_group(QString::number(tab->chosenGroup()))
{
    ui->setupUi(this);
    ui->leAddress->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    ui->leTitle1->setMinimumWidth(fontMetrics().averageCharWidth() * 26);
    for (QComboBox *box : {ui->cbGroup, ui->cbDay, ui->cbBlock})
        keepNarrow(box);
    connectFields();
    load(inputs(*user));
}

/// A field that loses the focus still finds the others.
QAddEdtShop::~QAddEdtShop()
{
    hide();
}

QVector<RecordInput> QAddEdtShop::inputs(const QLoadedUser &user) const
{
    using Form = InputForm;
    const QString days = QStringLiteral("SELECT name,id FROM day_update ORDER BY id");
    const QString yesNo = QStringLiteral("SELECT name,id FROM yesno");
    return {{ui->leAddress, Form::Trimmed, "address", ":addr"},
            {ui->leName, Form::Text, "name", ":name"},
            {ui->cbGroup, Form::Entry, "group_shop", ":group", "group_shop.name", nullptr,
             permittedGroupsSql(user, true)},
            {ui->cbDay, Form::Entry, "day_update", ":day", "day_update.name", nullptr, days},
            {ui->leTitle1, Form::Text, "one_str_title", ":title1"},
            {ui->leTitle2, Form::Text, "two_str_title", ":title2"},
            {ui->leTitle3, Form::Text, "three_str_title", ":title3"},
            {ui->leTitle4, Form::Text, "four_str_title", ":title4"},
            {ui->leEnd1, Form::Text, "one_str_bottom", ":end1"},
            {ui->leEnd2, Form::Text, "two_str_bottom", ":end2"},
            {ui->leNetwork, Form::Address, "network_shop", ":network"},
            {ui->sbDayCycle, Form::Number, "count_day_cycle", ":day_cycle", nullptr, ":count_day_cycle"},
            {ui->cbBlock, Form::Entry, "block", ":block", "yesno.name", nullptr, yesNo}};
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

void QAddEdtShop::loaded()
{
    if (isNew())
        presetNew();
    checkNetwork();
}

void QAddEdtShop::presetNew()
{
    chooseId(ui->cbGroup, m_group);
    if (ui->cbGroup->currentIndex() < 0)
        chooseOnlyItem(ui->cbGroup);
    chooseId(ui->cbBlock, QStringLiteral("0"));
    ui->sbDayCycle->setValue(m_lastCycle);
}

void QAddEdtShop::showField(const QString &key, const std::optional<RecordField> &value)
{
    if (key == QLatin1String("count_day_cycle"))
        widenCycle(value->stored);
    RecordDialog::showField(key, value);
    if (key == QLatin1String("count_day_cycle"))
        change_day_cycle(ui->sbDayCycle->value());
}

/// Other programs store what this editor would not: a shop without a cycle, or below the office's.
void QAddEdtShop::widenCycle(const QString &stored)
{
    m_mayLackCycle = m_mayLackCycle || stored.isNull();
    const int least = qMin(stored.toInt(), officeCycle);
    ui->sbDayCycle->setMinimum(m_mayLackCycle ? least - 1 : least);
    ui->sbDayCycle->setSpecialValueText(m_mayLackCycle ? tr("не задано") : QString());
}

void QAddEdtShop::change_day_cycle(int value)
{
    const QSignalBlocker hold(ui->cbType);
    if (value > storeCycle)
        m_lastCycle = value;
    if (m_mayLackCycle && value == ui->sbDayCycle->minimum())
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

void QAddEdtShop::checkNetwork()
{
    const bool isSound = isSoundAddress(typedAddress(ui->leNetwork));
    colourField(ui->leNetwork, isSound ? QString() : ui->labelGateway->text());
    ui->labelGateway->setVisible(!isSound);
}

QString QAddEdtShop::refusal() const
{
    if (ui->leAddress->text().trimmed().isEmpty())
        return tr("Адреса магазину не може бути пустою");
    if (isNew() && ui->cbGroup->currentText().isEmpty())
        return tr("Група магазину не може бути пустою") +
               (ui->cbGroup->count() == 0 ? QLatin1Char('\n') + noGroupsHint() : QString());
    return QString();
}

QVector<UniqueValue> QAddEdtShop::uniqueValues() const
{
    const QString network = typedAddress(ui->leNetwork);
    return {{"address",
             QStringLiteral("SELECT id FROM shops WHERE address=:addr"),
             {{QStringLiteral(":addr"), ui->leAddress->text().trimmed()}},
             tr("Адреса магазину вже існує в базі!")},
            {"network_shop",
             QStringLiteral("SELECT id FROM shops WHERE network_shop=:network"),
             {{QStringLiteral(":network"), nullIfEmpty(network)}},
             tr("Шлюз %1 вже має інший магазин!").arg(network)}};
}
