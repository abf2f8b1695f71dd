#include "qmangoods.h"
#include "ui_qmangoods.h"

#include "listpane.h"
#include "money.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qwhyprice.h"
#include "whypriceoffer.h"

#include <QSet>
#include <QSqlDatabase>
#include <algorithm>

namespace {
const DbId firstServiceGroup = 2;
const DbId lastServiceGroup = 5;
} // namespace

QManGoods::QManGoods(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::QManGoods>()), m_db(db), m_user(user), m_mainWindow(mainWindow)
{
    Q_UNUSED(set)
    ui->setupUi(this);
    buildLists();
    connect(ui->form, &BulkForm::changed, this, &QManGoods::followChoice);
    connect(ui->form, &BulkForm::previewWanted, this, &QManGoods::preview);
    connect(ui->form, &BulkForm::stopWanted, this, &QManGoods::stop);
    connect(ui->form, &BulkForm::onlyChangesToggled, this, &QManGoods::showRows);
    connect(ui->pbUndo, &QPushButton::clicked, this, &QManGoods::undo);
    connect(ui->pbWrite, &QPushButton::clicked, this, &QManGoods::write);
    connect(m_user, &QLoadedUser::rightsChanged, this, &QManGoods::followWork);
    offerWhyPrice(this, ui->prices->view(), ui->pbWhyPrice, [this](int row) { whyPrice(row); });
    ui->form->open(m_db, m_user, m_mainWindow);
    followChoice();
}

QManGoods::~QManGoods()
{
    leavePlanning();
    delete m_job;
}

void QManGoods::buildLists()
{
    const QString name = QLatin1String(staticMetaObject.className());
    for (ListPane *list : {ui->prices, ui->fields}) {
        list->open(m_db, m_user, m_mainWindow);
        list->breakCaptions();
        list->setEmptyText(tr("Виберіть товари й те, що змінити, та натисніть «Переглянути»."));
    }
    ui->prices->setColumns({{tr("Код"), 5, &asNumber},
                            {tr("Назва товару"), 19},
                            {tr("Група"), 8},
                            {tr("Базова ціна"), 8, &asMoney},
                            {tr("Яка ціна"), 8},
                            {tr("Ціна зараз"), 8, &asMoney},
                            {tr("Нова ціна"), 8, &asMoney},
                            {tr("Різниця"), 7, &asSum},
                            {tr("Інших цін"), 5, &asNumber},
                            {tr("Що буде"), 20}},
                           name);
    ui->fields->setColumns({{tr("Код"), 6, &asNumber},
                            {tr("Назва товару"), 26},
                            {tr("Група"), 12},
                            {tr("Базова ціна"), 9, &asMoney},
                            {tr("Зараз"), 13},
                            {tr("Буде"), 13},
                            {tr("Що буде"), 28}},
                           name + QStringLiteral("/fields"));
    for (ListPane *list : {ui->prices, ui->fields}) {
        list->setTotals([this] { return QStringList(ui->labelCounts->text()); });
        list->clear();
    }
}

/// What others have added is offered from then on.
void QManGoods::openedByMenu()
{
    ui->form->readBoxes();
}

ListPane *QManGoods::list() const
{
    return ui->lists->currentWidget() == ui->prices ? ui->prices : ui->fields;
}

Commands QManGoods::commands() const
{
    return {{Command::Export, QString()}, {Command::Reload, QString()}};
}

void QManGoods::run(Command command)
{
    if (command == Command::Reload)
        ui->form->askForPreview();
}

bool QManGoods::isLoading() const
{
    return m_job != nullptr || ui->form->isReading();
}

bool QManGoods::mayClose()
{
    if (m_work == Work::Writing)
        return !refuse(tr("Зміни ще записуються. Дочекайтесь кінця або натисніть «Зупинити»."));
    return m_done == nullptr ||
           QMessDlg::confirm(
               window(), tr("Управління товарами"),
               tr("Останню зміну (%1; записано: %2) можна скасувати лише тут і доки відкрита ця "
                  "вкладка.\nЗакрити її?")
                   .arg(bulkWords(m_done->plan->choice), wholeShown(m_done->changes.size())),
               tr("Закрити"));
}

bool QManGoods::refuse(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(window(), tr("Попередження."), why, true);
    return !why.isEmpty();
}

/// What is shown may not be what is chosen any more.
void QManGoods::followChoice()
{
    ui->lists->setCurrentWidget(ui->form->isPrice() ? ui->prices : ui->fields);
    ui->pbWhyPrice->setVisible(ui->form->isPrice());
    if (m_plan != nullptr && choiceRefusal().isEmpty() && ui->form->choice() == m_plan->choice)
        return followWork();
    if (m_plan != nullptr)
        ui->labelCounts->setText(tr("Умови змінено: натисніть «Переглянути» ще раз."));
    m_plan = nullptr;
    if (m_work == Work::Planning)
        leavePlanning();
    followWork();
}

