#include "schemashape.h"

#include "schema.h"

#include <QCoreApplication>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace integrity {
namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Integrity)
};

/// The change tracker's table is none of the schema's own.
const TableDefinition trackerTable = {"updat",
                                      "name CHAR(50), updat DATETIME NOT NULL DEFAULT 0, PRIMARY KEY(name)"};
const QString wantedEngine = QStringLiteral("InnoDB");
const QString wantedCharset = QStringLiteral("utf8mb4");

/// The parts of a definition between the commas that stand outside of brackets.
QStringList partsOf(const QString &columns)
{
    QStringList parts{QString()};
    int depth = 0;
    for (const QChar c : columns) {
        depth += c == u'(' ? 1 : (c == u')' ? -1 : 0);
        if (c == u',' && depth == 0)
            parts.append(QString());
        else
            parts.last() += c;
    }
    for (QString &part : parts)
        part = part.simplified();
    return parts;
}

/// What stands in the first brackets: "id_zzvit,id_kass".
QStringList inBrackets(const QString &part)
{
    const int open = part.indexOf(u'(');
    QStringList names = part.mid(open + 1, part.indexOf(u')', open) - open - 1).split(u',');
    for (QString &name : names)
        name = name.trimmed();
    return names;
}

/// Without the width with which whole numbers are shown.
QString plainType(const QString &type)
{
    static const QRegularExpression width(
        QStringLiteral("^(tinyint|smallint|mediumint|int|bigint)\\(\\d+\\)"));
    return type.toLower().replace(width, QStringLiteral("\\1"));
}

QString definedType(const QString &part)
{
    const QString type = part.section(u' ', 1, 1).toLower();
    if (type == QLatin1String("bool"))
        return QStringLiteral("tinyint");
    return part.contains(QLatin1String(" UNSIGNED")) ? type + QStringLiteral(" unsigned") : type;
}

/// "DEFAULT 0" of a date is the zero date.
QString definedPreset(const QString &part, const QString &type)
{
    static const QRegularExpression preset(QStringLiteral(" DEFAULT (\\S+)"));
    const QString text = preset.match(part).captured(1);
    if (text.isEmpty() || text == QLatin1String("NULL"))
        return QString();
    if (type == QLatin1String("date"))
        return QStringLiteral("0000-00-00");
    if (type == QLatin1String("time"))
        return QStringLiteral("00:00:00");
    return type == QLatin1String("datetime") ? QStringLiteral("0000-00-00 00:00:00") : text;
}

ColumnShape definedColumn(const QString &part)
{
    ColumnShape column;
    column.name = part.section(u' ', 0, 0);
    column.type = definedType(part);
    column.isNull = !part.contains(QLatin1String(" NOT NULL"));
    column.preset = definedPreset(part, column.type);
    column.isCounted = part.contains(QLatin1String(" AUTO_INCREMENT"));
    column.isStamped = column.type == QLatin1String("timestamp");
    return column;
}

ReferenceShape definedReference(const QString &part)
{
    ReferenceShape reference;
    const QString target = part.section(QStringLiteral(" REFERENCES "), 1);
    reference.column = inBrackets(part).first();
    reference.target = target.section(u'(', 0, 0).trimmed() + u'(' + inBrackets(target).join(u',') + u')';
    if (part.contains(QLatin1String("ON DELETE CASCADE")))
        reference.onDelete = QStringLiteral("CASCADE");
    else if (part.contains(QLatin1String("ON DELETE SET NULL")))
        reference.onDelete = QStringLiteral("SET NULL");
    return reference;
}

TableShape definedTable(const TableDefinition &definition)
{
    TableShape table;
    table.name = QLatin1String(definition.name);
    table.engine = wantedEngine;
    for (const QString &part : partsOf(QLatin1String(definition.columns))) {
        if (part.startsWith(QLatin1String("CONSTRAINT ")))
            table.references.append(definedReference(part));
        else if (part.startsWith(QLatin1String("PRIMARY KEY")))
            table.keys.append({KeyShape::Primary, inBrackets(part), {}});
        else if (part.startsWith(QLatin1String("UNIQUE")))
            table.keys.append({KeyShape::Unique, inBrackets(part), {}});
        else if (part.startsWith(QLatin1String("INDEX")))
            table.keys.append({KeyShape::Plain, inBrackets(part), {}});
        else
            table.columns.append(definedColumn(part));
    }
    for (ColumnShape &column : table.columns) {
        for (const KeyShape &key : qAsConst(table.keys)) {
            if (key.kind == KeyShape::Primary && key.columns.contains(column.name))
                column.isNull = false;
        }
    }
    return table;
}

