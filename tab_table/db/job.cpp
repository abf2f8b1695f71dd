#include "job.h"

#include "connection.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace {
using std::chrono::milliseconds;

const int lookMs = 100;
/// A KILL may come right before the statement: it is repeated until nothing runs any more.
const int killMs = 300;
/// A server that has not ended a statement after so long does not answer.
const int patienceMs = 700;
/// A destructor waits twice so long at most.
const int leavingMs = 400;
/// So long a lost server is waited for.
const int lostMs = 30000;
const int betweenTriesMs = 500;

/// A message about a job on its way to the window's thread.
struct Report
{
    QString location;
    QString text;
    int kind;
};
} // namespace

/// What the window's thread and those of the job share; lives as long as the last of them.
struct JobState
{
    explicit JobState(const QString &sourceConnection) : source(sourceConnection) {}

    const QString source;
    std::atomic<bool> isCancelled{false};
    std::mutex guard;
    std::condition_variable changed;
    // Guarded:
    /// With the server's number of each.
    QMap<const WorkerConnection *, qint64> connections;
    QVector<Report> reports;
    JobProgress progress;
    QString firstError;
    JobResult result;
    bool isOver = false;
    Job *job = nullptr;
};

namespace {
/// Collects what the statements of a job report, in the job's thread.
class Reports : public QObject
{
public:
    explicit Reports(JobState *state) : m_state(state) {}

    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QObject::event(event);
        const auto *message = static_cast<QMessEvent *>(event);
        // That its statement was ended is no news to who cancelled the job.
        if (m_state->isCancelled && message->kind() == QMessEvent::Critical)
            return true;
        const std::lock_guard<std::mutex> lock(m_state->guard);
        m_state->reports.append({message->location(), message->text(), message->kind()});
        if (message->kind() == QMessEvent::Critical && m_state->firstError.isEmpty())
            m_state->firstError = message->text();
        return true;
    }

private:
    JobState *m_state;
};

/// What came of it in the end.
JobResult settled(const JobState &state, JobResult result)
{
    if (result.outcome == JobResult::Failed && state.isCancelled)
        result.outcome = JobResult::Cancelled;
    else if (result.outcome == JobResult::Failed && result.words.isEmpty())
        result.words = state.firstError;
    return result;
}
} // namespace

/// A connection that the window's thread can cut.
struct JobConnection::Line
{
    Line(JobState *jobState, QObject *receiver)
        : state(jobState), connection(jobState->source, receiver, &jobState->isCancelled)
    {
        const std::lock_guard<std::mutex> lock(state->guard);
        state->connections.insert(&connection, connection.serverId());
    }
    ~Line()
    {
        const std::lock_guard<std::mutex> lock(state->guard);
        state->connections.remove(&connection);
    }
    Q_DISABLE_COPY(Line)

    JobState *state;
    WorkerConnection connection;
};

JobConnection::JobConnection(const JobContext &context)
    : m_state(context.m_state)
    , m_receiver(context.receiver())
    , m_line(std::make_unique<Line>(m_state.get(), m_receiver))
{
}

JobConnection::~JobConnection() = default;

bool JobConnection::isOpen() const
{
    return m_line->connection.isOpen();
}

Db JobConnection::db()
{
    return Db(m_line->connection.database(), m_receiver);
}

JobContext::JobContext(const std::shared_ptr<JobState> &state)
    : m_state(state), m_receiver(std::make_unique<Reports>(state.get()))
{
}

JobContext::~JobContext()
{
    m_connection.reset();
    QCoreApplication::sendPostedEvents(m_receiver.get(), QMessEvent::eventType);
}

Db JobContext::db()
{
    if (!m_connection)
        m_connection = std::make_unique<JobConnection>(*this);
    return m_connection->db();
}

void JobContext::progress(qint64 done, qint64 of)
{
    const std::lock_guard<std::mutex> lock(m_state->guard);
    m_state->progress.done = done;
    m_state->progress.of = of;
}

void JobContext::stage(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_state->guard);
    m_state->progress.stage = text;
}

const std::atomic<bool> &JobContext::cancelled() const
{
    return m_state->isCancelled;
}

bool JobContext::pause(int ms) const
{
    std::unique_lock<std::mutex> lock(m_state->guard);
    return !m_state->changed.wait_for(lock, milliseconds(ms), [this] { return m_state->isCancelled.load(); });
}

