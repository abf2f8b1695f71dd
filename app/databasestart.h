#pragma once

#include "connection.h"

#include <QObject>

/// What the start does with the database away from the window: functions for a background task. Each
/// posts its messages and, last, one QProcEvent to the receiver.

/// Opens the connection, which belongs to the thread of the window, and looks for the tables.
void connectToDatabase(QSqlDatabase *connection, const DatabaseAddress &address, QObject *receiver);

/// Creates database, tables and seed rows where they are missing, on a connection of its own.
void createDatabaseAndSchema(const DatabaseAddress &address, QObject *receiver);
