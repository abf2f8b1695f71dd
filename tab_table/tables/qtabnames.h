#pragma once

#include "qtab.h"

/// A list of names of the database: a table of id and name, edited in place.
struct NameList
{
    const char *table;
    /// Of the names; translated in the context "QTabNames".
    const char *caption;
};

/// The tab of a list of names.
class QTabNames : public QTab
{
    Q_OBJECT

public:
    QTabNames(const NameList &names, QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
              QWidget *parent);
};

/// The same as a class of its own, made like every other tab.
template<const NameList &names>
class QTabNamesOf : public QTabNames
{
public:
    QTabNamesOf(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
        : QTabNames(names, db, user, receiver, set, parent)
    {
    }
};

// One line a list, and its line in QTableBase.
inline constexpr NameList shopGroupNames = {"group_shop", QT_TRANSLATE_NOOP("QTabNames", "Назва групи")};

using QTabGroup_Shops = QTabNamesOf<shopGroupNames>;
