#include "cardrange.h"

#include "job.h"
#include "money.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CardRange)
};

const qint64 rowsInStatement = 500;

QString countSql(qint64 first, qint64 count)
{
    return QStringLiteral("SELECT COUNT(*) FROM clients WHERE id>=%1 AND id<%2")
        .arg(first)
        .arg(first + count);
}

/// Why the range cannot be created; empty when it can, nothing after a reported failure.
std::optional<QString> rangeRefusal(const Db &db, const CardRange &range)
{
    const auto taken = db.firstText(countSql(range.first, range.count));
    if (!taken || (*taken == QLatin1String("0") && range.last() <= highestCard))
        return taken ? std::optional(QString()) : std::nullopt;
    const QString words =
        Texts::tr("Діапазон карток не вільний, в заданому діапазоні знадено карток:") + *taken;
    return range.last() <= highestCard ? words
                                       : words + QLatin1Char('\n') +
                                             Texts::tr("Останній код був би %1, а найбільший можливий %2.")
                                                 .arg(range.last())
                                                 .arg(highestCard);
}

/// The id behind a name; empty after a reported failure.
QString idOf(const Db &db, const QString &table, const QString &name)
{
    auto row = db.runPositional(QStringLiteral("SELECT id FROM %1 WHERE name=?").arg(table), {name});
    if (!row)
        return {};
    if (!row->next()) {
        postMessage(db.receiver(),
                    Texts::tr("Немає даних після запиту") +
                        QStringLiteral("\nSELECT id FROM %1 WHERE name='%2'").arg(table, name));
        return {};
    }
    return toText(row->value(0));
}

/// What stands behind the code in every tuple: ",1,0,0,2,0,0)"; empty after a reported failure.
QString tupleEnd(const Db &db, const CardRange &range)
{
    const QString yesNo = QStringLiteral("yesno");
    QString end;
    for (const auto &[table, name] :
         {qMakePair(QStringLiteral("procent"), range.procent),
          qMakePair(QStringLiteral("discbonus"), range.discbonus), qMakePair(yesNo, range.fiksed),
          qMakePair(QStringLiteral("group_shop"), range.group), qMakePair(yesNo, range.block),
          qMakePair(yesNo, range.send)}) {
        const QString id = idOf(db, table, name);
        if (id.isEmpty())
            return {};
        end += QLatin1Char(',') + id;
    }
    return end + QLatin1Char(')');
}

QString insertSql(qint64 first, qint64 count, const QString &end)
{
    QString sql = QStringLiteral(
        "INSERT INTO clients(id,id_procent,bonus_discount,fiksed,group_shop,block,send) VALUES");
    sql.reserve(sql.size() + static_cast<int>(count) * (end.size() + 12));
    for (qint64 code = first; code < first + count; ++code) {
        if (code > first)
            sql += QLatin1Char(',');
        sql += QLatin1Char('(') + QString::number(code) + end;
    }
    return sql;
}

/// Whether the cards of a statement stand whose answer was lost; nothing when that is not known either.
std::optional<bool> stand(const JobContext &context, qint64 first, qint64 count)
{
    JobConnection again(context);
    const auto found = again.isOpen() ? again.db().firstText(countSql(first, count)) : std::nullopt;
    return found ? std::optional(found->toLongLong() == count) : std::nullopt;
}

struct Creation
{
    /// Less than wanted when it was cancelled or a statement failed (reported).
    qint64 created = 0;
    /// Nobody knows what became of the statement behind them.
    bool isUnclear = false;
};

Creation insertAll(JobContext &context, const Db &db, const CardRange &range, const QString &end)
{
    Creation done;
    while (done.created < range.count && !context.isCancelled()) {
        const qint64 first = range.first + done.created;
        const qint64 rows = qMin(rowsInStatement, range.count - done.created);
        const bool isAnswered = db.run(insertSql(first, rows, end)).has_value();
        const bool isLost = !isAnswered && isConnectionLost(db.lastErrorNumber());
        const auto stands = isLost ? stand(context, first, rows) : std::optional(isAnswered);
        done.isUnclear = !stands;
        if (stands == true)
            done.created += rows;
        if (!isAnswered)
            break;
        context.progress(done.created, range.count);
    }
    return done;
}

QString codes(qint64 first, qint64 last)
{
    return first == last ? QString::number(first) : QStringLiteral("%1 – %2").arg(first).arg(last);
}

QString resultWords(const CardRange &range, const Creation &done)
{
    if (done.created == range.count)
        return Texts::tr("Створено карток: %1, коди %2.")
            .arg(wholeShown(done.created), codes(range.first, range.last()));
    QString words = done.created == 0 ? Texts::tr("Не створено жодної картки.")
                                      : Texts::tr("Створено карток: %1 з %2, коди %3. Решту не створено.")
                                            .arg(wholeShown(done.created), wholeShown(range.count),
                                                 codes(range.first, range.first + done.created - 1));
    if (!done.isUnclear)
        return words;
    const qint64 first = range.first + done.created;
    return words + QLatin1Char(' ') +
           Texts::tr("Зв'язок обірвався: чи створено картки %1, покаже пошук у списку.")
               .arg(codes(first, qMin(first + rowsInStatement - 1, range.last())));
}

JobResult result(JobResult::Outcome outcome, const QString &words, const CardsCreated &created)
{
    return {outcome, words, QVariant::fromValue(created)};
}
} // namespace

JobResult createCards(JobContext &context, const CardRange &range)
{
    const Db db = context.db();
    const auto refusal = rangeRefusal(db, range);
    if (!refusal)
        return result(JobResult::Failed, resultWords(range, {}), {});
    if (!refusal->isEmpty())
        return result(JobResult::Failed, *refusal, {0, true});
    const QString end = tupleEnd(db, range);
    const Creation done = end.isEmpty() ? Creation() : insertAll(context, db, range, end);
    if (done.created > 0)
        QUpdateBD().update(QStringLiteral("clients"), *db.connection(), db.receiver());
    const bool isAll = done.created == range.count;
    return result(isAll                   ? JobResult::Done
                  : context.isCancelled() ? JobResult::Cancelled
                                          : JobResult::Failed,
                  resultWords(range, done), {done.created, false});
}
