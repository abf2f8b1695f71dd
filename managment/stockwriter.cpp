#include "stockwriter.h"

#include "cheks.h"
#include "heldmessages.h"
#include "saleclock.h"
#include "shiftsums.h"
#include "sqldate.h"
#include "stocksql.h"

#include <algorithm>

namespace {
constexpr int toldLacks = 4;
constexpr StockPlace places[] = {StockPlace::Showroom, StockPlace::Syllable};

/// What comes to a place or leaves it, each goods item once.
QVector<StockChange> changesIn(StockPlace place, const StockOrder &order)
{
    QVector<StockChange> changes;
    const QVector<StockQuantity> all = order.document.quantities();
    for (const StockQuantity &goods : all) {
        const qint64 change = order.move.change(place, goods.quantity);
        if (change != 0)
            changes.append({goods.idGoods, goods.name, change});
    }
    return changes;
}

/// The places where something changes.
QVector<StockPlace> placesOf(const StockMove &move)
{
    QVector<StockPlace> changed;
    for (const StockPlace place : places) {
        if (move.change(place, 1) != 0)
            changed.append(place);
    }
    return changed;
}

/// Neither there nor agreed to.
StockLacks lacksOf(const StockOrder &order, StockPlace place, const ShopStock::Counts &counts)
{
    StockLacks lacks;
    const QVector<StockChange> changes = changesIn(place, order);
    for (const StockChange &change : changes) {
        const qint64 count = counts.value(change.goods).at(place);
        const qint64 rest = count + change.quantity;
        if (change.quantity < 0 && rest < qMin<qint64>(0, order.agreed.value(change.goods)))
            lacks.append({change.goods, change.name, place, count, -change.quantity});
    }
    return lacks;
}
} // namespace

QString StockLack::words() const
{
    return StockWriter::tr("«%1»: %2 %3, треба %4")
        .arg(name, inPlace(place), quantityShown(count), quantityShown(wanted));
}

QString lackWords(const StockLacks &lacks)
{
    QStringList lines;
    for (const StockLack &lack : lacks.mid(0, toldLacks))
        lines.append(lack.words());
    if (lacks.size() > toldLacks)
        lines.append(StockWriter::tr("… і ще %1").arg(lacks.size() - toldLacks));
    return lines.join(QLatin1Char('\n'));
}

StockWriter::Result StockWriter::write(const StockOrder &order) const
{
    Result result = triedAgain(
        m_db, [&](const Db &db) { return StockWriter(db, m_place, m_file, m_line).writeOnce(order); },
        [](const Result &tried) { return tried.outcome == Collided || tried.outcome == Locked; });
    if (result.outcome == Unclear) {
        const auto written = askAfterLoss([&] { return isWritten(order, result.chek); });
        if (written)
            result.outcome = *written ? Written : Failed;
    }
    return result;
}

StockWriter::Result StockWriter::writeOnce(const StockOrder &order) const
{
    Result result;
    result.chek.place = m_place;
    result.chek.time = sqlDateTime(SaleClock::at(order.date));
    std::optional<ShiftSums> sums;
    Transaction transaction(m_db, m_file, m_line);
    if (!transaction)
        return result;
    if (takeNumber(&result) && joinShift(&result, &sums) && checkPlace(&result) &&
        writeRows(order, &result) && changeStock(order, &result))
        result.outcome = transaction.commit(m_file, m_line) ? Written : commitFailureOf<DocumentWriter>();
    else if (result.outcome == Failed)
        result.outcome = failureOf<DocumentWriter>();
    result.opensShift = !sums;
    return result;
}

bool StockWriter::writeRows(const StockOrder &order, Result *result) const
{
    const QStringList statements = StockSql::insertRows(order.document.rows(), order.move, result->chek);
    return std::all_of(statements.begin(), statements.end(), [this](const QString &sql) { return run(sql); });
}

/// Last, because it locks the stock of these goods until COMMIT.
bool StockWriter::changeStock(const StockOrder &order, Result *result) const
{
    const QVector<StockPlace> changed = placesOf(order.move);
    const auto counts = ShopStock::lock(m_db, m_place.shop.toUInt(), changesIn(changed.first(), order));
    return counts && checkStock(order, *counts, result) &&
           std::all_of(changed.begin(), changed.end(), [&](StockPlace place) {
               return ShopStock::add(m_db, m_place.shop.toUInt(), place, changesIn(place, order));
           });
}

/// What is there now, whatever was shown.
bool StockWriter::checkStock(const StockOrder &order, const ShopStock::Counts &counts, Result *result) const
{
    const QVector<StockPlace> changed = placesOf(order.move);
    for (const StockPlace place : changed) {
        const QVector<StockChange> changes = changesIn(place, order);
        if (const StockChange *change = ShopStock::overflowing(counts, place, changes))
            return refuse(result, Refused,
                          tr("«%1»: залишок %2 не вмістить стільки. Перевірте кількість.")
                              .arg(change->name, inPlace(place)));
        result->lacks += lacksOf(order, place, counts);
    }
    return result->lacks.isEmpty() ||
           refuse(result, Refused, tr("Товару не вистачає:") + QLatin1Char('\n') + lackWords(result->lacks));
}

std::optional<bool> StockWriter::isWritten(const StockOrder &order, const WrittenChek &chek) const
{
    const int last = order.document.rows().size() - 1;
    return stands(QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND id_position=%4 AND id_user=%5 "
                                 "AND data_time=%6 AND id_type=%7 AND count=%8")
                      .arg(chek.place.shop, chek.place.kass, QString::number(chek.number),
                           QString::number(last), chek.place.user, chek.time,
                           QString::number(order.move.type),
                           QString::number(order.document.rows().at(last).quantity)));
}

QString StockWriter::explanation(const Result &result)
{
    switch (result.outcome) {
    case Refused:
    case Blocked:
        return result.why;
    case Busy:
        return tr("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    case ShiftClosed:
        return tr("Зміну № %1 щойно закрила інша програма. Документ не записано. Запишіть його ще раз: він "
                  "відкриє нову зміну.")
            .arg(result.chek.zNumber);
    case Collided:
        return tr("Документ з таким номером щойно записала інша програма на цій касі. Документ не записано. "
                  "Запишіть його ще раз.");
    case Locked:
        return tr("Залишки зараз записує інша програма. Документ не записано. Запишіть його ще раз.");
    case Unclear:
        return tr("Зв'язок обірвався під час запису документа № %1 і невідомо, чи його записано. Перед новим "
                  "записом програма запитає сервер ще раз.")
            .arg(result.chek.number);
    case Failed:
        return tr("Документ не записано. Запишіть його ще раз.");
    case Written:
        break;
    }
    return QString();
}
