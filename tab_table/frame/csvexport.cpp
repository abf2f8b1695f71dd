#include "csvexport.h"

#include "qrowmodel.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>
#include <QTableView>
#include <QTextCodec>
#include <array>
#include <cstring>
#include <typeinfo>

namespace {
struct Messages
{
    Q_DECLARE_TR_FUNCTIONS(CsvExport)
};

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

QVector<int> shownColumns(const QAbstractItemModel &model, const QTableView *view)
{
    QVector<int> columns;
    for (int column = 0; column < model.columnCount(); ++column) {
        if (view == nullptr || !view->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}

void addRow(const QAbstractItemModel &model, int row, const QVector<int> &columns, CsvLines *lines)
{
    for (const int column : columns) {
        const QModelIndex cell = model.index(row, column);
        const QVariant plain = cell.data(Qt::EditRole);
        lines->add((plain.isValid() ? plain : cell.data()).toString());
    }
}

/// The same without a QString for each cell; formats: those of the columns.
void addStoredRow(const QRowModel &model, int row, const QVector<int> &columns,
                  const std::vector<CellFormat> &formats, CsvLines *lines)
{
    char room[CellFormat::plainRoom];
    for (size_t i = 0; i < formats.size(); ++i) {
        const std::string_view stored = model.storedBytes(row, columns.at(static_cast<int>(i)));
        if (formats[i].plainBytes != nullptr)
            lines->addUtf8(formats[i].plainBytes(stored, room));
        else
            lines->add(formats[i].plain(stored));
    }
}

bool addRows(const QAbstractItemModel &model, const QVector<int> &columns, CsvLines *lines)
{
    bool written = true;
    for (int row = 0; row < model.rowCount() && written; ++row) {
        addRow(model, row, columns, lines);
        written = lines->endLine();
    }
    return written;
}

bool addStoredRows(const QRowModel &model, const QVector<int> &columns, CsvLines *lines)
{
    std::vector<CellFormat> formats;
    for (const int column : columns)
        formats.push_back(model.format(column));
    bool written = true;
    for (int row = 0; row < model.rowCount() && written; ++row) {
        addStoredRow(model, row, columns, formats, lines);
        written = lines->endLine();
    }
    return written;
}
} // namespace

bool writeCsv(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding, QIODevice *out)
{
    const QVector<int> columns = shownColumns(model, view);
    if (columns.isEmpty())
        return true;
    CsvLines lines(encoding, out);
    for (const int column : columns)
        lines.add(model.headerData(column, Qt::Horizontal).toString());
    bool written = lines.endLine();
    // A model derived from it may show something else than what is stored.
    if (typeid(model) == typeid(QRowModel))
        written = written && addStoredRows(static_cast<const QRowModel &>(model), columns, &lines);
    else
        written = written && addRows(model, columns, &lines);
    return written && lines.flush();
}

QString saveCsv(const QAbstractItemModel &model, const QTableView *view, CsvEncoding encoding,
                const QString &path)
{
    const QFileInfo there(path);
    // The new file would take the place of a device.
    if (there.exists() && !there.isFile())
        return Messages::tr("Це не звичайний файл.");
    QSaveFile file(path);
    // Where no file can be laid beside it.
    file.setDirectWriteFallback(true);
    // Unbuffered: what a buffer could not write at the end would not be noticed.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeCsv(model, view, encoding, &file) &&
        file.commit())
        return QString();
    return file.errorString();
}
