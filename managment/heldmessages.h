#pragma once

#include "db.h"

#include <QObject>

/// Keeps messages from their receiver until it is known whether they matter: what is not delivered is
/// dropped.
class HeldMessages : public QObject
{
public:
    explicit HeldMessages(QObject *receiver) : m_receiver(receiver) {}

    void deliver();

protected:
    bool event(QEvent *event) override;

private:
    QObject *m_receiver;
};

/// Runs a write until again() does not ask for more, three times at most. Only the last attempt reports.
template<typename Attempt, typename Again>
auto triedAgain(const Db &db, const Attempt &attempt, const Again &again)
{
    constexpr int attempts = 3;
    for (int left = attempts;;) {
        HeldMessages held(db.receiver());
        auto result = attempt(Db(db.connection(), &held));
        if (--left > 0 && again(result))
            continue;
        held.deliver();
        return result;
    }
}
