#include "whyprice.h"

#include "money.h"
#include "pricesql.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QSqlQuery>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(WhyPrice)
};

/// The promotion that stands for none.
const uint withoutAction = 1;

/// The columns of the statement: first those of the item, then those of each of its prices.
enum Field {
    Goods,
    OwnPrice,
    Type,
    Block,
    GroupGoods,
    Rule,
    RuleName,
    Offered,
    ShopAddress,
    ShopGroup,
    Price,
    ActType,
    ActId,
    ActName,
    ActValue,
    ActTimes,
    ListShop,
    ListShopAddress,
    ListGroup,
    ListGroupName,
    ListPriority,
    ListPrice,
    ListLimited
};

QString whyPriceSql(const PriceQuestion &question)
{
    return QStringLiteral(
               "SELECT goods.name,goods.price,goods.type,goods.block,goods.group_g,goods.id_rules_goods,"
               "rules_goods.name,goods_shop.id_goods,shops.address,shops.group_shop,%1 AS prc,%2 AS act,"
               "action.id,action.name,action.val,%3,listed.id_shop,owner.address,listed.id_group,group_shop.name,"
               "listed.priority,listed.price,"
               "IFNULL(listed.period_start_date+0,0)+IFNULL(listed.period_end_date+0,0)+"
               "IFNULL(TIME_TO_SEC(listed.period_start_time),0)+"
               "IFNULL(TIME_TO_SEC(listed.period_end_time),0)+IFNULL(listed.week_day,0)<>0 "
               "FROM goods LEFT JOIN rules_goods ON rules_goods.id=goods.id_rules_goods "
               "LEFT JOIN shops ON shops.id=%4 "
               "LEFT JOIN goods_shop ON goods_shop.id_goods=goods.id AND goods_shop.id_shop=%4 "
               "LEFT JOIN action ON goods_shop.id_action=action.id "
               "LEFT JOIN prices AS listed ON listed.id_goods=goods.id "
               "LEFT JOIN shops AS owner ON owner.id=listed.id_shop "
               "LEFT JOIN group_shop ON group_shop.id=listed.id_group "
               "WHERE goods.id=%5 ORDER BY listed.priority,owner.address,listed.id_shop,listed.id_group")
        .arg(resolvedPriceSql(question.idShop, question.priority), actionInForceSql(question.time),
             actionTimesSql(), QString::number(question.idShop), QString::number(question.idGoods));
}

std::optional<qint64> amount(const QVariant &cell)
{
    return cell.isNull() ? std::nullopt : std::optional(cell.toLongLong());
}

ListedPrice listedRow(const QSqlQuery &query)
{
    ListedPrice row;
    row.idShop = query.value(ListShop).toUInt();
    row.shop = toText(query.value(ListShopAddress));
    row.idGroup = query.value(ListGroup).toUInt();
    row.group = toText(query.value(ListGroupName));
    row.priority = query.value(ListPriority).toLongLong();
    row.price = query.value(ListPrice).toLongLong();
    row.isLimited = query.value(ListLimited).toBool();
    return row;
}

AssignedAction assignedAction(const QSqlQuery &query, const QDateTime &time)
{
    AssignedAction action;
    if (query.value(ActId).toUInt() <= withoutAction)
        return action;
    action.name = toText(query.value(ActName));
    action.value = query.value(ActValue).toLongLong();
    action.times = actionTimes(toText(query.value(ActTimes)));
    action.moment = actionMoment(action.times, time);
    return action;
}

/// What the list of a sale leaves out, in its order.
QString notOfferedWords(const QSqlQuery &query)
{
    const uint group = query.value(GroupGoods).toUInt();
    const int rule = query.value(Rule).toInt();
    if (query.value(Offered).isNull())
        return Texts::tr("У цьому магазині товар не продається: його немає серед товарів магазину.");
    if (query.value(Block).isNull() || query.value(Block).toInt() != 0)
        return Texts::tr("Товар заблоковано: продаж його не пропонує.");
    if (query.value(GroupGoods).isNull() || (group >= 2 && group <= 5))
        return Texts::tr("Товар службової групи: продаж його не пропонує.");
    if (rule < 1 || rule > 3)
        return Texts::tr("Товар з правилом «%1»: продаж його не пропонує.")
            .arg(toText(query.value(RuleName)));
    return QString();
}

void readGoods(const QSqlQuery &query, const QDateTime &time, WhyPrice *why)
{
    why->isKnown = true;
    why->goods = toText(query.value(Goods));
    why->isPiece = query.value(Type).toInt() == GoodsItem::pieceGoods;
    why->shop = toText(query.value(ShopAddress));
    why->price = amount(query.value(Price));
    why->actType = query.value(ActType).toInt();
    why->action = assignedAction(query, time);
    if (const QString words = notOfferedWords(query); !words.isEmpty())
        why->notes.append(words);
}

