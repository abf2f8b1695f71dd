#include "workplace.h"

#include "attention.h"
#include "nextstep.h"
#include "overviewmodel.h"
#include "overviewsql.h"
#include "qloadeduser.h"
#include "rowstore.h"
#include "sqldate.h"

/// What the overview reads out of an untidy chain: its statements on a database, and what is made of them.
class TstChainState : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void shopsAddUpTheirOpenShifts();
    void weekAgoIsTheWholeDay();
    void oddShiftsFindTheirPlace();
    void onlySeenShopsCount();
    void newestStateOfALineCounts();
    void blockedPlacesShowWhatStandsOpen();
    void shiftsThatDisagree_data();
    void shiftsThatDisagree();
    void oldShiftsWithoutReceipts();
    void receiptsTellWhenAShiftBegan();
    void countsAreThoseOfTheLists();
    void attentionFollowsTheRights();
    void stepsFollowEachOther();

private:
    RowStore read(const QString &sql);
    ChainState state();
    /// The shops and, indented, their registers: name, line, shift, turnover, closed today, week ago,
    /// receipts.
    QStringList tree(const ChainState &chain);
    void closeShift(int kass, int number, const QString &time, int turnover, const QString &more = {});

    std::unique_ptr<Workplace> m_place;
    /// A Tuesday.
    const QDate m_today{2026, 3, 10};
    const QDateTime m_now{m_today, QTime(14, 0), Qt::UTC};
};

void TstChainState::initTestCase()
{
    m_place = std::make_unique<Workplace>();
}

void TstChainState::init()
{
    FreshDatabase &base = m_place->base;
    base.exec(QStringList{"DELETE FROM cheks", "DELETE FROM z_zvit", "DELETE FROM clients"});
    m_place->clear();
    base.exec(QStringList{
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'Луцьк',2,0),(2,'Київ',1,NULL),"
        "(3,'Ялта',4,0),(4,'Збут',2,1)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(11,1,'Каса 1',0),(12,1,'Каса 2',NULL),"
        "(21,2,'Каса 1',0),(31,3,'Каса 1',0),(41,4,'Каса 1',0),(13,1,'Стара',1)"});
    m_place->logIn(Permission::ZReports);
}

RowStore TstChainState::read(const QString &sql)
{
    RowStore rows;
    FetchError error;
    const std::atomic<bool> isCalledOff{false};
    if (!RowStore::fetch(*m_place->connection(), sql, isCalledOff, &rows, &error))
        qFatal("%s\n%s", qPrintable(error.text), qPrintable(sql));
    return rows;
}

ChainState TstChainState::state()
{
    const QLoadedUser &user = *m_place->user();
    return chainState(read(placesSql(user)), read(shiftsSql(user, m_today.addDays(1 - drawnDays))), m_today);
}

QStringList TstChainState::tree(const ChainState &chain)
{
    OverviewModel model;
    model.setChain(chain, m_now);
    const auto line = [&model](const QModelIndex &row) {
        QStringList cells;
        using Model = OverviewModel;
        for (const int column : {Model::Name, Model::Line, Model::Shift, Model::Turnover, Model::ClosedToday,
                                 Model::WeekAgo, Model::Receipts})
            cells.append(row.siblingAtColumn(column).data().toString().replace(QChar::Nbsp, ' '));
        return cells.join('|');
    };
    QStringList lines;
    for (int shop = 0; shop < model.rowCount(); ++shop) {
        const QModelIndex above = model.index(shop, 0);
        lines.append(line(above));
        for (int reg = 0; reg < model.rowCount(above); ++reg)
            lines.append("  " + line(model.index(reg, 0, above)));
    }
    return lines;
}

void TstChainState::closeShift(int kass, int number, const QString &time, int turnover, const QString &more)
{
    m_place->base.exec(
        QString("INSERT INTO z_zvit SET id_shop=%1,id_kass=%2,id_zzvit=%3,id_user=1,data_time='%4',"
                "Oborot_A=%5,cash=%5%6")
            .arg(kass / 10)
            .arg(kass)
            .arg(number)
            .arg(time)
            .arg(turnover)
            .arg(more));
}

