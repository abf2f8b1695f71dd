#include "bulkinsert.h"
#include "dice.h"
#include "sqldate.h"
#include "stages.h"

#include <algorithm>

namespace demo {
const QString householdName = QStringLiteral("Господарські витрати");

namespace {
enum class Fate { OnTheWay, Accepted, Less, More, Cancelled };
/// Behind the invoices of goods.
constexpr int firstInvoice = 501;

/// What left the shops on the last day is still on the way.
Fate fateOf(int number, int daysAgo)
{
    if (daysAgo < 1)
        return Fate::OnTheWay;
    switch (number % 11) {
    case 3:
        return Fate::Less;
    case 6:
        return Fate::Cancelled;
    case 8:
        return Fate::More;
    default:
        return Fate::Accepted;
    }
}

const Shop &officeOf(const Chain &chain)
{
    const auto office = std::find_if(chain.shops.begin(), chain.shops.end(),
                                     [](const Shop &shop) { return shop.dayCycle < 0; });
    return office == chain.shops.end() ? chain.shops.last() : *office;
}

QString messageFrom(int number)
{
    return number % 3 == 0 ? QStringLiteral("Везе інкасатор") : QString();
}

QString messageTo(Fate fate)
{
    switch (fate) {
    case Fate::Less:
        return QStringLiteral("Перераховано двічі, купюри не вистачає");
    case Fate::More:
        return QStringLiteral("Зайва купюра");
    case Fate::Cancelled:
        return QStringLiteral("Машина не приїхала");
    case Fate::OnTheWay:
    case Fate::Accepted:
        break;
    }
    return QString();
}

SqlRow &textOrNull(SqlRow *row, const QString &text)
{
    return text.isEmpty() ? row->null() : row->text(text);
}

SqlRow transfer(int number, const Shop &from, const Shop &to, qint64 sum, const QDateTime &sent, Fate fate)
{
    SqlRow row;
    row.numbers({firstInvoice + number, userOf(from)});
    const bool isOpen = fate == Fate::OnTheWay;
    const bool isAccepted = !isOpen && fate != Fate::Cancelled;
    if (isOpen)
        row.null();
    else
        row.number(userOf(isAccepted ? to : from));
    row.numbers({from.id, to.id, 1, sum});
    if (isAccepted)
        row.number(fate == Fate::Less ? sum - 10000 : fate == Fate::More ? sum + 5000 : sum);
    else
        row.null();
    textOrNull(&row, messageFrom(number));
    textOrNull(&row, messageTo(fate));
    row.raw(sqlDateTime(sent));
    row.raw(isOpen ? QStringLiteral("0") : sqlDateTime(sent.addSecs(qint64(1800) * (2 + number % 7))));
    return row;
}

/// In the morning the shops send what they have to the office, each every third day.
bool fillTransfers(const Db &db, const Chain &chain)
{
    BulkInsert rows(db,
                    QStringLiteral("invoice(id,id_user_with,id_user_to,id_shop_with,id_shop_to,is_cash_goods,"
                                   "cash_send,cash_accept,msg_with,msg_to,data_time_open,data_time_close)"));
    Dice dice(chain.plan.seed, 7);
    const Shop &office = officeOf(chain);
    int number = 0;
    for (int daysAgo = qMin(chain.plan.days, 30) - 1; daysAgo >= 0; --daysAgo) {
        const QDate day = chain.plan.until.addDays(-daysAgo);
        for (const Shop &shop : chain.shops) {
            if (!shop.sells() || shop.id == office.id || (shop.id + day.toJulianDay()) % 3 != 0)
                continue;
            const qint64 sum = dice.amount(200000, 1500000, 10000);
            const QDateTime sent(day, QTime(7, dice.between(0, 59), 41));
            rows.add(transfer(number, shop, office, sum, sent, fateOf(number, daysAgo)));
            ++number;
        }
    }
    return rows.finish();
}
} // namespace

bool fillCash(const Db &db, const Chain &chain)
{
    BulkInsert operations(db, QStringLiteral("slujb_op(id,name,plus_minus)"));
    operations.add(SqlRow().number(householdOperation).text(householdName).number(0));
    return operations.finish() && fillTransfers(db, chain);
}
} // namespace demo
