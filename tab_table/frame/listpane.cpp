#include "listpane.h"

#include "copiedtable.h"
#include "csvexport.h"
#include "dbtasks.h"
#include "job.h"
#include "listplace.h"
#include "listprinter.h"
#include "listselection.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "queryservice.h"
#include "rowsorting.h"
#include "waitcursor.h"
#include "xlsxexport.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSqlDatabase>
#include <QStyle>
#include <algorithm>
#include <utility>

namespace {
/// A selection of more rows is not taken along when the rows get another order: each would be a range of its
/// own.
const int mostSelectedSorted = 1000;
/// So many rows are copied without anybody noticing.
const int mostCopiedAtOnce = 1000;
/// More of them are no use to another program's clipboard.
const int mostCopied = 100000;
} // namespace

ListPane::ListPane(QWidget *parent)
    : QWidget(parent)
    , m_view(new QNTableView(this))
    , m_model(new QRowModel(m_view))
    , m_footer(new QWidget(this))
    , m_columns(m_view)
    , m_sorting(new RowSorting(this))
    , m_chooseFile([this](const QString &suggested) { return askPdfPath(this, suggested); })
{
    m_view->setObjectName(QStringLiteral("view"));
    m_view->setModel(m_model);
    m_view->setSortingEnabled(true);
    setFocusProxy(m_view);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    layout->addWidget(m_footer);
    buildFooter();
    m_view->installEventFilter(this);
    connect(m_view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &ListPane::sortArrived);
    connect(m_model, &QRowModel::aboutToSort, this, &ListPane::thinOutSelection);
    connect(m_model, &QRowModel::sortingChanged, this, &ListPane::followSorting);
    showState(QString(), false);
}

ListPane::~ListPane() = default;

void ListPane::buildFooter()
{
    auto *line = new QHBoxLayout(m_footer);
    line->setContentsMargins(0, 0, 0, 0);
    m_state = new QLabel(m_footer);
    m_state->setObjectName(QStringLiteral("labelState"));
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    line->addWidget(m_state, 1);
    showSelection();
    const auto add = [this, line](const QString &name, const QString &text, const QKeySequence &keys) {
        auto *button = new QPushButton(text, m_footer);
        button->setObjectName(name);
        button->setShortcut(keys);
        button->setToolTip(keys.toString(QKeySequence::NativeText));
        line->addWidget(button);
        return button;
    };
    m_print = add(QStringLiteral("pbPrintList"), tr("Друк списку…"), QKeySequence(Qt::CTRL + Qt::Key_P));
    m_pdf =
        add(QStringLiteral("pbPdfList"), tr("Список у PDF…"), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_P));
    connect(m_print, &QPushButton::clicked, this, &ListPane::preview);
    connect(m_pdf, &QPushButton::clicked, this, &ListPane::savePdf);
}

/// It takes the room that it needs; when the window is too narrow for it, it never widens the window.
void ListPane::showSelection()
{
    auto *label = new QLabel(m_footer);
    label->setObjectName(QStringLiteral("labelSelected"));
    label->setMinimumWidth(1);
    m_footer->layout()->addWidget(label);
    m_selection = new ListSelection(m_view, m_model, this);
    connect(m_selection, &ListSelection::changed, label, [this, label] {
        label->setText(m_selection->words());
        label->setToolTip(m_selection->words());
    });
}

void ListPane::open(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver)
{
    m_db = db;
    m_user = user;
    m_receiver = receiver;
    m_view->setAccessibleName(accessibleName());
    m_queries = new QueryOwner(db->connectionName(), this);
    connect(m_queries, &QueryOwner::answered, this, &ListPane::takeAnswer);
    m_tasks = new DbTasks(db->connectionName(), receiver, this);
}

QVector<ToldKey> ListPane::toldKeys() const
{
    return {{{QKeySequence::Copy}, tr("У списку: копіювати виділені рядки")},
            {{QKeySequence::SelectAll}, tr("У списку: виділити всі рядки")},
            {{ListColumns::menuKey()}, tr("У списку: стовпці, їхній порядок і вигляд")},
            {{Qt::Key_Escape}, tr("У списку: зупинити впорядкування")}};
}

void ListPane::expectLongLoads(bool isLong)
{
    m_queries->setLong(isLong);
}

