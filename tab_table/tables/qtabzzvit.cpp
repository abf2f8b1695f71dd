#include "qtabzzvit.h"

#include "db.h"
#include "qrowmodel.h"
#include "sqldate.h"

#include <QDate>

namespace {
enum ColumnOf { Number, Time = 16, IdShop, IdKass };

/// The time by which the shifts follow each other: an open one will be closed some day; of one without any
/// time nobody knows.
const QString sortedTime = QStringLiteral("IF(z_zvit.data_time=0,'9999-12-31 23:59:59',"
                                          "IFNULL(z_zvit.data_time,'0000-00-00 00:00:00'))");

QString closingTime(std::string_view sorted)
{
    return sorted.substr(0, 4) == "9999" ? QTabZZvit::tr("відкрита") : asDateTime.shown(sorted);
}

CellValue closingValue(std::string_view sorted)
{
    return sorted.substr(0, 4) == "9999" ? CellValue() : asDateTime.valueOf(sorted);
}

const CellFormat asClosingTime = {closingTime, closingTime, false, nullptr, closingValue};

/// What is sold today stands in open shifts.
QString daysCondition(const JournalAsked &asked)
{
    if (!asked.hasDays())
        return {};
    const QString closed =
        QStringLiteral("(z_zvit.data_time>=%1 AND z_zvit.data_time<=%2)").arg(asked.from, asked.to);
    const bool isUntilNow = asked.to >= sqlDayEnd(QDate::currentDate());
    return QStringLiteral(" AND ") +
           (isUntilNow ? QStringLiteral("(%1 OR z_zvit.data_time=0)").arg(closed) : closed);
}

QString numberCondition(const JournalAsked &asked)
{
    return asked.number.isEmpty() ? QString()
                                  : QStringLiteral(" AND z_zvit.id_zzvit=%1").arg(asked.number.toULongLong());
}

/// Behind that shift: its time, register and number, in the order of the list.
QString startCondition(const QStringList &key)
{
    if (key.isEmpty())
        return {};
    return QStringLiteral(" AND (%1<%2 OR (%1=%2 AND (z_zvit.id_kass>%3 OR (z_zvit.id_kass=%3 AND "
                          "z_zvit.id_zzvit<%4))))")
        .arg(sortedTime, lit(key.at(0)), key.at(1), key.at(2));
}

const QString columnsSql = QStringLiteral(
    "SELECT STRAIGHT_JOIN z_zvit.id_zzvit,shops.address,IFNULL(NULLIF(kassa.advertising_str,''),"
    "CONCAT('№ ',z_zvit.id_kass)),IFNULL(z_zvit.Oborot_A,0)+"
    "IFNULL(z_zvit.Oborot_B,0)+IFNULL(z_zvit.Oborot_V,0)+IFNULL(z_zvit.Oborot_G,0)+"
    "IFNULL(z_zvit.Oborot_D,0)-IFNULL(z_zvit.summ_diskount,0),z_zvit.cash,z_zvit.beznal_1,"
    "z_zvit.beznal_2,z_zvit.beznal_3,z_zvit.count_cheks,z_zvit.count_cheks_ret,"
    "z_zvit.count_chek_diskount,z_zvit.count_position_canc,z_zvit.count_chek_canc,z_zvit.summ_diskount,"
    "z_zvit.vnesenia,z_zvit.viluchenia,newest.sorted,z_zvit.id_shop,z_zvit.id_kass FROM ");
} // namespace

QTabZZvit::QTabZZvit(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
    : QTabJournal(db, user, receiver, set, parent)
{
    table = QStringLiteral("z_zvit");
    const int money = 9;
    const int count = 5;
    setColumns({{tr("Звіт №"), 5, &asNumber},
                {tr("Магазин"), 20},
                {tr("Каса"), 12},
                {tr("Оборот"), money, &asSum},
                {tr("Готівкою"), money, &asSum},
                {tr("Безготівка1"), money, &asSum},
                {tr("Безготівка2"), money, &asSum},
                {tr("Безготівка3"), money, &asSum},
                {tr("Чеків"), count, &asNumber},
                {tr("Чеків повернення"), count, &asNumber},
                {tr("Чеків зі знижкою"), count, &asNumber},
                {tr("Позицій анульовано"), count, &asNumber},
                {tr("Чеків анульовано"), count, &asNumber},
                {tr("Сума знижки"), money, &asSum},
                {tr("Внесення"), money, &asSum},
                {tr("Вилучення"), money, &asSum},
                {tr("Дата та час"), 17, &asClosingTime},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true}});
    open(tr("Зв&іт №:"));
}

/// The page is found by its keys alone, and only its rows are joined. The shifts are read in one go: by the
/// key of their shops, which +0 keeps the server from, it would take four times as long.
QString QTabZZvit::pageSql(const JournalAsked &asked, const QStringList &key, int rows)
{
    return columnsSql +
           QStringLiteral(
               "(SELECT STRAIGHT_JOIN z_zvit.id_zzvit,z_zvit.id_kass,%1 AS sorted FROM z_zvit JOIN shops ON "
               "shops.id=z_zvit.id_shop+0 WHERE%2 ORDER BY sorted DESC,z_zvit.id_kass,"
               "z_zvit.id_zzvit DESC LIMIT %3) newest JOIN z_zvit ON "
               "z_zvit.id_zzvit=newest.id_zzvit AND z_zvit.id_kass=newest.id_kass LEFT JOIN "
               "shops ON z_zvit.id_shop=shops.id LEFT JOIN kassa ON z_zvit.id_kass=kassa.id "
               "ORDER BY newest.sorted DESC,newest.id_kass,newest.id_zzvit DESC")
               .arg(sortedTime, asked.placeCondition(QStringLiteral("z_zvit")) + daysCondition(asked) +
                                    numberCondition(asked) + startCondition(key))
               .arg(rows);
}

void QTabZZvit::loadPage(const JournalAsked &asked, const QVariant &start, int rows)
{
    showRows(pageSql(asked, start.toStringList(), rows + 1));
}

QVariant QTabZZvit::keyBehind(const RowStore &rows) const
{
    return keyOfLast(rows);
}

QStringList QTabZZvit::keyOfLast(const RowStore &rows)
{
    const int last = rows.rowCount() - 1;
    if (last < 0)
        return {};
    const auto text = [&](int column) {
        const std::string_view cell = rows.cell(last, column);
        return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
    };
    return {text(Time), text(IdKass), text(Number)};
}

void QTabZZvit::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const auto number = [&](int column) { return static_cast<uint>(model()->number(index.row(), column)); };
    ChekOrigin origin;
    origin.shop = number(IdShop);
    origin.kass = number(IdKass);
    origin.zFrom = origin.zTo = QString::number(number(Number));
    emit cheksWanted(origin);
}
