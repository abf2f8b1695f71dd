#include "qmanaction.h"
#include "ui_qmanaction.h"

#include "barcodedialog.h"
#include "listpane.h"
#include "money.h"
#include "permissions.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"

#include <QSignalBlocker>
#include <QSqlDatabase>
#include <algorithm>
#include <utility>

namespace {
const DbId noAction = 1;
const int percentKind = 2;

/// What a promotion does and when, for the line below it; empty when it is gone.
std::optional<QString> readActionWords(const Db &db, DbId id)
{
    const auto row = db.firstRow(
        QStringLiteral("SELECT action.val,type_action.name,%1 FROM action LEFT JOIN type_action ON "
                       "type_action.id=action.id_type_action WHERE action.id=%2")
            .arg(actionTimesSql())
            .arg(id));
    if (!row || row->isEmpty())
        return row ? std::optional(QString()) : std::nullopt;
    const ActionTimes times = actionTimes(row->at(2));
    const QString does = times.kind == percentKind
                             ? QManAction::tr("знижка %1 %").arg(rateText(row->at(0).toLongLong()))
                             : row->at(1);
    const QString never = neverWords(times);
    if (!never.isEmpty())
        return QManAction::tr("%1; не діє ніколи: %2").arg(does, never);
    return QStringList{does, actionStateWords(actionState(times, QDateTime::currentDateTime())),
                       actionPeriodShown(times), actionHoursShown(times), weekDaysShown(times.weekDays)}
        .join(QStringLiteral("; "));
}
} // namespace

QManAction::QManAction(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set,
                       QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QManAction>())
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
    , m_tasks(db->connectionName(), mainWindow, nullptr)
    , m_boxes(db->connectionName(), mainWindow, nullptr)
{
    Q_UNUSED(set)
    ui->setupUi(this);
    buildList();
    for (QComboBox *box : {ui->cbHas, ui->cbGroup})
        keepNarrow(box, 12);
    keepNarrow(ui->cbAction, 18);
    keepNarrow(ui->cbShops, 12);
    showOffered({});
    connectInputs();
    fillBoxes();
}

QManAction::~QManAction()
{
    leavePlanning();
    delete m_job;
}

void QManAction::buildList()
{
    ui->list->open(m_db, m_user, m_mainWindow);
    ui->list->breakCaptions();
    ui->list->setColumns({{tr("Магазин"), 22},
                          {tr("Код"), 6, &asNumber},
                          {tr("Назва товару"), 26},
                          {tr("Ціна без акції"), 9, &asMoney},
                          {tr("Має акцію"), 16},
                          {tr("Ціна зараз"), 9, &asMoney},
                          {tr("Ціна з вибраною"), 9, &asMoney},
                          {tr("Що буде"), 20}},
                         QLatin1String(staticMetaObject.className()));
    ui->list->setEmptyText(tr("Виберіть акцію, товари й магазини та натисніть «Переглянути»."));
    ui->list->clear();
}

void QManAction::connectInputs()
{
    connect(m_user, &QLoadedUser::rightsChanged, this, &QManAction::fillBoxes);
    connect(m_user, &QLoadedUser::rightsChanged, this, &QManAction::followWork);
    connect(ui->cbAction, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManAction::readAction);
    for (QComboBox *box : {ui->cbAction, ui->cbHas, ui->cbGroup})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManAction::followChoice);
    connect(ui->cbShops, &QChekedComboBox::checkedChanged, this, &QManAction::followChoice);
    connect(ui->leSearch, &QLineEdit::textChanged, this, &QManAction::followChoice);
    connect(ui->sbPriority, qOverload<int>(&QSpinBox::valueChanged), this, &QManAction::followChoice);
    connect(ui->leSearch, &QLineEdit::returnPressed, this, &QManAction::preview);
    connect(ui->pbBarcodes, &QPushButton::clicked, this, &QManAction::askForBarcodes);
    connect(ui->pbPreview, &QPushButton::clicked, this, &QManAction::preview);
    connect(ui->pbStop, &QPushButton::clicked, this, &QManAction::stop);
    connect(ui->pbAssign, &QPushButton::clicked, this, &QManAction::assign);
}

