#include "qupdatebd.h"

#include "db.h"
#include "ownstamps.h"
#include "qmessevent.h"
#include "rowstore.h"
#include "servererror.h"

#include <QRegularExpression>
#include <algorithm>

namespace {
const QLatin1String trackerTable("updat");
const QLatin1String trackerColumns("(name CHAR(50), updat DATETIME NOT NULL DEFAULT 0, PRIMARY KEY (name))");

/// A zero date, before every other one.
const QLatin1String never("0");

/// "'','goods','prices'": never empty.
QString listed(const QStringList &tables)
{
    QStringList literals(QStringLiteral("''"));
    for (const QString &table : tables)
        literals.append(lit(table));
    return literals.join(QLatin1Char(','));
}

QString textOf(std::string_view cell)
{
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
}

/// Null when the table is not among them.
QString timeOf(const QString &table, const QVector<TableTime> &times)
{
    const auto found = std::find_if(times.begin(), times.end(),
                                    [&table](const TableTime &time) { return time.table == table; });
    return found == times.end() ? QString() : found->time;
}

/// Sends a statement that needs the tracker's tables; a missing private one is created first.
std::optional<QSqlQuery> send(const QString &sql, const QString &failure, QSqlDatabase &connection,
                              QObject *receiver)
{
    const Db db(&connection, receiver);
    auto query = db.runExpecting(ServerError::NoSuchTable, sql, failure);
    if (query || db.lastErrorNumber() != ServerError::NoSuchTable ||
        !QUpdateBD().create_tmp(connection, receiver))
        return query;
    return db.run(sql, {}, failure);
}
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

bool QUpdateBD::stamp(const QStringList &tables, Lists lists, QSqlDatabase &connection, QObject *receiver)
{
    const Db db(&connection, receiver);
    const QString failure = tr("Помилка оновлення запису в таблиці") + QLatin1Char(' ') + trackerTable;
    const auto read = [&](const QString &lock) {
        auto times = db.run(timesSql(tables) + lock, {}, failure);
        return times ? std::optional(timesOf(RowStore::read(*times))) : std::nullopt;
    };
    const auto before = lists == UpToDate ? read(QStringLiteral(" FOR UPDATE")) : QVector<TableTime>();
    const bool isStamped =
        before &&
        db.run(QStringLiteral("UPDATE updat SET updat=NOW() WHERE name IN (%1)").arg(listed(tables)), {},
               failure);
    const auto after = isStamped ? read(QString()) : std::nullopt;
    if (!after) {
        if (db.lastErrorNumber() == ServerError::NoSuchTable)
            create_tmp(connection, receiver);
        return false;
    }
    for (const TableTime &now : *after)
        OwnStamps::of(connection).add(now.table, timeOf(now.table, *before), now.time);
    return true;
}

bool QUpdateBD::update(const QStringList &tables, QSqlDatabase &connection, QObject *receiver)
{
    return stamp(tables, BehindUs, connection, receiver);
}

bool QUpdateBD::updateShown(const QStringList &tables, QSqlDatabase &connection, QObject *receiver)
{
    return stamp(tables, UpToDate, connection, receiver);
}

bool QUpdateBD::isUpdate(const QStringList &tables, QSqlDatabase &connection, QObject *receiver)
{
    auto query = send(QStringLiteral("SELECT updat.name FROM updat LEFT JOIN updat_tmp ON "
                                     "updat_tmp.name=updat.name WHERE updat.name IN (%1) AND "
                                     "(updat_tmp.updat IS NULL OR updat_tmp.updat<updat.updat) LIMIT 1")
                          .arg(listed(tables)),
                      tr("Помилка запиту на здійснене оновленя таблиці."), connection, receiver);
    return query && query->next();
}

QStringList QUpdateBD::tablesIn(const QString &sql)
{
    static const QRegularExpression name(QStringLiteral("\\b(?:FROM|JOIN)\\s+`?(\\w+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    QStringList tables;
    for (auto found = name.globalMatch(sql); found.hasNext();)
        tables.append(found.next().captured(1));
    tables.removeDuplicates();
    return tables;
}

QString QUpdateBD::timesSql(const QStringList &tables)
{
    return QStringLiteral("SELECT name,updat,updat=NOW() FROM updat WHERE name IN (%1)").arg(listed(tables));
}

QVector<TableTime> QUpdateBD::timesOf(const RowStore &rows)
{
    QVector<TableTime> times;
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QString time = textOf(rows.cell(row, 1));
        times.append(
            {textOf(rows.cell(row, 0)), time.isEmpty() ? QString(never) : time, rows.cell(row, 2) == "1"});
    }
    return times;
}

std::optional<bool> QUpdateBD::isNewer(const QVector<TableTime> &read, QSqlDatabase &connection,
                                       QObject *receiver)
{
    QStringList tables;
    for (const TableTime &before : read)
        tables.append(before.table);
    auto rows = Db(&connection, receiver)
                    .run(timesSql(tables), {}, tr("Помилка запиту на здійснене оновленя таблиці."));
    if (!rows)
        return std::nullopt;
    const QVector<TableTime> now = timesOf(RowStore::read(*rows));
    const OwnStamps &own = OwnStamps::of(connection);
    return std::any_of(read.begin(), read.end(), [&](const TableTime &before) {
        const QString time = timeOf(before.table, now);
        if (time == before.time)
            return before.isOfThisSecond && !own.isOwn(before.table, time);
        return !time.isNull() && !own.isAllOwn(before.table, before.time, time);
    });
}

bool QUpdateBD::reRead(const QStringList &tables, QSqlDatabase &connection, QObject *receiver)
{
    auto times = send(timesSql(tables), QString(), connection, receiver);
    return times && setRead(RowStore::read(*times), connection, receiver);
}

/// Literals, not a SELECT: that would lock the shared rows and wait for those who write them.
bool QUpdateBD::setRead(const RowStore &times, QSqlDatabase &connection, QObject *receiver)
{
    QStringList rows;
    for (const TableTime &read : timesOf(times))
        rows.append(QStringLiteral("(%1,%2)").arg(lit(read.table),
                                                  read.time == never ? QString(never) : lit(read.time)));
    return rows.isEmpty() ||
           send(QStringLiteral("REPLACE INTO updat_tmp(name,updat) VALUES") + rows.join(QLatin1Char(',')),
                QString(), connection, receiver);
}

bool QUpdateBD::update(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    return update(QStringList(table), connection, receiver);
}

bool QUpdateBD::isUpdate(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    return isUpdate(QStringList(table), connection, receiver);
}

bool QUpdateBD::reRead(const QString &table, QSqlDatabase &connection, QObject *receiver)
{
    return reRead(QStringList(table), connection, receiver);
}
