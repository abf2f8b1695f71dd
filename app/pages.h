#pragma once

#include "page.h"

#include <QObject>

class QReports;
class QSqlDatabase;
class QTableBase;
class setting;
struct UserRights;

/// All pages of the program. Opening, rights, commands, closing and pictures follow from their one table.
class Pages : public QObject
{
    Q_OBJECT

public:
    /// window receives the messages.
    Pages(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *window);
    /// Removes what is still open without asking.
    ~Pages() override;

    QTableBase *tables() const { return m_tables; }
    QReports *reports() const { return m_reports; }
    /// One line a page, in the order of the menus.
    const PageTable &table() const { return m_table; }

    /// As the menu does; null, told to the user, for a page that he may not see.
    QWidget *open(const QString &action);
    /// Opens the page and shows there what is wanted.
    void go(const Destination &destination);
    bool isOpen(const QString &action) const;
    /// Closes a page that the user may not see any more; true when there was one.
    bool closeForbidden(const QString &action);
    /// The page in front, or null.
    Page *current() const;
    /// Closes every page that does not hold on to what would be lost; true when none is left.
    bool closeAll();

signals:
    /// What a member of that permission group sees is to be shown.
    void memberWanted(const QString &group, const UserRights &rights);
    /// Another page has led to one that was not open before.
    void openedOnTheWay(const QString &action);

private:
    PageTable management();
    PageTable others();
    PageTable overview();
    QWidget *makeOverview();
    /// A step to the first sale: the page, with a new record when that is meant.
    void makeStep(const QString &action, bool isAdding);
    void closeForbiddenOverview();
    QWidget *makeSale();
    QWidget *makePermissionGroups();
    QWidget *makeInvoices();
    QWidget *makeIntegrity();
    QWidget *makeFinance();

    QTabWidget *m_tabs;
    QSqlDatabase *m_db;
    setting *m_setting;
    QLoadedUser *m_user;
    QObject *m_window;
    QTableBase *m_tables;
    QReports *m_reports;
    PageTable m_table;
};
