#pragma once

#include <QObject>
#include <QVector>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

class Db;
class QThread;

/// What an administrator may add to the shared database and take away again: two indexes on the receipts,
/// with which a day's receipts and the next receipt number are found without reading the whole table. They
/// change no result, and the creation of the tables never makes them.

/// How many of the two indexes stand.
enum class TunedState { None, Partial, Whole };
/// Nothing after a reported failure.
std::optional<TunedState> tunedState(const Db &db);
/// What to ask before they are added or, when they stand, taken away.
QString tuningQuestion(bool isTuned);

/// Adds the indexes or takes them away, on a thread and a connection of its own; selling goes on meanwhile.
/// The work needs the table to itself for a moment at its beginning and at its end. It waits for that moment
/// a second or two only, because whoever sells waits behind it, and tries again later when somebody reads on.
class DatabaseTuning : public QObject
{
    Q_OBJECT

public:
    enum Work { Add, Remove };
    enum Outcome {
        Done,    ///< all of them stand, or none
        Stopped, ///< nothing was changed
        Failed   ///< nothing was changed; the reason was posted
    };

    /// sourceConnection: the connection whose address is used; receiver gets the messages.
    DatabaseTuning(const QString &sourceConnection, QObject *receiver, QObject *parent = nullptr);
    /// Stops the work; does not wait for a server that does not answer.
    ~DatabaseTuning() override;

    /// Once only.
    void start(Work work);
    /// Ends the statement on the server; finished() follows.
    void stop();

signals:
    /// As far as the server tells it; it only grows.
    void progressed(int percent);
    void finished(DatabaseTuning::Outcome outcome);

private:
    class Line;

    void run(Work work);
    Outcome alter(const Db &db, Work work);
    Outcome alterOrWait(const Db &db, const QString &sql);
    void pause(int ms, bool endsWithStop);
    void watch();
    int percent(const Db &db) const;
    void cutLines();

    QString m_source;
    QObject *m_receiver;
    std::unique_ptr<QThread> m_thread;
    std::unique_ptr<QThread> m_watcher;
    /// Guards the connections, and goes with what wakes those who pause.
    std::mutex m_guard;
    std::condition_variable m_changed;
    QVector<Line *> m_lines;
    std::atomic<qint64> m_runningId{0};
    std::atomic<bool> m_isStopping{false};
    std::atomic<bool> m_isOver{false};
    std::atomic<bool> m_isLeaving{false};
    Outcome m_outcome = Failed;
};
