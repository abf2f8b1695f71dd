#pragma once

#include "connection.h"
#include "job.h"
#include "page.h"
#include "qloadeduser.h"
#include "qlogger.h"

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QSqlDatabase>
#include <QStringList>
#include <functional>
#include <memory>

namespace Ui {
class Veltab;
}
class JobList;
class QMenu;
class QMessEvent;
class QProcEvent;
class Pages;
class QTableBase;
class setting;
enum class Tuning;

/// The program's one main window: menus by the user's rights, an area of tabs, the log and the messages.
class Veltab : public QMainWindow
{
    Q_OBJECT

public:
    /// directory: where Velta.ini and veltab.log lie.
    explicit Veltab(const QString &directory, QWidget *parent = nullptr);
    ~Veltab() override;

    /// Whoever is remembered in the settings is logged in without the dialog; for pictures and tests.
    void setLoginUnattended(bool unattended) { m_isUnattended = unattended; }
    /// True when connected and logged in.
    bool isReady() const { return m_isConnected && m_user.isLoaded(); }
    QTableBase *tableBase() const;
    /// The actions that open a tab and that the user's rights show, in the order of the menus.
    QList<QAction *> openingActions() const;
    /// Who tells the file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_chooseFile = chooser; }

public slots:
    void s_setting();
    void changpass();
    void CreateTables();
    /// Offers to add the indexes for quick reports to the database, or to take them away again.
    void TuneDatabase();
    void SaleAdmission();
    void add();
    void edit();
    void dell();
    /// Asks for a file and writes the list in front into it: in UTF-8, or in Windows-1251.
    void export_to_csv();
    void export_to_csvCP1251();
    void about();
    /// Connects (again) to the database of the settings, in the background. Refused in words while tabs are
    /// open or the indexes are worked on.
    void connectDatabase();
    void login();
    /// Reads the rights of the user again; menus and tabs follow.
    void readRights();
    void closetab(int index);
    /// Closes every tab that does not hold on to what would be lost; true when none is left.
    bool closeAllTabs();
    void changetab(int index);
    void LogErrorDwl(const QString &text);
    /// edit: the record commands; exportOnly: the export commands without them.
    void visible(bool vis, bool exp);
    void visible(bool vis);
    /// Shows the actions by the user's rights, and with enable tells a user who may see none.
    void EnableButton(bool enable);

signals:
    /// Somebody is logged in.
    void ready();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildForm();
    /// The actions that stand for a command of the page in front.
    QList<QAction *> actionsOf(Command command) const;
    void offerCommands(const Page *page);
    void buildStatusBar();
    QAction *actionOf(const char *name) const;
    void connectEntries();
    void connectRecordCommands();
    void connectSession();
    void announceUpdate();
    void run(Command command);
    void applySettings();
    bool hasNewAddress() const;
    bool isBusy();
    bool isStarting() const;
    static bool isDatabaseAtWork();
    static QString workTitles();
    void startOn(const QString &title, const Job::Work &work);
    void tune(Tuning tuning);
    void finishConnecting(const QProcEvent &outcome);
    void finishSchema(bool isCreated);
    void logout();
    void welcome();
    void handleMessage(const QMessEvent &message);
    void handleOutcome(const QProcEvent &outcome);
    void showErrors();
    void offerSchema(bool databaseIsMissing);
    void showConnectionState(const QString &text);
    void followConnection();
    void showServer();
    QString serverDetails() const;
    void showRights();
    void updateMenus();
    bool mayLeave();
    bool mayLeaveJobs();
    static void cancelJobs();
    bool mayRememberLogin() const;
    bool isFirstUserUntouched();
    bool askForUser();
    QString nextStep();
    void refreshNextStep();
    bool findUser(const QString &name, const QString &identifier, bool isCard);
    void askServiceMenu();
    void rememberGeometry();
    void restorePlace(const QString &idUser);
    void fitOntoScreen();
    void refuse(const QString &text);
    Page *exportedPage() const;
    void askAndExport(const QString &code);
    QString chooseFile(const QString &suggested);

    std::unique_ptr<Ui::Veltab> ui;
    QString m_directory;
    QLogger m_logger;
    setting *m_setting = nullptr;
    QSqlDatabase m_db;
    /// Where m_db is connected, or was tried to: whatever the settings say by now.
    DatabaseAddress m_address;
    QLoadedUser m_user;
    Pages *m_pages = nullptr;
    /// Connects, or creates the tables.
    QPointer<Job> m_start;
    JobList *m_jobs = nullptr;
    QLabel *m_userLabel = nullptr;
    QLabel *m_serverLabel = nullptr;
    QStringList m_errors;
    bool m_isShowingErrors = false;
    bool m_isConnected = false;
    bool m_isLost = false;
    bool m_isReconnectWanted = false;
    bool m_isUnattended = false;
    bool m_isServiceShown = false;
    FileChooser m_chooseFile = [this](const QString &suggested) { return chooseFile(suggested); };
    bool m_showsUpdateNotice = false;
};
