#include "roworder.h"

#include "rowstore.h"

#include <QChar>
#include <QString>
#include <algorithm>
#include <array>

namespace {
/// Eight bytes of a sort key as a number that compares like them. A key has no zero bytes; a part that
/// ends in one is the key's last. from: where the part begins in the text, and then the next one; what it
/// counts is the key's own matter, 0 is the beginning.
using KeyPart = quint64 (*)(std::string_view text, int part, quint32 *from);
constexpr int partBytes = 8;
/// Rows that are equal over so many parts keep their order.
constexpr int mostParts = 64;

/// Takes bytes of a key, leaves some out and keeps one part.
class PartWriter
{
public:
    explicit PartWriter(int skip) : m_skip(skip) {}
    void add(quint8 byte)
    {
        if (m_skip > 0) {
            --m_skip;
        } else if (m_free > 0) {
            --m_free;
            m_key |= static_cast<quint64>(byte) << (8 * m_free);
        }
    }
    bool isFull() const { return m_free == 0; }
    quint64 key() const { return m_key; }

private:
    int m_skip;
    int m_free = partBytes;
    quint64 m_key = 0;
};

// --- texts ---

constexpr char32_t tableSize = 0x530; // Latin, Greek and Cyrillic
constexpr quint8 other = 0;
constexpr quint8 ignored = 0xff;
constexpr quint8 otherLead = 0xfe;

const QString &alphabet()
{
    static const QString order = QStringLiteral(" _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789"
                                                "абвгґдеєжзиіїйклмнопрстуфхцчшщъыьэюя"
                                                "abcdefghijklmnopqrstuvwxyz");
    return order;
}

quint8 findRank(char32_t code)
{
    if (code > 0xffff)
        return other;
    const QChar c = QChar(static_cast<ushort>(code)).toLower();
    // The two other signs that people type for an apostrophe.
    const bool isApostrophe = code == 0x2019 || code == 0x02bc;
    if (const int at = alphabet().indexOf(isApostrophe ? QLatin1Char('\'') : c); at >= 0)
        return static_cast<quint8>(at + 1);
    if (c.isMark() || c.category() == QChar::Other_Control)
        return ignored;
    const QChar::Decomposition tag = c.decompositionTag();
    if (tag == QChar::Canonical || tag == QChar::NoBreak)
        return findRank(c.decomposition().at(0).unicode());
    return other;
}

quint8 rankOf(char32_t code)
{
    static const std::array<quint8, tableSize> table = [] {
        std::array<quint8, tableSize> ranks{};
        for (char32_t c = 0; c < tableSize; ++c)
            ranks[c] = findRank(c);
        return ranks;
    }();
    return code < tableSize ? table[code] : findRank(code);
}

/// The character at a place of a UTF-8 text; the place moves behind it. A stray byte is a character.
char32_t nextCharacter(std::string_view text, size_t *at)
{
    const auto lead = static_cast<quint8>(text[(*at)++]);
    if (lead < 0xc0)
        return lead;
    const size_t more = lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
    if (text.size() - *at < more)
        return lead;
    char32_t code = lead & (0x3fU >> more);
    for (size_t i = 0; i < more; ++i)
        code = code << 6U | (static_cast<quint8>(text[(*at)++]) & 0x3fU);
    return code;
}

/// A character is one byte of the key, or four, which two parts may share: from is the place of the character
/// with which the part begins, times four, and how many of its bytes the part before has taken.
quint64 textPart(std::string_view text, int /*part*/, quint32 *from)
{
    PartWriter writer(static_cast<int>(*from & 3U));
    size_t at = *from >> 2U;
    while (at < text.size() && !writer.isFull()) {
        const size_t start = at;
        const char32_t code = nextCharacter(text, &at);
        const quint8 rank = rankOf(code);
        if (rank == other) {
            writer.add(otherLead);
            quint32 taken = 0;
            for (const unsigned shift : {14U, 7U, 0U}) {
                if (writer.isFull())
                    break;
                writer.add(static_cast<quint8>(0x80U | (code >> shift & 0x7fU)));
                ++taken;
            }
            if (taken < 3) {
                *from = static_cast<quint32>(start << 2U) + taken + 1;
                return writer.key();
            }
        } else if (rank != ignored) {
            writer.add(rank);
        }
    }
    *from = static_cast<quint32>(at << 2U);
    return writer.key();
}

// --- numbers ---

constexpr quint8 zero = 0x80;
constexpr quint8 noNumber = 0xff;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A decimal number taken apart: the digits that count, before and behind the point.
struct Decimal
{
    bool negative = false;
    std::string_view whole;
    std::string_view fraction;

