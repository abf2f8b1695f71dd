#include "children.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {
/// A benchmark that waits for what never comes is ended.
constexpr std::chrono::minutes longestBenchmark(40);

int wakeUp[2];

void tellInterruption(int)
{
    const char one = 1;
    if (write(wakeUp[0], &one, sizeof one) < 0)
        _exit(1);
}
} // namespace

Interruption::Interruption()
{
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, wakeUp) != 0)
        qFatal("There are no sockets");
    auto *notifier = new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        m_hasCome = true;
        emit came();
    });
    struct sigaction action = {};
    action.sa_handler = &tellInterruption;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaction(number, &action, nullptr);
}

ChildEnd runInChild(const QString &benchmark, const QString &database, const Interruption &interruption)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QEventLoop loop;
    QObject::connect(&child, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QObject::connect(&child, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    const auto end = [&] { kill(-static_cast<pid_t>(child.processId()), SIGKILL); };
    QObject::connect(&interruption, &Interruption::came, &loop, end);
    QTimer::singleShot(longestBenchmark, &loop, end);
    child.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1)
                                                             << QStringLiteral("--child") << benchmark
                                                             << QStringLiteral("--database") << database);
    loop.exec();
    child.waitForFinished(-1);
    ChildEnd result;
    result.isDone = child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
    const QStringList lines = QString::fromUtf8(child.readAllStandardOutput()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() == 4)
            result.figures.append({parts.at(0), parts.at(1).toDouble(), parts.at(2).toDouble(), parts.at(3)});
    }
    return result;
}

void beChild()
{
    setpgid(0, 0);
}

void endChild(const QVector<Figure> &figures)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    for (const Figure &figure : figures) {
        out << figure.name << '\t' << QString::number(figure.value, 'g', 12) << '\t'
            << QString::number(figure.goal, 'g', 12) << '\t' << figure.unit << '\n';
    }
    out.flush();
    _exit(0);
}
