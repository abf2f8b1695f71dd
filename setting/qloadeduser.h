#pragma once

#include "permissions.h"

#include <QObject>
#include <QStringList>
#include <array>

class Db;
class QLogger;
class QSqlDatabase;

/// The user who is logged in, and what that user may do and see.
class QLoadedUser : public QObject
{
    Q_OBJECT

public:
    QLoadedUser(QLogger *logger, QObject *receiver);

    /// Nobody is loaded: every right is denied, identity and lists are empty.
    void clear();

    /// Finds the user of that login whose stored password is the given one, in clear or hashed, and loads
    /// the rights. Whoever was loaded before is forgotten, also when this fails (reported).
    bool loadpermis(QSqlDatabase *db, const QString &login, const QString &pass);
    /// The same by the key of a user card alone; an empty key finds nobody.
    bool loadpermis(QSqlDatabase *db, const QString &pass);
    /// Loads rights and lists of a permission group for a user whose home shop is id_shop (empty or 0:
    /// none). After a failed statement (reported) what was read so far stays, and the answer is false.
    bool load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user, const QString &id_shop);
    /// Reads rights and lists of the loaded user again; on failure (reported) the old ones stay.
    bool reload(QSqlDatabase *db);

    bool isLoaded() const { return !m_idUser.isEmpty(); }
    /// The value of a permission; 0 outside 0 to 399.
    int permission(int id) const;
    bool maySee(int id) const { return permission(id) != Permission::Denied; }
    bool mayEdit(int id) const { return permission(id) == Permission::Full; }

    QString idUser() const { return m_idUser; }
    QString idGroupPremission() const { return m_idGroupPremission; }
    /// The home shop group.
    QString idGroup() const { return m_idGroup; }
    /// The home shop; empty when there is none.
    QString idShop() const { return m_idShop; }
    /// The shop groups that the user may see.
    const QStringList &groups() const { return m_rights.groups; }
    /// The shops that the user may send goods and cash to; a home shop with a day cycle is left out.
    const QStringList &shopsTransmit() const { return m_rights.shopsTransmit; }

    /// True when the user may work with the shop of that id in that shop group: the home shop, a shop of a
    /// group that the user sees, or one that the user may send to. An empty group counts as not seen.
    bool isPermissionForShop(const QString &idShop, const QString &idGroup) const;

    /// "name surname" of any user; empty (reported) when there is no such user.
    QString getNameSename(QSqlDatabase *db, int id) const;

    QLogger *logger() const { return m_logger; }
    QObject *receiver() const { return m_receiver; }

private:
    struct Rights
    {
        std::array<qint16, Permission::Count> permissions = {};
        QStringList groups;
        QStringList shopsTransmit;
    };

    bool loadFound(QSqlDatabase *db, const QString &sql);
    bool fill(const Db &db);
    bool fillPermissions(const Db &db);
    bool fillGroups(const Db &db);
    bool fillShopsTransmit(const Db &db);

    QLogger *m_logger;
    QObject *m_receiver;
    Rights m_rights;
    QString m_idUser;
    QString m_idGroupPremission;
    QString m_idGroup;
    QString m_idShop;
};

/// A password as users.pass holds it: the MD5 of its UTF-8 bytes, 32 lower-case hexadecimal digits.
QString passwordHash(const QString &password);
