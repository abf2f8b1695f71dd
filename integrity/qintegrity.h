#pragma once

#include "findings.h"
#include "job.h"
#include "page.h"

#include <QDateTime>
#include <QPointer>
#include <QWidget>
#include <memory>

class QLoadedUser;
class QModelIndex;
class QSqlDatabase;

namespace Ui {
class QIntegrity;
}

/// Tests the shared database and lists what is wrong in it, without changing anything: the checks with their
/// states, beside them the findings, each of which leads to its record.
class QIntegrity : public QWidget, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QIntegrity(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QIntegrity() override;

    /// That of the findings.
    ListPane *list() const override;
    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override { return m_job != nullptr; }
    /// What is not among the rows: those beyond the most that are listed, and checks that could not be read.
    QStringList totals() const;
    /// So many findings of a kind are listed in the next run.
    void setMostListed(int most) { m_mostListed = most; }

public slots:
    void start();
    void stop();

signals:
    /// A finding's record is to be shown.
    void wanted(const Destination &destination);

private:
    void buildChecks();
    void buildList();
    void connectInputs();
    void follow(Job *job);
    void end(const JobResult &result);
    void showProgress();
    void showStates();
    void showFindings();
    void showWords();
    void showButtons();
    QVector<int> listedFindings() const;
    QString emptyText() const;
    /// How many were found beyond those that are listed.
    QString unlistedText() const;
    QString timesText() const;
    /// Of all checks: -1.
    int chosenCheck() const;
    const integrity::Finding *finding(const QModelIndex &index) const;
    void open(const QModelIndex &index);

    std::unique_ptr<Ui::QIntegrity> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    QPointer<Job> m_job;
    /// Of the run that is shown; null before the first one.
    std::shared_ptr<integrity::FindingsSoFar> m_found;
    QVector<integrity::Finding> m_findings;
    QVector<integrity::CheckState> m_states;
    QDateTime m_begun;
    QDateTime m_ended;
    int m_mostListed = 1000;
};
