#include "schema.h"

#include "db.h"
#include "qmessevent.h"
#include "qupdatebd.h"

#include <QCoreApplication>

namespace {
/// The texts of the table host, under whose name the translations know them.
struct Host
{
    Q_DECLARE_TR_FUNCTIONS(QTableBase)
};

bool createTables(const Db &db, const char *file, int line)
{
    for (const TableDefinition &table : schemaTables()) {
        QString error;
        const QString name = QLatin1String(table.name);
        if (!db.attempt(QStringLiteral("CREATE TABLE IF NOT EXISTS ") + name + QLatin1Char('(') +
                            QLatin1String(table.columns) + QLatin1Char(')'),
                        &error)) {
            postMessage(db.receiver(),
                        Host::tr("Помилка створення таблиці") + QLatin1Char(' ') + name + QLatin1Char('\n') +
                            error,
                        QMessEvent::Critical, file, line);
            return false;
        }
    }
    return true;
}

/// A bare statement of the creation's transaction. CREATE TABLE commits by itself, so this transaction
/// guards nothing but the tracker; it is part of the order that other programs expect.
bool runStep(const Db &db, const char *statement, const char *file, int line)
{
    QString error;
    if (db.attempt(QLatin1String(statement), &error))
        return true;
    postMessage(db.receiver(), Host::tr("Помилка запиту:") + QLatin1String("\n\n") + error,
                QMessEvent::Critical, file, line);
    return false;
}
} // namespace

bool isSchemaMissing(const Db &db, QString *error)
{
    auto query = db.attempt(QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE "
                                           "TABLE_SCHEMA=DATABASE() AND TABLE_NAME IN ('users','updat')"),
                            error);
    return query && query->next() && query->value(0).toInt() < 2;
}

QStringList tablesWithoutTransactions(const Db &db)
{
    return db
        .firstColumn(QStringLiteral("SELECT CONCAT(TABLE_NAME,' (',ENGINE,')') FROM "
                                    "INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME "
                                    "IN ('cheks','z_zvit','goods_shop') AND ENGINE<>'InnoDB' "
                                    "ORDER BY TABLE_NAME"))
        .value_or(QStringList());
}

bool createSchema(const Db &db, const char *file, int line)
{
    postMessage(db.receiver(), Host::tr("Зачекайте. Створюються таблиці."), QMessEvent::Information, file,
                line);
    if (!runStep(db, "START TRANSACTION", file, line))
        return false;
    if (!createTables(db, file, line)) {
        runStep(db, "ROLLBACK", file, line);
        return false;
    }
    QUpdateBD tracker;
    tracker.create(db.connection()->databaseName(), *db.connection(), db.receiver());
    tracker.create_tmp(*db.connection(), db.receiver());
    if (!runStep(db, "COMMIT", file, line))
        return false;
    seedTables(db, file, line);
    postMessage(db.receiver(), Host::tr("Перезавантажте програму!"), QMessEvent::Information, file, line);
    return true;
}
