#include "../../demo/receipt.h"
#include "../../managment/receipt.h"
#include "chain.h"
#include "ean13.h"
#include "testing.h"

// A program may hold both.
static_assert(!std::is_same_v<Receipt, demo::Receipt>);

namespace {
demo::ChainPlan smallPlan()
{
    demo::ChainPlan plan;
    plan.until = QDate(2026, 3, 18); // a Wednesday
    plan.days = 9;
    plan.shops = 5;
    plan.registers = 7;
    plan.goods = 260;
    plan.assortment = 150;
    plan.cards = 40;
    plan.receiptsPerShift = 12;
    return plan;
}

/// What is in every table, but for the time of writing.
QStringList fingerprint(FreshDatabase *database)
{
    const QStringList tables = database->rows(QStringLiteral(
        "SELECT table_name,GROUP_CONCAT('IFNULL(`',column_name,'`,\"-\")' ORDER BY ordinal_position) "
        "FROM information_schema.columns WHERE table_schema=DATABASE() AND column_name<>'data_update' "
        "AND table_name NOT LIKE 'updat%' GROUP BY table_name"));
    QStringList sums;
    for (const QString &table : tables) {
        const QString name = table.section(QLatin1Char('|'), 0, 0);
        sums += name + QLatin1Char(' ') +
                database->value(
                    QStringLiteral("SELECT CONCAT(COUNT(*),' ',SUM(CRC32(CONCAT_WS('|',%1)))) FROM %2")
                        .arg(table.section(QLatin1Char('|'), 1), name));
    }
    return sums;
}

/// The shift row's columns as far as the receipts tell them, from z_zvit and from cheks.
const QString storedShifts = QStringLiteral(
    "SELECT id_kass,id_zzvit,Oborot_A,Oborot_B,Oborot_V,Oborot_G,Oborot_D,cash,beznal_1,beznal_2,beznal_3,"
    "count_cheks,count_chek_diskount,summ_diskount,cash_ret,Oborot_A_ret,Oborot_B_ret,Oborot_V_ret,Oborot_G_ret,"
    "Oborot_D_ret,count_cheks_ret,vnesenia,viluchenia FROM z_zvit WHERE data_time<>0 ORDER BY id_kass,id_zzvit");

QString summed(const char *column, const char *condition)
{
    return QStringLiteral("CAST(SUM(IF(%2,%1,0)) AS UNSIGNED)")
        .arg(QLatin1String(column), QLatin1String(condition));
}

QString addedUpShifts()
{
    QStringList columns{QStringLiteral("id_kass"), QStringLiteral("id_zvit")};
    for (const char *sold : {"id_type=1 AND tax=1", "id_type=1 AND tax=2", "id_type=1 AND tax=3",
                             "id_type=1 AND tax=4", "id_type=1 AND tax=5"})
        columns += summed("summa", sold);
    for (const char *paid : {"price", "tax", "dis_bon_bez2", "count"})
        columns += summed(paid, "id_type=3");
    columns += {summed("1", "id_type=3"), summed("1", "id_type=2"), summed("summa", "id_type=2"),
                summed("summa", "id_type=6")};
    for (const char *returned : {"id_type=6 AND tax=1", "id_type=6 AND tax=2", "id_type=6 AND tax=3",
                                 "id_type=6 AND tax=4", "id_type=6 AND tax=5"})
        columns += summed("summa", returned);
    columns += {summed("1", "id_type=6"), summed("summa", "id_type=4"), summed("summa", "id_type=5")};
    return QStringLiteral("SELECT %1 FROM cheks GROUP BY id_kass,id_zvit HAVING SUM(id_type=10)=1 "
                          "ORDER BY id_kass,id_zvit")
        .arg(columns.join(QLatin1Char(',')));
}
} // namespace

class TstDemo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void volume();
    void receiptsAddUp();
    void positionsLeaveOneFree();
    void shiftsEqualTheirReceipts();
    void numbersAndTimesGoOn();
    void goodsAndBarcodes();
    void pricesAreTheOnesInForce();
    void usersAndRights();
    void onlineIntervals();
    void sameSeedSameChain();
    void stateTellsAFinishedChain();

private:
    QString value(const char *sql) { return m_database.value(QString::fromUtf8(sql)); }
    FreshDatabase m_database;
};

