#include "dbffile.h"

#include <QFile>
#include <QtEndian>

namespace {
template<typename Number>
QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof(number), '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}
} // namespace

DbfMaker &DbfMaker::add(const QVector<QByteArray> &values, char flag)
{
    m_records += flag;
    for (int i = 0; i < m_fields.size(); ++i)
        m_records += values.value(i).leftJustified(m_fields.at(i).length, ' ', true);
    ++m_count;
    return *this;
}

QByteArray DbfMaker::bytes() const
{
    int recordLength = 1;
    QByteArray fields;
    for (const DbfMadeField &field : m_fields) {
        fields += field.name.leftJustified(11, '\0', true) + field.type + QByteArray(4, '\0') +
                  static_cast<char>(field.length) + QByteArray(15, '\0');
        recordLength += field.length;
    }
    const int headerLength = 32 + fields.size() + 1;
    return QByteArray("\x03\x7a\x0b\x17") + littleEndian(m_count) +
           littleEndian(static_cast<quint16>(headerLength)) +
           littleEndian(static_cast<quint16>(recordLength)) + QByteArray(20, '\0') + fields + '\r' +
           m_records + '\x1a';
}

CardsDbf::CardsDbf()
    : DbfMaker({{"NUM", 'N', 6}, {"CODE", 'C', 12}, {"NAME", 'C', 20}, {"DATE", 'D', 8}, {"LEVEL", 'N', 5}})
{
}

CardsDbf &CardsDbf::card(const QByteArray &code, const QByteArray &level, char flag)
{
    // Windows-1251 for "Їжак".
    add({"1", code, "\xaf\xe6\xe0\xea", "20240229", level}, flag);
    return *this;
}

QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(path));
    return path;
}
