#include "bulkinsert.h"
#include "dice.h"
#include "stages.h"

#include <QStringList>
#include <array>

namespace demo {
namespace {
struct Region
{
    const char *name;
    const char *city;
    const char *streets; ///< separated by "|"
};

const QVector<Region> regions{
    {"Центр", "м. Київ",
     "вул. Хрещатик|вул. Велика Васильківська|просп. Перемоги|вул. Антоновича|бульв. Лесі Українки"},
    {"Захід", "м. Львів", "вул. Городоцька|просп. Свободи|вул. Зелена|вул. Івана Франка|вул. Личаківська"},
    {"Південь", "м. Одеса",
     "вул. Дерибасівська|вул. Рішельєвська|вул. Ніжинська|просп. Шевченка|вул. Базарна"},
};

constexpr int everyGroup = 1;

int groupOfShop(const ChainPlan &plan, int shop)
{
    return everyGroup + 1 + (shop - 1) % plan.shopGroups;
}

QString groupName(int number)
{
    const QString name = QString::fromUtf8(regions.at(number % regions.size()).name);
    const int round = number / regions.size();
    return round == 0 ? name : QStringLiteral("%1 %2").arg(name).arg(round + 1);
}

bool fillGroups(const Db &db, const ChainPlan &plan)
{
    BulkInsert groups(db, QStringLiteral("group_shop(id,name)"));
    for (int i = 0; i < plan.shopGroups; ++i)
        groups.add(SqlRow().number(everyGroup + 1 + i).text(groupName(i)));
    return groups.finish();
}

bool fillServiceOperations(const Db &db)
{
    BulkInsert operations(db, QStringLiteral("slujb_op(name,plus_minus)"));
    operations.add(SqlRow().text(QStringLiteral("Розмінна монета")).number(1));
    operations.add(SqlRow().text(QStringLiteral("Інкасація")).number(0));
    operations.add(SqlRow().text(QStringLiteral("Здача виручки в банк")).number(0));
    return operations.finish();
}

QVector<Shop> makeShops(const ChainPlan &plan)
{
    static constexpr int cycles[] = {7, 1, 10, 14};
    QVector<Shop> shops;
    for (int id = 1; id <= plan.shops; ++id) {
        const int fromEnd = plan.shops - id;
        const int cycle = fromEnd == 0 ? 0 : (fromEnd == 1 ? -1 : cycles[id % 4]);
        shops.append({id, fromEnd < 2 ? everyGroup + 1 : groupOfShop(plan, id), cycle});
    }
    return shops;
}

/// Every shop has an address of its own: the houses of a street are numbered on and on.
QString address(const Shop &shop)
{
    const Region &region = regions.at((shop.group - everyGroup - 1) % regions.size());
    const QStringList streets = QString::fromUtf8(region.streets).split(QLatin1Char('|'));
    return QStringLiteral("%1, %2, %3")
        .arg(QString::fromUtf8(region.city), streets.at(shop.id % streets.size()))
        .arg(shop.id * 2 + 1);
}

QString shopName(const Shop &shop)
{
    if (shop.dayCycle == 0)
        return QStringLiteral("Центральний склад");
    return shop.dayCycle < 0 ? QStringLiteral("Головний офіс") : QStringLiteral("Магазин №%1").arg(shop.id);
}

QString network(int shop, int host)
{
    return QStringLiteral("10.%1.%2.%3").arg(shop / 250 + 1).arg(shop % 250 + 1).arg(host);
}

bool writeShops(const Db &db, const QVector<Shop> &shops)
{
    BulkInsert rows(db,
                    QStringLiteral("shops(id,address,name,group_shop,day_update,one_str_title,two_str_title,"
                                   "three_str_title,four_str_title,one_str_bottom,two_str_bottom,"
                                   "network_shop,sum_cash,count_day_cycle,block)"));
    for (const Shop &shop : shops) {
        const QString place = address(shop);
        rows.add(SqlRow()
                     .number(shop.id)
                     .text(place)
                     .text(shopName(shop))
                     .numbers({shop.group, shop.id % 7 + 1})
                     .text(shopName(shop).toUpper())
                     .text(place.left(50))
                     .text(QStringLiteral("ПН %1").arg(100000000000 + shop.id * qint64(7919)))
                     .text(QStringLiteral("Ласкаво просимо!"))
                     .text(QStringLiteral("Дякуємо за покупку!"))
                     .text(QStringLiteral("Чекаємо на Вас знову"))
                     .text(network(shop.id, 1))
                     .numbers({shop.sells() ? 2000000 : 0, shop.dayCycle, 0}));
    }
    return rows.finish();
}

/// The registers are dealt out to the selling shops in turn; the last one of several is out of order.
QVector<Register> makeRegisters(const Chain &chain)
{
    QVector<const Shop *> selling;
    for (const Shop &shop : chain.shops) {
        if (shop.sells())
            selling.append(&shop);
    }
    QVector<Register> registers;
    const int count = selling.isEmpty() ? 0 : chain.plan.registers;
    for (int id = 1; id <= count; ++id)
        registers.append({id, selling.at((id - 1) % selling.size()), count > 1 && id == count});
    return registers;
}

/// The dial-up server's codes have three digits; registers beyond have none.
SqlRow &addServerCode(SqlRow &row, int id)
{
    return id <= 999 ? row.text(QString::number(id).rightJustified(3, QLatin1Char('0'))) : row.null();
}

bool writeRegisters(const Db &db, const Chain &chain)
{
    BulkInsert rows(db, QStringLiteral("kassa(id,id_shop,advertising_str,cashdrive_code,head_edit,block,"
                                       "info_block,ip_address,id_type,marka,model,id_device,number)"));
    const int perRound = chain.plan.shops > 2 ? chain.plan.shops - 2 : 1;
    for (const Register &reg : chain.registers) {
        const int numberInShop = (reg.id - 1) / perRound + 1;
        SqlRow row;
        row.numbers({reg.id, reg.shop->id})
            .text(QStringLiteral("Каса %1, %2").arg(numberInShop).arg(shopName(*reg.shop)));
        addServerCode(row, reg.id).numbers({0, reg.blocked ? 1 : 0});
        row.text(reg.blocked ? QStringLiteral("В ремонті") : QString())
            .text(network(reg.shop->id, 10 + numberInShop % 240))
            .number(2)
            .text(QStringLiteral("РРО"))
            .text(reg.id % 3 == 0 ? QStringLiteral("М-500Т") : QStringLiteral("М-301"))
            .number(2)
            .text(QStringLiteral("ФН%1").arg(3000000000 + reg.id * qint64(104729)));
        rows.add(row);
    }
    return rows.finish();
}

/// One of them is named like a type of device and is what a right click starts for such devices.
bool writeCommands(const Db &db)
{
    BulkInsert rows(db, QStringLiteral("comands(name,comand,param)"));
    for (const auto &[name, path, parameters] : std::initializer_list<std::array<const char *, 3>>{
             {"Відеосервер", "/usr/bin/xdg-open", "rtsp://[{IP}]:554/"},
             {"Сторінка пристрою", "/usr/bin/xdg-open", "http://[{IP}]/"},
             {"Перевірка зв'язку", "/usr/bin/x-terminal-emulator", "-e ping [{IP}]"}})
        rows.add(SqlRow()
                     .text(QString::fromUtf8(name))
                     .text(QString::fromUtf8(path))
                     .text(QString::fromUtf8(parameters)));
    return rows.finish();
}
} // namespace

bool fillPlaces(const Db &db, Chain *chain)
{
    chain->shops = makeShops(chain->plan);
    chain->registers = makeRegisters(*chain);
    return fillGroups(db, chain->plan) && fillServiceOperations(db) && writeShops(db, chain->shops) &&
           writeRegisters(db, *chain) && writeCommands(db);
}
} // namespace demo