void TstDemo::initTestCase()
{
    QVERIFY2(demo::generateChain(m_database.db(), smallPlan()),
             qPrintable(m_database.heard.texts().join(QLatin1Char('\n'))));
    QVERIFY(m_database.heard.texts().isEmpty());
}

void TstDemo::volume()
{
    QCOMPARE(
        value("SELECT CONCAT_WS('|',(SELECT COUNT(*) FROM shops),(SELECT COUNT(*) FROM kassa),"
              "(SELECT COUNT(*) FROM goods),(SELECT COUNT(*) FROM clients),(SELECT COUNT(*) FROM group_shop),"
              "(SELECT COUNT(*) FROM goods_shop),(SELECT COUNT(*) FROM users))"),
        QStringLiteral("5|7|262|41|4|600|8"));
    QCOMPARE(value("SELECT GROUP_CONCAT(DISTINCT id_type ORDER BY id_type) FROM cheks"),
             QStringLiteral("1,2,3,4,5,6,7,8,10"));
    QCOMPARE(value("SELECT CONCAT(DATE(MIN(data_time)),' ',DATE(MAX(data_time))) FROM cheks"),
             QStringLiteral("2026-03-10 2026-03-18"));
    QCOMPARE(value("SELECT COUNT(*) FROM goods_shop WHERE count_showroom<=0 AND id_shop<>5"),
             QStringLiteral("0"));
    QVERIFY(value("SELECT COUNT(*) FROM z_zvit WHERE data_time=0").toInt() > 0);
}

void TstDemo::receiptsAddUp()
{
    QCOMPARE(value("SELECT COUNT(*) FROM (SELECT id_kass,id_chek,"
                   "SUM(IF(id_type=1,summa,0)) AS goods,SUM(IF(id_type=1,sumdisc,0)) AS rowsoff,"
                   "SUM(IF(id_type=2,summa,0)) AS off,SUM(IF(id_type=3,summa,0)) AS due,"
                   "SUM(IF(id_type=3,price+tax+dis_bon_bez2+count,0)) AS paid,SUM(id_type=3) AS payments "
                   "FROM cheks WHERE id_type<=3 GROUP BY id_kass,id_chek "
                   "HAVING goods-off<>due OR due<>paid OR payments<>1 OR rowsoff<>off OR due<=0) AS wrong"),
             QStringLiteral("0"));
    QCOMPARE(value("SELECT COUNT(*) FROM cheks WHERE id_type=1 AND summa<>ROUND(price*count/1000)"),
             QStringLiteral("0"));
}

void TstDemo::positionsLeaveOneFree()
{
    QCOMPARE(
        value("SELECT COUNT(*) FROM (SELECT SUM(id_type=1) AS goods,"
              "MAX(IF(id_type=1,id_position,-1)) AS last,MAX(IF(id_type=2,id_position,-1)) AS off,"
              "MAX(IF(id_type=3,id_position,-1)) AS payment,"
              "MAX(IF(id_type=3,id_good_cln_slujb,0)) AS flag FROM cheks WHERE id_type<=3 "
              "GROUP BY id_kass,id_chek HAVING last<>goods-1 OR "
              "NOT (off=-1 AND payment=goods+1 AND flag=0 OR off=goods+1 AND payment=goods+2 AND flag=1)) "
              "AS wrong"),
        QStringLiteral("0"));
}

void TstDemo::shiftsEqualTheirReceipts()
{
    const QStringList stored = m_database.rows(storedShifts);
    QVERIFY(stored.size() > 40);
    QCOMPARE(stored, m_database.rows(addedUpShifts()));
    QCOMPARE(
        value(
            "SELECT COUNT(*) FROM z_zvit LEFT JOIN cheks ON cheks.id_kass=z_zvit.id_kass AND id_zvit=id_zzvit "
            "AND id_type=10 WHERE z_zvit.data_time<>0 AND NOT (summa<=>Oborot_A+Oborot_B+Oborot_V+Oborot_G+"
            "Oborot_D-summ_diskount AND cheks.data_time=z_zvit.data_time AND cheks.id_position=0 "
            "AND cheks.tax=5 AND cheks.price=1 AND cheks.name IS NULL)"),
        QStringLiteral("0"));
}

