#include "qtab.h"

#include "changewatch.h"
#include "combos.h"
#include "csvtext.h"
#include "db.h"
#include "ean13.h"
#include "listfilter.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabdelegate.h"
#include "qupdatebd.h"
#include "recorddialog.h"
#include "waitnote.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

QTab::QTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
           QTabDelegate *delegate, QLayout *layout)
    : QWidget(parent)
    , m_setting(set)
    , m_user(user)
    , m_db(db)
    , m_receiver(receiver)
    , m_delegate(delegate)
    , m_tasks(db->connectionName(), receiver, nullptr)
{
    postTrace(receiver, QStringLiteral("In constructor QTab"));
    buildList(layout);
    connect(user, &QLoadedUser::rightsChanged, this, &QTab::followRights);
    connect(user, &QLoadedUser::rightsChanged, this, [this] {
        // Whoever may not edit here any more stores no name that he has begun.
        if (m_delegate != nullptr && !mayEdit() && !m_delegate->isWriting())
            m_delegate->drop();
    });
    connectDelegate();
}

QTab::~QTab()
{
    // Its editors go with it: that is no answer of the user's.
    if (m_editor)
        m_editor->done(QDialog::Rejected);
    if (m_delegate != nullptr)
        m_delegate->blockSignals(true);
    // Before the search field, which is left on the way out.
    delete m_filter;
}

void QTab::buildList(QLayout *layout)
{
    m_list = new ListPane(this);
    m_list->open(m_db, m_user, m_receiver);
    layout->addWidget(m_list);
    setLayout(layout);
    m_filter = new ListFilter(m_list, this);
    connect(m_filter, &ListFilter::showAllWanted, this, &QTab::showAll);
    setFocusProxy(m_list);
    view()->installEventFilter(this);
    connect(view(), &QNTableView::doubleClicked, this, [this](const QModelIndex &index) { Edit(index); });
    connect(m_list, &ListPane::rowsShown, this, [this] {
        if (countsRecords)
            m_list->setCount(model()->countNumbers(0));
        // The filter may say something else by now.
        m_list->setHeading(m_list->heading().mid(0, 1) + m_conditions);
        rowsShown();
    });
    connect(m_list, &ListPane::rowShown, this, &QTab::rowShown);
    auto *watch = new ChangeWatch(m_list, m_db->connectionName(), m_receiver, this);
    connect(watch, &ChangeWatch::reloadWanted, this, &QTab::reload);
    connect(m_list, &ListPane::loaded, this, &QTab::loaded);
    connect(m_list, &ListPane::loaded, this, [this] {
        if (std::exchange(m_addsWhenLoaded, false) && m_delegate->isAwaitingRow())
            NextEdit();
    });
    connect(m_list, &ListPane::failed, this, [this] {
        if (std::exchange(m_addsWhenLoaded, false))
            m_delegate->giveUpRow(window());
    });
}

QNTableView *QTab::view() const
{
    return m_list->view();
}

QRowModel *QTab::model() const
{
    return m_list->model();
}

void QTab::setSearchField(QLineEdit *field, const std::function<void(const QString &text)> &find)
{
    m_filter->setSearchField(field, find);
}

void QTab::addSearch(const QString &condition, const QString &what)
{
    QLineEdit *field = m_filter->addSearchBar(what);
    setSearchField(field, [=](const QString &) { findWords(condition, field); });
}

/// The rows go: a name that is being typed in one of them is stored first.
void QTab::findWords(const QString &condition, const QLineEdit *field)
{
    if (m_delegate != nullptr && !m_delegate->settle([=] { findWords(condition, field); }))
        return;
    const QString words = likeWords(condition, field->text());
    search(words.isEmpty() ? words : QStringLiteral(" WHERE ") + words);
}

QVector<ToldKey> QTab::toldKeys() const
{
    QVector<ToldKey> keys = {{{Qt::Key_Return}, tr("У списку: відкрити рядок")}};
    if (m_filter->hasSearchField())
        keys += {{{Qt::Key_Return, Qt::Key_Down}, tr("У полі пошуку: до списку")},
                 {{Qt::Key_Escape}, tr("У полі пошуку: очистити його")}};
    if (m_delegate != nullptr)
        keys += {{{Qt::Key_Return}, tr("У рядку, який редагується: записати")},
                 {{Qt::Key_Escape}, tr("У рядку, який редагується: скасувати набране")}};
    return keys;
}

bool QTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != view() || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if ((m_delegate != nullptr && m_delegate->keepsForRow(key)) || m_filter->takesScan(key))
        return true;
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    Edit();
    return true;
}

