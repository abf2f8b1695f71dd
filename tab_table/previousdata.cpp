#include "previousdata.h"

#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QMap>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PreviousData)
};

/// A name as it may stand in a statement, whatever it is made of.
QString quoted(QString name)
{
    return QLatin1Char('`') + name.replace(QLatin1Char('`'), QLatin1String("``")) + QLatin1Char('`');
}

/// Reads the source without locking it, keeps an id of 0 as it is, and has the server remember every warning.
/// A server that writes its log by statements takes no such reading.
bool prepare(const Db &db)
{
    const auto mayReadCommitted =
        db.firstText(QStringLiteral("SELECT @@log_bin=0 OR @@binlog_format<>'STATEMENT'"));
    return mayReadCommitted &&
           (*mayReadCommitted != QLatin1String("1") ||
            db.run(QStringLiteral("SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED"))) &&
           db.run(QStringLiteral("SET SESSION sql_mode=CONCAT(@@sql_mode,',NO_AUTO_VALUE_ON_ZERO'),"
                                 "max_error_count=65535"));
}

/// What a warning of the server means to whoever reads the result; its own words for a rare one.
QString warningWords(int number, const QString &words)
{
    switch (number) {
    case ServerError::DuplicateKey:
        return Texts::tr("така назва чи адреса вже є");
    case 1452:
        return Texts::tr("посилання на запис, якого немає");
    case 1265:
    case 1406:
        return Texts::tr("значення обрізано");
    case 1264:
        return Texts::tr("число не вміщується, записано найближче");
    case 1048:
    case 1263:
        return Texts::tr("порожнє значення замінено на нульове");
    default:
        return words;
    }
}

/// Of the statement before, each kind once: "посилання на запис, якого немає (3)". Rows of the same key are
/// counted elsewhere.
QString readWarnings(const Db &db)
{
    auto warnings = db.run(QStringLiteral("SHOW WARNINGS"));
    QMap<QString, int> counts;
    while (warnings && warnings->next()) {
        const int number = warnings->value(1).toInt();
        const QString words = toText(warnings->value(2));
        if (number != ServerError::DuplicateKey || !words.endsWith(QLatin1String("PRIMARY'")))
            ++counts[warningWords(number, words)];
    }
    QStringList parts;
    for (auto kind = counts.cbegin(); kind != counts.cend(); ++kind)
        parts.append(QStringLiteral("%1 (%2)").arg(kind.key()).arg(kind.value()));
    return parts.join(QStringLiteral("; "));
}

/// The rows of the source whose key stands in the target.
std::optional<qint64> countKnown(const Db &db, const PreviousTable &table, const QString &target,
                                 const QString &source)
{
    const QLatin1String name(table.name);
    const auto count = db.firstText(QStringLiteral("SELECT COUNT(*) FROM %1.%3 JOIN %2.%3 USING(%4)")
                                        .arg(quoted(source), quoted(target), name, QLatin1String(table.key)));
    return count ? std::make_optional(count->toLongLong()) : std::nullopt;
}

/// The rows of the source whose key stands in the target for something else: another rate, another address.
/// Compared as texts in one character set, whatever those of the databases are. 0 also when the tables cannot
/// be compared: the copy will tell why.
qint64 countDifferent(const Db &db, const PreviousTable &table, const QString &target, const QString &source)
{
    if (table.meaning == nullptr)
        return 0;
    QStringList differences;
    for (const QString &column : QString(QLatin1String(table.meaning)).split(QLatin1Char(',')))
        differences.append(
            QStringLiteral("NOT CONVERT(old.%1 USING utf8mb4)<=>CONVERT(new.%1 USING utf8mb4)").arg(column));
    QString error;
    auto count = db.attempt(
        QStringLiteral("SELECT COUNT(*) FROM %1.%3 AS old JOIN %2.%3 AS new USING(%4) "
                       "WHERE ")
                .arg(quoted(source), quoted(target), QLatin1String(table.name), QLatin1String(table.key)) +
            differences.join(QStringLiteral(" OR ")),
        &error);
    return count && count->next() ? count->value(0).toLongLong() : 0;
}

