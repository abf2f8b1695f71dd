#include "cashwriter.h"

#include "cheks.h"
#include "heldmessages.h"
#include "money.h"
#include "qupdatebd.h"
#include "receipt.h"
#include "saleclock.h"
#include "shiftcloser.h"
#include "shiftsums.h"
#include "sqldate.h"

#include <QSqlQuery>

namespace {
constexpr int longestName = 200;

int typeOf(const CashOperation &operation)
{
    return operation.isIn ? ChekType::CashIn : ChekType::CashOut;
}

QString nameOf(const CashOrder &order)
{
    const QString name = order.remark.isEmpty()
                             ? order.operation.name
                             : QStringLiteral("%1 (%2)").arg(order.operation.name, order.remark);
    return name.left(longestName);
}
} // namespace

std::optional<Drawer> CashWriter::drawer() const
{
    const auto z = openZ();
    if (!z)
        return std::nullopt;
    if (z->number.isEmpty())
        return Drawer();
    const auto figures = ShiftCloser(m_db, m_place, m_file, m_line).figures(z->number);
    return figures ? std::optional(Drawer{z->number, z->user, figures->expectedCash()}) : std::nullopt;
}

CashWriter::Result CashWriter::write(const CashOrder &order) const
{
    Result result = triedAgain(
        m_db, [&](const Db &db) { return CashWriter(db, m_place, m_file, m_line).writeOnce(order); },
        [](const Result &tried) { return tried.outcome == Collided || tried.outcome == Locked; });
    if (result.outcome == Unclear) {
        const auto written = askAfterLoss([&] { return isWritten(order, result.chek); });
        if (written)
            result.outcome = *written ? Written : Failed;
    }
    return result;
}

CashWriter::Result CashWriter::writeOnce(const CashOrder &order) const
{
    Result result;
    Transaction transaction(m_db, m_file, m_line);
    if (!transaction || !writeInto(order, &result))
        return result;
    const QStringList tables = {QStringLiteral("cheks"), QStringLiteral("z_zvit")};
    if (!QUpdateBD().update(tables, *m_db.connection(), m_db.receiver()))
        result.outcome = failureOf<DocumentWriter>();
    else if (!transaction.commit(m_file, m_line))
        result.outcome = commitFailureOf<DocumentWriter>();
    return result;
}

bool CashWriter::writeInto(const CashOrder &order, Result *result) const
{
    result->chek.place = m_place;
    result->chek.time = sqlDateTime(SaleClock::at(order.date));
    result->chek.toPay = order.sum;
    const bool isWritten = takeSteps(order, result);
    if (isWritten)
        result->outcome = Written;
    else if (result->outcome == Failed)
        result->outcome = failureOf<DocumentWriter>();
    return isWritten;
}

bool CashWriter::takeSteps(const CashOrder &order, Result *result) const
{
    std::optional<ShiftSums> sums;
    return checkOperation(order, result) && takeNumber(result) && joinShift(result, &sums) &&
           checkPlace(result) && checkDrawer(order, result) && insertRow(order, *result);
}

/// Others may have renamed it, or turned it round.
bool CashWriter::checkOperation(const CashOrder &order, Result *result) const
{
    if (order.sum <= 0 || order.sum > Receipt::maximum)
        return refuse(result, Refused, tr("Введіть суму, більшу за нуль."));
    const auto cells = row(QStringLiteral("SELECT IFNULL(plus_minus,0)<>0 FROM slujb_op WHERE id=%1 LOCK IN "
                                          "SHARE MODE")
                               .arg(order.operation.id));
    if (!cells)
        return false;
    const bool isSame = !cells->isEmpty() && (cells->first() == QLatin1String("1")) == order.operation.isIn;
    return isSame || refuse(result, Refused,
                            tr("Службову операцію «%1» тим часом змінено. Виберіть операцію ще раз.")
                                .arg(order.operation.name));
}

/// The shift is locked by now: nobody sells, brings in or takes out beside.
bool CashWriter::checkDrawer(const CashOrder &order, Result *result) const
{
    const auto there = drawer();
    if (!there)
        return false;
    const qint64 rest = there->cash + (order.operation.isIn ? order.sum : -order.sum);
    if (rest > Receipt::maximum)
        return refuse(result, Refused,
                      tr("Стільки готівки зміна не вмістить: її стало б більше за %1. Закрийте зміну.")
                          .arg(moneyShown(Receipt::maximum)));
    if (order.operation.isIn || rest >= qMin<qint64>(0, order.agreed))
        return true;
    result->drawer = there->cash;
    return refuse(result, Refused, shortDrawerWords(there->cash, order.sum));
}

bool CashWriter::insertRow(const CashOrder &order, const Result &result) const
{
    return run(
        QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,"
                       "id_position,id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,"
                       "bonus_plus,strihcode,type,id_type_action,sumdisc) VALUES%1,%2,0,%3,%4,0,0,%5,0,"
                       "0,0,NULL,0,0,0)")
            .arg(ChekSql::prefix(result.chek), QString::number(typeOf(order.operation)),
                 QString::number(order.operation.id), lit(nameOf(order)), QString::number(order.sum)));
}

std::optional<bool> CashWriter::isWritten(const CashOrder &order, const WrittenChek &chek) const
{
    return stands(QStringLiteral("id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND id_position=0 AND id_user=%4 "
                                 "AND data_time=%5 AND id_type=%6 AND id_good_cln_slujb=%7 AND summa=%8")
                      .arg(chek.place.shop, chek.place.kass, QString::number(chek.number), chek.place.user,
                           chek.time, QString::number(typeOf(order.operation)),
                           QString::number(order.operation.id), QString::number(order.sum)));
}

QString CashWriter::explanation(const Result &result)
{
    switch (result.outcome) {
    case Refused:
    case Blocked:
        return result.why;
    case Busy:
        return tr("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    case ShiftClosed:
        return tr("Зміну № %1 щойно закрила інша програма. Готівку не записано. Запишіть її ще раз: вона "
                  "відкриє нову зміну.")
            .arg(result.chek.zNumber);
    case Collided:
    case Locked:
        return tr("На касі зараз записує інша програма. Готівку не записано. Запишіть її ще раз.");
    case Unclear:
        return tr("Зв'язок обірвався під час запису чека № %1 і невідомо, чи його записано. Запишіть ще раз: "
                  "програма спершу запитає сервер.")
            .arg(result.chek.number);
    case Failed:
        return tr("Готівку не записано. Запишіть її ще раз.");
    case Written:
        break;
    }
    return QString();
}

std::optional<QVector<CashOperation>> readCashOperations(const Db &db)
{
    auto query = db.run(
        QStringLiteral("SELECT id,IFNULL(name,''),IFNULL(plus_minus,0)<>0 FROM slujb_op ORDER BY 3 DESC,id"));
    if (!query)
        return std::nullopt;
    QVector<CashOperation> operations;
    while (query->next())
        operations.append({query->value(0).toUInt(), toText(query->value(1)), query->value(2).toBool()});
    return operations;
}

QString operationShown(const CashOperation &operation)
{
    return (operation.isIn ? QStringLiteral("+ ") : QStringLiteral("− ")) + operation.name;
}

QString shortDrawerWords(qint64 drawer, qint64 sum)
{
    return CashWriter::tr("За зміною в касі %1, а вилучається %2. Більше може бути лише тоді, коли в касі "
                          "залишилась готівка попередньої зміни.")
        .arg(moneyShown(drawer), moneyShown(sum));
}
