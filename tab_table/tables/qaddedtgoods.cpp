#include "qaddedtgoods.h"

#include "combos.h"
#include "ean13.h"
#include "goodspricedelegate.h"
#include "goodsrules.h"
#include "goodswriter.h"
#include "money.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "ui_qaddedtgoods.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <utility>

namespace {
const QLatin1String refusedStyle("background-color: #FF3333");

void mark(QLineEdit *field, bool isRefused)
{
    field->setStyleSheet(isRefused ? QString(refusedStyle) : QString());
}

void chooseData(QComboBox *box, uint data)
{
    box->setCurrentIndex(qMax(0, box->findData(data)));
}
} // namespace

QAddEdtGoods::QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QVector<NamedId> &shops,
                           QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), goodsStatements(), id, parent), ui(new Ui::QAddEdtGoods)
{
    Q_UNUSED(tab)
    ui->setupUi(this);
    for (QComboBox *box :
         {ui->cbType, ui->cbGroup, ui->cbTax, ui->cbRules, ui->cbPaymBonus, ui->cbBonusDisk, ui->cbBlock})
        keepNarrow(box);
    buildFields();
    fillLists();
    fillPriceLists(shops);
    connectFields();
    if (!load(inputs()))
        return;
    // What is too long for a register is cut and coloured.
    ui->leShortName->setMaxLength(shortNameLength + 1);
    ui->lwShops->fill(shops, isNew() ? QStringList() : shopsOf(Db(db, receiver), *id));
    if (isNew()) {
        chooseUsual();
        ui->leName->setFocus();
        return;
    }
    ui->lePrice->setFocus();
    ui->lePrice->selectAll();
}

QAddEdtGoods::~QAddEdtGoods() = default;

QVector<RecordInput> QAddEdtGoods::inputs() const
{
    using Form = InputForm;
    return {{ui->leName, Form::Trimmed, "name", ":name"},
            {ui->leShortName, Form::Trimmed, "name_short", ":sname"},
            {ui->lePrice, Form::Money, "price", ":price"},
            {ui->cbType, Form::Entry, "type", ":type", "type_goods.name"},
            {ui->cbGroup, Form::Entry, "group_g", ":group", "group_goods.name"},
            {ui->cbTax, Form::Entry, "tax", ":tax", "tax.name"},
            {ui->cbRules, Form::Entry, "id_rules_goods", ":id_rules_goods", "rules_goods.name"},
            {ui->cbPaymBonus, Form::Entry, "paym_bonus", ":paym_bonus", "ynpaym_bon.name"},
            {ui->cbBonusDisk, Form::Entry, "bonus_disk", ":bonus_disk", "ynbon_disk.name"},
            {ui->cbBlock, Form::Entry, "block", ":block", "ynblock.name"}};
}

void QAddEdtGoods::buildFields()
{
    if (isNew())
        ui->leId->setInputMask(QStringLiteral("000000000000000"));
    else
        ui->leId->setText(id());
    ui->leId->setReadOnly(!isNew());
    makePriceField(ui->lePrice);
    ui->leShtrih->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("^[0-9]{13}$")), ui->leShtrih));
    ui->leShtrih->installEventFilter(this);
    ui->labelRule->hide();
    const int letter = fontMetrics().averageCharWidth();
    ui->leName->setMinimumWidth(letter * 48);
    ui->leShtrih->setMinimumWidth(letter * 20);
}

void QAddEdtGoods::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtGoods::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtGoods::btcancel);
    connect(ui->pbAddShc, &QPushButton::clicked, this, &QAddEdtGoods::addshc);
    connect(ui->pbDelShc, &QPushButton::clicked, this, &QAddEdtGoods::delshc);
    connect(ui->pbAddPrice, &QPushButton::clicked, this, &QAddEdtGoods::addprice);
    connect(ui->pbDelPrice, &QPushButton::clicked, this, &QAddEdtGoods::delprice);
    connect(ui->cbRules, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &QAddEdtGoods::changRules);
    connect(ui->leShtrih, &QLineEdit::textChanged, this, [this] { ChangeShtrih(ui->leShtrih); });
    connect(ui->leShortName, &QLineEdit::textChanged, this, &QAddEdtGoods::ChangeShortName);
    connect(ui->leName, &QLineEdit::editingFinished, this, [this] {
        if (!isReadOnly() && isNew() && ui->leShortName->text().isEmpty())
            ui->leShortName->setText(ui->leName->text().trimmed());
    });
    auto *deleteCode =
        new QShortcut(QKeySequence::Delete, ui->lwShtrih, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteCode, &QShortcut::activated, this, &QAddEdtGoods::delshc);
    auto *deletePrice =
        new QShortcut(QKeySequence::Delete, ui->twPrices, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deletePrice, &QShortcut::activated, this, &QAddEdtGoods::delprice);
}

