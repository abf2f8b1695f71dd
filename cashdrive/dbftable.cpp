#include "dbftable.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <new>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(DbfTable)
};

// The layout of a file.
const char supportedVersion = 3;
const int countAt = 4;
const int headerLengthAt = 8;
const int recordLengthAt = 10;
const int fixedHeader = 32;
const int descriptorSize = 32;
const int nameSize = 11;
const int lengthAt = 16;
const char endOfFields = '\r';
const char endOfFile = '\x1a';
const char deletedFlag = '*';

/// More than such a table ever holds; one QByteArray can.
const qint64 mostBytes = 2000000000;
const qint64 pieceSize = qint64(1) << 22U;

template<typename Number>
Number numberAt(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

DbfReading failed(int error, const QString &text)
{
    return {error, text, nullptr};
}

DbfReading failed(const QFile &file)
{
    return failed(file.error(), file.errorString());
}

DbfReading damaged(const QString &what)
{
    return failed(DbfError::Damaged, Texts::tr("Файл DBF пошкоджено: %1").arg(what));
}

DbfReading notSupported()
{
    return failed(DbfError::NotSupported, QStringLiteral("DBF file type not supported!"));
}

/// A device or a pipe would keep whoever opens it.
DbfReading openFile(QFile *file)
{
    const QFileInfo there(file->fileName());
    if (there.exists() && !there.isFile())
        return failed(QFileDevice::OpenError, Texts::tr("Це не звичайний файл."));
    if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return failed(*file);
    return {};
}
} // namespace

/// The steps of reading one file.
class DbfReader
{
public:
    DbfReader(const QString &path, const DbfProgress &mayGoOn) : m_file(path), m_mayGoOn(mayGoOn) {}

    DbfReading read()
    {
        for (DbfReading (DbfReader::*step)() :
             {&DbfReader::open, &DbfReader::readHeader, &DbfReader::takeFields, &DbfReader::readRecords}) {
            DbfReading refused = (this->*step)();
            if (refused.error != DbfError::None)
                return refused;
        }
        return {DbfError::None, QString(), m_table};
    }

private:
    DbfReading open() { return openFile(&m_file); }

    DbfReading readHeader()
    {
        m_header = m_file.read(fixedHeader);
        if (m_file.error() != QFileDevice::NoError)
            return failed(m_file);
        if (m_header.isEmpty() || m_header.at(0) != supportedVersion)
            return notSupported();
        if (m_header.size() < fixedHeader)
            return damaged(Texts::tr("він закінчується посеред заголовка."));
        const int headerLength = numberAt<quint16>(m_header, headerLengthAt);
        if (headerLength < fixedHeader)
            return damaged(Texts::tr("довжина заголовка (%1) замала.").arg(headerLength));
        if (headerLength > m_file.size())
            return damaged(Texts::tr("заголовок (%1 байтів) довший за сам файл.").arg(headerLength));
        m_header += m_file.read(headerLength - fixedHeader);
        if (m_file.error() != QFileDevice::NoError)
            return failed(m_file);
        return m_header.size() == headerLength ? DbfReading()
                                               : damaged(Texts::tr("він закінчується посеред заголовка."));
    }

    /// Some writers put more behind the fields than their end, others not even that.
    DbfReading takeFields()
    {
        m_table->m_fields = {{QByteArrayLiteral("D"), 'C', 1, 0}};
        int length = 1;
        for (int at = fixedHeader; at + descriptorSize <= m_header.size() && m_header.at(at) != endOfFields;
             at += descriptorSize) {
            QByteArray name = m_header.mid(at, nameSize);
            name.truncate(static_cast<int>(qstrnlen(name.constData(), nameSize)));
            const int fieldLength = static_cast<uchar>(m_header.at(at + lengthAt));
            m_table->m_fields.append({name, m_header.at(at + nameSize), fieldLength, length});
            length += fieldLength;
        }
        m_table->m_recordLength = numberAt<quint16>(m_header, recordLengthAt);
        return length <= m_table->m_recordLength
                   ? DbfReading()
                   : damaged(Texts::tr("поля (%1 байтів) не вміщуються у запис (%2 байтів).")
                                 .arg(length)
                                 .arg(m_table->m_recordLength));
    }

