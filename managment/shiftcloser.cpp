#include "shiftcloser.h"

#include "servererror.h"
#include "sqldate.h"

namespace {
QString ofShift(const QString &kass, const QString &zNumber)
{
    return QStringLiteral(" WHERE id_kass=") + kass + QStringLiteral(" AND id_zzvit=") + zNumber;
}

/// What the operator saw and what stands there when it is written must agree in these.
QString lockShift(const ClosedShift &shift)
{
    return QStringLiteral("SELECT data_time=0,cash,count_cheks FROM z_zvit") +
           ofShift(shift.place.kass, shift.zNumber) + QStringLiteral(" FOR UPDATE");
}

QString otherFigures(const QString &kass, const QString &zNumber)
{
    return QStringLiteral("SELECT id_shop,cash_ret,count_cheks,count_chek_diskount,count_position_canc,"
                          "count_chek_canc,(SELECT SUM(summa) FROM cheks WHERE cheks.id_shop=z_zvit.id_shop "
                          "AND cheks.id_kass=z_zvit.id_kass AND cheks.id_zvit=z_zvit.id_zzvit AND "
                          "cheks.id_type=4) FROM z_zvit") +
           ofShift(kass, zNumber);
}
} // namespace

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
                       QStringLiteral("10"),
                       QStringLiteral("Oborot_A+Oborot_B+Oborot_V+Oborot_G+Oborot_D-summ_diskount"),
                       shift.time}
               .join(QLatin1Char(',')) +
           QStringLiteral(" FROM z_zvit WHERE id_zzvit=") + shift.zNumber + QStringLiteral(" AND id_kass=") +
           shift.place.kass;
}

QString ClosingSql::completeZ(const ClosedShift &shift, const ShiftCount &count)
{
    return QStringLiteral("UPDATE z_zvit SET count_cheks=") + count.countCheks +
           QStringLiteral(",count_chek_diskount=") + count.countDiskount +
           QStringLiteral(",count_position_canc=") + count.countPositionCanc +
           QStringLiteral(",count_chek_canc=") + count.countChekCanc + QStringLiteral(",vnesenia=") +
           count.vnesenia + QStringLiteral(",viluchenia=") + count.viluchenia +
           QStringLiteral(",data_time=") + shift.time + ofShift(shift.place.kass, shift.zNumber);
}

ShiftCloser::ShiftCloser(const Db &db, const ChekPlace &place, const char *file, int line)
    : m_db(db), m_place(place), m_file(file), m_line(line)
{
}

bool ShiftCloser::run(const QString &sql) const
{
    return m_db.run(sql, {}, {}, m_file, m_line).has_value();
}

std::optional<ShiftFigures> ShiftCloser::figures(const QString &zNumber) const
{
    const auto cash = firstRow(m_db, ClosingSql::cash(m_place.kass, zNumber), m_file, m_line);
    if (!cash || cash->isEmpty())
        return std::nullopt;
    const auto other = firstRow(m_db, otherFigures(m_place.kass, zNumber), m_file, m_line);
    if (!other || other->isEmpty())
        return std::nullopt;
    ShiftFigures figures;
    figures.zNumber = zNumber;
    figures.shop = other->at(0).isEmpty() ? m_place.shop : other->at(0);
    figures.cash = cash->first().toLongLong();
    figures.cashRet = other->at(1).toLongLong();
    figures.countCheks = other->at(2).toInt();
    figures.countDiskount = other->at(3).toInt();
    figures.countPositionCanc = other->at(4).toInt();
    figures.countChekCanc = other->at(5).toInt();
    figures.vnesenia = other->at(6).toLongLong();
    return figures;
}

std::optional<PeriodDay> ShiftCloser::periodDay() const
{
    const auto cells = firstRow(m_db,
                                QStringLiteral("SELECT count_day_cycle,(SELECT day FROM z_zvit WHERE "
                                               "id_kass=%1 ORDER BY data_time=0 DESC,id_zzvit DESC LIMIT 1) "
                                               "FROM shops WHERE id=%2")
                                    .arg(m_place.kass, m_place.shop),
                                m_file, m_line);
    if (!cells)
        return std::nullopt;
    return PeriodDay{cells->value(1).toInt(), qMax(cells->value(0).toInt(), 1)};
}

ShiftCloser::Outcome ShiftCloser::failure() const
{
    switch (m_db.lastErrorNumber()) {
    case ServerError::DuplicateKey:
        return Collided;
    case ServerError::LockWait:
    case ServerError::Deadlock:
        return Locked;
    default:
        return Failed;
    }
}

/// The row stays locked to the end: of two programs the later one finds it closed.
ShiftCloser::Outcome ShiftCloser::closeInTransaction(const ClosedShift &shift, const ShiftFigures &figures,
                                                     const ShiftCount &count) const
{
    const auto now = firstRow(m_db, lockShift(shift), m_file, m_line);
    if (!now)
        return failure();
    if (now->value(0) != QLatin1String("1"))
        return AlreadyClosed;
    if (now->at(1).toLongLong() != figures.cash || now->at(2).toInt() != figures.countCheks)
        return Changed;
    const bool isWhole = run(ClosingSql::insertChek(shift)) && run(ClosingSql::completeZ(shift, count));
    return isWhole ? Closed : failure();
}

ShiftCloser::Outcome ShiftCloser::close(const ShiftFigures &figures, const ShiftCount &count,
                                        const QDateTime &time) const
{
    ClosedShift shift = {m_place, figures.zNumber, {}, sqlDateTime(time)};
    // The Z receipt belongs to the shop in whose lists the shift stands.
    shift.place.shop = figures.shop;
    shift.chekNumber = ChekWriter(m_db, m_place, m_file, m_line).newChekNumber();
    if (shift.chekNumber.isEmpty())
        return Failed;
    Outcome outcome = Failed;
    {
        Transaction transaction(m_db, m_file, m_line);
        if (!transaction)
            return Failed;
        outcome = closeInTransaction(shift, figures, count);
        if (outcome == Closed && !transaction.commit(m_file, m_line))
            outcome = Unclear;
    }
    if (outcome != Unclear)
        return outcome;
    const auto written = isClosed(shift);
    if (!written)
        return Unclear;
    return *written ? Closed : Failed;
}

std::optional<bool> ShiftCloser::isClosed(const ClosedShift &shift) const
{
    // The lock waits for a transaction that the server has not ended yet.
    const auto cells = firstRow(
        m_db,
        QStringLiteral("SELECT COUNT(*) FROM cheks WHERE id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND "
                       "id_position=0 AND id_zvit=%4 AND id_user=%5 AND data_time=%6 AND id_type=10 "
                       "LOCK IN SHARE MODE")
            .arg(shift.place.shop, shift.place.kass, shift.chekNumber, shift.zNumber, shift.place.user,
                 shift.time),
        m_file, m_line);
    if (!cells || cells->isEmpty())
        return std::nullopt;
    return cells->first() != QLatin1String("0");
}

QString ShiftCloser::explanation(Outcome outcome, const QString &zNumber)
{
    switch (outcome) {
    case AlreadyClosed:
        return tr("Зміну № %1 вже закрито в іншій програмі. Нічого не записано.").arg(zNumber);
    case Changed:
        return tr("Поки ви рахували, на касі записано ще чеки. Зміну № %1 не закрито. Перевірте суми та "
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
