#include "qpremisgroup.h"
#include "ui_qpremisgroup.h"

#include "accessedits.h"
#include "accessrows.h"
#include "groupscompare.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qqestion.h"
#include "typingpause.h"
#include "waitnote.h"

#include <QScopedValueRollback>
#include <QShortcut>
#include <QSqlDatabase>

namespace {
enum GroupColumn { GroupName, Members };
constexpr int idRole = Qt::UserRole;
} // namespace

QPremisGroup::QPremisGroup(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QPremisGroup>())
    , m_db(db)
    , m_user(user)
    , m_receiver(receiver)
    , m_typing(new TypingPause(this))
    , m_tasks(db->connectionName(), receiver, nullptr)
    , m_listTasks(db->connectionName(), receiver, nullptr)
{
    ui->setupUi(this);
    m_note = new WaitNote(ui->labelState, this);
    ui->matrix->open(db, user, receiver);
    ui->matrix->breakCaptions();
    ui->splitter->setStretchFactor(1, 1);
    ui->groupsSide->setMinimumWidth(fontMetrics().averageCharWidth() * 42);
    ui->groups->setHeaderLabels({tr("Група"), tr("Користувачів")});
    ui->groups->header()->setStretchLastSection(false);
    ui->groups->header()->setSectionResizeMode(GroupName, QHeaderView::Stretch);
    ui->groups->header()->setSectionResizeMode(Members, QHeaderView::ResizeToContents);
    setFocusProxy(ui->groups);
    connectWidgets();
    followRights();
    reload(user->idGroupPremission());
}

QPremisGroup::~QPremisGroup() = default;

