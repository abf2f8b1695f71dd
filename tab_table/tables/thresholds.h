#pragma once

#include <QtGlobal>

/// The purchases in kopecks that lead to a discount level, as all programs store them: with six significant
/// digits, halves away from zero. Programs of before wrote them so, and the ladders of the chains are built
/// on it. 12345678 becomes 12345700.
qint64 storedThreshold(qint64 kopecks);

/// The largest that its column holds, in six digits.
constexpr qint64 largestThreshold = 4294960000;
