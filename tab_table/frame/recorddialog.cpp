#include "recorddialog.h"

#include "changesdialog.h"
#include "typedinput.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSqlDatabase>

RecordDialog::RecordDialog(const Db &db, const RecordStatements &table, QString *id, QWidget *parent)
    : EditDialog(parent)
    , m_table(table)
    , m_id(id != nullptr ? id : &m_newId)
    , m_tasks(db.connection()->connectionName(), db.receiver(), nullptr)
{
}

void RecordDialog::load(const QVector<RecordInput> &inputs, const QStringList &more)
{
    m_inputs = inputs;
    for (const RecordInput &input : inputs)
        m_table.columns.append(columnOf(input));
    setRecordTitle(*m_id);
    beginReading();
    m_tasks.read([table = m_table, id = *m_id, more](const Db &db) { return readForm(db, table, id, more); },
                 [this](const RecordForm &form) { showForm(form); });
}

void RecordDialog::showForm(const RecordForm &form)
{
    endReading();
    if (!form.isRead)
        return fail();
    limitLengths(form.lengths);
    fillLists(form.lists);
    if (!takeRows(form.more))
        return fail();
    m_read = form.record;
    for (const RecordField &field : qAsConst(m_read))
        showField(field.key, field);
    showBeginnings();
    loaded();
    takeKeys();
}

/// Of long texts; in the first field people type on behind what stands there.
void RecordDialog::showBeginnings()
{
    for (const RecordInput &input : qAsConst(m_inputs)) {
        auto *line = qobject_cast<QLineEdit *>(input.input);
        if (line != nullptr && line != m_inputs.first().input)
            line->setCursorPosition(0);
    }
}

bool RecordDialog::takeRows(const QVector<TextRows> &more)
{
    Q_UNUSED(more)
    return true;
}

void RecordDialog::fail()
{
    m_hasFailed = true;
    QDialog::reject(); // NOLINT(bugprone-parent-virtual-call)
}

void RecordDialog::done(int result)
{
    m_tasks.drop();
    EditDialog::done(result);
}

void RecordDialog::limitLengths(const QHash<QString, int> &lengths)
{
    for (const RecordInput &input : qAsConst(m_inputs)) {
        const int length = lengths.value(QLatin1String(input.column));
        if (isPlainText(input.form) && length > 0)
            qobject_cast<QLineEdit *>(input.input)->setMaxLength(length);
    }
}

void RecordDialog::fillLists(const QHash<QString, ListEntries> &lists)
{
    for (const RecordInput &input : qAsConst(m_inputs)) {
        if (!input.entries.isEmpty())
            showEntries(qobject_cast<QComboBox *>(input.input), lists.value(QLatin1String(input.column)));
    }
}

void RecordDialog::showField(const QString &key, const std::optional<RecordField> &value)
{
    for (const RecordInput &input : qAsConst(m_inputs)) {
        if (value && key == QLatin1String(input.column))
            showInInput(input, *value);
    }
}

RecordDraft RecordDialog::draft() const
{
    RecordDraft draft;
    draft.id = *m_id;
    draft.read = m_read;
    draft.uniqueValues = uniqueValues();
    for (const RecordInput &input : m_inputs)
        draft.fields.append({QLatin1String(input.column), fieldName(input.input), storedFrom(input),
                             shownFrom(input), QVariant()});
    return draft;
}

void RecordDialog::save()
{
    if (m_isUnclear)
        return askWhetherArrived();
    const QString why = firstRefusal();
    if (why.isEmpty())
        send();
    else
        warn(why);
}

void RecordDialog::send()
{
    m_sent = draft();
    beginWriting();
    m_tasks.write([table = m_table, draft = m_sent](const Db &db) { return saveRecord(db, table, draft); },
                  [this](const RecordSaved &saved) {
                      endWriting();
                      take(saved);
                  });
}

void RecordDialog::take(const RecordSaved &saved)
{
    m_sentId = saved.id;
    switch (saved.outcome) {
    case RecordSaved::Written:
        RecordDialog::takeOver(m_sent);
        return accept();
    case RecordSaved::Refused:
        return refuse(saved);
    case RecordSaved::Unclear:
        return tellUnclear();
    case RecordSaved::Changed:
        if (settleChanges(saved.theirs))
            save();
        return;
    case RecordSaved::Failed:
        return;
    }
}

void RecordDialog::refuse(const RecordSaved &saved)
{
    for (const RecordInput &input : qAsConst(m_inputs)) {
        if (saved.column == QLatin1String(input.column))
            input.input->setFocus();
    }
    warn(saved.why);
}

void RecordDialog::tellUnclear()
{
    m_isUnclear = true;
    warn(tr("Зв'язок обірвався під час запису, і невідомо, чи запис збережено. Зачекайте, доки "
            "зв'язок відновиться, і збережіть ще раз: програма спершу запитає сервер."));
}

/// What has arrived is taken over; then what is entered by now is saved.
void RecordDialog::askWhetherArrived()
{
    beginWriting();
    m_tasks.write([table = m_table, draft = m_sent,
                   id = m_sentId](const Db &db) { return hasArrived(db, table, draft, id); },
                  [this](const std::optional<bool> &arrived) {
                      endWriting();
                      m_isUnclear = !arrived;
                      if (!arrived)
                          return tellUnclear();
                      if (*arrived)
                          takeOver(m_sent);
                      save();
                  });
}

void RecordDialog::takeOver(const RecordDraft &written)
{
    *m_id = m_sentId;
    m_read = written.fields;
    m_wasWritten = true;
}

/// Has the user decide about what others have changed, and puts what is taken of theirs into the inputs.
/// False when the editor is to stay as it is.
bool RecordDialog::settleChanges(const RecordFields &theirs)
{
    const auto changes = changesByOthers(m_sent.read, m_sent.fields, theirs);
    const auto answer = changes.isEmpty() ? ChangesDialog::KeepMine : ChangesDialog::ask(this, changes);
    if (answer == ChangesDialog::BackToEditor)
        return false;
    for (const RecordChange &change : changes) {
        if (!change.isConflict || answer == ChangesDialog::TakeTheirs)
            showField(change.any().key, change.theirs);
    }
    m_read = theirs;
    return true;
}
