#include "accessedits.h"

#include "permissionareas.h"
#include "qloadeduser.h"

#include <algorithm>

namespace {
constexpr int viewOnly = 2;

/// 0, 1 or 2: what a stored value means.
int kindOf(const QString &stored)
{
    const qlonglong value = stored.toLongLong();
    return value == Permission::Denied || value == Permission::Full ? static_cast<int>(value) : viewOnly;
}
} // namespace

QString storedFor(int value, const QString &before)
{
    return kindOf(before) == value ? before : QString::number(value);
}

QStringList lostForGood(const GroupAccess &before, const GroupAccess &now)
{
    QStringList lost;
    if (before.right(Permission::BackOffice) != Permission::Denied &&
        now.right(Permission::BackOffice) == Permission::Denied)
        lost.append(permissionCaption(Permission::BackOffice));
    for (const int id : {Permission::Users, Permission::PermissionGroups}) {
        if (before.right(id) == Permission::Full && now.right(id) != Permission::Full)
            lost.append(permissionCaption(id));
    }
    return lost;
}

GroupAccess copyOf(const GroupAccess &access, const QString &name)
{
    GroupAccess copied = access;
    copied.name = name;
    // A right of another program that is denied and one without a row are the same; only one is written.
    for (auto right = copied.rights.begin(); right != copied.rights.end();)
        right = right.value() == QLatin1String("0") ? copied.rights.erase(right) : std::next(right);
    return accessOf(fieldsOf(copied));
}

GroupAccess mergedAccess(const GroupAccess &mine, const QVector<RecordChange> &changes, bool takesConflicts)
{
    RecordFields fields = fieldsOf(mine);
    for (const RecordChange &change : changes) {
        if (change.isConflict && !takesConflicts)
            continue;
        fields.erase(
            std::remove_if(fields.begin(), fields.end(),
                           [&change](const RecordField &field) { return field.key == change.any().key; }),
            fields.end());
        if (change.theirs)
            fields.append(*change.theirs);
    }
    return accessOf(fields);
}

UserRights memberRights(const GroupAccess &access)
{
    UserRights rights;
    for (auto right = access.rights.begin(); right != access.rights.end(); ++right) {
        if (right.key() < Permission::Count)
            rights.permissions[static_cast<size_t>(right.key())] = static_cast<qint16>(kindOf(right.value()));
    }
    rights.groups = access.shopGroups.keys();
    rights.shopsTransmit = access.shops.keys();
    return rights;
}
