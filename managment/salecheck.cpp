#include "salecheck.h"

#include "saleplaces.h"

namespace {
struct SaleCheckText
{
    Q_DECLARE_TR_FUNCTIONS(SaleCheck)
};

/// A shift is listed in one shop; what is sold in another one does not belong into it.
QString placeRefusal(const Db &db, const ChekWriter &writer, const ChekPlace &place)
{
    const QString other = SalePlaces::otherShopOfShift(db, place.kass, place.shop);
    if (!other.isEmpty())
        return SaleCheckText::tr("Зміну цієї каси відкрито в магазині «%1». Закрийте її перед продажем.")
            .arg(other);
    return writer.placeRefusal().value_or(
        SaleCheckText::tr("Сервер не відповів, чи можна тут продавати. Повторіть оплату."));
}

QString shiftRefusal(const ChekWriter &writer, const Receipt &receipt, bool *isBusy)
{
    const auto z = writer.openZ();
    *isBusy = z && !writer.isOwn(*z);
    if (*isBusy)
        return ChekWriter::explanation({ChekWriter::Busy, {}});
    return (z ? writer.shiftRefusal(*z, receipt) : std::nullopt)
        .value_or(SaleCheckText::tr("Стан зміни невідомий. Повторіть оплату."));
}
} // namespace

SaleCheck checkSale(const Db &db, const SaleWork::Caller &caller, const SaleOrder &order)
{
    SaleCheck check;
    const ChekWriter writer = caller.writer(db, order.place);
    check.refusal = placeRefusal(db, writer, order.place);
    if (check.refusal.isEmpty())
        check.refusal = shiftRefusal(writer, order.receipt, &check.isBusy);
    if (!check.refusal.isEmpty())
        return check;
    const auto changes = saleChanges(db, order.receipt, order.scope);
    if (!changes)
        check.refusal = SaleCheckText::tr("Сервер не відповів, чи змінились ціни. Повторіть оплату.");
    else if (!changes->blocking.isEmpty())
        check.refusal = changes->blocking.join(QLatin1Char('\n'));
    else
        check.changes = *changes;
    return check;
}
