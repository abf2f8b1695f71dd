#include "qaddedtusers.h"
#include "ui_qaddedtusers.h"

#include "cardkeys.h"
#include "combos.h"
#include "ean13.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qtab.h"
#include "typedinput.h"
#include "userrecord.h"

#include <QRegularExpression>

namespace {
const QString allGroups = QStringLiteral("1");
const QString noShop = QStringLiteral("0");
const int telephoneLength = 10;
const char *const keysSql = "SELECT key_prem FROM users";

/// Permission groups with their rights to get in and to users.
QString groupRightsSql()
{
    return QStringLiteral(
               "SELECT group_premission.id,entry.permission,people.permission FROM group_premission "
               "LEFT JOIN lst_permis entry ON entry.id_g_prem=group_premission.id AND "
               "entry.id_prem=%1 LEFT JOIN lst_permis people ON "
               "people.id_g_prem=group_premission.id AND people.id_prem=%2")
        .arg(Permission::BackOffice)
        .arg(Permission::Users);
}

QString permittedHomesSql(const QLoadedUser &user)
{
    return QStringLiteral("SELECT address,id,group_shop FROM shops WHERE") +
           QTab::GetStrLstGroupFromPermis(&user, QStringLiteral("group_shop"), true);
}
} // namespace

QAddEdtUsers::QAddEdtUsers(const QLoadedUser *user, const QString &cardPrefix, QSqlDatabase *db, QString *id,
                           QObject *receiver, QWidget *parent)
    : RecordDialog(Db(db, receiver), userStatements(), id, parent)
    , ui(std::make_unique<Ui::QAddEdtUsers>())
    , m_user(user)
    , m_cardPrefix(cardPrefix)
    , m_keyTasks(db->connectionName(), receiver, nullptr)
{
    ui->setupUi(this);
    ui->leSurname->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    for (QComboBox *box : {ui->cbPremission, ui->cbGroup, ui->cbShop})
        keepNarrow(box, 24);
    // A card may be scanned into it.
    limitTo(ui->leKey, "[0-9]{0,13}");
    connectFields();
    load(inputs(), {QLatin1String(keysSql), groupRightsSql(), permittedHomesSql(*user)});
}

/// A field that loses the focus still finds the others.
QAddEdtUsers::~QAddEdtUsers()
{
    hide();
}

QVector<RecordInput> QAddEdtUsers::inputs() const
{
    using Form = InputForm;
    return {{ui->leLogin, Form::Trimmed, "login", ":login"},
            {ui->leSurname, Form::Trimmed, "surname", ":surname"},
            {ui->leName, Form::Trimmed, "name", ":name"},
            {ui->leSurname2, Form::Trimmed, "surname2", ":surname2"},
            {ui->leTelephone, Form::OrNull, "telephone", ":telephone"},
            {ui->leKey, Form::OrNull, "key_prem", ":key"},
            {ui->cbPremission, Form::EntryId, "id_g_prem", ":premission", "group_premission.name", nullptr,
             QStringLiteral("SELECT name,id FROM group_premission ORDER BY name")},
            {ui->cbGroup, Form::EntryId, "id_group", ":group", "group_shop.name", nullptr,
             permittedGroupsSql(*m_user, true)},
            {ui->cbShop, Form::EntryId, "id_shop", ":shop", "shops.address"}};
}

void QAddEdtUsers::connectFields()
{
    connect(ui->pbOk, &QPushButton::clicked, this, &QAddEdtUsers::btok);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QAddEdtUsers::btcancel);
    connect(ui->pbKey, &QPushButton::clicked, this, &QAddEdtUsers::proposeKey);
    connect(ui->cbPremission, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &QAddEdtUsers::tellEntry);
    connect(ui->cbGroup, qOverload<int>(&QComboBox::currentIndexChanged), this, &QAddEdtUsers::offerShops);
    connect(ui->leTelephone, &QLineEdit::editingFinished, this, &QAddEdtUsers::tidyTelephone);
    connect(ui->leKey, &QLineEdit::textChanged, this, &QAddEdtUsers::followKey);
}

