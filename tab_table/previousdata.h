#pragma once

#include "job.h"

#include <QVector>
#include <optional>

/// The data of the previous version: which databases of the server may hold them, and how their tables are
/// copied into the current database. Functions of values, run away from the window.

/// The databases of the server without its own ones and the current one; nothing after a reported failure.
std::optional<QStringList> otherDatabases(const Db &db);

/// A table that is copied, as it stands in both databases.
struct PreviousTable
{
    const char *name;
    /// What people call it; translated in the context "Page".
    const char *caption;
    /// What tells one row from another.
    const char *key;
    const char *target;
    const char *source;
    /// The columns in which a row of that key is the same thing in both databases for those that refer to it;
    /// null where that does not matter.
    const char *meaning = nullptr;
};
const QVector<PreviousTable> &previousTables();
/// Rows whose key the target has already are left out by the server.
QString copyStatement(const PreviousTable &table, const QString &target, const QString &source);

/// What came of one table.
struct ImportedTable
{
    /// Unclear: the answer to COMMIT was lost.
    enum Outcome { Copied, Failed, Unclear, NotTried };
    PreviousTable table;
    Outcome outcome = NotTried;
    qint64 found = 0;
    qint64 added = 0;
    /// Not added, because the target had a row of that key before.
    qint64 known = 0;
    /// How many of them are something else there.
    qint64 different = 0;
    /// Not added, and the target has no row of that key.
    qint64 refused = 0;
    /// For the user: why it failed, or what the server has warned of.
    QString words = {};
};
using ImportedTables = QVector<ImportedTable>;

/// The work of a job: copies the tables, each in a transaction of its own, from the database `source`, which
/// is only read, into `target`. A table that fails is reported and the next one is tried; behind a lost
/// connection none is. imported gets a line for each table.
JobResult ImportDBVer1toVer2(JobContext &context, const QString &target, const QString &source,
                             ImportedTables *imported);

/// The number of rows of a table; 0 after a reported failure, and when there is no such table. The database
/// may be empty.
qint64 rowcount(const Db &db, const QString &database, const QString &table, const QString &where);
/// How many rows the statement right before this call has changed; nothing after a reported failure.
std::optional<qint64> changedRows(const Db &db);
/// Tells that so many rows of a table were changed out of so many expected ones.
void afectrowMesResult(QObject *receiver, qint64 changed, qint64 expected, const QString &table);
