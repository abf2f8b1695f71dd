#pragma once

#include "db.h"

/// Where an exchange takes place, by the names that the page offers; empty for all.
struct ExchangePlace
{
    QString group;
    QString shop;
    QString kass;

    bool isEverywhere() const { return group.isEmpty() && shop.isEmpty() && kass.isEmpty(); }
};

struct ExchangeStatement
{
    QString sql;
    Db::Values values;
};

/// For the boxes of the page: the shops of a group, the registers of a shop that are under the server.
QString exchangeShopsSql();
QString exchangeKassaSql();
/// groups: the ids of the shop groups that the user may see.
QString exchangeGroupsSql(const QStringList &groups);

/// The server codes of the registers of a place, by the narrowest choice.
ExchangeStatement registersOf(const ExchangePlace &place);
/// Codes with the shop group of each: where changed cards go.
QString allRegistersSql();
/// Code and level of the cards that a group's registers know.
ExchangeStatement cardsOf(const QString &group);
/// Code, level, block, group and time of change of all cards, and of those that were changed.
QString allCardsSql();
QString changedCardsSql();
/// since: server time, seconds of the epoch; 0 for all. Code, name, price, tax, by weight, block.
QString articlesSql(qint64 since);
QString levelsSql();
