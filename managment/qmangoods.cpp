#include "qmangoods.h"
#include "ui_qmangoods.h"

#include "barcodedialog.h"
#include "listpane.h"
#include "money.h"
#include "numberfield.h"
#include "permissions.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "scancatcher.h"

#include <QSqlDatabase>
#include <algorithm>
#include <utility>

namespace {
/// What the first box offers; the two steps of a price come first.
enum What { PercentStep, AmountStep, FirstOther };
const int basePrice = 0;
const int groupPrices = 1;
const int endings[] = {PriceStep::anyEnding, 0, 50, 90, 99};
const DbId firstServiceGroup = 2;
const DbId lastServiceGroup = 5;

ListEntries behind(const QString &first, const QVariant &data, const ListEntries &entries)
{
    return ListEntries{{first, data}} + entries;
}
} // namespace

QManGoods::QManGoods(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QManGoods>())
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
    , m_boxes(db->connectionName(), mainWindow, nullptr)
{
    Q_UNUSED(set)
    ui->setupUi(this);
    m_percent = new NumberField(ui->lePercent, NumberKind::Rate, 0, PriceStep::greatestPercent);
    m_amount = new NumberField(ui->leAmount, NumberKind::Money, 0, greatestBulkPrice);
    m_scans = new ScanCatcher(this);
    buildLists();
    fillFixedBoxes();
    showOffered({});
    connectInputs();
    fillBoxes();
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
                            {tr("Назва товару"), 20},
                            {tr("Група"), 9},
                            {tr("Базова ціна"), 8, &asMoney},
                            {tr("Яка ціна"), 9},
                            {tr("Ціна зараз"), 8, &asMoney},
                            {tr("Нова ціна"), 8, &asMoney},
                            {tr("Різниця"), 7, &asSum},
                            {tr("Інших цін"), 5, &asNumber},
                            {tr("Що буде"), 21}},
                           name);
    ui->fields->setColumns({{tr("Код"), 6, &asNumber},
                            {tr("Назва товару"), 26},
                            {tr("Група"), 12},
                            {tr("Базова ціна"), 9, &asMoney},
                            {tr("Зараз"), 16},
                            {tr("Буде"), 16},
                            {tr("Що буде"), 28}},
                           name + QStringLiteral("/fields"));
    for (ListPane *list : {ui->prices, ui->fields}) {
        list->setTotals([this] { return QStringList(ui->labelCounts->text()); });
        list->clear();
    }
}

void QManGoods::fillFixedBoxes()
{
    for (const QString &text : {tr("Ціна на відсоток"), tr("Ціна на суму")})
        ui->cbWhat->addItem(text, static_cast<int>(BulkField::Price));
    for (const BulkField each : {BulkField::Group, BulkField::Tax, BulkField::Block, BulkField::Rule})
        ui->cbWhat->addItem(bulkFieldWords(each), static_cast<int>(each));
    ui->cbDirection->addItems({tr("підняти на"), tr("знизити на")});
    for (const int ending : endings)
        ui->cbEnding->addItem(endingWords(ending), ending);
    ui->cbPlace->addItems({tr("Базова ціна товару"), tr("Ціни груп магазинів")});
    ui->cbMissing->addItems({tr("пропустити"), tr("створити з чинної")});
    ui->cbBlocked->addItems({tr("Усі"), tr("Ні"), tr("Так")});
    for (QLineEdit *number : {ui->lePercent, ui->leAmount}) {
        number->setText(QStringLiteral("0.00"));
        number->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    }
    for (QComboBox *box : {ui->cbGroup, ui->cbTax})
        keepNarrow(box, 9);
    keepNarrow(ui->cbValue, 16);
    keepNarrow(ui->cbGroups, 10);
    ui->cbMissing->setToolTip(tr("У групи магазинів може не бути своєї ціни з цим пріоритетом. Її можна "
                                 "створити: від ціни, за якою магазини групи продають зараз."));
}

