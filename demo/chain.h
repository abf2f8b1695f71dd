#pragma once

#include <QDate>
#include <functional>
#include <optional>

class Db;

namespace demo {
/// How large a demo chain is and what makes it the one it is: the same plan gives the same rows.
struct ChainPlan
{
    quint64 seed = 1;
    /// The last day of trade; shifts are still open on it.
    QDate until = QDate::currentDate();
    int days = 30;
    int shopGroups = 3;
    /// The last two are the office and the warehouse.
    int shops = 12;
    int registers = 30;
    int goods = 2000;
    /// Different goods in one shop.
    int assortment = 2000;
    int cards = 500;
    int receiptsPerShift = 22;

    /// About so many times the usual volume.
    static ChainPlan scaled(int factor);
};

enum class ChainState { Empty, HalfFilled, Filled };

/// Whether there are goods in the database and the filling of them came to its end; nothing (reported)
/// when that could not be found out.
std::optional<ChainState> chainState(const Db &db);

/// Fills a database that holds the schema and its seed rows only. Failures are reported through the
/// receiver of db; what is written by then stays. progress gets a line now and then.
bool generateChain(const Db &db, const ChainPlan &plan,
                   const std::function<void(const QString &)> &progress = {});
} // namespace demo