QString QManGoods::choiceRefusal() const
{
    if (m_work == Work::Writing)
        return tr("Зміни ще записуються. Дочекайтесь кінця або натисніть «Зупинити».");
    return ui->form->refusal();
}

void QManGoods::preview()
{
    if (refuse(choiceRefusal()))
        return;
    leavePlanning();
    m_plan = nullptr;
    const auto plan = std::make_shared<BulkPlan>();
    begin(
        Work::Planning, tr("Перегляд змін товарів"),
        [plan, chosen = ui->form->choice()](JobContext &context) {
            return planBulk(context, chosen, plan.get());
        },
        [this, plan](const JobResult &result) { showPlan(plan, result); });
    ui->labelCounts->setText(tr("Читається…"));
}

void QManGoods::showPlan(const std::shared_ptr<BulkPlan> &plan, const JobResult &result)
{
    if (result.outcome != JobResult::Done) {
        m_shown = nullptr;
        list()->clear();
        ui->labelCounts->setText(result.words);
        return;
    }
    m_plan = plan;
    list()->setHeading({list()->heading().value(0), bulkWords(plan->choice)});
    list()->setEmptyText(tr("За цими умовами нічого не знайдено."));
    m_shown = std::shared_ptr<const RowStore>(plan, &plan->rows);
    m_shownPlan = plan;
    showRows();
    ui->labelCounts->setText(bulkSummary(*plan).join(QLatin1Char(' ')));
    followWork();
}

/// All of them, or those that are, or were, to be changed.
void QManGoods::showRows()
{
    if (m_shown == nullptr)
        return;
    const bool isPrice = m_shownPlan->choice.isPrice();
    ListPane *shown = isPrice ? ui->prices : ui->fields;
    // What it showed is of another time.
    (isPrice ? ui->fields : ui->prices)->clear();
    if (!ui->form->showsOnlyChanges())
        return shown->showRows(RowStore(*m_shown));
    RowStore changes;
    for (const BulkChange &change : m_shownPlan->changes) {
        std::vector<std::string_view> cells;
        for (int column = 0; column <= m_shownPlan->verdictColumn(); ++column)
            cells.push_back(m_shown->cell(change.row, column));
        changes.append(cells);
    }
    shown->showRows(std::move(changes));
}

void QManGoods::whyPrice(int row)
{
    PriceQuestion question;
    const int code = static_cast<int>(BulkPriceColumn::Code);
    question.idGoods = ui->prices->model()->stored(row, code).toUInt();
    question.time = QDateTime::currentDateTime();
    QWhyPrice::show(m_db, m_user, m_mainWindow, question, this);
}

QString QManGoods::writeRefusal() const
{
    if (!m_user->mayEdit(Permission::GoodsManagement))
        return tr("У вас є право лише переглядати: змінювати товари ви не можете.");
    if (m_plan == nullptr)
        return tr("Спершу натисніть «Переглянути».");
    if (!m_plan->choice.isPrice() && m_plan->choice.value < 0)
        return tr("Виберіть нове значення.");
    return m_plan->isEmpty() ? tr("За цими умовами нічого не зміниться.") : QString();
}

QString QManGoods::undoRefusal() const
{
    if (!m_user->mayEdit(Permission::GoodsManagement))
        return tr("У вас є право лише переглядати: змінювати товари ви не можете.");
    return m_done == nullptr ? tr("Скасувати нічого: тут ще нічого не записано.") : QString();
}

/// How many of the prices the last change has changed already: pressed twice, a step is taken twice.
int QManGoods::changedAlready() const
{
    if (m_done == nullptr || !m_plan->choice.isPrice() || !m_done->plan->choice.isPrice())
        return 0;
    QSet<QPair<DbId, DbId>> before;
    for (const BulkChange &change : m_done->changes)
        before.insert({change.place, change.goods});
    const auto isAgain = [&before](const BulkChange &change) {
        return before.contains({change.place, change.goods});
    };
    return static_cast<int>(std::count_if(m_plan->changes.begin(), m_plan->changes.end(), isAgain));
}

