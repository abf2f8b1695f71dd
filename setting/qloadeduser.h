#pragma once

#include "permissions.h"

#include <QObject>
#include <QStringList>
#include <array>

class Db;
class QLogger;
class QSqlDatabase;

/// The user who is logged in, and what that user may do and see. A reading that fails half way changes
/// nothing: who was loaded stays, with the rights that were read last.
class QLoadedUser : public QObject
{
    Q_OBJECT

public:
    QLoadedUser(QLogger *logger, QObject *receiver);

    /// Nobody is loaded: every right is denied, identity and lists are empty.
    void clear();

    /// Finds the user of that login whose stored password is the given one, in clear or hashed, and loads
    /// the rights. False, with the reason reported, when nobody is found or a statement fails.
    bool loadpermis(QSqlDatabase *db, const QString &login, const QString &pass);
    /// The same by the key of a user card alone; an empty key finds nobody.
    bool loadpermis(QSqlDatabase *db, const QString &pass);
    /// Loads rights and lists of a permission group for a user whose home shop is id_shop (empty or 0:
    /// none). False after a failed statement (reported).
    bool load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user, const QString &id_shop);
    /// Reads rights and lists of the loaded user again; false after a failed statement (reported).
    bool reload(QSqlDatabase *db);

    bool isLoaded() const { return !m_person.idUser.isEmpty(); }
    /// The value of a permission; 0 outside 0 to 399.
    int permission(int id) const;
    bool maySee(int id) const { return permission(id) != Permission::Denied; }
    bool mayEdit(int id) const { return permission(id) == Permission::Full; }

    QString idUser() const { return m_person.idUser; }
    QString idGroupPremission() const { return m_person.idGroupPremission; }
    /// The home shop group.
    QString idGroup() const { return m_person.idGroup; }
    /// The home shop; empty when there is none.
    QString idShop() const { return m_person.idShop; }
    /// The shop groups that the user may see.
    const QStringList &groups() const { return m_person.rights.groups; }
    /// The shops that the user may send goods and cash to; a home shop with a day cycle is left out.
    const QStringList &shopsTransmit() const { return m_person.rights.shopsTransmit; }

    /// True when the user may work with the shop of that id in that shop group: the home shop, a shop of a
    /// group that the user sees, or one that the user may send to. An empty group counts as not seen.
    bool isPermissionForShop(const QString &idShop, const QString &idGroup) const;

    /// "name surname" of any user; empty (reported) when there is no such user.
    QString getNameSename(QSqlDatabase *db, int id) const;

    QLogger *logger() const { return m_logger; }
    QObject *receiver() const { return m_receiver; }

signals:
    /// Rights and lists were read, for the first time or again, or nobody is loaded any more: whatever shows
    /// commands, shops or groups by them shows them anew.
    void rightsChanged();

private:
    struct Rights
    {
        std::array<qint16, Permission::Count> permissions = {};
        QStringList groups;
        QStringList shopsTransmit;
    };
    /// Who is loaded. Every reading fills a fresh one, which takes the place of the old when it is whole.
    struct Person
    {
        QString idUser;
        QString idGroupPremission;
        QString idGroup;
        QString idShop;
        Rights rights;
    };

    bool loadFound(QSqlDatabase *db, const QString &sql, const QStringList &secrets);
    bool take(QSqlDatabase *db, Person person);
    bool fillPermissions(const Db &db, Person *person) const;

    QLogger *m_logger;
    QObject *m_receiver;
    Person m_person;
};

/// A password as users.pass holds it: the MD5 of its UTF-8 bytes, 32 lower-case hexadecimal digits.
QString passwordHash(const QString &password);