void TstChainState::shopsAddUpTheirOpenShifts()
{
    m_place->base.exec(QStringList{
        "INSERT INTO z_zvit SET id_shop=1,id_kass=11,id_zzvit=5,id_user=1,data_time=0,Oborot_A=100000,"
        "Oborot_D=20050,summ_diskount=50,cash=120000,count_cheks=7",
        "INSERT INTO z_zvit SET id_shop=1,id_kass=12,id_zzvit=3,id_user=1,data_time=0,Oborot_B=30000,"
        "Oborot_A=NULL,cash=30000,count_cheks=2,Oborot_A_ret=500,cash_ret=500"});
    closeShift(11, 4, "2026-03-09 21:05:00", 1);
    closeShift(11, 3, "2026-03-10 08:30:00", 4000);
    const ChainState chain = state();
    const QString user = m_place->base.value("SELECT CONCAT(surname,' ',name) FROM users WHERE id=1");
    QCOMPARE(tree(chain), (QStringList{"Київ|✗ 0 з 1 на зв'язку|||||", "  Каса 1|невідомо|||||",
                                       "Луцьк|✗ 0 з 2 на зв'язку|відкритих: 2|1 500.00|40.00||9",
                                       "  Каса 1|невідомо|після 09.03 21:05, " + user + "|1 200.00|40.00||7",
                                       "  Каса 2|невідомо|відкрита, " + user + "|300.00|||2"}));
    // Of 1500.00 in 9 receipts 166.666…
    QCOMPARE(sumsOf(chain).averageReceipt(), qint64(16667));
    QCOMPARE(chain.days.size(), drawnDays);
    QCOMPARE(chain.days.constLast().turnover, qint64(154000));
    QCOMPARE(chain.days.constLast().shifts, 3);
    QCOMPARE(chain.days.at(drawnDays - 2).turnover, qint64(1));
}

void TstChainState::weekAgoIsTheWholeDay()
{
    closeShift(11, 1, "2026-03-02 23:59:59", 1);
    closeShift(11, 2, "2026-03-03 00:00:00", 10);
    closeShift(11, 3, "2026-03-03 23:59:59", 200);
    closeShift(11, 4, "2026-03-04 00:00:00", 3000);
    closeShift(11, 5, "2026-02-24 23:59:59", 40000);
    closeShift(11, 6, "2026-02-25 00:00:00", 500000);
    const ChainState chain = state();
    QCOMPARE(sumsOf(chain).weekAgo, qint64(210));
    QCOMPARE(chain.days.constFirst().day, QDate(2026, 2, 25));
    QCOMPARE(chain.days.constFirst().turnover, qint64(500000));
    qint64 all = 0;
    for (const OverviewDay &day : chain.days)
        all += day.turnover;
    QCOMPARE(all, qint64(503211));
}

/// Of a register that is in another shop by now, of one that is not in the shops at all, without a time, and
/// two that are open at once.
void TstChainState::oddShiftsFindTheirPlace()
{
    m_place->base.exec(QStringList{
        "INSERT INTO z_zvit SET id_shop=2,id_kass=11,id_zzvit=1,id_user=1,data_time=0,Oborot_A=100,count_cheks=1",
        "INSERT INTO z_zvit SET id_shop=2,id_kass=11,id_zzvit=2,id_user=NULL,data_time=0,Oborot_A=200,"
        "count_cheks=1",
        "INSERT INTO z_zvit SET id_shop=2,id_kass=31,id_zzvit=1,id_user=1,data_time=0,Oborot_A=700,count_cheks=3",
        "INSERT INTO z_zvit SET id_shop=1,id_kass=12,id_zzvit=9,id_user=1,data_time=NULL,Oborot_A=9999"});
    const QString user = m_place->base.value("SELECT CONCAT(surname,' ',name) FROM users WHERE id=1");
    QCOMPARE(tree(state()),
             (QStringList{"Київ|✗ 0 з 1 на зв'язку|відкритих: 1|7.00|||3", "  Каса 1|невідомо|||||",
                          "  № 31|каса іншого магазину|відкрита, " + user + "|7.00|||3",
                          "Луцьк|✗ 0 з 2 на зв'язку|відкритих: 2|3.00|||2",
                          "  Каса 1|невідомо|відкрита, " + user + "; відкрита|3.00|||2",
                          "  Каса 2|невідомо|||||"}));
}

