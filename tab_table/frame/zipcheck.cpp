#include "zipcheck.h"

#include <QFile>
#include <QtEndian>
#include <string>
#define ZLIB_CONST
#include <zlib.h>

namespace {
/// Fields of an archive's headers: where they stand, and how long the headers are.
constexpr int endSize = 22;
constexpr int endCount = 10;
constexpr int endDirectory = 16;
constexpr int entrySize = 46;
constexpr int entryPacked = 20;
constexpr int entryUnpacked = 24;
constexpr int entryName = 28;
constexpr int entryExtra = 30;
constexpr int entryComment = 32;
constexpr int entryPlace = 42;
constexpr int localSize = 30;
constexpr int localName = 26;
constexpr int localExtra = 28;

template<typename Number>
Number field(const QByteArray &header, int place)
{
    return qFromLittleEndian<Number>(header.constData() + place);
}

QByteArray readAt(QFile *file, qint64 place, qint64 size)
{
    const QByteArray bytes = file->seek(place) ? file->read(size) : QByteArray();
    return bytes.size() == size ? bytes : QByteArray();
}

/// The name of a document's outermost element.
std::string rootOf(const std::string &beginning)
{
    const size_t head = beginning.find("?>");
    const size_t root = beginning.find('<', head == std::string::npos ? 0 : head);
    if (root == std::string::npos)
        return {};
    return beginning.substr(root + 1, beginning.find_first_of(" >", root) - root - 1);
}

/// Unpacks a part and keeps how it begins and ends.
class Part
{
public:
    Part() { m_isOpen = inflateInit2(&m_stream, -MAX_WBITS) == Z_OK; }
    ~Part() { inflateEnd(&m_stream); }
    Q_DISABLE_COPY(Part)

    bool add(const QByteArray &packed)
    {
        char room[1 << 16];
        m_stream.next_in = reinterpret_cast<const Bytef *>(packed.constData());
        m_stream.avail_in = static_cast<uInt>(packed.size());
        do {
            m_stream.next_out = reinterpret_cast<Bytef *>(room);
            m_stream.avail_out = sizeof room;
            const int done = inflate(&m_stream, Z_NO_FLUSH);
            if (!m_isOpen || (done != Z_OK && done != Z_STREAM_END && done != Z_BUF_ERROR))
                return false;
            keep({room, sizeof room - m_stream.avail_out});
        } while (m_stream.avail_out == 0);
        return true;
    }

    bool isWhole(quint32 size) const
    {
        const std::string closing = "</" + rootOf(m_beginning) + '>';
        const size_t end = m_end.find_last_not_of("\r\n ") + 1;
        return m_stream.total_out == size && closing.size() > 3 && end >= closing.size() &&
               m_end.compare(end - closing.size(), closing.size(), closing) == 0;
    }

private:
    void keep(const std::string &unpacked)
    {
        constexpr size_t kept = 256;
        if (m_beginning.size() < kept)
            m_beginning += unpacked.substr(0, kept);
        m_end += unpacked.substr(unpacked.size() - qMin(unpacked.size(), kept));
        m_end.erase(0, m_end.size() - qMin(m_end.size(), kept));
    }

    z_stream m_stream{};
    bool m_isOpen = false;
    std::string m_beginning;
    std::string m_end;
};

bool isWholePart(QFile *file, const QByteArray &entry)
{
    constexpr qint64 piece = 1 << 18;
    const auto place = field<quint32>(entry, entryPlace);
    const QByteArray local = readAt(file, place, localSize);
    if (local.isEmpty() ||
        !file->seek(place + localSize + field<quint16>(local, localName) + field<quint16>(local, localExtra)))
        return false;
    Part part;
    for (qint64 rest = field<quint32>(entry, entryPacked); rest > 0;) {
        const QByteArray packed = file->read(qMin(rest, piece));
        if (packed.isEmpty() || !part.add(packed))
            return false;
        rest -= packed.size();
    }
    return part.isWhole(field<quint32>(entry, entryUnpacked));
}
} // namespace

bool isWholeXmlArchive(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray end = readAt(&file, file.size() - endSize, endSize);
    if (!end.startsWith("PK\5\6"))
        return false;
    qint64 place = field<quint32>(end, endDirectory);
    for (int entries = field<quint16>(end, endCount); entries > 0; --entries) {
        const QByteArray entry = readAt(&file, place, entrySize);
        if (!entry.startsWith("PK\1\2") || !isWholePart(&file, entry))
            return false;
        place += entrySize + field<quint16>(entry, entryName) + field<quint16>(entry, entryExtra) +
                 field<quint16>(entry, entryComment);
    }
    return true;
}
