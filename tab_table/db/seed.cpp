#include "schema.h"

#include "db.h"
#include "qmessevent.h"

#include <QCoreApplication>

namespace {
/// The texts of the table host, under whose name the translations know them.
struct Host
{
    Q_DECLARE_TR_FUNCTIONS(QTableBase)
};

struct SeedStatement
{
    const char *table;
    QString sql;
};

class Seeder
{
public:
    Seeder(const Db &db, const char *file, int line) : m_db(db), m_file(file), m_line(line) {}

    bool insert(const SeedStatement &seed) const
    {
        QString error;
        if (m_db.attempt(seed.sql, &error))
            return true;
        postMessage(m_db.receiver(),
                    Host::tr("Помилка ініціалізації таблиці") + QLatin1Char(' ') + QLatin1String(seed.table) +
                        QLatin1Char('\n') + error,
                    QMessEvent::Critical, m_file, m_line);
        return false;
    }

    bool insertAll(const QVector<SeedStatement> &seeds) const
    {
        for (const SeedStatement &seed : seeds) {
            if (!insert(seed))
                return false;
        }
        return true;
    }

    /// The number of rows of a table, or -1 after a reported failure.
    qint64 rows(const QString &table) const
    {
        const auto count =
            m_db.firstText(QStringLiteral("SELECT COUNT(*) FROM ") + table, {}, {}, m_file, m_line);
        return count ? count->toLongLong() : -1;
    }

private:
    const Db m_db;
    const char *m_file;
    int m_line;
};

/// The translated names bring their own quotes.
SeedStatement twoNames(const char *table, const QString &row0, const QString &row1)
{
    return {table, QStringLiteral("INSERT IGNORE INTO ") + QLatin1String(table) +
                       QStringLiteral(" VALUES(0,") + row0 + QStringLiteral("),(1,") + row1 +
                       QLatin1Char(')')};
}

QVector<SeedStatement> fixedLists()
{
    return {
        {"rules_goods", QStringLiteral("INSERT IGNORE INTO rules_goods (id,name) VALUES(1,'Без правил'),"
                                       "(2,'С.Ваговий'),(3,'С.Ваговий Люкс'),(4,'Списання')")},
        // Reported under the name of the table before it, as every installed copy does.
        {"rules_goods", QStringLiteral("INSERT IGNORE INTO type_device (id,name) VALUES(1,'ПК'),(2,'РРО'),"
                                       "(3,'Камера'),(4,'Відеосервер'),(5,'NAS-PC')")},
        {"day_update",
         QStringLiteral("INSERT IGNORE INTO day_update (id,name) VALUES(1,'Понеділок'),(2,'Вівторок'),"
                        "(3,'Середа'),(4,'Четвер'),(5,'П''ятниця'),(6,'Субота'),(7,'Неділя')")}};
}

SeedStatement receiptTypes()
{
    return {"type_check",
            QStringLiteral("INSERT IGNORE INTO type_check(id,name) VALUES(1,'Продаж товару'),(2,'Знижка'),"
                           "(3,'Оплата'),(4,'Службове внесення'),(5,'Службова видача'),"
                           "(6,'Повернення товару'),(7,'Прийом товару'),(8,'Переміщення'),(9,'Передача'),"
                           "(10,'Z-Звіт')")};
}

SeedStatement serviceOperations()
{
    return {"slujb_op", QStringLiteral("INSERT INTO slujb_op (id,name,plus_minus) VALUES"
                                       "(1,'Службове внесення',1),(2,'Службове вилучення',0)")};
}

QVector<SeedStatement> groupsTaxesNames()
{
    return {
        {"group_shop", QStringLiteral("INSERT IGNORE INTO group_shop VALUES(1,'default',NOW())")},
        {"group_goods", QStringLiteral("INSERT IGNORE INTO group_goods VALUES(1,'default',NOW())")},
        {"tax", QStringLiteral("INSERT IGNORE INTO tax VALUES(1,'ПДВ А',2000,'ДОД А',0,NULL),"
                               "(2,'ПДВ Б',2000,'ДОД Б',500,NULL),(3,'ПДВ В',700,'ДОД В',0,NULL),"
                               "(4,'ПДВ Г',0,'ДОД Г',0,NULL),(5,'ПДВ Д',0,'ДОД Д',0,NULL)")},
        twoNames("yesno", Host::tr("'Ні'"), Host::tr("'Так'")),
        twoNames("discbonus", Host::tr("'Знижка'"), Host::tr("'Бонус'")),
        twoNames("type_goods", Host::tr("'Ваговий'"), Host::tr("'Штучний'")),
        {"type_action",
         QStringLiteral("INSERT IGNORE INTO type_action(id,name) VALUES(1,'Без акції'),(2,'Знижка %')")},
        {"action",
         QStringLiteral("INSERT IGNORE INTO action(id,id_type_action,name,datetime_start,datetime_end) "
                        "VALUES(1,1,'Без акції',0,0)")},
    };
}

QString everyPermission()
{
    QString sql = QStringLiteral("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES");
    for (int i = 0; i < 400; ++i)
        sql += QStringLiteral("(1,") + QString::number(i) + QStringLiteral(",1),");
    sql.chop(1);
    return sql;
}

bool seedAdministrator(const Db &db, const Seeder &seeder)
{
    Transaction transaction(db);
    return transaction &&
           seeder.insertAll(
               {{"group_premission",
                 QStringLiteral("INSERT IGNORE INTO group_premission(id,name) VALUES(1,'developer')")},
                {"lst_permis", everyPermission()},
                {"lst_group", QStringLiteral("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,1)")},
                {"users",
                 QStringLiteral("INSERT INTO users(id,login,pass,key_prem,name,surname,"
                                "surname2,id_g_prem) VALUES(1,'admin','','1000000001','Адмін','Системний',"
                                "'Головний',1)")}}) &&
           transaction.commit();
}
} // namespace

bool seedTables(const Db &db, const char *file, int line)
{
    const Seeder seeder(db, file, line);
    if (!seeder.insertAll(fixedLists()))
        return false;
    const qint64 operations = seeder.rows(QStringLiteral("slujb_op"));
    if (operations < 0 || !seeder.insert(receiptTypes()))
        return false;
    // Plain and only once: operations that a user edited or added are never seeded again.
    if (operations == 0 && !seeder.insert(serviceOperations()))
        return false;
    if (!seeder.insertAll(groupsTaxesNames()))
        return false;
    const qint64 users = seeder.rows(QStringLiteral("users"));
    return users > 0 || (users == 0 && seedAdministrator(db, seeder));
}
