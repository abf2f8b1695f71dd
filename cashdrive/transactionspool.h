#pragma once

#include "registerserver.h"

#include <QStringList>

/// One reading of a register that waits to be counted.
struct KeptReading
{
    QString path;
    /// Its own for ever.
    QString id;
    /// The register's server code.
    QString kass;
    /// So many of its lines were counted when the file was named.
    qint64 counted = 0;
    ServerLines lines;
};

/// What the registers have sold, between the server, which gives it once, and the database: a folder with a
/// file for each reading. A file is there whole or not at all; how much of it is counted stands in its name.
class TransactionSpool
{
public:
    explicit TransactionSpool(const QString &folder);

    /// Why it was not kept; empty when it is on the disk.
    QString keep(const QString &kass, const ServerLines &lines) const;
    /// All that wait, the oldest first. problems: the files that cannot be read, in words; they stay.
    QVector<KeptReading> waiting(QStringList *problems) const;
    /// Names the file by what is counted now; false when that is not possible.
    static bool setCounted(KeptReading *reading, qint64 counted);
    static bool remove(const KeptReading &reading);

    const QString &folder() const { return m_folder; }

private:
    QString m_folder;
};