void TstChainState::onlySeenShopsCount()
{
    m_place->base.exec(QStringList{
        "INSERT INTO z_zvit SET id_shop=3,id_kass=31,id_zzvit=1,id_user=1,data_time=0,Oborot_A=700",
        "INSERT INTO z_zvit SET id_shop=3,id_kass=31,id_zzvit=2,id_user=1,data_time='2026-03-10 10:00:00',"
        "Oborot_A=700"});
    const ChainState chain = state();
    QCOMPARE(sumsOf(chain).turnover, qint64(0));
    QCOMPARE(chain.days.constLast().turnover, qint64(0));
    QVERIFY(chain.disagreeing.isEmpty());
    for (const QString &line : tree(chain))
        QVERIFY2(!line.contains("Ялта"), qPrintable(line));
}

/// Two open intervals of one register are a slip of who writes them.
void TstChainState::newestStateOfALineCounts()
{
    m_place->base.exec(
        "INSERT INTO onoffline VALUES(1,11,1,'2026-03-10 08:00:00',NULL),"
        "(1,11,0,'2026-03-10 12:59:59',NULL),(1,12,0,'2026-03-01 08:00:00','2026-03-10 07:00:00'),"
        "(1,12,1,'2026-03-10 07:00:00',NULL),(2,21,0,'2026-03-10 13:00:01',NULL),"
        "(1,NULL,0,'2026-03-10 01:00:00',NULL),(1,13,0,'2026-01-01 00:00:00',NULL)");
    const ChainState chain = state();
    QCOMPARE(tree(chain), (QStringList{"Київ|✗ 0 з 1 на зв'язку|||||", "  Каса 1|✗ без зв'язку з 13:00|||||",
                                       "Луцьк|✗ 1 з 2 на зв'язку|||||", "  Каса 1|✗ без зв'язку з 12:59|||||",
                                       "  Каса 2|✓ на зв'язку з 07:00|||||"}));
    // The blocked register is nobody's worry; that of Київ has 59 minutes and 59 seconds.
    QCOMPARE(silentRegisters(chain, m_now), QVector<DbId>{11});
    QCOMPARE(silentRegisters(chain, m_now.addSecs(1)), (QVector<DbId>{21, 11}));
}

void TstChainState::blockedPlacesShowWhatStandsOpen()
{
    closeShift(13, 1, "2026-03-03 20:00:00", 5000);
    m_place->base.exec(
        "INSERT INTO z_zvit SET id_shop=4,id_kass=41,id_zzvit=1,id_user=1,data_time=0,Oborot_A=1");
    const QStringList lines = tree(state());
    QVERIFY2(lines.contains("  Стара|заблокована||||50.00|"), qPrintable(lines.join('\n')));
    QVERIFY2(lines.join('\n').contains("Збут"), qPrintable(lines.join('\n')));
    m_place->base.exec("DELETE FROM z_zvit");
    QVERIFY(!tree(state()).join('\n').contains("Збут") && !tree(state()).join('\n').contains("Стара"));
}

void TstChainState::shiftsThatDisagree_data()
{
    QTest::addColumn<QString>("sums");
    QTest::addColumn<bool>("disagrees");

    QTest::newRow("all ways of paying") << "Oborot_A=100,Oborot_V=50,summ_diskount=10,cash=70,beznal_1=30,"
                                           "beznal_2=25,beznal_3=15"
                                        << false;
    QTest::newRow("a kopeck less") << "Oborot_A=100,cash=99" << true;
    QTest::newRow("the discount was paid, too") << "Oborot_A=100,summ_diskount=10,cash=100" << true;
    QTest::newRow("NULL is nothing") << "Oborot_A=NULL,Oborot_G=5,cash=NULL,beznal_1=5" << false;
    QTest::newRow("returns for themselves") << "Oborot_A=100,cash=100,Oborot_B_ret=40,cash_ret=40" << false;
    QTest::newRow("a return not paid back") << "Oborot_A=100,cash=100,Oborot_B_ret=40" << true;
    QTest::newRow("a return with its discount")
        << "Oborot_A_ret=40,summ_diskount_ret=4,beznal_1_ret=36" << false;
    QTest::newRow("more discount than sold") << "Oborot_A=10,summ_diskount=20,cash=0" << true;
    QTest::newRow("cash in and out is no sale") << "Oborot_A=1,cash=1,vnesenia=500,viluchenia=300" << false;
}

