#pragma once

#include "combos.h"

class QLoadedUser;

/// What QTab::GetLstGroupShopFromPermis() and GetLstShopFromPermis() offer, in two steps for those who read
/// it away from the window: the statement by the user's rights as they are now, and its rows on any
/// connection.

/// For readEntries(): the shop groups that the user may see; group 1 only withDefault.
QString permittedGroupsSql(const QLoadedUser &user, bool withDefault);
/// For readPermittedShops(); extra: a further condition (" AND ...") or an order.
QString permittedShopsSql(const QLoadedUser &user, const QString &extra = {});
/// The shops that the user may see, each once: the join with the registers repeats them, unless the extra
/// groups the rows. Nothing after a reported failure.
std::optional<ListEntries> readPermittedShops(const Db &db, const QString &sql);
