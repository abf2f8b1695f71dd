#pragma once

#include "qtab.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <array>

class Db;
class QLoadedUser;
class QSqlDatabase;
class QTabWidget;
class setting;

/// Opens the table tabs, each kind once, and applies the record commands to the one in front.
class QTableBase : public QObject
{
    Q_OBJECT

public:
    /// The kinds of table tab.
    enum Kind {
        KindShops,
        KindKass,
        KindGroupShops,
        KindGoods,
        KindGroupGoods,
        KindGoodsShops,
        KindClients,
        KindDiscount,
        KindAction,
        KindTrancaction,
        KindTypeTransaction,
        KindZzvit,
        KindSlujbOp,
        KindDayUpdate,
        KindTax,
        KindDevices,
        KindCount
    };

    /// The parent receives the messages of the host and its tabs: the main window.
    QTableBase(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *parent);

    /// False for a kind whose tab does not exist yet.
    static bool canOpen(Kind kind);
    /// The permission id of a kind.
    static int permissionOf(Kind kind);
    /// Why records cannot be added, changed and deleted in the tab in front; empty when they can, and for
    /// tabs that are none of the host's.
    QString recordRefusal() const;
    /// The open tab of a kind, or null.
    QTab *tab(Kind kind) const { return m_open[kind]; }

    /// Creates what is missing of the schema. On any thread: the connection is the thread's own.
    static bool CreateTables(QSqlDatabase *db, QObject *receiver);

    /// The number of rows of a table; 0 after a reported failure. The database may be empty.
    unsigned int rowcount(const QString &database, const QString &table, const QString &where);
    /// Reports how many rows the statement right before this call has changed, of how many expected.
    /// quiet: a statement that has changed nothing is no news.
    void afectrowMesResult(unsigned int expected, const QString &table, bool quiet);

signals:
    void visible(bool vis, bool exp);
    void visible(bool vis);
    void statOnLine(uint id_shop, uint id_kass);

public slots:
    void shops();
    void kass();
    /// The registers of one shop; 0 shows all.
    void kass(uint i);
    void devices();
    void Group_Shops();
    void Goods();
    void GroupGoods();
    void GoodsShops();
    void Clients();
    void Discount();
    void Action();
    void Trancaction();
    void TypeTransaction();
    void Zzvit();
    void SlujbOp();
    void Day_Update();
    void Tax();
    /// The same on this host's connection.
    bool CreateTables();
    void statShop(uint id_shop);
    void statKass(uint id_kass);
    /// Closes the tab when it is one of the host's; false for others.
    bool closetab(int index);
    /// These act on the tab in front; false when it is none of the host's.
    bool EditRecord();
    bool DelRecord();
    bool AddRecord();
    bool ChangeTab(int index);
    /// The list in front as a CSV file; promotions and devices are not exported. A failure is reported.
    bool export_to_csv(const QString &code, const QString &path_file_name);

private:
    /// The one place that opens a tab: null, and the user is told, for a kind that he may not see.
    QTab *open(Kind kind);
    QTab *currentTab() const;
    int kindAt(int index) const;
    Db db() const;

    QTabWidget *m_tabs;
    QSqlDatabase *m_db;
    setting *m_setting;
    QLoadedUser *m_user;
    std::array<QPointer<QTab>, KindCount> m_open;
};
