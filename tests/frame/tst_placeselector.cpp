#include "testing.h"

#include "placeselector.h"

#include <QComboBox>
#include <QSignalSpy>

/// A place whose boxes are read away from the window: what is chosen before the rows have come, what stays,
/// and what a failure leaves.
class TstPlaceSelector : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup() { m_place.reset(); }

    void wantedIsChosenOnceItHasCome();
    void choiceIsKeptWhereItIsOffered();
    void newestRowsCount();
    void failureLeavesTheFirstItem();

private:
    void refillGroups();
    void settle();
    QStringList items(const char *box) const;

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<PlaceSelector> m_place;
};

void TstPlaceSelector::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
    m_base->exec({"CREATE TABLE g(name CHAR(20),id INT UNSIGNED)",
                  "INSERT INTO g VALUES('Захід',2),('Схід',3)",
                  "CREATE TABLE s(name CHAR(20),id INT UNSIGNED,g INT)",
                  "INSERT INTO s VALUES('А',10,2),('Б',11,2),('В',12,3)",
                  "CREATE TABLE k(name CHAR(20),id INT UNSIGNED,s INT)",
                  "INSERT INTO k VALUES('К1',100,10),('К2',101,10),('К1',110,11),('К1',120,12)"});
}

/// The boxes follow one another as in a report; the registers are known by their names only.
void TstPlaceSelector::init()
{
    m_base->heard.forget();
    m_place = std::make_unique<PlaceSelector>();
    PlaceSelector *place = m_place.get();
    place->open(m_base->connection()->connectionName(), &m_base->heard);
    connect(place, &PlaceSelector::groupChanged, place, [place] {
        place->refillShops(QString("SELECT name,id FROM s WHERE g=%1 OR 0=%1").arg(place->place().group));
    });
    connect(place, &PlaceSelector::shopChanged, place, [place](const QString &shop) {
        place->refillRegisters("SELECT k.name FROM k JOIN s ON s.id=k.s WHERE s.name=:name",
                               {{":name", shop}});
    });
    refillGroups();
}

void TstPlaceSelector::refillGroups()
{
    m_place->refillGroups("SELECT name,id FROM g");
    m_place->refillShops("SELECT name,id FROM s");
}

void TstPlaceSelector::settle()
{
    QVERIFY(QTest::qWaitFor([this] { return !m_place->isReading(); }));
}

QStringList TstPlaceSelector::items(const char *box) const
{
    QStringList texts;
    const auto *found = child<QComboBox>(m_place.get(), box);
    for (int i = 0; i < found->count(); ++i)
        texts.append(found->itemText(i));
    return texts;
}

void TstPlaceSelector::wantedIsChosenOnceItHasCome()
{
    QSignalSpy chosen(m_place.get(), &PlaceSelector::chosen);
    QSignalSpy touched(m_place.get(), &PlaceSelector::touched);
    m_place->chooseGroup(2);
    m_place->chooseShop(11);
    m_place->showRegister("К1");
    QCOMPARE(m_place->narrowest(), PlaceSelector::Everywhere);
    settle();
    QCOMPARE(m_place->description(), QString("Захід, Б, К1"));
    QCOMPARE(items("cbRegister"), QStringList({"Усі каси", "К1"}));
    QCOMPARE(chosen.count(), 1);
    // What is not offered: by id nothing, by name it is added. A group forgets what stood below it.
    QVERIFY(!m_place->chooseGroup(77));
    m_place->chooseGroup(3);
    m_place->chooseShop(10);
    settle();
    QCOMPARE(m_place->description(), QString("Схід"));
    m_place->showPlace(77, "Зачинена", "Стара");
    settle();
    QCOMPARE(m_place->description(), QString("Зачинена, Стара"));
    QVERIFY(touched.isEmpty());
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstPlaceSelector::choiceIsKeptWhereItIsOffered()
{
    m_place->showPlace(2, "А", "К2");
    settle();
    m_place->keepChoice();
    refillGroups();
    settle();
    QCOMPARE(m_place->description(), QString("Захід, А, К2"));
    m_base->exec("UPDATE s SET g=3 WHERE id=10");
    m_place->keepChoice();
    refillGroups();
    settle();
    m_base->exec("UPDATE s SET g=2 WHERE id=10");
    QCOMPARE(m_place->description(), QString("Захід"));
    QCOMPARE(items("cbRegister"), QStringList("Усі каси"));
}

void TstPlaceSelector::newestRowsCount()
{
    settle();
    m_place->refillShops("SELECT name,id FROM s WHERE g=2 AND SLEEP(0.05)=0");
    m_place->refillShops("SELECT name,id FROM s WHERE g=3");
    QCOMPARE(items("cbShop"), QStringList("Усі магазини"));
    settle();
    QCOMPARE(items("cbShop"), QStringList({"Усі магазини", "В"}));
    QTest::qWait(150);
    QCOMPARE(items("cbShop"), QStringList({"Усі магазини", "В"}));
    // Long enough to be noticed it says so.
    m_place->refillShops("SELECT name,id FROM s WHERE SLEEP(0.2)=0");
    QCOMPARE(items("cbShop"), QStringList("Усі магазини"));
    QTRY_COMPARE(items("cbShop"), QStringList("Читається…"));
    QCOMPARE(m_place->shopName(), QString());
    settle();
    QCOMPARE(items("cbShop"), QStringList({"Усі магазини", "А", "Б", "В"}));
}

void TstPlaceSelector::failureLeavesTheFirstItem()
{
    settle();
    QSignalSpy chosen(m_place.get(), &PlaceSelector::chosen);
    m_place->refillShops("SELECT name,id FROM nothing");
    m_place->chooseShop(10);
    settle();
    QCOMPARE(items("cbShop"), QStringList("Усі магазини"));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(m_base->heard.texts().size(), 1);
    m_place->chooseGroup(2);
    settle();
    QCOMPARE(items("cbShop"), QStringList({"Усі магазини", "А", "Б"}));
    QCOMPARE(m_place->description(), QString("Захід"));
}

QTEST_MAIN(TstPlaceSelector)
#include "tst_placeselector.moc"
