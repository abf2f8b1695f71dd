#include "bench.h"
#include "children.h"
#include "largedata.h"
#include "scratchdatabase.h"
#include "testing.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSqlError>
#include <QTextStream>

#include <cstdlib>
#include <unistd.h>

namespace {
struct Benchmark
{
    const char *name;
    Measure measure;
};

/// Every benchmark. Each begins with goods and cards, and without shops, receipts and shifts.
const Benchmark benchmarks[] = {
    {"lists", measureLists},       {"start", measureStart},         {"connections", measureConnections},
    {"search", measureSearch},     {"sale", measureSale},           {"closing", measureClosing},
    {"csv", measureCsv},           {"xlsx", measureXlsx},           {"articles", measureArticles},
    {"reports", measureReports},   {"tuning", measureTuning},       {"import", measureClientImport},
    {"memory", measureMemory},     {"items", measureAgainstItems},  {"creation", measureCards},
    {"exchange", measureExchange}, {"pricelist", measurePriceList}, {"stockin", measureStockIn},
    {"rights", measureRights},     {"overview", measureOverview},   {"integrity", measureIntegrity},
    {"bulk", measureBulk},         {"goto", measureGoto},
};

/// Those of --large: on the chain of LargeChain, which each leaves as it found it but for what it sells.
const Benchmark largeBenchmarks[] = {
    {"sale", measureLargeSale},
    {"closing", measureLargeClosing},
    {"slip", measureLargeSlip},
    {"articles", measureLargeArticles},
    {"online", measureLargeOnLine},
    {"search", measureLargeSearch},
    {"stock", measureLargeStock},
    {"cards", measureMemory},
    {"pdf", measureLargePdf},
    {"combo", measureLargeCombo},
    {"journals", measureLargeJournals},
    {"slow", measureSlowServer},
    {"integrity", measureLargeIntegrity},
    {"goto", measureGoto},
};

const QLatin1String fillName("fill");

struct Options
{
    Bench bench;
    bool isLarge = false;
    bool isKept = false;
    QString only;
    QString child;

