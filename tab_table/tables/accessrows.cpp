#include "accessrows.h"

#include "permissionareas.h"
#include "permissions.h"

#include <QCoreApplication>
#include <algorithm>
#include <string>
#include <vector>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(AccessRows)
};

constexpr int captionDigits = 40;
constexpr int groupDigits = 13;
/// In a window of its own.
constexpr int differenceDigits = 36;
constexpr int valueDigits = 20;

void append(RowStore *rows, const QStringList &texts)
{
    std::vector<std::string> bytes;
    for (const QString &text : texts)
        bytes.push_back(text.toStdString());
    rows->append({bytes.begin(), bytes.end()});
}

/// One row: what it is, and what each group has of it.
template<typename Value>
void appendRow(RowStore *rows, const QString &caption, const GroupsOverview &overview,
               const QMap<QString, GroupAccess> &access, Value valueOf)
{
    QStringList texts = {caption};
    for (const PermissionGroup &group : overview.groups)
        texts.append(valueOf(access.value(group.id)));
    append(rows, texts);
}

QString shortValue(int value)
{
    if (value == Permission::Denied)
        return QStringLiteral("–");
    return value == Permission::Full ? Texts::tr("повний") : Texts::tr("перегляд");
}

QString shortYes(bool isYes)
{
    return isYes ? Texts::tr("так") : QStringLiteral("–");
}

QString shownOf(const std::optional<RecordField> &field)
{
    return field ? field->shown : Texts::tr("(немає)");
}
} // namespace

QVector<Column> matrixColumns(const GroupsOverview &overview)
{
    QVector<Column> columns = {{Texts::tr("Право"), captionDigits}};
    for (const PermissionGroup &group : overview.groups)
        columns.append({group.name, groupDigits});
    return columns;
}

RowStore matrixRows(const GroupsOverview &overview, const QMap<QString, GroupAccess> &access)
{
    RowStore rows;
    for (const PermissionArea &area : permissionAreas()) {
        for (const PermissionLine &line : area.lines)
            appendRow(&rows, permissionCaption(line.id), overview, access,
                      [&line](const GroupAccess &of) { return shortValue(of.right(line.id)); });
    }
    for (const QStringList &group : overview.shopGroups)
        appendRow(&rows, Texts::tr("Група магазинів: %1").arg(group.at(1)), overview, access,
                  [&group](const GroupAccess &of) { return shortYes(of.shopGroups.contains(group.at(0))); });
    for (const QStringList &shop : overview.shops)
        appendRow(&rows, Texts::tr("Передача в магазин: %1").arg(shop.at(1)), overview, access,
                  [&shop](const GroupAccess &of) { return shortYes(of.shops.contains(shop.at(0))); });
    return rows;
}

QVector<Column> differenceColumns(const QString &one, const QString &other)
{
    return {{Texts::tr("Право"), differenceDigits}, {one, valueDigits}, {other, valueDigits}};
}

RowStore differenceRows(const RecordFields &one, const RecordFields &other)
{
    RowStore rows;
    // The name is the first field of either; of course it differs.
    QVector<RecordChange> differences = changesByOthers(one.mid(1), one.mid(1), other.mid(1));
    std::stable_partition(differences.begin(), differences.end(),
                          [](const RecordChange &change) { return !isOfOtherPrograms(change.any()); });
    for (const RecordChange &change : qAsConst(differences))
        append(&rows, {change.any().caption, shownOf(change.before), shownOf(change.theirs)});
    return rows;
}
