#include "bulkinsert.h"
#include "stages.h"

#include <QVector>

namespace demo {
namespace {
/// Permission groups beside those of the people who sell, and their rights. Whoever has left is in the last
/// one, which lets nobody in.
enum Group { merchandisers = 4, accountants = 5, gone = 6 };
constexpr int entry = 0;
constexpr int viewOnly = 2;

struct GroupRight
{
    Group group;
    int right;
    int value;
};

const QVector<GroupRight> groupRights{{merchandisers, entry, 1},
                                      {merchandisers, 10, viewOnly},
                                      {merchandisers, 13, 1},
                                      {merchandisers, 14, 1},
                                      {merchandisers, 15, 1},
                                      {merchandisers, 27, 1},
                                      {merchandisers, 100, 1},
                                      {merchandisers, 103, 1},
                                      {merchandisers, 72, viewOnly},
                                      {accountants, entry, 1},
                                      {accountants, 10, viewOnly},
                                      {accountants, 11, viewOnly},
                                      {accountants, 20, viewOnly},
                                      {accountants, 23, 1},
                                      {accountants, 70, viewOnly},
                                      {accountants, 71, viewOnly},
                                      {accountants, 72, viewOnly},
                                      {accountants, 24, viewOnly},
                                      {gone, entry, 0}};

struct Person
{
    const char *login;
    const char *surname;
    const char *name;
    const char *patronymic;
    const char *telephone;
    Group group;
    int shopGroup;
    int shop;
};

const QVector<Person> people{
    {"bondar", "Бондар", "Ірина", "Василівна", "0441234503", merchandisers, 1, 0},
    {"hrytsenko", "Гриценко", "Тарас", "Олегович", "0671234504", merchandisers, 2, 1},
    {"sydorenko", "Сидоренко", "Марія", "Степанівна", "0501234505", accountants, 1, 0},
    {"yizhak", "Їжакевич", "Ганна", "Юріївна", nullptr, accountants, 2, 1},
    {"shvets", "Швець", "Микола", nullptr, "0931234507", gone, 1, 0},
};
constexpr int firstPerson = 4;

SqlRow &textOrNull(SqlRow *row, const char *text)
{
    return text == nullptr ? row->null() : row->text(QString::fromUtf8(text));
}

SqlRow rowOf(const Person &person, int id)
{
    SqlRow row;
    const QString login = QLatin1String(person.login);
    row.number(id).text(login).text(hashedPassword(login)).text(cardKey(id));
    row.text(QString::fromUtf8(person.name)).text(QString::fromUtf8(person.surname));
    textOrNull(&row, person.patronymic);
    textOrNull(&row, person.telephone);
    return row.numbers({person.group, person.shopGroup, person.shop});
}

bool writeGroups(const Db &db)
{
    BulkInsert groups(db, QStringLiteral("group_premission(id,name)"));
    groups.add(SqlRow().number(merchandisers).text(QStringLiteral("Товарознавці")));
    groups.add(SqlRow().number(accountants).text(QStringLiteral("Бухгалтерія")));
    groups.add(SqlRow().number(gone).text(QStringLiteral("Звільнені")));
    BulkInsert rights(db, QStringLiteral("lst_permis(id_g_prem,id_prem,permission)"));
    for (const GroupRight &right : groupRights)
        rights.add(SqlRow().numbers({right.group, right.right, right.value}));
    BulkInsert visible(db, QStringLiteral("lst_group(id_g_prem,id_group)"));
    for (const Group group : {merchandisers, accountants})
        visible.add(SqlRow().numbers({group, 2}));
    return groups.finish() && rights.finish() && visible.finish();
}
} // namespace

bool fillStaff(const Db &db)
{
    if (!writeGroups(db))
        return false;
    BulkInsert users(db,
                     QStringLiteral("users(id,login,pass,key_prem,name,surname,surname2,telephone,id_g_prem,"
                                    "id_group,id_shop)"));
    for (int i = 0; i < people.size(); ++i)
        users.add(rowOf(people.at(i), firstPerson + i));
    return users.finish();
}

bool fillDevices(const Db &db)
{
    const struct
    {
        const char *name;
        int type; ///< 0: none
    } devices[] = {{"Робоче місце товарознавця", 1},
                   {"Робоче місце бухгалтера", 1},
                   {"РРО резервний, склад", 2},
                   {"Камера над касами", 3},
                   {"Камера складу", 3},
                   {"Відеосервер центрального офісу", 4},
                   {"Сховище копій", 5},
                   {"Сканер-термінал", 0}};
    BulkInsert rows(db, QStringLiteral("devices(name,id_type_device)"));
    for (const auto &device : devices) {
        SqlRow row;
        row.text(QString::fromUtf8(device.name));
        rows.add(device.type == 0 ? row.null() : row.number(device.type));
    }
    return rows.finish();
}
} // namespace demo
