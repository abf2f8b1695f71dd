#include "csvexport.h"

#include "columns.h"

#include <QIODevice>
#include <QTextCodec>
#include <array>
#include <cstring>

namespace {
constexpr int rowsBetween = 4096;
constexpr size_t chunk = size_t(256) << 10U;

bool isAscii(std::string_view bytes)
{
    const char *at = bytes.data();
    const char *const end = at + bytes.size();
    for (; end - at >= 8; at += 8) {
        quint64 eight = 0;
        std::memcpy(&eight, at, sizeof eight);
        if ((eight & 0x8080808080808080U) != 0)
            return false;
    }
    while (at != end && static_cast<signed char>(*at) >= 0)
        ++at;
    return at == end;
}

bool isTail(char byte)
{
    return (static_cast<quint8>(byte) & 0xc0U) == 0x80U;
}

/// Reads one character of UTF-8 and steps behind it. 0 for anything but sound characters of one to three
/// bytes that no rule of the encoding singles out: those are left to Qt.
uint commonCharacter(const char *&at, const char *end)
{
    const auto first = static_cast<quint8>(*at);
    if (first < 0x80) {
        ++at;
        return first;
    }
    if (first >= 0xc2 && first < 0xe0 && end - at >= 2 && isTail(at[1])) {
        const uint character = (first & 0x1fU) << 6U | (static_cast<quint8>(at[1]) & 0x3fU);
        at += 2;
        return character;
    }
    if (first > 0xe0 && first < 0xed && end - at >= 3 && isTail(at[1]) && isTail(at[2])) {
        const uint character = (first & 0x0fU) << 12U | (static_cast<quint8>(at[1]) & 0x3fU) << 6U |
                               (static_cast<quint8>(at[2]) & 0x3fU);
        at += 3;
        return character;
    }
    return 0;
}

bool isCommonText(std::string_view utf8)
{
    const char *at = utf8.data();
    const char *const end = at + utf8.size();
    while (at != end) {
        if (commonCharacter(at, end) == 0)
            return false;
    }
    return true;
}

/// The byte of each character that Windows-1251 holds, 0 for the others.
class Windows1251
{
public:
    Windows1251() : m_codec(QTextCodec::codecForName("Windows-1251"))
    {
        for (uint byte = 1; byte < 256; ++byte) {
            const char encoded = static_cast<char>(byte);
            const QString character = m_codec->toUnicode(&encoded, 1);
            if (character.size() == 1 && character.at(0).unicode() < m_bytes.size() &&
                m_codec->fromUnicode(character) == QByteArray(&encoded, 1))
                m_bytes[character.at(0).unicode()] = encoded;
        }
    }

    QByteArray encoded(const QString &text) const { return m_codec->fromUnicode(text); }

    /// Appends a text; false, with nothing appended, when it holds something else.
    bool append(std::string_view utf8, std::string *out) const
    {
        const size_t before = out->size();
        out->resize(before + utf8.size());
        char *to = &(*out)[before];
        const char *at = utf8.data();
        for (const char *const end = at + utf8.size(); at != end; ++to) {
            const uint character = commonCharacter(at, end);
            *to = character < m_bytes.size() ? m_bytes[character] : '\0';
            if (*to == '\0') {
                out->resize(before);
                return false;
            }
        }
        out->resize(static_cast<size_t>(to - out->data()));
        return true;
    }

private:
    QTextCodec *m_codec;
    /// The highest character is the trade mark sign, U+2122.
    std::array<char, 0x2200> m_bytes{};
};

/// Collects lines in the wanted encoding and hands them on in large pieces.
class CsvLines
{
public:
    CsvLines(CsvEncoding encoding, QIODevice *out) : m_isUtf8(encoding == CsvEncoding::Utf8), m_out(out) {}

    void add(const QString &text)
    {
        const QByteArray bytes = m_isUtf8 ? text.toUtf8() : windows1251().encoded(text);
        m_lines.append(bytes.constData(), static_cast<size_t>(bytes.size()));
        m_lines += ';';
    }

    void addUtf8(std::string_view text)
    {
        if (isAscii(text) || (m_isUtf8 && isCommonText(text)))
            m_lines.append(text);
        else if (m_isUtf8 || !windows1251().append(text, &m_lines))
            return add(asText.plain(text));
        m_lines += ';';
    }

    bool endLine()
    {
        m_lines.back() = '\n';
        return m_lines.size() < chunk || flush();
    }

    bool flush()
    {
        const char *at = m_lines.data();
        const char *const end = at + m_lines.size();
        // A full disk takes a part first and tells only the next time why it takes no more.
        while (at != end) {
            const qint64 written = m_out->write(at, end - at);
            if (written <= 0)
                return false;
            at += written;
        }
        m_lines.clear();
        return true;
    }

private:
    static const Windows1251 &windows1251()
    {
        static const Windows1251 table;
        return table;
    }

    bool m_isUtf8;
    QIODevice *m_out;
    std::string m_lines;
};

/// Without a QString for each cell; formats: those of the columns.
void addRow(const ListSnapshot &list, int row, const std::vector<CellFormat> &formats, CsvLines *lines)
{
    char room[CellFormat::plainRoom];
    for (size_t column = 0; column < formats.size(); ++column) {
        const std::string_view stored = list.stored(row, static_cast<int>(column));
        if (formats[column].plainBytes != nullptr)
            lines->addUtf8(formats[column].plainBytes(stored, room));
        else
            lines->add(formats[column].plain(stored));
    }
}

bool addRows(const ListSnapshot &list, CsvLines *lines, const ListProgress &mayGoOn)
{
    std::vector<CellFormat> formats;
    formats.reserve(static_cast<size_t>(list.columnCount()));
    for (int column = 0; column < list.columnCount(); ++column)
        formats.push_back(list.format(column));
    for (int row = 0; row < list.rowCount(); ++row) {
        if (row % rowsBetween == 0 && mayGoOn && !mayGoOn(row, list.rowCount()))
            return false;
        addRow(list, row, formats, lines);
        if (!lines->endLine())
            return false;
    }
    return true;
}
} // namespace

bool writeCsv(const ListSnapshot &list, CsvEncoding encoding, QIODevice *out, const ListProgress &mayGoOn)
{
    if (list.columnCount() == 0)
        return true;
    CsvLines lines(encoding, out);
    for (int column = 0; column < list.columnCount(); ++column)
        lines.add(list.caption(column));
    return lines.endLine() && addRows(list, &lines, mayGoOn) && lines.flush();
}

bool saveCsv(QObject *receiver, const ListSnapshot &list, CsvEncoding encoding, const QString &path)
{
    return saveInBackground(receiver, path, [list, encoding](QIODevice *file, const ListProgress &mayGoOn) {
        return writeCsv(list, encoding, file, mayGoOn);
    });
}
