#include "clientsums.h"

#include "money.h"
#include "qmessevent.h"
#include "qupdatebd.h"

#include <QCoreApplication>
#include <optional>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ClientImport)
};

/// The first statement that finds a reason, or fails, ends it.
bool mayBeSummed(const Db &db)
{
    // Locked, so that no purchase comes between this and the sums.
    const auto summed =
        db.firstText(QStringLiteral("SELECT id FROM clients WHERE summ>0 LIMIT 1 FOR UPDATE"));
    if (summed && !summed->isEmpty())
        postMessage(db.receiver(), Texts::tr("В таблиці вже є не нульові суми!"));
    if (!summed || !summed->isEmpty())
        return false;
    auto missing = db.run(QStringLiteral("SELECT procent.id FROM clients LEFT JOIN procent ON "
                                         "clients.id_procent=procent.id WHERE procent.id IS NULL"));
    if (!missing || !missing->next())
        return missing.has_value();
    postMessage(db.receiver(),
                Texts::tr("Таблиця транзакцій містить не всі знижки які присутні в таблиці клієнтів!"));
    return false;
}

struct SumLevel
{
    QString id;
    QString sum;
    bool isAutomatic;
};

std::optional<QVector<SumLevel>> readSumLevels(const Db &db)
{
    auto query = db.run(QStringLiteral("SELECT id,sum,auto FROM procent"));
    if (!query)
        return std::nullopt;
    QVector<SumLevel> levels;
    while (query->next()) {
        const QString sum = toText(query->value(1));
        levels.append({toText(query->value(0)), sum.isEmpty() ? QStringLiteral("0") : sum,
                       query->value(2).toInt() != 0});
    }
    return levels;
}
/// The transaction is rolled back; a failure has reported itself.
JobResult notSummed(const JobContext &context)
{
    return context.isCancelled()
               ? JobResult{JobResult::Cancelled, Texts::tr("Зупинено; у базі нічого не змінено."), {}}
               : JobResult();
}
} // namespace

JobResult SetSumClnt(JobContext &context)
{
    Db::letHooksHearThisThread();
    const Db db = context.db();
    Transaction transaction(db);
    const auto levels = transaction && mayBeSummed(db) ? readSumLevels(db) : std::nullopt;
    if (!levels)
        return notSummed(context);
    int summed = 0;
    int fixed = 0;
    for (int i = 0; i < levels->size(); ++i) {
        context.progress(i, levels->size());
        const SumLevel &level = levels->at(i);
        const QString set =
            level.isAutomatic ? QStringLiteral("summ=") + level.sum : QStringLiteral("fiksed=1");
        const auto query = db.run(QStringLiteral("UPDATE clients SET ") + set +
                                  QStringLiteral(" WHERE id_procent=") + level.id);
        if (!query)
            return notSummed(context);
        (level.isAutomatic ? summed : fixed) += query->numRowsAffected();
    }
    if (!QUpdateBD().update(QStringLiteral("clients"), *db.connection(), db.receiver()) ||
        !transaction.commit())
        return notSummed(context);
    return {JobResult::Done,
            Texts::tr("Суми встановлено карткам: %1; знижку зафіксовано карткам: %2.")
                .arg(wholeShown(summed), wholeShown(fixed)),
            {}};
}
