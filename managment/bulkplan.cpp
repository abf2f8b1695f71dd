#include "bulkplan.h"

#include "goodsrules.h"
#include "money.h"
#include "pastedbarcodes.h"
#include "pricesql.h"

#include <QCoreApplication>
#include <QSet>
#include <tuple>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(BulkPlan)
};

const int toldPlaces = 5;

/// What a field is called, where it stands, and which table has the names of its values.
const struct
{
    BulkField field;
    const char *words;
    const char *column;
    const char *names;
} fields[] = {{BulkField::Price, QT_TRANSLATE_NOOP("BulkPlan", "Ціна"), "price", ""},
              {BulkField::Group, QT_TRANSLATE_NOOP("BulkPlan", "Група товарів"), "group_g", "group_goods"},
              {BulkField::Tax, QT_TRANSLATE_NOOP("BulkPlan", "Податкова група"), "tax", "tax"},
              {BulkField::Block, QT_TRANSLATE_NOOP("BulkPlan", "Блокування"), "block", "yesno"},
              {BulkField::Rule, QT_TRANSLATE_NOOP("BulkPlan", "Правило"), "id_rules_goods", "rules_goods"}};

const auto &lineOf(BulkField field)
{
    return fields[static_cast<int>(field)];
}

/// The columns of both statements.
enum ReadColumn {
    ReadId,
    ReadName,
    ReadBlock,
    ReadGroup,
    ReadRule,
    ReadGroupName,
    ReadBase,
    ReadCurrent,
    /// Of a price: the one in force where there is none. Of all else: the name of the value.
    ReadBeside,
    /// Of a price: how many others the item has. Of a block: whether it is in stock.
    ReadCount,
    /// Of a block: whether it is on the way between shops.
    ReadOnTheWay
};

struct Item
{
    DbId id = 0;
    QString name;
    /// As the sale asks: block=0.
    bool isBlocked = false;
    DbId group = 0;
    DbId rule = 0;
    QString groupName;
    std::optional<qint64> base;
    std::optional<qint64> current;
    QString beside;
    qint64 count = 0;
    bool isOnTheWay = false;
};

std::optional<qint64> number(const QVariant &value)
{
    return value.isNull() ? std::nullopt : std::optional(value.toLongLong());
}

Item itemOf(const QSqlQuery &row)
{
    Item item;
    item.id = row.value(ReadId).toUInt();
    item.name = toText(row.value(ReadName));
    item.isBlocked = toText(row.value(ReadBlock)) != QLatin1String("0");
    item.group = row.value(ReadGroup).toUInt();
    item.rule = row.value(ReadRule).toUInt();
    item.groupName = toText(row.value(ReadGroupName));
    item.base = number(row.value(ReadBase));
    item.current = number(row.value(ReadCurrent));
    item.beside = toText(row.value(ReadBeside));
    item.count = row.value(ReadCount).toLongLong();
    item.isOnTheWay = row.value(ReadOnTheWay).toBool();
    return item;
}

/// Beside others a short number is a weight or a size, which some place of nearly every barcode holds.
QString wordsCondition(const QString &words)
{
    const int shortestPartOfBarcode = 6;
    QString all;
    const QStringList each = wordsOf(words);
    for (const QString &word : each) {
        const QString barcode =
            word.size() >= shortestPartOfBarcode
                ? QStringLiteral(" OR EXISTS(SELECT 1 FROM dk_shc WHERE dk_shc.id_goods=goods.id AND "
                                 "dk_shc.shtrihcod LIKE %1)")
                : QString();
        all +=
            QStringLiteral(" AND ") +
            likeWords(QStringLiteral("(goods.name LIKE %1 OR goods.name_short LIKE %1 OR goods.id LIKE %1") +
                          barcode + QLatin1Char(')'),
                      word);
    }
    return all;
}

QString goodsCondition(const GoodsFilter &filter, const QVector<DbId> &goods)
{
    QString condition = QStringLiteral("1");
    if (!filter.barcodes.isEmpty())
        condition = QStringLiteral("goods.id IN (%1)").arg(idList(goods));
    if (filter.group != 0)
        condition += QStringLiteral(" AND goods.group_g=%1").arg(filter.group);
    if (filter.tax != 0)
        condition += QStringLiteral(" AND goods.tax=%1").arg(filter.tax);
    if (filter.blocked != GoodsFilter::Any)
        condition += filter.blocked == GoodsFilter::Sold ? QStringLiteral(" AND goods.block=0")
                                                         : QStringLiteral(" AND NOT goods.block<=>0");
    return condition + wordsCondition(filter.words);
}

struct Parts
{
    QString current;
    QString beside = QStringLiteral("NULL");
    QString count = QStringLiteral("NULL");
    QString onTheWay = QStringLiteral("NULL");
    QString join;
};

