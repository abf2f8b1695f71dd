#include "actionplan.h"

#include "money.h"
#include "pastedbarcodes.h"
#include "pricesql.h"
#include "receipt.h"

#include <QCoreApplication>
#include <QSet>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActionPlan)
};

const DbId noAction = 1;
const int firstServiceGroup = 2;
const int lastServiceGroup = 5;

/// The columns of the statement of a shop.
enum ReadColumn {
    ReadGoods,
    ReadName,
    ReadBlock,
    ReadGroup,
    ReadAction,
    ReadActionName,
    ReadValue,
    ReadTimes,
    ReadPrice
};

struct ReadItem
{
    DbId goods = 0;
    QString name;
    bool isBlocked = false;
    int group = 0;
    /// 0 when the shop does not have it.
    DbId action = 0;
    QString actionName;
    qint64 value = 0;
    ActionTimes times;
    bool hasPrice = false;
    qint64 price = 0;
};

ReadItem itemOf(const QSqlQuery &row)
{
    ReadItem item;
    item.goods = row.value(ReadGoods).toUInt();
    item.name = toText(row.value(ReadName));
    // As the sale asks: block=0.
    item.isBlocked = toText(row.value(ReadBlock)) != QLatin1String("0");
    item.group = row.value(ReadGroup).toInt();
    item.action = row.value(ReadAction).toUInt();
    item.actionName = toText(row.value(ReadActionName));
    item.value = row.value(ReadValue).toLongLong();
    item.times = actionTimes(toText(row.value(ReadTimes)));
    item.hasPrice = !row.value(ReadPrice).isNull();
    item.price = row.value(ReadPrice).toLongLong();
    return item;
}

QString goodsCondition(const ActionChoice &choice, const QVector<DbId> &goods)
{
    QStringList conditions;
    if (!choice.barcodes.isEmpty())
        conditions.append(QStringLiteral("goods.id IN (%1)").arg(idList(goods)));
    if (choice.goodsGroup != 0)
        conditions.append(QStringLiteral("goods.group_g=%1").arg(choice.goodsGroup));
    if (choice.has != 0)
        conditions.append(QStringLiteral("goods_shop.id_action=%1").arg(choice.has));
    const QString words = likeWords(
        QStringLiteral("(goods.name LIKE %1 OR goods.name_short LIKE %1 OR goods.id LIKE %1)"), choice.words);
    if (!words.isEmpty())
        conditions.append(words);
    return conditions.isEmpty() ? QStringLiteral("1") : conditions.join(QStringLiteral(" AND "));
}

QString shopSql(const ActionChoice &choice, DbId shop, const QVector<DbId> &goods)
{
    return QStringLiteral("SELECT goods.id,goods.name,goods.block,goods.group_g,goods_shop.id_action,"
                          "action.name,action.val,") +
           actionTimesSql() + QLatin1Char(',') + resolvedPriceSql(shop, choice.priority) +
           QStringLiteral(" FROM goods LEFT JOIN goods_shop ON goods_shop.id_goods=goods.id AND "
                          "goods_shop.id_shop=%1 LEFT JOIN action ON action.id=goods_shop.id_action WHERE ")
               .arg(shop) +
           goodsCondition(choice, goods) + QStringLiteral(" ORDER BY goods.id");
}

QString verdictWords(ActionVerdict verdict, bool isTakenOff)
{
    switch (verdict) {
    case ActionVerdict::Change:
        return isTakenOff ? Texts::tr("акцію буде знято") : Texts::tr("буде призначено");
    case ActionVerdict::Same:
        return isTakenOff ? Texts::tr("акції й так немає") : Texts::tr("уже має цю акцію");
    case ActionVerdict::Blocked:
        return Texts::tr("пропущено: товар заблоковано");
    case ActionVerdict::Service:
        return Texts::tr("пропущено: службова група товарів");
    default:
        return Texts::tr("пропущено: магазин не має цього товару");
    }
}

/// Whatever has a promotion may lose it.
ActionVerdict verdictOf(const ReadItem &item, DbId action)
{
    if (item.action == 0)
        return ActionVerdict::Absent;
    if (item.action == action)
        return ActionVerdict::Same;
    if (action == noAction)
        return ActionVerdict::Change;
    if (item.isBlocked)
        return ActionVerdict::Blocked;
    return item.group >= firstServiceGroup && item.group <= lastServiceGroup ? ActionVerdict::Service
                                                                             : ActionVerdict::Change;
}

/// Reads a plan, one shop after the other.
class Planner
{
public:
    Planner(JobContext *context, ActionPlan *plan)
        : m_context(context), m_plan(plan), m_now(QDateTime::currentDateTime())
    {
    }

    JobResult run()
    {
        const ActionChoice &choice = m_plan->choice;
        QVector<DbId> goods;
        if (!readAction() ||
            !findBarcodes(m_context->db(), choice.barcodes, &goods, &m_plan->unknownBarcodes))
            return end();
        for (int i = 0; i < choice.shops.size(); ++i) {
            m_context->stage(choice.shops.at(i).second);
            m_context->progress(i, choice.shops.size());
            if (!readShop(choice.shops.at(i), goods))
                return end();
        }
        QSet<DbId> shops;
        QSet<DbId> changed;
        for (const PlannedChange &change : qAsConst(m_plan->changes)) {
            shops.insert(change.shop);
            changed.insert(change.goods);
        }
        m_plan->shopsCount = shops.size();
        m_plan->goodsCount = changed.size();
        return {JobResult::Done, {}, {}};
    }

private:
    JobResult end() const
    {
        return {m_context->isCancelled() ? JobResult::Cancelled : JobResult::Failed,
                m_context->isCancelled() ? Texts::tr("Перегляд зупинено.") : m_why,
                {}};
    }

