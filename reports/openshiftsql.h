#pragma once

#include "db.h"
#include "place.h"

#include <QDateTime>
#include <QStringList>
#include <QVector>

/// The statements of the overview of the open shifts. Of `z_zvit` only the newest two rows of each register
/// are read, of the receipts only those behind a register's newest Z receipt: both along keys.

/// Which registers: the narrowest of the place, and the shop groups that limit it (none: no limit).
struct OpenShiftsAsked
{
    Place place;
    QStringList groups;
};

/// A register's open shift: its newest one, as long as it has no closing time.
struct OpenShift
{
    DbId shop = 0;
    DbId kass = 0;
    QString number;
    /// The register's receipts behind this one may belong to it.
    QString chekBefore;
};

/// The open shifts of those registers; nothing after a reported failure.
std::optional<QVector<OpenShift>> findOpenShifts(const Db &db, const OpenShiftsAsked &asked);

enum class OpenShiftColumn {
    Shop,
    Register,
    State,
    Number,
    Turnover,
    Cheks,
    /// What has to be in the drawer now: Began + Cash - Returned + BroughtIn - Issued.
    Expected,
    Opened,
    User,
    Latest,
    /// What the drawer began with: see Left.
    Began,
    Cash,
    Returned,
    BroughtIn,
    Issued,
    /// The shift before, or the last one where none is open.
    ClosedNumber,
    ClosedTime,
    ClosedTurnover,
    /// Cash - Returned + BroughtIn of that shift: so much would have to be taken out in all.
    ToTakeOut,
    TakenOut,
    /// Known where nothing was left, that is when all of it was taken out; else NULL.
    Counted,
    /// Counted - ToTakeOut; NULL where Counted is.
    Difference,
    /// ToTakeOut - TakenOut where it is above zero: the next shift begins with it.
    Left,
    /// Ids for the way to the receipts: of the open shift's shop, of the closed one's, of the register.
    IdShop,
    IdClosedShop,
    IdKass,
    Count
};

/// Those with an open shift first. A row for each register that has had a shift and is not blocked, or has
/// one open. now: shifts that began more than a day before it are told.
QString openShiftsSql(const OpenShiftsAsked &asked, const QVector<OpenShift> &open, const QDateTime &now);
