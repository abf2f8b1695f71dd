#include "chekwindow.h"

#include "qrowmodel.h"
#include "rangeselector.h"

#include <QEventLoop>

ChekWindow::ChekWindow(const Bench &bench, const QDate &day) : m_user(nullptr, nullptr)
{
    if (!m_user.loadpermis(bench.connection, QStringLiteral("admin"), QString()))
        qFatal("Nobody to look");
    m_viewer = std::make_unique<QChekViewer>(bench.connection, &m_user, nullptr, nullptr);
    m_viewer->resize(1400, 900);
    m_viewer->show();
    m_viewer->findChild<RangeSelector *>()->setDays(day, day);
    load();
}

void ChekWindow::load()
{
    QEventLoop loop;
    QObject::connect(m_viewer.get(), &ReportWindow::loaded, &loop, &QEventLoop::quit);
    m_viewer->load();
    loop.exec();
    m_viewer->grab();
}

int ChekWindow::rowCount() const
{
    return m_viewer->model()->rowCount();
}

Cost ChekWindow::open(int row)
{
    const QString before = m_viewer->slip();
    return costOf([&] { m_viewer->dclicktable(m_viewer->model()->index(row, 0)); },
                  [&] { return m_viewer->slip() != before; });
}
