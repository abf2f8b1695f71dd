#include "qtabshops.h"
#include "ui_qtabshopsfilter.h"

#include "combos.h"
#include "db.h"
#include "qaddedtshop.h"
#include "qrowmodel.h"
#include "setting.h"

#include <QSignalBlocker>

namespace {
enum ColumnOf { Id, Address, Name, Network, BlockName, Block, OnOff, CountOffLine };
enum StateFilter { All, Working, Blocked };
const int longestStrayDrag = 50;
} // namespace

QTabShops::QTabShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTabOnLine(db, user, receiver, set, parent, longestStrayDrag, {Id, Network})
    , ui(std::make_unique<Ui::QTabShopsFilter>())
{
    table = QStringLiteral("shops");
    countsRecords = true;
    isExportedToViewers = true;
    query = QStringLiteral(
        "SELECT shops.id, shops.address, shops.name, "
        "shops.network_shop,yesno.name,shops.block,onoffline.onoff,co FROM shops LEFT JOIN (SELECT * FROM "
        "onoffline WHERE onoffline.id_kass IS NULL AND onoffline.dt_end IS NULL) onoffline ON "
        "onoffline.id_shop=shops.id LEFT JOIN (SELECT COUNT(*) AS co,kassa.id_shop FROM kassa LEFT JOIN "
        "(SELECT * FROM onoffline WHERE onoffline.dt_end IS NULL) onoffline ON onoffline.id_kass=kassa.id "
        "AND onoffline.id_shop=kassa.id_shop WHERE kassa.ip_address IS NOT NULL AND kassa.block=0 AND "
        "(onoffline.onoff=0 OR onoffline.onoff IS NULL) GROUP BY kassa.id_shop) kassa ON "
        "kassa.id_shop=shops.id LEFT JOIN group_shop ON shops.group_shop=group_shop.id LEFT JOIN day_update "
        "ON shops.day_update=day_update.id LEFT JOIN yesno ON shops.block=yesno.id");
    setColumns({{tr("Код"), 9, &asNumber},
                {tr("Адреса магазину"), 45},
                {tr("Назва магазину"), 30},
                {tr("Шлюз"), 18},
                {tr("Блок"), 7},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true}});
    buildFilter();
    searchAgain();
}

QTabShops::~QTabShops() = default;

void QTabShops::buildFilter()
{
    ui->setupUi(addFilterBar());
    fillGroupFilter(false);
    keepNarrow(ui->cbGroup);
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(ui->cbGroup, changed, this, &QTabShops::searchAgain);
    connect(ui->cbState, changed, this, &QTabShops::searchAgain);
}

/// "All groups" leaves out the one that stands for all: whoever sees no other begins there.
void QTabShops::fillGroupFilter(bool searches)
{
    fillGroups(ui->cbGroup, [this, searches](bool isKept) {
        const bool sees = ui->cbGroup->count() != 2 || ui->cbGroup->itemData(1).toUInt() != 1;
        if (!sees) {
            const QSignalBlocker hold(ui->cbGroup);
            ui->cbGroup->setCurrentIndex(1);
        }
        if (searches || !isKept || !sees)
            searchAgain();
    });
}

void QTabShops::followRights()
{
    fillGroupFilter(true);
}

uint QTabShops::chosenGroup() const
{
    return ui->cbGroup->currentData().toUInt();
}

QString QTabShops::condition(const QString &text) const
{
    const QString field = QStringLiteral("shops.group_shop");
    QString where = QStringLiteral(" WHERE ");
    if (chosenGroup() == 0)
        // Whoever leads here may mean a shop of the group that stands for all.
        where += GetStrLstGroupFromPermis(user(), field, !narrowing().isEmpty());
    else
        where += field + QLatin1Char('=') + QString::number(chosenGroup());
    const int state = ui->cbState->currentIndex();
    if (state == Working || state == Blocked)
        where += QStringLiteral(" AND shops.block=") + QString::number(state == Blocked ? 1 : 0);
    const QString words = likeWords(QStringLiteral("(shops.address LIKE %1 or shops.name LIKE %1)"), text);
    return words.isEmpty() ? where : where + QStringLiteral(" AND ") + words;
}

void QTabShops::seerch(const QString &text)
{
    search(condition(text));
}

void QTabShops::searchAgain()
{
    seerch(ui->leSearch->text());
}

LineState QTabShops::lineState(int row) const
{
    if (model()->number(row, OnOff) == 0)
        return LineState::OffLine;
    return model()->number(row, CountOffLine) == 0 ? LineState::OnLine : LineState::PartlyOnLine;
}

std::unique_ptr<RecordDialog> QTabShops::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtShop>(this, user(), db().connection(), id, receiver(), this);
}

void QTabShops::dragged(int row)
{
    emit MoveMouseSignal(static_cast<uint>(model()->number(row, Id)));
}

NamedCommand QTabShops::ownCommand(int row) const
{
    Q_UNUSED(row)
    return settingsCommand(settings()->shopRightClick());
}

QString QTabShops::launchAddress(int row) const
{
    return model()->stored(row, Network);
}
