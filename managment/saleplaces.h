#pragma once

#include "db.h"
#include "place.h"

class QComboBox;
class QLoadedUser;

/// Where the user may sell. A blocked shop or register in which a shift is still open is offered too, at the
/// end, named so, and only for closing that shift.
namespace SalePlaces {
/// A shop or a register.
struct Offered
{
    DbId id = 0;
    QString name;
    bool isClosingOnly = false;
};

/// The shops of trade that the user may work with, and the registers of the one that is chosen at first: the
/// home shop, else the first.
struct Offer
{
    QVector<Offered> shops;
    int chosen = -1;
    QVector<Offered> registers;
};

/// By the user's rights as they are now.
QString shopsSql(const QLoadedUser &user);
/// sql: shopsSql(). What a failed statement does not tell is missing.
Offer read(const Db &db, const QString &sql, DbId home);
/// Nothing after a failure.
QVector<Offered> registers(const Db &db, const Offered &shop);
/// "address" of the shop in which the register's open shift stands, when it is another one than the given;
/// empty else and after a failure.
QString otherShopOfShift(const Db &db, const QString &kass, const QString &shop);

/// Fills a box without a signal; the data is the id.
void show(QComboBox *box, const QVector<Offered> &places, int chosen);
/// What is chosen in the box; an id of 0 for nothing.
Offered chosen(const QComboBox *box);
} // namespace SalePlaces
