#pragma once

#include <QString>

class QComboBox;
class QLoadedUser;
class QObject;
class QSqlDatabase;

/// Where the user may sell. A blocked shop or register in which a shift is still open is offered too, at the
/// end, named so, and only for closing that shift.
namespace SalePlaces {
/// The shops of trade that the user may work with; the data is the id.
void fillShops(QComboBox *box, QSqlDatabase *db, QLoadedUser *user, QObject *receiver);
/// The registers of the shop that is chosen in the box of shops; the data is the id.
void fillRegisters(QComboBox *box, const QComboBox *shops, QSqlDatabase *db, QObject *receiver);
/// Whether the chosen place is there only for closing.
bool isClosingOnly(const QComboBox *box);
/// "address" of the shop in which the register's open shift stands, when it is another one than the given;
/// empty else and after a failure.
QString otherShopOfShift(QSqlDatabase *db, QObject *receiver, const QString &kass, const QString &shop);
} // namespace SalePlaces
