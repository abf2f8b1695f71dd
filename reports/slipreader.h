#pragma once

#include "db.h"
#include "place.h"
#include "slip.h"

/// Which document: its register, its number there, and its shop where that is known, else 0.
struct SlipKey : Place
{
    uint chek = 0;
};

/// A document out of the database; type: as in ChekType. Nothing after a failure and when there is no such
/// document (both reported).
std::optional<Slip> readSlip(const Db &db, int type, const SlipKey &key);
/// A receipt or a document of goods that has just been written: its shop is the register's.
std::optional<Slip> readNewSlip(const Db &db, SlipKey key);
