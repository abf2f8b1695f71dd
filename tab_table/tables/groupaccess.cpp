#include "groupaccess.h"

#include "permissionareas.h"
#include "permissions.h"
#include "rightsguard.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(GroupAccess)
};

const QLatin1String nameKey("name");
const QLatin1String rightKey("lst_permis ");
const QLatin1String groupKey("lst_group ");
const QLatin1String shopKey("lst_shops_transmit ");

/// How far a save has come.
enum Step { Writing, RightGone, NobodyInCharge };

RecordField rightField(int id, const QString &stored)
{
    return {rightKey + QString::number(id), permissionCaption(id), stored,
            permissionValueText(stored.toLongLong()), QVariant()};
}

RecordField groupField(const QString &id, const QString &name)
{
    return {groupKey + id, Texts::tr("Група магазинів: %1").arg(name), id, Texts::tr("так"), name};
}

RecordField shopField(const QString &id, const QString &address)
{
    return {shopKey + id, Texts::tr("Передача в магазин: %1").arg(address), id, Texts::tr("так"), address};
}

/// Every right of this program, denied.
const QMap<int, QString> &nothingAllowed()
{
    static const QMap<int, QString> rights = [] {
        QMap<int, QString> denied;
        for (const PermissionArea &area : permissionAreas()) {
            for (const PermissionLine &line : area.lines)
                denied.insert(line.id, QStringLiteral("0"));
        }
        return denied;
    }();
    return rights;
}

QString shopGroupsSql(const QString &idGroup)
{
    return QStringLiteral("SELECT id_group,name FROM lst_group JOIN group_shop ON group_shop.id=id_group "
                          "WHERE id_g_prem=") +
           idGroup + QStringLiteral(" ORDER BY id_group");
}

QString shopsSql(const QString &idGroup)
{
    return QStringLiteral("SELECT id_shop,address FROM lst_shops_transmit JOIN shops ON shops.id=id_shop "
                          "WHERE id_g_prem=") +
           idGroup + QStringLiteral(" ORDER BY id_shop");
}

bool readPairs(const Db &db, const QString &sql, QMap<QString, QString> *pairs)
{
    auto query = db.run(sql);
    while (query && query->next())
        pairs->insert(toText(query->value(0)), toText(query->value(1)));
    return query.has_value();
}

/// Behind the name, which is the record's own row.
std::optional<RecordFields> readAccess(const Db &db, const QString &id)
{
    GroupAccess access = {QString(), nothingAllowed(), {}, {}};
    auto rights = db.run(QStringLiteral("SELECT id_prem,permission FROM lst_permis WHERE id_g_prem=") + id);
    while (rights && rights->next())
        access.rights[rights->value(0).toInt()] = toText(rights->value(1));
    if (!rights || !readPairs(db, shopGroupsSql(id), &access.shopGroups) ||
        !readPairs(db, shopsSql(id), &access.shops))
        return std::nullopt;
    return fieldsOf(access).mid(1);
}

QString noRefusal(const Db &db, const RecordDraft &draft)
{
    Q_UNUSED(db)
    Q_UNUSED(draft)
    return {};
}

/// The rights that are different now; no row for one that was denied and stays so.
bool writeRights(const Db &db, const GroupAccess &before, const GroupAccess &now, const QString &id)
{
    QStringList rows;
    for (auto right = now.rights.begin(); right != now.rights.end(); ++right) {
        if (right.value() != before.rights.value(right.key(), QStringLiteral("0")))
            rows.append(QStringLiteral("(%1,%2,%3)").arg(id).arg(right.key()).arg(right.value()));
    }
    return rows.isEmpty() ||
           db.run(QStringLiteral("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES") +
                  rows.join(QLatin1Char(',')) +
                  QStringLiteral(" ON DUPLICATE KEY UPDATE permission=VALUES(permission)"));
}

/// Takes away and adds the rows of a list that are different now.
bool writeList(const Db &db, const QString &table, const QString &column, const QStringList &before,
               const QStringList &now, const QString &id)
{
    QStringList added;
    QStringList removed;
    for (const QString &one : now) {
        if (!before.contains(one))
            added.append(QStringLiteral("(%1,%2)").arg(id, one));
    }
    for (const QString &one : before) {
        if (!now.contains(one))
            removed.append(one);
    }
    const QString place = table + QStringLiteral("(id_g_prem,") + column + QLatin1Char(')');
    return (removed.isEmpty() || db.run(QStringLiteral("DELETE FROM %1 WHERE id_g_prem=%2 AND %3 IN (%4)")
                                            .arg(table, id, column, removed.join(QLatin1Char(','))))) &&
           (added.isEmpty() || db.run(QStringLiteral("INSERT INTO ") + place + QStringLiteral(" VALUES") +
                                      added.join(QLatin1Char(','))));
}

bool writeAccess(const Db &db, const RecordDraft &draft, const QString &id, int *step)
{
    *step = Writing;
    const GroupAccess before = accessOf(draft.read);
    const GroupAccess now = accessOf(draft.fields);
    // Before the rights of the own group are written.
    const auto mayEdit = userMayEdit(db, draft.beside.toString(), Permission::PermissionGroups);
    if (mayEdit && !*mayEdit)
        *step = RightGone;
    if (!mayEdit || !*mayEdit)
        return false;
    const auto inCharge = usersInCharge(db);
    if (!inCharge || !writeRights(db, before, now, id) ||
        !writeList(db, QStringLiteral("lst_group"), QStringLiteral("id_group"), before.shopGroups.keys(),
                   now.shopGroups.keys(), id) ||
        !writeList(db, QStringLiteral("lst_shops_transmit"), QStringLiteral("id_shop"), before.shops.keys(),
                   now.shops.keys(), id))
        return false;
    const auto left = usersInCharge(db);
    if (left && *left == 0 && *inCharge > 0)
        *step = NobodyInCharge;
    return left && *step == Writing;
}

