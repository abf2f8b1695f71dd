#pragma once

#include "goodsrecord.h"

/// What is written with an item: its prices, its barcodes, the shops that offer it (RecordDraft::beside: the
/// ids of those that are to offer it now). What the editor does not show of a price is kept; a shop that
/// offers the item already keeps its stock.
const RecordRows &goodsRows();
