#pragma once

#include "chek.h"
#include "receipt.h"

/// The statements that write a receipt.
namespace ChekSql {
/// "(shop,register,Z,receipt,user,time": what all rows of a receipt begin with.
QString prefix(const WrittenChek &chek);
/// Without it no discount row can be read.
QString ensureAnonymousClient();
QString insertRows(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek);
QString lowerStock(const Receipt &receipt, const QString &shop);
/// Changes nothing when the shift has been closed.
QString addToZ(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek);
QString createZ(const ChekPlace &place, const QString &number, int day);
} // namespace ChekSql

/// The day in the trading period of a shift, by that of the last closed one (0: none was closed) and the
/// length of the period.
int nextDay(int lastDay, int countDayCycle);
