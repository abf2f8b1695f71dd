#pragma once

#include <QString>

class QLoadedUser;

/// Between which shops a user may move goods and cash, by the rights as they are now.
namespace TransferPlaces {
/// The shops whose transfers the user sees, as a condition on `shops` with a blank before it: those of the
/// groups that he sees, and the home shop; blocked ones, too: what they have sent stays.
QString seenCondition(const QLoadedUser &user);
/// For readEntries(): the user's own shops; neither this nor the next offers a blocked one.
QString ownSql(const QLoadedUser &user);
/// Those that the permission group may send to.
QString targetsSql(const QLoadedUser &user);
} // namespace TransferPlaces
