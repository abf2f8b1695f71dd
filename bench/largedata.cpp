#include "largedata.h"

namespace {
constexpr int linesPerRegister = LargeChain::shiftsPerRegister * LargeChain::linesPerShift;
/// As many as a transaction writes at once: more would not fit into the server's memory.
constexpr int registersAtOnce = 30;

/// Blocked shops and such where nobody ever said, names that are missing or the same in every shop, registers
/// without a name, a second user's shifts.
QStringList placeStatements()
{
    return {
        QStringLiteral("INSERT INTO group_shop(id,name) SELECT seq,CONCAT('Група магазинів ',seq) FROM "
                       "seq_2_to_9"),
        QStringLiteral("INSERT INTO lst_group(id_g_prem,id_group) SELECT 1,id FROM group_shop WHERE id>1"),
        QStringLiteral("INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem) "
                       "VALUES(2,'kasir','-','1000000002','Олена','Касир',1)"),
        QStringLiteral(
            "INSERT INTO shops(id,address,name,group_shop,count_day_cycle,block) SELECT seq,"
            "CONCAT(ELT(1+MOD(seq,4),'вул. Довга','просп. Миру','пл. Ринок','вул. Їжакевича'),', ',seq),"
            "IF(MOD(seq,7),CONCAT('Магазин ',seq),NULL),1+MOD(seq,9),ELT(1+MOD(seq,4),7,30,1,30),"
            "IF(MOD(seq,23)=0,1,IF(MOD(seq,11)=0,NULL,0)) FROM seq_1_to_%1")
            .arg(LargeChain::shops),
        QStringLiteral(
            "INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT seq,1+(seq-1) DIV %1,"
            "IF(MOD(seq,97)=0,NULL,CONCAT('Каса ',1+MOD(seq-1,%1))),MOD(seq,61)=0 FROM seq_1_to_%2")
            .arg(LargeChain::registersPerShop)
            .arg(LargeChain::registers),
    };
}

QStringList goodsStatements()
{
    const int step = LargeChain::goods / LargeChain::stockPerShop;
    return {
        QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) SELECT seq*10,4900000000000+seq FROM "
                       "seq_1_to_%1")
            .arg(LargeChain::goods / 10),
        QStringLiteral("UPDATE goods SET name=NULL WHERE id%10007=0"),
        QStringLiteral(
            "INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) SELECT s.seq,"
            "1+g.seq*%1+MOD(s.seq,%1),MOD(g.seq*7919+s.seq,200000)-500,IF(MOD(g.seq,3),0,MOD(g.seq*31,90000)) FROM "
            "seq_1_to_%2 s STRAIGHT_JOIN seq_0_to_%3 g")
            .arg(step)
            .arg(LargeChain::shops)
            .arg(LargeChain::stockPerShop - 1),
    };
}

/// The register's shop; every fiftieth register stood in another one for the first half of its shifts.
QString shopOf(const QString &kass, const QString &shift)
{
    return QStringLiteral("IF(MOD(%1,50)=0 AND %2<%3,1,1+(%1-1) DIV %4)")
        .arg(kass, shift)
        .arg(LargeChain::shiftsPerRegister / 2)
        .arg(LargeChain::registersPerShop);
}

QString dayOf(const QString &shift)
{
    return QStringLiteral("(CURDATE()-INTERVAL %1-%2 DAY)").arg(LargeChain::shiftsPerRegister).arg(shift);
}

/// Of every register whose number can be divided by three the last shift is closed, too.
QString isOpen(const QString &kass, const QString &shift)
{
    return QStringLiteral("(MOD(%1,3)<>0 AND %2=%3)").arg(kass, shift).arg(LargeChain::shiftsPerRegister - 1);
}

QString shiftsStatement()
{
    const QString kass = QStringLiteral("k.seq");
    const QString shift = QStringLiteral("d.seq");
    return QStringLiteral(
               "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,day,cash,beznal_1,Oborot_A,Oborot_B,"
               "Oborot_V,summ_diskount,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,DOD_D,"
               "count_cheks,count_chek_diskount,data_time) SELECT 1+d.seq,%1,k.seq,IF(MOD(k.seq,5)=0,2,1),"
               "1+MOD(d.seq,3),1000000+MOD(d.seq*7919,500000),MOD(k.seq*31,900000),900000+MOD(d.seq*17,300000),300000,"
               "IF(MOD(d.seq,9),MOD(k.seq*97,50000),NULL),MOD(d.seq,30000),2000,0,2000,500,700,0,0,0,0,0,27,9,"
               "IF(%2,'0000-00-00 00:00:00',%3+INTERVAL 75600+k.seq SECOND) FROM seq_0_to_%4 d STRAIGHT_JOIN seq_1_to_%5 k")
        .arg(shopOf(kass, shift), isOpen(kass, shift), dayOf(shift))
        .arg(LargeChain::shiftsPerRegister - 1)
        .arg(LargeChain::registers);
}

