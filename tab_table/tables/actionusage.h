#pragma once

#include "recordstore.h"

/// Which goods have a promotion, and its removal: functions of values, run away from the window.

/// A row for each shop whose goods have the promotion: address, number of goods, and all different goods.
QString actionUsageSql(const QString &idAction);
/// "12 товарів у 3 магазинах"; empty for none.
QString actionUsageWords(const TextRows &usage);
/// The shops, a line each, for the user.
QString actionUsageList(const TextRows &usage);

/// A promotion that is to be removed.
struct ActionUse
{
    /// One cell of all that was shown of it, to tell whether it is still the same; empty when it is gone.
    QStringList identity;
    TextRows usage;
};
/// Nothing after a reported failure.
std::optional<ActionUse> readActionUse(const Db &db, const QString &idAction);

/// What came of a removal.
struct ActionRemoved
{
    /// Failed: reported. InUse: goods have it by now. Gone: somebody was quicker. Changed: it is not what the
    /// user was asked about.
    enum Outcome { Removed, Failed, InUse, Gone, Changed };
    Outcome outcome = Failed;
    TextRows usage = {};
};
/// One transaction: locks the promotion, compares it with what was asked about, looks whether goods have it,
/// deletes it and stamps the tracker. asked: its identity when the user was asked.
ActionRemoved deleteAction(const Db &db, const QString &idAction, const QStringList &asked);
