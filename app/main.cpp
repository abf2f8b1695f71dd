#include "icons.h"
#include "instancelimit.h"
#include "qmessevent.h"
#include "screenshots.h"
#include "setting.h"
#include "startwait.h"
#include "tunecommand.h"
#include "veltab.h"
#include "version.h"
#include "wheelguard.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QSqlDatabase>
#include <QThreadPool>
#include <QTranslator>
#include <optional>

namespace {
const QString warningTitle = QStringLiteral("Попередження! Warning!");

/// The folder in the first argument; "" when there is no separator in it.
QString folderOfArgument(const QString &argument, QChar separator)
{
    QString folder = argument;
    // truncate(), unlike left(), cuts everything for an index of -1.
    folder.truncate(folder.lastIndexOf(separator));
    return folder;
}

QString styleFolder(const QStringList &arguments)
{
    QString folder = arguments.value(0);
    int cut = folder.lastIndexOf(QLatin1Char('/'));
    // Compared with 0, not with "not found": a name without "/" means the root folder.
    if (cut == 0)
        cut = folder.lastIndexOf(QLatin1Char('\\'));
    folder.truncate(cut);
    return folder;
}

void warn(const QString &text)
{
    QMessageBox::warning(nullptr, warningTitle, text, QMessageBox::Ok);
}

void applyTranslation(QTranslator *translator)
{
    const QString file = setting::GetPathLanguage(QCoreApplication::applicationDirPath());
    if (file.isEmpty())
        warn(QStringLiteral("Не вдалось знайти файл мови.\nNot search file language"));
    else if (translator->load(QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(file)))
        QCoreApplication::installTranslator(translator);
    else
        warn(QStringLiteral("Помилка завантаження мови."));
}

/// Nothing when five copies run already, or nobody wanted to wait for the start.
std::optional<int> runProgram(int argc, char *argv[], QStringList *arguments)
{
    QApplication application(argc, argv);
    *arguments = QCoreApplication::arguments();
    QApplication::setWindowIcon(programIcon());
    InstanceLimit limit(qEnvironmentVariable("VELTAB_KEY_PREFIX"));
    if (!waitForTurn(&limit))
        return std::nullopt;
    if (!limit.takeSlot()) {
        warn(QStringLiteral("Запущена максимальна кількість програм.\nProgram is already running."));
        return std::nullopt;
    }
    limit.release();
    installWheelGuard(&application);
    QApplication::setStyle(setting::GetStyle(styleFolder(*arguments)));
    if (arguments->contains(QStringLiteral("--dark")))
        Screenshots::darken();
    QTranslator translator;
    applyTranslation(&translator);
    QThreadPool::globalInstance()->setMaxThreadCount(10);
    Veltab window(QCoreApplication::applicationDirPath());
    window.setStartPage(QStringLiteral("mz_overview"));
    window.show();
    if (!limit.problem().isEmpty())
        postMessage(&window, limit.problem(), QMessEvent::Warning);
    const int pictures = arguments->indexOf(QStringLiteral("--screenshots"));
    if (pictures > 0)
        new Screenshots(&window, arguments->value(pictures + 1, QStringLiteral(".")));
    return QApplication::exec();
}

/// A terminal has no windows to show.
int runWithoutWindows(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return runTuneCommand(QCoreApplication::applicationDirPath(), QCoreApplication::arguments());
}

void startUpdater(int argc, char *argv[], const QString &folder)
{
    QApplication application(argc, argv);
    const QString program = folder + QDir::separator() + QStringLiteral("upd");
    if (QProcess::startDetached(program, {}))
        return;
    qDebug("Error start application: %s", qPrintable(program));
    QMessageBox::critical(nullptr, QStringLiteral("Error"),
                          QStringLiteral("Error start application: ") + program, QMessageBox::Ok);
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationVersion(QLatin1String(programVersion));
    QStringList arguments(argv + 1, argv + argc);
    if (isTuneCommand(arguments))
        return runWithoutWindows(argc, argv);
    const std::optional<int> code = runProgram(argc, argv, &arguments);
    QSqlDatabase::removeDatabase(QLatin1String(QSqlDatabase::defaultConnection));
    const QString folder = folderOfArgument(arguments.value(0), QDir::separator());
    // The copies that run would be replaced under their feet.
    if (code && setting::GetAutoupdate(folder))
        startUpdater(argc, argv, folder);
    return code.value_or(0);
}
