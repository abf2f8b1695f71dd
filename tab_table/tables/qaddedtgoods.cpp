#include "qaddedtgoods.h"

#include "combos.h"
#include "ean13.h"
#include "goodspricedelegate.h"
#include "goodsrules.h"
#include "money.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "signs.h"
#include "typedinput.h"
#include "ui_qaddedtgoods.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

namespace {
const QLatin1String refusedStyle("background-color: #FF3333");

void mark(QLineEdit *field, const QString &why)
{
    field->setStyleSheet(why.isEmpty() ? QString() : QString(refusedStyle));
    showRefusal(field, why);
}
} // namespace

QAddEdtGoods::QAddEdtGoods(QTab *tab, QSqlDatabase *db, QString *id, const QString &shopsSql,
                           QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), goodsStatements(), id, parent)
    , ui(new Ui::QAddEdtGoods)
    , m_receiver(receiver)
{
    Q_UNUSED(tab)
    ui->setupUi(this);
    for (QComboBox *box :
         {ui->cbType, ui->cbGroup, ui->cbTax, ui->cbRules, ui->cbPaymBonus, ui->cbBonusDisk, ui->cbBlock})
        keepNarrow(box);
    buildFields();
    connectFields();
    load(inputs(), furtherStatements(shopsSql));
}

/// A field that loses the focus still finds the others.
QAddEdtGoods::~QAddEdtGoods()
{
    hide();
}

QVector<RecordInput> QAddEdtGoods::inputs() const
{
    using Form = InputForm;
    const auto entries = [](const char *table) {
        return QStringLiteral("SELECT name,id FROM ") + QLatin1String(table);
    };
    return {
        {ui->leName, Form::Trimmed, "name", ":name"},
        {ui->leShortName, Form::Trimmed, "name_short", ":sname"},
        {ui->lePrice, Form::Money, "price", ":price"},
        {ui->cbType, Form::Entry, "type", ":type", "type_goods.name", nullptr, entries("type_goods")},
        {ui->cbGroup, Form::Entry, "group_g", ":group", "group_goods.name", nullptr, entries("group_goods")},
        {ui->cbTax, Form::Entry, "tax", ":tax", "tax.name", nullptr, entries("tax")},
        {ui->cbRules, Form::Entry, "id_rules_goods", ":id_rules_goods", "rules_goods.name", nullptr,
         entries("rules_goods")},
        {ui->cbPaymBonus, Form::Entry, "paym_bonus", ":paym_bonus", "ynpaym_bon.name", nullptr,
         entries("yesno")},
        {ui->cbBonusDisk, Form::Entry, "bonus_disk", ":bonus_disk", "ynbon_disk.name", nullptr,
         entries("yesno")},
        {ui->cbBlock, Form::Entry, "block", ":block", "ynblock.name", nullptr, entries("yesno")}};
}

void QAddEdtGoods::buildFields()
{
    if (isNew())
        ui->leId->setInputMask(QStringLiteral("000000000000000"));
    else
        ui->leId->setText(id());
    ui->leId->setReadOnly(!isNew());
    makePriceField(ui->lePrice);
    limitTo(ui->leShtrih, "^[0-9]{13}$");
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

/// The shop groups, the shops, and those of them that offer the item.
QStringList QAddEdtGoods::furtherStatements(const QString &shopsSql) const
{
    QStringList statements = {QStringLiteral("SELECT name,id FROM group_shop"), shopsSql};
    if (!isNew())
        statements.append(QStringLiteral("SELECT id_shop FROM goods_shop WHERE id_goods=") + id());
    return statements;
}

bool QAddEdtGoods::takeRows(const QVector<TextRows> &more)
{
    QVector<NamedId> groups;
    for (const QStringList &row : more.at(0)) {
        groups.append({row.at(0), row.at(1)});
        if (row.at(1) == QLatin1String("1"))
            m_defaultGroup = row.at(0);
    }
    QVector<NamedId> shops;
    for (const QStringList &row : more.at(1))
        shops.append({row.at(0), row.at(1)});
    QStringList sold;
    for (const QStringList &row : more.value(2))
        sold.append(row.at(0));
    ui->twPrices->setLists(groups, shops);
    ui->lwShops->fill(shops, sold);
    if (m_defaultGroup.isEmpty())
        postMessage(m_receiver, tr("Невідоме значення по замовчуванню для групи магазинів!"));
    return true;
}

void QAddEdtGoods::loaded()
{
    // What is too long for a register is cut and coloured.
    ui->leShortName->setMaxLength(shortNameLength + 1);
    if (isNew()) {
        chooseUsual();
        ui->leName->setFocus();
        return;
    }
    ui->lePrice->setFocus();
    ui->lePrice->selectAll();
}

/// What a new item has, as the database itself presets it.
void QAddEdtGoods::chooseUsual()
{
    const QVector<QPair<QComboBox *, QString>> usual = {
        {ui->cbType, QStringLiteral("1")},  {ui->cbGroup, QStringLiteral("1")},
        {ui->cbTax, QStringLiteral("1")},   {ui->cbPaymBonus, QStringLiteral("1")},
        {ui->cbRules, QStringLiteral("1")}, {ui->cbBonusDisk, QStringLiteral("0")},
        {ui->cbBlock, QStringLiteral("0")}};
    for (const auto &[box, usualId] : usual) {
        chooseId(box, usualId);
        if (box->currentIndex() < 0)
            box->setCurrentIndex(0);
    }
}

RecordDraft QAddEdtGoods::draft() const
{
    RecordDraft draft = RecordDialog::draft();
    draft.fields += priceFields(ui->twPrices->prices()) + barcodeFields(ui->lwShtrih->codes());
    const quint64 wanted = isNew() ? ui->leId->text().toULongLong() : 0;
    if (wanted != 0)
        draft.wantedId = QString::number(wanted);
    draft.beside = ui->lwShops->added();
    return draft;
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
    const bool isRefused = !field->text().isEmpty() && !isTypedBarcode(field->text());
    mark(field, isRefused ? tr("Новий штрихкод повинен мати 13 цифр.") : QString());
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
    mark(ui->leShortName,
         isCut ? tr("Довшою, ніж %1 знаків, коротка назва не буває.").arg(shortNameLength) : QString());
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
    return why.isEmpty() ? idRefusal() : why;
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
    return QString();
}

void QAddEdtGoods::save()
{
    completeShortName();
    RecordDialog::save();
}

void QAddEdtGoods::takeOver(const RecordDraft &written)
{
    RecordDialog::takeOver(written);
    ui->twPrices->takeOver(pricesOf(written.fields));
}
