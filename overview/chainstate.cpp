#include "chainstate.h"

#include "overviewsql.h"
#include "rowstore.h"
#include "sqldate.h"

#include <algorithm>

namespace {
constexpr qint64 hourSeconds = 3600;
constexpr qint64 daySeconds = 24 * hourSeconds;
constexpr int weekDays = 7;

/// The cells of a row by their number.
class Row
{
public:
    Row(const RowStore &rows, int row) : m_rows(rows), m_row(row) {}

    QString text(int column) const
    {
        const std::string_view cell = m_rows.cell(m_row, column);
        return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
    }
    qint64 number(int column) const { return text(column).toLongLong(); }
    DbId id(int column) const { return text(column).toUInt(); }
    QDateTime time(int column) const { return databaseTime(text(column)); }

private:
    const RowStore &m_rows;
    int m_row;
};

OverviewRegister readRegister(const Row &row)
{
    using namespace PlaceColumn;
    OverviewRegister reg;
    reg.id = row.id(Kass);
    reg.name = row.text(KassName);
    if (reg.name.isEmpty())
        reg.name = QStringLiteral("№ %1").arg(reg.id);
    reg.isBlocked = row.number(KassBlock) != 0;
    // "2026-03-01 08:00:00 1": the interval that was begun last counts.
    const QString line = row.text(Line);
    if (!line.isEmpty()) {
        reg.line = line.endsWith(QLatin1Char('1')) ? OverviewRegister::Line::On : OverviewRegister::Line::Off;
        reg.lineSince = databaseTime(line);
    }
    return reg;
}

void readPlaces(ChainState *chain, const RowStore &places)
{
    using namespace PlaceColumn;
    for (int i = 0; i < places.rowCount(); ++i) {
        const Row row(places, i);
        chain->isTuned = row.number(Tuned) == 2;
        chain->steps = {row.number(HasShops) != 0, row.number(HasRegisters) != 0, row.number(HasGoods) != 0,
                        row.number(HasStock) != 0, row.number(HasShifts) != 0};
        const DbId shop = row.id(Shop);
        if (shop == 0)
            continue;
        if (chain->shops.isEmpty() || chain->shops.constLast().id != shop)
            chain->shops.append({shop, row.text(Address), row.number(ShopBlock) != 0, {}});
        if (row.id(Kass) != 0)
            chain->shops.last().registers.append(readRegister(row));
    }
}

OverviewShift readShift(const Row &row)
{
    using namespace ShiftColumn;
    OverviewShift shift;
    shift.key = {row.id(Kass), row.id(Number)};
    shift.shop = row.id(Shop);
    shift.user = row.text(User).trimmed();
    shift.closed = row.time(Closed);
    shift.sold = row.number(Sold);
    shift.discount = row.number(Discount);
    shift.paid = row.number(Paid);
    shift.returned = row.number(Returned);
    shift.returnedDiscount = row.number(ReturnedDiscount);
    shift.paidBack = row.number(PaidBack);
    shift.receipts = row.number(Receipts);
    shift.closedBefore = row.time(ClosedBefore);
    return shift;
}

/// Where the registers stand among the shops.
class Registers
{
public:
    explicit Registers(ChainState *chain) : m_chain(chain)
    {
        for (int shop = 0; shop < chain->shops.size(); ++shop) {
            m_shops.insert(chain->shops.at(shop).id, shop);
            const QVector<OverviewRegister> &registers = chain->shops.at(shop).registers;
            for (int reg = 0; reg < registers.size(); ++reg)
                m_places.insert(registers.at(reg).id, {shop, reg});
        }
    }

    /// The register of a shift; made in the shift's shop when no shop has it; null when that is not seen
    /// either.
    OverviewRegister *of(const OverviewShift &shift)
    {
        const DbId kass = shift.key.first;
        if (!m_places.contains(kass)) {
            const int shop = m_shops.value(shift.shop, -1);
            if (shop < 0)
                return nullptr;
            OverviewRegister reg;
            reg.id = kass;
            reg.name = QStringLiteral("№ %1").arg(kass);
            reg.isBlocked = true;
            reg.line = OverviewRegister::Line::Elsewhere;
            m_places.insert(kass, {shop, m_chain->shops.at(shop).registers.size()});
            m_chain->shops[shop].registers.append(reg);
        }
        const auto [shop, reg] = m_places.value(kass);
        return &m_chain->shops[shop].registers[reg];
    }

private:
    ChainState *m_chain;
    QHash<DbId, int> m_shops;
    QHash<DbId, QPair<int, int>> m_places;
};

void makeDays(ChainState *chain)
{
    for (int back = drawnDays - 1; back >= 0; --back)
        chain->days.append({chain->today.addDays(-back), 0, 0});
}

void addToDay(ChainState *chain, const OverviewShift &shift)
{
    const QDate day = shift.isOpen() ? chain->today : shift.closed.date();
    const qint64 index = chain->days.constFirst().day.daysTo(day);
    // A register whose clock is ahead closes in days to come.
    if (index < 0 || index >= chain->days.size())
        return;
    OverviewDay &state = chain->days[static_cast<int>(index)];
    state.turnover += shift.turnover();
    ++state.shifts;
}

void addShift(ChainState *chain, OverviewRegister *reg, const OverviewShift &shift)
{
    addToDay(chain, shift);
    if (!shift.isOpen() && shift.disagrees())
        chain->disagreeing.append(shift.key);
    if (reg == nullptr)
        return;
    if (shift.isOpen())
        reg->open.append(shift);
    else if (shift.closed.date() == chain->today)
        reg->closedToday += shift.turnover();
    else if (shift.closed.date() == chain->today.addDays(-weekDays))
        reg->weekAgo += shift.turnover();
}

bool isIdle(const OverviewRegister &reg)
{
    return reg.isBlocked && reg.open.isEmpty() && reg.weekAgo == 0 && reg.closedToday == 0;
}

void leaveOutIdle(ChainState *chain)
{
    for (OverviewShop &shop : chain->shops) {
        QVector<OverviewRegister> &all = shop.registers;
        all.erase(std::remove_if(all.begin(), all.end(), isIdle), all.end());
    }
    QVector<OverviewShop> &shops = chain->shops;
    const auto isClosed = [](const OverviewShop &shop) {
        return shop.isBlocked &&
               std::all_of(shop.registers.begin(), shop.registers.end(), [](const OverviewRegister &reg) {
                   return reg.open.isEmpty() && reg.weekAgo == 0 && reg.closedToday == 0;
               });
    };
    shops.erase(std::remove_if(shops.begin(), shops.end(), isClosed), shops.end());
}
} // namespace

