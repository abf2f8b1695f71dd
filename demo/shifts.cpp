#include "bulkinsert.h"
#include "dice.h"
#include "receipt.h"
#include "sqldate.h"
#include "stages.h"

namespace demo {
namespace {
constexpr int openingHour = 8;
constexpr int closingHour = 21;
/// The last day is only begun: its shifts end at noon or are still open.
constexpr int lastDayHour = 12;
constexpr int goodsReceived = 7;
constexpr int goodsMoved = 8;

enum class LastDay { Closed, Open, NotBegun };

LastDay lastDayOf(const Register &reg)
{
    static constexpr LastDay ways[] = {LastDay::NotBegun, LastDay::Closed, LastDay::NotBegun, LastDay::Open,
                                       LastDay::Closed};
    return ways[reg.id % 5];
}

/// What is left in the drawer for the next shift, to give change.
qint64 keptCash(const Register &reg)
{
    return reg.id % 15 == 8 ? 30000 : 0;
}

QVector<ReceiptLine> delivery(const Chain &chain, const Shop &shop, Dice *dice)
{
    QVector<ReceiptLine> lines;
    for (int i = 0; i < 8; ++i) {
        const Item &item = chain.itemOf(shop, dice->below(qMin(chain.plan.assortment, chain.items.size())));
        const qint64 pieces = dice->between(5, 60);
        // What is weighed comes in crates of so many kilograms and a bit.
        lines.append({&item, pieces * (item.weighed ? 1050 : 1000), item.price, 0, 0});
    }
    return lines;
}

/// The shifts of one register, day by day.
class RegisterHistory
{
public:
    RegisterHistory(const Chain &chain, const Register &reg, BulkInsert *receipts, BulkInsert *shifts)
        : m_chain(chain)
        , m_register(reg)
        , m_receipts(receipts)
        , m_shifts(shifts)
        , m_dice(chain.plan.seed, 10000000ULL + static_cast<quint64>(reg.id))
    {
    }

    void write()
    {
        const ChainPlan &plan = m_chain.plan;
        const int days = m_register.blocked ? plan.days / 3 : plan.days;
        for (int day = 0; day < days; ++day) {
            const bool isLast = day == plan.days - 1;
            if (isLast ? lastDayOf(m_register) != LastDay::NotBegun : m_dice.percent(97))
                writeShift(plan.until.addDays(day + 1 - plan.days), isLast);
        }
    }

private:
    void writeShift(const QDate &day, bool isLast)
    {
        ++m_shift;
        ShiftJournal journal(m_receipts, m_register, m_shift, userOf(*m_register.shop), m_lastReceipt);
        const QDateTime opening(day, QTime(openingHour, 0));
        const QDateTime closing(day, QTime(isLast ? lastDayHour : closingHour, 0));
        journal.bringCash(m_dice.amount(30000, 100000, 10000), opening.addSecs(-300));
        writeDocuments(&journal, day);
        writeSales(&journal, opening, closing, isLast);
        const bool isOpen = isLast && lastDayOf(m_register) == LastDay::Open;
        if (!isOpen) {
            journal.takeCash(qMax<qint64>(journal.totals().cashInDrawer() - keptCash(m_register), 0),
                             closing.addSecs(120));
            journal.close(closing.addSecs(300));
        }
        addShiftRow(journal.totals(), isOpen ? QStringLiteral("0") : sqlDateTime(closing.addSecs(300)));
        m_lastReceipt = journal.lastReceipt();
    }

    /// Goods come on Tuesdays and are put out on Fridays, both at a shop's first register.
    void writeDocuments(ShiftJournal *journal, const QDate &day)
    {
        const bool isFirst = m_register.id <= m_chain.plan.shops - 2;
        const int type = day.dayOfWeek() == 2 ? goodsReceived : (day.dayOfWeek() == 5 ? goodsMoved : 0);
        if (isFirst && type != 0)
            journal->moveGoods(type, delivery(m_chain, *m_register.shop, &m_dice),
                               QDateTime(day, QTime(7, 58)));
    }

    void writeSales(ShiftJournal *journal, const QDateTime &opening, const QDateTime &closing, bool isLast)
    {
        const int usual = m_chain.plan.receiptsPerShift;
        const int count = (isLast ? (usual + 2) / 3 : usual * m_dice.between(80, 120) / 100) + 1;
        const int gap = static_cast<int>(opening.secsTo(closing)) / (count + 1);
        bool wantsReturn = m_dice.percent(15);
        for (int i = 0; i < count; ++i) {
            const QDateTime time = opening.addSecs(i * gap + m_dice.below(gap / 2));
            const Receipt receipt = makeReceipt(m_chain, *m_register.shop, time, &m_dice);
            journal->sell(receipt, time);
            if (i == count / 2)
                spendCash(journal, time.addSecs(gap / 4));
            if (wantsReturn && i >= count / 2)
                wantsReturn = !tryReturn(journal, receipt, time.addSecs(gap / 3));
        }
    }

