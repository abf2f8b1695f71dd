#include "pages.h"

#include "destination.h"
#include "permissions.h"
#include "qcashdrive.h"
#include "qcomands.h"
#include "qimportclient.h"
#include "qintegrity.h"
#include "qloadeduser.h"
#include "qmanaction.h"
#include "qmanfinance.h"
#include "qmangoods.h"
#include "qmaninvoices.h"
#include "qoverview.h"
#include "qpremisgroup.h"
#include "qregistersale.h"
#include "qreports.h"
#include "qtablebase.h"
#include "qtabusers.h"

#include <QTabWidget>

Pages::Pages(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *window)
    : QObject(window)
    , m_tabs(tabs)
    , m_db(db)
    , m_setting(set)
    , m_user(user)
    , m_window(window)
    , m_tables(new QTableBase(tabs, db, set, user, window))
    , m_reports(new QReports(tabs, db, set, user, window))
{
    // In the order of the menus, which the pictures and the tests follow.
    for (const PageTable &part : {management(), m_tables->pages(), overview(), m_reports->pages(), others()})
        m_table.insert(m_table.end(), part.begin(), part.end());
    connect(m_tables, &QTableBase::statOnLine, m_reports, qOverload<unsigned int>(&QReports::StatOnLine));
    connect(m_tables, &QTableBase::cheksWanted, m_reports, &QReports::showCheks);
    connect(user, &QLoadedUser::rightsChanged, this, &Pages::closeForbiddenOverview);
}

Pages::~Pages()
{
    // Nobody is there any more to be asked; whoever closes the window was asked before.
    while (m_tabs->count() > 0)
        delete m_tabs->widget(0);
    // What it shows uses the connection, too.
    delete m_tables;
}

PageTable Pages::management()
{
    return {
        {"man_saleadmiss", Permission::Sales, QT_TRANSLATE_NOOP("Page", "Продаж"),
         [this] { return makeSale(); }},
        {"man_invoices", Permission::Sales, QT_TRANSLATE_NOOP("Page", "Передачі"),
         [this] { return makeInvoices(); }},
        {"man_goods", Permission::GoodsManagement, QT_TRANSLATE_NOOP("Page", "Управління товарами"),
         [this] { return new QManGoods(m_db, m_user, m_window, m_setting, nullptr); }},
        {"man_finance", Permission::Finance, QT_TRANSLATE_NOOP("Page", "Фінанси"),
         [this] { return makeFinance(); }},
        {"man_action", Permission::ActionsManagement, QT_TRANSLATE_NOOP("Page", "Управління акціями"),
         [this] { return new QManAction(m_db, m_user, m_window, m_setting, nullptr); }},
    };
}

PageTable Pages::overview()
{
    return {{"mz_overview", Permission::ZReports, QT_TRANSLATE_NOOP("Page", "Огляд"),
             [this] { return makeOverview(); }, Permission::Online}};
}

PageTable Pages::others()
{
    return {
        {"cashdrive", Permission::RegisterServer, QT_TRANSLATE_NOOP("Page", "Автодозвін"),
         [this] { return new QCashDrive(m_db, m_user, m_window, m_setting, m_tabs); }},
        {"importcln", Permission::ClientImport, QT_TRANSLATE_NOOP("Page", "Імпорт клієнтів"),
         [this] { return new QImportClient(m_db, m_user, m_window, m_tabs); }},
        {"comands", Permission::Comands, QT_TRANSLATE_NOOP("Page", "Команди"),
         [this] { return new QComands(m_db, m_user, m_window, m_setting, nullptr); }},
        {"mc_users", Permission::Users, QT_TRANSLATE_NOOP("Page", "Користувачі"),
         [this] { return new QTabUsers(m_db, m_user, m_window, m_setting, nullptr); }},
        {"premis_group", Permission::PermissionGroups, QT_TRANSLATE_NOOP("Page", "Групи прав"),
         [this] { return makePermissionGroups(); }},
        {"mt_check", Permission::Service, QT_TRANSLATE_NOOP("Page", "Перевірка даних"),
         [this] { return makeIntegrity(); }},
    };
}

