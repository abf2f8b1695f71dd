#include "bench.h"

#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <mysql.h>

void exec(const Bench &bench, const QString &sql)
{
    if (!bench.db().run(sql))
        qFatal("A statement of the benchmark failed: %s", qPrintable(sql));
}

BareClient::BareClient(const DatabaseAddress &address) : m_mysql(mysql_init(nullptr))
{
    mysql_options(m_mysql, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    if (mysql_real_connect(m_mysql, qPrintable(address.host), qPrintable(address.user),
                           qPrintable(address.password), qPrintable(address.name),
                           static_cast<unsigned>(address.port), nullptr, 0) == nullptr)
        qFatal("%s", mysql_error(m_mysql));
}

BareClient::~BareClient()
{
    mysql_close(m_mysql);
}

void BareClient::run(const QString &sql)
{
    const QByteArray text = sql.toUtf8();
    if (mysql_real_query(m_mysql, text.constData(), static_cast<unsigned long>(text.size())) != 0)
        qFatal("%s", mysql_error(m_mysql));
    MYSQL_RES *result = mysql_store_result(m_mysql);
    if (result == nullptr)
        return;
    while (mysql_fetch_row(result) != nullptr)
        mysql_fetch_lengths(result);
    mysql_free_result(result);
}

double processMegabytes(const QByteArray &name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.mid(name.size() + 1).simplified().split(' ').at(0).toDouble() / 1024;
    }
    return 0;
}

void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double ratio(int rounds, const std::function<double()> &theirs, const std::function<double()> &ours)
{
    theirs(); // Once for the caches of the server and of the program.
    ours();
    QVector<double> ratios;
    for (int i = 0; i < rounds; ++i) {
        const double bare = theirs();
        const double program = ours();
        if (qEnvironmentVariableIsSet("VELTAB_BENCH_VERBOSE"))
            qInfo("bare %.1f ms, program %.1f ms", bare, program);
        ratios.append(program / bare);
    }
    return median(ratios);
}