/// Servers put texts into quotes, and tell none as NULL or as the word.
QString foundPreset(QString text)
{
    if (text == QLatin1String("NULL"))
        return QString();
    return text.remove(u'\'');
}

QString isNullWords(bool isNull)
{
    return isNull ? QStringLiteral("NULL") : QStringLiteral("NOT NULL");
}

/// As a definition writes it: "int unsigned NOT NULL DEFAULT 0 AUTO_INCREMENT".
QString columnWords(const ColumnShape &column)
{
    QString words = column.type + u' ' + isNullWords(column.isNull);
    if (column.isStamped)
        return words + QStringLiteral(" ON UPDATE CURRENT_TIMESTAMP");
    if (!column.preset.isEmpty())
        words += QStringLiteral(" DEFAULT ") + column.preset;
    return column.isCounted ? words + QStringLiteral(" AUTO_INCREMENT") : words;
}

QString keyWords(const KeyShape &key)
{
    static const char *const kinds[] = {"PRIMARY KEY", "UNIQUE", "INDEX"};
    return QLatin1String(kinds[key.kind]) + u'(' + key.columns.join(u',') + u')';
}

QString referenceWords(const ReferenceShape &reference)
{
    const QString words = reference.column + QStringLiteral(" → ") + reference.target;
    return reference.onDelete.isEmpty() ? words : words + QStringLiteral(" ON DELETE ") + reference.onDelete;
}

/// An index serves whoever needs a shorter one; what has to be unique needs exactly its columns.
bool standsIn(const TableShape &table, const KeyShape &wanted)
{
    return std::any_of(table.keys.begin(), table.keys.end(), [&wanted](const KeyShape &key) {
        return wanted.kind == KeyShape::Plain ? key.columns.mid(0, wanted.columns.size()) == wanted.columns
                                              : key.kind == wanted.kind && key.columns == wanted.columns;
    });
}

/// The one that most tables have.
QString usualCollation(const Shapes &wanted, const Shapes &found)
{
    QHash<QString, int> counts;
    QString usual;
    for (const TableShape &table : found) {
        if (wanted.contains(table.name) && ++counts[table.collation] > counts.value(usual))
            usual = table.collation;
    }
    return usual;
}

/// Compares one table after the other and gathers what is otherwise.
class Comparison
{
public:
    explicit Comparison(const QString &usual) : m_usual(usual) {}

    void compare(const TableShape &wanted, const TableShape &found)
    {
        m_table = wanted.name;
        compareColumns(wanted, found);
        compareKeys(wanted, found);
        compareReferences(wanted, found);
        compareStorage(found);
    }

    void missTable(const QString &name)
    {
        m_table = name;
        add("schema_table", Texts::tr("Таблиці «%1» немає.").arg(name));
    }

    const QVector<SchemaDifference> &differences() const { return m_differences; }

private:
    void add(const char *check, const QString &words) { m_differences.append({check, m_table, words}); }

    void compareColumns(const TableShape &wanted, const TableShape &found)
    {
        const char *check = "schema_column";
        for (const ColumnShape &column : wanted.columns) {
            const ColumnShape *there = found.column(column.name);
            if (there == nullptr)
                add(check, Texts::tr("У таблиці «%1» немає колонки %2 (%3).")
                               .arg(m_table, column.name, columnWords(column)));
            else if (columnWords(column) != columnWords(*there))
                add(check, Texts::tr("Таблиця «%1», колонка %2: має бути %3, а є %4.")
                               .arg(m_table, column.name, columnWords(column), columnWords(*there)));
        }
        for (const ColumnShape &column : found.columns) {
            if (wanted.column(column.name) == nullptr && !column.isNull && column.preset.isEmpty() &&
                !column.isCounted && !column.isStamped)
                add(check,
                    Texts::tr("У таблиці «%1» є зайва колонка %2 (%3): вона не приймає записів без значення.")
                        .arg(m_table, column.name, columnWords(column)));
        }
    }