void ListPane::breakCaptions()
{
    QHeaderView *header = m_view->horizontalHeader();
    header->setDefaultAlignment(Qt::AlignCenter | Qt::Alignment(Qt::TextWordWrap));
    const int margin = header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
    header->setMinimumHeight(2 * (header->fontMetrics().lineSpacing() + margin));
}

void ListPane::setColumns(const QVector<Column> &columns, const QString &key)
{
    m_model->setColumns(columns);
    m_columns.set(columns, m_user->idUser(), key);
}

void ListPane::setButtons(QPushButton *load, QPushButton *stop)
{
    m_load = load;
    m_stop = stop;
    if (stop != nullptr)
        connect(stop, &QPushButton::clicked, this, &ListPane::stop);
    showState(QString(), false);
}

bool ListPane::isLoading() const
{
    return m_isExpecting || m_arrived != nullptr || (m_queries != nullptr && m_queries->isWaiting());
}

void ListPane::expectLoad()
{
    endLoad();
    m_keepsPlace = false;
    m_isExpecting = true;
    showState(tr("Завантаження…"), true);
}

void ListPane::load(const QString &sql, const QString &numberSql, const QString &failure)
{
    m_sql = sql;
    m_numberSql = numberSql;
    m_failure = failure.isEmpty() ? tr("Помилка запиту:") : failure;
    m_clock.start();
    m_keepsPlace = m_keepsPlace && m_isExpecting;
    endLoad();
    showState(tr("Завантаження…"), true);
    // Before the rows, so that no change falls between them and the time they were read at.
    const QString times = QUpdateBD::timesSql(QUpdateBD::tablesIn(sql));
    m_queries->ask(numberSql.isEmpty() ? QStringList(sql) : QStringList{sql, numberSql}, times);
}

void ListPane::loadAgain()
{
    if (!m_sql.isEmpty())
        load(QString(m_sql), QString(m_numberSql), QString(m_failure));
}

void ListPane::stop()
{
    if (!isLoading())
        return;
    endLoad();
    m_keepsPlace = false;
    showState(tr("Завантаження зупинено."), false);
}

/// What is on its way will not come.
void ListPane::endLoad()
{
    m_isExpecting = false;
    m_queries->cancel();
    m_sorting->stop();
    m_arrived.reset();
}

void ListPane::takeAnswer(const std::shared_ptr<QueryAnswer> &answer)
{
    m_loadMs = m_clock.elapsed();
    if (answer->error.isEmpty())
        return takeRows(answer);
    postMessage(m_receiver, m_failure + QLatin1Char('\n') + answer->error, answer->kind);
    clearAfterFailure();
    emit failed();
}

void ListPane::showRows(RowStore &&rows)
{
    endLoad();
    auto answer = std::make_shared<QueryAnswer>();
    answer->results.push_back(std::move(rows));
    takeRows(answer);
}

void ListPane::takeRows(const std::shared_ptr<QueryAnswer> &answer)
{
    m_arrived = answer;
    RowStore &rows = m_arrived->results.front();
    if (m_arrange)
        rows = m_arrange(std::move(rows));
    const RowSort by = wantedSort();
    if (by.column < 0)
        return showArrived({}, by);
    if (rows.rowCount() > RowSorting::mostAtOnce)
        return sortArrived();
    RowOrder sorted = orderOfRows(rows.rowCount());
    sortRows(&sorted, rows, by);
    showArrived(std::move(sorted), by);
}

RowSort ListPane::wantedSort() const
{
    const QHeaderView *header = m_view->horizontalHeader();
    return m_view->isSortingEnabled()
               ? m_model->wayToSort(header->sortIndicatorSection(), header->sortIndicatorOrder())
               : RowSort();
}

/// Many rows are shown when they are sorted.
void ListPane::sortArrived()
{
    if (!m_arrived)
        return;
    const RowSort by = wantedSort();
    if (by.column < 0) {
        m_sorting->stop();
        return showArrived({}, by);
    }
    showState(tr("Сортується… Esc зупиняє."), true);
    m_sorting->start({m_arrived, &m_arrived->results.front()}, {}, by,
                     [this, by](RowOrder &&sorted) { showArrived(std::move(sorted), by); });
}

