#include "instancelimit.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace {
/// What the thread that waits and the one that asks share; it outlives a wait that was given up.
struct Turn
{
    std::promise<QString> problem;
    std::atomic<bool> isGivenUp{false};
};
} // namespace

InstanceLimit::InstanceLimit(const QString &keyPrefix)
    : m_prefix(keyPrefix)
    , m_semaphore(
          std::make_shared<QSystemSemaphore>(keyPrefix + QStringLiteral("DWL_SS"), 1, QSystemSemaphore::Open))
{
}

bool InstanceLimit::takeTurn(const std::function<bool()> &goOn)
{
    const auto turn = std::make_shared<Turn>();
    std::future<QString> problem = turn->problem.get_future();
    // Nothing calls a waiting semaphore off: a thread of its own waits, and is left behind when need be.
    std::thread([semaphore = m_semaphore, turn] {
        const bool isTaken = semaphore->acquire();
        turn->problem.set_value(isTaken ? QString() : semaphore->errorString());
        if (isTaken && turn->isGivenUp)
            semaphore->release();
    }).detach();
    while (problem.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
        turn->isGivenUp = !goOn();
        if (turn->isGivenUp)
            return false;
    }
    m_problem = problem.get();
    m_hasTurn = true;
    return true;
}

QString InstanceLimit::slotKey(int number) const
{
    return m_prefix + QStringLiteral("DWL_SM") + QString::number(number);
}

void InstanceLimit::sweepStaleSlots() const
{
    // A segment whose owner crashed goes with the last one who detaches from it.
    std::array<std::unique_ptr<QSharedMemory>, slotCount> attached;
    for (int i = slotCount - 1; i >= 0; --i) {
        auto &segment = attached[static_cast<size_t>(i)];
        segment = std::make_unique<QSharedMemory>(slotKey(i));
        segment->attach(QSharedMemory::ReadWrite);
    }
}

bool InstanceLimit::takeSlot()
{
    if (!m_hasTurn)
        takeTurn([] { return true; });
    sweepStaleSlots();
    for (int i = 0; i < slotCount; ++i) {
        auto &segment = m_slots[static_cast<size_t>(i)];
        segment = std::make_unique<QSharedMemory>(slotKey(i));
        if (segment->attach(QSharedMemory::ReadWrite)) {
            segment->detach();
            continue;
        }
        if (!segment->create(1, QSharedMemory::ReadWrite))
            m_problem = segment->errorString();
        m_slot = i;
        return true;
    }
    return false;
}

void InstanceLimit::release()
{
    m_semaphore->release();
    m_hasTurn = false;
}
