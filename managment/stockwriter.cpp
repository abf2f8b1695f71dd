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
struct PlaceChanges
{
    StockPlace place;
    QVector<StockChange> changes;
};

/// Of the places where something changes.
QVector<PlaceChanges> changesOf(const StockOrder &order)
{
    QVector<PlaceChanges> all;
    const QVector<StockQuantity> quantities = order.document.quantities();
    for (const StockPlace place : places) {
        if (order.move.change(place, 1) == 0)
            continue;
        PlaceChanges there = {place, {}};
        for (const StockQuantity &goods : quantities)
            there.changes.append({goods.idGoods, goods.name, order.move.change(place, goods.quantity)});
        all.append(there);
    }
    return all;
}

/// Neither there nor agreed to.
StockLacks lacksOf(const PlaceChanges &there, const StockOrder &order, const ShopStock::Counts &counts)
{
    StockLacks lacks;
    for (const StockChange &change : there.changes) {
        const qint64 count = counts.value(change.goods).at(there.place);
        const qint64 rest = count + change.quantity;
        if (change.quantity < 0 && rest < qMin<qint64>(0, order.agreed.value(change.goods)))
            lacks.append({change.goods, change.name, there.place, count, -change.quantity});
    }
    return lacks;
}

/// The first item of which there would be more than the database holds, in the user's words; empty for none.
QString overflowWords(const QVector<PlaceChanges> &all, const ShopStock::Counts &counts)
{
    for (const PlaceChanges &there : all) {
        if (const StockChange *change = ShopStock::overflowing(counts, there.place, there.changes))
            return StockWriter::tr("«%1»: залишок %2 не вмістить стільки. Перевірте кількість.")
                .arg(change->name, inPlace(there.place));
    }
    return QString();
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

/// Last, because it locks the stock of these goods until COMMIT. What is there now counts, whatever was
/// shown.
bool StockWriter::changeStock(const StockOrder &order, Result *result) const
{
    const DbId shop = m_place.shop.toUInt();
    const QVector<PlaceChanges> all = changesOf(order);
    const auto counts = ShopStock::lock(m_db, shop, all.first().changes);
    if (!counts)
        return false;
    const QString overflow = overflowWords(all, *counts);
    if (!overflow.isEmpty())
        return refuse(result, Refused, overflow);
    for (const PlaceChanges &there : all)
        result->lacks += lacksOf(there, order, *counts);
    if (!result->lacks.isEmpty())
        return refuse(result, Refused,
                      tr("Товару не вистачає:") + QLatin1Char('\n') + lackWords(result->lacks));
    return std::all_of(all.begin(), all.end(), [&](const PlaceChanges &there) {
        return ShopStock::add(m_db, shop, there.place, there.changes);
    });
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
