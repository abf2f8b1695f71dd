#pragma once

#include "actionplan.h"

/// What became of a plan.
struct ActionAssigned
{
    bool isWritten = false;
    int changed = 0;
    /// Somebody else has given them another promotion since they were shown: left as they are.
    int changedByOthers = 0;
    /// The list with what became of each item.
    RowStore rows;
};

/// Writes what a plan says in one transaction, which locks the promotion and the stock rows and compares them
/// with what was shown first; all of it is written or nothing. What another program spoils is tried twice
/// more. The words are for the user.
JobResult assignAction(JobContext &context, const ActionPlan &plan, ActionAssigned *assigned);
