#include "rowstore.h"

#include "db.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlRecord>
#include <QSqlResult>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mysql.h>

namespace {
constexpr size_t firstChunk = size_t(16) << 10U;
constexpr size_t largestChunk = size_t(4) << 20U;

QStringList namesOf(const QSqlQuery &query)
{
    QStringList names;
    const QSqlRecord record = query.record();
    for (int i = 0; i < record.count(); ++i)
        names.append(record.fieldName(i));
    return names;
}

/// The rows that the client library has stored behind a query, or null: other drivers have none, and a
/// prepared statement answers with a description of its columns that holds no rows.
MYSQL_RES *storedResult(const QSqlQuery &query)
{
    const QVariant handle = query.result()->handle();
    if (!query.isActive() || qstrcmp(handle.typeName(), "MYSQL_RES*") != 0)
        return nullptr;
    MYSQL_RES *result = *static_cast<MYSQL_RES *const *>(handle.constData());
    if (result == nullptr || static_cast<qint64>(mysql_num_rows(result)) != query.size())
        return nullptr;
    return query.size() > 0 ? result : nullptr;
}

/// Reads the rows of a result into one set of cells.
class ResultReader
{
public:
    explicit ResultReader(MYSQL_RES *result) : m_result(result), m_cells(mysql_num_fields(result))
    {
        const MYSQL_FIELD *fields = mysql_fetch_fields(result);
        for (size_t i = 0; i < m_cells.size(); ++i) {
            const enum_field_types type = fields[i].type;
            m_isDate.push_back(type == MYSQL_TYPE_DATE || type == MYSQL_TYPE_DATETIME ||
                               type == MYSQL_TYPE_TIMESTAMP || type == MYSQL_TYPE_NEWDATE);
        }
    }

    QStringList names() const
    {
        QStringList names;
        const MYSQL_FIELD *fields = mysql_fetch_fields(m_result);
        for (size_t i = 0; i < m_cells.size(); ++i)
            names.append(QString::fromUtf8(fields[i].name));
        return names;
    }

    bool next()
    {
        char **row = mysql_fetch_row(m_result);
        if (row == nullptr)
            return false;
        const unsigned long *lengths = mysql_fetch_lengths(m_result);
        for (size_t i = 0; i < m_cells.size(); ++i) {
            m_cells[i] = row[i] == nullptr ? std::string_view() : std::string_view(row[i], lengths[i]);
            if (m_isDate[i] != 0 && m_cells[i].substr(0, 10) == "0000-00-00")
                m_cells[i] = std::string_view();
        }
        return true;
    }

    const std::vector<std::string_view> &cells() const { return m_cells; }

private:
    MYSQL_RES *m_result;
    std::vector<std::string_view> m_cells;
    std::vector<char> m_isDate;
};

/// The end of a cell needs one, two or four bytes, by the length of its row.
size_t endSizeFor(size_t textLength)
{
    if (textLength <= 0xff)
        return 1;
    return textLength <= 0xffff ? 2 : 4;
}

size_t readEnd(const char *at, size_t size)
{
    quint32 end = 0;
    if (size == 1) {
        end = static_cast<quint8>(*at);
    } else if (size == 2) {
        quint16 half = 0;
        std::memcpy(&half, at, sizeof half);
        end = half;
    } else {
        std::memcpy(&end, at, sizeof end);
    }
    return end;
}

void writeEnd(char *at, size_t size, size_t end)
{
    if (size == 1) {
        *at = static_cast<char>(end);
    } else if (size == 2) {
        const auto half = static_cast<quint16>(end);
        std::memcpy(at, &half, sizeof half);
    } else {
        const auto whole = static_cast<quint32>(end);
        std::memcpy(at, &whole, sizeof whole);
    }
}
} // namespace

struct RowStore::Head
{
    size_t cells;
    size_t endSize;

    static constexpr size_t bytes = 2;

    static Head of(const char *row)
    {
        quint16 packed = 0;
        std::memcpy(&packed, row, bytes);
        return {size_t(packed) >> 3U, size_t(packed) & 7U};
    }
    void write(char *row) const
    {
        const auto packed = static_cast<quint16>(cells << 3U | endSize);
        std::memcpy(row, &packed, bytes);
    }
    size_t end(const char *row, size_t cell) const { return readEnd(row + bytes + cell * endSize, endSize); }
    size_t textsAt() const { return bytes + cells * endSize; }
};

std::string_view RowStore::cell(int row, int column) const
{
    const char *begin = m_rows[static_cast<size_t>(row)];
    if (begin == nullptr)
        return {};
    const Head head = Head::of(begin);
    const auto cell = static_cast<size_t>(column);
    if (cell >= head.cells)
        return {};
    const size_t start = cell == 0 ? 0 : head.end(begin, cell - 1);
    return {begin + head.textsAt() + start, head.end(begin, cell) - start};
}

/// The copy writes into chunks of its own.
RowStore::RowStore(const RowStore &other)
    : m_names(other.m_names), m_chunks(other.m_chunks), m_rows(other.m_rows)
{
}

/// True while a copy may read the texts: they must not be overwritten. A copy shares all chunks there are.
bool RowStore::isShared() const
{
    if (m_chunks.empty() || m_chunks.front().use_count() > 1)
        return true;
    // What the last copy has read, it has read before.
    std::atomic_thread_fence(std::memory_order_acquire);
    return false;
}

RowStore::Chunk RowStore::makeChunk(size_t bytes)
{
    PageAllocator<char> pages;
    return Chunk(pages.allocate(bytes),
                 [pages, bytes](char *chunk) mutable { pages.deallocate(chunk, bytes); });
}

