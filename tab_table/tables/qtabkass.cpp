#include "qtabkass.h"
#include "ui_qtabkassfilter.h"

#include "combos.h"
#include "db.h"
#include "qaddedtkass.h"
#include "qrowmodel.h"
#include "setting.h"

#include <QSignalBlocker>

namespace {
enum ColumnOf { Id, Address, AdvertisingStr, IpAddress, TypeName, BlockName, IdType, Block, OnOff };
const int longestStrayDrag = 49;
const QLatin1String shopGroup("shops.group_shop");
} // namespace

QTabKass::QTabKass(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTabOnLine(db, user, receiver, set, parent, longestStrayDrag, {Id, IpAddress})
    , ui(std::make_unique<Ui::QTabKassFilter>())
{
    table = QStringLiteral("kassa");
    countsRecords = true;
    isExportedToViewers = true;
    query = QStringLiteral(
        "SELECT kassa.id,shops.address,kassa.advertising_str,kassa.ip_address,type_device.name, "
        "yesno.name,kassa.id_type,kassa.block,onoffline.onoff FROM kassa LEFT JOIN shops ON "
        "kassa.id_shop=shops.id  LEFT JOIN (SELECT * FROM onoffline WHERE onoffline.dt_end IS NULL)  "
        "onoffline ON onoffline.id_kass=kassa.id LEFT JOIN type_device ON kassa.id_type=type_device.id  "
        "LEFT JOIN yesno ON kassa.block=yesno.id");
    setColumns({{tr("Код"), 9, &asNumber},
                {tr("Адреса магазину"), 32},
                {tr("Рекламний рядок"), 25},
                {tr("IP адреса"), 18},
                {tr("Тип пристрою"), 14},
                {tr("Блок"), 7},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true}});
    buildFilter();
    GroupChange(QString());
}

QTabKass::~QTabKass() = default;

void QTabKass::buildFilter()
{
    ui->setupUi(addFilterBar());
    fillGroups(ui->cbGroup, [this](bool isKept) {
        if (!isKept)
            GroupChange(QString());
    });
    keepNarrow(ui->cbGroup);
    keepNarrow(ui->cbShop);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    connect(ui->cbGroup, &QComboBox::currentTextChanged, this, &QTabKass::GroupChange);
    connect(ui->cbShop, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &QTabKass::searchAgain);
}

void QTabKass::followRights()
{
    fillGroups(ui->cbGroup, [this](bool) {
        fillShops();
        searchAgain();
    });
}

QString QTabKass::chosenGroup() const
{
    return ui->cbGroup->currentData().toUInt() == 0 ? QString() : ui->cbGroup->currentText();
}

uint QTabKass::chosenShop() const
{
    return ui->cbShop->currentData().toUInt();
}

void QTabKass::clearFilter()
{
    QTab::clearFilter();
    showEntries(ui->cbShop, {{tr("Магазин"), 0}});
    fillShops();
}

void QTabKass::LoadData(unsigned int id_shop)
{
    showAll();
    {
        const QSignalBlocker holdGroup(ui->cbGroup);
        const QSignalBlocker holdShop(ui->cbShop);
        const QSignalBlocker holdSearch(ui->leSearch);
        ui->leSearch->clear();
        ui->cbGroup->setCurrentIndex(0);
        // It has no name before the shops are there.
        showEntries(ui->cbShop, {{tr("Магазин"), 0}});
        if (id_shop != 0)
            ui->cbShop->addItem(QString(), id_shop);
        ui->cbShop->setCurrentIndex(ui->cbShop->count() - 1);
    }
    fillShops();
    searchAgain();
}

void QTabKass::GroupChange(const QString &text)
{
    Q_UNUSED(text)
    showEntries(ui->cbShop, {{tr("Магазин"), 0}});
    fillShops();
    searchAgain();
}

void QTabKass::fillShops()
{
    const uint group = ui->cbGroup->currentData().toUInt();
    QString sql = QStringLiteral("SELECT shops.address ,shops.id FROM shops WHERE");
    if (group == 0)
        sql += GetStrLstGroupFromPermis(user(), shopGroup, true);
    else
        sql += QLatin1Char(' ') + shopGroup + QLatin1Char('=') + QString::number(group);
    fillFilter(ui->cbShop, sql, tr("Магазин"), [this](bool isKept) {
        if (!isKept)
            searchAgain();
    });
}

QString QTabKass::placeCondition() const
{
    if (chosenShop() != 0)
        return QStringLiteral(" WHERE kassa.id_shop=") + QString::number(chosenShop());
    const uint group = ui->cbGroup->currentData().toUInt();
    if (group != 0)
        return QStringLiteral(" WHERE ") + shopGroup + QLatin1Char('=') + QString::number(group);
    return QStringLiteral(" WHERE") + GetStrLstGroupFromPermis(user(), shopGroup, true);
}

void QTabKass::seerch(const QString &text)
{
    QString where = placeCondition();
    const QString words = likeWords(QStringLiteral("shops.address LIKE %1"), text);
    if (!words.isEmpty())
        where += QStringLiteral(" AND ") + words;
    search(where);
}

void QTabKass::searchAgain()
{
    seerch(ui->leSearch->text());
}

LineState QTabKass::lineState(int row) const
{
    return model()->number(row, OnOff) != 0 ? LineState::OnLine : LineState::OffLine;
}

std::unique_ptr<RecordDialog> QTabKass::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtKass>(this, db().connection(), id, chosenGroup(), receiver(), this,
                                         id->isEmpty() ? chosenShop() : 0);
}

void QTabKass::dragged(int row)
{
    if (mayLaunch(row))
        launch(settings()->kassaDrag(), row);
}

NamedCommand QTabKass::ownCommand(int row) const
{
    const auto ofType = commandNamed(comands(), model()->stored(row, TypeName));
    return ofType ? *ofType : settingsCommand(settings()->kassaRightClick());
}

QString QTabKass::launchAddress(int row) const
{
    return model()->stored(row, IpAddress);
}

QString QTabKass::launchRefusal(int row) const
{
    return model()->stored(row, IdType).isEmpty()
               ? tr("Тип пристрою не вказано: програми для нього не запускаються.")
               : QString();
}
