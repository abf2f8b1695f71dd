#include "recorddialog.h"

#include "changesdialog.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"
#include "typedinput.h"

#include <QComboBox>
#include <QLineEdit>

namespace {
/// So long somebody who saves waits for a server that has gone silent.
const int patienceMs = 3000;

} // namespace

RecordDialog::RecordDialog(const Db &db, const RecordStatements &statements, QString *id, QWidget *parent)
    : EditDialog(parent), m_db(db), m_statements(statements), m_id(id != nullptr ? id : &m_newId)
{
}

bool RecordDialog::load(const QVector<RecordInput> &inputs)
{
    m_inputs = inputs;
    setRecordTitle(*m_id);
    limitLengths();
    m_isLoaded = true;
    if (isNew())
        return true;
    const auto record = read(*m_id);
    m_isLoaded = record && !record->isEmpty();
    if (record && !m_isLoaded)
        postMessage(m_db.receiver(), tr("Запис не знайдено id=") + *m_id);
    if (!m_isLoaded)
        return false;
    m_read = *record;
    for (const RecordField &field : m_read)
        showField(field.key, field);
    return true;
}

void RecordDialog::limitLengths()
{
    // Other databases of the server may hold a table of that name too.
    auto lengths = m_db.run(
        QStringLiteral("select COLUMN_NAME,CHARACTER_MAXIMUM_LENGTH from INFORMATION_SCHEMA.COLUMNS WHERE "
                       "TABLE_NAME = %1 AND TABLE_SCHEMA=DATABASE()")
            .arg(lit(m_statements.table)),
        {},
        tr("Помилка при запиті отримання максимального розміру поля") + QLatin1Char(' ') + tr("в таблиці") +
            QLatin1Char(' ') + m_statements.table);
    while (lengths && lengths->next()) {
        const int length = lengths->value(1).toInt();
        for (const RecordInput &input : m_inputs) {
            if (isPlainText(input.form) && length > 0 &&
                toText(lengths->value(0)) == QLatin1String(input.column))
                qobject_cast<QLineEdit *>(input.input)->setMaxLength(length);
        }
    }
}

std::optional<RecordFields> RecordDialog::read(const QString &id) const
{
    auto row = m_db.run(m_statements.read + id);
    if (!row)
        return std::nullopt;
    RecordFields fields;
    if (!row->next())
        return fields;
    for (const RecordInput &input : m_inputs) {
        const QString column = QLatin1String(input.column);
        const QVariant value = row->value(m_statements.table + QLatin1Char('.') + column);
        const QString stored = value.isNull() ? QString() : toText(value);
        const QString shown = input.name != nullptr ? toText(row->value(QLatin1String(input.name)))
                                                    : shownText(input.form, stored);
        fields.append({column, fieldName(input.input), stored, shown, QVariant()});
    }
    return fields;
}

RecordFields RecordDialog::entered() const
{
    RecordFields fields;
    for (const RecordInput &input : m_inputs)
        fields.append({QLatin1String(input.column), fieldName(input.input), storedFrom(input),
                       shownFrom(input), QVariant()});
    return fields;
}

Db::Values RecordDialog::boundValues(bool isUpdate) const
{
    Db::Values values;
    for (const RecordInput &input : m_inputs) {
        const bool isRenamed = isUpdate && input.updatePlaceholder != nullptr;
        values.append(
            {QLatin1String(isRenamed ? input.updatePlaceholder : input.placeholder), boundFrom(input)});
    }
    return values;
}

bool RecordDialog::insertRecord(QString *id)
{
    Db::Values values = boundValues(false);
    if (m_statements.insert.contains(QLatin1String("(:id,")))
        values.append({QStringLiteral(":id"), nullIfEmpty(*id)});
    if (!m_db.run(m_statements.insert, values))
        return false;
    // After an id that was given, the server still tells the one that it made up before.
    if (!id->isEmpty())
        return true;
    const auto made = m_db.lastInsertId();
    if (made)
        *id = QString::number(*made);
    return made.has_value();
}

bool RecordDialog::updateRecord(const QString &id)
{
    return m_db.run(m_statements.update + id, boundValues(true)).has_value();
}

void RecordDialog::showField(const QString &key, const std::optional<RecordField> &value)
{
    for (const RecordInput &input : m_inputs) {
        if (value && key == QLatin1String(input.column))
            showInInput(input, *value);
    }
}

bool RecordDialog::isUnique()
{
    const auto values = uniqueValues();
    for (const UniqueValue &value : values) {
        if (!isFree(value))
            return false;
    }
    return true;
}

