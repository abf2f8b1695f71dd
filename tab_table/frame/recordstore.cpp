#include "recordstore.h"

#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QSqlRecord>
#include <algorithm>

namespace {
struct Record
{
    Q_DECLARE_TR_FUNCTIONS(Record)
};

/// So long somebody who saves waits for a server that has gone silent.
const int patienceMs = 3000;

std::optional<TextRows> readTexts(const Db &db, const QString &sql)
{
    auto query = db.run(sql);
    if (!query)
        return std::nullopt;
    TextRows rows;
    const int columns = query->record().count();
    while (query->next()) {
        QStringList cells;
        for (int i = 0; i < columns; ++i)
            cells.append(toText(query->value(i)));
        rows.append(cells);
    }
    return rows;
}

std::optional<QHash<QString, int>> readLengths(const Db &db, const QString &table)
{
    // Other databases of the server may hold a table of that name too.
    auto rows = db.run(
        QStringLiteral("select COLUMN_NAME,CHARACTER_MAXIMUM_LENGTH from INFORMATION_SCHEMA.COLUMNS WHERE "
                       "TABLE_NAME = %1 AND TABLE_SCHEMA=DATABASE()")
            .arg(lit(table)),
        {},
        Record::tr("Помилка при запиті отримання максимального розміру поля") + QLatin1Char(' ') +
            Record::tr("в таблиці") + QLatin1Char(' ') + table);
    if (!rows)
        return std::nullopt;
    QHash<QString, int> lengths;
    while (rows->next())
        lengths.insert(toText(rows->value(0)), rows->value(1).toInt());
    return lengths;
}

/// By column; a statement that several inputs share is sent once.
std::optional<QHash<QString, ListEntries>> readLists(const Db &db, const RecordStatements &table)
{
    QHash<QString, ListEntries> bySql;
    QHash<QString, ListEntries> lists;
    for (const RecordColumn &column : table.columns) {
        if (column.entries.isEmpty())
            continue;
        if (!bySql.contains(column.entries)) {
            const auto entries = readEntries(db, column.entries);
            if (!entries)
                return std::nullopt;
            bySql.insert(column.entries, *entries);
        }
        lists.insert(column.column, bySql.value(column.entries));
    }
    return lists;
}

RecordField readField(const QSqlQuery &row, const RecordStatements &table, const RecordColumn &column)
{
    const QVariant value = row.value(table.table + QLatin1Char('.') + column.column);
    const QString stored = value.isNull() ? QString() : toText(value);
    const QString shown =
        column.name.isEmpty() ? shownText(column.form, stored) : toText(row.value(column.name));
    return {column.column, column.caption, stored, shown, QVariant()};
}

Db::Values boundValues(const RecordStatements &table, const RecordDraft &draft)
{
    Db::Values values;
    for (const RecordColumn &column : table.columns) {
        for (const RecordField &field : draft.fields) {
            if (field.key == column.column)
                values.append({draft.isNew() ? column.placeholder : column.updatePlaceholder,
                               boundFrom(field, column.form)});
        }
    }
    return values;
}

/// id: of the record; a new one may have a wanted id, else it is what the server has made up.
bool writeRow(const Db &db, const RecordStatements &table, const RecordDraft &draft, QString *id)
{
    Db::Values values = boundValues(table, draft);
    if (!draft.isNew())
        return db.run(table.update + *id, values).has_value();
    if (table.insert.contains(QLatin1String("(:id,")))
        values.append({QStringLiteral(":id"), nullIfEmpty(*id)});
    if (!db.run(table.insert, values))
        return false;
    // After an id that was given, the server still tells the one that it made up before.
    if (!id->isEmpty())
        return true;
    const auto made = db.lastInsertId();
    if (made)
        *id = QString::number(*made);
    return made.has_value();
}

bool lock(const Db &db, const RecordStatements &table, const QString &id)
{
    if (table.rows != nullptr && !table.rows->firstLock.isEmpty() && !db.run(table.rows->firstLock))
        return false;
    QStringList statements = {QStringLiteral("SELECT id FROM %1 WHERE id=%2").arg(table.table, id)};
    for (const QString &sql : table.rows != nullptr ? table.rows->locks : QStringList())
        statements.append(sql + id);
    for (const QString &sql : qAsConst(statements)) {
        if (!db.run(sql + QStringLiteral(" FOR UPDATE")))
            return false;
    }
    return true;
}

bool stamp(const Db &db, const RecordStatements &table)
{
    const QStringList tables =
        QStringList(table.table) + (table.rows != nullptr ? table.rows->tables : QStringList());
    return QUpdateBD().updateShown(tables, *db.connection(), db.receiver());
}

/// Names the record that has the value; Written when none has.
RecordSaved findOwner(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                      const UniqueValue &value)
{
    for (const auto &bound : value.values) {
        if (bound.second.isNull())
            return {RecordSaved::Written};
    }
    const QString others = draft.isNew() ? QString() : QStringLiteral(" AND id<>") + draft.id;
    const auto owner = db.firstText(value.sql + others, value.values);
    if (!owner || owner->isEmpty())
        return {owner ? RecordSaved::Written : RecordSaved::Failed};
    const QString name = db.firstText(table.name + *owner).value_or(QString());
    QString caption;
    for (const RecordColumn &column : table.columns) {
        if (column.column == QLatin1String(value.column))
            caption = column.caption;
    }
    return {RecordSaved::Refused,
            value.refusal + QLatin1Char('\n') +
                Record::tr("Поле \"%1\": таке значення має запис №%2 \"%3\".").arg(caption, *owner, name),
            QLatin1String(value.column)};
}

RecordSaved checkUnique(const Db &db, const RecordStatements &table, const RecordDraft &draft)
{
    for (const UniqueValue &value : draft.uniqueValues) {
        RecordSaved found = findOwner(db, table, draft, value);
        if (found.outcome != RecordSaved::Written)
            return found;
    }
    return {RecordSaved::Written};
}

QString renamedWords(const QString &caption)
{
    return Record::tr(
               "Поки редактор був відкритий, вибране в полі \"%1\" перейменувала інша програма. Нічого не "
               "збережено. Закрийте редактор, відкрийте його знову і виберіть ще раз.")
        .arg(caption);
}

QString goneWords(const QString &caption)
{
    return Record::tr("Поки редактор був відкритий, вибране в полі \"%1\" вилучила інша програма. Нічого не "
                      "збережено. Виберіть інше.")
        .arg(caption);
}

/// A list is bound by the names of its entries, and others may rename them.
QString storedOtherwise(const RecordStatements &table, const RecordField &stored)
{
    for (const RecordColumn &column : table.columns) {
        if (stored.key == column.column && !column.isList())
            return Record::tr(
                       "Поле \"%1\": база даних зберігає \"%2\" замість введеного. Нічого не збережено. "
                       "Введіть інше значення.")
                .arg(stored.caption, stored.shown);
    }
    return renamedWords(stored.caption);
}

/// Locks the record and looks at it; Written when nobody has changed it.
RecordSaved compare(const Db &db, const RecordStatements &table, const RecordDraft &draft)
{
    const auto now = lock(db, table, draft.id) ? readRecord(db, table, draft.id) : std::nullopt;
    if (!now)
        return {};
    if (now->isEmpty())
        return {RecordSaved::Refused,
                Record::tr("Поки редактор був відкритий, цей запис вилучила інша програма. Нічого "
                           "не збережено.")};
    RecordSaved found = {firstDifference(draft.read, *now) ? RecordSaved::Changed : RecordSaved::Written};
    found.theirs = *now;
    return found;
}

/// step: how far the other rows have come.
RecordSaved saveInTransaction(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                              int *step)
{
    Transaction t(db);
    if (!t)
        return {};
    if (!draft.isNew()) {
        RecordSaved found = compare(db, table, draft);
        if (found.outcome != RecordSaved::Written)
            return found;
    }
    RecordSaved saved;
    saved.id = draft.isNew() ? draft.wantedId : draft.id;
    if (!writeRow(db, table, draft, &saved.id) ||
        (table.rows != nullptr && !table.rows->write(db, draft, saved.id, step)))
        return {};
    const auto stored = readRecord(db, table, saved.id);
    if (!stored)
        return {};
    if (const auto other = firstDifference(draft.fields, *stored))
        return {RecordSaved::Refused, storedOtherwise(table, *other)};
    if (!stamp(db, table))
        return {};
    saved.outcome = t.commit() ? RecordSaved::Written : RecordSaved::Unclear;
    return saved;
}

/// A chosen entry that others have renamed or removed; empty when there is none. An entry that was there
/// before may be one that is not offered.
QString lostChoice(const Db &db, const RecordStatements &table, const RecordDraft &draft)
{
    const auto lists = readLists(db, table);
    if (!lists)
        return QString();
    for (const RecordField &field : draft.fields) {
        if (!lists->contains(field.key) || field.stored.isEmpty())
            continue;
        QString now;
        for (const auto &[name, id] : lists->value(field.key))
            now = toText(id) == field.stored ? name : now;
        if (!now.isEmpty() && now != field.shown)
            return renamedWords(field.caption);
        const bool isAsRead =
            std::any_of(draft.read.begin(), draft.read.end(), [&field](const RecordField &read) {
                return read.key == field.key && read.stored == field.stored;
            });
        if (now.isEmpty() && !isAsRead)
            return goneWords(field.caption);
    }
    return QString();
}

/// Says better why a write did not succeed.
RecordSaved explain(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                    const RecordSaved &saved, int step)
{
    if (saved.outcome != RecordSaved::Failed && saved.outcome != RecordSaved::Refused)
        return saved;
    if (saved.outcome == RecordSaved::Failed && db.lastErrorNumber() == ServerError::DuplicateKey) {
        // Another program was quicker with the same value: whoever has it is named now.
        RecordSaved found = checkUnique(db, table, draft);
        if (found.outcome != RecordSaved::Written)
            return found;
    }
    const bool isChoiceLost =
        saved.outcome == RecordSaved::Failed &&
        (db.lastErrorNumber() == ServerError::NullValue || db.lastErrorNumber() == ServerError::MissingRow);
    const QString lost = isChoiceLost ? lostChoice(db, table, draft) : QString();
    if (!lost.isEmpty())
        return {RecordSaved::Refused, lost};
    const QString words = table.rows != nullptr ? table.rows->failureWords(db, draft, step) : QString();
    return words.isEmpty() ? saved : RecordSaved{RecordSaved::Refused, words};
}

/// What became of a COMMIT whose answer was lost.
RecordSaved lookUp(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                   const RecordSaved &saved)
{
    const auto arrived = hasArrived(db, table, draft, saved.id);
    if (!arrived)
        return saved;
    return *arrived ? RecordSaved{RecordSaved::Written, {}, {}, {}, saved.id} : RecordSaved();
}
} // namespace

