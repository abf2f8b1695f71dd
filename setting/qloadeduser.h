#pragma once

#include "permissions.h"

#include <QObject>
#include <QStringList>
#include <array>
#include <optional>

class Db;
class QLogger;
class QSqlDatabase;

/// A user with all that he may do and see, as the database has it: a value, to be read by a task.
struct UserRights
{
    QString idUser;
    QString idGroupPremission;
    QString idGroup;
    /// Empty when there is none.
    QString idShop;
    std::array<qint16, Permission::Count> permissions = {};
    QStringList groups;
    QStringList shopsTransmit;
    /// What tells these rights from what the database holds later; empty when that is not known.
    QString digest;
};

/// What became of the rights of a user since they were read.
struct RightsNews
{
    enum Kind {
        Same,
        Changed,
        Moved,    ///< to another permission group
        LockedOut ///< the user, or the right to enter the back office, is gone
    };
    Kind kind = Same;
    /// Unless they are the same; of who is locked out nothing is allowed.
    UserRights rights = {};
    /// The permission group of who was moved.
    QString group = {};
};

/// The user of that login whose stored password is the given one, in clear or hashed. Nothing, with the
/// reason reported, when nobody is found or a statement fails; so do the next two.
std::optional<UserRights> findUser(const Db &db, const QString &login, const QString &pass);
/// The same by the key of a user card alone; an empty key finds nobody.
std::optional<UserRights> findUserOfCard(const Db &db, const QString &key);
/// Rights and lists of a user whose ids are known.
std::optional<UserRights> readRights(const Db &db, const UserRights &user);
/// Whether the rights of a user are still those that were read: one statement when they are. Whoever wrote
/// them, this program or another, need not have told the change tracker.
std::optional<RightsNews> newsOfRights(const Db &db, const UserRights &known);
/// "name surname" of any user; empty (reported) when there is no such user.
QString nameSename(const Db &db, int id);

/// The user who is logged in, and what that user may do and see. A reading that fails half way changes
/// nothing: who was loaded stays, with the rights that were read last.
///
/// The window has its users read by a task and takes them over (`take`). What has a connection for parameter
/// sends its statements there and then, in the calling thread.
class QLoadedUser : public QObject
{
    Q_OBJECT

public:
    QLoadedUser(QLogger *logger, QObject *receiver);

    /// Nobody is loaded: every right is denied, identity and lists are empty.
    void clear();
    /// From now on this user is the one, with these rights.
    void take(const UserRights &user);
    /// All that is known of the one who is loaded.
    const UserRights &rights() const { return m_rights; }

    /// findUser() and findUserOfCard(), taken over when they find somebody; else false.
    bool loadpermis(QSqlDatabase *db, const QString &login, const QString &pass);
    bool loadpermis(QSqlDatabase *db, const QString &pass);
    /// Loads rights and lists of a permission group for a user whose home shop is id_shop (empty or 0:
    /// none). False after a failed statement (reported).
    bool load(QSqlDatabase *db, const QString &id_g_prem, const QString &id_user, const QString &id_shop);
    /// Reads rights and lists of the loaded user again; false after a failed statement (reported).
    bool reload(QSqlDatabase *db);

    bool isLoaded() const { return !m_rights.idUser.isEmpty(); }
    /// The value of a permission; 0 outside 0 to 399.
    int permission(int id) const;
    bool maySee(int id) const { return permission(id) != Permission::Denied; }
    bool mayEdit(int id) const { return permission(id) == Permission::Full; }

    QString idUser() const { return m_rights.idUser; }
    QString idGroupPremission() const { return m_rights.idGroupPremission; }
    /// The home shop group.
    QString idGroup() const { return m_rights.idGroup; }
    /// The home shop; empty when there is none.
    QString idShop() const { return m_rights.idShop; }
    /// The shop groups that the user may see.
    const QStringList &groups() const { return m_rights.groups; }
    /// The shops that the user may send goods and cash to; a home shop with a day cycle is left out.
    const QStringList &shopsTransmit() const { return m_rights.shopsTransmit; }

    /// True when the user may work with the shop of that id in that shop group: the home shop, a shop of a
    /// group that the user sees, or one that the user may send to. An empty group counts as not seen.
    bool isPermissionForShop(const QString &idShop, const QString &idGroup) const;

    /// To be called when somebody begins what takes a right: whoever reads the rights looks whether they are
    /// still those of the database. What is asked of it after this call is answered after them.
    void beginAct() { emit actBegun(); }

    /// nameSename().
    QString getNameSename(QSqlDatabase *db, int id) const;

    QLogger *logger() const { return m_logger; }
    QObject *receiver() const { return m_receiver; }

signals:
    /// Rights and lists were read, for the first time or again, or nobody is loaded any more: whatever shows
    /// commands, shops or groups by them shows them anew.
    void rightsChanged();
    void actBegun();

private:
    bool takeFound(const std::optional<UserRights> &user);

    QLogger *m_logger;
    QObject *m_receiver;
    UserRights m_rights;
};

/// A password as users.pass holds it: the MD5 of its UTF-8 bytes, 32 lower-case hexadecimal digits.
QString passwordHash(const QString &password);
