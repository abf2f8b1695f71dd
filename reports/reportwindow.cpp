#include "reportwindow.h"

#include "dbtasks.h"
#include "permittedlists.h"
#include "placeselector.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "shopgroups.h"

#include <QPushButton>
#include <QStatusBar>

ReportWindow::ReportWindow(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : QMainWindow(parent), m_db(db), m_user(user), m_mainWindow(mainWindow), m_seen(newTasks())
{
    // A page of the tab area, not a window.
    setWindowFlags(Qt::Widget);
    statusBar()->setSizeGripEnabled(false);
}

ReportWindow::~ReportWindow() = default;

DbTasks *ReportWindow::newTasks()
{
    return new DbTasks(m_db->connectionName(), m_mainWindow, this);
}

void ReportWindow::takeList(ListPane *list, QPushButton *pbLoad, QPushButton *pbStop)
{
    m_list = list;
    list->open(m_db, m_user, m_mainWindow);
    list->expectLongLoads();
    list->setButtons(pbLoad, pbStop);
    list->setEmptyText(tr("За цими умовами нічого не знайдено."));
    list->keepRowsAfterFailure();
    list->setTotals([this] { return totals(); });
    list->setArranging([this](RowStore &&found) { return arranged(std::move(found)); });
    statusBar()->addWidget(list->footer(), 1);
    m_places = findChild<PlaceSelector *>();
    m_places->open(m_db->connectionName(), m_mainWindow);
    setFocusProxy(m_places);
    connect(pbStop, &QPushButton::clicked, this, &ReportWindow::forgetLoad);
    connect(list, &ListPane::rowsShown, this, &ReportWindow::describeRows);
    connect(list, &ListPane::loaded, this, &ReportWindow::loaded);
    connect(list, &ListPane::failed, this, &ReportWindow::loaded);
}

void ReportWindow::setColumns(const QVector<Column> &columns)
{
    m_list->setColumns(columns, QLatin1String(metaObject()->className()));
}

void ReportWindow::offerPlaces(const std::function<void()> &shopsOf)
{
    m_refillShops = shopsOf;
    connect(m_places, &PlaceSelector::chosen, this, [this] {
        placeChosen();
        goOnLoading();
    });
    refillPlaces();
    connect(m_user, &QLoadedUser::rightsChanged, this, [this] {
        if (!m_user->isLoaded() || m_user->groups() == m_groups)
            return;
        emptyList();
        m_places->keepChoice();
        refillPlaces();
    });
}

void ReportWindow::refillPlaces()
{
    m_groups = m_user->groups();
    m_places->refillGroups(permittedGroupsSql(*m_user, true));
    m_refillShops();
}

bool ReportWindow::isChoosing() const
{
    return m_places->isReading();
}

bool ReportWindow::loadsLater()
{
    m_loadsLater = isChoosing();
    if (m_loadsLater)
        list()->expectLoad();
    return m_loadsLater;
}

void ReportWindow::goOnLoading()
{
    if (m_loadsLater && !isChoosing()) {
        forgetLoad();
        load();
    }
}

void ReportWindow::forgetLoad()
{
    m_loadsLater = false;
    m_seen->drop();
    list()->stop();
}

void ReportWindow::askSeenGroups(const std::function<void(const QStringList &)> &then)
{
    m_seen->drop();
    list()->expectLoad();
    const QStringList groups = shopGroupsSeen(*m_user);
    m_seen->read([groups](const Db &db) { return isEveryShopGroup(db, groups); },
                 [groups, then](bool isEvery) { then(isEvery ? QStringList() : groups); });
}

Commands ReportWindow::commands() const
{
    return {{Command::Export,
             isExported() ? QString() : tr("Цей звіт зберігається у файл кнопкою «Список у PDF…».")},
            {Command::Reload, QString()}};
}

/// The same rows once more stay where they were seen.
void ReportWindow::run(Command command)
{
    if (command != Command::Reload || list()->isLoading())
        return;
    load();
    list()->keepPlace();
}

void ReportWindow::loadList(const QString &sql, const QStringList &heading, const QString &numberSql)
{
    postTrace(m_mainWindow, QLatin1String(metaObject()->className()) + QStringLiteral("::load\n") + sql);
    m_seen->drop();
    m_askedHeading = heading;
    m_list->load(sql, numberSql);
}

void ReportWindow::describeRows()
{
    // The boxes above may say something else by now.
    m_list->setHeading(m_askedHeading);
    m_list->setDetails(tr("час: %1 с").arg(m_list->loadMs() / 1000.0, 0, 'f', 2) + QStringLiteral(" · ") +
                       m_askedHeading.mid(1).join(QStringLiteral(", ")));
    rowsShown();
}

void ReportWindow::emptyList()
{
    forgetLoad();
    m_askedHeading.clear();
    m_list->clear();
}

bool ReportWindow::refuse(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(this, tr("Попередження."), why, true);
    return !why.isEmpty();
}