    DbfReading readRecords()
    {
        m_table->m_promisedCount = numberAt<quint32>(m_header, countAt);
        const qint64 there = m_file.size() - m_header.size();
        const qint64 wanted = qMin(qint64(m_table->m_promisedCount) * m_table->m_recordLength, there);
        if (wanted > mostBytes)
            return failed(DbfError::TooLarge, Texts::tr("Файл завеликий: записів на %1 байтів, а прочитати "
                                                        "можна щонайбільше %2.")
                                                  .arg(wanted)
                                                  .arg(mostBytes));
        if (!takeMemory(static_cast<int>(wanted)))
            return failed(DbfError::TooLarge,
                          Texts::tr("На записи файла (%1 байтів) не вистачає пам'яті.").arg(wanted));
        qint64 done = 0;
        while (done < wanted) {
            if (m_mayGoOn && !m_mayGoOn(done, wanted))
                return failed(DbfError::CalledOff, Texts::tr("Читання файла скасовано."));
            const qint64 got = m_file.read(m_table->m_records.data() + done, qMin(pieceSize, wanted - done));
            if (got < 0)
                return failed(m_file);
            // Somebody has cut the file meanwhile.
            if (got == 0)
                break;
            done += got;
        }
        m_table->m_records.truncate(static_cast<int>(done));
        count();
        if (done == wanted && wanted < there)
            return lookBehind(there - wanted);
        return {};
    }

    bool takeMemory(int bytes)
    {
        try {
            m_table->m_records = QByteArray(bytes, Qt::Uninitialized);
        } catch (const std::bad_alloc &) {
            return false;
        }
        return true;
    }

    /// A piece of a record counts, but the mark of the end is none.
    void count()
    {
        QByteArray &records = m_table->m_records;
        if (records.size() % m_table->m_recordLength == 1 && records.endsWith(endOfFile))
            records.chop(1);
        const int length = m_table->m_recordLength;
        m_table->m_recordCount = records.size() / length + (records.size() % length == 0 ? 0 : 1);
    }

    DbfReading lookBehind(qint64 left)
    {
        char flag = endOfFile;
        if (left >= m_table->m_recordLength && m_file.getChar(&flag) && (flag == ' ' || flag == deletedFlag))
            m_table->m_unpromisedCount = static_cast<int>(qMin(left / m_table->m_recordLength, mostBytes));
        return {};
    }

    QFile m_file;
    const DbfProgress &m_mayGoOn;
    QByteArray m_header;
    std::shared_ptr<DbfTable> m_table = std::make_shared<DbfTable>();
};

bool DbfTable::isWhole(int record) const
{
    return record >= 0 && (record + qint64(1)) * m_recordLength <= m_records.size();
}

bool DbfTable::isDeleted(int record) const
{
    const QByteArray flag = borrowedData(record, 0);
    return !flag.isEmpty() && flag.at(0) == deletedFlag;
}

QByteArray DbfTable::data(int record, int field) const
{
    const QByteArray bytes = borrowedData(record, field);
    return QByteArray(bytes.constData(), bytes.size());
}

QByteArray DbfTable::borrowedData(int record, int field) const
{
    if (record < 0 || record >= m_recordCount || field < 0 || field >= m_fields.size())
        return {};
    const DbfField &wanted = m_fields.at(field);
    const qint64 at = qint64(record) * m_recordLength + wanted.offset;
    const qint64 length = qMin<qint64>(wanted.length, m_records.size() - at);
    return length <= 0 ? QByteArray()
                       : QByteArray::fromRawData(m_records.constData() + at, static_cast<int>(length));
}

DbfReading readDbf(const QString &path, const DbfProgress &mayGoOn)
{
    return DbfReader(path, mayGoOn).read();
}

qint64 dbfPromisedCount(const QString &path, QString *text)
{
    QFile file(path);
    DbfReading reading = openFile(&file);
    if (reading.error == DbfError::None) {
        const QByteArray start = file.read(countAt + static_cast<int>(sizeof(quint32)));
        if (start.size() == countAt + static_cast<int>(sizeof(quint32)) && start.at(0) == supportedVersion)
            return numberAt<quint32>(start, countAt);
        reading = file.error() == QFileDevice::NoError ? notSupported() : failed(file);
    }
    *text = reading.text;
    return -1;
}
