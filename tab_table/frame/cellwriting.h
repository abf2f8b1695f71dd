#pragma once

#include "db.h"

/// What an inline editor writes and what comes of it: values, for functions that run away from the window.

/// A cell as it is to be written, taken from the list once.
struct CellDraft
{
    QString table;
    /// Of the list.
    int column = 0;
    /// Of the row; of a new one the id that was typed for it; empty: the server makes it up.
    QString id;
    bool isNew = false;
    /// As it is stored so far by what the list shows; empty in a new row.
    QString shown;
    /// As it is to be stored.
    QString value;
    /// The same was written before, and the answer was lost.
    bool mayHaveArrived = false;
    /// The server makes up no lower id than this; 0: any.
    uint lowestNewId = 0;
};

struct CellWritten
{
    /// Failed: reported. Refused: `why` is for the user. GivenUp: reported, and no other try would help: the
    /// editor closes.
    enum Outcome { Written, Failed, Refused, GivenUp };
    Outcome outcome = Failed;
    QString why = {};
    /// The id that the row has.
    QString id = {};
    /// What others have stored there meanwhile; nothing was written then.
    std::optional<QString> theirs = {};
};

/// Checks what speaks against it, writes the cell and stamps the tracker.
using CellWriter = CellWritten (*)(const Db &db, const CellDraft &draft);
