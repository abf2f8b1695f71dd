#pragma once

#include "findings.h"
#include "job.h"

#include <QDateTime>

/// What a check of the database is asked for.
struct IntegrityAsked
{
    /// By the clock of the registers: a shift that was open a day before is too old.
    QDateTime now;
    /// So many findings of a kind are listed; the others are counted.
    int mostListed = 1000;
};

/// The work of a job: tests the database and writes into found what is wrong. It reads only, each statement
/// of one moment and none of them longer than one table, or one register's receipts, needs. What cannot be
/// read is told in found, and the rest is tested all the same; the job fails when the server is lost.
JobResult checkIntegrity(JobContext &context, const IntegrityAsked &asked, integrity::FindingsSoFar *found);
