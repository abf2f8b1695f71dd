// How the page of the permission groups saves what stands in it.

#include "qpremisgroup.h"
#include "ui_qpremisgroup.h"

#include "accessedits.h"
#include "changesdialog.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "waitnote.h"

RecordDraft QPremisGroup::draft() const
{
    RecordDraft draft;
    draft.id = m_id;
    draft.read = m_read;
    draft.fields = fieldsOf(m_mine);
    draft.beside = m_user->idUser();
    draft.uniqueValues = {{"name",
                           QStringLiteral("SELECT id FROM group_premission WHERE name=:name"),
                           {{QStringLiteral(":name"), m_mine.name}},
                           tr("Група прав з такою назвою вже є.")}};
    return draft;
}

QString QPremisGroup::refusal() const
{
    return m_mine.name.isEmpty() ? tr("Назва не може бути пустою") : QString();
}

/// Whoever takes the rights to give rights from his own group cannot give them back to himself.
bool QPremisGroup::mayTakeOwnRights()
{
    const QStringList lost =
        m_id == m_user->idGroupPremission() ? lostForGood(accessOf(m_read), m_mine) : QStringList();
    return lost.isEmpty() ||
           QMessDlg::confirm(
               window(), tr("Забрати у себе?"),
               tr("Це ваша власна група. Ви забираєте у себе:\n%1\nПовернути це зможе лише хтось "
                  "інший.")
                   .arg(lost.join(QLatin1Char('\n'))),
               tr("Забрати"), tr("Не зберігати"));
}

void QPremisGroup::save()
{
    if (m_tasks.isWriting() || !mayEdit() || !(isNew() || isChanged()))
        return;
    if (m_isUnclear)
        return askWhetherArrived();
    const QString why = refusal();
    if (!why.isEmpty()) {
        warn(why);
        ui->leName->setFocus();
    } else if (mayTakeOwnRights()) {
        send();
    }
}

void QPremisGroup::send()
{
    // The answer comes before that of the save.
    m_user->beginAct();
    m_sent = draft();
    m_note->begin(tr("Записується…"));
    m_tasks.write([draft = m_sent](const Db &db) { return saveRecord(db, permissionGroup(), draft); },
                  [this](const RecordSaved &saved) {
                      m_note->end();
                      takeSaved(saved);
                  });
}

void QPremisGroup::takeSaved(const RecordSaved &saved)
{
    m_sentId = saved.id;
    showChanged();
    switch (saved.outcome) {
    case RecordSaved::Written:
        return takeWritten();
    case RecordSaved::Refused:
        return warn(saved.why);
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

/// What was changed here while it was written stays, not saved.
void QPremisGroup::takeWritten()
{
    m_id = m_sentId;
    m_read = m_sent.fields;
    m_isUnclear = false;
    showChanged();
    postMessage(m_receiver, tr("Групу прав \"%1\" збережено.").arg(m_mine.name), QMessEvent::Information);
    m_user->beginAct();
    m_listTasks.drop();
    m_listTasks.read([](const Db &db) { return readGroupsOverview(db); },
                     [this](const std::optional<GroupsOverview> &overview) {
                         if (!overview)
                             return;
                         m_overview = *overview;
                         showOverview(m_overview);
                         readMatrix();
                     });
}

void QPremisGroup::tellUnclear()
{
    m_isUnclear = true;
    warn(tr("Зв'язок обірвався під час запису, і невідомо, чи зміни збережено. Зачекайте, доки зв'язок "
            "відновиться, і збережіть ще раз: програма спершу запитає сервер."));
}

void QPremisGroup::askWhetherArrived()
{
    m_note->begin(tr("Записується…"));
    m_tasks.write([draft = m_sent,
                   id = m_sentId](const Db &db) { return hasArrived(db, permissionGroup(), draft, id); },
                  [this](const std::optional<bool> &arrived) {
                      m_note->end();
                      m_isUnclear = !arrived;
                      if (!arrived)
                          return tellUnclear();
                      if (*arrived)
                          takeWritten();
                      else
                          save();
                  });
}

/// As in every editor: only what both have changed has to be decided. False when all is to stay as it is.
bool QPremisGroup::settleChanges(const RecordFields &theirs)
{
    const auto changes = changesByOthers(m_sent.read, m_sent.fields, theirs);
    const auto answer = changes.isEmpty() ? ChangesDialog::KeepMine : ChangesDialog::ask(this, changes);
    if (answer == ChangesDialog::BackToEditor)
        return false;
    m_mine = mergedAccess(m_mine, changes, answer == ChangesDialog::TakeTheirs);
    m_read = theirs;
    showAccess();
    return true;
}
