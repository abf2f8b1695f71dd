#include "periodreader.h"

#include "cheks.h"

#include <QCoreApplication>
#include <QSqlQuery>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PeriodReader)
};

const QLatin1String counted("goods.id_rules_goods IN (2,3) AND (IFNULL(goods.block,0)=0 OR "
                            "goods_shop.count_showroom<>0)");

/// The number of the register's newest Z receipt that the condition holds for, "0" for none: the key of the
/// types leads from one to the next, and behind it lies what is wanted, whatever date a receipt bears.
std::optional<QString> lastZChek(const Db &db, const QString &shop, const QString &kass,
                                 const QString &condition)
{
    const auto found = db.firstText(
        QStringLiteral("SELECT id_chek FROM cheks IGNORE INDEX(PRIMARY) WHERE id_type=%1 AND id_shop=%2 AND "
                       "id_kass=%3 AND %4 ORDER BY id_chek DESC LIMIT 1")
            .arg(QString::number(ChekType::ZReport), shop, kass, condition));
    return found && found->isEmpty() ? QStringLiteral("0") : found;
}

bool readNames(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    const auto names =
        db.firstRow(QStringLiteral("SELECT shops.address,(SELECT advertising_str FROM kassa WHERE "
                                   "id=%1) FROM shops WHERE shops.id=%2")
                        .arg(place.kass, place.shop));
    if (!names)
        return false;
    sheet->shop = names->value(0);
    sheet->kass = names->value(1);
    return true;
}

/// A period begins with the newest shift of day 1.
bool readBeginning(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    const auto shift = db.firstText(
        QStringLiteral(
            "SELECT IFNULL(MAX(IF(day=1,id_zzvit,NULL)),MIN(id_zzvit)) FROM z_zvit WHERE id_kass=%1")
            .arg(place.kass));
    if (!shift || shift->isEmpty())
        return shift.has_value();
    const auto before = lastZChek(db, place.shop, place.kass, QStringLiteral("id_zvit<") + *shift);
    const auto since =
        before ? db.firstText(
                     QStringLiteral(
                         "SELECT DATE_FORMAT(data_time,'%Y%m%d%H%i%s') FROM cheks WHERE "
                         "id_shop=%1 AND id_kass=%2 AND id_chek>%3 AND id_zvit>=%4 ORDER BY id_chek LIMIT 1")
                         .arg(place.shop, place.kass, *before, *shift))
               : std::nullopt;
    sheet->since = since.value_or(QString());
    return since.has_value();
}

bool readLastCount(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    const auto last = db.firstRow(
        QStringLiteral("SELECT DATE_FORMAT(cheks.data_time,'%d.%m.%Y %H:%i'),cheks.id_chek,"
                       "(SELECT advertising_str FROM kassa WHERE kassa.id=cheks.id_kass) FROM cheks WHERE "
                       "cheks.id_type=%1 AND cheks.id_shop=%2 AND cheks.dis_bon_bez2=%3 ORDER BY "
                       "cheks.data_time DESC LIMIT 1")
            .arg(QString::number(ChekType::GoodsReceipt), place.shop, QString::number(countedPlace)));
    if (last && !last->isEmpty())
        sheet->lastCount =
            Texts::tr("%1, каса «%2», документ № %3").arg(last->at(0), last->at(2), last->at(1));
    return last.has_value();
}

bool readGoods(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    auto query = db.run(QStringLiteral("SELECT goods.id,goods.name,(SELECT MIN(dk_shc.shtrihcod) FROM dk_shc "
                                       "WHERE dk_shc.id_goods=goods.id),goods.type,goods.tax,"
                                       "goods_shop.count_showroom,goods_shop.count_syllable FROM goods JOIN "
                                       "goods_shop ON goods_shop.id_goods=goods.id AND goods_shop.id_shop=%1 "
                                       "WHERE %2 ORDER BY goods.name,goods.id")
                            .arg(place.shop, counted));
    while (query && query->next())
        sheet->goods.append({query->value(0).toUInt(), toText(query->value(1)), toText(query->value(2)),
                             query->value(3).toInt(), query->value(4).toInt(), query->value(5).toLongLong(),
                             query->value(6).toLongLong()});
    return query.has_value();
}

bool readBarcodes(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    auto query =
        db.run(QStringLiteral("SELECT dk_shc.shtrihcod,dk_shc.id_goods FROM goods JOIN goods_shop ON "
                              "goods_shop.id_goods=goods.id AND goods_shop.id_shop=%1 JOIN dk_shc ON "
                              "dk_shc.id_goods=goods.id WHERE %2")
                   .arg(place.shop, counted));
    while (query && query->next())
        sheet->barcodes.insert(toText(query->value(0)), query->value(1).toUInt());
    return query.has_value();
}

/// Each register of the shop, and behind which receipt the period lies: along the key of the table only its
/// lines are read.
std::optional<QStringList> linesOfPeriod(const Db &db, const QString &shop, const QString &since)
{
    auto registers = db.run(QStringLiteral("SELECT DISTINCT id_kass FROM cheks WHERE id_shop=") + shop);
    QStringList ranges;
    while (registers && registers->next()) {
        const QString kass = toText(registers->value(0));
        const auto before = lastZChek(db, shop, kass, QStringLiteral("data_time<") + since);
        if (!before)
            return std::nullopt;
        ranges.append(QStringLiteral("(id_shop=%1 AND id_kass=%2 AND id_chek>%3)").arg(shop, kass, *before));
    }
    return registers ? std::optional(ranges) : std::nullopt;
}

bool readSold(const Db &db, const ChekPlace &place, PeriodSheet *sheet)
{
    if (sheet->goods.isEmpty() || sheet->since.isEmpty())
        return true;
    const auto ranges = linesOfPeriod(db, place.shop, sheet->since);
    if (!ranges || ranges->isEmpty())
        return ranges.has_value();
    QStringList ids;
    for (const PeriodGoods &goods : qAsConst(sheet->goods))
        ids.append(QString::number(goods.goods));
    auto query =
        db.run(QStringLiteral("SELECT id_good_cln_slujb,SUM(IF(id_type=%1,count,-count)) FROM cheks FORCE "
                              "INDEX(PRIMARY) WHERE (%2) AND id_type IN (%1,%3) AND data_time>=%4 AND "
                              "id_good_cln_slujb IN (%5) GROUP BY id_good_cln_slujb")
                   .arg(QString::number(ChekType::SoldGoods), ranges->join(QStringLiteral(" OR ")),
                        QString::number(ChekType::Return), sheet->since, ids.join(QLatin1Char(','))));
    QHash<DbId, qint64> sold;
    while (query && query->next())
        sold.insert(query->value(0).toUInt(), query->value(1).toLongLong());
    for (PeriodGoods &goods : sheet->goods)
        goods.sold = sold.value(goods.goods);
    return query.has_value();
}
} // namespace

std::optional<PeriodSheet> readPeriod(const Db &db, const ChekPlace &place)
{
    PeriodSheet sheet;
    const bool isWhole = readNames(db, place, &sheet) && readBeginning(db, place, &sheet) &&
                         readLastCount(db, place, &sheet) && readGoods(db, place, &sheet) &&
                         readBarcodes(db, place, &sheet) && readSold(db, place, &sheet);
    return isWhole ? std::optional(sheet) : std::nullopt;
}
