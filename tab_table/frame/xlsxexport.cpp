#include "xlsxexport.h"

#include "filejob.h"
#include "qmessevent.h"
#include "spreadsheet.h"
#include "zipcheck.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <clocale>
#include <future>
#include <thread>
#include <xlsxwriter.h>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(XlsxExport)
};

constexpr int rowsBetween = 1024;
/// How much of the work the rows are, in per mille: the rest is packing them.
constexpr int rowsPart = 600;
constexpr int whole = 1000;
/// A spreadsheet keeps so many characters of a text.
constexpr int longestText = 32767;
constexpr int longestSheetName = 31;
/// In digits; longer texts go over the edge or into a second line.
constexpr double widestColumn = 80;
/// Its edges, and the button of the filter.
constexpr double edges = 3;

constexpr int kindCount = CellValue::KindCount;

bool isAscii(std::string_view text)
{
    for (const char c : text) {
        if (static_cast<signed char>(c) <= 0)
            return false;
    }
    return true;
}

/// A text without what its file cannot hold.
QByteArray cleanText(QString text)
{
    if (text.size() > longestText)
        text = text.left(longestText - 1) + QStringLiteral("…");
    for (QChar &c : text) {
        if (c.isNull() || c.unicode() >= 0xfffe)
            c = QChar::ReplacementCharacter;
    }
    return text.toUtf8();
}

QString sheetName(const QString &title)
{
    QString name = title;
    name.replace(QRegularExpression(QStringLiteral("[\\[\\]:*?/\\\\'\\s]+")), QStringLiteral(" "));
    name = name.left(longestSheetName).trimmed();
    return name.isEmpty() ? Texts::tr("Список") : name;
}

/// The library prints numbers as the thread's language does, with its decimal comma: no spreadsheet would
/// read them.
class PlainNumbers
{
    Q_DISABLE_COPY(PlainNumbers)

public:
    PlainNumbers()
        : m_plain(newlocale(LC_NUMERIC_MASK, "C", duplocale(LC_GLOBAL_LOCALE))), m_before(uselocale(m_plain))
    {
    }
    ~PlainNumbers()
    {
        uselocale(m_before);
        freelocale(m_plain);
    }

private:
    locale_t m_plain;
    locale_t m_before;
};

/// The library's workbook in a private folder, which it writes in pieces, closes and leaves there.
class Workbook
{
    Q_DISABLE_COPY(Workbook)

public:
    Workbook() : m_folder(QDir::tempPath() + QStringLiteral("/veltab-xlsx-XXXXXX"))
    {
        if (!m_folder.isValid())
            return;
        QByteArray folder = QFile::encodeName(m_folder.path());
        lxw_workbook_options options = {};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = folder.data();
        m_book = workbook_new_opt(QFile::encodeName(path()).constData(), &options);
    }
    ~Workbook()
    {
        if (m_book == nullptr)
            return;
        // It was not closed: the library forgets its rows then, but not their file.
        if (m_sheet != nullptr && m_sheet->optimize_tmpfile != nullptr)
            fclose(m_sheet->optimize_tmpfile);
        lxw_workbook_free(m_book);
    }

    QString path() const { return m_folder.filePath(QStringLiteral("list.xlsx")); }
    QString folder() const { return QDir::tempPath(); }

    lxw_worksheet *addSheet(const QString &name)
    {
        if (m_book != nullptr)
            m_sheet = workbook_add_worksheet(m_book, name.toUtf8().constData());
        return m_sheet;
    }
    lxw_format *addFormat(const char *numbers = nullptr)
    {
        lxw_format *format = workbook_add_format(m_book);
        if (numbers != nullptr)
            format_set_num_format(format, numbers);
        return format;
    }

    /// The library does not look whether its own files take what it writes.
    bool takesRows() const { return ferror(m_sheet->optimize_tmpfile) == 0; }
    /// Why they do not; empty when they do.
    QString lostRows() const
    {
        errno = 0;
        const bool isLost = fflush(m_sheet->optimize_tmpfile) != 0 || !takesRows();
        return isLost ? qt_error_string(errno != 0 ? errno : ENOSPC) : QString();
    }

    /// Packs everything; empty, or why that failed.
    QString close()
    {
        if (QString lost = lostRows(); !lost.isEmpty())
            return lost;
        const lxw_error error = workbook_close(std::exchange(m_book, nullptr));
        return error == LXW_NO_ERROR && isWholeXmlArchive(path())
                   ? QString()
                   : Texts::tr("він вийшов неповним, перевірте вільне місце на диску.");
    }

private:
    QTemporaryDir m_folder;
    lxw_workbook *m_book = nullptr;
    lxw_worksheet *m_sheet = nullptr;
};

/// One list on its way into a sheet, from top to bottom.
class Sheet
{
public:
    Sheet(Workbook *book, lxw_worksheet *sheet, const PrintedList &list) : m_sheet(sheet), m_list(list)
    {
        addFormats(book);
        for (int column = 0; column < rows().columnCount(); ++column)
            m_formats.push_back(rows().format(column));
    }

