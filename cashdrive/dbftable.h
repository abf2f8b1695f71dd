#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>

/// A field of a DBF table, as its file describes it.
struct DbfField
{
    /// Bytes of an unknown code page, without the terminator.
    QByteArray name;
    char type = 'C';
    int length = 0;
    /// Within a record.
    int offset = 0;
};

/// Why a file was not read. What the file itself refused has the code of QFileDevice::FileError.
namespace DbfError {
enum { None = 0, AlreadyOpen = -1, NotSupported = -2, Damaged = -3, TooLarge = -4, CalledOff = -5 };
}

/// A dBASE III table without memo, read whole. It never changes: any thread may read it.
class DbfTable
{
public:
    /// The deletion flag, which stands first in every record, is field 0: "D C(1)".
    int fieldCount() const { return m_fields.size(); }
    const DbfField &field(int number) const { return m_fields.at(number); }

    /// The records that the file holds; of the last one there may be only a piece.
    int recordCount() const { return m_recordCount; }
    /// How many the header promises.
    quint32 promisedCount() const { return m_promisedCount; }
    /// Whole records behind the promised ones: somebody did not bring the header up to date.
    int unpromisedCount() const { return m_unpromisedCount; }
    bool isWhole(int record) const;
    bool isDeleted(int record) const;

    /// The bytes of one field of one record, not trimmed, not converted; what was not read is missing. They
    /// are a copy, or, without one, valid as long as the table.
    QByteArray data(int record, int field) const;
    QByteArray borrowedData(int record, int field) const;

private:
    friend class DbfReader;
    QVector<DbfField> m_fields;
    int m_recordLength = 0;
    int m_recordCount = 0;
    quint32 m_promisedCount = 0;
    int m_unpromisedCount = 0;
    QByteArray m_records;
};

/// What came of reading a file.
struct DbfReading
{
    int error = DbfError::None;
    /// In words, for an error.
    QString text;
    /// Null after an error.
    std::shared_ptr<const DbfTable> table;
};

/// Told now and then how many bytes are read; false when the reading is to stop.
using DbfProgress = std::function<bool(qint64 done, qint64 of)>;

/// Reads a file, which is opened for reading only. Every length in it is held against the size of the file
/// before anything is taken for it. Any thread.
DbfReading readDbf(const QString &path, const DbfProgress &mayGoOn = {});
/// The number of records that the header of a file promises; -1, with the reason in text, for what cannot be
/// opened or is no such file.
qint64 dbfPromisedCount(const QString &path, QString *text);
