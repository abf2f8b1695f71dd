#pragma once

#include <QFile>
#include <QMutex>
#include <QObject>
#include <QStringList>

/// Appends a line per event to the program's log file; may be called from any thread.
class QLogger : public QObject
{
    Q_OBJECT

public:
    /// The index of the label: QMessEvent::ecritical.
    using TYPELOG = int;
    /// The greatest type that is still written.
    using LEVELVERB = int;

    /// The flag has no effect; it is kept for the callers.
    QLogger(const QString &fileName, bool flag, LEVELVERB level, QObject *parent);

    /// Writes label, time, the file's name without its folders, the line and the message; flushes.
    /// Does nothing when the type is above the level or the file could not be opened.
    void wlog(TYPELOG type, const QString &file, const QString &line, const QString &message);

private:
    QFile m_file;
    QMutex m_mutex;
    LEVELVERB m_level;
    QStringList m_labels;
};
