#include "qzreport.h"
#include "ui_qzreport.h"

#include "dbtasks.h"
#include "destination.h"
#include "money.h"
#include "openshifts.h"
#include "placenames.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "reportformats.h"
#include "shopgroups.h"
#include "typedinput.h"
#include "userstate.h"
#include "zstatements.h"

#include <QStatusBar>

namespace {
enum ListColumn { Number, Shop, Register, Turnover, Cash, NonCash, Discount = 7, Returns = 10, Tax, Time };
enum ChartKind { ByDay, ByShop };

const QLatin1String chartKey("zreport/chart");
const QLatin1String summedMark("summ");

ChekOrigin originOf(DbId shop, DbId kass, const QString &number)
{
    ChekOrigin origin;
    origin.shop = shop;
    origin.kass = kass;
    origin.zFrom = origin.zTo = number;
    return origin;
}
} // namespace

QZReport::QZReport(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : ReportWindow(db, user, mainWindow, parent)
    , ui(std::make_unique<Ui::QZReport>())
    , m_origins(newTasks())
    , m_places(newTasks())
{
    ui->setupUi(this);
    limitTo(ui->leLimit, "[0-9]*");
    buildList();
    buildChart();
    buildOpen();
    connect(ui->place, &PlaceSelector::groupChanged, this, &QZReport::GroupChanged);
    connect(ui->place, &PlaceSelector::shopChanged, this, &QZReport::ShopChanged);
    connect(ui->pbLoad, &QPushButton::clicked, this, &QZReport::load);
    connect(ui->leLimit, &QLineEdit::returnPressed, this, &QZReport::load);
    offerPlaces([this] { GroupChanged(); });
}

QZReport::~QZReport() = default;

void QZReport::buildList()
{
    takeList(ui->listShifts, ui->pbLoad, ui->pbStop);
    ui->listShifts->breakCaptions();
    const int money = 10;
    const int count = 5;
    setColumns({{tr("Z-звіт"), count, &asNumber},
                {tr("магазин"), 24},
                {tr("каса"), 16},
                {tr("продаж"), money, &asSum},
                {tr("Оплата готівкою"), money, &asSum},
                {tr("безготівкою"), money, &asSum},
                {tr("Звіт чеків"), count, &asNumber},
                {tr("знижка"), money, &asSum},
                {tr("чеків зі знижкою"), count, &asNumber},
                {tr("позицій анульовано"), count, &asNumber},
                {tr("повернення"), money, &asSum},
                {tr("податок"), money, &asRoundedMoney},
                {tr("дата час"), 17, &asDateTime}});
    ui->listShifts->connectOpening([this](const QModelIndex &line) { dclicktable(line); });
}

void QZReport::buildChart()
{
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 1);
    ui->chChart->setChecked(rememberedState(user()->idUser(), chartKey).toString() != QLatin1String("off"));
    connect(ui->chChart, &QCheckBox::toggled, this, [this](bool on) {
        rememberState(user()->idUser(), chartKey, on ? QStringLiteral("on") : QStringLiteral("off"));
        showChart();
    });
    connect(ui->cbChart, qOverload<int>(&QComboBox::activated), this, &QZReport::drawChart);
    showChart();
}

void QZReport::buildOpen()
{
    ui->openView->open(connection(), user(), mainWindow());
    statusBar()->addWidget(ui->openView->list()->footer(), 1);
    ui->openView->hide();
    ui->openView->list()->footer()->hide();
    ui->labelOpenTotals->hide();
    ui->openView->list()->setButtons(ui->pbLoad, ui->pbStop);
    connect(ui->rbOpen, &QRadioButton::toggled, this, &QZReport::switchView);
    connect(ui->pbStop, &QPushButton::clicked, ui->openView, &OpenShifts::stop);
    connect(ui->openView, &OpenShifts::cheksWanted, this, &QZReport::cheksWanted);
    connect(ui->openView->list(), &ListPane::rowsShown, this,
            [this] { ui->labelOpenTotals->setText(ui->openView->totals().join(QStringLiteral("  ·  "))); });
    connect(ui->openView->list(), &ListPane::loaded, this, &QZReport::loaded);
    connect(ui->openView->list(), &ListPane::failed, this, &QZReport::loaded);
    connect(user(), &QLoadedUser::rightsChanged, this, [this] {
        ui->openView->clear();
        if (isOpenShown() && user()->isLoaded())
            load();
    });
}

