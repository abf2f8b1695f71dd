#pragma once

#include "db.h"

/// How the inline editor of a list of names writes: functions of values, run away from the window.

/// A name as it is to be written, taken from the list once.
struct NameDraft
{
    QString table;
    /// Of a new row the id that was typed for it; empty: the server makes it up.
    QString id;
    bool isNew = false;
    /// As the list shows it so far; empty for a new row.
    QString shown;
    QString name;
    /// The same was written before, and the answer was lost.
    bool mayHaveArrived = false;
    /// The server makes up no lower id than this; 0: any.
    uint lowestNewId = 0;
};

/// What came of it.
struct NameWritten
{
    /// Failed: reported. Refused: `why` is for the user.
    enum Outcome { Written, Failed, Refused };
    Outcome outcome = Failed;
    QString why = {};
    /// The id that the row has.
    QString id = {};
    /// What others have made of the name meanwhile; nothing was written then.
    std::optional<QString> theirs = {};
};

/// Checks that the name and the id are free, writes the row and stamps the tracker.
NameWritten writeName(const Db &db, const NameDraft &draft);
