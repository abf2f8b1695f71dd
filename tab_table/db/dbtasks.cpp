#include "dbtasks.h"

#include "connectionstate.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QSqlDriver>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

using Task = std::shared_ptr<DbTask>;
using Lock = std::unique_lock<std::mutex>;

struct DbTask
{
    std::function<void(const Db &)> work;
    /// Window's thread only.
    std::function<void()> then;
    QPointer<QObject> receiver;
    /// Null once it was dropped. Window's thread only.
    DbTasks *owner = nullptr;
    const DbTaskQueue *queue = nullptr;
    bool isWrite = false;
    /// The window knew that the server is gone when it asked.
    bool isServerGone = false;

    /// Filled by the work.
    struct Report
    {
        QString location;
        QString text;
        int kind;
    };
    QVector<Report> reports;
    bool hasLostServer = false;
};

namespace {
using std::chrono::milliseconds;

const char *const queueProperty = "velta_tasks";
/// So long the end of the thread is awaited, before and after its connection was cut.
const milliseconds leavingTime(1000);
/// The window has heard that the server is back a moment before the tasks' connection does.
const int backMs = 1000;

/// Asked for and neither answered nor dropped. Window's thread only.
std::vector<Task> &openTasks()
{
    static std::vector<Task> tasks;
    return tasks;
}

/// False when it was none any more.
bool closeTask(const Task &task)
{
    auto &tasks = openTasks();
    const auto place = std::find(tasks.begin(), tasks.end(), task);
    if (place == tasks.end())
        return false;
    tasks.erase(place);
    return true;
}

/// Collects what the statements of a task report, in the thread of the tasks.
class TaskReports : public QObject
{
public:
    explicit TaskReports(DbTask *task) : m_task(task) {}
    ~TaskReports() override { QCoreApplication::sendPostedEvents(this, QMessEvent::eventType); }

    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QObject::event(event);
        const auto *message = static_cast<QMessEvent *>(event);
        m_task->reports.append({message->location(), message->text(), message->kind()});
        return true;
    }

private:
    DbTask *m_task;
};

ConnectionState *stateOf(const QString &connection)
{
    const QSqlDatabase db = QSqlDatabase::database(connection, false);
    return db.isValid() ? ConnectionState::of(db) : nullptr;
}
} // namespace

/// What the window's thread and that of the tasks share; lives as long as the last of them.
struct TaskThread
{
    explicit TaskThread(const QString &sourceConnection) : source(sourceConnection) {}

    const QString source;
    std::mutex guard;
    std::condition_variable changed;
    // Guarded:
    std::deque<Task> queue;
    DbTaskQueue *receiver = nullptr;
    bool isLeaving = false;
    bool isOver = false;
    std::unique_ptr<WorkerConnection> connection;

    void run();

private:
    Task next();
    bool connect(const Task &task);
    void work(const Task &task);
    void tell(Task task);
    void disconnect();

    std::atomic<bool> m_isGivenUp{false};
    friend class DbTaskQueue;
};

/// The tasks of one window's connection; ends together with it.
class DbTaskQueue : public QObject
{
public:
    static DbTaskQueue *of(const QString &sourceConnection);
    ~DbTaskQueue() override;

    void take(const Task &task);
    void drop(const Task &task);
    void deliver(const Task &task);

private:
    DbTaskQueue(const QString &sourceConnection, QObject *driver);
    void leave();
    void forgetAll(bool isWriteToo);
    bool waitForEnd() const;

    std::shared_ptr<TaskThread> m_state;
    std::thread m_thread;
};

/// In the thread of the tasks, like all that follow.
void TaskThread::run()
{
    Db::letHooksHearThisThread();
    while (Task task = next()) {
        work(task);
        tell(std::move(task));
    }
    disconnect();
    const Lock lock(guard);
    isOver = true;
    changed.notify_all();
}

Task TaskThread::next()
{
    Lock lock(guard);
    changed.wait(lock, [this] { return isLeaving || !queue.empty(); });
    if (queue.empty())
        return nullptr;
    Task task = queue.front();
    queue.pop_front();
    return task;
}

void TaskThread::disconnect()
{
    std::unique_ptr<WorkerConnection> closed;
    const Lock lock(guard);
    closed.swap(connection);
}

/// False when the server cannot be reached, which was reported.
bool TaskThread::connect(const Task &task)
{
    TaskReports reports(task.get());
    if (connection && connection->isOpen())
        return true;
    disconnect();
    auto opened = std::make_unique<WorkerConnection>(source, &reports, &m_isGivenUp, ConnectionKind::Window);
    const Lock lock(guard);
    connection = std::move(opened);
    return connection->isOpen();
}

void TaskThread::work(const Task &task)
{
    const bool isOpen = connect(task);
    ConnectionState *state = ConnectionState::of(*connection->database());
    const int lossesBefore = state->losses();
    if (!isOpen || task->isServerGone)
        state->reportLoss(true);
    else
        state->waitUntilBack(backMs);
    {
        TaskReports reports(task.get());
        task->work(Db(connection->database(), &reports));
    }
    task->work = nullptr;
    task->hasLostServer = state->losses() != lossesBefore && !task->isServerGone;
    if (state->losses() == lossesBefore)
        return;
    const Lock lock(guard);
    connection->followSocket();
}

/// From here on the task is the window's.
void TaskThread::tell(Task task)
{
    const Lock lock(guard);
    if (receiver != nullptr)
        QMetaObject::invokeMethod(
            receiver, [queue = receiver, task = std::move(task)] { queue->deliver(task); },
            Qt::QueuedConnection);
}

