#include "colours.h"

#include <QColor>
#include <QtMath>

namespace {
double linearLight(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : qPow((channel + 0.055) / 1.055, 2.4);
}

double lightOf(const QColor &colour)
{
    return 0.2126 * linearLight(colour.redF()) + 0.7152 * linearLight(colour.greenF()) +
           0.0722 * linearLight(colour.blueF());
}
} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const double first = lightOf(one) + 0.05;
    const double second = lightOf(other) + 0.05;
    return first > second ? first / second : second / first;
}

QColor readableOn(const QColor &background)
{
    return contrast(background, Qt::black) > contrast(background, Qt::white) ? Qt::black : Qt::white;
}
