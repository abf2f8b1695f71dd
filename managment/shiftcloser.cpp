#include "shiftcloser.h"

#include "cheks.h"
#include "chekwriter.h"
#include "heldmessages.h"
#include "money.h"
#include "rightsguard.h"
#include "saleclock.h"
#include "shiftsums.h"
#include "sqldate.h"

#include <tuple>

namespace {
QString ofShift(const QString &kass, const QString &zNumber)
{
    return QStringLiteral(" WHERE id_kass=") + kass + QStringLiteral(" AND id_zzvit=") + zNumber;
}

/// The service cash and the latest receipt are read in one pass over the register's receipts.
QString otherFigures(const QString &kass, const QString &zNumber)
{
    return QStringLiteral(
               "SELECT z_zvit.id_shop,cash_ret,count_cheks,count_chek_diskount,count_position_canc,"
               "count_chek_canc,SUM(IF(cheks.id_type=%1,summa,0)),SUM(IF(cheks.id_type=%2,summa,0)),"
               "DATE_FORMAT(MAX(cheks.data_time),'%Y%m%d%H%i%s') FROM z_zvit LEFT JOIN cheks ON "
               "cheks.id_shop=z_zvit.id_shop AND cheks.id_kass=z_zvit.id_kass AND "
               "cheks.id_zvit=z_zvit.id_zzvit WHERE z_zvit.id_kass=%3 AND z_zvit.id_zzvit=%4 "
               "GROUP BY z_zvit.id_zzvit,z_zvit.id_kass")
        .arg(QString::number(ChekType::CashIn), QString::number(ChekType::CashOut), kass, zNumber);
}

ShiftFigures figuresOf(const QString &zNumber, const QString &cash, const QStringList &other)
{
    ShiftFigures figures;
    figures.zNumber = zNumber;
    figures.shop = other.at(0);
    figures.cash = cash.toLongLong();
    figures.cashRet = other.at(1).toLongLong();
    figures.countCheks = other.at(2).toInt();
    figures.countDiskount = other.at(3).toInt();
    figures.countPositionCanc = other.at(4).toInt();
    figures.countChekCanc = other.at(5).toInt();
    figures.vnesenia = other.at(6).toLongLong();
    figures.issued = other.at(7).toLongLong();
    figures.latest = other.at(8);
    return figures;
}
} // namespace

bool ShiftFigures::operator==(const ShiftFigures &other) const
{
    const auto all = [](const ShiftFigures &f) {
        return std::tie(f.zNumber, f.shop, f.cash, f.cashRet, f.vnesenia, f.issued, f.countCheks,
                        f.countDiskount, f.countPositionCanc, f.countChekCanc, f.latest);
    };
    return all(*this) == all(other);
}

QString ClosingSql::cash(const QString &kass, const QString &zNumber)
{
    return QStringLiteral("SELECT cash FROM z_zvit") + ofShift(kass, zNumber);
}

QString ClosingSql::insertChek(const ClosedShift &shift)
{
    return QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                          "summa,data_time) SELECT ") +
           QStringList{shift.place.shop,
                       shift.place.kass,
                       shift.zNumber,
                       shift.chekNumber,
                       QStringLiteral("0"),
                       shift.place.user,
                       QString::number(ChekType::ZReport),
                       QStringLiteral("Oborot_A+Oborot_B+Oborot_V+Oborot_G+Oborot_D-summ_diskount"),
                       shift.time}
               .join(QLatin1Char(',')) +
           QStringLiteral(" FROM z_zvit WHERE id_zzvit=") + shift.zNumber + QStringLiteral(" AND id_kass=") +
           shift.place.kass;
}

QString ClosingSql::completeZ(const ClosedShift &shift, const ShiftCount &count)
{
    return QStringLiteral("UPDATE z_zvit SET count_cheks=%1,count_chek_diskount=%2,count_position_canc=%3,"
                          "count_chek_canc=%4,vnesenia=%5,viluchenia=%6,data_time=%7")
               .arg(count.countCheks)
               .arg(count.countDiskount)
               .arg(count.countPositionCanc)
               .arg(count.countChekCanc)
               .arg(count.vnesenia)
               .arg(count.viluchenia)
               .arg(shift.time) +
           ofShift(shift.place.kass, shift.zNumber);
}

ShiftCloser::ShiftCloser(const Db &db, const ChekPlace &place, const char *file, int line)
    : RegisterWriter(db, place, file, line)
{
}

std::optional<ShiftFigures> ShiftCloser::figures(const QString &zNumber) const
{
    const auto cash = row(ClosingSql::cash(m_place.kass, zNumber));
    if (!cash || cash->isEmpty())
        return std::nullopt;
    const auto other = row(otherFigures(m_place.kass, zNumber));
    if (!other || other->isEmpty())
        return std::nullopt;
    return figuresOf(zNumber, cash->first(), *other);
}

std::optional<PeriodDay> ShiftCloser::periodDay() const
{
    const QString newest =
        QStringLiteral("FROM z_zvit WHERE id_kass=%1 ORDER BY data_time=0 DESC,id_zzvit DESC LIMIT 1")
            .arg(m_place.kass);
    const auto cells = row(
        QStringLiteral(
            "SELECT count_day_cycle,(SELECT day %3),(SELECT MAX(id_chek) FROM cheks WHERE "
            "id_type=%4 AND id_shop=(SELECT id_shop %3) AND id_kass=%1 AND id_zvit=(SELECT id_zzvit %3) AND "
            "dis_bon_bez2=%5) FROM shops WHERE id=COALESCE((SELECT "
            "id_shop FROM z_zvit WHERE id_kass=%1 AND data_time=0 LIMIT 1),%2)")
            .arg(m_place.kass, m_place.shop, newest, QString::number(ChekType::GoodsReceipt),
                 QString::number(countedPlace)));
    if (!cells)
        return std::nullopt;
    return PeriodDay{cells->value(1).toInt(), qMax(cells->value(0).toInt(), 1), cells->value(2).toInt()};
}

