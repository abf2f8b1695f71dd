#include "instancelimit.h"

InstanceLimit::InstanceLimit(const QString &keyPrefix)
    : m_prefix(keyPrefix), m_semaphore(keyPrefix + QStringLiteral("DWL_SS"), 1, QSystemSemaphore::Open)
{
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
    if (!m_semaphore.acquire())
        m_problem = m_semaphore.errorString();
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
    m_semaphore.release();
}
