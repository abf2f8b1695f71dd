#pragma once

#include "actiontimes.h"
#include "db.h"
#include "goodsitem.h"
#include "priceorder.h"

/// What is asked for: the price of an item in a shop, at a moment.
struct PriceQuestion
{
    DbId idGoods = 0;
    DbId idShop = 0;
    QDateTime time;
    /// Which price of a price list counts where it has none with priority 0.
    int priority = 1;
    /// As it stands in a receipt; there it keeps its price until it is paid.
    std::optional<GoodsItem> taken;
};

/// The promotion that is assigned to an item in a shop.
struct AssignedAction
{
    /// Empty when none is.
    QString name;
    /// Of a percentage its hundredths of a per cent.
    qint64 value = 0;
    ActionTimes times;
    ActionMoment moment = ActionMoment::NoKind;
};

/// Why an item costs what it costs.
struct WhyPrice
{
    /// False for an item that is not there; then nothing else is known.
    bool isKnown = false;
    QString goods;
    bool isPiece = true;
    /// The shop's address; empty for one that is not there.
    QString shop;
    /// See judgePrices().
    QVector<JudgedPrice> prices;
    AssignedAction action;
    /// As the sale's statement finds them: kopecks, nothing without a price; 1 for no promotion in force.
    std::optional<qint64> price;
    int actType = GoodsItem::withoutAction;
    /// What else is to be known, a sentence each: why no sale offers the item, which bounds nobody looks at.
    QStringList notes;

    /// What is taken off one piece or kilogram.
    qint64 discount() const { return price ? promotionDiscount(actType, action.value, *price) : 0; }
};

/// Reads it in one statement, which sees all of it at one moment, what the sale finds among it. Nothing after
/// a reported failure.
std::optional<WhyPrice> readWhyPrice(const Db &db, const PriceQuestion &question);

/// "50.00 − 7.50 = 42.50 за штуку"
QString priceWords(const WhyPrice &why);
/// Of the promotion, and why it is not in force.
QString actionWords(const WhyPrice &why);
/// All of it as lines of a plain text, the prices as a table parted by tabs.
QString asPlainText(const WhyPrice &why, const PriceQuestion &question);
