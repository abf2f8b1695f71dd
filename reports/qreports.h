#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <array>

class QLoadedUser;
class QSqlDatabase;
class QTabWidget;
class ReportWindow;
class setting;
struct ChekOrigin;

/// Opens, finds, closes and exports the report windows: at most one of each, a page of the main window's
/// tabs.
class QReports : public QObject
{
    Q_OBJECT

public:
    enum Report { Cheks, Zvits, Articles, OnLine, ReportCount };

    /// mainWindow receives the messages.
    QReports(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *mainWindow);

    /// False for a report that does not exist yet, and for one that the user may not see.
    bool canOpen(Report report) const;
    ReportWindow *window(Report report) const;
    /// The report in front, or null.
    ReportWindow *current() const;

    /// These tell whether the page is one of the reports.
    bool closetab(int index);
    bool changetab(int index);
    /// Why the report in front cannot be exported; empty when it can, and for other pages.
    QString exportRefusal() const;
    /// Exports the report in front where it can be exported.
    bool export_to_csv(const QString &code, const QString &path);

public slots:
    void ChekViewer();
    void ZReports();
    void ArtReports();
    void StatOnLine();
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
    /// What may no longer be seen goes.
    void followRights();
    /// The one way to a report, whoever asks: null (told in the status bar) for one that the menu hides.
    QWidget *open(Report report);
    uint shopOfRegister(const QString &kass) const;
    int reportAt(int index) const;

    QTabWidget *m_tabs;
    QSqlDatabase *m_db;
    setting *m_setting;
    QLoadedUser *m_user;
    std::array<QPointer<QWidget>, ReportCount> m_open;
};
