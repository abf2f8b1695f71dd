#pragma once

#include "importplan.h"

/// What became of the records.
struct ImportOutcome
{
    bool isTrial = false;
    int added = 0;
    int raised = 0;
    /// They were there with this level or a higher one.
    int left = 0;
    /// Those of the plan, and those of batches that the server did not take.
    RefusedLines refused;
    /// Stopped, or the server was lost.
    int untouched = 0;
    /// The answer to the last batch was lost when the import was stopped: it may have been written.
    int unclear = 0;
};

/// Writes the cards of a plan, a thousand in a transaction: what is not there is added, a card that is there
/// gets the level if its id is greater. A trial only counts. *outcome tells what became of them, also of a
/// job that was cancelled or has failed.
JobResult importClients(JobContext &context, const ImportPlan &plan, ImportOutcome *outcome);

/// "Додано карток: 3, …", for the user.
QString outcomeText(const ImportOutcome &outcome, const ImportPlan &plan);
