#pragma once

#include "destination.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>
#include <mutex>

namespace integrity {
/// A row that a check has found: its columns by their names, as text.
using FoundRow = QMap<QString, QString>;

/// One thing that is wrong, in the user's words.
struct Finding
{
    int check = 0;
    /// Names of the place; empty where there is none.
    QString shop;
    QString kass;
    QString words;
    QString advice;
    /// Where its record is shown; without an action nothing shows it.
    Destination destination;
};

/// What became of a check.
struct CheckState
{
    enum Kind { Waiting, Running, Done, Unread };
    Kind kind = Waiting;
    /// All of them, those that are not listed too.
    qint64 found = 0;
    /// Why it could not be read, in the server's words.
    QString error;
};

/// What the job has found so far. The job writes it in its thread, the window reads it in its own.
class FindingsSoFar
{
public:
    FindingsSoFar();

    void begin(int check);
    void add(const Finding &finding);
    /// Beyond the most that are listed of a kind.
    void addUnlisted(int check, qint64 count);
    void end(int check);
    void fail(int check, const QString &error);
    /// Whether that check was begun, and not read to its end.
    bool isRunning(int check) const;
    qint64 found(int check) const;

    QVector<CheckState> states() const;
    /// Those behind the first so many.
    QVector<Finding> after(int count) const;

private:
    mutable std::mutex m_guard;
    QVector<CheckState> m_states;
    QVector<Finding> m_findings;
};

/// The names of shops and registers by their ids.
struct KnownPlaces
{
    QMap<QString, QString> shops;
    QMap<QString, QString> registers;
};

/// Tells what a row of that check means; the texts are those of the check with the row's values in them.
Finding findingOf(int check, const FoundRow &row, const KnownPlaces &places);
} // namespace integrity