bool QAddEdtUsers::takeRows(const QVector<TextRows> &more)
{
    for (const QStringList &row : more.at(0))
        m_keys.append(row.first());
    for (const QStringList &row : more.at(1)) {
        const bool mayEnter = row.at(1).toUInt() != Permission::Denied;
        if (!mayEnter)
            m_closedGroups.insert(row.first());
        else if (row.at(2).toUInt() == Permission::Full)
            m_editingGroups.insert(row.first());
    }
    for (const QStringList &row : more.at(2))
        m_shops.append({row.at(0), row.at(1), row.at(2)});
    for (QComboBox *box : {ui->cbPremission, ui->cbGroup})
        box->setCurrentIndex(-1);
    return true;
}

/// The home stays whatever the one at work may see; NULL is no shop, too.
void QAddEdtUsers::showField(const QString &key, const std::optional<RecordField> &value)
{
    if (key == QLatin1String("pass")) {
        ui->lePass->clear();
        ui->leRepeat->clear();
    } else if (key == QLatin1String("key_prem") && !m_user->mayEdit(Permission::Users)) {
        ui->leKey->setPlaceholderText(tr("приховано"));
    } else if (key == QLatin1String("id_shop") && value && value->stored.toUInt() == 0) {
        chooseId(ui->cbShop, noShop);
    } else {
        const NamedId home = chosenItem(ui->cbShop);
        RecordDialog::showField(key, value);
        // A group that others have chosen takes nobody's shop away.
        if (key == QLatin1String("id_group") && home.id.toUInt() != 0)
            RecordDialog::showField(QStringLiteral("id_shop"), RecordField{{}, {}, home.id, home.name, {}});
    }
}

void QAddEdtUsers::loaded()
{
    if (isNew()) {
        ui->leKey->setText(nextFreeKey(m_cardPrefix, m_keys));
        chooseId(ui->cbGroup, allGroups);
        offerShops();
    }
    ui->lePass->setPlaceholderText(isNew() ? QString() : tr("без змін"));
    followKey();
    tellEntry();
    ui->leLogin->setFocus();
}

void QAddEdtUsers::tellEntry()
{
    const bool isClosed = m_closedGroups.contains(chosenItem(ui->cbPremission).id);
    ui->labelEntry->setText(isClosed ? tr("Ця група не дає входу: користувач не ввійде.") : QString());
    ui->labelEntry->setVisible(isClosed);
}

/// Those of the chosen group; group 1 stands for all of them.
void QAddEdtUsers::offerShops()
{
    const QString chosen = chosenItem(ui->cbShop).id;
    const QString group = chosenItem(ui->cbGroup).id;
    ListEntries offered = {{tr("без магазину"), noShop}};
    for (const Shop &shop : qAsConst(m_shops)) {
        if (group == allGroups || shop.group == group || shop.group == allGroups)
            offered.append({shop.address, shop.id});
    }
    showEntries(ui->cbShop, offered);
    chooseId(ui->cbShop, chosen);
    if (ui->cbShop->currentIndex() < 0)
        chooseId(ui->cbShop, noShop);
}

/// "+38 (044) 123-45-01" has ten digits of its own.
void QAddEdtUsers::tidyTelephone()
{
    QString digits = ui->leTelephone->text();
    digits.remove(QRegularExpression(QStringLiteral("[\\s()+-]")));
    if (digits.size() == telephoneLength + 2 && digits.startsWith(QLatin1String("38")))
        digits.remove(0, 2);
    if (digits.size() == telephoneLength && isAllDigits(digits) && digits != ui->leTelephone->text())
        ui->leTelephone->setText(digits);
}

/// Tells what becomes of the card.
void QAddEdtUsers::followKey()
{
    const QString scanned = keyOfCard(m_cardPrefix, ui->leKey->text());
    if (!scanned.isEmpty())
        return ui->leKey->setText(scanned);
    const QString code = cardCode(m_cardPrefix, ui->leKey->text());
    ui->labelCard->setText(!code.isEmpty()               ? tr("Картка: %1").arg(code)
                           : ui->leKey->text().isEmpty() ? QString()
                                                         : cardKeyRefusal(m_cardPrefix, ui->leKey->text()));
}

/// Others add users as well: the keys are read anew.
void QAddEdtUsers::proposeKey()
{
    m_keyTasks.drop();
    m_keyTasks.read([](const Db &db) { return db.firstColumn(QLatin1String(keysSql)); },
                    [this](const std::optional<QStringList> &keys) {
                        if (!keys || isBusy())
                            return;
                        const QString key = nextFreeKey(m_cardPrefix, *keys);
                        if (key.isEmpty())
                            return warn(cardKeyRefusal(m_cardPrefix, QString()));
                        ui->leKey->setText(key);
                        ui->leKey->setFocus();
                    });
}

