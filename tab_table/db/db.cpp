#include "db.h"

#include "connectionstate.h"
#include "ean13.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QLocale>
#include <QSet>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QThread>
#include <mutex>

namespace {
const char *const transactionState = "velta_transaction";
const char *const lastError = "velta_last_error";
enum State { Outside = 0, Inside = 1, Failed = 2 };
/// A connection that was ended tells at once; where nothing came for so long, the server itself is silent.
const int silenceMs = 800;

State stateOf(const QSqlDatabase *connection)
{
    return static_cast<State>(connection->driver()->property(transactionState).toInt());
}

void setState(const QSqlDatabase *connection, State state)
{
    connection->driver()->setProperty(transactionState, static_cast<int>(state));
}

bool isNameCharacter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
           (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('_');
}

/// The placeholders of a statement, outside of its literals: names with their colon, and "?".
QStringList placeholders(const QString &sql)
{
    QStringList found;
    QChar quote;
    for (int i = 0; i < sql.size(); ++i) {
        const QChar c = sql.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
            quote = c;
        } else if (c == QLatin1Char('?')) {
            found.append(QStringLiteral("?"));
        } else if (c == QLatin1Char(':')) {
            int end = i + 1;
            while (end < sql.size() && isNameCharacter(sql.at(end)))
                ++end;
            if (end > i + 1)
                found.append(sql.mid(i, end - i));
            i = end - 1;
        }
    }
    return found;
}

bool sameNames(const QString &sql, const Db::Values &values)
{
    const QStringList list = placeholders(sql);
    const QSet<QString> wanted(list.begin(), list.end());
    QSet<QString> given;
    for (const auto &value : values)
        given.insert(value.first);
    return wanted == given;
}

struct Hooks
{
    std::mutex guard;
    Db::StatementHook hook;
    Db::StatementRefusal refusal;
};

Hooks &hooks()
{
    static Hooks all;
    return all;
}

thread_local bool isThreadHeard = false;

bool isMainThread()
{
    return QCoreApplication::instance() != nullptr &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

/// Returns the number of the error to fail with, or 0.
int announce(const QString &sql)
{
    if (!isThreadHeard && !isMainThread())
        return 0;
    std::unique_lock<std::mutex> lock(hooks().guard);
    const auto hook = hooks().hook;
    const auto refusal = hooks().refusal;
    lock.unlock();
    if (hook)
        hook(sql);
    return refusal ? refusal(sql) : 0;
}

QSqlError refusedError(int number)
{
    return QSqlError(QString(), QStringLiteral("Refused"), QSqlError::StatementError,
                     QString::number(number));
}

QString unequalValues()
{
    return QCoreApplication::translate("Db", "Значення запиту не відповідають його місцям.");
}
} // namespace

Db::Db(QSqlDatabase *connection, QObject *receiver) : m_connection(connection), m_receiver(receiver) {}

void Db::setStatementHook(const StatementHook &hook)
{
    const std::lock_guard<std::mutex> lock(hooks().guard);
    hooks().hook = hook;
}

void Db::setStatementRefusal(const StatementRefusal &refusal)
{
    const std::lock_guard<std::mutex> lock(hooks().guard);
    hooks().refusal = refusal;
}

void Db::letHooksHearThisThread()
{
    isThreadHeard = true;
}

/// False after a failure inside a transaction, and while the connection is lost.
bool Db::maySend(const char *file, int line) const
{
    if (stateOf(m_connection) == Failed)
        return false;
    ConnectionState *state = ConnectionState::of(*m_connection);
    if (state == nullptr || state->isUsable())
        return true;
    markFailure(ServerError::ServerGone);
    if (state->isReminderDue())
        postMessage(m_receiver, serverWords(ServerError::ServerGone), QMessEvent::Warning, file, line);
    return false;
}

void Db::markFailure(int errorNumber) const
{
    m_connection->driver()->setProperty(lastError, errorNumber);
    if (stateOf(m_connection) == Inside)
        setState(m_connection, Failed);
}

/// Ends the connection and has the server tried; true when the loss is news.
bool Db::loseConnection(bool afterSilence) const
{
    cutConnection(*m_connection);
    ConnectionState *state = ConnectionState::of(*m_connection);
    return state == nullptr || state->reportLoss(afterSilence);
}

