#include "bench.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

namespace {
void writeSettings(const QString &folder, const DatabaseAddress &address)
{
    QSettings file(folder + QStringLiteral("/Velta.ini"), QSettings::IniFormat);
    file.setValue(QStringLiteral("QMYSQL/IP"), address.host);
    file.setValue(QStringLiteral("QMYSQL/PORT"), address.port);
    file.setValue(QStringLiteral("QMYSQL/DEFLOGIN"), address.user);
    file.setValue(QStringLiteral("QMYSQL/PASSWORD"), address.password);
    file.setValue(QStringLiteral("QMYSQL/NAMEBASE"), address.name);
    file.setValue(QStringLiteral("DEFLOGIN/DEFLOGIN"), QStringLiteral("admin"));
    file.setValue(QStringLiteral("INTERFACE/PATH_LANGUAGE"),
                  QCoreApplication::applicationDirPath() + QStringLiteral("/veltab_uk.qm"));
}

QString startProgram()
{
    return QCoreApplication::applicationFilePath() + QStringLiteral("-start");
}

/// Of the whole server; or only those that have chosen a database, without the tries of a moment.
int connections(const Bench &bench, bool toDatabase)
{
    const auto number = bench.db().firstText(
        QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE USER<>'system user'") +
        (toDatabase ? QStringLiteral(" AND DB=DATABASE()") : QString()));
    return number.value_or(QString()).toInt();
}

double startTime(const QString &kind, const QString &folder)
{
    return milliseconds([&] {
        QProcess program;
        program.start(startProgram(), {kind, folder});
        if (!program.waitForFinished(30000) || program.exitCode() != 0)
            qFatal("veltab-bench-start %s did not end well", qPrintable(kind));
    });
}
} // namespace

QVector<Figure> measureStart(const Bench &bench)
{
    const QTemporaryDir folder;
    writeSettings(folder.path(), bench.address);
    const double value = ratio(
        bench.rounds, [&] { return startTime(QStringLiteral("empty"), folder.path()); },
        [&] { return startTime(QStringLiteral("veltab"), folder.path()); });
    return {{QStringLiteral("start to the login dialog"), value, 1.5, QStringLiteral("x empty")}};
}

/// Every tab is opened and every report loaded.
QVector<Figure> measureConnections(const Bench &bench)
{
    const QTemporaryDir folder;
    writeSettings(folder.path(), bench.address);
    const int before = connections(bench, false);
    const int beforeToDatabase = connections(bench, true);
    QProcess program;
    program.start(startProgram(), {QStringLiteral("tabs"), folder.path()});
    int most = 0;
    for (bool isOpen = false; !isOpen; isOpen = program.readAllStandardOutput().contains("open")) {
        program.waitForReadyRead(5);
        if (program.state() == QProcess::NotRunning)
            qFatal("veltab-bench-start did not open all tabs");
        most = qMax(most, connections(bench, true) - beforeToDatabase);
    }
    const int open = connections(bench, false) - before;
    program.kill();
    program.waitForFinished();
    return {{QStringLiteral("connections with every tab open"), double(open), 4, QString()},
            {QStringLiteral("connections while all lists load"), double(most), 4, QString()}};
}