/// What others have added is offered from then on.
void QManAction::openedByMenu()
{
    fillBoxes();
}

void QManAction::fillBoxes()
{
    m_boxes.drop();
    const QString shopsSql =
        permittedShopsSql(*m_user, QStringLiteral(" GROUP BY shops.id ORDER BY shops.address"));
    m_boxes.read(
        [shopsSql](const Db &db) -> std::optional<Offered> {
            const auto actions = readEntries(db, QStringLiteral("SELECT name,id FROM action ORDER BY id"));
            const auto groups =
                actions ? readEntries(db, QStringLiteral("SELECT name,id FROM group_goods")) : std::nullopt;
            const auto shops = groups ? readPermittedShops(db, shopsSql) : std::nullopt;
            return shops ? std::optional(Offered{*actions, *groups, *shops}) : std::nullopt;
        },
        [this](const std::optional<Offered> &offered) {
            if (offered)
                showOffered(*offered);
        });
}

void QManAction::showOffered(const Offered &offered)
{
    const auto behind = [](const QString &first, const ListEntries &entries) {
        return ListEntries{{first, 0}} + entries;
    };
    showEntriesAgain(ui->cbAction, behind(tr("Виберіть акцію"), offered.actions));
    showEntriesAgain(ui->cbHas, behind(tr("Будь-яку або жодної"), offered.actions));
    showEntriesAgain(ui->cbGroup, behind(tr("Усі групи товарів"), offered.groups));
    showShops(offered.shops);
    readAction();
    followChoice();
    if (std::exchange(m_previewsWhenFilled, false))
        preview();
}

void QManAction::showShops(const ListEntries &shops)
{
    // Half of them would be another choice.
    const QSignalBlocker hold(ui->cbShops);
    const QVariantList before = ui->cbShops->listData(Qt::UserRole);
    const bool isAll = ui->cbShops->count() <= 1 || ui->cbShops->isAllSelect();
    showEntries(ui->cbShops, ListEntries{{tr("Усі магазини"), 0}} + shops);
    for (int row = 0; row < ui->cbShops->count(); ++row) {
        if (isAll || before.contains(ui->cbShops->itemData(row)))
            ui->cbShops->setChekedItem(row, Qt::Checked);
    }
    ui->cbShops->updateDisplayText();
}

ListPane *QManAction::list() const
{
    return ui->list;
}

Commands QManAction::commands() const
{
    return {{Command::Export, QString()}, {Command::Reload, QString()}};
}

void QManAction::run(Command command)
{
    if (command == Command::Reload)
        preview();
}

bool QManAction::isLoading() const
{
    return m_job != nullptr || m_boxes.isWaiting();
}

bool QManAction::mayClose()
{
    return m_work != Work::Assigning ||
           !refuse(tr("Акція ще призначається. Дочекайтесь кінця або натисніть «Зупинити»."));
}

bool QManAction::refuse(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(window(), tr("Попередження."), why, true);
    return !why.isEmpty();
}

void QManAction::showAction(const QString &words)
{
    ui->labelAction->setText(words);
}

void QManAction::readAction()
{
    m_tasks.drop();
    const DbId id = ui->cbAction->currentData().toUInt();
    if (id == 0 || id == noAction)
        return showAction(id == noAction ? tr("Акції буде знято з вибраних товарів.") : QString());
    m_tasks.read([id](const Db &db) { return readActionWords(db, id); },
                 [this](const std::optional<QString> &words) {
                     if (words)
                         showAction(words->isEmpty() ? tr("Цю акцію вже видалив хтось інший.") : *words);
                 });
}

void QManAction::askForBarcodes()
{
    const QPointer<QManAction> open = this;
    const auto text = BarcodeDialog::ask(window(), m_barcodes.text());
    if (open && text)
        takeBarcodes(*text);
}

void QManAction::takeBarcodes(const QString &text)
{
    m_barcodes.setText(text);
    ui->labelBarcodes->setText(m_barcodes.words());
    followChoice();
}

