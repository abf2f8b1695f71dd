#include "bulkprice.h"

#include "money.h"

#include <QCoreApplication>
#include <tuple>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(BulkPrice)
};

/// Hundredths of a per cent of a kopeck: what a percentage leaves exactly.
const qint64 parts = 10000;
const qint64 kopecksOfHryvnia = 100;

qint64 roundedDown(qint64 number, qint64 step)
{
    return number / step - (number % step < 0 ? 1 : 0);
}
} // namespace

bool PriceStep::operator==(const PriceStep &other) const
{
    return std::tie(kind, isDown, value, ending) ==
           std::tie(other.kind, other.isDown, other.value, other.ending);
}

qint64 steppedPrice(qint64 price, const PriceStep &step)
{
    const qint64 by = step.isDown ? -step.value : step.value;
    const qint64 exact = step.kind == PriceStep::Percent ? price * (parts + by) : (price + by) * parts;
    if (exact <= 0)
        return 0;
    const bool isAny = step.ending == PriceStep::anyEnding;
    const qint64 between = isAny ? parts : kopecksOfHryvnia * parts;
    const qint64 ending = isAny ? 0 : step.ending * parts;
    return (roundedDown(exact - ending + between / 2, between) * between + ending) / parts;
}

QString endingWords(int ending)
{
    return ending == PriceStep::anyEnding ? Texts::tr("до копійки")
                                          : Texts::tr("до .%1").arg(ending, 2, 10, QLatin1Char('0'));
}

QString stepWords(const PriceStep &step)
{
    const QString sign = step.isDown ? QStringLiteral("−") : QStringLiteral("+");
    const QString by = step.kind == PriceStep::Percent ? rateText(step.value) + QStringLiteral(" %")
                                                       : Texts::tr("%1 грн").arg(moneyShown(step.value));
    return QStringLiteral("%1%2, %3").arg(sign, by, endingWords(step.ending));
}
