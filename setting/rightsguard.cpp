#include "rightsguard.h"

#include "db.h"
#include "permissions.h"

#include <QCoreApplication>
#include <QVector>

namespace {
/// To be joined to a statement: the group of that column is let in and has full right to all of these.
QString joinedRights(const QString &group, const QVector<int> &rights)
{
    const auto join = [&group](int right, const QString &value) {
        return QStringLiteral(
                   " JOIN lst_permis r%1 ON r%1.id_g_prem=%2 AND r%1.id_prem=%1 AND r%1.permission%3")
            .arg(QString::number(right), group, value);
    };
    QString joined = join(Permission::BackOffice, QStringLiteral("<>") + QString::number(Permission::Denied));
    for (const int right : rights)
        joined += join(right, QLatin1Char('=') + QString::number(Permission::Full));
    return joined;
}

/// What makes the group of that column one in charge.
QString rightsInCharge(const QString &group)
{
    return joinedRights(group, {Permission::Users, Permission::PermissionGroups});
}

/// Current rows, not those that the transaction has seen first; nobody changes them until it ends.
std::optional<int> count(const Db &db, const QString &from)
{
    const auto found =
        db.firstText(QStringLiteral("SELECT COUNT(*) FROM ") + from + QStringLiteral(" LOCK IN SHARE MODE"));
    return found ? std::optional(found->toInt()) : std::nullopt;
}

std::optional<int> usersInChargeBeside(const Db &db, const QString &condition)
{
    // Nobody gets in without a login.
    return count(db, QStringLiteral("users") + rightsInCharge(QStringLiteral("users.id_g_prem")) +
                         QStringLiteral(" WHERE users.login<>''") + condition);
}

std::optional<bool> hasRights(const Db &db, const QString &idGroup, const QVector<int> &rights)
{
    const auto groups = count(db, QStringLiteral("group_premission") +
                                      joinedRights(QStringLiteral("group_premission.id"), rights) +
                                      QStringLiteral(" WHERE group_premission.id=") + lit(idGroup));
    return groups ? std::optional(*groups > 0) : std::nullopt;
}

std::optional<bool> isInCharge(const Db &db, const QString &idGroup)
{
    return hasRights(db, idGroup, {Permission::Users, Permission::PermissionGroups});
}
} // namespace

QString rightsLock()
{
    return QStringLiteral("SELECT id FROM group_premission ORDER BY id FOR UPDATE");
}

std::optional<int> usersInCharge(const Db &db)
{
    return usersInChargeBeside(db, QString());
}

std::optional<bool> losesLastInCharge(const Db &db, const QString &idUser, const QString &idGroupBefore,
                                      const QString &idGroupAfter)
{
    const auto was = isInCharge(db, idGroupBefore);
    const auto is = was ? isInCharge(db, idGroupAfter) : std::nullopt;
    const auto others =
        is ? usersInChargeBeside(db, QStringLiteral(" AND users.id<>") + lit(idUser)) : std::nullopt;
    return others ? std::optional(*was && !*is && *others == 0) : std::nullopt;
}

QString lastInChargeWords()
{
    return QCoreApplication::translate(
        "RightsGuard",
        "Після цього не лишилося б жодного користувача, який може увійти і має повний дозвіл на користувачів "
        "та групи прав: ніхто вже не зміг би дати доступ. Нічого не збережено. Спершу дайте ці права іншому "
        "користувачу.");
}

std::optional<bool> groupMayEdit(const Db &db, const QString &idGroup, int right)
{
    return hasRights(db, idGroup, {right});
}

std::optional<bool> userMayEdit(const Db &db, const QString &idUser, int right)
{
    const auto users =
        count(db, QStringLiteral("users") + joinedRights(QStringLiteral("users.id_g_prem"), {right}) +
                      QStringLiteral(" WHERE users.id=") + lit(idUser));
    return users ? std::optional(*users > 0) : std::nullopt;
}

QString rightGoneWords()
{
    return QCoreApplication::translate(
        "RightsGuard", "Поки ви працювали, у вас забрали право це змінювати. Нічого не збережено.");
}
