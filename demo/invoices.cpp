#include "bulkinsert.h"
#include "dice.h"
#include "sqldate.h"
#include "stages.h"

namespace demo {
namespace {
enum class Fate { OnTheWay, Accepted, Different, Cancelled };

/// The goods of the last days are still on the way.
Fate fateOf(int number, int daysAgo)
{
    if (daysAgo < 2)
        return Fate::OnTheWay;
    if (number % 9 == 4)
        return Fate::Cancelled;
    return number % 4 == 1 ? Fate::Different : Fate::Accepted;
}

/// Goods go from the store house to the shops, and now and then from one shop to the next.
class Transfers
{
public:
    Transfers(const Db &db, const Chain &chain)
        : m_chain(chain)
        , m_dice(chain.plan.seed, 6)
        , m_heads(db,
                  QStringLiteral("invoice(id,id_user_with,id_user_to,id_shop_with,id_shop_to,is_cash_goods,"
                                 "msg_with,msg_to,data_time_open,data_time_close)"))
        , m_lines(db, QStringLiteral("transactions_goods(id_invoice,id_good,count_send,count_accept,result)"))
    {
        for (const Shop &shop : chain.shops) {
            if (shop.sells())
                m_selling.append(&shop);
        }
    }

    bool write()
    {
        const int days = qMin(m_chain.plan.days, 14);
        for (int daysAgo = days - 1; daysAgo >= 0 && m_selling.size() > 1; --daysAgo) {
            for (int i = 0; i < 2; ++i)
                add(daysAgo);
        }
        return m_heads.finish() && m_lines.finish();
    }

private:
    void add(int daysAgo)
    {
        ++m_number;
        const Shop &to = *m_selling.at(m_number % m_selling.size());
        const Shop &from =
            m_number % 3 == 0 ? *m_selling.at((m_number + 1) % m_selling.size()) : m_chain.shops.last();
        const Fate fate = fateOf(m_number, daysAgo);
        const QDateTime sent(m_chain.plan.until.addDays(-daysAgo), QTime(7, m_dice.between(0, 59), 12));
        addHead(from, to, fate, sent);
        addLines(to, fate);
    }

    void addHead(const Shop &from, const Shop &to, Fate fate, const QDateTime &sent)
    {
        SqlRow row;
        row.numbers({m_number, userOf(from)});
        if (fate == Fate::OnTheWay)
            row.null();
        else
            row.number(userOf(fate == Fate::Cancelled ? from : to));
        row.numbers({from.id, to.id, 0});
        addText(&row, m_number % 5 == 2 ? QStringLiteral("Скло, обережно") : QString());
        addText(&row, fate == Fate::Different   ? QStringLiteral("Перераховано двічі")
                      : fate == Fate::Cancelled ? QStringLiteral("Машина не поїхала")
                                                : QString());
        row.raw(sqlDateTime(sent));
        row.raw(fate == Fate::OnTheWay ? QStringLiteral("0")
                                       : sqlDateTime(sent.addSecs(qint64(3600) * m_dice.between(2, 30))));
        m_heads.add(row);
    }

    static void addText(SqlRow *row, const QString &text)
    {
        if (text.isEmpty())
            row->null();
        else
            row->text(text);
    }

    void addLines(const Shop &to, Fate fate)
    {
        const int goods = qMin(m_chain.plan.assortment, m_chain.items.size());
        const int count = qMin(m_dice.between(3, 9), goods);
        const int first = m_dice.below(goods);
        for (int i = 0; i < count; ++i) {
            const Item &item = m_chain.itemOf(to, (first + i) % goods);
            const qint64 sent = m_dice.amount(2000, 40000, item.weighed ? 10 : 1000);
            SqlRow row;
            row.numbers({m_number, item.id, sent});
            if (fate == Fate::Accepted || (fate == Fate::Different && i > 0))
                row.numbers({sent, 1});
            else if (fate == Fate::Different)
                row.numbers({m_number % 8 == 1 ? sent + 1000 : sent - 1000, 0});
            else
                row.null().null();
            m_lines.add(row);
        }
    }

    const Chain &m_chain;
    Dice m_dice;
    BulkInsert m_heads;
    BulkInsert m_lines;
    QVector<const Shop *> m_selling;
    int m_number = 0;
};
} // namespace

bool fillInvoices(const Db &db, const Chain &chain)
{
    return Transfers(db, chain).write();
}
} // namespace demo
