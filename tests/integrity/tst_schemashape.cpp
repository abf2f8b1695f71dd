#include "schemashape.h"

#include "testing.h"

using namespace integrity;

/// The definitions of the tables, held against those that the server has.
class TstSchemaShape : public QObject
{
    Q_OBJECT

private slots:
    void whatTheProgramCreatesIsSound_data();
    void whatTheProgramCreatesIsSound();
    void mysqlTellsTheSameOtherwise();
    void plantedDifferences();
    void othersMayAddWhatRefusesNothing();
};

namespace {
SchemaRows readRows(FreshDatabase *base)
{
    SchemaRows all;
    for (const QString &sql : schemaStatements()) {
        all.append(QVector<QStringList>());
        for (const QString &row : base->rows(sql))
            all.last().append(row.split('|'));
    }
    return all;
}

QStringList words(const SchemaRows &rows)
{
    QStringList all;
    for (const SchemaDifference &difference : schemaDifferences(wantedShapes(), shapesFrom(rows)))
        all.append(QString::fromLatin1(difference.check) + ": " + difference.words);
    return all;
}
} // namespace

void TstSchemaShape::whatTheProgramCreatesIsSound_data()
{
    QTest::addColumn<QString>("tuning");
    QTest::newRow("as it is") << "DO 0";
    QTest::newRow("with the indexes for quick reports")
        << "ALTER TABLE cheks ADD INDEX tune_kass_chek(id_kass,id_chek), ADD INDEX tune_data_time(data_time)";
}

void TstSchemaShape::whatTheProgramCreatesIsSound()
{
    QFETCH(QString, tuning);
    FreshDatabase base;
    base.exec(tuning);
    QCOMPARE(words(readRows(&base)), QStringList());
}

/// Whole numbers without a width, defaults without quotes, NULL as such, another word for refusing.
void TstSchemaShape::mysqlTellsTheSameOtherwise()
{
    FreshDatabase base;
    SchemaRows rows = readRows(&base);
    for (QStringList &cells : rows[1]) {
        if (cells.at(2).startsWith("int("))
            cells[2] = cells.at(2).contains("unsigned") ? "int unsigned" : "int";
        cells[4] = cells.at(4) == "NULL" ? QString() : cells.at(4).toUpper().remove('\'').remove("()");
        cells[5] = cells.at(5) == "on update current_timestamp()"
                       ? "DEFAULT_GENERATED on update CURRENT_TIMESTAMP"
                       : cells.at(5);
    }
    for (QStringList &cells : rows[3])
        cells[4].replace("RESTRICT", "NO ACTION");
    QCOMPARE(words(rows), QStringList());
}