void QTab::connectDelegate()
{
    if (m_delegate == nullptr)
        return;
    m_delegate->setParent(this);
    view()->setItemDelegate(m_delegate);
    view()->setPressGuard([this](const std::function<void()> &again) { return m_delegate->settle(again); });
    connect(m_delegate, &QTabDelegate::editAgain, this, &QTab::openCell);
    connect(m_delegate, &QTabDelegate::storedUnseen, this, qOverload<>(&QTab::ShowData));
    connect(m_delegate, &QTabDelegate::delnewrecord, this, &QTab::delnewrecord);
    connect(m_delegate, &QTabDelegate::SetNextEdit, this, [this] {
        m_added = QPersistentModelIndex();
        m_list->countAdded();
    });
    // After the editor is gone: the view cannot open the next one while it closes this one.
    connect(m_delegate, &QTabDelegate::extNextEdit, this, &QTab::NextEdit, Qt::QueuedConnection);
    addWritingNote();
}

void QTab::addWritingNote()
{
    auto *label = new QLabel(m_list->footer());
    label->setObjectName(QStringLiteral("labelWriting"));
    static_cast<QHBoxLayout *>(m_list->footer()->layout())->insertWidget(1, label);
    m_note = new WaitNote(label, this);
    connect(m_delegate, &QTabDelegate::writingBegun, this, [this] { m_note->begin(tr("Записується…")); });
    connect(m_delegate, &QTabDelegate::writingEnded, m_note, &WaitNote::end);
    connect(m_delegate, &QAbstractItemDelegate::closeEditor, m_note, &WaitNote::end);
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
    Commands offered = {{Command::Reload, QString()}};
    if (mayEdit()) {
        for (const Command command : {Command::Add, Command::Edit, Command::Delete})
            offered.insert(command, recordRefusal);
    }
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
    else if (command == Command::Reload)
        reload();
    else if (command == Command::Delete)
        QQestion::question(window(), tr("Попередження."), tr("Видалення заборонене!!!"), true);
}

bool QTab::isLoading() const
{
    return m_list->isLoading() || m_tasks.isWaiting() || m_filter->isTyping();
}

QString QTab::statement() const
{
    return (query.isEmpty() ? QStringLiteral("SELECT * FROM ") + table : query) + narrowed(filter);
}

QString QTab::narrowed(const QString &filter) const
{
    return m_filter->narrowed(filter);
}

const QString &QTab::narrowing() const
{
    return m_filter->narrowing().condition;
}

const QString &QTab::narrowingWords() const
{
    return m_filter->narrowing().words;
}

void QTab::goTo(const Destination &destination)
{
    // What is being typed in the list is stored first.
    if (m_delegate != nullptr && !m_delegate->settle([this, destination] { goTo(destination); }))
        return;
    clearFilter();
    narrow(destination);
    m_list->enter();
}

void QTab::showAll()
{
    if (!narrowing().isEmpty() && (m_delegate == nullptr || m_delegate->settle([this] { showAll(); })))
        narrow({});
}

void QTab::narrow(const Destination &destination)
{
    m_filter->narrow(destination);
    searchAgain();
}

void QTab::clearFilter()
{
    m_filter->clear();
}

/// A tab with a search field and nothing else in its filter has no filter when that is empty.
void QTab::searchAgain()
{
    if (m_filter->isSearchEmpty())
        filter.clear();
    search(filter);
}

void QTab::ShowData()
{
    ShowData(0);
}

void QTab::ShowData(int limit)
{
    postTrace(m_receiver, QStringLiteral("In QTab::ShowData.\nName table: ") + table +
                              QStringLiteral("\nquery: ") + query);
    m_list->clear();
    QString sql = statement();
    if (limit >= 1)
        sql += QStringLiteral(" LIMIT ") + QString::number(limit);
    tellEmptyText();
    m_list->load(sql, {}, tr("Помилка запиту."));
}

void QTab::search(const QString &newFilter)
{
    filter = newFilter;
    m_filter->dropTyping();
    tellEmptyText();
    m_list->load(statement());
}

void QTab::reload()
{
    if (m_delegate != nullptr && (m_delegate->isWriting() || m_delegate->edited().isValid())) {
        m_note->say(tr("Спершу закінчіть набране: Enter записує, Esc скасовує."));
        return;
    }
    if (m_list->isLoading())
        return;
    if (m_filter->isTyping())
        return m_filter->endTyping();
    loadAgain();
    m_list->keepPlace();
}

void QTab::loadAgain()
{
    m_list->loadAgain();
}

