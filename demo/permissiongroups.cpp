#include "bulkinsert.h"
#include "stages.h"

#include <QVector>

namespace demo {
namespace {
enum Value { full = 1, viewOnly = 2 };

/// A permission group beside those of the first users: what it may do.
struct Group
{
    int id;
    const char *name;
    QVector<int> full;
    QVector<int> viewed;
    /// Sees all shop groups; else only the first one.
    bool seesAll;
};

QVector<Group> groups()
{
    const QVector<int> tables = {10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
    const QVector<int> reports = {70, 71, 72, 73};
    return {
        {7, "Закупівельники", {0, 13, 14, 15, 100, 102, 220, 221}, {10, 12, 23, 27, 72}, true},
        {8,
         "Регіональні менеджери",
         {0, 15, 16, 27, 101, 103, 202, 220},
         {10, 11, 12, 13, 17, 18, 20, 70, 71, 72, 73},
         false},
        {9, "Аудитори", {0, 220}, tables + reports + QVector<int>{24, 26, 27, 28}, true},
    };
}

void addRights(BulkInsert *rows, int group, const QVector<int> &ids, Value value)
{
    for (const int id : ids)
        rows->add(SqlRow().numbers({group, id, value}));
}
} // namespace

bool fillPermissionGroups(const Db &db, const Chain &chain)
{
    BulkInsert names(db, QStringLiteral("group_premission(id,name)"));
    BulkInsert rights(db, QStringLiteral("lst_permis(id_g_prem,id_prem,permission)"));
    BulkInsert visible(db, QStringLiteral("lst_group(id_g_prem,id_group)"));
    BulkInsert reachable(db, QStringLiteral("lst_shops_transmit(id_g_prem,id_shop)"));
    for (const Group &group : groups()) {
        names.add(SqlRow().number(group.id).text(QString::fromUtf8(group.name)));
        addRights(&rights, group.id, group.full, full);
        addRights(&rights, group.id, group.viewed, viewOnly);
        for (int i = 0; i < (group.seesAll ? chain.plan.shopGroups : 1); ++i)
            visible.add(SqlRow().numbers({group.id, i + 2}));
        for (const Shop &shop : chain.shops) {
            if (group.full.contains(102))
                reachable.add(SqlRow().numbers({group.id, shop.id}));
        }
    }
    return names.finish() && rights.finish() && visible.finish() && reachable.finish();
}
} // namespace demo
