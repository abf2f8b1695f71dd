#include "invoicewriting.h"

#include "heldmessages.h"
#include "qupdatebd.h"
#include "saleclock.h"
#include "servererror.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QDateTime>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InvoiceWriter)
};

/// A server that stays silent longer is asked again by the user.
constexpr int answerMs = 3000;

InvoiceResult::Outcome outcomeOfFailure(const Db &db)
{
    return isOthersLock(db.lastErrorNumber()) ? InvoiceResult::Locked : InvoiceResult::Failed;
}

InvoiceResult writeOnce(const Db &db, DbId user, const QStringList &tables,
                        const InvoiceWriting::Write &write)
{
    InvoiceResult result;
    result.mark.user = user;
    result.mark.time = sqlDateTime(SaleClock::now());
    Transaction transaction(db);
    if (!transaction)
        return result;
    if (write(db, &result) && QUpdateBD().update(tables, *db.connection(), db.receiver())) {
        if (transaction.commit())
            result.outcome = InvoiceResult::Written;
        else
            result.outcome =
                isCommitRefused(db.lastErrorNumber()) ? outcomeOfFailure(db) : InvoiceResult::Unclear;
    } else if (result.outcome == InvoiceResult::Failed) {
        result.outcome = outcomeOfFailure(db);
    }
    return result;
}

QString dayAndTime(const QString &stored)
{
    return QDateTime::fromString(stored, QStringLiteral("yyyy-MM-dd hh:mm:ss"))
        .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

/// Who has closed it before, when and how.
bool tellClosed(DbId invoice, const QStringList &cells, InvoiceResult *result)
{
    result->outcome = InvoiceResult::Closed;
    const QString what =
        cells.at(6) == QLatin1String("0") ? Texts::tr("вже скасовано") : Texts::tr("вже прийнято");
    const QString who = cells.at(4).isEmpty() ? Texts::tr("користувач невідомий") : cells.at(4);
    result->why = Texts::tr("Накладну № %1 %2: %3, %4. Нічого не записано.")
                      .arg(QString::number(invoice), what, who, dayAndTime(cells.at(5)));
    return false;
}

QString blockedWords(InvoiceKind kind, const QString &shop)
{
    return (kind == InvoiceKind::Cash ? Texts::tr("Магазин «%1» заблоковано: готівку до нього і з нього не "
                                                  "передають. Нічого не записано.")
                                      : Texts::tr("Магазин «%1» заблоковано: товар до нього і з нього не "
                                                  "передають. Нічого не записано."))
        .arg(shop);
}
} // namespace

InvoiceWriting::Author InvoiceWriting::sender(DbId user)
{
    return {user, "id_user_with", "data_time_open"};
}

InvoiceWriting::Author InvoiceWriting::closer(DbId user)
{
    return {user, "id_user_to", "data_time_close"};
}

std::optional<bool> InvoiceWriting::stands(const Db &db, const InvoiceMark &mark, const Author &author)
{
    const auto count = db.firstText(QStringLiteral("SELECT COUNT(*) FROM invoice WHERE id=%1 AND %2=%3 AND "
                                                   "%4=%5 LOCK IN SHARE MODE")
                                        .arg(mark.invoice)
                                        .arg(QLatin1String(author.userColumn))
                                        .arg(mark.user)
                                        .arg(QLatin1String(author.timeColumn), mark.time));
    if (!count || count->isEmpty())
        return std::nullopt;
    return *count != QLatin1String("0");
}

InvoiceResult InvoiceWriting::inTransaction(const Db &db, const Author &author, const QStringList &tables,
                                            const std::optional<InvoiceMark> &unclear, const Write &write)
{
    InvoiceResult result;
    if (unclear) {
        result.mark = *unclear;
        const auto arrived = stands(db, *unclear, author);
        result.outcome = arrived ? InvoiceResult::Written : InvoiceResult::Unclear;
        if (!arrived || *arrived)
            return result;
    }
    result = triedAgain(
        db, [&](const Db &tried) { return writeOnce(tried, author.user, tables, write); },
        [](const InvoiceResult &tried) { return tried.outcome == InvoiceResult::Locked; });
    if (result.outcome == InvoiceResult::Unclear) {
        waitForServer(db, answerMs);
        if (const auto arrived = stands(db, result.mark, author))
            result.outcome = *arrived ? InvoiceResult::Written : InvoiceResult::Failed;
    }
    return result;
}

bool InvoiceWriting::refuse(InvoiceResult *result, const QString &why)
{
    result->outcome = InvoiceResult::Refused;
    result->why = why;
    return false;
}

bool InvoiceWriting::mayTrade(const Db &db, QVector<DbId> shops, InvoiceKind kind, InvoiceResult *result)
{
    std::sort(shops.begin(), shops.end());
    for (const DbId shop : qAsConst(shops)) {
        const auto cells = db.firstRow(
            QStringLiteral("SELECT address,IFNULL(block,0)<>0 FROM shops WHERE id=%1 LOCK IN SHARE MODE")
                .arg(shop));
        if (!cells)
            return false;
        if (cells->isEmpty())
            return refuse(result, Texts::tr("Магазину № %1 вже немає. Виберіть інший.").arg(shop));
        if (cells->at(1) == QLatin1String("1"))
            return refuse(result, blockedWords(kind, cells->at(0)));
    }
    return true;
}

bool InvoiceWriting::lock(const Db &db, DbId invoice, InvoiceKind kind, Locked *locked, InvoiceResult *result)
{
    const bool isCash = kind == InvoiceKind::Cash;
    const auto cells = db.firstRow(
        QStringLiteral(
            "SELECT invoice.id_shop_with,invoice.id_shop_to,IFNULL(invoice.is_cash_goods,0)<>0,"
            "NOT IFNULL(invoice.data_time_close=0,1),(SELECT TRIM(CONCAT(users.surname,' ',users.name)) "
            "FROM users WHERE users.id=invoice.id_user_to),invoice.data_time_close,"
            "invoice.cash_accept IS NOT NULL OR EXISTS(SELECT 1 FROM transactions_goods AS line WHERE "
            "line.id_invoice=invoice.id AND (line.result IS NOT NULL OR line.count_accept IS NOT NULL)),"
            "invoice.cash_send FROM invoice WHERE invoice.id=%1 FOR UPDATE")
            .arg(invoice));
    if (!cells)
        return false;
    if (cells->isEmpty() || cells->at(2) != QLatin1String(isCash ? "1" : "0"))
        return refuse(result, (isCash ? Texts::tr("Накладної на готівку № %1 немає. Оновіть список.")
                                      : Texts::tr("Накладної на товар № %1 немає. Оновіть список."))
                                  .arg(invoice));
    if (cells->at(3) == QLatin1String("1"))
        return tellClosed(invoice, *cells, result);
    locked->from = cells->at(0).toUInt();
    locked->to = cells->at(1).toUInt();
    locked->cash = cells->at(7).toLongLong();
    return true;
}

bool InvoiceWriting::close(const Db &db, const QString &message, const InvoiceMark &mark,
                           const QString &further)
{
    return db
        .run(QStringLiteral("UPDATE invoice SET %1id_user_to=:user,msg_to=:message,data_time_close=%2 WHERE "
                            "id=%3")
                 .arg(further, mark.time)
                 .arg(mark.invoice),
             {{QStringLiteral(":user"), mark.user},
              {QStringLiteral(":message"), nullIfEmpty(message.trimmed())}})
        .has_value();
}
