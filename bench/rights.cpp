#include "bench.h"
#include "page.h"
#include "qpremisgroup.h"
#include "rightstree.h"
#include "windows.h"

#include <QCoreApplication>
#include <QTabWidget>

namespace {
constexpr int groups = 50;
constexpr double goalMs = 200;

/// Of each group every right that there can be.
void fillGroups(const Bench &bench)
{
    exec(bench,
         QStringLiteral("INSERT INTO group_premission(id,name) SELECT 100+seq,CONCAT('Група ',seq) FROM "
                        "seq_1_to_%1")
             .arg(groups));
    exec(bench,
         QStringLiteral("INSERT INTO lst_permis(id_g_prem,id_prem,permission) SELECT 100+g.seq,p.seq,(g.seq+"
                        "p.seq)%3 FROM seq_1_to_%1 g JOIN seq_0_to_399 p")
             .arg(groups));
}

void removeGroups(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM lst_permis WHERE id_g_prem>100"));
    exec(bench, QStringLiteral("DELETE FROM group_premission WHERE id>100"));
}

/// From the menu's action on until the tree is painted with its values.
double openOnce(const Bench &bench, QLoadedUser *user)
{
    QTabWidget tabs;
    showWindow(&tabs);
    const PageEntry entry = {"premis_group", Permission::PermissionGroups, "Групи прав",
                             [&] { return new QPremisGroup(bench.connection, user, nullptr, nullptr); }};
    return milliseconds([&] {
        QWidget *page = openPage(&tabs, *user, entry);
        const auto *list = page->findChild<QTreeWidget *>(QStringLiteral("groups"));
        while (list->topLevelItemCount() == 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        page->grab();
    });
}
} // namespace

QVector<Figure> measureRights(const Bench &bench)
{
    fillGroups(bench);
    Admin admin(bench);
    QVector<double> times;
    // The first one opens the connection of the tasks.
    openOnce(bench, admin.user());
    for (int round = 0; round < bench.rounds; ++round)
        times.append(openOnce(bench, admin.user()));
    removeGroups(bench);
    return {{QStringLiteral("permission tree of %1 groups opens").arg(groups), median(times), goalMs,
             QStringLiteral("ms")}};
}
