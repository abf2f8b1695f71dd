#pragma once

#include <QSharedMemory>
#include <QString>
#include <QSystemSemaphore>
#include <array>
#include <functional>
#include <memory>

/// At most five copies of the program on one machine: each holds one of five shared-memory slots for as
/// long as this object lives.
class InstanceLimit
{
public:
    /// keyPrefix: put before the names of semaphore and slots, so that tests do not meet real copies.
    explicit InstanceLimit(const QString &keyPrefix = {});

    /// Waits until no other copy looks for its slot. goOn is asked many times a second meanwhile; false when
    /// it did not want to wait any longer.
    bool takeTurn(const std::function<bool()> &goOn);
    /// Looks for a free slot, when it is this copy's turn; false when five copies run already. A slot that
    /// cannot be had for another reason (a second user of the machine, swept key files) does not stop the
    /// program: it goes on without one and problem() tells why.
    bool takeSlot();
    /// Lets the next copy look for its slot; to be called after the window of the start is over.
    void release();
    int slot() const { return m_slot; }
    const QString &problem() const { return m_problem; }

    static constexpr int slotCount = 5;

private:
    void sweepStaleSlots() const;
    QString slotKey(int number) const;

    QString m_prefix;
    std::shared_ptr<QSystemSemaphore> m_semaphore;
    bool m_hasTurn = false;
    std::array<std::unique_ptr<QSharedMemory>, slotCount> m_slots;
    int m_slot = -1;
    QString m_problem;
};