void ListPane::showArrived(RowOrder &&sorted, const RowSort &by)
{
    const auto answer = std::exchange(m_arrived, nullptr);
    m_number = answer->results.size() > 1 ? answer->number(1) : 0;
    tellTracker(answer->before);
    m_readTimes = QUpdateBD::timesOf(answer->before);
    const auto place = std::exchange(m_keepsPlace, false) && m_view->model() == m_model
                           ? std::optional<ListPlace>({*m_view, *m_model})
                           : std::nullopt;
    m_model->replaceRows(std::move(answer->results.front()), std::move(sorted), by);
    m_view->setEmptyText(m_emptyText);
    m_count = -1;
    emit rowsShown();
    m_selection->setCountsRecords(m_count >= 0);
    if (place)
        place->restore(m_view, *m_model);
    if (m_wantsRow && !m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_view->model()->index(0, 0));
    m_wantsRow = false;
    showCount();
    emit loaded();
}

/// times: when the tables of the rows that are shown were changed last.
void ListPane::tellTracker(const RowStore &times)
{
    if (times.rowCount() == 0)
        return;
    // No list that has gone counts as read, and nobody who leaves waits for that.
    m_tasks->read(
        [times](const Db &db) { return QUpdateBD().setRead(times, *db.connection(), db.receiver()); },
        [](bool /*isDone*/) {});
}

/// Many rows were being sorted: they stay as they stand, or come as the server sent them.
void ListPane::stopSorting()
{
    m_sorting->stop();
    m_model->stopSorting();
    const RowSort shown = m_arrived ? RowSort() : m_model->sortedBy();
    {
        const QSignalBlocker hold(m_view->horizontalHeader());
        m_view->horizontalHeader()->setSortIndicator(shown.column, shown.order);
    }
    if (m_arrived)
        showArrived({}, shown);
}

void ListPane::followSorting()
{
    if (isLoading())
        return;
    if (m_model->isSorting())
        showState(tr("Сортується… Esc зупиняє."), false);
    else
        showCount();
}

void ListPane::thinOutSelection()
{
    QItemSelectionModel *selected = m_view->selectionModel();
    const int rows = m_view->selectedCount();
    if (rows > mostSelectedSorted && rows < m_model->rowCount())
        selected->select(selected->currentIndex(),
                         QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool ListPane::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_view || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto &key = *static_cast<QKeyEvent *>(event);
    return stopsSorting(key) || copiesMany(key);
}

bool ListPane::stopsSorting(const QKeyEvent &key)
{
    if (key.key() != Qt::Key_Escape || !(m_model->isSorting() || m_arrived))
        return false;
    stopSorting();
    return true;
}

bool ListPane::copiesMany(const QKeyEvent &key)
{
    const int rows = m_view->selectedCount();
    if (!key.matches(QKeySequence::Copy) || rows <= mostCopiedAtOnce)
        return false;
    if (rows > mostCopied)
        postMessage(
            m_receiver,
            tr("Вибрано рядків: %1. Копіюється не більше ніж %2: довші списки зберігайте у CSV або PDF.")
                .arg(rows)
                .arg(mostCopied));
    else
        copyInBackground();
    return true;
}

/// The clipboard keeps what it has until all rows are there.
void ListPane::copyInBackground()
{
    const ListSnapshot list(*m_model, m_view, ListSnapshot::AsShown);
    const QVector<int> rows = m_view->selectedRows();
    auto *job = new Job(
        tr("Копіювання рядків: %1").arg(rows.size()), QString(),
        [list, rows](JobContext &context) {
            const CopiedTable table = copiedTable(list, rows, [&context](qint64 done, qint64 of) {
                context.progress(done, of);
                return !context.isCancelled();
            });
            return JobResult{JobResult::Done, tr("Скопійовано рядків: %1.").arg(rows.size()),
                             QVariant::fromValue(table)};
        },
        m_receiver);
    connect(job, &Job::finished, job, [job, receiver = m_receiver](const JobResult &result) {
        if (result.outcome == JobResult::Done) {
            putOnClipboard(result.value.value<CopiedTable>());
            postMessage(receiver, result.words, QMessEvent::Information);
        }
        job->deleteLater();
    });
    job->start();
}

void ListPane::clear()
{
    endLoad();
    m_number = 0;
    m_count = -1;
    m_keepsPlace = false;
    m_readTimes.clear();
    m_model->replaceRows(m_arrange ? m_arrange({}) : RowStore());
    emit rowsShown();
    showState(QString(), false);
}

void ListPane::clearAfterFailure()
{
    const QString text = tr("Список не прочитано: сервер відповів помилкою.");
    if (!m_keepsRows) {
        clear();
        m_view->setEmptyText(text);
    }
    showState(text, false);
}

QModelIndex ListPane::indexOf(const QString &id) const
{
    const QByteArray wanted = id.toUtf8();
    const std::string_view bytes(wanted.constData(), static_cast<size_t>(wanted.size()));
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->storedBytes(row, 0) == bytes)
            return m_model->index(row, 0);
    }
    return QModelIndex();
}

