#include "qtabshops.h"
#include "ui_qtabshopsfilter.h"

#include "combos.h"
#include "db.h"
#include "linestate.h"
#include "qaddedtshop.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "setting.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {
enum ColumnOf { Id, Address, Name, Network, BlockName, Block, OnOff, CountOffLine };
enum StateFilter { All, Working, Blocked };
const int longestStrayDrag = 50;
} // namespace

QTabShops::QTabShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , ui(std::make_unique<Ui::QTabShopsFilter>())
{
    table = QStringLiteral("shops");
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
    setColumns({{tr("Код"), 7, &asNumber},
                {tr("Адреса магазину"), 45},
                {tr("Назва магазину"), 30},
                {tr("Шлюз"), 18},
                {tr("Блок"), 7},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true}});
    buildFilter();
    connectGrid();
    searchAgain();
}

QTabShops::~QTabShops() = default;

void QTabShops::buildFilter()
{
    ui->setupUi(addFilterBar());
    fillGroups();
    keepNarrow(ui->cbGroup);
    setSearchField(ui->leSearch);
    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(ui->cbGroup, changed, this, &QTabShops::searchAgain);
    connect(ui->cbState, changed, this, &QTabShops::searchAgain);
    connect(ui->leSearch, &QLineEdit::textChanged, this, &QTabShops::seerch);
}

void QTabShops::fillGroups()
{
    const QSignalBlocker hold(ui->cbGroup);
    const QString chosen = chosenItem(ui->cbGroup).id;
    GetLstGroupShopFromPermis(db().connection(), user(), receiver(), true, ui->cbGroup);
    ui->cbGroup->insertItem(0, tr("Усі групи"), 0);
    chooseId(ui->cbGroup, chosen);
    // "All groups" leaves out the one that stands for all: whoever sees no other begins there.
    const bool seesOnlyDefault = ui->cbGroup->count() == 2 && ui->cbGroup->itemData(1).toUInt() == 1;
    if (ui->cbGroup->currentIndex() < 0 || seesOnlyDefault)
        ui->cbGroup->setCurrentIndex(seesOnlyDefault ? 1 : 0);
}

void QTabShops::followRights()
{
    fillGroups();
    searchAgain();
}

void QTabShops::connectGrid()
{
    connect(view(), &QNTableView::LMoveMouseInRow, this, &QTabShops::LMoveMouse);
    connect(view(), &QNTableView::RClicked, this, &QTabShops::RightClickSlot);
    // The same without a mouse.
    auto *registers = new QShortcut(Qt::CTRL + Qt::Key_Right, view());
    auto *program = new QShortcut(Qt::CTRL + Qt::Key_R, view());
    for (QShortcut *shortcut : {registers, program})
        shortcut->setContext(Qt::WidgetShortcut);
    connect(registers, &QShortcut::activated, this, [this] { askForRegisters(view()->currentIndex()); });
    connect(program, &QShortcut::activated, this, [this] { RightClickSlot(view()->currentIndex()); });
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
        where += GetStrLstGroupFromPermis(user(), field, false);
    else
        where += field + QLatin1Char('=') + QString::number(chosenGroup());
    const int state = ui->cbState->currentIndex();
    if (state == Working || state == Blocked)
        where += QStringLiteral(" AND shops.block=") + QString::number(state == Blocked ? 1 : 0);
    if (!text.isEmpty())
        where += QStringLiteral(" AND (shops.address LIKE ") + likeContains(text) +
                 QStringLiteral(" or shops.name LIKE ") + likeContains(text) + QLatin1Char(')');
    return where;
}

void QTabShops::seerch(const QString &text)
{
    const QString where = condition(text.trimmed());
    search(where,
           QStringLiteral("SELECT COUNT(*) FROM shops LEFT JOIN group_shop ON shops.group_shop=group_shop.id "
                          "LEFT JOIN day_update ON shops.day_update=day_update.id LEFT JOIN yesno ON "
                          "shops.block=yesno.id") +
               where);
}

void QTabShops::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QTabShops::rowsShown()
{
    for (int row = 0; row < model()->rowCount(); ++row)
        rowShown(row);
}

void QTabShops::rowShown(int row)
{
    LineState state = LineState::OffLine;
    if (model()->stored(row, OnOff).toInt() != 0)
        state = model()->stored(row, CountOffLine).toInt() == 0 ? LineState::OnLine : LineState::PartlyOnLine;
    showLineState(model(), row, {Id, Network}, state);
}

std::unique_ptr<RecordDialog> QTabShops::makeEditor(QString *id)
{
    return std::make_unique<QAddEdtShop>(this, user(), db().connection(), id, receiver(), this);
}

void QTabShops::LMoveMouse(int countpx, const QModelIndex &index)
{
    if (countpx > longestStrayDrag)
        askForRegisters(index);
}

void QTabShops::askForRegisters(const QModelIndex &index)
{
    if (index.isValid())
        emit MoveMouseSignal(model()->stored(index.row(), Id).toUInt());
}

void QTabShops::RightClickSlot(const QModelIndex &index)
{
    if (index.isValid())
        launchProgram(this, receiver(), settings()->shopRightClick(), model()->stored(index.row(), Network));
}