/// What the refusal of a whole table means; empty when the server's words have to do.
QString failureWords(int number)
{
    switch (number) {
    case 1054:
        return Texts::tr("Будова таблиці інша, її стовпці не збігаються.") + QLatin1Char(' ');
    case ServerError::NoSuchTable:
        return Texts::tr("Такої таблиці немає.") + QLatin1Char(' ');
    case 1142:
        return Texts::tr("Немає права читати чи доповнювати цю таблицю.") + QLatin1Char(' ');
    default:
        return QString();
    }
}

void fail(ImportedTable *imported, const JobContext &context, const QString &error, int number = 0)
{
    imported->outcome = ImportedTable::Failed;
    imported->words =
        context.isCancelled() ? Texts::tr("Зупинено, нічого не додано.") : failureWords(number) + error;
    if (!context.isCancelled())
        postMessage(context.receiver(), Texts::tr("Помилка імпорту таблиці") + QLatin1Char(' ') +
                                            QLatin1String(imported->table.name) + QLatin1Char('\n') + error);
}

/// What the server has done with the rows of the statement before.
bool countRows(const Db &db, ImportedTable *imported, const QString &target, const QString &source)
{
    const auto added = changedRows(db);
    if (!added)
        return false;
    imported->added = *added;
    const QString warnings = readWarnings(db);
    if (imported->different > 0)
        imported->words =
            Texts::tr("під тим самим кодом тут інше (%1), і воно дістанеться всьому, що на цей код "
                      "посилається")
                .arg(imported->different);
    if (!warnings.isEmpty())
        imported->words += (imported->words.isEmpty() ? QString() : QStringLiteral("; ")) + warnings;
    if (*added == imported->found)
        return true;
    const auto known = countKnown(db, imported->table, target, source);
    if (!known)
        return false;
    imported->known = qMax(qint64(0), *known - *added);
    imported->refused = qMax(qint64(0), imported->found - *known);
    return true;
}

/// isUnheard: the answer to COMMIT was lost.
void endUnwritten(ImportedTable *imported, const JobContext &context, bool isUnheard)
{
    imported->added = 0;
    imported->refused = 0;
    if (!isUnheard)
        return fail(imported, context, Texts::tr("Зміни не записано."));
    imported->outcome = ImportedTable::Unclear;
    imported->words = Texts::tr("Зв'язок обірвався під час запису, і невідомо, чи таблицю скопійовано. "
                                "Повторіть імпорт: двічі нічого не додається.");
}

/// The steps of one table.
ImportedTable importTable(JobContext &context, const PreviousTable &table, const QString &target,
                          const QString &source)
{
    const Db db = context.db();
    const QString name = QLatin1String(table.name);
    ImportedTable imported{table, ImportedTable::NotTried};
    imported.found = rowcount(db, quoted(source), name, QString());
    // What is added is not held against itself: the target may cut it off.
    imported.different = imported.found > 0 ? countDifferent(db, table, target, source) : 0;
    Transaction transaction(db);
    QString error = Texts::tr("Немає зв'язку із сервером бази даних.");
    if (!transaction || !db.attempt(copyStatement(table, target, source), &error)) {
        fail(&imported, context, error, db.lastErrorNumber());
        return imported;
    }
    const bool isCounted = countRows(db, &imported, target, source) &&
                           (imported.added == 0 || QUpdateBD().update(name, *db.connection(), db.receiver()));
    if (!isCounted || !transaction.commit()) {
        endUnwritten(&imported, context, isCounted && isConnectionLost(db.lastErrorNumber()));
        return imported;
    }
    imported.outcome = ImportedTable::Copied;
    afectrowMesResult(context.receiver(), imported.added, imported.found, name);
    return imported;
}