ActionChoice QManAction::choice() const
{
    ActionChoice choice;
    choice.action = ui->cbAction->currentData().toUInt();
    choice.goodsGroup = ui->cbGroup->currentData().toUInt();
    choice.has = ui->cbHas->currentData().toUInt();
    choice.words = ui->leSearch->text();
    choice.barcodes = m_barcodes.codes();
    choice.priority = ui->sbPriority->value();
    for (int row = 1; row < ui->cbShops->count(); ++row) {
        if (ui->cbShops->itemData(row, Qt::CheckStateRole).toInt() == Qt::Checked)
            choice.shops.append({ui->cbShops->itemData(row).toUInt(), ui->cbShops->itemText(row)});
    }
    std::sort(choice.shops.begin(), choice.shops.end());
    return choice;
}

/// What is shown may not be what is chosen any more.
void QManAction::followChoice()
{
    if (m_plan != nullptr && choice() == m_plan->choice)
        return followWork();
    if (m_plan != nullptr)
        ui->labelCounts->setText(tr("Умови змінено: натисніть «Переглянути» ще раз."));
    m_plan = nullptr;
    if (m_work == Work::Planning)
        leavePlanning();
    followWork();
}

QString QManAction::choiceRefusal() const
{
    if (m_work == Work::Assigning)
        return tr("Акція ще призначається. Дочекайтесь кінця або натисніть «Зупинити».");
    const ActionChoice now = choice();
    if (now.action == 0)
        return tr("Виберіть акцію. Щоб зняти акцію з товарів, виберіть «Без акції».");
    if (now.shops.isEmpty())
        return ui->cbShops->count() > 1 ? tr("Виберіть хоча б один магазин.") : noGroupsHint();
    return m_barcodes.refusal();
}

void QManAction::preview()
{
    if (m_boxes.isWaiting()) {
        m_previewsWhenFilled = true;
        return;
    }
    if (refuse(choiceRefusal()))
        return;
    leavePlanning();
    m_plan = nullptr;
    const auto plan = std::make_shared<ActionPlan>();
    begin(
        Work::Planning, tr("Перегляд акції %1").arg(ui->cbAction->currentText()),
        [plan, chosen = choice()](JobContext &context) { return planAction(context, chosen, plan.get()); },
        [this, plan](const JobResult &result) { showPlan(plan, result); });
    ui->labelCounts->setText(tr("Читається…"));
}

void QManAction::showPlan(const std::shared_ptr<ActionPlan> &plan, const JobResult &result)
{
    if (result.outcome != JobResult::Done) {
        ui->list->clear();
        ui->labelCounts->setText(result.words);
        return;
    }
    m_plan = plan;
    const QString action = tr("Акція: %1").arg(plan->name);
    ui->list->setHeading({ui->list->heading().value(0), action});
    ui->list->setEmptyText(tr("За цими умовами нічого не знайдено."));
    ui->list->showRows(RowStore(plan->rows));
    ui->labelCounts->setText(planSummary(*plan));
    followWork();
}

QString QManAction::assignRefusal() const
{
    if (!m_user->mayEdit(Permission::ActionsManagement))
        return tr("У вас є право лише переглядати: призначати акції ви не можете.");
    if (QString why = m_barcodes.refusal(); !why.isEmpty())
        return why;
    if (m_plan == nullptr)
        return tr("Спершу натисніть «Переглянути».");
    return m_plan->isEmpty() ? tr("За цими умовами нічого не зміниться.") : QString();
}

QString QManAction::question() const
{
    const QString counts = tr("Товарів: %1, магазинів: %2, разом цін: %3.")
                               .arg(wholeShown(m_plan->goodsCount), wholeShown(m_plan->shopsCount),
                                    wholeShown(m_plan->changes.size()));
    if (m_plan->choice.action == noAction)
        return tr("Зняти акції з показаних товарів?\n%1\nБез знижки вони продаватимуться одразу.")
            .arg(counts);
    const QString never = neverWords(m_plan->times);
    if (!never.isEmpty())
        return tr("Призначити акцію «%1»?\n%2\nАкція не діє ніколи: %3").arg(m_plan->name, counts, never);
    return tr("Призначити акцію «%1»?\n%2\nСтан акції: %3. Акції, які ці товари мають зараз, буде замінено.")
        .arg(m_plan->name, counts,
             actionStateWords(actionState(m_plan->times, QDateTime::currentDateTime())));
}

