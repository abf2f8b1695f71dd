#include "bulkinsert.h"
#include "sqldate.h"
#include "stages.h"

namespace demo {
namespace {
constexpr int discountType = 2;
constexpr int firstGroup = 6;
constexpr int taxGroup = 1;

/// A promotion of the afternoon of the last day, when its receipts are written already.
bool fillEndingPromotion(const Db &db, const QDate &until)
{
    BulkInsert rows(db,
                    QStringLiteral("action(name,id_type_action,val,datetime_start,datetime_end,week_day)"));
    rows.add(SqlRow()
                 .text(QStringLiteral("Тільки сьогодні -20 %"))
                 .numbers({discountType, 2000})
                 .raw(sqlDateTime(QDateTime(until, QTime(13, 0))))
                 .raw(sqlDateTime(QDateTime(until, QTime(21, 0))))
                 .text(QStringLiteral("Mon,Tue,Wed,Thu,Fri,Sat,Sun,")));
    return rows.finish();
}

/// What has been ordered and is not sold yet.
bool fillUnpricedGoods(const Db &db)
{
    BulkInsert rows(db, QStringLiteral("goods(name,name_short,price_in,price,type,group_g,tax,block)"));
    for (const char *name : {"Сир «Новинка» 180 г", "Печиво «Новинка» з маком 200 г"})
        rows.add(SqlRow()
                     .text(QString::fromUtf8(name))
                     .text(QString::fromUtf8(name).left(32))
                     .numbers({0, 0, 1, firstGroup, taxGroup, 0}));
    return rows.finish();
}

/// Cards without a discount so far: no receipt has been reckoned with their level.
bool blockLevels(const Db &db)
{
    return db
        .run(QStringLiteral("UPDATE clients SET id_procent=(SELECT MIN(id) FROM procent WHERE block=1) WHERE "
                            "id_procent=1 AND id>1 AND EXISTS(SELECT 1 FROM procent WHERE block=1) "
                            "ORDER BY id LIMIT 3"))
        .has_value();
}
} // namespace

bool fillAttention(const Db &db, const Chain &chain)
{
    return fillEndingPromotion(db, chain.plan.until) && fillUnpricedGoods(db) && blockLevels(db);
}
} // namespace demo
