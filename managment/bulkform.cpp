#include "bulkform.h"
#include "ui_bulkform.h"

#include "barcodedialog.h"
#include "bulkitems.h"
#include "money.h"
#include "numberfield.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "scancatcher.h"

#include <QPointer>
#include <QSignalBlocker>
#include <QSqlDatabase>
#include <algorithm>
#include <utility>

namespace {
/// What the first box offers; the two steps of a price come first.
enum What { PercentStep, AmountStep, FirstOther };
const int basePrice = 0;
const int groupPrices = 1;
const int endings[] = {PriceStep::anyEnding, 0, 50, 90, 99};

ListEntries behind(const QString &first, const QVariant &data, const ListEntries &entries)
{
    return ListEntries{{first, data}} + entries;
}
} // namespace

BulkForm::BulkForm(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::BulkForm>())
{
    ui->setupUi(this);
    m_percent = new NumberField(ui->lePercent, NumberKind::Rate, 0, PriceStep::greatestPercent);
    m_amount = new NumberField(ui->leAmount, NumberKind::Money, 0, greatestBulkPrice);
    fillFixedBoxes();
    showOffered({});
    connectInputs();
}

BulkForm::~BulkForm() = default;

void BulkForm::open(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver)
{
    m_user = user;
    m_boxes = std::make_unique<DbTasks>(db->connectionName(), receiver, nullptr);
    m_scans = new ScanCatcher(parentWidget());
    connect(m_scans, &ScanCatcher::scanned, this, &BulkForm::takeScan);
    connect(user, &QLoadedUser::rightsChanged, this, &BulkForm::readBoxes);
    readBoxes();
}

void BulkForm::fillFixedBoxes()
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

void BulkForm::connectInputs()
{
    connect(ui->cbWhat, qOverload<int>(&QComboBox::currentIndexChanged), this, &BulkForm::followWhat);
    connect(ui->cbPlace, qOverload<int>(&QComboBox::currentIndexChanged), this, &BulkForm::followWhat);
    for (QComboBox *box :
         {ui->cbGroup, ui->cbTax, ui->cbBlocked, ui->cbDirection, ui->cbEnding, ui->cbValue, ui->cbMissing})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &BulkForm::changed);
    connect(ui->cbGroups, &QChekedComboBox::checkedChanged, this, &BulkForm::changed);
    connect(ui->sbPriority, qOverload<int>(&QSpinBox::valueChanged), this, &BulkForm::changed);
    for (QLineEdit *line : {ui->leSearch, ui->lePercent, ui->leAmount}) {
        connect(line, &QLineEdit::textChanged, this, &BulkForm::changed);
        connect(line, &QLineEdit::returnPressed, this, &BulkForm::askForPreview);
    }
    connect(ui->checkChanges, &QCheckBox::toggled, this, &BulkForm::onlyChangesToggled);
    connect(ui->pbReset, &QPushButton::clicked, this, &BulkForm::resetFilter);
    connect(ui->pbBarcodes, &QPushButton::clicked, this, &BulkForm::askForBarcodes);
    connect(ui->pbPreview, &QPushButton::clicked, this, &BulkForm::askForPreview);
    connect(ui->pbStop, &QPushButton::clicked, this, &BulkForm::stopWanted);
}

std::optional<BulkForm::Offered> BulkForm::readOffered(const Db &db, const QString &shopGroupsSql)
{
    const auto read = [&db](const char *table) {
        return readEntries(db,
                           QStringLiteral("SELECT name,id FROM %1 ORDER BY id").arg(QLatin1String(table)));
    };
    const auto groups = read("group_goods");
    const auto taxes = groups ? read("tax") : std::nullopt;
    const auto rules = taxes ? read("rules_goods") : std::nullopt;
    const auto shops = rules ? readEntries(db, shopGroupsSql) : std::nullopt;
    return shops ? std::optional(Offered{*groups, *taxes, *rules, *shops}) : std::nullopt;
}

void BulkForm::readBoxes()
{
    m_boxes->drop();
    const QString shopGroups = permittedGroupsSql(*m_user, true);
    m_boxes->read([shopGroups](const Db &db) { return readOffered(db, shopGroups); },
                  [this](const std::optional<Offered> &offered) {
                      if (offered)
                          showOffered(*offered);
                      if (offered && std::exchange(m_previewsWhenRead, false))
                          emit previewWanted();
                  });
}

bool BulkForm::isReading() const
{
    return m_boxes != nullptr && m_boxes->isWaiting();
}

void BulkForm::askForPreview()
{
    m_previewsWhenRead = isReading();
    if (!m_previewsWhenRead)
        emit previewWanted();
}

void BulkForm::showOffered(const Offered &offered)
{
    m_offered = offered;
    showEntriesAgain(ui->cbGroup, behind(tr("Усі групи товарів"), 0, offered.groups));
    showEntriesAgain(ui->cbTax, behind(tr("Усі податкові групи"), 0, offered.taxes));
    showShopGroups(offered.shopGroups);
    followWhat();
}

