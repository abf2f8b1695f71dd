#pragma once

#include <QByteArray>
#include <QVector>

/// A field of a DBF file that is to be made: its name of eleven bytes at most, type and length.
struct DbfMadeField
{
    QByteArray name;
    char type;
    int length;
};

/// Makes the bytes of DBF files, sound ones and others.
class DbfMaker
{
public:
    explicit DbfMaker(const QVector<DbfMadeField> &fields) : m_fields(fields) {}

    /// A record: one value for each field, cut or filled up with blanks.
    DbfMaker &add(const QVector<QByteArray> &values, char flag = ' ');
    QByteArray bytes() const;

private:
    QVector<DbfMadeField> m_fields;
    QByteArray m_records;
    quint32 m_count = 0;
};

/// A file of cards as the import expects it: field 2 the code, field 5 the discount level.
class CardsDbf : public DbfMaker
{
public:
    CardsDbf();
    CardsDbf &card(const QByteArray &code, const QByteArray &level, char flag = ' ');
};

/// Writes a file and returns its path.
QString writeFile(const QString &path, const QByteArray &bytes);
