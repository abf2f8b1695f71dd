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
    file.setValue(QStringLiteral("INTERFACE/PATH_LANGUAGE"),
                  QCoreApplication::applicationDirPath() + QStringLiteral("/veltab_uk.qm"));
}

double startTime(const QString &kind, const QString &folder)
{
    return milliseconds([&] {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath() + QStringLiteral("-start"), {kind, folder});
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
