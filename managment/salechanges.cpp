#include "salechanges.h"

#include "money.h"

#include <QHash>

namespace {
struct SaleChangesText
{
    Q_DECLARE_TR_FUNCTIONS(SaleChanges)
};

QString promotion(const ReceiptRow &row)
{
    return row.actType == ReceiptRow::withoutAction ? SaleChangesText::tr("без акції")
                                                    : promotionCaption(row);
}

/// The goods as they are sold now, by their ids; a barcode each is enough.
std::optional<QHash<quint32, ReceiptRow>> soldNow(const Db &db, const GoodsSearch &search)
{
    auto query = db.run(goodsListSql(search));
    if (!query)
        return std::nullopt;
    QHash<quint32, ReceiptRow> rows;
    while (query->next()) {
        const ReceiptRow row(goodsItem(*query));
        if (!rows.contains(row.idGoods))
            rows.insert(row.idGoods, row);
    }
    return rows;
}

QStringList differences(const ReceiptRow &before, const ReceiptRow &now)
{
    QStringList lines;
    const auto tell = [&](const QString &words, const QString &from, const QString &to) {
        lines.append(SaleChangesText::tr("«%1»: %2: %3 → %4").arg(before.name, words, from, to));
    };
    if (before.price != now.price)
        tell(SaleChangesText::tr("ціна змінилась"), moneyShown(before.price), moneyShown(now.price));
    if (before.actType != now.actType ||
        (before.actType != ReceiptRow::withoutAction && before.actVal != now.actVal))
        tell(SaleChangesText::tr("акція змінилась"), promotion(before), promotion(now));
    if (before.tax != now.tax)
        tell(SaleChangesText::tr("податкова група змінилась"), QString::number(before.tax),
             QString::number(now.tax));
    return lines;
}

/// Why the goods item is not in the list any more; nothing after a failure.
std::optional<QString> whyNotSold(const Db &db, const ReceiptRow &row)
{
    const auto block =
        db.firstText(QStringLiteral("SELECT IFNULL(block,0)<>0 FROM goods WHERE id=%1").arg(row.idGoods));
    if (!block)
        return std::nullopt;
    return (*block == QLatin1String("1")
                ? SaleChangesText::tr("«%1»: товар заблоковано.")
                : SaleChangesText::tr("«%1»: товар більше не продається в цьому магазині."))
        .arg(row.name);
}

bool compareRow(const Db &db, const QHash<quint32, ReceiptRow> &sold, const ReceiptRow &before,
                SaleChanges *changes)
{
    const auto now = sold.constFind(before.idGoods);
    changes->rows.append(now == sold.constEnd() ? before : *now);
    if (now != sold.constEnd() && now->hasPrice) {
        for (const QString &line : differences(before, *now)) {
            if (!changes->told.contains(line))
                changes->told.append(line);
        }
        return true;
    }
    const auto why = now != sold.constEnd()
                         ? SaleChangesText::tr("«%1»: товар більше не має ціни.").arg(before.name)
                         : whyNotSold(db, before);
    if (why && !changes->blocking.contains(*why))
        changes->blocking.append(*why);
    return why.has_value();
}
} // namespace

std::optional<SaleChanges> saleChanges(const Db &db, const Receipt &receipt, GoodsSearch search)
{
    constexpr int allBarcodes = 1000000;
    search.by = GoodsSearch::Goods;
    search.limit = allBarcodes;
    for (const ReceiptRow &row : receipt.rows())
        search.goods.append(row.idGoods);
    const auto sold = soldNow(db, search);
    if (!sold)
        return std::nullopt;
    SaleChanges changes;
    for (const ReceiptRow &row : receipt.rows()) {
        if (!compareRow(db, *sold, row, &changes))
            return std::nullopt;
    }
    return changes;
}