void TstChainState::shiftsThatDisagree()
{
    QFETCH(QString, sums);
    QFETCH(bool, disagrees);
    m_place->base.exec(QStringList{
        "INSERT INTO z_zvit SET id_shop=1,id_kass=11,id_zzvit=7,id_user=1,data_time='2026-03-08 20:00:00'," +
            sums,
        // An open one is still being written, one of long ago stays as it is.
        "INSERT INTO z_zvit SET id_shop=1,id_kass=11,id_zzvit=8,id_user=1,data_time=0,Oborot_A=5",
        "INSERT INTO z_zvit SET id_shop=1,id_kass=11,id_zzvit=1,id_user=1,data_time='2026-01-08 20:00:00',"
        "Oborot_A=5"});
    QCOMPARE(state().disagreeing, disagrees ? QVector<ShiftKey>{ShiftKey(11, 7)} : QVector<ShiftKey>());
}

void TstChainState::oldShiftsWithoutReceipts()
{
    closeShift(11, 1, "2026-03-09 13:59:59", 1);
    closeShift(12, 1, "2026-03-09 14:00:00", 1);
    m_place->base.exec("INSERT INTO z_zvit(id_shop,id_kass,id_zzvit,id_user,data_time) VALUES(1,11,2,1,0),"
                       "(1,12,2,1,0),(2,21,1,1,0)");
    // Of the first shift of a register nobody knows.
    QCOMPARE(oldShifts(state(), m_now), QVector<ShiftKey>{ShiftKey(11, 2)});
}

/// With the indexes: a shift begins with the first document behind the one that closed the shift before.
void TstChainState::receiptsTellWhenAShiftBegan()
{
    FreshDatabase &base = m_place->base;
    base.exec("ALTER TABLE cheks ADD INDEX tune_kass_chek(id_kass,id_chek), ADD INDEX "
              "tune_data_time(data_time,id_type,id_kass,id_chek,id_zvit,summa,count)");
    closeShift(11, 1, "2026-03-01 20:00:00", 1);
    base.exec(QStringList{
        "INSERT INTO z_zvit(id_shop,id_kass,id_zzvit,id_user,data_time) VALUES(1,11,2,1,0),(1,12,1,1,0),"
        "(2,21,1,1,0)",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,data_time) VALUES"
        "(1,11,1,7,0,1,1,'2026-03-01 19:00:00'),(1,11,1,8,0,1,10,'2026-03-01 20:00:00'),"
        "(1,11,2,9,0,1,4,'2026-03-10 07:55:00'),(1,11,2,10,0,1,1,'2026-03-10 08:10:00'),"
        "(1,11,2,10,2,1,3,'2026-03-10 08:10:00'),(1,11,2,11,0,1,5,'2026-03-10 12:00:00'),"
        "(1,12,1,1,0,1,1,'2026-03-08 09:00:00'),(1,12,1,2,0,1,6,'2026-03-10 13:59:00')"});
    ChainState chain = state();
    QVERIFY(chain.isTuned);
    const Counted counted = countedOf(read(countsSql(*m_place->user(), chain)));
    addReceiptTimes(&chain, counted.times);
    const QString user = base.value("SELECT CONCAT(surname,' ',name) FROM users WHERE id=1");
    const QStringList lines = tree(chain);
    QVERIFY2(lines.contains("  Каса 1|невідомо|з 07:55, " + user + "|0.00|||0"),
             qPrintable(lines.join('\n')));
    QVERIFY2(lines.contains("  Каса 2|невідомо|з 08.03 09:00, " + user + "|0.00|||0"),
             qPrintable(lines.join('\n')));
    // The one before was closed nine days ago, but this one is of today.
    QCOMPARE(oldShifts(chain, m_now), QVector<ShiftKey>{ShiftKey(12, 1)});
    QCOMPARE(counted.times.last.value(11), QDateTime(m_today, QTime(8, 10), Qt::UTC));
    QCOMPARE(sumsOf(chain).lastReceipt, QDateTime(m_today, QTime(13, 59), Qt::UTC));
    base.exec("ALTER TABLE cheks DROP INDEX tune_kass_chek");
    QVERIFY(!state().isTuned);
    base.exec("ALTER TABLE cheks DROP INDEX tune_data_time");
}

