#include "tunecommand.h"

#include "db.h"
#include "qmessevent.h"
#include "setting.h"
#include "tuning.h"

#include <QCoreApplication>
#include <QTextStream>
#include <csignal>
#include <optional>
#include <sys/types.h>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TuneCommand)
};

enum ExitCode { ExitDone = 0, ExitFailed = 1, ExitNotWanted = 2, ExitWrongArguments = 3 };

const QString addOption = QStringLiteral("--add");
const QString removeOption = QStringLiteral("--remove");
const QString yesOption = QStringLiteral("--yes");

volatile std::sig_atomic_t isInterrupted = 0;

void interrupt(int)
{
    isInterrupted = 1;
}

void print(FILE *file, const QString &text)
{
    QTextStream stream(file);
    stream.setCodec("UTF-8");
    stream << text;
}

/// Writes errors and warnings on the terminal.
class Terminal : public QWidget
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QWidget::event(event);
        const auto *message = static_cast<QMessEvent *>(event);
        if (message->kind() <= QMessEvent::Warning)
            print(stderr, message->text() + QLatin1Char('\n'));
        return true;
    }
};

bool isAgreed(const QString &question, const QStringList &arguments)
{
    print(stdout, question + QLatin1Char('\n'));
    if (arguments.contains(yesOption))
        return true;
    print(stdout, Texts::tr("[т/н] "));
    QTextStream in(stdin);
    in.setCodec("UTF-8");
    const QString answer = in.readLine().trimmed().toLower();
    return QStringList{QStringLiteral("т"), QStringLiteral("так"), QStringLiteral("y"), QStringLiteral("yes")}
        .contains(answer);
}

QString usage()
{
    return Texts::tr("veltab --tune-database            показує, що є у базі; нічого не змінює\n"
                     "veltab --tune-database --add      додає індекси для швидких звітів\n"
                     "veltab --tune-database --remove   прибирає їх\n"
                     "З --yes не питає. Завершується з кодом 0 – зроблено або вже так, 1 – не вдалося чи "
                     "зупинено,\n2 – відмова, 3 – невідомий параметр.\n");
}

QString stateText(TunedState state)
{
    switch (state) {
    case TunedState::Whole:
        return Texts::tr("Індекси для швидких звітів у базі є.");
    case TunedState::Partial:
        return Texts::tr("У базі є лише один з двох індексів для швидких звітів.");
    case TunedState::None:
        break;
    }
    return Texts::tr("Індексів для швидких звітів у базі немає.");
}

bool isSound(const QStringList &arguments)
{
    static const QStringList known{QStringLiteral("--tune-database"), addOption, removeOption, yesOption};
    for (const QString &argument : arguments.mid(1)) {
        if (!known.contains(argument))
            return false;
    }
    return !arguments.contains(addOption) || !arguments.contains(removeOption);
}

/// Runs the job to its end; Ctrl+C cancels it.
JobResult finish(Job *job)
{
    std::optional<JobResult> result;
    QObject::connect(job, &Job::progressed, job, [](qint64 done, qint64 of) {
        print(stdout, QLatin1Char('\r') + Texts::tr("Зроблено: %1 %").arg(100 * done / qMax(of, qint64(1))) +
                          QStringLiteral("   "));
    });
    QObject::connect(job, &Job::finished, job, [&result](const JobResult &ended) { result = ended; });
    std::signal(SIGINT, interrupt);
    job->start();
    while (!result) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (isInterrupted != 0)
            job->cancel();
    }
    std::signal(SIGINT, SIG_DFL);
    return *result;
}

int change(QSqlDatabase *db, Tuning tuning, const QStringList &arguments, QObject *receiver)
{
    if (!isAgreed(tuningQuestion(tuning), arguments))
        return ExitNotWanted;
    Job job(
        tuningTitle(tuning), db->connectionName(),
        [tuning](JobContext &context) { return tuneDatabase(context, tuning); }, receiver);
    const JobResult result = finish(&job);
    QCoreApplication::sendPostedEvents(receiver, QMessEvent::eventType);
    // A failure was reported.
    if (result.outcome != JobResult::Failed)
        print(stdout, QLatin1Char('\n') + result.words + QLatin1Char('\n'));
    return result.outcome == JobResult::Done ? ExitDone : ExitFailed;
}

int tune(QSqlDatabase *db, const QStringList &arguments, QObject *receiver)
{
    const auto state = tunedState(Db(db, receiver));
    if (!state)
        return ExitFailed;
    const bool removes = arguments.contains(removeOption);
    const bool isThere = *state == (removes ? TunedState::None : TunedState::Whole);
    print(stdout, stateText(*state) + QLatin1Char('\n'));
    if (!removes && !arguments.contains(addOption))
        print(stdout, usage());
    else if (isThere)
        print(stdout, Texts::tr("Нічого не змінено.") + QLatin1Char('\n'));
    else
        return change(db, removes ? Tuning::Remove : Tuning::Add, arguments, receiver);
    return ExitDone;
}
} // namespace

bool isTuneCommand(const QStringList &arguments)
{
    return arguments.contains(QStringLiteral("--tune-database"));
}

int runTuneCommand(const QString &directory, const QStringList &arguments)
{
    if (!isSound(arguments)) {
        print(stderr, usage());
        return ExitWrongArguments;
    }
    const QString name = QStringLiteral("tune");
    Terminal terminal;
    int code = ExitFailed;
    {
        const setting settings(directory, &terminal);
        QSqlDatabase db = addConnection(name, settings.databaseAddress());
        if (openConnection(db, &terminal))
            code = tune(&db, arguments, &terminal);
        else
            postMessage(&terminal,
                        Texts::tr("Помилка з'єднання з БД.") + QLatin1Char('\n') + openingError(db));
    }
    QSqlDatabase::removeDatabase(name);
    QCoreApplication::sendPostedEvents(&terminal, QMessEvent::eventType);
    return code;
}
