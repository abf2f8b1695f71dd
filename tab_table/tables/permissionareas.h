#pragma once

#include <QString>
#include <QVector>

/// A right that the programs know by its number, as the menus call what it opens.
struct PermissionLine
{
    int id;
    /// Translated.
    QString caption;
};

/// The rights of a menu.
struct PermissionArea
{
    /// Translated.
    QString caption;
    QVector<PermissionLine> lines;
};

/// All rights of this program, in the order of its menus.
const QVector<PermissionArea> &permissionAreas();
/// "Таблиці: Магазини"; a right of another program by its number.
QString permissionCaption(int id);
/// "Заборона", "Повний дозвіл" or, for any other value, "Тільки перегляд".
QString permissionValueText(qlonglong value);
