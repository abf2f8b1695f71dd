#pragma once

#include <QPair>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>
#include <QVector>
#include <functional>
#include <optional>

class QObject;
class QSqlError;

/// The one way to run SQL: a connection and the receiver of the reports. Cheap to copy.
///
/// Every function that sends a statement reports a failure itself (critical message: the failure's text,
/// the server's words, the first 500 characters of the statement, the place of the caller); callers
/// only ask whether it worked. After a failed statement inside a Transaction nothing is sent any more
/// but its ROLLBACK: the client library would reconnect and go on in autocommit.
class Db
{
public:
    /// Names with their colon, as in the statement.
    using Values = QVector<QPair<QString, QVariant>>;

    Db(QSqlDatabase *connection, QObject *receiver);

    /// Runs a statement with bound values and returns the executed query, before its first row.
    /// The bound names and the placeholders must be the same set, else it is refused.
    /// failure: the text that opens the report; "Помилка запиту:" when empty.
    std::optional<QSqlQuery> run(const QString &sql, const Values &values = {}, const QString &failure = {},
                                 const char *file = __builtin_FILE(), int line = __builtin_LINE()) const;

    /// The same with "?" placeholders, in order.
    std::optional<QSqlQuery> runPositional(const QString &sql, const QVariantList &values,
                                           const QString &failure = {}, const char *file = __builtin_FILE(),
                                           int line = __builtin_LINE()) const;

    /// The first cell of the first row as text; empty for NULL or no row, nothing after a failure.
    std::optional<QString> firstText(const QString &sql, const Values &values = {},
                                     const QString &failure = {}, const char *file = __builtin_FILE(),
                                     int line = __builtin_LINE()) const;

    /// The id that AUTO_INCREMENT gave to the row inserted last; nothing (reported) when there is none.
    std::optional<quint64> lastInsertId(const char *file = __builtin_FILE(),
                                        int line = __builtin_LINE()) const;

    /// The server's number of the statement that failed last on this connection (1062 a duplicate key, 1205
    /// a lock wait, ...); 0 when none has or when the client refused it.
    int lastErrorNumber() const;

    /// Runs a statement without reporting: error gets the server's words. For those who word the report.
    std::optional<QSqlQuery> attempt(const QString &sql, QString *error) const;

    /// Called with every statement right before it is sent, START TRANSACTION, COMMIT and ROLLBACK
    /// included: lets tests break the connection at a given one. Null by default; main thread only.
    using StatementHook = std::function<void(const QString &sql)>;
    static void setStatementHook(const StatementHook &hook);

    QSqlDatabase *connection() const { return m_connection; }
    QObject *receiver() const { return m_receiver; }

private:
    friend class Transaction;
    bool refusedInTransaction() const;
    void markFailure(int errorNumber = 0) const;
    std::optional<QSqlQuery> finish(QSqlQuery &&query, bool executed, const QString &sql,
                                    const QString &failure, const char *file, int line) const;
    void report(const QString &failure, const QString &error, const QString &sql, const char *file,
                int line) const;

    QSqlDatabase *m_connection;
    QObject *m_receiver;
};

/// A transaction is a scope: what nobody commits is rolled back. Show no dialog inside one.
class Transaction
{
public:
    explicit Transaction(const Db &db, const char *file = __builtin_FILE(), int line = __builtin_LINE());
    ~Transaction();
    Q_DISABLE_COPY(Transaction)

    /// False when START TRANSACTION failed (reported).
    explicit operator bool() const { return m_open; }
    /// After a failed commit it is not known whether the server has written: ask it.
    bool commit(const char *file = __builtin_FILE(), int line = __builtin_LINE());

private:
    const Db m_db;
    bool m_open = false;
};

/// A text as an SQL literal with its quotes, safe against quotes, backslashes and placeholders.
QString lit(const QString &text);
/// The pattern '%text%' as a literal, in which %, _ and \ stand for themselves.
QString likeContains(const QString &text);
/// A database value as text: NULL and zero dates are empty, numbers without exponent, booleans 0 or 1,
/// dates yyyy-MM-dd, times of day and date-times "yyyy-MM-dd hh:mm:ss".
QString toText(const QVariant &value);
/// The server's words, decoded; client errors included.
QString errorText(const QSqlError &error);
/// NULL for an empty text, else the text; to bind.
QVariant nullIfEmpty(const QString &text);
