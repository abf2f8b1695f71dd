#include "rightsguard.h"

#include "db.h"
#include "permissions.h"

#include <QCoreApplication>

namespace {
/// To be joined to a statement: the rights that make the group of that column one in charge.
QString rightsInCharge(const QString &group)
{
    const auto join = [&group](const QString &alias, int right, const QString &value) {
        return QStringLiteral(" JOIN lst_permis %1 ON %1.id_g_prem=%2 AND %1.id_prem=%3 AND %1.permission%4")
            .arg(alias, group, QString::number(right), value);
    };
    const QString full = QLatin1Char('=') + QString::number(Permission::Full);
    return join(QStringLiteral("entry"), Permission::BackOffice,
                QStringLiteral("<>") + QString::number(Permission::Denied)) +
           join(QStringLiteral("people"), Permission::Users, full) +
           join(QStringLiteral("rights"), Permission::PermissionGroups, full);
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

std::optional<bool> isInCharge(const Db &db, const QString &idGroup)
{
    const auto groups =
        count(db, QStringLiteral("group_premission") + rightsInCharge(QStringLiteral("group_premission.id")) +
                      QStringLiteral(" WHERE group_premission.id=") + lit(idGroup));
    return groups ? std::optional(*groups > 0) : std::nullopt;
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
