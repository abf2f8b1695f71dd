#pragma once

#include "place.h"

#include <QDate>
#include <QStringList>

/// Where articles were sold: the narrowest of the ids that are not 0 counts; without any it is everywhere in
/// the shop groups that the user may see.
struct ArtPlace : Place
{
    QStringList permittedGroups;
};

/// What is asked for: sales of the shifts zFrom to zTo, per article.
struct ArtChoice
{
    ArtPlace place;
    QString zFrom;
    QString zTo;
    /// One line an article with its average price, instead of one line an article and price.
    bool averagePrice = false;
    bool byDay = false;
    bool allGoods = true;
    /// Ids of the goods groups when it is not all goods; goods without a group are always in.
    QStringList goodsGroups;
    /// The most lines, as typed; empty for all.
    QString limit;
    /// Sales of these days only; invalid for all days of the shifts.
    QDate firstDay;
    QDate lastDay;
};

/// The lines of the report: code, barcode, name, price, thousandths, kopecks net of discounts, discount,
/// time, 1 for piece goods.
QString articlesStatement(const ArtChoice &choice);
/// The kopecks that were paid with bonuses in the same shifts.
QString bonusStatement(const ArtChoice &choice);
/// The numbers of the shifts closed on a day.
QString zNumbersStatement(const ArtPlace &place, const QDate &day);