void QAddEdtGoods::fillLists()
{
    const struct
    {
        QVector<QComboBox *> boxes;
        const char *sql;
    } lists[] = {{{ui->cbGroup}, "SELECT name,id FROM group_goods"},
                 {{ui->cbTax}, "SELECT name,id FROM tax"},
                 {{ui->cbType}, "SELECT name,id FROM type_goods"},
                 {{ui->cbPaymBonus, ui->cbBonusDisk, ui->cbBlock}, "SELECT name,id FROM yesno"},
                 {{ui->cbRules}, "SELECT name,id FROM rules_goods"}};
    for (const auto &list : lists) {
        const auto entries = readEntries(db(), QLatin1String(list.sql));
        for (QComboBox *box : list.boxes)
            showEntries(box, entries.value_or(ListEntries()));
    }
}

void QAddEdtGoods::fillPriceLists(const QVector<NamedId> &shops)
{
    QVector<NamedId> groups;
    const auto entries = readEntries(db(), QStringLiteral("SELECT name,id FROM group_shop"));
    for (const auto &[name, id] : entries.value_or(ListEntries())) {
        groups.append({name, toText(id)});
        if (id.toUInt() == 1)
            m_defaultGroup = name;
    }
    ui->twPrices->setLists(groups, shops);
    if (m_defaultGroup.isEmpty())
        postMessage(db().receiver(), tr("Невідоме значення по замовчуванню для групи магазинів!"));
}

/// What a new item has, as the database itself presets it.
void QAddEdtGoods::chooseUsual()
{
    const struct
    {
        QComboBox *box;
        uint id;
    } usual[] = {{ui->cbType, 1},  {ui->cbGroup, 1},     {ui->cbTax, 1},  {ui->cbPaymBonus, 1},
                 {ui->cbRules, 1}, {ui->cbBonusDisk, 0}, {ui->cbBlock, 0}};
    for (const auto &choice : usual)
        chooseData(choice.box, choice.id);
}

std::optional<RecordFields> QAddEdtGoods::read(const QString &id) const
{
    auto fields = RecordDialog::read(id);
    if (!fields || fields->isEmpty())
        return fields;
    const auto rows = readGoodsRows(db(), id);
    if (!rows)
        return std::nullopt;
    return *fields + *rows;
}

RecordFields QAddEdtGoods::entered() const
{
    return RecordDialog::entered() + priceFields(ui->twPrices->prices()) +
           barcodeFields(ui->lwShtrih->codes());
}

void QAddEdtGoods::showField(const QString &key, const std::optional<RecordField> &value)
{
    if (isBarcodeKey(key) && value)
        ui->lwShtrih->add(value->stored);
    else if (isBarcodeKey(key))
        ui->lwShtrih->removeCode(withoutTable(key));
    else if (!isPriceKey(key))
        RecordDialog::showField(key, value);
    else if (value)
        ui->twPrices->put(value->row.value<GoodsPrice>());
    else
        ui->twPrices->remove(withoutTable(key));
}

bool QAddEdtGoods::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->leShtrih && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        // A scanner ends with Enter, which must not save the item.
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            addshc();
            return true;
        }
    }
    return EditDialog::eventFilter(watched, event);
}