bool QZReport::isOpenShown() const
{
    return ui->rbOpen->isChecked();
}

ListPane *QZReport::list() const
{
    return isOpenShown() ? ui->openView->list() : ui->listShifts;
}

void QZReport::showOpen(bool isOpen)
{
    (isOpen ? ui->rbOpen : ui->rbClosed)->setChecked(true);
}

/// A load on its way belongs to the list that was in front.
void QZReport::switchView(bool isOpen)
{
    forgetLoad();
    ui->listShifts->stop();
    ui->openView->stop();
    ui->closedView->setHidden(isOpen);
    ui->openView->setVisible(isOpen);
    ui->range->setHidden(isOpen);
    ui->closedOptions->setHidden(isOpen);
    ui->labelOpenTotals->setVisible(isOpen);
    ui->openView->list()->footer()->setVisible(isOpen);
    ui->listShifts->footer()->setVisible(!isOpen);
    if (isOpen)
        load();
}

void QZReport::placeChosen()
{
    if (isOpenShown())
        load();
}

void QZReport::GroupChanged()
{
    const uint group = ui->place->place().group;
    const QString condition = group == 0
                                  ? inShopGroups(QStringLiteral("group_shop"), shopGroupsSeen(*user()))
                                  // Without brackets: of the chosen group blocked shops are offered too,
                                  // their reports are still asked for.
                                  : QStringLiteral(" group_shop=%1 or group_shop=1 AND block=0").arg(group);
    ui->place->refillShops(QStringLiteral("SELECT address,id FROM shops WHERE") + condition);
}

void QZReport::ShopChanged()
{
    ui->place->refillRegisters(QStringLiteral("SELECT advertising_str,id FROM kassa WHERE id_shop=") +
                               QString::number(ui->place->place().shop) + QStringLiteral(" AND block=0"));
}

void QZReport::showid(bool byNumber)
{
    ui->range->setByNumber(byNumber);
}

void QZReport::goTo(const Destination &destination)
{
    m_places->drop();
    m_places->read(
        [place = Place(destination.origin)](const Db &db) { return readPlaceNames(db, place); },
        [this, origin = destination.origin](const PlaceNames &names) { showOrigin(origin, names); });
}

void QZReport::showOrigin(const ChekOrigin &origin, const PlaceNames &names)
{
    const bool isByNumber = !origin.zFrom.isEmpty();
    const bool isOfDays = origin.firstDay.isValid();
    showOpen(!isByNumber && !isOfDays);
    showid(isByNumber);
    if (isByNumber)
        ui->range->setNumbers(origin.zFrom, origin.zTo);
    else if (isOfDays)
        ui->range->setDays(origin.firstDay, origin.lastDay);
    ui->chSum->setChecked(false);
    ui->leLimit->clear();
    ui->place->showPlace(names.group, names.shop, names.kass);
    load();
    list()->view()->setFocus();
}

void QZReport::load()
{
    if (isOpenShown())
        loadOpen();
    else
        loadClosed();
}

void QZReport::loadOpen()
{
    if (loadsLater())
        return;
    const auto loadFor = [this, place = ui->place->place(),
                          words = ui->place->description()](const QStringList &groups) {
        ui->openView->load({place, groups}, words);
    };
    if (ui->place->narrowest() == PlaceSelector::Everywhere)
        askSeenGroups(loadFor);
    else
        loadFor({});
}

void QZReport::loadClosed()
{
    if (loadsLater() || refuse(ui->range->refusal()))
        return;
    QStringList heading = {tr("Z - Звіти"), ui->place->description(), ui->range->description()};
    if (!ui->leLimit->text().isEmpty())
        heading.append(tr("не більше %1").arg(ui->leLimit->text()));
    const ZRange range = {ui->range->isByNumber(), ui->range->from(), ui->range->to()};
    const ZPlace place = {ui->place->groupName(), ui->place->shopName(), ui->place->registerName(), {}};
    const auto loadFor = [this, heading, range, place, select = zStatement(ui->chSum->isChecked()),
                          limit = zLimit(ui->leLimit->text())](const QStringList &groups) {
        ZPlace seen = place;
        seen.groups = groups;
        loadList(select + zCondition(seen, range) + limit, heading);
    };
    if (ui->place->narrowest() == PlaceSelector::Everywhere)
        askSeenGroups(loadFor);
    else
        loadFor({});
}

