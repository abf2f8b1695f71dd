#pragma once

#include "cellwriting.h"

/// The writer of lists of names: the name and the id have to be free.
CellWritten writeName(const Db &db, const CellDraft &draft);
