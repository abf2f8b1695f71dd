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

RecordStatements statements()
{
    // The NULL stamps the row with the time of the change.
    return {
        QStringLiteral("goods"),
        QStringLiteral(
            "SELECT goods.id, NULL, goods.name,goods.name_short,goods.price, type_goods.name, group_goods.name, "
            "tax.name,rules_goods.name,ynpaym_bon.name, ynbon_disk.name, ynblock.name,goods.type,goods.group_g,"
            "goods.tax,goods.id_rules_goods,goods.paym_bonus,goods.bonus_disk,goods.block FROM goods LEFT JOIN "
            "type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON goods.group_g=group_goods.id LEFT "
            "JOIN tax ON goods.tax=tax.id LEFT JOIN rules_goods ON goods.id_rules_goods=rules_goods.id LEFT JOIN "
            "yesno AS ynpaym_bon ON goods.paym_bonus=ynpaym_bon.id LEFT JOIN yesno AS ynbon_disk ON "
            "goods.bonus_disk=ynbon_disk.id LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id WHERE "
            "goods.id="),
        QStringLiteral(
            "INSERT INTO goods(id,name,name_short,price,type,group_g,tax,paym_bonus,bonus_disk,"
            "id_rules_goods,block) VALUES(:id,:name,:sname,:price,(SELECT id FROM type_goods WHERE "
            "name=:type),(SELECT id FROM group_goods WHERE name=:group),(SELECT id FROM tax WHERE "
            "name=:tax),(SELECT id FROM yesno WHERE name=:paym_bonus),(SELECT id FROM yesno WHERE "
            "name=:bonus_disk),(SELECT id FROM rules_goods WHERE name=:id_rules_goods),(SELECT id "
            "FROM yesno WHERE name=:block))"),
        QStringLiteral(
            "UPDATE goods SET name=:name,name_short=:sname,price=:price,type=(SELECT id FROM "
            "type_goods WHERE name=:type),group_g=(SELECT id FROM group_goods WHERE name=:group),"
            "tax=(SELECT id FROM tax WHERE name=:tax),paym_bonus=(SELECT id FROM yesno WHERE "
            "name=:paym_bonus),bonus_disk=(SELECT id FROM yesno WHERE name=:bonus_disk),"
            "id_rules_goods=(SELECT id FROM rules_goods WHERE name=:id_rules_goods),block=(SELECT id "
            "FROM yesno WHERE name=:block),data_update=NULL WHERE goods.id="),
        QStringLiteral("SELECT name FROM goods WHERE id=")};
}

void chooseData(QComboBox *box, uint data)
{
    box->setCurrentIndex(qMax(0, box->findData(data)));
}
} // namespace

QAddEdtGoods::QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QVector<NamedId> &shops,
                           QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), statements(), id, parent), ui(new Ui::QAddEdtGoods)
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
    fillShops(shops);
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
    return RecordDialog::entered() + priceFields(ui->twPrices->prices()) + barcodeFields(barcodes());
}

void QAddEdtGoods::showField(const QString &key, const std::optional<RecordField> &value)
{
    if (isBarcodeKey(key))
        showBarcode(withoutTable(key), value.has_value());
    else if (!isPriceKey(key))
        RecordDialog::showField(key, value);
    else if (value)
        ui->twPrices->put(value->row.value<GoodsPrice>());
    else
        ui->twPrices->remove(withoutTable(key));
}

void QAddEdtGoods::showBarcode(const QString &code, bool isThere)
{
    const auto shown = ui->lwShtrih->findItems(code, Qt::MatchExactly);
    if (isThere && shown.isEmpty())
        ui->lwShtrih->addItem(code);
    else if (!isThere)
        qDeleteAll(shown);
}

/// Where the item is sold already it stays: its stock lies there.
void QAddEdtGoods::fillShops(const QVector<NamedId> &shops)
{
    const QStringList sold = isNew() ? QStringList() : shopsOf(db(), id());
    // First those that can be chosen.
    for (const bool isOffered : {false, true}) {
        for (const NamedId &shop : shops) {
            if (isOffered != sold.contains(shop.id))
                continue;
            auto *item = new QListWidgetItem(shop.name, ui->lwShops);
            item->setData(Qt::UserRole, shop.id);
            item->setCheckState(isOffered ? Qt::Checked : Qt::Unchecked);
            item->setFlags(isOffered ? Qt::ItemIsSelectable
                                     : Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
            item->setToolTip(isOffered ? tr("%1: товар уже продається тут.").arg(shop.name) : shop.name);
        }
    }
}

QStringList QAddEdtGoods::newShops() const
{
    QStringList ids;
    for (int i = 0; i < ui->lwShops->count(); ++i) {
        const QListWidgetItem *item = ui->lwShops->item(i);
        if (item->checkState() == Qt::Checked && (item->flags() & Qt::ItemIsEnabled) != 0)
            ids.append(item->data(Qt::UserRole).toString());
    }
    return ids;
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
    else if (barcodes().contains(code))
        why = tr("Такий штрихкод вже є у списку.");
    if (!why.isEmpty()) {
        QQestion::question(this, tr("Попередження."), why, true);
    } else if (isSoundEan(code) ||
               QMessDlg::confirm(this, tr("Увага."),
                                 tr("Контрольна цифра штрихкоду %1 невірна. Додати його?").arg(code),
                                 tr("&Додати"))) {
        ui->lwShtrih->addItem(code);
        ui->lwShtrih->setCurrentRow(ui->lwShtrih->count() - 1);
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

QStringList QAddEdtGoods::barcodes() const
{
    QStringList list;
    for (int i = 0; i < ui->lwShtrih->count(); ++i)
        list.append(ui->lwShtrih->item(i)->text());
    return list;
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
    const QStringList codes = barcodes();
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
    if (!replaceBarcodes(db(), barcodes(), id))
        return false;
    m_step = Step::Shops;
    if (!offerToShops(db(), newShops(), id))
        return false;
    m_step = Step::All;
    return true;
}

QString QAddEdtGoods::failureWords()
{
    const Step reached = std::exchange(m_step, Step::Item);
    if (reached == Step::Barcodes)
        explainBarcodes(db(), barcodes(), id());
    const bool mayBePrices = reached == Step::Prices || reached == Step::All;
    return mayBePrices ? explainPrices(db(), ui->twPrices->prices()) : QString();
}

QStringList QAddEdtGoods::changedTables() const
{
    QStringList changed = {QStringLiteral("goods"), QStringLiteral("dk_shc"), QStringLiteral("prices")};
    if (!newShops().isEmpty())
        changed.append(QStringLiteral("goods_shop"));
    return changed;
}

void QAddEdtGoods::takeOver()
{
    RecordDialog::takeOver();
    ui->twPrices->takeOver();
}
