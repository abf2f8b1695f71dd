#include "jobstatements.h"

#include "job.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JobStatements)
};

/// What another program spoils is tried so often.
const int mostTries = 3;
} // namespace

JobStatements::JobStatements(JobContext *context)
    : m_context(context), m_connection(std::make_unique<JobConnection>(*context))
{
}

JobStatements::~JobStatements() = default;

bool JobStatements::isOpen() const
{
    return m_connection->isOpen();
}

Db JobStatements::db() const
{
    return m_connection->db();
}

std::optional<QSqlQuery> JobStatements::send(const QString &sql)
{
    QString error;
    auto query = db().attempt(sql, &error);
    if (!query)
        fail(sql, error);
    return query;
}

void JobStatements::fail(const QString &sql, const QString &error)
{
    m_error = error;
    m_failedSql = sql;
}

JobStatements::Step JobStatements::transact(const std::function<bool()> &work)
{
    fail(QString(), QString());
    Transaction transaction(db());
    const bool isWritten = transaction && work();
    const bool isCommitted = isWritten && transaction.commit();
    m_errorNumber = isCommitted ? 0 : db().lastErrorNumber();
    if (isCommitted)
        return Step::None;
    return isWritten ? Step::Commit : Step::Write;
}

JobStatements::End JobStatements::writeWhole(const WholeWrite &work)
{
    std::optional<End> end;
    for (int tries = 0; !end && tries < mostTries; ++tries) {
        if (m_context->isCancelled())
            return End::Stopped;
        const Step failedAt = transact(work.write);
        if (failedAt == Step::None)
            return End::Written;
        end = failedAt == Step::Commit ? afterCommit(work) : afterWrite(work);
    }
    if (!end || *end == End::Failed)
        report();
    return end.value_or(End::Failed);
}

std::optional<JobStatements::End> JobStatements::afterWrite(const WholeWrite &work)
{
    if (m_context->isCancelled())
        return End::Stopped;
    if (work.isRefused && work.isRefused())
        return End::Refused;
    const bool isAgain = isConnectionLost(m_errorNumber) ? connectAnew() : isOthersLock(m_errorNumber);
    return isAgain ? std::nullopt : std::optional(End::Failed);
}

/// Whether it is there the server is asked, so that nothing is told that is not so.
std::optional<JobStatements::End> JobStatements::afterCommit(const WholeWrite &work)
{
    if (isCommitRefused(m_errorNumber))
        return std::nullopt;
    const bool isLost = isConnectionLost(m_errorNumber);
    const auto isThere = !isLost || connectAnew() ? work.isWritten() : std::nullopt;
    if (!isThere)
        return End::Unclear;
    if (*isThere)
        return End::Written;
    return isLost || m_context->isCancelled() ? std::nullopt : std::optional(End::Failed);
}

bool JobStatements::connectAnew()
{
    auto connection = m_context->connectAgain();
    if (!connection)
        return false;
    m_connection = std::move(connection);
    return true;
}

void JobStatements::report() const
{
    if (!m_failedSql.isEmpty())
        postMessage(m_context->receiver(), Texts::tr("Помилка запиту:") + QLatin1Char('\n') + m_error +
                                               QLatin1Char('\n') + m_failedSql.left(500));
}
