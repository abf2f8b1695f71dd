#include "qloadeduser.h"

#include "db.h"
#include "qmessevent.h"
#include "secretquery.h"

#include <QCryptographicHash>

namespace {
/// What finds a user; a condition follows.
QString userQuery()
{
    return QStringLiteral("SELECT id_g_prem,id,id_group,id_shop FROM users WHERE ");
}

bool fillList(const Db &db, const QString &sql, QStringList *list)
{
    const auto read = db.firstColumn(sql);
    if (read)
        *list = *read;
    return read.has_value();
}

QString groupsOf(const QString &idGroupPremission)
{
    // No group has the id 0: group 1, which stands for all groups, stays in the list.
    return QStringLiteral("SELECT id_group FROM lst_group WHERE id_g_prem=") + idGroupPremission +
           QStringLiteral(" AND id_group<>0");
}

QString shopsTransmitOf(const QString &idGroupPremission, const QString &idShop)
{
    const QString home = idShop.isEmpty() ? QStringLiteral("0") : idShop;
    return QStringLiteral("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=") + idGroupPremission +
           QStringLiteral(" AND id_shop<>(SELECT IF( (SELECT id FROM shops WHERE count_day_cycle>0 AND id=") +
           home + QStringLiteral(") IS NULL,0,") + home + QStringLiteral("))");
}
bool fillPermissions(const Db &db, UserRights *user)
{
    auto query = db.run(QStringLiteral("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=") +
                        user->idGroupPremission);
    if (!query)
        return false;
    while (query->next()) {
        const qlonglong id = query->value(0).toLongLong();
        if (id >= 0 && id < Permission::Count)
            user->permissions[static_cast<size_t>(id)] = static_cast<qint16>(query->value(1).toInt());
        else
            postMessage(db.receiver(), QLoadedUser::tr("Id параметру виходить за межі списку!"));
    }
    return true;
}

/// Of a set of rows: one number that is another one when a row is.
QString digestOf(const QString &rowText, const QString &table)
{
    return QStringLiteral(
               "(SELECT CONCAT(COUNT(*),' ',BIT_XOR(CAST(CONV(LEFT(MD5(%1),16),16,10) AS UNSIGNED))) "
               "FROM %2 WHERE %2.id_g_prem=users.id_g_prem)")
        .arg(rowText, table);
}

/// Permission group, shop group and shop of a user, and the digest of his rights; empty without a user.
std::optional<QStringList> readState(const Db &db, const QString &idUser)
{
    return db.firstRow(
        QStringLiteral("SELECT id_g_prem,id_group,id_shop,CONCAT_WS(',',id_g_prem,id_group,id_shop,") +
        digestOf(QStringLiteral("CONCAT(id_prem,' ',permission)"), QStringLiteral("lst_permis")) +
        QLatin1Char(',') + digestOf(QStringLiteral("lst_group.id_group"), QStringLiteral("lst_group")) +
        QLatin1Char(',') +
        digestOf(QStringLiteral("lst_shops_transmit.id_shop"), QStringLiteral("lst_shops_transmit")) +
        QStringLiteral(") FROM users WHERE id=") + lit(idUser));
}

UserRights withoutRights(const UserRights &user, const QString &digest)
{
    UserRights nothing;
    nothing.idUser = user.idUser;
    nothing.idGroupPremission = user.idGroupPremission;
    nothing.digest = digest;
    return nothing;
}

std::optional<UserRights> readFound(const Db &db, const QString &sql, const QStringList &secrets)
{
    auto query = runSecret(db, sql, secrets, QLoadedUser::tr("Помилка запиту:"));
    if (!query)
        return std::nullopt;
    if (!query->next()) {
        postMessage(db.receiver(), QLoadedUser::tr("Користувача не знайдено!\nПерезавантажте програму!"));
        return std::nullopt;
    }
    UserRights user;
    user.idUser = toText(query->value(1));
    user.idGroupPremission = toText(query->value(0));
    user.idGroup = toText(query->value(2));
    user.idShop = toText(query->value(3));
    return readRights(db, user);
}
} // namespace

std::optional<UserRights> findUser(const Db &db, const QString &login, const QString &pass)
{
    return readFound(db,
                     userQuery() + QStringLiteral("login=") + lit(login) + QStringLiteral(" AND (pass=") +
                         lit(pass) + QStringLiteral(" OR pass=") + lit(passwordHash(pass)) + QLatin1Char(')'),
                     {pass, passwordHash(pass)});
}

