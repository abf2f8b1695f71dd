#include "reportwindow.h"

#include "listprinter.h"
#include "placeselector.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "queryservice.h"
#include "slipprint.h"

#include <QDateTime>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>

ReportWindow::ReportWindow(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : QMainWindow(parent)
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
    , m_state(new QLabel(this))
    , m_chooseFile([this](const QString &suggested) { return askPdfPath(this, suggested); })
    , m_queries(new QueryOwner(db->connectionName(), this))
{
    // A page of the tab area, not a window.
    setWindowFlags(Qt::Widget);
    m_state->setObjectName(QStringLiteral("labelState"));
    statusBar()->setSizeGripEnabled(false);
    m_queries->setLong(true);
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(m_state, 1);
    addPrintButtons();
    connect(m_queries, &QueryOwner::answered, this, &ReportWindow::showFound);
}

ReportWindow::~ReportWindow() = default;

void ReportWindow::addPrintButtons()
{
    const auto add = [this](const QString &name, const QString &text, const QKeySequence &keys) {
        auto *button = new QPushButton(text, this);
        button->setObjectName(name);
        button->setShortcut(keys);
        button->setToolTip(keys.toString(QKeySequence::NativeText));
        statusBar()->addPermanentWidget(button);
        return button;
    };
    m_print = add(QStringLiteral("pbPrintList"), tr("Друк списку…"), QKeySequence(Qt::CTRL + Qt::Key_P));
    m_pdf =
        add(QStringLiteral("pbPdfList"), tr("Список у PDF…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P));
    connect(m_print, &QPushButton::clicked, this, &ReportWindow::preview);
    connect(m_pdf, &QPushButton::clicked, this, &ReportWindow::savePdf);
}

PrintedList ReportWindow::printed() const
{
    PrintedList list;
    list.heading = m_heading;
    list.heading.append(
        tr("Складено: %1").arg(QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))));
    list.model = m_list->model();
    list.view = m_list;
    list.totals = totals();
    return list;
}

void ReportWindow::preview()
{
    previewList(this, printed());
}

void ReportWindow::savePdf()
{
    const QString path = m_chooseFile(fileNameOf(m_heading.join(QLatin1Char(' '))));
    if (path.isEmpty())
        return;
    const PrintedList list = printed();
    QString error;
    if (saveListPdf(list, path, &error))
        postMessage(m_mainWindow, tr("Файл збережено: %1").arg(path), QMessEvent::Information);
    else if (!error.isEmpty())
        postMessage(m_mainWindow, tr("Файл не збережено: %1\n%2").arg(path, error));
}

bool ReportWindow::isLoading() const
{
    return m_queries->isWaiting();
}

void ReportWindow::takeList(QNTableView *view, QPushButton *pbLoad, QPushButton *pbStop)
{
    m_list = view;
    m_model = new QRowModel(view);
    view->setModel(m_model);
    view->setSortingEnabled(true);
    setFocusProxy(findChild<PlaceSelector *>());
    m_load = pbLoad;
    m_stop = pbStop;
    if (pbStop != nullptr)
        connect(pbStop, &QPushButton::clicked, this, &ReportWindow::stopLoading);
    showState(QString(), false);
}

void ReportWindow::setColumns(const QVector<Column> &columns, const QStringList &samples)
{
    m_model->setColumns(columns);
    const QFontMetrics metrics = m_list->fontMetrics();
    for (int i = 0; i < columns.size(); ++i) {
        const int caption = m_list->horizontalHeader()->sectionSizeHint(i) + metrics.height();
        m_list->setColumnWidth(i,
                               qMax(metrics.horizontalAdvance(samples.value(i)) + metrics.height(), caption));
        m_list->setColumnHidden(i, columns.at(i).hidden);
    }
}

void ReportWindow::offerPlaces(const std::function<void()> &shopsOf)
{
    m_refillShops = shopsOf;
    refillPlaces();
    connect(m_user, &QLoadedUser::rightsChanged, this, [this] {
        if (!m_user->isLoaded() || m_user->groups() == m_groups)
            return;
        emptyList();
        refillPlaces();
    });
}

void ReportWindow::refillPlaces()
{
    m_groups = m_user->groups();
    findChild<PlaceSelector *>()->refillGroups(
        db(), QStringLiteral("SELECT name,id FROM group_shop WHERE") +
                  QTab::GetStrLstGroupFromPermis(m_user, QStringLiteral("id"), true));
    m_refillShops();
}

Commands ReportWindow::commands() const
{
    return {{Command::Export,
             isExported() ? QString() : tr("Цей звіт зберігається у файл кнопкою «Список у PDF…».")}};
}

void ReportWindow::export_to_csv(const QString &code, const QString &path)
{
    QTab::export_to_csv(m_mainWindow, m_model, m_list, code, path);
}

void ReportWindow::loadList(const QString &sql, const QStringList &heading, const QString &numberSql)
{
    postTrace(m_mainWindow, QLatin1String(metaObject()->className()) + QStringLiteral("::load\n") + sql);
    m_clock.start();
    m_askedHeading = heading;
    showState(tr("Завантаження…"), true);
    m_queries->ask(numberSql.isEmpty() ? QStringList(sql) : QStringList{sql, numberSql});
}

void ReportWindow::stopLoading()
{
    if (!isLoading())
        return;
    m_queries->cancel();
    showState(tr("Завантаження зупинено."), false);
}

void ReportWindow::showFound(const std::shared_ptr<QueryAnswer> &found)
{
    if (!found->error.isEmpty()) {
        postMessage(m_mainWindow, tr("Помилка запиту:") + QLatin1Char('\n') + found->error, found->kind);
        showState(tr("Не завантажено: сервер відповів помилкою."), false);
        emit loaded();
        return;
    }
    m_number = found->results.size() > 1 ? found->number(1) : found->results.front().rowCount();
    m_heading = m_askedHeading;
    m_model->replaceRows(arranged(std::move(found->results.front())));
    sortAsBefore();
    m_list->setEmptyText(tr("немає даних"));
    rowsShown();
    // The boxes above may say something else by now.
    showState(tr("Рядків: %1, час: %2 с").arg(shownRows()).arg(m_clock.elapsed() / 1000.0, 0, 'f', 2) +
                  QStringLiteral(" · ") + m_heading.mid(1).join(QStringLiteral(", ")),
              false);
    emit loaded();
}

void ReportWindow::emptyList()
{
    m_queries->cancel();
    m_heading.clear();
    m_number = 0;
    m_model->replaceRows(arranged({}));
    rowsShown();
    showState(QString(), false);
}

void ReportWindow::connectOpening(const std::function<void(const QModelIndex &)> &open)
{
    connect(m_list, &QAbstractItemView::doubleClicked, this, open);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *enter = new QShortcut(QKeySequence(key), m_list, nullptr, nullptr, Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [this, open] { open(m_list->currentIndex()); });
    }
}

int ReportWindow::shownRows() const
{
    return m_model->rowCount();
}

void ReportWindow::sortAsBefore()
{
    const QHeaderView *header = m_list->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_model->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
}

void ReportWindow::showState(const QString &text, bool loading)
{
    m_state->setText(text);
    m_state->setToolTip(text);
    for (QPushButton *button : {m_print, m_pdf})
        button->setDisabled(loading || m_list->model()->rowCount() == 0);
    // The keyboard goes on in the list, not in whatever stands behind the button.
    if (loading && m_load != nullptr && m_load->hasFocus())
        m_list->setFocus();
    if (m_load != nullptr)
        m_load->setDisabled(loading);
    if (m_stop != nullptr)
        m_stop->setVisible(loading);
    if (loading)
        setCursor(Qt::BusyCursor);
    else
        unsetCursor();
}

bool ReportWindow::refuse(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(this, tr("Попередження."), why, true);
    return !why.isEmpty();
}