bool QZReport::isSummed() const
{
    return model()->rowCount() == 1 && model()->stored(0, Number) == summedMark;
}

QStringList QZReport::totals() const
{
    if (isSummed() || model()->rowCount() == 0)
        return {};
    QStringList sums = {tr("Звітів: %1").arg(model()->rowCount())};
    for (const int column : {Turnover, Cash, NonCash, Discount, Returns}) {
        qint64 sum = 0;
        for (int row = 0; row < model()->rowCount(); ++row)
            sum += model()->number(row, column);
        sums.append(model()->columns().at(column).caption + QStringLiteral(": ") + moneyShown(sum));
    }
    qint64 tax = 0;
    for (int row = 0; row < model()->rowCount(); ++row)
        tax += tenThousandths(model()->stored(row, Tax).toStdString());
    // As the server adds them up: rounded once.
    sums.append(model()->columns().at(Tax).caption + QStringLiteral(": ") + moneyShown((tax + 5000) / 10000));
    return sums;
}

namespace {
/// The list has no ids; two registers of a shop may bear the same text, their shifts end at other times.
std::optional<ChekOrigin> readOrigin(const Db &db, const Db::Values &line)
{
    const auto found = db.firstRow(
        QStringLiteral(
            "SELECT z_zvit.id_shop,z_zvit.id_kass FROM z_zvit JOIN kassa ON z_zvit.id_kass=kassa.id "
            "JOIN shops ON z_zvit.id_shop=shops.id WHERE z_zvit.id_zzvit=:zvit AND "
            "shops.address=:addres AND kassa.advertising_str=:kassa "
            "ORDER BY z_zvit.data_time=:time DESC LIMIT 1"),
        line);
    if (!found || found->isEmpty())
        return {};
    return originOf(found->at(0).toUInt(), found->at(1).toUInt(), line.constFirst().second.toString());
}
} // namespace

void QZReport::dclicktable(const QModelIndex &index)
{
    if (!index.isValid() || isSummed())
        return;
    const auto stored = [this, &index](int column) { return model()->stored(index.row(), column); };
    const Db::Values line = {{QStringLiteral(":zvit"), stored(Number)},
                             {QStringLiteral(":addres"), stored(Shop)},
                             {QStringLiteral(":kassa"), stored(Register)},
                             {QStringLiteral(":time"), stored(Time)}};
    m_origins->drop();
    m_origins->read([line](const Db &db) { return readOrigin(db, line); },
                    [this](const std::optional<ChekOrigin> &origin) {
                        if (origin)
                            emit cheksWanted(*origin);
                    });
}

void QZReport::rowsShown()
{
    ui->cbChart->setCurrentIndex(hasSeveralShops() ? ByShop : ByDay);
    showChart();
    ui->labelTotals->setText(totals().join(QStringLiteral("  ·  ")));
    ui->labelTotals->setVisible(!ui->labelTotals->text().isEmpty());
}

bool QZReport::hasSeveralShops() const
{
    const QString first = model()->rowCount() > 0 ? model()->stored(0, Shop) : QString();
    for (int row = 1; row < model()->rowCount(); ++row) {
        if (model()->stored(row, Shop) != first)
            return true;
    }
    return false;
}

void QZReport::showChart()
{
    const bool possible = model()->rowCount() > 0 && !isSummed();
    const bool visible = possible && ui->chChart->isChecked();
    ui->cbChart->setEnabled(visible);
    ui->chart->setVisible(visible);
    if (visible)
        drawChart();
}

void QZReport::drawChart()
{
    ui->chart->setBars(ui->cbChart->currentIndex() == ByShop ? barsByName(*model(), Turnover, Shop)
                                                             : barsByDay(*model(), Turnover, Time));
}
