#pragma once

#include "groupaccess.h"

struct UserRights;

/// What becomes of the access of a permission group while it is edited: values.

/// What is to be stored for 0 (denied), 1 (full) or 2 (view only): as it was, where that means the same.
QString storedFor(int value, const QString &before);
/// The rights that a change takes and that whoever loses them cannot give back to himself, in words.
QStringList lostForGood(const GroupAccess &before, const GroupAccess &now);
/// All that a group has, under another name.
GroupAccess copyOf(const GroupAccess &access, const QString &name);
/// What others have changed put into what is edited; what both have changed only when it is to be taken.
GroupAccess mergedAccess(const GroupAccess &mine, const QVector<RecordChange> &changes, bool takesConflicts);
/// The rights of a member, as the program would load them.
UserRights memberRights(const GroupAccess &access);
