#include "act.h"
#include "bench.h"

#include "cheksql.h"
#include "qloadeduser.h"
#include "qpayment.h"
#include "qregistersale.h"
#include "testing.h"

#include <QComboBox>
#include <QLabel>

namespace {
constexpr int closingsPerRound = 5;

ChekPlace place(int kass)
{
    return {QStringLiteral("101"), QString::number(kass), QStringLiteral("1")};
}

/// A shop of its own, with registers 101 and 102, and what the chain has sold at 103.
bool fillShop(const Db &db)
{
    return db.run(QStringLiteral("INSERT IGNORE INTO group_shop(id,name) VALUES(2,'Місто')")) &&
           db.run(QStringLiteral("INSERT IGNORE INTO lst_group(id_g_prem,id_group) VALUES(1,2)")) &&
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

private:
    const Db m_db;
    int m_kass;
    int m_number = 0;
};

/// The sale tab at register 101: F12, the form as it is, OK.
class ClosingWindow
{
public:
    explicit ClosingWindow(const Bench &bench) : m_user(nullptr, nullptr)
    {
        if (!m_user.loadpermis(bench.connection, QStringLiteral("admin"), QString()))
            qFatal("Nobody to close a shift");
        m_tab = std::make_unique<QRegisterSale>(bench.connection, &m_user, nullptr, nullptr, nullptr);
        m_tab->resize(1200, 800);
        m_tab->show();
        waitOutTasks();
        auto *shops = child<QComboBox>(m_tab.get(), QStringLiteral("cbShop"));
        shops->setCurrentIndex(shops->findData(101));
        waitOutTasks();
    }

    /// From the form's OK to the word that the shift is closed. sent: what was written meanwhile.
    Cost close(QStringList *sent = nullptr)
    {
        Cost cost;
        std::unique_ptr<ActClock> clock;
        const auto close = [&] {
            m_tab->CloseZ_zvit();
            waitFor([&] { return clock != nullptr && notice().startsWith(QStringLiteral("Зміну №")); });
            cost = clock->end();
            waitOutTasks();
            Db::setStatementHook({});
        };
        withModal<QPayment>(close, [&](QPayment *form) {
            waitOutTasks();
            if (sent != nullptr)
                Db::setStatementHook([sent](const QString &sql) { sent->append(sql); });
            clock = std::make_unique<ActClock>();
            form->ok();
        });
        if (sent != nullptr)
            *sent = sent->mid(0, sent->indexOf(QStringLiteral("COMMIT")) + 1);
        return cost;
    }

private:
    QString notice() const { return child<QLabel>(m_tab.get(), QStringLiteral("lbNotice"))->text(); }

    QLoadedUser m_user;
    std::unique_ptr<QRegisterSale> m_tab;
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

/// From the closing form's OK to the word that the shift is closed; how much longer that is than its
/// statements alone, as a ratio it would only tell of noise; and how long the window took no key meanwhile.
QVector<Figure> measureClosing(const Bench &bench)
{
    if (!fillShop(bench.db()))
        qFatal("The shop could not be filled");
    ClosingWindow window(bench);
    Shifts ours(bench, 101);
    QStringList statements;
    ours.open();
    window.close(&statements);
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
    double gap = 0;
    for (int i = 0; i < bench.rounds * closingsPerRound; ++i) {
        bareTimes.append(closeBare());
        ours.open();
        const Cost cost = window.close();
        ourTimes.append(cost.ms);
        gap = qMax(gap, cost.gapMs);
    }
    for (const char *table : {"cheks", "z_zvit"})
        bench.db().run(QStringLiteral("DELETE FROM %1 WHERE id_shop=101").arg(QLatin1String(table)));
    const double ms = median(ourTimes);
    return {{QStringLiteral("closing a shift, from OK to its end"), ms, 100, QStringLiteral("ms")},
            {QStringLiteral("closing, more than its statements bare"), ms - median(bareTimes), 5,
             QStringLiteral("ms")},
            {QStringLiteral("closing, longest gap of the window"), gap, 50, QStringLiteral("ms")}};
}
