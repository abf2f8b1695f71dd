#include "testing.h"

#include "qmessevent.h"
#include "qupdatebd.h"
#include "rowstore.h"
#include "schema.h"

#include <QFile>
#include <QSqlError>

/// The shared database as other programs rely on it: tables, keys, seed rows, the change tracker.
class TstSchema : public QObject
{
    Q_OBJECT

private slots:
    void equalUnderEveryServerMode_data();
    void equalUnderEveryServerMode();
    void secondCreationChangesNothing();
    void usersAndOperationsAreSeededOnce();
    void administratorIsTheFirst();
    void everyTableHasTransactions();
    void failedTableStopsTheCreation();
    void failedSeedNamesItsTable();
    void serverKeepsTheRules();
    void changeIsStamped();
    void trackerTellsOthersChanges();
    void trackerTakesSeveralTables();
};

namespace {
QStringList dump(FreshDatabase &base)
{
    return base.rows("SELECT 'column',TABLE_NAME,ORDINAL_POSITION,COLUMN_NAME,COLUMN_TYPE,IS_NULLABLE,"
                     "COLUMN_DEFAULT,EXTRA FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_SCHEMA=DATABASE() "
                     "ORDER BY TABLE_NAME,ORDINAL_POSITION") +
           base.rows("SELECT 'key',TABLE_NAME,INDEX_NAME,SEQ_IN_INDEX,COLUMN_NAME,NON_UNIQUE FROM "
                     "INFORMATION_SCHEMA.STATISTICS WHERE TABLE_SCHEMA=DATABASE() "
                     "ORDER BY TABLE_NAME,INDEX_NAME,SEQ_IN_INDEX") +
           base.rows(
               "SELECT 'reference',k.TABLE_NAME,k.CONSTRAINT_NAME,k.COLUMN_NAME,k.REFERENCED_TABLE_NAME,"
               "k.REFERENCED_COLUMN_NAME,r.DELETE_RULE FROM INFORMATION_SCHEMA.KEY_COLUMN_USAGE k JOIN "
               "INFORMATION_SCHEMA.REFERENTIAL_CONSTRAINTS r ON "
               "r.CONSTRAINT_SCHEMA=k.CONSTRAINT_SCHEMA AND r.CONSTRAINT_NAME=k.CONSTRAINT_NAME WHERE "
               "k.TABLE_SCHEMA=DATABASE() ORDER BY k.TABLE_NAME,k.CONSTRAINT_NAME") +
           base.rows("SELECT 'engine',TABLE_NAME,ENGINE,TABLE_COLLATION FROM INFORMATION_SCHEMA.TABLES WHERE "
                     "TABLE_SCHEMA=DATABASE() ORDER BY TABLE_NAME");
}

QStringList seeds(FreshDatabase &base)
{
    QStringList rows;
    for (
        const char *sql :
        {"SELECT 'rules_goods',id,name FROM rules_goods ORDER BY id",
         "SELECT 'type_device',id,name FROM type_device ORDER BY id",
         "SELECT 'day_update',id,name FROM day_update ORDER BY id",
         "SELECT 'type_check',id,name FROM type_check ORDER BY id",
         "SELECT 'slujb_op',id,name,plus_minus FROM slujb_op ORDER BY id",
         "SELECT 'group_shop',id,name FROM group_shop ORDER BY id",
         "SELECT 'group_goods',id,name FROM group_goods ORDER BY id",
         "SELECT 'tax',id,name,pdv_proc,dod_name,dod_proc FROM tax ORDER BY id",
         "SELECT 'yesno',id,name FROM yesno ORDER BY id",
         "SELECT 'discbonus',id,name FROM discbonus ORDER BY id",
         "SELECT 'type_goods',id,name FROM type_goods ORDER BY id",
         "SELECT 'type_action',id,name FROM type_action ORDER BY id",
         "SELECT 'action',id,name,id_type_action,datetime_start,datetime_end FROM action ORDER BY id",
         "SELECT 'group_premission',id,name FROM group_premission ORDER BY id",
         "SELECT 'lst_permis',COUNT(*),MIN(id_prem),MAX(id_prem),MIN(permission),MAX(permission) FROM lst_permis",
         "SELECT 'lst_group',id_g_prem,id_group FROM lst_group",
         "SELECT 'users',login,pass,key_prem,name,surname,surname2,telephone,id_g_prem,id_group,id_shop FROM "
         "users",
         "SELECT 'updat',name FROM updat ORDER BY name"})
        rows += base.rows(QString::fromUtf8(sql));
    return rows;
}

QStringList expected()
{
    QFile file(QStringLiteral(SCHEMA_FILE));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No %s", SCHEMA_FILE);
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}
} // namespace

