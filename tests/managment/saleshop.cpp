#include "saleshop.h"

#include "goodssearch.h"

void fillSaleShop(FreshDatabase *base)
{
    base->exec(QStringList{
        QStringLiteral("INSERT INTO group_shop(id,name) VALUES(2,'Місто')"),
        QStringLiteral("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)"),
        QStringLiteral("INSERT INTO group_goods(id,name) VALUES(3,'Тара')"),
        QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES"
                       "(1,'вул. Перша, 1',2,3,0),(2,'вул. Друга, 2',2,1,0),(3,'Офіс',2,-1,0),"
                       "(4,'Склад',2,0,0),(5,'Зачинений',2,1,1)"),
        QStringLiteral("INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem,id_shop) "
                       "VALUES(2,'second','x','2000000002','Друга','Зміна',1,2)"),
        QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'Каса 1',0),"
                       "(2,1,'Каса 2',0),(3,1,'Заблокована',1),(4,2,'Каса 1',0)"),
        QStringLiteral("INSERT INTO goods(id,name,name_short,price,type,group_g,tax,bonus_disk,block) VALUES"
                       "(10,'Хліб житній','Хліб',5000,1,1,1,1,0),(11,'Сир ваговий','Сир',8000,0,1,2,1,0),"
                       "(12,'Пакет O''Neil 5%','Пакет',1230,1,1,NULL,0,0),"
                       "(13,'Молоко','Молоко',3000,1,1,3,1,0),(14,'Картопля','Картопля',700,0,1,5,0,0),"
                       "(15,'Новинка','Новинка',NULL,NULL,1,1,0,0),"
                       "(16,'Знятий','Знятий',100,1,1,1,0,1),(17,'Пляшка','Пляшка',100,1,3,1,0,0)"),
        QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(10,'4820000000109'),"
                       "(11,'0000000000116'),(13,'4820000000130'),(14,'48200014'),(15,'4820000000154'),"
                       "(16,'4820000000161'),(17,'4820000000178')"),
        QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) "
                       "SELECT shops.id,goods.id,10000 FROM shops,goods WHERE shops.id<3")});
}

void resetSaleShop(FreshDatabase *base)
{
    for (const char *table : {"cheks", "z_zvit", "prices", "clients", "procent"})
        base->exec(QStringLiteral("DELETE FROM ") + QLatin1String(table));
    base->exec(QStringLiteral("UPDATE goods_shop SET count_showroom=10000,id_action=1"));
    base->exec(QStringLiteral("DELETE FROM action WHERE id>1"));
}

void loseAnswerToCommit(FreshDatabase *base)
{
    Db::setStatementHook([base](const QString &sql) {
        if (sql == QLatin1String("COMMIT")) {
            commitHere();
            base->killConnection();
        } else if (sql.startsWith(QLatin1String("SELECT COUNT(*) FROM cheks"))) {
            base->exec(QStringLiteral("RENAME TABLE cheks TO away"));
        }
    });
}

ReceiptRow goodsRow(FreshDatabase *base, int id)
{
    GoodsSearch search;
    search.idShop = 1;
    search.by = GoodsSearch::Name;
    search.text = QString::number(id);
    search.time = QDateTime::currentDateTime();
    const QString sql = goodsListSql(search).replace(QStringLiteral(" LIMIT 100"),
                                                     QStringLiteral(" AND goods.id=%1 LIMIT 1").arg(id));
    auto query = base->db().run(sql);
    if (!query || !query->next())
        qFatal("No goods item %d to sell", id);
    return ReceiptRow(goodsItem(*query));
}

ClockAt::ClockAt(const QDateTime &time) : m_before(SaleClock::setSource([time] { return time; })) {}

ClockAt::~ClockAt()
{
    SaleClock::setSource(m_before);
}