    void compareKeys(const TableShape &wanted, const TableShape &found)
    {
        for (const KeyShape &key : wanted.keys) {
            if (!standsIn(found, key))
                add("schema_key", Texts::tr("У таблиці «%1» немає ключа %2.").arg(m_table, keyWords(key)));
        }
        for (const KeyShape &key : found.keys) {
            if (key.kind == KeyShape::Unique && !standsIn(wanted, key))
                add("schema_key", Texts::tr("У таблиці «%1» є зайвий ключ %2: він може не прийняти записів.")
                                      .arg(m_table, keyWords(key)));
        }
    }

    void compareReferences(const TableShape &wanted, const TableShape &found)
    {
        const char *check = "schema_reference";
        for (const ReferenceShape &reference : wanted.references) {
            const ReferenceShape *there = found.reference(reference.column);
            if (there == nullptr)
                add(check, Texts::tr("У таблиці «%1» немає зовнішнього ключа %2.")
                               .arg(m_table, referenceWords(reference)));
            else if (referenceWords(reference) != referenceWords(*there))
                add(check, Texts::tr("Таблиця «%1»: зовнішній ключ має бути %2, а є %3.")
                               .arg(m_table, referenceWords(reference), referenceWords(*there)));
        }
        for (const ReferenceShape &reference : found.references) {
            if (wanted.reference(reference.column) == nullptr)
                add(check, Texts::tr("У таблиці «%1» є зайвий зовнішній ключ %2.")
                               .arg(m_table, referenceWords(reference)));
        }
    }

    void compareStorage(const TableShape &found)
    {
        if (found.engine.compare(wantedEngine, Qt::CaseInsensitive) != 0)
            add("schema_engine",
                Texts::tr("Таблиця «%1» зберігається у %2 замість %3: без транзакцій і зовнішніх ключів.")
                    .arg(m_table, found.engine, wantedEngine));
        if (!isUsual(found.collation))
            add("schema_collation", Texts::tr("Таблиця «%1» має порівняння %2, а має бути %3.")
                                        .arg(m_table, found.collation, wantedCollation()));
        for (const ColumnShape &column : found.columns) {
            if (!column.collation.isEmpty() && column.collation != found.collation &&
                !isUsual(column.collation))
                add("schema_collation",
                    Texts::tr("Таблиця «%1», колонка %2 має порівняння %3, а має бути %4.")
                        .arg(m_table, column.name, column.collation, wantedCollation()));
        }
    }

    bool isUsual(const QString &collation) const
    {
        return collation == m_usual && collation.startsWith(wantedCharset + u'_');
    }
    QString wantedCollation() const
    {
        return m_usual.startsWith(wantedCharset + u'_') ? m_usual : wantedCharset;
    }

    QString m_usual;
    QString m_table;
    QVector<SchemaDifference> m_differences;
};
} // namespace

