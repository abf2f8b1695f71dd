#include "bench.h"

#include "ean13.h"
#include "pricelist.h"
#include "pricelistimport.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

namespace {
constexpr int records = 10000;
constexpr double readingGoal = 0.3;
constexpr double importGoal = 0.1;

/// Sound barcodes that no other goods here have.
QString barcode(int item)
{
    const QString data = QString::number(290000000000 + item);
    return data + eanCheckDigit(data, data.size());
}

int price(int item)
{
    return 1000 + item;
}

void addBarcodes(const Bench &bench)
{
    QString sql = QStringLiteral("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES");
    for (int item = 1; item <= records; ++item)
        sql += QStringLiteral("(%1,'%2'),").arg(item).arg(barcode(item));
    sql.chop(1);
    exec(bench, sql);
}

void removeBarcodes(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM dk_shc WHERE shtrihcod>='29' AND shtrihcod<'30'"));
    exec(bench,
         QStringLiteral("UPDATE goods SET price=id*7919%100000 WHERE id<=") + QString::number(records));
}

/// A kopeck more than plainStatement() sets, so that either changes every price.
QString writeFile(const QTemporaryDir &folder)
{
    QFile file(folder.filePath(QStringLiteral("prices.csv")));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("The price list was not written");
    for (int item = 1; item <= records; ++item)
        file.write(QStringLiteral("\"Ґудзик український; %1\";%2;%3,%4\r\n")
                       .arg(item)
                       .arg(barcode(item))
                       .arg((price(item) + 1) / 100)
                       .arg((price(item) + 1) % 100, 2, 10, QLatin1Char('0'))
                       .toUtf8());
    return file.fileName();
}

/// A statement that finds each item by its barcode.
QString plainStatement()
{
    QString sql = QStringLiteral("UPDATE goods SET price=CASE");
    for (int item = 1; item <= records; ++item)
        sql += QStringLiteral(" WHEN id=(SELECT id_goods FROM dk_shc WHERE shtrihcod='%1') THEN %2")
                   .arg(barcode(item))
                   .arg(price(item));
    return sql + QStringLiteral(" ELSE price END");
}

void finish(const Bench &bench, const Job::Work &work)
{
    Job job(QString(), bench.connection->connectionName(), work, nullptr);
    QEventLoop loop;
    QObject::connect(&job, &Job::finished, &loop, [&loop](const JobResult &result) {
        if (result.outcome != JobResult::Done)
            qFatal("%s", qPrintable(result.words));
        loop.quit();
    });
    job.start();
    loop.exec();
}

/// What people wait for: the look at the file and the writing, each a job.
void importFile(const Bench &bench, const QString &path)
{
    PriceListLook look;
    look.path = path;
    PriceListOutcome outcome;
    finish(bench, [&](JobContext &context) { return lookAtPriceList(context, &look); });
    finish(bench, [&](JobContext &context) { return importPriceList(context, look.plan, &outcome); });
    if (look.plan.changes.size() != records || !outcome.isWritten)
        qFatal("Not all prices were written");
}

double importRatio(const Bench &bench, const QString &path)
{
    BareClient bare(bench.address);
    const QString plain = plainStatement();
    return ratio(
        1, [&] { return milliseconds([&] { bare.run(plain); }); },
        [&] { return milliseconds([&] { importFile(bench, path); }); });
}

/// Everything beside the server: the file, its form, its records and the statements.
double readingSeconds(const Bench &bench, const QString &path)
{
    PriceListLook known;
    known.path = path;
    finish(bench, [&](JobContext &context) { return lookAtPriceList(context, &known); });
    QVector<double> seconds;
    for (int round = 0; round < bench.rounds; ++round) {
        PriceListLook look;
        look.path = path;
        look.ground = known.ground;
        int length = 0;
        seconds.append(milliseconds([&] {
                           finish(bench,
                                  [&](JobContext &context) { return lookAtPriceList(context, &look); });
                           QMap<quint32, qint64> prices;
                           for (const PriceChange &change : look.plan.changes)
                               prices.insert(change.id, change.to);
                           for (const QString &sql : priceStatements(prices))
                               length += sql.size();
                       }) /
                       1000.0);
        if (length < records)
            qFatal("The statement was not built");
    }
    return median(seconds);
}
} // namespace

QVector<Figure> measurePriceList(const Bench &bench)
{
    const QTemporaryDir folder;
    addBarcodes(bench);
    const QString path = writeFile(folder);
    const double reading = readingSeconds(bench, path);
    const double import = importRatio(bench, path);
    removeBarcodes(bench);
    return {{QStringLiteral("Reading, checking, building 10,000 prices"), reading, readingGoal,
             QStringLiteral("s")},
            {QStringLiteral("Price list of 10,000 into %1 goods").arg(bench.goods), import, importGoal,
             QStringLiteral("x barcodes")}};
}
