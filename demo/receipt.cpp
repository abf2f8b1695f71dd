#include "receipt.h"

#include "bulkinsert.h"
#include "dice.h"
#include "money.h"
#include "sqldate.h"
#include "stages.h"

#include <numeric>

namespace demo {
namespace {
enum DocumentType { Sale = 1, Discount = 2, Payment = 3, CashIn = 4, CashOut = 5, Return = 6, ShiftEnd = 10 };
constexpr int promotionType = 2;
constexpr int noPromotion = 1;

ReceiptLine makeLine(const Chain &chain, const Shop &shop, const Item &item, const QDateTime &time,
                     const Card &card, Dice *dice)
{
    ReceiptLine line;
    line.item = &item;
    line.quantity =
        item.weighed ? dice->between(15, 180) * 10 : (dice->percent(75) ? 1 : dice->between(2, 5)) * 1000;
    line.price = chain.priceOf(item, shop);
    line.sum = sumOf(line.price, line.quantity);
    const int promotionRate = chain.promotionRate(item, time);
    const int cardRate = item.discountAllowed ? card.rate : 0;
    line.discount = shareOf(line.sum, promotionRate > 0 ? promotionRate : cardRate);
    return line;
}

/// Some goods are bought far more often than others.
const Item *chooseItem(const Chain &chain, const Shop &shop, Dice *dice)
{
    const int assortment = qMin(chain.plan.assortment, chain.items.size());
    const Item *item = nullptr;
    do {
        const int k = dice->below(assortment);
        item = &chain.itemOf(shop, dice->percent(50) ? k / 8 : k);
    } while (item->blocked);
    return item;
}

void pay(Receipt *receipt, Dice *dice)
{
    const qint64 sum = receipt->toPay();
    const int way = dice->below(100);
    if (way < 52) {
        receipt->cash = sum;
    } else if (way < 94) {
        receipt->cashless = sum;
    } else if (way < 97) {
        receipt->cashless = sum / 2;
        receipt->cash = sum - receipt->cashless;
    } else {
        receipt->certificate = qMin<qint64>(sum, dice->amount(10000, 40000, 10000));
        receipt->cash = sum - receipt->certificate;
    }
}
} // namespace

Receipt makeReceipt(const Chain &chain, const Shop &shop, const QDateTime &time, Dice *dice)
{
    Receipt receipt;
    if (!chain.cards.isEmpty() && dice->percent(15))
        receipt.card = chain.cards.at(dice->below(chain.cards.size()));
    const int positions = 1 + dice->below(4) + dice->below(4);
    for (int i = 0; i < positions; ++i) {
        const Item *item = chooseItem(chain, shop, dice);
        receipt.lines.append(makeLine(chain, shop, *item, time, receipt.card, dice));
        receipt.sum += receipt.lines.last().sum;
        receipt.discount += receipt.lines.last().discount;
    }
    pay(&receipt, dice);
    return receipt;
}

qint64 ShiftTotals::grossTurnover() const
{
    return std::accumulate(std::begin(turnover), std::end(turnover), qint64(0));
}

const QString ShiftJournal::columns =
    QStringLiteral("cheks(id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,id_position,"
                   "id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,bonus_plus,strihcode,type,"
                   "id_type_action,sumdisc)");

ShiftJournal::ShiftJournal(BulkInsert *rows, const Register &reg, int shift, int user, int receipt)
    : m_rows(rows), m_register(reg), m_shift(shift), m_user(user), m_receipt(receipt)
{
}

void ShiftJournal::begin(const QDateTime &time)
{
    ++m_receipt;
    m_time = sqlDateTime(time);
}

SqlRow ShiftJournal::row(int type, int position) const
{
    SqlRow row;
    row.numbers({m_register.shop->id, m_register.id, m_shift, m_receipt, m_user});
    row.raw(m_time).numbers({type, position});
    return row;
}

void ShiftJournal::addGoods(int type, int position, const ReceiptLine &line)
{
    const Item &item = *line.item;
    const bool promoted = line.discount > 0 && item.promotion != noPromotion;
    m_rows->add(row(type, position)
                    .number(item.id)
                    .raw(item.quotedName)
                    .numbers({line.quantity, line.price, line.sum, item.tax, 0, item.discountAllowed ? 1 : 0})
                    .raw(item.quotedBarcode)
                    .numbers({item.weighed ? 0 : 1, promoted ? promotionType : noPromotion, line.discount}));
}

void ShiftJournal::addDiscount(int position, const Receipt &receipt)
{
    m_rows->add(row(Discount, position)
                    .number(receipt.card.id)
                    .text(QString())
                    .numbers({0, receipt.card.rate, receipt.discount, 0, 0, 0})
                    .null()
                    .numbers({0, 0, 0}));
}

/// The columns of an ordinary position carry how it was paid.
void ShiftJournal::addPayment(int position, const Receipt &receipt)
{
    m_rows->add(row(Payment, position)
                    .number(receipt.discount > 0 ? 1 : 0)
                    .text(QString())
                    .numbers({0, receipt.cash, receipt.toPay(), receipt.cashless, receipt.certificate, 0})
                    .null()
                    .numbers({0, 0, 0}));
}

/// The position equal to the number of goods stays free.
void ShiftJournal::sell(const Receipt &receipt, const QDateTime &time)
{
    begin(time);
    int position = 0;
    for (const ReceiptLine &line : receipt.lines) {
        addGoods(Sale, position++, line);
        m_totals.turnover[line.item->tax] += line.sum;
    }
    if (receipt.discount > 0)
        addDiscount(++position, receipt);
    addPayment(++position, receipt);
    m_totals.cash += receipt.cash;
    m_totals.cashless += receipt.cashless;
    m_totals.certificate += receipt.certificate;
    m_totals.discount += receipt.discount;
    m_totals.discountedReceipts += receipt.discount > 0 ? 1 : 0;
    ++m_totals.receipts;
}

void ShiftJournal::takeBack(const ReceiptLine &line, const QDateTime &time)
{
    begin(time);
    addGoods(Return, 0, line);
    m_totals.returned[line.item->tax] += line.sum;
    m_totals.cashReturned += line.sum;
    ++m_totals.returns;
}

void ShiftJournal::addCash(int type, int operation, const QString &name, qint64 sum, const QDateTime &time)
{
    begin(time);
    m_rows->add(
        row(type, 0).number(operation).text(name).numbers({0, 0, sum, 0, 0, 0}).null().numbers({0, 0, 0}));
}

void ShiftJournal::bringCash(qint64 sum, const QDateTime &time)
{
    addCash(CashIn, 1, QStringLiteral("Службове внесення"), sum, time);
    m_totals.broughtIn += sum;
}

void ShiftJournal::takeCash(qint64 sum, const QDateTime &time)
{
    addCash(CashOut, 2, QStringLiteral("Службове вилучення"), sum, time);
    m_totals.takenOut += sum;
}

void ShiftJournal::spendCash(qint64 sum, const QDateTime &time)
{
    addCash(CashOut, householdOperation, householdName, sum, time);
    m_totals.takenOut += sum;
}

void ShiftJournal::moveGoods(int type, const QVector<ReceiptLine> &lines, const QDateTime &time)
{
    // Where the goods come to, as the sale tab writes it: received into the store room, put out on the floor.
    constexpr int received = 7;
    constexpr int floor = 1;
    constexpr int storeRoom = 2;
    begin(time);
    for (int i = 0; i < lines.size(); ++i) {
        const Item &item = *lines.at(i).item;
        m_rows->add(
            row(type, i)
                .number(item.id)
                .raw(item.quotedName)
                .numbers({lines.at(i).quantity, 0, 0, item.tax, type == received ? storeRoom : floor, 0})
                .raw(item.quotedBarcode)
                .numbers({item.weighed ? 0 : 1, noPromotion, 0}));
    }
}

void ShiftJournal::close(const QDateTime &time)
{
    begin(time);
    const QString standard = QStringLiteral("DEFAULT");
    SqlRow end = row(ShiftEnd, 0);
    end.null().null().null().raw(standard).number(m_totals.grossTurnover() - m_totals.discount);
    for (int i = 0; i < 3; ++i)
        end.raw(standard);
    m_rows->add(end.null().null().raw(standard).raw(standard));
}
} // namespace demo
