#include "jobstatements.h"

#include "job.h"
#include "qmessevent.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JobStatements)
};
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