DbTaskQueue *DbTaskQueue::of(const QString &sourceConnection)
{
    const QSqlDatabase db = QSqlDatabase::database(sourceConnection, false);
    if (!db.isValid())
        return nullptr;
    auto *queue = static_cast<DbTaskQueue *>(db.driver()->property(queueProperty).value<QObject *>());
    return queue != nullptr ? queue : new DbTaskQueue(sourceConnection, db.driver());
}

DbTaskQueue::DbTaskQueue(const QString &sourceConnection, QObject *driver)
    : QObject(QCoreApplication::instance()), m_state(std::make_shared<TaskThread>(sourceConnection))
{
    driver->setProperty(queueProperty, QVariant::fromValue<QObject *>(this));
    m_state->receiver = this;
    m_thread = std::thread([state = m_state] { state->run(); });
    // Connections can neither be added nor removed while one is being removed: the thread ends later.
    QObject::connect(driver, &QObject::destroyed, this, &DbTaskQueue::leave);
    QObject::connect(driver, &QObject::destroyed, this, &QObject::deleteLater);
}

DbTaskQueue::~DbTaskQueue()
{
    leave();
    bool isOver = waitForEnd();
    if (!isOver) {
        m_state->m_isGivenUp = true;
        {
            const Lock lock(m_state->guard);
            if (m_state->connection)
                m_state->connection->cut();
        }
        isOver = waitForEnd();
    }
    {
        const Lock lock(m_state->guard);
        m_state->receiver = nullptr;
    }
    if (isOver)
        m_thread.join();
    else
        m_thread.detach();
    forgetAll(true);
}

/// What is to be written is still written; nobody hears of it.
void DbTaskQueue::leave()
{
    {
        const Lock lock(m_state->guard);
        m_state->isLeaving = true;
        auto &queue = m_state->queue;
        queue.erase(
            std::remove_if(queue.begin(), queue.end(), [](const Task &task) { return !task->isWrite; }),
            queue.end());
    }
    m_state->changed.notify_all();
    forgetAll(false);
}

/// Their owners wait no longer.
void DbTaskQueue::forgetAll(bool isWriteToo)
{
    const std::vector<Task> tasks = openTasks();
    for (const Task &task : tasks) {
        if (task->queue != this || (task->isWrite && !isWriteToo) || !closeTask(task))
            continue;
        if (task->owner != nullptr)
            task->owner->forget(task);
    }
}

bool DbTaskQueue::waitForEnd() const
{
    Lock lock(m_state->guard);
    return m_state->changed.wait_for(lock, leavingTime, [this] { return m_state->isOver; });
}

void DbTaskQueue::take(const Task &task)
{
    const ConnectionState *state = stateOf(m_state->source);
    task->isServerGone = state != nullptr && state->isLost();
    task->queue = this;
    openTasks().push_back(task);
    {
        const Lock lock(m_state->guard);
        m_state->queue.push_back(task);
    }
    m_state->changed.notify_all();
}

/// What has begun goes on, and so does what is to be written.
void DbTaskQueue::drop(const Task &task)
{
    if (task->isWrite)
        return;
    const Lock lock(m_state->guard);
    auto &queue = m_state->queue;
    const auto place = std::find(queue.begin(), queue.end(), task);
    if (place == queue.end())
        return;
    queue.erase(place);
    closeTask(task);
}

void DbTaskQueue::deliver(const Task &task)
{
    if (!closeTask(task))
        return;
    ConnectionState *state = stateOf(m_state->source);
    const bool isKnown = task->hasLostServer && state != nullptr && !state->reportLoss(true);
    for (const DbTask::Report &report : qAsConst(task->reports)) {
        if (task->receiver != nullptr)
            QCoreApplication::postEvent(task->receiver,
                                        new QMessEvent(report.location, report.text,
                                                       isKnown && report.kind == QMessEvent::Critical
                                                           ? static_cast<int>(QMessEvent::Warning)
                                                           : report.kind));
    }
    if (task->owner != nullptr)
        task->owner->answer(task);
}

DbTasks::DbTasks(const QString &sourceConnection, QObject *receiver, QObject *parent)
    : QObject(parent), m_source(sourceConnection), m_receiver(receiver)
{
}

DbTasks::~DbTasks()
{
    drop();
}

void DbTasks::take(std::function<void(const Db &)> work, std::function<void()> then, bool isWrite)
{
    DbTaskQueue *queue = DbTaskQueue::of(m_source);
    if (queue == nullptr) {
        postMessage(m_receiver, serverWords(ServerError::ServerGone), QMessEvent::Warning);
        return;
    }
    auto task = std::make_shared<DbTask>();
    task->work = std::move(work);
    task->then = std::move(then);
    task->receiver = m_receiver;
    task->owner = this;
    task->isWrite = isWrite;
    m_asked.push_back(task);
    queue->take(task);
    if (m_asked.size() == 1)
        emit begun();
}

void DbTasks::drop()
{
    DbTaskQueue *queue = m_asked.empty() ? nullptr : DbTaskQueue::of(m_source);
    for (const Task &task : std::exchange(m_asked, {})) {
        task->owner = nullptr;
        task->then = nullptr;
        if (queue != nullptr)
            queue->drop(task);
    }
}

bool DbTasks::isWriting() const
{
    return std::any_of(m_asked.begin(), m_asked.end(), [](const Task &task) { return task->isWrite; });
}

bool DbTasks::isIdle()
{
    return openTasks().empty();
}

/// Whoever is told may delete this.
void DbTasks::answer(const Task &task)
{
    const auto then = std::exchange(task->then, nullptr);
    const QPointer<DbTasks> self(this);
    forget(task);
    if (self != nullptr)
        then();
}

void DbTasks::forget(const Task &task)
{
    m_asked.erase(std::remove(m_asked.begin(), m_asked.end(), task), m_asked.end());
    task->owner = nullptr;
    task->then = nullptr;
    if (m_asked.empty())
        emit idle();
}
