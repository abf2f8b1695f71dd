#include "windows.h"

#include "qrowmodel.h"
#include "reportwindow.h"

Admin::Admin(const Bench &bench) : m_user(nullptr, nullptr)
{
    if (!m_user.loadpermis(bench.connection, QStringLiteral("admin"), QString()))
        qFatal("Nobody may work");
}

void showWindow(QWidget *window)
{
    window->resize(1400, 900);
    window->show();
}

void loadReport(ReportWindow *report)
{
    QEventLoop loop;
    QObject::connect(report, &ReportWindow::loaded, &loop, &QEventLoop::quit);
    report->load();
    loop.exec();
    if (report->model()->rowCount() == 0)
        qFatal("No rows");
    report->grab();
}
