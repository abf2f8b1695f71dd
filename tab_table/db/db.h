#pragma once

#include <QPair>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
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
///
/// One value comes from firstText(), one row from firstRow(), a list of ids or names from firstColumn(), all
/// else from run(). Lists that people look at are read away from the window (QueryOwner).
///
/// A window's connection that is lost is reported once; until the server answers again every statement on
/// it fails at once with ServerError::ServerGone, and only a warning tells of it now and then.
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

    /// A statement without values whose failure by this error of the server is expected and not reported.
    std::optional<QSqlQuery> runExpecting(int errorNumber, const QString &sql, const QString &failure = {},
                                          const char *file = __builtin_FILE(),
                                          int line = __builtin_LINE()) const;

    /// As run(), with "?" placeholders, in order.
    std::optional<QSqlQuery> runPositional(const QString &sql, const QVariantList &values,
                                           const QString &failure = {}, const char *file = __builtin_FILE(),
                                           int line = __builtin_LINE()) const;

    /// The first cell of the first row as text; empty for NULL or no row, nothing after a failure.
    std::optional<QString> firstText(const QString &sql, const Values &values = {},
                                     const QString &failure = {}, const char *file = __builtin_FILE(),
                                     int line = __builtin_LINE()) const;

    /// The cells of the first row as text; empty without a row, nothing after a failure.
    std::optional<QStringList> firstRow(const QString &sql, const Values &values = {},
                                        const QString &failure = {}, const char *file = __builtin_FILE(),
                                        int line = __builtin_LINE()) const;

    /// The first cells of all rows as text; nothing after a failure.
    std::optional<QStringList> firstColumn(const QString &sql, const Values &values = {},
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
    /// included: lets tests break the connection at a given one. Null by default. Heard are the main thread
    /// and those that ask for it; a hook is called in the thread of the statement.
    using StatementHook = std::function<void(const QString &sql)>;
    static void setStatementHook(const StatementHook &hook);
    /// The same as a server that refuses: what returns an error number is not sent and fails with it; 0
    /// lets the statement through.
    using StatementRefusal = std::function<int(const QString &sql)>;
    static void setStatementRefusal(const StatementRefusal &refusal);
    static void letHooksHearThisThread();

    QSqlDatabase *connection() const { return m_connection; }
    QObject *receiver() const { return m_receiver; }

private:
    friend class Transaction;
    /// Where a report comes from and how it begins.
    struct Caller
    {
        const QString &failure;
        const char *file;
        int line;
        int expectedError = 0;
    };
    using Execution = std::function<bool(QSqlQuery *query)>;
    bool maySend(const char *file, int line) const;
    void markFailure(int errorNumber = 0) const;
    bool loseConnection(bool afterSilence = false) const;
    std::optional<QSqlQuery> send(const QString &sql, const Execution &execute, QSqlError *error,
                                  bool *isLossNews) const;
    std::optional<QSqlQuery> sendOrReport(const QString &sql, const Execution &execute,
                                          const Caller &caller) const;
    void report(const QString &error, const QString &sql, const Caller &caller,
                const QString &explanation = {}) const;

    QSqlDatabase *m_connection;
    QObject *m_receiver;
};

/// A transaction is a scope: what nobody commits is rolled back. Show no dialog inside one. When ROLLBACK
/// is refused, the connection is cut: what is left open would be committed by the next START TRANSACTION.
class Transaction
{
public:
    explicit Transaction(const Db &db, const char *file = __builtin_FILE(), int line = __builtin_LINE());
    ~Transaction();
    Q_DISABLE_COPY(Transaction)

    /// False when START TRANSACTION failed (reported).
    explicit operator bool() const { return m_open; }
    /// After a failed commit it is not known whether the server has written: ask it, unless
    /// isCommitRefused() is true for the error.
    bool commit(const char *file = __builtin_FILE(), int line = __builtin_LINE());

private:
    const Db m_db;
    bool m_open = false;
};

/// A text as an SQL literal with its quotes, safe against quotes, backslashes and placeholders.
QString lit(const QString &text);
/// The pattern '%text%' as a literal, in which %, _ and \ stand for themselves.
QString likeContains(const QString &text);
/// The words of a text, however many blanks stand between them.
QStringList wordsOf(const QString &text);
/// A condition that every word of a text fulfils, in any order: the given one, in which %1 stands for the
/// word's pattern ("(name LIKE %1 OR code LIKE %1)"), for each of them, joined by AND; empty without words.
QString likeWords(const QString &condition, const QString &text);
/// A database value as text: NULL and zero dates are empty, numbers without exponent, booleans 0 or 1,
/// dates yyyy-MM-dd, times of day and date-times "yyyy-MM-dd hh:mm:ss".
QString toText(const QVariant &value);
/// The server's words, decoded; client errors included.
QString errorText(const QSqlError &error);
/// Whether the server of the connection answers, waiting so long at most. For those who have to know what
/// became of their COMMIT.
bool waitForServer(const Db &db, int ms);
/// A barcode in a statement: bare digits, but quoted when it begins with 0, which a number would lose.
QString barcodeInSql(const QString &code);
/// NULL for an empty text, else the text; to bind.
QVariant nullIfEmpty(const QString &text);
