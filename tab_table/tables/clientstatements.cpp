#include "clientstatements.h"

QString clientColumns()
{
    return QStringLiteral(
        "clients.id,procent.name,clients.bonus_summ,clients.summ,discbonus.name,yesno2.name,group_shop.name,"
        "clients.name,clients.telephone,clients.email,clients.birthday,yesno3.name,clients.info,yesno4.name");
}

QString clientTables()
{
    return QStringLiteral(
        "clients LEFT JOIN procent ON clients.id_procent=procent.id LEFT JOIN discbonus ON "
        "clients.bonus_discount=discbonus.id LEFT JOIN yesno AS yesno2 ON clients.fiksed=yesno2.id LEFT JOIN "
        "group_shop ON clients.group_shop=group_shop.id LEFT JOIN yesno AS yesno3 ON clients.block=yesno3.id "
        "LEFT JOIN yesno AS yesno4 ON clients.send=yesno4.id");
}
