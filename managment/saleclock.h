#pragma once

#include <QDateTime>
#include <functional>

/// The one clock of receipts and shifts: what the tab shows, what is searched by and what is written ask it.
namespace SaleClock {
using Source = std::function<QDateTime()>;

QDateTime now();
/// The present time of day on a chosen date; now() for none. Its digits are the wall clock's, also in an hour
/// that summer time skips on the chosen date.
QDateTime at(const QDate &chosen);
/// Null: the system's clock. Returns the source before. Any thread may ask the clock: set it while none does.
Source setSource(const Source &source);
} // namespace SaleClock
