#include "bulkinsert.h"
#include "dice.h"
#include "ean13.h"
#include "stages.h"

#include <QCryptographicHash>
#include <QStringList>

namespace demo {
namespace {
enum User { administrator = 1, operatorUser = 2, viewer = 3 };
constexpr int operatorsShopGroup = 2;

enum Right { forbidden = 0, full = 1, viewOnly = 2 };
/// The ids of the rights: entry, the first and last table tab, the reports, the sale.
constexpr int entry = 0;
constexpr int firstTable = 10;
constexpr int lastTable = 23;
constexpr int firstReport = 70;
constexpr int lastReport = 73;
constexpr int selling = 101;
constexpr int rights = 400;

int rightOf(User user, int id)
{
    if (id == entry || (user == operatorUser && id == selling))
        return full;
    if (id >= firstTable && id <= lastTable)
        return viewOnly;
    return user == viewer && id >= firstReport && id <= lastReport ? viewOnly : forbidden;
}

bool writeRights(const Db &db)
{
    BulkInsert groups(db, QStringLiteral("group_premission(id,name)"));
    groups.add(SqlRow().number(operatorUser).text(QStringLiteral("Касири-оператори")));
    groups.add(SqlRow().number(viewer).text(QStringLiteral("Перегляд")));
    BulkInsert values(db, QStringLiteral("lst_permis(id_g_prem,id_prem,permission)"));
    for (const User user : {operatorUser, viewer}) {
        for (int id = 0; id < rights; ++id)
            values.add(SqlRow().numbers({user, id, rightOf(user, id)}));
    }
    return groups.finish() && values.finish();
}

bool writeVisibleShops(const Db &db, const Chain &chain)
{
    BulkInsert visible(db, QStringLiteral("lst_group(id_g_prem,id_group)"));
    for (int i = 0; i < chain.plan.shopGroups; ++i) {
        visible.add(SqlRow().numbers({administrator, i + 2}));
        visible.add(SqlRow().numbers({viewer, i + 2}));
    }
    visible.add(SqlRow().numbers({operatorUser, operatorsShopGroup}));
    BulkInsert reachable(db, QStringLiteral("lst_shops_transmit(id_g_prem,id_shop)"));
    for (const Shop &shop : chain.shops) {
        reachable.add(SqlRow().numbers({administrator, shop.id}));
        if (shop.group == operatorsShopGroup)
            reachable.add(SqlRow().numbers({operatorUser, shop.id}));
    }
    return visible.finish() && reachable.finish();
}

SqlRow userRow(User user, const char *login, const char *surname, const char *name, const char *patronymic)
{
    SqlRow row;
    row.number(user).text(QLatin1String(login)).text(hashedPassword(QLatin1String(login)));
    row.text(cardKey(user));
    row.text(QString::fromUtf8(name)).text(QString::fromUtf8(surname)).text(QString::fromUtf8(patronymic));
    return row;
}

bool writeUsers(const Db &db)
{
    BulkInsert users(db,
                     QStringLiteral("users(id,login,pass,key_prem,name,surname,surname2,telephone,id_g_prem,"
                                    "id_group,id_shop)"));
    users.add(userRow(operatorUser, "operator", "Ковальчук", "Олена", "Петрівна")
                  .text(QStringLiteral("0441234501"))
                  .numbers({operatorUser, operatorsShopGroup, 1}));
    users.add(userRow(viewer, "viewer", "Мельник", "Андрій", "Іванович")
                  .text(QStringLiteral("0441234502"))
                  .numbers({viewer, 1, 0}));
    return users.finish();
}

struct Level
{
    const char *name;
    int rate;
    qint64 threshold;
    bool isAutomatic = true;
    bool isBlocked = false;
};

/// The first level is the anonymous client's; those behind the ladder are given by hand.
const QVector<Level> levels{{"Без знижки", 0, 0},
                            {"Початкова 2 %", 200, 100000},
                            {"Срібна 3,5 %", 350, 500000},
                            {"Золота 5 %", 500, 1500000},
                            {"Платинова 7 %", 700, 5000000},
                            {"Персонал 10 %", 1000, 0, false},
                            {"Святкова 15 %", 1500, 0, false, true}};

bool writeLevels(const Db &db)
{
    BulkInsert rows(db, QStringLiteral("procent(id,name,discount,sum,auto,block)"));
    for (int i = 0; i < levels.size(); ++i) {
        rows.add(SqlRow()
                     .number(i + 1)
                     .text(QString::fromUtf8(levels.at(i).name))
                     .numbers({levels.at(i).rate, levels.at(i).threshold, levels.at(i).isAutomatic ? 1 : 0,
                               levels.at(i).isBlocked ? 1 : 0}));
    }
    return rows.finish();
}

int levelFor(qint64 purchases)
{
    int level = 0;
    while (level + 1 < levels.size() && levels.at(level + 1).isAutomatic &&
           levels.at(level + 1).threshold <= purchases)
        ++level;
    return level;
}

QString personName(Dice *dice)
{
    static const QStringList surnames =
        QStringLiteral("Шевченко|Бондаренко|Ткаченко|Кравченко|Олійник|Лисенко|Поліщук|Савчук|Руденко|Мороз|"
                       "Марченко|Петренко|Клименко|Гнатюк|В'юн|Довженко")
            .split(QLatin1Char('|'));
    static const QStringList names =
        QStringLiteral("Ірина|Оксана|Наталія|Марія|Ганна|Юлія|Олександр|Сергій|Микола|Тарас|Євген|Ольга")
            .split(QLatin1Char('|'));
    const QString &surname = surnames.at(dice->below(surnames.size()));
    return surname + QLatin1Char(' ') + names.at(dice->below(names.size()));
}

void addPerson(SqlRow *row, qint64 id, const QDate &until, Dice *dice)
{
    if (dice->percent(30)) { // a card that nobody has filled in yet
        row->null().null().null().number(0);
        return;
    }
    row->text(personName(dice)).text(QStringLiteral("+38067%1").arg(1000000 + dice->below(9000000)));
    if (dice->percent(40))
        row->text(QStringLiteral("client%1@example.com").arg(id % 1000000));
    else
        row->null();
    row->raw(until.addDays(-dice->between(18 * 365, 80 * 365)).toString(QStringLiteral("yyyyMMdd")));
}
} // namespace

QString hashedPassword(const QString &password)
{
    return QString::fromLatin1(QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString cardKey(int user)
{
    const QString digits = QString::number(100000000 + user);
    return digits + eanCheckDigit(QStringLiteral("220") + digits, 12);
}

int userOf(const Shop &shop)
{
    return shop.group == operatorsShopGroup ? operatorUser : administrator;
}

bool fillUsers(const Db &db, const Chain &chain)
{
    return writeRights(db) && writeVisibleShops(db, chain) && writeUsers(db);
}

bool fillCards(const Db &db, Chain *chain)
{
    if (!writeLevels(db))
        return false;
    Dice dice(chain->plan.seed, 1);
    BulkInsert rows(db,
                    QStringLiteral("clients(id,id_procent,bonus_summ,summ,bonus_discount,fiksed,group_shop,"
                                   "name,telephone,email,birthday,block,send)"));
    rows.add(SqlRow().numbers({1, 1, 0, 0, 0, 1, 1}).null().null().null().numbers({0, 0, 0}));
    for (int i = 0; i < chain->plan.cards; ++i) {
        const qint64 id = 2200000001 + i;
        const qint64 purchases = static_cast<qint64>(dice.below(3000)) * dice.below(3000);
        const bool bonus = dice.percent(20);
        const int level = levelFor(purchases);
        SqlRow row;
        row.numbers(
            {id, level + 1, bonus ? purchases / 100 : 0, purchases, bonus ? 1 : 0, dice.percent(10) ? 1 : 0});
        row.number(1 + dice.below(chain->plan.shopGroups + 1));
        addPerson(&row, id, chain->plan.until, &dice);
        rows.add(row.numbers({dice.percent(2) ? 1 : 0, 1}));
        if (!bonus && level > 0)
            chain->cards.append({id, levels.at(level).rate});
    }
    return rows.finish();
}

bool setAdministratorPassword(const Db &db)
{
    Transaction transaction(db);
    return transaction &&
           db.run(QStringLiteral("UPDATE users SET pass=:pass,key_prem=:key WHERE id=:id"),
                  {{QStringLiteral(":pass"), hashedPassword(QStringLiteral("admin"))},
                   {QStringLiteral(":key"), cardKey(administrator)},
                   {QStringLiteral(":id"), static_cast<int>(administrator)}}) &&
           transaction.commit();
}
} // namespace demo
