#include "qstatonline.h"
#include "ui_qstatonline.h"

#include "dbtasks.h"
#include "onlinegrid.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "shopgroups.h"

#include <QHeaderView>

namespace {
QString intervalsStatement(unsigned int shop, const QDate &day)
{
    const QString id = QString::number(shop);
    const QString start = day.toString(QStringLiteral("yyyyMMdd"));
    return QStringLiteral("SELECT id_kass,onoff,dt_start,dt_end FROM onoffline WHERE id_shop=") + id +
           QStringLiteral(" AND ((onoffline.dt_start>=") + start +
           QStringLiteral(" AND onoffline.dt_start<=") + start +
           QStringLiteral("235959 ) OR (onoffline.dt_end IS NULL AND onoffline.dt_start>=") + start +
           QStringLiteral("))  OR ((onoffline.dt_end IS NULL OR onoffline.dt_end>=") + start +
           QStringLiteral(") AND id_shop=") + id + QStringLiteral(") ORDER BY onoffline.dt_start,id_kass");
}
} // namespace

QStatOnLine::QStatOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set,
                         QWidget *parent)
    : ReportWindow(db, user, mainWindow, parent)
    , ui(std::make_unique<Ui::QStatOnLine>())
    , m_grid(new OnLineGrid(this))
    , m_registersAsked(newTasks())
{
    Q_UNUSED(set)
    ui->setupUi(this);
    setUpGrid();
    setUpChoice();
    offerPlaces([this] { ChangeGroup(0); });
}

QStatOnLine::~QStatOnLine() = default;

void QStatOnLine::setUpGrid()
{
    takeList(ui->listTimes, ui->pbLoad, ui->pbStop);
    // The rows of the statement are its source; what is seen are times and registers.
    view()->setSortingEnabled(false);
    view()->setModel(m_grid);
    // A selection would cover the colours.
    view()->setSelectionMode(QAbstractItemView::NoSelection);
    view()->horizontalHeader()->setMinimumSectionSize(fontMetrics().horizontalAdvance(onLineText(false)) +
                                                      2 * fontMetrics().averageCharWidth());
}

void QStatOnLine::setUpChoice()
{
    ui->place->hideRegisters();
    ui->place->setShopPrompt(tr("Виберіть магазин"));
    ui->deDay->setDate(QDate::currentDate());
    connect(ui->place, &PlaceSelector::groupChanged, this, [this] { ChangeGroup(0); });
    connect(ui->place, &PlaceSelector::shopChanged, this, &QStatOnLine::askSoon);
    connect(ui->place, &PlaceSelector::touched, this, [this] { m_wantedShop = 0; });
    connect(&m_pause, &TypingPause::ended, this, [this] {
        if (m_isShopNew)
            ChangeShop(0);
        else
            LoadData(ui->place->place().shop);
    });
    connect(ui->pbStop, &QPushButton::clicked, m_registersAsked, &DbTasks::drop);
    connect(ui->deDay, &QDateEdit::dateChanged, this, &QStatOnLine::DateChang);
    connect(ui->pbLoad, &QPushButton::clicked, this, &QStatOnLine::load);
    connect(ui->chTimeline, &QCheckBox::toggled, ui->areaTimeline, &QWidget::setVisible);
}

void QStatOnLine::ChangeGroup(int index)
{
    Q_UNUSED(index)
    const uint group = ui->place->place().group;
    const QString condition =
        group == 0 ? inShopGroups(QStringLiteral("group_shop"), shopGroupsSeen(*user()))
                   : QStringLiteral(" group_shop=") + QString::number(group) + QStringLiteral(" AND block=0");
    ui->place->refillShops(QStringLiteral("SELECT CONCAT(address,\" \", name),id FROM shops WHERE") +
                           condition);
    ChangeShop(0);
}

/// Another shop is asked for when the hand rests; what the list shows is not its any more.
void QStatOnLine::askSoon()
{
    m_registersAsked->drop();
    showRegisters({});
    m_isShopNew = true;
    m_pause.begin();
}

