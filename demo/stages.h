#pragma once

#include "chainmodel.h"
#include "db.h"

namespace demo {
/// The stages of filling a chain, in the order in which they build on each other. Each reports its failures
/// through db and tells whether it worked.

bool fillPlaces(const Db &db, Chain *chain);
bool fillUsers(const Db &db, const Chain &chain);
/// More people, of whom one has left, and their permission groups.
bool fillStaff(const Db &db);
bool fillDevices(const Db &db);
/// Permission groups that no user of the first ones belongs to.
bool fillPermissionGroups(const Db &db, const Chain &chain);
bool fillCards(const Db &db, Chain *chain);
bool fillGoods(const Db &db, Chain *chain);
bool fillStock(const Db &db, const Chain &chain);
bool fillShifts(const Db &db, const Chain &chain, const std::function<void(const QString &)> &progress);
bool fillOnline(const Db &db, const Chain &chain);
/// Goods between the shops: what came, what is on the way, what differed.
bool fillInvoices(const Db &db, const Chain &chain);
/// What an overview tells to look after in a sound chain: a promotion that ends, goods without a price, cards
/// on a blocked level.
bool fillAttention(const Db &db, const Chain &chain);
/// A service operation for what the shops buy, and cash between the shops.
bool fillCash(const Db &db, const Chain &chain);
constexpr int householdOperation = 6;
extern const QString householdName;
/// The seeded administrator gets a password; the last step, which tells a finished chain from a broken-off
/// one.
bool setAdministratorPassword(const Db &db);

/// The user who works in a shop: the operator in the group of shops that is his, else the administrator.
int userOf(const Shop &shop);
/// A password as it is stored.
QString hashedPassword(const QString &password);
/// The key of a user's card. A card is scanned as the prefix and the key, so the key's last digit is the
/// check digit of the whole.
QString cardKey(int user);
} // namespace demo