    /// False when the text is no number.
    bool parse(std::string_view text);
    int digits() const { return static_cast<int>(whole.size() + fraction.size()); }
    int digit(int at) const
    {
        const auto place = static_cast<size_t>(at);
        if (place < whole.size())
            return whole[place] - '0';
        return place - whole.size() < fraction.size() ? fraction[place - whole.size()] - '0' : 0;
    }
};

bool Decimal::parse(std::string_view text)
{
    negative = text[0] == '-';
    if (negative)
        text.remove_prefix(1);
    const size_t point = std::min(text.find('.'), text.size());
    whole = text.substr(0, point);
    fraction = text.substr(std::min(point + 1, text.size()));
    if (whole.empty() || !std::all_of(whole.begin(), whole.end(), isDigit) ||
        !std::all_of(fraction.begin(), fraction.end(), isDigit))
        return false;
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    while (!fraction.empty() && fraction.back() == '0')
        fraction.remove_suffix(1);
    return true;
}

/// The number of digits before the point, then the digits in pairs; turned round for negative numbers.
quint64 numberPart(std::string_view text, int part, quint32 *from)
{
    if (text.empty())
        return 0;
    PartWriter writer(part * partBytes);
    Decimal number;
    if (!number.parse(text)) {
        writer.add(noNumber);
        return part == 0 ? writer.key() | textPart(text, 0, from) >> 8U : 0;
    }
    const quint8 turn = number.negative && number.digits() > 0 ? 0xff : 0;
    const auto length = static_cast<quint8>(std::min<size_t>(number.whole.size(), 100));
    writer.add(static_cast<quint8>((zero + length) ^ turn));
    for (int at = 0; at < number.digits() && !writer.isFull(); at += 2)
        writer.add(static_cast<quint8>((number.digit(at) * 10 + number.digit(at + 1) + 1) ^ turn));
    if (turn != 0)
        writer.add(turn);
    return writer.key();
}

// --- order ---

struct Entry
{
    quint64 key;
    quint32 row;
    /// Where the next part of its key begins.
    quint32 from;
};

bool hasLowerKey(const Entry &a, const Entry &b)
{
    return a.key < b.key;
}

/// Sorts ranges of entries by their keys, part by part.
class Sorter
{
public:
    Sorter(const RowStore &store, const RowSort &by, const std::atomic<bool> *isStopped)
        : m_store(store)
        , m_column(by.column)
        , m_keyPart(by.asNumbers ? numberPart : textPart)
        , m_turn(by.order == Qt::DescendingOrder ? ~quint64(0) : 0)
        , m_isStopped(isStopped)
    {
    }
    bool isStopped() const { return m_isStopped != nullptr && m_isStopped->load(std::memory_order_relaxed); }

    void sort(Entry *first, Entry *last, int part)
    {
        // Most columns have few different texts, and many of them one beginning.
        if (first == last || skipCommonBeginning(first, last))
            return;
        readKeys(first, last, part);
        sortByKey(first, last);
        if (part + 1 < mostParts)
            sortEqualRuns(first, last, part + 1);
    }

private:
    std::string_view text(const Entry &entry) const
    {
        return m_store.cell(static_cast<int>(entry.row), m_column);
    }

    void readKeys(Entry *first, Entry *last, int part)
    {
        for (Entry *entry = first; entry != last && !isStopped(); ++entry)
            entry->key = m_keyPart(text(*entry), part, &entry->from) ^ m_turn;
    }

