#include "shiftcheck.h"

#include "qloadeduser.h"

ShiftState shiftState(const Db &db, const SaleWork::Caller &caller, const ChekPlace &place)
{
    ShiftState state;
    const ChekWriter writer = caller.writer(db, place);
    state.z = writer.openZ();
    state.isOwn = !state.z || writer.isOwn(*state.z);
    if (!state.isOwn)
        state.owner = nameSename(db, state.z->user.toInt());
    return state;
}

ClosingCheck checkClosing(const Db &db, const SaleWork::Caller &caller, const ChekPlace &place)
{
    ClosingCheck check;
    check.shift = shiftState(db, caller, place);
    if (!check.shift.z)
        return check;
    const ShiftCloser closer(db, place, caller.file, caller.line);
    check.day = closer.periodDay();
    if (check.day && !check.shift.z->number.isEmpty())
        check.figures = closer.figures(check.shift.z->number);
    return check;
}
