#include "periodwriter.h"

#include "cheks.h"
#include "heldmessages.h"
#include "permissions.h"
#include "rightsguard.h"
#include "saleclock.h"
#include "shiftcloser.h"
#include "shiftsums.h"
#include "shopstock.h"
#include "sqldate.h"
#include "stocksql.h"

#include <algorithm>

namespace {
constexpr int toldChanges = 4;

qint64 differenceOf(const PeriodOrder &order, int row)
{
    return order.counted.at(row) - order.goods.at(row).showroom;
}

/// Each item is a row, also where nothing differs: it was counted.
QVector<StockRow> rowsOf(const PeriodOrder &order)
{
    QVector<StockRow> rows;
    for (int i = 0; i < order.goods.size(); ++i) {
        const PeriodGoods &goods = order.goods.at(i);
        StockRow row;
        row.idGoods = goods.goods;
        row.barcode = goods.barcode;
        row.name = goods.name;
        row.type = goods.type;
        row.tax = goods.tax;
        row.quantity = differenceOf(order, i);
        rows.append(row);
    }
    return rows;
}

QVector<StockChange> changesOf(const PeriodOrder &order)
{
    QVector<StockChange> changes;
    for (int i = 0; i < order.goods.size(); ++i)
        changes.append({order.goods.at(i).goods, order.goods.at(i).name, differenceOf(order, i)});
    return changes;
}

/// "«Сир»: було 12.500, тепер 12.200", the first of them.
QString changedWords(const PeriodOrder &order, const QHash<DbId, qint64> &changed)
{
    QStringList lines;
    for (const PeriodGoods &goods : order.goods) {
        if (changed.contains(goods.goods) && lines.size() < toldChanges)
            lines.append(PeriodWriter::tr("«%1»: було %2, тепер %3")
                             .arg(goods.name, quantityShown(goods.showroom),
                                  quantityShown(changed.value(goods.goods))));
    }
    if (changed.size() > toldChanges)
        lines.append(PeriodWriter::tr("… і ще %1").arg(changed.size() - toldChanges));
    return lines.join(QLatin1Char('\n'));
}
} // namespace

PeriodWriter::PeriodWriter(const Db &db, const PeriodOrder &order, const char *file, int line)
    : DocumentWriter(db, order.place, file, line), m_order(order)
{
    takeOver(order.takenOver);
}

PeriodWriter::Result PeriodWriter::write(const std::optional<WrittenChek> &unclear) const
{
    Result result;
    if (unclear) {
        result.chek = *unclear;
        const auto written = isWritten(*unclear);
        result.outcome = written ? Written : Unclear;
        if (!written || *written)
            return result;
    }
    result = triedAgain(
        m_db, [this](const Db &db) { return PeriodWriter(db, m_order, m_file, m_line).writeOnce(); },
        [](const Result &tried) { return tried.outcome == Collided || tried.outcome == Locked; });
    if (result.outcome == Unclear) {
        const auto written = askAfterLoss([&] { return isWritten(result.chek); });
        if (written)
            result.outcome = *written ? Written : Failed;
    }
    return result;
}

PeriodWriter::Result PeriodWriter::writeOnce() const
{
    Result result;
    std::optional<ShiftSums> sums;
    result.chek.place = m_place;
    result.chek.time = sqlDateTime(SaleClock::at(m_order.date));
    Transaction transaction(m_db, m_file, m_line);
    if (!transaction)
        return result;
    if (mayWrite(&result) && takeNumber(&result) && isSameShift(&result) && isLastDay(&result) &&
        joinShift(&result, &sums) && checkPlace(&result) && isNotClosed(&result) && writeRows(result) &&
        setStock(&result))
        result.outcome = transaction.commit(m_file, m_line) ? Written : commitFailureOf<DocumentWriter>();
    else if (result.outcome == Failed)
        result.outcome = failureOf<DocumentWriter>();
    return result;
}

/// Counting takes long: the right may have gone meanwhile.
bool PeriodWriter::mayWrite(Result *result) const
{
    const auto may = userMayEdit(m_db, m_place.user, Permission::Sales);
    return may && (*may || refuse(result, Refused, rightGoneWords()));
}