void QPremisGroup::connectWidgets()
{
    connect(ui->groups, &QTreeWidget::currentItemChanged, this, &QPremisGroup::chooseGroup);
    connect(ui->groups, &QTreeWidget::itemActivated, this, [this] { run(Command::Edit); });
    connect(ui->pbAdd, &QPushButton::clicked, this, &QPremisGroup::add);
    connect(ui->pbCopy, &QPushButton::clicked, this, &QPremisGroup::copy);
    connect(ui->pbCompare, &QPushButton::clicked, this, &QPremisGroup::compare);
    connect(ui->pbShowAs, &QPushButton::clicked, this, &QPremisGroup::askMember);
    connect(ui->pbSave, &QPushButton::clicked, this, &QPremisGroup::save);
    connect(ui->pbRevert, &QPushButton::clicked, this, &QPremisGroup::revert);
    connect(ui->leName, &QLineEdit::textEdited, this, [this](const QString &name) {
        m_mine.name = name.trimmed();
        showChanged();
    });
    connect(ui->rights, &RightsTree::chosen, this, &QPremisGroup::takeRights);
    connect(ui->shopGroups, &QListWidget::itemChanged, this,
            [this] { takeChecked(ui->shopGroups, &m_mine.shopGroups); });
    connect(ui->shops, &QListWidget::itemChanged, this, [this] { takeChecked(ui->shops, &m_mine.shops); });
    m_typing->follow(ui->leSearch);
    connect(m_typing, &TypingPause::ended, this, [this] { ui->rights->searchFor(ui->leSearch->text()); });
    connect(m_user, &QLoadedUser::rightsChanged, this, &QPremisGroup::followRights);
    auto *saving = new QShortcut(QKeySequence::Save, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    saving->setWhatsThis(tr("Зберегти групу прав"));
    connect(saving, &QShortcut::activated, this, &QPremisGroup::save);
    auto *finding = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    finding->setWhatsThis(tr("Шукати право"));
    connect(finding, &QShortcut::activated, this, [this] {
        ui->parts->setCurrentWidget(ui->partRights);
        ui->leSearch->setFocus(Qt::ShortcutFocusReason);
        ui->leSearch->selectAll();
    });
}

bool QPremisGroup::mayEdit() const
{
    return m_user->mayEdit(Permission::PermissionGroups);
}

void QPremisGroup::followRights()
{
    ui->leName->setReadOnly(!mayEdit());
    ui->rights->setReadOnly(!mayEdit());
    for (QPushButton *button : {ui->pbAdd, ui->pbCopy, ui->pbRevert, ui->pbSave})
        button->setVisible(mayEdit());
    ui->labelKeys->setVisible(mayEdit());
    showAccess();
}

Commands QPremisGroup::commands() const
{
    Commands offered = {{Command::Reload, QString()}, {Command::Export, QString()}};
    if (mayEdit()) {
        for (const Command command : {Command::Add, Command::Edit, Command::Delete})
            offered.insert(command, QString());
    }
    return offered;
}

void QPremisGroup::run(Command command)
{
    if (command == Command::Reload) {
        if (!m_tasks.isWriting() && mayDropChanges(tr("Продовжити редагування")))
            reload(m_id);
    } else if (command == Command::Add && mayEdit()) {
        add();
    } else if (command == Command::Edit) {
        ui->leName->setFocus();
        ui->leName->selectAll();
    } else if (command == Command::Delete) {
        warn(tr("Видалення заборонене!!!"));
    }
}

bool QPremisGroup::isLoading() const
{
    return m_tasks.isWaiting() || m_listTasks.isWaiting();
}

ListPane *QPremisGroup::list() const
{
    return ui->matrix;
}

bool QPremisGroup::isChanged() const
{
    return (isNew() || !m_id.isEmpty()) &&
           firstDifference(isNew() ? m_begun : m_read, fieldsOf(m_mine)).has_value();
}

bool QPremisGroup::isNew() const
{
    return m_id.isEmpty() && !m_mine.rights.isEmpty();
}

bool QPremisGroup::mayClose()
{
    if (m_tasks.isWriting()) {
        m_note->say(tr("Записується… Закрийте вкладку, коли це закінчиться."));
        return false;
    }
    return mayDropChanges(tr("Продовжити редагування"));
}

/// True also when there are none.
bool QPremisGroup::mayDropChanges(const QString &keepCaption)
{
    if (!isChanged() || !mayEdit())
        return true;
    const QString name = m_mine.name.isEmpty() ? tr("Нова група") : m_mine.name;
    return QMessDlg::confirm(window(), tr("Зміни не збережено."),
                             tr("Зміни в групі прав \"%1\" не збережено.").arg(name), tr("Не зберігати"),
                             keepCaption);
}

/// What is changed from now on, while something is read, is not lost by the answer.
void QPremisGroup::dropChanges()
{
    m_mine = m_id.isEmpty() ? GroupAccess() : accessOf(m_read);
    showAccess();
}

QPremisGroup::Reading QPremisGroup::readPage(const Db &db, const QString &idWanted)
{
    Reading read = {readGroupsOverview(db), {}, {}};
    if (!read.overview || read.overview->groups.isEmpty())
        return read;
    read.id = read.overview->groups.first().id;
    for (const PermissionGroup &group : read.overview->groups)
        read.id = group.id == idWanted ? idWanted : read.id;
    const auto group = readRecord(db, permissionGroup(), read.id);
    if (!group)
        read.overview.reset();
    read.group = group.value_or(RecordFields());
    return read;
}

/// Nothing is chosen yet, or what was saved is read again.
void QPremisGroup::reload(const QString &idWanted)
{
    m_tasks.drop();
    dropChanges();
    m_note->begin(tr("Читається…"));
    m_tasks.read([idWanted](const Db &db) { return readPage(db, idWanted); },
                 [this](const Reading &read) {
                     m_note->end();
                     if (!read.overview)
                         return;
                     m_overview = *read.overview;
                     // Unless something was changed before the answer was there.
                     if (!isChanged())
                         take(read.id, read.group);
                     showOverview(m_overview);
                     readMatrix();
                 });
}

void QPremisGroup::showOverview(const GroupsOverview &overview)
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    ui->groups->clear();
    for (const PermissionGroup &group : overview.groups) {
        const bool isOwn = group.id == m_user->idGroupPremission();
        auto *item = new QTreeWidgetItem(ui->groups, {isOwn ? tr("%1 (ваша)").arg(group.name) : group.name,
                                                      QString::number(group.members)});
        item->setData(GroupName, idRole, group.id);
        item->setTextAlignment(Members, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(GroupName, group.name);
    }
    markGroup(m_id);
    ui->pbCompare->setEnabled(overview.groups.size() > 1);
}

void QPremisGroup::readMatrix()
{
    m_listTasks.drop();
    m_listTasks.read([](const Db &db) { return readAllAccess(db); },
                     [this](const std::optional<QMap<QString, GroupAccess>> &access) {
                         if (!access)
                             return ui->matrix->clearAfterFailure();
                         ui->matrix->setColumns(matrixColumns(m_overview), QStringLiteral("premis_group"));
                         ui->matrix->showRows(matrixRows(m_overview, *access));
                     });
}

/// The list of the groups shows which one stands beside it: none for a new one.
void QPremisGroup::markGroup(const QString &id)
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    ui->groups->setCurrentItem(nullptr);
    ui->groups->clearSelection();
    for (int i = 0; i < ui->groups->topLevelItemCount(); ++i) {
        if (ui->groups->topLevelItem(i)->data(GroupName, idRole) == id)
            ui->groups->setCurrentItem(ui->groups->topLevelItem(i));
    }
}

void QPremisGroup::chooseGroup(const QTreeWidgetItem *item)
{
    if (m_isShowing || item == nullptr)
        return;
    const QString id = item->data(GroupName, idRole).toString();
    if (m_tasks.isWriting() || !mayDropChanges(tr("Продовжити редагування"))) {
        // From within the list's own signal its current row cannot be set.
        QMetaObject::invokeMethod(
            this, [this] { markGroup(m_id); }, Qt::QueuedConnection);
        return;
    }
    m_tasks.drop();
    dropChanges();
    m_note->begin(tr("Читається…"));
    m_tasks.read([id](const Db &db) { return readRecord(db, permissionGroup(), id); },
                 [this, id](const std::optional<RecordFields> &fields) {
                     m_note->end();
                     if (fields && !fields->isEmpty() && !isChanged())
                         take(id, *fields);
                     else
                         markGroup(m_id);
                 });
}