void QStatOnLine::ChangeShop(int index)
{
    Q_UNUSED(index)
    const uint shop = ui->place->place().shop;
    m_isShopNew = false;
    m_pause.drop();
    m_registersAsked->drop();
    view()->setEmptyText(shop == 0 ? tr("Виберіть магазин, каси якого показати.") : QString());
    if (shop == 0) {
        showRegisters({});
        return;
    }
    list()->expectLoad();
    const QString sql = QStringLiteral("SELECT kassa.advertising_str,onoffline.id_kass FROM onoffline "
                                       "LEFT JOIN kassa ON kassa.id=onoffline.id_kass WHERE "
                                       "kassa.block=0 AND onoffline.id_kass IS NOT NULL  AND "
                                       "onoffline.id_shop=") +
                        QString::number(shop) + QStringLiteral(" GROUP BY onoffline.id_kass");
    m_registersAsked->read([sql](const Db &db) { return readEntries(db, sql); },
                           [this, shop](const std::optional<ListEntries> &registers) {
                               showRegisters(registers.value_or(ListEntries()));
                               if (registers)
                                   LoadData(shop);
                           });
}

void QStatOnLine::DateChang(const QDate &day)
{
    Q_UNUSED(day)
    // The registers on their way are followed by what they did on the day chosen then.
    if (ui->place->place().shop != 0 && !m_registersAsked->isWaiting())
        m_pause.begin();
}

void QStatOnLine::load()
{
    m_pause.drop();
    if (!loadsLater())
        ChangeShop(0);
}

void QStatOnLine::showRegisters(const ListEntries &registers)
{
    m_columns.clear();
    m_registers.clear();
    for (const auto &[name, id] : registers) {
        m_columns.insert(toText(id), m_registers.size());
        m_registers.append(name.isNull() ? toText(id) : name);
    }
    emptyList();
    giveTimelineRoom();
}

void QStatOnLine::LoadData(unsigned int shop)
{
    if (shop == 0)
        return;
    m_askedDay = ui->deDay->date();
    loadList(intervalsStatement(shop, m_askedDay), {tr("Статистика OnLine"), ui->place->description(),
                                                    m_askedDay.toString(QStringLiteral("dd.MM.yyyy"))});
}

void QStatOnLine::rowsShown()
{
    showIntervals(readIntervals());
}

QVector<OnLineInterval> QStatOnLine::readIntervals() const
{
    QVector<OnLineInterval> intervals;
    for (int row = 0; row < model()->rowCount(); ++row) {
        // The shop's own line and blocked registers have no column.
        const int column = m_columns.value(model()->stored(row, 0), -1);
        if (column >= 0) {
            intervals.append({column, model()->stored(row, 1) == QLatin1String("1"),
                              databaseTime(model()->stored(row, 2)), databaseTime(model()->stored(row, 3))});
        }
    }
    return intervals;
}

void QStatOnLine::showIntervals(const QVector<OnLineInterval> &intervals)
{
    m_grid->setIntervals(m_registers, intervals);
    view()->resizeColumnsToContents();
    ui->timeline->setDay(m_registers, daySpans(intervals, m_askedDay, databaseNow()));
}

void QStatOnLine::giveTimelineRoom()
{
    const int all = ui->splitter->height();
    const int wanted = ui->timelinePage->sizeHint().height() + 2 * ui->areaTimeline->frameWidth();
    ui->splitter->setSizes({all - qMin(wanted, all / 2), qMin(wanted, all / 2)});
}

void QStatOnLine::showShop(unsigned int shop)
{
    m_wantedShop = 0;
    ui->place->chooseGroup(0);
    m_wantedShop = shop;
    ui->place->chooseShop(shop);
}

void QStatOnLine::placeChosen()
{
    const uint wanted = std::exchange(m_wantedShop, 0);
    if (wanted == 0)
        return;
    if (ui->place->place().shop == wanted)
        ChangeShop(0);
    else
        refuse(tr("Цей магазин вам недоступний."));
}
