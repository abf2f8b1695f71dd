#pragma once

#include "db.h"

#include <QElapsedTimer>
#include <QTimer>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class JobConnection;
struct JobState;

/// How far a job is, as it told last.
struct JobProgress
{
    qint64 done = 0;
    /// 0 while nobody knows how much there is to do.
    qint64 of = 0;
    /// What is being done now, for the user.
    QString stage;

    bool operator==(const JobProgress &other) const
    {
        return done == other.done && of == other.of && stage == other.stage;
    }
};

/// How a job ended.
struct JobResult
{
    enum Outcome { Done, Cancelled, Failed };
    Outcome outcome = Failed;
    /// For the user: what was done, or why not; nothing when there is nothing to tell. The first report of a
    /// failed job when it gives none.
    QString words;
    QVariant value;
};
Q_DECLARE_METATYPE(JobResult)

/// What a job's work works with, in the job's thread.
class JobContext
{
public:
    explicit JobContext(const std::shared_ptr<JobState> &state);
    ~JobContext();
    Q_DISABLE_COPY(JobContext)

    /// The job's own connection, opened by the first call. When it does not open, that is reported and every
    /// statement on it fails.
    Db db();
    /// Told at any pace: the window looks at it now and then. of: 0 while nobody knows.
    void progress(qint64 done, qint64 of);
    /// What is being done now, for the user.
    void stage(const QString &text);
    bool isCancelled() const { return cancelled(); }
    const std::atomic<bool> &cancelled() const;
    /// Returns early, with false, when the job is cancelled.
    bool pause(int ms) const;
    /// After a connection of the job was lost: a new one, as soon as the server answers. The job's stage says
    /// so meanwhile. Null when it does not answer for half a minute, or the job is cancelled.
    std::unique_ptr<JobConnection> connectAgain();
    /// Hears what is reported about the job, from any of its threads.
    QObject *receiver() const { return m_receiver.get(); }

private:
    friend class JobConnection;
    std::shared_ptr<JobState> m_state;
    std::unique_ptr<QObject> m_receiver;
    std::unique_ptr<JobConnection> m_connection;
};

/// One more connection of a job, for a thread beside its work; cancelling ends its statement too. It is
/// opened in the constructor and removed in the destructor, both in the thread that uses it.
class JobConnection
{
public:
    explicit JobConnection(const JobContext &context);
    ~JobConnection();
    Q_DISABLE_COPY(JobConnection)

    bool isOpen() const;
    Db db();

private:
    friend class Job;
    struct Line;
    std::shared_ptr<JobState> m_state;
    QObject *m_receiver;
    std::unique_ptr<Line> m_line;
};

/// Work away from the window: a function of values, in a thread of its own with a connection of its own.
/// Whoever shows the jobs of the program finds them in RunningJobs.
class Job : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<JobResult(JobContext &)>;

    /// title: what is done, for the user ("Експорт: Товари"). sourceConnection: the window's connection whose
    /// address is used; empty for work without a database. parent: the messages of the work's statements are
    /// posted to it (those that only come from being cancelled are not); the job ends with it.
    Job(const QString &title, const QString &sourceConnection, const Work &work, QObject *parent);
    /// Cancels the work and waits for its end, for less than a second: work that holds on longer is left to
    /// itself, with nobody to tell its result.
    ~Job() override;

    /// Once only.
    void start();
    /// Ends the statement on the server and, when that does not answer, the connection; finished() follows.
    void cancel();

    const QString &title() const { return m_title; }
    bool usesDatabase() const;
    bool isRunning() const { return m_thread.joinable(); }
    bool isCancelled() const;
    const JobProgress &progress() const { return m_progress; }
    /// Milliseconds since the start.
    qint64 elapsed() const { return m_clock.elapsed(); }

signals:
    /// Also when only the stage is another one.
    void progressed(qint64 done, qint64 of);
    /// The last signal. The receiver may delete the job by deleteLater().
    void finished(const JobResult &result);

private:
    static void run(const std::shared_ptr<JobState> &state, Work work);
    void look();
    void take();
    void end();
    void endStatements() const;
    void cutConnections() const;
    bool waitForEnd(int ms) const;

    QString m_title;
    Work m_work;
    std::shared_ptr<JobState> m_state;
    std::thread m_thread;
    QTimer m_looking;
    QElapsedTimer m_clock;
    QElapsedTimer m_sinceCancel;
    QElapsedTimer m_sinceKill;
    JobProgress m_progress;
};

/// The jobs that run, for the one list that shows them. Window's thread only.
class RunningJobs : public QObject
{
    Q_OBJECT

public:
    static RunningJobs &all();
    const QVector<Job *> &jobs() const { return m_jobs; }

signals:
    void started(Job *job);
    /// Right before its finished(), or because it is being destroyed.
    void ended(Job *job);

private:
    friend class Job;
    void add(Job *job);
    void remove(Job *job);

    QVector<Job *> m_jobs;
};