/// From now on this group stands here, as it was read.
void QPremisGroup::take(const QString &id, const RecordFields &fields)
{
    m_id = id;
    m_read = fields;
    m_mine = accessOf(fields);
    m_begun = fieldsOf(m_mine);
    m_isUnclear = false;
    showAccess();
}

void QPremisGroup::showAccess()
{
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    if (ui->leName->text().trimmed() != m_mine.name)
        ui->leName->setText(m_mine.name);
    ui->rights->showRights(m_mine.rights);
    fillList(ui->shopGroups, m_overview.shopGroups, m_mine.shopGroups);
    fillList(ui->shops, m_overview.shops, m_mine.shops);
    showChanged();
}

void QPremisGroup::fillList(QListWidget *list, const QVector<QStringList> &all,
                            const QMap<QString, QString> &chosen)
{
    const int row = list->currentRow();
    list->clear();
    // What others have added since all were read is chosen, too.
    QMap<QString, QString> unlisted = chosen;
    for (const QStringList &one : all)
        unlisted.remove(one.at(0));
    QVector<QStringList> shown = all;
    for (auto one = unlisted.begin(); one != unlisted.end(); ++one)
        shown.append({one.key(), one.value()});
    for (const QStringList &one : qAsConst(shown)) {
        auto *item = new QListWidgetItem(one.at(1), list);
        item->setData(idRole, one.at(0));
        item->setCheckState(chosen.contains(one.at(0)) ? Qt::Checked : Qt::Unchecked);
        if (!mayEdit())
            item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
    }
    list->setCurrentRow(qMin(qMax(0, row), list->count() - 1));
}

void QPremisGroup::takeChecked(const QListWidget *list, QMap<QString, QString> *chosen)
{
    if (m_isShowing)
        return;
    chosen->clear();
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->checkState() == Qt::Checked)
            chosen->insert(list->item(i)->data(idRole).toString(), list->item(i)->text());
    }
    showChanged();
}

void QPremisGroup::takeRights(const QList<int> &ids, int value)
{
    const GroupAccess before = accessOf(m_read);
    for (const int id : ids)
        m_mine.rights[id] = storedFor(value, before.rights.value(id));
    ui->rights->showRights(m_mine.rights);
    showChanged();
}

/// What differs from what was read stands in bold, and can be saved.
void QPremisGroup::showChanged()
{
    const GroupAccess before = accessOf(m_read);
    QList<int> changed;
    for (auto right = m_mine.rights.begin(); right != m_mine.rights.end(); ++right) {
        if (right.value() != before.rights.value(right.key()))
            changed.append(right.key());
    }
    ui->rights->mark(changed);
    ui->pbSave->setEnabled(isNew() || isChanged());
    ui->pbRevert->setEnabled(isNew() || isChanged());
    ui->pbCopy->setEnabled(!m_id.isEmpty());
    ui->accessSide->setEnabled(isNew() || !m_id.isEmpty());
    m_note->end();
    if (!mayEdit())
        ui->labelState->setText(tr("Тільки перегляд."));
    else if (isNew())
        ui->labelState->setText(tr("Нова група: ще не збережена."));
    else
        ui->labelState->setText(isChanged() ? tr("Змінено, ще не збережено.") : QString());
}

void QPremisGroup::add()
{
    if (m_tasks.isWriting() || !mayDropChanges(tr("Продовжити редагування")))
        return;
    // A group that is still being read is not wanted any more.
    m_tasks.drop();
    take(QString(), {});
    markGroup(QString());
    ui->leName->setFocus();
}

void QPremisGroup::copy()
{
    if (m_id.isEmpty() || m_tasks.isWriting() || !mayDropChanges(tr("Продовжити редагування")))
        return;
    const GroupAccess source = accessOf(m_read);
    m_tasks.drop();
    take(QString(), {});
    m_mine = copyOf(source, tr("%1 - копія").arg(source.name).left(ui->leName->maxLength()).trimmed());
    m_begun = fieldsOf(m_mine);
    markGroup(QString());
    showAccess();
    ui->leName->setFocus();
    ui->leName->selectAll();
}

void QPremisGroup::revert()
{
    if (m_tasks.isWriting() || !mayDropChanges(tr("Продовжити редагування")))
        return;
    if (m_id.isEmpty())
        reload(m_user->idGroupPremission());
    else
        take(m_id, m_read);
}

void QPremisGroup::compare()
{
    GroupsCompare(m_db, m_user, m_receiver, m_overview.groups,
                  m_id.isEmpty() ? m_overview.groups.first().id : m_id, this)
        .exec();
}

void QPremisGroup::askMember()
{
    emit memberWanted(m_mine.name.isEmpty() ? tr("Нова група") : m_mine.name, memberRights(m_mine));
}

void QPremisGroup::warn(const QString &why)
{
    QQestion::question(window(), tr("Попередження."), why, true);
}
