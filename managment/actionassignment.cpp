#include "actionassignment.h"

#include "money.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActionAssignment)
};

/// What another program spoils is tried so often.
const int mostTries = 3;
const int rowsAtOnce = 1000;
const DbId noAction = 1;

/// Writes a plan until it is written or certainly not.
class Assigner
{
public:
    Assigner(JobContext *context, const ActionPlan &plan, ActionAssigned *assigned)
        : m_context(context)
        , m_plan(plan)
        , m_assigned(assigned)
        , m_connection(std::make_unique<JobConnection>(*context))
    {
    }

    JobResult run()
    {
        if (!m_connection->isOpen())
            return {};
        End end = End::Again;
        for (int tries = 0; end == End::Again && tries < mostTries; ++tries)
            end = m_context->isCancelled() ? End::Stopped : writeOnce();
        switch (end) {
        case End::Written:
            tell();
            return {JobResult::Done, summary(), {}};
        case End::Unclear:
            return {JobResult::Failed,
                    Texts::tr(
                        "Невідомо, чи записано: сервер не відповів. Коли зв'язок відновиться, перегляньте ще "
                        "раз: буде видно, які товари вже мають цю акцію."),
                    {}};
        case End::Stopped:
            return {JobResult::Cancelled, Texts::tr("Зупинено, у базу нічого не записано."), {}};
        case End::Refused:
            return {JobResult::Failed, m_why, {}};
        default:
            report();
            return {JobResult::Failed, Texts::tr("Не вдалося, у базу нічого не записано."), {}};
        }
    }

private:
    enum class End { Written, Again, Failed, Stopped, Unclear, Refused };
    enum class Step { None, Refusal, Write, Commit };

    Db db() { return m_connection->db(); }

    End writeOnce()
    {
        m_error.clear();
        m_failedSql.clear();
        m_others.clear();
        m_written.clear();
        const Step failedAt = write();
        // The transaction is over; a lost connection may be replaced.
        switch (failedAt) {
        case Step::None:
            return End::Written;
        case Step::Refusal:
            return End::Refused;
        case Step::Commit:
            return afterCommit();
        case Step::Write:
            break;
        }
        return afterFailure();
    }

    Step write()
    {
        Transaction t(db());
        const bool isSame = t && compareAction();
        if (isSame && !m_why.isEmpty())
            return Step::Refusal;
        const bool isWritten = isSame && writeShops() && stamp() && !m_context->isCancelled();
        const bool isCommitted = isWritten && t.commit();
        m_errorNumber = isCommitted ? 0 : db().lastErrorNumber();
        if (isCommitted)
            return Step::None;
        return isWritten ? Step::Commit : Step::Write;
    }

    /// A shared lock: what others write with this promotion goes on, what changes or deletes it waits.
    bool compareAction()
    {
        auto now = send(actionIdentitySql(m_plan.choice.action) + QStringLiteral(" LOCK IN SHARE MODE"));
        if (!now)
            return false;
        if (!now->next())
            m_why =
                Texts::tr("Акцію «%1» тим часом видалив хтось інший. Нічого не записано.").arg(m_plan.name);
        else if (toText(now->value(0)) != m_plan.identity)
            m_why =
                Texts::tr("Акцію «%1» тим часом змінив хтось інший. Нічого не записано: перегляньте ще раз.")
                    .arg(m_plan.name);
        return true;
    }

    /// In the order of the table's key, as the sale locks it.
    bool writeShops()
    {
        const QVector<PlannedChange> &changes = m_plan.changes;
        m_context->stage(Texts::tr("Записується…"));
        for (int begin = 0; begin < changes.size();) {
            int end = begin;
            while (end < changes.size() && end - begin < rowsAtOnce &&
                   changes.at(end).shop == changes.at(begin).shop)
                ++end;
            m_context->progress(begin, changes.size());
            if (m_context->isCancelled() || !writePart(begin, end))
                return false;
            begin = end;
        }
        return true;
    }

    bool writePart(int begin, int end)
    {
        const DbId shop = m_plan.changes.at(begin).shop;
        QStringList asked;
        for (int i = begin; i < end; ++i)
            asked.append(QString::number(m_plan.changes.at(i).goods));
        auto rows =
            send(QStringLiteral("SELECT id_goods,id_action FROM goods_shop WHERE id_shop=%1 AND id_goods IN "
                                "(%2) ORDER BY id_goods FOR UPDATE")
                     .arg(shop)
                     .arg(asked.join(QLatin1Char(','))));
        QHash<DbId, DbId> now;
        while (rows && rows->next())
            now.insert(rows->value(0).toUInt(), rows->value(1).toUInt());
        if (!rows)
            return false;
        QStringList ids;
        for (int i = begin; i < end; ++i) {
            const PlannedChange &change = m_plan.changes.at(i);
            if (now.value(change.goods) == change.was)
                ids.append(QString::number(change.goods));
            else
                m_others.append(change.row);
            if (now.value(change.goods) == change.was)
                m_written.append(i);
        }
        return ids.isEmpty() ||
               send(QStringLiteral("UPDATE goods_shop SET id_action=%1 WHERE id_shop=%2 AND id_goods IN (%3)")
                        .arg(m_plan.choice.action)
                        .arg(shop)
                        .arg(ids.join(QLatin1Char(','))));
    }