const ColumnShape *TableShape::column(const QString &columnName) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ColumnShape &column) {
        return column.name.compare(columnName, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

const ReferenceShape *TableShape::reference(const QString &columnName) const
{
    const auto found =
        std::find_if(references.begin(), references.end(),
                     [&](const ReferenceShape &reference) { return reference.column == columnName; });
    return found == references.end() ? nullptr : &*found;
}

KeyShape &TableShape::key(const QString &keyName)
{
    const auto found =
        std::find_if(keys.begin(), keys.end(), [&](const KeyShape &key) { return key.name == keyName; });
    if (found != keys.end())
        return *found;
    keys.append({KeyShape::Plain, {}, keyName});
    return keys.last();
}

Shapes wantedShapes()
{
    Shapes shapes;
    for (const TableDefinition &definition : schemaTables())
        shapes.insert(QLatin1String(definition.name), definedTable(definition));
    shapes.insert(QLatin1String(trackerTable.name), definedTable(trackerTable));
    return shapes;
}

QStringList schemaStatements()
{
    const QString here = QStringLiteral(" WHERE %1TABLE_SCHEMA=DATABASE() ");
    return {
        QStringLiteral("SELECT LOWER(TABLE_NAME),ENGINE,TABLE_COLLATION FROM INFORMATION_SCHEMA.TABLES") +
            here.arg(QString()) + QStringLiteral("AND TABLE_TYPE='BASE TABLE' ORDER BY TABLE_NAME"),
        QStringLiteral("SELECT LOWER(TABLE_NAME),COLUMN_NAME,COLUMN_TYPE,IS_NULLABLE,COLUMN_DEFAULT,EXTRA,"
                       "COLLATION_NAME FROM INFORMATION_SCHEMA.COLUMNS") +
            here.arg(QString()) + QStringLiteral("ORDER BY TABLE_NAME,ORDINAL_POSITION"),
        QStringLiteral("SELECT LOWER(TABLE_NAME),INDEX_NAME,COLUMN_NAME,NON_UNIQUE FROM "
                       "INFORMATION_SCHEMA.STATISTICS") +
            here.arg(QString()) + QStringLiteral("ORDER BY TABLE_NAME,INDEX_NAME,SEQ_IN_INDEX"),
        QStringLiteral("SELECT LOWER(k.TABLE_NAME),k.COLUMN_NAME,LOWER(k.REFERENCED_TABLE_NAME),"
                       "k.REFERENCED_COLUMN_NAME,r.DELETE_RULE FROM INFORMATION_SCHEMA.KEY_COLUMN_USAGE k "
                       "JOIN INFORMATION_SCHEMA.REFERENTIAL_CONSTRAINTS r ON "
                       "r.CONSTRAINT_SCHEMA=k.CONSTRAINT_SCHEMA AND r.TABLE_NAME=k.TABLE_NAME AND "
                       "r.CONSTRAINT_NAME=k.CONSTRAINT_NAME") +
            here.arg(QStringLiteral("k.")) +
            QStringLiteral("AND k.REFERENCED_TABLE_NAME IS NOT NULL ORDER BY k.TABLE_NAME,k.COLUMN_NAME")};
}

Shapes shapesFrom(const SchemaRows &rows)
{
    Shapes shapes;
    for (const QStringList &cells : rows.at(0))
        shapes.insert(cells.at(0), {cells.at(0), cells.at(1), cells.at(2), {}, {}, {}});
    for (const QStringList &cells : rows.at(1)) {
        const QString extra = cells.at(5).toLower();
        const bool isStamped = extra.contains(QLatin1String("on update current_timestamp"));
        if (shapes.contains(cells.at(0)))
            shapes[cells.at(0)].columns.append({cells.at(1), plainType(cells.at(2)),
                                                cells.at(3) == QLatin1String("YES"), foundPreset(cells.at(4)),
                                                extra.contains(QLatin1String("auto_increment")), isStamped,
                                                cells.at(6)});
    }
    for (const QStringList &cells : rows.at(2)) {
        KeyShape &key = shapes[cells.at(0)].key(cells.at(1));
        key.columns.append(cells.at(2));
        if (cells.at(3) == QLatin1String("0"))
            key.kind = cells.at(1) == QLatin1String("PRIMARY") ? KeyShape::Primary : KeyShape::Unique;
    }
    for (const QStringList &cells : rows.at(3)) {
        const QString rule = cells.at(4);
        const bool isRefused = rule == QLatin1String("RESTRICT") || rule == QLatin1String("NO ACTION");
        shapes[cells.at(0)].references.append(
            {cells.at(1), cells.at(2) + u'(' + cells.at(3) + u')', isRefused ? QString() : rule});
    }
    return shapes;
}

QVector<SchemaDifference> schemaDifferences(const Shapes &wanted, const Shapes &found)
{
    Comparison comparison(usualCollation(wanted, found));
    for (const TableShape &table : wanted) {
        const auto there = found.constFind(table.name);
        if (there == found.constEnd())
            comparison.missTable(table.name);
        else
            comparison.compare(table, *there);
    }
    return comparison.differences();
}

/// Each value once: along the key that a reference has that is quick, however many records there are.
QString danglingSql(const Shapes &wanted, const Shapes &found, const QStringList &without)
{
    QStringList parts;
    for (const TableShape &table : wanted) {
        for (const ReferenceShape &reference : table.references) {
            const QString target = reference.target.section(u'(', 0, 0);
            const QString column = reference.target.section(u'(', 1).chopped(1);
            if (without.contains(table.name + u'.' + reference.column) ||
                found.value(table.name).column(reference.column) == nullptr ||
                found.value(target).column(column) == nullptr)
                continue;
            parts.append(
                QStringLiteral("SELECT '%1' AS tableName,'%2' AS columnName,'%3' AS target,used.id FROM "
                               "(SELECT DISTINCT %2 AS id FROM %1) used LEFT JOIN %3 ON %3.%4=used.id "
                               "WHERE used.id IS NOT NULL AND %3.%4 IS NULL")
                    .arg(table.name, reference.column, target, column));
        }
    }
    return QStringLiteral("SELECT * FROM (%1) dangling").arg(parts.join(QStringLiteral(" UNION ALL ")));
}
} // namespace integrity
