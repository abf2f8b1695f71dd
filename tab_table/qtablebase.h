#pragma once

#include "chekorigin.h"
#include "page.h"

#include <QObject>
#include <QString>

class PreviousImport;
class QLoadedUser;
class QSqlDatabase;
class QTab;
class setting;

/// Opens the table tabs, each kind once, and applies the record commands to the one in front.
class QTableBase : public QObject
{
    Q_OBJECT

public:
    /// The parent receives the messages of the host and its tabs: the main window.
    QTableBase(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *parent);

    /// The lines of the table tabs; their factories live as long as this.
    const PageTable &pages() const { return m_pages; }
    /// The open tab of an action, or null.
    QTab *tab(const QString &action) const;

    /// Creates what is missing of the schema. On any thread: the connection is the thread's own.
    static bool CreateTables(QSqlDatabase *db, QObject *receiver);

signals:
    void visible(bool vis, bool exp);
    void visible(bool vis);
    void statOnLine(uint id_shop, uint id_kass);
    /// The receipts behind a row of a list are to be shown.
    void cheksWanted(const ChekOrigin &origin);

public slots:
    void shops() { open("mt_shops"); }
    void kass() { kass(0); }
    /// The registers of one shop; 0 shows all.
    void kass(uint i);
    void devices() { open("mt_devices"); }
    void Group_Shops() { open("mt_group_shops"); }
    void Goods() { open("mt_goods"); }
    void GroupGoods() { open("mt_group_goods"); }
    void GoodsShops() { open("mt_goods_shops"); }
    void Clients() { open("mt_clients"); }
    void Discount() { open("mt_diskount"); }
    void Action() { open("mt_action"); }
    void Trancaction() { open("mt_cheks"); }
    void TypeTransaction() { open("mt_type_cheks"); }
    void Zzvit() { open("mt_z_zvits"); }
    void SlujbOp() { open("mt_slujb_op"); }
    void Day_Update() { open("mt_day_update"); }
    void Tax() { open("mt_tax"); }
    /// The same on this host's connection.
    bool CreateTables();
    void statShop(uint id_shop) { emit statOnLine(id_shop, 0); }
    void statKass(uint id_kass) { emit statOnLine(0, id_kass); }
    /// Has the user choose another database of the server, and copies the data of the previous version from
    /// it.
    void importBD();
    /// Closes the tab when it is one of the host's and may be closed; false for others.
    bool closetab(int index);
    /// These act on the tab in front; false when it is none of the host's.
    bool EditRecord() { return run(Command::Edit); }
    /// Records are deleted among the promotions only: false in every other tab.
    bool DelRecord();
    bool AddRecord() { return run(Command::Add); }
    /// Tells by visible() what the tab at the index offers; false when it is none of the host's.
    bool ChangeTab(int index);
    /// The list in front as a CSV file. A failure is reported.
    bool export_to_csv(const QString &code, const QString &path_file_name);
    /// Imports a CSV file into the table in front; false when that imports none.
    bool import_csv(const QString &code, const QString &path_file_name, QChar separator = QLatin1Char(';'));

private:
    PageTable lines();
    template<typename Tab>
    std::function<QWidget *()> make();
    template<typename Tab>
    std::function<QWidget *()> makeJournal();
    QWidget *makeShops();
    QWidget *open(const char *action);
    Page *current() const;
    bool run(Command command);

    QTabWidget *m_tabs;
    QSqlDatabase *m_db;
    setting *m_setting;
    QLoadedUser *m_user;
    PageTable m_pages;
    PreviousImport *m_previous;
};