void Db::report(const QString &error, const QString &sql, const Caller &caller,
                const QString &explanation) const
{
    const QString opening =
        caller.failure.isEmpty() ? QCoreApplication::translate("Db", "Помилка запиту:") : caller.failure;
    const QString words = explanation.isEmpty() ? QString() : explanation + QStringLiteral("\n\n");
    postMessage(m_receiver, words + opening + QLatin1Char('\n') + error + QLatin1Char('\n') + sql.left(500),
                QMessEvent::Critical, caller.file, caller.line);
}

/// isLossNews: the statement has lost the connection, and nobody was told yet.
std::optional<QSqlQuery> Db::send(const QString &sql, const Execution &execute, QSqlError *error,
                                  bool *isLossNews) const
{
    QElapsedTimer clock;
    clock.start();
    QSqlQuery query(*m_connection);
    const int refused = announce(sql);
    if (refused == 0 && execute(&query))
        return query;
    *error = refused == 0 ? query.lastError() : refusedError(refused);
    const int number = error->nativeErrorCode().toInt();
    markFailure(number);
    *isLossNews = isConnectionLost(number) && loseConnection(clock.elapsed() >= silenceMs);
    return std::nullopt;
}

std::optional<QSqlQuery> Db::sendOrReport(const QString &sql, const Execution &execute,
                                          const Caller &caller) const
{
    QSqlError error;
    bool isLossNews = false;
    auto query = send(sql, execute, &error, &isLossNews);
    if (query)
        return query;
    const int number = lastErrorNumber();
    if (number != caller.expectedError && (isLossNews || !isConnectionLost(number)))
        report(errorText(error), sql, caller, serverWords(number));
    return std::nullopt;
}

int Db::lastErrorNumber() const
{
    return m_connection->driver()->property(lastError).toInt();
}

std::optional<QSqlQuery> Db::run(const QString &sql, const Values &values, const QString &failure,
                                 const char *file, int line) const
{
    if (!maySend(file, line))
        return std::nullopt;
    const Caller caller{failure, file, line};
    if (values.isEmpty())
        return sendOrReport(
            sql, [&sql](QSqlQuery *query) { return query->exec(sql); }, caller);
    if (!sameNames(sql, values)) {
        markFailure();
        report(unequalValues(), sql, caller);
        return std::nullopt;
    }
    const auto execute = [&](QSqlQuery *query) {
        if (!query->prepare(sql))
            return false;
        for (const auto &value : values)
            query->bindValue(value.first, value.second);
        return query->exec();
    };
    return sendOrReport(sql, execute, caller);
}

std::optional<QSqlQuery> Db::runExpecting(int errorNumber, const QString &sql, const QString &failure,
                                          const char *file, int line) const
{
    if (!maySend(file, line))
        return std::nullopt;
    return sendOrReport(sql, [&sql](QSqlQuery *query) { return query->exec(sql); },
                        {failure, file, line, errorNumber});
}

std::optional<QSqlQuery> Db::runPositional(const QString &sql, const QVariantList &values,
                                           const QString &failure, const char *file, int line) const
{
    if (!maySend(file, line))
        return std::nullopt;
    const Caller caller{failure, file, line};
    if (placeholders(sql).count(QStringLiteral("?")) != values.size()) {
        markFailure();
        report(unequalValues(), sql, caller);
        return std::nullopt;
    }
    const auto execute = [&](QSqlQuery *query) {
        if (!query->prepare(sql))
            return false;
        for (const QVariant &value : values)
            query->addBindValue(value);
        return query->exec();
    };
    return sendOrReport(sql, execute, caller);
}

std::optional<QString> Db::firstText(const QString &sql, const Values &values, const QString &failure,
                                     const char *file, int line) const
{
    auto query = run(sql, values, failure, file, line);
    if (!query)
        return std::nullopt;
    return query->next() ? toText(query->value(0)) : QString();
}

std::optional<QStringList> Db::firstRow(const QString &sql, const Values &values, const QString &failure,
                                        const char *file, int line) const
{
    auto query = run(sql, values, failure, file, line);
    if (!query)
        return std::nullopt;
    QStringList cells;
    // Built from the answer at each call.
    const int columns = query->next() ? query->record().count() : 0;
    for (int i = 0; i < columns; ++i)
        cells.append(toText(query->value(i)));
    return cells;
}

