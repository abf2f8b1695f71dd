#include "qaddedtkass.h"
#include "ui_qaddedtkass.h"

#include "combos.h"
#include "networkaddress.h"
#include "permittedlists.h"
#include "qtabkass.h"
#include "typedinput.h"

#include <QEvent>
#include <QSignalBlocker>

namespace {
RecordStatements statements()
{
    return {
        QStringLiteral("kassa"),
        QStringLiteral(
            "SELECT kassa.id,shops.address,kassa.advertising_str,kassa.cashdrive_code,yesno.name,"
            "group_shop.name,yesno2.name,kassa.ip_address,kassa.id_type, kassa.info_block, kassa.marka, "
            "kassa.model, kassa.number, shops.network_shop,kassa.id_shop,kassa.head_edit,kassa.block,(SELECT name "
            "FROM type_device WHERE id=kassa.id_type) AS type_name FROM kassa LEFT JOIN shops ON "
            "kassa.id_shop=shops.id LEFT JOIN yesno ON kassa.block=yesno.id LEFT JOIN yesno AS yesno2 ON "
            "kassa.head_edit=yesno2.id LEFT JOIN group_shop ON group_shop.id=shops.group_shop WHERE kassa.id="),
        QStringLiteral("INSERT INTO kassa(id_shop,advertising_str,cashdrive_code,head_edit,block,info_block,"
                       "marka,model,number,ip_address,id_type) VALUES((SELECT id FROM shops WHERE "
                       "address=:shop),:adver,:cashdriv,(SELECT id FROM yesno WHERE name=:head_edit),(SELECT "
                       "id FROM yesno WHERE name=:block),:info_block,:marka,:model,:number,:ip_address,"
                       ":id_type)"),
        QStringLiteral("UPDATE kassa SET id_shop=(SELECT id FROM shops WHERE address=:addr),"
                       "advertising_str=:adver,cashdrive_code=:cashdr,head_edit=(SELECT id FROM yesno WHERE "
                       "name=:head_edit),block=(SELECT id FROM yesno WHERE name=:block),"
                       "info_block=:info_block,marka=:marka,model=:model,number=:number,"
                       "ip_address=:ip_address,id_type=:id_type WHERE kassa.id="),
        QStringLiteral("SELECT CONCAT_WS(', ',shops.address,kassa.advertising_str) FROM kassa LEFT JOIN "
                       "shops ON shops.id=kassa.id_shop WHERE kassa.id=")};
}
} // namespace

QAddEdtKass::QAddEdtKass(QTabKass *tab, QSqlDatabase *db, QString *id, const QString &group,
                         QObject *receiver, QWidget *parent, unsigned int id_shop)
    : RecordDialog(Db(db, receiver), statements(), id, parent)
    , ui(std::make_unique<Ui::QAddEdtKass>())
    , m_group(group)
    , m_shop(QString::number(id_shop))
{
    ui->setupUi(this);
    ui->leMarka->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    limitTo(ui->leCashDrive, "[0-9]{3}");
    for (QComboBox *box : {ui->cbGroup, ui->cbShop, ui->cbType})
        keepNarrow(box, 24);
    for (QComboBox *box : {ui->cbHeadEdit, ui->cbBlock})
        keepNarrow(box, 6);
    connectFields();
    load(inputs(), {permittedGroupsSql(*tab->user(), true),
                    QStringLiteral("SELECT address,id,group_shop,network_shop,count_day_cycle FROM shops")});
}

/// A field that loses the focus still finds the others.
QAddEdtKass::~QAddEdtKass()
{
    hide();
}

QVector<RecordInput> QAddEdtKass::inputs() const
{
    using Form = InputForm;
    const QString yesNo = QStringLiteral("SELECT name,id FROM yesno");
    return {{ui->cbShop, Form::Entry, "id_shop", ":shop", "shops.address", ":addr"},
            {ui->leAdver, Form::Trimmed, "advertising_str", ":adver"},
            {ui->leCashDrive, Form::OrNull, "cashdrive_code", ":cashdriv", nullptr, ":cashdr"},
            {ui->cbHeadEdit, Form::Entry, "head_edit", ":head_edit", "yesno2.name", nullptr, yesNo},
            {ui->cbBlock, Form::Entry, "block", ":block", "yesno.name", nullptr, yesNo},
            {ui->leInfoBlock, Form::Text, "info_block", ":info_block"},
            {ui->cbType, Form::EntryId, "id_type", ":id_type", "type_name", nullptr,
             QStringLiteral("SELECT name,id FROM type_device")},
            {ui->leMarka, Form::Text, "marka", ":marka"},
            {ui->leModel, Form::Text, "model", ":model"},
            {ui->leNumber, Form::Text, "number", ":number"},
            // A register without a network is one whose address is NULL.
            {ui->leIp, Form::Address, "ip_address", ":ip_address"}};
}

void QAddEdtKass::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtKass::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtKass::btcancel);
    connect(ui->cbGroup, &QComboBox::currentTextChanged, this, &QAddEdtKass::selgroup);
    connect(ui->cbShop, &QComboBox::currentTextChanged, this, &QAddEdtKass::showGateway);
    connect(ui->leIp, &QLineEdit::textChanged, this, &QAddEdtKass::ip_change);
    ui->leIp->installEventFilter(this);
}

