#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class Db;

/// A table of the shared database: its name and what stands between the brackets of its CREATE.
struct TableDefinition
{
    const char *name;
    const char *columns;
};

/// The 34 tables that the front-office program reads too, and the list of launch commands, in the order
/// of their creation. Names and keys are shared with other programs: spelling included, they stay.
const QVector<TableDefinition> &schemaTables();

/// True when the database lacks the tables that a login needs (users, updat).
/// error is set when that could not be found out.
bool isSchemaMissing(const Db &db, QString *error);

/// Those of the tables that a sale is written to whose engine knows no transactions: "cheks (MyISAM)".
QStringList tablesWithoutTransactions(const Db &db);

/// Creates what is missing of the tables, the change tracker and the seed rows; what is there already is
/// never altered. May run on any thread: it speaks through posted messages only, under the place of the
/// caller. Returns whether the tables were made; a failed seed row is reported and does not count.
bool createSchema(const Db &db, const char *file = __builtin_FILE(), int line = __builtin_LINE());

/// Writes the missing seed rows; reports the first failure and returns false.
bool seedTables(const Db &db, const char *file = __builtin_FILE(), int line = __builtin_LINE());
