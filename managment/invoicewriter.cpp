#include "invoicewriter.h"

#include "heldmessages.h"
#include "money.h"
#include "qupdatebd.h"
#include "saleclock.h"
#include "servererror.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QSet>
#include <QSqlQuery>
#include <functional>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InvoiceWriter)
};

/// A server that stays silent longer is asked again by the user.
constexpr int answerMs = 3000;
/// So many rows go into one statement.
constexpr int batchRows = 500;

bool refuse(InvoiceResult *result, const QString &why)
{
    result->outcome = InvoiceResult::Refused;
    result->why = why;
    return false;
}

InvoiceResult::Outcome outcomeOfFailure(const Db &db)
{
    const int error = db.lastErrorNumber();
    const bool isInTheWay = error == ServerError::LockWait || error == ServerError::Deadlock;
    return isInTheWay ? InvoiceResult::Locked : InvoiceResult::Failed;
}

/// Whether that writing stands in the database; nothing when the server did not tell, also while a
/// transaction of the lost connection is still open there.
std::optional<bool> stands(const Db &db, const InvoiceMark &mark, const char *user, const char *time)
{
    const auto count = db.firstText(QStringLiteral("SELECT COUNT(*) FROM invoice WHERE id=%1 AND %2=%3 AND "
                                                   "%4=%5 LOCK IN SHARE MODE")
                                        .arg(mark.invoice)
                                        .arg(QLatin1String(user))
                                        .arg(mark.user)
                                        .arg(QLatin1String(time), mark.time));
    if (!count || count->isEmpty())
        return std::nullopt;
    return *count != QLatin1String("0");
}

/// Who writes, and by which columns the writing is known.
struct Writing
{
    DbId user;
    const char *userColumn;
    const char *timeColumn;
};
const char *const sentBy = "id_user_with";
const char *const sentAt = "data_time_open";
const char *const closedBy = "id_user_to";
const char *const closedAt = "data_time_close";

