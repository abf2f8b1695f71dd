#pragma once

#include "editdialog.h"
#include "goodsrecord.h"

/// Writes an item whole, in one transaction. loaded: what was read when the editor was opened, nothing for
/// a new item; what others have changed since is not written over. Prices that are as loaded are left alone;
/// of the others, what the editor does not show is kept. id: of the item; for a new one empty or the one it
/// is to have, and the one that it has afterwards (also when Unclear).
Saved saveGoods(const Db &db, const GoodsRecord &record, const std::optional<GoodsRecord> &loaded,
                QString *id);

/// Whether the database holds the item as it is here; nothing after a failure (reported). Waits for a
/// transaction that the server has not ended yet.
std::optional<bool> isStored(const Db &db, const GoodsRecord &record, const QString &id);

/// Tells the other programs that the item was written.
void announceGoods(const Db &db, const GoodsRecord &record);
