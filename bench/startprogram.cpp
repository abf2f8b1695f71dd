#include "connection.h"
#include "instancelimit.h"
#include "page.h"
#include "qseluser.h"
#include "reportwindow.h"
#include "setting.h"
#include "veltab.h"

#include <QAction>
#include <QApplication>
#include <QTabWidget>
#include <QTimer>
#include <QTranslator>

#include <unistd.h>

/// A start to be timed from outside: `veltab FOLDER` is the program with the settings of a folder, `empty
/// FOLDER` a program that opens the same connection and shows one dialog. Both end when it is painted. `tabs
/// FOLDER` opens every tab, loads every report, says "open" and waits to be ended.

namespace {
void endWhenPainted(const std::function<QWidget *()> &dialog)
{
    auto *watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [dialog] {
        QWidget *shown = dialog();
        if (shown == nullptr || !shown->isVisible())
            return;
        shown->grab();
        // Only the way to the dialog counts.
        _exit(0);
    });
    watch->start(1);
}

int startEmpty(const QString &folder)
{
    const setting settings(folder, nullptr);
    QSqlDatabase db = addConnection(QStringLiteral("empty"), settings.databaseAddress());
    if (!openConnection(db, nullptr))
        qFatal("No connection");
    QDialog dialog;
    dialog.show();
    endWhenPainted([&dialog] { return &dialog; });
    return QApplication::exec();
}

int startVeltab(const QString &folder)
{
    InstanceLimit limit(QStringLiteral("bench_%1_").arg(getpid()));
    limit.takeSlot();
    limit.release();
    QTranslator translator;
    if (translator.load(setting::GetPathLanguage(folder)))
        QApplication::installTranslator(&translator);
    Veltab window(folder);
    window.show();
    endWhenPainted([] { return qobject_cast<QSelUser *>(QApplication::activeModalWidget()); });
    return QApplication::exec();
}

bool isLoading(const QTabWidget *tabs)
{
    bool loading = false;
    for (int i = 0; i < tabs->count(); ++i)
        loading = loading || pageAt(tabs, i)->isLoading();
    return loading;
}

void openAll(Veltab *window)
{
    const QList<QAction *> actions = window->openingActions();
    for (QAction *action : actions)
        action->trigger();
    const auto *tabs = window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    for (int i = 0; i < tabs->count(); ++i) {
        if (auto *report = qobject_cast<ReportWindow *>(tabs->widget(i)))
            report->load();
    }
    auto *watch = new QTimer(window);
    QObject::connect(watch, &QTimer::timeout, watch, [watch, tabs] {
        if (isLoading(tabs))
            return;
        watch->stop();
        fputs("open", stdout);
        fflush(stdout);
    });
    watch->start(20);
}

/// A report that wants a choice first asks for it.
void rejectQuestions()
{
    auto *watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [] {
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    watch->start(50);
}

int startTabs(const QString &folder)
{
    Veltab window(folder);
    window.setLoginUnattended(true);
    QObject::connect(
        &window, &Veltab::ready, &window,
        [&window] {
            // Not before: the login asks, too.
            rejectQuestions();
            openAll(&window);
        },
        Qt::QueuedConnection);
    window.show();
    return QApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString folder = arguments.value(2);
    if (arguments.value(1) == QLatin1String("tabs"))
        return startTabs(folder);
    return arguments.value(1) == QLatin1String("veltab") ? startVeltab(folder) : startEmpty(folder);
}