    /// Goes behind what all texts begin with, where that is worth while. True when all are one text.
    bool skipCommonBeginning(Entry *first, Entry *last) const
    {
        const std::string_view one = text(*first);
        const size_t tooFew = (first->from >> 2U) + size_t(2) * partBytes;
        size_t common = one.size();
        bool isOne = true;
        for (const Entry *entry = first + 1; entry != last; ++entry) {
            if (isStopped())
                return true;
            const std::string_view other = text(*entry);
            if (other == one)
                continue;
            isOne = false;
            const auto end =
                std::mismatch(one.begin(), one.begin() + std::min(common, other.size()), other.begin());
            common = static_cast<size_t>(end.first - one.begin());
            if (common < tooFew)
                return false;
        }
        if (!isOne && m_keyPart == textPart)
            startAt(first, last, characterAt(one, common));
        return isOne;
    }

    static size_t characterAt(std::string_view text, size_t at)
    {
        while (at > 0 && at < text.size() && (static_cast<quint8>(text[at]) & 0xc0U) == 0x80U)
            --at;
        return at;
    }

    static void startAt(Entry *first, Entry *last, size_t at)
    {
        for (Entry *entry = first; entry != last; ++entry)
            entry->from = static_cast<quint32>(at << 2U);
    }

    void sortByKey(Entry *first, Entry *last)
    {
        constexpr ptrdiff_t fewEntries = 512;
        if (std::is_sorted(first, last, hasLowerKey))
            return;
        if (last - first < fewEntries)
            std::stable_sort(first, last, hasLowerKey);
        else
            radixSort(first, last);
    }

    void sortEqualRuns(Entry *first, Entry *last, int part)
    {
        while (first != last && !isStopped()) {
            Entry *end = first + 1;
            while (end != last && end->key == first->key)
                ++end;
            const bool isComplete = ((first->key ^ m_turn) & 0xffU) == 0;
            if (end - first > 1 && !isComplete)
                sort(first, end, part);
            first = end;
        }
    }

    /// From the last byte to the first; bytes that are the same everywhere cost nothing.
    void radixSort(Entry *first, Entry *last)
    {
        const auto size = static_cast<size_t>(last - first);
        std::array<std::array<quint32, 256>, partBytes> counts{};
        for (const Entry *entry = first; entry != last; ++entry) {
            for (unsigned byte = 0; byte < partBytes; ++byte)
                ++counts[byte][entry->key >> (8 * byte) & 0xffU];
        }
        m_buffer.resize(std::max(m_buffer.size(), size));
        Entry *from = first;
        Entry *to = m_buffer.data();
        for (unsigned byte = 0; byte < partBytes; ++byte) {
            if (counts[byte][from->key >> (8 * byte) & 0xffU] == size)
                continue;
            if (isStopped())
                break;
            distribute(from, from + size, to, byte, counts[byte]);
            std::swap(from, to);
        }
        if (from != first)
            std::copy(from, from + size, first);
    }

    static void distribute(const Entry *from, const Entry *end, Entry *to, unsigned byte,
                           const std::array<quint32, 256> &counts)
    {
        std::array<quint32, 256> places{};
        for (size_t value = 1; value < places.size(); ++value)
            places[value] = places[value - 1] + counts[value - 1];
        for (; from != end; ++from)
            to[places[from->key >> (8 * byte) & 0xffU]++] = *from;
    }

    const RowStore &m_store;
    const int m_column;
    const KeyPart m_keyPart;
    const quint64 m_turn;
    const std::atomic<bool> *m_isStopped;
    PageVector<Entry> m_buffer;
};
} // namespace

bool sortRows(RowOrder *rows, const RowStore &store, const RowSort &by, const std::atomic<bool> *isStopped)
{
    PageVector<Entry> entries;
    entries.reserve(rows->size());
    for (const quint32 row : *rows)
        entries.push_back({0, row, 0});
    Sorter sorter(store, by, isStopped);
    sorter.sort(entries.data(), entries.data() + entries.size(), 0);
    std::transform(entries.begin(), entries.end(), rows->begin(), [](const Entry &e) { return e.row; });
    return !sorter.isStopped();
}
