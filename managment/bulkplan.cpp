#include "bulkplan.h"

#include "bulkitems.h"
#include "money.h"
#include "pastedbarcodes.h"

#include <QCoreApplication>
#include <QSet>
#include <tuple>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(BulkPlan)
};

const int toldPlaces = 5;

/// What becomes of a price, and what it is reckoned from.
struct Priced
{
    BulkVerdict verdict = BulkVerdict::Same;
    std::optional<qint64> from;
    std::optional<qint64> to;
};

Priced priced(const BulkItem &item, const BulkChoice &choice)
{
    const bool isThere = item.current.has_value();
    const bool isGroups = choice.places.value(0).first != 0;
    Priced price;
    price.from = isThere || item.beside.isEmpty() ? item.current : std::optional(item.beside.toLongLong());
    const qint64 to = price.from ? steppedPrice(*price.from, choice.step) : 0;
    if (item.isBlocked) {
        price.verdict = BulkVerdict::Blocked;
    } else if (isGroups && !isThere && !choice.createsMissing) {
        price.verdict = BulkVerdict::NoRow;
    } else if (price.from.value_or(0) == 0) {
        price.verdict = BulkVerdict::NoPrice;
    } else if (to < leastBulkPrice || to > greatestBulkPrice) {
        price.verdict = to < leastBulkPrice ? BulkVerdict::TooLow : BulkVerdict::TooHigh;
    } else {
        const bool isContrary =
            choice.step.value != 0 && (choice.step.isDown ? to > *price.from : to < *price.from);
        price.to = to;
        price.verdict = !isThere            ? BulkVerdict::Create
                        : to == *price.from ? BulkVerdict::Same
                        : isContrary        ? BulkVerdict::Contrary
                                            : BulkVerdict::Change;
    }
    return price;
}

QString verdictWords(BulkVerdict verdict)
{
    switch (verdict) {
    case BulkVerdict::Change:
        return Texts::tr("буде змінено");
    case BulkVerdict::Create:
        return Texts::tr("буде створено");
    case BulkVerdict::Contrary:
        return Texts::tr("буде змінено; заокруглення веде в інший бік");
    case BulkVerdict::Same:
        return Texts::tr("нічого не зміниться");
    case BulkVerdict::NoPrice:
        return Texts::tr("пропущено: немає ціни");
    case BulkVerdict::NoRow:
        return Texts::tr("пропущено: немає ціни групи");
    case BulkVerdict::Blocked:
        return Texts::tr("пропущено: товар заблоковано");
    case BulkVerdict::TooLow:
        return Texts::tr("пропущено: від ціни нічого не лишиться");
    case BulkVerdict::TooHigh:
        return Texts::tr("пропущено: ціна була б понад %1").arg(moneyShown(greatestBulkPrice));
    case BulkVerdict::RuleTaken:
        return Texts::tr("пропущено: у групі вже є товар з таким правилом");
    default:
        return Texts::tr("пропущено: у групі таке правило отримали б кілька товарів");
    }
}

QString cellText(const std::optional<qint64> &value)
{
    return value ? QString::number(*value) : QString();
}

/// Reads a plan, one place after the other.
class Planner
{
public:
    Planner(JobContext *context, BulkPlan *plan) : m_context(context), m_plan(plan), m_choice(plan->choice) {}

    JobResult run()
    {
        // All places at one moment.
        Transaction moment(m_context->db());
        const QVector<BulkPlace> places = m_choice.isPrice() ? m_choice.places : QVector<BulkPlace>{{0, {}}};
        if (!moment ||
            !findBarcodes(m_context->db(), m_choice.goods.barcodes, &m_goods, &m_plan->unknownBarcodes) ||
            !readHolders())
            return end();
        for (int i = 0; i < places.size(); ++i) {
            m_context->stage(places.at(i).second);
            m_context->progress(i, places.size());
            if (!readPlace(places.at(i)))
                return end();
        }
        m_plan->goodsCount = m_changed.size();
        return {JobResult::Done, {}, {}};
    }

private:
    JobResult end() const
    {
        return {m_context->isCancelled() ? JobResult::Cancelled : JobResult::Failed,
                m_context->isCancelled() ? Texts::tr("Перегляд зупинено.") : QString(),
                {}};
    }

