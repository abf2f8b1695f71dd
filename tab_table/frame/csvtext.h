#pragma once

#include "csvexport.h"

#include <QByteArray>
#include <QChar>
#include <QStringList>
#include <functional>

/// How a text file of records and columns is written.
struct CsvForm
{
    CsvEncoding encoding = CsvEncoding::Utf8;
    QChar separator = QLatin1Char(';');
    QChar end = QLatin1Char('\n');

    bool operator==(const CsvForm &other) const
    {
        return encoding == other.encoding && separator == other.separator && end == other.end;
    }
};

/// The bytes of a file, or in words why there are none.
struct CsvBytes
{
    QByteArray bytes;
    QString error;
};

/// Reads a file that may hold so many bytes and is a text; one in UTF-16 comes in UTF-8. What is no text (a
/// workbook, a program), empty or too large is refused before it takes memory. mayGoOn is asked now and then;
/// false ends the reading, with no error.
CsvBytes readCsvFile(const QString &path, qint64 most,
                     const std::function<bool(qint64 done, qint64 of)> &mayGoOn);

/// The form in which the bytes make sense as records of so many columns: that encoding which does not break
/// their letters, that separator with which most of the first records have the columns. What they leave open
/// is as wanted.
CsvForm guessCsvForm(const QByteArray &bytes, const CsvForm &wanted, int columns);

/// Without a byte-order mark. What the encoding does not know becomes U+FFFD.
QString csvText(const QByteArray &bytes, CsvEncoding encoding);

/// Walks through the records of a text.
///
/// A field whose first character is a quote is quoted when its closing quote stands right before a separator
/// or the end of the record: it may hold separators, and quotes doubled. One without a separator in it may go
/// over the ends of lines. Any other quote stands for itself, so that a quote too few spoils one line at
/// most. A carriage return before the end of a record does not count.
class CsvReader
{
public:
    CsvReader(const QString &text, const CsvForm &form) : m_text(text), m_form(form) {}

    /// The next record; false behind the last. The end of the last record ends the text, it begins no other.
    bool next();
    /// As people count, from 1 on.
    int number() const { return m_number; }
    const QStringList &fields() const { return m_fields; }
    /// How many characters of the text were read.
    int position() const { return m_at; }

private:
    QString takeField();
    bool takeQuoted(QString *field);
    bool endsField(int at) const;
    bool endsRecord(int at) const;

    const QString m_text;
    const CsvForm m_form;
    QStringList m_fields;
    int m_at = 0;
    int m_number = 0;
};