/// Each in a place of its own.
void TstSchemaShape::plantedDifferences()
{
    const struct
    {
        const char *change;
        const char *found;
    } planted[] = {
        {"DROP TABLE cd_cheks", "schema_table: Таблиці «cd_cheks» немає."},
        {"DROP TABLE updat", "schema_table: Таблиці «updat» немає."},
        {"ALTER TABLE goods DROP COLUMN info",
         "schema_column: У таблиці «goods» немає колонки info (char(100) NULL)."},
        {"ALTER TABLE z_zvit MODIFY cash INT DEFAULT 0",
         "schema_column: Таблиця «z_zvit», колонка cash: має бути int unsigned NULL DEFAULT 0, а є int NULL "
         "DEFAULT 0."},
        {"ALTER TABLE shops MODIFY name CHAR(30)",
         "schema_column: Таблиця «shops», колонка name: має бути char(32) NULL, а є char(30) NULL."},
        {"ALTER TABLE users MODIFY surname CHAR(50) NULL",
         "schema_column: Таблиця «users», колонка surname: має бути char(50) NOT NULL, а є char(50) NULL."},
        {"ALTER TABLE goods ALTER id_rules_goods SET DEFAULT 2",
         "schema_column: Таблиця «goods», колонка id_rules_goods: має бути int unsigned NULL DEFAULT 1, а є int "
         "unsigned NULL DEFAULT 2."},
        {"ALTER TABLE comands MODIFY id INT UNSIGNED NOT NULL",
         "schema_column: Таблиця «comands», колонка id: має бути int unsigned NOT NULL AUTO_INCREMENT, а є int "
         "unsigned NOT NULL."},
        {"ALTER TABLE tax MODIFY data_update TIMESTAMP NOT NULL DEFAULT CURRENT_TIMESTAMP",
         "schema_column: Таблиця «tax», колонка data_update: має бути timestamp NOT NULL ON UPDATE "
         "CURRENT_TIMESTAMP, а є timestamp NOT NULL DEFAULT current_timestamp()."},
        {"ALTER TABLE goods ADD COLUMN extra INT NOT NULL",
         "schema_column: У таблиці «goods» є зайва колонка extra (int NOT NULL): вона не приймає записів без "
         "значення."},
        {"ALTER TABLE prices DROP PRIMARY KEY, ADD INDEX(id_goods)",
         "schema_key: У таблиці «prices» немає ключа PRIMARY KEY(id_goods,id_shop,id_group,priority)."},
        {"ALTER TABLE dk_shc DROP INDEX shtrihcod",
         "schema_key: У таблиці «dk_shc» немає ключа UNIQUE(shtrihcod)."},
        {"ALTER TABLE devices DROP INDEX name, ADD INDEX name(name)",
         "schema_key: У таблиці «devices» немає ключа UNIQUE(name)."},
        {"ALTER TABLE goods DROP INDEX name", "schema_key: У таблиці «goods» немає ключа INDEX(name)."},
        {"ALTER TABLE goods ADD UNIQUE(name_short)",
         "schema_key: У таблиці «goods» є зайвий ключ UNIQUE(name_short): він може не прийняти записів."},
        {"ALTER TABLE cheks DROP FOREIGN KEY fc_ch_id_user",
         "schema_reference: У таблиці «cheks» немає зовнішнього ключа id_user → users(id)."},
        {"ALTER TABLE dk_shc DROP FOREIGN KEY fc_ds_id_goods, ADD CONSTRAINT fc_ds FOREIGN KEY (id_goods) "
         "REFERENCES goods(id)",
         "schema_reference: Таблиця «dk_shc»: зовнішній ключ має бути id_goods → goods(id) ON DELETE CASCADE, а "
         "є id_goods → goods(id)."},
        {"ALTER TABLE comands ENGINE=MyISAM",
         "schema_engine: Таблиця «comands» зберігається у MyISAM замість InnoDB: без транзакцій і зовнішніх "
         "ключів."},
        {"ALTER TABLE comands CONVERT TO CHARACTER SET latin1",
         "schema_collation: Таблиця «comands» має порівняння latin1_swedish_ci, а має бути %1."},
        {"ALTER TABLE goods MODIFY name_short CHAR(32) COLLATE utf8mb4_bin",
         "schema_collation: Таблиця «goods», колонка name_short має порівняння utf8mb4_bin, а має бути %1."},
    };
    FreshDatabase base;
    const QString usual = base.value("SELECT @@collation_database");
    QStringList wanted;
    for (const auto &one : planted) {
        base.exec(QString::fromUtf8(one.change));
        wanted.append(QString::fromUtf8(one.found).replace("%1", usual));
    }
    QStringList found = words(readRows(&base));
    found.sort();
    wanted.sort();
    for (int i = 0; i < qMax(found.size(), wanted.size()); ++i)
        QCOMPARE(found.value(i), wanted.value(i));
}

void TstSchemaShape::othersMayAddWhatRefusesNothing()
{
    FreshDatabase base;
    base.exec(
        QStringList{"CREATE TABLE front_office(a INT) ENGINE=MyISAM",
                    "ALTER TABLE goods ADD COLUMN colour CHAR(10), ADD COLUMN weight INT NOT NULL DEFAULT 0",
                    "ALTER TABLE goods ADD INDEX(price)", "CREATE VIEW cheap AS SELECT id FROM goods"});
    QCOMPARE(words(readRows(&base)), QStringList());
}

QTEST_MAIN(TstSchemaShape)
#include "tst_schemashape.moc"
