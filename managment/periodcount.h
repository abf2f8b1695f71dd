#pragma once

#include "chek.h"
#include "place.h"

#include <QDate>
#include <QHash>
#include <QVector>

/// A goods item that is counted when a trading period is closed: one that is weighed out of an open stock
/// (rules_goods 2 and 3). Quantities in thousandths.
struct PeriodGoods
{
    DbId goods = 0;
    QString name;
    /// One of those that it has; empty for none.
    QString barcode;
    int type = 0;
    int tax = 0;
    /// By the program.
    qint64 showroom = 0;
    qint64 syllable = 0;
    /// In the period, by all registers of the shop, without what was taken back.
    qint64 sold = 0;
};

/// What there is to count in a shop, as it was read.
struct PeriodSheet
{
    QString shop;
    QString kass;
    /// yyyyMMddhhmmss of the first receipt of the register's period; empty without one.
    QString since;
    /// When the shop's goods were counted last, "23.11.2026 20:15, Каса 1, документ № 12"; empty for never.
    QString lastCount;
    /// By name.
    QVector<PeriodGoods> goods;
    QHash<QString, DbId> barcodes;
};

/// A closing of a period as it was asked for.
struct PeriodOrder
{
    ChekPlace place;
    /// None for today's.
    QDate date;
    /// The register's open shift; empty for none.
    QString zNumber;
    /// Whose shift it is when it is another user's, which was agreed to; else empty.
    QString takenOver;
    /// What was shown, and what was counted, in the same order.
    QVector<PeriodGoods> goods;
    QVector<qint64> counted;
};
