#include "cashinvoice.h"

#include "invoicewriting.h"
#include "money.h"
#include "permissions.h"
#include "receipt.h"
#include "rightsguard.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CashInvoice)
};

using InvoiceWriting::refuse;

QStringList writtenTables(const CashEnd &end)
{
    QStringList tables = {QStringLiteral("invoice")};
    if (end.kass != 0)
        tables += {QStringLiteral("cheks"), QStringLiteral("z_zvit")};
    return tables;
}

/// The right may have gone while it was asked about.
bool mayWrite(const Db &db, DbId user, InvoiceResult *result)
{
    const auto may = userMayEdit(db, QString::number(user), Permission::Finance);
    return may && (*may || refuse(result, rightGoneWords()));
}

/// What a register's writer tells, in the words of an invoice.
void takeOver(const CashWriter::Result &written, InvoiceResult *result)
{
    result->why = CashWriter::explanation(written);
    if (written.drawer) {
        result->outcome = InvoiceResult::Short;
        result->drawer = *written.drawer;
    } else if (written.outcome == DocumentWriter::Collided || written.outcome == DocumentWriter::Locked) {
        result->outcome = InvoiceResult::Locked;
    } else if (written.outcome != DocumentWriter::Failed) {
        result->outcome = InvoiceResult::Refused;
    }
}

/// The receipt of the register that the cash leaves or comes to; nothing for the safe.
bool passRegister(const Db &db, DbId shop, const CashAct &act, qint64 sum, InvoiceResult *result)
{
    if (act.end.kass == 0 || sum == 0)
        return true;
    const auto id = [](DbId number) { return QString::number(number); };
    CashOrder order = {{id(shop), id(act.end.kass), id(act.user)}, act.end.operation, sum};
    order.remark = Texts::tr("накладна № %1").arg(result->mark.invoice);
    order.agreed = act.end.agreed;
    CashWriter::Result written;
    const bool isWritten = CashWriter(db, order.place).writeInto(order, &written);
    if (!isWritten)
        takeOver(written, result);
    return isWritten;
}

bool insertInvoice(const Db &db, const CashSending &sending, InvoiceResult *result)
{
    const auto inserted =
        db.run(QStringLiteral("INSERT INTO invoice(id_user_with,id_shop_with,id_shop_to,id_kass_with,"
                              "is_cash_goods,cash_send,msg_with,data_time_open,data_time_close) "
                              "VALUES(:user,:from,:to,:kass,1,:sum,:message,%1,0)")
                   .arg(result->mark.time),
               {{QStringLiteral(":user"), sending.user},
                {QStringLiteral(":from"), sending.from},
                {QStringLiteral(":to"), sending.to},
                {QStringLiteral(":kass"), sending.end.kass},
                {QStringLiteral(":sum"), sending.sum},
                {QStringLiteral(":message"), nullIfEmpty(sending.message.trimmed())}});
    const auto id = inserted ? db.lastInsertId() : std::nullopt;
    result->mark.invoice = static_cast<DbId>(id.value_or(0));
    return id.has_value();
}

bool writeSending(const Db &db, const CashSending &sending, InvoiceResult *result)
{
    return mayWrite(db, sending.user, result) &&
           InvoiceWriting::mayTrade(db, {sending.from, sending.to}, InvoiceKind::Cash, result) &&
           insertInvoice(db, sending, result) && passRegister(db, sending.from, sending, sending.sum, result);
}

/// Nobody takes another sum than the one he was shown.
bool isSumAsShown(const InvoiceWriting::Locked &invoice, qint64 sent, InvoiceResult *result)
{
    return invoice.cash == sent ||
           refuse(result, Texts::tr("Суму накладної тим часом змінено: тепер це %1. Відкрийте її ще раз.")
                              .arg(moneyShown(invoice.cash)));
}

bool writeAcceptance(const Db &db, const CashAcceptance &acceptance, InvoiceResult *result)
{
    result->mark.invoice = acceptance.invoice;
    InvoiceWriting::Locked invoice;
    if (!mayWrite(db, acceptance.user, result) ||
        !InvoiceWriting::lock(db, acceptance.invoice, InvoiceKind::Cash, &invoice, result) ||
        !InvoiceWriting::mayTrade(db, {invoice.to}, InvoiceKind::Cash, result) ||
        !isSumAsShown(invoice, acceptance.sent, result))
        return false;
    const QString accepted =
        QStringLiteral("cash_accept=%1,id_kass_to=%2,").arg(acceptance.counted).arg(acceptance.end.kass);
    return InvoiceWriting::close(db, acceptance.message, result->mark, accepted) &&
           passRegister(db, invoice.to, acceptance, acceptance.counted, result);
}

/// Also of a shop that is blocked by now: its cash must not stay on the way.
bool writeCancelling(const Db &db, const CashCancelling &cancelling, InvoiceResult *result)
{
    result->mark.invoice = cancelling.invoice;
    InvoiceWriting::Locked invoice;
    return mayWrite(db, cancelling.user, result) &&
           InvoiceWriting::lock(db, cancelling.invoice, InvoiceKind::Cash, &invoice, result) &&
           isSumAsShown(invoice, cancelling.sent, result) &&
           InvoiceWriting::close(db, cancelling.message, result->mark) &&
           passRegister(db, invoice.from, cancelling, invoice.cash, result);
}

/// Asks no server.
QString refusalOf(const CashSending &sending)
{
    if (sending.from == 0 || sending.to == 0)
        return Texts::tr("Виберіть магазин, до якого передається готівка.");
    if (sending.from == sending.to)
        return Texts::tr("Готівку не можна передати до того самого магазину. Виберіть інший.");
    return sending.sum > 0 && sending.sum <= Receipt::maximum ? QString()
                                                              : Texts::tr("Введіть суму, більшу за нуль.");
}
} // namespace

InvoiceResult sendCash(const Db &db, const CashSending &sending)
{
    InvoiceResult result;
    const QString why = refusalOf(sending);
    if (!why.isEmpty()) {
        refuse(&result, why);
        return result;
    }
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::sender(sending.user), writtenTables(sending.end), sending.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeSending(tried, sending, written); });
}

InvoiceResult acceptCash(const Db &db, const CashAcceptance &acceptance)
{
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::closer(acceptance.user), writtenTables(acceptance.end), acceptance.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeAcceptance(tried, acceptance, written); });
}

InvoiceResult cancelCash(const Db &db, const CashCancelling &cancelling)
{
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::closer(cancelling.user), writtenTables(cancelling.end), cancelling.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeCancelling(tried, cancelling, written); });
}