template<typename Write>
InvoiceResult writeOnce(const Db &db, const Writing &writing, const Write &write)
{
    InvoiceResult result;
    result.mark.user = writing.user;
    result.mark.time = sqlDateTime(SaleClock::now());
    Transaction transaction(db);
    if (!transaction)
        return result;
    const QStringList tables = {QStringLiteral("invoice"), QStringLiteral("transactions_goods"),
                                QStringLiteral("goods_shop")};
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

/// unclear: a writing before this one is asked for first.
template<typename Write>
InvoiceResult inTransaction(const Db &db, const Writing &writing, const std::optional<InvoiceMark> &unclear,
                            const Write &write)
{
    const auto isThere = [&](const InvoiceMark &mark) {
        return stands(db, mark, writing.userColumn, writing.timeColumn);
    };
    InvoiceResult result;
    if (unclear) {
        result.mark = *unclear;
        const auto arrived = isThere(*unclear);
        result.outcome = arrived ? InvoiceResult::Written : InvoiceResult::Unclear;
        if (!arrived || *arrived)
            return result;
    }
    result = triedAgain(
        db, [&](const Db &tried) { return writeOnce(tried, writing, write); },
        [](const InvoiceResult &tried) { return tried.outcome == InvoiceResult::Locked; });
    if (result.outcome == InvoiceResult::Unclear) {
        waitForServer(db, answerMs);
        if (const auto arrived = isThere(result.mark))
            result.outcome = *arrived ? InvoiceResult::Written : InvoiceResult::Failed;
    }
    return result;
}

/// The lines with each item once, in the order in which they came.
QVector<InvoiceLine> mergedLines(const QVector<InvoiceLine> &lines)
{
    QVector<InvoiceLine> merged;
    QHash<DbId, int> places;
    for (const InvoiceLine &line : lines) {
        const auto place = places.constFind(line.goods);
        if (place == places.constEnd()) {
            places.insert(line.goods, merged.size());
            merged.append(line);
        } else {
            merged[*place].sent += line.sent;
        }
    }
    return merged;
}

/// Two shops are read in one order by all; a blocked one neither sends nor gets goods.
bool mayTrade(const Db &db, const QVector<DbId> &shops, InvoiceResult *result)
{
    for (const DbId shop : shops) {
        const auto cells = db.firstRow(
            QStringLiteral("SELECT address,IFNULL(block,0)<>0 FROM shops WHERE id=%1 LOCK IN SHARE MODE")
                .arg(shop));
        if (!cells)
            return false;
        if (cells->isEmpty())
            return refuse(result, Texts::tr("Магазину № %1 вже немає. Виберіть інший.").arg(shop));
        if (cells->at(1) == QLatin1String("1"))
            return refuse(result, Texts::tr("Магазин «%1» заблоковано: товар до нього і з нього не "
                                            "передають. Нічого не записано.")
                                      .arg(cells->at(0)));
    }
    return true;
}

/// Locks the rows of the stock and adds to them, as far as they can hold it.
bool putIntoStock(const Db &db, DbId shop, StockPlace place, const QVector<StockChange> &changes,
                  InvoiceResult *result)
{
    const auto counts = ShopStock::lock(db, shop, changes);
    if (!counts)
        return false;
    if (const StockChange *change = ShopStock::overflowing(*counts, place, changes))
        return refuse(result, Texts::tr("«%1»: стільки в магазині не вміститься: залишок став би більшим за "
                                        "%2. Перевірте кількість.")
                                  .arg(change->name, quantityShown(maximumThousandths)));
    return ShopStock::add(db, shop, place, changes);
}

/// sign: 1 for goods that come, -1 for those that leave.
QVector<StockChange> changesOf(const QVector<InvoiceLine> &lines, int sign,
                               const std::function<qint64(const InvoiceLine &)> &quantity)
{
    QVector<StockChange> changes;
    for (const InvoiceLine &line : lines) {
        if (quantity(line) != 0)
            changes.append({line.goods, line.name, sign * quantity(line)});
    }
    return changes;
}

qint64 sentOf(const InvoiceLine &line)
{
    return line.sent;
}

qint64 countedOf(const InvoiceLine &line)
{
    return line.counted.value_or(0);
}

/// A row of `invoice`, locked.
struct LockedInvoice
{
    DbId from = 0;
    DbId to = 0;
};

QString dayAndTime(const QString &stored)
{
    return QDateTime::fromString(stored, QStringLiteral("yyyy-MM-dd hh:mm:ss"))
        .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

/// Who has closed it before, when and how.
bool tellClosed(const Db &db, DbId invoice, const QStringList &cells, InvoiceResult *result)
{
    const auto accepted = db.firstText(QStringLiteral("SELECT COUNT(*) FROM transactions_goods WHERE "
                                                      "id_invoice=%1 AND (result IS NOT NULL OR "
                                                      "count_accept IS NOT NULL)")
                                           .arg(invoice));
    if (!accepted)
        return false;
    result->outcome = InvoiceResult::Closed;
    const QString what =
        *accepted == QLatin1String("0") ? Texts::tr("вже скасовано") : Texts::tr("вже прийнято");
    const QString who = cells.at(4).isEmpty() ? Texts::tr("користувач невідомий") : cells.at(4);
    result->why = Texts::tr("Накладну № %1 %2: %3, %4. Нічого не записано.")
                      .arg(QString::number(invoice), what, who, dayAndTime(cells.at(5)));
    return false;
}

/// The row stays locked to the end: of two who close it the later one finds it closed.
bool lockInvoice(const Db &db, DbId invoice, LockedInvoice *locked, InvoiceResult *result)
{
    const auto cells = db.firstRow(
        QStringLiteral(
            "SELECT invoice.id_shop_with,invoice.id_shop_to,IFNULL(invoice.is_cash_goods,0)<>0,"
            "NOT IFNULL(invoice.data_time_close=0,1),(SELECT TRIM(CONCAT(users.surname,' ',users.name)) "
            "FROM users WHERE users.id=invoice.id_user_to),invoice.data_time_close FROM invoice "
            "WHERE invoice.id=%1 FOR UPDATE")
            .arg(invoice));
    if (!cells)
        return false;
    if (cells->isEmpty() || cells->at(2) == QLatin1String("1"))
        return refuse(result, Texts::tr("Накладної на товар № %1 немає. Оновіть список.").arg(invoice));
    if (cells->at(3) == QLatin1String("1"))
        return tellClosed(db, invoice, *cells, result);
    locked->from = cells->at(0).toUInt();
    locked->to = cells->at(1).toUInt();
    return true;
}

/// Nothing after a reported failure.
std::optional<QVector<InvoiceLine>> lockedLines(const Db &db, DbId invoice)
{
    auto query =
        db.run(QStringLiteral("SELECT transactions_goods.id_good,goods.name,"
                              "transactions_goods.count_send FROM transactions_goods LEFT JOIN goods "
                              "ON goods.id=transactions_goods.id_good WHERE "
                              "transactions_goods.id_invoice=%1 FOR UPDATE")
                   .arg(invoice));
    if (!query)
        return std::nullopt;
    QVector<InvoiceLine> lines;
    while (query->next())
        lines.append(
            {query->value(0).toUInt(), toText(query->value(1)), false, query->value(2).toLongLong()});
    return lines;
}

/// Lines of an invoice; what of them is written besides their number and item.
bool writeLines(const Db &db, DbId invoice, const QVector<InvoiceLine> &lines)
{
    for (int first = 0; first < lines.size(); first += batchRows) {
        QStringList rows;
        for (const InvoiceLine &line : lines.mid(first, batchRows)) {
            const QString accepted =
                line.counted
                    ? QStringLiteral("%1,%2").arg(*line.counted).arg(*line.counted == line.sent ? 1 : 0)
                    : QStringLiteral("NULL,NULL");
            rows.append(QStringLiteral("(%1,%2,%3,%4)")
                            .arg(QString::number(invoice), QString::number(line.goods),
                                 QString::number(line.sent), accepted));
        }
        if (!db.run(
                QStringLiteral("INSERT INTO transactions_goods(id_invoice,id_good,count_send,count_accept,"
                               "result) VALUES%1 ON DUPLICATE KEY UPDATE "
                               "count_accept=VALUES(count_accept),result=VALUES(result)")
                    .arg(rows.join(QLatin1Char(',')))))
            return false;
    }
    return true;
}

/// What the operator has not agreed to: a count below zero, or below the one that was agreed to.
QVector<Shortage> shortagesOf(const InvoiceDraft &draft, const QVector<InvoiceLine> &lines,
                              const ShopStock::Counts &counts)
{
    QVector<Shortage> shortages;
    for (const InvoiceLine &line : lines) {
        const qint64 stock = counts.value(line.goods).at(draft.place);
        if (stock - line.sent < draft.agreed.value(line.goods, 0))
            shortages.append({line.goods, line.name, stock, line.sent});
    }
    return shortages;
}

bool insertInvoice(const Db &db, const InvoiceDraft &draft, InvoiceResult *result)
{
    const auto inserted =
        db.run(QStringLiteral("INSERT INTO invoice(id_user_with,id_shop_with,id_shop_to,is_cash_goods,"
                              "msg_with,data_time_open,data_time_close) "
                              "VALUES(:user,:from,:to,0,:message,%1,0)")
                   .arg(result->mark.time),
               {{QStringLiteral(":user"), draft.user},
                {QStringLiteral(":from"), draft.from},
                {QStringLiteral(":to"), draft.to},
                {QStringLiteral(":message"), nullIfEmpty(draft.message.trimmed())}});
    const auto id = inserted ? db.lastInsertId() : std::nullopt;
    result->mark.invoice = static_cast<DbId>(id.value_or(0));
    return id.has_value();
}

bool closeInvoice(const Db &db, const QString &message, const InvoiceMark &mark)
{
    return db
        .run(QStringLiteral(
                 "UPDATE invoice SET id_user_to=:user,msg_to=:message,data_time_close=%1 WHERE id=%2")
                 .arg(mark.time)
                 .arg(mark.invoice),
             {{QStringLiteral(":user"), mark.user},
              {QStringLiteral(":message"), nullIfEmpty(message.trimmed())}})
        .has_value();
}

/// Nothing comes between the check and COMMIT: the rows of the stock are locked.
bool writeSending(const Db &db, const InvoiceDraft &draft, InvoiceResult *result)
{
    const QVector<InvoiceLine> lines = mergedLines(draft.lines);
    const QVector<StockChange> changes = changesOf(lines, -1, sentOf);
    if (!mayTrade(db, {qMin(draft.from, draft.to), qMax(draft.from, draft.to)}, result))
        return false;
    const auto counts = ShopStock::lock(db, draft.from, changes);
    if (!counts)
        return false;
    result->shortages = shortagesOf(draft, lines, *counts);
    if (!result->shortages.isEmpty()) {
        result->outcome = InvoiceResult::Short;
        return false;
    }
    if (const StockChange *change = ShopStock::overflowing(*counts, draft.place, changes))
        return refuse(result, Texts::tr("«%1»: залишок став би меншим за −%2. Зменште кількість.")
                                  .arg(change->name, quantityShown(maximumThousandths)));
    return insertInvoice(db, draft, result) && writeLines(db, result->mark.invoice, lines) &&
           ShopStock::add(db, draft.from, draft.place, changes);
}

/// Why a line cannot be accepted; empty when it can.
QString countRefusal(const InvoiceLine &line)
{
    if (!line.counted)
        return Texts::tr("«%1» не пораховано: введіть кількість, 0 — коли товару немає.").arg(line.name);
    if (*line.counted < 0 || *line.counted > maximumThousandths)
        return Texts::tr("«%1»: кількість має бути від 0 до %2.")
            .arg(line.name, quantityShown(maximumThousandths));
    return QString();
}

/// Whether the receiver has counted what stands in the invoice now, and each item once.
bool isCounted(const QVector<InvoiceLine> &stored, const QVector<InvoiceLine> &counted, InvoiceResult *result)
{
    QHash<DbId, qint64> sent;
    for (const InvoiceLine &line : stored)
        sent.insert(line.goods, line.sent);
    QSet<DbId> items;
    bool isSame = true;
    for (const InvoiceLine &line : counted) {
        const QString why = countRefusal(line);
        if (!why.isEmpty())
            return refuse(result, why);
        isSame = isSame && !items.contains(line.goods) && sent.take(line.goods) == line.sent;
        items.insert(line.goods);
    }
    return (isSame && sent.isEmpty()) ||
           refuse(result, Texts::tr("Рядки накладної тим часом змінились. Відкрийте її ще раз."));
}

bool writeAcceptance(const Db &db, const AcceptDraft &draft, InvoiceResult *result)
{
    result->mark.invoice = draft.invoice;
    LockedInvoice invoice;
    if (!lockInvoice(db, draft.invoice, &invoice, result) || !mayTrade(db, {invoice.to}, result))
        return false;
    const auto stored = lockedLines(db, draft.invoice);
    return stored && isCounted(*stored, draft.lines, result) && writeLines(db, draft.invoice, draft.lines) &&
           closeInvoice(db, draft.message, result->mark) &&
           putIntoStock(db, invoice.to, draft.place, changesOf(draft.lines, 1, countedOf), result);
}

/// Also of a shop that is blocked by now: its goods must not stay on the way.
bool writeCancelling(const Db &db, const CancelDraft &draft, InvoiceResult *result)
{
    result->mark.invoice = draft.invoice;
    LockedInvoice invoice;
    if (!lockInvoice(db, draft.invoice, &invoice, result))
        return false;
    const auto lines = lockedLines(db, draft.invoice);
    return lines && closeInvoice(db, draft.message, result->mark) &&
           putIntoStock(db, invoice.from, draft.place, changesOf(*lines, 1, sentOf), result);
}
} // namespace

QString sendRefusal(const InvoiceDraft &draft)
{
    if (draft.from == 0 || draft.to == 0)
        return Texts::tr("Виберіть магазин, до якого передається товар.");
    if (draft.from == draft.to)
        return Texts::tr("Товар не можна передати до того самого магазину. Виберіть інший.");
    if (draft.lines.isEmpty())
        return Texts::tr("У передачі немає товарів.");
    const QVector<InvoiceLine> lines = mergedLines(draft.lines);
    for (const InvoiceLine &line : lines) {
        if (line.sent <= 0)
            return Texts::tr("«%1»: введіть кількість, більшу за нуль.").arg(line.name);
        if (line.sent > maximumThousandths)
            return Texts::tr("«%1»: разом не може бути більше ніж %2.")
                .arg(line.name, quantityShown(maximumThousandths));
    }
    return QString();
}

InvoiceResult sendInvoice(const Db &db, const InvoiceDraft &draft)
{
    InvoiceResult result;
    const QString why = sendRefusal(draft);
    if (!why.isEmpty()) {
        refuse(&result, why);
        return result;
    }
    return inTransaction(
        db, {draft.user, sentBy, sentAt}, std::nullopt,
        [&](const Db &tried, InvoiceResult *written) { return writeSending(tried, draft, written); });
}

std::optional<bool> isInvoiceSent(const Db &db, const InvoiceMark &mark)
{
    return stands(db, mark, sentBy, sentAt);
}

InvoiceResult acceptInvoice(const Db &db, const AcceptDraft &draft)
{
    return inTransaction(
        db, {draft.user, closedBy, closedAt}, draft.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeAcceptance(tried, draft, written); });
}

InvoiceResult cancelInvoice(const Db &db, const CancelDraft &draft)
{
    return inTransaction(
        db, {draft.user, closedBy, closedAt}, draft.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeCancelling(tried, draft, written); });
}

QString explanation(const InvoiceResult &result)
{
    switch (result.outcome) {
    case InvoiceResult::Refused:
    case InvoiceResult::Closed:
        return result.why;
    case InvoiceResult::Failed:
        return Texts::tr("Нічого не записано. Повторіть.");
    case InvoiceResult::Locked:
        return Texts::tr("Залишки зараз записує інша програма. Нічого не записано. Повторіть.");
    case InvoiceResult::Unclear:
        return Texts::tr("Зв'язок обірвався під час запису, і невідомо, чи його збережено. Зачекайте, доки "
                         "зв'язок відновиться, і повторіть: програма спершу запитає сервер.");
    case InvoiceResult::Short:
    case InvoiceResult::Written:
        break;
    }
    return QString();
}

QHash<DbId, qint64> agreedCounts(const QVector<Shortage> &shortages)
{
    QHash<DbId, qint64> agreed;
    for (const Shortage &item : shortages)
        agreed.insert(item.goods, item.stock - item.quantity);
    return agreed;
}
