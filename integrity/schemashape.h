#pragma once

#include <QMap>
#include <QStringList>
#include <QVector>

namespace integrity {
/// What a table of the database is, as far as the programs rely on it. What versions and makes of the server
/// show differently (the width of whole numbers, quotes around defaults, names of keys) is the same here.
struct ColumnShape
{
    QString name;
    /// "int unsigned", "char(50)", "tinyint".
    QString type;
    bool isNull = true;
    /// Empty for none; "0000-00-00" for a zero date.
    QString preset;
    bool isCounted = false;
    /// Set to the time of every change by the server.
    bool isStamped = false;
    /// Of a text; empty where it is not known.
    QString collation;
};

struct KeyShape
{
    enum Kind { Primary, Unique, Plain };
    Kind kind = Plain;
    QStringList columns;
    QString name;
};

struct ReferenceShape
{
    QString column;
    /// "goods(id)"
    QString target;
    /// "CASCADE", "SET NULL" or, when deleting is refused, empty.
    QString onDelete;
};

struct TableShape
{
    QString name;
    QString engine;
    QString collation;
    QVector<ColumnShape> columns;
    QVector<KeyShape> keys;
    QVector<ReferenceShape> references;

    const ColumnShape *column(const QString &columnName) const;
    /// Of that column; null for none.
    const ReferenceShape *reference(const QString &columnName) const;
    /// Made when there is none of that name.
    KeyShape &key(const QString &keyName);
};
/// By the name of the table.
using Shapes = QMap<QString, TableShape>;

/// What the program's own definitions make.
Shapes wantedShapes();

/// The rows of the four statements of schemaStatements(), in their order.
using SchemaRows = QVector<QVector<QStringList>>;
QStringList schemaStatements();
Shapes shapesFrom(const SchemaRows &rows);

/// One thing that is otherwise than the definitions. what tells which check finds it ("schema_key").
struct SchemaDifference
{
    const char *check;
    QString table;
    QString words;
};
/// Tables of other programs, further columns that may stay empty and further keys that refuse nothing are no
/// difference.
QVector<SchemaDifference> schemaDifferences(const Shapes &wanted, const Shapes &found);

/// Finds the values of columns that refer to records which are not there: table, column, id and the table
/// that lacks it. without: those that are not looked at, as "prices.id_group"; neither are tables and columns
/// that were not found.
QString danglingSql(const Shapes &wanted, const Shapes &found, const QStringList &without);
} // namespace integrity
