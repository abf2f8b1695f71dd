#pragma once

#include "pagememory.h"

#include <QStringList>
#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QSqlDatabase;
class QSqlQuery;

/// Why a statement gave no rows: the server's number and words.
struct FetchError
{
    int number = 0;
    QString text;
};

/// The rows of an executed query as UTF-8 text, packed into large chunks; NULL and zero dates are empty.
/// Independent of the connection: a worker thread may read it and hand it to a model. A copy shares the texts
/// and may be read in another thread, whatever happens to the other one.
class RowStore
{
public:
    RowStore() = default;
    RowStore(const RowStore &other);
    RowStore(RowStore &&) = default;
    RowStore &operator=(const RowStore &) = delete;
    RowStore &operator=(RowStore &&) = default;
    ~RowStore() = default;

    /// All rows of an executed query, whatever record it stands on; it stands before the first one
    /// afterwards.
    static RowStore read(QSqlQuery &query);
    /// Sends a statement and packs its rows as they come from the server: nothing keeps a second copy of
    /// them. False when it failed, or was called off meanwhile.
    static bool fetch(const QSqlDatabase &db, const QString &sql, const std::atomic<bool> &isCalledOff,
                      RowStore *rows, FetchError *error);
    /// The query's current record; empty when it stands on none.
    static std::vector<std::string> readRecord(QSqlQuery &query);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int columnCount() const { return m_names.size(); }
    /// The column names of the query.
    const QStringList &columnNames() const { return m_names; }
    /// The text of a cell, valid until the row is written; empty where the row has no such column.
    std::string_view cell(int row, int column) const;

    /// Appends a row; the texts are copied.
    void append(const std::vector<std::string_view> &cells) { m_rows.push_back(pack(cells, nullptr)); }
    /// Takes the last row away; there must be one.
    void removeLast() { m_rows.pop_back(); }
    /// Appends rows whose cells are all empty.
    void appendEmptyRows(int count) { m_rows.resize(m_rows.size() + static_cast<size_t>(count), nullptr); }
    /// Replaces the texts from a column on; the row gets wider when that is needed.
    void write(int row, int firstColumn, const std::vector<std::string> &texts);

private:
    using Cells = std::vector<std::string_view>;
    /// A row is its head (number of cells, size of an end), the end of each cell's text, the texts.
    struct Head;

    static RowStore readValues(QSqlQuery &query);
    static bool fetchValues(const QSqlDatabase &db, const QString &sql, RowStore *rows, FetchError *error);
    const char *pack(const Cells &cells, const char *replaced);
    char *reserve(size_t bytes);

    QStringList m_names;
    using Chunk = std::shared_ptr<char>;
    static Chunk makeChunk(size_t bytes);
    bool isShared() const;

    std::vector<Chunk> m_chunks;
    size_t m_chunkSize = 0;
    size_t m_used = 0;
    /// Where each row begins; null for a row without texts.
    PageVector<const char *> m_rows;
};
