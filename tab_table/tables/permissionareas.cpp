#include "permissionareas.h"

#include "permissions.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Line
{
    int id;
    /// That of the menu, without its key.
    const char *caption;
};

struct Area
{
    const char *caption;
    QVector<Line> lines;
};

QVector<Area> areas()
{
    using namespace Permission;
    return {
        {QT_TRANSLATE_NOOP("Permissions", "Вхід"),
         {{BackOffice, QT_TRANSLATE_NOOP("Permissions", "Вхід до бек-офісу")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Управління"),
         {{Sales, QT_TRANSLATE_NOOP("Permissions", "Продаж, прийом, переміщення")},
          {GoodsManagement, QT_TRANSLATE_NOOP("Permissions", "Управління товарами")},
          {Finance, QT_TRANSLATE_NOOP("Permissions", "Фінанси")},
          {ActionsManagement, QT_TRANSLATE_NOOP("Permissions", "Управління акціями")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Таблиці"),
         {{Shops, QT_TRANSLATE_NOOP("Permissions", "Магазини")},
          {Kassa, QT_TRANSLATE_NOOP("Permissions", "Обладнання")},
          {Devices, QT_TRANSLATE_NOOP("Permissions", "Пристрої")},
          {GroupShops, QT_TRANSLATE_NOOP("Permissions", "Групи магазинів")},
          {Goods, QT_TRANSLATE_NOOP("Permissions", "Товари")},
          {GroupGoods, QT_TRANSLATE_NOOP("Permissions", "Групи товарів")},
          {GoodsShops, QT_TRANSLATE_NOOP("Permissions", "Товари магазинів")},
          {Clients, QT_TRANSLATE_NOOP("Permissions", "Клієнти")},
          {Discount, QT_TRANSLATE_NOOP("Permissions", "Знижки")},
          {Actions, QT_TRANSLATE_NOOP("Permissions", "Акції")},
          {Transactions, QT_TRANSLATE_NOOP("Permissions", "Транзакції")},
          {TypeTransactions, QT_TRANSLATE_NOOP("Permissions", "Типи транзакцій")},
          {ZZvit, QT_TRANSLATE_NOOP("Permissions", "Зміни")},
          {SlujbOp, QT_TRANSLATE_NOOP("Permissions", "Службові операції")},
          {DayUpdate, QT_TRANSLATE_NOOP("Permissions", "Дні оновлення")},
          {Tax, QT_TRANSLATE_NOOP("Permissions", "Податкові групи")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Звіти"),
         {{Cheks, QT_TRANSLATE_NOOP("Permissions", "Чеки")},
          {ZReports, QT_TRANSLATE_NOOP("Permissions", "Z-звіти")},
          {Articles, QT_TRANSLATE_NOOP("Permissions", "Артикульний звіт")},
          {Online, QT_TRANSLATE_NOOP("Permissions", "Статистика онлайн")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Обмін"),
         {{RegisterServer, QT_TRANSLATE_NOOP("Permissions", "Автодозвін")},
          {ClientImport, QT_TRANSLATE_NOOP("Permissions", "Імпорт клієнтів")},
          {Comands, QT_TRANSLATE_NOOP("Permissions", "Команди")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Експорт та імпорт"),
         {{ExportCsv, QT_TRANSLATE_NOOP("Permissions", "Експорт списків")},
          {ImportCsv, QT_TRANSLATE_NOOP("Permissions", "Імпорт списків")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Користувачі"),
         {{Users, QT_TRANSLATE_NOOP("Permissions", "Користувачі")},
          {PermissionGroups, QT_TRANSLATE_NOOP("Permissions", "Групи прав")}}},
        {QT_TRANSLATE_NOOP("Permissions", "Сервіс"),
         {{Service, QT_TRANSLATE_NOOP("Permissions", "Налаштування, таблиці бази, прискорення і перевірка")},
          {PreviousImport, QT_TRANSLATE_NOOP("Permissions", "Імпорт з попередньої версії")}}},
    };
}

QString translated(const char *text)
{
    return QCoreApplication::translate("Permissions", text);
}
} // namespace

const QVector<PermissionArea> &permissionAreas()
{
    static const QVector<PermissionArea> all = [] {
        QVector<PermissionArea> read;
        for (const Area &area : areas()) {
            PermissionArea one = {translated(area.caption), {}};
            for (const Line &line : area.lines)
                one.lines.append({line.id, translated(line.caption)});
            read.append(one);
        }
        return read;
    }();
    return all;
}

QString permissionCaption(int id)
{
    static const QHash<int, QString> captions = [] {
        QHash<int, QString> read;
        for (const PermissionArea &area : permissionAreas()) {
            for (const PermissionLine &line : area.lines)
                read.insert(line.id, area.caption + QStringLiteral(": ") + line.caption);
        }
        return read;
    }();
    return captions.contains(id)
               ? captions.value(id)
               : QCoreApplication::translate("Permissions", "Інші програми: право №%1").arg(id);
}

QString permissionValueText(qlonglong value)
{
    if (value == Permission::Denied)
        return QCoreApplication::translate("Permissions", "Заборона");
    return value == Permission::Full ? QCoreApplication::translate("Permissions", "Повний дозвіл")
                                     : QCoreApplication::translate("Permissions", "Тільки перегляд");
}
