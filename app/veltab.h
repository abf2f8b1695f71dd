#pragma once

#include "keyteller.h"
#include "page.h"
#include "qlogger.h"
#include "session.h"

#include <QLabel>
#include <QMainWindow>
#include <functional>
#include <memory>

namespace Ui {
class Veltab;
}
class ErrorList;
class JobList;
class MessageList;
class Pages;
class QMessEvent;
class QTableBase;
class setting;
class ToolBar;

/// The program's one main window: menus by the user's rights, an area of tabs, the log and the messages.
class Veltab : public QMainWindow, public KeyTeller
{
    Q_OBJECT

public:
    /// directory: where Velta.ini and veltab.log lie.
    explicit Veltab(const QString &directory, QWidget *parent = nullptr);
    ~Veltab() override;

    /// Whoever is remembered in the settings is logged in without the dialog; for pictures and tests.
    void setLoginUnattended(bool unattended) { m_session->setLoginUnattended(unattended); }
    /// True when connected and logged in.
    bool isReady() const { return m_session->isConnected() && user().isLoaded(); }
    /// The action of the page that is opened for whoever has logged in; none at first.
    void setStartPage(const QString &action) { m_startPage = action; }
    QTableBase *tableBase() const;
    /// The actions that open a tab and that the user's rights show, in the order of the menus.
    QList<QAction *> openingActions() const;
    QVector<ToldKey> toldKeys() const override;
    /// Who tells the file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_chooseFile = chooser; }
    /// Who tells the file to import; the file dialog at first.
    void setImportChooser(const std::function<QString()> &chooser) { m_chooseImport = chooser; }

    /// Of the tool bar and the bar of menus: it has the tool bar's own action.
    QMenu *createPopupMenu() override;

public slots:
    void s_setting();
    void changpass();
    void CreateTables() { m_session->createTables(); }
    void SaleAdmission();
    void add();
    void edit();
    void dell();
    /// Asks for a file and writes the list in front into it: in UTF-8, or in Windows-1251.
    void export_to_csv();
    void export_to_csvCP1251();
    /// The same with typed cells.
    void exportXlsx();
    /// Asks for a file and imports it into the table in front: in UTF-8, or in Windows-1251.
    void import_csv(QChar separator = QLatin1Char(';'));
    void import_csv_cp1251();
    void about();
    /// Asks where to go, and goes there.
    void goTo();
    /// The keys that work now.
    void showKeys();
    /// Lets another user in. Refused in words while tabs are open.
    void login() { m_session->login(); }
    /// Reads the rights of the user again; menus and tabs follow.
    void readRights() { m_session->readRights(); }
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
    void buildStatusBar();
    void buildToolBar();
    void showToolBar(bool isWanted);
    void connectPages();
    void connectCommands();
    void connectSession();
    void announceUpdate();

    const QLoadedUser &user() const { return *m_session->user(); }
    QAction *actionOf(const char *name) const;
    /// The actions that stand for a command of the page in front.
    QList<QAction *> actionsOf(Command command) const;
    void offerCommands(const Page *page);
    void open(const QString &action);
    void checkOpened(const QString &action);
    void run(Command command);
    Page *exportedPage() const;
    void exportCsv(const QString &code);
    void askAndExport(const QString &ending,
                      const std::function<void(const Page &page, const QString &path)> &write);
    QString chooseFile(const QString &suggested);
    bool mayImport() const;
    void askAndImport(const QString &code, QChar separator);
    QString chooseImport();

    void handleMessage(const QMessEvent &message);
    void welcome();
    void openStartPage();
    void showRights();
    void showMember(const QString &group, const UserRights &rights);
    void showSession();
    void showServer();
    void showMenus();
    void askServiceMenu();
    bool mayLeave();
    bool mayLeaveJobs();
    static void cancelJobs();
    void refuse(const QString &text);

    std::unique_ptr<Ui::Veltab> ui;
    QString m_directory;
    QLogger m_logger;
    setting *m_setting = nullptr;
    ErrorList *m_errors = nullptr;
    Session *m_session = nullptr;
    Pages *m_pages = nullptr;
    JobList *m_jobs = nullptr;
    ToolBar *m_toolBar = nullptr;
    MessageList *m_messages = nullptr;
    QLabel *m_userLabel = nullptr;
    QLabel *m_serverLabel = nullptr;
    bool m_isServiceShown = false;
    FileChooser m_chooseFile = [this](const QString &suggested) { return chooseFile(suggested); };
    std::function<QString()> m_chooseImport = [this] { return chooseImport(); };
    /// Where the last one lay.
    QString m_importFolder;
    QString m_startPage;
    bool m_showsUpdateNotice = false;
};
