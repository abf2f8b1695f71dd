#include "qoverview.h"
#include "ui_qoverview.h"

#include "actiontimes.h"
#include "combos.h"
#include "connectionstate.h"
#include "firststepsview.h"
#include "money.h"
#include "overviewmodel.h"
#include "overviewways.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "queryservice.h"
#include "sqldate.h"
#include "userstate.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QSqlDatabase>
#include <utility>

namespace {
std::chrono::milliseconds refreshTime{60000};
const int ticksEachRefresh = 20;
const int weekDays = 7;
const QLatin1String columnsKey("overview/columns");

/// Where the user is in the tree, to be found again after its rows were replaced.
struct TreePlace
{
    DbId shop = 0;
    DbId kass = 0;
    int column = 0;
};
} // namespace

QOverview::QOverview(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QOverview>())
    , m_user(user)
    , m_idUser(user->idUser())
    , m_receiver(receiver)
    , m_model(new OverviewModel(this))
    , m_sorted(new QSortFilterProxyModel(this))
    , m_steps(new FirstStepsView(user, this))
    , m_chainQuery(new QueryOwner(db->connectionName(), this))
    , m_countQuery(new QueryOwner(db->connectionName(), this))
{
    ui->setupUi(this);
    ui->stepsRows->addWidget(m_steps);
    buildTree();
    buildChart();
    // A long one does not take the last connection from those who search.
    m_countQuery->setLong(true);
    connect(m_chainQuery, &QueryOwner::answered, this, &QOverview::takeChain);
    connect(m_countQuery, &QueryOwner::answered, this, &QOverview::takeCounts);
    connect(m_steps, &FirstStepsView::stepWanted, this, &QOverview::stepWanted);
    connect(ui->attention, &AttentionList::wanted, this, &QOverview::wanted);
    connect(ui->labelSums, &QLabel::linkActivated, this,
            [this](const QString &way) { emit wanted(m_sumWays.value(way.toInt())); });
    connect(user, &QLoadedUser::rightsChanged, this, &QOverview::followRights);
    connect(&m_tick, &QTimer::timeout, this, &QOverview::refreshWhenDue);
    if (const ConnectionState *state = ConnectionState::of(*db))
        connect(state, &ConnectionState::back, this, [this] {
            m_age.invalidate();
            refreshWhenDue();
        });
    m_tick.start(refreshTime / ticksEachRefresh);
    followRights();
}

QOverview::~QOverview()
{
    rememberState(m_idUser, columnsKey, ui->tree->header()->saveState());
}

void QOverview::setRefreshTime(std::chrono::milliseconds time)
{
    refreshTime = time;
}

void QOverview::buildTree()
{
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortRole(OverviewModel::sortRole);
    m_sorted->setSortLocaleAware(true);
    ui->tree->setModel(m_sorted);
    ui->tree->sortByColumn(OverviewModel::Name, Qt::AscendingOrder);
    setFocusProxy(ui->tree);
    QHeaderView *header = ui->tree->header();
    const int letter = fontMetrics().averageCharWidth();
    const auto captionWidth = [this](int column) {
        return fontMetrics().horizontalAdvance(m_model->headerData(column, Qt::Horizontal).toString());
    };
    const int widths[OverviewModel::ColumnCount] = {30, 28, 13, 13, 7, 12, 13, 28, 16};
    for (int column = 0; column < OverviewModel::ColumnCount; ++column)
        header->resizeSection(column, qMax(widths[column] * letter, captionWidth(column) + 2 * letter));
    header->restoreState(rememberedState(m_idUser, columnsKey).toByteArray());
    header->setStretchLastSection(false);
    ui->splitterLists->setStretchFactor(0, 3);
    ui->splitterLists->setStretchFactor(1, 1);
    connect(ui->tree, &OverviewTree::opened, this, &QOverview::openCell);
}

void QOverview::buildChart()
{
    ui->chart->offerBars();
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 1);
    connect(ui->chart, &TurnoverChart::currentChanged, this, &QOverview::showDay);
    connect(ui->chart, &TurnoverChart::barOpened, this, &QOverview::openDay);
}

Commands QOverview::commands() const
{
    return {{Command::Reload, QString()}};
}

void QOverview::run(Command command)
{
    if (command != Command::Reload)
        return;
    m_isFailureTold = false;
    m_countQuery->cancel();
    refresh();
}

bool QOverview::isLoading() const
{
    return m_chainQuery->isWaiting() || m_countQuery->isWaiting();
}

/// Money for who may see the Z-reports, connections for who may see the on-line statistics.
void QOverview::followRights()
{
    showColumns();
    ui->sideChart->setVisible(m_user->maySee(Permission::ZReports));
    m_countQuery->cancel();
    if (m_user->isLoaded())
        refresh();
}