void QManGoods::connectInputs()
{
    connect(m_user, &QLoadedUser::rightsChanged, this, &QManGoods::fillBoxes);
    connect(m_user, &QLoadedUser::rightsChanged, this, &QManGoods::followWork);
    connect(ui->cbWhat, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManGoods::followWhat);
    connect(ui->cbPlace, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManGoods::followWhat);
    for (QComboBox *box :
         {ui->cbGroup, ui->cbTax, ui->cbBlocked, ui->cbDirection, ui->cbEnding, ui->cbValue, ui->cbMissing})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManGoods::followChoice);
    connect(ui->cbGroups, &QChekedComboBox::checkedChanged, this, &QManGoods::followChoice);
    connect(ui->sbPriority, qOverload<int>(&QSpinBox::valueChanged), this, &QManGoods::followChoice);
    for (QLineEdit *line : {ui->leSearch, ui->lePercent, ui->leAmount}) {
        connect(line, &QLineEdit::textChanged, this, &QManGoods::followChoice);
        connect(line, &QLineEdit::returnPressed, this, &QManGoods::preview);
    }
    connect(ui->checkChanges, &QCheckBox::toggled, this, &QManGoods::showRows);
    connect(m_scans, &ScanCatcher::scanned, this, &QManGoods::takeScan);
    connect(ui->pbReset, &QPushButton::clicked, this, &QManGoods::resetFilter);
    connect(ui->pbBarcodes, &QPushButton::clicked, this, &QManGoods::askForBarcodes);
    connect(ui->pbPreview, &QPushButton::clicked, this, &QManGoods::preview);
    connect(ui->pbStop, &QPushButton::clicked, this, &QManGoods::stop);
    connect(ui->pbUndo, &QPushButton::clicked, this, &QManGoods::undo);
    connect(ui->pbWrite, &QPushButton::clicked, this, &QManGoods::write);
}

/// What others have added is offered from then on.
void QManGoods::openedByMenu()
{
    fillBoxes();
}

void QManGoods::fillBoxes()
{
    m_boxes.drop();
    const QString shopGroups = permittedGroupsSql(*m_user, true);
    m_boxes.read(
        [shopGroups](const Db &db) -> std::optional<Offered> {
            const auto read = [&db](const char *table) {
                return readEntries(
                    db, QStringLiteral("SELECT name,id FROM %1 ORDER BY id").arg(QLatin1String(table)));
            };
            const auto groups = read("group_goods");
            const auto taxes = groups ? read("tax") : std::nullopt;
            const auto rules = taxes ? read("rules_goods") : std::nullopt;
            const auto shops = rules ? readEntries(db, shopGroups) : std::nullopt;
            return shops ? std::optional(Offered{*groups, *taxes, *rules, *shops}) : std::nullopt;
        },
        [this](const std::optional<Offered> &offered) {
            if (offered)
                showOffered(*offered);
            if (offered && std::exchange(m_previewsWhenFilled, false))
                preview();
        });
}

void QManGoods::showOffered(const Offered &offered)
{
    m_offered = offered;
    showEntriesAgain(ui->cbGroup, behind(tr("Усі групи товарів"), 0, offered.groups));
    showEntriesAgain(ui->cbTax, behind(tr("Усі податкові групи"), 0, offered.taxes));
    showShopGroups(offered.shopGroups);
    followWhat();
}

/// None is chosen unless somebody does.
void QManGoods::showShopGroups(const ListEntries &groups)
{
    const QVariantList before = ui->cbGroups->listData(Qt::UserRole);
    showEntries(ui->cbGroups, behind(tr("Усі групи магазинів"), 0, groups));
    for (int row = 1; row < ui->cbGroups->count(); ++row) {
        if (before.contains(ui->cbGroups->itemData(row)))
            ui->cbGroups->setChekedItem(row, Qt::Checked);
    }
    ui->cbGroups->updateDisplayText();
}

void QManGoods::showValues()
{
    const ListEntries blocks = {{tr("заблокувати"), 1}, {tr("дозволити продаж"), 0}};
    const ListEntries none;
    const BulkField what = field();
    const ListEntries &values = what == BulkField::Group   ? m_offered.groups
                                : what == BulkField::Tax   ? m_offered.taxes
                                : what == BulkField::Rule  ? m_offered.rules
                                : what == BulkField::Block ? blocks
                                                           : none;
    showEntriesAgain(ui->cbValue, behind(tr("Виберіть значення"), -1, values));
}

