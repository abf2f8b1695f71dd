#pragma once

#include "salework.h"
#include "shiftcloser.h"

/// What the server says of a register's shift. Nothing stands for a failed statement, which was reported.
struct ShiftState
{
    std::optional<OpenZ> z;
    bool isOwn = true;
    /// "name surname" of whoever opened another user's shift.
    QString owner;
};

/// The same, and what its closing and that of the trading period need.
struct ClosingCheck
{
    ShiftState shift;
    std::optional<PeriodDay> day;
    /// Of an open shift.
    std::optional<ShiftFigures> figures;
};

ShiftState shiftState(const Db &db, const SaleWork::Caller &caller, const ChekPlace &place);
ClosingCheck checkClosing(const Db &db, const SaleWork::Caller &caller, const ChekPlace &place);
