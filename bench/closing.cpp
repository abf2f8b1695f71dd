#include "bench.h"

#include "cheksql.h"
#include "shiftcloser.h"

namespace {
constexpr int closingsPerRound = 5;
const QDateTime evening(QDate(2026, 11, 21), QTime(20, 0));

ChekPlace place(int kass)
{
    return {QStringLiteral("101"), QString::number(kass), QStringLiteral("1")};
}

/// A shop of its own, with registers 101 and 102, and what the chain has sold at 103.
bool fillShop(const Db &db)
{
    return db.run(QStringLiteral("INSERT IGNORE INTO group_shop(id,name) VALUES(2,'Місто')")) &&
           db.run(QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) "
                                 "VALUES(101,'Магазин 101',2,7,0)")) &&
           db.run(QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) "
                                 "VALUES(101,101,'Каса 101',0),(102,101,'Каса 102',0),"
                                 "(103,101,'Каса 103',0)")) &&
           db.run(QStringLiteral("INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,"
                                 "id_user,data_time) SELECT 101,103,1,seq,0,1,1,20261120120000 FROM "
                                 "seq_1_to_50000"));
}

/// Shifts of one register, each opened unmeasured; the numbers of shift and Z receipt are the same.
class Shifts
{
public:
    Shifts(const Bench &bench, int kass) : m_db(bench.db()), m_kass(kass) {}

    QString open()
    {
        QString zNumber = QString::number(++m_number);
        if (!m_db.run(ChekSql::createZ(place(m_kass), zNumber, 1)))
            qFatal("The shift was not opened");
        return zNumber;
    }

    double close()
    {
        const QString zNumber = open();
        return milliseconds([&] {
            const ShiftCloser closer(m_db, place(m_kass));
            const auto figures = closer.figures(zNumber);
            if (!figures || closer.close(*figures, {}, evening.date()) != ShiftCloser::Closed)
                qFatal("The shift was not closed");
        });
    }

private:
    const Db m_db;
    int m_kass;
    int m_number = 0;
};

/// The statements that closed shift 1 of register 101, for a shift of register 102.
QStringList forShift(const QStringList &statements, const QString &zNumber)
{
    QStringList ready;
    for (QString sql : statements) {
        sql.replace(QStringLiteral("id_kass=101"), QStringLiteral("id_kass=102"));
        sql.replace(QStringLiteral("id_zzvit=1"), QStringLiteral("id_zzvit=") + zNumber);
        ready.append(sql.replace(QStringLiteral("SELECT 101,101,1,1,"),
                                 QStringLiteral("SELECT 101,102,%1,%1,").arg(zNumber)));
    }
    return ready;
}

} // namespace

/// From the closing form's figures to the closed shift; and how much longer that is than its statements
/// alone. As a ratio it would only tell of noise: each of them is a look-up of a fraction of a millisecond.
QVector<Figure> measureClosing(const Bench &bench)
{
    if (!fillShop(bench.db()))
        qFatal("The shop could not be filled");
    Shifts ours(bench, 101);
    QStringList statements;
    Db::setStatementHook([&](const QString &sql) { statements.append(sql); });
    ours.close();
    Db::setStatementHook({});
    // The first one opened the shift.
    statements.removeFirst();
    Shifts theirs(bench, 102);
    BareClient bare(bench.address);
    const auto closeBare = [&] {
        const QStringList ready = forShift(statements, theirs.open());
        return milliseconds([&] {
            for (const QString &sql : ready)
                bare.run(sql);
        });
    };
    QVector<double> bareTimes;
    QVector<double> ourTimes;
    for (int i = 0; i < bench.rounds * closingsPerRound; ++i) {
        bareTimes.append(closeBare());
        ourTimes.append(ours.close());
    }
    for (const char *table : {"cheks", "z_zvit"})
        bench.db().run(QStringLiteral("DELETE FROM %1 WHERE id_shop=101").arg(QLatin1String(table)));
    const double ms = median(ourTimes);
    return {{QStringLiteral("closing a shift, from its figures"), ms, 100, QStringLiteral("ms")},
            {QStringLiteral("closing, more than its statements bare"), ms - median(bareTimes), 2,
             QStringLiteral("ms")}};
}
