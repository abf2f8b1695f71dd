#include "copiedtable.h"

#include "spreadsheet.h"

#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QLocale>
#include <QMimeData>
#include <QRegularExpression>

namespace {
constexpr int rowsBetween = 1024;
/// With fewer a time would be shown a second too early.
constexpr int decimalsOfDay = 12;
/// More rows are copied as text alone: their HTML would be too long for a clipboard.
constexpr int mostWithHtml = 2000;

/// How the user's language writes numbers and days.
struct Writing
{
    QLocale locale;
    QString day = fourDigitYear(locale.dateFormat(QLocale::ShortFormat));

    static QString fourDigitYear(QString format)
    {
        const QString year = QStringLiteral("yyyy");
        return format.contains(year) ? format : format.replace(QLatin1String("yy"), year);
    }

    QString number(QString plain) const { return plain.replace(QLatin1Char('.'), locale.decimalPoint()); }
    QString time(const CellValue &value) const
    {
        const QString format = value.kind == CellValue::Date ? day : day + QStringLiteral(" HH:mm:ss");
        return QDateTime::fromSecsSinceEpoch(value.number, Qt::UTC).toString(format);
    }
};

struct CopiedCell
{
    QString text;
    /// As programs write numbers; empty for a text.
    QString number;
    const char *format = spreadsheetFormat(CellValue::Text);
};

/// The digits of a cell that stands right, as numbers do in lists that know nothing of kinds; empty for
/// others.
QString digitsOf(const ListSnapshot &list, int row, int column, QString text)
{
    static const QRegularExpression blanks(QStringLiteral("[ \u00a0\u202f]"));
    static const QRegularExpression number(QStringLiteral("^-?[0-9]{1,15}(\\.[0-9]+)?$"));
    const auto alignment = Qt::Alignment(list.data(row, column, Qt::TextAlignmentRole).toInt());
    const bool isNumber = alignment.testFlag(Qt::AlignRight) && number.match(text.remove(blanks)).hasMatch();
    return isNumber ? text : QString();
}

CopiedCell cellOf(const ListSnapshot &list, int row, int column, const Writing &writing)
{
    const CellFormat &format = list.format(column);
    const std::string_view stored = list.stored(row, column);
    const CellValue value = format.valueOf(stored);
    if (value.kind == CellValue::Date || value.kind == CellValue::DateTime)
        return {writing.time(value), QString::number(spreadsheetNumber(value), 'f', decimalsOfDay),
                spreadsheetFormat(value.kind)};
    const QString plain = format.plain(stored);
    if (value.kind != CellValue::Text)
        return {writing.number(plain), plain, spreadsheetFormat(value.kind)};
    if (const QString digits = digitsOf(list, row, column, plain); !digits.isEmpty())
        return {writing.number(digits), digits, "General"};
    static const QRegularExpression breaks(QStringLiteral("\\s*[\\t\\r\\n]+\\s*"));
    return {format.shown(stored).replace(breaks, QStringLiteral(" ")), {}};
}

QString htmlCell(const CopiedCell &cell)
{
    // A format of two parts, as that of money is, would not be understood here.
    const QString text = cell.text.toHtmlEscaped();
    if (cell.number.isEmpty())
        return QStringLiteral("<td style='mso-number-format:\"\\@\"' sdnum=\"1033;0;@\">%1</td>").arg(text);
    return QStringLiteral("<td align=\"right\" sdval=\"%1\" sdnum=\"1033;0;%2\">")
               .arg(cell.number, QString::fromLatin1(cell.format).section(QLatin1Char(';'), 0, 0)) +
           text + QStringLiteral("</td>");
}

void addCaptions(const ListSnapshot &list, CopiedTable *table)
{
    QStringList captions;
    for (int column = 0; column < list.columnCount(); ++column)
        captions.append(list.caption(column).simplified());
    table->text = captions.join(QLatin1Char('\t')) + QLatin1Char('\n');
    table->html = QStringLiteral("<meta charset=\"utf-8\"><table border=\"1\"><tr><th>") +
                  captions.join(QLatin1Char('\t'))
                      .toHtmlEscaped()
                      .replace(QLatin1Char('\t'), QLatin1String("</th><th>")) +
                  QStringLiteral("</th></tr>\n");
}

void addRow(const ListSnapshot &list, int row, const Writing &writing, bool hasHtml, CopiedTable *table)
{
    if (hasHtml)
        table->html += QLatin1String("<tr>");
    for (int column = 0; column < list.columnCount(); ++column) {
        const CopiedCell cell = cellOf(list, row, column, writing);
        table->text += cell.text;
        table->text += QLatin1Char(column == list.columnCount() - 1 ? '\n' : '\t');
        if (hasHtml)
            table->html += htmlCell(cell);
    }
    if (hasHtml)
        table->html += QLatin1String("</tr>\n");
}
} // namespace

CopiedTable copiedTable(const ListSnapshot &list, const QVector<int> &rows, const ListProgress &mayGoOn)
{
    const bool hasHtml = rows.size() <= mostWithHtml;
    const Writing writing;
    CopiedTable table;
    if (rows.isEmpty())
        return table;
    addCaptions(list, &table);
    int done = 0;
    for (const int row : rows) {
        if (++done % rowsBetween == 0 && mayGoOn && !mayGoOn(done, rows.size()))
            return {};
        addRow(list, row, writing, hasHtml, &table);
    }
    table.html = hasHtml ? table.html + QLatin1String("</table>") : QString();
    return table;
}

void putOnClipboard(const CopiedTable &table)
{
    if (table.text.isEmpty())
        return;
    auto *data = new QMimeData;
    data->setText(table.text);
    if (!table.html.isEmpty())
        data->setHtml(table.html);
    QGuiApplication::clipboard()->setMimeData(data);
}
