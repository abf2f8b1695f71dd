#include "slipreader.h"

#include "chekquery.h"
#include "chektypes.h"
#include "qmessevent.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Slip)
};

constexpr int pieceGoods = 1;

QString condition(uint chek, uint kass)
{
    return QStringLiteral("cheks.id_kass=%1 AND cheks.id_chek=%2").arg(kass).arg(chek);
}

bool readHead(const Db &db, uint chek, uint kass, Slip *slip)
{
    const QString sql =
        QStringLiteral("SELECT shops.address,kassa.advertising_str,cheks.data_time,cheks.id_zvit FROM cheks "
                       "LEFT JOIN shops ON shops.id=cheks.id_shop LEFT JOIN kassa ON kassa.id=cheks.id_kass "
                       "WHERE ") +
        condition(chek, kass) + QStringLiteral(" LIMIT 1");
    auto head = db.run(sql);
    if (!head)
        return false;
    if (!head->next()) {
        postMessage(db.receiver(), Texts::tr("Відсутні дані після запиту:") + QLatin1Char('\n') + sql);
        return false;
    }
    slip->shop = toText(head->value(0));
    slip->kass = toText(head->value(1));
    slip->time = head->value(2).toDateTime();
    slip->number = slip->type == ChekType::ZReport ? toText(head->value(3)) : QString::number(chek);
    return true;
}

/// The statement of each kind of document asks for other columns: they are read by their names.
QString columnsOf(int type)
{
    if (ChekType::isGoodsDocument(type))
        return QStringLiteral("id_good_cln_slujb,name,count,strihcode,type");
    const QString columns = QStringLiteral("id_type,id_good_cln_slujb,name,count,price,summa,dis_bon_bez2");
    return type == ChekType::ZReport ? columns : columns + QStringLiteral(",type");
}

SlipRow rowOf(const QSqlRecord &record)
{
    // What the statement did not ask for is 0 or empty.
    const auto number = [&](const char *name) {
        const int column = record.indexOf(QLatin1String(name));
        return column < 0 ? 0 : record.value(column).toLongLong();
    };
    const auto text = [&](const char *name) {
        const int column = record.indexOf(QLatin1String(name));
        return column < 0 ? QString() : toText(record.value(column));
    };
    SlipRow row;
    row.type = static_cast<int>(number("id_type"));
    row.code = text("id_good_cln_slujb");
    row.name = text("name");
    row.barcode = text("strihcode");
    row.count = number("count");
    row.price = number("price");
    row.summa = number("summa");
    row.certificate = number("dis_bon_bez2");
    row.isPiece = number("type") == pieceGoods;
    return row;
}

bool readRows(const Db &db, uint chek, uint kass, Slip *slip)
{
    auto rows = db.run(QStringLiteral("SELECT ") + columnsOf(slip->type) +
                       QStringLiteral(" FROM cheks WHERE ") + condition(chek, kass));
    while (rows && rows->next())
        slip->rows.append(rowOf(rows->record()));
    return rows.has_value();
}

bool readSums(const Db &db, uint chek, uint kass, SlipSums *sums)
{
    auto query = db.run(chekSumsSql(QString::number(kass), QString::number(chek)));
    if (!query || !query->next())
        return false;
    qint64 *const values[] = {&sums->goods, &sums->discount, &sums->toPay, &sums->paid};
    for (int i = 0; i < 4; ++i)
        *values[i] = toText(query->value(i)).toLongLong();
    sums->payments = toText(query->value(4)).toInt();
    sums->card = toText(query->value(5)).toLongLong();
    return true;
}
} // namespace

std::optional<Slip> readSlip(const Db &db, int type, uint chek, uint kass)
{
    Slip slip;
    slip.type = type;
    if (!readHead(db, chek, kass, &slip) || !readRows(db, chek, kass, &slip))
        return {};
    const bool hasSums = type != ChekType::ZReport && !ChekType::isGoodsDocument(type);
    if (hasSums && !readSums(db, chek, kass, &slip.sums))
        return {};
    return slip;
}
