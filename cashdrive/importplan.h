#pragma once

#include "dbftable.h"
#include "job.h"
#include "refusedlist.h"

#include <QMap>
#include <vector>

/// What is to be imported from a DBF table of cards, found out before anything is written.

/// A card of the file that can be written.
struct ImportedCard
{
    /// As people count, from 1 on.
    int record;
    quint32 code;
    quint32 level;
};

/// What the import is to do, found out before anything is written.
struct ImportPlan
{
    /// The shop group that new cards get.
    quint32 group = 0;
    bool isGroupKnown = false;
    std::vector<ImportedCard> cards;
    RefusedLines refused;
    /// The discount levels that the database does not have, with the number of their records, which are
    /// among the refused.
    QMap<quint32, int> unknownLevels;
    /// Records that the other system had deleted; they are imported like any other.
    int deletedCount = 0;
    /// The file holds the code under which everybody without a card buys.
    bool hasAnonymous = false;

    int recordCount() const { return static_cast<int>(cards.size()) + refused.size(); }
};

/// False when the table has not the fields of a file of cards: field 2 the code, field 5 the level.
bool hasCardFields(const DbfTable &table);

/// Reads all records of such a table and holds them against the levels and the group in the database.
/// codePage: for the codes of what is refused. The value of a job that is done: *plan is filled.
JobResult planImport(JobContext &context, const DbfTable &table, const QByteArray &codePage,
                     ImportPlan *plan);
