#include "connectionstate.h"

#include "servererror.h"

#include <QSqlDriver>
#include <chrono>

namespace {
using std::chrono::milliseconds;

const int firstTryMs = 500;
const int reminderMs = 3000;
const milliseconds pause(500);
/// A server that answers but lets nobody in is not to be asked twice a second.
const milliseconds longPause(10000);
} // namespace

ConnectionState::ConnectionState(const DatabaseAddress &address, QObject *driver)
    : QObject(driver), m_address(address)
{
}

ConnectionState::~ConnectionState()
{
    {
        const std::lock_guard<std::mutex> lock(m_guard);
        m_isGivenUp = true;
    }
    m_changed.notify_all();
    if (m_tries.joinable())
        m_tries.join();
}

ConnectionState *ConnectionState::of(const QSqlDatabase &db)
{
    return db.driver()->findChild<ConnectionState *>(QString(), Qt::FindDirectChildrenOnly);
}

bool ConnectionState::isLost() const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_isLost;
}

int ConnectionState::losses() const
{
    const std::lock_guard<std::mutex> lock(m_guard);
    return m_losses;
}

bool ConnectionState::isUsable()
{
    std::unique_lock<std::mutex> lock(m_guard);
    if (m_isLost)
        m_changed.wait_for(lock, milliseconds(qMax(0LL, firstTryMs - m_sinceLoss.elapsed())),
                           [this] { return !m_isLost || m_hasTried; });
    return !m_isLost;
}

bool ConnectionState::waitUntilBack(int ms)
{
    std::unique_lock<std::mutex> lock(m_guard);
    return m_changed.wait_for(lock, milliseconds(ms), [this] { return !m_isLost; });
}

bool ConnectionState::reportLoss(bool afterSilence)
{
    {
        const std::lock_guard<std::mutex> lock(m_guard);
        if (m_isLost)
            return false;
        m_isLost = true;
        ++m_losses;
        m_hasTried = afterSilence;
        m_sinceLoss.start();
        m_sinceReminder.start();
    }
    QMetaObject::invokeMethod(
        this, [this] { emit lost(serverWords(ServerError::ConnectionLost)); }, Qt::QueuedConnection);
    // That of the loss before has ended with its success.
    if (m_tries.joinable())
        m_tries.join();
    m_tries = std::thread([this] { tryUntilBack(); });
    return true;
}

bool ConnectionState::isReminderDue()
{
    const std::lock_guard<std::mutex> lock(m_guard);
    if (m_sinceReminder.isValid() && m_sinceReminder.elapsed() < reminderMs)
        return false;
    m_sinceReminder.start();
    return true;
}

void ConnectionState::tryUntilBack()
{
    while (!m_isGivenUp) {
        const ServerAnswer answer = connectAside(m_address, m_isGivenUp);
        std::unique_lock<std::mutex> lock(m_guard);
        m_hasTried = true;
        m_isLost = m_isGivenUp || answer.error != 0;
        m_changed.notify_all();
        if (!m_isLost) {
            QMetaObject::invokeMethod(this, &ConnectionState::back, Qt::QueuedConnection);
            return;
        }
        m_changed.wait_for(lock, isConnectionLost(answer.error) ? pause : longPause,
                           [this] { return m_isGivenUp.load(); });
    }
}
