#include "qloadeduser.h"

#include "db.h"
#include "qmessevent.h"

#include <QCryptographicHash>

namespace {
/// What finds a user; a condition follows.
QString findUser()
{
    return QStringLiteral("SELECT id_g_prem,id,id_group,id_shop FROM users WHERE ");
}

/// The first column of a statement; nothing after a reported failure.
std::optional<QStringList> firstColumn(const Db &db, const QString &sql)
{
    auto query = db.run(sql);
    if (!query)
        return std::nullopt;
    QStringList list;
    while (query->next())
        list.append(toText(query->value(0)));
    return list;
}

bool fillList(const Db &db, const QString &sql, QStringList *list)
{
    const auto read = firstColumn(db, sql);
    if (read)
        *list = *read;
    return read.has_value();
}
} // namespace

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
    m_rights = {};
    m_idUser.clear();
    m_idGroupPremission.clear();
    m_idGroup.clear();
    m_idShop.clear();
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &login, const QString &pass)
{
    return loadFound(db, findUser() + QStringLiteral("login=") + lit(login) + QStringLiteral(" AND (pass=") +
                             lit(pass) + QStringLiteral(" OR pass=") + lit(passwordHash(pass)) +
                             QLatin1Char(')'));
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &pass)
{
    // The seeded administrator has an empty password, which an empty key or one of blanks would equal.
    const QString nobody = pass.trimmed().isEmpty() ? QStringLiteral("0 AND ") : QString();
    return loadFound(db, findUser() + nobody + QStringLiteral("pass=") + lit(pass) +
                             QStringLiteral(" OR key_prem=") + lit(pass));
}

bool QLoadedUser::loadFound(QSqlDatabase *db, const QString &sql)
{
    clear();
    auto query = Db(db, m_receiver).run(sql);
    if (!query)
        return false;
    if (!query->next()) {
        postMessage(m_receiver, tr("Користувача не знайдено!\nПерезавантажте програму!"));
        return false;
    }
    const QString idGroup = toText(query->value(2));
    const bool loaded = load(db, toText(query->value(0)), toText(query->value(1)), toText(query->value(3)));
    m_idGroup = idGroup;
    return loaded;
}

bool QLoadedUser::load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user,
                       const QString &id_shop)
{
    clear();
    m_idGroupPremission = id_g_prem;
    m_idUser = id_user;
    if (id_shop != QLatin1String("0"))
        m_idShop = id_shop;
    return fill(Db(db, m_receiver));
}

bool QLoadedUser::reload(QSqlDatabase *db)
{
    if (!isLoaded())
        return false;
    const Rights old = m_rights;
    m_rights = {};
    if (fill(Db(db, m_receiver)))
        return true;
    m_rights = old;
    return false;
}

bool QLoadedUser::fill(const Db &db)
{
    return fillPermissions(db) && fillGroups(db) && fillShopsTransmit(db);
}

bool QLoadedUser::fillPermissions(const Db &db)
{
    auto query = db.run(QStringLiteral("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=") +
                        m_idGroupPremission);
    if (!query)
        return false;
    while (query->next()) {
        const qlonglong id = query->value(0).toLongLong();
        if (id >= 0 && id < Permission::Count)
            m_rights.permissions[static_cast<size_t>(id)] = static_cast<qint16>(query->value(1).toInt());
        else
            postMessage(m_receiver, tr("Id параметру виходить за межі списку!"));
    }
    return true;
}

bool QLoadedUser::fillGroups(const Db &db)
{
    // No group has the id 0: group 1, which stands for all groups, stays in the list.
    return fillList(db,
                    QStringLiteral("SELECT id_group FROM lst_group WHERE id_g_prem=") + m_idGroupPremission +
                        QStringLiteral(" AND id_group<>0"),
                    &m_rights.groups);
}

bool QLoadedUser::fillShopsTransmit(const Db &db)
{
    const QString home = m_idShop.isEmpty() ? QStringLiteral("0") : m_idShop;
    return fillList(db,
                    QStringLiteral("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=") +
                        m_idGroupPremission +
                        QStringLiteral(" AND id_shop<>(SELECT IF( (SELECT id FROM shops WHERE "
                                       "count_day_cycle>0 AND id=") +
                        home + QStringLiteral(") IS NULL,0,") + home + QStringLiteral("))"),
                    &m_rights.shopsTransmit);
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
    return idShop == m_idShop || m_rights.shopsTransmit.contains(idShop) || m_rights.groups.contains(idGroup);
}

QString QLoadedUser::getNameSename(QSqlDatabase *db, int id) const
{
    auto query = Db(db, m_receiver)
                     .run(QStringLiteral("SELECT name,surname FROM users WHERE id=") + QString::number(id));
    if (!query)
        return QString();
    if (!query->next()) {
        postMessage(m_receiver, tr("Користувача не знайдено!"));
        return QString();
    }
    return (toText(query->value(0)) + QLatin1Char(' ') + toText(query->value(1))).trimmed();
}
