#pragma once

#include <QString>
#include <optional>

class Db;

/// Somebody must always be able to give rights. In charge is a user who can log in and whose group is let
/// into the back office and has full right to users and to permission groups. Whoever saves what may take the
/// last one away begins his transaction with rightsLock(), so that of two who do it at once the second one
/// sees what the first one has done.

/// A whole statement, first in the transaction: locks all permission groups, always in the same order.
QString rightsLock();

/// How many users are in charge, as the transaction has it by now; nothing after a reported failure.
std::optional<int> usersInCharge(const Db &db);

/// Whether a user who goes from one permission group to another was the last one in charge, and is not any
/// more; before or after that was written. Nothing after a reported failure.
std::optional<bool> losesLastInCharge(const Db &db, const QString &idUser, const QString &idGroupBefore,
                                      const QString &idGroupAfter);

/// Why that is refused, for the user.
QString lastInChargeWords();

/// Whether the members of a permission group get in and have full right to something, as the database has it
/// by now. Nothing after a reported failure; so is the next.
std::optional<bool> groupMayEdit(const Db &db, const QString &idGroup, int right);
/// The same of the group that a user belongs to by now.
std::optional<bool> userMayEdit(const Db &db, const QString &idUser, int right);
/// To whoever has lost the right while at work.
QString rightGoneWords();
