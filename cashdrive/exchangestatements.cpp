#include "exchangestatements.h"

QString exchangeGroupsSql(const QStringList &groups)
{
    QString sql = QStringLiteral("SELECT name FROM group_shop WHERE id<>1 AND (id=0");
    for (const QString &group : groups)
        sql += QStringLiteral(" OR id=") + group;
    return sql + QLatin1Char(')');
}

QString exchangeShopsSql()
{
    return QStringLiteral("SELECT address FROM shops WHERE (group_shop IN (SELECT id FROM group_shop WHERE "
                          "name=:name) or group_shop=1) AND block=0");
}

QString exchangeKassaSql()
{
    return QStringLiteral("SELECT advertising_str FROM kassa WHERE id_shop=(SELECT id FROM shops WHERE "
                          "address=:name) AND block=0 AND cashdrive_code<>'000'");
}

ExchangeStatement registersOf(const ExchangePlace &place)
{
    const QString kass = QStringLiteral(":kassa");
    const QString shop = QStringLiteral(":addres");
    if (!place.kass.isEmpty())
        return {QStringLiteral("SELECT kassa.cashdrive_code FROM kassa LEFT JOIN shops ON "
                               "kassa.id_shop=shops.id WHERE kassa.block=0 AND shops.block=0 AND "
                               "advertising_str=:kassa AND shops.address=:addres AND "
                               "kassa.cashdrive_code<>'000'"),
                {{kass, place.kass}, {shop, place.shop}}};
    if (!place.shop.isEmpty())
        return {QStringLiteral("SELECT kassa.cashdrive_code FROM kassa LEFT JOIN shops ON "
                               "kassa.id_shop=shops.id WHERE kassa.block=0 AND shops.block=0 AND "
                               "shops.address=:addres AND kassa.cashdrive_code<>'000'"),
                {{shop, place.shop}}};
    if (!place.group.isEmpty())
        return {QStringLiteral("SELECT kassa.cashdrive_code FROM kassa LEFT JOIN shops ON "
                               "kassa.id_shop=shops.id LEFT JOIN group_shop ON "
                               "group_shop.id=shops.group_shop WHERE kassa.block=0 AND shops.block=0 AND "
                               "group_shop.name=:group AND kassa.cashdrive_code<>'000'"),
                {{QStringLiteral(":group"), place.group}}};
    return {allRegistersSql(), {}};
}

QString allRegistersSql()
{
    return QStringLiteral("SELECT kassa.cashdrive_code,shops.group_shop FROM kassa LEFT JOIN shops ON "
                          "kassa.id_shop=shops.id WHERE kassa.block=0 AND shops.block=0 AND "
                          "kassa.cashdrive_code<>'000' ORDER BY shops.group_shop,kassa.cashdrive_code");
}

ExchangeStatement cardsOf(const QString &group)
{
    return {QStringLiteral("SELECT clients.id,clients.id_procent FROM clients LEFT JOIN group_shop ON "
                           "clients.group_shop=group_shop.id WHERE clients.block=0 AND "
                           "(group_shop.name=:group OR clients.group_shop=1)"),
            {{QStringLiteral(":group"), group}}};
}

QString allCardsSql()
{
    return QStringLiteral("SELECT id,id_procent,block,group_shop,UNIX_TIMESTAMP(data_update) FROM clients");
}

QString changedCardsSql()
{
    return allCardsSql() + QStringLiteral(" WHERE send=1");
}

QString articlesSql(qint64 since)
{
    const QString all =
        QStringLiteral("SELECT id,IFNULL(name_short,name),price,tax,IFNULL(type,1)=0,block FROM goods");
    return since == 0 ? all : all + QStringLiteral(" WHERE data_update>=FROM_UNIXTIME(%1)").arg(since);
}

QString levelsSql()
{
    return QStringLiteral("SELECT id,name,discount,block FROM procent ORDER BY id");
}
