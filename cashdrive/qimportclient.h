#pragma once

#include "job.h"
#include "page.h"
#include "qdbf.h"
#include "refusedlist.h"
#include "typingpause.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

class DbTasks;
class QLoadedUser;
struct ImportPlan;

namespace Ui {
class QImportClient;
}

/// Loads loyalty cards from a DBF file of another system: the file is shown, checked, tried out and written,
/// by one job after the other. Afterwards the sums of the cards may be set from their levels.
class QImportClient : public QWidget, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QImportClient(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QImportClient() override;

    /// Those of the refused records.
    ListPane *list() const override;
    Commands commands() const override;
    bool isLoading() const override { return m_job != nullptr; }
    /// While something is written it stays.
    bool mayClose() override;

    /// Who tells which file to read, or to write from a suggested name; empty when none is wanted. The file
    /// dialogs at first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChoosers(const FileChooser &toRead, const FileChooser &toWrite);

public slots:
    /// Asks for a file and reads it.
    void OpenFile();
    void start();
    void stop();
    /// Asks, and sets the sums of the clients.
    void setsumm();

private:
    enum class Work { None, Reading, Checking, Importing, Summing };
    using Then = std::function<void(const JobResult &)>;

    void buildLists();
    void connectInputs();
    void readTyped();
    void readFile(const QString &path);
    void leaveFile();
    void showFile(const QString &path, const DbfReading &reading);
    QString fileText() const;
    void readGroup();
    QString startRefusal() const;
    QString rightRefusal(bool isTrial) const;
    QString sumsRefusal() const;
    void check(bool isTrial);
    void decide(const std::shared_ptr<ImportPlan> &plan, bool isTrial);
    QString question(const ImportPlan &plan) const;
    void import(const std::shared_ptr<ImportPlan> &plan, bool isTrial);
    void showRefused(const RefusedLines &refused);
    void saveRefused();

    bool refuse(const QString &why);
    /// Runs the work as a job; then gets its end in the window's thread.
    void begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
               const Then &then);
    void endWork(qint64 elapsedMs);
    void leaveReading();
    void followWork();
    void tell(const JobResult &result);

    std::unique_ptr<Ui::QImportClient> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    QDbf m_dbf;
    /// Of the file that is shown or on its way.
    QString m_path;
    DbTasks *m_tasks;
    TypingPause m_groupPause;
    QPointer<Job> m_job;
    Work m_work = Work::None;
    FileChooser m_fileToRead;
    FileChooser m_fileToWrite;
};
