#pragma once

#include "chain.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVector>

namespace demo {
/// What the stages of the generator tell each other about the chain. Money is kopecks, rates hundredths
/// of a per cent.

struct Shop
{
    int id;
    int group;
    /// Days of a trading period; 0 a warehouse, -1 an office.
    int dayCycle;

    bool sells() const { return dayCycle > 0; }
};

struct Register
{
    int id;
    const Shop *shop;
    bool blocked;
};

struct Item
{
    int id;
    QString quotedName;
    QString quotedBarcode;
    qint64 price;
    bool weighed;
    bool discountAllowed;
    int tax;
    int promotion;
    bool blocked;
};

struct PriceRow
{
    int shop;
    int group;
    int priority;
    qint64 price;
};

struct Promotion
{
    int id;
    QString name;
    int rate;
    /// Null: not dated.
    QDateTime start;
    QDateTime end;
    QString weekDays;

    bool isInForce(const QDateTime &time) const;
};

struct Card
{
    qint64 id;
    int rate;
};

struct Chain
{
    ChainPlan plan;
    QVector<Shop> shops;
    QVector<Register> registers;
    /// The rates of the five tax groups in force, as a shift keeps them: "2000,0,2000,500,...".
    QString taxRates;
    QVector<Item> items;
    QHash<int, QVector<PriceRow>> prices;
    QVector<Promotion> promotions;
    QVector<Card> cards;

    /// The k-th of the goods that a shop has.
    const Item &itemOf(const Shop &shop, int k) const
    {
        const qint64 first = static_cast<qint64>(shop.id) * plan.assortment / 2;
        return items.at(static_cast<int>((first + k) % items.size()));
    }
    /// The price in force there, found as the sale finds it with price priority 1.
    qint64 priceOf(const Item &item, const Shop &shop) const;
    /// The rate of the promotion in force, 0 for none.
    int promotionRate(const Item &item, const QDateTime &time) const;
};
} // namespace demo
