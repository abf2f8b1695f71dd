#include "documentwriter.h"

#include "cheks.h"
#include "qmessevent.h"
#include "shiftsums.h"

#include <limits>

namespace {
constexpr qint64 largestNumber = std::numeric_limits<int>::max();

QString ofRegister(const char *sql, const ChekPlace &place)
{
    return QLatin1String(sql) + place.kass;
}
} // namespace

DocumentWriter::DocumentWriter(const Db &db, const ChekPlace &place, const char *file, int line)
    : RegisterWriter(db, place, file, line)
{
}

std::optional<OpenZ> DocumentWriter::openZ() const
{
    const auto cells =
        row(ofRegister("SELECT id_zzvit,id_user,day FROM z_zvit WHERE data_time=0 AND id_kass=", m_place));
    if (!cells)
        return std::nullopt;
    return OpenZ{cells->value(0), cells->value(1), cells->value(2)};
}

QString DocumentWriter::newChekNumber() const
{
    const QString sql =
        QStringLiteral("SELECT MAX(id_chek) FROM cheks WHERE ") + cheksOfRegister(m_place.kass);
    const auto cells = row(sql);
    if (cells && cells->isEmpty())
        postMessage(m_db.receiver(), tr("Нема даних після запиту:") + QLatin1Char('\n') + sql,
                    QMessEvent::Critical, m_file, m_line);
    return cells && !cells->isEmpty() ? QString::number(cells->first().toLongLong() + 1) : QString();
}

std::optional<qint64> DocumentWriter::newZNumber() const
{
    const auto last =
        row(ofRegister("SELECT MAX(id_zzvit) FROM z_zvit WHERE data_time<>0 AND id_kass=", m_place));
    return last ? std::optional<qint64>(last->value(0).toLongLong() + 1) : std::nullopt;
}

QString DocumentWriter::createZ() const
{
    const auto number = newZNumber();
    return number && *number <= largestNumber ? createZ(QString::number(*number)) : QString();
}

QString DocumentWriter::createZ(const QString &zNumber) const
{
    const auto day =
        row(QStringLiteral("SELECT count_day_cycle,(SELECT day FROM z_zvit WHERE data_time<>0 AND id_kass=%1 "
                           "ORDER BY id_zzvit DESC LIMIT 1) FROM shops WHERE id=%2")
                .arg(m_place.kass, m_place.shop));
    if (!day)
        return QString();
    const int dayNumber = nextDay(day->value(1).toInt(), day->value(0).toInt());
    return run(ChekSql::createZ(m_place, zNumber, dayNumber)) ? zNumber : QString();
}

std::optional<QString> DocumentWriter::placeRefusal() const
{
    return placeRefusal("");
}

std::optional<QString> DocumentWriter::placeRefusal(const char *lock) const
{
    const auto cells =
        row(QStringLiteral("SELECT kassa.id_shop,IFNULL(kassa.block,0)<>0,IFNULL(shops.block,0)<>0,"
                           "shops.address FROM kassa LEFT JOIN shops ON shops.id=kassa.id_shop WHERE "
                           "kassa.id=") +
            m_place.kass + QLatin1String(lock));
    if (!cells)
        return std::nullopt;
    if (cells->value(0) != m_place.shop)
        return tr("Касу перенесено до іншого магазину («%1»). Виберіть магазин і касу ще раз.")
            .arg(cells->value(3));
    if (cells->at(1) == QLatin1String("1"))
        return tr("Касу заблоковано: продавати на ній не можна.");
    if (cells->at(2) == QLatin1String("1"))
        return tr("Магазин заблоковано: продавати в ньому не можна.");
    return QString();
}

bool DocumentWriter::refuse(Result *result, Outcome outcome, const QString &why)
{
    result->outcome = outcome;
    result->why = why;
    return false;
}

QString DocumentWriter::noMoreNumbers()
{
    return tr("Номери на цій касі вичерпано: більших за %1 немає. Зверніться до підтримки.")
        .arg(largestNumber);
}

bool DocumentWriter::takeNumber(Result *result) const
{
    const QString number = newChekNumber();
    if (number.toLongLong() > largestNumber)
        return refuse(result, Refused, noMoreNumbers());
    result->chek.number = number.toInt();
    return !number.isEmpty();
}

bool DocumentWriter::openShift(Result *result) const
{
    const auto number = newZNumber();
    if (!number)
        return false;
    if (*number > largestNumber)
        return refuse(result, Refused, noMoreNumbers());
    result->chek.zNumber = createZ(QString::number(*number));
    return !result->chek.zNumber.isEmpty();
}

bool DocumentWriter::joinShift(Result *result, std::optional<ShiftSums> *sums) const
{
    const auto z = openZ();
    if (!z)
        return false;
    if (!isOwn(*z))
        return refuse(result, Busy);
    if (z->number.isEmpty())
        return openShift(result);
    result->chek.zNumber = z->number;
    const auto cells = row(ShiftSql::lockedSums(m_place.kass, z->number));
    if (!cells)
        return false;
    *sums = shiftSums(*cells);
    if (!(*sums)->isOpen)
        return refuse(result, ShiftClosed);
    return (*sums)->shop == m_place.shop ||
           refuse(result, Blocked,
                  tr("Зміну цієї каси відкрито в іншому магазині. Закрийте її перед продажем."));
}

bool DocumentWriter::checkPlace(Result *result) const
{
    const auto why = placeRefusal(" LOCK IN SHARE MODE");
    return why && (why->isEmpty() || refuse(result, Blocked, *why));
}
