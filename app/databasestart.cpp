#include "databasestart.h"

#include "db.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qtablebase.h"
#include "schema.h"

#include <QCoreApplication>
#include <QSqlError>

namespace {
/// The texts of the main window, under whose name the translations know them.
struct Window
{
    Q_DECLARE_TR_FUNCTIONS(Veltab)
};

void finish(QObject *receiver, QProcEvent::Outcome outcome)
{
    QCoreApplication::postEvent(receiver, new QProcEvent(outcome));
}

QProcEvent::Outcome connectionFailure(const QSqlDatabase &db, QObject *receiver)
{
    if (isUnknownDatabase(db))
        return QProcEvent::NoDatabase;
    postMessage(receiver,
                Window::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + errorText(db.lastError()));
    return QProcEvent::ConnectionFailed;
}

QProcEvent::Outcome lookForTables(QSqlDatabase *connection, QObject *receiver)
{
    QString error;
    const bool missing = isSchemaMissing(Db(connection, receiver), &error);
    if (!error.isEmpty()) {
        postMessage(receiver, Window::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + error);
        return QProcEvent::ConnectionFailed;
    }
    return missing ? QProcEvent::NoTables : QProcEvent::Connected;
}
} // namespace

void connectToDatabase(QSqlDatabase *connection, const DatabaseAddress &address, QObject *receiver)
{
    postMessage(receiver,
                Window::tr("Підключення до бази даних на %1:%2").arg(address.host).arg(address.port),
                QMessEvent::Information);
    if (!openConnection(*connection, receiver)) {
        finish(receiver, connectionFailure(*connection, receiver));
        return;
    }
    postMessage(receiver, Window::tr("Зєднання з БД всановлено."), QMessEvent::Information);
    finish(receiver, lookForTables(connection, receiver));
}

void createDatabaseAndSchema(const DatabaseAddress &address, QObject *receiver)
{
    QString error;
    if (!createDatabase(address, receiver, &error)) {
        postMessage(receiver, Window::tr("Не вдалося створити базу даних.") + QLatin1Char('\n') + error);
        finish(receiver, QProcEvent::SchemaFailed);
        return;
    }
    const QString name = QStringLiteral("create_tables");
    bool created = false;
    {
        QSqlDatabase db = addConnection(name, address);
        if (openConnection(db, receiver)) {
            created = QTableBase::CreateTables(&db, receiver);
        } else {
            connectionFailure(db, receiver);
        }
    }
    QSqlDatabase::removeDatabase(name);
    finish(receiver, created ? QProcEvent::SchemaReady : QProcEvent::SchemaFailed);
}
