#pragma once

#include "db.h"
#include "periodcount.h"

#include <optional>

/// What is counted in the shop of a register when its period is closed. Nothing after a reported failure.
std::optional<PeriodSheet> readPeriod(const Db &db, const ChekPlace &place);
