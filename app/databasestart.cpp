#include "databasestart.h"

#include "db.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "schema.h"
#include "servererror.h"

#include <QCoreApplication>

namespace {
/// The texts of the main window, under whose name the translations know them.
struct Window
{
    Q_DECLARE_TR_FUNCTIONS(Veltab)
};

JobResult ended(QProcEvent::Outcome outcome)
{
    return {JobResult::Done, {}, outcome};
}

QProcEvent::Outcome connectionFailure(const QSqlDatabase &db, QObject *receiver)
{
    if (isUnknownDatabase(db))
        return QProcEvent::NoDatabase;
    postMessage(receiver, Window::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + openingError(db));
    return QProcEvent::ConnectionFailed;
}

/// Tried aside first: the client library cannot be called off while it waits for a silent server.
bool isAnswering(const DatabaseAddress &address, const JobContext &context)
{
    const ServerAnswer answer = connectAside(address, context.cancelled());
    const bool isLost = isConnectionLost(answer.error);
    if (isLost && !answer.isGivenUp)
        postMessage(context.receiver(),
                    Window::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + answer.text);
    return !isLost;
}

/// A sale there is written in parts, or twice; only the database's administrator can mend that.
void warnOfTables(const Db &db)
{
    const QStringList tables = tablesWithoutTransactions(db);
    if (tables.isEmpty())
        return;
    postMessage(
        db.receiver(),
        Window::tr("Таблиці %1 зроблено без транзакцій: чек або зміна можуть записатися наполовину чи "
                   "двічі. Адміністратор бази має перевести їх на InnoDB (ALTER TABLE … "
                   "ENGINE=InnoDB), коли ніхто не продає.")
            .arg(tables.join(QStringLiteral(", "))),
        QMessEvent::Warning);
}

QProcEvent::Outcome lookForTables(QSqlDatabase *connection, QObject *receiver)
{
    QString error;
    const bool missing = isSchemaMissing(Db(connection, receiver), &error);
    if (!error.isEmpty()) {
        postMessage(receiver, Window::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + error);
        return QProcEvent::ConnectionFailed;
    }
    if (missing)
        return QProcEvent::NoTables;
    warnOfTables(Db(connection, receiver));
    return QProcEvent::Connected;
}
} // namespace

JobResult connectToDatabase(JobContext &context, QSqlDatabase connection, const DatabaseAddress &address)
{
    QObject *receiver = context.receiver();
    postMessage(receiver,
                Window::tr("Підключення до бази даних на %1:%2").arg(address.host).arg(address.port),
                QMessEvent::Information);
    if (!isAnswering(address, context))
        return ended(QProcEvent::ConnectionFailed);
    if (!openConnection(connection, receiver))
        return ended(connectionFailure(connection, receiver));
    postMessage(receiver, Window::tr("Зєднання з БД всановлено."), QMessEvent::Information);
    return ended(lookForTables(&connection, receiver));
}

JobResult createDatabaseAndSchema(JobContext &context, const DatabaseAddress &address)
{
    QObject *receiver = context.receiver();
    QString error;
    if (!isAnswering(address, context))
        return ended(QProcEvent::SchemaFailed);
    if (!createDatabase(address, receiver, &error)) {
        postMessage(receiver, Window::tr("Не вдалося створити базу даних.") + QLatin1Char('\n') + error);
        return ended(QProcEvent::SchemaFailed);
    }
    const Db db = context.db();
    const bool isCreated = db.connection()->isOpen() && createSchema(db);
    return ended(isCreated ? QProcEvent::SchemaReady : QProcEvent::SchemaFailed);
}
