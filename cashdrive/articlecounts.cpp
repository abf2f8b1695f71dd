#include "articlecounts.h"

#include <QCoreApplication>
#include <QStringBuilder>
#include <limits>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ArticleCounts)
};

const QString noServerCode = QStringLiteral("000");

std::optional<QSet<quint64>> readIds(const Db &db, const QString &sql)
{
    const auto query = db.firstColumn(sql);
    if (!query)
        return std::nullopt;
    QSet<quint64> ids;
    ids.reserve(query->size());
    for (const QString &id : *query)
        ids.insert(id.toULongLong());
    return ids;
}
} // namespace

std::optional<QSet<quint64>> GetListGoodNoWrite(const Db &db)
{
    return readIds(db, QStringLiteral("SELECT id FROM goods WHERE group_g>1 AND group_g<6"));
}

std::optional<CountedGoods> readCountedGoods(const Db &db)
{
    const auto known = readIds(db, QStringLiteral("SELECT id FROM goods"));
    const auto never = known ? GetListGoodNoWrite(db) : std::nullopt;
    const auto codes = never ? db.firstColumn(QStringLiteral("SELECT cashdrive_code FROM kassa WHERE "
                                                             "cashdrive_code<>'000'"))
                             : std::nullopt;
    if (!codes)
        return std::nullopt;
    CountedGoods goods{*known, *never, {}};
    for (const QString &code : *codes)
        ++goods.registers[code];
    return goods;
}

QString articleRefusal(const CountedGoods &goods, const QString &kass, const ServerLine &line)
{
    const int registers = goods.registers.value(kass);
    if (registers == 0 || kass == noServerCode)
        return Texts::tr("Каси з кодом CashDrive %1 немає.").arg(kass);
    if (registers > 1)
        return Texts::tr("Код CashDrive %1 мають кілька кас: виправте його у вкладці \"Каси\".").arg(kass);
    if (!goods.known.contains(line.article))
        return Texts::tr("Товару немає в базі.");
    if (!QDate::isValid(line.year, line.month, line.day) || line.year < 1000 || line.year > 9999)
        return Texts::tr("Дати %1.%2.%3 не буває.").arg(line.day).arg(line.month).arg(line.year);
    if (line.thousandths < 0 || line.thousandths > std::numeric_limits<quint32>::max())
        return Texts::tr("Кількість поза межами.");
    return QString();
}

bool transToCdcheks(const Db &db, const QString &kass, quint64 article, qint64 thousandths, int year,
                    int month, int day)
{
    const QString count = QString::number(thousandths);
    // yyyyMMdd
    const QString dat = QString::number(year * 10000 + month * 100 + day);
    return db
        .run(QStringLiteral("INSERT INTO cd_cheks(id_shop,id_kass,id_good,count,dat) (SELECT id_shop,id, ") %
             QString::number(article) % QLatin1Char(',') % count % QLatin1Char(',') % dat %
             QStringLiteral(" FROM kassa  WHERE cashdrive_code=") % lit(kass) %
             QStringLiteral(")  ON DUPLICATE KEY UPDATE count=count+") % count)
        .has_value();
}