void QManAction::assign()
{
    if (m_work != Work::None || refuse(assignRefusal()))
        return;
    const bool isTakenOff = m_plan->choice.action == noAction;
    const QPointer<QManAction> open = this;
    const auto plan = m_plan;
    // The right may go while the question is open, and another choice may come.
    if (!QMessDlg::confirm(window(), tr("Управління акціями"), question(),
                           isTakenOff ? tr("Зняти") : tr("Призначити")) ||
        !open || refuse(assignRefusal()) || m_plan != plan)
        return;
    const auto assigned = std::make_shared<ActionAssigned>();
    begin(
        Work::Assigning, tr("Призначення акції %1").arg(plan->name),
        [plan, assigned](JobContext &context) { return assignAction(context, *plan, assigned.get()); },
        [this, assigned](const JobResult &result) { showAssigned(assigned, result); });
}

void QManAction::showAssigned(const std::shared_ptr<ActionAssigned> &assigned, const JobResult &result)
{
    // What has become of it is not what the next press would write.
    if (assigned->isWritten || result.outcome == JobResult::Failed)
        m_plan = nullptr;
    ui->labelCounts->setText(result.words);
    if (assigned->isWritten) {
        ui->list->showRows(std::move(assigned->rows));
        postMessage(m_mainWindow, result.words, QMessEvent::Information);
    }
    followWork();
    ui->cbAction->setFocus();
}

void QManAction::begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
                       const Then &then)
{
    m_work = kind;
    m_job = new Job(title, m_db->connectionName(), work, m_mainWindow);
    m_job->start();
    ui->panel->follow(m_job);
    // Behind those who show the job: they are to know its end before a question is asked.
    connect(m_job, &Job::finished, this, [this, then, job = m_job.data()](const JobResult &result) {
        m_job = nullptr;
        job->deleteLater();
        m_work = Work::None;
        followWork();
        then(result);
    });
    followWork();
}

/// Nobody waits for what is not wanted any more.
void QManAction::leavePlanning()
{
    if (m_work != Work::Planning || m_job == nullptr)
        return;
    disconnect(m_job, nullptr, this, nullptr);
    connect(m_job, &Job::finished, m_job, &Job::deleteLater);
    m_job->cancel();
    m_job = nullptr;
    m_work = Work::None;
    ui->labelCounts->setText(tr("Перегляд зупинено."));
    followWork();
}

void QManAction::stop()
{
    if (m_work == Work::Planning)
        return leavePlanning();
    if (m_job == nullptr)
        return;
    ui->pbStop->setText(tr("Зупиняється…"));
    ui->pbStop->setEnabled(false);
    m_job->cancel();
}

/// What would change what is being written takes nothing.
void QManAction::followWork()
{
    const bool isAssigning = m_work == Work::Assigning;
    for (QWidget *input :
         std::initializer_list<QWidget *>{ui->cbAction, ui->cbHas, ui->cbGroup, ui->cbShops, ui->leSearch,
                                          ui->sbPriority, ui->pbBarcodes, ui->pbPreview})
        input->setEnabled(!isAssigning);
    ui->pbAssign->setEnabled(m_work == Work::None && assignRefusal().isEmpty());
    ui->pbAssign->setToolTip(ui->pbAssign->isEnabled() ? QString() : assignRefusal());
    ui->pbAssign->setText(ui->cbAction->currentData().toUInt() == noAction ? tr("З&няти акції")
                                                                           : tr("Призна&чити акцію"));
    ui->pbStop->setEnabled(m_work != Work::None);
    ui->pbStop->setText(tr("З&упинити"));
    ui->panel->setVisible(m_work != Work::None);
}