/// None is chosen unless somebody does.
void BulkForm::showShopGroups(const ListEntries &groups)
{
    // Half of them would be another choice.
    const QSignalBlocker hold(ui->cbGroups);
    const QVariantList before = ui->cbGroups->listData(Qt::UserRole);
    showEntries(ui->cbGroups, behind(tr("Усі групи магазинів"), 0, groups));
    for (int row = 1; row < ui->cbGroups->count(); ++row) {
        if (before.contains(ui->cbGroups->itemData(row)))
            ui->cbGroups->setChekedItem(row, Qt::Checked);
    }
    ui->cbGroups->updateDisplayText();
}

void BulkForm::showValues()
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
void BulkForm::showInputs()
{
    const bool isOfPrice = isPrice();
    const bool isOfGroups = isOfPrice && ui->cbPlace->currentIndex() == groupPrices;
    for (QWidget *input : std::initializer_list<QWidget *>{ui->cbDirection, ui->labelUnit, ui->label_cbEnding,
                                                           ui->cbEnding, ui->label_cbPlace, ui->cbPlace})
        input->setVisible(isOfPrice);
    for (QWidget *input :
         std::initializer_list<QWidget *>{ui->label_cbGroups, ui->cbGroups, ui->label_sbPriority,
                                          ui->sbPriority, ui->label_cbMissing, ui->cbMissing})
        input->setVisible(isOfGroups);
    ui->lePercent->setVisible(isOfPrice && isPercent());
    ui->leAmount->setVisible(isOfPrice && !isPercent());
    ui->labelUnit->setText(isPercent() ? QStringLiteral("%") : tr("грн"));
    ui->labelRounding->setText(
        isOfPrice
            ? tr("До найближчої такої ціни, посередині — вгору; не нижче %1.").arg(moneyText(leastBulkPrice))
            : tr("Нове значення отримають усі знайдені товари, крім пропущених."));
    ui->label_cbValue->setVisible(!isOfPrice);
    ui->cbValue->setVisible(!isOfPrice);
}

void BulkForm::followWhat()
{
    showInputs();
    showValues();
    emit changed();
}

void BulkForm::resetFilter()
{
    for (QComboBox *box : {ui->cbGroup, ui->cbTax, ui->cbBlocked})
        box->setCurrentIndex(0);
    ui->leSearch->clear();
    takeBarcodes(PastedBarcodes());
    ui->leSearch->setFocus();
}

void BulkForm::askForBarcodes()
{
    const QPointer<BulkForm> open = this;
    const auto text = BarcodeDialog::ask(window(), m_barcodes.text());
    if (!open || !text)
        return;
    PastedBarcodes barcodes;
    barcodes.setText(*text);
    takeBarcodes(barcodes);
}

void BulkForm::takeBarcodes(const PastedBarcodes &barcodes)
{
    m_barcodes = barcodes;
    ui->labelBarcodes->setText(m_barcodes.words());
    emit changed();
}

/// Scanned one after the other, goods come to the list, also from within a number.
void BulkForm::takeScan(const QString &code)
{
    for (NumberField *number : {m_percent, m_amount})
        number->forgetScan();
    if (m_isWriting)
        return;
    PastedBarcodes barcodes = m_barcodes;
    barcodes.add(code);
    takeBarcodes(barcodes);
    if (QApplication::activeModalWidget() == nullptr)
        askForPreview();
}

BulkField BulkForm::field() const
{
    return static_cast<BulkField>(ui->cbWhat->currentData().toInt());
}

bool BulkForm::isPercent() const
{
    return ui->cbWhat->currentIndex() == PercentStep;
}

NumberField *BulkForm::byField() const
{
    return isPercent() ? m_percent : m_amount;
}

GoodsFilter BulkForm::filter() const
{
    GoodsFilter filter;
    filter.group = ui->cbGroup->currentData().toUInt();
    filter.tax = ui->cbTax->currentData().toUInt();
    filter.blocked = static_cast<GoodsFilter::Blocked>(ui->cbBlocked->currentIndex());
    filter.words = ui->leSearch->text();
    filter.barcodes = m_barcodes.codes();
    return filter;
}

QVector<BulkPlace> BulkForm::places() const
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

BulkChoice BulkForm::choice() const
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

QString BulkForm::refusal() const
{
    if (isPrice() && !byField()->refusal().isEmpty())
        return byField()->refusal();
    if (isPrice() && places().isEmpty())
        return ui->cbGroups->count() > 1 ? tr("Виберіть хоча б одну групу магазинів.") : noGroupsHint();
    return m_barcodes.refusal();
}

bool BulkForm::showsOnlyChanges() const
{
    return ui->checkChanges->isChecked();
}

void BulkForm::enterSearch()
{
    ui->leSearch->setFocus();
}

void BulkForm::followWork(bool isWorking, bool isWriting)
{
    m_isWriting = isWriting;
    for (QWidget *input : std::initializer_list<QWidget *>{
             ui->cbGroup, ui->cbTax, ui->cbBlocked, ui->pbReset, ui->leSearch, ui->pbBarcodes, ui->cbWhat,
             ui->cbDirection, ui->lePercent, ui->leAmount, ui->cbEnding, ui->cbValue, ui->cbPlace,
             ui->cbGroups, ui->sbPriority, ui->cbMissing, ui->pbPreview})
        input->setEnabled(!isWriting);
    ui->pbStop->setEnabled(isWorking);
    ui->pbStop->setText(tr("З&упинити"));
}

void BulkForm::tellStopping()
{
    ui->pbStop->setText(tr("Зупиняється…"));
    ui->pbStop->setEnabled(false);
}