    /// The list of promotions tells how many goods have each.
    bool stamp()
    {
        return m_written.isEmpty() ||
               QUpdateBD().update({QStringLiteral("goods_shop"), QStringLiteral("action")},
                                  *db().connection(), m_context->receiver());
    }

    End afterFailure()
    {
        if (m_context->isCancelled())
            return End::Stopped;
        if (isConnectionLost(m_errorNumber))
            return connectAnew() ? End::Again : End::Failed;
        return m_errorNumber == ServerError::Deadlock || m_errorNumber == ServerError::LockWait ? End::Again
                                                                                                : End::Failed;
    }

    /// Whether it is there the server is asked, so that nothing is told that is not so.
    End afterCommit()
    {
        if (isCommitRefused(m_errorNumber))
            return End::Again;
        const bool isLost = isConnectionLost(m_errorNumber);
        const auto isThere = !isLost || connectAnew() ? isWritten() : std::nullopt;
        if (!isThere)
            return End::Unclear;
        if (*isThere)
            return End::Written;
        return isLost || m_context->isCancelled() ? End::Again : End::Failed;
    }

    /// All of it is there or nothing: one item tells. The lock waits for a transaction that the server has
    /// not ended yet. Nothing when the server does not say.
    std::optional<bool> isWritten()
    {
        if (m_written.isEmpty())
            return true;
        const PlannedChange &first = m_plan.changes.at(m_written.first());
        auto row =
            send(QStringLiteral("SELECT id_action FROM goods_shop WHERE id_shop=%1 AND id_goods=%2 LOCK IN "
                                "SHARE MODE")
                     .arg(first.shop)
                     .arg(first.goods));
        return row && row->next() ? std::optional(row->value(0).toUInt() == m_plan.choice.action)
                                  : std::nullopt;
    }

    bool connectAnew()
    {
        auto connection = m_context->connectAgain();
        if (!connection)
            return false;
        m_connection = std::move(connection);
        return true;
    }

    std::optional<QSqlQuery> send(const QString &sql)
    {
        QString error;
        auto query = db().attempt(sql, &error);
        if (!query) {
            m_error = error;
            m_failedSql = sql;
        }
        return query;
    }

    void report() const
    {
        if (!m_failedSql.isEmpty())
            postMessage(m_context->receiver(), Texts::tr("Помилка запиту:") + QLatin1Char('\n') + m_error +
                                                   QLatin1Char('\n') + m_failedSql.left(500));
    }

    void tell()
    {
        m_assigned->isWritten = true;
        m_assigned->changed = m_written.size();
        m_assigned->changedByOthers = m_others.size();
        m_assigned->rows = RowStore(m_plan.rows);
        const auto column = static_cast<int>(PlanColumn::Verdict);
        const std::string done =
            (m_plan.choice.action == noAction ? Texts::tr("акцію знято") : Texts::tr("призначено"))
                .toStdString();
        const std::string left = Texts::tr("пропущено: тим часом змінив хтось інший").toStdString();
        for (const int change : qAsConst(m_written))
            m_assigned->rows.write(m_plan.changes.at(change).row, column, {done});
        for (const int row : qAsConst(m_others))
            m_assigned->rows.write(row, column, {left});
    }

    QString summary() const
    {
        const QString count = wholeShown(m_assigned->changed);
        QString words = m_plan.choice.action == noAction
                            ? Texts::tr("Акцію знято: %1.").arg(count)
                            : Texts::tr("Акцію «%1» призначено: %2.").arg(m_plan.name, count);
        if (m_assigned->changedByOthers > 0)
            words += QLatin1Char(' ') + Texts::tr("Пропущено, бо тим часом їх змінив хтось інший: %1.")
                                            .arg(wholeShown(m_assigned->changedByOthers));
        return words;
    }

    JobContext *m_context;
    const ActionPlan &m_plan;
    ActionAssigned *m_assigned;
    std::unique_ptr<JobConnection> m_connection;
    /// The changes that were written, and the rows of those that others had changed.
    QVector<int> m_written;
    QVector<int> m_others;
    QString m_why;
    QString m_error;
    QString m_failedSql;
    int m_errorNumber = 0;
};
} // namespace

JobResult assignAction(JobContext &context, const ActionPlan &plan, ActionAssigned *assigned)
{
    Db::letHooksHearThisThread();
    return Assigner(&context, plan, assigned).run();
}
