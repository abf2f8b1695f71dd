#include "bench.h"

#include "schema.h"

QString goodsStatement()
{
    return QStringLiteral(
        "SELECT goods.id, dk_shc.shtrihcod, goods.name,goods.price, type_goods.name, group_goods.name, tax.name, "
        "ynbon_disk.name, ynblock.name FROM goods LEFT JOIN dk_shc ON goods.id=dk_shc.id_goods "
        "LEFT JOIN type_goods ON goods.type=type_goods.id LEFT JOIN group_goods ON goods.group_g=group_goods.id "
        "LEFT JOIN tax ON goods.tax=tax.id LEFT JOIN yesno AS ynbon_disk ON goods.bonus_disk=ynbon_disk.id "
        "LEFT JOIN yesno AS ynblock ON goods.block=ynblock.id");
}

QString cardsStatement()
{
    return QStringLiteral(
        "SELECT clients.id,procent.name,clients.bonus_summ,clients.summ,discbonus.name,yesno2.name,"
        "group_shop.name,clients.name,clients.telephone,clients.email,clients.birthday,yesno3.name,clients.info,"
        "yesno4.name FROM clients LEFT JOIN procent ON clients.id_procent=procent.id "
        "LEFT JOIN discbonus ON clients.bonus_discount=discbonus.id "
        "LEFT JOIN yesno AS yesno2 ON clients.fiksed=yesno2.id "
        "LEFT JOIN group_shop ON clients.group_shop=group_shop.id "
        "LEFT JOIN yesno AS yesno3 ON clients.block=yesno3.id LEFT JOIN yesno AS yesno4 ON clients.send=yesno4.id");
}

bool fillDatabase(const Bench &bench)
{
    const Db db = bench.db();
    const QString goods = QString::number(bench.goods);
    const QString cards = QString::number(bench.cards);
    // Every second card belongs to somebody; the others lie in the shop. Of the people one in three left
    // an address.
    return createSchema(db) && db.run(QStringLiteral("SET SESSION foreign_key_checks=0, unique_checks=0")) &&
           db.run(QStringLiteral(
               "INSERT IGNORE INTO group_goods(id,name) SELECT seq,CONCAT('Група товарів ',seq) "
               "FROM seq_1_to_20")) &&
           db.run(
               QStringLiteral(
                   "INSERT INTO goods(id,name,name_short,price,type,group_g,tax,bonus_disk,block) SELECT seq,"
                   "CONCAT(ELT(1+seq%6,'Молоко','Хліб','Сир','Ґудзик','Їжачок','Єдність'),' ',"
                   "ELT(1+seq%5,'пшеничний','український','знежирений','домашній','особливий'),' ',seq*7919%9973),"
                   "'коротка',seq*7919%100000,seq%2,1+seq%20,1+seq%5,seq%2,seq%50=0 FROM seq_1_to_") +
               goods) &&
           db.run(QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) SELECT seq,4820000000000+seq*13 "
                                 "FROM seq_1_to_") +
                  goods) &&
           db.run(
               QStringLiteral(
                   "INSERT INTO clients(id,bonus_summ,summ,bonus_discount,fiksed,group_shop,name,telephone,"
                   "email,birthday,block,info,send) SELECT 1000000000+seq,seq*7919%100000,seq*104729%10000000,"
                   "seq%3=0,seq%17=0,1,IF(seq%2,CONCAT(ELT(1+seq*31%7,'Іваненко','Ґудзь','Єрмоленко','Їжакевич',"
                   "'Шевчук','Петренко','Яременко'),' ',ELT(1+seq*17%5,'Олена','Іван','Наталія','Юрій','Єва'),' ',"
                   "seq*7919%9973),NULL),IF(seq%2,CONCAT('067',LPAD(seq*7919%10000000,7,'0')),NULL),"
                   "IF(seq%6=1,CONCAT('client',seq*7919%1000003,'@example.ua'),NULL),"
                   "DATE_ADD('1950-01-01',INTERVAL seq*31%20000 DAY),seq%101=0,NULL,seq%2 FROM seq_1_to_") +
               cards) &&
           db.run(QStringLiteral("ANALYZE TABLE goods,dk_shc,clients"));
}
