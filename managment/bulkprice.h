#pragma once

#include <QString>

/// By how much many prices are changed at once, and what the new ones end with.
struct PriceStep
{
    enum Kind { Percent, Amount };
    /// Whatever the new price ends with.
    static constexpr int anyEnding = -1;
    /// 1000 %
    static constexpr qint64 greatestPercent = 100000;

    Kind kind = Percent;
    bool isDown = false;
    /// Hundredths of a per cent, or kopecks.
    qint64 value = 0;
    /// The kopecks of the new price: 0, 50, 90, 99.
    int ending = anyEnding;

    bool operator==(const PriceStep &other) const;
};

/// The least and the greatest price that is written: six digits before the point.
constexpr qint64 leastBulkPrice = 1;
constexpr qint64 greatestBulkPrice = 99999999;

/// The price after a step, in kopecks, rounded once: to the nearest price with that ending, half way upwards.
/// Below leastBulkPrice when nothing is left, above greatestBulkPrice when it is too much.
qint64 steppedPrice(qint64 price, const PriceStep &step);
/// "+5.00 %, до .99", for the user.
QString stepWords(const PriceStep &step);
/// "до .99"
QString endingWords(int ending);