void TstDemo::numbersAndTimesGoOn()
{
    QCOMPARE(
        value("SELECT COUNT(*) FROM (SELECT MAX(id_chek)<>COUNT(DISTINCT id_chek) OR MIN(id_chek)<>1 AS gap "
              "FROM cheks GROUP BY id_kass HAVING gap) AS wrong"),
        QStringLiteral("0"));
    QCOMPARE(
        value("SELECT COUNT(*) FROM (SELECT data_time<LAG(data_time) OVER (PARTITION BY id_kass ORDER BY "
              "id_chek) AS back FROM cheks) AS times WHERE back"),
        QStringLiteral("0"));
    QCOMPARE(
        value("SELECT COUNT(*) FROM (SELECT day,count_day_cycle,LAG(day) OVER (PARTITION BY id_kass ORDER BY "
              "id_zzvit) AS before_it FROM z_zvit JOIN shops ON shops.id=id_shop) AS shifts WHERE day<1 OR "
              "day>count_day_cycle OR day<>before_it%count_day_cycle+1"),
        QStringLiteral("0"));
    // One can be closed together with its period.
    QVERIFY(value("SELECT COUNT(*) FROM z_zvit JOIN shops ON shops.id=id_shop WHERE data_time=0 AND "
                  "count_day_cycle>1 AND day=count_day_cycle")
                .toInt() > 0);
}

void TstDemo::goodsAndBarcodes()
{
    const QStringList codes = m_database.rows(QStringLiteral("SELECT shtrihcod FROM dk_shc"));
    for (const QString &code : codes)
        QVERIFY2(isSoundEan(code), qPrintable(code));
    QVERIFY(value("SELECT COUNT(*) FROM dk_shc WHERE shtrihcod LIKE '0%'").toInt() > 0);
    QVERIFY(value("SELECT COUNT(*) FROM dk_shc WHERE LENGTH(shtrihcod)=8").toInt() > 0);
    QVERIFY(codes.size() > 260);
    // Two are only ordered, and have no price yet.
    QCOMPARE(value("SELECT COUNT(DISTINCT name) FROM goods"), QStringLiteral("262"));
    QCOMPARE(value("SELECT COUNT(*) FROM goods WHERE price=0"), QStringLiteral("2"));
    QCOMPARE(
        value("SELECT COUNT(*) FROM goods WHERE group_g<6 OR CHAR_LENGTH(name_short) NOT BETWEEN 5 AND 32"),
        QStringLiteral("0"));
    QCOMPARE(value("SELECT COUNT(*) FROM (SELECT COUNT(*) AS n FROM goods WHERE id_rules_goods>1 "
                   "GROUP BY group_g,id_rules_goods HAVING n>1) AS wrong"),
             QStringLiteral("0"));
}

/// The receipts carry the price that the sale would find, and nothing that may not be sold.
void TstDemo::pricesAreTheOnesInForce()
{
    QCOMPARE(
        value(
            "SELECT COUNT(*) FROM cheks LEFT JOIN goods ON goods.id=id_good_cln_slujb "
            "LEFT JOIN shops ON shops.id=id_shop LEFT JOIN dk_shc ON shtrihcod=strihcode "
            "WHERE id_type=1 AND (goods.block OR NOT cheks.name<=>goods.name OR cheks.tax<>goods.tax OR "
            "NOT dk_shc.id_goods<=>goods.id OR cheks.price<>COALESCE("
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=cheks.id_shop AND priority=0),"
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=0 AND "
            "id_group=shops.group_shop AND priority=0),"
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=0 AND id_group=1 AND priority=0),"
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=cheks.id_shop AND priority=1),"
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=0 AND "
            "id_group=shops.group_shop AND priority=1),"
            "(SELECT price FROM prices p WHERE p.id_goods=goods.id AND p.id_shop=0 AND id_group=1 AND priority=1),"
            "goods.price))"),
        QStringLiteral("0"));
    QVERIFY(value("SELECT COUNT(*) FROM cheks WHERE id_type_action=2 AND sumdisc>0").toInt() > 0);
    QCOMPARE(
        value("SELECT COUNT(*) FROM cheks LEFT JOIN goods_shop ON goods_shop.id_shop=cheks.id_shop AND "
              "id_goods=id_good_cln_slujb LEFT JOIN action ON action.id=id_action WHERE id_type=1 AND "
              "cheks.id_type_action=2 AND action.name='Середа пенсіонера -7 %' AND DAYOFWEEK(data_time)=4 "
              "AND ABS(sumdisc-summa*0.07)>0.51"),
        QStringLiteral("0"));
}

