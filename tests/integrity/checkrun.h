#pragma once

#include "integrityrun.h"
#include "testing.h"

/// What a check of a database has found.
struct CheckRun
{
    JobResult result;
    QVector<integrity::CheckState> states;
    QVector<integrity::Finding> findings;

    /// "payment|вул. Перша, 1|Каса 1|Чек № 1: …" of each finding, sorted, with blanks that break.
    QStringList lines() const;
    /// Of a check by its key.
    const integrity::CheckState &state(const char *key) const;
};

/// Runs it as a job to its end; hooks hear its statements.
CheckRun checkDatabase(FreshDatabase *base, const QDateTime &now, int mostListed = 1000);