void QOverview::showColumns()
{
    const bool maySeeSums = m_user->maySee(Permission::ZReports);
    for (int column = OverviewModel::Turnover; column < OverviewModel::ColumnCount; ++column)
        ui->tree->setColumnHidden(column, !maySeeSums);
    ui->tree->setColumnHidden(OverviewModel::LastReceipt, !maySeeSums || !m_model->chain().isTuned);
    ui->tree->setColumnHidden(OverviewModel::Line, !m_user->maySee(Permission::Online));
}

void QOverview::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // The steps of a new chain follow what was done in the other pages.
    if (ui->stack->currentWidget() == ui->pageSteps && !isLoading())
        refresh();
    else
        refreshWhenDue();
}

void QOverview::refreshWhenDue()
{
    const bool isSeen = isVisible() && !window()->isMinimized();
    if (isSeen && !m_chainQuery->isWaiting() && (!m_age.isValid() || m_age.hasExpired(refreshTime.count())))
        refresh();
}

void QOverview::refresh()
{
    m_age.start();
    m_askedDay = QDate::currentDate();
    ui->labelState->setText(tr("Читається…"));
    m_chainQuery->ask({placesSql(*m_user), shiftsSql(*m_user, m_askedDay.addDays(1 - drawnDays))});
}

void QOverview::tellFailure(const QueryAnswer &answer)
{
    // What fails each minute is told once, and again to who asks.
    if (!std::exchange(m_isFailureTold, true))
        postMessage(m_receiver, tr("Помилка запиту:") + QLatin1Char('\n') + answer.error, answer.kind);
    ui->labelState->setText(tr("Не вдалося прочитати; показано те, що було раніше. F5 – прочитати знову."));
}

void QOverview::takeChain(const std::shared_ptr<QueryAnswer> &answer)
{
    if (!answer->error.isEmpty())
        return tellFailure(*answer);
    ChainState chain = chainState(answer->results.at(0), answer->results.at(1), m_askedDay);
    // Until the receipts are read anew.
    if (chain.isTuned)
        addReceiptTimes(&chain, m_counted.times);
    showChain(chain);
    if (chain.steps.areOpen())
        m_isFailureTold = false;
    // Behind a long report it waits its turn, however often the rest is read meanwhile.
    else if (!m_countQuery->isWaiting())
        m_countQuery->ask({countsSql(*m_user, chain)});
    ui->labelState->setText(tr("Прочитано о %1, далі щохвилини; F5 – зараз.")
                                .arg(QTime::currentTime().toString(QStringLiteral("hh:mm:ss"))));
    emit shown();
}

void QOverview::takeCounts(const std::shared_ptr<QueryAnswer> &answer)
{
    if (!answer->error.isEmpty())
        return tellFailure(*answer);
    m_isFailureTold = false;
    m_counted = countedOf(answer->results.at(0));
    ChainState chain = m_model->chain();
    addReceiptTimes(&chain, m_counted.times);
    showTree(chain);
    showAttention();
}

void QOverview::showChain(const ChainState &chain)
{
    m_steps->setSteps(chain.steps);
    ui->stack->setCurrentWidget(chain.steps.areOpen() ? ui->pageSteps : ui->pageChain);
    ui->labelTuning->setVisible(!chain.isTuned && m_user->maySee(Permission::ZReports));
    showTree(chain);
    showColumns();
    showSums();
    showAttention();
    showChart();
}

void QOverview::showTree(const ChainState &chain)
{
    const QModelIndex current = m_sorted->mapToSource(ui->tree->currentIndex());
    TreePlace place;
    if (const OverviewShop *shop = m_model->shopAt(current)) {
        const OverviewRegister *reg = m_model->registerAt(current);
        place = {shop->id, reg == nullptr ? 0 : reg->id, current.column()};
    }
    QSet<DbId> unfolded;
    for (int row = 0; row < m_sorted->rowCount(); ++row) {
        const QModelIndex shop = m_sorted->index(row, 0);
        if (ui->tree->isExpanded(shop))
            unfolded.insert(m_model->shopAt(m_sorted->mapToSource(shop))->id);
    }
    m_model->setChain(chain, databaseNow());
    for (const DbId shop : unfolded)
        ui->tree->setExpanded(m_sorted->mapFromSource(m_model->indexOf(shop, 0)), true);
    if (ui->tree->currentIndex().isValid())
        return;
    QModelIndex wanted = m_model->indexOf(place.shop, place.kass);
    if (!wanted.isValid())
        wanted = m_model->indexOf(place.shop, 0);
    const QModelIndex found = m_sorted->mapFromSource(wanted.siblingAtColumn(place.column));
    ui->tree->setCurrentIndex(found.isValid() ? found : m_sorted->index(0, 0));
}

