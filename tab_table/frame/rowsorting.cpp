#include "rowsorting.h"

#include <numeric>

/// What the thread has; the list goes on without it.
struct RowSorting::Work
{
    std::shared_ptr<const RowStore> rows;
    RowOrder order;
    RowSort by;
    Then then;
    std::atomic<bool> isStopped{false};
};

RowSorting::~RowSorting()
{
    stop();
}

void RowSorting::start(const std::shared_ptr<const RowStore> &rows, RowOrder &&order, const RowSort &by,
                       const Then &then)
{
    stop();
    m_work = std::shared_ptr<Work>(new Work{rows, std::move(order), by, then});
    m_thread.reset(QThread::create([this, work = m_work] {
        if (work->order.empty())
            work->order = orderOfRows(work->rows->rowCount());
        if (sortRows(&work->order, *work->rows, work->by, &work->isStopped))
            QMetaObject::invokeMethod(
                this, [this, work] { finish(work); }, Qt::QueuedConnection);
    }));
    m_thread->start();
}

void RowSorting::stop()
{
    if (!m_thread)
        return;
    if (m_work)
        m_work->isStopped = true;
    m_work.reset();
    m_thread->wait();
    m_thread.reset();
}

/// The thread has nothing more to do than to end.
void RowSorting::finish(const std::shared_ptr<Work> &work)
{
    if (work != m_work)
        return;
    m_work.reset();
    work->then(std::move(work->order));
}

RowOrder orderOfRows(int count)
{
    RowOrder order(static_cast<size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    return order;
}
