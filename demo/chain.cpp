#include "chain.h"

#include "qupdatebd.h"
#include "stages.h"

namespace demo {
namespace {
/// New rows need no look at each other while they are filled in; the keys that refer to other tables are
/// checked all the same.
class FastInserts
{
public:
    explicit FastInserts(const Db &db) : m_db(db) { set(0); }
    ~FastInserts() { set(1); }
    Q_DISABLE_COPY(FastInserts)

private:
    void set(int checks) const { m_db.run(QStringLiteral("SET SESSION unique_checks=%1").arg(checks)); }

    const Db m_db;
};

bool isUsable(const ChainPlan &plan)
{
    return plan.until.isValid() && plan.days > 0 && plan.shopGroups > 0 && plan.shops > 2 &&
           plan.registers > 0 && plan.goods > 0 && plan.assortment > 0 && plan.cards >= 0 &&
           plan.receiptsPerShift > 0;
}

/// Programs that are open on this database read their lists anew.
bool announce(const Db &db)
{
    return QUpdateBD().update(QStringList{"group_shop", "group_goods", "slujb_op", "shops", "kassa", "users",
                                          "goods", "dk_shc", "prices", "action", "goods_shop", "procent",
                                          "clients", "group_premission", "comands", "devices", "invoice",
                                          "transactions_goods"},
                              *db.connection(), db.receiver());
}
} // namespace

ChainPlan ChainPlan::scaled(int factor)
{
    ChainPlan plan;
    plan.shops = (plan.shops - 2) * factor + 2;
    plan.registers *= factor;
    plan.goods *= factor;
    plan.cards *= factor;
    return plan;
}

std::optional<ChainState> chainState(const Db &db)
{
    const auto goods =
        db.firstText(QStringLiteral("SELECT COUNT(*) FROM (SELECT id FROM goods LIMIT 1) AS one"));
    const auto shops =
        db.firstText(QStringLiteral("SELECT COUNT(*) FROM (SELECT id FROM shops LIMIT 1) AS one"));
    const auto unfinished =
        db.firstText(QStringLiteral("SELECT COUNT(*) FROM users WHERE login='admin' AND pass=''"));
    if (!goods || !shops || !unfinished)
        return std::nullopt;
    if (*goods == QLatin1String("0") && *shops == QLatin1String("0"))
        return ChainState::Empty;
    return *unfinished == QLatin1String("0") ? ChainState::Filled : ChainState::HalfFilled;
}

bool generateChain(const Db &db, const ChainPlan &plan, const std::function<void(const QString &)> &progress)
{
    if (!isUsable(plan))
        return false;
    const auto say = [&](const QString &text) {
        if (progress)
            progress(text);
        return true;
    };
    const FastInserts fast(db);
    Chain chain;
    chain.plan = plan;
    return say(QStringLiteral("Shops, registers, users, cards")) && fillPlaces(db, &chain) &&
           fillUsers(db, chain) && fillPermissionGroups(db, chain) && fillStaff(db) && fillDevices(db) &&
           fillCards(db, &chain) && say(QStringLiteral("Goods, prices, stock")) && fillGoods(db, &chain) &&
           fillStock(db, chain) && say(QStringLiteral("Receipts and shifts")) && fillShifts(db, chain, say) &&
           fillOnline(db, chain) && fillInvoices(db, chain) && fillCash(db, chain) &&
           fillAttention(db, chain) && announce(db) && setAdministratorPassword(db);
}
} // namespace demo