char *RowStore::reserve(size_t bytes)
{
    if (m_chunks.empty() || m_chunkSize - m_used < bytes) {
        const size_t next = std::max(firstChunk, std::min(m_chunkSize * 2, largestChunk));
        m_chunkSize = std::max(next, bytes);
        m_chunks.push_back(makeChunk(m_chunkSize));
        m_used = 0;
    }
    char *begin = m_chunks.back().get() + m_used;
    m_used += bytes;
    return begin;
}

/// Packs cells into the place of the row they replace when they fit there, else behind the last row.
const char *RowStore::pack(const Cells &cells, const char *replaced)
{
    size_t length = 0;
    for (const std::string_view text : cells)
        length += text.size();
    const Head head{cells.size(), endSizeFor(length)};
    char *row = nullptr;
    if (replaced != nullptr && !isShared()) {
        const Head old = Head::of(replaced);
        const size_t room = old.textsAt() + (old.cells == 0 ? 0 : old.end(replaced, old.cells - 1));
        if (head.textsAt() + length <= room)
            row = const_cast<char *>(replaced);
    }
    if (row == nullptr)
        row = reserve(head.textsAt() + length);
    head.write(row);
    size_t end = 0;
    char *texts = row + head.textsAt();
    for (size_t i = 0; i < head.cells; ++i) {
        if (!cells[i].empty())
            std::memcpy(texts + end, cells[i].data(), cells[i].size());
        end += cells[i].size();
        writeEnd(row + Head::bytes + i * head.endSize, head.endSize, end);
    }
    return row;
}

void RowStore::write(int row, int firstColumn, const std::vector<std::string> &texts)
{
    const char *&begin = m_rows[static_cast<size_t>(row)];
    const auto first = static_cast<size_t>(firstColumn);
    const size_t there = begin == nullptr ? 0 : Head::of(begin).cells;
    // Copies: the row may be overwritten in its place.
    std::vector<std::string> whole(std::max(there, first + texts.size()));
    for (size_t i = 0; i < there; ++i)
        whole[i] = cell(row, static_cast<int>(i));
    std::copy(texts.begin(), texts.end(), whole.begin() + firstColumn);
    begin = pack(Cells(whole.begin(), whole.end()), begin);
}

RowStore RowStore::read(QSqlQuery &query)
{
    MYSQL_RES *result = storedResult(query);
    if (result == nullptr)
        return readValues(query);
    RowStore store;
    store.m_names = namesOf(query);
    store.m_rows.reserve(static_cast<size_t>(query.size()));
    mysql_data_seek(result, 0);
    ResultReader reader(result);
    while (reader.next())
        store.append(reader.cells());
    query.seek(QSql::BeforeFirstRow);
    mysql_data_seek(result, 0);
    return store;
}

bool RowStore::fetch(const QSqlDatabase &db, const QString &sql, const std::atomic<bool> &isCalledOff,
                     RowStore *rows, FetchError *error)
{
    const QVariant handle = db.driver()->handle();
    if (qstrcmp(handle.typeName(), "MYSQL*") != 0)
        return fetchValues(db, sql, rows, error);
    MYSQL *client = *static_cast<MYSQL *const *>(handle.constData());
    const QByteArray text = sql.toUtf8();
    *rows = RowStore();
    if (mysql_real_query(client, text.constData(), static_cast<unsigned long>(text.size())) == 0) {
        if (MYSQL_RES *result = mysql_use_result(client); result != nullptr) {
            ResultReader reader(result);
            rows->m_names = reader.names();
            while (!isCalledOff && reader.next())
                rows->append(reader.cells());
            // What has not been read yet is thrown away here.
            mysql_free_result(result);
        }
    }
    *error = {static_cast<int>(mysql_errno(client)), QString::fromUtf8(mysql_error(client))};
    return error->number == 0 && !isCalledOff;
}

bool RowStore::fetchValues(const QSqlDatabase &db, const QString &sql, RowStore *rows, FetchError *error)
{
    QSqlQuery query(db);
    const bool isDone = query.exec(sql);
    if (isDone)
        *rows = readValues(query);
    else
        *error = {query.lastError().nativeErrorCode().toInt(), errorText(query.lastError())};
    return isDone;
}

RowStore RowStore::readValues(QSqlQuery &query)
{
    RowStore store;
    store.m_names = namesOf(query);
    query.seek(QSql::BeforeFirstRow);
    while (query.next()) {
        const std::vector<std::string> texts = readRecord(query);
        store.append(Cells(texts.begin(), texts.end()));
    }
    query.seek(QSql::BeforeFirstRow);
    return store;
}

std::vector<std::string> RowStore::readRecord(QSqlQuery &query)
{
    std::vector<std::string> texts;
    if (!query.isValid())
        return texts;
    if (MYSQL_RES *result = storedResult(query); result != nullptr) {
        mysql_data_seek(result, static_cast<unsigned long long>(query.at()));
        ResultReader reader(result);
        if (reader.next())
            texts.assign(reader.cells().begin(), reader.cells().end());
        return texts;
    }
    // The driver makes doubles of long decimals otherwise.
    const QSql::NumericalPrecisionPolicy policy = query.numericalPrecisionPolicy();
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    const int columns = query.record().count();
    for (int i = 0; i < columns; ++i)
        texts.push_back(toText(query.value(i)).toStdString());
    query.setNumericalPrecisionPolicy(policy);
    return texts;
}
