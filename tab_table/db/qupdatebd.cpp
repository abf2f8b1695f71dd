#include "qupdatebd.h"

#include "db.h"
#include "qmessevent.h"

namespace {
const QLatin1String trackerTable("updat");
const QLatin1String trackerColumns("(name CHAR(50), updat DATETIME NOT NULL DEFAULT 0, PRIMARY KEY (name))");
} // namespace

bool QUpdateBD::create(const QString &database, QSqlDatabase &connection, QObject *receiver)
{
    const Db db(&connection, receiver);
    if (!db.run(QStringLiteral("CREATE TABLE IF NOT EXISTS ") + trackerTable + trackerColumns))
        return false;
    auto count = db.run(QStringLiteral("SELECT COUNT(*) FROM updat"));
    if (!count)
        return false;
    if (!count->next()) {
        postMessage(receiver, tr("Немає даних після запиту"));
        return false;
    }
    if (count->value(0).toInt() == 0 &&
        !db.run(
            QStringLiteral("INSERT INTO updat(name) (SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE "
                           "TABLE_SCHEMA=%1 AND TABLE_NAME<>'updat' AND TABLE_NAME<>'users')")
                .arg(lit(database))))
        return false;
    return db.run(QStringLiteral("UPDATE updat SET updat=NOW()")).has_value();
}

bool QUpdateBD::create_tmp(QSqlDatabase &connection, QObject *receiver)
{
    const Db db(&connection, receiver);
    return db.run(QStringLiteral("SELECT name FROM updat LIMIT 1"), {},
                  tr("Створіть таблиці та перезапустіть програму.Не знайдено таблицю") + QLatin1Char(' ') +
                      trackerTable) &&
           db.run(QStringLiteral("CREATE TEMPORARY TABLE IF NOT EXISTS updat_tmp") + trackerColumns) &&
           db.run(QStringLiteral("INSERT IGNORE INTO updat_tmp(name) (SELECT name FROM updat)"));
}

bool QUpdateBD::update(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    return create_tmp(connection, receiver) && stamp({table}, Db(&connection, receiver));
}

bool QUpdateBD::stamp(const QStringList &tables, const Db &db)
{
    QStringList names;
    for (const QString &table : tables)
        names.append(lit(table));
    const QString chosen = names.size() == 1
                               ? QLatin1Char('=') + names.first()
                               : QStringLiteral(" IN (") + names.join(QLatin1Char(',')) + QLatin1Char(')');
    return db
        .run(QStringLiteral("UPDATE updat SET updat=NOW() WHERE name") + chosen, {},
             tr("Помилка оновлення запису в таблиці") + QLatin1Char(' ') + trackerTable)
        .has_value();
}

bool QUpdateBD::isUpdate(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    if (!create_tmp(connection, receiver))
        return false;
    auto query =
        Db(&connection, receiver)
            .run(QStringLiteral("SELECT * FROM updat_tmp JOIN updat ON updat_tmp.name=updat.name WHERE "
                                "updat_tmp.name=%1 AND updat_tmp.updat<updat.updat LIMIT 1")
                     .arg(lit(table)),
                 {}, tr("Помилка запиту на здійснене оновленя таблиці."));
    return query && query->next();
}

bool QUpdateBD::reRead(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    return create_tmp(connection, receiver) &&
           Db(&connection, receiver)
               .run(QStringLiteral("UPDATE updat_tmp SET updat=(SELECT updat FROM updat WHERE name=%1) "
                                   "WHERE name=%1")
                        .arg(lit(table)));
}