void QAddEdtGoods::addshc()
{
    const QString code = ui->leShtrih->text();
    if (isReadOnly() || code.isEmpty())
        return;
    QString why;
    if (!isTypedBarcode(code))
        why = tr("Новий штрихкод повинен мати 13 цифр.");
    else if (ui->lwShtrih->codes().contains(code))
        why = tr("Такий штрихкод вже є у списку.");
    if (!why.isEmpty()) {
        QQestion::question(this, tr("Попередження."), why, true);
    } else if (isSoundEan(code) ||
               QMessDlg::confirm(this, tr("Увага."),
                                 tr("Контрольна цифра штрихкоду %1 невірна. Додати його?").arg(code),
                                 tr("&Додати"))) {
        ui->lwShtrih->add(code);
        ui->leShtrih->clear();
    }
    ui->leShtrih->setFocus();
    ui->leShtrih->selectAll();
}

void QAddEdtGoods::delshc()
{
    if (!isReadOnly())
        delete ui->lwShtrih->takeItem(ui->lwShtrih->currentRow());
}

void QAddEdtGoods::addprice()
{
    if (isReadOnly())
        return;
    qint64 price = 0;
    if (!priceFromText(ui->lePrice->text(), &price))
        price = 0;
    ui->twPrices->append(price, 0, m_defaultGroup, QString());
    const int row = ui->twPrices->rowCount() - 1;
    ui->twPrices->setFocus();
    ui->twPrices->setCurrentCell(row, GoodsPriceDelegate::Price);
    ui->twPrices->editItem(ui->twPrices->item(row, GoodsPriceDelegate::Price));
}

void QAddEdtGoods::delprice()
{
    if (!isReadOnly())
        ui->twPrices->removeRow(ui->twPrices->currentRow());
}

void QAddEdtGoods::insertprice(int price, int priority, const QString &group, const QString &shop)
{
    ui->twPrices->append(price, priority, group, shop);
}

void QAddEdtGoods::changRules(int index)
{
    const bool isExclusive = isExclusiveRule(ui->cbRules->itemData(index).toUInt());
    ui->labelRule->setText(isExclusive ? tr("Лише один товар групи може мати це правило.") : QString());
    ui->labelRule->setVisible(isExclusive);
}

void QAddEdtGoods::ChangeShtrih(QLineEdit *field)
{
    mark(field, !field->text().isEmpty() && !isTypedBarcode(field->text()));
}

void QAddEdtGoods::ChangeShortName(const QString &text)
{
    const bool isCut = text.size() > shortNameLength;
    if (isCut) {
        const QSignalBlocker hold(ui->leShortName);
        const int cursor = ui->leShortName->cursorPosition();
        ui->leShortName->setText(text.left(shortNameLength));
        ui->leShortName->setCursorPosition(qMin(cursor, shortNameLength));
    }
    mark(ui->leShortName, isCut);
}

/// An item without a short name gets the beginning of its name; one that was stored without stays so.
void QAddEdtGoods::completeShortName()
{
    if (ui->leShortName->text().trimmed().isEmpty() && !hadNo("name_short"))
        ui->leShortName->setText(ui->leName->text().trimmed().left(shortNameLength));
}

/// True for an item that was stored without a value there: it may go without.
bool QAddEdtGoods::hadNo(const char *column) const
{
    for (const RecordField &field : readFields()) {
        if (field.key == QLatin1String(column))
            return field.stored.isEmpty();
    }
    return false;
}

QString QAddEdtGoods::refusal() const
{
    if (ui->leName->text().trimmed().isEmpty())
        return tr("Назва товару не може бути пустою");
    QString why = barcodesRefusal();
    if (why.isEmpty())
        why = priceRefusalHere();
    if (why.isEmpty())
        why = ui->twPrices->refusal();
    if (why.isEmpty())
        why = idRefusal();
    return why.isEmpty() ? ruleRefusal() : why;
}

QString QAddEdtGoods::priceRefusalHere() const
{
    const QString text = ui->lePrice->text();
    if (text.isEmpty() && hadNo("price"))
        return QString();
    const QString why = priceRefusal(text);
    return why.isEmpty() ? why : tr("Ціна ") + why;
}

QString QAddEdtGoods::barcodesRefusal() const
{
    const QStringList codes = ui->lwShtrih->codes();
    // An item that was stored without a barcode may go without one.
    if (codes.isEmpty() && (isNew() || !barcodesOf(readFields()).isEmpty()))
        return tr("Товар повинен мати хоча б один штрихкод!");
    for (const QString &code : codes) {
        if (!isStoredBarcode(code))
            return tr("штрих код повинен місти 8 або 13 цифр");
    }
    if (const QString code = ui->leShtrih->text(); !code.isEmpty())
        return tr("Штрихкод %1 ще не додано до списку: додайте або зітріть його.").arg(code);
    return QString();
}