    bool readHolders()
    {
        if (m_choice.field != BulkField::Group && m_choice.field != BulkField::Rule)
            return true;
        auto rows = m_context->db().run(ruleHoldersSql());
        if (rows)
            m_holders = ruleHoldersOf(&*rows);
        return rows.has_value();
    }

    bool readPlace(const BulkPlace &place)
    {
        auto rows = m_context->db().run(bulkItemsSql(m_choice, place.first, m_goods));
        QVector<BulkItem> items;
        while (rows && rows->next()) {
            if (m_context->isCancelled())
                return false;
            items.append(bulkItem(*rows));
        }
        for (const BulkItem &item : qAsConst(items)) {
            if (item.current != std::optional(m_choice.value))
                ++m_wanted[placeOf(item)];
        }
        for (const BulkItem &item : qAsConst(items)) {
            if (m_choice.isPrice())
                takePrice(item, place);
            else
                takeField(item);
        }
        return rows.has_value();
    }

    void takePrice(const BulkItem &item, const BulkPlace &place)
    {
        const Priced price = priced(item, m_choice);
        count(item, price.verdict,
              {item.id, place.first, item.current, price.to, m_plan->rows.rowCount(),
               item.current ? std::nullopt : price.from});
        if (isWritten(price.verdict)) {
            m_plan->sumBefore += *price.from;
            m_plan->sumThen += *price.to;
        }
        append({QString::number(item.id), item.name, item.groupName, cellText(item.base), place.second,
                cellText(price.from), cellText(price.to),
                price.to ? QString::number(*price.to - *price.from) : QString(), QString::number(item.count),
                verdictWords(price.verdict)});
    }

    RulePlace placeOf(const BulkItem &item) const
    {
        return rulePlace(m_choice.field, static_cast<DbId>(m_choice.value), item.group, item.rule);
    }

    BulkVerdict fieldVerdict(const BulkItem &item) const
    {
        if (m_choice.value < 0 || item.current == std::optional(m_choice.value))
            return BulkVerdict::Same;
        const RulePlace wanted = placeOf(item);
        if (wanted.first == 0)
            return BulkVerdict::Change;
        if (m_holders.contains(wanted))
            return BulkVerdict::RuleTaken;
        return m_wanted.value(wanted) > 1 ? BulkVerdict::RuleTwice : BulkVerdict::Change;
    }

    void takeField(const BulkItem &item)
    {
        const BulkVerdict verdict = fieldVerdict(item);
        count(item, verdict, {item.id, 0, item.current, m_choice.value, m_plan->rows.rowCount()});
        const bool isBlocking =
            verdict == BulkVerdict::Change && m_choice.field == BulkField::Block && m_choice.value != 0;
        QStringList words(verdictWords(verdict));
        if (isBlocking && item.count != 0) {
            ++m_plan->inStock;
            words.append(Texts::tr("є в залишках"));
        }
        if (isBlocking && item.isOnTheWay) {
            ++m_plan->onTheWay;
            words.append(Texts::tr("є в передачах у дорозі"));
        }
        append({QString::number(item.id), item.name, item.groupName, cellText(item.base), item.beside,
                thenWords(), words.join(QStringLiteral("; "))});
    }

    QString thenWords() const
    {
        if (m_choice.value < 0)
            return QString();
        if (m_choice.field != BulkField::Block)
            return m_choice.valueName;
        return m_choice.value == 0 ? Texts::tr("Ні") : Texts::tr("Так");
    }

    void count(const BulkItem &item, BulkVerdict verdict, const BulkChange &change)
    {
        ++m_plan->counts[verdict];
        if (!isWritten(verdict))
            return;
        m_plan->changes.append(change);
        m_changed.insert(item.id);
    }

    void append(const QStringList &cells)
    {
        std::vector<std::string> texts;
        for (const QString &cell : cells)
            texts.push_back(cell.toStdString());
        m_plan->rows.append({texts.begin(), texts.end()});
    }

    JobContext *m_context;
    BulkPlan *m_plan;
    const BulkChoice &m_choice;
    QVector<DbId> m_goods;
    RuleHolders m_holders;
    /// How many items would get a rule that only one of the group may have.
    QMap<RulePlace, int> m_wanted;
    QSet<DbId> m_changed;
};