QStringList namesOf(const ImportedTables &tables, ImportedTable::Outcome outcome)
{
    QStringList names;
    for (const ImportedTable &each : tables) {
        if (each.outcome == outcome)
            names.append(QCoreApplication::translate("Page", each.table.caption));
    }
    return names;
}

/// What was done, in a sentence each.
QString summary(const QString &opening, const ImportedTables &tables)
{
    qint64 added = 0;
    qint64 refused = 0;
    for (const ImportedTable &each : tables) {
        added += each.added;
        refused += each.refused;
    }
    QStringList sentences{opening, Texts::tr("Додано записів: %1.").arg(added)};
    if (refused > 0)
        sentences.append(Texts::tr("Не прийнято записів: %1.").arg(refused));
    QStringList different;
    for (const ImportedTable &each : tables) {
        if (each.different > 0 && each.outcome == ImportedTable::Copied)
            different.append(QCoreApplication::translate("Page", each.table.caption));
    }
    if (!different.isEmpty())
        sentences.append(
            Texts::tr("Під тими самими кодами тут інше: %1.").arg(different.join(QStringLiteral(", "))));
    const QStringList failed = namesOf(tables, ImportedTable::Failed) +
                               namesOf(tables, ImportedTable::Unclear) +
                               namesOf(tables, ImportedTable::NotTried);
    if (!failed.isEmpty())
        sentences.append(Texts::tr("Не скопійовано: %1.").arg(failed.join(QStringLiteral(", "))));
    return sentences.join(QLatin1Char(' '));
}
} // namespace

std::optional<QStringList> otherDatabases(const Db &db)
{
    const auto names =
        db.firstColumn(QStringLiteral("SELECT SCHEMA_NAME FROM information_schema.schemata WHERE "
                                      "SCHEMA_NAME<>'information_schema' AND SCHEMA_NAME<>") +
                       lit(db.connection()->databaseName()));
    if (!names)
        return std::nullopt;
    static const QStringList serversOwn{QStringLiteral("mysql"), QStringLiteral("performance_schema"),
                                        QStringLiteral("sys"), QStringLiteral("information_schema")};
    QStringList others;
    std::copy_if(names->begin(), names->end(), std::back_inserter(others),
                 [](const QString &name) { return !serversOwn.contains(name, Qt::CaseInsensitive); });
    others.sort(Qt::CaseInsensitive);
    return others;
}

const QVector<PreviousTable> &previousTables()
{
    static const QVector<PreviousTable> tables = {
        {"group_shop", QT_TRANSLATE_NOOP("Page", "Групи магазинів"), "id", "id,name", "id,name", "name"},
        {"group_goods", QT_TRANSLATE_NOOP("Page", "Групи товарів"), "id", "id,name", "id,name", "name"},
        {"tax", QT_TRANSLATE_NOOP("Page", "Податкові групи"), "id", "id,name,pdv_proc,dod_name,dod_proc",
         "id,name,pdv_proc,dod_name,dod_proc", "pdv_proc,dod_proc"},
        {"procent", QT_TRANSLATE_NOOP("Page", "Знижки"), "id", "id,name,discount,sum,auto,block",
         "id,name,discount,sum,auto,block", "discount"},
        // Every shop becomes an ordinary one.
        {"shops", QT_TRANSLATE_NOOP("Page", "Магазини"), "id",
         "id,address,name,group_shop,day_update,one_str_title,two_str_title,three_str_title,four_str_title,"
         "one_str_bottom,two_str_bottom,network_shop,count_day_cycle,block",
         "id,address,name,group_shop,day_update,one_str_title,two_str_title,three_str_title,four_str_title,"
         "one_str_bottom,two_str_bottom,network_shop,1,block",
         "address"},
        {"kassa", QT_TRANSLATE_NOOP("Page", "Обладнання"), "id",
         "id,id_shop,advertising_str,cashdrive_code,block",
         "id,id_shop,advertising_str,cashdrive_code,block"},
        // The goods of today have no column strihcode: the server refuses this one.
        {"goods", QT_TRANSLATE_NOOP("Page", "Товари"), "id",
         "id,strihcode,name,name_short,price,type,group_g,tax,bonus_disk,block",
         "id,strihcode,name,name_short,price,type,group_g,tax,discount,block"},
        {"goods_shop", QT_TRANSLATE_NOOP("Page", "Товари магазинів"), "id_shop,id_goods", "id_shop,id_goods",
         "id_shop,id_goods"},
        {"clients", QT_TRANSLATE_NOOP("Page", "Клієнти"), "id",
         "id,id_procent,summ,bonus_discount,fiksed,group_shop,block",
         "id,id_procent,summ,bonus_discount,fiksed,group_shop,block"},
    };
    return tables;
}

