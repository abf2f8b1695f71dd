#include "invoicereader.h"

#include "ean13.h"
#include "goodsitem.h"
#include "qmessevent.h"
#include "sqldate.h"

#include <QCoreApplication>
#include <QSqlQuery>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InvoiceReader)
};

/// More than one is too many to choose by itself.
constexpr int mostFound = 3;

bool readHead(const Db &db, ReadInvoice *invoice)
{
    auto query = db.run(
        QStringLiteral(
            "SELECT sender.address,receiver.address,invoice.data_time_open,"
            "TRIM(CONCAT(users.surname,' ',users.name)),invoice.msg_with,IFNULL(invoice.data_time_close=0,1) FROM invoice LEFT JOIN "
            "shops AS sender ON sender.id=invoice.id_shop_with LEFT JOIN shops AS receiver ON "
            "receiver.id=invoice.id_shop_to LEFT JOIN users ON users.id=invoice.id_user_with WHERE "
            "invoice.id=%1 AND IFNULL(invoice.is_cash_goods,0)=0")
            .arg(invoice->id));
    if (!query)
        return false;
    if (!query->next()) {
        postMessage(db.receiver(), Texts::tr("Накладної № %1 немає. Оновіть список.").arg(invoice->id));
        return false;
    }
    if (query->value(5).toInt() == 0) {
        postMessage(db.receiver(), Texts::tr("Накладну № %1 тим часом уже закрито.").arg(invoice->id));
        return false;
    }
    invoice->from = toText(query->value(0));
    invoice->to = toText(query->value(1));
    invoice->sent = QStringList{shownDateTime(query->value(2).toDateTime()), toText(query->value(3))}.join(
        QStringLiteral(", "));
    invoice->message = toText(query->value(4));
    return true;
}

bool readLines(const Db &db, ReadInvoice *invoice)
{
    auto query = db.run(
        QStringLiteral("SELECT line.id_good,goods.name,goods.type,line.count_send FROM transactions_goods AS "
                       "line LEFT JOIN goods ON goods.id=line.id_good WHERE line.id_invoice=%1 ORDER BY "
                       "goods.name,line.id_good")
            .arg(invoice->id));
    while (query && query->next())
        invoice->lines.append({query->value(0).toUInt(), toText(query->value(1)),
                               query->value(2).toInt() == GoodsItem::pieceGoods,
                               query->value(3).toLongLong()});
    return query.has_value();
}

/// A line shows the first of the barcodes of its item.
bool readBarcodes(const Db &db, ReadInvoice *invoice)
{
    auto query =
        db.run(QStringLiteral(
                   "SELECT dk_shc.shtrihcod,dk_shc.id_goods FROM dk_shc JOIN transactions_goods AS line ON "
                   "line.id_good=dk_shc.id_goods WHERE line.id_invoice=%1 ORDER BY dk_shc.shtrihcod")
                   .arg(invoice->id));
    QHash<DbId, QString> first;
    while (query && query->next()) {
        const QString code = toText(query->value(0));
        const DbId goods = query->value(1).toUInt();
        invoice->barcodes.insert(code, goods);
        if (!first.contains(goods))
            first.insert(goods, code);
    }
    for (InvoiceLine &line : invoice->lines)
        line.barcode = first.value(line.goods);
    return query.has_value();
}

std::optional<QVector<InvoiceLine>> goodsWhere(const Db &db, const QString &condition)
{
    auto query = db.run(QStringLiteral("SELECT goods.id,goods.name,goods.type,(SELECT MIN(dk_shc.shtrihcod) "
                                       "FROM dk_shc WHERE dk_shc.id_goods=goods.id) FROM goods WHERE ") +
                        condition + QStringLiteral(" ORDER BY goods.id LIMIT %1").arg(mostFound));
    if (!query)
        return std::nullopt;
    QVector<InvoiceLine> found;
    while (query->next()) {
        found.append({query->value(0).toUInt(), toText(query->value(1)),
                      query->value(2).toInt() == GoodsItem::pieceGoods});
        found.last().barcode = toText(query->value(3));
    }
    return found;
}
} // namespace

std::optional<ReadInvoice> readInvoice(const Db &db, DbId invoice)
{
    ReadInvoice read;
    read.id = invoice;
    const bool isWhole = readHead(db, &read) && readLines(db, &read) && readBarcodes(db, &read);
    return isWhole ? std::optional(read) : std::nullopt;
}

std::optional<QVector<InvoiceLine>> findInvoiceGoods(const Db &db, const QString &text)
{
    const QString wanted = text.trimmed();
    QStringList ways = {
        QStringLiteral("goods.id IN (SELECT dk_shc.id_goods FROM dk_shc WHERE dk_shc.shtrihcod=%1)")
            .arg(lit(wanted))};
    if (isAllDigits(wanted))
        ways.append(QStringLiteral("goods.id=") + lit(wanted));
    else
        ways.append(likeWords(QStringLiteral("(goods.name LIKE %1 OR goods.name_short LIKE %1)"), wanted));
    for (const QString &way : qAsConst(ways)) {
        auto found = way.isEmpty() ? QVector<InvoiceLine>() : goodsWhere(db, way);
        if (!found || !found->isEmpty())
            return found;
    }
    return QVector<InvoiceLine>();
}