/// What was counted belongs to the end of that shift; without one, to the beginning of the next.
bool PeriodWriter::isSameShift(Result *result) const
{
    const auto z = openZ();
    if (!z || z->number == m_order.zNumber)
        return z.has_value();
    result->chek.zNumber = m_order.zNumber;
    return refuse(result, ShiftClosed);
}

bool PeriodWriter::isLastDay(Result *result) const
{
    const auto day = ShiftCloser(m_db, m_place, m_file, m_line).periodDay();
    if (!day || day->closedBy != 0)
        return day && refuseClosed(day->closedBy, result);
    const QString why = ShiftCloser::periodRefusal(*day);
    return why.isEmpty() || refuse(result, Refused, why);
}

/// The row of the shift is locked: of two who close the period the later one finds its document, at the
/// latest when he tries again because both had taken the same number.
bool PeriodWriter::isNotClosed(Result *result) const
{
    const auto document =
        row(QStringLiteral("SELECT id_chek FROM cheks WHERE id_type=%1 AND id_shop=%2 AND id_kass=%3 AND "
                           "id_zvit=%4 AND dis_bon_bez2=%5 LIMIT 1")
                .arg(QString::number(ChekType::GoodsReceipt), m_place.shop, m_place.kass,
                     result->chek.zNumber, QString::number(countedPlace)));
    return document && (document->isEmpty() || refuseClosed(document->first().toInt(), result));
}

bool PeriodWriter::refuseClosed(int document, Result *result)
{
    return refuse(result, Refused,
                  tr("Період уже закрито: документ № %1. Нічого не записано.").arg(document));
}

bool PeriodWriter::writeRows(const Result &result) const
{
    const QStringList statements = StockSql::insertRows(
        rowsOf(m_order), {ChekType::GoodsReceipt, StockPlace::Showroom, true}, result.chek);
    return std::all_of(statements.begin(), statements.end(), [this](const QString &sql) { return run(sql); });
}

/// Last, because it locks the stock of these goods until COMMIT. What was sold since it was shown would be
/// counted twice or not at all: then nothing is written.
bool PeriodWriter::setStock(Result *result) const
{
    const DbId shop = m_place.shop.toUInt();
    const QVector<StockChange> changes = changesOf(m_order);
    const auto counts = ShopStock::lock(m_db, shop, changes);
    if (!counts)
        return false;
    for (const PeriodGoods &goods : m_order.goods) {
        const qint64 now = counts->value(goods.goods).showroom;
        if (now != goods.showroom)
            result->changed.insert(goods.goods, now);
    }
    if (!result->changed.isEmpty())
        return refuse(
            result, Refused,
            tr("Поки ви рахували, залишки змінилися. Нічого не записано. Перевірте пораховане і закрийте "
               "період ще раз.") +
                QLatin1Char('\n') + changedWords(m_order, result->changed));
    return ShopStock::add(m_db, shop, StockPlace::Showroom, changes);
}

std::optional<bool> PeriodWriter::isWritten(const WrittenChek &chek) const
{
    return stands(
        QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND id_position=0 AND id_user=%4 AND "
                       "data_time=%5 AND id_type=%6 AND dis_bon_bez2=%7")
            .arg(chek.place.shop, chek.place.kass, QString::number(chek.number), chek.place.user, chek.time,
                 QString::number(ChekType::GoodsReceipt), QString::number(countedPlace)));
}

QString PeriodWriter::explanation(const Result &result)
{
    switch (result.outcome) {
    case Refused:
    case Blocked:
        return result.why;
    case Busy:
        return tr("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    case ShiftClosed:
        return tr(
            "Поки ви рахували, на касі закрили або відкрили зміну. Нічого не записано. Закрийте це вікно і "
            "почніть ще раз.");
    case Collided:
    case Locked:
        return tr("На касі зараз записує інша програма. Період не закрито. Закрийте його ще раз.");
    case Unclear:
        return tr("Зв'язок обірвався під час запису, і невідомо, чи період закрито. Зачекайте, доки зв'язок "
                  "відновиться, і повторіть: програма спершу запитає сервер.");
    case Failed:
        return tr("Період не закрито. Закрийте його ще раз.");
    case Written:
        break;
    }
    return QString();
}
