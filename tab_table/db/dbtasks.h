#pragma once

#include "db.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class DbTaskQueue;
struct DbTask;

/// Short work on the database that a window waits for: reading a record, saving it, a sale. Work is a
/// function of values: it gets a Db, returns a value and knows nothing of widgets; then() shows that value,
/// in the window's thread. All tasks of a window's connection run one after the other, in the order they were
/// asked for, on one connection of their own, in a thread of its own. That connection has what the window's
/// one has: session, read time-out, ConnectionState, and the private table of the change tracker.
///
/// Lists are read by QueryOwner, what lasts longer than a few seconds is a Job.
class DbTasks : public QObject
{
    Q_OBJECT

public:
    /// sourceConnection: the window's connection, whose address is used. receiver: hears what the statements
    /// report.
    DbTasks(const QString &sourceConnection, QObject *receiver, QObject *parent);
    /// As drop().
    ~DbTasks() override;

    /// work: Value(const Db &). then: void(Value), from the event loop, never from within this call; not
    /// after drop(). What has not begun when it is dropped is not run.
    template<typename Work, typename Then>
    void read(Work work, Then then)
    {
        ask(std::move(work), std::move(then), false);
    }
    /// The same, but once asked for it is done to its end, whoever goes meanwhile.
    template<typename Work, typename Then>
    void write(Work work, Then then)
    {
        ask(std::move(work), std::move(then), true);
    }

    /// Nothing that was asked for is to answer.
    void drop();
    bool isWaiting() const { return !m_asked.empty(); }
    /// Whether something is being written, or waits to be.
    bool isWriting() const;
    /// Whether no task of the program waits or runs. For tests, and for leaving.
    static bool isIdle();

signals:
    void begun();
    /// Everything has answered. Right before the last then().
    void idle();

private:
    friend class DbTaskQueue;
    template<typename Work, typename Then>
    void ask(Work work, Then then, bool isWrite)
    {
        using Value = decltype(work(std::declval<const Db &>()));
        const auto value = std::make_shared<std::optional<Value>>();
        take([value, work = std::move(work)](const Db &db) mutable { value->emplace(work(db)); },
             [value, then = std::move(then)]() mutable { then(std::move(**value)); }, isWrite);
    }
    void take(std::function<void(const Db &)> work, std::function<void()> then, bool isWrite);
    void answer(const std::shared_ptr<DbTask> &task);
    void forget(const std::shared_ptr<DbTask> &task);

    QString m_source;
    QPointer<QObject> m_receiver;
    std::vector<std::shared_ptr<DbTask>> m_asked;
};
