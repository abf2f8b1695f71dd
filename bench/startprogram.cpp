#include "connection.h"
#include "instancelimit.h"
#include "qseluser.h"
#include "setting.h"
#include "veltab.h"

#include <QApplication>
#include <QTimer>
#include <QTranslator>

#include <unistd.h>

/// A start to be timed from outside: `veltab FOLDER` is the program with the settings of a folder, `empty
/// FOLDER` a program that opens the same connection and shows one dialog. Both end when it is painted.

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
} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString folder = arguments.value(2);
    return arguments.value(1) == QLatin1String("veltab") ? startVeltab(folder) : startEmpty(folder);
}
