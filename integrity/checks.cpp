#include "checks.h"

#include <QCoreApplication>
#include <QHash>
#include <iterator>

namespace integrity {
namespace {
constexpr CheckLead noPage = {nullptr, nullptr};
constexpr CheckLead receipts = {"mz_cheks", nullptr};
constexpr CheckLead shift = {"mt_z_zvits", "z_zvit.id_kass={kass} AND z_zvit.id_zzvit={zvit}"};
constexpr CheckLead shifts = {"mt_z_zvits", "z_zvit.id_kass={kass}"};
constexpr CheckLead goods = {"mt_goods", "goods.id IN ({goods})"};
constexpr CheckLead stock = {"mt_goods_shops", "goods_shop.id_shop={shop} AND goods_shop.id_goods={goods}"};
constexpr CheckLead anyTable = {"{page}", "{tableName}.{columnName}={id}"};
constexpr CheckLead card = {"mt_clients", "clients.id={card}"};
constexpr CheckLead user = {"mc_users", "users.id={user}"};

/// For 13 and 8 digits: what the last one has to be.
#define EAN13_DIGIT                                                                                       \
    "MOD(10-MOD(SUBSTR(shtrihcod,1,1)+SUBSTR(shtrihcod,3,1)+SUBSTR(shtrihcod,5,1)+SUBSTR(shtrihcod,7,1)+" \
    "SUBSTR(shtrihcod,9,1)+SUBSTR(shtrihcod,11,1)+3*(SUBSTR(shtrihcod,2,1)+SUBSTR(shtrihcod,4,1)+"        \
    "SUBSTR(shtrihcod,6,1)+SUBSTR(shtrihcod,8,1)+SUBSTR(shtrihcod,10,1)+SUBSTR(shtrihcod,12,1)),10),10)"
#define EAN8_DIGIT                                                                                            \
    "MOD(10-MOD(3*(SUBSTR(shtrihcod,1,1)+SUBSTR(shtrihcod,3,1)+SUBSTR(shtrihcod,5,1)+SUBSTR(shtrihcod,7,1))+" \
    "SUBSTR(shtrihcod,2,1)+SUBSTR(shtrihcod,4,1)+SUBSTR(shtrihcod,6,1),10),10)"

using Scope = CheckScope;

const Check table[] = {
    // What the tables are.
    {"schema_table", QT_TRANSLATE_NOOP("Integrity", "Таблиці бази"), Scope::Schema, "", "{words}",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Створіть її: «Сервіс», «Створити таблиці». Якщо вона була раніше, спершу відновіть її з копії."),
     noPage},
    {"schema_column", QT_TRANSLATE_NOOP("Integrity", "Колонки таблиць"), Scope::Schema, "", "{words}",
     QT_TRANSLATE_NOOP("Integrity",
                       "Передайте адміністратору бази: інші програми мережі читають ті самі колонки."),
     noPage},
    {"schema_key", QT_TRANSLATE_NOOP("Integrity", "Ключі таблиць"), Scope::Schema, "", "{words}",
     QT_TRANSLATE_NOOP("Integrity",
                       "Передайте адміністратору бази: без ключа з'являються двійники, із зайвим – відмови."),
     noPage},
    {"schema_reference", QT_TRANSLATE_NOOP("Integrity", "Зовнішні ключі"), Scope::Schema, "", "{words}",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Передайте адміністратору бази: без ключа залишаються записи, що ні на що не вказують."),
     noPage},
    {"schema_engine", QT_TRANSLATE_NOOP("Integrity", "Рушії таблиць"), Scope::Schema, "", "{words}",
     QT_TRANSLATE_NOOP("Integrity",
                       "Зробіть копію бази і переведіть таблицю: ALTER TABLE {table} ENGINE=InnoDB."),
     noPage},
    {"schema_collation", QT_TRANSLATE_NOOP("Integrity", "Кодування і порівняння"), Scope::Schema, "",
     "{words}",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Зробіть копію бази і переведіть таблицю: ALTER TABLE {table} CONVERT TO CHARACTER SET utf8mb4."),
     noPage},

    // What each register has written.
    {"shift_sums", QT_TRANSLATE_NOOP("Integrity", "Суми змін за чеками"), Scope::Shift,
     "shifts=1 AND rows_>0 AND ({differ})", QT_TRANSLATE_NOOP("Integrity", "Зміна № {zvit}: {sums}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Звірте з Z-звітом каси: або у базі бракує чеків, або зміну змінено поза програмою."),
     shift},
    {"shift_empty", QT_TRANSLATE_NOOP("Integrity", "Зміни без чеків"), Scope::Shift,
     "shifts=1 AND rows_=0 AND ({differ})",
     QT_TRANSLATE_NOOP("Integrity", "У зміни № {zvit} є суми, а чеків немає: {sums}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Чеки зміни не передано або видалено: відновіть їх з каси чи з копії бази."),
     shift},
    {"shift_missing", QT_TRANSLATE_NOOP("Integrity", "Чеки без зміни"), Scope::Shift, "shifts=0",
     QT_TRANSLATE_NOOP("Integrity",
                       "Чеки зміни № {zvit} (від № {chek}, рядків: {rows_}) є, а самої зміни немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відновіть зміну з копії бази: без неї цих чеків немає у Z-звітах."),
     receipts},
    {"shift_place", QT_TRANSLATE_NOOP("Integrity", "Магазин зміни"), Scope::Shift,
     "shifts>0 AND rows_>0 AND (firstShop<>shop OR lastShop<>shop)",
     QT_TRANSLATE_NOOP("Integrity",
                       "Зміна № {zvit} записана в одному магазині, а її чеки – в іншому (№ {otherShop})."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Перевірте, де стояла каса: звіти магазинів рахують цю зміну і її чеки окремо."),
     receipts},
    {"shift_undated", QT_TRANSLATE_NOOP("Integrity", "Зміни без стану"), Scope::Shift, "undated>0",
     QT_TRANSLATE_NOOP("Integrity", "У зміни № {zvit} немає часу: вона ані відкрита, ані закрита."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Передайте адміністратору бази: нової зміни з таким номером каса не відкриє."),
     shift},
    {"shift_old", QT_TRANSLATE_NOOP("Integrity", "Зміни, відкриті довше доби"), Scope::Shift,
     "isOpen>0 AND began<'{dayAgo}'",
     QT_TRANSLATE_NOOP("Integrity", "Зміна № {zvit} відкрита з {began:time}."),
     QT_TRANSLATE_NOOP("Integrity", "Закрийте зміну Z-звітом."), shift},
    {"z_receipt", QT_TRANSLATE_NOOP("Integrity", "Z-чеки змін"), Scope::Shift,
     "shifts=1 AND rows_>0 AND undated=0 AND IF(isOpen,zRows>0,zRows=0 OR (zRows=1 AND zSum<>net))",
     QT_TRANSLATE_NOOP("Integrity", "Зміна № {zvit}: {zReceipt}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Звірте із Z-звітом каси: закриття зміни записано не повністю або змінено."),
     receipts},
    {"z_double", QT_TRANSLATE_NOOP("Integrity", "Номери змін двічі"), Scope::Shift, "shifts>1 OR zRows>1",
     QT_TRANSLATE_NOOP("Integrity", "Номер зміни {zvit} є на касі двічі: змін {shifts}, Z-чеків {zRows}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Передайте адміністратору бази: дві програми закрили на касі зміну з одним номером."),
     receipts},
    {"payment", QT_TRANSLATE_NOOP("Integrity", "Оплата чеків"), Scope::Receipt,
     "returns=0 AND (goodsRows>0 OR offRows>0 OR payments>0) AND (payments=0 OR goods-off<>due OR paid<>due)",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Чек № {chek}: товари {goods:money}, знижка {off:money}, до оплати {due:money}, оплачено {paid:money}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Звірте з чеком каси: товари без знижки, сума до оплати і оплачене мають бути рівні."),
     receipts},
    {"chek_double", QT_TRANSLATE_NOOP("Integrity", "Номери чеків двічі"), Scope::Receipt,
     "zvit<>lastZvit OR kinds>1",
     QT_TRANSLATE_NOOP("Integrity", "Під номером {chek} на касі записано кілька документів."),
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Дві програми писали на касі водночас: звірте обидва документи з контрольною стрічкою."),
     receipts},
    {"chek_shops", QT_TRANSLATE_NOOP("Integrity", "Номери чеків у двох магазинах"), Scope::Moved,
     "SELECT MIN(id_shop) AS shop,{kass} AS kass,id_chek AS chek,MIN(id_zvit) AS zvit,MAX(id_shop) AS otherShop "
     "FROM cheks WHERE id_kass={kass} AND id_shop IN ({shops}) GROUP BY id_chek HAVING otherShop<>shop",
     QT_TRANSLATE_NOOP("Integrity", "Чек № {chek} цієї каси є і в іншому магазині (№ {otherShop})."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Номери каси не мають повторюватись: звірте обидва чеки з контрольною стрічкою."),
     receipts},
    {"chek_gap", QT_TRANSLATE_NOOP("Integrity", "Пропущені номери чеків"), Scope::Register,
     "SELECT shop,{kass} AS kass,chek,zvit,nextChek FROM (SELECT shop,chek,zvit,LEAD(chek) OVER (ORDER BY chek) AS "
     "nextChek FROM (SELECT MIN(id_shop) AS shop,id_chek AS chek,MIN(id_zvit) AS zvit FROM cheks WHERE id_kass={kass} "
     "AND id_shop IN ({shops}) GROUP BY id_chek) written) numbers WHERE nextChek>chek+1",
     QT_TRANSLATE_NOOP("Integrity", "Після чека № {chek} відразу йде № {nextChek}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Між ними чеки видалено або не передано: звірте з контрольною стрічкою каси."),
     receipts},
    {"z_gap", QT_TRANSLATE_NOOP("Integrity", "Пропущені номери змін"), Scope::Database,
     "SELECT shop,kass,zvit,nextZvit FROM (SELECT id_shop AS shop,id_kass AS kass,id_zzvit AS zvit,LEAD(id_zzvit) OVER "
     "(PARTITION BY id_kass ORDER BY id_zzvit) AS nextZvit FROM z_zvit) numbers WHERE nextZvit>zvit+1",
     QT_TRANSLATE_NOOP("Integrity", "Після зміни № {zvit} відразу йде № {nextZvit}."),
     QT_TRANSLATE_NOOP("Integrity", "Між ними зміни видалено або не передано: звірте із Z-звітами каси."),
     shifts},
    {"open_many",
     QT_TRANSLATE_NOOP("Integrity", "Кілька відкритих змін на касі"),
     Scope::Database,
     "SELECT MAX(id_shop) AS shop,id_kass AS kass,COUNT(*) AS count,GROUP_CONCAT(id_zzvit ORDER BY id_zzvit "
     "SEPARATOR ', ') AS numbers FROM z_zvit WHERE data_time=0 GROUP BY id_kass HAVING count>1",
     QT_TRANSLATE_NOOP("Integrity", "На касі відкрито кілька змін: № {numbers}."),
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Відкритою має бути одна: закрийте решту Z-звітом або зверніться до адміністратора бази."),
     {"mt_z_zvits", "z_zvit.id_kass={kass} AND z_zvit.data_time=0"}},
    {"chek_kass", QT_TRANSLATE_NOOP("Integrity", "Чеки кас, яких немає"), Scope::Database,
     "SELECT found.id_shop AS shop,found.id_kass AS kass,found.low AS chek,found.high FROM (SELECT id_shop,id_kass,"
     "MIN(id_chek) AS low,MAX(id_chek) AS high FROM cheks GROUP BY id_shop,id_kass) found LEFT JOIN kassa ON "
     "kassa.id=found.id_kass WHERE kassa.id IS NULL",
     QT_TRANSLATE_NOOP("Integrity", "Є чеки № {chek}–{high} каси № {kass}, а самої каси у базі немає."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Відновіть касу з копії бази: без неї її чеків немає у звітах за касами."),
     receipts},

    // Stock.
    {"stock_negative", QT_TRANSLATE_NOOP("Integrity", "Від'ємні залишки"), Scope::Database,
     "SELECT goods_shop.id_shop AS shop,goods_shop.id_goods AS goods,goods.name,count_showroom,count_syllable "
     "FROM goods_shop LEFT JOIN goods ON goods.id=goods_shop.id_goods WHERE count_showroom<0 OR count_syllable<0",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Товар {goods} «{name}»: у залі {count_showroom:quantity}, на складі {count_syllable:quantity}."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Запишіть прийом, переміщення чи передачу, яких бракує, або перерахуйте товар."),
     stock},
    {"stock_goods", QT_TRANSLATE_NOOP("Integrity", "Залишки товарів, яких немає"), Scope::Database,
     "SELECT goods_shop.id_shop AS shop,goods_shop.id_goods AS goods,count_showroom,count_syllable FROM goods_shop "
     "LEFT JOIN goods ON goods.id=goods_shop.id_goods WHERE goods.id IS NULL",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Є залишок товару № {goods} (у залі {count_showroom:quantity}, на складі {count_syllable:quantity}), а "
         "самого товару немає."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Відновіть товар з копії бази або попросіть адміністратора бази прибрати залишок."),
     stock},
    {"stock_shop",
     QT_TRANSLATE_NOOP("Integrity", "Залишки магазинів, яких немає"),
     Scope::Database,
     "SELECT goods_shop.id_shop AS shop,COUNT(*) AS count,MIN(goods_shop.id_goods) AS goods FROM goods_shop LEFT "
     "JOIN shops ON shops.id=goods_shop.id_shop WHERE shops.id IS NULL GROUP BY goods_shop.id_shop",
     QT_TRANSLATE_NOOP("Integrity",
                       "Є залишки магазину № {shop} (товарів: {count}), а самого магазину немає."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Відновіть магазин з копії бази або попросіть адміністратора бази прибрати залишки."),
     {"mt_goods_shops", "goods_shop.id_shop={shop}"}},
    {"stock_action", QT_TRANSLATE_NOOP("Integrity", "Акції, яких немає"), Scope::Database,
     "SELECT goods_shop.id_shop AS shop,goods_shop.id_goods AS goods,goods_shop.id_action AS action FROM "
     "goods_shop LEFT JOIN action ON action.id=goods_shop.id_action WHERE action.id IS NULL",
     QT_TRANSLATE_NOOP("Integrity", "Товар № {goods} має акцію № {action}, якої немає."),
     QT_TRANSLATE_NOOP("Integrity", "Призначте товару іншу акцію в «Управлінні акціями»."), stock},

    // Goods.
    {"barcode_digit", QT_TRANSLATE_NOOP("Integrity", "Контрольні цифри штрихкодів"), Scope::Database,
     "SELECT id_goods AS goods,shtrihcod AS code,goods.name FROM dk_shc LEFT JOIN goods ON goods.id=id_goods WHERE "
     "NOT (CASE WHEN shtrihcod NOT REGEXP '^[0-9]+$' THEN 0 WHEN LENGTH(shtrihcod)=13 THEN SUBSTR(shtrihcod,13,1)=" EAN13_DIGIT
     " WHEN LENGTH(shtrihcod)=8 THEN SUBSTR(shtrihcod,8,1)=" EAN8_DIGIT " ELSE 0 END)",
     QT_TRANSLATE_NOOP("Integrity",
                       "Штрихкод {code} товару {goods} «{name}» не має вірної контрольної цифри."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Проскануйте товар ще раз і виправте код: такого коду сканер не прочитає."),
     goods},
    {"barcode_double", QT_TRANSLATE_NOOP("Integrity", "Штрихкоди двічі"), Scope::Database,
     "SELECT GROUP_CONCAT(DISTINCT id_goods ORDER BY id_goods SEPARATOR ', ') AS goods,GROUP_CONCAT(DISTINCT "
     "shtrihcod ORDER BY shtrihcod SEPARATOR ', ') AS codes FROM dk_shc GROUP BY TRIM(LEADING '0' FROM "
     "TRIM(shtrihcod)) HAVING COUNT(*)>1",
     QT_TRANSLATE_NOOP("Integrity", "Той самий штрихкод ({codes}) мають товари № {goods}."),
     QT_TRANSLATE_NOOP("Integrity", "Залиште код в одного товару: каса продає той, що знайде першим."),
     goods},

    // Prices, cards, users.
    {"price_goods", QT_TRANSLATE_NOOP("Integrity", "Ціни товарів, яких немає"), Scope::Database,
     "SELECT prices.id_shop AS shop,prices.id_goods AS goods,prices.price FROM prices LEFT JOIN goods ON "
     "goods.id=prices.id_goods WHERE goods.id IS NULL",
     QT_TRANSLATE_NOOP("Integrity", "Є ціна {price:money} товару № {goods}, а самого товару немає."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Відновіть товар з копії бази або попросіть адміністратора бази прибрати ціну."),
     goods},
    {"price_shop", QT_TRANSLATE_NOOP("Integrity", "Ціни магазинів, яких немає"), Scope::Database,
     "SELECT prices.id_shop AS shop,prices.id_goods AS goods,goods.name,prices.price FROM prices LEFT JOIN shops ON "
     "shops.id=prices.id_shop LEFT JOIN goods ON goods.id=prices.id_goods WHERE shops.id IS NULL AND "
     "prices.id_shop<>0",
     QT_TRANSLATE_NOOP("Integrity",
                       "Товар {goods} «{name}» має ціну {price:money} для магазину № {shop}, якого немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте товар і приберіть цю ціну."), goods},
    {"price_group", QT_TRANSLATE_NOOP("Integrity", "Ціни груп магазинів, яких немає"), Scope::Database,
     "SELECT prices.id_shop AS shop,prices.id_goods AS goods,goods.name,prices.price,prices.id_group AS groupId "
     "FROM prices LEFT JOIN group_shop ON group_shop.id=prices.id_group LEFT JOIN goods ON "
     "goods.id=prices.id_goods WHERE group_shop.id IS NULL",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Товар {goods} «{name}» має ціну {price:money} для групи магазинів № {groupId}, якої немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте товар і виберіть для цієї ціни іншу групу."), goods},
    {"card_level", QT_TRANSLATE_NOOP("Integrity", "Картки без рівня знижки"), Scope::Database,
     "SELECT clients.id AS card,clients.id_procent AS level FROM clients LEFT JOIN procent ON "
     "procent.id=clients.id_procent WHERE procent.id IS NULL",
     QT_TRANSLATE_NOOP("Integrity", "Картка {card} має рівень знижки № {level}, якого немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте картку і виберіть їй рівень."), card},
    {"card_group", QT_TRANSLATE_NOOP("Integrity", "Картки груп, яких немає"), Scope::Database,
     "SELECT clients.id AS card,clients.group_shop AS groupId FROM clients LEFT JOIN group_shop ON "
     "group_shop.id=clients.group_shop WHERE group_shop.id IS NULL",
     QT_TRANSLATE_NOOP("Integrity", "Картка {card} належить до групи магазинів № {groupId}, якої немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте картку і виберіть їй групу."), card},
    {"user_group", QT_TRANSLATE_NOOP("Integrity", "Користувачі без групи прав"), Scope::Database,
     "SELECT users.id AS user,users.login,users.id_g_prem AS groupId FROM users LEFT JOIN group_premission ON "
     "group_premission.id=users.id_g_prem WHERE group_premission.id IS NULL",
     QT_TRANSLATE_NOOP(
         "Integrity",
         "Користувач «{login}» належить до групи прав № {groupId}, якої немає: прав у нього немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте користувача і виберіть йому групу прав."), user},
    {"user_shop", QT_TRANSLATE_NOOP("Integrity", "Користувачі без магазину"), Scope::Database,
     "SELECT users.id AS user,users.login,users.id_shop AS shop FROM users LEFT JOIN shops ON "
     "shops.id=users.id_shop WHERE shops.id IS NULL AND users.id_shop<>0",
     QT_TRANSLATE_NOOP("Integrity", "Користувач «{login}» працює в магазині № {shop}, якого немає."),
     QT_TRANSLATE_NOOP("Integrity", "Відкрийте користувача і виберіть йому магазин."), user},
    {"reference", QT_TRANSLATE_NOOP("Integrity", "Інші посилання в нікуди"), Scope::References,
     // Those with a check of their own.
     "goods_shop.id_shop goods_shop.id_goods goods_shop.id_action prices.id_goods prices.id_group clients.id_procent "
     "clients.group_shop users.id_g_prem z_zvit.id_kass",
     QT_TRANSLATE_NOOP("Integrity",
                       "У таблиці «{tableName}» є записи, де {columnName}={id}, а в таблиці «{target}» "
                       "такого запису немає."),
     QT_TRANSLATE_NOOP("Integrity",
                       "Відновіть запис з копії бази або попросіть адміністратора бази виправити те, що на "
                       "нього вказує."),
     anyTable},
};
} // namespace

const QVector<Check> &integrityChecks()
{
    static const QVector<Check> checks(std::begin(table), std::end(table));
    return checks;
}

int checkNumber(const QString &key)
{
    static const QHash<QString, int> numbers = [] {
        QHash<QString, int> all;
        for (const Check &check : integrityChecks())
            all.insert(QLatin1String(check.key), all.size());
        return all;
    }();
    return numbers.value(key, -1);
}
} // namespace integrity