std::optional<UserRights> findUserOfCard(const Db &db, const QString &key)
{
    // The seeded administrator has an empty password, which an empty key or one of blanks would equal.
    const QString nobody = key.trimmed().isEmpty() ? QStringLiteral("0 AND ") : QString();
    return readFound(db,
                     userQuery() + nobody + QStringLiteral("pass=") + lit(key) +
                         QStringLiteral(" OR key_prem=") + lit(key),
                     {key});
}

std::optional<UserRights> readRights(const Db &db, const UserRights &user)
{
    UserRights read;
    read.idUser = user.idUser;
    // Before the rights: what is changed in between is noticed the next time.
    const auto state = readState(db, user.idUser);
    if (!state)
        return std::nullopt;
    read.digest = state->value(3);
    read.idGroupPremission = user.idGroupPremission;
    read.idGroup = user.idGroup;
    read.idShop = user.idShop == QLatin1String("0") ? QString() : user.idShop;
    if (!fillPermissions(db, &read) || !fillList(db, groupsOf(read.idGroupPremission), &read.groups) ||
        !fillList(db, shopsTransmitOf(read.idGroupPremission, read.idShop), &read.shopsTransmit))
        return std::nullopt;
    return read;
}

std::optional<RightsNews> newsOfRights(const Db &db, const UserRights &known)
{
    const auto state = readState(db, known.idUser);
    if (!state)
        return std::nullopt;
    const QString digest = state->value(3);
    if (!digest.isEmpty() && digest == known.digest)
        return RightsNews();
    if (state->isEmpty())
        return RightsNews{RightsNews::LockedOut, withoutRights(known, digest), {}};
    UserRights user = known;
    user.idGroupPremission = state->at(0);
    user.idGroup = state->at(1);
    user.idShop = state->at(2);
    const auto read = readRights(db, user);
    const auto group = read ? db.firstText(QStringLiteral("SELECT name FROM group_premission WHERE id=") +
                                           lit(user.idGroupPremission))
                            : std::nullopt;
    if (!group)
        return std::nullopt;
    if (read->permissions[Permission::BackOffice] == Permission::Denied)
        return RightsNews{RightsNews::LockedOut, withoutRights(*read, digest), *group};
    const bool isMoved = user.idGroupPremission != known.idGroupPremission;
    return RightsNews{isMoved ? RightsNews::Moved : RightsNews::Changed, *read, *group};
}

QString nameSename(const Db &db, int id)
{
    const auto names =
        db.firstRow(QStringLiteral("SELECT name,surname FROM users WHERE id=") + QString::number(id));
    if (names && names->isEmpty())
        postMessage(db.receiver(), QLoadedUser::tr("Користувача не знайдено!"));
    return names ? names->join(QLatin1Char(' ')).trimmed() : QString();
}

QString passwordHash(const QString &password)
{
    return QString::fromLatin1(QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex());
}

QLoadedUser::QLoadedUser(QLogger *logger, QObject *receiver) : m_logger(logger), m_receiver(receiver)
{
    clear();
}

void QLoadedUser::clear()
{
    const bool wasLoaded = isLoaded();
    m_rights = {};
    if (wasLoaded)
        emit rightsChanged();
}

void QLoadedUser::take(const UserRights &user)
{
    m_rights = user;
    emit rightsChanged();
}

bool QLoadedUser::takeFound(const std::optional<UserRights> &user)
{
    if (user)
        take(*user);
    return user.has_value();
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &login, const QString &pass)
{
    return takeFound(findUser(Db(db, m_receiver), login, pass));
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &pass)
{
    return takeFound(findUserOfCard(Db(db, m_receiver), pass));
}

bool QLoadedUser::load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user,
                       const QString &id_shop)
{
    UserRights user;
    user.idUser = id_user;
    user.idGroupPremission = id_g_prem;
    user.idShop = id_shop;
    return takeFound(readRights(Db(db, m_receiver), user));
}

bool QLoadedUser::reload(QSqlDatabase *db)
{
    return isLoaded() && takeFound(readRights(Db(db, m_receiver), m_rights));
}

int QLoadedUser::permission(int id) const
{
    return id >= 0 && id < Permission::Count ? m_rights.permissions[static_cast<size_t>(id)]
                                             : static_cast<int>(Permission::Denied);
}

bool QLoadedUser::isPermissionForShop(const QString &idShop, const QString &idGroup) const
{
    if (idShop.isEmpty())
        return false;
    return idShop == m_rights.idShop || m_rights.shopsTransmit.contains(idShop) ||
           m_rights.groups.contains(idGroup);
}

QString QLoadedUser::getNameSename(QSqlDatabase *db, int id) const
{
    return nameSename(Db(db, m_receiver), id);
}
