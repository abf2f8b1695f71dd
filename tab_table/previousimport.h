#pragma once

#include "previousdata.h"

#include <QObject>
#include <QPointer>

class DbTasks;
class ImportedList;
class QLoadedUser;
class QSqlDatabase;
class QWidget;

/// The import from the previous version as its user sees it: he chooses the database, is asked, and reads
/// what came of each table.
class PreviousImport : public QObject
{
    Q_OBJECT

public:
    /// window: bears the dialogs. receiver: hears the messages and owns the job.
    PreviousImport(QSqlDatabase *db, const QLoadedUser *user, QWidget *window, QObject *receiver,
                   QObject *parent);
    ~PreviousImport() override;

    void begin();

private:
    QString refusal() const;
    void choose(const QStringList &names);
    bool isWanted(const QString &source) const;
    void import(const QString &source);
    void tell(const JobResult &result, const ImportedTables &tables);
    void refuse(const QString &why) const;

    QSqlDatabase *m_db;
    const QLoadedUser *m_user;
    QWidget *m_window;
    QObject *m_receiver;
    DbTasks *m_tasks = nullptr;
    QPointer<Job> m_job;
    QPointer<ImportedList> m_list;
};
