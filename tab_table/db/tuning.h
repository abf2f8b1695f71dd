#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>
#include <memory>
#include <optional>

class Db;
class QThread;

/// What an administrator may add to the shared database and take away again: two indexes on the receipts,
/// with which a day's receipts and the next receipt number are found without reading the whole table. They
/// change no result, and the creation of the tables never makes them.

/// True when both indexes stand; nothing after a reported failure.
std::optional<bool> isDatabaseTuned(const Db &db);
/// What to ask before they are added or, when they stand, taken away.
QString tuningQuestion(bool isTuned);

/// Adds the indexes or takes them away, on a thread and a connection of its own; selling goes on meanwhile.
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

    /// sourceConnection: the open connection of this thread whose address is used and that watches the work;
    /// receiver gets the messages.
    DatabaseTuning(const QString &sourceConnection, QObject *receiver, QObject *parent = nullptr);
    /// Stops the work and waits for its end.
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
    void run(Work work);
    Outcome alter(Db db, Work work);
    void watch();

    QString m_source;
    QObject *m_receiver;
    QTimer m_watch;
    std::unique_ptr<QThread> m_thread;
    std::atomic<qint64> m_runningId{0};
    std::atomic<bool> m_isStopping{false};
    Outcome m_outcome = Failed;
    int m_percent = 0;
};
