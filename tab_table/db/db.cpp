#include "db.h"

#include "qmessevent.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QSet>
#include <QSqlDriver>
#include <QSqlError>
#include <QThread>

namespace {
const char *const transactionState = "velta_transaction";
const char *const lastError = "velta_last_error";
enum State { Outside = 0, Inside = 1, Failed = 2 };

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

Db::StatementHook &statementHook()
{
    static Db::StatementHook hook;
    return hook;
}

/// Background connections send their statements past the hook: it belongs to the main thread.
void announce(const QString &sql)
{
    if (QCoreApplication::instance() != nullptr &&
        QThread::currentThread() == QCoreApplication::instance()->thread() && statementHook())
        statementHook()(sql);
}

QString unequalValues()
{
    return QCoreApplication::translate("Db", "Значення запиту не відповідають його місцям.");
}
} // namespace

Db::Db(QSqlDatabase *connection, QObject *receiver) : m_connection(connection), m_receiver(receiver) {}

void Db::setStatementHook(const StatementHook &hook)
{
    statementHook() = hook;
}

bool Db::refusedInTransaction() const
{
    return stateOf(m_connection) == Failed;
}

void Db::markFailure(int errorNumber) const
{
    m_connection->driver()->setProperty(lastError, errorNumber);
    if (stateOf(m_connection) == Inside)
        setState(m_connection, Failed);
}

void Db::report(const QString &failure, const QString &error, const QString &sql, const char *file,
                int line) const
{
    const QString opening =
        failure.isEmpty() ? QCoreApplication::translate("Db", "Помилка запиту:") : failure;
    postMessage(m_receiver, opening + QLatin1Char('\n') + error + QLatin1Char('\n') + sql.left(500),
                QMessEvent::Critical, file, line);
}

std::optional<QSqlQuery> Db::finish(QSqlQuery &&query, bool executed, const QString &sql,
                                    const QString &failure, const char *file, int line) const
{
    if (executed)
        return std::move(query);
    markFailure(query.lastError().nativeErrorCode().toInt());
    report(failure, errorText(query.lastError()), sql, file, line);
    return std::nullopt;
}

int Db::lastErrorNumber() const
{
    return m_connection->driver()->property(lastError).toInt();
}

std::optional<QSqlQuery> Db::run(const QString &sql, const Values &values, const QString &failure,
                                 const char *file, int line) const
{
    if (refusedInTransaction())
        return std::nullopt;
    QSqlQuery query(*m_connection);
    if (values.isEmpty()) {
        announce(sql);
        return finish(std::move(query), query.exec(sql), sql, failure, file, line);
    }
    if (!sameNames(sql, values)) {
        markFailure();
        report(failure, unequalValues(), sql, file, line);
        return std::nullopt;
    }
    announce(sql);
    bool executed = query.prepare(sql);
    if (executed) {
        for (const auto &value : values)
            query.bindValue(value.first, value.second);
        executed = query.exec();
    }
    return finish(std::move(query), executed, sql, failure, file, line);
}

std::optional<QSqlQuery> Db::runPositional(const QString &sql, const QVariantList &values,
                                           const QString &failure, const char *file, int line) const
{
    if (refusedInTransaction())
        return std::nullopt;
    if (placeholders(sql).count(QStringLiteral("?")) != values.size()) {
        markFailure();
        report(failure, unequalValues(), sql, file, line);
        return std::nullopt;
    }
    QSqlQuery query(*m_connection);
    announce(sql);
    bool executed = query.prepare(sql);
    if (executed) {
        for (const QVariant &value : values)
            query.addBindValue(value);
        executed = query.exec();
    }
    return finish(std::move(query), executed, sql, failure, file, line);
}

std::optional<QString> Db::firstText(const QString &sql, const Values &values, const QString &failure,
                                     const char *file, int line) const
{
    auto query = run(sql, values, failure, file, line);
    if (!query)
        return std::nullopt;
    return query->next() ? toText(query->value(0)) : QString();
}

std::optional<quint64> Db::lastInsertId(const char *file, int line) const
{
    const QString sql = QStringLiteral("SELECT LAST_INSERT_ID()");
    const auto text = firstText(sql, {}, {}, file, line);
    if (!text)
        return std::nullopt;
    if (text->isEmpty() || *text == QLatin1String("0")) {
        report(QCoreApplication::translate("Db", "Не має даних після запиту"), QString(), sql, file, line);
        return std::nullopt;
    }
    return text->toULongLong();
}

std::optional<QSqlQuery> Db::attempt(const QString &sql, QString *error) const
{
    if (refusedInTransaction())
        return std::nullopt;
    QSqlQuery query(*m_connection);
    announce(sql);
    if (query.exec(sql))
        return query;
    markFailure(query.lastError().nativeErrorCode().toInt());
    *error = errorText(query.lastError());
    return std::nullopt;
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
    setState(m_db.connection(), Outside);
    QString error;
    m_db.attempt(QStringLiteral("ROLLBACK"), &error);
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

QVariant nullIfEmpty(const QString &text)
{
    return text.isEmpty() ? QVariant(QVariant::String) : QVariant(text);
}