void ListPane::refreshRow(const RowStore &records, int record, int row, int firstColumn)
{
    const bool isNew = row < 0;
    if (isNew) {
        row = m_model->rowCount();
        m_model->insertRow(row);
        countAdded();
    }
    m_model->writeRecord(records, record, isNew ? 0 : firstColumn, row);
    emit rowShown(row);
    if (isNew)
        m_view->setCurrentIndex(m_model->index(row, 0));
}

void ListPane::connectOpening(const std::function<void(const QModelIndex &)> &open)
{
    connect(m_view, &QAbstractItemView::doubleClicked, this, open);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *enter = new QShortcut(QKeySequence(key), m_view, nullptr, nullptr, Qt::WidgetShortcut);
        enter->setWhatsThis(tr("Відкрити рядок, як подвійним клацанням"));
        connect(enter, &QShortcut::activated, this, [this, open] { open(m_view->currentIndex()); });
    }
}

void ListPane::enter()
{
    m_view->setFocus();
    m_wantsRow = isLoading();
    if (!m_wantsRow && !m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_view->model()->index(0, 0));
}

void ListPane::setCount(qint64 count)
{
    m_count = count;
    showCount();
}

void ListPane::sumUsually(int column)
{
    m_selection->setUsualColumn(column);
}

void ListPane::countAdded()
{
    setCount(m_count < 0 ? -1 : m_count + 1);
}

void ListPane::showCount()
{
    const QString count = tr("Записів: %1").arg(m_count < 0 ? m_view->model()->rowCount() : m_count);
    showState(m_details.isEmpty() ? count : count + QStringLiteral(", ") + m_details, isLoading());
}

void ListPane::showState(const QString &text, bool isLoading)
{
    m_state->setText(text);
    m_state->setToolTip(text);
    for (QPushButton *button : {m_print, m_pdf})
        button->setDisabled(isLoading || m_view->model()->rowCount() == 0);
    // The keyboard goes on in the list, not in whatever stands behind the button.
    if (isLoading && m_load != nullptr && m_load->hasFocus())
        m_view->setFocus();
    if (m_load != nullptr)
        m_load->setDisabled(isLoading);
    if (m_stop != nullptr)
        m_stop->setVisible(isLoading);
    if (isLoading)
        setCursor(Qt::BusyCursor);
    else
        unsetCursor();
}

PrintedList ListPane::printed() const
{
    PrintedList list;
    list.heading = m_heading;
    list.heading.append(
        tr("Складено: %1").arg(QDateTime::currentDateTime().toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))));
    list.rows = ListSnapshot(*m_view->model(), m_view, ListSnapshot::AsShown);
    if (m_totals)
        list.totals = m_totals();
    return list;
}

void ListPane::preview()
{
    previewList(this, printed());
}

void ListPane::savePdf()
{
    const QString path = m_chooseFile(fileNameOf(m_heading.join(QLatin1Char(' '))));
    if (path.isEmpty())
        return;
    saveListPdf(m_receiver, printed(), path);
}

bool ListPane::exportCsv(QObject *receiver, const QAbstractItemModel *model, const QTableView *view,
                         const QString &code, const QString &path)
{
    const CsvEncoding encoding = code.isEmpty() ? CsvEncoding::Utf8 : CsvEncoding::Windows1251;
    return saveCsv(receiver, ListSnapshot(*model, view, ListSnapshot::AsStored), encoding, path);
}

bool ListPane::exportCsv(const QString &code, const QString &path) const
{
    return exportCsv(m_receiver, m_view->model(), m_view, code, path);
}

bool ListPane::exportXlsx(const QString &path) const
{
    return saveXlsx(m_receiver, printed(), path);
}
