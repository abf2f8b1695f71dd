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
#include "qtab.h"
#include "ui_qaddedtgoods.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

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
    : EditDialog(parent), ui(new Ui::QAddEdtGoods), m_db(db, receiver), m_id(id)
{
    ui->setupUi(this);
    for (QComboBox *box :
         {ui->cbType, ui->cbGroup, ui->cbTax, ui->cbRules, ui->cbPaymBonus, ui->cbBonusDisk, ui->cbBlock})
        keepNarrow(box);
    setRecordTitle(*id);
    buildFields();
    if (const int length = tab->GetMaxChar(QStringLiteral("goods"), QStringLiteral("name")); length > 0)
        ui->leName->setMaxLength(length);
    fillLists();
    fillPriceLists(shops);
    connectFields();
    if (id->isEmpty()) {
        chooseUsual();
        fillShops(shops);
        ui->leName->setFocus();
        return;
    }
    m_loaded = loadGoods(m_db, *id);
    m_isLoaded = m_loaded.has_value();
    if (m_loaded)
        showRecord(*m_loaded);
    fillShops(shops);
    ui->lePrice->setFocus();
    ui->lePrice->selectAll();
}

QAddEdtGoods::~QAddEdtGoods() = default;

void QAddEdtGoods::buildFields()
{
    if (m_id->isEmpty())
        ui->leId->setInputMask(QStringLiteral("000000000000000"));
    else
        ui->leId->setText(*m_id);
    ui->leId->setReadOnly(!m_id->isEmpty());
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
        QComboBox *box;
        const char *sql;
    } lists[] = {
        {ui->cbGroup, "SELECT name,id FROM group_goods"}, {ui->cbTax, "SELECT name,id FROM tax"},
        {ui->cbType, "SELECT name,id FROM type_goods"},   {ui->cbPaymBonus, "SELECT name,id FROM yesno"},
        {ui->cbBonusDisk, "SELECT name,id FROM yesno"},   {ui->cbBlock, "SELECT name,id FROM yesno"},
        {ui->cbRules, "SELECT name,id FROM rules_goods"}};
    for (const auto &list : lists)
        fillCombo(list.box, m_db, QLatin1String(list.sql));
}

void QAddEdtGoods::fillPriceLists(const QVector<NamedId> &shops)
{
    QVector<NamedId> groups;
    auto names = m_db.run(QStringLiteral("SELECT name,id FROM group_shop"));
    while (names && names->next())
        groups.append({toText(names->value(0)), toText(names->value(1))});
    ui->twPrices->setLists(groups, shops);
    const auto preset = m_db.firstText(QStringLiteral("SELECT name FROM group_shop WHERE id=1"));
    m_defaultGroup = preset.value_or(QString());
    if (m_defaultGroup.isEmpty())
        postMessage(m_db.receiver(), tr("Невідоме значення по замовчуванню для групи магазинів!"));
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

void QAddEdtGoods::showRecord(const GoodsRecord &found)
{
    ui->leName->setText(found.name);
    showStored(ui->leShortName, QVariant(found.shortName));
    if (found.price)
        ui->lePrice->setText(moneyText(*found.price));
    const QPair<QComboBox *, NamedId> lists[] = {
        {ui->cbType, found.type},  {ui->cbGroup, found.group},         {ui->cbTax, found.tax},
        {ui->cbRules, found.rule}, {ui->cbPaymBonus, found.paymBonus}, {ui->cbBonusDisk, found.bonusDisk},
        {ui->cbBlock, found.block}};
    for (const auto &[box, entry] : lists)
        chooseId(box, entry.id);
    ui->lwShtrih->addItems(found.barcodes);
    for (const GoodsPrice &price : found.prices)
        ui->twPrices->append(price);
}

/// Where the item is sold already it stays: its stock lies there.
void QAddEdtGoods::fillShops(const QVector<NamedId> &shops)
{
    // First those that can be chosen.
    for (const bool isOffered : {false, true}) {
        for (const NamedId &shop : shops) {
            if (isOffered != (m_loaded && m_loaded->shops.contains(shop.id)))
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
QString QAddEdtGoods::shortName() const
{
    const QString text = typed(ui->leShortName).toString().trimmed();
    const bool hadNone = m_loaded && m_loaded->shortName.isEmpty();
    return text.isEmpty() && !hadNone ? ui->leName->text().trimmed().left(shortNameLength) : text;
}

GoodsRecord QAddEdtGoods::record() const
{
    GoodsRecord goods;
    goods.name = ui->leName->text().trimmed();
    goods.shortName = shortName();
    if (qint64 price = 0; priceFromText(ui->lePrice->text(), &price))
        goods.price = price;
    goods.type = chosenItem(ui->cbType);
    goods.group = chosenItem(ui->cbGroup);
    goods.tax = chosenItem(ui->cbTax);
    goods.rule = chosenItem(ui->cbRules);
    goods.paymBonus = chosenItem(ui->cbPaymBonus);
    goods.bonusDisk = chosenItem(ui->cbBonusDisk);
    goods.block = chosenItem(ui->cbBlock);
    goods.barcodes = barcodes();
    goods.prices = ui->twPrices->prices();
    goods.shops = newShops();
    return goods;
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

/// An item that was stored without a price may go without one.
QString QAddEdtGoods::priceRefusalHere() const
{
    const QString text = ui->lePrice->text();
    if (m_loaded && !m_loaded->price && text.isEmpty())
        return QString();
    const QString why = priceRefusal(text);
    return why.isEmpty() ? why : tr("Ціна ") + why;
}

QString QAddEdtGoods::barcodesRefusal() const
{
    const QStringList codes = barcodes();
    // An item that was stored without a barcode may go without one.
    if (codes.isEmpty() && !(m_loaded && m_loaded->barcodes.isEmpty()))
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
    auto other = m_db.run(QStringLiteral("SELECT name FROM goods WHERE id=") + QString::number(id));
    if (!other)
        return tr("Код товару не перевірено: сервер відповів помилкою.");
    return other->next() ? tr("Товар №%1 вже є: \"%2\".").arg(QString::number(id), toText(other->value(0)))
                         : QString();
}

QString QAddEdtGoods::ruleRefusal() const
{
    const uint rule = ui->cbRules->currentData().toUInt();
    if (!isExclusiveRule(rule))
        return QString();
    const QString group = ui->cbGroup->currentText();
    const auto other = otherWithRule(m_db, group, rule, *m_id);
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
    m_sent = record();
    m_sentId = *m_id;
    if (const QString typedId = ui->leId->text(); isNew() && !typedId.isEmpty())
        m_sentId = QString::number(typedId.toULongLong());
    if (!isSaved(saveGoods(m_db, m_sent, m_loaded, &m_sentId)))
        return false;
    *m_id = m_sentId;
    return true;
}

std::optional<bool> QAddEdtGoods::hasArrived()
{
    return isStored(m_db, m_sent, m_sentId);
}

void QAddEdtGoods::takeOver()
{
    announceGoods(m_db, m_sent);
    *m_id = m_sentId;
    m_loaded = m_sent;
    for (GoodsPrice &price : m_loaded->prices)
        price.origin = PriceKey{price.shop.id, price.group.id, QString::number(price.priority)};
}