    QVector<Benchmark> chosen() const;
};

QVector<Benchmark> Options::chosen() const
{
    QVector<Benchmark> all;
    if (isLarge)
        std::copy(std::begin(largeBenchmarks), std::end(largeBenchmarks), std::back_inserter(all));
    else
        std::copy(std::begin(benchmarks), std::end(benchmarks), std::back_inserter(all));
    if (!only.isEmpty())
        all.erase(std::remove_if(all.begin(), all.end(),
                                 [&](const Benchmark &one) { return only != QLatin1String(one.name); }),
                  all.end());
    return all;
}

QCommandLineOption valued(const char *name, const char *help, const QString &preset = QString())
{
    return {QString::fromLatin1(name), QString::fromLatin1(help), QString::fromLatin1(name), preset};
}

void addOptions(QCommandLineParser *parser)
{
    parser->setApplicationDescription(QStringLiteral(
        "Measures the program against the bare client library; VELTAB_BENCH_VERBOSE=1 shows each round."));
    parser->addHelpOption();
    parser->addOptions(
        {valued("host", "Server; without it the one of VELTAB_TEST_SERVER"),
         valued("port", "Its port", QStringLiteral("3306")),
         valued("user", "User"),
         valued("password", "Password"),
         valued("database", "A database that is not there: it is created and dropped",
                QStringLiteral("veltab_bench_%1").arg(QCoreApplication::applicationPid())),
         valued("rows", "Cards", QStringLiteral("1000000")),
         valued("rounds", "Rounds of each measurement", QStringLiteral("5")),
         {QStringLiteral("large"), QStringLiteral("A chain of ten million receipt lines: what a window waits "
                                                  "for, how long it stands still and what it keeps")},
         valued("keep", "With --large: a database that stays, and is used as it is when it is there"),
         valued("only", "Only this benchmark"),
         valued("child", "Used by the program itself")});
}

void readServer(const QCommandLineParser &parser, DatabaseAddress *address)
{
    *address = testServer();
    if (parser.isSet(QStringLiteral("host"))) {
        address->host = parser.value(QStringLiteral("host"));
        address->port = parser.value(QStringLiteral("port")).toInt();
        address->user = parser.value(QStringLiteral("user"));
        address->password = parser.value(QStringLiteral("password"));
    }
    // What is measured here may take its time.
    address->readSeconds = 3600;
}

Options readOptions(const QCoreApplication &application)
{
    QCommandLineParser parser;
    addOptions(&parser);
    parser.process(application);
    Options options;
    options.isLarge = parser.isSet(QStringLiteral("large"));
    options.isKept = parser.isSet(QStringLiteral("keep"));
    options.only = parser.value(QStringLiteral("only"));
    options.child = parser.value(QStringLiteral("child"));
    Bench &bench = options.bench;
    readServer(parser, &bench.address);
    const bool isNamedAside = options.isKept && options.child.isEmpty();
    bench.address.name = parser.value(isNamedAside ? QStringLiteral("keep") : QStringLiteral("database"));
    bench.cards = qMax(1, parser.value(QStringLiteral("rows")).toInt());
    // At least as many as the stock of the sale has.
    bench.goods = qMax(2000, static_cast<int>(qint64(bench.cards) * 55 / 1000));
    if (options.isLarge) {
        bench.cards = LargeChain::cards;
        bench.goods = LargeChain::goods;
    }
    bench.rounds = qMax(1, parser.value(QStringLiteral("rounds")).toInt());
    return options;
}

/// False when a goal was missed or there is no figure.
bool print(const QVector<Figure> &figures)
{
    bool met = !figures.isEmpty();
    QTextStream out(stdout);
    for (const Figure &figure : figures) {
        const bool ok = figure.value <= figure.goal;
        met = met && ok;
        out << QStringLiteral("%1 %2 %3   <= %4  %5\n")
                   .arg(figure.name, -50)
                   .arg(figure.value, 9, 'f', 3)
                   .arg(figure.unit, -8)
                   .arg(figure.goal, 9, 'f', 3)
                   .arg(ok ? QStringLiteral("OK") : QStringLiteral("MISS"));
    }
    return met;
}

/// Times are not those of the program when others want the cores, too.
void warnOfLoad()
{
    double load = 0;
    const long cores = sysconf(_SC_NPROCESSORS_ONLN);
    if (getloadavg(&load, 1) == 1 && load > static_cast<double>(cores))
        qWarning("The machine is busy: load %.1f on %ld cores", load, cores);
}

bool runAll(const Options &options, const Interruption &interruption)
{
    bool met = true;
    const QVector<Benchmark> chosen = options.chosen();
    for (const Benchmark &benchmark : chosen) {
        const QString name = QString::fromLatin1(benchmark.name);
        const ChildEnd end = runInChild(name, options.bench.address.name, interruption);
        if (interruption.hasCome())
            return false;
        if (end.figures.isEmpty())
            qWarning("The benchmark %s gave no figures", benchmark.name);
        met = print(end.figures) && end.isDone && met;
    }
    warnOfLoad();
    return met;
}

bool fill(const Options &options)
{
    return fillDatabase(options.bench) && (!options.isLarge || LargeChain::fill(options.bench));
}

/// Of the benchmarks before, so that shops and registers never meet those of another one.
bool clearTrade(const Db &db)
{
    for (const char *sql : {"TRUNCATE cheks", "TRUNCATE z_zvit", "TRUNCATE goods_shop", "DELETE FROM kassa",
                            "DELETE FROM shops", "DELETE FROM lst_group WHERE id_group>1",
                            "DELETE FROM group_shop WHERE id>1"}) {
        if (!db.run(QLatin1String(sql)))
            return false;
    }
    return true;
}

int runChild(Options *options)
{
    beChild();
    QSqlDatabase connection = addConnection(QStringLiteral("bench"), options->bench.address);
    if (!openConnection(connection, nullptr))
        qFatal("%s", qPrintable(connection.lastError().text()));
    options->bench.connection = &connection;
    if (options->child == fillName && fill(*options))
        endChild({});
    if (!options->isLarge && !clearTrade(options->bench.db()))
        qFatal("The tables of an earlier benchmark could not be emptied");
    options->only = options->child;
    const QVector<Benchmark> chosen = options->chosen();
    for (const Benchmark &benchmark : chosen)
        endChild(benchmark.measure(options->bench));
    qFatal("The benchmark %s failed", qPrintable(options->child));
}
} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Options options = readOptions(application);
    if (!options.child.isEmpty())
        return runChild(&options);
    const Interruption interruption;
    ScratchDatabase scratch(options.bench.address,
                            options.isKept ? ScratchDatabase::Keep : ScratchDatabase::Drop);
    if (!scratch.isFilled()) {
        if (!runInChild(fillName, options.bench.address.name, interruption).isDone) {
            if (!interruption.hasCome())
                qWarning("The scratch tables could not be filled");
            return 1;
        }
        scratch.setFilled();
    }
    return runAll(options, interruption) ? 0 : 1;
}