QString copyStatement(const PreviousTable &table, const QString &target, const QString &source)
{
    return QStringLiteral("INSERT IGNORE INTO ") + quoted(target) + QLatin1Char('.') +
           QLatin1String(table.name) + QLatin1Char('(') + QLatin1String(table.target) +
           QStringLiteral(") (SELECT ") + QLatin1String(table.source) + QStringLiteral(" FROM ") +
           quoted(source) + QLatin1Char('.') + QLatin1String(table.name) + QLatin1Char(')');
}

JobResult ImportDBVer1toVer2(JobContext &context, const QString &target, const QString &source,
                             ImportedTables *imported)
{
    Db::letHooksHearThisThread();
    const Db db = context.db();
    const bool isReady = db.connection()->isOpen() && prepare(db);
    bool goesOn = isReady;
    for (const PreviousTable &table : previousTables()) {
        context.stage(QCoreApplication::translate("Page", table.caption));
        context.progress(imported->size(), previousTables().size());
        goesOn = goesOn && !context.isCancelled();
        imported->append(goesOn ? importTable(context, table, target, source)
                                : ImportedTable{table, ImportedTable::NotTried});
        goesOn = goesOn && (imported->last().outcome == ImportedTable::Copied ||
                            !isConnectionLost(db.lastErrorNumber()));
    }
    if (context.isCancelled())
        return {JobResult::Cancelled, summary(Texts::tr("Імпорт таблиць зупинено."), *imported), {}};
    if (!goesOn)
        return {JobResult::Failed, summary(Texts::tr("Імпорт таблиць перервано."), *imported), {}};
    return {JobResult::Done, summary(Texts::tr("Імпорт таблиць завершено."), *imported), {}};
}

qint64 rowcount(const Db &db, const QString &database, const QString &table, const QString &where)
{
    const QString source = database.isEmpty() ? table : database + QLatin1Char('.') + table;
    auto count = db.runExpecting(ServerError::NoSuchTable,
                                 QStringLiteral("SELECT COUNT(*) FROM ") + source +
                                     (where.isEmpty() ? where : QLatin1Char(' ') + where),
                                 Texts::tr("Помилка отримання кількості записів у таблиц") +
                                     QLatin1Char(' ') + source);
    return count && count->next() ? count->value(0).toLongLong() : 0;
}

/// As text and at once: a prepared statement or another one in between would answer 0.
std::optional<qint64> changedRows(const Db &db)
{
    const auto rows = db.firstText(QStringLiteral("SELECT ROW_COUNT()"), {},
                                   Texts::tr("Помилка отримання кількості змінених / оновлених записів"));
    return rows ? std::make_optional(rows->toLongLong()) : std::nullopt;
}

void afectrowMesResult(QObject *receiver, qint64 changed, qint64 expected, const QString &table)
{
    postMessage(receiver,
                Texts::tr("В таблиці") + QLatin1Char(' ') + table + Texts::tr(" виконано:") +
                    QLatin1Char(' ') + QString::number(changed) + Texts::tr(" записів:") + QLatin1Char(' ') +
                    QString::number(expected),
                changed == 0 ? QMessEvent::Warning : QMessEvent::Information);
}
