#include "bench.h"
#include "testing.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDataStream>
#include <QProcess>
#include <QSqlError>
#include <QTextStream>
#include <unistd.h>

namespace {
/// Every benchmark. Each runs in a process of its own: none meets the memory that another has left, and one
/// that ends early keeps neither the others from their figures nor the database from being dropped. What one
/// writes into the database stays there for the next ones: shops and registers have numbers of their own.
const struct
{
    const char *name;
    Measure measure;
} benchmarks[] = {
    {"lists", measureLists},   {"start", measureStart},       {"connections", measureConnections},
    {"search", measureSearch}, {"sale", measureSale},         {"closing", measureClosing},
    {"csv", measureCsv},       {"articles", measureArticles}, {"reports", measureReports},
    {"tuning", measureTuning}, {"memory", measureMemory},     {"items", measureAgainstItems},
};

struct Options
{
    Bench bench;
    QString only;
    QString child;
};

QCommandLineOption valued(const char *name, const char *help, const QString &preset = QString())
{
    return {QString::fromLatin1(name), QString::fromLatin1(help), QString::fromLatin1(name), preset};
}

Options readOptions(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures the program against the bare client library; VELTAB_BENCH_VERBOSE=1 shows each round."));
    parser.addHelpOption();
    parser.addOptions({valued("host", "Server; without it the one of VELTAB_TEST_SERVER"),
                       valued("port", "Its port", QStringLiteral("3306")), valued("user", "User"),
                       valued("password", "Password"),
                       valued("database", "A database that is not there: it is created and dropped",
                              QStringLiteral("veltab_bench_%1").arg(QCoreApplication::applicationPid())),
                       valued("rows", "Cards", QStringLiteral("1000000")),
                       valued("rounds", "Rounds of each measurement", QStringLiteral("5")),
                       valued("only", "Only this benchmark"), valued("child", "Used by the program itself")});
    parser.process(application);
    Options options;
    Bench &bench = options.bench;
    if (parser.isSet(QStringLiteral("host"))) {
        bench.address.host = parser.value(QStringLiteral("host"));
        bench.address.port = parser.value(QStringLiteral("port")).toInt();
        bench.address.user = parser.value(QStringLiteral("user"));
        bench.address.password = parser.value(QStringLiteral("password"));
    } else {
        bench.address = testServer();
    }
    // What is measured here may take its time.
    bench.address.readSeconds = 3600;
    bench.address.name = parser.value(QStringLiteral("database"));
    bench.cards = qMax(1, parser.value(QStringLiteral("rows")).toInt());
    // At least as many as the stock of the sale has.
    bench.goods = qMax(2000, static_cast<int>(qint64(bench.cards) * 55 / 1000));
    bench.rounds = qMax(1, parser.value(QStringLiteral("rounds")).toInt());
    options.only = parser.value(QStringLiteral("only"));
    options.child = parser.value(QStringLiteral("child"));
    return options;
}

QString serverAnswer(const QSqlDatabase &connection, const QString &sql)
{
    QSqlQuery query(connection);
    if (!query.exec(sql))
        qFatal("%s", qPrintable(query.lastError().text()));
    return query.next() ? query.value(0).toString() : QString();
}

/// The benchmarks' own database, dropped at the end. One that is there already is not touched.
class ScratchDatabase
{
public:
    explicit ScratchDatabase(const DatabaseAddress &address) : m_name(address.name)
    {
        DatabaseAddress server = address;
        server.name.clear();
        m_server = addConnection(QStringLiteral("server"), server);
        if (!openConnection(m_server, nullptr))
            qFatal("%s", qPrintable(m_server.lastError().text()));
        if (!serverAnswer(m_server, QStringLiteral("SHOW DATABASES LIKE ") + lit(m_name)).isEmpty())
            qFatal("There is a database %s already", qPrintable(m_name));
        QString error;
        if (!createDatabase(address, nullptr, &error))
            qFatal("%s", qPrintable(error));
    }
    ~ScratchDatabase()
    {
        serverAnswer(m_server, QStringLiteral("DROP DATABASE `%1`").arg(m_name));
        m_server = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("server"));
    }
    Q_DISABLE_COPY(ScratchDatabase)

private:
    QString m_name;
    QSqlDatabase m_server;
};

/// The figures of a benchmark; none when it did not come to its end.
QVector<Figure> measureInChild(const char *name)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    arguments << QStringLiteral("--child") << QString::fromLatin1(name) << QStringLiteral("--database")
              << QSqlDatabase::database(QStringLiteral("bench")).databaseName();
    child.start(QCoreApplication::applicationFilePath(), arguments);
    child.waitForFinished(-1);
    QVector<Figure> figures;
    const QStringList lines = QString::fromUtf8(child.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() == 4)
            figures.append({parts.at(0), parts.at(1).toDouble(), parts.at(2).toDouble(), parts.at(3)});
    }
    return figures;
}

void answerParent(const QVector<Figure> &figures)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    for (const Figure &figure : figures) {
        out << figure.name << '\t' << QString::number(figure.value, 'g', 12) << '\t'
            << QString::number(figure.goal, 'g', 12) << '\t' << figure.unit << '\n';
    }
    out.flush();
    // Without taking down what the benchmark has left.
    _exit(0);
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
                   .arg(figure.name, -42)
                   .arg(figure.value, 9, 'f', 3)
                   .arg(figure.unit, -8)
                   .arg(figure.goal, 8, 'f', 3)
                   .arg(ok ? QStringLiteral("ok") : QStringLiteral("MISS"));
    }
    return met;
}

bool runAll(const Options &options)
{
    bool met = true;
    for (const auto &benchmark : benchmarks) {
        if (!options.only.isEmpty() && options.only != QLatin1String(benchmark.name))
            continue;
        const QVector<Figure> figures = measureInChild(benchmark.name);
        if (figures.isEmpty())
            qWarning("The benchmark %s gave no figures", benchmark.name);
        met = print(figures) && met;
    }
    return met;
}

void runChild(const Options &options)
{
    for (const auto &benchmark : benchmarks) {
        if (options.child == QLatin1String(benchmark.name))
            answerParent(benchmark.measure(options.bench));
    }
    qFatal("There is no benchmark %s", qPrintable(options.child));
}
} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Options options = readOptions(application);
    std::unique_ptr<ScratchDatabase> scratch;
    if (options.child.isEmpty())
        scratch = std::make_unique<ScratchDatabase>(options.bench.address);
    QSqlDatabase connection = addConnection(QStringLiteral("bench"), options.bench.address);
    if (!openConnection(connection, nullptr))
        qFatal("%s", qPrintable(connection.lastError().text()));
    options.bench.connection = &connection;
    if (!options.child.isEmpty())
        runChild(options);
    if (!fillDatabase(options.bench))
        qFatal("The scratch tables could not be filled");
    return runAll(options) ? 0 : 1;
}
