#include "qtab.h"

#include "csvexport.h"
#include "db.h"
#include "ean13.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabdelegate.h"
#include "queryservice.h"
#include "qupdatebd.h"
#include "recorddialog.h"
#include "userstate.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSqlQuery>
#include <QVBoxLayout>
#include <algorithm>

namespace {
/// A wait cursor for as long as the scope lasts.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};
} // namespace

QTab::QTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
           QTabDelegate *delegate, QLayout *layout)
    : QWidget(parent), m_setting(set), m_user(user), m_db(db), m_receiver(receiver), m_delegate(delegate)
{
    postTrace(receiver, QStringLiteral("In constructor QTab"));
    buildGrid(layout);
    m_view->installEventFilter(this);
    connect(user, &QLoadedUser::rightsChanged, this, &QTab::followRights);
    connectDelegate();
}

QTab::~QTab()
{
    saveWidths();
}

void QTab::buildGrid(QLayout *layout)
{
    m_view = new QNTableView(this);
    m_view->setObjectName(QStringLiteral("view"));
    layout->addWidget(m_view);
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("labelCount"));
    layout->addWidget(m_count);
    setLayout(layout);
    m_model = new QRowModel(m_view);
    m_view->setModel(m_model);
    m_view->setSortingEnabled(true);
    connect(m_view, &QNTableView::doubleClicked, this, [this](const QModelIndex &index) { Edit(index); });
}

void QTab::setSearchField(QLineEdit *field)
{
    m_search = field;
    setFocusProxy(field);
    field->installEventFilter(this);
    auto *find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, field, [field] {
        field->setFocus(Qt::ShortcutFocusReason);
        field->selectAll();
    });
}

bool QTab::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == m_view && isEnter)
        Edit();
    else if (watched == m_search && (isEnter || key == Qt::Key_Down))
        enterList();
    else if (watched == m_search && key == Qt::Key_Escape)
        m_search->clear();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

void QTab::enterList()
{
    m_view->setFocus();
    m_wantsRow = isLoading();
    if (!m_wantsRow && !m_view->currentIndex().isValid())
        m_view->setCurrentIndex(m_model->index(0, 0));
}

void QTab::connectDelegate()
{
    if (m_delegate == nullptr)
        return;
    m_delegate->setParent(this);
    m_view->setItemDelegate(m_delegate);
    connect(m_delegate, &QTabDelegate::delnewrecord, this, &QTab::delnewrecord);
    connect(m_delegate, &QTabDelegate::SetNextEdit, this, &QTab::recordAdded);
    // After the editor is gone: the view cannot open the next one while it closes this one.
    connect(m_delegate, &QTabDelegate::extNextEdit, this, &QTab::NextEdit, Qt::QueuedConnection);
}

Db QTab::db() const
{
    return Db(m_db, m_receiver);
}

bool QTab::mayEdit() const
{
    return m_user->mayEdit(permission());
}

Commands QTab::commands() const
{
    Commands offered;
    if (mayEdit())
        offered = {
            {Command::Add, recordRefusal}, {Command::Edit, recordRefusal}, {Command::Delete, recordRefusal}};
    if (mayEdit() || isExportedToViewers)
        offered.insert(Command::Export, QString());
    return offered;
}

void QTab::run(Command command)
{
    if (command == Command::Add)
        Add();
    else if (command == Command::Edit)
        Edit();
    else if (command == Command::Delete)
        QQestion::question(window(), tr("Попередження."), tr("Видалення заборонене!!!"), true);
}

bool QTab::isLoading() const
{
    return m_queries != nullptr && m_queries->isWaiting();
}

QString QTab::statement() const
{
    return (query.isEmpty() ? QStringLiteral("SELECT * FROM ") + table : query) + filter;
}

void QTab::ShowData()
{
    ShowData(0);
}

void QTab::ShowData(int limit)
{
    postTrace(m_receiver, QStringLiteral("In QTab::ShowData.\nName table: ") + table +
                              QStringLiteral("\nquery: ") + query);
    const WaitCursor wait;
    if (m_queries != nullptr)
        m_queries->cancel();
    m_model->removeRows(0, m_model->rowCount());
    QString sql = statement();
    if (limit >= 1)
        sql += QStringLiteral(" LIMIT ") + QString::number(limit);
    auto rows = db().run(sql, {}, tr("Помилка запиту."));
    if (!rows) {
        m_view->setEmptyText(tr("Список не прочитано: сервер відповів помилкою."));
        m_count->clear();
        return;
    }
    showInModel(*rows);
    rowsShown();
    afterLoading(m_model->rowCount());
}

