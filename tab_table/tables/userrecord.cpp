#include "userrecord.h"

#include "permissions.h"
#include "qloadeduser.h"
#include "rightsguard.h"
#include "secretquery.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(User)
};

const QLatin1String passwordKey("pass");
const char *const groupKey = "id_g_prem";

QString takenPasswordWords()
{
    return Texts::tr("Цей пароль використати не можна. Оберіть інший пароль.");
}

QString valueOf(const RecordFields &fields, const char *column)
{
    for (const RecordField &field : fields) {
        if (field.key == QLatin1String(column))
            return field.stored;
    }
    return QString();
}

/// Whether another user has one of the texts stored as the password; nothing after a failure.
std::optional<bool> isStoredPassword(const Db &db, const RecordDraft &draft, const QString &text,
                                     const QString &hash)
{
    const auto count = db.firstText(
        QStringLiteral("SELECT COUNT(*) FROM users WHERE (pass=:text OR pass=:hash) AND id<>:id"),
        {{QStringLiteral(":text"), text},
         {QStringLiteral(":hash"), hash},
         {QStringLiteral(":id"), draft.id.toUInt()}});
    return count ? std::optional(*count != QLatin1String("0")) : std::nullopt;
}

/// Beside the values of a draft.
struct Beside
{
    QString password;
    /// Who saves.
    QString idUser;
};

Beside besideOf(const RecordDraft &draft)
{
    const QStringList texts = draft.beside.toStringList();
    return {texts.value(0), texts.value(1)};
}

QString passwordRefusal(const Db &db, const RecordDraft &draft)
{
    const QString typed = besideOf(draft).password;
    if (typed.isEmpty())
        return QString();
    // Other programs store it in clear, too.
    const auto isTaken = isStoredPassword(db, draft, typed, passwordHash(typed));
    if (!isTaken)
        return Texts::tr("Пароль не перевірено: сервер відповів помилкою.");
    return *isTaken ? takenPasswordWords() : QString();
}

/// Whoever shows a card may be found by a password that reads like its key.
QString keyRefusal(const Db &db, const RecordDraft &draft)
{
    const QString key = valueOf(draft.fields, "key_prem");
    if (key == valueOf(draft.read, "key_prem"))
        return QString();
    const auto isTaken = isStoredPassword(db, draft, key, key);
    if (!isTaken)
        return Texts::tr("Ключ не перевірено: сервер відповів помилкою.");
    return *isTaken ? Texts::tr("Цей ключ використати не можна. Оберіть інший ключ.") : QString();
}

QString refusal(const Db &db, const RecordDraft &draft)
{
    const QString why = passwordRefusal(db, draft);
    return why.isEmpty() ? keyRefusal(db, draft) : why;
}

std::optional<RecordFields> read(const Db &db, const QString &id)
{
    const auto row = db.firstRow(QStringLiteral("SELECT pass FROM users WHERE id=") + id);
    if (!row)
        return std::nullopt;
    return RecordFields{passwordField(row->value(0), QStringLiteral("••••••"))};
}

/// Where the writing has failed.
enum Step { Password, Rights, NobodyInCharge, RightGone, TooStrong, All };

bool writePassword(const Db &db, const RecordDraft &draft, const QString &id)
{
    const auto now = passwordOf(draft.fields);
    const auto before = passwordOf(draft.read);
    if (!now || (before && before->stored == now->stored))
        return true;
    return runSecret(db, QStringLiteral("UPDATE users SET pass=%1 WHERE id=").arg(lit(now->stored)) + id,
                     {now->stored}, Texts::tr("Помилка запиту"), ServerError::DuplicateKey)
        .has_value();
}

/// A right of the one who saves; the own row is written already.
std::optional<bool> saverMayEdit(const Db &db, const RecordDraft &draft, int right)
{
    const QString idUser = besideOf(draft).idUser;
    return !draft.isNew() && draft.id == idUser ? groupMayEdit(db, valueOf(draft.read, groupKey), right)
                                                : userMayEdit(db, idUser, right);
}

