#include "placebar.h"

#include "heartbeat.h"
#include "qloadeduser.h"
#include "saleshop.h"
#include "salework.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QSignalSpy>

/// Shops and registers of the sale shop; the user's own shop is the first.
class TstPlaceBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void offersWhereTheUserMaySell();
    void whatMayNotBeLeftStays();
    void comesBackWithTheServer();
    void ofALargeChain();
    void followsTheClock();

private:
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<PlaceBar> m_bar;
    QComboBox *m_shops = nullptr;
    QComboBox *m_registers = nullptr;
    QDateEdit *m_date = nullptr;
};

void TstPlaceBar::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(QStringLiteral("UPDATE users SET id_shop=1 WHERE id=1"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), QStringLiteral("admin"), QString()));
}

void TstPlaceBar::init()
{
    m_bar = std::make_unique<PlaceBar>();
    m_bar->setUp(new SaleWork(m_base->connection(), m_user.get(), &m_base->heard, m_bar.get()));
    QVERIFY(m_bar->isReading() && !m_bar->isChosen());
    waitOutTasks();
    m_shops = child<QComboBox>(m_bar.get(), QStringLiteral("cbShop"));
    m_registers = child<QComboBox>(m_bar.get(), QStringLiteral("cbKass"));
    m_date = child<QDateEdit>(m_bar.get(), QStringLiteral("dateEdit"));
}

void TstPlaceBar::cleanupTestCase()
{
    m_bar.reset();
    m_user.reset();
    m_base.reset();
}

/// No office, no warehouse, nothing blocked. Two shops have a register of the same name.
void TstPlaceBar::offersWhereTheUserMaySell()
{
    QCOMPARE(m_shops->count(), 2);
    QCOMPARE(m_shops->currentText(), QStringLiteral("вул. Перша, 1"));
    QCOMPARE(m_registers->count(), 2);
    QCOMPARE(m_bar->place().kass, QStringLiteral("1"));
    QSignalSpy goods(m_bar.get(), &PlaceBar::goodsChanged);
    QSignalSpy kass(m_bar.get(), &PlaceBar::kassChanged);
    m_shops->setCurrentIndex(0);
    QVERIFY(m_bar->hasShop() && !m_bar->isChosen());
    waitOutTasks();
    QCOMPARE(m_registers->currentText(), QStringLiteral("Каса 1"));
    QCOMPARE(m_bar->place().shop + m_bar->place().kass + m_bar->place().user, QStringLiteral("241"));
    QCOMPARE(goods.size(), 1);
    QCOMPARE(kass.size(), 1);
    // Blocked with an open shift: only for closing it.
    m_base->exec({QStringLiteral("UPDATE kassa SET block=1 WHERE id=4"),
                  QStringLiteral("INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(1,2,4,0)")});
    m_bar->fillShops();
    waitOutTasks();
    QVERIFY(!m_bar->isClosingOnly());
    m_shops->setCurrentIndex(0);
    waitOutTasks();
    QVERIFY(m_bar->isChosen() && m_bar->isClosingOnly());
    m_base->exec({QStringLiteral("UPDATE kassa SET block=0"),
                  QStringLiteral("UPDATE kassa SET block=1 WHERE id=3"),
                  QStringLiteral("DELETE FROM z_zvit")});
}

/// While somebody is asked the old choice is seen, and it is the one that holds.
void TstPlaceBar::whatMayNotBeLeftStays()
{
    const QDate today = QDate::currentDate();
    bool mayLeave = false;
    QStringList seen;
    m_bar->setGuard([&](PlaceBar::Choice, const PlaceBar::Leave &leave) {
        seen.append(m_shops->currentText() + m_registers->currentText() + m_date->text());
        if (mayLeave)
            leave();
    });
    const QString before = m_shops->currentText() + m_registers->currentText() + m_date->text();
    QSignalSpy goods(m_bar.get(), &PlaceBar::goodsChanged);
    QSignalSpy kass(m_bar.get(), &PlaceBar::kassChanged);
    const auto changeAll = [&] {
        m_registers->setCurrentIndex(1);
        m_date->setDate(today.addDays(-1));
        m_shops->setCurrentIndex(0);
    };
    changeAll();
    QCOMPARE(seen, (QStringList{before, before, before}));
    QCOMPARE(m_shops->currentText() + m_registers->currentText() + m_date->text(), before);
    QCOMPARE(goods.size() + kass.size(), 0);
    QVERIFY(!m_bar->chosenDate().isValid());
    const auto *caption = child<QLabel>(m_bar.get(), QStringLiteral("label_dateEdit"));
    QCOMPARE(caption->text(), QStringLiteral("Дата:"));
    mayLeave = true;
    changeAll();
    waitOutTasks();
    QCOMPARE(m_bar->place().kass, QStringLiteral("4"));
    QCOMPARE(m_bar->chosenDate(), today.addDays(-1));
    // Not by its colour alone.
    QCOMPARE(caption->text(), QStringLiteral("! Дата:"));
    QCOMPARE(m_date->accessibleDescription(), QStringLiteral("Дата чека не сьогоднішня."));
    QCOMPARE(goods.size(), 2);
    QCOMPARE(kass.size(), 2);
}

/// The registers of a shop that was chosen while the server was away are read when it is back.
void TstPlaceBar::comesBackWithTheServer()
{
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.contains(QLatin1String("FROM kassa")) ? 2013 : 0; });
    m_shops->setCurrentIndex(1 - m_shops->currentIndex());
    waitOutTasks();
    Db::setStatementRefusal({});
    QVERIFY(m_bar->hasShop() && !m_bar->isChosen());
    QVERIFY(waitForServer(m_base->db(), 3000));
    emit m_user->rightsChanged();
    waitOutTasks();
    QVERIFY(m_bar->isChosen());
    m_base->heard.forget();
}

/// The window takes keys while three thousand shops come, and the own one is found among them.
void TstPlaceBar::ofALargeChain()
{
    m_base->exec(
        QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT seq,CONCAT("
                       "'А ',seq),2,1,0 FROM seq_1001_to_4200"));
    Heartbeat heart;
    heart.restart();
    m_bar->fillShops();
    waitOutTasks();
    const qint64 gap = heart.longestGap();
    m_base->exec(QStringLiteral("DELETE FROM shops WHERE id>1000"));
    QCOMPARE(m_shops->count(), 3202);
    QCOMPARE(m_bar->place().shop, QStringLiteral("1"));
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString::number(gap)));
}

/// Today's date goes on with the night, another one does not; it is coloured.
void TstPlaceBar::followsTheClock()
{
    const QDate evening(2026, 11, 23);
    QDateTime time(evening, QTime(23, 59));
    const auto before = SaleClock::setSource([&] { return time; });
    m_bar->followToday();
    QCOMPARE(m_date->date(), evening);
    const QColor usual = m_date->palette().color(QPalette::Base);
    time = time.addSecs(120);
    m_bar->followToday();
    QCOMPARE(m_date->date(), evening.addDays(1));
    m_date->setDate(evening);
    QVERIFY(m_date->palette().color(QPalette::Base) != usual);
    m_bar->followToday();
    QCOMPARE(m_bar->chosenDate(), evening);
    m_bar->backToToday();
    QCOMPARE(m_date->date(), evening.addDays(1));
    QCOMPARE(m_date->palette().color(QPalette::Base), usual);
    SaleClock::setSource(before);
}

QTEST_MAIN(TstPlaceBar)
#include "tst_placebar.moc"
