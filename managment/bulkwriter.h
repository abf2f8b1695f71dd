#pragma once

#include "bulkplan.h"

#include <memory>

/// What was written, for who takes it back.
struct BulkDone
{
    std::shared_ptr<const BulkPlan> plan;
    /// As they were written: from the value of before to the one that stands there since.
    QVector<BulkChange> changes;
    /// The list with what became of each line.
    std::shared_ptr<const RowStore> rows;
};

/// What became of a plan, or of taking it back.
struct BulkOutcome
{
    bool isWritten = false;
    /// Its rows are null when the list stays what it is.
    BulkDone done;
    /// Changed by others since they were shown, or written: left as they are.
    int changedByOthers = 0;
};

/// Writes what a plan says in one transaction, which locks the goods and their prices and compares them with
/// what was shown first: what others have changed is left out. All else is written, or nothing. The words are
/// for the user.
JobResult writeBulk(JobContext &context, const std::shared_ptr<const BulkPlan> &plan, const QString &idUser,
                    BulkOutcome *outcome);
/// Puts back what stood there before, in the same manner; but all of it or nothing: refused when somebody has
/// changed any of it since.
JobResult undoBulk(JobContext &context, const BulkDone &done, const QString &idUser, BulkOutcome *outcome);
