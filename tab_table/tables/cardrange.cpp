#include "cardrange.h"

#include "job.h"
#include "money.h"
#include "qmessevent.h"
#include "qupdatebd.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CardRange)
};

const qint64 rowsInStatement = 500;

/// Why the range cannot be created; empty when it can, nothing after a reported failure.
std::optional<QString> rangeRefusal(const Db &db, const CardRange &range)
{
    const auto taken = db.firstText(QStringLiteral("SELECT COUNT(*) FROM clients WHERE id>=%1 AND id<%2")
                                        .arg(range.first)
                                        .arg(range.last() + 1));
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

/// The number of cards that were created; less than wanted when it was cancelled or a statement failed
/// (reported).
qint64 insertAll(JobContext &context, const Db &db, const CardRange &range, const QString &end)
{
    qint64 created = 0;
    while (created < range.count && !context.isCancelled()) {
        const qint64 rows = qMin(rowsInStatement, range.count - created);
        if (!db.run(insertSql(range.first + created, rows, end)))
            break;
        created += rows;
        context.progress(created, range.count);
    }
    return created;
}

QString codes(qint64 first, qint64 last)
{
    const auto code = [](qint64 number) {
        return QString::number(number).rightJustified(10, QLatin1Char('0'));
    };
    return first == last ? code(first) : code(first) + QStringLiteral(" – ") + code(last);
}

QString resultWords(const CardRange &range, qint64 created)
{
    if (created == range.count)
        return Texts::tr("Створено карток: %1, коди %2.")
            .arg(countShown(created), codes(range.first, range.last()));
    if (created == 0)
        return Texts::tr("Не створено жодної картки.");
    return Texts::tr("Створено карток: %1 з %2, коди %3. Решту не створено.")
        .arg(countShown(created), countShown(range.count), codes(range.first, range.first + created - 1));
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
        return result(JobResult::Failed, resultWords(range, 0), {});
    if (!refusal->isEmpty())
        return result(JobResult::Failed, *refusal, {0, true});
    const QString end = tupleEnd(db, range);
    const qint64 created = end.isEmpty() ? 0 : insertAll(context, db, range, end);
    if (created > 0)
        QUpdateBD().update(QStringLiteral("clients"), *db.connection(), db.receiver());
    const bool isAll = created == range.count;
    return result(isAll                   ? JobResult::Done
                  : context.isCancelled() ? JobResult::Cancelled
                                          : JobResult::Failed,
                  resultWords(range, created), {created, false});
}