void TstSchema::equalUnderEveryServerMode_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("MariaDB") << "STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_AUTO_CREATE_USER,"
                                "NO_ENGINE_SUBSTITUTION";
    QTest::newRow("MySQL 8") << "ONLY_FULL_GROUP_BY,STRICT_TRANS_TABLES,NO_ZERO_IN_DATE,NO_ZERO_DATE,"
                                "ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION";
    QTest::newRow("none") << "";
}

void TstSchema::equalUnderEveryServerMode()
{
    QFETCH(QString, mode);
    const GlobalVariable serverMode("sql_mode", mode);
    FreshDatabase base;
    const QStringList found = dump(base) + seeds(base);
    const QStringList wanted = expected();
    for (int i = 0; i < qMax(found.size(), wanted.size()); ++i)
        QCOMPARE(found.value(i), wanted.value(i));
}

void TstSchema::secondCreationChangesNothing()
{
    FreshDatabase base;
    base.exec(QStringList{"UPDATE day_update SET name='Нд' WHERE id=7", "DELETE FROM type_device WHERE id=3",
                          "INSERT INTO group_shop(name) VALUES('Захід')"});
    const QStringList tables = dump(base);
    QVERIFY(createSchema(base.db()));
    QCOMPARE(dump(base), tables);
    QCOMPARE(base.value("SELECT name FROM day_update WHERE id=7"), QString("Нд"));
    QCOMPARE(base.value("SELECT name FROM type_device WHERE id=3"), QString("Камера"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM group_shop"), QString("2"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM users"), QString("1"));
    QCOMPARE(base.heard.texts(3),
             (QStringList{"Зачекайте. Створюються таблиці.", "Перезавантажте програму!"}));
}

void TstSchema::usersAndOperationsAreSeededOnce()
{
    FreshDatabase base;
    base.exec(
        QStringList{"DELETE FROM lst_permis", "DELETE FROM lst_group", "DELETE FROM slujb_op WHERE id=2"});
    QVERIFY(createSchema(base.db()));
    QCOMPARE(base.value("SELECT COUNT(*) FROM lst_permis"), QString("0"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM lst_group"), QString("0"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM slujb_op"), QString("1"));
}

/// A cluster's nodes count in steps, each from a number of its own.
void TstSchema::administratorIsTheFirst()
{
    FreshDatabase base(FreshDatabase::Empty);
    base.exec("SET SESSION auto_increment_increment=3, auto_increment_offset=2");
    QVERIFY(createSchema(base.db()));
    QCOMPARE(base.rows("SELECT id,login,id_g_prem,id_group,id_shop FROM users"),
             QStringList{"1|admin|1|1|0"});
    QCOMPARE(base.rows("SELECT id FROM group_premission"), QStringList{"1"});
    QCOMPARE(base.rows("SELECT DISTINCT id_g_prem FROM lst_permis"), QStringList{"1"});
    QCOMPARE(base.rows("SELECT id FROM group_shop UNION SELECT id FROM group_goods"), QStringList{"1"});
}

void TstSchema::everyTableHasTransactions()
{
    FreshDatabase base(FreshDatabase::Empty);
    const GlobalVariable engine("default_storage_engine", "MyISAM");
    FreshDatabase made;
    QCOMPARE(made.rows("SELECT DISTINCT ENGINE FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA=DATABASE()"),
             QStringList{"InnoDB"});
    QCOMPARE(tablesWithoutTransactions(made.db()), QStringList());
    made.exec({"SET foreign_key_checks=0", "DROP TABLE goods_shop",
               "CREATE TABLE goods_shop(id_shop INT) ENGINE=MyISAM"});
    QCOMPARE(tablesWithoutTransactions(made.db()), QStringList{"goods_shop (MyISAM)"});
}