/// The row stays locked to the end: of two programs the later one finds it closed.
ShiftCloser::Outcome ShiftCloser::closeInTransaction(const ClosedShift &shift, const ShiftFigures &figures,
                                                     const ShiftCount &count) const
{
    const auto cells = row(ShiftSql::lockedSums(m_place.kass, shift.zNumber));
    if (!cells)
        return failureOf<ShiftCloser>();
    const ShiftSums sums = shiftSums(*cells);
    if (!sums.isOpen)
        return AlreadyClosed;
    if (sums.net() > Receipt::maximum)
        return TooMuch;
    const auto now = this->figures(shift.zNumber);
    if (!now)
        return failureOf<ShiftCloser>();
    if (!(*now == figures))
        return Changed;
    const bool isWhole = (!sums.hasNulls || run(ShiftSql::nullsToZero(m_place.kass, shift.zNumber))) &&
                         run(ClosingSql::insertChek(shift)) && run(ClosingSql::completeZ(shift, count));
    return isWhole ? Closed : failureOf<ShiftCloser>();
}

ShiftCloser::Outcome ShiftCloser::closeOnce(const ShiftFigures &figures, const ShiftCount &count,
                                            const QString &time) const
{
    ClosedShift shift = {m_place, figures.zNumber, {}, time};
    // The Z receipt belongs to the shop in whose lists the shift stands.
    shift.place.shop = figures.shop;
    shift.chekNumber = ChekWriter(m_db, m_place, m_file, m_line).newChekNumber();
    if (shift.chekNumber.isEmpty())
        return failureOf<ShiftCloser>();
    Outcome outcome = Failed;
    {
        Transaction transaction(m_db, m_file, m_line);
        if (!transaction)
            return Failed;
        outcome = closeInTransaction(shift, figures, count);
        if (outcome == Closed && !transaction.commit(m_file, m_line))
            outcome = commitFailureOf<ShiftCloser>();
    }
    if (outcome != Unclear)
        return outcome;
    const auto written = askAfterLoss([&] { return isClosed(shift); });
    if (!written)
        return Unclear;
    return *written ? Closed : Failed;
}

ShiftCloser::Outcome ShiftCloser::close(const ShiftFigures &figures, const ShiftCount &count,
                                        const QDate &chosen) const
{
    if (!dateRefusal(figures, chosen).isEmpty())
        return TooEarly;
    return triedAgain(
        m_db,
        [&](const Db &db) {
            // On the day of the latest receipt the clock may have been put back.
            const QString time = qMax(sqlDateTime(SaleClock::at(chosen)), figures.latest);
            return ShiftCloser(db, m_place, m_file, m_line).closeOnce(figures, count, time);
        },
        [](Outcome outcome) { return outcome == Collided || outcome == Locked; });
}

QString ShiftCloser::dateRefusal(const ShiftFigures &figures, const QDate &chosen)
{
    const QDate latest = QDate::fromString(figures.latest.left(8), QStringLiteral("yyyyMMdd"));
    if (!latest.isValid() || SaleClock::at(chosen).date() >= latest)
        return QString();
    return tr("У зміні № %1 є чеки за %2: раніше її закрити не можна. Виберіть цю дату або пізнішу.")
        .arg(figures.zNumber, latest.toString(QStringLiteral("dd.MM.yyyy")));
}

std::optional<bool> ShiftCloser::isClosed(const ClosedShift &shift) const
{
    return stands(QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND id_position=0 AND id_zvit=%4 "
                                 "AND id_user=%5 AND data_time=%6 AND id_type=%7")
                      .arg(shift.place.shop, shift.place.kass, shift.chekNumber, shift.zNumber,
                           shift.place.user, shift.time, QString::number(ChekType::ZReport)));
}

QString ShiftCloser::explanation(Outcome outcome, const QString &zNumber)
{
    switch (outcome) {
    case Forbidden:
        return rightGoneWords();
    case AlreadyClosed:
        return tr("Зміну № %1 вже закрито в іншій програмі. Нічого не записано.").arg(zNumber);
    case TooEarly:
        return tr("Зміну № %1 не закрито: дата раніша за її останній чек. Виберіть дату останнього чека або "
                  "пізнішу.")
            .arg(zNumber);
    case TooMuch:
        return tr("Зміну № %1 не закрито: її сума більша за %2, Z-звіт такої не вміщає. Зверніться до підтримки.")
            .arg(zNumber, moneyShown(Receipt::maximum));
    case Changed:
        return tr("Поки ви рахували, на касі записано ще чеки або готівку. Зміну № %1 не закрито. Перевірте суми та "
                  "закрийте її ще раз.")
            .arg(zNumber);
    case Collided:
    case Locked:
        return tr("На касі зараз записує інша програма. Зміну № %1 не закрито. Закрийте її ще раз.")
            .arg(zNumber);
    case Unclear:
        return tr("Зв'язок обірвався під час закриття зміни № %1 і невідомо, чи її закрито. Закрийте її ще "
                  "раз: двічі вона не закриється.")
            .arg(zNumber);
    case Failed:
        return tr("Зміну № %1 не закрито. Закрийте її ще раз.").arg(zNumber);
    case Closed:
        break;
    }
    return QString();
}

QString ShiftCloser::periodRefusal(const PeriodDay &day)
{
    if (day.last <= 1)
        return tr("В даному магазині періодичність один день.\nПеріод не може бути закритий");
    return day.isLast() ? QString() : tr("Період не може бути закритий\nне в останній день!");
}