QString QManGoods::question() const
{
    QStringList lines = {tr("Записати зміни?"), bulkWords(m_plan->choice)};
    lines += bulkSummary(*m_plan);
    if (m_plan->inStock > 0)
        lines.append(tr("З них є в залишках магазинів: %1. Продати їх буде не можна.")
                         .arg(wholeShown(m_plan->inStock)));
    if (m_plan->onTheWay > 0)
        lines.append(tr("З них у дорозі між магазинами: %1. Прийняти їх можна буде.")
                         .arg(wholeShown(m_plan->onTheWay)));
    if (const int again = changedAlready(); again > 0)
        lines.append(tr("Увага: %1 з них уже змінено останньою зміною, вони зміняться ще раз.")
                         .arg(wholeShown(again)));
    const qint64 value = m_plan->choice.value;
    if (m_plan->choice.field == BulkField::Group && value >= firstServiceGroup && value <= lastServiceGroup)
        lines.append(tr("Це службова група: її товари не продаються."));
    return lines.join(QLatin1Char('\n'));
}

void QManGoods::write()
{
    if (m_work != Work::None || refuse(writeRefusal()))
        return;
    const QPointer<QManGoods> open = this;
    const auto plan = m_plan;
    m_user->beginAct();
    if (!QMessDlg::confirm(window(), tr("Управління товарами"), question(), tr("Записати")) || !open)
        return;
    // The right may go while the question is open, and another choice may come.
    if (m_plan != plan)
        return void(
            refuse(tr("Умови змінилися, поки ви відповідали: нічого не записано. Перегляньте ще раз.")));
    if (refuse(writeRefusal()))
        return;
    const auto outcome = std::make_shared<BulkOutcome>();
    begin(
        Work::Writing, tr("Зміна товарів: %1").arg(bulkWords(plan->choice)),
        [plan, outcome, user = m_user->idUser()](JobContext &context) {
            return writeBulk(context, plan, user, outcome.get());
        },
        [this, outcome](const JobResult &result) { showWritten(outcome, result); });
}

void QManGoods::showWritten(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result)
{
    if (outcome->isWritten && !outcome->done.changes.isEmpty())
        m_done = std::make_shared<const BulkDone>(outcome->done);
    showOutcome(outcome, result);
}

void QManGoods::undo()
{
    if (m_work != Work::None || refuse(undoRefusal()))
        return;
    const QPointer<QManGoods> open = this;
    const auto done = m_done;
    m_user->beginAct();
    if (!QMessDlg::confirm(window(), tr("Управління товарами"),
                           tr("Повернути те, що було до останньої зміни?\n%1\nЗмінено було: %2.")
                               .arg(bulkWords(done->plan->choice), wholeShown(done->changes.size())),
                           tr("Повернути")) ||
        !open || m_done != done || refuse(undoRefusal()))
        return;
    const auto outcome = std::make_shared<BulkOutcome>();
    begin(
        Work::Writing, tr("Скасування зміни товарів"),
        [done, outcome, user = m_user->idUser()](JobContext &context) {
            return undoBulk(context, *done, user, outcome.get());
        },
        [this, outcome](const JobResult &result) { showUndone(outcome, result); });
}

void QManGoods::showUndone(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result)
{
    // What is shown is that of the change.
    if (outcome->done.rows != nullptr)
        ui->lists->setCurrentWidget(m_done->plan->choice.isPrice() ? ui->prices : ui->fields);
    if (outcome->isWritten)
        m_done = nullptr;
    showOutcome(outcome, result);
}

/// What has become of it is not what the next press would write.
void QManGoods::showOutcome(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result)
{
    if (outcome->isWritten || result.outcome == JobResult::Failed)
        m_plan = nullptr;
    ui->labelCounts->setText(result.words);
    if (outcome->done.rows != nullptr) {
        m_shown = outcome->done.rows;
        m_shownPlan = outcome->done.plan;
        showRows();
    }
    if (outcome->isWritten)
        postMessage(m_mainWindow, result.words, QMessEvent::Information);
    followWork();
    ui->form->enterSearch();
}

void QManGoods::begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
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
void QManGoods::leavePlanning()
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

void QManGoods::stop()
{
    if (m_work == Work::Planning)
        return leavePlanning();
    if (m_job == nullptr)
        return;
    ui->form->tellStopping();
    m_job->cancel();
}

void QManGoods::followWork()
{
    ui->form->followWork(m_work != Work::None, m_work == Work::Writing);
    ui->pbWrite->setEnabled(m_work == Work::None && writeRefusal().isEmpty());
    ui->pbWrite->setToolTip(ui->pbWrite->isEnabled() ? QString() : writeRefusal());
    ui->pbUndo->setEnabled(m_work == Work::None && undoRefusal().isEmpty());
    ui->pbUndo->setToolTip(ui->pbUndo->isEnabled() ? bulkWords(m_done->plan->choice) : undoRefusal());
    ui->panel->setVisible(m_work != Work::None);
}