QString QAddEdtUsers::readValue(const char *column) const
{
    for (const RecordField &field : readFields()) {
        if (field.key == QLatin1String(column))
            return field.stored;
    }
    return QString();
}

QString QAddEdtUsers::refusal() const
{
    if (ui->leLogin->text().trimmed().isEmpty())
        return tr("Логін не може бути порожнім!");
    if (ui->leSurname->text().trimmed().isEmpty() || ui->leName->text().trimmed().isEmpty())
        return tr("Впишіть прізвище та ім'я: за ними людину впізнають у чеках і звітах.");
    if (ui->cbPremission->currentIndex() < 0)
        return tr("Виберіть групу прав: вона вирішує, що користувач може бачити і змінювати.");
    if (ui->cbGroup->currentIndex() < 0)
        return tr("Виберіть групу магазинів.") +
               (ui->cbGroup->count() == 0 ? QLatin1Char('\n') + noGroupsHint() : QString());
    for (const QString &why : {telephoneRefusal(), passwordRefusal(), keyRefusal()}) {
        if (!why.isEmpty())
            return why;
    }
    return QString();
}

/// What stands in the database stays as it is.
QString QAddEdtUsers::telephoneRefusal() const
{
    const QString typed = ui->leTelephone->text();
    const bool isSound = typed.isEmpty() || typed == readValue("telephone") ||
                         (typed.size() == telephoneLength && isAllDigits(typed));
    return isSound ? QString()
                   : tr("Телефон повинен складатися з десяти цифр, наприклад 0441234501, або бути порожнім.");
}

QString QAddEdtUsers::passwordRefusal() const
{
    if (ui->lePass->text() != ui->leRepeat->text())
        return tr("Паролі не співпадають! Впишіть той самий пароль двічі.");
    if (isNew() && ui->lePass->text().isEmpty())
        return tr("Новому користувачу потрібен пароль: впишіть його двічі.");
    return QString();
}

QString QAddEdtUsers::keyRefusal() const
{
    const QString key = ui->leKey->text();
    if (!isNew() && key == readValue("key_prem"))
        return QString();
    const QString why = cardKeyRefusal(m_cardPrefix, key);
    return why.isEmpty() ? why : why + QLatin1Char('\n') + tr("Кнопка «Запропонувати» дає вільний ключ.");
}

QVector<UniqueValue> QAddEdtUsers::uniqueValues() const
{
    return {{"login",
             QStringLiteral("SELECT id FROM users WHERE login=:login"),
             {{QStringLiteral(":login"), ui->leLogin->text().trimmed()}},
             tr("Такий логін вже має інший користувач!")},
            {"key_prem",
             QStringLiteral("SELECT id FROM users WHERE key_prem=:key"),
             {{QStringLiteral(":key"), nullIfEmpty(ui->leKey->text())}},
             tr("Такий ключ вже має інший користувач! Кнопка «Запропонувати» дає вільний.")}};
}

RecordDraft QAddEdtUsers::draft() const
{
    RecordDraft draft = RecordDialog::draft();
    const QString typed = ui->lePass->text();
    draft.beside = QStringList({typed, m_user->idUser()});
    if (!typed.isEmpty())
        draft.fields.append(passwordField(passwordHash(typed), tr("новий")));
    else if (const auto before = passwordOf(draft.read))
        draft.fields.append(*before);
    return draft;
}

void QAddEdtUsers::takeOver(const RecordDraft &written)
{
    RecordDialog::takeOver(written);
    ui->lePass->clear();
    ui->leRepeat->clear();
}

bool QAddEdtUsers::losesOwnRight() const
{
    return !isNew() && id() == m_user->idUser() && m_editingGroups.contains(readValue("id_g_prem")) &&
           !m_editingGroups.contains(chosenItem(ui->cbPremission).id);
}

void QAddEdtUsers::save()
{
    const bool isAsked = losesOwnRight() && firstRefusal().isEmpty();
    if (!isAsked ||
        QMessDlg::confirm(this, tr("Забрати право в себе?"),
                          tr("Це ваш власний запис. У групі прав «%1» користувачів не змінюють: після "
                             "збереження ви вже не зможете повернути собі це право.")
                              .arg(ui->cbPremission->currentText()),
                          tr("Забрати право в себе"), tr("Продовжити редагування")))
        RecordDialog::save();
}
