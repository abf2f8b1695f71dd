#include "chekwriter.h"

#include "cheks.h"
#include "heldmessages.h"
#include "money.h"
#include "saleclock.h"
#include "shiftsums.h"
#include "sqldate.h"

#include <numeric>

namespace {
qint64 rowDiscounts(const Receipt &receipt)
{
    return std::accumulate(receipt.rows().begin(), receipt.rows().end(), qint64(0),
                           [](qint64 sum, const ReceiptRow &row) { return sum + row.discount; });
}
} // namespace

ChekWriter::ChekWriter(const Db &db, const ChekPlace &place, const char *file, int line)
    : DocumentWriter(db, place, file, line)
{
}

std::optional<QString> ChekWriter::shiftRefusal(const OpenZ &z, const Receipt &receipt) const
{
    const auto cells = z.number.isEmpty() ? std::optional<QStringList>(QStringList())
                                          : row(ShiftSql::sums(m_place.kass, z.number));
    if (!cells)
        return std::nullopt;
    ChekPayment payment;
    payment.discount = receipt.discount();
    return shiftSums(*cells).with(receipt, payment).fits() ? QString() : tooMuchForShift(z.number);
}

QString ChekWriter::disagreement(const Receipt &receipt, const ChekPayment &payment)
{
    if (receipt.isEmpty())
        return tr("У чеку немає товарів.");
    if (receipt.total() - payment.discount != payment.toPay || payment.toPay < 0)
        return tr("Товари (%1) без знижки (%2) не дорівнюють сумі до оплати (%3). Чек не записано: оплатіть "
                  "його ще раз.")
            .arg(moneyShown(receipt.total()), moneyShown(payment.discount), moneyShown(payment.toPay));
    if (rowDiscounts(receipt) != payment.discount)
        return tr("Знижки рядків (%1) не дорівнюють знижці чека (%2). Чек не записано: введіть знижку ще раз.")
            .arg(moneyShown(rowDiscounts(receipt)), moneyShown(payment.discount));
    const bool isNegative =
        payment.cash < 0 || payment.card < 0 || payment.certificate < 0 || payment.fourth < 0;
    if (isNegative || payment.paid() != payment.toPay)
        return tr("Оплачено не стільки, скільки треба (%1). Чек не записано: оплатіть його ще раз.")
            .arg(moneyShown(payment.toPay));
    return QString();
}

QString ChekWriter::tooMuchForShift(const QString &zNumber)
{
    return tr("Зміна № %1 не вмістить цього чека: її сума стала б більшою за %2. Закрийте зміну (F12) і оплатіть "
              "чек у новій.")
        .arg(zNumber, moneyShown(Receipt::maximum));
}

bool ChekWriter::joinShift(const Receipt &receipt, const ChekPayment &payment, Result *result) const
{
    std::optional<ShiftSums> sums;
    if (!DocumentWriter::joinShift(result, &sums))
        return false;
    if (!sums)
        return true;
    if (!sums->with(receipt, payment).fits())
        return refuse(result, Refused, tooMuchForShift(result->chek.zNumber));
    return !sums->hasNulls || run(ShiftSql::nullsToZero(m_place.kass, result->chek.zNumber));
}

/// Last comes what locks the stock of all shops until COMMIT.
bool ChekWriter::writeRows(const Receipt &receipt, const ChekPayment &payment, Result *result) const
{
    if ((payment.discount != 0 && !run(ChekSql::ensureAnonymousClient())) ||
        !run(ChekSql::insertRows(receipt, payment, result->chek)) ||
        !run(ChekSql::lowerStock(receipt, m_place.shop)))
        return false;
    const auto added = m_db.run(ChekSql::addToZ(receipt, payment, result->chek), {}, {}, m_file, m_line);
    if (added && added->numRowsAffected() != 1)
        return refuse(result, ShiftClosed);
    return added.has_value();
}

ChekWriter::Result ChekWriter::writeOnce(const Receipt &receipt, const ChekPayment &payment,
                                         const QDate &chosen) const
{
    Result result;
    result.chek.place = m_place;
    result.chek.time = sqlDateTime(SaleClock::at(chosen));
    result.chek.paymentPosition = receipt.rows().size() + (payment.discount != 0 ? 2 : 1);
    result.chek.toPay = payment.toPay;
    Transaction transaction(m_db, m_file, m_line);
    if (!transaction)
        return result;
    if (takeNumber(&result) && joinShift(receipt, payment, &result) && checkPlace(&result) &&
        writeRows(receipt, payment, &result))
        result.outcome = transaction.commit(m_file, m_line) ? Written : commitFailureOf<ChekWriter>();
    else if (result.outcome == Failed)
        result.outcome = failureOf<ChekWriter>();
    return result;
}

ChekWriter::Result ChekWriter::write(const Receipt &receipt, const ChekPayment &payment,
                                     const QDate &chosen) const
{
    Result result;
    const QString why = disagreement(receipt, payment);
    if (!why.isEmpty()) {
        refuse(&result, Refused, why);
        return result;
    }
    result = triedAgain(
        m_db,
        [&](const Db &db) {
            return ChekWriter(db, m_place, m_file, m_line).writeOnce(receipt, payment, chosen);
        },
        [](const Result &tried) { return tried.outcome == Collided || tried.outcome == Locked; });
    if (result.outcome == Unclear) {
        const auto written = askAfterLoss([&] { return isWritten(result.chek); });
        if (written)
            result.outcome = *written ? Written : Failed;
    }
    return result;
}

std::optional<bool> ChekWriter::isWritten(const WrittenChek &chek) const
{
    return stands(QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND id_position=%4 AND id_user=%5 "
                                 "AND data_time=%6 AND id_type=%7 AND summa=%8")
                      .arg(chek.place.shop, chek.place.kass, QString::number(chek.number),
                           QString::number(chek.paymentPosition), chek.place.user, chek.time,
                           QString::number(ChekType::Payment), QString::number(chek.toPay)));
}

QString ChekWriter::explanation(const Result &result)
{
    switch (result.outcome) {
    case Refused:
    case Blocked:
        return result.why;
    case Busy:
        return tr("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    case ShiftClosed:
        return tr("Зміну № %1 щойно закрила інша програма. Чек не записано. Повторіть оплату: він відкриє нову "
                  "зміну.")
            .arg(result.chek.zNumber);
    case Collided:
        return tr("Чек з таким номером щойно записала інша програма на цій касі. Чек не записано. "
                  "Повторіть оплату.");
    case Locked:
        return tr("Залишки зараз записує інша програма. Чек не записано. Повторіть оплату.");
    case Unclear:
        return tr("Зв'язок обірвався під час запису чека № %1 і невідомо, чи його записано. Перед новою "
                  "оплатою програма запитає сервер ще раз.")
            .arg(result.chek.number);
    case Failed:
        return tr("Чек не записано. Повторіть оплату.");
    case Written:
        break;
    }
    return QString();
}
