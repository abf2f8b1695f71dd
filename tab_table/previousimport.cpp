#include "previousimport.h"

#include "dbtasks.h"
#include "importedlist.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qquestnameoldbd.h"

#include <QSqlDatabase>

PreviousImport::PreviousImport(QSqlDatabase *db, const QLoadedUser *user, QWidget *window, QObject *receiver,
                               QObject *parent)
    : QObject(parent), m_db(db), m_user(user), m_window(window), m_receiver(receiver)
{
}

PreviousImport::~PreviousImport()
{
    delete m_list;
}

void PreviousImport::refuse(const QString &why) const
{
    QQestion::question(m_window, tr("Попередження."), why, true);
}

QString PreviousImport::refusal() const
{
    if (!m_user->mayEdit(Permission::PreviousImport))
        return tr("У вас немає права імпортувати дані попередньої версії.");
    if (m_job != nullptr)
        return tr("Імпорт з попередньої версії ще триває.");
    return QString();
}

/// First step: which databases are there.
void PreviousImport::begin()
{
    const QString why = refusal();
    if (!why.isEmpty())
        return refuse(why);
    // The window has no connection before it was opened for the first time.
    if (m_tasks == nullptr)
        m_tasks = new DbTasks(m_db->connectionName(), m_receiver, this);
    if (m_tasks->isWaiting())
        return;
    m_tasks->read(&otherDatabases, [this](const std::optional<QStringList> &names) {
        if (names)
            choose(*names);
    });
}

/// Second step: the user chooses one, and is asked.
void PreviousImport::choose(const QStringList &names)
{
    if (names.isEmpty())
        return refuse(tr("На сервері немає іншої бази: імпортувати немає звідки."));
    QQuestNameOldBD dialog(names, m_window);
    if (dialog.exec() != QDialog::Accepted || !isWanted(dialog.name()))
        return;
    // The right may be gone by now.
    const QString why = refusal();
    if (why.isEmpty())
        import(dialog.name());
    else
        refuse(why);
}

bool PreviousImport::isWanted(const QString &source) const
{
    return QMessDlg::confirm(
        m_window, tr("Імпортувати з попередньої версії?"),
        tr("З бази «%1» до поточної бази «%2» на сервері %3 буде скопійовано групи, податки, знижки, "
           "магазини, обладнання, товари і картки клієнтів.\nЗаписи, які тут уже є, не зміняться; база «%1» "
           "лише читається.")
            .arg(source, m_db->databaseName(), m_db->hostName()),
        tr("&Імпортувати"));
}

/// Third step: a job copies the tables.
void PreviousImport::import(const QString &source)
{
    const auto tables = std::make_shared<ImportedTables>();
    const QString target = m_db->databaseName();
    m_job = new Job(
        tr("Імпорт з бази «%1»").arg(source), m_db->connectionName(),
        [=](JobContext &context) { return ImportDBVer1toVer2(context, target, source, tables.get()); },
        m_receiver);
    connect(m_job, &Job::finished, this, [this, tables, job = m_job.data()](const JobResult &result) {
        m_job = nullptr;
        job->deleteLater();
        tell(result, *tables);
    });
    m_job->start();
}

/// Last step: what came of it.
void PreviousImport::tell(const JobResult &result, const ImportedTables &tables)
{
    const QString title = result.outcome == JobResult::Done ? tr("Імпорт таблиць завершено")
                          : result.outcome == JobResult::Cancelled ? tr("Імпорт таблиць зупинено")
                                                                   : tr("Імпорт таблиць перервано");
    postMessage(m_receiver, title, QMessEvent::Information);
    delete m_list;
    m_list = new ImportedList(m_db, m_user, m_receiver, title, result.words, tables, m_window);
    m_list->show();
}