void QTab::tellEmptyText()
{
    m_conditions = m_filter->words();
    m_list->setEmptyText(m_conditions.isEmpty() ? tr("Немає записів")
                                                : tr("За цими умовами нічого не знайдено."));
}

void QTab::showInModel(QSqlQuery &q)
{
    m_list->showRows(RowStore::read(q));
}

void QTab::showInModel(QSqlQuery &q, int firstColumn, int row)
{
    m_list->refreshRow(RowStore::read(q), q.at(), row, firstColumn);
}

void QTab::editadd(const QString &where, const QModelIndex &index, bool full, unsigned int limit)
{
    if (full) {
        postTrace(m_receiver, tr("Повне оновлення таблиці"));
        ShowData(static_cast<int>(limit));
        return;
    }
    postTrace(m_receiver, tr("Оновлення одного запису id=") + where);
    const bool isNew = !index.isValid();
    readRows(where, [this, isNew, place = QPersistentModelIndex(index)](const RowStore &records) {
        showRecord(records, place, isNew);
    });
}

/// A search may have replaced the rows meanwhile.
void QTab::showRecord(const RowStore &records, const QModelIndex &index, bool isNew)
{
    const std::string_view id = records.cell(0, 0);
    const QModelIndex row =
        index.isValid() ? index : m_list->indexOf(QString::fromUtf8(id.data(), static_cast<int>(id.size())));
    if (row.isValid())
        m_list->refreshRow(records, 0, row.row(), 1);
    else if (isNew)
        m_list->refreshRow(records, 0, -1);
}

void QTab::readRows(const QString &where, const std::function<void(const RowStore &)> &then)
{
    const QString sql =
        (query.isEmpty() ? QStringLiteral("SELECT * FROM ") + table : query) + QLatin1Char(' ') + where;
    m_tasks.read(
        [sql, read = table](const Db &db) {
            auto records = db.run(sql, {}, tr("Помилка при зчитуванні запису."));
            if (!records)
                return std::optional<RowStore>();
            if (records->size() == 0)
                postMessage(db.receiver(), tr("Запис не знайдено в базі!"));
            std::optional<RowStore> rows = RowStore::read(*records);
            QUpdateBD().reRead(read, *db.connection(), db.receiver());
            return rows;
        },
        [then](const std::optional<RowStore> &rows) {
            if (rows && rows->rowCount() > 0)
                then(*rows);
        });
}

void QTab::fillFilter(QComboBox *box, const QString &sql, const QString &all,
                      const std::function<void(bool isKept)> &filled)
{
    const QPair<QString, QVariant> first = {all, 0};
    if (box->count() == 0)
        showEntries(box, {first});
    const int newest = ++m_fillings[box];
    m_tasks.read([sql](const Db &db) { return readEntries(db, sql); },
                 [this, box, newest, first, filled](const std::optional<ListEntries> &entries) {
                     if (entries && newest == m_fillings.value(box))
                         filled(showEntriesAgain(box, ListEntries{first} + *entries));
                 });
}

std::unique_ptr<RecordDialog> QTab::makeEditor(QString *id)
{
    Q_UNUSED(id)
    return nullptr;
}

/// An empty id adds a record. Who may only look is not told that nothing was changed.
void QTab::openEditor(const QString &id)
{
    // Answered before the editor has read its record: that task stands behind it.
    m_user->beginAct();
    QString edited = id;
    const QPointer<QTab> open = this;
    RecordDialog *editor = makeEditor(&edited).release();
    if (editor == nullptr)
        return;
    m_editor = editor;
    const auto follow = [this, editor] {
        if (!mayEdit())
            editor->setReadOnly(true);
    };
    connect(m_user, &QLoadedUser::rightsChanged, editor, follow);
    follow();
    const bool isSaved = editor->exec() == QDialog::Accepted;
    // The tab may have gone meanwhile, and its editor with it.
    if (!open)
        return;
    // A question that closes together with the editor leaves some window managers without an active window.
    window()->activateWindow();
    if (isSaved || editor->wasWritten())
        refreshRecord(edited, id.isEmpty());
    else if (editor->isUnclear())
        followUnclear();
    else if (mayEdit() && !editor->hasFailed())
        postMessage(m_receiver,
                    id.isEmpty() ? tr("Запис не додано, відмінено користувачем!")
                                 : tr("Зміни не внесені, відмінено користувачем!"),
                    QMessEvent::Information);
    delete editor;
}

