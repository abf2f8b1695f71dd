#include "clientimport.h"

#include "jobstatements.h"
#include "money.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QHash>
#include <optional>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ClientImport)
};

const int batchSize = 1000;
/// What another program spoils is tried so often.
const int mostTries = 3;

const QString clientsTable = QStringLiteral("clients");

/// Some cards of a plan, one behind the other.
struct Batch
{
    std::vector<ImportedCard>::const_iterator begin;
    std::vector<ImportedCard>::const_iterator end;

    int size() const { return static_cast<int>(end - begin); }
    QString codes() const
    {
        QString all;
        for (auto card = begin; card != end; ++card)
            all += QString::number(card->code) + QLatin1Char(',');
        all.chop(1);
        return all;
    }
};

QString insertStatement(const Batch &batch, quint32 group)
{
    const QString tail = QLatin1Char(',') + QString::number(group) + QStringLiteral("),");
    QString sql = QStringLiteral("INSERT IGNORE INTO clients(id,id_procent,group_shop) VALUES");
    for (auto card = batch.begin; card != batch.end; ++card)
        sql += QLatin1Char('(') + QString::number(card->code) + QLatin1Char(',') +
               QString::number(card->level) + tail;
    sql.chop(1);
    return sql;
}

using Levels = QHash<quint32, quint32>;

/// What a batch makes of the cards. Known are the levels before it, and with each record those that the
/// records before it have made: a code may come twice.
struct BatchWork
{
    BatchWork() = default;
    BatchWork(const Batch &batch, Levels *known)
    {
        for (auto card = batch.begin; card != batch.end; ++card) {
            const auto level = known->constFind(card->code);
            if (level == known->constEnd())
                added.append(*card);
            else if (card->level > *level)
                raised.append(*card);
            else
                continue;
            known->insert(card->code, card->level);
        }
        left = batch.size() - added.size() - raised.size();
    }
    bool changes() const { return !added.isEmpty() || !raised.isEmpty(); }

    QVector<ImportedCard> added;
    QVector<ImportedCard> raised;
    int left = 0;
};

/// Writes a plan batch by batch.
class Importer
{
public:
    Importer(JobContext *context, const ImportPlan &plan, ImportOutcome *outcome)
        : m_context(context), m_plan(plan), m_outcome(outcome), m_statements(context)
    {
        outcome->refused = plan.refused;
        outcome->untouched = static_cast<int>(plan.cards.size());
    }

    JobResult run()
    {
        if (!m_statements.isOpen())
            return {};
        const auto end = m_plan.cards.cend();
        for (auto next = m_plan.cards.cbegin(); next != end;) {
            tellProgress();
            const Batch batch{next, next + qMin<std::ptrdiff_t>(batchSize, end - next)};
            const End came = m_outcome->isTrial ? tryOut(batch) : write(batch);
            if (came == End::Stopped)
                return {JobResult::Cancelled, outcomeText(*m_outcome, m_plan), {}};
            if (came == End::Lost)
                return {JobResult::Failed, outcomeText(*m_outcome, m_plan), {}};
            m_outcome->untouched -= batch.size();
            next = batch.end;
        }
        tellProgress();
        return {JobResult::Done, outcomeText(*m_outcome, m_plan), {}};
    }

private:
    enum class End { Settled, Again, Lost, Refused, Stopped };
    using Step = JobStatements::Step;

    void tellProgress()
    {
        m_context->progress(m_plan.recordCount() - m_outcome->untouched, m_plan.recordCount());
    }

    /// The levels of the cards that are there. Locked, none of them changes and none comes until COMMIT.
    bool readLevels(const Batch &batch, const char *lock, Levels *levels)
    {
        auto query = m_statements.send(QStringLiteral("SELECT id,id_procent FROM clients WHERE id IN (") +
                                       batch.codes() + QLatin1Char(')') + QLatin1String(lock));
        while (query && query->next())
            levels->insert(query->value(0).toUInt(),
                           qMax(query->value(1).toUInt(), levels->value(query->value(0).toUInt())));
        return query.has_value();
    }

    /// What was counted before counts as if it had been written.
    End tryOut(const Batch &batch)
    {
        if (m_context->isCancelled() || !readLevels(batch, "", &m_tried)) {
            m_statements.report();
            return m_context->isCancelled() ? End::Stopped : End::Lost;
        }
        count(BatchWork(batch, &m_tried));
        return End::Settled;
    }

    /// Until it is written or certainly not.
    End write(const Batch &batch)
    {
        End end = End::Again;
        for (int tries = 0; end == End::Again && tries < mostTries; ++tries)
            end = writeOnce(batch);
        if (m_context->isCancelled() && end != End::Settled)
            return End::Stopped;
        if (end == End::Settled || end == End::Lost)
            return end;
        m_statements.report();
        refuse(batch);
        return End::Settled;
    }

    End writeOnce(const Batch &batch)
    {
        if (m_context->isCancelled())
            return End::Stopped;
        m_isSpoilt = false;
        BatchWork work;
        switch (m_statements.transact([&] { return writeCards(batch, &work); })) {
        case Step::Commit:
            return afterCommit(work);
        case Step::None:
            count(work);
            return End::Settled;
        default:
            return afterFailure();
        }
    }