RecordForm readForm(const Db &db, const RecordStatements &table, const QString &id, const QStringList &more)
{
    RecordForm form;
    const auto lengths = readLengths(db, table.table);
    const auto lists = lengths ? readLists(db, table) : std::nullopt;
    if (!lists)
        return form;
    form.lengths = *lengths;
    form.lists = *lists;
    for (const QString &sql : more) {
        const auto rows = readTexts(db, sql);
        if (!rows)
            return form;
        form.more.append(*rows);
    }
    const auto record = id.isEmpty() ? RecordFields() : readRecord(db, table, id);
    if (record && record->isEmpty() && !id.isEmpty())
        postMessage(db.receiver(), Record::tr("Запис не знайдено id=") + id);
    form.isRead = record && (id.isEmpty() || !record->isEmpty());
    form.record = record.value_or(RecordFields());
    return form;
}

std::optional<RecordFields> readRecord(const Db &db, const RecordStatements &table, const QString &id)
{
    auto row = db.run(table.read + id);
    if (!row)
        return std::nullopt;
    RecordFields fields;
    if (!row->next())
        return fields;
    for (const RecordColumn &column : table.columns)
        fields.append(readField(*row, table, column));
    if (table.rows == nullptr)
        return fields;
    const auto rows = table.rows->read(db, id);
    return rows ? std::optional(fields + *rows) : std::nullopt;
}

RecordSaved saveRecord(const Db &db, const RecordStatements &table, const RecordDraft &draft)
{
    const QString why = table.rows != nullptr ? table.rows->refusal(db, draft) : QString();
    if (!why.isEmpty())
        return {RecordSaved::Refused, why};
    RecordSaved saved = checkUnique(db, table, draft);
    if (saved.outcome != RecordSaved::Written)
        return saved;
    int step = -1;
    saved = saveInTransaction(db, table, draft, &step);
    saved = explain(db, table, draft, saved, step);
    return saved.outcome == RecordSaved::Unclear ? lookUp(db, table, draft, saved) : saved;
}

std::optional<bool> hasArrived(const Db &db, const RecordStatements &table, const RecordDraft &draft,
                               const QString &id)
{
    waitForServer(db, patienceMs);
    if (!lock(db, table, id))
        return std::nullopt;
    const auto stored = readRecord(db, table, id);
    return stored ? std::optional<bool>(!stored->isEmpty() && !firstDifference(draft.fields, *stored))
                  : std::nullopt;
}