void QTab::search(const QString &newFilter, const QString &countSql)
{
    filter = newFilter;
    m_countSql = countSql;
    if (m_queries == nullptr) {
        m_queries = new QueryOwner(m_db->connectionName(), this);
        connect(m_queries, &QueryOwner::answered, this, &QTab::showFound);
    }
    m_count->setText(tr("Пошук…"));
    m_queries->ask(countSql.isEmpty() ? QStringList(statement()) : QStringList{statement(), countSql});
}

void QTab::showFound(const std::shared_ptr<QueryAnswer> &found)
{
    if (!found->error.isEmpty()) {
        postMessage(m_receiver, tr("Помилка запиту.") + QLatin1Char('\n') + found->error, found->kind);
        m_model->removeRows(0, m_model->rowCount());
        m_view->setEmptyText(tr("Список не прочитано: сервер відповів помилкою."));
        m_count->clear();
        return;
    }
    const qint64 count = found->results.size() > 1 ? found->number(1) : found->results.front().rowCount();
    m_model->replaceRows(std::move(found->results.front()));
    rowsShown();
    afterLoading(count);
}

void QTab::afterLoading(qint64 count)
{
    sortAsBefore();
    m_view->setEmptyText(filter.isEmpty() ? tr("Записів ще немає.")
                                          : tr("За цими умовами нічого не знайдено."));
    m_total = count;
    showCount();
    if (m_wantsRow)
        m_view->setCurrentIndex(m_model->index(0, 0));
    m_wantsRow = false;
    emit loaded();
}

void QTab::recordAdded()
{
    ++m_total;
    showCount();
}

void QTab::showCount()
{
    m_count->setText(tr("Записів: %1").arg(m_total));
}

void QTab::sortAsBefore()
{
    const QHeaderView *header = m_view->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_model->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
}

void QTab::showInModel(QSqlQuery &q)
{
    m_model->fill(q);
}

void QTab::showInModel(QSqlQuery &q, int firstColumn, int row)
{
    m_model->writeRecord(q, firstColumn, row);
}

void QTab::editadd(const QString &where, const QModelIndex &index, bool full, unsigned int limit)
{
    if (full) {
        postTrace(m_receiver, tr("Повне оновлення таблиці"));
        ShowData(static_cast<int>(limit));
        return;
    }
    postTrace(m_receiver, tr("Оновлення одного запису id=") + where);
    const QString sql =
        (query.isEmpty() ? QStringLiteral("SELECT * FROM ") + table : query) + QLatin1Char(' ') + where;
    auto record = db().run(sql, {}, tr("Помилка при зчитуванні запису."));
    if (!record)
        return;
    if (!record->next()) {
        postMessage(m_receiver, tr("Запис не знайдено в базі!"));
        return;
    }
    const int row = index.isValid() ? index.row() : m_model->rowCount();
    if (!index.isValid())
        m_model->insertRow(row);
    showInModel(*record, index.isValid() ? 1 : 0, row);
    rowShown(row);
    if (!index.isValid()) {
        recordAdded();
        m_view->setCurrentIndex(m_model->index(row, 0));
    }
}

std::unique_ptr<RecordDialog> QTab::makeEditor(QString *id)
{
    Q_UNUSED(id)
    return nullptr;
}

/// An empty id adds a record. Who may only look is not told that nothing was changed.
void QTab::openEditor(const QString &id)
{
    QString edited = id;
    const auto editor = makeEditor(&edited);
    if (editor == nullptr || !editor->isLoaded())
        return;
    if (!mayEdit())
        editor->setReadOnly(true);
    const bool isSaved = editor->exec() == QDialog::Accepted;
    // A question that closes together with the editor leaves some window managers without an active window.
    window()->activateWindow();
    if (isSaved)
        refreshRecord(edited, id.isEmpty());
    else if (editor->isUnclear())
        followUnclear();
    else if (mayEdit())
        postMessage(m_receiver,
                    id.isEmpty() ? tr("Запис не додано, відмінено користувачем!")
                                 : tr("Зміни не внесені, відмінено користувачем!"),
                    QMessEvent::Information);
}

void QTab::followUnclear()
{
    postMessage(m_receiver,
                tr("Редактор закрито, а чи записано зміни, невідомо: зв'язок обірвався під час запису. "
                   "Перевірте запис у списку."),
                QMessEvent::Warning);
    search(filter, m_countSql);
}

void QTab::refreshRecord(const QString &id, bool isNew)
{
    const QModelIndex index = isNew ? QModelIndex() : indexOf(id);
    if (!isNew && !index.isValid())
        return;
    editadd(QStringLiteral("WHERE ") + table + QStringLiteral(".id=") + id, index, false);
    QUpdateBD().reRead(table, *m_db, m_receiver);
}