Parts priceParts(const BulkChoice &choice, DbId place)
{
    const QString all = QStringLiteral("(SELECT COUNT(*) FROM prices o WHERE o.id_goods=goods.id)");
    if (place == 0)
        return {QStringLiteral("goods.price"), QStringLiteral("NULL"), all, QStringLiteral("NULL"), {}};
    return {QStringLiteral("listed.price"),
            choice.createsMissing ? QStringLiteral("IF(listed.price IS NULL,%1,NULL)")
                                        .arg(resolvedGroupPriceSql(place, choice.priority))
                                  : QStringLiteral("NULL"),
            all + QStringLiteral("-(listed.price IS NOT NULL)"), QStringLiteral("NULL"),
            QStringLiteral(" LEFT JOIN prices listed ON listed.id_goods=goods.id AND listed.id_shop=0 AND "
                           "listed.id_group=%1 AND listed.priority=%2")
                .arg(place)
                .arg(choice.priority)};
}

Parts fieldParts(const BulkChoice &choice)
{
    const auto &line = lineOf(choice.field);
    Parts parts;
    parts.current = QStringLiteral("goods.") + QLatin1String(line.column);
    parts.beside = QStringLiteral("named.name");
    parts.join =
        QStringLiteral(" LEFT JOIN %1 named ON named.id=%2").arg(QLatin1String(line.names), parts.current);
    if (choice.field != BulkField::Block)
        return parts;
    parts.count = QStringLiteral("EXISTS(SELECT 1 FROM goods_shop WHERE goods_shop.id_goods=goods.id AND "
                                 "(count_showroom<>0 OR count_syllable<>0))");
    parts.onTheWay =
        QStringLiteral("EXISTS(SELECT 1 FROM transactions_goods JOIN invoice ON invoice.id=id_invoice WHERE "
                       "id_good=goods.id AND IFNULL(invoice.data_time_close=0,1))");
    return parts;
}

QString readSql(const BulkChoice &choice, DbId place, const QVector<DbId> &goods)
{
    const Parts parts = choice.isPrice() ? priceParts(choice, place) : fieldParts(choice);
    return QStringLiteral("SELECT goods.id,goods.name,goods.block,goods.group_g,goods.id_rules_goods,"
                          "group_goods.name,goods.price,") +
           QStringList{parts.current, parts.beside, parts.count, parts.onTheWay}.join(QLatin1Char(',')) +
           QStringLiteral(" FROM goods LEFT JOIN group_goods ON group_goods.id=goods.group_g") + parts.join +
           QStringLiteral(" WHERE ") + goodsCondition(choice.goods, goods) +
           QStringLiteral(" ORDER BY goods.id");
}

/// What becomes of a price, and what it is reckoned from.
struct Priced
{
    BulkVerdict verdict = BulkVerdict::Same;
    std::optional<qint64> from;
    std::optional<qint64> to;
};

Priced priced(const Item &item, const BulkChoice &choice)
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

/// Where an item would stand with a rule that only one of its group may have; 0, 0 for none.
QPair<DbId, DbId> wantedRule(const Item &item, const BulkChoice &choice)
{
    const auto value = static_cast<DbId>(choice.value);
    const DbId group = choice.field == BulkField::Group ? value : item.group;
    const DbId rule = choice.field == BulkField::Rule ? value : item.rule;
    const bool isMoved = choice.field == BulkField::Group || choice.field == BulkField::Rule;
    return isMoved && group != 0 && isExclusiveRule(rule) ? qMakePair(group, rule) : QPair<DbId, DbId>(0, 0);
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
        auto rows = m_context->db().run(readSql(m_choice, place.first, m_goods));
        QVector<Item> items;
        while (rows && rows->next()) {
            if (m_context->isCancelled())
                return false;
            items.append(itemOf(*rows));
        }
        for (const Item &item : qAsConst(items)) {
            if (item.current != std::optional(m_choice.value))
                ++m_wanted[wantedRule(item, m_choice)];
        }
        for (const Item &item : qAsConst(items)) {
            if (m_choice.isPrice())
                takePrice(item, place);
            else
                takeField(item);
        }
        return rows.has_value();
    }

    void takePrice(const Item &item, const BulkPlace &place)
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

    BulkVerdict fieldVerdict(const Item &item) const
    {
        if (m_choice.value < 0 || item.current == std::optional(m_choice.value))
            return BulkVerdict::Same;
        const QPair<DbId, DbId> wanted = wantedRule(item, m_choice);
        if (wanted.first == 0)
            return BulkVerdict::Change;
        if (m_holders.contains(wanted))
            return BulkVerdict::RuleTaken;
        return m_wanted.value(wanted) > 1 ? BulkVerdict::RuleTwice : BulkVerdict::Change;
    }

    void takeField(const Item &item)
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

    void count(const Item &item, BulkVerdict verdict, const BulkChange &change)
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
    QMap<QPair<DbId, DbId>, int> m_wanted;
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

QString bulkColumn(BulkField field)
{
    return QLatin1String(lineOf(field).column);
}

QString bulkFieldWords(BulkField field)
{
    return Texts::tr(lineOf(field).words);
}

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

QString ruleHoldersSql()
{
    return QStringLiteral("SELECT group_g,id_rules_goods,id FROM goods WHERE id_rules_goods BETWEEN 2 AND 4");
}

RuleHolders ruleHoldersOf(QSqlQuery *rows)
{
    RuleHolders holders;
    while (rows->next())
        holders.insert({rows->value(0).toUInt(), rows->value(1).toUInt()}, rows->value(2).toUInt());
    return holders;
}