    bool write(const ListProgress &mayGoOn, const Workbook &book)
    {
        setWidths();
        addHeading();
        addCaptions();
        if (!addRows(mayGoOn, book))
            return false;
        addSums();
        addTotals();
        setUpPrinting();
        return book.takesRows();
    }

private:
    const ListSnapshot &rows() const { return m_list.rows; }
    lxw_col_t lastColumn() const { return static_cast<lxw_col_t>(rows().columnCount() - 1); }

    void addFormats(Workbook *book)
    {
        for (int kind = 0; kind < kindCount; ++kind)
            m_kinds[size_t(kind)] = book->addFormat(spreadsheetFormat(CellValue::Kind(kind)));
        m_title = book->addFormat();
        format_set_bold(m_title);
        format_set_font_size(m_title, 14);
        m_caption = book->addFormat();
        format_set_bold(m_caption);
        format_set_text_wrap(m_caption);
        format_set_align(m_caption, LXW_ALIGN_CENTER);
        format_set_align(m_caption, LXW_ALIGN_VERTICAL_CENTER);
        format_set_bg_color(m_caption, 0xe7ecf3);
        format_set_border(m_caption, LXW_BORDER_THIN);
        m_bold = book->addFormat();
        format_set_bold(m_bold);
        m_sum = book->addFormat(spreadsheetFormat(CellValue::Money));
        format_set_bold(m_sum);
        format_set_top(m_sum, LXW_BORDER_THIN);
    }

    void setWidths()
    {
        for (int column = 0; column < rows().columnCount(); ++column) {
            const auto place = static_cast<lxw_col_t>(column);
            const double width = qMin(rows().width(column) + edges, widestColumn);
            worksheet_set_column(m_sheet, place, place, width, nullptr);
        }
    }

    void addText(int column, const QString &text, lxw_format *format)
    {
        if (!text.isEmpty())
            worksheet_write_string(m_sheet, m_row, static_cast<lxw_col_t>(column),
                                   cleanText(text).constData(), format);
    }

    void addHeading()
    {
        for (const QString &line : m_list.heading) {
            addText(0, line, m_row == 0 ? m_title : nullptr);
            ++m_row;
        }
        if (!m_list.heading.isEmpty())
            ++m_row;
    }

    void addCaptions()
    {
        for (int column = 0; column < rows().columnCount(); ++column)
            worksheet_write_string(m_sheet, m_row, static_cast<lxw_col_t>(column),
                                   cleanText(rows().caption(column)).constData(), m_caption);
        m_captionRow = m_row++;
    }

    bool addRows(const ListProgress &mayGoOn, const Workbook &book)
    {
        m_sums.assign(m_formats.size(), 0);
        for (int row = 0; row < rows().rowCount(); ++row) {
            if (row % rowsBetween == 0 &&
                (!book.takesRows() || !mayGoOn(qint64(rowsPart) * row / rows().rowCount(), whole)))
                return false;
            for (size_t column = 0; column < m_formats.size(); ++column)
                addCell(row, column);
            ++m_row;
        }
        const lxw_row_t last = qMax(m_captionRow, m_row - 1);
        worksheet_autofilter(m_sheet, m_captionRow, 0, last, lastColumn());
        worksheet_freeze_panes(m_sheet, m_captionRow + 1, 0);
        char range[LXW_MAX_CELL_RANGE_LENGTH];
        lxw_rowcol_to_range(range, m_captionRow, 0, last, lastColumn());
        worksheet_ignore_errors(m_sheet, LXW_IGNORE_NUMBER_STORED_AS_TEXT, range);
        return true;
    }

    void addCell(int row, size_t column)
    {
        const std::string_view stored = rows().stored(row, static_cast<int>(column));
        if (stored.empty())
            return;
        const CellValue value = m_formats[column].valueOf(stored);
        if (!isSpreadsheetNumber(value))
            return addPlain(stored, column);
        if (m_formats[column].addsUp)
            m_sums[column] += value.number;
        worksheet_write_number(m_sheet, m_row, static_cast<lxw_col_t>(column), spreadsheetNumber(value),
                               m_kinds[value.kind]);
    }

    /// Without a QString where the bytes can be taken as they are.
    void addPlain(std::string_view stored, size_t column)
    {
        const CellFormat &format = m_formats[column];
        char room[CellFormat::plainRoom];
        const std::string_view bytes =
            format.plainBytes != nullptr ? format.plainBytes(stored, room) : std::string_view();
        if (bytes.empty() || bytes.size() > longestText || !isAscii(bytes))
            return addText(static_cast<int>(column), format.plain(stored), m_kinds[CellValue::Text]);
        m_text.assign(bytes);
        worksheet_write_string(m_sheet, m_row, static_cast<lxw_col_t>(column), m_text.c_str(),
                               m_kinds[CellValue::Text]);
    }

