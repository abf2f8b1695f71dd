#pragma once

#include <QStringList>

class Db;
class QLoadedUser;

/// The shop groups whose shops a user sees where no group is chosen: the permitted ones and group 1, which
/// stands for all groups; of a user without any group only 0, which is no group's id.
QStringList shopGroupsSeen(const QLoadedUser &user);
/// True when there is no shop group beside those; false also after a failure (reported).
bool isEveryShopGroup(const Db &db, const QStringList &groups);
/// " (field=1 OR field=2)", with a blank before it.
QString inShopGroups(const QString &field, const QStringList &groups);