QString failureWords(const Db &db, const RecordDraft &draft, int step)
{
    Q_UNUSED(db)
    Q_UNUSED(draft)
    if (step == RightGone)
        return rightGoneWords();
    return step == NobodyInCharge ? lastInChargeWords() : QString();
}

const RecordRows &accessRows()
{
    static const RecordRows rows = {
        readAccess,
        noRefusal,
        writeAccess,
        failureWords,
        {QStringLiteral("SELECT id_prem FROM lst_permis WHERE id_g_prem="),
         QStringLiteral("SELECT id_group FROM lst_group WHERE id_g_prem="),
         QStringLiteral("SELECT id_shop FROM lst_shops_transmit WHERE id_g_prem=")},
        {QStringLiteral("lst_permis"), QStringLiteral("lst_group"), QStringLiteral("lst_shops_transmit")},
        rightsLock()};
    return rows;
}

std::optional<QVector<QStringList>> readRows(const Db &db, const QString &sql, int columns)
{
    auto query = db.run(sql);
    if (!query)
        return std::nullopt;
    QVector<QStringList> rows;
    while (query->next()) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row.append(toText(query->value(column)));
        rows.append(row);
    }
    return rows;
}
} // namespace

RecordFields fieldsOf(const GroupAccess &access)
{
    RecordFields fields = {{nameKey, Texts::tr("Назва"), access.name, access.name, QVariant()}};
    for (auto right = access.rights.begin(); right != access.rights.end(); ++right)
        fields.append(rightField(right.key(), right.value()));
    for (auto group = access.shopGroups.begin(); group != access.shopGroups.end(); ++group)
        fields.append(groupField(group.key(), group.value()));
    for (auto shop = access.shops.begin(); shop != access.shops.end(); ++shop)
        fields.append(shopField(shop.key(), shop.value()));
    return fields;
}

GroupAccess accessOf(const RecordFields &fields)
{
    GroupAccess access = {QString(), nothingAllowed(), {}, {}};
    for (const RecordField &field : fields) {
        if (field.key == nameKey)
            access.name = field.stored;
        else if (field.key.startsWith(rightKey))
            access.rights[field.key.mid(rightKey.size()).toInt()] = field.stored;
        else if (field.key.startsWith(groupKey))
            access.shopGroups.insert(field.stored, field.row.toString());
        else
            access.shops.insert(field.stored, field.row.toString());
    }
    return access;
}

bool isOfOtherPrograms(const RecordField &field)
{
    return field.key.startsWith(rightKey) &&
           !nothingAllowed().contains(field.key.mid(rightKey.size()).toInt());
}

const RecordStatements &permissionGroup()
{
    static const RecordStatements statements = {
        QStringLiteral("group_premission"),
        QStringLiteral("SELECT name FROM group_premission WHERE id="),
        QStringLiteral("INSERT INTO group_premission(name) VALUES(:name)"),
        QStringLiteral("UPDATE group_premission SET name=:name WHERE id="),
        QStringLiteral("SELECT name FROM group_premission WHERE id="),
        &accessRows(),
        {{nameKey, InputForm::Trimmed, Texts::tr("Назва"), QString(), QStringLiteral(":name"),
          QStringLiteral(":name"), QString()}}};
    return statements;
}

std::optional<GroupsOverview> readGroupsOverview(const Db &db)
{
    const auto groups = readRows(
        db,
        QStringLiteral("SELECT group_premission.id,group_premission.name,COUNT(users.id) FROM "
                       "group_premission LEFT JOIN users ON users.id_g_prem=group_premission.id "
                       "GROUP BY group_premission.id,group_premission.name ORDER BY group_premission.name"),
        3);
    const auto shopGroups =
        groups ? readRows(db, QStringLiteral("SELECT id,name FROM group_shop ORDER BY id"), 2) : std::nullopt;
    const auto shops = shopGroups
                           ? readRows(db, QStringLiteral("SELECT id,address FROM shops ORDER BY address"), 2)
                           : std::nullopt;
    if (!shops)
        return std::nullopt;
    GroupsOverview overview = {{}, *shopGroups, *shops};
    for (const QStringList &group : *groups)
        overview.groups.append({group.at(0), group.at(1), group.at(2).toInt()});
    return overview;
}

std::optional<QMap<QString, GroupAccess>> readAllAccess(const Db &db)
{
    QStringList known;
    for (const int id : nothingAllowed().keys())
        known.append(QString::number(id));
    const auto rights =
        readRows(db,
                 QStringLiteral("SELECT id_g_prem,id_prem,permission FROM lst_permis WHERE id_prem IN (%1)")
                     .arg(known.join(QLatin1Char(','))),
                 3);
    const auto groups =
        rights ? readRows(db, QStringLiteral("SELECT id_g_prem,id_group FROM lst_group"), 2) : std::nullopt;
    const auto shops =
        groups ? readRows(db, QStringLiteral("SELECT id_g_prem,id_shop FROM lst_shops_transmit"), 2)
               : std::nullopt;
    if (!shops)
        return std::nullopt;
    QMap<QString, GroupAccess> all;
    for (const QStringList &row : *rights)
        all[row.at(0)].rights[row.at(1).toInt()] = row.at(2);
    for (const QStringList &row : *groups)
        all[row.at(0)].shopGroups.insert(row.at(1), QString());
    for (const QStringList &row : *shops)
        all[row.at(0)].shops.insert(row.at(1), QString());
    return all;
}
