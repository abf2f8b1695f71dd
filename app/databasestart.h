#pragma once

#include "connection.h"
#include "job.h"

/// What the start does with the database away from the window: the work of jobs. Each is done whatever came
/// of it: the value of its result is a QProcEvent::Outcome. Being cancelled it ends early what waits for a
/// server that does not answer, and has no value.

/// Opens the connection of the window, which nobody else uses meanwhile, and looks for the tables.
JobResult connectToDatabase(JobContext &context, QSqlDatabase connection, const DatabaseAddress &address);

/// Creates database, tables and seed rows where they are missing, on the job's own connection.
JobResult createDatabaseAndSchema(JobContext &context, const DatabaseAddress &address);
