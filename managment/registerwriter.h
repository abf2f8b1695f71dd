#pragma once

#include "chek.h"
#include "db.h"
#include "servererror.h"

#include <QStringList>
#include <optional>

/// What ChekWriter and ShiftCloser have in common: they write to one register, their statements are reported
/// under the place of their caller, and of a COMMIT whose answer was lost they ask the server.
class RegisterWriter
{
protected:
    RegisterWriter(const Db &db, const ChekPlace &place, const char *file, int line)
        : m_db(db), m_place(place), m_file(file), m_line(line)
    {
    }

    bool run(const QString &sql) const;
    /// The first row as texts; empty when there is none, nothing after a failure.
    std::optional<QStringList> row(const QString &sql) const;
    /// Whether such a row of `cheks` is there; nothing when the server did not tell, also while a transaction
    /// of the lost connection is still open there.
    std::optional<bool> stands(const QString &condition) const;

    /// What the statement that failed last means for one who has the outcomes Collided, Locked and Failed.
    template<typename Writer>
    typename Writer::Outcome failureOf() const
    {
        const int error = m_db.lastErrorNumber();
        if (error == ServerError::DuplicateKey)
            return Writer::Collided;
        return isOthersLock(error) ? Writer::Locked : Writer::Failed;
    }
    /// The same of a COMMIT.
    template<typename Writer>
    typename Writer::Outcome commitFailureOf() const
    {
        return isCommitRefused(m_db.lastErrorNumber()) ? failureOf<Writer>() : Writer::Unclear;
    }
    /// For a COMMIT whose answer was lost: waits a moment for the server, then asks for what was written.
    template<typename IsWritten>
    std::optional<bool> askAfterLoss(const IsWritten &isWritten) const
    {
        waitForServer(m_db, answerMs);
        return isWritten();
    }

    const Db m_db;
    const ChekPlace m_place;
    const char *m_file;
    int m_line;

private:
    /// A server that stays silent longer is asked again by the user.
    static constexpr int answerMs = 3000;
};