QModelIndex QTab::indexOf(const QString &id) const
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (m_model->stored(row, 0) == id)
            return m_model->index(row, 0);
    }
    return QModelIndex();
}

void QTab::Edit()
{
    Edit(m_view->currentIndex());
}

void QTab::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (m_delegate == nullptr)
        openEditor(m_model->stored(index.row(), 0));
    else if (mayEdit())
        m_view->edit(index);
}

void QTab::Add()
{
    if (!mayEdit())
        return;
    if (m_delegate == nullptr)
        return openEditor(QString());
    m_delegate->startAdding();
    const int row = m_model->rowCount();
    m_model->insertRow(row);
    const QModelIndex name = m_model->index(row, 1);
    m_view->setCurrentIndex(name);
    m_view->edit(name);
}

void QTab::delnewrecord()
{
    m_model->removeRow(m_model->rowCount() - 1);
}

void QTab::NextEdit()
{
    Add();
}

bool QTab::export_to_csv(QObject *receiver, QAbstractItemModel *model, QTableView *view, const QString &code,
                         const QString &path_file_name)
{
    postTrace(receiver, QStringLiteral("QTab::export_to_csv ") + path_file_name);
    const WaitCursor wait;
    const CsvEncoding encoding = code.isEmpty() ? CsvEncoding::Utf8 : CsvEncoding::Windows1251;
    const QString error = saveCsv(*model, view, encoding, path_file_name);
    if (!error.isEmpty()) {
        postMessage(receiver, tr("Файл не збережено: %1\n%2").arg(path_file_name, error));
        return false;
    }
    postMessage(receiver, tr("Файл збережено: %1").arg(path_file_name), QMessEvent::Information);
    return true;
}

void QTab::export_to_csv(const QString &code, const QString &path_file_name)
{
    export_to_csv(m_receiver, m_model, m_view, code, path_file_name);
}

void QTab::InsertColumns(const QStringList *headers, const QList<int> &widths, QStandardItemModel *model,
                         QTableView *view)
{
    if (headers == nullptr)
        return;
    for (int i = 0; i < headers->size(); ++i) {
        const int column = model->columnCount();
        model->insertColumn(column);
        model->setHeaderData(column, Qt::Horizontal, headers->at(i));
        view->setColumnWidth(column, i < widths.size()
                                         ? widths.at(i)
                                         : view->fontMetrics().horizontalAdvance(headers->at(i)) + 40);
    }
}

void QTab::InsertColumns(const QStringList *headers, const QList<int> &widths)
{
    InsertColumns(headers, widths, m_model, m_view);
}

void QTab::setColumns(const QVector<Column> &columns)
{
    m_model->setColumns(columns);
    // In the destructor the concrete tab, and with it its name, is gone. Widths hold for the size of the
    // letters they were chosen with.
    m_widthsKey = QStringLiteral("columns/%1_%2")
                      .arg(QLatin1String(metaObject()->className()))
                      .arg(fontMetrics().height());
    for (int i = 0; i < columns.size(); ++i) {
        const Column &column = columns.at(i);
        const int scaled = column.width * logicalDpiX() / 96;
        const int caption = m_view->horizontalHeader()->sectionSizeHint(i) + fontMetrics().height();
        m_view->setColumnWidth(i, qMax(scaled, caption));
        m_view->setColumnHidden(i, column.hidden);
    }
    const auto widest =
        std::max_element(columns.begin(), columns.end(),
                         [](const Column &one, const Column &other) { return one.width < other.width; });
    m_view->setMainColumn(static_cast<int>(widest - columns.begin()));
    restoreWidths();
}

void QTab::restoreWidths()
{
    const QVariantList widths = rememberedState(m_user->idUser(), m_widthsKey).toList();
    if (widths.size() != m_model->columnCount())
        return;
    for (int i = 0; i < widths.size(); ++i) {
        if (!m_view->isColumnHidden(i) && widths.at(i).toInt() > 0)
            m_view->setColumnWidth(i, widths.at(i).toInt());
    }
}

void QTab::saveWidths() const
{
    if (m_widthsKey.isEmpty())
        return;
    QVariantList widths;
    for (int i = 0; i < m_model->columnCount(); ++i)
        widths.append(m_view->columnWidth(i));
    rememberState(m_user->idUser(), m_widthsKey, widths);
}

QWidget *QTab::addFilterBar()
{
    auto *bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("filterBar"));
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, bar);
    return bar;
}

int QTab::CSEAN13(const QString &code, int len)
{
    return eanCheckDigit(code, len).unicode();
}
