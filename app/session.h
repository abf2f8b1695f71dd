#pragma once

#include "connection.h"
#include "dbtasks.h"
#include "job.h"
#include "qloadeduser.h"

#include <QObject>
#include <QPointer>
#include <QSqlDatabase>
#include <functional>

class ErrorList;
struct Entrant;
class QLogger;
class QProcEvent;
class QTabWidget;
class QWidget;
class setting;
enum class TunedState;
enum class Tuning;

/// The connection of the main window and who works on it: connects to the database of the settings, creates
/// its tables, lets a user in. Open pages and running jobs hold the connection where it is: whoever wants
/// another one is told so.
class Session : public QObject
{
    Q_OBJECT

public:
    struct Window
    {
        /// Bears the dialogs and receives the messages.
        QWidget *widget;
        QTabWidget *pages;
        ErrorList *errors;
    };
    /// directory: where Velta.ini lies.
    Session(const QString &directory, setting *settings, QLogger *logger, const Window &window);
    /// The jobs and pages that use the connection are gone before.
    ~Session() override;

    QSqlDatabase *connection() { return &m_db; }
    QLoadedUser *user() { return &m_user; }
    /// "name surname"; empty when nobody is logged in.
    const QString &userName() const { return m_userName; }
    /// Where connection() leads to, or was tried to: whatever the settings say by now.
    const DatabaseAddress &address() const { return m_address; }
    bool isConnected() const { return m_isConnected; }
    /// The server does not answer just now.
    bool isLost() const { return m_isLost; }
    /// True while the start works on the database.
    bool isStarting() const;
    /// What the user is to know, or do next; empty when nothing.
    const QString &words() const { return m_words; }
    /// Connected where to and how, in words.
    QString details() const;

    /// Whoever is remembered in the settings is logged in without the dialog.
    void setLoginUnattended(bool unattended) { m_isUnattended = unattended; }
    void say(const QString &words);
    /// Somebody begins what takes a right: looks whether the rights of the user are still those that were
    /// read, and takes over what is different. What is asked of the server behind it is answered behind it.
    /// then: when the rights are up to date, unless nothing is allowed any more, which is told.
    void checkRights(const std::function<void()> &then = {});
    /// The next step follows what was added in the pages meanwhile.
    void refreshNextStep();

public slots:
    /// Connects (again) in the background, then lets a user in.
    void connectDatabase();
    void createTables();
    /// Offers to add the indexes for quick reports, or to take them away again.
    void tuneDatabase();
    void login();
    /// Looks whether the rights of the user are still the same; others are taken over when they are there.
    void readRights();
    /// Connects when the settings name another database by now.
    void applySettings();

signals:
    /// The connection, the user or the words are different.
    void changed();
    void loggedIn();
    void connectionIsBack();

protected:
    bool event(QEvent *event) override;

private:
    bool hasNewAddress() const;
    /// Beside those that only show what can be read again.
    bool hasPages() const;
    bool isHeld();
    void startOn(const QString &title, const Job::Work &work);
    void followConnection();
    void finish(const QProcEvent &outcome);
    void finishConnecting(const QProcEvent &outcome);
    void finishSchema(bool isCreated);
    void offerSchema(bool databaseIsMissing);
    void offerTuning(TunedState state);
    void tune(Tuning tuning);
    void logout();
    void welcome(const Entrant &entrant);
    bool follow(const RightsNews &news);
    void askNextStep();
    void refuse(const QString &text);

    QString m_directory;
    setting *m_setting;
    Window m_window;
    QSqlDatabase m_db;
    DatabaseAddress m_address;
    QLoadedUser m_user;
    QString m_userName;
    QString m_words;
    /// Of the user who is logged in: nothing of it answers when another one comes.
    DbTasks m_rightsTasks;
    DbTasks m_stepTasks;
    DbTasks m_tuneTasks;
    /// Connects, or creates the tables.
    QPointer<Job> m_start;
    bool m_isConnected = false;
    bool m_isLost = false;
    bool m_isReconnectWanted = false;
    bool m_isUnattended = false;
};

/// A job needs the database where it is.
bool isDatabaseAtWork();
/// The titles of the running jobs, for a sentence in «».
QString runningJobTitles();
