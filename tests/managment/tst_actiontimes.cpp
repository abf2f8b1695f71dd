#include "actiontimes.h"

#include "goodssearch.h"
#include "saleshop.h"

/// When promotions apply: the one rule against the statement that the sale sends.
class TstActionTimes : public QObject
{
    Q_OBJECT

private slots:
    void asTheSaleDecides();
    void states_data();
    void states();
    void meetings_data();
    void meetings();
    void words();
};

namespace {
QDateTime at(const char *time)
{
    return QDateTime::fromString(QLatin1String(time), Qt::ISODate);
}

ActionTimes times(const char *start, const char *end, const char *days, int kind = 2)
{
    return actionTimes(kind, QLatin1String(start), QLatin1String(end), QLatin1String(days));
}

const char *const everyDay = "Mon,Tue,Wed,Thu,Fri,Sat,Sun,";
} // namespace

/// Every pair of ends, each with many week days, at the seconds before, at and behind those ends.
void TstActionTimes::asTheSaleDecides()
{
    FreshDatabase base;
    fillSaleShop(&base);
    const QStringList ends = {"NULL",           "0",
                              "20261120080000", "20261120220000",
                              "20261121000000", "20261121123005",
                              "20261121235959", "20261125123005",
                              "20270328033000", "'0000-00-00 10:00:00'"};
    const QStringList days = {"NULL",       "''",         "'Mon,Tue,Wed,Thu,Fri,Sat,Sun,'",
                              "'Sat,'",     "'Sun,Sat,'", "'sat,'",
                              "'Saturday'", "'Sat'"};
    QStringList actions;
    QStringList goods;
    QStringList stock;
    for (const QString &start : ends) {
        for (const QString &end : ends) {
            for (const QString &day : days) {
                const QString id = QString::number(1000 + actions.size());
                actions.append(QString("(%1,'%1',%2,1000,%3,%4,%5)")
                                   .arg(id, actions.size() % 11 == 10 ? "1" : "2", start, end, day));
                goods.append(QString("(%1,'item',1,5,1,100,1,0)").arg(id));
                stock.append(QString("(1,%1,%1)").arg(id));
            }
        }
    }
    base.exec(
        {"DELETE FROM goods_shop",
         "INSERT INTO action(id,name,id_type_action,val,datetime_start,"
         "datetime_end,week_day) VALUES" +
             actions.join(','),
         "INSERT INTO goods(id,name,type,tax,group_g,price,id_rules_goods,block) VALUES" + goods.join(','),
         "INSERT INTO goods_shop(id_shop,id_goods,id_action) VALUES" + stock.join(',')});
    QHash<QString, ActionTimes> known;
    for (const QString &row : base.rows("SELECT id," + actionTimesSql() + " FROM action WHERE id>=1000"))
        known.insert(row.section('|', 0, 0), actionTimes(row.section('|', 1)));
    QCOMPARE(known.size(), actions.size());

    int inForce = 0;
    for (const char *moment :
         {"2026-11-20T07:59:59", "2026-11-20T08:00:00", "2026-11-20T22:00:00", "2026-11-20T22:00:01",
          "2026-11-21T00:00:00", "2026-11-21T12:30:04", "2026-11-21T12:30:05", "2026-11-21T12:30:06",
          "2026-11-21T23:59:59", "2026-11-22T12:30:05", "2026-11-28T12:30:06", "2027-03-28T04:30:00"}) {
        GoodsSearch search;
        search.idShop = 1;
        search.by = GoodsSearch::Name;
        search.time = at(moment);
        search.limit = 10000;
        auto query = base.db().run(goodsListSql(search));
        QVERIFY(query.has_value());
        int rows = 0;
        while (query->next()) {
            ++rows;
            const GoodsItem item = goodsItem(*query);
            const ActionTimes &action = known[QString::number(item.idGoods)];
            const bool isGiven = item.actType != GoodsItem::withoutAction;
            inForce += isGiven ? 1 : 0;
            if (isInForce(action, search.time) != isGiven)
                QFAIL(qPrintable(
                    QString("%1 at %2: %3").arg(actions.at(int(item.idGoods) - 1000), moment).arg(isGiven)));
            if (isGiven && !neverWords(action).isEmpty())
                QFAIL(qPrintable(actions.at(int(item.idGoods) - 1000) + neverWords(action)));
        }
        QCOMPARE(rows, actions.size());
    }
    // Both answers have been met often.
    QVERIFY(inForce > 500 && inForce < 6 * actions.size());
}