/// Whether a user who may give rights comes to be, or what makes one out changes.
std::optional<bool> touchesGiverOfRights(const Db &db, const RecordDraft &draft)
{
    const QString before = valueOf(draft.read, groupKey);
    const QString now = valueOf(draft.fields, groupKey);
    bool isTouched = before != now || !besideOf(draft).password.isEmpty();
    for (const char *column : {"login", "key_prem"})
        isTouched = isTouched || valueOf(draft.read, column) != valueOf(draft.fields, column);
    const auto was = groupMayEdit(db, before, Permission::PermissionGroups);
    const auto is = was ? groupMayEdit(db, now, Permission::PermissionGroups) : std::nullopt;
    return is ? std::optional(isTouched && (*was || *is)) : std::nullopt;
}

/// Whoever may change users but no rights would come to all rights by the login of somebody who may, or by
/// his group. Nothing after a reported failure.
std::optional<Step> rightsStep(const Db &db, const RecordDraft &draft, const QString &id)
{
    const auto losesLast = draft.isNew() ? std::optional(false)
                                         : losesLastInCharge(db, id, valueOf(draft.read, groupKey),
                                                             valueOf(draft.fields, groupKey));
    const auto mayEdit = losesLast ? saverMayEdit(db, draft, Permission::Users) : std::nullopt;
    const auto mayGive = mayEdit ? saverMayEdit(db, draft, Permission::PermissionGroups) : std::nullopt;
    const auto touches = mayGive ? touchesGiverOfRights(db, draft) : std::nullopt;
    if (!touches)
        return std::nullopt;
    if (*losesLast)
        return NobodyInCharge;
    if (!*mayEdit)
        return RightGone;
    return *touches && !*mayGive ? TooStrong : All;
}

bool write(const Db &db, const RecordDraft &draft, const QString &id, int *step)
{
    *step = Password;
    if (!writePassword(db, draft, id))
        return false;
    *step = rightsStep(db, draft, id).value_or(Rights);
    return *step == All;
}

QString failureWords(const Db &db, const RecordDraft &draft, int step)
{
    Q_UNUSED(draft)
    if (step == Password && db.lastErrorNumber() == ServerError::DuplicateKey)
        return takenPasswordWords();
    if (step == RightGone)
        return rightGoneWords();
    if (step == TooStrong)
        return Texts::tr(
            "Ця людина може або зможе змінювати права, а у вас повного дозволу на групи прав немає. Її "
            "логін, пароль, ключ і групу прав змінює лише той, хто його має. Нічого не збережено.");
    return step == NobodyInCharge ? lastInChargeWords() : QString();
}

const RecordRows &userRows()
{
    static const RecordRows rows = {read, refusal, write, failureWords, {}, {}, rightsLock()};
    return rows;
}
} // namespace

RecordStatements userStatements()
{
    return {
        QStringLiteral("users"),
        QStringLiteral(
            "SELECT users.id,users.login,users.surname,users.name,users.surname2,users.telephone,"
            "users.key_prem,users.id_g_prem,users.id_group,users.id_shop,group_premission.name,group_shop.name,"
            "shops.address FROM users LEFT JOIN group_premission ON group_premission.id=users.id_g_prem LEFT "
            "JOIN group_shop ON group_shop.id=users.id_group LEFT JOIN shops ON shops.id=users.id_shop WHERE "
            "users.id="),
        // A password that nobody knows, until the chosen one follows in the same transaction.
        QStringLiteral("INSERT INTO users(login,pass,key_prem,name,surname,surname2,telephone,id_g_prem,"
                       "id_group,id_shop) VALUES(:login,MD5(CONCAT(UUID(),RAND())),:key,:name,:surname,"
                       ":surname2,:telephone,:premission,:group,:shop)"),
        QStringLiteral("UPDATE users SET login=:login,key_prem=:key,name=:name,surname=:surname,"
                       "surname2=:surname2,telephone=:telephone,id_g_prem=:premission,id_group=:group,"
                       "id_shop=:shop WHERE id="),
        QStringLiteral("SELECT login FROM users WHERE id="), &userRows()};
}

RecordField passwordField(const QString &stored, const QString &shown)
{
    return {passwordKey, Texts::tr("Пароль"), stored, shown, QVariant()};
}

std::optional<RecordField> passwordOf(const RecordFields &fields)
{
    for (const RecordField &field : fields) {
        if (field.key == passwordKey)
            return field;
    }
    return std::nullopt;
}
