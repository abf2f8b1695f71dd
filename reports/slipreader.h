#pragma once

#include "db.h"
#include "slip.h"

/// A document of a register out of the database; type: as in ChekType. Nothing after a failure and when
/// there is no such document (both reported).
std::optional<Slip> readSlip(const Db &db, int type, uint chek, uint kass);
