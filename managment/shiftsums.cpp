#include "shiftsums.h"

#include <algorithm>
#include <numeric>

namespace {
constexpr qint64 unsignedMaximum = 4294967295;

const QStringList &sumColumns()
{
    static const QStringList columns = {QStringLiteral("cash"),     QStringLiteral("beznal_1"),
                                        QStringLiteral("beznal_2"), QStringLiteral("beznal_3"),
                                        QStringLiteral("Oborot_A"), QStringLiteral("Oborot_B"),
                                        QStringLiteral("Oborot_V"), QStringLiteral("Oborot_G"),
                                        QStringLiteral("Oborot_D"), QStringLiteral("summ_diskount")};
    return columns;
}

const QStringList &countColumns()
{
    static const QStringList columns = {QStringLiteral("count_cheks"), QStringLiteral("count_chek_diskount")};
    return columns;
}

QString ofShift(const QString &kass, const QString &zNumber)
{
    return QStringLiteral(" WHERE id_zzvit=") + zNumber + QStringLiteral(" AND id_kass=") + kass;
}

bool isWithin(qint64 value, qint64 most)
{
    return value >= 0 && value <= most;
}
} // namespace

QString ShiftSql::sums(const QString &kass, const QString &zNumber)
{
    return QStringLiteral("SELECT data_time=0,id_shop,") + sumColumns().join(QLatin1Char(',')) +
           QLatin1Char(',') + (sumColumns() + countColumns()).join(QLatin1Char('+')) +
           QStringLiteral(" IS NULL FROM z_zvit") + ofShift(kass, zNumber);
}

QString ShiftSql::lockedSums(const QString &kass, const QString &zNumber)
{
    return sums(kass, zNumber) + QStringLiteral(" FOR UPDATE");
}

QString ShiftSql::nullsToZero(const QString &kass, const QString &zNumber)
{
    QStringList changes;
    for (const QString &column : sumColumns() + countColumns())
        changes.append(QStringLiteral("%1=IFNULL(%1,0)").arg(column));
    return QStringLiteral("UPDATE z_zvit SET ") + changes.join(QLatin1Char(',')) + ofShift(kass, zNumber);
}

ShiftSums shiftSums(const QStringList &cells)
{
    ShiftSums sums;
    const int first = 2;
    const int last = first + sumColumns().size();
    if (cells.size() <= last)
        return sums;
    sums.isOpen = cells.at(0) == QLatin1String("1");
    sums.shop = cells.at(1);
    sums.hasNulls = cells.at(last) != QLatin1String("0");
    int at = first;
    sums.cash = cells.at(at++).toLongLong();
    for (qint64 &sum : sums.cashless)
        sum = cells.at(at++).toLongLong();
    for (qint64 &sum : sums.turnover)
        sum = cells.at(at++).toLongLong();
    sums.discount = cells.at(at).toLongLong();
    return sums;
}

qint64 ShiftSums::net() const
{
    return std::accumulate(turnover.begin(), turnover.end(), qint64(0)) - discount;
}

ShiftSums ShiftSums::with(const Receipt &receipt, const ChekPayment &payment) const
{
    ShiftSums sums = *this;
    const Receipt::Turnover sold = receipt.turnover();
    std::transform(turnover.begin(), turnover.end(), sold.begin(), sums.turnover.begin(), std::plus<>());
    sums.cash += payment.cash;
    sums.cashless[0] += payment.card;
    sums.cashless[1] += payment.certificate;
    sums.cashless[2] += payment.fourth;
    sums.discount += payment.discount;
    return sums;
}

/// The Z receipt's sum is a signed number, and the closing form counts the cash in one; the rest is unsigned.
bool ShiftSums::fits() const
{
    const auto isSound = [](qint64 sum) { return isWithin(sum, unsignedMaximum); };
    return net() <= Receipt::maximum && isWithin(cash, Receipt::maximum) && isSound(discount) &&
           std::all_of(cashless.begin(), cashless.end(), isSound) &&
           std::all_of(turnover.begin(), turnover.end(), isSound);
}
