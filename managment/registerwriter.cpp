#include "registerwriter.h"

bool RegisterWriter::run(const QString &sql) const
{
    return m_db.run(sql, {}, {}, m_file, m_line).has_value();
}

std::optional<QStringList> RegisterWriter::row(const QString &sql) const
{
    return m_db.firstRow(sql, {}, {}, m_file, m_line);
}

std::optional<bool> RegisterWriter::stands(const QString &condition) const
{
    // The lock waits for a transaction that the server has not ended yet, and gives up without an answer.
    const auto cells =
        row(QStringLiteral("SELECT COUNT(*) FROM cheks WHERE %1 LOCK IN SHARE MODE").arg(condition));
    if (!cells || cells->isEmpty())
        return std::nullopt;
    return cells->first() != QLatin1String("0");
}
