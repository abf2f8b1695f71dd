#include "stockwriter.h"

#include "cheks.h"
#include "heldmessages.h"
#include "saleclock.h"
#include "shiftsums.h"
#include "sqldate.h"
#include "stocksql.h"

#include <limits>

namespace {
constexpr int toldLacks = 4;
constexpr StockPlace places[] = {StockPlace::Showroom, StockPlace::Syllable};

/// Of one goods item, in the order of the places.
struct Counts
{
    qint64 counts[2] = {0, 0};
};
using Stock = QHash<quint32, Counts>;

Stock stockOf(QSqlQuery *rows)
{
    Stock stock;
    while (rows->next())
        stock.insert(rows->value(0).toUInt(), {{rows->value(1).toLongLong(), rows->value(2).toLongLong()}});
    return stock;
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

bool StockWriter::runAll(const QStringList &statements) const
{
    return std::all_of(statements.begin(), statements.end(), [this](const QString &sql) { return run(sql); });
}

bool StockWriter::writeRows(const StockOrder &order, Result *result) const
{
    return runAll(StockSql::insertRows(order.document.rows(), order.move, result->chek)) &&
           (!order.also || runAll(order.also(result->chek)));
}

/// Last, because it locks the stock of these goods until COMMIT.
bool StockWriter::changeStock(const StockOrder &order, Result *result) const
{
    const QVector<StockQuantity> goods = order.document.quantities();
    return checkStock(order, goods, result) && runAll(StockSql::changeStock(goods, order.move, m_place.shop));
}

/// What is there now, whatever was shown.
bool StockWriter::checkStock(const StockOrder &order, const QVector<StockQuantity> &goods,
                             Result *result) const
{
    auto rows = m_db.run(StockSql::lockStock(goods, m_place.shop), {}, {}, m_file, m_line);
    if (!rows)
        return false;
    const Stock stock = stockOf(&*rows);
    for (const StockQuantity &each : goods) {
        for (int i = 0; i < 2; ++i) {
            const qint64 count = stock.value(each.idGoods).counts[i];
            const qint64 change = order.move.change(places[i], each.quantity);
            if (qAbs(count + change) > StockDocument::maximum)
                return refuse(result, Refused,
                              tr("«%1»: залишок %2 став би %3, стільки не вміщується. Перевірте кількість.")
                                  .arg(each.name, inPlace(places[i]), quantityShown(count + change)));
            if (change < 0 && count + change < 0 && !order.mayGoBelow.contains(each.idGoods))
                result->lacks.append({each.idGoods, each.name, places[i], count, -change});
        }
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
