#include "invoicewriter.h"

#include "invoicewriting.h"
#include "money.h"

#include <QCoreApplication>
#include <QSet>
#include <QSqlQuery>
#include <functional>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InvoiceWriter)
};

/// So many rows go into one statement.
constexpr int batchRows = 500;

using InvoiceWriting::refuse;

const QStringList &writtenTables()
{
    static const QStringList tables = {QStringLiteral("invoice"), QStringLiteral("transactions_goods"),
                                       QStringLiteral("goods_shop")};
    return tables;
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

/// Nothing comes between the check and COMMIT: the rows of the stock are locked.
bool writeSending(const Db &db, const InvoiceDraft &draft, InvoiceResult *result)
{
    const QVector<InvoiceLine> lines = mergedLines(draft.lines);
    const QVector<StockChange> changes = changesOf(lines, -1, sentOf);
    if (!InvoiceWriting::mayTrade(db, {draft.from, draft.to}, InvoiceKind::Goods, result))
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
    InvoiceWriting::Locked invoice;
    if (!InvoiceWriting::lock(db, draft.invoice, InvoiceKind::Goods, &invoice, result) ||
        !InvoiceWriting::mayTrade(db, {invoice.to}, InvoiceKind::Goods, result))
        return false;
    const auto stored = lockedLines(db, draft.invoice);
    return stored && isCounted(*stored, draft.lines, result) && writeLines(db, draft.invoice, draft.lines) &&
           InvoiceWriting::close(db, draft.message, result->mark) &&
           putIntoStock(db, invoice.to, draft.place, changesOf(draft.lines, 1, countedOf), result);
}

/// Also of a shop that is blocked by now: its goods must not stay on the way.
bool writeCancelling(const Db &db, const CancelDraft &draft, InvoiceResult *result)
{
    result->mark.invoice = draft.invoice;
    InvoiceWriting::Locked invoice;
    if (!InvoiceWriting::lock(db, draft.invoice, InvoiceKind::Goods, &invoice, result))
        return false;
    const auto lines = lockedLines(db, draft.invoice);
    return lines && InvoiceWriting::close(db, draft.message, result->mark) &&
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
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::sender(draft.user), writtenTables(), std::nullopt,
        [&](const Db &tried, InvoiceResult *written) { return writeSending(tried, draft, written); });
}

std::optional<bool> isInvoiceSent(const Db &db, const InvoiceMark &mark)
{
    return InvoiceWriting::stands(db, mark, InvoiceWriting::sender(mark.user));
}

InvoiceResult acceptInvoice(const Db &db, const AcceptDraft &draft)
{
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::closer(draft.user), writtenTables(), draft.unclear,
        [&](const Db &tried, InvoiceResult *written) { return writeAcceptance(tried, draft, written); });
}

InvoiceResult cancelInvoice(const Db &db, const CancelDraft &draft)
{
    return InvoiceWriting::inTransaction(
        db, InvoiceWriting::closer(draft.user), writtenTables(), draft.unclear,
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