/// Only what belongs to the chosen change is seen.
void QManGoods::followWhat()
{
    const bool isPrice = field() == BulkField::Price;
    const bool isOfGroups = isPrice && ui->cbPlace->currentIndex() == groupPrices;
    for (QWidget *input :
         std::initializer_list<QWidget *>{ui->cbDirection, ui->labelUnit, ui->label_cbEnding, ui->cbEnding,
                                          ui->labelRounding, ui->label_cbPlace, ui->cbPlace})
        input->setVisible(isPrice);
    for (QWidget *input :
         std::initializer_list<QWidget *>{ui->label_cbGroups, ui->cbGroups, ui->label_sbPriority,
                                          ui->sbPriority, ui->label_cbMissing, ui->cbMissing})
        input->setVisible(isOfGroups);
    ui->lePercent->setVisible(isPrice && isPercent());
    ui->leAmount->setVisible(isPrice && !isPercent());
    ui->labelUnit->setText(isPercent() ? QStringLiteral("%") : tr("грн"));
    ui->labelRounding->setText(
        isPrice
            ? tr("Заокруглюється до найближчої такої ціни, а посередині — вгору; нижчою за %1 ціна не стане.")
                  .arg(moneyText(leastBulkPrice))
            : QString());
    ui->label_cbValue->setVisible(!isPrice);
    ui->cbValue->setVisible(!isPrice);
    ui->lists->setCurrentWidget(isPrice ? ui->prices : ui->fields);
    showValues();
    followChoice();
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
        preview();
}