void TstSchema::failedTableStopsTheCreation()
{
    FreshDatabase base(FreshDatabase::Empty);
    base.exec("CREATE TABLE goods(a INT)");
    QVERIFY(!createSchema(base.db(), "tab_table/qtablebase.cpp", 7));
    const auto message = base.heard.all().value(1);
    QVERIFY2(message.text.startsWith("Помилка створення таблиці dk_shc\n"), qPrintable(message.text));
    QCOMPARE(message.location, QString("In file: tab_table/qtablebase line: 7"));
    QCOMPARE(base.rows("SHOW TABLES LIKE 'prices'"), QStringList());
    QCOMPARE(base.value("SELECT COUNT(*) FROM rules_goods"), QString("0"));
    base.exec("DROP TABLE goods");
    QVERIFY(createSchema(base.db()));
    QCOMPARE(base.value("SELECT COUNT(*) FROM users"), QString("1"));
}

void TstSchema::failedSeedNamesItsTable()
{
    FreshDatabase base(FreshDatabase::Empty);
    base.exec("CREATE TABLE type_device(id INT UNSIGNED NOT NULL, PRIMARY KEY(id))");
    QVERIFY(createSchema(base.db()));
    QVERIFY2(base.heard.has("Помилка ініціалізації таблиці rules_goods\nUnknown column 'name'", 1),
             qPrintable(base.heard.texts().join('\n')));
    QCOMPARE(base.value("SELECT COUNT(*) FROM rules_goods"), QString("4"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM day_update"), QString("0"));
}

void TstSchema::serverKeepsTheRules()
{
    FreshDatabase base;
    base.exec(QStringList{"INSERT INTO shops(id,address,network_shop) VALUES(1,'A','10.0.0.1'),(2,'B',NULL),"
                          "(3,'C',NULL)",
                          "INSERT INTO kassa(id,id_shop) VALUES(1,1)",
                          "INSERT INTO onoffline VALUES(1,1,1,NOW(),NULL)",
                          "INSERT INTO goods(id,name) VALUES(1,'x'),(2,'y')",
                          "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(1,'4820000000017')"});
    const auto code = [&](const QString &sql) {
        QSqlQuery query(*base.connection());
        return query.exec(sql) ? QString("runs") : query.lastError().nativeErrorCode();
    };
    QCOMPARE(code("DELETE FROM shops WHERE id=1"), QString("1451"));
    QCOMPARE(code("DELETE FROM kassa WHERE id=1"), QString("runs"));
    QCOMPARE(base.rows("SELECT id_shop,id_kass FROM onoffline"), QStringList{"1|"});
    QCOMPARE(code("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(2,'4820000000017')"), QString("1062"));
    QCOMPARE(code("INSERT INTO shops(address) VALUES('A')"), QString("1062"));
    QCOMPARE(code("INSERT INTO shops(address,network_shop) VALUES('D','10.0.0.1')"), QString("1062"));
    QCOMPARE(code("DELETE FROM goods WHERE id=1"), QString("runs"));
    QCOMPARE(base.value("SELECT COUNT(*) FROM dk_shc"), QString("0"));
}

void TstSchema::changeIsStamped()
{
    FreshDatabase base;
    base.exec("INSERT INTO goods(id,name) VALUES(1,'x')");
    base.exec("UPDATE goods SET data_update='2001-01-01 00:00:00'");
    base.exec("UPDATE goods SET name='y'");
    QCOMPARE(base.value("SELECT data_update>NOW()-INTERVAL 1 MINUTE FROM goods"), QString("1"));
    base.exec("UPDATE goods SET data_update='2001-01-01 00:00:00'");
    base.exec("UPDATE goods SET data_update=NULL");
    QCOMPARE(base.value("SELECT data_update>NOW()-INTERVAL 1 MINUTE FROM goods"), QString("1"));
}

void TstSchema::trackerTellsOthersChanges()
{
    FreshDatabase base;
    QUpdateBD tracker;
    QSqlDatabase &db = *base.connection();
    Heard *ear = &base.heard;
    QVERIFY(tracker.create_tmp(db, ear));
    QVERIFY(tracker.isUpdate("goods", db, ear));
    QVERIFY(tracker.reRead("goods", db, ear));
    QVERIFY(!tracker.isUpdate("goods", db, ear));
    base.exec("UPDATE updat SET updat=NOW()+INTERVAL 1 SECOND WHERE name='goods'");
    QVERIFY(tracker.isUpdate("goods", db, ear));
    QVERIFY(!tracker.isUpdate("no'such", db, ear) && ear->texts().isEmpty());
    // The private list dies with its connection and comes back by itself.
    base.killConnection();
    QVERIFY(tracker.isUpdate("goods", db, ear));
    QVERIFY2(ear->texts().isEmpty(), qPrintable(ear->texts().join('\n')));
    base.exec("DROP TABLE updat");
    QVERIFY(!tracker.update("goods", db, ear));
    QVERIFY(ear->has("Створіть таблиці та перезапустіть програму.Не знайдено таблицю updat", 1));
}

void TstSchema::trackerTakesSeveralTables()
{
    FreshDatabase base;
    QUpdateBD tracker;
    QSqlDatabase &db = *base.connection();
    Heard *ear = &base.heard;
    const QStringList tables = {"goods", "dk_shc", "prices"};
    int statements = 0;
    Db::setStatementHook([&statements](const QString &) { ++statements; });
    const auto sentFor = [&statements](const std::function<bool()> &act) {
        statements = 0;
        return act() ? statements : -1;
    };
    QCOMPARE(sentFor([&] { return tracker.create_tmp(db, ear); }), 3);
    QCOMPARE(sentFor([&] { return tracker.reRead(tables, db, ear); }), 2);
    QCOMPARE(sentFor([&] { return !tracker.isUpdate(tables, db, ear); }), 1);
    QVERIFY(tracker.isUpdate(QStringList{"goods", "shops"}, db, ear));
    base.exec("UPDATE updat SET updat='2001-01-01 00:00:00'");
    QCOMPARE(sentFor([&] { return tracker.update(QStringList{"dk_shc", "kassa"}, db, ear); }), 2);
    QCOMPARE(base.rows("SELECT name FROM updat WHERE updat>'2001-01-01 00:00:00' ORDER BY name"),
             (QStringList{"dk_shc", "kassa"}));

    // As a list does it: the times come from another connection, before its rows. Somebody writes meanwhile.
    auto query = base.db().run(QUpdateBD::timesSql(tables));
    const RowStore times = RowStore::read(*query);
    base.exec("UPDATE updat SET updat=NOW()+INTERVAL 2 SECOND WHERE name='prices'");
    QSqlDatabase other = QSqlDatabase::cloneDatabase(db, "other");
    QVERIFY(other.open());
    QVERIFY(other.exec("START TRANSACTION").isActive());
    QVERIFY(other.exec("UPDATE updat SET updat=NOW()").isActive());
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(sentFor([&] { return tracker.setRead(times, db, ear); }), 1);
    QVERIFY(tracker.reRead("shops", db, ear));
    QVERIFY2(clock.elapsed() < 1000, "Waited for somebody who writes");
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase("other");
    QVERIFY(!tracker.isUpdate(QStringList{"goods", "dk_shc"}, db, ear));
    QVERIFY(tracker.isUpdate("prices", db, ear));

    base.exec(QStringList{"CREATE TABLE later(id INT)", "INSERT INTO updat VALUES('later',NOW())"});
    QVERIFY(tracker.isUpdate("later", db, ear));
    QVERIFY(tracker.reRead("later", db, ear) && !tracker.isUpdate("later", db, ear));
    base.killConnection();
    QVERIFY(tracker.setRead(times, db, ear) && !tracker.isUpdate("goods", db, ear));
    QVERIFY(tracker.isUpdate("shops", db, ear));
    Db::setStatementHook(nullptr);
    QVERIFY2(ear->texts().isEmpty(), qPrintable(ear->texts().join('\n')));
}

QTEST_MAIN(TstSchema)
#include "tst_schema.moc"