void TstDemo::usersAndRights()
{
    QCOMPARE(value("SELECT GROUP_CONCAT(login ORDER BY id) FROM users WHERE pass=MD5(login)"),
             QStringLiteral("admin,operator,viewer,bondar,hrytsenko,sydorenko,yizhak,shvets"));
    // The keys whose cards, with the prefix 220 before them, a scanner reads: the last digit is the check
    // digit.
    QCOMPARE(value("SELECT GROUP_CONCAT(key_prem ORDER BY id) FROM users WHERE id<4 OR id=8"),
             QStringLiteral("1000000016,1000000023,1000000030,1000000085"));
    QCOMPARE(m_database.rows(QStringLiteral("SELECT id_g_prem,GROUP_CONCAT(id_group ORDER BY id_group) FROM "
                                            "lst_group WHERE id_g_prem<4 GROUP BY id_g_prem")),
             QStringList({QStringLiteral("1|1,2,3,4"), QStringLiteral("2|2"), QStringLiteral("3|2,3,4")}));
    QCOMPARE(
        value("SELECT GROUP_CONCAT(id_g_prem,':',id_prem ORDER BY id_g_prem,id_prem) FROM lst_permis WHERE "
              "permission=1 AND id_g_prem IN (2,3)"),
        QStringLiteral("2:0,2:101,3:0"));
    // Whoever has left is let in no more.
    QCOMPARE(value("SELECT GROUP_CONCAT(login) FROM users LEFT JOIN lst_permis ON "
                   "lst_permis.id_g_prem=users.id_g_prem AND id_prem=0 WHERE IFNULL(permission,0)=0"),
             QStringLiteral("shvets"));
    QCOMPARE(value("SELECT COUNT(DISTINCT id_type_device) FROM devices"), QStringLiteral("5"));
}

void TstDemo::onlineIntervals()
{
    QVERIFY(value("SELECT COUNT(*) FROM onoffline WHERE id_kass IS NULL").toInt() > 0);
    QCOMPARE(value("SELECT COUNT(*) FROM onoffline WHERE dt_end<=dt_start"), QStringLiteral("0"));
    // Each place has one interval that is still open, one of them off line, and none begins before the last
    // ended.
    QCOMPARE(value("SELECT COUNT(*) FROM onoffline WHERE dt_end IS NULL"), QStringLiteral("10"));
    QVERIFY(value("SELECT COUNT(*) FROM onoffline WHERE dt_end IS NULL AND onoff=0").toInt() > 0);
    QCOMPARE(
        value("SELECT COUNT(*) FROM (SELECT dt_start,LAG(dt_end) OVER (PARTITION BY id_shop,id_kass ORDER BY "
              "dt_start) AS before_it FROM onoffline) AS pairs WHERE before_it<>dt_start"),
        QStringLiteral("0"));
}

void TstDemo::sameSeedSameChain()
{
    FreshDatabase again;
    QVERIFY(demo::generateChain(again.db(), smallPlan()));
    QCOMPARE(fingerprint(&again), fingerprint(&m_database));
    FreshDatabase other;
    demo::ChainPlan plan = smallPlan();
    plan.seed = 2;
    QVERIFY(demo::generateChain(other.db(), plan));
    QVERIFY(fingerprint(&other) != fingerprint(&m_database));
}

void TstDemo::stateTellsAFinishedChain()
{
    FreshDatabase database;
    QCOMPARE(demo::chainState(database.db()), demo::ChainState::Empty);
    database.exec(QStringLiteral("INSERT INTO shops(name) VALUES('x')"));
    QCOMPARE(demo::chainState(database.db()), demo::ChainState::HalfFilled);
    QVERIFY(!demo::generateChain(database.db(), smallPlan()));
    QVERIFY(database.heard.has(QStringLiteral("Duplicate entry '1'")));
    QCOMPARE(database.value(QStringLiteral("SELECT COUNT(*) FROM kassa")), QStringLiteral("0"));
    QCOMPARE(demo::chainState(database.db()), demo::ChainState::HalfFilled);
    QCOMPARE(demo::chainState(m_database.db()), demo::ChainState::Filled);
}

QTEST_MAIN(TstDemo)
#include "tst_demo.moc"
