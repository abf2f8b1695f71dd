#include "qloadeduser.h"

#include "db.h"
#include "qmessevent.h"
#include "secretquery.h"

#include <QCryptographicHash>

namespace {
/// What finds a user; a condition follows.
QString findUser()
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
    const bool wasLoaded = isLoaded();
    m_person = {};
    if (wasLoaded)
        emit rightsChanged();
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &login, const QString &pass)
{
    return loadFound(db,
                     findUser() + QStringLiteral("login=") + lit(login) + QStringLiteral(" AND (pass=") +
                         lit(pass) + QStringLiteral(" OR pass=") + lit(passwordHash(pass)) + QLatin1Char(')'),
                     {pass, passwordHash(pass)});
}

bool QLoadedUser::loadpermis(QSqlDatabase *db, const QString &pass)
{
    // The seeded administrator has an empty password, which an empty key or one of blanks would equal.
    const QString nobody = pass.trimmed().isEmpty() ? QStringLiteral("0 AND ") : QString();
    return loadFound(db,
                     findUser() + nobody + QStringLiteral("pass=") + lit(pass) +
                         QStringLiteral(" OR key_prem=") + lit(pass),
                     {pass});
}

bool QLoadedUser::loadFound(QSqlDatabase *db, const QString &sql, const QStringList &secrets)
{
    auto query = runSecret(Db(db, m_receiver), sql, secrets, tr("Помилка запиту:"));
    if (!query)
        return false;
    if (!query->next()) {
        postMessage(m_receiver, tr("Користувача не знайдено!\nПерезавантажте програму!"));
        return false;
    }
    return take(db, {toText(query->value(1)),
                     toText(query->value(0)),
                     toText(query->value(2)),
                     toText(query->value(3)),
                     {}});
}

bool QLoadedUser::load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user,
                       const QString &id_shop)
{
    return take(db, {id_user, id_g_prem, QString(), id_shop, {}});
}

bool QLoadedUser::reload(QSqlDatabase *db)
{
    return isLoaded() && take(db, m_person);
}

bool QLoadedUser::take(QSqlDatabase *connection, Person person)
{
    const Db db(connection, m_receiver);
    if (person.idShop == QLatin1String("0"))
        person.idShop.clear();
    person.rights = {};
    if (!fillPermissions(db, &person) ||
        !fillList(db, groupsOf(person.idGroupPremission), &person.rights.groups) ||
        !fillList(db, shopsTransmitOf(person.idGroupPremission, person.idShop), &person.rights.shopsTransmit))
        return false;
    m_person = person;
    emit rightsChanged();
    return true;
}

bool QLoadedUser::fillPermissions(const Db &db, Person *person) const
{
    auto query = db.run(QStringLiteral("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=") +
                        person->idGroupPremission);
    if (!query)
        return false;
    while (query->next()) {
        const qlonglong id = query->value(0).toLongLong();
        if (id >= 0 && id < Permission::Count)
            person->rights.permissions[static_cast<size_t>(id)] =
                static_cast<qint16>(query->value(1).toInt());
        else
            postMessage(m_receiver, tr("Id параметру виходить за межі списку!"));
    }
    return true;
}

int QLoadedUser::permission(int id) const
{
    return id >= 0 && id < Permission::Count ? m_person.rights.permissions[static_cast<size_t>(id)]
                                             : static_cast<int>(Permission::Denied);
}

bool QLoadedUser::isPermissionForShop(const QString &idShop, const QString &idGroup) const
{
    if (idShop.isEmpty())
        return false;
    return idShop == m_person.idShop || m_person.rights.shopsTransmit.contains(idShop) ||
           m_person.rights.groups.contains(idGroup);
}

QString QLoadedUser::getNameSename(QSqlDatabase *db, int id) const
{
    const auto names =
        Db(db, m_receiver)
            .firstRow(QStringLiteral("SELECT name,surname FROM users WHERE id=") + QString::number(id));
    if (names && names->isEmpty())
        postMessage(m_receiver, tr("Користувача не знайдено!"));
    return names ? names->join(QLatin1Char(' ')).trimmed() : QString();
}