/// Every register goes on line and off again three times a day; the last time it stays.
QString intervalsStatement()
{
    return QStringLiteral("INSERT INTO onoffline(id_shop,id_kass,onoff,dt_start,dt_end) SELECT "
                          "1+(k.seq-1) DIV %1,k.seq,MOD(p.seq,2),%2+INTERVAL p.seq*4 HOUR,"
                          "IF(d.seq=%3 AND p.seq=5,NULL,%2+INTERVAL p.seq*4+4 HOUR) FROM seq_0_to_%3 d "
                          "STRAIGHT_JOIN seq_1_to_%4 k STRAIGHT_JOIN seq_0_to_5 p")
        .arg(LargeChain::registersPerShop)
        .arg(dayOf(QStringLiteral("d.seq")))
        .arg(LargeChain::shiftsPerRegister - 1)
        .arg(LargeChain::registers);
}

/// A shift: cash is brought in; nine times a receipt of one item, one of three with a discount and one of
/// two, each with its payment; something is brought back; the Z receipt or, while the shift is open, cash is
/// taken out. Each register's lines come in the order of the table's key.
QString linesStatement(int firstRegister, int lastRegister)
{
    const QString kass = QStringLiteral("kass");
    const QString shift = QStringLiteral("shift");
    const QString types = QStringLiteral("SUBSTR('1311123113',1+MOD(line+9,10),1)");
    const QString positions = QStringLiteral("SUBSTR('0201245013',1+MOD(line+9,10),1)");
    const QString receipts = QStringLiteral("SUBSTR('0011111222',1+MOD(line+9,10),1)");
    return QStringLiteral(
               "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
               "id_good_cln_slujb,name,strihcode,count,price,summa,tax,type,sumdisc,data_time) SELECT %1,kass,"
               "1+shift,1+shift*%2+CASE line WHEN 0 THEN 0 WHEN 91 THEN 28 WHEN 92 THEN 29 ELSE "
               "1+(line-1) DIV 10*3+%3 END,IF(line IN(0,91,92),0,%4),IF(MOD(kass,5)=0,2,1),"
               "CASE line WHEN 0 THEN 4 WHEN 91 THEN 6 WHEN 92 THEN IF(%5,5,10) ELSE %6 END,"
               "1+MOD(seq*7919,10000)*22+MOD(kass,22),CONCAT(ELT(1+MOD(seq,6),'Молоко','Хліб','Сир','Ґудзик','Їжачок',"
               "'Єдність'),' ',MOD(seq*7919,9973)),4820000000000+MOD(seq*7919,220000)*13,IF(MOD(seq,9),1000,250+MOD(seq,700)),"
               "100+MOD(seq*31,9000),100+MOD(seq*31,9000),1+MOD(seq,5),MOD(seq,2),MOD(seq,5)*10,%7+INTERVAL 28800+line*480 SECOND FROM "
               "(SELECT seq,1+seq DIV %8 AS kass,MOD(seq,%8) DIV %9 AS shift,MOD(seq,%9) AS line FROM seq_%10_to_%11) t")
        .arg(shopOf(kass, shift))
        .arg(LargeChain::cheksPerShift)
        .arg(receipts, positions, isOpen(kass, shift), types, dayOf(shift))
        .arg(linesPerRegister)
        .arg(LargeChain::linesPerShift)
        .arg((firstRegister - 1) * linesPerRegister)
        .arg(lastRegister * linesPerRegister - 1);
}

bool runAll(const Db &db, const QStringList &statements)
{
    for (const QString &sql : statements) {
        if (!db.run(sql))
            return false;
    }
    return true;
}

bool fillLines(const Db &db)
{
    for (int kass = 1; kass <= LargeChain::registers; kass += registersAtOnce) {
        const int last = qMin(kass + registersAtOnce - 1, LargeChain::registers);
        if (!db.run(linesStatement(kass, last)))
            return false;
        qInfo("%d of %d registers", last, LargeChain::registers);
    }
    return true;
}
} // namespace

bool LargeChain::fill(const Bench &bench)
{
    const Db db = bench.db();
    return runAll(db, {QStringLiteral("SET SESSION foreign_key_checks=0, unique_checks=0")}) &&
           runAll(db, placeStatements()) && runAll(db, goodsStatements()) &&
           runAll(db, {shiftsStatement(), intervalsStatement()}) && fillLines(db) &&
           runAll(db, {QStringLiteral("ANALYZE TABLE cheks,z_zvit,onoffline,goods_shop,dk_shc,kassa,shops")});
}
