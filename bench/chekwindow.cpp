#include "chekwindow.h"

#include "qrowmodel.h"
#include "rangeselector.h"

ChekWindow::ChekWindow(const Bench &bench, const QDate &day) : m_admin(bench)
{
    m_viewer = std::make_unique<QChekViewer>(bench.connection, m_admin.user(), nullptr, nullptr);
    showWindow(m_viewer.get());
    m_viewer->findChild<RangeSelector *>()->setDays(day, day);
    load();
}

void ChekWindow::load()
{
    loadReport(m_viewer.get());
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