/// Tells which field it is and whose record has its value.
bool RecordDialog::isFree(const UniqueValue &value)
{
    for (const auto &bound : value.values) {
        if (bound.second.isNull())
            return true;
    }
    const QString others = isNew() ? QString() : QStringLiteral(" AND id<>") + *m_id;
    const auto owner = m_db.firstText(value.sql + others, value.values);
    if (!owner || owner->isEmpty())
        return owner.has_value();
    const QString name = m_db.firstText(m_statements.name + *owner).value_or(QString());
    value.field->setFocus();
    warn(value.refusal + QLatin1Char('\n') +
         tr("Поле \"%1\": таке значення має запис №%2 \"%3\".").arg(fieldName(value.field), *owner, name));
    return false;
}

bool RecordDialog::save()
{
    while (isUnique()) {
        const Saved saved = attempt();
        if (saved.outcome == Saved::Written)
            takeOver();
        if (saved.outcome != Saved::Changed)
            return isSaved(saved);
        if (!settleChanges())
            return false;
        if (const QString why = refusal(); !why.isEmpty()) {
            warn(why);
            return false;
        }
    }
    return false;
}

Saved RecordDialog::attempt()
{
    m_sent = entered();
    m_sentId = *m_id;
    Saved saved = attemptInTransaction();
    if (saved.outcome != Saved::Failed && saved.outcome != Saved::Refused)
        return saved;
    // Another program was quicker with the same value: whoever has it is named now.
    if (saved.outcome == Saved::Failed && m_db.lastErrorNumber() == ServerError::DuplicateKey && !isUnique())
        return saved;
    const QString words = failureWords();
    return words.isEmpty() ? saved : Saved{Saved::Refused, words};
}

Saved RecordDialog::attemptInTransaction()
{
    Transaction t(m_db);
    if (!t)
        return {};
    if (!isNew()) {
        const auto now = lock(*m_id) ? read(*m_id) : std::nullopt;
        if (!now)
            return {};
        if (now->isEmpty())
            return {Saved::Refused,
                    tr("Поки редактор був відкритий, цей запис вилучила інша програма. Нічого "
                       "не збережено.")};
        m_theirs = *now;
        if (firstDifference(m_read, m_theirs))
            return {Saved::Changed, QString()};
    }
    if (!(isNew() ? insertRecord(&m_sentId) : updateRecord(*m_id)))
        return {};
    const auto stored = read(m_sentId);
    if (!stored)
        return {};
    if (const auto other = firstDifference(m_sent, *stored))
        return {Saved::Refused, storedOtherwise(*other)};
    if (!QUpdateBD().update(changedTables(), *m_db.connection(), m_db.receiver()))
        return {};
    return {t.commit() ? Saved::Written : Saved::Unclear, QString()};
}

/// A list is bound by the names of its entries, and others may rename them.
QString RecordDialog::storedOtherwise(const RecordField &stored) const
{
    for (const RecordInput &input : m_inputs) {
        if (stored.key == QLatin1String(input.column) && qobject_cast<QComboBox *>(input.input) == nullptr)
            return tr("Поле \"%1\": база даних зберігає \"%2\" замість введеного. Нічого не збережено. Введіть "
                      "інше значення.")
                .arg(stored.caption, stored.shown);
    }
    return tr("Поки редактор був відкритий, вибране в полі \"%1\" перейменувала інша програма. Нічого не "
              "збережено. Закрийте редактор, відкрийте його знову і виберіть ще раз.")
        .arg(stored.caption);
}

QStringList RecordDialog::lockStatements(const QString &id) const
{
    return {QStringLiteral("SELECT id FROM %1 WHERE id=%2 FOR UPDATE").arg(m_statements.table, id)};
}

bool RecordDialog::lock(const QString &id) const
{
    const auto statements = lockStatements(id);
    for (const QString &sql : statements) {
        if (!m_db.run(sql))
            return false;
    }
    return true;
}

/// Has the user decide about what others have changed, and puts what is taken of theirs into the inputs.
/// False when the editor is to stay as it is.
bool RecordDialog::settleChanges()
{
    const auto changes = changesByOthers(m_read, m_sent, m_theirs);
    const auto answer = changes.isEmpty() ? ChangesDialog::KeepMine : ChangesDialog::ask(this, changes);
    if (answer == ChangesDialog::BackToEditor)
        return false;
    for (const RecordChange &change : changes) {
        if (!change.isConflict || answer == ChangesDialog::TakeTheirs)
            showField(change.any().key, change.theirs);
    }
    m_read = m_theirs;
    return true;
}

std::optional<bool> RecordDialog::hasArrived()
{
    waitForServer(m_db, patienceMs);
    if (!lock(m_sentId))
        return std::nullopt;
    const auto stored = read(m_sentId);
    return stored ? std::optional<bool>(!stored->isEmpty() && !firstDifference(m_sent, *stored))
                  : std::nullopt;
}

void RecordDialog::takeOver()
{
    *m_id = m_sentId;
    m_read = m_sent;
    m_wasWritten = true;
}