void TstChainState::countsAreThoseOfTheLists()
{
    FreshDatabase &base = m_place->base;
    base.exec(QStringList{
        "DELETE FROM clients", "DELETE FROM procent", "DELETE FROM action WHERE id>1",
        "INSERT IGNORE INTO group_goods(id,name) VALUES(3,'Пакети')",
        "INSERT INTO goods(id,name,price,group_g,block) VALUES(1,'Сир',900,1,0),(2,'Хліб',0,1,0),"
        "(3,'Чай',NULL,NULL,NULL),(4,'Сіль',0,1,1),(5,'Пакет',0,3,0),(6,'Мед',0,1,0),(7,'Рис',0,1,0)",
        "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(6,1,2,0,500),(7,1,2,0,0)",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) VALUES(1,1,-1,5),(1,2,0,-1),"
        "(1,3,0,0),(3,1,-5,0),(2,1,-1,-1)",
        "INSERT INTO action(id,name,id_type_action,datetime_start,datetime_end) VALUES"
        "(2,'Сьогодні',2,'2026-03-01 00:00:00','2026-03-10 23:59:59'),"
        "(3,'Зранку',2,'2026-03-01 00:00:00','2026-03-10 00:00:00'),"
        "(4,'Завтра',2,'2026-03-01 00:00:00','2026-03-11 00:00:00'),(5,'Завжди',2,0,0),(6,'Без',2,NULL,NULL)",
        "INSERT INTO procent(id,name,block) VALUES(1,'Старт',0),(2,'Закритий',1),(3,'Без',NULL)",
        "INSERT INTO clients(id,id_procent,group_shop) VALUES(1,1,1),(2,2,1),(3,2,4),(4,3,1)"});
    const Counted counted = countedOf(read(countsSql(*m_place->user(), state())));
    QCOMPARE(counted.counts.at(static_cast<int>(Concern::NegativeStock)), qint64(3));
    QCOMPARE(counted.counts.at(static_cast<int>(Concern::EndingActions)), qint64(2));
    QCOMPARE(counted.counts.at(static_cast<int>(Concern::UnpricedGoods)), qint64(3));
    QCOMPARE(counted.counts.at(static_cast<int>(Concern::BlockedLevels)), qint64(2));
}

void TstChainState::attentionFollowsTheRights()
{
    const ChainState chain = state();
    const auto actions = [&] {
        QStringList names;
        for (const AttentionEntry &entry : attentionOf(*m_place->user(), chain, {}, m_now))
            names.append(entry.destination.action);
        return names;
    };
    QCOMPARE(actions(), (QStringList{"mt_z_zvits", "mt_kass", "mt_z_zvits", "mt_goods_shops", "mt_action",
                                     "mt_goods", "mt_clients"}));
    // Without the tables of shifts and registers the reports about them are left.
    for (const int table : {Permission::Goods, Permission::ZZvit, Permission::Kassa})
        m_place->logIn(table, Permission::Denied);
    QCOMPARE(actions(), (QStringList{"mz_zzvit", "mz_StatisticOnLine", "mz_zzvit", "mt_goods_shops",
                                     "mt_action", "mt_clients"}));
    m_place->logIn(Permission::Online, Permission::Denied);
    QCOMPARE(actions().size(), 5);
    for (const int right : {Permission::Goods, Permission::ZZvit, Permission::Kassa, Permission::Online})
        m_place->logIn(right);
}

/// The bar of the window and the overview follow one rule.
void TstChainState::stepsFollowEachOther()
{
    FreshDatabase &base = m_place->base;
    m_place->clear();
    const QVector<QPair<QString, QString>> steps = {
        {"INSERT INTO shops(id,address,group_shop) VALUES(1,'Львів',1)", "додайте магазин"},
        {"INSERT INTO kassa(id,id_shop) VALUES(1,1)", "додайте касу"},
        {"INSERT INTO goods(id,name) VALUES(1,'Сир')", "додайте товари"},
        {"INSERT INTO goods_shop(id_shop,id_goods) VALUES(1,1)", "позначте в ньому магазини"},
        {"INSERT INTO z_zvit(id_shop,id_kass,id_zzvit,id_user,data_time) VALUES(1,1,1,1,0)", ""}};
    for (int done = 0; done < steps.size(); ++done) {
        const ChainState chain = state();
        QVERIFY(chain.steps.areOpen());
        for (int i = 0; i < steps.size(); ++i)
            QCOMPARE(chain.steps.*nextSteps().at(i).isDone, i < done);
        const QString words = nextStep(base.db());
        QVERIFY2(steps.at(done).second.isEmpty() ? words.isEmpty() : words.contains(steps.at(done).second),
                 qPrintable(words));
        base.exec(steps.at(done).first);
    }
    QVERIFY(!state().steps.areOpen());
}

QTEST_MAIN(TstChainState)
#include "tst_chainstate.moc"
