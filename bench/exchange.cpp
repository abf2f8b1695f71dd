#include "act.h"
#include "bench.h"

#include "exchangerun.h"
#include "job.h"

#include <QTemporaryDir>

namespace {
constexpr int lines = 20000;
constexpr int registers = 20;
constexpr int sellingCards = 50000;

/// A shop with its registers, a ladder, and what the cards were before.
void fillExchange(const Bench &bench)
{
    const QStringList statements = {
        QStringLiteral("REPLACE INTO procent(id,name,discount,sum,auto,block) VALUES(1,'0 %',0,0,1,0),"
                       "(2,'3 %',300,5000000,1,0),(3,'5 %',500,9000000,1,0),(4,'7 %',700,12000000,1,1)"),
        QStringLiteral("INSERT INTO shops(id,address,group_shop,block) VALUES(201,'Магазин 201',1,0)"),
        QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,cashdrive_code,block) SELECT "
                       "2000+seq,201,CONCAT('Каса ',seq),LPAD(seq,3,'0'),0 FROM seq_1_to_%1")
            .arg(registers),
        QStringLiteral(
            "CREATE TABLE clients_before AS SELECT id,summ,id_procent,send FROM clients WHERE id<=%1")
            .arg(1000000000LL + sellingCards),
        QStringLiteral("ALTER TABLE clients_before ADD PRIMARY KEY(id)")};
    for (const QString &statement : statements)
        exec(bench, statement);
}

void restore(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM cd_cheks"));
    exec(bench, QStringLiteral("UPDATE clients c JOIN clients_before b ON b.id=c.id SET c.summ=b.summ,"
                               "c.id_procent=b.id_procent,c.send=b.send"));
}

/// Two lines of three with a card; some articles, some cards unknown.
ServerLines linesOf(int kass)
{
    ServerLines sold;
    for (int i = kass; i < lines; i += registers) {
        ServerLine line;
        line.article = 1 + static_cast<quint64>(i) * 7919 % 56000;
        line.thousandths = 1000 + i % 3000;
        line.kopecks = 1 + i * 31 % 40000;
        if (i % 3 != 0)
            line.card = 1000000001 + static_cast<quint64>(i) * 104729 % (sellingCards + 100);
        line.year = 2026;
        line.month = 3;
        line.day = 1 + i % 2;
        sold.append(line);
    }
    return sold;
}

/// Its lines are kept already; it lets the hook hear the run, if there is one.
class QuietServer : public RegisterServer
{
public:
    bool isThere() const override { return true; }
    QString open(const QString &, int) override { return QString(); }
    QString writeCard(const QString &, const ServerCard &) override { return QString(); }
    QString writeArticles(const QVector<ServerArticle> &, bool) override { return QString(); }
    QString writeLevels(const QVector<ServerLevel> &) override { return QString(); }
    QString readTransactions(const QString &, const Keep &) override { return QString(); }
    QString call(const QString &) override { return QString(); }
};

/// A run of the exchange that counts what waits, as the page begins it.
class Counting
{
public:
    explicit Counting(const Bench &bench)
    {
        m_order.readsTransactions = true;
        m_order.connection = bench.connection->connectionName();
        m_order.folder = m_folder.path();
    }

    double run(QStringList *sent = nullptr)
    {
        keep();
        m_order.server = [sent] {
            if (sent != nullptr)
                Db::letHooksHearThisThread();
            return std::make_unique<QuietServer>();
        };
        if (sent != nullptr)
            Db::setStatementHook([sent](const QString &sql) { sent->append(sql); });
        const double ms = milliseconds([this] { runJob(); });
        Db::setStatementHook({});
        return ms;
    }

private:
    void keep()
    {
        const TransactionSpool spool(m_order.folder);
        for (int kass = 0; kass < registers; ++kass) {
            const QString code = QString::number(kass + 1).rightJustified(3, QLatin1Char('0'));
            if (!spool.keep(code, linesOf(kass)).isEmpty())
                qFatal("Nothing to count");
        }
    }

    void runJob()
    {
        Job job(
            QString(), m_order.connection, [this](JobContext &context) { return AutoCall(context, m_order); },
            nullptr);
        JobResult result;
        bool isOver = false;
        QObject::connect(&job, &Job::finished, &job, [&](const JobResult &ended) {
            result = ended;
            isOver = true;
        });
        job.start();
        waitFor([&isOver] { return isOver; });
        if (result.value.value<ExchangeOutcome>().count.lines != lines)
            qFatal("Not all lines were counted: %s", qPrintable(result.words));
    }

    QTemporaryDir m_folder;
    ExchangeOrder m_order;
};
} // namespace

QVector<Figure> measureExchange(const Bench &bench)
{
    fillExchange(bench);
    Counting counting(bench);
    QStringList sent;
    counting.run(&sent);
    BareClient bare(bench.address);
    bare.run(QStringLiteral("SET SESSION explicit_defaults_for_timestamp=OFF"));
    const double share = ratio(
        qMin(bench.rounds, 3),
        [&] {
            restore(bench);
            return milliseconds([&] {
                for (const QString &sql : qAsConst(sent))
                    bare.run(sql);
            });
        },
        [&] {
            restore(bench);
            return counting.run();
        });
    restore(bench);
    exec(bench, QStringLiteral("DROP TABLE clients_before"));
    return {{QStringLiteral("20 000 lines of the registers counted"), share, 1.1, QStringLiteral("x bare")}};
}
