#pragma once

#include "page.h"

#include <QObject>
#include <QString>

class DbTasks;
class QLoadedUser;
class QSqlDatabase;
class ReportWindow;
class setting;
struct ChekOrigin;

/// Opens, finds, closes and exports the report windows: at most one of each, a page of the main window's
/// tabs.
class QReports : public QObject
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QReports(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *mainWindow);

    /// The lines of the reports; their factories live as long as this.
    const PageTable &pages() const { return m_pages; }
    /// The open report of an action, or null.
    ReportWindow *window(const QString &action) const;
    /// The report in front, or null.
    ReportWindow *current() const;

    /// These tell whether the page is one of the reports.
    bool closetab(int index);
    bool changetab(int index);
    /// Exports the report in front where it can be exported.
    bool export_to_csv(const QString &code, const QString &path);

public slots:
    void ChekViewer() { open("mz_cheks"); }
    void ZReports() { open("mz_zzvit"); }
    void ArtReports() { open("mz_art_zvit"); }
    void StatOnLine() { StatOnLine(0); }
    /// For one shop; 0 leaves the choice to the user.
    void StatOnLine(unsigned int shop);
    /// The receipts behind a line of another report.
    void showCheks(const ChekOrigin &origin);
    /// A receipt of the register of that id as a slip: in the receipt viewer, or on its way to the printer
    /// without it.
    void showSlip(const QString &kass, int chek, bool print);

signals:
    void visible(bool vis, bool exp);

private:
    PageTable lines();
    template<typename Window>
    std::function<QWidget *()> make();
    QWidget *open(const char *action);
    /// What may no longer be seen goes.
    void followRights();

    QTabWidget *m_tabs;
    QSqlDatabase *m_db;
    setting *m_setting;
    QLoadedUser *m_user;
    PageTable m_pages;
    /// The slip on its way to the printer.
    DbTasks *m_slips;
};