    /// On Wednesdays something is bought for the shop.
    static void spendCash(ShiftJournal *journal, const QDateTime &time)
    {
        constexpr qint64 sum = 18500;
        if (time.date().dayOfWeek() == 3 && journal->totals().cashInDrawer() > sum)
            journal->spendCash(sum, time);
    }

    /// Only what was bought without discount and for cash is taken back.
    static bool tryReturn(ShiftJournal *journal, const Receipt &receipt, const QDateTime &time)
    {
        if (receipt.discount > 0 || receipt.cash < receipt.sum)
            return false;
        journal->takeBack(receipt.lines.first(), time);
        return true;
    }

    void addShiftRow(const ShiftTotals &totals, const QString &closed)
    {
        SqlRow row;
        const int day = (m_shift - 1) % m_register.shop->dayCycle + 1;
        row.numbers({m_shift, m_register.shop->id, m_register.id, userOf(*m_register.shop), 0, day});
        row.numbers({totals.cash, totals.cashless, totals.certificate, 0});
        for (int tax = 1; tax <= 5; ++tax)
            row.number(totals.turnover[tax]);
        row.numbers({totals.cashReturned, 0, 0, 0});
        for (int tax = 1; tax <= 5; ++tax)
            row.number(totals.returned[tax]);
        row.raw(m_chain.taxRates);
        const bool isClosed = closed != QLatin1String("0");
        row.numbers({totals.receipts, totals.returns, totals.discountedReceipts,
                     isClosed ? m_dice.below(4) : 0, isClosed ? m_dice.below(2) : 0, totals.discount,
                     isClosed ? totals.broughtIn : 0, totals.takenOut});
        m_shifts->add(row.raw(closed));
    }

    const Chain &m_chain;
    const Register &m_register;
    BulkInsert *m_receipts;
    BulkInsert *m_shifts;
    Dice m_dice;
    int m_shift = 0;
    int m_lastReceipt = 0;
};

const QString shiftColumns = QStringLiteral(
    "z_zvit(id_zzvit,id_shop,id_kass,id_user,id_period,day,cash,beznal_1,beznal_2,beznal_3,Oborot_A,Oborot_B,"
    "Oborot_V,Oborot_G,Oborot_D,cash_ret,beznal_1_ret,beznal_2_ret,beznal_3_ret,Oborot_A_ret,Oborot_B_ret,"
    "Oborot_V_ret,Oborot_G_ret,Oborot_D_ret,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,DOD_D,"
    "count_cheks,count_cheks_ret,count_chek_diskount,count_position_canc,count_chek_canc,summ_diskount,vnesenia,"
    "viluchenia,data_time)");
} // namespace

/// A shop with an open shift is on the last day of its period.
static bool endPeriod(const Db &db, const Chain &chain)
{
    const Shop *shop = nullptr;
    for (const Register &reg : chain.registers) {
        if (lastDayOf(reg) == LastDay::Open && !reg.blocked && reg.shop->dayCycle > 1)
            shop = reg.shop;
    }
    return shop == nullptr ||
           db.run(QStringLiteral(
                      "UPDATE z_zvit JOIN (SELECT id_kass,MAX(id_zzvit) AS id_zzvit FROM z_zvit WHERE "
                      "id_shop=%1 GROUP BY id_kass) newest USING(id_kass) SET "
                      "day=%2-MOD(newest.id_zzvit-z_zvit.id_zzvit,%2)")
                      .arg(shop->id)
                      .arg(shop->dayCycle))
               .has_value();
}

bool fillShifts(const Db &db, const Chain &chain, const std::function<void(const QString &)> &progress)
{
    BulkInsert receipts(db, ShiftJournal::columns);
    BulkInsert shifts(db, shiftColumns);
    int written = 0;
    for (const Register &reg : chain.registers) {
        RegisterHistory(chain, reg, &receipts, &shifts).write();
        if (++written % 30 == 0) {
            progress(QStringLiteral("Receipts of %1 of %2 registers: %3 lines")
                         .arg(written)
                         .arg(chain.registers.size())
                         .arg(receipts.rows()));
        }
    }
    return receipts.finish() && shifts.finish() && endPeriod(db, chain);
}
} // namespace demo