bool QManGoods::isLoading() const
{
    return m_job != nullptr || m_boxes.isWaiting();
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

void QManGoods::resetFilter()
{
    for (QComboBox *box : {ui->cbGroup, ui->cbTax, ui->cbBlocked})
        box->setCurrentIndex(0);
    ui->leSearch->clear();
    takeBarcodes(PastedBarcodes());
    ui->leSearch->setFocus();
}

void QManGoods::askForBarcodes()
{
    const QPointer<QManGoods> open = this;
    const auto text = BarcodeDialog::ask(window(), m_barcodes.text());
    if (!open || !text)
        return;
    PastedBarcodes barcodes;
    barcodes.setText(*text);
    takeBarcodes(barcodes);
}

void QManGoods::takeBarcodes(const PastedBarcodes &barcodes)
{
    m_barcodes = barcodes;
    ui->labelBarcodes->setText(m_barcodes.words());
    followChoice();
}

/// Scanned one after the other, goods come to the list, also from within a number.
void QManGoods::takeScan(const QString &code)
{
    for (NumberField *number : {m_percent, m_amount})
        number->forgetScan();
    if (m_work == Work::Writing)
        return;
    PastedBarcodes barcodes = m_barcodes;
    barcodes.add(code);
    takeBarcodes(barcodes);
    if (QApplication::activeModalWidget() == nullptr)
        preview();
}

BulkField QManGoods::field() const
{
    return static_cast<BulkField>(ui->cbWhat->currentData().toInt());
}

bool QManGoods::isPercent() const
{
    return ui->cbWhat->currentIndex() == PercentStep;
}

NumberField *QManGoods::byField() const
{
    return isPercent() ? m_percent : m_amount;
}

GoodsFilter QManGoods::filter() const
{
    GoodsFilter filter;
    filter.group = ui->cbGroup->currentData().toUInt();
    filter.tax = ui->cbTax->currentData().toUInt();
    filter.blocked = static_cast<GoodsFilter::Blocked>(ui->cbBlocked->currentIndex());
    filter.words = ui->leSearch->text();
    filter.barcodes = m_barcodes.codes();
    return filter;
}

QVector<BulkPlace> QManGoods::places() const
{
    if (ui->cbPlace->currentIndex() == basePrice)
        return {{0, tr("базова")}};
    QVector<BulkPlace> places;
    for (int row = 1; row < ui->cbGroups->count(); ++row) {
        if (ui->cbGroups->itemData(row, Qt::CheckStateRole).toInt() == Qt::Checked)
            places.append({ui->cbGroups->itemData(row).toUInt(), ui->cbGroups->itemText(row)});
    }
    std::sort(places.begin(), places.end());
    return places;
}

BulkChoice QManGoods::choice() const
{
    BulkChoice choice;
    choice.goods = filter();
    choice.field = field();
    if (!choice.isPrice()) {
        choice.value = ui->cbValue->currentData().toLongLong();
        choice.valueName = ui->cbValue->currentText();
        return choice;
    }
    choice.step.kind = isPercent() ? PriceStep::Percent : PriceStep::Amount;
    choice.step.isDown = ui->cbDirection->currentIndex() == 1;
    choice.step.value = byField()->units();
    choice.step.ending = ui->cbEnding->currentData().toInt();
    choice.places = places();
    if (ui->cbPlace->currentIndex() == groupPrices) {
        choice.priority = ui->sbPriority->value();
        choice.createsMissing = ui->cbMissing->currentIndex() == 1;
    }
    return choice;
}

/// What is shown may not be what is chosen any more.
void QManGoods::followChoice()
{
    if (m_plan != nullptr && choiceRefusal().isEmpty() && choice() == m_plan->choice)
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
    if (field() == BulkField::Price) {
        if (QString why = byField()->refusal(); !why.isEmpty())
            return why;
        if (places().isEmpty())
            return ui->cbGroups->count() > 1 ? tr("Виберіть хоча б одну групу магазинів.") : noGroupsHint();
    }
    return m_barcodes.refusal();
}

void QManGoods::preview()
{
    if (m_boxes.isWaiting()) {
        m_previewsWhenFilled = true;
        return;
    }
    if (refuse(choiceRefusal()))
        return;
    leavePlanning();
    m_plan = nullptr;
    const auto plan = std::make_shared<BulkPlan>();
    begin(
        Work::Planning, tr("Перегляд змін товарів"),
        [plan, chosen = choice()](JobContext &context) { return planBulk(context, chosen, plan.get()); },
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
    ListPane *shown = m_shownPlan->choice.isPrice() ? ui->prices : ui->fields;
    if (!ui->checkChanges->isChecked())
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

QString QManGoods::writeRefusal() const
{
    if (!m_user->mayEdit(Permission::GoodsManagement))
        return tr("У вас є право лише переглядати: змінювати товари ви не можете.");
    if (m_plan == nullptr)
        return tr("Спершу натисніть «Переглянути».");
    if (field() != BulkField::Price && m_plan->choice.value < 0)
        return tr("Виберіть нове значення.");
    return m_plan->isEmpty() ? tr("За цими умовами нічого не зміниться.") : QString();
}

QString QManGoods::undoRefusal() const
{
    if (!m_user->mayEdit(Permission::GoodsManagement))
        return tr("У вас є право лише переглядати: змінювати товари ви не можете.");
    return m_done == nullptr ? tr("Скасувати нічого: тут ще нічого не записано.") : QString();
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
    if (outcome->isWritten) {
        // What is shown is that of the change.
        ui->lists->setCurrentWidget(m_done->plan->choice.isPrice() ? ui->prices : ui->fields);
        m_done = nullptr;
    }
    showOutcome(outcome, result);
}

/// What has become of it is not what the next press would write.
void QManGoods::showOutcome(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result)
{
    if (outcome->isWritten || result.outcome == JobResult::Failed)
        m_plan = nullptr;
    ui->labelCounts->setText(result.words);
    if (outcome->isWritten) {
        m_shown = outcome->done.rows;
        m_shownPlan = outcome->done.plan;
        showRows();
        postMessage(m_mainWindow, result.words, QMessEvent::Information);
    }
    followWork();
    ui->leSearch->setFocus();
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
    ui->pbStop->setText(tr("Зупиняється…"));
    ui->pbStop->setEnabled(false);
    m_job->cancel();
}

/// What would change what is being written takes nothing.
void QManGoods::followWork()
{
    const bool isWriting = m_work == Work::Writing;
    for (QWidget *input : std::initializer_list<QWidget *>{
             ui->cbGroup, ui->cbTax, ui->cbBlocked, ui->pbReset, ui->leSearch, ui->pbBarcodes, ui->cbWhat,
             ui->cbDirection, ui->lePercent, ui->leAmount, ui->cbEnding, ui->cbValue, ui->cbPlace,
             ui->cbGroups, ui->sbPriority, ui->cbMissing, ui->pbPreview})
        input->setEnabled(!isWriting);
    ui->pbWrite->setEnabled(m_work == Work::None && writeRefusal().isEmpty());
    ui->pbWrite->setToolTip(ui->pbWrite->isEnabled() ? QString() : writeRefusal());
    ui->pbUndo->setEnabled(m_work == Work::None && undoRefusal().isEmpty());
    ui->pbUndo->setToolTip(ui->pbUndo->isEnabled() ? bulkWords(m_done->plan->choice) : undoRefusal());
    ui->pbStop->setEnabled(m_work != Work::None);
    ui->pbStop->setText(tr("З&упинити"));
    ui->panel->setVisible(m_work != Work::None);
}