ChainState chainState(const RowStore &places, const RowStore &shifts, const QDate &today)
{
    ChainState chain;
    chain.today = today;
    readPlaces(&chain, places);
    makeDays(&chain);
    Registers registers(&chain);
    for (int i = 0; i < shifts.rowCount(); ++i) {
        const OverviewShift shift = readShift(Row(shifts, i));
        addShift(&chain, registers.of(shift), shift);
    }
    leaveOutIdle(&chain);
    return chain;
}

void addReceiptTimes(ChainState *chain, const ReceiptTimes &times)
{
    for (OverviewShop &shop : chain->shops) {
        for (OverviewRegister &reg : shop.registers) {
            reg.lastReceipt = times.last.value(reg.id);
            for (OverviewShift &shift : reg.open)
                shift.begun = times.begun.value(shift.key);
        }
    }
}

qint64 StateSums::averageReceipt() const
{
    return receipts <= 0 ? 0 : (turnover + receipts / 2) / receipts;
}

void StateSums::add(const StateSums &other)
{
    shifts += other.shifts;
    turnover += other.turnover;
    closedToday += other.closedToday;
    weekAgo += other.weekAgo;
    receipts += other.receipts;
    registers += other.registers;
    onLine += other.onLine;
    if (other.lastReceipt.isValid() && (!lastReceipt.isValid() || other.lastReceipt > lastReceipt))
        lastReceipt = other.lastReceipt;
}

StateSums sumsOf(const OverviewRegister &reg)
{
    StateSums sums;
    for (const OverviewShift &shift : reg.open) {
        sums.turnover += shift.turnover();
        sums.receipts += shift.receipts;
    }
    sums.shifts = reg.open.size();
    sums.closedToday = reg.closedToday;
    sums.weekAgo = reg.weekAgo;
    sums.lastReceipt = reg.lastReceipt;
    sums.registers = reg.isBlocked ? 0 : 1;
    sums.onLine = !reg.isBlocked && reg.line == OverviewRegister::Line::On ? 1 : 0;
    return sums;
}

StateSums sumsOf(const OverviewShop &shop)
{
    StateSums sums;
    for (const OverviewRegister &reg : shop.registers)
        sums.add(sumsOf(reg));
    return sums;
}

StateSums sumsOf(const ChainState &chain)
{
    StateSums sums;
    for (const OverviewShop &shop : chain.shops)
        sums.add(sumsOf(shop));
    return sums;
}

QVector<OverviewShift> openShifts(const ChainState &chain)
{
    QVector<OverviewShift> shifts;
    for (const OverviewShop &shop : chain.shops) {
        for (const OverviewRegister &reg : shop.registers)
            shifts += reg.open;
    }
    return shifts;
}

QVector<ShiftKey> oldShifts(const ChainState &chain, const QDateTime &now)
{
    QVector<ShiftKey> keys;
    for (const OverviewShift &shift : openShifts(chain)) {
        const QDateTime since = shift.begun.isValid() ? shift.begun : shift.closedBefore;
        if (since.isValid() && since.secsTo(now) > daySeconds)
            keys.append(shift.key);
    }
    return keys;
}

QVector<DbId> silentRegisters(const ChainState &chain, const QDateTime &now)
{
    QVector<DbId> ids;
    for (const OverviewShop &shop : chain.shops) {
        for (const OverviewRegister &reg : shop.registers) {
            if (!shop.isBlocked && !reg.isBlocked && reg.line == OverviewRegister::Line::Off &&
                reg.lineSince.secsTo(now) >= hourSeconds)
                ids.append(reg.id);
        }
    }
    return ids;
}