QString QAddEdtGoods::idRefusal() const
{
    const QString text = ui->leId->text();
    if (!isNew() || text.isEmpty())
        return QString();
    const quint64 id = text.toULongLong();
    if (id == 0 || id > greatestGoodsId)
        return tr("Код товару повинен бути від 1 до %1.").arg(greatestGoodsId);
    const auto other =
        db().firstRow(QStringLiteral("SELECT name FROM goods WHERE id=") + QString::number(id));
    if (!other)
        return tr("Код товару не перевірено: сервер відповів помилкою.");
    return other->isEmpty() ? QString()
                            : tr("Товар №%1 вже є: \"%2\".").arg(QString::number(id), other->first());
}

QString QAddEdtGoods::ruleRefusal() const
{
    const uint rule = ui->cbRules->currentData().toUInt();
    if (!isExclusiveRule(rule))
        return QString();
    const QString group = ui->cbGroup->currentText();
    const auto other = otherWithRule(db(), group, rule, id());
    if (!other)
        return tr("Правило товару не перевірено: сервер відповів помилкою.");
    if (other->isEmpty())
        return QString();
    return tr("В групі") + QStringLiteral(" \"") + group + QStringLiteral("\" ") + tr("з правилом") +
           QStringLiteral(" \"") + ui->cbRules->currentText() + QLatin1Char('"') + tr(" вже є товар №") +
           *other + QStringLiteral(".\n") +
           tr("Згідно даного правила, в одній групі може бути тільки один товар з таким правилом");
}

bool QAddEdtGoods::save()
{
    completeShortName();
    return RecordDialog::save();
}

QStringList QAddEdtGoods::lockStatements(const QString &id) const
{
    return RecordDialog::lockStatements(id) +
           QStringList{QStringLiteral("SELECT id_goods FROM prices WHERE id_goods=%1 FOR UPDATE").arg(id),
                       QStringLiteral("SELECT id_goods FROM dk_shc WHERE id_goods=%1 FOR UPDATE").arg(id)};
}

bool QAddEdtGoods::insertRecord(QString *id)
{
    m_step = Step::Item;
    const quint64 wanted = ui->leId->text().toULongLong();
    if (wanted != 0)
        *id = QString::number(wanted);
    return RecordDialog::insertRecord(id) && writeRows(*id);
}

bool QAddEdtGoods::updateRecord(const QString &id)
{
    m_step = Step::Item;
    return RecordDialog::updateRecord(id) && writeRows(id);
}

bool QAddEdtGoods::writeRows(const QString &id)
{
    const QVector<GoodsPrice> prices = ui->twPrices->prices();
    m_step = Step::Prices;
    if ((isNew() || prices != pricesOf(readFields())) && !replacePrices(db(), prices, id))
        return false;
    m_step = Step::Barcodes;
    if (!replaceBarcodes(db(), ui->lwShtrih->codes(), id))
        return false;
    m_step = Step::Shops;
    if (!offerToShops(db(), ui->lwShops->added(), id))
        return false;
    m_step = Step::All;
    return true;
}

QString QAddEdtGoods::failureWords()
{
    const Step reached = std::exchange(m_step, Step::Item);
    if (reached == Step::Barcodes)
        explainBarcodes(db(), ui->lwShtrih->codes(), id());
    const bool mayBePrices = reached == Step::Prices || reached == Step::All;
    return mayBePrices ? explainPrices(db(), ui->twPrices->prices()) : QString();
}

QStringList QAddEdtGoods::changedTables() const
{
    QStringList changed = {QStringLiteral("goods"), QStringLiteral("dk_shc"), QStringLiteral("prices")};
    if (!ui->lwShops->added().isEmpty())
        changed.append(QStringLiteral("goods_shop"));
    return changed;
}

void QAddEdtGoods::takeOver()
{
    RecordDialog::takeOver();
    ui->twPrices->takeOver();
}