    /// A row below the list, so that sorting and filtering leave it where it is; it follows the filter.
    void addSums()
    {
        ++m_row;
        const auto addsUp = [](const CellFormat &format) { return format.addsUp; };
        if (rows().rowCount() == 0 || std::none_of(m_formats.begin(), m_formats.end(), addsUp))
            return;
        for (size_t column = 0; column < m_formats.size(); ++column) {
            if (m_formats[column].addsUp)
                addSum(column);
        }
        const auto named = std::find_if_not(m_formats.begin(), m_formats.end(), addsUp);
        if (named != m_formats.end())
            addText(static_cast<int>(named - m_formats.begin()), Texts::tr("Разом"), m_bold);
        ++m_row;
    }

    void addSum(size_t column)
    {
        const auto place = static_cast<lxw_col_t>(column);
        char range[LXW_MAX_CELL_RANGE_LENGTH];
        lxw_rowcol_to_range(range, m_captionRow + 1, place, m_captionRow + lxw_row_t(rows().rowCount()),
                            place);
        const std::string formula = std::string("=SUBTOTAL(109,") + range + ')';
        worksheet_write_formula_num(m_sheet, m_row, place, formula.c_str(), m_sum,
                                    spreadsheetNumber({CellValue::Money, m_sums[column]}));
    }

    void addTotals()
    {
        for (const QString &line : m_list.totals) {
            addText(0, line, m_bold);
            ++m_row;
        }
    }

    void setUpPrinting()
    {
        worksheet_set_paper(m_sheet, 9);
        worksheet_set_landscape(m_sheet);
        worksheet_fit_to_pages(m_sheet, 1, 0);
        worksheet_repeat_rows(m_sheet, m_captionRow, m_captionRow);
    }

    lxw_worksheet *m_sheet;
    const PrintedList &m_list;
    std::vector<CellFormat> m_formats;
    std::vector<qint64> m_sums;
    std::array<lxw_format *, kindCount> m_kinds{};
    lxw_format *m_title = nullptr;
    lxw_format *m_caption = nullptr;
    lxw_format *m_bold = nullptr;
    lxw_format *m_sum = nullptr;
    lxw_row_t m_row = 0;
    lxw_row_t m_captionRow = 0;
    std::string m_text;
};

/// The library packs at a stretch: whoever does not want the file any more leaves it to itself, with its
/// folder.
bool closeBook(const std::shared_ptr<Workbook> &book, const ListProgress &mayGoOn, QString *why)
{
    std::packaged_task<QString()> closing([book] {
        const PlainNumbers plain;
        return book->close();
    });
    std::future<QString> closed = closing.get_future();
    std::thread(std::move(closing)).detach();
    while (closed.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready) {
        if (!mayGoOn(rowsPart, whole))
            return false;
    }
    *why = closed.get();
    return why->isEmpty();
}

bool copyInto(QIODevice *out, const QString &path, const ListProgress &mayGoOn, QString *why)
{
    constexpr qint64 piece = 1 << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *why = file.errorString();
        return false;
    }
    while (!file.atEnd()) {
        const QByteArray bytes = file.read(piece);
        if (bytes.isEmpty() || !mayGoOn(whole - 1, whole))
            return false;
        for (qint64 done = 0; done < bytes.size();) {
            const qint64 written = out->write(bytes.constData() + done, bytes.size() - done);
            if (written <= 0)
                return false;
            done += written;
        }
    }
    return true;
}
} // namespace

bool writeXlsx(const PrintedList &list, QIODevice *out, const ListProgress &mayGoOn, QString *why)
{
    const PlainNumbers plain;
    const auto book = std::make_shared<Workbook>();
    lxw_worksheet *sheet = book->addSheet(sheetName(list.heading.value(0)));
    const QString place = Texts::tr("У теці %1 не записується тимчасовий файл: %2");
    if (sheet == nullptr) {
        *why = place.arg(book->folder(), qt_error_string(errno));
        return false;
    }
    if (!Sheet(book.get(), sheet, list).write(mayGoOn, *book)) {
        if (const QString lost = book->lostRows(); !lost.isEmpty())
            *why = place.arg(book->folder(), lost);
        return false;
    }
    QString reason;
    if (!closeBook(book, mayGoOn, &reason)) {
        if (!reason.isEmpty())
            *why = place.arg(book->folder(), reason);
        return false;
    }
    return copyInto(out, book->path(), mayGoOn, why);
}

bool saveXlsx(QObject *receiver, const PrintedList &list, const QString &path)
{
    if (list.rows.rowCount() > mostXlsxRows) {
        postMessage(receiver, Texts::tr("У файл XLSX вміщується не більше ніж %1 рядків, у списку їх %2. "
                                        "Звузьте умови або збережіть список у CSV.")
                                  .arg(mostXlsxRows)
                                  .arg(list.rows.rowCount()));
        return false;
    }
    return saveInBackground(receiver, path,
                            [list](QIODevice *file, const ListProgress &mayGoOn, QString *why) {
                                return writeXlsx(list, file, mayGoOn, why);
                            });
}
