#include "stocksql.h"

#include "cheks.h"
#include "cheksql.h"
#include "db.h"

#include <QStringBuilder>

namespace {
QString number(qint64 value)
{
    return QString::number(value);
}

/// Thousands of them are made at once: each in one piece.
QString goodsRow(const QString &prefix, const StockRow &row, const StockMove &move, int position)
{
    const QString goods = number(row.idGoods);
    const QLatin1Char comma(',');
    const QString barcode = row.barcode.isEmpty() ? QStringLiteral("NULL") : barcodeInSql(row.barcode);
    return prefix % comma % number(move.type) % comma % number(position) % comma % goods %
           QLatin1String(",(SELECT name FROM goods WHERE id=") % goods % QLatin1String("),") %
           number(row.quantity) % QLatin1String(",0,0,") % number(row.tax) % comma %
           number(move.isCount ? countedPlace : static_cast<int>(move.place)) % comma % barcode % comma %
           number(row.type) % QLatin1Char(')');
}

/// Statements of some tuples each: begin, the tuples, end.
QStringList inBatches(const QString &begin, const QStringList &tuples, const QString &end = QString())
{
    QStringList statements;
    for (int from = 0; from < tuples.size(); from += StockSql::rowsAtOnce)
        statements.append(begin + tuples.mid(from, StockSql::rowsAtOnce).join(QLatin1Char(',')) + end);
    return statements;
}
} // namespace

QStringList StockSql::insertRows(const QVector<StockRow> &rows, const StockMove &move,
                                 const WrittenChek &chek)
{
    const QString prefix = ChekSql::prefix(chek);
    QStringList tuples;
    tuples.reserve(rows.size());
    for (int i = 0; i < rows.size(); ++i)
        tuples.append(goodsRow(prefix, rows.at(i), move, i));
    return inBatches(
        QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,"
                       "id_position,id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,strihcode,"
                       "type) VALUES"),
        tuples);
}