void QTab::followUnclear()
{
    postMessage(m_receiver,
                tr("Редактор закрито, а чи записано зміни, невідомо: зв'язок обірвався під час запису. "
                   "Перевірте запис у списку."),
                QMessEvent::Warning);
    search(filter);
}

void QTab::refreshRecord(const QString &id, bool isNew)
{
    const QModelIndex index = isNew ? QModelIndex() : m_list->indexOf(id);
    if (!isNew && !index.isValid())
        return;
    editadd(QStringLiteral("WHERE ") + table + QStringLiteral(".id=") + id, index, false);
}

void QTab::Edit()
{
    Edit(view()->currentIndex());
}

void QTab::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (m_delegate == nullptr)
        return openEditor(model()->stored(index.row(), 0));
    // Rows that arrive would take its editor away.
    if (m_list->isLoading())
        return;
    const QPersistentModelIndex cell = m_delegate->cellFor(index);
    if (!mayEdit() || m_delegate->edited() == cell)
        return;
    if (!m_delegate->settle([this, cell] { Edit(cell); }) || !cell.isValid())
        return;
    delnewrecord();
    openCell(cell);
}

void QTab::openCell(const QModelIndex &cell)
{
    m_user->beginAct();
    view()->setCurrentIndex(cell);
    view()->edit(cell);
}

void QTab::Add()
{
    if (!mayEdit())
        return;
    if (m_delegate == nullptr)
        return openEditor(QString());
    if (m_list->isLoading()) {
        m_addsWhenLoaded = true;
        m_delegate->awaitRow();
        view()->setFocus();
        return;
    }
    if (m_delegate->settle([this] { Add(); }))
        addName();
}

void QTab::addName()
{
    delnewrecord();
    m_delegate->startAdding();
    const int row = model()->rowCount();
    model()->insertRow(row);
    m_added = model()->index(row, QTabDelegate::Name);
    openCell(m_added);
}

void QTab::delnewrecord()
{
    if (m_delegate != nullptr)
        m_delegate->stopAdding();
    if (m_added.isValid())
        model()->removeRow(m_added.row());
    m_added = QPersistentModelIndex();
}

bool QTab::mayClose()
{
    if (m_delegate == nullptr)
        return true;
    if (m_delegate->isWriting()) {
        m_note->say(tr("Записується… Закрийте вкладку, коли це закінчиться."));
        return false;
    }
    const bool closes =
        !m_delegate->hasTyped() ||
        QMessDlg::confirm(window(), tr("Набране не збережено."), tr("Набране в списку ще не записано."),
                          tr("Закрити без збереження"), tr("Продовжити редагування"));
    if (closes)
        m_delegate->drop();
    else
        m_delegate->resume();
    return closes;
}

void QTab::NextEdit()
{
    Add();
    if (!m_addsWhenLoaded)
        m_delegate->giveKeys();
}

bool QTab::export_to_csv(QObject *receiver, QAbstractItemModel *model, QTableView *view, const QString &code,
                         const QString &path_file_name)
{
    postTrace(receiver, QStringLiteral("QTab::export_to_csv ") + path_file_name);
    return ListPane::exportCsv(receiver, model, view, code, path_file_name);
}

void QTab::import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                      const QString &path_file_name, QChar sep, QChar ent)
{
    postTrace(receiver, QStringLiteral("QTab::import_csv ") + path_file_name);
    importFile(db, receiver, widget, path_file_name,
               {code.isEmpty() ? CsvEncoding::Utf8 : CsvEncoding::Windows1251, sep, ent});
}

void QTab::import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                      const QString &path_file_name, QChar sep)
{
    import_csv(db, receiver, widget, code, path_file_name, sep, CsvForm().end);
}

void QTab::import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                      const QString &path_file_name)
{
    import_csv(db, receiver, widget, code, path_file_name, CsvForm().separator);
}

void QTab::import_csv(const QString &code, const QString &path_file_name)
{
    import_csv(m_db, m_receiver, this, code, path_file_name);
}

void QTab::importFile(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &path,
                      const CsvForm &wanted)
{
    Q_UNUSED(db)
    Q_UNUSED(receiver)
    Q_UNUSED(widget)
    Q_UNUSED(path)
    Q_UNUSED(wanted)
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
    InsertColumns(headers, widths, model(), view());
}

void QTab::setColumns(const QVector<Column> &columns)
{
    m_list->setColumns(columns, QLatin1String(metaObject()->className()));
}

QWidget *QTab::addFilterBar()
{
    return m_filter->addBar();
}

int QTab::CSEAN13(const QString &code, int len)
{
    return eanCheckDigit(code, len).unicode();
}
