#include "thresholds.h"

qint64 storedThreshold(qint64 kopecks)
{
    const qint64 sixDigits = 1000000;
    qint64 unit = 1;
    while (kopecks / unit >= sixDigits)
        unit *= 10;
    return (kopecks + unit / 2) / unit * unit;
}