/// Nobody is told anew that the server is lost.
std::unique_ptr<JobConnection> JobContext::connectAgain()
{
    stage(QCoreApplication::translate("Job", "зв'язок втрачено, підключаюся знову…"));
    const DatabaseAddress address = addressInUse(m_state->source).value_or(DatabaseAddress());
    QElapsedTimer clock;
    clock.start();
    std::unique_ptr<JobConnection> connection;
    while (!connection && clock.elapsed() < lostMs && pause(betweenTriesMs)) {
        const ServerAnswer answer = connectAside(address, cancelled());
        if (answer.isGivenUp || isConnectionLost(answer.error))
            continue;
        connection = std::make_unique<JobConnection>(*this);
        if (!connection->isOpen())
            connection.reset();
    }
    stage(QString());
    return connection;
}

Job::Job(const QString &title, const QString &sourceConnection, const Work &work, QObject *parent)
    : QObject(parent), m_title(title), m_work(work), m_state(std::make_shared<JobState>(sourceConnection))
{
    qRegisterMetaType<JobResult>();
    m_looking.setInterval(lookMs);
    connect(&m_looking, &QTimer::timeout, this, &Job::look);
}

Job::~Job()
{
    if (!isRunning())
        return;
    RunningJobs::all().remove(this);
    {
        const std::lock_guard<std::mutex> lock(m_state->guard);
        m_state->job = nullptr;
        m_state->isCancelled = true;
    }
    m_state->changed.notify_all();
    endStatements();
    if (!waitForEnd(leavingMs))
        cutConnections();
    if (waitForEnd(leavingMs))
        m_thread.join();
    else
        m_thread.detach();
}

void Job::start()
{
    m_state->job = this;
    m_clock.start();
    m_looking.start();
    m_thread = std::thread(&Job::run, m_state, std::move(m_work));
    RunningJobs::all().add(this);
}

/// In the job's thread. The work goes before its end is told: others may wait for the values it holds.
void Job::run(const std::shared_ptr<JobState> &state, Work work)
{
    JobResult result;
    {
        JobContext context(state);
        result = work(context);
    }
    work = nullptr;
    const std::lock_guard<std::mutex> lock(state->guard);
    state->result = settled(*state, result);
    state->isOver = true;
    state->changed.notify_all();
    if (state->job != nullptr)
        QMetaObject::invokeMethod(state->job, &Job::end, Qt::QueuedConnection);
}

void Job::cancel()
{
    if (!isRunning() || isCancelled())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_state->guard);
        m_state->isCancelled = true;
    }
    m_state->changed.notify_all();
    m_sinceCancel.start();
    look();
}

bool Job::usesDatabase() const
{
    return !m_state->source.isEmpty();
}

bool Job::isCancelled() const
{
    return m_state->isCancelled;
}

void Job::endStatements() const
{
    const std::lock_guard<std::mutex> lock(m_state->guard);
    for (const qint64 serverId : qAsConst(m_state->connections)) {
        if (serverId != 0)
            endStatement(m_state->source, serverId);
    }
}

void Job::cutConnections() const
{
    const std::lock_guard<std::mutex> lock(m_state->guard);
    const QList<const WorkerConnection *> connections = m_state->connections.keys();
    for (const WorkerConnection *connection : connections)
        connection->cut();
}

bool Job::waitForEnd(int ms) const
{
    std::unique_lock<std::mutex> lock(m_state->guard);
    return m_state->changed.wait_for(lock, milliseconds(ms), [this] { return m_state->isOver; });
}

/// What the work has told meanwhile, and what is done about one that is cancelled.
void Job::look()
{
    take();
    if (!isCancelled())
        return;
    if (m_sinceCancel.elapsed() > patienceMs) {
        cutConnections();
    } else if (!m_sinceKill.isValid() || m_sinceKill.elapsed() >= killMs) {
        endStatements();
        m_sinceKill.start();
    }
}

void Job::take()
{
    std::unique_lock<std::mutex> lock(m_state->guard);
    const QVector<Report> reports = std::exchange(m_state->reports, {});
    const JobProgress now = m_state->progress;
    lock.unlock();
    for (const Report &report : reports) {
        if (parent() != nullptr)
            QCoreApplication::postEvent(parent(), new QMessEvent(report.location, report.text, report.kind));
    }
    if (now == m_progress)
        return;
    m_progress = now;
    emit progressed(now.done, now.of);
}

void Job::end()
{
    m_looking.stop();
    m_thread.join();
    take();
    RunningJobs::all().remove(this);
    emit finished(m_state->result);
}

RunningJobs &RunningJobs::all()
{
    static RunningJobs jobs;
    return jobs;
}

void RunningJobs::add(Job *job)
{
    m_jobs.append(job);
    emit started(job);
}

void RunningJobs::remove(Job *job)
{
    m_jobs.removeOne(job);
    emit ended(job);
}
