#include "testing.h"

#include "memberpreview.h"
#include "pages.h"
#include "permissionareas.h"
#include "qmessdlg.h"
#include "qpremisgroup.h"
#include "qqestion.h"
#include "rightstree.h"
#include "veltab.h"

#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

/// What the page of the permission groups says about the menus, and what the menus are.
class TstMemberPreview : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rightsAreCalledAsTheMenusAre();
    void memberSeesWhatThePreviewShows();
    void ownGroupIsFollowedAtOnce();

private:
    QAction *action(const QString &name) { return child<QAction>(m_window.get(), name); }
    QPremisGroup *openGroups();
    QStringList shownMenus();
    void logIn(const char *login);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<Veltab> m_window;
};

namespace {
QString plain(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}
} // namespace

/// Olena may look at shops, sell, and read receipts; nothing else.
void TstMemberPreview::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_folder->path().toLocal8Bit());
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_premission(id,name) VALUES(2,'Зал')",
        "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,0,1),(2,10,2),(2,70,5),(2,101,1),(2,28,0)",
        "UPDATE users SET pass='a'",
        "INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('olena','o','1','О','К',2)"});
}

void TstMemberPreview::cleanup()
{
    m_window.reset();
    m_base.reset();
}

void TstMemberPreview::logIn(const char *login)
{
    m_window.reset();
    writeSettings(m_folder->path(), m_base->address());
    QFile settings(m_folder->filePath("Velta.ini"));
    QVERIFY(settings.open(QIODevice::Append));
    settings.write(QByteArray("\n[DEFLOGIN]\nDEFLOGIN=") + login + "\nPASS=" + login[0] + "\n");
    settings.close();
    m_window = std::make_unique<Veltab>(m_folder->path());
    m_window->setLoginUnattended(true);
    m_window->show();
    QTRY_VERIFY_WITH_TIMEOUT(m_window->isReady(), 20000);
    m_window->setLoginUnattended(false);
    waitOutTasks();
}

QPremisGroup *TstMemberPreview::openGroups()
{
    action("premis_group")->trigger();
    waitOutTasks();
    auto *page = m_window->findChild<QPremisGroup *>();
    auto *groups = child<QTreeWidget>(page, "groups");
    groups->setCurrentItem(groups->findItems("Зал", Qt::MatchExactly).first());
    waitOutTasks();
    return page;
}

/// Of the menu bar, without the commands for the page in front.
QStringList TstMemberPreview::shownMenus()
{
    QStringList shown;
    for (const QMenu *menu :
         m_window->menuBar()->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        for (const QAction *one : menu->actions()) {
            if (one->isVisible() && !one->isSeparator() && one->objectName() != "quit" &&
                menu->menuAction()->isVisible() && !menu->title().isEmpty())
                shown.append(plain(menu->title()) + ": " + plain(one->text()));
        }
    }
    return shown;
}

void TstMemberPreview::rightsAreCalledAsTheMenusAre()
{
    logIn("admin");
    QTabWidget tabs;
    QLoadedUser user(nullptr, nullptr);
    const Pages pages(&tabs, m_base->connection(), nullptr, &user, m_window.get());
    QStringList called;
    QStringList menus;
    for (const QMenu *menu :
         m_window->menuBar()->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        for (const QAction *one : menu->actions()) {
            for (const PageEntry &entry : pages.table()) {
                if (one->objectName() != entry.action)
                    continue;
                // Transfers are let in by the right to sales, the overview by those to two reports, the check
                // of the data by that to the service: these are called as the others.
                if (QStringList{"man_invoices", "mz_overview", "mt_check"}.contains(one->objectName()))
                    continue;
                menus.append(plain(menu->title()) + ": " + plain(one->text()));
                called.append(permissionCaption(entry.permission));
            }
        }
    }
    QCOMPARE(called, menus);
    QCOMPARE(static_cast<size_t>(menus.size()) + 3, pages.table().size());
}

void TstMemberPreview::memberSeesWhatThePreviewShows()
{
    logIn("admin");
    auto *page = openGroups();
    QStringList shown;
    QString commands;
    QVERIFY(withModal<MemberPreview>([page] { child<QPushButton>(page, "pbShowAs")->click(); },
                                     [&](MemberPreview *preview) {
                                         const auto *tree = child<QTreeWidget>(preview, "menus");
                                         for (int i = 0; i < tree->topLevelItemCount(); ++i) {
                                             const QTreeWidgetItem *menu = tree->topLevelItem(i);
                                             for (int j = 0; j < menu->childCount(); ++j) {
                                                 shown.append(menu->text(0) + ": " + menu->child(j)->text(0));
                                                 commands += menu->child(j)->text(1) + '|';
                                             }
                                         }
                                     }));
    QVERIFY2(commands.startsWith("Повний дозвіл|Повний дозвіл|Тільки перегляд|Тільки перегляд|"),
             qPrintable(commands));
    logIn("olena");
    QVERIFY2(shown == shownMenus(), qPrintable(shown.join(", ") + "; " + shownMenus().join(", ")));
    QVERIFY(shown.contains("Таблиці: Магазини") && !shown.contains("Таблиці: Товари"));
}

/// The menus are there without another login when somebody changes his own group.
void TstMemberPreview::ownGroupIsFollowedAtOnce()
{
    m_base->exec("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,24,1),(2,26,1)");
    logIn("olena");
    action("premis_group")->trigger();
    waitOutTasks();
    auto *page = m_window->findChild<QPremisGroup *>();
    auto *rights = child<RightsTree>(page, "rights");
    QVERIFY(showActive(m_window.get()));
    rights->setFocus();
    rights->setCurrentItem(rights->findItems("Товари", Qt::MatchExactly | Qt::MatchRecursive).first());
    pressKeys({Qt::Key_1, Qt::CTRL + Qt::Key_S});
    waitOutTasks();
    QCOMPARE(m_base->value("SELECT permission FROM lst_permis WHERE id_g_prem=2 AND id_prem=13"),
             QString("1"));
    QTRY_VERIFY(action("mt_goods")->isVisible());
}

QTEST_MAIN(TstMemberPreview)
#include "tst_memberpreview.moc"