    bool writeCards(const Batch &batch, BatchWork *work)
    {
        Levels levels;
        if (!readLevels(batch, " FOR UPDATE", &levels))
            return false;
        *work = BatchWork(batch, &levels);
        if (!insert(batch, *work))
            return false;
        for (const ImportedCard &card : qAsConst(work->raised)) {
            if (!m_statements.send(QStringLiteral("UPDATE clients SET id_procent=%1 WHERE id=%2")
                                       .arg(card.level)
                                       .arg(card.code)))
                return false;
        }
        return !work->changes() ||
               QUpdateBD().update(clientsTable, *m_statements.db().connection(), m_context->receiver());
    }

    /// Also when the server drops a row without an error: its level or the group has just been deleted.
    bool insert(const Batch &batch, const BatchWork &work)
    {
        const QString sql = insertStatement(batch, m_plan.group);
        const auto query = m_statements.send(sql);
        if (!query || query->numRowsAffected() == work.added.size())
            return query.has_value();
        m_statements.fail(sql,
                          Texts::tr("Сервер не взяв усіх карток: рівень знижки або групу щойно вилучено."));
        m_isSpoilt = true;
        return false;
    }

    End afterFailure()
    {
        if (m_context->isCancelled())
            return End::Stopped;
        const int error = m_statements.errorNumber();
        if (isConnectionLost(error))
            return m_statements.connectAnew() ? End::Again : End::Lost;
        return m_isSpoilt || isOthersLock(error) ? End::Again : End::Refused;
    }

    /// When the answer was lost the server is asked, so that nothing is counted twice or not at all.
    End afterCommit(const BatchWork &work)
    {
        if (isCommitRefused(m_statements.errorNumber()))
            return End::Again;
        if (!isConnectionLost(m_statements.errorNumber()) && !m_context->isCancelled())
            return End::Refused;
        const auto isThere =
            m_context->isCancelled() || !m_statements.connectAnew() ? std::nullopt : isWritten(work);
        if (!isThere) {
            m_outcome->unclear = work.added.size() + work.raised.size();
            return m_context->isCancelled() ? End::Stopped : End::Lost;
        }
        if (!*isThere)
            return End::Again;
        count(work);
        return End::Settled;
    }

    /// All of a batch is there or nothing: one card tells. Nothing when the server does not say.
    std::optional<bool> isWritten(const BatchWork &work)
    {
        if (!work.changes())
            return true;
        const bool isAdded = !work.added.isEmpty();
        const ImportedCard &card = isAdded ? work.added.first() : work.raised.first();
        auto query =
            m_statements.send(QStringLiteral("SELECT id_procent FROM clients WHERE id=%1").arg(card.code));
        if (!query)
            return std::nullopt;
        return query->next() && (isAdded || query->value(0).toUInt() >= card.level);
    }

    void count(const BatchWork &work)
    {
        m_outcome->added += work.added.size();
        m_outcome->raised += work.raised.size();
        m_outcome->left += work.left;
    }

    void refuse(const Batch &batch)
    {
        const QString why = m_statements.error().simplified().replace(QLatin1Char(';'), QLatin1Char(','));
        const QString reason =
            why.isEmpty() ? Texts::tr("не записано") : Texts::tr("не записано: %1").arg(why);
        for (auto card = batch.begin; card != batch.end; ++card)
            m_outcome->refused.append({card->record, QString::number(card->code), reason});
    }

    JobContext *m_context;
    const ImportPlan &m_plan;
    ImportOutcome *m_outcome;
    JobStatements m_statements;
    /// Of a trial.
    Levels m_tried;
    /// By what another program has just done: it may work the next time.
    bool m_isSpoilt = false;
};
} // namespace

JobResult importClients(JobContext &context, const ImportPlan &plan, ImportOutcome *outcome)
{
    Db::letHooksHearThisThread();
    return Importer(&context, plan, outcome).run();
}

QString outcomeText(const ImportOutcome &outcome, const ImportPlan &plan)
{
    const QString counts =
        (outcome.isTrial
             ? Texts::tr(
                   "Пробний запуск, у базу нічого не записано. Буде додано карток: %1, підвищено знижку: %2, "
                   "залишиться як є: %3, відмовлено: %4.")
             : Texts::tr("Додано карток: %1, підвищено знижку: %2, залишено як є: %3, відмовлено: %4."))
            .arg(wholeShown(outcome.added), wholeShown(outcome.raised), wholeShown(outcome.left),
                 wholeShown(outcome.refused.size()));
    QStringList lines{counts};
    if (outcome.untouched > 0)
        lines.append(
            (outcome.isTrial
                 ? Texts::tr("Не закінчено, не перевірено записів: %1.")
                 : Texts::tr("Імпорт не закінчено, не оброблено записів: %1. Записане досі залишилося; "
                             "повторний імпорт його не змінить."))
                .arg(wholeShown(outcome.untouched)));
    if (outcome.unclear > 0)
        lines.append(Texts::tr("Невідомо, чи записано останніх карток: %1 – сервер не відповів.")
                         .arg(wholeShown(outcome.unclear)));
    if (plan.deletedCount > 0)
        lines.append(Texts::tr("Записів з позначкою вилучення: %1 – вони імпортуються, як і решта.")
                         .arg(wholeShown(plan.deletedCount)));
    return lines.join(QLatin1Char('\n'));
}