/// Of a receipt that stands there with another price or promotion by now.
QString takenWords(const WhyPrice &why, const PriceQuestion &question)
{
    if (!question.taken)
        return QString();
    const GoodsItem &taken = *question.taken;
    const qint64 discount = promotionDiscount(taken.actType, taken.actVal, taken.price);
    if (why.price == taken.price && why.discount() == discount)
        return QString();
    return Texts::tr(
               "У чек товар узято за іншими умовами: ціна %1, знижка %2. Зміну буде названо перед оплатою.")
        .arg(moneyShown(taken.price), moneyShown(discount));
}

QString momentWords(const AssignedAction &action)
{
    switch (action.moment) {
    case ActionMoment::InForce:
        return Texts::tr("діє");
    case ActionMoment::NoKind:
        return Texts::tr("нічого не змінює в ціні, такий її вид");
    case ActionMoment::NotYet:
        return Texts::tr("ще не почалась");
    case ActionMoment::Over:
        return Texts::tr("вже закінчилась");
    case ActionMoment::OtherHours:
        return Texts::tr("не діє в ці години дня");
    case ActionMoment::OtherDays:
        break;
    }
    return Texts::tr("не діє в цей день тижня");
}

QString cellText(const std::optional<qint64> &number, QString (*words)(qint64))
{
    return number ? words(*number) : QString();
}
} // namespace

std::optional<WhyPrice> readWhyPrice(const Db &db, const PriceQuestion &question)
{
    auto query = db.run(whyPriceSql(question));
    if (!query)
        return std::nullopt;
    WhyPrice why;
    std::optional<qint64> ownPrice;
    PricePlace place{question.idShop, 0, question.priority};
    QVector<ListedPrice> rows;
    bool isLimited = false;
    while (query->next()) {
        if (!why.isKnown) {
            readGoods(*query, question.time, &why);
            ownPrice = amount(query->value(OwnPrice));
            place.idGroup = query->value(ShopGroup).toUInt();
        }
        if (!query->value(ListShop).isNull())
            rows.append(listedRow(*query));
        isLimited = isLimited || query->value(ListLimited).toBool();
    }
    if (!why.isKnown)
        return why;
    why.prices = judgePrices(rows, ownPrice, place);
    if (const QString words = takenWords(why, question); !words.isEmpty())
        why.notes.prepend(words);
    if (isLimited)
        why.notes.append(
            Texts::tr("Серед цін є такі, що мають період або день тижня: продаж на них не зважає."));
    return why;
}

QString priceWords(const WhyPrice &why)
{
    if (!why.price)
        return Texts::tr("Ціни немає: продати цей товар не можна.");
    const QString unit = why.isPiece ? Texts::tr("за штуку") : Texts::tr("за кілограм");
    const qint64 discount = why.discount();
    if (discount == 0)
        return QStringLiteral("%1 %2").arg(moneyShown(*why.price), unit);
    return QStringLiteral("%1 \u2212 %2 = %3 %4")
        .arg(moneyShown(*why.price), moneyShown(discount), moneyShown(*why.price - discount), unit);
}

QString actionWords(const WhyPrice &why)
{
    const AssignedAction &action = why.action;
    if (action.name.isEmpty())
        return Texts::tr("Акції товару в цьому магазині не призначено.");
    const QString days = weekDaysShown(action.times.weekDays);
    const QString caption = action.times.kind == GoodsItem::withoutAction
                                ? action.name
                                : promotionCaption(action.times.kind, action.value, action.name);
    return Texts::tr("%1: %2. Її час: %3, %4, %5.")
        .arg(caption, momentWords(action), actionPeriodShown(action.times), actionHoursShown(action.times),
             days.isEmpty() ? Texts::tr("жодного дня тижня") : days);
}

QString asPlainText(const WhyPrice &why, const PriceQuestion &question)
{
    QStringList lines = {Texts::tr("%1 (код %2)").arg(why.goods).arg(question.idGoods),
                         Texts::tr("%1, %2, пріоритет ціни %3")
                             .arg(why.shop, shownDateTime(question.time), QString::number(question.priority)),
                         priceWords(why), actionWords(why)};
    for (const JudgedPrice &price : why.prices) {
        lines.append(QStringList{
            price.source, cellText(price.priority, [](qint64 number) { return QString::number(number); }),
            cellText(price.price, moneyText), price.why}
                         .join(QLatin1Char('\t')));
    }
    return (lines + why.notes).join(QLatin1Char('\n'));
}
