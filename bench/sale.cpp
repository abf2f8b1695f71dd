#include "act.h"
#include "bench.h"

#include "chekwriter.h"
#include "qloadeduser.h"
#include "qpayment.h"
#include "qregistersale.h"
#include "testing.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr int stockShops = 12;
constexpr int stockGoods = 2000;

} // namespace

bool fillSaleShops(const Bench &bench)
{
    const Db db = bench.db();
    return db.run(QStringLiteral("INSERT IGNORE INTO group_shop(id,name) VALUES(2,'Місто')")) &&
           db.run(QStringLiteral("INSERT IGNORE INTO lst_group(id_g_prem,id_group) VALUES(1,2)")) &&
           db.run(QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT seq,"
                                 "CONCAT('Магазин ',LPAD(seq,2,'0')),2,1,0 FROM seq_1_to_%1")
                      .arg(stockShops)) &&
           db.run(QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) "
                                 "VALUES(1,1,'Каса 1',0),(2,1,'Каса 2',0)")) &&
           db.run(
               QStringLiteral("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) SELECT shops.id,seq,"
                              "1000000 FROM shops,seq_1_to_%1")
                   .arg(stockGoods)) &&
           db.run(QStringLiteral("UPDATE goods SET group_g=1,block=0 WHERE id<4"));
}

namespace {
/// The sale tab as people use it: three goods are scanned, then F9, the money and OK.
class SaleWindow
{
public:
    explicit SaleWindow(const Bench &bench) : m_user(nullptr, nullptr)
    {
        if (!m_user.loadpermis(bench.connection, QStringLiteral("admin"), QString()))
            qFatal("Nobody to sell");
        m_tab = std::make_unique<QRegisterSale>(bench.connection, &m_user, nullptr, nullptr, nullptr);
        m_tab->resize(1200, 800);
        m_tab->show();
    }

    /// From the payment's OK to the receipt's number. sent: what was written meanwhile.
    Cost sell(QStringList *sent = nullptr)
    {
        fill();
        Cost cost;
        std::unique_ptr<ActClock> clock;
        const auto sale = [&] {
            m_tab->sale();
            waitFor([&] { return clock != nullptr && notice().startsWith(QStringLiteral("Чек №")); });
            cost = clock->end();
            waitOutTasks();
            Db::setStatementHook({});
        };
        withModal<QPayment>(sale, [&](QPayment *payment) {
            waitOutTasks();
            child<QPushButton>(payment, QStringLiteral("pbRestCash"))->click();
            if (sent != nullptr)
                Db::setStatementHook([sent](const QString &sql) { sent->append(sql); });
            clock = std::make_unique<ActClock>();
            payment->ok();
        });
        if (sent != nullptr)
            *sent = sent->mid(0, sent->indexOf(QStringLiteral("COMMIT")) + 1);
        return cost;
    }

private:
    QString notice() const { return child<QLabel>(m_tab.get(), QStringLiteral("lbNotice"))->text(); }

    /// The list of goods and the change tracker of the sale before are through by then.
    void fill()
    {
        QTest::qWait(100);
        auto *search = child<QLineEdit>(m_tab.get(), QStringLiteral("leSearch"));
        for (int goods = 1; goods < 4; ++goods) {
            QTest::keyClicks(search, QString::number(4820000000000 + qint64(13) * goods));
            QTest::keyClick(search, Qt::Key_Return);
            waitOutTasks();
        }
    }

    QLoadedUser m_user;
    std::unique_ptr<QRegisterSale> m_tab;
};

/// The statements of a sale on register 1, sent again for register 2 under the next number.
class BareSale
{
public:
    BareSale(const Bench &bench, const QStringList &statements) : m_bare(bench.address)
    {
        for (QString sql : statements) {
            sql.replace(QStringLiteral("id_kass=1"), QStringLiteral("id_kass=2"));
            m_statements.append(sql.replace(QStringLiteral("(1,1,1,2,1,"), QStringLiteral("(1,2,1,%1,1,")));
        }
    }

    double sell()
    {
        QStringList ready;
        ++m_number;
        for (const QString &sql : m_statements)
            ready.append(sql.contains(QStringLiteral("%1")) ? sql.arg(m_number) : sql);
        return milliseconds([&] {
            for (const QString &sql : ready)
                m_bare.run(sql);
        });
    }

private:
    BareClient m_bare;
    QStringList m_statements;
    int m_number = 0;
};
} // namespace

/// From the payment's OK to the receipt's number, against its statements alone; and how long the window took
/// no key meanwhile.
QVector<Figure> measureSale(const Bench &bench)
{
    if (!fillSaleShops(bench))
        qFatal("The shops could not be filled");
    SaleWindow window(bench);
    window.sell();
    QStringList statements;
    window.sell(&statements);
    // Register 2 has a shift of its own.
    bench.db().run(ChekSql::createZ({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("1")},
                                    QStringLiteral("1"), 1));
    BareSale bare(bench, statements);
    double gap = 0;
    const auto sell = [&] {
        const Cost cost = window.sell();
        gap = qMax(gap, cost.gapMs);
        return cost.ms;
    };
    const double times = ratio(
        bench.rounds, [&] { return bare.sell(); }, sell);
    return {{QStringLiteral("sale, from OK to its number"), times, 1.3, QStringLiteral("x bare")},
            {QStringLiteral("sale, longest gap of the window"), gap, 50, QStringLiteral("ms")}};
}