/// Each number leads somewhere, as those in the tree do.
void QOverview::showSums()
{
    const ChainState &chain = m_model->chain();
    const StateSums sums = sumsOf(chain);
    m_sumWays.clear();
    QStringList words;
    const auto add = [&](const QString &text, const QString &number, const Destination &there) {
        words.append(text.toHtmlEscaped().arg(
            there.action.isEmpty()
                ? number
                : QStringLiteral("<a href=\"%1\">%2</a>").arg(QString::number(m_sumWays.size()), number)));
        m_sumWays.append(there);
    };
    add(tr("Магазинів: %1"), wholeShown(chain.shops.size()), wayToShops(*m_user, chain));
    if (m_user->maySee(Permission::Online))
        add(tr("кас на зв'язку: %1"), tr("%1 з %2").arg(sums.onLine).arg(sums.registers),
            wayToRegisters(*m_user, chain, {}));
    if (m_user->maySee(Permission::ZReports)) {
        const Destination open = wayToOpenShifts(*m_user, chain, {});
        add(tr("відкритих змін: %1"), wholeShown(sums.shifts), open);
        add(tr("у них: %1"), moneyShown(sums.turnover), open);
        add(tr("закрито сьогодні: %1"), moneyShown(sums.closedToday),
            wayToClosedShifts(*m_user, {}, chain.today));
        add(tr("тиждень тому: %1"), moneyShown(sums.weekAgo),
            wayToClosedShifts(*m_user, {}, chain.today.addDays(-weekDays)));
    }
    if (m_user->groups().isEmpty())
        words = QStringList(noGroupsHint().toHtmlEscaped());
    ui->labelSums->setText(words.join(QStringLiteral("  ·  ")));
    ui->labelSums->setVisible(!chain.steps.areOpen());
}

void QOverview::showAttention()
{
    ui->attention->setEntries(attentionOf(*m_user, m_model->chain(), m_counted, databaseNow()));
}

void QOverview::showChart()
{
    QVector<TurnoverBar> bars;
    for (const OverviewDay &day : m_model->chain().days)
        bars.append({day.day.toString(QStringLiteral("dd.MM.yyyy")),
                     day.day.toString(QStringLiteral("dd.MM")), day.turnover});
    ui->chart->setBars(bars);
    showDay(ui->chart->currentBar());
}

/// What the keys have chosen is told in words, too.
void QOverview::showDay(int bar)
{
    QString words = tr("Оборот за останні %1 днів").arg(drawnDays);
    if (bar >= 0 && bar < m_model->chain().days.size()) {
        const OverviewDay &day = m_model->chain().days.at(bar);
        words += QStringLiteral(": ") +
                 tr("%1 – %2, змін: %3")
                     .arg(weekDayShown(day.day.dayOfWeek()) + day.day.toString(QStringLiteral(" dd.MM")),
                          moneyShown(day.turnover))
                     .arg(day.shifts);
        if (day.day == m_model->chain().today)
            words += tr(" (разом з відкритими)");
    }
    ui->labelChart->setText(words);
}

Destination QOverview::destinationOf(const QModelIndex &cell) const
{
    const ChainState &chain = m_model->chain();
    const OverviewPlace place = {m_model->shopAt(cell), m_model->registerAt(cell)};
    switch (cell.column()) {
    case OverviewModel::Name:
        return place.reg == nullptr ? Destination() : wayToRegisters(*m_user, chain, place);
    case OverviewModel::Line:
        return wayToLines(*m_user, place);
    case OverviewModel::ClosedToday:
        return wayToClosedShifts(*m_user, place, chain.today);
    case OverviewModel::WeekAgo:
        return wayToClosedShifts(*m_user, place, chain.today.addDays(-weekDays));
    default:
        return wayToOpenShifts(*m_user, chain, place);
    }
}

void QOverview::openCell(const QModelIndex &cell)
{
    const QModelIndex source = m_sorted->mapToSource(cell);
    if (!source.isValid())
        return;
    const Destination destination = destinationOf(source);
    const QModelIndex row = cell.siblingAtColumn(0);
    if (!destination.action.isEmpty())
        emit wanted(destination);
    else if (cell.column() == OverviewModel::Name)
        ui->tree->setExpanded(row, !ui->tree->isExpanded(row));
}

void QOverview::openDay(int bar)
{
    if (bar >= 0 && bar < m_model->chain().days.size())
        emit wanted(wayToDay(*m_user, m_model->chain(), m_model->chain().days.at(bar).day));
}
