#pragma once

#include "chainstate.h"
#include "destination.h"

class QLoadedUser;

/// Where the numbers of the overview lead. Without an action where there is nothing to show, or nothing that
/// the user may see.

/// A number's place: a register of a shop, a shop without register, neither for the whole chain.
struct OverviewPlace
{
    const OverviewShop *shop = nullptr;
    const OverviewRegister *reg = nullptr;
};

/// The shifts that are open there: the receipts of a single one, else those shifts in their table.
Destination wayToOpenShifts(const QLoadedUser &user, const ChainState &chain, const OverviewPlace &place);
/// The shifts that were closed there on a day.
Destination wayToClosedShifts(const QLoadedUser &user, const OverviewPlace &place, const QDate &day);
/// What a day of the chart adds up: the open shifts, too, when it is today.
Destination wayToDay(const QLoadedUser &user, const ChainState &chain, const QDate &day);
/// When the registers of the shop were on line.
Destination wayToLines(const QLoadedUser &user, const OverviewPlace &place);
/// The register; of the whole chain those that are not blocked.
Destination wayToRegisters(const QLoadedUser &user, const ChainState &chain, const OverviewPlace &place);
/// The shops that are shown.
Destination wayToShops(const QLoadedUser &user, const ChainState &chain);
