#pragma once

#include "qtab.h"

/// A list of names of the database: a table of id and name, edited in place.
struct NameList
{
    const char *table;
    /// Of the names; as all texts here translated in the context "QTabNames".
    const char *caption;
    /// Why nobody adds or edits names here; null for most lists.
    const char *refusal = nullptr;
    /// What stands quietly below the list; null for most.
    const char *hint = nullptr;
    /// A new name gets this id or a higher one, unless another was typed; 0: any.
    uint lowestNewId = 0;
    /// The names stand by their codes until the user sorts them; else as the server sends them.
    bool isByCode = false;
};

/// The tab of a list of names.
class QTabNames : public QTab
{
    Q_OBJECT

public:
    QTabNames(const NameList &names, QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
              QWidget *parent);

private:
    void addHint(const QString &text);
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
inline constexpr NameList goodsGroupNames = {
    "group_goods", QT_TRANSLATE_NOOP("QTabNames", "Назва групи"), nullptr,
    QT_TRANSLATE_NOOP(
        "QTabNames",
        "Групи з кодами 2–5 службові: їх товари не продаються в бек-офісі, а їх продажі на касах "
        "автодозвін не записує. Нова група отримує код від 6; щоб ввести код самому, натисніть "
        "Shift+Tab у її назві."),
    6};
inline constexpr NameList updateDayNames = {
    "day_update", QT_TRANSLATE_NOOP("QTabNames", "День оновлення"), nullptr, nullptr, 0, true};
inline constexpr NameList transactionTypeNames = {
    "type_check", QT_TRANSLATE_NOOP("QTabNames", "Тип транзакції"),
    QT_TRANSLATE_NOOP("QTabNames", "Типи транзакцій однакові в усіх програмах мережі: їх не додають і не "
                                   "змінюють.")};

using QTabGroup_Goods = QTabNamesOf<goodsGroupNames>;
using QTabDay_Update = QTabNamesOf<updateDayNames>;
using QTabTypeTrans = QTabNamesOf<transactionTypeNames>;
