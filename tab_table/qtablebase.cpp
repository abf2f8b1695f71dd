#include "qtablebase.h"

#include "db.h"
#include "permissions.h"
#include "previousimport.h"
#include "qloadeduser.h"
#include "qtabactions.h"
#include "qtabclients.h"
#include "qtabdevices.h"
#include "qtabdiscount.h"
#include "qtabgoods.h"
#include "qtabgoodsshops.h"
#include "qtabgroupshops.h"
#include "qtabkass.h"
#include "qtabnames.h"
#include "qtabshops.h"
#include "qtabslujbop.h"
#include "qtabtax.h"
#include "qtabtransaction.h"
#include "qtabzzvit.h"
#include "schema.h"

#include <QTabWidget>

QTableBase::QTableBase(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_db(db)
    , m_setting(set)
    , m_user(user)
    , m_pages(lines())
    , m_previous(new PreviousImport(db, user, tabs->window(), parent, this))
{
}

template<typename Tab>
std::function<QWidget *()> QTableBase::make()
{
    return [this] { return new Tab(m_db, m_user, parent(), m_setting, nullptr); };
}

template<typename Tab>
std::function<QWidget *()> QTableBase::makeJournal()
{
    return [this] {
        auto *tab = new Tab(m_db, m_user, parent(), m_setting, nullptr);
        connect(tab, &QTabJournal::cheksWanted, this, &QTableBase::cheksWanted);
        return tab;
    };
}

PageTable QTableBase::lines()
{
    return {
        {"mt_shops", Permission::Shops, QT_TRANSLATE_NOOP("Page", "Магазини"),
         [this] { return makeShops(); }},
        {"mt_kass", Permission::Kassa, QT_TRANSLATE_NOOP("Page", "Обладнання"), make<QTabKass>()},
        {"mt_devices", Permission::Devices, QT_TRANSLATE_NOOP("Page", "Пристрої"), make<qtabdevices>()},
        {"mt_group_shops", Permission::GroupShops, QT_TRANSLATE_NOOP("Page", "Групи магазинів"),
         make<QTabGroup_Shops>()},
        {"mt_goods", Permission::Goods, QT_TRANSLATE_NOOP("Page", "Товари"), make<QTabGoods>()},
        {"mt_group_goods", Permission::GroupGoods, QT_TRANSLATE_NOOP("Page", "Групи товарів"),
         make<QTabGroup_Goods>()},
        {"mt_goods_shops", Permission::GoodsShops, QT_TRANSLATE_NOOP("Page", "Товари магазинів"),
         make<QTabGoodsShops>()},
        {"mt_clients", Permission::Clients, QT_TRANSLATE_NOOP("Page", "Клієнти"), make<QTabClients>()},
        {"mt_diskount", Permission::Discount, QT_TRANSLATE_NOOP("Page", "Знижки"), make<QTabDiscount>()},
        {"mt_action", Permission::Actions, QT_TRANSLATE_NOOP("Page", "Акції"), make<QTabActions>()},
        {"mt_cheks", Permission::Transactions, QT_TRANSLATE_NOOP("Page", "Транзакції"),
         makeJournal<QTabTransaction>()},
        {"mt_type_cheks", Permission::TypeTransactions, QT_TRANSLATE_NOOP("Page", "Типи транзакцій"),
         make<QTabTypeTrans>()},
        {"mt_z_zvits", Permission::ZZvit, QT_TRANSLATE_NOOP("Page", "Зміни"), makeJournal<QTabZZvit>()},
        {"mt_slujb_op", Permission::SlujbOp, QT_TRANSLATE_NOOP("Page", "Службові операції"),
         make<QTabSlujbOp>()},
        {"mt_day_update", Permission::DayUpdate, QT_TRANSLATE_NOOP("Page", "Дні оновлення"),
         make<QTabDay_Update>()},
        {"mt_tax", Permission::Tax, QT_TRANSLATE_NOOP("Page", "Податкові групи"), make<QTabTax>()},
    };
}

QWidget *QTableBase::makeShops()
{
    auto *tab = new QTabShops(m_db, m_user, parent(), m_setting, nullptr);
    connect(tab, &QTabShops::MoveMouseSignal, this, qOverload<uint>(&QTableBase::kass));
    return tab;
}

QWidget *QTableBase::open(const char *action)
{
    return openPage(m_tabs, *m_user, pageEntry(m_pages, QLatin1String(action)));
}

QTab *QTableBase::tab(const QString &action) const
{
    return qobject_cast<QTab *>(openedPage(m_tabs, pageEntry(m_pages, action)));
}

void QTableBase::kass(uint i)
{
    // Also when the tab is open: it may show the registers of another shop.
    if (auto *tab = qobject_cast<QTabKass *>(open("mt_kass")))
        tab->LoadData(i);
}

bool QTableBase::CreateTables(QSqlDatabase *db, QObject *receiver)
{
    return createSchema(Db(db, receiver));
}

bool QTableBase::CreateTables()
{
    return CreateTables(m_db, parent());
}

Page *QTableBase::current() const
{
    return pageAt(m_tabs, m_tabs->currentIndex(), m_pages);
}

bool QTableBase::closetab(int index)
{
    return pageAt(m_tabs, index, m_pages) != nullptr && closePage(m_tabs, index);
}

bool QTableBase::run(Command command)
{
    Page *page = current();
    if (page != nullptr)
        page->run(command);
    return page != nullptr;
}

bool QTableBase::DelRecord()
{
    run(Command::Delete);
    return dynamic_cast<QTabActions *>(current()) != nullptr;
}

bool QTableBase::ChangeTab(int index)
{
    const Page *page = pageAt(m_tabs, index, m_pages);
    if (page == nullptr)
        return false;
    const Commands offered = page->commands();
    // The first flag shows the commands for records and the export, the second the export alone.
    const bool isEdited = offered.contains(Command::Edit);
    emit visible(isEdited, !isEdited && offered.contains(Command::Export));
    return true;
}

bool QTableBase::export_to_csv(const QString &code, const QString &path_file_name)
{
    Page *page = current();
    if (page != nullptr)
        page->export_to_csv(code, path_file_name);
    return page != nullptr;
}

bool QTableBase::import_csv(const QString &code, const QString &path_file_name, QChar separator)
{
    auto *tab = dynamic_cast<QTab *>(current());
    if (tab == nullptr || !tab->isOffered(Command::Import))
        return false;
    tab->import_csv(m_db, parent(), tab, code, path_file_name, separator, QLatin1Char('\n'));
    return true;
}

void QTableBase::importBD()
{
    m_previous->begin();
}