QWidget *Pages::makeOverview()
{
    auto *overview = new QOverview(m_db, m_user, m_window, nullptr);
    connect(overview, &QOverview::wanted, this, &Pages::go);
    connect(overview, &QOverview::stepWanted, this, &Pages::makeStep);
    return overview;
}

void Pages::makeStep(const QString &action, bool isAdding)
{
    m_user->beginAct();
    if (auto *page = dynamic_cast<Page *>(open(action)); page != nullptr && isAdding)
        page->run(Command::Add);
}

void Pages::closeForbiddenOverview()
{
    // Nobody is loaded for a moment while another user logs in.
    if (m_user->isLoaded())
        closeForbidden(QStringLiteral("mz_overview"));
}

QWidget *Pages::makeSale()
{
    auto *sale = new QRegisterSale(m_db, m_user, m_window, m_setting, nullptr);
    connect(sale, &QRegisterSale::slipWanted, m_reports, &QReports::showSlip);
    connect(sale, &QRegisterSale::invoiceWanted, this, [this](uint invoice, bool print) {
        if (auto *page = qobject_cast<QManInvoices *>(open(QStringLiteral("man_invoices"))))
            page->showInvoice(invoice, print);
    });
    connect(sale, &QRegisterSale::closeWanted, this, [=] { closePage(m_tabs, m_tabs->indexOf(sale)); });
    return sale;
}

QWidget *Pages::makePermissionGroups()
{
    auto *groups = new QPremisGroup(m_db, m_user, m_window, nullptr);
    connect(groups, &QPremisGroup::memberWanted, this, &Pages::memberWanted);
    return groups;
}

QWidget *Pages::makeIntegrity()
{
    auto *page = new QIntegrity(m_db, m_user, m_window, nullptr);
    connect(page, &QIntegrity::wanted, this, &Pages::go);
    return page;
}

QWidget *Pages::makeInvoices()
{
    auto *invoices = new QManInvoices(m_db, m_user, m_window, m_setting, nullptr);
    connect(invoices, &QManInvoices::sendWanted, this, [this] {
        if (auto *sale = qobject_cast<QRegisterSale *>(open(QStringLiteral("man_saleadmiss"))))
            sale->transfermode();
    });
    return invoices;
}

QWidget *Pages::makeFinance()
{
    auto *finance = new QManFinance(m_db, m_user, m_window, m_setting, nullptr);
    connect(finance, &QManFinance::cheksWanted, m_reports, &QReports::showCheks);
    connect(finance, &QManFinance::slipWanted, m_reports, &QReports::showSlip);
    return finance;
}

QWidget *Pages::open(const QString &action)
{
    QWidget *widget = openPage(m_tabs, *m_user, pageEntry(m_table, action));
    if (auto *page = dynamic_cast<Page *>(widget))
        page->openedByMenu();
    return widget;
}

void Pages::go(const Destination &destination)
{
    m_user->beginAct();
    const bool isNew = !isOpen(destination.action);
    QWidget *widget = openPage(m_tabs, *m_user, pageEntry(m_table, destination.action));
    if (auto *page = dynamic_cast<Page *>(widget))
        page->goTo(destination);
    if (isNew && widget != nullptr)
        emit openedOnTheWay(destination.action);
}

bool Pages::isOpen(const QString &action) const
{
    return openedPage(m_tabs, pageEntry(m_table, action)) != nullptr;
}

bool Pages::closeForbidden(const QString &action)
{
    const PageEntry &entry = pageEntry(m_table, action);
    QWidget *opened = openedPage(m_tabs, entry);
    return opened != nullptr && !maySeePage(*m_user, entry) && closePage(m_tabs, m_tabs->indexOf(opened));
}

Page *Pages::current() const
{
    return pageAt(m_tabs, m_tabs->currentIndex());
}

bool Pages::closeAll()
{
    // From the end: the indexes of those still to come stay.
    for (int index = m_tabs->count() - 1; index >= 0; --index) {
        // What it asks is asked about the tab in front.
        m_tabs->setCurrentIndex(index);
        closePage(m_tabs, index);
    }
    return m_tabs->count() == 0;
}
