#include "csvtext.h"

#include "money.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CsvText)
};

const int chunkSize = 1 << 20;
/// What tells the encoding and the separator stands at the beginning.
const int guessedFrom = 1 << 20;
const int guessedRecords = 200;
const char *const byteOrderMark = "\xef\xbb\xbf";
const QChar quote(u'"');
const QChar carriageReturn(u'\r');

QString refusalOf(const QFileInfo &file, qint64 most)
{
    if (!file.exists())
        return Texts::tr("Такого файла немає.");
    // Reading a device might never end.
    if (!file.isFile())
        return Texts::tr("Це не звичайний файл.");
    if (file.size() == 0)
        return Texts::tr("Файл порожній.");
    const int mega = 1 << 20;
    return file.size() > most ? Texts::tr("Файл завеликий: %1 МБ, а може мати щонайбільше %2 МБ.")
                                    .arg(wholeShown((file.size() + mega - 1) / mega), wholeShown(most / mega))
                              : QString();
}

bool isUtf16(const QByteArray &bytes)
{
    return bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
}

/// How many of the first records have that many columns.
int fittingRecords(const QString &text, const CsvForm &form, int columns)
{
    CsvReader reader(text, form);
    int fitting = 0;
    while (reader.number() < guessedRecords && reader.next())
        fitting += reader.fields().size() == columns ? 1 : 0;
    return fitting;
}

CsvEncoding guessEncoding(const QByteArray &bytes, CsvEncoding wanted)
{
    if (bytes.startsWith(byteOrderMark))
        return CsvEncoding::Utf8;
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    const auto foreign = std::count_if(text.begin(), text.end(), [](QChar c) { return c.unicode() > 127; });
    if (foreign == 0)
        return wanted;
    // A single broken letter does not make a text of another encoding: there nearly all are broken.
    return state.invalidChars < foreign - state.invalidChars ? CsvEncoding::Utf8 : CsvEncoding::Windows1251;
}
} // namespace

CsvBytes readCsvFile(const QString &path, qint64 most,
                     const std::function<bool(qint64 done, qint64 of)> &mayGoOn)
{
    CsvBytes read;
    const QFileInfo info(path);
    read.error = refusalOf(info, most);
    QFile file(path);
    if (read.error.isEmpty() && !file.open(QIODevice::ReadOnly))
        read.error = file.errorString();
    if (!read.error.isEmpty())
        return read;
    for (QByteArray chunk = file.read(chunkSize); !chunk.isEmpty(); chunk = file.read(chunkSize)) {
        read.bytes += chunk;
        if (read.bytes.size() > most || !mayGoOn(read.bytes.size(), info.size()))
            break;
    }
    if (isUtf16(read.bytes))
        read.bytes = QTextCodec::codecForName("UTF-16")->toUnicode(read.bytes).toUtf8();
    if (file.error() != QFile::NoError)
        read.error = file.errorString();
    else if (read.bytes.contains('\0'))
        read.error = Texts::tr("Це не текстовий файл. Таблицю збережіть у програмі таблиць як CSV.");
    return read;
}

CsvForm guessCsvForm(const QByteArray &bytes, const CsvForm &wanted, int columns)
{
    const QByteArray beginning = bytes.left(guessedFrom);
    CsvForm best = wanted;
    best.encoding = guessEncoding(beginning, wanted.encoding);
    const QString text = csvText(beginning, best.encoding);
    int most = fittingRecords(text, best, columns);
    for (const char separator : {';', '\t', ',', '|'}) {
        CsvForm form = best;
        form.separator = QLatin1Char(separator);
        const int fitting = fittingRecords(text, form, columns);
        if (fitting > most) {
            most = fitting;
            best = form;
        }
    }
    return best;
}

QString csvText(const QByteArray &bytes, CsvEncoding encoding)
{
    const int begin = bytes.startsWith(byteOrderMark) ? 3 : 0;
    return QTextCodec::codecForName(encoding == CsvEncoding::Utf8 ? "UTF-8" : "Windows-1251")
        ->toUnicode(bytes.constData() + begin, bytes.size() - begin);
}

bool CsvReader::next()
{
    if (m_at >= m_text.size())
        return false;
    m_fields.clear();
    ++m_number;
    for (bool isLast = false; !isLast;) {
        m_fields.append(takeField());
        isLast = m_at >= m_text.size() || m_text.at(m_at) == m_form.end;
        ++m_at;
    }
    return true;
}

QString CsvReader::takeField()
{
    QString field;
    if (takeQuoted(&field))
        return field;
    const int begin = m_at;
    while (!endsField(m_at))
        ++m_at;
    field = m_text.mid(begin, m_at - begin);
    if (field.endsWith(carriageReturn) && endsRecord(m_at - 1))
        field.chop(1);
    return field;
}

bool CsvReader::endsRecord(int at) const
{
    if (at < m_text.size() && m_text.at(at) == carriageReturn)
        ++at;
    return at >= m_text.size() || m_text.at(at) == m_form.end;
}

bool CsvReader::endsField(int at) const
{
    return at >= m_text.size() || m_text.at(at) == m_form.separator || m_text.at(at) == m_form.end;
}

/// Leaves everything as it was when the field is not quoted.
bool CsvReader::takeQuoted(QString *field)
{
    if (m_at >= m_text.size() || m_text.at(m_at) != quote)
        return false;
    bool holdsSeparator = false;
    for (int at = m_at + 1; at < m_text.size(); ++at) {
        const QChar c = m_text.at(at);
        if (c == quote && (at + 1 >= m_text.size() || m_text.at(at + 1) != quote)) {
            const bool isClosed = endsField(at + 1) || endsRecord(at + 1);
            if (isClosed)
                m_at = at + (endsField(at + 1) ? 1 : 2);
            return isClosed;
        }
        if (c == quote)
            ++at;
        holdsSeparator = holdsSeparator || c == m_form.separator;
        if (c == m_form.end && holdsSeparator)
            return false;
        field->append(c);
    }
    return false;
}
