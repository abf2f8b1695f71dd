#include "bench.h"

#include "cardrange.h"
#include "job.h"

#include <QEventLoop>

namespace {
const qint64 firstCard = 3000000000;
const qint64 cards = 10000;
const qint64 rowsInStatement = 500;

void removeCards(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM clients WHERE id>=%1").arg(firstCard));
}

/// What the creation sends, one after the other.
QStringList statements()
{
    QStringList all = {QStringLiteral("SELECT COUNT(*) FROM clients WHERE id>=%1 AND id<%2")
                           .arg(firstCard)
                           .arg(firstCard + cards)};
    for (const char *named :
         {"procent WHERE name='Рівень'", "discbonus WHERE name='Знижка'", "yesno WHERE name='Ні'",
          "group_shop WHERE name='default'", "yesno WHERE name='Ні'", "yesno WHERE name='Ні'"})
        all.append(QStringLiteral("SELECT id FROM ") + QString::fromUtf8(named));
    for (qint64 first = firstCard; first < firstCard + cards; first += rowsInStatement) {
        QStringList rows;
        for (qint64 code = first; code < first + rowsInStatement; ++code)
            rows.append(QStringLiteral("(%1,1,0,0,1,0,0)").arg(code));
        all.append(QStringLiteral("INSERT INTO clients(id,id_procent,bonus_discount,fiksed,group_shop,block,"
                                  "send) VALUES") +
                   rows.join(QLatin1Char(',')));
    }
    all.append(QStringLiteral("UPDATE updat SET updat=NOW() WHERE name IN ('clients')"));
    return all;
}

double createBare(const Bench &bench, BareClient *bare)
{
    const QStringList all = statements();
    const double took = milliseconds([&] {
        for (const QString &sql : all)
            bare->run(sql);
    });
    removeCards(bench);
    return took;
}

/// With the connection that the job opens.
double create(const Bench &bench)
{
    const CardRange range = {firstCard,
                             cards,
                             QStringLiteral("Рівень"),
                             QStringLiteral("Знижка"),
                             QStringLiteral("Ні"),
                             QStringLiteral("default"),
                             QStringLiteral("Ні"),
                             QStringLiteral("Ні")};
    QEventLoop loop;
    Job job(
        QStringLiteral("cards"), bench.connection->connectionName(),
        [range](JobContext &context) { return createCards(context, range); }, nullptr);
    QObject::connect(&job, &Job::finished, &loop, [&](const JobResult &result) {
        if (result.outcome != JobResult::Done)
            qFatal("The cards were not created");
        loop.quit();
    });
    const double took = milliseconds([&] {
        job.start();
        loop.exec();
    });
    removeCards(bench);
    return took;
}
} // namespace

QVector<Figure> measureCards(const Bench &bench)
{
    exec(bench,
         QStringLiteral("INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Рівень',0,0,0,0)"));
    BareClient bare(bench.address);
    const double created = ratio(
        bench.rounds, [&] { return createBare(bench, &bare); }, [&] { return create(bench); });
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=0"));
    exec(bench, QStringLiteral("DELETE FROM procent"));
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=1"));
    return {{QStringLiteral("creating 10,000 cards"), created, 1.1, QStringLiteral("x bare")}};
}
