#pragma once

#include "db.h"
#include "registerserver.h"

#include <QHash>
#include <QSet>

/// What is asked once in a run: which articles and registers there are, and which goods are never counted.
struct CountedGoods
{
    QSet<quint64> known;
    /// Goods groups 2 to 5.
    QSet<quint64> neverCounted;
    /// How many registers have a server code.
    QHash<QString, int> registers;
};

/// The ids of the goods that transactions never count; nothing after a reported failure.
std::optional<QSet<quint64>> GetListGoodNoWrite(const Db &db);
/// Nothing after a reported failure.
std::optional<CountedGoods> readCountedGoods(const Db &db);

/// Why a line cannot be counted for its article; empty when it can.
QString articleRefusal(const CountedGoods &goods, const QString &kass, const ServerLine &line);

/// Adds a quantity (thousandths) to the article's count of a day; kass: the register's server code. Lines of
/// one article in one shop on one day add up in one row, whatever the register. False after a reported
/// failure.
bool transToCdcheks(const Db &db, const QString &kass, quint64 article, qint64 thousandths, int year,
                    int month, int day);
