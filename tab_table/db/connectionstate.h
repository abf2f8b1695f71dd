#pragma once

#include "connection.h"

#include <QElapsedTimer>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Whether the server of a window's connection answers. Once a statement has lost the connection, nothing is
/// sent on it until a connection tried in the background has succeeded: else every further statement of the
/// window would wait for the same silence again.
class ConnectionState : public QObject
{
    Q_OBJECT

public:
    /// It belongs to the driver of the connection and goes with it.
    ConnectionState(const DatabaseAddress &address, QObject *driver);
    ~ConnectionState() override;

    /// Null for a background connection.
    static ConnectionState *of(const QSqlDatabase &db);

    bool isLost() const;
    /// How often it was lost so far.
    int losses() const;
    /// False while nothing may be sent. Right after the loss it waits a moment for the first try: a single
    /// connection that was ended on a sound server is back before anybody notices.
    bool isUsable();
    /// Waits so long for the server at most; true when it answers.
    bool waitUntilBack(int ms);
    /// A statement has lost the connection. True when that is news. afterSilence: nothing came for so long
    /// that waiting a moment more is no use.
    bool reportLoss(bool afterSilence);
    /// True now and then, so that a burst of refused statements is told once.
    bool isReminderDue();

signals:
    /// Both come from the event loop, never from within a statement.
    /// words: what that means, for the user.
    void lost(const QString &words);
    void back();

private:
    void tryUntilBack();

    const DatabaseAddress m_address;
    mutable std::mutex m_guard;
    std::condition_variable m_changed;
    std::thread m_tries;
    std::atomic<bool> m_isGivenUp{false};
    bool m_isLost = false;
    int m_losses = 0;
    bool m_hasTried = false;
    QElapsedTimer m_sinceLoss;
    QElapsedTimer m_sinceReminder;
};
