#pragma once

#include "exchangerun.h"
#include "page.h"
#include "scanpace.h"

#include <QDateTime>
#include <QPointer>
#include <QWidget>

namespace Ui {
class QCashDrive;
}
class AutoStart;
class QLoadedUser;
class setting;

/// The exchange with the register server: what a run does, when it starts by itself, how far it is and what
/// it has left out.
class QCashDrive : public QWidget, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages and keeps the runs.
    QCashDrive(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent);
    ~QCashDrive() override;

    /// Asks before a run is stopped.
    bool mayClose() override;
    bool isLoading() const override;
    ListPane *list() const override;
    Commands commands() const override;
    /// The server of the runs; that of the platform at first.
    void setServer(const RegisterServerFactory &server) { m_server = server; }
    AutoStart *autoStart() const { return m_autoStart; }
    /// The clock of the daily start; tests bring their own.
    void setClock(const std::function<QDateTime()> &now);
    bool isRunning() const;

    /// How a file is chosen: from the title to the path, empty when cancelled. Tests replace it.
    std::function<QString(const QString &title)> chooseFile;

public slots:
    void start();
    void stop();
    void GroupChanged(const QString &name);
    void ShopChanged(const QString &name);
    /// Sums can be left out only where transactions are read.
    void enablereadtransaction(int state);

protected:
    /// A scanned code does not set the time of the daily start.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpPlaces();
    void refillPlaces();
    void followRights();
    void setUpAutoStart();
    void setUpRefused();
    void enable(bool isFree);
    /// Why no run can begin with what is chosen; empty when it can.
    QString refusal() const;
    ExchangeOrder order() const;
    void startByClock(const QDateTime &now);
    void follow();
    void showEnd(const JobResult &result);
    void armAutoStart();
    void showStarts();
    void remember() const;
    void showRefusedLines(const RefusedLines &lines);
    void saveRefusedLines();

    std::unique_ptr<Ui::QCashDrive> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    RegisterServerFactory m_server = platformRegisterServer;
    AutoStart *m_autoStart;
    /// Of the keys in the time of the daily start, and the time before them.
    ScanPace m_pace;
    QTime m_timeBefore;
    QStringList m_groups;
    QPointer<Job> m_job;
};