/// The groups that the user may see, and all shops.
bool QAddEdtKass::takeRows(const QVector<TextRows> &more)
{
    ListEntries groups;
    for (const QStringList &row : more.at(0))
        groups.append({row.at(0), row.at(1)});
    for (const QStringList &row : more.at(1))
        m_shops.append({row.at(0), row.at(1), row.at(2), row.at(3), row.at(4).toInt() > 0});
    {
        const QSignalBlocker hold(ui->cbGroup);
        showEntries(ui->cbGroup, groups);
        ui->cbGroup->setCurrentIndex(-1);
    }
    ui->cbType->addItem(tr("інше"));
    for (QComboBox *box : {ui->cbHeadEdit, ui->cbBlock})
        chooseId(box, QStringLiteral("0"));
    if (groups.isEmpty())
        warn(tr("Не має доступних груп!") + QLatin1Char('\n') + noGroupsHint());
    return !groups.isEmpty();
}

void QAddEdtKass::loaded()
{
    if (isNew())
        preset();
    showGateway();
    ip_change(ui->leIp->text());
    showIp();
}

void QAddEdtKass::showIp()
{
    colourField(ui->leIp,
                m_isIpSound ? QString() : tr("Це не IP-адреса: потрібні чотири числа від 0 до 255."));
}

void QAddEdtKass::preset()
{
    chooseText(ui->cbGroup, m_group);
    if (ui->cbGroup->currentIndex() < 0)
        chooseOnlyItem(ui->cbGroup);
    const Shop preset = shop(m_shop);
    if (preset.id.isEmpty())
        return;
    chooseId(ui->cbGroup, preset.group);
    chooseId(ui->cbShop, preset.id);
}

/// Empty for one that is not there.
QAddEdtKass::Shop QAddEdtKass::shop(const QString &id) const
{
    for (const Shop &shop : m_shops) {
        if (shop.id == id)
            return shop;
    }
    return {};
}

/// The shop that the register stands in is offered whatever has become of it, so that the register can be
/// changed: an office or a store since, or of a group that the user does not see.
void QAddEdtKass::showField(const QString &key, const std::optional<RecordField> &value)
{
    if (key == QLatin1String("id_shop"))
        chooseId(ui->cbGroup, shop(value->stored).group);
    RecordDialog::showField(key, value);
}

void QAddEdtKass::selgroup(const QString &name)
{
    Q_UNUSED(name)
    const QString group = chosenItem(ui->cbGroup).id;
    ListEntries offered;
    for (const Shop &shop : qAsConst(m_shops)) {
        if (shop.mayHoldRegisters && !group.isEmpty() && shop.group == group)
            offered.append({shop.address, shop.id});
    }
    showEntries(ui->cbShop, offered);
    // The shop is to be chosen, not to be overlooked.
    ui->cbShop->setCurrentIndex(-1);
    showGateway();
}

void QAddEdtKass::showGateway()
{
    ui->leGateway->setText(shop(chosenItem(ui->cbShop).id).gateway);
    ui->labelGateway->setVisible(!isSoundAddress(ui->leGateway->text()));
}

void QAddEdtKass::ip_change(const QString &text)
{
    Q_UNUSED(text)
    m_isIpSound = isSoundAddress(typedAddress(ui->leIp));
    // What is wrong is coloured when the field is left: half an address is not wrong yet.
    if (m_isIpSound)
        showIp();
}

bool QAddEdtKass::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->leIp && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        showIp();
    return EditDialog::eventFilter(watched, event);
}

QString QAddEdtKass::refusal() const
{
    if (ui->leAdver->text().trimmed().isEmpty())
        return tr("Рекламний рядок ідентифікації каси не може бути порожній!");
    if (ui->cbShop->currentText().isEmpty())
        return tr("Адреса магазину не може бути порожня!") +
               (ui->cbGroup->currentIndex() >= 0 && ui->cbShop->count() == 0
                    ? QLatin1Char('\n') +
                          tr("У цій групі ще немає магазинів з касами: спершу додайте магазин у "
                             "вкладці \"Магазини\".")
                    : QString());
    // The validator only keeps other characters out.
    const int digits = ui->leCashDrive->text().size();
    if (digits != 0 && digits != 3)
        return tr("Код CashDrive повинен складатися з трьох цифр або бути порожнім!");
    return QString();
}

QVector<UniqueValue> QAddEdtKass::uniqueValues() const
{
    return {{"advertising_str",
             QStringLiteral("SELECT id FROM kassa WHERE id_shop=(SELECT id FROM shops WHERE "
                            "address=:shop) AND advertising_str=:adver"),
             {{QStringLiteral(":shop"), ui->cbShop->currentText()},
              {QStringLiteral(":adver"), ui->leAdver->text().trimmed()}},
             tr("Рекламний рядок ідентифікації каси повинен бути унікальним в межах одного магазину!")},
            {"cashdrive_code",
             QStringLiteral("SELECT id FROM kassa WHERE cashdrive_code=:cashdriv"),
             {{QStringLiteral(":cashdriv"), nullIfEmpty(ui->leCashDrive->text())}},
             tr("Код CashDrive повинен бути унікальним!")}};
}