QString changeWords(const BulkPlan &plan)
{
    if (plan.isEmpty())
        return Texts::tr("Нічого не зміниться.");
    return plan.choice.isPrice() ? Texts::tr("Зміниться цін: %1 (різних товарів: %2).")
                                       .arg(wholeShown(plan.changes.size()), wholeShown(plan.goodsCount))
                                 : Texts::tr("Зміниться товарів: %1.").arg(wholeShown(plan.changes.size()));
}
} // namespace

bool GoodsFilter::operator==(const GoodsFilter &other) const
{
    return std::tie(group, tax, blocked, words, barcodes) ==
           std::tie(other.group, other.tax, other.blocked, other.words, other.barcodes);
}

bool BulkChoice::operator==(const BulkChoice &other) const
{
    return std::tie(goods, field, step, places, priority, createsMissing, value) ==
           std::tie(other.goods, other.field, other.step, other.places, other.priority, other.createsMissing,
                    other.value);
}

bool isWritten(BulkVerdict verdict)
{
    return verdict == BulkVerdict::Change || verdict == BulkVerdict::Create ||
           verdict == BulkVerdict::Contrary;
}

int BulkPlan::verdictColumn() const
{
    return choice.isPrice() ? static_cast<int>(BulkPriceColumn::Verdict)
                            : static_cast<int>(BulkFieldColumn::Verdict);
}

JobResult planBulk(JobContext &context, const BulkChoice &choice, BulkPlan *plan)
{
    plan->choice = choice;
    return Planner(&context, plan).run();
}

QStringList bulkSummary(const BulkPlan &plan)
{
    QStringList sentences(changeWords(plan));
    if (plan.choice.isPrice() && !plan.isEmpty())
        sentences.append(Texts::tr("Сума цін: %1 → %2 (різниця %3).")
                             .arg(moneyShown(plan.sumBefore), moneyShown(plan.sumThen),
                                  moneyShown(plan.sumThen - plan.sumBefore)));
    const struct
    {
        BulkVerdict verdict;
        QString words;
    } others[] = {
        {BulkVerdict::Create, Texts::tr("З них буде створено (досі там діє ціна з іншого рядка): %1.")},
        {BulkVerdict::Contrary, Texts::tr("З них заокруглення веде в інший бік: %1.")},
        {BulkVerdict::Same, Texts::tr("Без змін: %1.")},
        {BulkVerdict::NoPrice, Texts::tr("Немає ціни: %1.")},
        {BulkVerdict::NoRow, Texts::tr("Група не має своєї ціни: %1.")},
        {BulkVerdict::Blocked, Texts::tr("Заблоковані: %1.")},
        {BulkVerdict::TooLow, Texts::tr("Нічого не лишилося б: %1.")},
        {BulkVerdict::TooHigh, Texts::tr("Завелика ціна: %1.")},
        {BulkVerdict::RuleTaken, Texts::tr("Правило вже має інший товар групи: %1.")},
        {BulkVerdict::RuleTwice, Texts::tr("Правило отримали б кілька товарів групи: %1.")}};
    for (const auto &other : others) {
        if (const int count = plan.counts.value(other.verdict); count > 0)
            sentences.append(other.words.arg(wholeShown(count)));
    }
    if (!plan.unknownBarcodes.isEmpty())
        sentences.append(unknownBarcodesWords(plan.unknownBarcodes));
    return sentences;
}

QString bulkWords(const BulkChoice &choice)
{
    if (!choice.isPrice())
        return QStringLiteral("%1: %2").arg(bulkFieldWords(choice.field), choice.valueName);
    QStringList places;
    for (const BulkPlace &place : choice.places.mid(0, toldPlaces))
        places.append(place.second);
    if (choice.places.size() > toldPlaces)
        places.append(QStringLiteral("… (%1)").arg(choice.places.size()));
    QString where = places.join(QStringLiteral(", "));
    if (choice.priority != 0 && choice.places.value(0).first != 0)
        where += Texts::tr(" (пріоритет %1)").arg(choice.priority);
    return QStringLiteral("%1: %2; %3").arg(bulkFieldWords(choice.field), stepWords(choice.step), where);
}
