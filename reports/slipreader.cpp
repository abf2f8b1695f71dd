#include "slipreader.h"

#include "chekquery.h"
#include "cheks.h"
#include "qmessevent.h"

#include <QCoreApplication>
#include <QSqlQuery>
#include <QSqlRecord>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Slip)
};

constexpr int pieceGoods = 1;

QString condition(const SlipKey &key)
{
    const QString number = QStringLiteral(" AND cheks.id_chek=%1").arg(key.chek);
    return key.shop == 0
               ? cheksOfRegister(QString::number(key.kass), QStringLiteral("cheks.")) + number
               : QStringLiteral("cheks.id_shop=%1 AND cheks.id_kass=%2").arg(key.shop).arg(key.kass) + number;
}

bool readHead(const Db &db, const SlipKey &key, Slip *slip)
{
    // The time as text: a local QDateTime loses the hour that summer time skips.
    const QString sql =
        QStringLiteral("SELECT shops.address,kassa.advertising_str,cheks.data_time,cheks.id_zvit,"
                       "CAST(cheks.data_time AS CHAR) FROM cheks "
                       "LEFT JOIN shops ON shops.id=cheks.id_shop LEFT JOIN kassa ON kassa.id=cheks.id_kass "
                       "WHERE ") +
        condition(key) + QStringLiteral(" LIMIT 1");
    const auto head = db.firstRow(sql);
    if (!head)
        return false;
    if (head->isEmpty()) {
        postMessage(db.receiver(), Texts::tr("Відсутні дані після запиту:") + QLatin1Char('\n') + sql);
        return false;
    }
    slip->shop = head->at(0);
    slip->kass = head->at(1);
    slip->time = head->at(4);
    slip->number = slip->type == ChekType::ZReport ? head->at(3) : QString::number(key.chek);
    return true;
}

/// The statement of each kind of document asks for other columns: they are read by their names.
QString columnsOf(int type)
{
    if (ChekType::isGoodsDocument(type))
        return QStringLiteral(
            "id_good_cln_slujb,name,count,strihcode,type,id_position,dis_bon_bez2 AS stock_place");
    const QString columns = QStringLiteral("id_type,id_good_cln_slujb,name,count,price,summa,dis_bon_bez2");
    return type == ChekType::ZReport ? columns : columns + QStringLiteral(",type,tax,id_position");
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
    row.card = row.type == ChekType::Payment ? number("tax") : 0;
    row.position = number("id_position");
    row.stockPlace = static_cast<int>(number("stock_place"));
    return row;
}

bool readRows(const Db &db, const SlipKey &key, Slip *slip)
{
    auto rows = db.run(QStringLiteral("SELECT ") + columnsOf(slip->type) +
                       QStringLiteral(" FROM cheks WHERE ") + condition(key));
    while (rows && rows->next())
        slip->rows.append(rowOf(rows->record()));
    std::stable_sort(slip->rows.begin(), slip->rows.end(),
                     [](const SlipRow &one, const SlipRow &other) { return one.position < other.position; });
    return rows.has_value();
}

bool readSums(const Db &db, const SlipKey &key, SlipSums *sums)
{
    const auto row = db.firstRow(chekSumsSql(condition(key)));
    if (!row || row->isEmpty())
        return false;
    qint64 *const values[] = {&sums->goods, &sums->discount, &sums->toPay, &sums->paid};
    for (int i = 0; i < 4; ++i)
        *values[i] = row->at(i).toLongLong();
    sums->payments = row->at(4).toInt();
    return true;
}

const struct
{
    const char *letter;
    const char *columns;
} taxGroups[] = {
    {QT_TRANSLATE_NOOP("Slip", "А"), "Oborot_A,Oborot_A_ret,PDV_A,DOD_A"},
    {QT_TRANSLATE_NOOP("Slip", "Б"), "Oborot_B,Oborot_B_ret,PDV_B,DOD_B"},
    {QT_TRANSLATE_NOOP("Slip", "В"), "Oborot_V,Oborot_V_ret,PDV_V,DOD_V"},
    {QT_TRANSLATE_NOOP("Slip", "Г"), "Oborot_G,Oborot_G_ret,PDV_G,DOD_G"},
    {QT_TRANSLATE_NOOP("Slip", "Д"), "Oborot_D,Oborot_D_ret,PDV_D,DOD_D"},
};

QString shiftSql(const Slip &slip, const SlipKey &key)
{
    QStringList columns;
    for (const auto &group : taxGroups)
        columns.append(QLatin1String(group.columns));
    return QStringLiteral("SELECT ") + columns.join(QLatin1Char(',')) +
           QStringLiteral(",cash,beznal_1,beznal_2,beznal_3,summ_diskount,count_cheks,count_chek_diskount,"
                          "count_chek_canc,count_position_canc,vnesenia,viluchenia FROM z_zvit WHERE "
                          "id_zzvit=%1 AND id_kass=%2")
               .arg(slip.number)
               .arg(key.kass);
}

SlipShift figuresOf(const QSqlQuery &row)
{
    int column = 0;
    const auto next = [&row, &column] { return row.value(column++).toLongLong(); };
    SlipShift shift;
    for (const auto &group : taxGroups) {
        SlipTax tax;
        tax.letter = Texts::tr(group.letter);
        for (qint64 *value : {&tax.turnover, &tax.returned, &tax.rate, &tax.surcharge})
            *value = next();
        shift.taxes.append(tax);
    }
    for (qint64 *value : {&shift.cash, &shift.card, &shift.certificate, &shift.otherPayment, &shift.discount,
                          &shift.cheks, &shift.discountedCheks, &shift.cancelledCheks,
                          &shift.cancelledPositions, &shift.cashIn, &shift.cashOut})
        *value = next();
    return shift;
}

/// A shift that is no longer there leaves the figures out.
bool readShift(const Db &db, const SlipKey &key, Slip *slip)
{
    auto query = db.run(shiftSql(*slip, key));
    if (query && query->next())
        slip->shift = figuresOf(*query);
    return query.has_value();
}
} // namespace

std::optional<Slip> readSlip(const Db &db, int type, const SlipKey &key)
{
    Slip slip;
    slip.type = type;
    if (!readHead(db, key, &slip) || !readRows(db, key, &slip))
        return {};
    if (type == ChekType::ZReport ? !readShift(db, key, &slip)
                                  : !ChekType::isGoodsDocument(type) && !readSums(db, key, &slip.sums))
        return {};
    return slip;
}

std::optional<Slip> readNewSlip(const Db &db, SlipKey key)
{
    const auto shop = db.firstText(QStringLiteral("SELECT id_shop FROM kassa WHERE id=%1").arg(key.kass));
    key.shop = shop.value_or(QString()).toUInt();
    const auto type = shop ? db.firstText(QStringLiteral("SELECT id_type FROM cheks WHERE ") +
                                          condition(key) + QStringLiteral(" AND id_position=0"))
                           : std::nullopt;
    if (!type)
        return std::nullopt;
    const bool isOfGoods = ChekType::isGoodsDocument(type->toInt());
    return readSlip(db, isOfGoods ? type->toInt() : int(ChekType::Payment), key);
}
