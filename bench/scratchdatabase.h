#pragma once

#include "connection.h"

/// The benchmarks' own database, dropped at the end. One that is there already is not touched.
class ScratchDatabase
{
public:
    enum End { Drop, Keep };
    /// Keep: it stays for the next run, which finds it filled when this one has told so by setFilled().
    ScratchDatabase(const DatabaseAddress &address, End end);
    ~ScratchDatabase();
    Q_DISABLE_COPY(ScratchDatabase)

    /// Whether an earlier run has filled it.
    bool isFilled() const { return m_isFilled; }
    void setFilled() { m_isFilled = true; }

private:
    QString answer(const QString &sql);
    bool exists();
    void endConnections();

    QString m_name;
    End m_end;
    bool m_isFilled = false;
    QSqlDatabase m_server;
};