void TstActionTimes::states_data()
{
    QTest::addColumn<ActionTimes>("action");
    QTest::addColumn<ActionState>("state");
    QTest::newRow("undated") << times("0000-00-00 00:00:00", "0000-00-00 00:00:00", "Sat,")
                             << ActionState::InForce;
    QTest::newRow("other day") << times("0000-00-00 00:00:00", "", "Fri,Sun,") << ActionState::OtherDays;
    QTest::newRow("other hours") << times("2026-11-01 13:00:00", "2026-11-30 22:00:00", everyDay)
                                 << ActionState::OtherHours;
    QTest::newRow("planned") << times("2026-11-21 12:00:01", "2026-11-30 22:00:00", everyDay)
                             << ActionState::Planned;
    QTest::newRow("over") << times("2026-11-01 00:00:00", "2026-11-21 11:59:59", everyDay)
                          << ActionState::Over;
    QTest::newRow("no kind") << times("0000-00-00 00:00:00", "", everyDay, 1) << ActionState::Off;
    QTest::newRow("no day") << times("0000-00-00 00:00:00", "", "") << ActionState::Off;
    QTest::newRow("a day of others") << times("0000-00-00 00:00:00", "", "6") << ActionState::Off;
    QTest::newRow("no end") << times("2026-11-01 00:00:00", "0000-00-00 00:00:00", everyDay)
                            << ActionState::Off;
    QTest::newRow("over midnight") << times("2026-11-01 22:00:00", "2026-11-30 06:00:00", everyDay)
                                   << ActionState::Off;
}

void TstActionTimes::states()
{
    QFETCH(ActionTimes, action);
    QFETCH(ActionState, state);
    QCOMPARE(actionStateWords(actionState(action, at("2026-11-21T12:00:00"))), actionStateWords(state));
    QCOMPARE(neverWords(action).isEmpty(), state != ActionState::Off);
}

void TstActionTimes::meetings_data()
{
    QTest::addColumn<ActionTimes>("one");
    QTest::addColumn<ActionTimes>("other");
    QTest::addColumn<bool>("isMet");
    const ActionTimes weekend = times("0000-00-00 00:00:00", "", "Sat,Sun,");
    const ActionTimes mornings = times("2026-11-01 08:00:00", "2026-11-30 11:59:59", everyDay);
    QTest::newRow("itself") << weekend << weekend << true;
    QTest::newRow("no common day") << weekend << times("0000-00-00 00:00:00", "", "Mon,Fri,") << false;
    QTest::newRow("mornings of a weekend") << weekend << mornings << true;
    QTest::newRow("morning and afternoon")
        << mornings << times("2026-11-01 12:00:00", "2026-11-30 22:00:00", everyDay) << false;
    QTest::newRow("one second") << mornings << times("2026-11-01 11:59:59", "2026-11-30 22:00:00", everyDay)
                                << true;
    QTest::newRow("over by now") << weekend << times("2026-10-01 08:00:00", "2026-11-14 22:00:00", everyDay)
                                 << false;
    // Today is a Saturday; its hours are over.
    QTest::newRow("over today") << weekend << times("2026-10-01 08:00:00", "2026-11-21 11:00:00", everyDay)
                                << false;
    QTest::newRow("next week") << times("2026-12-01 00:00:00", "2026-12-04 23:59:59", everyDay)
                               << times("0000-00-00 00:00:00", "", "Fri,") << true;
    QTest::newRow("that day is not among them")
        << times("2026-12-01 00:00:00", "2026-12-03 23:59:59", everyDay)
        << times("0000-00-00 00:00:00", "", "Fri,") << false;
    QTest::newRow("one that is off") << weekend << times("0000-00-00 00:00:00", "", "Sat,", 1) << false;
}

void TstActionTimes::meetings()
{
    QFETCH(ActionTimes, one);
    QFETCH(ActionTimes, other);
    QFETCH(bool, isMet);
    QCOMPARE(meet(one, other, at("2026-11-21T12:00:00")), isMet);
    QCOMPARE(meet(other, one, at("2026-11-21T12:00:00")), isMet);
}

void TstActionTimes::words()
{
    QCOMPARE(weekDaysShown("Sun,Mon,"), QString("Пн Нд"));
    QCOMPARE(weekDaysShown(everyDay), QString("щодня"));
    QCOMPARE(weekDaysShown("будні"), QString("будні"));
    const ActionTimes dated = times("2026-11-01 08:00:00", "2026-11-30 21:59:59", everyDay);
    QCOMPARE(actionHoursShown(dated), QString("08:00–21:59"));
    QCOMPARE(actionPeriodShown(dated), QString("01.11.2026 – 30.11.2026"));
    QCOMPARE(actionHoursShown(times("2026-11-01 00:00:00", "2026-11-30 23:59:00", "")),
             QString("цілодобово"));
    QCOMPARE(actionPeriodShown(times("0000-00-00 00:00:00", "2026-11-30 23:59:00", "")), QString("без дат"));
    QCOMPARE(actionPeriodShown(times("", "2026-11-30 23:59:00", "")), QString("… – 30.11.2026"));
}

Q_DECLARE_METATYPE(ActionTimes)
Q_DECLARE_METATYPE(ActionState)
QTEST_MAIN(TstActionTimes)
#include "tst_actiontimes.moc"
