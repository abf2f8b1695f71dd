#include "qaddedtkass.h"
#include "ui_qaddedtkass.h"

#include "combos.h"
#include "networkaddress.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qtabkass.h"
#include "qupdatebd.h"
#include "typedinput.h"

#include <QEvent>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>

QAddEdtKass::QAddEdtKass(QTabKass *tab, QSqlDatabase *db, QString *id, const QString &group,
                         QObject *receiver, QWidget *parent, unsigned int id_shop)
    : EditDialog(parent)
    , ui(std::make_unique<Ui::QAddEdtKass>())
    , m_db(db, receiver)
    , m_id(id != nullptr ? id : &m_newId)
{
    ui->setupUi(this);
    ui->leMarka->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    ui->leCashDrive->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{3}")), this));
    for (QComboBox *box : {ui->cbGroup, ui->cbShop, ui->cbType})
        keepNarrow(box, 24);
    setRecordTitle(*m_id);
    limitLengths(tab);
    connectFields();
    m_isLoaded = fillLists(tab) && (m_id->isEmpty() ? preset(group, id_shop) : load());
    ip_change(ui->leIp->text());
    colourField(ui->leIp, m_isIpSound);
}

QAddEdtKass::~QAddEdtKass() = default;

void QAddEdtKass::limitLengths(const QTabKass *tab)
{
    const QPair<QLineEdit *, const char *> fields[] = {{ui->leAdver, "advertising_str"},
                                                       {ui->leInfoBlock, "info_block"},
                                                       {ui->leMarka, "marka"},
                                                       {ui->leModel, "model"},
                                                       {ui->leNumber, "number"}};
    for (const auto &[edit, column] : fields) {
        const int length = tab->GetMaxChar(QStringLiteral("kassa"), QLatin1String(column));
        if (length > 0)
            edit->setMaxLength(length);
    }
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

bool QAddEdtKass::fillLists(const QTabKass *tab)
{
    {
        const QSignalBlocker hold(ui->cbGroup);
        QTab::GetLstGroupShopFromPermis(m_db.connection(), tab->user(), m_db.receiver(), true, ui->cbGroup);
        ui->cbGroup->setCurrentIndex(-1);
    }
    if (ui->cbGroup->count() == 0) {
        QQestion::question(parentWidget(), tr("Попередження."),
                           tr("Не має доступних груп!") + QLatin1Char('\n') + noGroupsHint(), true);
        return false;
    }
    if (!fillCombo(ui->cbType, m_db, QStringLiteral("SELECT name,id FROM type_device")))
        return false;
    ui->cbType->addItem(tr("інше"));
    for (QComboBox *box : {ui->cbHeadEdit, ui->cbBlock}) {
        if (!fillCombo(box, m_db, QStringLiteral("SELECT name,id FROM yesno")))
            return false;
        box->setCurrentIndex(box->findData(0));
    }
    return true;
}

bool QAddEdtKass::preset(const QString &group, unsigned int id_shop)
{
    chooseText(ui->cbGroup, group);
    if (ui->cbGroup->currentIndex() < 0)
        chooseOnlyItem(ui->cbGroup);
    if (id_shop == 0) {
        showGateway();
        return true;
    }
    auto shop = m_db.run(QStringLiteral("SELECT shops.group_shop,shops.network_shop FROM shops LEFT JOIN "
                                        "kassa ON kassa.id_shop=shops.id WHERE shops.id=") +
                         QString::number(id_shop) + QStringLiteral(" LIMIT 1"));
    if (!shop)
        return false;
    if (shop->next()) {
        ui->cbGroup->setCurrentIndex(ui->cbGroup->findData(shop->value(0).toUInt()));
        ui->cbShop->setCurrentIndex(ui->cbShop->findData(id_shop));
        ui->leGateway->setText(toText(shop->value(1)));
    }
    showWarning();
    return true;
}

bool QAddEdtKass::load()
{
    auto kassa = m_db.run(
        QStringLiteral(
            "SELECT kassa.id,shops.address,kassa.advertising_str,kassa.cashdrive_code,yesno.name,"
            "group_shop.name,yesno2.name,kassa.ip_address,kassa.id_type, kassa.info_block, "
            "kassa.marka, kassa.model, kassa.number, shops.network_shop,kassa.id_shop,"
            "shops.group_shop,kassa.head_edit,kassa.block FROM kassa LEFT JOIN shops ON kassa.id_shop=shops.id LEFT JOIN yesno ON kassa.block=yesno.id LEFT JOIN "
            "yesno AS yesno2 ON kassa.head_edit=yesno2.id LEFT JOIN group_shop ON "
            "group_shop.id=shops.group_shop WHERE kassa.id=") +
        *m_id);
    if (!kassa)
        return false;
    if (!kassa->next()) {
        postMessage(m_db.receiver(), tr("Запис не знайдено в базі!"), QMessEvent::Warning);
        return false;
    }
    const auto text = [&kassa](int column) { return toText(kassa->value(column)); };
    chooseId(ui->cbGroup, text(15));
    showOwnShop({text(1), text(14)});
    ui->leAdver->setText(text(2));
    ui->leCashDrive->setText(text(3));
    chooseId(ui->cbBlock, text(17));
    chooseId(ui->cbHeadEdit, text(16));
    ui->leIp->setText(text(7));
    const int type = text(8).isEmpty() ? -1 : ui->cbType->findData(text(8).toUInt());
    ui->cbType->setCurrentIndex(type < 0 ? ui->cbType->count() - 1 : type);
    int column = 9;
    for (QLineEdit *field : {ui->leInfoBlock, ui->leMarka, ui->leModel, ui->leNumber})
        showStored(field, kassa->value(column++));
    ui->leGateway->setText(text(13));
    showWarning();
    const auto columns = readColumns(m_db, QStringLiteral("kassa"), *m_id, meant());
    m_loaded = columns.value_or(MeantColumns());
    return columns.has_value();
}

/// The shop that the register stands in is offered whatever has become of it, so that the register can be
/// changed: an office or a store since, or of a group that the user does not see.
void QAddEdtKass::showOwnShop(const NamedId &shop)
{
    chooseId(ui->cbShop, shop.id);
    if (ui->cbShop->currentIndex() >= 0)
        return;
    ui->cbShop->addItem(shop.name, shop.id);
    ui->cbShop->setCurrentIndex(ui->cbShop->count() - 1);
}

void QAddEdtKass::selgroup(const QString &name)
{
    Q_UNUSED(name)
    fillCombo(ui->cbShop, m_db,
              QStringLiteral("SELECT address,id FROM shops WHERE count_day_cycle>0 AND group_shop=") +
                  QString::number(ui->cbGroup->currentData().toUInt()));
    // The shop is to be chosen, not to be overlooked.
    ui->cbShop->setCurrentIndex(-1);
    showGateway();
}

void QAddEdtKass::showGateway()
{
    const uint shop = ui->cbShop->currentData().toUInt();
    ui->leGateway->clear();
    if (shop != 0)
        ui->leGateway->setText(
            m_db.firstText(QStringLiteral("SELECT network_shop FROM shops WHERE id=") + QString::number(shop))
                .value_or(QString()));
    showWarning();
}

void QAddEdtKass::showWarning()
{
    ui->labelGateway->setVisible(!isSoundAddress(ui->leGateway->text()));
}

void QAddEdtKass::ip_change(const QString &text)
{
    Q_UNUSED(text)
    m_isIpSound = isSoundAddress(typedAddress(ui->leIp));
    // What is wrong is coloured when the field is left: half an address is not wrong yet.
    if (m_isIpSound)
        colourField(ui->leIp, true);
}

bool QAddEdtKass::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->leIp && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        colourField(ui->leIp, m_isIpSound);
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

bool QAddEdtKass::save()
{
    if (!isUnique())
        return false;
    m_sent = meant();
    m_sentId = *m_id;
    const Saved saved =
        saveRecord(m_db, QStringLiteral("kassa"), &m_sentId, m_loaded, m_sent,
                   [this](QString *id) { return id->isEmpty() ? NewRecord(id) : UpdateRecord(id); });
    if (saved.outcome == Saved::Written)
        takeOver();
    return isSaved(saved);
}

std::optional<bool> QAddEdtKass::hasArrived()
{
    return holds(m_db, QStringLiteral("kassa"), m_sentId, m_sent);
}

void QAddEdtKass::takeOver()
{
    *m_id = m_sentId;
    m_loaded = m_sent;
    QUpdateBD().update(QStringLiteral("kassa"), *m_db.connection(), m_db.receiver());
}

MeantColumns QAddEdtKass::meant() const
{
    return {{"id_shop", chosenItem(ui->cbShop).id, fieldName(ui->cbShop)},
            {"advertising_str", ui->leAdver->text().trimmed(), fieldName(ui->leAdver)},
            {"cashdrive_code", ui->leCashDrive->text(), fieldName(ui->leCashDrive)},
            {"head_edit", chosenItem(ui->cbHeadEdit).id, fieldName(ui->cbHeadEdit)},
            {"block", chosenItem(ui->cbBlock).id, fieldName(ui->cbBlock)},
            {"info_block", ui->leInfoBlock->text(), fieldName(ui->leInfoBlock)},
            {"marka", ui->leMarka->text(), fieldName(ui->leMarka)},
            {"model", ui->leModel->text(), fieldName(ui->leModel)},
            {"number", ui->leNumber->text(), fieldName(ui->leNumber)},
            {"ip_address", typedAddress(ui->leIp), fieldName(ui->leIp)},
            {"id_type", chosenItem(ui->cbType).id, fieldName(ui->cbType)}};
}

bool QAddEdtKass::isUnique()
{
    const QString others = m_id->isEmpty() ? QString() : QStringLiteral(" AND id<>") + *m_id;
    return isFree(
               m_db,
               QStringLiteral("SELECT id FROM kassa WHERE id_shop=(SELECT id FROM shops WHERE "
                              "address=:shop) AND advertising_str=:adver") +
                   others,
               {{QStringLiteral(":shop"), ui->cbShop->currentText()},
                {QStringLiteral(":adver"), ui->leAdver->text().trimmed()}},
               tr("Рекламний рядок ідентифікації каси повинен бути унікальним в межах одного магазину!")) &&
           isFree(m_db, QStringLiteral("SELECT id FROM kassa WHERE cashdrive_code=:cashdriv") + others,
                  {{QStringLiteral(":cashdriv"), nullIfEmpty(ui->leCashDrive->text())}},
                  tr("Код CashDrive повинен бути унікальним!"));
}

Db::Values QAddEdtKass::values() const
{
    const QVariant type = ui->cbType->currentData();
    return {{QStringLiteral(":adver"), ui->leAdver->text().trimmed()},
            {QStringLiteral(":head_edit"), ui->cbHeadEdit->currentText()},
            {QStringLiteral(":block"), ui->cbBlock->currentText()},
            {QStringLiteral(":info_block"), typed(ui->leInfoBlock)},
            {QStringLiteral(":marka"), typed(ui->leMarka)},
            {QStringLiteral(":model"), typed(ui->leModel)},
            {QStringLiteral(":number"), typed(ui->leNumber)},
            // A register without a network is one whose address is NULL.
            {QStringLiteral(":ip_address"), nullIfEmpty(typedAddress(ui->leIp))},
            {QStringLiteral(":id_type"), type.isValid() ? type : QVariant(QVariant::UInt)}};
}

bool QAddEdtKass::NewRecord(QString *id)
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":shop"), ui->cbShop->currentText()});
    bound.append({QStringLiteral(":cashdriv"), nullIfEmpty(ui->leCashDrive->text())});
    if (!m_db.run(QStringLiteral(
                      "INSERT INTO kassa(id_shop,advertising_str,cashdrive_code,head_edit,block,info_block,"
                      "marka,model,number,ip_address,id_type) VALUES((SELECT id FROM shops WHERE "
                      "address=:shop),:adver,:cashdriv,(SELECT id FROM yesno WHERE name=:head_edit),(SELECT "
                      "id FROM yesno WHERE name=:block),:info_block,:marka,:model,:number,:ip_address,"
                      ":id_type)"),
                  bound))
        return false;
    const auto made = m_db.lastInsertId();
    if (made)
        *id = QString::number(*made);
    return made.has_value();
}

bool QAddEdtKass::UpdateRecord(QString *id)
{
    Db::Values bound = values();
    bound.append({QStringLiteral(":addr"), ui->cbShop->currentText()});
    bound.append({QStringLiteral(":cashdr"), nullIfEmpty(ui->leCashDrive->text())});
    return m_db
        .run(QStringLiteral(
                 "UPDATE kassa SET id_shop=(SELECT id FROM shops WHERE address=:addr),"
                 "advertising_str=:adver,cashdrive_code=:cashdr,head_edit=(SELECT id FROM yesno WHERE "
                 "name=:head_edit),block=(SELECT id FROM yesno WHERE name=:block),"
                 "info_block=:info_block,marka=:marka,model=:model,number=:number,"
                 "ip_address=:ip_address,id_type=:id_type WHERE kassa.id=") +
                 *id,
             bound)
        .has_value();
}