    bool readAction()
    {
        const auto row =
            m_context->db().firstRow(QStringLiteral("SELECT name,val,%1,(%2) FROM action WHERE id=%3")
                                         .arg(actionTimesSql(), actionIdentitySql(m_plan->choice.action))
                                         .arg(m_plan->choice.action));
        if (!row || row->isEmpty()) {
            m_why = row ? Texts::tr("Цю акцію вже видалив хтось інший. Виберіть іншу.") : QString();
            return false;
        }
        m_plan->name = row->at(0);
        m_value = row->at(1).toLongLong();
        m_plan->times = actionTimes(row->at(2));
        m_plan->identity = row->at(3);
        return true;
    }

    bool readShop(const QPair<DbId, QString> &shop, const QVector<DbId> &goods)
    {
        auto rows = m_context->db().run(shopSql(m_plan->choice, shop.first, goods));
        if (!rows)
            return false;
        while (rows->next()) {
            if (m_context->isCancelled())
                return false;
            take(shop, itemOf(*rows));
        }
        return true;
    }

    /// What the shop does not have is listed when it was asked for by its barcode.
    void take(const QPair<DbId, QString> &shop, const ReadItem &item)
    {
        const DbId action = m_plan->choice.action;
        const ActionVerdict verdict = verdictOf(item, action);
        ++m_plan->counts[verdict];
        if (verdict == ActionVerdict::Change)
            m_plan->changes.append({shop.first, item.goods, item.action, m_plan->rows.rowCount()});
        if (verdict == ActionVerdict::Absent && m_plan->choice.barcodes.isEmpty())
            return;
        const auto kopecks = [&item](int kind, qint64 value) {
            return item.hasPrice ? QString::number(priceWith(item.price, kind, value)) : QString();
        };
        const bool isInForceNow = isInForce(item.times, m_now);
        std::vector<std::string> texts;
        for (const QString &text :
             {shop.second, QString::number(item.goods), item.name, kopecks(GoodsItem::withoutAction, 0),
              item.actionName, kopecks(isInForceNow ? item.times.kind : GoodsItem::withoutAction, item.value),
              kopecks(m_plan->times.kind, m_value), verdictWords(verdict, action == noAction)})
            texts.push_back(text.toStdString());
        m_plan->rows.append({texts.begin(), texts.end()});
    }

    JobContext *m_context;
    ActionPlan *m_plan;
    QDateTime m_now;
    qint64 m_value = 0;
    QString m_why;
};
} // namespace

bool ActionChoice::operator==(const ActionChoice &other) const
{
    return action == other.action && goodsGroup == other.goodsGroup && words == other.words &&
           barcodes == other.barcodes && has == other.has && shops == other.shops &&
           priority == other.priority;
}

JobResult planAction(JobContext &context, const ActionChoice &choice, ActionPlan *plan)
{
    plan->choice = choice;
    return Planner(&context, plan).run();
}

QString planSummary(const ActionPlan &plan)
{
    QStringList parts{plan.isEmpty() ? Texts::tr("Нічого не зміниться.")
                                     : Texts::tr("Зміниться: %1 (різних товарів: %2, магазинів: %3).")
                                           .arg(wholeShown(plan.changes.size()), wholeShown(plan.goodsCount),
                                                wholeShown(plan.shopsCount))};
    const struct
    {
        ActionVerdict verdict;
        QString words;
    } others[] = {{ActionVerdict::Same, plan.choice.action == noAction
                                            ? Texts::tr("Без акції й так: %1.")
                                            : Texts::tr("Уже мають цю акцію: %1.")},
                  {ActionVerdict::Blocked, Texts::tr("Заблоковані: %1.")},
                  {ActionVerdict::Service, Texts::tr("Службові групи: %1.")},
                  {ActionVerdict::Absent, Texts::tr("Магазини не мають товару: %1.")}};
    for (const auto &other : others) {
        if (const int count = plan.counts.value(other.verdict); count > 0)
            parts.append(other.words.arg(wholeShown(count)));
    }
    if (!plan.unknownBarcodes.isEmpty())
        parts.append(unknownBarcodesWords(plan.unknownBarcodes));
    return parts.join(QLatin1Char(' '));
}

QString actionIdentitySql(DbId action)
{
    return QStringLiteral("SELECT CONCAT_WS(CHAR(9),name,id_type_action,val,val_1,val_2,datetime_start,"
                          "datetime_end,week_day) FROM action WHERE id=%1")
        .arg(action);
}

qint64 priceWith(qint64 price, int kind, qint64 value)
{
    ReceiptRow row;
    row.price = price;
    row.actType = kind;
    row.actVal = value;
    return row.sum() - row.actDiscount();
}
