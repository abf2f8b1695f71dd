#include "chain.h"
#include "connection.h"
#include "db.h"
#include "qmessevent.h"
#include "schema.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlQuery>
#include <QTextStream>

namespace {
enum ExitCode { Done = 0, Failed = 1, WrongUse = 2, HalfFilled = 3 };

void say(const QString &text)
{
    QTextStream(stderr) << text << '\n';
}

/// Prints the failures that the database layer posts.
class Console : public QObject
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QObject::event(event);
        const auto *message = static_cast<QMessEvent *>(event);
        if (message->kind() <= QMessEvent::Warning)
            say(message->text());
        return true;
    }
};

struct Order
{
    DatabaseAddress address;
    demo::ChainPlan plan;
    bool fresh = false;
    bool schemaOnly = false;
};

void addOptions(QCommandLineParser *parser)
{
    parser->setApplicationDescription(
        QStringLiteral("Fills a database with the chain of shops that shows the "
                       "program.\nAmong the users are admin, operator and viewer; each "
                       "one's password is the login, and the cards 2201000000016, 2201000000023 and "
                       "2201000000030 log in without one."));
    parser->addHelpOption();
    parser->addOptions({
        {QStringLiteral("host"), QStringLiteral("The server."), QStringLiteral("name"),
         QStringLiteral("127.0.0.1")},
        {QStringLiteral("port"), QStringLiteral("Its port."), QStringLiteral("number"),
         QStringLiteral("3306")},
        {QStringLiteral("user"), QStringLiteral("The database account."), QStringLiteral("name"),
         QStringLiteral("root")},
        {QStringLiteral("password"), QStringLiteral("Its password; else VELTAB_DEMO_PASSWORD holds it."),
         QStringLiteral("text"), qEnvironmentVariable("VELTAB_DEMO_PASSWORD")},
        {QStringLiteral("database"), QStringLiteral("Made when it is missing."), QStringLiteral("name"),
         QStringLiteral("veltab_demo")},
        {QStringLiteral("scale"), QStringLiteral("So many times the usual volume."), QStringLiteral("number"),
         QStringLiteral("1")},
        {QStringLiteral("seed"), QStringLiteral("The same seed and last day give the same chain."),
         QStringLiteral("number"), QStringLiteral("1")},
        {QStringLiteral("until"), QStringLiteral("The last day, today when not given."),
         QStringLiteral("yyyy-MM-dd")},
        {QStringLiteral("schema-only"), QStringLiteral("Only the tables and their fixed rows.")},
        {QStringLiteral("fresh"), QStringLiteral("Drop the database first.")},
    });
}

bool readNumber(const QCommandLineParser &parser, const char *option, int least, int *number)
{
    bool isNumber = false;
    *number = parser.value(QLatin1String(option)).toInt(&isNumber);
    if (isNumber && *number >= least)
        return true;
    say(QStringLiteral("--%1 needs a number from %2 up").arg(QLatin1String(option)).arg(least));
    return false;
}

bool readPlan(const QCommandLineParser &parser, demo::ChainPlan *plan)
{
    int scale = 0;
    int seed = 0;
    if (!readNumber(parser, "scale", 1, &scale) || !readNumber(parser, "seed", 0, &seed))
        return false;
    *plan = demo::ChainPlan::scaled(scale);
    plan->seed = static_cast<quint64>(seed);
    const QString until = parser.value(QStringLiteral("until"));
    if (!until.isEmpty())
        plan->until = QDate::fromString(until, Qt::ISODate);
    if (!plan->until.isValid())
        say(QStringLiteral("--until needs a day as yyyy-MM-dd"));
    return plan->until.isValid();
}

bool readOrder(const QCommandLineParser &parser, Order *order)
{
    order->address.host = parser.value(QStringLiteral("host"));
    order->address.user = parser.value(QStringLiteral("user"));
    order->address.password = parser.value(QStringLiteral("password"));
    order->address.name = parser.value(QStringLiteral("database"));
    order->fresh = parser.isSet(QStringLiteral("fresh"));
    order->schemaOnly = parser.isSet(QStringLiteral("schema-only"));
    return readNumber(parser, "port", 1, &order->address.port) && readPlan(parser, &order->plan);
}

bool dropDatabase(const DatabaseAddress &address, QObject *receiver)
{
    DatabaseAddress server = address;
    server.name.clear();
    QSqlDatabase db = addConnection(QStringLiteral("drop"), server);
    if (!openConnection(db, receiver)) {
        say(openingError(db));
        return false;
    }
    QString name = address.name;
    name.replace(QLatin1Char('`'), QLatin1String("``"));
    return Db(&db, receiver).run(QStringLiteral("DROP DATABASE IF EXISTS `%1`").arg(name)).has_value();
}

ExitCode fill(const Db &db, const demo::ChainPlan &plan)
{
    const auto state = demo::chainState(db);
    if (!state)
        return Failed;
    if (*state == demo::ChainState::HalfFilled) {
        say(QStringLiteral(
            "The database holds goods or shops but no finished chain. --fresh would drop it first."));
        return HalfFilled;
    }
    if (*state == demo::ChainState::Filled)
        return Done;
    QElapsedTimer clock;
    clock.start();
    if (!demo::generateChain(db, plan, say))
        return Failed;
    say(QStringLiteral("Filled in %1 s").arg(static_cast<double>(clock.elapsed()) / 1000, 0, 'f', 1));
    return Done;
}

ExitCode carryOut(const Order &order, QObject *receiver)
{
    QString error;
    if (order.fresh && !dropDatabase(order.address, receiver))
        return Failed;
    if (!createDatabase(order.address, receiver, &error)) {
        say(error);
        return Failed;
    }
    QSqlDatabase connection = addConnection(QStringLiteral("demo"), order.address);
    if (!openConnection(connection, receiver)) {
        say(openingError(connection));
        return Failed;
    }
    const Db db(&connection, receiver);
    const bool isMissing = isSchemaMissing(db, &error);
    if (!error.isEmpty())
        say(error);
    if (!error.isEmpty() || ((isMissing || order.schemaOnly) && !createSchema(db)))
        return Failed;
    return order.schemaOnly ? Done : fill(db, order.plan);
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    addOptions(&parser);
    parser.process(application);
    Order order;
    if (!readOrder(parser, &order))
        return WrongUse;
    Console console;
    const ExitCode code = carryOut(order, &console);
    QCoreApplication::sendPostedEvents(&console);
    return code;
}
