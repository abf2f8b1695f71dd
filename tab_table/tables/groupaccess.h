#pragma once

#include "recordstore.h"

#include <QMap>
#include <QStringList>

/// What the members of a permission group may do and see: values, and how they are read and saved. Away from
/// the window.

/// Ids are texts, as everywhere between the database and the lists.
struct GroupAccess
{
    QString name;
    /// By the id of the right, as lst_permis holds it; no row is "0". Rights of other programs stand here
    /// only when the group has a row for them.
    QMap<int, QString> rights;
    /// By id, with their names: the shop groups whose shops are seen, the shops that may be sent to.
    QMap<QString, QString> shopGroups;
    QMap<QString, QString> shops;

    int right(int id) const { return rights.value(id).toInt(); }
};

/// The same as a record, and back: fields can be compared, merged and shown.
RecordFields fieldsOf(const GroupAccess &access);
GroupAccess accessOf(const RecordFields &fields);

/// A right that this program does not know.
bool isOfOtherPrograms(const RecordField &field);

/// For readRecord() and saveRecord(). A save leaves somebody in charge (rightsguard.h). A draft carries
/// beside its values the id of the user who saves: it is refused when that one may not change groups any
/// more.
const RecordStatements &permissionGroup();

struct PermissionGroup
{
    QString id;
    QString name;
    /// How many users belong to it.
    int members = 0;
};

/// All that the page of the permission groups lists, and the access of one group.
struct GroupsOverview
{
    QVector<PermissionGroup> groups;
    /// Id and name, id and address.
    QVector<QStringList> shopGroups;
    QVector<QStringList> shops;
};

/// Nothing after a reported failure; so is the next.
std::optional<GroupsOverview> readGroupsOverview(const Db &db);
/// What each group may do, by its id; without the rights of other programs.
std::optional<QMap<QString, GroupAccess>> readAllAccess(const Db &db);