std::optional<QStringList> Db::firstColumn(const QString &sql, const Values &values, const QString &failure,
                                           const char *file, int line) const
{
    auto query = run(sql, values, failure, file, line);
    if (!query)
        return std::nullopt;
    QStringList cells;
    while (query->next())
        cells.append(toText(query->value(0)));
    return cells;
}

std::optional<quint64> Db::lastInsertId(const char *file, int line) const
{
    const QString sql = QStringLiteral("SELECT LAST_INSERT_ID()");
    const auto text = firstText(sql, {}, {}, file, line);
    if (!text)
        return std::nullopt;
    if (text->isEmpty() || *text == QLatin1String("0")) {
        report(QString(), sql, {QCoreApplication::translate("Db", "Не має даних після запиту"), file, line});
        return std::nullopt;
    }
    return text->toULongLong();
}

std::optional<QSqlQuery> Db::attempt(const QString &sql, QString *error) const
{
    if (!maySend(__builtin_FILE(), __builtin_LINE())) {
        *error = serverWords(lastErrorNumber());
        return std::nullopt;
    }
    QSqlError failure;
    bool isLossNews = false;
    auto query = send(
        sql, [&sql](QSqlQuery *q) { return q->exec(sql); }, &failure, &isLossNews);
    if (!query)
        *error = errorText(failure);
    return query;
}

Transaction::Transaction(const Db &db, const char *file, int line) : m_db(db)
{
    Q_ASSERT(stateOf(db.connection()) == Outside);
    m_open = m_db.run(QStringLiteral("START TRANSACTION"), {}, {}, file, line).has_value();
    if (m_open)
        setState(m_db.connection(), Inside);
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    const bool hasFailed = stateOf(m_db.connection()) == Failed;
    setState(m_db.connection(), Outside);
    // The server rolls back what a lost connection leaves.
    if (hasFailed && isConnectionLost(m_db.lastErrorNumber()))
        return;
    const int failure = m_db.lastErrorNumber();
    QString error;
    if (m_db.attempt(QStringLiteral("ROLLBACK"), &error))
        return;
    m_db.markFailure(failure);
    m_db.loseConnection();
}

bool Transaction::commit(const char *file, int line)
{
    if (!m_open || !m_db.run(QStringLiteral("COMMIT"), {}, {}, file, line))
        return false;
    setState(m_db.connection(), Outside);
    m_open = false;
    return true;
}

QString lit(const QString &text)
{
    QString literal = text;
    literal.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + literal + QLatin1Char('\'');
}

QString likeContains(const QString &text)
{
    QString pattern = text;
    pattern.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('%'), QLatin1String("\\%"))
        .replace(QLatin1Char('_'), QLatin1String("\\_"));
    return lit(QLatin1Char('%') + pattern + QLatin1Char('%'));
}

QStringList wordsOf(const QString &text)
{
    return text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString likeWords(const QString &condition, const QString &text)
{
    QStringList conditions;
    for (const QString &word : wordsOf(text))
        conditions.append(condition.arg(likeContains(word)));
    return conditions.join(QStringLiteral(" AND "));
}

QString toText(const QVariant &value)
{
    if (value.isNull() || !value.isValid())
        return QString();
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QMetaType::Float:
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest);
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    case QMetaType::QByteArray:
        return QString::fromUtf8(value.toByteArray());
    default:
        return value.toString();
    }
}

QString errorText(const QSqlError &error)
{
    QString server = error.databaseText();
    // The driver decodes the errors of prepared statements as Latin-1.
    if (error.driverText().startsWith(QLatin1String("QMYSQL3:")))
        server = QString::fromUtf8(server.toLatin1());
    return server.isEmpty() ? error.driverText() : server;
}

bool waitForServer(const Db &db, int ms)
{
    ConnectionState *state = ConnectionState::of(*db.connection());
    return state == nullptr || state->waitUntilBack(ms);
}

QString barcodeInSql(const QString &code)
{
    return isAllDigits(code) && !code.startsWith(QLatin1Char('0')) ? code : lit(code);
}

QVariant nullIfEmpty(const QString &text)
{
    return text.isEmpty() ? QVariant(QVariant::String) : QVariant(text);
}
