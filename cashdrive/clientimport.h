#pragma once

#include "dbftable.h"
#include "job.h"

#include <QMap>
#include <vector>

/// The import of cards from a DBF table into the clients: check, then write. The functions that get a
/// JobContext run in a job's thread.

/// A card of the file that can be written.
struct ImportedCard
{
    /// As people count, from 1 on.
    int record;
    quint32 code;
    quint32 level;
};

/// A record that is not imported, and why.
struct RefusedRecord
{
    int record;
    QString code;
    QString reason;
};

/// What the import is to do, found out before anything is written.
struct ImportPlan
{
    /// The shop group that new cards get.
    quint32 group = 0;
    bool isGroupKnown = false;
    std::vector<ImportedCard> cards;
    QVector<RefusedRecord> refused;
    /// The discount levels that the database does not have, with the number of their records, which are
    /// among the refused.
    QMap<quint32, int> unknownLevels;
    /// Records that the other system had deleted; they are imported like any other.
    int deletedCount = 0;
    /// The file holds the code under which everybody without a card buys.
    bool hasAnonymous = false;

    int recordCount() const { return static_cast<int>(cards.size()) + refused.size(); }
};

/// What became of the records.
struct ImportOutcome
{
    bool isTrial = false;
    int added = 0;
    int raised = 0;
    /// They were there with this level or a higher one.
    int left = 0;
    /// Those of the plan, and those of batches that the server did not take.
    QVector<RefusedRecord> refused;
    /// Stopped, or the server was lost.
    int untouched = 0;
    /// The answer to the last batch was lost when the import was stopped: it may have been written.
    int unclear = 0;
};

/// False when the table has not the fields of a file of cards: field 2 the code, field 5 the level.
bool hasCardFields(const DbfTable &table);

/// Reads all records of such a table and holds them against the levels and the group in the database.
/// codePage: for the codes of what is refused. The value of a job that is done: *plan is filled.
JobResult planImport(JobContext &context, const DbfTable &table, const QByteArray &codePage,
                     ImportPlan *plan);

/// Writes the cards of a plan, a thousand in a transaction: what is not there is added, a card that is there
/// gets the level if its id is greater. A trial only counts. *outcome tells what became of them, also of a
/// job that was cancelled or has failed. sourceConnection: that of the job.
JobResult importClients(JobContext &context, const ImportPlan &plan, const QString &sourceConnection,
                        ImportOutcome *outcome);

/// "Додано карток: 3, …", for the user.
QString outcomeText(const ImportOutcome &outcome, const ImportPlan &plan);

/// Sets the sums of all cards from their levels, and fixes the cards whose level is not an automatic one.
JobResult SetSumClnt(JobContext &context);
