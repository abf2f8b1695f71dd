#include "bulkinsert.h"
#include "dice.h"
#include "sqldate.h"
#include "stages.h"

namespace demo {
namespace {
/// The connection of one shop or register: an interval ends where the next one begins.
class ConnectionLog
{
public:
    ConnectionLog(BulkInsert *rows, int shop, int reg) : m_rows(rows), m_shop(shop), m_register(reg) {}

    void change(bool online, const QDateTime &time)
    {
        if (m_since.isValid())
            write(sqlDateTime(time));
        m_online = online;
        m_since = time;
    }

    /// The last interval is still open.
    void stayOpen() { write(QStringLiteral("NULL")); }

private:
    void write(const QString &end)
    {
        SqlRow row;
        row.number(m_shop);
        if (m_register > 0)
            row.number(m_register);
        else
            row.null();
        m_rows->add(row.number(m_online ? 1 : 0).raw(sqlDateTime(m_since)).raw(end));
    }

    BulkInsert *m_rows;
    int m_shop;
    int m_register;
    bool m_online = false;
    QDateTime m_since;
};

/// A shop's line is always up but for an interruption now and then; registers are switched off at night.
void logDay(ConnectionLog *log, const QDate &day, bool isRegister, bool isLastDay, Dice *dice)
{
    const auto at = [&](int hour, int spread) {
        return QDateTime(day, QTime(hour, dice->below(spread), dice->below(60)));
    };
    if (isRegister)
        log->change(true, at(7, 50));
    if (isLastDay)
        return;
    if (dice->percent(isRegister ? 15 : 10)) {
        log->change(false, at(11 + dice->below(3), 60));
        log->change(true, at(15 + dice->below(3), 60));
    }
    if (isRegister)
        log->change(false, at(21, 30));
}

void logPlace(BulkInsert *rows, const Chain &chain, const Shop &shop, int reg, bool broken)
{
    Dice dice(chain.plan.seed, 1000000ULL * static_cast<quint64>(shop.id) + static_cast<quint64>(reg));
    ConnectionLog log(rows, shop.id, reg);
    const QDate first = chain.plan.until.addDays(1 - chain.plan.days);
    if (reg == 0)
        log.change(true, QDateTime(first, QTime(6, 0)));
    int days = broken ? (chain.plan.days + 2) / 3 : chain.plan.days;
    // Off right now: it did not come back in the morning.
    if (reg % 7 == 4 && days == chain.plan.days && days > 1)
        --days;
    for (int day = 0; day < days; ++day)
        logDay(&log, first.addDays(day), reg > 0, day == chain.plan.days - 1, &dice);
    log.stayOpen();
}
} // namespace

bool fillOnline(const Db &db, const Chain &chain)
{
    BulkInsert rows(db, QStringLiteral("onoffline(id_shop,id_kass,onoff,dt_start,dt_end)"));
    for (const Shop &shop : chain.shops) {
        if (shop.sells())
            logPlace(&rows, chain, shop, 0, false);
    }
    for (const Register &reg : chain.registers)
        logPlace(&rows, chain, *reg.shop, reg.id, reg.blocked);
    return rows.finish();
}
} // namespace demo
