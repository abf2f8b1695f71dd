#include "qreports.h"

#include "cheks.h"
#include "dbtasks.h"
#include "permissions.h"
#include "qartreport.h"
#include "qchekviewer.h"
#include "qloadeduser.h"
#include "qstatonline.h"
#include "qzreport.h"
#include "reportwindow.h"
#include "slipprint.h"
#include "slipreader.h"

#include <QTabWidget>

QReports::QReports(QTabWidget *tabs, QSqlDatabase *db, setting *set, QLoadedUser *user, QObject *mainWindow)
    : QObject(mainWindow)
    , m_tabs(tabs)
    , m_db(db)
    , m_setting(set)
    , m_user(user)
    , m_pages(lines())
    , m_slips(new DbTasks(db->connectionName(), mainWindow, this))
{
    connect(user, &QLoadedUser::rightsChanged, this, &QReports::followRights);
}

template<typename Window>
std::function<QWidget *()> QReports::make()
{
    return [this] {
        auto *report = new Window(m_db, m_user, parent(), m_tabs);
        connect(report, &ReportWindow::cheksWanted, this, &QReports::showCheks);
        return report;
    };
}

PageTable QReports::lines()
{
    return {
        {"mz_cheks", Permission::Cheks, QT_TRANSLATE_NOOP("Page", "Чеки"), make<QChekViewer>()},
        {"mz_zzvit", Permission::ZReports, QT_TRANSLATE_NOOP("Page", "Z - Звіти"), make<QZReport>()},
        {"mz_art_zvit", Permission::Articles, QT_TRANSLATE_NOOP("Page", "Звіт по товарах"),
         make<QArtReport>()},
        {"mz_StatisticOnLine", Permission::Online, QT_TRANSLATE_NOOP("Page", "Статистика OnLine"),
         [this] { return new QStatOnLine(m_db, m_user, parent(), m_setting, m_tabs); }},
    };
}

void QReports::followRights()
{
    // Nobody is loaded for a moment while another user logs in; no page is open then.
    for (const PageEntry &entry : m_pages) {
        QWidget *opened = openedPage(m_tabs, entry);
        if (m_user->isLoaded() && opened != nullptr && !m_user->maySee(entry.permission))
            closePage(m_tabs, m_tabs->indexOf(opened));
    }
}

ReportWindow *QReports::window(const QString &action) const
{
    return qobject_cast<ReportWindow *>(openedPage(m_tabs, pageEntry(m_pages, action)));
}

ReportWindow *QReports::current() const
{
    return qobject_cast<ReportWindow *>(m_tabs->currentWidget());
}

QWidget *QReports::open(const char *action)
{
    return openPage(m_tabs, *m_user, pageEntry(m_pages, QLatin1String(action)));
}

void QReports::StatOnLine(unsigned int shop)
{
    auto *statistics = qobject_cast<QStatOnLine *>(open("mz_StatisticOnLine"));
    if (statistics != nullptr && shop != 0)
        statistics->showShop(shop);
}

void QReports::showCheks(const ChekOrigin &origin)
{
    if (auto *viewer = qobject_cast<QChekViewer *>(open("mz_cheks")))
        viewer->showOrigin(origin);
}

void QReports::showSlip(const QString &kass, int chek, bool print)
{
    const SlipKey key = {{0, 0, kass.toUInt()}, static_cast<uint>(chek)};
    if (!print) {
        if (auto *viewer = qobject_cast<QChekViewer *>(open("mz_cheks")))
            viewer->showReceipt(key.kass, key.chek);
        return;
    }
    m_slips->read([key](const Db &db) { return readNewSlip(db, key); },
                  [this](const std::optional<Slip> &slip) {
                      if (slip)
                          previewSlip(m_tabs->window(), slip->html());
                  });
}

bool QReports::closetab(int index)
{
    return pageAt(m_tabs, index, m_pages) != nullptr && closePage(m_tabs, index);
}

bool QReports::changetab(int index)
{
    if (pageAt(m_tabs, index, m_pages) == nullptr)
        return false;
    emit visible(false, true);
    return true;
}

bool QReports::export_to_csv(const QString &code, const QString &path)
{
    Page *page = pageAt(m_tabs, m_tabs->currentIndex(), m_pages);
    if (page == nullptr || !page->isOffered(Command::Export))
        return false;
    page->export_to_csv(code, path);
    return true;
}
