#pragma once

#include <QString>

namespace demo {
/// Sound barcodes of the demo goods; two different numbers never give the same code of a kind.

/// EAN-13 with the country's prefix 482; number 0 to 999 999 999.
QString countryEan13(int number);
/// EAN-13 that begins with a zero, as goods from abroad have it.
QString foreignEan13(int number);
/// EAN-13 of the chain's own for weighed goods, prefix 28.
QString weighedEan13(int number);
/// EAN-8; number 0 to 99 999.
QString shortEan8(int number);
} // namespace demo
