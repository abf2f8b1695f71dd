#pragma once

#include "connection.h"

#include <QObject>

/// What the start does with the database away from the window: functions for a background task. Each
/// posts its messages and, last, one QProcEvent to the receiver. isGivenUp, set from any thread, ends early
/// what waits for a server that does not answer.

/// Opens the connection, which belongs to the thread of the window, and looks for the tables.
void connectToDatabase(QSqlDatabase *connection, const DatabaseAddress &address, QObject *receiver,
                       const std::atomic<bool> *isGivenUp);

/// Creates database, tables and seed rows where they are missing, on a connection of its own.
void createDatabaseAndSchema(const DatabaseAddress &address, QObject *receiver,
                             const std::atomic<bool> *isGivenUp);
