#pragma once

#include "job.h"

#include <optional>

/// What an administrator may add to the shared database and take away again: two indexes on the receipts,
/// with which a day's receipts and the next receipt number are found without reading the whole table. They
/// change no result, and the creation of the tables never makes them.

/// How many of the two indexes stand.
enum class TunedState { None, Partial, Whole };
/// Nothing after a reported failure.
std::optional<TunedState> tunedState(const Db &db);
/// What stands behind FROM for receipts of a time, when both indexes stand: left to itself the server
/// rather reads the whole table than many days by the index.
QString cheksByTime();
enum class Tuning { Add, Remove };
/// What to ask before they are added or, when they stand, taken away.
QString tuningQuestion(Tuning tuning);
/// What is being done, as the title of the job.
QString tuningTitle(Tuning tuning);

/// The work of a job: adds the indexes or takes them away, all of them or none; selling goes on meanwhile. It
/// needs the table to itself for a moment at its beginning and at its end. It waits for that moment a second
/// or two only, because whoever sells waits behind it, and tries again later when somebody reads on.
JobResult tuneDatabase(JobContext &context, Tuning tuning);
